#include "platform/code_pages.h"

#include <algorithm>
#include <iterator>

#include "platform/code_page_tables.h"
#include "tabvex/result_codes.h"

namespace tabvex {
namespace {

bool KeepsAscii(const CCodePageTable& table) {
    std::size_t i = 0;
    while (i < 128 && table[i] == i) {
        ++i;
    }
    return i == 128;
}

// The system's own pages where it has some.
CCodePagePair FindDefaultPair() {
    CCodePagePair pair = {};
    if (!FindSystemCodePages(pair.OemToAnsi, pair.AnsiToOem)) {
        return kCodePagePairs[0];
    }
    pair.KeepAscii = KeepsAscii(pair.OemToAnsi) && KeepsAscii(pair.AnsiToOem);
    return pair;
}

const CCodePagePair& DefaultPair() {
    static const CCodePagePair pair = FindDefaultPair();
    return pair;
}

// Most texts hold nothing above 127, which every page has in common; telling that is much quicker than converting.
bool IsAscii(const char* text, std::size_t size) {
    unsigned char all = 0;
    for (std::size_t i = 0; i < size; ++i) {
        all |= static_cast<unsigned char>(text[i]);
    }
    return all < 128;
}

void Convert(const CCodePageTable& table, bool keepAscii, char* text, std::size_t size) {
    if (keepAscii && IsAscii(text, size)) {
        return;
    }
    for (std::size_t i = 0; i < size; ++i) {
        text[i] = static_cast<char>(table[static_cast<unsigned char>(text[i])]);
    }
}

} // namespace

CCodePages::CCodePages() : m_pPair(&DefaultPair()) {}

int CCodePages::Select(int oem, int ansi) {
    const auto* const pair =
        std::find_if(std::begin(kCodePagePairs), std::end(kCodePagePairs),
                     [=](const CCodePagePair& candidate) { return candidate.Oem == oem && candidate.Ansi == ansi; });
    if (pair == std::end(kCodePagePairs)) {
        return TABVEX_BAD_ARGUMENT;
    }
    m_pPair = pair;
    return TABVEX_OK;
}

void CCodePages::OemToAnsi(char* text, std::size_t size) const {
    Convert(m_pPair->OemToAnsi, m_pPair->KeepAscii, text, size);
}

void CCodePages::AnsiToOem(char* text, std::size_t size) const {
    Convert(m_pPair->AnsiToOem, m_pPair->KeepAscii, text, size);
}

} // namespace tabvex
