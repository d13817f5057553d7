// From the code pages of record files to UTF-8.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace tabvex::tool {

/// Decodes the texts of one record file.
class CTextDecoder {
public:
    /// `codePage`: 850 or 437, whose characters are converted as the library hands them to its callers, or 1252, which
    /// callers get as it is.
    explicit CTextDecoder(int codePage);

    /// The text as UTF-8, control characters as they are.
    std::string ToUtf8(std::string_view text) const;
    /// The text as UTF-8, control characters as "\x00".
    std::string ToShown(std::string_view text) const;

private:
    std::array<std::string, 256> m_Characters;
    std::array<std::string, 256> m_Shown;
};

/// A UTF-8 text with its control characters as "\x00".
std::string EscapeControls(std::string_view utf8);

/// True for a text that is UTF-8 throughout.
bool IsUtf8(std::string_view text);

/// Number of characters in a UTF-8 text.
std::size_t CountCharacters(std::string_view utf8);

} // namespace tabvex::tool
