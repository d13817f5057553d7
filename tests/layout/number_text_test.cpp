#include "layout/number_text.h"

#include <limits>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "support/decimal_comma_locale.h"

namespace {

using tabvex::ParseDecimal;
using tabvex::ParseInteger;

constexpr int kLargest = 2147483647;
constexpr int kSmallest = -2147483647 - 1;
constexpr double kLargestDouble = std::numeric_limits<double>::max();

struct CIntegerRow {
    std::string_view Text;
    bool IsNumber;
    int Value;
};

const CIntegerRow kIntegers[] = {
    {"0", true, 0},
    {"7", true, 7},
    {"007", true, 7},
    {"-7", true, -7},
    {"+7", true, 7},
    {"-0", true, 0},
    {"  7", true, 7},
    {" \t\n\v\f\r-7", true, -7},
    {" +7", true, 7},
    {"2147483647", true, kLargest},
    {"2147483648", false, kLargest},
    {"-2147483648", true, kSmallest},
    {"-2147483649", false, kSmallest},
    {"99999999999999999999999999999999", false, kLargest},
    {"-99999999999999999999999999999999", false, kSmallest},
    {"00000000000000000000000000000000001", true, 1},
    {"", false, 0},
    {" ", false, 0},
    {"+", false, 0},
    {"-", false, 0},
    {"--7", false, 0},
    {"++7", false, 0},
    {"+-7", false, 0},
    {"-+7", false, 0},
    {"- 7", false, 0},
    {"+ 7", false, 0},
    {"7 ", false, 7},
    {"7-", false, 7},
    {"12x", false, 12},
    {"x12", false, 0},
    {"1.5", false, 1},
    {"1,5", false, 1},
    {"0x10", false, 0},
    {"1e3", false, 1},
    {"1.000", false, 1},
    {"\xA0"
     "7",
     false, 0},
    {std::string_view("7\0", 2), false, 7},
    {std::string_view("\0007", 2), false, 0},
};

struct CDecimalRow {
    std::string_view Text;
    bool IsNumber;
    double Value;
};

const CDecimalRow kDecimals[] = {
    {"0", true, 0.0},
    {"12", true, 12.0},
    {"000000012", true, 12.0},
    {"0000000000012", true, 12.0},
    {"999999999", true, 999999999.0},
    {"9999999999", true, 9999999999.0},
    {"99999999999999999999", true, 1e20},
    {"12x", false, 12.0},
    {"12 ", false, 12.0},
    {"1.5", true, 1.5},
    {"1,5", true, 1.5},
    {"-1.5", true, -1.5},
    {"-1,5", true, -1.5},
    {"+1.5", true, 1.5},
    {"+,5", true, 0.5},
    {"  1.5", true, 1.5},
    {" \t\n\v\f\r1,5", true, 1.5},
    {"5.", true, 5.0},
    {"5,", true, 5.0},
    {".5", true, 0.5},
    {",5", true, 0.5},
    {"-.5", true, -0.5},
    {"1e3", true, 1000.0},
    {"1E3", true, 1000.0},
    {"1e+3", true, 1000.0},
    {"2,5e-1", true, 0.25},
    {"2147483648", true, 2147483648.0},
    {"0000000000000000000000000000001,25", true, 1.25},
    {"1.7976931348623157e308", true, kLargestDouble},
    {"-1.7976931348623157e308", true, -kLargestDouble},
    {"1.7976931348623159e308", false, kLargestDouble},
    {"1e309", false, kLargestDouble},
    {"-1e309", false, -kLargestDouble},
    {"1e309x", false, kLargestDouble},
    {"1e99999999999999999999", false, kLargestDouble},
    {"4.9406564584124654e-324", true, std::numeric_limits<double>::denorm_min()},
    {"1e-400", true, 0.0},
    {"-1,5e-99999999999999999999", true, 0.0},
    {"1e-400x", false, 0.0},
    {"", false, 0.0},
    {" ", false, 0.0},
    {"+", false, 0.0},
    {"-", false, 0.0},
    {".", false, 0.0},
    {",", false, 0.0},
    {"-.", false, 0.0},
    {"e5", false, 0.0},
    {".e5", false, 0.0},
    {"--1", false, 0.0},
    {"+-1", false, 0.0},
    {"++1", false, 0.0},
    {"- 1", false, 0.0},
    {"1.5 ", false, 1.5},
    {"1.5x", false, 1.5},
    {"1e", false, 1.0},
    {"1e+", false, 1.0},
    {"1.2.3", false, 1.2},
    {"1,2,3", false, 1.2},
    {"1,2.3", false, 1.0},
    {"1.2,3", false, 1.2},
    {"1e2,5", false, 100.0},
    {"0x10", false, 0.0},
    {"0x1p3", false, 0.0},
    {"inf", false, 0.0},
    {"-inf", false, 0.0},
    {"+inf", false, 0.0},
    {"INFINITY", false, 0.0},
    {"nan", false, 0.0},
    {"-nan", false, 0.0},
    {"NAN(1)", false, 0.0},
    {"x1", false, 0.0},
    {std::string_view("1.5\0", 4), false, 1.5},
};

void ExpectAllIntegers() {
    for (const CIntegerRow& row : kIntegers) {
        int value = 99;
        EXPECT_EQ(ParseInteger(row.Text, value), row.IsNumber) << "text: " << row.Text;
        EXPECT_EQ(value, row.Value) << "text: " << row.Text;
    }
}

void ExpectAllDecimals() {
    for (const CDecimalRow& row : kDecimals) {
        double value = 99.0;
        EXPECT_EQ(ParseDecimal(row.Text, value), row.IsNumber) << "text: " << row.Text;
        EXPECT_EQ(value, row.Value) << "text: " << row.Text;
    }
}

TEST(NumberText, AnIntegerIsWhiteSpaceASignAndDigits) {
    ExpectAllIntegers();
}

TEST(NumberText, ADecimalHasAPointOrAComma) {
    ExpectAllDecimals();
}

TEST(NumberText, NumbersReadTheSameUnderADecimalCommaLocale) {
    const CDecimalCommaLocale locale;
    if (!locale.IsSet()) {
        GTEST_SKIP() << "no locale with a decimal comma is installed";
    }
    ExpectAllIntegers();
    ExpectAllDecimals();
}

TEST(NumberText, AnIntegerIsADecimalAsWell) {
    for (const CIntegerRow& row : kIntegers) {
        EXPECT_EQ(tabvex::IsInteger(row.Text), row.IsNumber) << "text: " << row.Text;
        EXPECT_TRUE(!row.IsNumber || tabvex::IsDecimal(row.Text)) << "text: " << row.Text;
    }
}

TEST(NumberText, IsDecimalTellsWhatParseDecimalTells) {
    for (const CDecimalRow& row : kDecimals) {
        EXPECT_EQ(tabvex::IsDecimal(row.Text), row.IsNumber) << "text: " << row.Text;
    }
}

TEST(NumberText, ManyDigitsAreTooLargeOrTooSmallByTheirFirstOne) {
    const std::string nines(400, '9');
    const std::string zeros(400, '0');
    double value = 0.0;
    EXPECT_FALSE(ParseDecimal(nines, value));
    EXPECT_EQ(value, kLargestDouble);
    EXPECT_FALSE(ParseDecimal("-" + nines + "e-10", value));
    EXPECT_EQ(value, -kLargestDouble);
    EXPECT_TRUE(ParseDecimal("0," + zeros + "1", value));
    EXPECT_EQ(value, 0.0);
    EXPECT_TRUE(ParseDecimal("0." + zeros + "1e10", value));
    EXPECT_EQ(value, 0.0);
    EXPECT_TRUE(ParseDecimal("1" + zeros + "e-400", value));
    EXPECT_EQ(value, 1.0);
}

TEST(NumberText, AColumnReadsAsFarAsItHasDigits) {
    EXPECT_EQ(tabvex::LeadingInteger("4040"), 4040);
    EXPECT_EQ(tabvex::LeadingInteger("  12 characters"), 12);
    EXPECT_EQ(tabvex::LeadingInteger("-3"), -3);
    EXPECT_EQ(tabvex::LeadingInteger("12;13"), 12);
    EXPECT_EQ(tabvex::LeadingInteger("1.9"), 1);
    EXPECT_EQ(tabvex::LeadingInteger(""), 0);
    EXPECT_EQ(tabvex::LeadingInteger("   "), 0);
    EXPECT_EQ(tabvex::LeadingInteger("-"), 0);
    EXPECT_EQ(tabvex::LeadingInteger("twelve"), 0);
    EXPECT_EQ(tabvex::LeadingInteger("2147483648"), kLargest);
    EXPECT_EQ(tabvex::LeadingInteger("-2147483649 "), kSmallest);
}

TEST(NumberText, TrimmingTakesBlanksAndNothingElse) {
    EXPECT_EQ(tabvex::TrimBlanks("  a b  "), "a b");
    EXPECT_EQ(tabvex::TrimBlanks("ab"), "ab");
    EXPECT_EQ(tabvex::TrimBlanks(""), "");
    EXPECT_EQ(tabvex::TrimBlanks("   "), "");
    EXPECT_EQ(tabvex::TrimBlanks(" \ta\t "), "\ta\t");
    EXPECT_EQ(tabvex::TrimBlanksRight("  a b  "), "  a b");
    EXPECT_EQ(tabvex::TrimBlanksRight(""), "");
    EXPECT_EQ(tabvex::TrimBlanksRight("   "), "");
    EXPECT_EQ(tabvex::TrimBlanksRight("a\n"), "a\n");
}

} // namespace
