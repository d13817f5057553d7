// Pool of line buffers of one size.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace tabvex {

/// Hands out line buffers from large blocks, so that reading a line costs no allocation of its own. The buffers live
/// until they are given back or the pool is cleared.
class CLinePool {
public:
    explicit CLinePool(std::size_t lineSize) : m_nLineSize(lineSize) {}
    CLinePool(const CLinePool&) = delete;
    CLinePool& operator=(const CLinePool&) = delete;

    /// An uninitialised buffer.
    char* Take();
    /// Takes a buffer back for a later Take.
    void Give(char* line);
    /// Frees every buffer.
    void Clear();

private:
    void AddBlock();

    std::size_t m_nLineSize;
    std::size_t m_nBlockLines = 0; // of the last block
    std::vector<std::unique_ptr<char[]>> m_Blocks;
    char* m_pNext = nullptr; // the last block's first line that was never handed out
    char* m_pEnd = nullptr;
    char* m_pFree = nullptr; // lines given back; each begins with the address of the next
};

} // namespace tabvex
