#include "field_text.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <stdexcept>

namespace tabvex::generate {
namespace {

[[noreturn]] void Refuse(const Item& item, std::string_view value, const char* why) {
    throw std::invalid_argument("item " + std::to_string(item.number) + ": \"" + std::string(value) + "\" " + why);
}

std::string Digits(const Item& item, long long magnitude) {
    std::string text = std::to_string(magnitude);
    const auto decimals = static_cast<std::size_t>(item.format.decimals);
    if (text.size() <= decimals) {
        text.insert(0, decimals + 1 - text.size(), '0');
    }
    if (decimals > 0 && !item.format.Has('P')) {
        text.insert(text.size() - decimals, 1, '.');
    }
    return text;
}

bool Holds(const Bound& bound, double value, bool isLower) {
    if (bound.IsOpen()) {
        return true;
    }
    const double limit = *ParseNumber(bound.text);
    if (value == limit) {
        return bound.included;
    }
    return isLower ? value > limit : value < limit;
}

bool Holds(const Bound& bound, std::string_view date, bool isLower) {
    if (bound.IsOpen()) {
        return true;
    }
    if (date == bound.text) {
        return bound.included;
    }
    return isLower ? date > bound.text : date < bound.text;
}

template <typename Value>
bool InRanges(const Item& item, const Value& value) {
    const auto& ranges = item.format.ranges;
    return ranges.empty() || std::any_of(ranges.begin(), ranges.end(), [&](const Range& range) {
               return Holds(range.lower, value, true) && Holds(range.upper, value, false);
           });
}

template <typename Same>
bool InValues(const Item& item, const Same& same) {
    const auto& values = item.format.values;
    return values.empty() || std::any_of(values.begin(), values.end(), same);
}

void PlaceCheckedNumber(const Item& item, std::string_view text, char* field) {
    const auto value = ParseNumber(text);
    if (!value) {
        Refuse(item, text, "is no number");
    }
    if (!InValues(item, [&](const std::string& v) { return ParseNumber(v) == value; })) {
        Refuse(item, text, "is not in the value list");
    }
    if (!InRanges(item, *value)) {
        Refuse(item, text, "is outside the ranges");
    }
    const double scaled = *value * static_cast<double>(UnitsPerOne(item));
    const long long units = std::llround(scaled);
    if (std::abs(scaled - static_cast<double>(units)) > 1e-6) {
        Refuse(item, text, "has more decimals");
    }
    const std::size_t intDigits = std::to_string(std::abs(units) / UnitsPerOne(item)).size();
    const int room = MaxIntDigits(item) - (units < 0 && !item.format.IsSigned() ? 1 : 0);
    if (static_cast<int>(intDigits) > room) {
        Refuse(item, text, "has more digits");
    }
    PlaceNumber(item, units, field);
}

void PlaceCheckedText(const Item& item, std::string_view text, char* field) {
    if (static_cast<int>(text.size()) > item.length) {
        Refuse(item, text, "is longer than the item");
    }
    if (!InValues(item, [&](const std::string& v) { return v == text; })) {
        Refuse(item, text, "is not in the value list");
    }
    const auto isLower = [](char c) { return c >= 'a' && c <= 'z'; };
    if (item.format.format == 'U' && std::any_of(text.begin(), text.end(), isLower)) {
        Refuse(item, text, "is not in upper case");
    }
    PlaceText(item, text, field);
}

void PlaceCheckedDate(const Item& item, std::string_view text, char* field) {
    const auto date = ParseDate(text);
    if (!date) {
        Refuse(item, text, "is no date");
    }
    if (!InValues(item, [&](const std::string& v) { return v == text; })) {
        Refuse(item, text, "is not in the value list");
    }
    if (!InRanges(item, text)) {
        Refuse(item, text, "is outside the ranges");
    }
    PlaceDate(item, *date, field);
}

} // namespace

long long UnitsPerOne(const Item& item) {
    long long units = 1;
    for (int i = 0; i < item.format.decimals; ++i) {
        units *= 10;
    }
    return units;
}

int MaxIntDigits(const Item& item) {
    const Descriptor& format = item.format;
    const int point = format.decimals > 0 && !format.Has('P') ? 1 : 0;
    const int room = item.length - format.decimals - point - (format.IsSigned() ? 1 : 0);
    return format.IsFormatted() ? std::min(format.intDigits, room) : room;
}

void PlaceNumber(const Item& item, long long units, char* field) {
    const Descriptor& format = item.format;
    const char sign = units < 0 ? '-' : '+';
    std::string text = Digits(item, std::abs(units));
    const bool apart = format.Has('E') || format.Has('B');
    if (!apart && (units < 0 || format.Has('S'))) {
        text.insert(0, 1, sign);
    }

    std::memset(field, format.IsFormatted() ? format.fill : ' ', item.Width());
    std::size_t begin = 0;
    std::size_t end = item.Width();
    if (format.Has('E')) {
        field[--end] = sign;
    }
    if (format.Has('B')) {
        field[begin++] = sign;
    }
    if (format.IsFormatted() && !format.Has('R') && !format.Has('L')) {
        return; // no place for digits
    }
    if (text.size() > end - begin) {
        throw std::invalid_argument("the number does not fit the item");
    }
    if (format.Has('R')) {
        begin = end - text.size();
    }
    std::copy(text.begin(), text.end(), field + begin);
}

void PlaceText(const Item& item, std::string_view text, char* field) {
    const std::size_t size = std::min(text.size(), item.Width());
    std::memset(field, ' ', item.Width());
    const std::size_t begin = item.format.Has('R') ? item.Width() - size : 0;
    std::copy_n(text.begin(), size, field + begin);
}

void PlaceDate(const Item& item, const Date& date, char* field) {
    const std::string& pattern = item.format.datePattern;
    int day = date.day;
    int month = date.month;
    int year = date.year;
    for (std::size_t i = pattern.size(); i-- > 0;) {
        const char letter = pattern[i];
        field[i] = letter;
        if (letter != 'D' && letter != 'M' && letter != 'Y') {
            continue;
        }
        int& part = letter == 'D' ? day : letter == 'M' ? month : year;
        field[i] = static_cast<char>('0' + part % 10);
        part /= 10;
    }
}

void PlaceValue(const Item& item, std::string_view value, char* field) {
    if (item.format.format == 'N') {
        return PlaceCheckedNumber(item, value, field);
    }
    if (item.format.format == 'D') {
        return PlaceCheckedDate(item, value, field);
    }
    PlaceCheckedText(item, value, field);
}

} // namespace tabvex::generate
