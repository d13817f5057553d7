#include "core/line_pool.h"

#include <cstring>
#include <new>
#include <utility>

namespace tabvex {

namespace {

constexpr std::size_t kSmallBlocks = 32;
constexpr std::size_t kLargeSize = std::size_t{1} << 23;

} // namespace

std::uint32_t CLinePool::Take() {
    if (m_nFree != kNoLine) {
        const std::uint32_t line = m_nFree;
        std::memcpy(&m_nFree, At(line), sizeof m_nFree);
        return line;
    }
    if (m_nLines >> m_nBlockShift == m_Blocks.size()) {
        if (m_nLines == kNoLine >> m_nBlockShift << m_nBlockShift) {
            throw std::bad_alloc();
        }
        AddBlock();
    }
    return m_nLines++;
}

void CLinePool::AddBlock() {
    const std::size_t blockSize = m_nLineSize << m_nBlockShift;
    // First of all, so that no block is lost for want of its entry.
    m_Blocks.reserve(m_Blocks.size() < m_Blocks.capacity() ? 0 : m_Blocks.size() * 2 + 1);
    if (m_Blocks.size() < kSmallBlocks) {
        m_SmallBlocks.push_back(std::unique_ptr<char[]>(new char[blockSize]));
        m_Blocks.push_back(m_SmallBlocks.back().get());
        return;
    }
    const std::size_t blocks = kLargeSize / blockSize;
    const std::size_t place = (m_Blocks.size() - kSmallBlocks) % blocks;
    if (place == 0) {
        m_LargeMemory.emplace_back(kLargeSize);
    }
    m_Blocks.push_back(m_LargeMemory.back().Begin() + place * blockSize);
}

void CLinePool::Give(std::uint32_t line) {
    std::memcpy(At(line), &m_nFree, sizeof m_nFree);
    m_nFree = line;
}

void CLinePool::Clear() {
    m_Blocks.clear();
    m_SmallBlocks.clear();
    m_LargeMemory.clear();
    m_nLines = 0;
    m_nFree = kNoLine;
}

void CLinePool::Swap(CLinePool& other) noexcept {
    std::swap(m_nLineSize, other.m_nLineSize);
    std::swap(m_nBlockShift, other.m_nBlockShift);
    m_Blocks.swap(other.m_Blocks);
    m_SmallBlocks.swap(other.m_SmallBlocks);
    m_LargeMemory.swap(other.m_LargeMemory);
    std::swap(m_nLines, other.m_nLines);
    std::swap(m_nFree, other.m_nFree);
}

} // namespace tabvex
