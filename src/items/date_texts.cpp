#include "items/date_texts.h"

#include "layout/calendar.h"
#include "layout/date_format.h"
#include "layout/number_text.h"
#include "tabvex/result_codes.h"

namespace tabvex {
namespace {

/// A two-digit year below this is of the 2000s: deliberate, and exact.
constexpr int kFirstYearOf1900s = 51;

constexpr std::size_t kYearDigits = 4;
constexpr std::size_t kMonthAt = 4;
constexpr std::size_t kDayAt = 6;
constexpr int kMissingMonth = 12;
constexpr int kMissingDay = 28;

bool IsComponentLetter(char character) {
    return character == 'D' || character == 'M' || character == 'Y';
}

std::string_view Cut(std::string_view text, std::size_t at, std::size_t count) {
    return at < text.size() ? text.substr(at, count) : std::string_view();
}

bool HasSeparators(std::string_view text, std::string_view format) {
    for (std::size_t i = 0; i < format.size(); ++i) {
        if (!IsComponentLetter(format[i]) && text[i] != format[i]) {
            return false;
        }
    }
    return true;
}

/// Collects the digits of one component.
struct CComponent {
    int Value = 0;
    int Digits = 0;

    bool Read(std::string_view text, std::string_view format, char letter) {
        for (std::size_t i = 0; i < format.size(); ++i) {
            if (format[i] != letter) {
                continue;
            }
            if (text[i] < '0' || text[i] > '9') {
                return false;
            }
            Value = Value * 10 + (text[i] - '0');
            ++Digits;
        }
        return true;
    }
};

int WithCentury(const CComponent& year) {
    if (year.Digits > 2) {
        return year.Value;
    }
    return year.Value + (year.Value < kFirstYearOf1900s ? 2000 : 1900);
}

void Append(CCanonicalDate& date, int value, int digits) {
    for (int i = digits - 1; i >= 0; --i) {
        date.Text[date.Length + i] = static_cast<char>('0' + value % 10);
        value /= 10;
    }
    date.Length += digits;
}

bool ReadOrMissing(std::string_view digits, int missing, int& value) {
    value = missing;
    return digits.empty() || (digits.size() == 2 && ParseDigits(digits, value));
}

std::string_view ComponentAt(const CDateFormat& format, int order, std::string_view canonicalDate) {
    if (order == format.YearOrder) {
        const std::size_t centuryDigits = format.YearDigits == 2 ? 2 : 0;
        return Cut(canonicalDate, centuryDigits, kYearDigits - centuryDigits);
    }
    if (order == format.MonthOrder) {
        return Cut(canonicalDate, kMonthAt, 2);
    }
    return order == format.DayOrder ? Cut(canonicalDate, kDayAt, 2) : std::string_view();
}

void AppendSeparator(char separator, std::string& text) {
    if (separator != 0) {
        text += separator;
    }
}

} // namespace

int ParseDateText(std::string_view text, std::string_view format, CCanonicalDate& date) {
    if (!AnalyseDateFormat(format).IsKnown()) {
        return TABVEX_DATE_UNUSABLE_FORMAT;
    }
    if (text.size() != format.size()) {
        return TABVEX_DATE_WRONG_LENGTH;
    }
    if (!HasSeparators(text, format)) {
        return TABVEX_DATE_WRONG_SEPARATOR;
    }
    CComponent year;
    CComponent month;
    CComponent day;
    if (!year.Read(text, format, 'Y') || !month.Read(text, format, 'M') || !day.Read(text, format, 'D')) {
        return TABVEX_DATE_NOT_DIGITS;
    }
    CCanonicalDate canonical;
    Append(canonical, WithCentury(year), 4);
    Append(canonical, month.Value, 2);
    if (day.Digits > 0) {
        Append(canonical, day.Value, 2);
    }
    if (!IsExistingDay(canonical.View())) {
        return TABVEX_DATE_NO_SUCH_DAY;
    }
    date = canonical;
    return TABVEX_OK;
}

bool IsExistingDay(std::string_view canonicalDate) {
    int year = 0;
    int month = 0;
    int day = 0;
    const std::string_view yearText = Cut(canonicalDate, 0, kYearDigits);
    return yearText.size() == kYearDigits && ParseInteger(yearText, year) &&
           ReadOrMissing(Cut(canonicalDate, kMonthAt, 2), kMissingMonth, month) &&
           ReadOrMissing(Cut(canonicalDate, kDayAt, 2), kMissingDay, day) && IsCalendarDate(year, month, day);
}

void RewriteDate(std::string_view canonicalDate, std::string_view format, std::string& text) {
    text.clear();
    const CDateFormat analysed = AnalyseDateFormat(format);
    if (!analysed.IsKnown()) {
        return;
    }
    // Separators go behind the first and the second component wherever the format has them: kept on purpose.
    text += ComponentAt(analysed, 1, canonicalDate);
    AppendSeparator(analysed.FirstSeparator, text);
    text += ComponentAt(analysed, 2, canonicalDate);
    AppendSeparator(analysed.SecondSeparator, text);
    text += ComponentAt(analysed, 3, canonicalDate);
}

} // namespace tabvex
