// What the two forms of records with repair positions and mutations have in common.
#pragma once

#include <array>
#include <string_view>

#include "records/mutation_items.h"
#include "tabvex/record.h"

namespace tabvex {

class CRepairPositionRecord : public CRecord {
protected:
    using CCell = std::array<char, kCellLength>;

    CRepairPositionRecord(const CMutationItems& items, CRecordContext& context);

    bool IsHeaderItem(int item) const;
    /// Index of an item of the repair position, -1 for any other.
    int PositionField(int item) const;
    /// Offset of cell `index`, counted over all lines, in its line.
    static constexpr int CellOffset(int index) { return kFirstCellOffset + index % kCellsInLine * kCellLength; }
    static constexpr int CellLine(int index) { return index / kCellsInLine; }
    /// Cell `index`, clipped to what the line holds; empty when there is none.
    std::string_view CellText(int index) const;
    /// Checks a search for an item of the repair position (`definition`), or for the code of a mutation (null), and
    /// puts the text into the record's character set (m_Context.ValueText). TABVEX_OK, or a TABVEX_FIND_... code.
    int PrepareSearch(int item, std::string_view text, const CItemDef*& definition);
    /// Writes the values of a repair position into its cell. A blank part leaves its field, and so does one that fails
    /// its check; the code of the last failure.
    int PutPositionParts(CCell& cell, std::string_view value);
    /// Writes one value into a cell: TABVEX_OK, TABVEX_ITEM_UNKNOWN, or the code of the item's check.
    int PutPart(CCell& cell, int item, int offset, std::string_view part);
    /// Reads mutation `number` (1 to 3) of the position in cell `index` by the rules of the older form: straight from
    /// the cells behind it, by the value lists of the layout.
    int ReadMutationFromCells(int index, int number, CMutation& mutation) const;
    /// Reads a value text; the mutation keeps -1.0 when it is no number.
    static int ReadMutationValue(const CItemDef& definition, std::string_view text, CMutation& mutation);

    const CMutationItems& m_Items;
};

/// What a cell holds at an offset, for the length of an item.
constexpr std::string_view PartOfCell(std::string_view cell, int offset, int length) {
    return cell.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(length < 0 ? 0 : length));
}

} // namespace tabvex
