#include "items/value_format.h"

#include <algorithm>
#include <utility>

#include "items/date_texts.h"
#include "layout/ascii.h"
#include "layout/number_text.h"
#include "platform/guard.h"
#include "tabvex/result_codes.h"

namespace tabvex {
namespace {

/// Lines are at most 640 characters long, so nothing behind this place of a field is ever seen.
constexpr int kWidestField = 4096;

/// What an open bound stands for.
constexpr double kOpenBound = 1e27;

std::size_t Clamped(int number) {
    return static_cast<std::size_t>(std::clamp(number, 0, kWidestField));
}

std::size_t FieldWidth(const CItemDef& definition) {
    return Clamped(definition.Length);
}

bool HasModifier(const CItemDef& definition, char modifier) {
    return definition.Modifiers.find(modifier) != std::string::npos;
}

bool HasSignModifier(const CItemDef& definition) {
    return definition.Modifiers.find_first_of("SEB") != std::string::npos;
}

std::size_t DecimalSeparatorAt(std::string_view number) {
    const std::size_t point = number.find('.');
    return point != std::string_view::npos ? point : number.find(',');
}

/// Pads a text that is no longer than the field. Modifiers that name no alignment leave it as it is: kept on purpose.
void PadText(const CItemDef& definition, std::string_view text, std::string& field) {
    const std::size_t width = FieldWidth(definition);
    const bool isLaidOut = definition.HasModifiers != 0;
    const bool padInFront = isLaidOut && HasModifier(definition, 'R');
    field.assign(padInFront ? width - text.size() : 0, ' ');
    field += text;
    if (!isLaidOut || HasModifier(definition, 'L')) {
        field.resize(width, ' ');
    }
}

int FormatText(const CItemDef& definition, std::string_view value, bool check, std::string& field) {
    const std::vector<std::string>& values = definition.Values;
    if (check && !values.empty() && std::find(values.begin(), values.end(), value) == values.end()) {
        return TABVEX_VALUE_NOT_LISTED;
    }
    if (value.size() > FieldWidth(definition)) {
        return TABVEX_VALUE_TOO_LONG;
    }
    PadText(definition, value, field);
    if (definition.Format == 'U') {
        std::transform(field.begin(), field.end(), field.begin(), [](char c) { return UpperCase(c); });
    }
    return TABVEX_OK;
}

int FormatDate(const CItemDef& definition, std::string_view value, std::string& field) {
    if (definition.HasDatePattern == 0) {
        return TABVEX_DATE_ITEM_NO_PATTERN;
    }
    std::string text; // at most ten characters: nothing is allocated
    RewriteDate(value, definition.DatePattern, text);
    if (text == "Error") { // a value that is no date at all can become this text
        return TABVEX_DATE_DOES_NOT_FIT;
    }
    text.resize(std::min(text.size(), FieldWidth(definition)));
    PadText(definition, text, field);
    return TABVEX_OK;
}

bool IsListed(const std::vector<std::string>& values, double number) {
    return std::any_of(values.begin(), values.end(), [number](const std::string& value) {
        double listed = 0.0;
        return ParseDecimal(value, listed) && listed == number;
    });
}

bool IsAboveLower(const CItemRange& range, double number) {
    if (range.LowerBound == "-inf") {
        return number > -kOpenBound;
    }
    double bound = 0.0;
    ParseDecimal(range.LowerBound, bound);
    return range.LowerKind == '>' ? number > bound : number >= bound;
}

bool IsBelowUpper(const CItemRange& range, double number) {
    if (range.UpperBound == "+inf") {
        return number < kOpenBound;
    }
    double bound = 0.0;
    ParseDecimal(range.UpperBound, bound);
    return range.UpperKind == '<' ? number < bound : number <= bound;
}

bool StoreNumber(const CItemDef& definition, std::string_view number, std::string& field) {
    const std::size_t width = FieldWidth(definition);
    if (number.size() > width) {
        return false;
    }
    field = number;
    const std::size_t separator = DecimalSeparatorAt(number);
    if (separator != std::string_view::npos) {
        field[separator] = '.';
    }
    field.resize(width, ' ');
    return true;
}

int FormatNumber(const CItemDef& definition, std::string_view value, bool check, std::string& field) {
    double number = 0.0;
    if (!ParseDecimal(value, number)) {
        return TABVEX_VALUE_NOT_A_NUMBER;
    }
    if (check && !definition.Values.empty() && !IsListed(definition.Values, number)) {
        return TABVEX_VALUE_NUMBER_NOT_LISTED;
    }
    if (check && !definition.Ranges.empty() && !IsInRanges(definition, number)) {
        return TABVEX_VALUE_OUT_OF_RANGE;
    }
    const bool fits =
        definition.HasModifiers != 0 ? LayOutNumber(definition, value, field) : StoreNumber(definition, value, field);
    if (!fits) {
        return TABVEX_VALUE_DOES_NOT_FIT;
    }
    return TABVEX_OK;
}

/// What goes into a field besides the fill: the parts follow one another in this order.
struct CNumberParts {
    std::string_view Sign;
    std::string_view Integer;
    std::string_view Point;
    std::string_view Fraction;
    std::size_t Zeros = 0;

    std::size_t Size() const { return Sign.size() + Integer.size() + Point.size() + Fraction.size() + Zeros; }

    void CopyTo(std::string& field, std::size_t at) const {
        auto place = field.begin() + static_cast<std::ptrdiff_t>(at);
        for (const std::string_view part : {Sign, Integer, Point, Fraction}) {
            place = std::copy(part.begin(), part.end(), place);
        }
        std::fill_n(place, Zeros, '0');
    }
};

/// Takes an unsigned number apart; trailing zeros of its fraction give way to as many as the item wants.
CNumberParts TakeApart(std::string_view number, std::size_t decimals) {
    CNumberParts parts;
    const std::size_t separator = DecimalSeparatorAt(number);
    parts.Integer = number.substr(0, separator);
    if (separator != std::string_view::npos) {
        parts.Fraction = number.substr(separator + 1);
        parts.Fraction = parts.Fraction.substr(0, parts.Fraction.find_last_not_of('0') + 1);
    }
    parts.Zeros = decimals - std::min(decimals, parts.Fraction.size());
    if (!parts.Fraction.empty() || parts.Zeros > 0) {
        parts.Point = ".";
    }
    return parts;
}

/// Drops the implied point and adds the sign of a number that is written in front of its digits. False when the number
/// does not fit.
bool FitParts(const CItemDef& definition, bool isNegative, CNumberParts& parts) {
    const std::size_t width = FieldWidth(definition);
    if (parts.Integer.size() > Clamped(definition.IntDigits) || parts.Fraction.size() > Clamped(definition.Decimals)) {
        return false;
    }
    // The point counts here even when it is only implied: kept on purpose.
    if (isNegative && parts.Size() == width) {
        return false;
    }
    if (HasModifier(definition, 'P')) {
        parts.Point = {};
    }
    if (!HasSignModifier(definition)) {
        parts.Sign = isNegative ? "-" : "";
        return parts.Size() <= width;
    }
    if (parts.Size() >= width) {
        return false;
    }
    if (!HasModifier(definition, 'E') && !HasModifier(definition, 'B')) {
        parts.Sign = isNegative ? "-" : "+";
    }
    return true;
}

/// Neither R nor L: the digits are not placed, which is kept on purpose.
void PlaceBetween(const CItemDef& definition, const CNumberParts& parts, std::size_t begin, std::size_t end,
                  std::string& field) {
    if (HasModifier(definition, 'R')) {
        parts.CopyTo(field, end - parts.Size());
    } else if (HasModifier(definition, 'L')) {
        parts.CopyTo(field, begin);
    }
}

void Place(const CItemDef& definition, const CNumberParts& parts, bool isNegative, std::string& field) {
    const bool signAtEnd = HasModifier(definition, 'E');
    const bool signAtBegin = HasModifier(definition, 'B');
    const char sign = isNegative ? '-' : '+';
    if (signAtEnd) {
        field.back() = sign;
        PlaceBetween(definition, parts, 0, field.size() - 1, field);
    }
    if (signAtBegin) {
        field.front() = sign;
        PlaceBetween(definition, parts, 1, field.size(), field);
    }
    if (!signAtEnd && !signAtBegin) {
        PlaceBetween(definition, parts, 0, field.size(), field);
    }
}

} // namespace

int FormatValue(const CItemDef& definition, std::string_view value, bool check, std::string& field) {
    switch (definition.Format) {
    case 'N':
        return FormatNumber(definition, value, check, field);
    case 'D':
        return FormatDate(definition, value, field);
    default:
        return FormatText(definition, value, check, field);
    }
}

bool LayOutNumber(const CItemDef& definition, std::string_view number, std::string& field) {
    const char fill = definition.HasFill != 0 ? definition.Fill : ' ';
    if (number.empty() || number == " ") {
        field.assign(FieldWidth(definition), fill);
        return true;
    }
    const bool isNegative = number.front() == '-';
    number.remove_prefix(isNegative ? 1 : 0);
    CNumberParts parts = TakeApart(number, Clamped(definition.Decimals));
    if (!FitParts(definition, isNegative, parts)) {
        return false;
    }
    field.assign(FieldWidth(definition), fill);
    Place(definition, parts, isNegative, field);
    return true;
}

bool IsInRanges(const CItemDef& definition, double number) {
    return std::any_of(definition.Ranges.begin(), definition.Ranges.end(), [number](const CItemRange& range) {
        return IsAboveLower(range, number) && IsBelowUpper(range, number);
    });
}

} // namespace tabvex

int CItemDef::FormatValue(std::string_view value, std::string& field) const {
    return tabvex::Guarded([&]() -> int {
        std::string text;
        const int result = tabvex::FormatValue(*this, value, true, text);
        if (result == TABVEX_OK) {
            field = std::move(text);
        }
        return result;
    });
}
