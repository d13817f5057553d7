// Growable arrays in which the record set hands out its code lists.
#pragma once

#include <string>
#include <vector>

#include "tabvex/export.h"

/// Array of texts. Indexes are 0-based.
class TABVEX_API CStringArray {
public:
    /// Number of texts.
    int GetSize() const;
    /// The text at `index`; the empty text when the index is outside 0 .. GetSize() - 1.
    const std::string& GetAt(int index) const;
    /// Appends a copy of `text`; returns its index, or TABVEX_INTERNAL_FAILURE (-98) without memory.
    int Add(std::string text);
    /// Removes every text.
    void RemoveAll();

    std::vector<std::string>::const_iterator begin() const; ///< The first text.
    std::vector<std::string>::const_iterator end() const;   ///< Behind the last text.

private:
    std::vector<std::string> m_Texts;
};

/// Array of unsigned 32-bit numbers. Indexes are 0-based.
class TABVEX_API CUIntArray {
public:
    /// Number of numbers.
    int GetSize() const;
    /// The number at `index`; 0 when the index is outside 0 .. GetSize() - 1.
    unsigned int GetAt(int index) const;
    /// Appends `number`; returns its index, or TABVEX_INTERNAL_FAILURE (-98) without memory.
    int Add(unsigned int number);
    /// Removes every number.
    void RemoveAll();

    std::vector<unsigned int>::const_iterator begin() const; ///< The first number.
    std::vector<unsigned int>::const_iterator end() const;   ///< Behind the last number.

private:
    std::vector<unsigned int> m_Numbers;
};
