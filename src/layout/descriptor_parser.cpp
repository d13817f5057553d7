#include "layout/descriptor_parser.h"

#include <algorithm>
#include <utility>

#include "layout/calendar.h"
#include "layout/date_pattern.h"
#include "layout/number_text.h"
#include "tabvex/result_codes.h"

namespace tabvex {

namespace {

constexpr auto kNone = std::string_view::npos;
constexpr std::string_view kFormatLetters = "CNDU";
constexpr std::string_view kModifierLetters = "LRSEPB";
constexpr std::size_t kMostModifiers = 6;
constexpr std::size_t kFillLength = 3; // quote, character, quote
constexpr std::size_t kDateLength = 10;

// These texts are short: the library's searches, made for long ones, take longer to begin than to end.
bool Holds(std::string_view text, char c) {
    return std::any_of(text.begin(), text.end(), [c](char in) { return in == c; });
}

std::size_t FindEither(std::string_view text, char a, char b) {
    const auto* const found = std::find_if(text.begin(), text.end(), [a, b](char in) { return in == a || in == b; });
    return found == text.end() ? kNone : static_cast<std::size_t>(found - text.begin());
}

bool IsQuoted(std::string_view text) {
    return text.size() >= 2 && text.front() == '"' && text.back() == '"';
}

std::string_view WithoutQuotes(std::string_view quoted) {
    return quoted.substr(1, quoted.size() - 2);
}

// Either bound may be left empty.
bool AreAscendingNumbers(std::string_view lower, std::string_view upper) {
    double lowerNumber = 0.0;
    double upperNumber = 0.0;
    if ((!lower.empty() && !ParseDecimal(lower, lowerNumber)) ||
        (!upper.empty() && !ParseDecimal(upper, upperNumber))) {
        return false;
    }
    return lower.empty() || upper.empty() || lowerNumber < upperNumber;
}

bool IsEarlier(std::string_view lower, std::string_view upper) {
    return lower.substr(0, kDateLength) < upper.substr(0, kDateLength);
}

void ClearDefault(CItemDef& item) {
    item.Default.clear();
    item.HasDefault = 0;
}

void ClearFill(CItemDef& item) {
    item.Fill = ' ';
    item.HasFill = 0;
}

void ClearModifiers(CItemDef& item) {
    item.Modifiers.clear();
    item.IntDigits = 0;
    item.Decimals = 0;
    item.HasModifiers = 0;
}

void ClearRanges(CItemDef& item) {
    item.Ranges.clear();
    item.HasRanges = 0;
}

void ClearValues(CItemDef& item) {
    item.Values.clear();
    item.HasValues = 0;
}

void ClearDatePattern(CItemDef& item) {
    item.DatePattern.clear();
    item.HasDatePattern = 0;
}

} // namespace

struct CDescriptorParser::CComponent {
    int FailureNumber;
    void (*Clear)(CItemDef&);
    bool (CDescriptorParser::*Read)();
};

int CDescriptorParser::Parse() {
    // clang-format off
    static constexpr CComponent kComponents[] = {
        // failure number                    reset             reader
        {TABVEX_DESCRIPTOR_BAD_DEFAULT,      ClearDefault,     &CDescriptorParser::ReadDefault},
        {TABVEX_DESCRIPTOR_BAD_FILL,         ClearFill,        &CDescriptorParser::ReadFill},
        {TABVEX_DESCRIPTOR_BAD_MODIFIERS,    ClearModifiers,   &CDescriptorParser::ReadModifiers},
        {TABVEX_DESCRIPTOR_BAD_RANGES,       ClearRanges,      &CDescriptorParser::ReadRanges},
        {TABVEX_DESCRIPTOR_BAD_VALUES,       ClearValues,      &CDescriptorParser::ReadValues},
        {TABVEX_DESCRIPTOR_BAD_DATE_PATTERN, ClearDatePattern, &CDescriptorParser::ReadDatePattern},
    };
    // clang-format on
    if (!ReadFormat()) {
        return TABVEX_DESCRIPTOR_BAD_FORMAT;
    }
    for (const CComponent& component : kComponents) {
        if (!ParseComponent(component)) {
            return component.FailureNumber;
        }
    }
    if (m_Item.Format == 'D' && m_Item.HasDatePattern == 0) {
        return TABVEX_DESCRIPTOR_BAD_DATE_PATTERN;
    }
    return TABVEX_OK;
}

// A component that is absent or left empty is fine here; whether an item can do without it is told elsewhere.
bool CDescriptorParser::ParseComponent(const CComponent& component) {
    component.Clear(m_Item);
    if (m_strRest.empty()) {
        return true;
    }
    if (!Skip(',')) {
        return false;
    }
    return AtEndOfComponent() || (this->*component.Read)();
}

bool CDescriptorParser::AtEndOfComponent() const {
    return m_strRest.empty() || m_strRest.front() == ',';
}

bool CDescriptorParser::Skip(char c) {
    if (m_strRest.empty() || m_strRest.front() != c) {
        return false;
    }
    m_strRest.remove_prefix(1);
    return true;
}

// For a bound or a value; characters are held to nothing.
bool CDescriptorParser::IsAllowed(std::string_view value) const {
    if (m_Item.Format == 'N') {
        return IsDecimal(value); // every integer is one
    }
    return m_Item.Format != 'D' || IsValidDate(value);
}

bool CDescriptorParser::AreAllowedBounds(std::string_view lower, std::string_view upper) const {
    if (m_Item.Format == 'N') {
        return AreAscendingNumbers(lower, upper);
    }
    if ((!lower.empty() && !IsAllowed(lower)) || (!upper.empty() && !IsAllowed(upper))) {
        return false;
    }
    return lower.empty() || upper.empty() || m_Item.Format != 'D' || IsEarlier(lower, upper);
}

bool CDescriptorParser::ReadFormat() {
    if (m_strRest.empty() || !Holds(kFormatLetters, m_strRest.front())) {
        return false;
    }
    m_Item.Format = m_strRest.front();
    m_strRest.remove_prefix(1);
    return true;
}

bool CDescriptorParser::ReadDefault() {
    if (!Skip('"')) {
        return false;
    }
    const std::size_t quoteAt = m_strRest.find('"');
    if (quoteAt == kNone) {
        return false;
    }
    m_Item.Default = m_strRest.substr(0, quoteAt);
    m_Item.HasDefault = m_Item.Default.empty() ? 0 : 1;
    m_strRest.remove_prefix(quoteAt + 1);
    return true;
}

bool CDescriptorParser::ReadFill() {
    const std::string_view fill = m_strRest.substr(0, kFillLength);
    if (fill.size() != kFillLength || !IsQuoted(fill)) {
        return false;
    }
    m_Item.Fill = fill[1];
    m_Item.HasFill = 1;
    m_strRest.remove_prefix(kFillLength);
    return true;
}

bool CDescriptorParser::ReadModifiers() {
    if (!ReadModifierLetters()) {
        return false;
    }
    const bool digitsAreFine = Skip(' ') ? ReadDigitCounts() : m_Item.Format != 'N';
    if (!digitsAreFine) {
        return false;
    }
    m_Item.HasModifiers = 1;
    return true;
}

// Leaves the blank or the comma behind the letters to be read.
bool CDescriptorParser::ReadModifierLetters() {
    const auto* const end =
        std::find_if(m_strRest.begin(), m_strRest.end(), [](char c) { return !Holds(kModifierLetters, c); });
    const auto count = static_cast<std::size_t>(end - m_strRest.begin());
    if (end == m_strRest.end() || count == 0 || count > kMostModifiers || !Holds(" ,", m_strRest[count])) {
        return false;
    }
    const std::string_view letters = m_strRest.substr(0, count);
    m_Item.Modifiers = letters;
    m_strRest.remove_prefix(count);
    return !(Holds(letters, 'R') && Holds(letters, 'L')) && !(Holds(letters, 'E') && Holds(letters, 'B'));
}

bool CDescriptorParser::ReadDigitCounts() {
    const std::size_t pointAt = m_strRest.find('.');
    if (pointAt > 2) { // so is that of none
        return false;
    }
    int intDigits = 0;
    int decimals = 0;
    if (!ParseDigits(m_strRest.substr(0, pointAt), intDigits) ||
        !ParseDigits(m_strRest.substr(pointAt + 1, 1), decimals)) {
        return false;
    }
    m_Item.IntDigits = intDigits;
    m_Item.Decimals = decimals;
    m_strRest.remove_prefix(pointAt + 2);
    return intDigits + decimals <= m_Item.Length;
}

bool CDescriptorParser::ReadRanges() {
    do {
        if (!ReadRange()) {
            return false;
        }
    } while (Skip(';'));
    if (!AtEndOfComponent()) {
        return false;
    }
    m_Item.HasRanges = 1;
    return true;
}

bool CDescriptorParser::ReadRange() {
    const std::size_t middleAt = m_strRest.find(';');
    const std::size_t closeAt = FindEither(m_strRest, '>', ')');
    if (closeAt == kNone || middleAt > closeAt || !Holds("<(", m_strRest.front())) {
        return false;
    }
    const std::string_view lower = m_strRest.substr(1, middleAt - 1);
    const std::string_view upper = m_strRest.substr(middleAt + 1, closeAt - middleAt - 1);
    if (!AreAllowedBounds(lower, upper)) {
        return false;
    }
    CItemRange range;
    range.LowerKind = m_strRest.front() == '<' ? '=' : '>';
    range.UpperKind = m_strRest[closeAt] == '>' ? '=' : '<';
    range.LowerBound = lower.empty() ? "-inf" : lower;
    range.UpperBound = upper.empty() ? "+inf" : upper;
    m_Item.Ranges.push_back(std::move(range));
    m_strRest.remove_prefix(closeAt + 1);
    return true;
}

bool CDescriptorParser::ReadValues() {
    if (!Skip('(')) {
        return false;
    }
    const std::string_view values = m_strRest.substr(0, m_strRest.find(')'));
    m_Item.Values.reserve(1 + static_cast<std::size_t>(std::count(values.begin(), values.end(), ';')));
    do {
        if (!ReadValue()) {
            return false;
        }
    } while (Skip(';'));
    return Skip(')');
}

// Leaves the semicolon or the bracket behind the value to be read.
bool CDescriptorParser::ReadValue() {
    const std::size_t endAt = FindEither(m_strRest, ';', ')');
    if (endAt == kNone) {
        return false;
    }
    std::string_view value = m_strRest.substr(0, endAt);
    const bool isText = m_Item.Format == 'C' || m_Item.Format == 'U';
    if (isText ? !IsQuoted(value) : !IsAllowed(value)) {
        return false;
    }
    m_Item.Values.emplace_back(isText ? WithoutQuotes(value) : value);
    m_Item.HasValues = 1;
    m_strRest.remove_prefix(endAt);
    return true;
}

bool CDescriptorParser::ReadDatePattern() {
    const std::string_view pattern = LeadingDatePattern(m_strRest);
    if (pattern.empty()) {
        return false;
    }
    m_Item.DatePattern = pattern;
    m_Item.HasDatePattern = 1;
    return true;
}

} // namespace tabvex
