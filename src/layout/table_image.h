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
    /// Finds the section heads; to be called when the lines are as they will stay.
    void IndexHeads();

    /// Frees room that is much larger than the lines need; to be called when all are there.
    void GiveBackRoom();

    int GetLineCount() const { return static_cast<int>(m_nLines); }
    /// Line `index`, which must exist.
    std::string_view GetLine(int index) const {
        const CLine& line = LineAt(index);
        return {m_pText.get() + line.Begin, line.End - line.Begin};
    }
    /// The same as FindHead without an index: looks at line after line.
    int ScanForHead(std::string_view name) const;
    /// First line that is the head of section `name` or of "DATA_" + `name`, case ignored; kNone when there is none.
    int FindHead(std::string_view name) const;
    /// First line from line `from` on that begins a "DATA_" section; the number of lines when there is none. Without an
    /// index it looks at line after line.
    int FindDataHead(int from) const;

    CTableHeader Header;

private:
    struct CLine {
        std::uint32_t Begin; // in the text
        std::uint32_t End;
    };
    struct CHead {
        std::uint32_t NameKey; // tells most names apart, case ignored
        int Line;
    };

    bool IsHeadOf(std::string_view name, int index) const;
    template <typename Visit>
    void VisitLinesWith(char character, Visit visit);

    std::string_view GetText() const { return {m_pText.get(), m_nText}; }
    CLine& LineAt(int index) const { return m_pLines[static_cast<std::size_t>(index)]; }
    bool HasRoom() const { return m_nText + kLineRoom <= m_nCapacity && m_nLines < m_nLineCapacity; }
    void MoveText(std::size_t capacity);
    void MoveLines(std::size_t capacity);
    void GrowAndAddLine(const char* line);

    std::unique_ptr<char[]> m_pText; // all lines, one behind the other
    std::size_t m_nText = 0;
    std::size_t m_nCapacity = 0;
    std::unique_ptr<CLine[]> m_pLines;
    std::size_t m_nLines = 0;
    std::size_t m_nLineCapacity = 0;
    std::vector<CHead> m_Heads;   // in the order of the lines
    std::vector<int> m_DataHeads; // lines that begin a "DATA_" section, in order
    bool m_bIndexed = false;
};

} // namespace tabvex
