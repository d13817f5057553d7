#include "layout/date_pattern.h"

#include <initializer_list>
#include <string_view>

#include <gtest/gtest.h>

namespace {

struct CPatternRow {
    std::string_view Text;
    std::string_view Pattern; // "": none
};

void ExpectPatterns(std::initializer_list<CPatternRow> rows) {
    for (const CPatternRow& row : rows) {
        EXPECT_EQ(tabvex::LeadingDatePattern(row.Text), row.Pattern) << "text: " << row.Text;
    }
}

TEST(DatePattern, DayFirstNeedsDayMonthAndYearInThisOrder) {
    ExpectPatterns({
        {"DDMMYYYY", "DDMMYYYY"},
        {"DD.MM.YYYY", "DD.MM.YYYY"},
        {"DD.MMYYYY", "DD.MMYYYY"},
        {"DDMM/YYYY", "DDMM/YYYY"},
        {"DD,MM,YYYY", "DD,MM,YYYY"},
        {"DD\"MM\xE4YYYY", "DD\"MM\xE4YYYY"},
        {"DD..MM.YYYY", ""},
        {"DD.MM..YYYY", ""},
        {"DD", ""},
        {"DD.", ""},
        {"DDMM", ""},
        {"DD.MM", ""},
        {"DD.MM.", ""},
        {"DD.M.YYYY", ""},
        {"DD.MM.Y", ""},
        {"DD.MM.YYY", ""},
        {"DDYYYY", ""},
        {"DDYYMM", ""},
        {"DDYYYYMM", ""},
        {"D.MM.YYYY", ""},
    });
}

TEST(DatePattern, DayFirstTakesAnyCharacterButTheNextLetterAsSeparator) {
    ExpectPatterns({
        {"DDDMMYYYY", "DDDMMYYYY"},
        {"DDYMMMYYYY", "DDYMMMYYYY"},
        {"DDMMMYYYY", "DDMMMYYYY"},
    });
}

TEST(DatePattern, ATwoDigitYearBehindDayOrMonthMustEndTheText) {
    ExpectPatterns({
        {"DDMMYY", "DDMMYY"},
        {"DD.MM.YY", "DD.MM.YY"},
        {"DD.MM.YY ", ""},
        {"DD.MM.YY,", ""},
        {"MMYY", "MMYY"},
        {"MM/YY", "MM/YY"},
        {"MM/YYx", ""},
        {"MMDDYY", "MMDDYY"},
        {"MM/DD/YY", "MM/DD/YY"},
        {"MM/DD/YY.", ""},
        {"MMYYDD", ""},
        {"MM.YY.DD", ""},
    });
}

TEST(DatePattern, MonthFirstIsTakenWhenItIsAKnownFormat) {
    ExpectPatterns({
        {"MMYYYY", "MMYYYY"},
        {"MM.YYYY", "MM.YYYY"},
        {"MMDDYYYY", "MMDDYYYY"},
        {"MM/DD/YYYY", "MM/DD/YYYY"},
        {"MM/DDYYYY", "MM/DDYYYY"},
        {"MMYYYYDD", "MMYYYYDD"},
        {"MM-YYYY-DD", "MM-YYYY-DD"},
        {"M", ""},
        {"MM", ""},
        {"MM.", ""},
        {"MMDD", ""},
        {"MM..YYYY", ""},
        {"MM/DD//YYYY", ""},
        {"MMMYYYY", ""},
        {"MMYDDYYYY", ""},
        {"MMMMYY", ""},
        {"MM.Y", ""},
    });
}

TEST(DatePattern, YearFirstIsTakenWithWhatFollowsDirectly) {
    ExpectPatterns({
        {"YYYYMMDD", "YYYYMMDD"},
        {"YYYYMM", "YYYYMM"},
        {"YYYYDDMM", "YYYYDDMM"},
        {"YYYYMM-DD", "YYYYMM-DD"},
        {"YYYY", "YYYY"},
        {"YYMM", "YYMM"},
        {"YYMMDD", "YYMMDD"},
        {"YYDDMM", "YYDDMM"},
        {"YYMM.DD", "YYMM.DD"},
        {"YY", "YY"},
        {"Y", ""},
        {"YYY", ""},
        {"YYM", ""},
        {"YYDD", ""},
    });
}

TEST(DatePattern, AYearWithASeparatorBehindItKeepsOnlyTheYear) {
    ExpectPatterns({
        {"YYYY-MM-DD", "YYYY"},
        {"YYYY.MM", "YYYY"},
        {"YYYY.", "YYYY"},
        {"YYYY,", "YYYY"},
        {"YY-MM-DD", "YY"},
        {"YY.MM", "YY"},
    });
}

TEST(DatePattern, TextBehindThePatternIsIgnored) {
    ExpectPatterns({
        {"DD.MM.YYYYxyz", "DD.MM.YYYY"},
        {"DDMMYYYY,", "DDMMYYYY"},
        {"DDMMYYYYY", "DDMMYYYY"},
        {"MM.YYYY.x", "MM.YYYY"},
        {"MM.YYYY.DDx", "MM.YYYY.DD"},
        {"MMYYYYMM", "MMYYYY"},
        {"YYYYMMx", "YYYYMM"},
        {"YYYYMM.D", "YYYYMM"},
        {"YYYYMMDD.", "YYYYMMDD"},
        {"YYYYM", "YYYY"},
        {"YYYYDD", "YYYY"},
        {"YYMMx", "YYMM"},
    });
}

TEST(DatePattern, OtherTextIsNoPattern) {
    ExpectPatterns({{"", ""}, {" ", ""}, {"dd.mm.yyyy", ""}, {".DDMMYYYY", ""}, {"X", ""}, {"\"", ""}, {"D", ""}});
}

} // namespace
