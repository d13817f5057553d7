#include "records/searching_record.h"

#include <algorithm>

#include "layout/number_text.h"
#include "records/value_parts.h"
#include "tabvex/result_codes.h"

namespace tabvex {

namespace {

// Callers search the mutations of an entry by an item number that is none of the layout's.
constexpr int kW4MutationSearch = 9035;
constexpr int kW4MutationCode = 4555;

} // namespace

int CSearchingRecord::FindFirst(int item, std::string_view text) {
    return Search(item, text, [this] { return FirstEntry(m_Group.Row->Items[0]); });
}

int CSearchingRecord::FindNext(int item, std::string_view text) {
    return Search(item, text, [this] {
        m_nCurLine = m_nFoundLine;
        m_nCurOffset = m_nFoundOffset;
        return StepForward();
    });
}

// The cursor moves only to an entry that matches.
template <typename Start>
int CSearchingRecord::Search(int item, std::string_view text, Start start) {
    const int wanted = item == kW4MutationSearch ? kW4MutationCode : item;
    if (!IsEntryItem(wanted)) {
        return TABVEX_FIND_WRONG_ITEM;
    }
    if (m_Lines.empty()) {
        return TABVEX_FIND_NO_LINES;
    }
    const CItemDef* definition = Definition(wanted);
    if (definition == nullptr) {
        return TABVEX_FIND_NO_DEFINITION;
    }
    std::string& sought = m_Context.ValueText;
    sought.assign(TrimBlanks(text));
    if (m_Context.IsOem) {
        m_Context.CodePages.AnsiToOem(sought.data(), sought.size());
    }
    const int line = m_nCurLine;
    const int offset = m_nCurOffset;
    for (int result = start(); result == TABVEX_OK && !IsPastLastLine(); result = StepForward()) {
        if (TrimBlanks(CutFromEntry(*definition)) == sought) {
            m_nFoundLine = m_nCurLine;
            m_nFoundOffset = m_nCurOffset;
            return TABVEX_FIND_FOUND;
        }
    }
    m_nCurLine = line;
    m_nCurOffset = offset;
    return TABVEX_FIND_NOTHING;
}

int CDynamicRecord::PrevEntry(int item) {
    if (m_Lines.empty()) {
        return TABVEX_ENTRY_NO_LINES;
    }
    const CGroup& group = Group();
    if (item != group.Row->Items[0]) {
        return TABVEX_ENTRY_WRONG_KEY;
    }
    if (group.EntryLength == 0) {
        return TABVEX_ENTRY_EMPTY_SPAN;
    }
    const int offset = m_nCurOffset - group.EntryLength;
    if (offset >= group.FirstOffset) {
        m_nCurOffset = offset;
        return TABVEX_OK;
    }
    if (m_nCurLine == 0) {
        return TABVEX_ENTRY_NO_MORE;
    }
    --m_nCurLine;
    m_nCurOffset = std::max(group.Row->LastLineEnd - group.EntryLength, group.FirstOffset);
    return TABVEX_OK;
}

int CDynamicRecord::ReadEntry(int /*item*/, std::string& text) {
    const std::vector<const CItemDef*>& items = Group().Items;
    if (std::find(items.begin(), items.end(), nullptr) != items.end()) {
        return TABVEX_ENTRY_NO_DEFINITION;
    }
    if (IsPastLastLine()) {
        return TABVEX_ENTRY_NO_MORE;
    }
    std::string entry;
    for (const CItemDef* definition : items) {
        if (definition != items.front()) {
            entry.push_back(m_Context.Delimiter);
        }
        entry.append(CutFromEntry(*definition));
    }
    text = std::move(entry);
    return TABVEX_OK;
}

int CDynamicRecord::WriteDynEntry(int item, std::string_view value) {
    if (item != m_Group.Row->Items[0]) {
        return TABVEX_ENTRY_NOT_THE_KEY;
    }
    if (CountParts(value, m_Context.Delimiter) != Group().Items.size()) {
        return TABVEX_ENTRY_WRONG_PARTS;
    }
    const int result = MakeRoom(m_Group.Row->DynWriteLimit);
    if (result != TABVEX_OK) {
        return result;
    }
    return PutParts(value, m_Context.IsOem) == TABVEX_OK ? TABVEX_OK : TABVEX_ENTRY_CHECK_FAILED;
}

} // namespace tabvex
