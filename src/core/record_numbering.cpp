#include "core/record_numbering.h"

#include "tabvex/result_codes.h"

namespace tabvex {

namespace {

constexpr std::uint32_t kAllLetters = (std::uint32_t{1} << 26) - 1;
constexpr int kOn = 1;
constexpr int kOff = 0;
constexpr int kNoChange = -1;

// No bit for a character that is no capital letter.
constexpr std::uint32_t BitOf(char letter) {
    return letter >= 'A' && letter <= 'Z' ? std::uint32_t{1} << (letter - 'A') : 0;
}

} // namespace

int CNumberedLetters::Set(const char* letter, int mode) {
    if (letter == nullptr || letter[0] == '\0' || letter[1] != '\0' || mode < kNoChange || mode > kOn) {
        return TABVEX_BAD_ARGUMENT;
    }
    const std::uint32_t letters = letter[0] == '*' ? kAllLetters : BitOf(letter[0]);
    if (letters == 0) {
        return TABVEX_BAD_ARGUMENT;
    }
    if (mode == kOn) {
        m_nLetters |= letters;
    } else if (mode == kOff) {
        m_nLetters &= ~letters;
    }
    return TABVEX_OK;
}

bool CNumberedLetters::IsOn(char letter) const {
    return (m_nLetters & BitOf(letter)) != 0;
}

void CNumberedLetters::SwitchOn(char letter) {
    m_nLetters |= BitOf(letter);
}

} // namespace tabvex
