#include "layout/number_text.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>
#include <system_error>

namespace tabvex {

namespace {

constexpr auto kNone = std::string_view::npos;

// As in the "C" locale; std::isspace asks the process locale.
constexpr bool IsWhiteSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

const char* End(std::string_view text) {
    return text.data() + text.size();
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// std::from_chars takes neither leading white space nor a plus sign.
std::string_view FromSignOrDigit(std::string_view text) {
    while (!text.empty() && IsWhiteSpace(text.front())) {
        text.remove_prefix(1);
    }
    const bool hasPlus = !text.empty() && text.front() == '+';
    if (hasPlus && text.substr(1, 1) != "-") {
        text.remove_prefix(1);
    }
    return text;
}

// False for "inf" and "nan", which std::from_chars takes.
bool BeginsAsDecimal(std::string_view number) {
    if (!number.empty() && number.front() == '-') {
        number.remove_prefix(1);
    }
    return !number.empty() && (IsDigit(number.front()) || number.front() == '.');
}

// Tells for a number other than 0 that lies outside the range of double on which side it does: the exponent of its
// first digit is far below or far above 0.
bool IsTooSmallForDouble(std::string_view number) {
    const std::size_t exponentAt = std::min(number.find_first_of("eE"), number.size());
    const std::string_view digits = number.substr(0, exponentAt);
    const auto pointAt = static_cast<long long>(std::min(digits.find('.'), digits.size()));
    const auto firstDigitAt = static_cast<long long>(digits.find_first_of("123456789"));
    number.remove_prefix(std::min(exponentAt + 1, number.size()));
    return LeadingInteger(number) + pointAt - firstDigitAt < 0;
}

double NearestDouble(std::string_view number) {
    if (IsTooSmallForDouble(number)) {
        return 0.0;
    }
    return number.front() == '-' ? std::numeric_limits<double>::lowest() : std::numeric_limits<double>::max();
}

// Most numbers are a few digits and nothing else; `value` is left as it is when this one is not.
bool ParseShortInteger(std::string_view text, double& value) {
    constexpr std::size_t kMostDigits = 9;
    if (text.empty() || text.size() > kMostDigits) {
        return false;
    }
    int number = 0;
    for (const char c : text) {
        if (!IsDigit(c)) {
            return false;
        }
        number = number * 10 + (c - '0');
    }
    value = number;
    return true;
}

bool ParseWithPoint(std::string_view number, double& value) {
    if (!BeginsAsDecimal(number)) {
        return false;
    }
    const auto [end, error] = std::from_chars(number.data(), End(number), value);
    if (error == std::errc::result_out_of_range) {
        value = NearestDouble(number.substr(0, end - number.data()));
        return value == 0.0 && end == End(number);
    }
    return error == std::errc() && end == End(number);
}

} // namespace

bool ParseInteger(std::string_view text, int& value) {
    const std::string_view number = FromSignOrDigit(text);
    value = 0;
    const auto [end, error] = std::from_chars(number.data(), End(number), value);
    if (error == std::errc::result_out_of_range) {
        value = number.front() == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    }
    return error == std::errc() && end == End(number);
}

bool ParseDecimal(std::string_view text, double& value) {
    if (ParseShortInteger(text, value)) {
        return true;
    }
    const std::string_view number = FromSignOrDigit(text);
    value = 0.0;
    const std::size_t commaAt = number.find(',');
    if (commaAt == kNone || number.find('.') != kNone) {
        return ParseWithPoint(number, value);
    }
    std::string pointed(number);
    pointed[commaAt] = '.';
    return ParseWithPoint(pointed, value);
}

int LeadingInteger(std::string_view text) {
    int value = 0;
    ParseInteger(text, value);
    return value;
}

bool IsInteger(std::string_view text) {
    int value = 0;
    return ParseInteger(text, value);
}

bool IsDecimal(std::string_view text) {
    double value = 0.0;
    return ParseDecimal(text, value);
}

std::string_view TrimBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return TrimBlanksRight(text);
}

std::string_view TrimBlanksRight(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

} // namespace tabvex
