#include "core/line_pool.h"

#include <cstring>
#include <new>

namespace tabvex {

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
        m_Blocks.emplace_back(new char[m_nLineSize << m_nBlockShift]);
    }
    return m_nLines++;
}

void CLinePool::Give(std::uint32_t line) {
    std::memcpy(At(line), &m_nFree, sizeof m_nFree);
    m_nFree = line;
}

void CLinePool::Clear() {
    m_Blocks.clear();
    m_Blocks.shrink_to_fit();
    m_nLines = 0;
    m_nFree = kNoLine;
}

} // namespace tabvex
