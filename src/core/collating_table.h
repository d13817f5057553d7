// Collating table: orders record lines by a sequence of characters of the program's own.
#pragma once

#include <string>
#include <string_view>

namespace tabvex {

class CCollatingTable {
public:
    /// Holds the default sequence: "+$*", digits, "?>", capital letters, blank.
    CCollatingTable();

    /// Replaces the sequence; the character at index i gets rank i. 0, or -1 with the sequence kept when it is empty or
    /// longer than 128 characters.
    int SetSequence(std::string_view sequence);
    /// Rank of a character: its first index in the sequence, 100 when it is not listed.
    int Rank(char character) const;
    /// 3: lengths differ, 2: all ranks equal, 1: `a` sorts before `b`, 0: behind.
    int Compare(std::string_view a, std::string_view b) const;
    /// Swaps two record lines that are out of order by the columns `start` (1-based) to `start` + `width` - 1 and, when
    /// these are equal, by the sequence number in columns 9-11 and 15-16. Does nothing unless start and width lie in
    /// 1 .. 128.
    void OrderPair(std::string& a, std::string& b, int start, int width) const;

private:
    std::string m_strSequence;
};

} // namespace tabvex
