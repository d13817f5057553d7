#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tabvex::generate {

struct Date {
    int year = 0;
    int month = 0;
    int day = 0;
};

// Reads YYYY-MM-DD. No value for anything that is not such a date; months with an even number
// other than February end with the 30th, as in the format descriptors themselves.
std::optional<Date> ParseDate(std::string_view text);

// Reads the whole text as a decimal number with "." or "," as its separator.
std::optional<double> ParseNumber(std::string_view text);

// One bound of a range; an open one has no text and holds for every value.
struct Bound {
    std::string text;
    bool included = false;

    bool IsOpen() const { return text.empty(); }
};

struct Range {
    Bound lower;
    Bound upper;
};

// The parts of a format descriptor, the fourth column of a table line.
struct Descriptor {
    char format = 'C';
    std::string defaultText;
    char fill = ' ';
    std::string modifiers;
    int intDigits = 0;
    int decimals = 0;
    std::vector<Range> ranges;
    std::vector<std::string> values;
    std::string datePattern;

    bool Has(char modifier) const { return modifiers.find(modifier) != std::string::npos; }
    bool IsFormatted() const { return !modifiers.empty(); }
    bool IsSigned() const { return Has('S') || Has('E') || Has('B'); }
};

// Parses a descriptor of an item of the given length. Throws std::invalid_argument, naming the
// component, when it is not valid.
Descriptor ParseDescriptor(std::string_view text, int length);

} // namespace tabvex::generate
