// The text of a table file, with the line numbers that the library does not keep.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tabvex/item_def.h"

namespace tabvex::tool {

/// One line of the header section.
struct CTableKey {
    int Line = 0;
    std::string Name; ///< in upper case, without blanks
    std::string Value;
};

/// One line of a record type's section.
struct CTableItem {
    int Line = 0;
    std::vector<std::string> Columns; ///< as the file has them
    CItemDef Definition;              ///< what the descriptor gave up to what is wrong in it
    int BadComponent = 0;             ///< of the descriptor, 1 to 7; 0 when all is well
    std::string Description;          ///< the fifth column; programs do without it

    bool IsComplete() const { return Columns.size() >= 4; }
};

struct CTableSection {
    int Line = 0;         ///< of the section head
    std::string HeadName; ///< what stands in the brackets, in upper case
    std::string Type;     ///< key of the record type; "" when the head names none
    std::vector<CTableItem> Items;
};

/// A table file, cut up as the library does it: comments are removed once the header has been read, which a line of
/// blanks ends, a section goes on to the next head with "DATA_" in it, and the first section of a type is the one that
/// counts.
class CTableText {
public:
    /// Throws CToolError when the file cannot be read.
    explicit CTableText(const std::string& fileName);

    /// Line of the header section's head; 0 without such a section.
    int GetHeaderLine() const { return m_nHeaderLine; }
    const std::vector<CTableKey>& GetKeys() const { return m_Keys; }
    /// Line of blanks that ends the header before its section does; 0 without one.
    int GetHeaderEnd() const { return m_nHeaderEnd; }
    /// What would be keys of the header if they did not stand behind its end.
    const std::vector<CTableKey>& GetLostKeys() const { return m_LostKeys; }
    /// The key given last, or null.
    const CTableKey* FindKey(std::string_view name) const;
    int GetVersionMajor() const { return m_nVersionMajor; }
    int GetVersionMinor() const { return m_nVersionMinor; }

    const std::vector<CTableSection>& GetSections() const { return m_Sections; }
    /// The first section of a record type, or null.
    const CTableSection* FindSection(std::string_view type) const;
    /// Lines longer than the library reads; what lies behind is lost.
    const std::vector<int>& GetCutLines() const { return m_CutLines; }

private:
    struct CLine {
        int Number;
        std::string Text;
    };

    void SplitLines(std::string_view text);
    void AddLine(int number, std::string_view text);
    bool IsDropped(std::string_view text);
    void ReadHeader();
    void ReadHeaderLine(const CLine& line);
    void ReadKey(const CLine& line, std::vector<CTableKey>& keys) const;
    char CharacterOf(std::string_view name) const;
    void ReadVersion();
    void CutComments();
    void ReadSections();
    CTableItem MakeItem(const CLine& line) const;

    std::vector<CLine> m_Lines;
    std::vector<int> m_CutLines;
    std::string m_strBuffer; // what the library's buffer for a line holds, earlier lines' ends included
    int m_nHeaderLine = 0;
    int m_nHeaderEnd = 0;
    std::vector<CTableKey> m_Keys;
    std::vector<CTableKey> m_LostKeys;
    int m_nVersionMajor = 0;
    int m_nVersionMinor = 0;
    char m_cDelimiter = 0;
    char m_cNewline = 0;
    std::vector<CTableSection> m_Sections;
};

/// The whole of a text as a decimal number that is not negative; false for anything else.
bool ReadWholeNumber(std::string_view text, int& number);

} // namespace tabvex::tool
