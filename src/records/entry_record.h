// Records with a group of equal entries behind a header.
#pragma once

#include <vector>

#include "records/record_geometry.h"
#include "tabvex/record.h"

namespace tabvex {

/// The ordinary type with an entry group: everything that differs between types is in its row of the geometry table.
class CEntryRecord : public CRecord {
public:
    CEntryRecord(const CGroupRow& row, CRecordContext& context);

protected:
    int FirstEntry(int item) override;
    int NextEntry(int item) override;
    int ReadEntryItem(int item, const CItemDef& definition, std::string_view& text) override;
    int WriteEntry(int item, const CItemDef& definition, std::string_view value) override;

    /// What the layout makes of a row; worked out when it is first asked for.
    struct CGroup {
        const CGroupRow* Row;
        std::vector<const CItemDef*> Items; // of one entry, in order
        int EntryLength = 0;
        int FirstOffset = 0;
        int LastOffset = 0;
        bool Known = false;
    };

    const CGroup& Group();
    CGroup MakeGroup(const CGroupRow& row) const;

    bool IsHeaderItem(int item) const;
    bool IsEntryItem(int item) const { return IsItemOf(*m_Group.Row, item); }
    bool IsPastLastLine() const { return m_nCurLine >= GetLineCount(); }
    /// The text of an item of the current entry; what lies behind the line reads as blanks.
    std::string_view CutFromEntry(const CItemDef& definition);
    bool IsBlankEntry();
    /// Moves the cursor on, with the codes of NextEntry.
    int StepForward();
    /// Makes sure that an entry can be written at the cursor, in a new line where there is no room.
    virtual int MakeRoom(int writeLimit);
    /// Writes the parts of a whole entry at the cursor, converted from ANSI when `toOem`, and moves behind it; the code
    /// of the last one that failed.
    int PutParts(std::string_view value, bool toOem);

    CGroup m_Group;

private:
    int LeaveLastLine();
};

} // namespace tabvex
