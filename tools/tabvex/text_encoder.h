// From UTF-8 to the code pages of record files.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

namespace tabvex::tool {

/// Encodes the texts that people type for one record file.
class CTextEncoder {
public:
    /// `codePage`: 850, 437 or 1252; texts are converted as the library converts those of its callers.
    explicit CTextEncoder(int codePage);

    /// The text in the code page. Throws CToolError for one that is not UTF-8, and for characters that the code page
    /// lacks and control characters.
    std::string Encode(std::string_view utf8) const;

private:
    std::unordered_map<std::string, char> m_Bytes; // by character
};

} // namespace tabvex::tool
