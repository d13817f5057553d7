#include "records/old_mutation_record.h"

#include <algorithm>

#include "core/record_context.h"
#include "layout/number_text.h"
#include "records/default_codes.h"
#include "records/value_parts.h"
#include "tabvex/result_codes.h"

namespace tabvex {

COldMutationRecord::COldMutationRecord(const CMutationItems& items, CRecordContext& context)
    : CRepairPositionRecord(items, context) {}

int COldMutationRecord::CurrentCell() const {
    return m_nCurLine * kCellsInLine + (m_nCurOffset - kFirstCellOffset) / kCellLength;
}

// The item's own value list tells the repair methods.
bool COldMutationRecord::IsPosition(int cell) const {
    const std::string_view code = CodeOfCell(CellText(cell));
    const CItemDef* definition = Definition(m_Items.Position[0]);
    if (definition != nullptr && !definition->Values.empty()) {
        return std::find(definition->Values.begin(), definition->Values.end(), code) != definition->Values.end();
    }
    return std::find(kRepairMethodsA.begin(), kRepairMethodsA.end(), code) != kRepairMethodsA.end();
}

// The first repair position in this cell or behind it; behind the last line without one.
void COldMutationRecord::MoveToPosition(int cell) {
    const int end = GetLineCount() * kCellsInLine;
    cell = std::min(cell, end);
    while (cell < end && !IsPosition(cell)) {
        ++cell;
    }
    m_nCurLine = CellLine(cell);
    m_nCurOffset = CellOffset(cell);
}

int COldMutationRecord::FirstEntry(int item) {
    if (item != m_Items.Position[0]) {
        return TABVEX_ENTRY_WRONG_KEY;
    }
    if (m_Lines.empty()) {
        return TABVEX_ENTRY_NO_LINES;
    }
    m_nCurLine = 0;
    m_nCurOffset = kFirstCellOffset;
    return TABVEX_OK;
}

int COldMutationRecord::NextEntry(int item) {
    if (m_Lines.empty()) {
        return TABVEX_ENTRY_NO_LINES;
    }
    if (item != m_Items.Position[0]) {
        return TABVEX_ENTRY_WRONG_KEY;
    }
    MoveToPosition(CurrentCell() + 1);
    return IsPastLastLine() ? TABVEX_ENTRY_NO_MORE : TABVEX_OK;
}

int COldMutationRecord::ReadEntryItem(int item, const CItemDef& definition, std::string_view& text) {
    if (m_Lines.empty()) {
        return TABVEX_ITEM_NO_LINE;
    }
    if (IsHeaderItem(item)) {
        text = CutText(0, OffsetOf(definition), definition.Length);
        return TABVEX_OK;
    }
    if (PositionField(item) < 0) {
        return TABVEX_ENTRY_FOREIGN_ITEM;
    }
    if (IsPastLastLine()) {
        return TABVEX_ENTRY_NO_MORE;
    }
    text = FieldText(definition);
    return TABVEX_OK;
}

// Items are described at their place in the first cell.
std::string_view COldMutationRecord::FieldText(const CItemDef& definition) const {
    const int offset = OffsetOf(definition) - kFirstCellOffset;
    if (offset < 0 || offset >= kCellLength) {
        return {};
    }
    return CutText(m_nCurLine, m_nCurOffset + offset, std::min(definition.Length, kCellLength - offset));
}

int COldMutationRecord::WriteEntry(int item, const CItemDef& /*definition*/, std::string_view value) {
    if (item != m_Items.Position[0]) {
        return TABVEX_ENTRY_NOT_THE_KEY;
    }
    if (CountParts(value, m_Context.Delimiter) != m_Items.Position.size()) {
        return TABVEX_ENTRY_WRONG_PARTS;
    }
    if (IsPastLastLine() || m_nCurOffset + kCellLength > kCellsEnd) {
        AppendContinuationLine(kFirstCellOffset + 1);
    }
    CCell cell;
    cell.fill(' ');
    const std::string_view present = CutFromLine(m_nCurLine, m_nCurOffset, kCellLength);
    std::copy(present.begin(), present.end(), cell.begin());
    const int result = PutPositionParts(cell, value);
    PutIntoLine(m_nCurLine, m_nCurOffset, {cell.data(), cell.size()});
    m_nCurOffset += kCellLength;
    return result;
}

int COldMutationRecord::FindFirst(int item, std::string_view text) {
    return SearchFrom(0, item, text);
}

int COldMutationRecord::FindNext(int item, std::string_view text) {
    return SearchFrom(m_nFoundCell + 1, item, text);
}

// The cursor moves only to an entry that matches.
int COldMutationRecord::SearchFrom(int cell, int item, std::string_view text) {
    const CItemDef* definition = nullptr;
    const int prepared = PrepareSearch(item, text, definition);
    if (prepared != TABVEX_OK) {
        return prepared;
    }
    const std::string_view sought = m_Context.ValueText;
    const int line = m_nCurLine;
    const int offset = m_nCurOffset;
    for (MoveToPosition(cell); !IsPastLastLine(); MoveToPosition(CurrentCell() + 1)) {
        if (definition == nullptr ? CarriesMutation(sought) : TrimBlanks(FieldText(*definition)) == sought) {
            m_nFoundCell = CurrentCell();
            return TABVEX_FIND_FOUND;
        }
    }
    m_nCurLine = line;
    m_nCurOffset = offset;
    return TABVEX_FIND_NOTHING;
}

bool COldMutationRecord::CarriesMutation(std::string_view code) const {
    const int position = CurrentCell();
    for (int cell = position + 1; cell <= position + kMostMutations && !IsPosition(cell); ++cell) {
        if (TrimBlanks(CodeOfCell(CellText(cell))) == code) {
            return true;
        }
    }
    return false;
}

int COldMutationRecord::ReadMutation(int index, bool newForm, CMutation& mutation) {
    if (newForm) {
        return TABVEX_MUTATION_NOT_PARSED;
    }
    return IsPastLastLine() ? TABVEX_MUTATION_NO_ENTRY : ReadMutationFromCells(CurrentCell(), index, mutation);
}

} // namespace tabvex
