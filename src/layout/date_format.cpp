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

constexpr bool IsSeparator(char c) {
    return c != 'D' && c != 'M' && c != 'Y';
}

bool Holds(std::string_view format, std::string_view letters) {
    return format.find(letters) != std::string_view::npos;
}

void FindSeparators(std::string_view format, CDateFormat& analysed) {
    const auto* const first = std::find_if(format.begin(), format.end(), IsSeparator);
    if (first == format.end()) {
        return;
    }
    analysed.FirstSeparator = *first;
    analysed.FirstSeparatorAt = static_cast<int>(first - format.begin());
    const auto last = std::find_if(format.rbegin(), format.rend(), IsSeparator);
    const auto lastAt = static_cast<int>(format.rend() - last) - 1;
    if (lastAt == analysed.FirstSeparatorAt) {
        return;
    }
    analysed.SecondSeparator = *last;
    analysed.SecondSeparatorAt = lastAt;
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
