// Character rules that do not depend on the process locale.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace tabvex {

constexpr char UpperCase(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - ('a' - 'A')) : character;
}

inline std::string UpperCase(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), [](char c) { return UpperCase(c); });
    return upper;
}

/// Blanks, tabs and what else separates words.
constexpr bool IsSpace(char character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
}

constexpr std::string_view TrimSpaceLeft(std::string_view text) {
    while (!text.empty() && IsSpace(text.front())) {
        text.remove_prefix(1);
    }
    return text;
}

constexpr std::string_view TrimSpace(std::string_view text) {
    text = TrimSpaceLeft(text);
    while (!text.empty() && IsSpace(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

} // namespace tabvex
