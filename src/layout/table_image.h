// A table file in memory: its lines without comments, its header, and an index of its section heads.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "layout/table_header.h"
#include "platform/char_block.h"

namespace tabvex {

/// Built line by line while a file is loaded; constant, and shared, afterwards.
class CTableImage {
public:
    static constexpr int kNone = -1;
    static constexpr std::size_t kLineSize = 2000;
    static constexpr std::size_t kLineRoom = kLineSize + kCopiedAtOnce;

    /// Makes room for a table of the usual size.
    void Reserve();
    /// Adds a line, which ends at its first NUL. `line` has kLineSize characters at most, and kLineRoom bytes.
    void AddLine(const char* line);
    /// Removes the blanks that a line begins with.
    void TrimLineLeft(int index);
    /// Cuts every line at the comment character; a line that is then empty goes. Does nothing when `comment` is 0.
    void CutComments(char comment);
    /// Finds the section heads; to be called again whenever lines have changed.
    void IndexHeads();

    int GetLineCount() const { return static_cast<int>(m_Lines.size()); }
    /// Line `index`, which must exist.
    std::string_view GetLine(int index) const;
    /// The same as FindHead without an index: looks at line after line.
    int ScanForHead(std::string_view name) const;
    /// First line that is the head of section `name` or of "DATA_" + `name`, case ignored; kNone when there is none.
    int FindHead(std::string_view name) const;
    /// True when the line begins a "DATA_" section.
    bool IsDataHead(int index) const;

    CTableHeader Header;

private:
    struct CLine {
        std::uint32_t Offset;
        std::uint32_t Length;
    };
    struct CHead {
        std::uint32_t NameKey; // tells most names apart, case ignored
        int Line;
    };

    bool IsHeadOf(std::string_view name, int index) const;
    template <typename Visit>
    void VisitLinesWith(char character, Visit visit);

    std::string_view GetText() const { return {m_pText.get(), m_nText}; }
    void Grow(std::size_t capacity);

    std::unique_ptr<char[]> m_pText; // all lines, one behind the other
    std::size_t m_nText = 0;
    std::size_t m_nCapacity = 0;
    std::vector<CLine> m_Lines;
    std::vector<CHead> m_Heads; // in the order of the lines
};

} // namespace tabvex
