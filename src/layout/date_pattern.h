// Date patterns of format descriptors: which part of a text is one.
#pragma once

#include <string_view>

namespace tabvex {

/// The date pattern that `text`, the rest of a descriptor, begins with, separators included; empty when there is none.
///
/// - Day first: DD, MM and the year in this order; the one separator between two parts is any character but the next
///   part's letter.
/// - Month or year first: the longest pattern that is a known date format, with at most one separator between two
///   parts. A year with a separator behind it is the whole pattern, and a year of four digits may stand alone.
/// - The year is YYYY. In a pattern that begins with the day or the month YY will do only as the end of the text, in
///   one that begins with the year only as the end, with a separator behind it or with the other parts.
std::string_view LeadingDatePattern(std::string_view text);

} // namespace tabvex
