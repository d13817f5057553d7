#include "records/two_group_record.h"

#include <utility>

#include "tabvex/result_codes.h"

namespace tabvex {

namespace {

constexpr int kHeaderLength = 8; // one more than it repeats

} // namespace

CTwoGroupRecord::CTwoGroupRecord(const CGroupRow* rows, CRecordContext& context)
    : CEntryRecord(rows[0], context), m_Other() {
    m_Other.Group.Row = &rows[1];
    m_Other.Offset = rows[1].FirstOffset;
}

void CTwoGroupRecord::SwitchGroup() {
    std::swap(m_Group, m_Other.Group);
    std::swap(m_nCurLine, m_Other.Line);
    std::swap(m_nCurOffset, m_Other.Offset);
}

void CTwoGroupRecord::SwitchToGroupOfKey(int item) {
    if (item == m_Other.Group.Row->Items[0]) {
        SwitchGroup();
    }
}

int CTwoGroupRecord::FirstEntry(int item) {
    SwitchToGroupOfKey(item);
    return CEntryRecord::FirstEntry(item);
}

int CTwoGroupRecord::NextEntry(int item) {
    SwitchToGroupOfKey(item);
    return CEntryRecord::NextEntry(item);
}

int CTwoGroupRecord::ReadEntryItem(int item, const CItemDef& definition, std::string_view& text) {
    // An item of neither group is cut by the first group's entries.
    const bool ofOther = IsItemOf(*m_Other.Group.Row, item);
    const bool ofNeither = !ofOther && !IsEntryItem(item) && !IsHeaderItem(item);
    if (ofOther || (ofNeither && m_Other.Group.Row->FirstOffset < m_Group.Row->FirstOffset)) {
        SwitchGroup();
    }
    return CEntryRecord::ReadEntryItem(item, definition, text);
}

int CTwoGroupRecord::WriteEntry(int item, const CItemDef& definition, std::string_view value) {
    SwitchToGroupOfKey(item);
    return CEntryRecord::WriteEntry(item, definition, value);
}

// A line that the other group has made already is used before another one is added.
int CTwoGroupRecord::MakeRoom(int /*writeLimit*/) {
    const int firstOffset = Group().FirstOffset;
    const bool full = m_nCurOffset > Group().LastOffset || m_nCurOffset + Group().EntryLength > m_nLineLength;
    if (!full && !IsPastLastLine()) {
        return TABVEX_OK;
    }
    if (m_nCurLine + 1 < GetLineCount()) {
        ++m_nCurLine;
        m_nCurOffset = firstOffset;
        return TABVEX_OK;
    }
    // The header ends where the first group begins, whichever of the two goes on.
    const int result = AppendContinuationLine(kHeaderLength);
    m_nCurOffset = firstOffset;
    m_nWriteOffset = firstOffset;
    return result;
}

} // namespace tabvex
