// A value that is several texts joined by the delimiter.
#pragma once

#include <algorithm>
#include <string_view>

namespace tabvex {

constexpr bool IsBlank(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
}

/// Number of parts: one more than there are delimiters.
inline std::size_t CountParts(std::string_view value, char delimiter) {
    return static_cast<std::size_t>(std::count(value.begin(), value.end(), delimiter)) + 1;
}

/// Takes the first part off `value`, together with the delimiter behind it; empty parts count.
inline std::string_view TakePart(std::string_view& value, char delimiter) {
    const std::size_t end = value.find(delimiter);
    const std::string_view part = value.substr(0, end);
    value.remove_prefix(end == std::string_view::npos ? value.size() : end + 1);
    return part;
}

} // namespace tabvex
