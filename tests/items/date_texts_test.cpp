#include "items/date_texts.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/decimal_comma_locale.h"

namespace tabvex {
namespace {

constexpr int kWrongLength = -70;
constexpr int kWrongSeparator = -71;
constexpr int kNotDigits = -72;
constexpr int kNoSuchDay = -73;
constexpr int kUnusableFormat = -76;

/// The canonical form of a text, or its result code as a text.
std::string Canonical(std::string_view text, std::string_view format) {
    CCanonicalDate date;
    const int result = ParseDateText(text, format, date);
    return result == 0 ? std::string(date.View()) : std::to_string(result);
}

std::string Rewritten(std::string_view canonicalDate, std::string_view format) {
    std::string text = "what was there before";
    RewriteDate(canonicalDate, format, text);
    return text;
}

struct CLayoutRow {
    const char* Format;
    const char* Text;
    const char* Canonical;
};

// The first of February 2003
const CLayoutRow kLayouts[] = {
    {"DDMMYY", "010203", "20030201"},
    {"DDYYMM", "010302", "20030201"},
    {"MMYYDD", "020301", "20030201"},
    {"MMDDYY", "020103", "20030201"},
    {"YYDDMM", "030102", "20030201"},
    {"YYMMDD", "030201", "20030201"},
    {"MMYY", "0203", "200302"},
    {"YYMM", "0302", "200302"},
    {"DDMMYYYY", "01022003", "20030201"},
    {"DDYYYYMM", "01200302", "20030201"},
    {"MMYYYYDD", "02200301", "20030201"},
    {"MMDDYYYY", "02012003", "20030201"},
    {"YYYYDDMM", "20030102", "20030201"},
    {"YYYYMMDD", "20030201", "20030201"},
    {"MMYYYY", "022003", "200302"},
    {"YYYYMM", "200302", "200302"},
    // and with separators
    {"DD.MM.YYYY", "01.02.2003", "20030201"},
    {"DD.MM.YY", "01.02.03", "20030201"},
    {"YYYY-MM-DD", "2003-02-01", "20030201"},
    {"YY/MM/DD", "03/02/01", "20030201"},
    {"MM/DD/YYYY", "02/01/2003", "20030201"},
    {"DD.MMYY", "01.0203", "20030201"},
    {"YYYY-MM", "2003-02", "200302"},
    {"MM.YY", "02.03", "200302"},
    {"DD YYYY:MM", "01 2003:02", "20030201"},
    {"MM.YY.", "02.03.", "200302"},
    {"DD0MM1YY", "01002103", "20030201"},
};

TEST(DateTexts, EveryLayoutIsParsed) {
    for (const CLayoutRow& row : kLayouts) {
        EXPECT_EQ(Canonical(row.Text, row.Format), row.Canonical) << row.Format;
    }
}

TEST(DateTexts, EveryLayoutIsRewritten) {
    for (const CLayoutRow& row : kLayouts) {
        EXPECT_EQ(Rewritten(row.Canonical, row.Format), row.Text) << row.Format;
        EXPECT_EQ(Rewritten("20030201", row.Format), row.Text) << row.Format;
    }
}

TEST(DateTexts, ACanonicalDateIsATerminatedText) {
    CCanonicalDate date;
    ASSERT_EQ(ParseDateText("01.02.2003", "DD.MM.YYYY", date), 0);
    EXPECT_STREQ(date.Text, "20030201");
    EXPECT_EQ(date.Length, 8);
    ASSERT_EQ(ParseDateText("02.03", "MM.YY", date), 0);
    EXPECT_STREQ(date.Text, "200302");
    EXPECT_EQ(date.Length, 6);
}

struct CParseRow {
    const char* Text;
    const char* Format;
    std::string Result;
};

void ExpectParsed(const std::vector<CParseRow>& rows) {
    for (const CParseRow& row : rows) {
        EXPECT_EQ(Canonical(row.Text, row.Format), row.Result) << '"' << row.Text << "\" as \"" << row.Format << '"';
    }
}

std::string TwoDigits(int number) {
    return {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

std::string Code(int result) {
    return std::to_string(result);
}

TEST(DateTexts, ATwoDigitYearBelow51IsOfThe2000s) {
    ExpectParsed({{"30.12.50", "DD.MM.YY", "20501230"},
                  {"01.01.51", "DD.MM.YY", "19510101"},
                  {"01.01.00", "DD.MM.YY", "20000101"},
                  {"01.01.99", "DD.MM.YY", "19990101"},
                  {"0051", "MMYY", Code(kNoSuchDay)},
                  {"1250", "MMYY", "205012"},
                  {"5112", "YYMM", "195112"},
                  {"01.01.0050", "DD.MM.YYYY", "00500101"}});
    for (int year = 0; year < 100; ++year) {
        const std::string digits = TwoDigits(year);
        EXPECT_EQ(Canonical(digits + "0630", "YYMMDD"), (year <= 50 ? "20" : "19") + digits + "0630");
    }
}

TEST(DateTexts, AnUnusableFormatIsLookedAtBeforeTheText) {
    for (const char* format : {"", "DD", "YYYY", "MM", "dd.mm.yyyy", "DDMM", "MMDD", "DDMMYYY", "DDMMYYYYY", "DMY",
                               "DDMMMYYYY", "MMYYDDD", "D.D.MM.YY", "..", "DD.MM.YY.D", "YYYYY", "TT.MM.JJJJ"}) {
        EXPECT_EQ(Canonical("", format), Code(kUnusableFormat)) << format;
        EXPECT_EQ(Canonical(format, format), Code(kUnusableFormat)) << format;
        EXPECT_EQ(Canonical("01.02.2003", format), Code(kUnusableFormat)) << format;
    }
}

TEST(DateTexts, TheRulesAreAppliedInTheirOrder) {
    ExpectParsed({{"1.1.2001", "DD.MM.YYYY", Code(kWrongLength)},
                  {"", "DD.MM.YYYY", Code(kWrongLength)},
                  {"01.02.20030", "DD.MM.YYYY", Code(kWrongLength)},
                  {"xx-yy-zz", "DD.MM.YYYY", Code(kWrongLength)},
                  {"01-02.2003", "DD.MM.YYYY", Code(kWrongSeparator)},
                  {"01.02-2003", "DD.MM.YYYY", Code(kWrongSeparator)},
                  {"xx.yy-zzzz", "DD.MM.YYYY", Code(kWrongSeparator)},
                  {"0.102.2003", "DD.MM.YYYY", Code(kWrongSeparator)},
                  {"xx.02.2003", "DD.MM.YYYY", Code(kNotDigits)},
                  {"01.x2.2003", "DD.MM.YYYY", Code(kNotDigits)},
                  {"01.02.200x", "DD.MM.YYYY", Code(kNotDigits)},
                  {" 1.02.2003", "DD.MM.YYYY", Code(kNotDigits)},
                  {"+1.02.2003", "DD.MM.YYYY", Code(kNotDigits)},
                  {"01.02.-003", "DD.MM.YYYY", Code(kNotDigits)},
                  {"99.99.200x", "DD.MM.YYYY", Code(kNotDigits)},
                  {"0.02.03", "DD.MMYY", Code(kWrongSeparator)},
                  {"32.13.2003", "DD.MM.YYYY", Code(kNoSuchDay)},
                  {"01.02.2003", "DD.MM.YYYY", "20030201"}});
}

TEST(DateTexts, AFailedParseLeavesTheDate) {
    CCanonicalDate date;
    ASSERT_EQ(ParseDateText("01.02.2003", "DD.MM.YYYY", date), 0);
    EXPECT_EQ(ParseDateText("32.02.2004", "DD.MM.YYYY", date), kNoSuchDay);
    EXPECT_EQ(ParseDateText("01.02.04", "DD.MM.YYYY", date), kWrongLength);
    EXPECT_EQ(date.View(), "20030201");
}

TEST(DateTexts, DaysThatDoNotExistAreRefused) {
    ExpectParsed({{"00.01.2015", "DD.MM.YYYY", Code(kNoSuchDay)},
                  {"32.01.2015", "DD.MM.YYYY", Code(kNoSuchDay)},
                  {"01.00.2015", "DD.MM.YYYY", Code(kNoSuchDay)},
                  {"01.13.2015", "DD.MM.YYYY", Code(kNoSuchDay)},
                  {"31.12.0000", "DD.MM.YYYY", Code(kNoSuchDay)},
                  {"30.12.0000", "DD.MM.YYYY", "00001230"},
                  {"30.12.9999", "DD.MM.YYYY", "99991230"},
                  {"29.02.1900", "DD.MM.YYYY", Code(kNoSuchDay)},
                  {"29.02.2000", "DD.MM.YYYY", "20000229"},
                  {"29.02.2015", "DD.MM.YYYY", Code(kNoSuchDay)},
                  {"29.02.2016", "DD.MM.YYYY", "20160229"},
                  {"30.02.2016", "DD.MM.YYYY", Code(kNoSuchDay)},
                  {"1315", "MMYY", Code(kNoSuchDay)},
                  {"1215", "MMYY", "201512"}});
}

TEST(DateTexts, The31stOfAugustIsRefusedAndThatOfSeptemberIsNotOnPurpose) {
    const char* lastDays[] = {"31", "28", "31", "30", "31", "30", "31", "30", "31", "30", "31", "30"};
    for (int month = 1; month <= 12; ++month) {
        for (int day = 0; day < 100; ++day) {
            const std::string dayAndMonth = TwoDigits(day).append(TwoDigits(month));
            const std::string canonical = std::string("2015").append(TwoDigits(month)).append(TwoDigits(day));
            const bool exists = day >= 1 && TwoDigits(day) <= lastDays[month - 1];
            EXPECT_EQ(IsExistingDay(canonical), exists) << canonical;
            EXPECT_EQ(Canonical(dayAndMonth + "2015", "DDMMYYYY"), exists ? canonical : Code(kNoSuchDay));
        }
    }
}

TEST(DateTexts, FebruaryHas29DaysInLeapYearsOnly) {
    for (int year = 1000; year <= 3000; ++year) {
        const bool isLeap = year % 400 == 0 || (year % 4 == 0 && year % 100 != 0);
        EXPECT_EQ(IsExistingDay(std::to_string(year) + "0229"), isLeap) << year;
        EXPECT_TRUE(IsExistingDay(std::to_string(year) + "0228")) << year;
        EXPECT_FALSE(IsExistingDay(std::to_string(year) + "0230")) << year;
    }
}

TEST(DateTexts, AMissingMonthCountsAs12AndAMissingDayAs28) {
    EXPECT_TRUE(IsExistingDay("2015"));
    EXPECT_TRUE(IsExistingDay("201502"));
    EXPECT_TRUE(IsExistingDay("201512"));
    EXPECT_FALSE(IsExistingDay("201513"));
    EXPECT_FALSE(IsExistingDay("201500"));
}

TEST(DateTexts, ComponentsCutShortAreNoDay) {
    for (const char* text : {"", "2", "201", "20151", "2015121", "20x5", "2015x2", "201512x1", "2015 1", "201501+1"}) {
        EXPECT_FALSE(IsExistingDay(text)) << text;
    }
}

TEST(DateTexts, TheYearOfACanonicalDateIsScannedAsAnInteger) {
    EXPECT_TRUE(IsExistingDay(" 9990101"));
    EXPECT_TRUE(IsExistingDay("-0040229"));
    EXPECT_FALSE(IsExistingDay("999 0101"));
}

TEST(DateTexts, ATwoDigitYearDropsTheCenturyUnchecked) {
    EXPECT_EQ(Rewritten("19500630", "DD.MM.YY"), "30.06.50");
    EXPECT_EQ(Rewritten("20500630", "DD.MM.YY"), "30.06.50");
    EXPECT_EQ(Rewritten("99990630", "YYMM"), "9906");
}

TEST(DateTexts, AComponentThatTheDateLacksIsLeftOut) {
    EXPECT_EQ(Rewritten("200302", "DD.MM.YYYY"), ".02.2003");
    EXPECT_EQ(Rewritten("200302", "YYYYMMDD"), "200302");
    EXPECT_EQ(Rewritten("2003", "DD.MM.YYYY"), "..2003");
    EXPECT_EQ(Rewritten("", "DD.MM.YYYY"), "..");
    EXPECT_EQ(Rewritten("", "DDMMYY"), "");
    EXPECT_EQ(Rewritten("2003021", "DDMMYYYY"), "1022003");
    EXPECT_EQ(Rewritten("200", "YYMM"), "0");
}

TEST(DateTexts, WhatFollowsACanonicalDateIsIgnored) {
    EXPECT_EQ(Rewritten("20030201xyz", "DD.MM.YYYY"), "01.02.2003");
}

TEST(DateTexts, AnUnknownFormatRewritesToNothing) {
    for (const char* format : {"", "DD", "dd.mm.yyyy", "DD.MM", "YYYYY", "JJMMTT"}) {
        EXPECT_EQ(Rewritten("20030201", format), "") << format;
    }
}

TEST(DateTexts, SeparatorsAreRewrittenBehindTheFirstTwoComponentsOnPurpose) {
    EXPECT_EQ(Rewritten("20030201", "DDMM.YYYY"), "01.022003");
    EXPECT_EQ(Rewritten("20030201", ".DDMMYY"), "01.0203");
    EXPECT_EQ(Rewritten("20030201", "DD.MMYY-"), "01.02-03");
    EXPECT_EQ(Rewritten("200302", "MMYY."), "02.03");
}

TEST(DateTexts, SeparatorsAreParsedWhereTheFormatHasThem) {
    ExpectParsed({{"0102.2003", "DDMM.YYYY", "20030201"},
                  {"01.022003", "DDMM.YYYY", Code(kWrongSeparator)},
                  {".010203", ".DDMMYY", "20030201"},
                  {"0203.", "MMYY.", "200302"}});
}

TEST(DateTexts, OfMoreThanTwoSeparatorsTheLastIsTheSecond) {
    EXPECT_EQ(Rewritten("20030201", "DD.MM-YY/"), "01.02/03");
    EXPECT_EQ(Rewritten("20030201", "DD.M-M/YY"), "01.02/03");
    ExpectParsed({{"01.02-03/", "DD.MM-YY/", "20030201"},
                  {"01.02.03/", "DD.MM-YY/", Code(kWrongSeparator)},
                  {"01.0-2/03", "DD.M-M/YY", "20030201"}});
}

TEST(DateTexts, EveryDayOfACenturySurvivesEveryLayout) {
    std::string text;
    for (int year = 1951; year <= 2050; ++year) {
        for (const char* day : {"0101", "0228", "0331", "0630", "0931", "1130", "1230"}) {
            const std::string canonical = std::to_string(year) + day;
            for (const CLayoutRow& row : kLayouts) {
                RewriteDate(canonical, row.Format, text);
                EXPECT_EQ(Canonical(text, row.Format), canonical.substr(0, std::string_view(row.Canonical).size()))
                    << row.Format;
            }
        }
    }
}

TEST(DateTexts, TheProcessLocaleChangesNothing) {
    const CDecimalCommaLocale locale;
    EXPECT_EQ(Canonical("30.12.50", "DD.MM.YY"), "20501230");
    EXPECT_EQ(Rewritten("20501230", "DD,MM,YY"), "30,12,50");
}

} // namespace
} // namespace tabvex
