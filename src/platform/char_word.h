// Characters looked at eight at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tabvex {

/// Eight characters, the first one in the lowest bits.
using CCharWord = std::uint64_t;

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "a word's first character is in its lowest bits");

inline constexpr std::size_t kWordSize = sizeof(CCharWord);
inline constexpr CCharWord kEachCharacter = 0x0101010101010101U; // times a character: eight of it
inline constexpr CCharWord kHighBits = 0x8080808080808080U;

inline CCharWord LoadWord(const char* from) {
    CCharWord word = 0;
    std::memcpy(&word, from, kWordSize);
    return word;
}

inline void StoreWord(char* to, CCharWord word) {
    std::memcpy(to, &word, kWordSize);
}

/// 0 when no character is below `limit`, which is 128 at most.
constexpr CCharWord HasBelow(CCharWord word, unsigned char limit) {
    return (word - kEachCharacter * limit) & ~word & kHighBits;
}

/// Sets the high bit of the first character that is NUL; 0 when none is. Bits above it mean nothing.
constexpr CCharWord MarkNul(CCharWord word) {
    return HasBelow(word, 1);
}

constexpr CCharWord Mark(CCharWord word, char character) {
    return MarkNul(word ^ (kEachCharacter * static_cast<unsigned char>(character)));
}

/// Place of the first marked character, of which there must be one.
inline std::size_t PlaceOf(CCharWord mark) {
    return static_cast<std::size_t>(__builtin_ctzll(mark)) / 8;
}

} // namespace tabvex
