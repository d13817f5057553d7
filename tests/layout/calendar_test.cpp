#include "layout/calendar.h"

#include <string_view>

#include <gtest/gtest.h>

namespace {

using tabvex::IsCalendarDate;
using tabvex::IsValidDate;
using tabvex::ParseDigits;

TEST(Calendar, EachMonthHasItsLastDay) {
    //                       month: 1   2   3   4   5   6   7   8   9   10  11  12
    constexpr int kLastDays[] = {31, 28, 31, 30, 31, 30, 31, 30, 31, 30, 31, 30};
    for (int month = 1; month <= 12; ++month) {
        const int lastDay = kLastDays[month - 1];
        EXPECT_FALSE(IsCalendarDate(2015, month, 0)) << "month " << month;
        EXPECT_TRUE(IsCalendarDate(2015, month, 1)) << "month " << month;
        EXPECT_TRUE(IsCalendarDate(2015, month, lastDay)) << "month " << month;
        EXPECT_FALSE(IsCalendarDate(2015, month, lastDay + 1)) << "month " << month;
        EXPECT_FALSE(IsCalendarDate(2015, month, 32)) << "month " << month;
        EXPECT_FALSE(IsCalendarDate(2015, month, -1)) << "month " << month;
    }
}

TEST(Calendar, The31stOfEveryEvenMonthIsRefusedAugustOctoberAndDecemberIncluded) {
    for (const int month : {2, 4, 6, 8, 10, 12}) {
        EXPECT_FALSE(IsCalendarDate(2015, month, 31)) << "month " << month;
    }
}

TEST(Calendar, The31stOfSeptemberAndNovemberIsAccepted) {
    EXPECT_TRUE(IsCalendarDate(2015, 9, 31));
    EXPECT_TRUE(IsCalendarDate(2015, 11, 31));
}

TEST(Calendar, AMonthLiesBetween1And12) {
    EXPECT_FALSE(IsCalendarDate(2015, 0, 1));
    EXPECT_FALSE(IsCalendarDate(2015, 13, 1));
    EXPECT_FALSE(IsCalendarDate(2015, -2, 1));
}

TEST(Calendar, LeapYearsHaveA29thOfFebruary) {
    struct {
        int Year;
        bool IsLeap;
    } const rows[] = {{2016, true},  {2015, false}, {2014, false}, {2000, true},
                      {1900, false}, {2100, false}, {2400, true},  {0, true}};
    for (const auto& row : rows) {
        EXPECT_EQ(IsCalendarDate(row.Year, 2, 29), row.IsLeap) << "year " << row.Year;
        EXPECT_FALSE(IsCalendarDate(row.Year, 2, 30)) << "year " << row.Year;
    }
}

TEST(Calendar, ADateTextIsYearMonthAndDayWithHyphens) {
    struct {
        std::string_view Text;
        bool IsValid;
    } const rows[] = {
        {"2016-02-29", true},  {"2015-02-29", false}, {"2015-08-31", false},         {"2015-09-31", true},
        {"0000-01-01", true},  {"9999-12-30", true},  {"2015-03-24 and more", true}, {"2015-03-240", true},
        {"2015-03-2", false},  {"2015-3-24", false},  {"2015-03-00", false},         {"2015-00-24", false},
        {"2015-13-24", false}, {"2015.03.24", false}, {"2015-03.24", false},         {"2015.03-24", false},
        {"20150324", false},   {"24-03-2015", false}, {" 215-03-24", false},         {"-215-03-24", false},
        {"2015- 3-24", false}, {"2015-+3-24", false}, {"2015-03--4", false},         {"2O15-03-24", false},
        {"          ", false}, {"", false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(IsValidDate(row.Text), row.IsValid) << "text: " << row.Text;
    }
}

TEST(Calendar, DigitsAreReadAsAWholeOrNotAtAll) {
    struct {
        std::string_view Text;
        bool AreDigits;
        int Value;
    } const rows[] = {
        {"0", true, 0},
        {"07", true, 7},
        {"2015", true, 2015},
        {"2147483647", true, 2147483647},
        {"2147483648", false, 99},
        {"", false, 99},
        {" ", false, 99},
        {" 7", false, 99},
        {"7 ", false, 99},
        {"+7", false, 99},
        {"-7", false, 99},
        {"-0", false, 99},
        {"1.", false, 99},
        {"0x1", false, 99},
        {"1a", false, 99},
        {std::string_view("1\0", 2), false, 99},
    };
    for (const auto& row : rows) {
        int value = 99;
        EXPECT_EQ(ParseDigits(row.Text, value), row.AreDigits) << "text: " << row.Text;
        EXPECT_EQ(value, row.Value) << "text: " << row.Text;
    }
}

} // namespace
