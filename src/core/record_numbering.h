// Which type letters' lines carry the record-numbering marker.
#pragma once

#include <array>
#include <cstdint>

namespace tabvex {

/// Offset of the marker in every line.
inline constexpr int kNumberingOffset = 6;

/// The set of type letters for which record numbering is on.
class CNumberedLetters {
public:
    /// `letter`: "A" to "Z" or "*" for all; `mode`: 1 on, 0 off, -1 no change. TABVEX_OK or TABVEX_BAD_ARGUMENT.
    int Set(const char* letter, int mode);
    bool IsOn(char letter) const;
    /// Switches one letter on; any other character is passed over.
    void SwitchOn(char letter);

private:
    std::uint32_t m_nLetters = 0; // bit 0: "A"
};

} // namespace tabvex
