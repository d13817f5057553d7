// The one rule that tells which days exist, used by table headers, descriptors and items.
#pragma once

#include <string_view>

namespace tabvex {

/// True for a day of 1 to 31, a month of 1 to 12, and at most 28 or, in a leap year, 29 days in February. In every
/// other even month the 31st is refused, and so those of August, October and December: kept on purpose, as table and
/// record files have been checked that way ever since.
bool IsCalendarDate(int year, int month, int day);

/// True when `text` begins with a date as four-digit year, "-", two-digit month, "-", two-digit day.
bool IsValidDate(std::string_view text);

/// Reads a text of digits and nothing else; false for anything else, an empty text and a number beyond int. `value` is
/// set only on success.
bool ParseDigits(std::string_view text, int& value);

} // namespace tabvex
