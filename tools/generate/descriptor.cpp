#include "descriptor.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <locale>
#include <sstream>
#include <stdexcept>

namespace tabvex::generate {
namespace {

constexpr std::string_view kFormats = "CNDU";
constexpr std::string_view kModifiers = "LRSEPB";
constexpr std::size_t kMaxModifiers = 6;

constexpr std::array<std::string_view, 16> kDateLayouts = {
    "DDMMYY",   "DDYYMM",   "MMYYDD",   "MMDDYY",   "YYDDMM",   "YYMMDD",   "MMYY",   "YYMM",
    "DDMMYYYY", "DDYYYYMM", "MMYYYYDD", "MMDDYYYY", "YYYYDDMM", "YYYYMMDD", "MMYYYY", "YYYYMM"};

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::optional<int> ParseDigits(std::string_view text) {
    if (text.empty() || !std::all_of(text.begin(), text.end(), IsDigit)) {
        return std::nullopt;
    }
    int value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc()) {
        return std::nullopt;
    }
    return value;
}

int LastDay(int year, int month) {
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    if (month == 2) {
        return leap ? 29 : 28;
    }
    return month % 2 == 0 ? 30 : 31;
}

bool IsDateLayout(std::string_view pattern) {
    std::string letters;
    for (const char c : pattern) {
        if (c == 'D' || c == 'M' || c == 'Y') {
            letters += c;
        }
    }
    return std::find(kDateLayouts.begin(), kDateLayouts.end(), letters) != kDateLayouts.end();
}

// Walks a descriptor component by component; every component after the first begins with ",".
class CDescriptorParser {
public:
    CDescriptorParser(std::string_view text, int length) : m_strRest(text), m_nLength(length) {}

    Descriptor Parse() {
        ParseFormat();
        if (NextComponent()) {
            ParseDefault();
        }
        if (NextComponent()) {
            ParseFill();
        }
        if (NextComponent()) {
            ParseModifiers();
        }
        if (NextComponent()) {
            ParseRanges();
        }
        if (NextComponent()) {
            ParseValues();
        }
        if (NextComponent()) {
            ParseDatePattern();
        }
        if (m_Result.format == 'D' && m_Result.datePattern.empty()) {
            Fail("a date needs a pattern");
        }
        return m_Result;
    }

private:
    [[noreturn]] static void Fail(const char* what) { throw std::invalid_argument(what); }

    bool At(char c) const { return !m_strRest.empty() && m_strRest.front() == c; }

    char Take() {
        if (m_strRest.empty()) {
            Fail("the descriptor ends inside a component");
        }
        const char c = m_strRest.front();
        m_strRest.remove_prefix(1);
        return c;
    }

    void Expect(char c, const char* what) {
        if (Take() != c) {
            Fail(what);
        }
    }

    std::string TakeUntil(std::string_view stops) {
        const std::size_t end = m_strRest.find_first_of(stops);
        if (end == std::string_view::npos) {
            Fail("the descriptor ends inside a component");
        }
        std::string text(m_strRest.substr(0, end));
        m_strRest.remove_prefix(end);
        return text;
    }

    // Steps over the "," before a component; false when the component is absent or empty.
    bool NextComponent() {
        if (m_strRest.empty()) {
            return false;
        }
        Expect(',', "a component begins with a comma");
        return !m_strRest.empty() && !At(',');
    }

    void ParseFormat() {
        m_Result.format = Take();
        if (kFormats.find(m_Result.format) == std::string_view::npos) {
            Fail("unknown format letter");
        }
    }

    void ParseDefault() {
        Expect('"', "the default text stands in quotes");
        m_Result.defaultText = TakeUntil("\"");
        Take();
        if (static_cast<int>(m_Result.defaultText.size()) > m_nLength) {
            Fail("the default is too long");
        }
    }

    void ParseFill() {
        Expect('"', "the fill character stands in quotes");
        m_Result.fill = Take();
        Expect('"', "the fill is one character");
    }

    void ParseModifiers() {
        m_Result.modifiers = TakeUntil(" ,");
        const bool known = m_Result.modifiers.find_first_not_of(kModifiers) == std::string::npos;
        if (!known || m_Result.modifiers.size() > kMaxModifiers) {
            Fail("unknown modifier letters");
        }
        if (m_Result.Has('R') && m_Result.Has('L')) {
            Fail("R and L exclude each other");
        }
        if (m_Result.Has('E') && m_Result.Has('B')) {
            Fail("E and B exclude each other");
        }
        if (At(' ')) {
            return ParseDigitCounts();
        }
        if (m_Result.format == 'N') {
            Fail("a number states its digits");
        }
    }

    void ParseDigitCounts() {
        Take();
        const auto digits = ParseDigits(TakeUntil("."));
        Take();
        const char decimals = Take();
        if (!digits || *digits > 99 || !IsDigit(decimals)) {
            Fail("bad digit counts");
        }
        m_Result.intDigits = *digits;
        m_Result.decimals = decimals - '0';
        if (m_Result.intDigits + m_Result.decimals > m_nLength) {
            Fail("more digits than characters");
        }
    }

    void CheckConstant(std::string_view text) const {
        if (m_Result.format == 'N' && !ParseNumber(text)) {
            Fail("not a number");
        }
        if (m_Result.format == 'D' && !ParseDate(text)) {
            Fail("not a date");
        }
    }

    void ParseRanges() {
        if (m_Result.format != 'N' && m_Result.format != 'D') {
            Fail("ranges of a text");
        }
        ParseRange();
        while (At(';')) {
            Take();
            ParseRange();
        }
    }

    void ParseRange() {
        Range range;
        range.lower.included = At('<');
        if (!At('<') && !At('(')) {
            Fail("a range begins with a bracket");
        }
        Take();
        range.lower.text = TakeUntil(";");
        Take();
        range.upper.text = TakeUntil(">)");
        range.upper.included = At('>');
        Take();
        for (const Bound* bound : {&range.lower, &range.upper}) {
            if (!bound->IsOpen()) {
                CheckConstant(bound->text);
            }
        }
        CheckOrder(range);
        m_Result.ranges.push_back(range);
    }

    void CheckOrder(const Range& range) const {
        if (range.lower.IsOpen() || range.upper.IsOpen()) {
            return;
        }
        const bool ordered = m_Result.format == 'D' ? range.lower.text < range.upper.text
                                                    : *ParseNumber(range.lower.text) < *ParseNumber(range.upper.text);
        if (!ordered) {
            Fail("the bounds of a range are in the wrong order");
        }
    }

    void ParseValues() {
        Expect('(', "a value list begins with a parenthesis");
        while (true) {
            m_Result.values.push_back(Unquoted(TakeUntil(";)")));
            if (Take() == ')') {
                return;
            }
        }
    }

    std::string Unquoted(const std::string& value) const {
        if (m_Result.format == 'N' || m_Result.format == 'D') {
            CheckConstant(value);
            return value;
        }
        if (value.size() < 2 || value.front() != '"' || value.back() != '"') {
            Fail("value not quoted");
        }
        if (static_cast<int>(value.size()) - 2 > m_nLength) {
            Fail("a listed value is too long");
        }
        return value.substr(1, value.size() - 2);
    }

    void ParseDatePattern() {
        m_Result.datePattern = std::string(m_strRest);
        if (!IsDateLayout(m_Result.datePattern)) {
            Fail("unknown date pattern");
        }
        if (static_cast<int>(m_Result.datePattern.size()) != m_nLength) {
            Fail("the date pattern is not as long as the item");
        }
    }

    std::string_view m_strRest;
    int m_nLength;
    Descriptor m_Result;
};

} // namespace

std::optional<Date> ParseDate(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') {
        return std::nullopt;
    }
    const auto year = ParseDigits(text.substr(0, 4));
    const auto month = ParseDigits(text.substr(5, 2));
    const auto day = ParseDigits(text.substr(8, 2));
    if (!year || !month || !day) {
        return std::nullopt;
    }
    if (*month < 1 || *month > 12 || *day < 1 || *day > LastDay(*year, *month)) {
        return std::nullopt;
    }
    return Date{*year, *month, *day};
}

std::optional<double> ParseNumber(std::string_view text) {
    std::string copy(text);
    if (copy.find('.') == std::string::npos) {
        if (const std::size_t comma = copy.find(','); comma != std::string::npos) {
            copy[comma] = '.';
        }
    }
    if (copy.empty() || copy.find_first_not_of("+-.0123456789") != std::string::npos) {
        return std::nullopt;
    }
    std::istringstream stream(copy);
    stream.imbue(std::locale::classic());
    double value = 0;
    stream >> value;
    if (stream.fail() || stream.peek() != std::istringstream::traits_type::eof()) {
        return std::nullopt;
    }
    return value;
}

Descriptor ParseDescriptor(std::string_view text, int length) {
    return CDescriptorParser(text, length).Parse();
}

} // namespace tabvex::generate
