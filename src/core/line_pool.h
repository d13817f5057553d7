// Pool of line buffers of one size.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/platform.h"

namespace tabvex {

/// Hands out line buffers from large blocks, so that reading a line costs no allocation of its own. A buffer is known
/// by a number, which takes half the room of an address. Buffers live until they are given back or the pool is cleared.
class CLinePool {
public:
    /// `blockShift`: a block holds 2 to this power lines.
    CLinePool(std::size_t lineSize, unsigned blockShift) : m_nLineSize(lineSize), m_nBlockShift(blockShift) {}
    CLinePool(const CLinePool&) = delete;
    CLinePool& operator=(const CLinePool&) = delete;

    /// The number of an uninitialised buffer.
    std::uint32_t Take();
    char* At(std::uint32_t line) const {
        const std::uint32_t inBlock = line & ((std::uint32_t{1} << m_nBlockShift) - 1);
        return m_Blocks[line >> m_nBlockShift] + inBlock * m_nLineSize;
    }
    /// Takes a buffer back for a later Take.
    void Give(std::uint32_t line);
    /// Frees every buffer.
    void Clear();
    void Swap(CLinePool& other) noexcept;

private:
    static constexpr std::uint32_t kNoLine = UINT32_MAX;

    std::size_t m_nLineSize;
    unsigned m_nBlockShift;
    void AddBlock();

    std::vector<char*> m_Blocks;
    std::vector<std::unique_ptr<char[]>> m_SmallBlocks; // the first blocks, of which a small file needs one
    std::vector<CLargeMemory> m_LargeMemory;            // the others, many in each
    std::uint32_t m_nLines = 0;                         // handed out for the first time
    std::uint32_t m_nFree = kNoLine; // last line given back; each begins with the number of the one before
};

} // namespace tabvex
