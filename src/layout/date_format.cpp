#include "layout/date_format.h"

#include <array>
#include <cstdint>

namespace tabvex {

namespace {

// A format's letters in one number, which is compared at once. The known layouts have eight at most.
constexpr std::size_t kMostLetters = sizeof(std::uint64_t);

constexpr std::uint64_t WithLetter(std::uint64_t letters, char letter) {
    return letters << 8U | static_cast<unsigned char>(letter);
}

constexpr std::uint64_t Packed(std::string_view letters) {
    std::uint64_t packed = 0;
    for (const char letter : letters) {
        packed = WithLetter(packed, letter);
    }
    return packed;
}

struct CDateLayout {
    std::uint64_t Letters;
    int DayOrder;
    int MonthOrder;
    int YearOrder;
    int YearDigits;
};

// clang-format off
constexpr std::array<CDateLayout, 16> kDateLayouts = {{
    // letters            day month year (orders; 0: none), year digits
    {Packed("DDMMYY"),     1,   2,   3,   2},
    {Packed("DDYYMM"),     1,   3,   2,   2},
    {Packed("MMYYDD"),     3,   1,   2,   2},
    {Packed("MMDDYY"),     2,   1,   3,   2},
    {Packed("YYDDMM"),     2,   3,   1,   2},
    {Packed("YYMMDD"),     3,   2,   1,   2},
    {Packed("MMYY"),       0,   1,   2,   2},
    {Packed("YYMM"),       0,   2,   1,   2},
    {Packed("DDMMYYYY"),   1,   2,   3,   4},
    {Packed("DDYYYYMM"),   1,   3,   2,   4},
    {Packed("MMYYYYDD"),   3,   1,   2,   4},
    {Packed("MMDDYYYY"),   2,   1,   3,   4},
    {Packed("YYYYDDMM"),   2,   3,   1,   4},
    {Packed("YYYYMMDD"),   3,   2,   1,   4},
    {Packed("MMYYYY"),     0,   1,   2,   4},
    {Packed("YYYYMM"),     0,   2,   1,   4},
}};
// clang-format on

constexpr bool IsSeparator(char c) {
    return c != 'D' && c != 'M' && c != 'Y';
}

void AddSeparator(char separator, int at, CDateFormat& analysed) {
    if (analysed.FirstSeparatorAt < 0) {
        analysed.FirstSeparator = separator;
        analysed.FirstSeparatorAt = at;
    } else {
        analysed.SecondSeparator = separator;
        analysed.SecondSeparatorAt = at;
    }
}

} // namespace

CDateFormat AnalyseDateFormat(std::string_view format) {
    CDateFormat analysed;
    std::uint64_t letters = 0;
    std::size_t letterCount = 0;
    int repeated = 0; // how often the character has come in a row
    for (std::size_t at = 0; at < format.size(); ++at) {
        const char c = format[at];
        repeated = at > 0 && format[at - 1] == c ? repeated + 1 : 1;
        if (IsSeparator(c)) {
            AddSeparator(c, static_cast<int>(at), analysed);
            continue;
        }
        analysed.YearDigits = c == 'Y' && repeated == 4 ? 4 : analysed.YearDigits;
        analysed.HasDay = analysed.HasDay || (c == 'D' && repeated == 2);
        letters = WithLetter(letters, c);
        ++letterCount;
    }
    if (letterCount > kMostLetters) {
        return analysed;
    }
    for (const CDateLayout& layout : kDateLayouts) {
        const bool sameParts = layout.YearDigits == analysed.YearDigits && (layout.DayOrder > 0) == analysed.HasDay;
        if (sameParts && layout.Letters == letters) {
            analysed.DayOrder = layout.DayOrder;
            analysed.MonthOrder = layout.MonthOrder;
            analysed.YearOrder = layout.YearOrder;
            break;
        }
    }
    return analysed;
}

} // namespace tabvex
