// What needs a virtual machine that runs out of memory, or a sanitizer; the rest is in tests/java/.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <jni.h>

#include <string>

#include "support/fake_java.h"

extern "C" {
// clang-format off
jint     JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_createInstance(JNIEnv*, jobject);
void     JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_destroyInstance(JNIEnv*, jobject, jint);
void     JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_loadTable(JNIEnv*, jobject, jint, jstring, jint, jint);
jstring  JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readItem(JNIEnv*, jobject, jint, jint);
jstring  JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readDateItem(JNIEnv*, jobject, jint, jint, jstring);
jbyteArray JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readItemBytes(JNIEnv*, jobject, jint, jint);
void     JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_writeItem(JNIEnv*, jobject, jint, jint, jstring);
void     JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_setCompleteRecord(JNIEnv*, jobject, jint, jstring, jstring);
jint     JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_findFirst(JNIEnv*, jobject, jint, jint, jstring);
jint     JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_deleteX4Mutation(JNIEnv*, jobject, jint, jstring);
jboolean JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readVRecords(JNIEnv*, jobject, jint, jstring);
void     JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_setMutationList(JNIEnv*, jobject, jint, jstring, jstring);
jobject  JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readG9Mutation(JNIEnv*, jobject, jint, jint);
void     JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readFirst(JNIEnv*, jobject, jint, jint);
// clang-format on
}

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::string Padded(std::string text, std::size_t length) {
    text.resize(length, ' ');
    return text;
}

class JavaNatives : public testing::Test {
protected:
    void SetUp() override {
        m_nHandle = Java_de_quorvil_application_tabvex_TabVexImpl_createInstance(m_pEnv, m_Self);
        Java_de_quorvil_application_tabvex_TabVexImpl_loadTable(
            m_pEnv, m_Self, m_nHandle, m_Java.String(TABVEX_SAMPLES_DIR "/calculation.table"), 3, 2);
        EXPECT_THAT(m_Java.TakeCodes(), ElementsAre(0));
    }
    void TearDown() override {
        EXPECT_FALSE(m_Java.IsExceptionPending());
        EXPECT_EQ(m_Java.CopiesOut(), 0);
        Java_de_quorvil_application_tabvex_TabVexImpl_destroyInstance(m_pEnv, m_Self, m_nHandle);
    }
    void AddLine(const std::string& type, const std::string& line) {
        Java_de_quorvil_application_tabvex_TabVexImpl_setCompleteRecord(m_pEnv, m_Self, m_nHandle, m_Java.String(type),
                                                                        m_Java.String(line));
    }
    std::string ReadItem(int item) {
        return tabvex_test::CFakeJava::TextOf(
            Java_de_quorvil_application_tabvex_TabVexImpl_readItem(m_pEnv, m_Self, m_nHandle, item));
    }

    tabvex_test::CFakeJava m_Java;
    JNIEnv* m_pEnv = m_Java.Env();
    jobject m_Self = m_Java.Self();
    int m_nHandle = 0;
};

TEST_F(JavaNatives, LinesOfAnyLengthAreTakenOrRefusedWithoutLeavingTheirCopy) {
    for (const std::size_t length : {0U, 1U, 127U, 128U, 129U, 5000U}) {
        AddLine("T0", Padded("T0", length));
        EXPECT_THAT(m_Java.TakeCodes(), ElementsAre(length == 128 ? 0 : -1)) << length;
    }
}

TEST_F(JavaNatives, ALongItemIsRefusedAsATextAndComesAsBytes) {
    const std::string title = Padded("Calculation", 121);
    AddLine("T0", "T0     " + title);
    EXPECT_EQ(ReadItem(34005), "null");
    EXPECT_EQ(tabvex_test::CFakeJava::TextOf(
                  Java_de_quorvil_application_tabvex_TabVexImpl_readItemBytes(m_pEnv, m_Self, m_nHandle, 34005)),
              title);
    EXPECT_THAT(m_Java.TakeCodes(), ElementsAre(0, -1000, 0));
}

TEST_F(JavaNatives, AMutationFillsItsTexts) {
    Java_de_quorvil_application_tabvex_TabVexImpl_setMutationList(m_pEnv, m_Self, m_nHandle, m_Java.String("g9"),
                                                                  m_Java.String("TM/3"));
    EXPECT_THAT(m_Java.TakeCodes(), IsEmpty());
    AddLine("G9", Padded("G900012E  0283  241000TM LAtwo layers", 128));
    Java_de_quorvil_application_tabvex_TabVexImpl_readFirst(m_pEnv, m_Self, m_nHandle, 19225);
    EXPECT_EQ(tabvex_test::CFakeJava::TextOf(
                  Java_de_quorvil_application_tabvex_TabVexImpl_readG9Mutation(m_pEnv, m_Self, m_nHandle, 1)),
              "object of de/quorvil/application/tabvex/G9Mutation, TM, -1, LA, two layers");
    EXPECT_THAT(m_Java.TakeCodes(), ElementsAre(0, 0, 0));
}

TEST_F(JavaNatives, WithoutMemoryForATextNothingIsDone) {
    m_Java.FailAfter(0);
    Java_de_quorvil_application_tabvex_TabVexImpl_writeItem(m_pEnv, m_Self, m_nHandle, 1090, m_Java.String("Ben"));
    EXPECT_EQ(ReadItem(1090), "null") << "no record was created";
    EXPECT_THAT(m_Java.TakeCodes(), ElementsAre(-98, -1));
}

TEST_F(JavaNatives, WithoutMemoryForItsTextASearchIsNotTakenForOneThatFoundNothing) {
    m_Java.FailAfter(0);
    EXPECT_EQ(Java_de_quorvil_application_tabvex_TabVexImpl_findFirst(m_pEnv, m_Self, m_nHandle, 2120,
                                                                      m_Java.String("Spoiler")),
              -98);
    EXPECT_EQ(
        Java_de_quorvil_application_tabvex_TabVexImpl_deleteX4Mutation(m_pEnv, m_Self, m_nHandle, m_Java.String("EM")),
        -98);
    EXPECT_EQ(
        Java_de_quorvil_application_tabvex_TabVexImpl_readVRecords(m_pEnv, m_Self, m_nHandle, m_Java.String("file")),
        0);
    EXPECT_THAT(m_Java.TakeCodes(), ElementsAre(-98, -98, -98));
}

TEST_F(JavaNatives, WithoutMemoryForTheSecondTextNothingIsDoneEither) {
    m_Java.FailAfter(1);
    AddLine("T0", Padded("T0", 128));
    m_Java.FailAfter(1);
    Java_de_quorvil_application_tabvex_TabVexImpl_setMutationList(m_pEnv, m_Self, m_nHandle, m_Java.String("X4"),
                                                                  m_Java.String("TM/3"));
    EXPECT_THAT(m_Java.TakeCodes(), ElementsAre(-98, -98));
}

TEST_F(JavaNatives, WithoutMemoryForTheAnswerItIsNull) {
    AddLine("X1", Padded("X10001", 23) + Padded("14.11.2025", 105));
    m_Java.FailAfter(0);
    EXPECT_EQ(ReadItem(1030), "null");
    m_Java.FailAfter(1);
    EXPECT_EQ(Java_de_quorvil_application_tabvex_TabVexImpl_readDateItem(m_pEnv, m_Self, m_nHandle, 1030,
                                                                         m_Java.String("DD.MM.YYYY")),
              nullptr);
    m_Java.FailAfter(1);
    EXPECT_EQ(ReadItem(1030), "14.11.2025");
    EXPECT_THAT(m_Java.TakeCodes(), ElementsAre(0, -98, -98, 0));
}

} // namespace
