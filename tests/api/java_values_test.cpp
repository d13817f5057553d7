#include "api/java_values.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "support/fake_java.h"

using tabvex::CJavaBytes;
using tabvex::CMutationTexts;
using tabvex::ReportBytes;
using tabvex::ReportMutation;
using tabvex::ReportText;
using testing::ElementsAre;

namespace {

class JavaValues : public testing::Test {
protected:
    std::string MadeOf(const char* text) {
        return tabvex_test::CFakeJava::TextOf(ReportText(m_Java.Env(), m_Java.Self(), 0, text));
    }
    std::string Mutation(const CMutationTexts* mutation) {
        jobject made = ReportMutation(m_Java.Env(), m_Java.Self(), "Class", mutation);
        EXPECT_FALSE(m_Java.IsExceptionPending());
        return tabvex_test::CFakeJava::TextOf(made);
    }
    static CMutationTexts EmMutation() {
        CMutationTexts mutation;
        mutation.szCode[0] = 'E';
        mutation.fValue = 12;
        mutation.szText1[0] = 'L';
        mutation.szText2[0] = 'A';
        return mutation;
    }

    tabvex_test::CFakeJava m_Java;
};

TEST_F(JavaValues, AStringIsCopiedAsItsModifiedUtf8AndGivenBack) {
    const CJavaBytes bytes(m_Java.Env(), m_Java.String("J\xC3\xBC\xC0\x80!"));
    ASSERT_TRUE(bytes.IsHere());
    EXPECT_EQ(bytes.Code(), 0);
    EXPECT_STREQ(bytes.Get(), "J\xC3\xBC\xC0\x80!");
    EXPECT_EQ(bytes.Size(), 7);
    EXPECT_EQ(m_Java.CopiesOut(), 0);
}

TEST_F(JavaValues, AnArrayOfBytesIsCopied) {
    const CJavaBytes bytes(m_Java.Env(), m_Java.Bytes("J\xFC"));
    EXPECT_STREQ(bytes.Get(), "J\xFC");
    EXPECT_EQ(bytes.Size(), 3);
    EXPECT_STREQ(CJavaBytes(m_Java.Env(), m_Java.Bytes("")).Get(), "");
}

TEST_F(JavaValues, NullIsABadArgument) {
    EXPECT_EQ(CJavaBytes(m_Java.Env(), jstring{}).Code(), -1);
    EXPECT_EQ(CJavaBytes(m_Java.Env(), jbyteArray{}).Code(), -1);
    EXPECT_FALSE(CJavaBytes(m_Java.Env(), jbyteArray{}).IsHere());
}

TEST_F(JavaValues, AStringThatThereIsNoMemoryForIsAFailureWithoutAnException) {
    m_Java.FailAfter(0);
    EXPECT_EQ(CJavaBytes(m_Java.Env(), m_Java.String("x")).Code(), -98);
    EXPECT_FALSE(m_Java.IsExceptionPending());
}

TEST_F(JavaValues, BytesWhoseSizeWithTerminatorIsBeyondAnIntAreAFailure) {
    m_Java.ClaimLength(INT_MAX);
    const CJavaBytes bytes(m_Java.Env(), m_Java.Bytes("x"));
    EXPECT_EQ(bytes.Code(), -98);
    EXPECT_EQ(bytes.Get(), nullptr);
}

TEST_F(JavaValues, BytesOfNoCharacterBecomeTheCharacterOfTheirNumber) {
    // clang-format off
    const struct { const char* Bytes; const char* Made; } rows[] = {
        // whole characters stay: of one, two and three bytes, the smallest and the largest of each
        {"", ""}, {"\x01 ~\x7F", "\x01 ~\x7F"},
        {"\xC2\x80", "\xC2\x80"}, {"\xDF\xBF", "\xDF\xBF"}, {"\xC0\x80", "\xC0\x80"},
        {"\xE0\xA0\x80", "\xE0\xA0\x80"}, {"\xEF\xBF\xBF", "\xEF\xBF\xBF"}, {"\xED\xA0\x80", "\xED\xA0\x80"},
        // bytes that continue nothing
        {"\x80", "\xC2\x80"}, {"\xBF", "\xC2\xBF"}, {"a\x80" "b", "a\xC2\x80" "b"},
        // characters that break off
        {"\xC3", "\xC3\x83"}, {"\xC3" "a", "\xC3\x83" "a"}, {"\xE4", "\xC3\xA4"}, {"\xE4\x80", "\xC3\xA4\xC2\x80"},
        {"\xE4\x80" "a", "\xC3\xA4\xC2\x80" "a"}, {"\xE4\xC3\xBC", "\xC3\xA4\xC3\xBC"},
        // characters that are longer than they need to be
        {"\xC0\x81", "\xC3\x80\xC2\x81"}, {"\xC0\xBF", "\xC3\x80\xC2\xBF"}, {"\xC1\x80", "\xC3\x81\xC2\x80"},
        {"\xC1\xBF", "\xC3\x81\xC2\xBF"}, {"\xE0\x80\x80", "\xC3\xA0\xC2\x80\xC2\x80"},
        {"\xE0\x9F\xBF", "\xC3\xA0\xC2\x9F\xC2\xBF"},
        // characters of four bytes, and bytes that begin nothing
        {"\xF0\x9F\x98\x80", "\xC3\xB0\xC2\x9F\xC2\x98\xC2\x80"}, {"\xF8", "\xC3\xB8"}, {"\xFE\xFF", "\xC3\xBE\xC3\xBF"},
    };
    // clang-format on
    for (const auto& row : rows) {
        EXPECT_EQ(MadeOf(row.Bytes), row.Made);
    }
}

TEST_F(JavaValues, TheResultIsReportedWithTheText) {
    EXPECT_EQ(MadeOf("text"), "text");
    EXPECT_EQ(ReportText(m_Java.Env(), m_Java.Self(), -5, nullptr), nullptr);
    EXPECT_EQ(MadeOf(nullptr), "null");
    EXPECT_THAT(m_Java.TakeCodes(), ElementsAre(0, -5, 0));
}

TEST_F(JavaValues, ATextThatThereIsNoMemoryForIsNullAndReported) {
    m_Java.FailAfter(0);
    EXPECT_EQ(MadeOf("text"), "null");
    EXPECT_EQ(ReportBytes(m_Java.Env(), m_Java.Self(), 0, "text"), nullptr);
    EXPECT_THAT(m_Java.TakeCodes(), ElementsAre(-98, -98));
    EXPECT_FALSE(m_Java.IsExceptionPending());
}

TEST_F(JavaValues, TheResultIsReportedWithTheBytes) {
    jbyteArray made = ReportBytes(m_Java.Env(), m_Java.Self(), 0, "J\xFC");
    EXPECT_EQ(tabvex_test::CFakeJava::TextOf(made), "J\xFC");
    EXPECT_EQ(ReportBytes(m_Java.Env(), m_Java.Self(), -50, nullptr), nullptr);
    EXPECT_THAT(m_Java.TakeCodes(), ElementsAre(0, -50));
}

TEST_F(JavaValues, AMutationIsAnObjectWhoseSettersWereCalled) {
    const CMutationTexts mutation = EmMutation();
    EXPECT_EQ(Mutation(&mutation), "object of Class, E, 12, L, A");
    EXPECT_EQ(Mutation(nullptr), "null");
    EXPECT_THAT(m_Java.TakeCodes(), ElementsAre(0, 0));
}

TEST_F(JavaValues, WithoutTheClassOrAnObjectOfItThereIsNoMutation) {
    const CMutationTexts mutation = EmMutation();
    for (const int allocations : {0, 1}) {
        m_Java.FailAfter(allocations);
        EXPECT_EQ(Mutation(&mutation), "null");
        EXPECT_THAT(m_Java.TakeCodes(), ElementsAre(0));
    }
}

TEST_F(JavaValues, AMutationWhoseTextsThereIsNoMemoryForIsNullAndReported) {
    const CMutationTexts mutation = EmMutation();
    for (const int allocations : {2, 3, 4}) { // class, object, then the three texts
        m_Java.FailAfter(allocations);
        EXPECT_EQ(Mutation(&mutation), "null");
        EXPECT_THAT(m_Java.TakeCodes(), ElementsAre(-98));
    }
}

} // namespace
