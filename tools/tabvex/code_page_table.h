// From one code page of record files to another.
#pragma once

#include <array>
#include <string>

namespace tabvex::tool {

/// Converts single characters as the library does: from an OEM page to 1252, from there to another OEM page.
class CCodePageTable {
public:
    /// `from`, `to`: 850, 437 or 1252.
    CCodePageTable(int from, int to);

    char Convert(char c) const { return m_To[static_cast<unsigned char>(c)]; }
    /// True for a character that comes back when it is converted back; of others only the nearest one is left.
    bool IsKept(char c) const { return m_Kept[static_cast<unsigned char>(c)]; }

private:
    std::array<char, 256> m_To = {};
    std::array<bool, 256> m_Kept = {};
};

} // namespace tabvex::tool
