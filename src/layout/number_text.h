// Numbers written as text, read independent of the process locale.
#pragma once

#include <string_view>

namespace tabvex {

/// Reads a decimal integer: leading white space, a sign and digits. True when the whole text is one and it lies in the
/// range of int. `value` is always set: to what was read so far, 0 when there was nothing, the nearest int when the
/// number lies outside.
bool ParseInteger(std::string_view text, int& value);

/// Reads a floating-point number: leading white space, a sign, digits, a decimal separator, an exponent. The first "."
/// of the text is the separator or, when it has none, its first ",". True when the whole text is one and it is finite;
/// hexadecimal forms, "inf" and "nan" are not numbers. `value` is always set: to what was read so far, 0.0 when there
/// was nothing, the nearest double when the number lies outside.
bool ParseDecimal(std::string_view text, double& value);

/// Reads as far as there are digits, like a column of the table file is read: leading white space is skipped, text
/// that is not a number gives 0, a number outside the range of int the nearest int.
int LeadingInteger(std::string_view text);

/// Whole, non-empty text reads as a decimal integer, or as a floating-point number.
bool IsInteger(std::string_view text);
bool IsDecimal(std::string_view text);

/// The text without the blanks at both ends.
std::string_view TrimBlanks(std::string_view text);
/// The text without the blanks at its end.
std::string_view TrimBlanksRight(std::string_view text);

} // namespace tabvex
