#include "field_rules.h"

#include <algorithm>

#include "field_value.h"
#include "tabvex/result_codes.h"
#include "text_layout.h"

namespace tabvex::tool {

namespace {

constexpr std::size_t kMostValues = 12; // of a list, in a message
constexpr std::size_t kIsoMonth = 7;    // characters of a date without its day

using CVerdict = std::optional<CBrokenRule>;

bool HasModifier(const CItemDef& item, char modifier) {
    return item.HasModifiers != 0 && item.Modifiers.find(modifier) != std::string::npos;
}

std::string Quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

CVerdict Broken(const char* rule, std::string expected) {
    return CBrokenRule{rule, std::move(expected)};
}

CVerdict OutsideList(const CItemDef& item) {
    std::string list;
    for (std::size_t i = 0; i < item.Values.size() && i < kMostValues; ++i) {
        list.append(list.empty() ? "" : ", ").append(item.Values[i]);
    }
    return Broken(kValueListRule, "one of " + list + (item.Values.size() > kMostValues ? ", ..." : ""));
}

CVerdict OutsideRanges(const CItemDef& item) {
    std::string list;
    for (const CItemRange& range : item.Ranges) {
        list.append(list.empty() ? "" : ";").append(RangeText(range));
    }
    return Broken(kRangeRule, list);
}

// A number that does not fit: its digits, its decimals, or no room for its sign.
CVerdict DoesNotFit(const CItemDef& item, std::string_view number) {
    number.remove_prefix(number.front() == '-' ? 1 : 0);
    const std::size_t point = std::min(number.find('.'), number.size());
    const std::string_view fraction = number.substr(std::min(point + 1, number.size()));
    if (item.HasModifiers != 0 && static_cast<long long>(point) > item.IntDigits) {
        return Broken(kDigitsRule, Counted(static_cast<std::size_t>(std::max(item.IntDigits, 0)), "digit") +
                                       " at most before the point");
    }
    const std::size_t decimals = fraction.find_last_not_of('0') + 1;
    if (item.HasModifiers != 0 && static_cast<long long>(decimals) > item.Decimals) {
        return Broken(kDecimalsRule,
                      Counted(static_cast<std::size_t>(std::max(item.Decimals, 0)), "decimal") + " at most");
    }
    return Broken(kLengthRule, Counted(static_cast<std::size_t>(std::max(item.Length, 0)), "character") +
                                   " at most, sign and point included");
}

CVerdict NumberVerdict(const CItemDef& item, int result, std::string_view number) {
    switch (result) {
    case TABVEX_OK:
        return std::nullopt;
    case TABVEX_VALUE_NUMBER_NOT_LISTED:
        return OutsideList(item);
    case TABVEX_VALUE_OUT_OF_RANGE:
        return OutsideRanges(item);
    case TABVEX_VALUE_DOES_NOT_FIT:
        return DoesNotFit(item, number);
    default:
        return Broken(kNumberRule, "a number");
    }
}

CVerdict NoDate(const CItemDef& item) {
    return Broken(kDateRule, "a date " + item.DatePattern);
}

// Bounds and values are written year-month-day; a date without a day is held against their months.
bool IsInRange(const CItemRange& range, std::string_view date) {
    const std::string_view lower = std::string_view(range.LowerBound).substr(0, date.size());
    const std::string_view upper = std::string_view(range.UpperBound).substr(0, date.size());
    const bool excludesLower = range.LowerKind == '>' && date.size() > kIsoMonth;
    const bool excludesUpper = range.UpperKind == '<' && date.size() > kIsoMonth;
    const bool above = range.LowerBound == "-inf" || (excludesLower ? date > lower : date >= lower);
    const bool below = range.UpperBound == "+inf" || (excludesUpper ? date < upper : date <= upper);
    return above && below;
}

CVerdict JudgeDay(const CItemDef& item, const std::string& date) {
    const bool listed =
        item.Values.empty() || std::any_of(item.Values.begin(), item.Values.end(), [&date](const std::string& value) {
            return std::string_view(value).substr(0, date.size()) == date;
        });
    if (!listed) {
        return OutsideList(item);
    }
    const bool inRange = item.Ranges.empty() || std::any_of(item.Ranges.begin(), item.Ranges.end(),
                                                            [&date](const auto& r) { return IsInRange(r, date); });
    return inRange ? std::nullopt : OutsideRanges(item);
}

// The value list's entry that a text is; null without one.
const std::string* FindValue(const CItemDef& item, std::string_view text) {
    const auto value = std::find_if(item.Values.begin(), item.Values.end(),
                                    [text](const std::string& v) { return TrimRight(v) == text; });
    return value == item.Values.end() ? nullptr : &*value;
}

// Numbers as people write them; the library would also take exponents and store them as they are.
bool ReadTypedNumber(std::string_view value, std::string& number) {
    value = Trim(value);
    const bool negative = !value.empty() && value.front() == '-';
    value.remove_prefix(negative || (!value.empty() && value.front() == '+') ? 1 : 0);
    CItemDef plain;
    plain.Modifiers.clear();
    CFieldNumber read;
    if (value.empty() || value.find_first_not_of("0123456789.,") != std::string_view::npos ||
        !ReadFieldNumber(plain, value, read)) {
        return false;
    }
    number = (negative ? "-" : "") + read.Value;
    return true;
}

bool ReadTypedDate(const CItemDef& item, std::string_view value, std::string& date) {
    return ReadDate("YYYY-MM-DD", value, date) || ReadDate(item.DatePattern, value, date) ||
           (item.DatePattern.find('D') == std::string::npos && ReadDate("YYYY-MM", value, date));
}

int Format(const CItemDef& item, std::string_view value, std::string& field) {
    std::string text;
    const int result = item.Length < 1 ? TABVEX_VALUE_DOES_NOT_FIT : item.FormatValue(value, text);
    if (result == TABVEX_OK) {
        field = PaddedField(item, text);
    }
    return result;
}

CVerdict JudgeText(const CItemDef& item, const std::string& field) {
    const std::string_view text = HasModifier(item, 'R') ? Trim(field) : TrimRight(field);
    const std::string* listed = FindValue(item, text);
    if (!item.Values.empty() && listed == nullptr) {
        return OutsideList(item);
    }
    std::string expected;
    if (Format(item, listed == nullptr ? text : *listed, expected) != TABVEX_OK || expected == field) {
        return std::nullopt;
    }
    const bool upper = item.Format == 'U' && UpperCase(field) == expected;
    return Broken(upper ? kUpperCaseRule : kLayoutRule, Quoted(expected));
}

// The library keeps zeros in front of a number that it is given, and leaves out the one before a point.
CVerdict JudgeNumber(const CItemDef& item, const std::string& field) {
    CFieldNumber number;
    if (!ReadFieldNumber(item, field, number)) {
        return Broken(kNumberRule, "a number");
    }
    std::string expected;
    const int result = Format(item, number.Value, expected);
    const bool plain = item.HasModifiers == 0;
    if (result == TABVEX_OK && (plain || expected == field)) {
        return std::nullopt;
    }
    std::string asWritten;
    if (Format(item, number.Written, asWritten) == TABVEX_OK && asWritten == field) {
        return std::nullopt;
    }
    return result == TABVEX_OK ? Broken(kLayoutRule, Quoted(expected)) : NumberVerdict(item, result, number.Value);
}

CVerdict JudgeDate(const CItemDef& item, const std::string& field) {
    if (!IsUsablePattern(item.DatePattern)) {
        return std::nullopt;
    }
    std::string date;
    if (!ReadDate(item.DatePattern, Trim(field), date)) {
        return NoDate(item);
    }
    if (CVerdict broken = JudgeDay(item, IsoDate(date))) {
        return broken;
    }
    std::string expected;
    const bool same = Format(item, date, expected) != TABVEX_OK || expected == field;
    return same ? std::nullopt : Broken(kLayoutRule, Quoted(expected));
}

CVerdict LayOutText(const CItemDef& item, std::string_view value, std::string& field) {
    value = TrimRight(value);
    const std::string* listed = FindValue(item, value);
    const int result = Format(item, listed == nullptr ? value : *listed, field);
    if (result == TABVEX_VALUE_NOT_LISTED) {
        return OutsideList(item);
    }
    return result == TABVEX_OK
               ? std::nullopt
               : Broken(kLengthRule,
                        Counted(static_cast<std::size_t>(std::max(item.Length, 0)), "character") + " at most");
}

CVerdict LayOutNumber(const CItemDef& item, std::string_view value, std::string& field) {
    std::string number;
    return ReadTypedNumber(value, number) ? NumberVerdict(item, Format(item, number, field), number)
                                          : Broken(kNumberRule, "a number");
}

// A year that the item's two digits do not tell would come back as another one.
CVerdict LayOutDate(const CItemDef& item, std::string_view value, std::string& field) {
    std::string date;
    if (!IsUsablePattern(item.DatePattern) || !ReadTypedDate(item, Trim(value), date) ||
        Format(item, date, field) != TABVEX_OK) {
        return Broken(kDateRule, "a date " + item.DatePattern + " or YYYY-MM-DD");
    }
    std::string stored;
    const bool kept = ReadDate(item.DatePattern, Trim(field), stored) && date.substr(0, stored.size()) == stored;
    return kept ? std::nullopt : Broken(kDateRule, "a date from 1951 to 2050, as the year has two digits");
}

} // namespace

std::string RangeText(const CItemRange& range) {
    const std::string lower = range.LowerBound == "-inf" ? "" : range.LowerBound;
    const std::string upper = range.UpperBound == "+inf" ? "" : range.UpperBound;
    return (range.LowerKind == '=' ? "<" : "(") + lower + ";" + upper + (range.UpperKind == '=' ? ">" : ")");
}

CVerdict JudgeField(const CItemDef& item, std::string_view field) {
    const std::string padded = PaddedField(item, field);
    if (ReadFieldValue(item, padded).Kind == EValueKind::Blank) {
        return std::nullopt;
    }
    if (item.Format == 'N') {
        return JudgeNumber(item, padded);
    }
    return item.Format == 'D' ? JudgeDate(item, padded) : JudgeText(item, padded);
}

CVerdict LayOutField(const CItemDef& item, std::string_view value, std::string& field) {
    if (Trim(value).empty()) {
        field = PaddedField(item, "");
        return std::nullopt;
    }
    std::string laidOut;
    CVerdict broken = item.Format == 'N'   ? LayOutNumber(item, value, laidOut)
                      : item.Format == 'D' ? LayOutDate(item, value, laidOut)
                                           : LayOutText(item, value, laidOut);
    if (!broken) {
        broken = JudgeField(item, laidOut);
    }
    if (!broken) {
        field = PaddedField(item, laidOut);
    }
    return broken;
}

} // namespace tabvex::tool
