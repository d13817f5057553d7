#include "core/line_pool.h"

#include <algorithm>
#include <cstring>

namespace tabvex {

namespace {

constexpr std::size_t kFirstBlockLines = 32;
constexpr std::size_t kLargestBlockLines = std::size_t{1} << 14;

} // namespace

char* CLinePool::Take() {
    if (m_pFree != nullptr) {
        char* line = m_pFree;
        std::memcpy(&m_pFree, line, sizeof m_pFree);
        return line;
    }
    if (m_pNext == m_pEnd) {
        AddBlock();
    }
    char* line = m_pNext;
    m_pNext += m_nLineSize;
    return line;
}

void CLinePool::Give(char* line) {
    std::memcpy(line, &m_pFree, sizeof m_pFree);
    m_pFree = line;
}

void CLinePool::Clear() {
    m_Blocks.clear();
    m_nBlockLines = 0;
    m_pNext = m_pEnd = m_pFree = nullptr;
}

void CLinePool::AddBlock() {
    const std::size_t lines = std::clamp(m_nBlockLines * 4, kFirstBlockLines, kLargestBlockLines);
    const std::size_t size = lines * m_nLineSize;
    m_Blocks.emplace_back(new char[size]);
    m_nBlockLines = lines;
    m_pNext = m_Blocks.back().get();
    m_pEnd = m_pNext + size;
}

} // namespace tabvex
