// Date formats: patterns of D, M and Y with up to two separators.
#pragma once

#include <string_view>

namespace tabvex {

/// What a date format text says. Orders are 1 to 3, the component's place in the sequence; 0 for a day that the format
/// does not have; -1 for all three when the format, without its separators, is none of the sixteen known layouts, or
/// has a separator inside its day or four-digit year.
struct CDateFormat {
    int DayOrder = -1;
    int MonthOrder = -1;
    int YearOrder = -1;
    int YearDigits = 2;
    bool HasDay = false;
    char FirstSeparator = 0;   ///< 0: none
    int FirstSeparatorAt = -1; ///< 0-based
    char SecondSeparator = 0;  ///< 0: none; the last separator behind the first when there are more than two
    int SecondSeparatorAt = -1;

    bool IsKnown() const { return YearOrder > 0; }
};

/// Analyses a date format text. A separator is any character but D, M and Y.
CDateFormat AnalyseDateFormat(std::string_view format);

} // namespace tabvex
