// Dates as texts: from a caller's or an item's format into the canonical form and back.
#pragma once

#include <string>
#include <string_view>

namespace tabvex {

/// Canonical date: YYYYMMDD, or YYYYMM for a format without a day; a terminated text of fixed size.
struct CCanonicalDate {
    char Text[9] = {};
    int Length = 0;
    std::string_view View() const { return {Text, static_cast<std::size_t>(Length)}; }
};

/// Parses a date text against a format. TABVEX_OK; TABVEX_DATE_UNUSABLE_FORMAT (looked at first);
/// TABVEX_DATE_WRONG_LENGTH; TABVEX_DATE_WRONG_SEPARATOR; TABVEX_DATE_NOT_DIGITS; TABVEX_DATE_NO_SUCH_DAY.
/// A two-digit year below 51 is of the 2000s, any other of the 1900s. `date` is set only on success.
int ParseDateText(std::string_view text, std::string_view format, CCanonicalDate& date);

/// True for a canonical date whose day exists; a missing month counts as 12, a missing day as 28.
bool IsExistingDay(std::string_view canonicalDate);

/// Rewrites a canonical date into a format; `text` is replaced. Never fails: a component that the date lacks is left
/// out, a format that is not known gives an empty text.
void RewriteDate(std::string_view canonicalDate, std::string_view format, std::string& text);

} // namespace tabvex
