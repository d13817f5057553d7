// Characters looked at sixteen at a time.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace tabvex {

inline constexpr std::size_t kBlockLength = 16;

#ifdef __SSE2__

using CCharBlock = __m128i;

inline CCharBlock LoadBlock(const char* from) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from)); // NOLINT(*-reinterpret-cast)
}

inline void StoreBlock(char* to, CCharBlock block) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to), block); // NOLINT(*-reinterpret-cast)
}

/// Bit i is set where character i is `wanted`.
inline std::uint32_t PlacesOf(char wanted, CCharBlock block) {
    return static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(block, _mm_set1_epi8(wanted))));
}

/// Bit i is set where character i is `a` or `b`.
inline std::uint32_t PlacesOfEither(char a, char b, CCharBlock block) {
    const CCharBlock isA = _mm_cmpeq_epi8(block, _mm_set1_epi8(a));
    const CCharBlock isB = _mm_cmpeq_epi8(block, _mm_set1_epi8(b));
    return static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_or_si128(isA, isB)));
}

/// Takes the characters of `a` where those of `which` are not 0, of `b` elsewhere; `which` holds 0 and 255 only.
inline CCharBlock Choose(CCharBlock which, CCharBlock a, CCharBlock b) {
    return _mm_or_si128(_mm_and_si128(which, a), _mm_andnot_si128(which, b));
}

#else

using CCharBlock = std::array<char, kBlockLength>;

inline CCharBlock LoadBlock(const char* from) {
    CCharBlock block;
    std::memcpy(block.data(), from, kBlockLength);
    return block;
}

inline void StoreBlock(char* to, const CCharBlock& block) {
    std::memcpy(to, block.data(), kBlockLength);
}

inline std::uint32_t PlacesOf(char wanted, const CCharBlock& block) {
    std::uint32_t places = 0;
    for (std::size_t i = 0; i < kBlockLength; ++i) {
        places |= static_cast<std::uint32_t>(block[i] == wanted) << i;
    }
    return places;
}

inline std::uint32_t PlacesOfEither(char a, char b, const CCharBlock& block) {
    return PlacesOf(a, block) | PlacesOf(b, block);
}

inline CCharBlock Choose(const CCharBlock& which, const CCharBlock& a, const CCharBlock& b) {
    CCharBlock chosen;
    for (std::size_t i = 0; i < kBlockLength; ++i) {
        chosen[i] = which[i] != 0 ? a[i] : b[i];
    }
    return chosen;
}

#endif

/// The lowest bit that is set, of which there must be one.
inline std::size_t FirstPlace(std::uint64_t places) {
    return static_cast<std::size_t>(__builtin_ctzll(places));
}

/// Writes `count` characters of `block`, 15 at most, and a NUL; what stands behind them stays.
inline void StoreText(char* to, const CCharBlock& block, std::size_t count) {
    static constexpr std::array<unsigned char, 2 * kBlockLength> kMask = {255, 255, 255, 255, 255, 255, 255, 255,
                                                                          255, 255, 255, 255, 255, 255, 255, 255};
    const auto* const mask = reinterpret_cast<const char*>(kMask.data()); // NOLINT(*-reinterpret-cast)
    const CCharBlock text = LoadBlock(mask + kBlockLength - count);
    const CCharBlock textAndNul = LoadBlock(mask + kBlockLength - 1 - count);
    StoreBlock(to, Choose(text, block, Choose(textAndNul, CCharBlock{}, LoadBlock(to))));
}

/// Lines are mostly shorter: one step does.
inline constexpr std::size_t kCopiedAtOnce = 4 * kBlockLength;

/// Copies 64 characters and returns the place of the first NUL among them, 64 without one. Nothing in it branches:
/// where short texts end cannot be guessed, and a wrong guess takes longer than looking at all of them.
inline std::size_t CopyAndFindNul(const char* from, char* to) {
    std::uint64_t places = 0;
    for (std::size_t begin = 0; begin < kCopiedAtOnce; begin += kBlockLength) {
        const CCharBlock block = LoadBlock(from + begin);
        StoreBlock(to + begin, block);
        places |= static_cast<std::uint64_t>(PlacesOf('\0', block)) << begin;
    }
    return places == 0 ? kCopiedAtOnce : FirstPlace(places);
}

} // namespace tabvex
