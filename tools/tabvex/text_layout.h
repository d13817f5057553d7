// Laying out UTF-8 texts in columns.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tabvex::tool {

constexpr std::size_t kScreenWidth = 100;

/// In upper case, ASCII letters only.
std::string UpperCase(std::string_view text);
std::string_view TrimRight(std::string_view text);
std::string_view Trim(std::string_view text);
/// Appends blanks up to `width` characters.
std::string PadRight(std::string text, std::size_t width);
/// Puts blanks before the text up to `width` characters.
std::string PadLeft(const std::string& text, std::size_t width);
/// The text in lines of at most `width` characters, broken at blanks; a longer word stays whole.
std::vector<std::string> Wrap(std::string_view text, std::size_t width);
/// `text` behind `before`; where it goes over the screen's width it goes on below itself.
std::string Hang(const std::string& before, std::string_view text);
/// "1 line", "2 lines".
std::string Counted(std::size_t count, const std::string& noun);

} // namespace tabvex::tool
