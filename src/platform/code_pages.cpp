#include "platform/code_pages.h"

#include <algorithm>
#include <iterator>

#include "platform/code_page_tables.h"
#include "tabvex/result_codes.h"

namespace tabvex {
namespace {

const CCodePagePair& kDefaultPair = kCodePagePairs[0];

// Most texts hold nothing above 127, which every page has in common; telling that is much quicker than converting.
bool IsAscii(const char* text, std::size_t size) {
    unsigned char all = 0;
    for (std::size_t i = 0; i < size; ++i) {
        all |= static_cast<unsigned char>(text[i]);
    }
    return all < 128;
}

void Convert(const unsigned char* table, char* text, std::size_t size) {
    if (IsAscii(text, size)) {
        return;
    }
    for (std::size_t i = 0; i < size; ++i) {
        text[i] = static_cast<char>(table[static_cast<unsigned char>(text[i])]);
    }
}

} // namespace

CCodePages::CCodePages() : m_pOemToAnsi(kDefaultPair.OemToAnsi.data()), m_pAnsiToOem(kDefaultPair.AnsiToOem.data()) {}

int CCodePages::Select(int oem, int ansi) {
    const auto* const pair =
        std::find_if(std::begin(kCodePagePairs), std::end(kCodePagePairs),
                     [=](const CCodePagePair& candidate) { return candidate.Oem == oem && candidate.Ansi == ansi; });
    if (pair == std::end(kCodePagePairs)) {
        return TABVEX_BAD_ARGUMENT;
    }
    m_pOemToAnsi = pair->OemToAnsi.data();
    m_pAnsiToOem = pair->AnsiToOem.data();
    return TABVEX_OK;
}

void CCodePages::OemToAnsi(char* text, std::size_t size) const {
    Convert(m_pOemToAnsi, text, size);
}

void CCodePages::AnsiToOem(char* text, std::size_t size) const {
    Convert(m_pAnsiToOem, text, size);
}

} // namespace tabvex
