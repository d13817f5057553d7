#include "field_value.h"

#include <algorithm>
#include <map>

#include "text_layout.h"

namespace tabvex::tool {

namespace {

constexpr std::string_view kDigits = "0123456789";
constexpr std::size_t kLongestField = 640; // no line is longer
constexpr int kFirstYearOf1900s = 51;      // of the years with two digits

bool HasModifier(const CItemDef& item, char modifier) {
    return item.Modifiers.find(modifier) != std::string::npos;
}

bool IsSign(char c) {
    return c == '+' || c == '-';
}

bool AreDigits(std::string_view text) {
    return text.find_first_not_of(kDigits) == std::string_view::npos;
}

// A fill that numbers are not made of; zeros are part of the number.
bool IsFill(const CItemDef& item, char c) {
    return c == ' ' ||
           (item.HasFill != 0 && c == item.Fill && !IsSign(c) && c != '.' && c != ',' && !AreDigits({&c, 1}));
}

// Zeros and fill before the sign are fill.
void TakeSign(const CItemDef& item, std::string_view& text, bool& negative) {
    while (!text.empty() && IsFill(item, text.back())) {
        text.remove_suffix(1);
    }
    if (HasModifier(item, 'E') && !text.empty() && IsSign(text.back())) {
        negative = text.back() == '-';
        text.remove_suffix(1);
    }
    while (!text.empty() && IsFill(item, text.back())) {
        text.remove_suffix(1);
    }
    std::size_t begin = 0;
    while (begin < text.size() && (IsFill(item, text[begin]) || text[begin] == '0')) {
        ++begin;
    }
    if (begin < text.size() && IsSign(text[begin])) {
        negative = text[begin] == '-';
        text.remove_prefix(begin + 1);
    }
    while (!text.empty() && IsFill(item, text.front())) {
        text.remove_prefix(1);
    }
}

// Digits with an implied point get it.
std::string WithPoint(const CItemDef& item, std::string_view digits) {
    std::string number(digits);
    const std::size_t comma = number.find_first_of(".,");
    if (comma != std::string::npos) {
        number[comma] = '.';
        return number;
    }
    const auto decimals = static_cast<std::size_t>(std::max(item.Decimals, 0));
    if (HasModifier(item, 'P') && decimals > 0) {
        number.insert(0, decimals > number.size() ? decimals - number.size() : 0, '0');
        number.insert(number.size() - decimals, ".");
    }
    return number;
}

bool IsPlainNumber(std::string_view number) {
    const std::size_t point = std::min(number.find('.'), number.size());
    const std::string_view fraction = number.substr(std::min(point + 1, number.size()));
    return AreDigits(number.substr(0, point)) && AreDigits(fraction) && point + fraction.size() > 0;
}

std::string WithoutLeadingZeros(std::string number) {
    const std::size_t end = std::min(number.find('.'), number.size());
    const std::size_t first = std::min(number.find_first_not_of('0'), end);
    number.erase(0, first);
    if (number.empty() || number.front() == '.') {
        number.insert(0, "0");
    }
    return number.back() == '.' ? number.substr(0, number.size() - 1) : number;
}

// The parts of a pattern: letter, and where it stands.
struct CPatternPart {
    std::size_t Begin = 0;
    std::size_t Length = 0;
};

using CPatternParts = std::map<char, CPatternPart>;

bool IsPatternLetter(char c) {
    return c == 'D' || c == 'M' || c == 'Y';
}

bool SplitPattern(std::string_view pattern, CPatternParts& parts) {
    constexpr std::size_t kMostSeparators = 2;
    std::size_t separators = 0;
    for (std::size_t i = 0; i < pattern.size();) {
        const char letter = pattern[i];
        const std::size_t end = std::min(pattern.find_first_not_of(letter, i), pattern.size());
        if (!IsPatternLetter(letter)) {
            separators += end - i;
        } else if (!parts.emplace(letter, CPatternPart{i, end - i}).second) {
            return false;
        }
        i = end;
    }
    const auto lengthOf = [&parts](char letter) { return parts.count(letter) == 0 ? 0 : parts[letter].Length; };
    const std::size_t year = lengthOf('Y');
    return lengthOf('M') == 2 && (year == 2 || year == 4) && (parts.count('D') == 0 || lengthOf('D') == 2) &&
           separators <= kMostSeparators;
}

// The library's calendar is that of the dates in descriptors.
bool IsDay(std::string_view date) {
    CItemDef item;
    item.Length = static_cast<int>(date.size());
    return item.ParseFormat(("D,,,,,(" + std::string(date) + "),YYYYMMDD").c_str()) == 0;
}

std::string FullYear(std::string_view year) {
    if (year.size() > 2) {
        return std::string(year);
    }
    const int number = (year[0] - '0') * 10 + (year[1] - '0');
    return (number < kFirstYearOf1900s ? "20" : "19") + std::string(year);
}

CFieldValue ReadDateField(const CItemDef& item, std::string_view field) {
    std::string date;
    if (!IsUsablePattern(item.DatePattern)) {
        return {EValueKind::Text, std::string(Trim(field))};
    }
    if (!ReadDate(item.DatePattern, Trim(field), date)) {
        return {EValueKind::Bad, std::string(TrimRight(field))};
    }
    return {EValueKind::Date, IsoDate(date)};
}

} // namespace

std::string PaddedField(const CItemDef& item, std::string_view field) {
    std::string padded(field.substr(0, field.find('\0')));
    padded.resize(std::min(static_cast<std::size_t>(std::max(item.Length, 0)), kLongestField), ' ');
    return padded;
}

CFieldValue ReadFieldValue(const CItemDef& item, std::string_view field) {
    field = field.substr(0, field.find('\0'));
    if (TrimRight(field).empty()) {
        return {};
    }
    if (item.Format == 'D') {
        return ReadDateField(item, field);
    }
    if (item.Format != 'N') {
        return {EValueKind::Text, std::string(TrimRight(field))};
    }
    if (std::all_of(field.begin(), field.end(), [&item](char c) { return IsFill(item, c); })) {
        return {};
    }
    CFieldNumber number;
    return ReadFieldNumber(item, field, number) ? CFieldValue{EValueKind::Number, number.Value}
                                                : CFieldValue{EValueKind::Bad, std::string(TrimRight(field))};
}

bool ReadFieldNumber(const CItemDef& item, std::string_view field, CFieldNumber& number) {
    bool negative = false;
    TakeSign(item, field, negative);
    number.Written = field.empty() ? "" : WithPoint(item, field);
    if (!IsPlainNumber(number.Written)) {
        return false;
    }
    number.Value = WithoutLeadingZeros(number.Written);
    if (negative) {
        number.Written.insert(0, "-");
        number.Value.insert(0, "-");
    }
    return true;
}

bool ReadDate(std::string_view pattern, std::string_view text, std::string& date) {
    CPatternParts parts;
    if (!SplitPattern(pattern, parts) || text.size() != pattern.size()) {
        return false;
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsPatternLetter(pattern[i]) ? !AreDigits(text.substr(i, 1)) : text[i] != pattern[i]) {
            return false;
        }
    }
    const auto part = [&](char letter) { return std::string(text.substr(parts[letter].Begin, parts[letter].Length)); };
    const bool hasDay = parts.count('D') > 0;
    date = FullYear(part('Y')) + part('M');
    date += hasDay ? part('D') : "";
    return IsDay(IsoDate(hasDay ? date : date + "28"));
}

bool IsUsablePattern(std::string_view pattern) {
    CPatternParts parts;
    return SplitPattern(pattern, parts);
}

std::string IsoDate(std::string_view date) {
    constexpr std::size_t kYear = 4;
    constexpr std::size_t kMonthEnd = 6;
    std::string iso(date.substr(0, kYear));
    iso.append("-").append(date.substr(kYear, 2));
    return date.size() > kMonthEnd ? iso.append("-").append(date.substr(kMonthEnd)) : iso;
}

} // namespace tabvex::tool
