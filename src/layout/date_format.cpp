#include "layout/date_format.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>

namespace tabvex {

namespace {

struct CDateLayout {
    std::string_view Letters;
    int DayOrder;
    int MonthOrder;
    int YearOrder;
    int YearDigits;
};

// clang-format off
constexpr std::array<CDateLayout, 16> kDateLayouts = {{
    // letters    day month year (orders; 0: none), year digits
    {"DDMMYY",     1,   2,   3,   2},
    {"DDYYMM",     1,   3,   2,   2},
    {"MMYYDD",     3,   1,   2,   2},
    {"MMDDYY",     2,   1,   3,   2},
    {"YYDDMM",     2,   3,   1,   2},
    {"YYMMDD",     3,   2,   1,   2},
    {"MMYY",       0,   1,   2,   2},
    {"YYMM",       0,   2,   1,   2},
    {"DDMMYYYY",   1,   2,   3,   4},
    {"DDYYYYMM",   1,   3,   2,   4},
    {"MMYYYYDD",   3,   1,   2,   4},
    {"MMDDYYYY",   2,   1,   3,   4},
    {"YYYYDDMM",   2,   3,   1,   4},
    {"YYYYMMDD",   3,   2,   1,   4},
    {"MMYYYY",     0,   1,   2,   4},
    {"YYYYMM",     0,   2,   1,   4},
}};
// clang-format on

constexpr std::string_view kLetters = "DMY";

bool IsSeparator(char c) {
    return kLetters.find(c) == std::string_view::npos;
}

bool Holds(std::string_view format, std::string_view letters) {
    return format.find(letters) != std::string_view::npos;
}

void FindSeparators(std::string_view format, CDateFormat& analysed) {
    const std::size_t firstAt = format.find_first_not_of(kLetters);
    const std::size_t lastAt = format.find_last_not_of(kLetters);
    if (firstAt == std::string_view::npos) {
        return;
    }
    analysed.FirstSeparator = format[firstAt];
    analysed.FirstSeparatorAt = static_cast<int>(firstAt);
    if (lastAt == firstAt) {
        return;
    }
    analysed.SecondSeparator = format[lastAt];
    analysed.SecondSeparatorAt = static_cast<int>(lastAt);
}

std::string WithoutSeparators(std::string_view format) {
    std::string letters;
    std::remove_copy_if(format.begin(), format.end(), std::back_inserter(letters), IsSeparator);
    return letters;
}

} // namespace

CDateFormat AnalyseDateFormat(std::string_view format) {
    CDateFormat analysed;
    analysed.YearDigits = Holds(format, "YYYY") ? 4 : 2;
    analysed.HasDay = Holds(format, "DD");
    FindSeparators(format, analysed);
    const std::string letters = WithoutSeparators(format);
    for (const CDateLayout& layout : kDateLayouts) {
        const bool sameParts = layout.YearDigits == analysed.YearDigits && (layout.DayOrder > 0) == analysed.HasDay;
        if (!sameParts || layout.Letters != letters) {
            continue;
        }
        analysed.DayOrder = layout.DayOrder;
        analysed.MonthOrder = layout.MonthOrder;
        analysed.YearOrder = layout.YearOrder;
        break;
    }
    return analysed;
}

} // namespace tabvex
