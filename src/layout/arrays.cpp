#include "tabvex/arrays.h"

#include <utility>

#include "platform/guard.h"

int CStringArray::GetSize() const {
    return static_cast<int>(m_Texts.size());
}

const std::string& CStringArray::GetAt(int index) const {
    static const std::string none;
    return index >= 0 && index < GetSize() ? m_Texts[static_cast<std::size_t>(index)] : none;
}

int CStringArray::Add(std::string text) {
    return tabvex::Guarded([&]() -> int {
        m_Texts.push_back(std::move(text));
        return GetSize() - 1;
    });
}

void CStringArray::RemoveAll() {
    m_Texts.clear();
}

std::vector<std::string>::const_iterator CStringArray::begin() const {
    return m_Texts.begin();
}

std::vector<std::string>::const_iterator CStringArray::end() const {
    return m_Texts.end();
}

int CUIntArray::GetSize() const {
    return static_cast<int>(m_Numbers.size());
}

unsigned int CUIntArray::GetAt(int index) const {
    return index >= 0 && index < GetSize() ? m_Numbers[static_cast<std::size_t>(index)] : 0;
}

int CUIntArray::Add(unsigned int number) {
    return tabvex::Guarded([&]() -> int {
        m_Numbers.push_back(number);
        return GetSize() - 1;
    });
}

void CUIntArray::RemoveAll() {
    m_Numbers.clear();
}

std::vector<unsigned int>::const_iterator CUIntArray::begin() const {
    return m_Numbers.begin();
}

std::vector<unsigned int>::const_iterator CUIntArray::end() const {
    return m_Numbers.end();
}
