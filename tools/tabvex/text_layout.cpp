#include "text_layout.h"

#include <algorithm>

#include "text_encoding.h"

namespace tabvex::tool {

namespace {

constexpr std::size_t kNarrowest = 20; // a narrower column is not worth wrapping in

} // namespace

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return upper;
}

std::string_view TrimRight(std::string_view text) {
    const std::size_t last = text.find_last_not_of(' ');
    return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

std::string_view Trim(std::string_view text) {
    text = TrimRight(text);
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text;
}

std::string PadRight(std::string text, std::size_t width) {
    const std::size_t length = CountCharacters(text);
    text.append(width > length ? width - length : 0, ' ');
    return text;
}

std::string PadLeft(const std::string& text, std::size_t width) {
    const std::size_t length = CountCharacters(text);
    return std::string(width > length ? width - length : 0, ' ') + text;
}

std::vector<std::string> Wrap(std::string_view text, std::size_t width) {
    std::vector<std::string> lines(1);
    while (!text.empty()) {
        const std::size_t blank = std::min(text.find(' '), text.size());
        const std::string_view word = text.substr(0, blank);
        const std::size_t used = CountCharacters(lines.back());
        if (used > 0 && used + 1 + CountCharacters(word) > width) {
            lines.emplace_back();
        }
        lines.back().append(lines.back().empty() ? "" : " ").append(word);
        text.remove_prefix(std::min(blank + 1, text.size()));
    }
    return lines;
}

std::string Hang(const std::string& before, std::string_view text) {
    const std::size_t indent = CountCharacters(before);
    const std::size_t room = kScreenWidth > indent + kNarrowest ? kScreenWidth - indent : kNarrowest;
    std::string result = before;
    bool first = true;
    for (const std::string& line : Wrap(text, room)) {
        result.append(first ? "" : "\n" + std::string(indent, ' ')).append(line);
        first = false;
    }
    return result;
}

std::string Counted(std::size_t count, const std::string& noun) {
    if (count == 1) {
        return "1 " + noun;
    }
    const bool y = noun.back() == 'y';
    return std::to_string(count) + " " + (y ? noun.substr(0, noun.size() - 1) + "ies" : noun + "s");
}

} // namespace tabvex::tool
