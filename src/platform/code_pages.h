// Conversion between the OEM code page of record files and the ANSI code page of callers.
#pragma once

#include <cstddef>

namespace tabvex {

struct CCodePagePair;

/// A pair of code pages. On Windows the pair of the system, until pages are selected; elsewhere 850 and 1252.
class CCodePages {
public:
    CCodePages();

    /// Chooses the pages by number: 850 or 437 for OEM, 1252 for ANSI. 0, or -1 with no change for a pair it does not
    /// have.
    int Select(int oem, int ansi);

    /// Converts `size` characters in place. NULs stay as they are, and so do characters below 128 unless the system's
    /// pages have them otherwise.
    void OemToAnsi(char* text, std::size_t size) const;
    void AnsiToOem(char* text, std::size_t size) const;

private:
    const CCodePagePair* m_pPair;
};

} // namespace tabvex
