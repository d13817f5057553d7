#include "layout/date_format.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace {

using tabvex::AnalyseDateFormat;
using tabvex::CDateFormat;

TEST(DateFormat, EachOfTheSixteenLayoutsHasItsOrders) {
    struct {
        std::string_view Format;
        int DayOrder;
        int MonthOrder;
        int YearOrder;
        int YearDigits;
    } const rows[] = {
        {"DDMMYY", 1, 2, 3, 2},   {"DDYYMM", 1, 3, 2, 2},   {"MMYYDD", 3, 1, 2, 2},   {"MMDDYY", 2, 1, 3, 2},
        {"YYDDMM", 2, 3, 1, 2},   {"YYMMDD", 3, 2, 1, 2},   {"MMYY", 0, 1, 2, 2},     {"YYMM", 0, 2, 1, 2},
        {"DDMMYYYY", 1, 2, 3, 4}, {"DDYYYYMM", 1, 3, 2, 4}, {"MMYYYYDD", 3, 1, 2, 4}, {"MMDDYYYY", 2, 1, 3, 4},
        {"YYYYDDMM", 2, 3, 1, 4}, {"YYYYMMDD", 3, 2, 1, 4}, {"MMYYYY", 0, 1, 2, 4},   {"YYYYMM", 0, 2, 1, 4},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.Format));
        const CDateFormat format = AnalyseDateFormat(row.Format);
        EXPECT_TRUE(format.IsKnown());
        EXPECT_EQ(format.DayOrder, row.DayOrder);
        EXPECT_EQ(format.MonthOrder, row.MonthOrder);
        EXPECT_EQ(format.YearOrder, row.YearOrder);
        EXPECT_EQ(format.YearDigits, row.YearDigits);
        EXPECT_EQ(format.HasDay, row.DayOrder > 0);
        EXPECT_EQ(format.FirstSeparatorAt, -1);
        EXPECT_EQ(format.SecondSeparatorAt, -1);
        EXPECT_EQ(format.FirstSeparator, 0);
        EXPECT_EQ(format.SecondSeparator, 0);
    }
}

TEST(DateFormat, SeparatorsAreKeptWithTheirPlaces) {
    struct {
        std::string_view Format;
        char First;
        int FirstAt;
        char Second;
        int SecondAt;
    } const rows[] = {
        {"DD.MM.YYYY", '.', 2, '.', 5}, {"YYYY-MM/DD", '-', 4, '/', 7},
        {"MM/YY", '/', 2, 0, -1},       {"DDMM YYYY", ' ', 4, 0, -1},
        {"YYYY.MMDD", '.', 4, 0, -1},   {".DDMMYYYY", '.', 0, 0, -1},
        {"DDMMYYYY.", '.', 8, 0, -1},   {".DDMMYY-", '.', 0, '-', 7},
        {"DDdMMmYY", 'd', 2, 'm', 5},   {"DD\xE4MM\xFFYY", '\xE4', 2, '\xFF', 5},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.Format));
        const CDateFormat format = AnalyseDateFormat(row.Format);
        EXPECT_TRUE(format.IsKnown());
        EXPECT_EQ(format.FirstSeparator, row.First);
        EXPECT_EQ(format.FirstSeparatorAt, row.FirstAt);
        EXPECT_EQ(format.SecondSeparator, row.Second);
        EXPECT_EQ(format.SecondSeparatorAt, row.SecondAt);
    }
}

TEST(DateFormat, OfMoreThanTwoSeparatorsTheLastCountsAsTheSecond) {
    const CDateFormat format = AnalyseDateFormat("DD.MM-/YYYY*");
    EXPECT_TRUE(format.IsKnown());
    EXPECT_EQ(format.FirstSeparator, '.');
    EXPECT_EQ(format.FirstSeparatorAt, 2);
    EXPECT_EQ(format.SecondSeparator, '*');
    EXPECT_EQ(format.SecondSeparatorAt, 11);
}

TEST(DateFormat, AFormatThatIsNoneOfTheLayoutsHasNoOrders) {
    for (const std::string_view text : {"",
                                        " ",
                                        "...",
                                        "D",
                                        "DD",
                                        "MM",
                                        "YY",
                                        "YYYY",
                                        "DDMM",
                                        "MMDD",
                                        "DDYY",
                                        "DDMMYYY",
                                        "DDMMYYYYY",
                                        "DDMMYYYYDD",
                                        "DDMMMYYYY",
                                        "dd.mm.yyyy",
                                        "YYMMYY",
                                        "DMYDMY",
                                        "YYYYMMDDX.D",
                                        "MMMYYYY",
                                        "YDDMMYYYY",
                                        "DDMMYYYYDDMMYYYY"}) {
        SCOPED_TRACE(std::string(text));
        const CDateFormat format = AnalyseDateFormat(text);
        EXPECT_FALSE(format.IsKnown());
        EXPECT_EQ(format.DayOrder, -1);
        EXPECT_EQ(format.MonthOrder, -1);
        EXPECT_EQ(format.YearOrder, -1);
    }
}

TEST(DateFormat, ADayOrAYearThatASeparatorSplitsIsNone) {
    EXPECT_FALSE(AnalyseDateFormat("D.DMMYYYY").IsKnown());
    EXPECT_FALSE(AnalyseDateFormat("D.DMMYYYY").HasDay);
    EXPECT_FALSE(AnalyseDateFormat("DDMMYY.YY").IsKnown());
    EXPECT_EQ(AnalyseDateFormat("DDMMYY.YY").YearDigits, 2);
}

TEST(DateFormat, YearDigitsAndDayAreToldOfAnyFormat) {
    EXPECT_EQ(AnalyseDateFormat("YYYY").YearDigits, 4);
    EXPECT_EQ(AnalyseDateFormat("YYY").YearDigits, 2);
    EXPECT_EQ(AnalyseDateFormat("").YearDigits, 2);
    EXPECT_TRUE(AnalyseDateFormat("DDD").HasDay);
    EXPECT_FALSE(AnalyseDateFormat("D").HasDay);
}

TEST(DateFormat, AFormatOfAnyLengthIsAnalysed) {
    const std::string separators(100000, '.');
    EXPECT_TRUE(AnalyseDateFormat("DD" + separators + "MMYYYY").IsKnown());
    EXPECT_EQ(AnalyseDateFormat("DD" + separators + "MMYYYY").SecondSeparatorAt, 100001);
    EXPECT_FALSE(AnalyseDateFormat(std::string(100000, 'D')).IsKnown());
}

} // namespace
