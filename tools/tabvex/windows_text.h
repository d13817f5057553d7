// Texts between UTF-8, which the tool works with, and UTF-16, which Windows works with.
#pragma once

#include <string>
#include <string_view>

namespace tabvex::tool {

/// Empty for a text that is no UTF-8.
std::wstring ToUtf16(std::string_view text);
std::string ToUtf8(std::wstring_view text);
/// What an error number of the system means, in the words of the C run time; the number where it has none.
std::string ErrorText(unsigned long error);

} // namespace tabvex::tool
