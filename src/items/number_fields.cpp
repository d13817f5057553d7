#include "items/number_fields.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <string>

#include "layout/number_text.h"
#include "tabvex/result_codes.h"

namespace tabvex {
namespace {

constexpr int kSignificantDigits = 6;
/// Powers of ten beyond this are beyond a double, so a definition with more decimals costs no more time.
constexpr int kMostDecimals = 400;

bool IsSign(char character) {
    return character == '+' || character == '-';
}

bool HasModifier(const CItemDef& definition, char modifier) {
    return definition.Modifiers.find(modifier) != std::string::npos;
}

/// A field without the sign that its modifiers put at its end or at its beginning.
struct CUnsignedField {
    std::string_view Text;
    bool IsNegative = false;
    bool HadSignAtEnd = false;
};

CUnsignedField TakeSign(const CItemDef& definition, std::string_view trimmed) {
    CUnsignedField field{trimmed};
    if (HasModifier(definition, 'E') && !field.Text.empty() && IsSign(field.Text.back())) {
        field.IsNegative = field.Text.back() == '-';
        field.HadSignAtEnd = true;
        field.Text.remove_suffix(1);
    }
    if (HasModifier(definition, 'B') && !field.Text.empty() && IsSign(field.Text.front())) {
        field.IsNegative = field.IsNegative || field.Text.front() == '-';
        field.Text.remove_prefix(1);
    }
    return field;
}

/// False when the negated value lies outside the range of int; it is the nearest int then.
bool Negate(int& value) {
    const bool hasCounterpart = value != std::numeric_limits<int>::min();
    value = hasCounterpart ? -value : std::numeric_limits<int>::max();
    return hasCounterpart;
}

double TimesTen(double value, int times) {
    for (int i = 0; i < std::min(times, kMostDecimals); ++i) {
        value *= 10.0;
    }
    return value;
}

double DividedByTen(double value, int times) {
    for (int i = 0; i < std::min(times, kMostDecimals); ++i) {
        value /= 10.0;
    }
    return value;
}

std::string_view Terminate(char (&text)[kNumberTextSize], char* end) {
    *end = '\0';
    return {text, static_cast<std::size_t>(end - text)};
}

} // namespace

int ParseIntField(const CItemDef& definition, std::string_view field, int& value) {
    const std::string_view trimmed = TrimBlanks(field);
    const CUnsignedField number = TakeSign(definition, trimmed);
    value = 0;
    if (TrimBlanks(number.Text).empty()) {
        return TABVEX_VALUE_BLANK;
    }
    bool isNumber = ParseInteger(number.Text, value);
    if (number.IsNegative) {
        isNumber = Negate(value) && isNumber;
    }
    // A field with its sign at the end reads as no number, its value is right all the same: kept on purpose.
    if (isNumber && !number.HadSignAtEnd) {
        return TABVEX_OK;
    }
    // The smallest int has no positive counterpart, it can be read with its sign only.
    int signedValue = 0;
    if (!ParseInteger(trimmed, signedValue)) {
        return TABVEX_VALUE_NOT_A_NUMBER;
    }
    value = signedValue;
    return TABVEX_OK;
}

int ParseFloatField(const CItemDef& definition, std::string_view field, double& value) {
    const CUnsignedField number = TakeSign(definition, TrimBlanks(field));
    const std::string_view text = TrimBlanks(number.Text);
    value = 0.0;
    if (text.empty()) {
        return TABVEX_VALUE_BLANK;
    }
    if (!ParseDecimal(text, value)) {
        return TABVEX_VALUE_NOT_A_NUMBER;
    }
    const double divisor = HasModifier(definition, 'P') ? TimesTen(1.0, definition.Decimals) : 1.0;
    value = (number.IsNegative ? -value : value) / divisor;
    return TABVEX_OK;
}

double RoundToDecimals(double value, int decimals) {
    // Negative values, too, get one half added and are then truncated: kept on purpose.
    return DividedByTen(std::trunc(TimesTen(value, decimals) + 0.5), decimals);
}

std::string_view PrintNumber(double value, char (&text)[kNumberTextSize]) {
    char* const last = std::end(text) - 1;
    return Terminate(text, std::to_chars(text, last, value, std::chars_format::general, kSignificantDigits).ptr);
}

std::string_view PrintNumber(int value, char (&text)[kNumberTextSize]) {
    return Terminate(text, std::to_chars(text, std::end(text) - 1, value).ptr);
}

} // namespace tabvex
