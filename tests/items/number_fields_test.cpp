#include "items/number_fields.h"

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/decimal_comma_locale.h"

namespace tabvex {
namespace {

constexpr int kNotANumber = -66;
constexpr int kBlank = -101;

CItemDef Item(const char* modifiers, int decimals = 0) {
    CItemDef definition;
    definition.Format = 'N';
    definition.HasModifiers = 1;
    definition.Modifiers = modifiers;
    definition.Decimals = decimals;
    return definition;
}

struct CIntRow {
    const char* Modifiers;
    const char* Field;
    int Result;
    int Value;
};

void ExpectInts(const std::vector<CIntRow>& rows) {
    for (const CIntRow& row : rows) {
        int value = 4711;
        EXPECT_EQ(ParseIntField(Item(row.Modifiers), row.Field, value), row.Result) << row.Modifiers << row.Field;
        EXPECT_EQ(value, row.Value) << row.Modifiers << ": \"" << row.Field << '"';
    }
}

TEST(NumberFields, AnIntegerIsReadWithBlanksAtBothEnds) {
    ExpectInts({{"R", "12345", 0, 12345},
                {"R", "   12", 0, 12},
                {"L", "12   ", 0, 12},
                {"", "  12 ", 0, 12},
                {"R", "00012", 0, 12},
                {"R", "  -12", 0, -12},
                {"S", "  +12", 0, 12},
                {"R", "0", 0, 0},
                {"R", "-0", 0, 0},
                {"R", "2147483647", 0, INT_MAX},
                {"R", "-2147483648", 0, INT_MIN}});
}

TEST(NumberFields, ABlankIntegerIs0AndTold) {
    ExpectInts({{"R", "", kBlank, 0}, {"R", " ", kBlank, 0}, {"E", "     ", kBlank, 0}, {"B", "     ", kBlank, 0}});
}

TEST(NumberFields, TextThatIsNoIntegerGivesWhatWasReadSoFar) {
    ExpectInts({{"R", "12a", kNotANumber, 12},
                {"R", "a12", kNotANumber, 0},
                {"R", "-", kNotANumber, 0},
                {"R", "+", kNotANumber, 0},
                {"R", "1 2", kNotANumber, 1},
                {"R", "1.0", kNotANumber, 1},
                {"R", "12-", kNotANumber, 12},
                {"R", "- 12", kNotANumber, 0},
                {"R", "--12", kNotANumber, 0},
                {"R", "00-12", kNotANumber, 0},
                {"R", "1e3", kNotANumber, 1},
                {"R", "0x10", kNotANumber, 0},
                {"R", "12\t", kNotANumber, 12},
                {"R", "2147483648", kNotANumber, INT_MAX},
                {"R", "-2147483649", kNotANumber, INT_MIN}});
}

TEST(NumberFields, WhiteSpaceBeforeAnIntegerIsSkippedButIsNotABlank) {
    ExpectInts({{"R", "\t12", 0, 12}, {"R", "\t", kNotANumber, 0}});
}

TEST(NumberFields, AnIntegerWithItsSignAtTheEndIsReadButIsNoNumberOnPurpose) {
    ExpectInts({{"E", "12-", kNotANumber, -12},
                {"E", "12+", kNotANumber, 12},
                {"ER", "0012-", kNotANumber, -12},
                {"EL", "12  -", kNotANumber, -12},
                {"EL", " 12- ", kNotANumber, -12},
                {"E", "0-", kNotANumber, 0},
                {"E", "12a-", kNotANumber, -12},
                {"E", "-12-", kNotANumber, 12},
                {"E", "a-", kNotANumber, 0},
                {"E", "-+", kNotANumber, 0}});
}

TEST(NumberFields, AnEndSignItemWithoutItsSignReadsCleanly) {
    ExpectInts({{"E", "12", 0, 12}, {"E", "  12 ", 0, 12}, {"E", "-12", 0, -12}});
}

TEST(NumberFields, ASignAtTheBeginningReadsCleanly) {
    ExpectInts({{"B", "-12", 0, -12},
                {"B", "+12", 0, 12},
                {"BR", "-  12", 0, -12},
                {"BR", "+0012", 0, 12},
                {"BL", "-12  ", 0, -12},
                {"B", "12", 0, 12},
                {"B", "--12", 0, 12},
                {"B", "+-12", 0, -12},
                {"B", "12-", kNotANumber, 12},
                {"B", "-12a", kNotANumber, -12},
                {"B", "+2147483647", 0, INT_MAX},
                {"B", "-2147483647", 0, -INT_MAX}});
}

TEST(NumberFields, ASignAloneIsABlankWhereItHasItsPlace) {
    ExpectInts({{"E", "    -", kBlank, 0}, {"E", "+", kBlank, 0}, {"B", "-    ", kBlank, 0}, {"B", "+", kBlank, 0}});
}

TEST(NumberFields, TheSmallestIntIsReadWithItsSignAtTheBeginning) {
    ExpectInts({{"B", "-2147483648", 0, INT_MIN}, {"BR", "+-2147483648", 0, INT_MIN}});
}

TEST(NumberFields, TheSmallestIntNegatedIsNoNumber) {
    ExpectInts({{"B", "--2147483648", kNotANumber, INT_MAX}, {"B", "+2147483648", kNotANumber, INT_MAX}});
}

TEST(NumberFields, EndSignAndBeginSignTogetherMakeANegativeOnlyOnce) {
    ExpectInts({{"EB", "-12-", kNotANumber, -12}, {"EB", "+12-", kNotANumber, -12}, {"EB", "-", kBlank, 0}});
}

TEST(NumberFields, AnImpliedPointLeavesIntegersAlone) {
    ExpectInts({{"P", "125", 0, 125}});
}

struct CFloatRow {
    const char* Modifiers;
    int Decimals;
    const char* Field;
    int Result;
    double Value;
};

void ExpectFloats(const std::vector<CFloatRow>& rows) {
    for (const CFloatRow& row : rows) {
        double value = 4711.0;
        const CItemDef definition = Item(row.Modifiers, row.Decimals);
        EXPECT_EQ(ParseFloatField(definition, row.Field, value), row.Result) << row.Modifiers << row.Field;
        EXPECT_EQ(value, row.Value) << row.Modifiers << row.Decimals << ": \"" << row.Field << '"';
    }
}

TEST(NumberFields, AFloatingPointNumberIsReadWithPointOrComma) {
    ExpectFloats({{"R", 2, "12.50", 0, 12.5},
                  {"R", 2, " 12,50", 0, 12.5},
                  {"L", 2, "12.5  ", 0, 12.5},
                  {"R", 2, "  -.25", 0, -0.25},
                  {"R", 2, "+1.", 0, 1.0},
                  {"R", 2, "0012.50", 0, 12.5},
                  {"R", 2, "7", 0, 7.0},
                  {"R", 2, "1e3", 0, 1000.0},
                  {"R", 2, "1,5E+2", 0, 150.0},
                  {"R", 2, "0.00", 0, 0.0}});
}

TEST(NumberFields, ABlankFloatingPointNumberIs0AndTold) {
    ExpectFloats({{"R", 2, "", kBlank, 0.0},
                  {"R", 2, "      ", kBlank, 0.0},
                  {"E", 2, "     -", kBlank, 0.0},
                  {"E", 2, "+", kBlank, 0.0},
                  {"B", 2, "-     ", kBlank, 0.0},
                  {"PE", 2, "      ", kBlank, 0.0}});
}

TEST(NumberFields, AnImpliedPointDividesByThePowerOfTen) {
    ExpectFloats({{"P", 2, "0001250", 0, 12.5},
                  {"PRE", 2, "0001250-", 0, -12.5},
                  {"PRB", 2, "-0001250", 0, -12.5},
                  {"P", 2, "-5", 0, -0.05},
                  {"P", 1, "5", 0, 0.5},
                  {"P", 9, "1", 0, 1e-9},
                  {"P", 0, "5", 0, 5.0},
                  {"P", 2, "1.5", 0, 0.015},
                  {"R", 2, "1250", 0, 1250.0}});
}

TEST(NumberFields, AFloatingPointNumberReadsCleanlyWithItsSignAtEitherEnd) {
    ExpectFloats({{"E", 2, "12.50-", 0, -12.5},
                  {"E", 2, "12.50+", 0, 12.5},
                  {"EL", 2, "12.50 -", 0, -12.5},
                  {"E", 2, "-12.5", 0, -12.5},
                  {"E", 2, "-12.5-", 0, 12.5},
                  {"B", 2, "-12.50", 0, -12.5},
                  {"BR", 2, "+ 12.50", 0, 12.5},
                  {"B", 2, "--12.50", 0, 12.5},
                  {"BL", 2, "-12.50 ", 0, -12.5}});
}

TEST(NumberFields, TextThatIsNoFloatingPointNumberLeavesTheValueUnscaledAndUnsigned) {
    ExpectFloats({{"R", 2, "12x", kNotANumber, 12.0},
                  {"P", 2, "12x0", kNotANumber, 12.0},
                  {"PE", 2, "12x-", kNotANumber, 12.0},
                  {"PB", 2, "-12x", kNotANumber, 12.0},
                  {"R", 2, "1.2.3", kNotANumber, 1.2},
                  {"R", 2, "1.234,5", kNotANumber, 1.234},
                  {"R", 2, "1,2,3", kNotANumber, 1.2},
                  {"R", 2, "1 2", kNotANumber, 1.0},
                  {"R", 2, "12.50-", kNotANumber, 12.5},
                  {"R", 2, "-", kNotANumber, 0.0},
                  {"R", 2, ".", kNotANumber, 0.0},
                  {"R", 2, "abc", kNotANumber, 0.0},
                  {"R", 2, "inf", kNotANumber, 0.0},
                  {"R", 2, "nan", kNotANumber, 0.0},
                  {"R", 2, "0x10", kNotANumber, 0.0}});
}

TEST(NumberFields, ANumberThatADoubleCannotHoldIsNone) {
    double value = 0.0;
    EXPECT_EQ(ParseFloatField(Item("R", 2), "1e999", value), kNotANumber);
    EXPECT_EQ(ParseFloatField(Item("R", 2), "-1e999", value), kNotANumber);
}

TEST(NumberFields, SenselessDecimalsNeitherFailNorTakeLong) {
    double value = 0.0;
    EXPECT_EQ(ParseFloatField(Item("P", INT_MAX), "5", value), 0);
    EXPECT_EQ(value, 0.0);
    EXPECT_EQ(ParseFloatField(Item("P", INT_MIN), "5", value), 0);
    EXPECT_EQ(value, 5.0);
    EXPECT_EQ(RoundToDecimals(2.5, INT_MIN), 3.0);
    EXPECT_TRUE(std::isinf(RoundToDecimals(2.5, INT_MAX)));
}

TEST(NumberFields, ADecimalCommaLocaleChangesNothing) {
    const CDecimalCommaLocale locale;
    ExpectFloats({{"R", 2, "12.50", 0, 12.5}, {"R", 2, "12,50", 0, 12.5}});
    char text[kNumberTextSize];
    EXPECT_EQ(PrintNumber(12.5, text), "12.5");
}

TEST(NumberFields, RoundsHalfUp) {
    EXPECT_DOUBLE_EQ(RoundToDecimals(2.125, 2), 2.13);
    EXPECT_DOUBLE_EQ(RoundToDecimals(2.124, 2), 2.12);
    EXPECT_DOUBLE_EQ(RoundToDecimals(2.5, 0), 3.0);
    EXPECT_DOUBLE_EQ(RoundToDecimals(2.4, 0), 2.0);
    EXPECT_DOUBLE_EQ(RoundToDecimals(0.0, 2), 0.0);
    EXPECT_DOUBLE_EQ(RoundToDecimals(0.5, 0), 1.0);
    EXPECT_DOUBLE_EQ(RoundToDecimals(1.0 / 3.0, 3), 0.333);
    EXPECT_DOUBLE_EQ(RoundToDecimals(12345.678, 1), 12345.7);
    EXPECT_DOUBLE_EQ(RoundToDecimals(99.995, 1), 100.0);
}

TEST(NumberFields, RoundsNegativeValuesTowardZeroAfterAddingOneHalfOnPurpose) {
    EXPECT_DOUBLE_EQ(RoundToDecimals(-2.125, 2), -2.12);
    EXPECT_DOUBLE_EQ(RoundToDecimals(-2.5, 0), -2.0);
    EXPECT_DOUBLE_EQ(RoundToDecimals(-2.7, 0), -2.0);
    EXPECT_DOUBLE_EQ(RoundToDecimals(-2.4, 0), -1.0);
    EXPECT_DOUBLE_EQ(RoundToDecimals(-0.5, 0), 0.0);
    EXPECT_DOUBLE_EQ(RoundToDecimals(-1.0, 0), 0.0);
    EXPECT_DOUBLE_EQ(RoundToDecimals(-1.5, 0), -1.0);
}

TEST(NumberFields, PrintsARoundedNumberAsCallersSeeIt) {
    char text[kNumberTextSize];
    EXPECT_EQ(PrintNumber(RoundToDecimals(2.125, 2), text), "2.13");
    EXPECT_EQ(PrintNumber(RoundToDecimals(-2.125, 2), text), "-2.12");
    EXPECT_EQ(PrintNumber(RoundToDecimals(1234.567, 2), text), "1234.57");
    EXPECT_EQ(PrintNumber(RoundToDecimals(12345.678, 2), text), "12345.7");
}

TEST(NumberFields, PrintsSixSignificantDigits) {
    struct CRow {
        double Value;
        const char* Text;
    };
    const CRow rows[] = {
        {0.0, "0"},
        {-0.0, "-0"},
        {3.0, "3"},
        {12.5, "12.5"},
        {-12.5, "-12.5"},
        {3.75, "3.75"},
        {100000.0, "100000"},
        {999999.0, "999999"},
        {1000000.0, "1e+06"},
        {123456.5, "123456"},
        {123457.5, "123458"},
        {999999.5, "1e+06"},
        {0.0001, "0.0001"},
        {0.00001, "1e-05"},
        {1234567.5, "1.23457e+06"},
        {1e100, "1e+100"},
        {0.1234567, "0.123457"},
        {DBL_MAX, "1.79769e+308"},
        {-DBL_MIN, "-2.22507e-308"},
    };
    for (const CRow& row : rows) {
        char text[kNumberTextSize];
        EXPECT_EQ(PrintNumber(row.Value, text), row.Text);
        EXPECT_STREQ(text, row.Text);
    }
}

TEST(NumberFields, PrintsAsTheCLibraryDoes) {
    for (std::uint64_t i = 0; i < 20000; ++i) {
        const std::uint64_t pattern = i * 0x9E3779B97F4A7C15; // runs all over the doubles
        double value = 0.0;
        std::memcpy(&value, &pattern, sizeof value);
        if (i % 2 == 0) { // every other one of the size of an amount of money
            value = static_cast<double>(static_cast<std::int32_t>(pattern)) / 100.0;
        }
        if (!std::isfinite(value)) {
            continue;
        }
        char expected[64];
        ASSERT_GT(std::snprintf(expected, sizeof expected, "%g", value), 0);
        if (char* comma = std::strchr(expected, ',')) {
            *comma = '.';
        }
        char text[kNumberTextSize];
        ASSERT_EQ(PrintNumber(value, text), expected);
    }
}

TEST(NumberFields, PrintsIntegersInDecimal) {
    struct CRow {
        int Value;
        const char* Text;
    };
    const CRow rows[] = {{0, "0"}, {7, "7"}, {-12, "-12"}, {INT_MAX, "2147483647"}, {INT_MIN, "-2147483648"}};
    for (const CRow& row : rows) {
        char text[kNumberTextSize];
        EXPECT_EQ(PrintNumber(row.Value, text), row.Text);
        EXPECT_STREQ(text, row.Text);
    }
}

} // namespace
} // namespace tabvex
