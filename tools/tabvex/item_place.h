// Where an item stands in a record file.
#pragma once

#include <string>
#include <string_view>

#include "show_source.h"

namespace tabvex::tool {

struct CItemPlace {
    const CItemDef* Item = nullptr; ///< as the table file has it
    int Entry = 0;                  ///< 1-based; 0 for an item that does not stand in entries
    int Line = 0;                   ///< of the file, 1-based
    int Offset = 0;                 ///< in the line, 0-based
    bool InCell = false;            ///< the entry is a cell, which its code gives a meaning
};

/// Finds the item: in its record's first line, or in the record's entry number `entry`. Entries are counted as they are
/// shown, from 1 and without blank ones; of records made of cells, the cells that hold the item. Throws CToolError
/// when there is no such item, record or entry.
CItemPlace FindItemPlace(CShowSource& source, int item, int entry);

/// Number of entries that the item stands in, counted likewise; 0 for an item that does not stand in entries.
int CountEntries(CShowSource& source, int item);

/// The item's field, as far as the line goes.
std::string_view FieldAt(const CShowSource& source, const CItemPlace& place);

/// "item 2025", "item 2025 of entry 3".
std::string NameOf(const CItemPlace& place);

} // namespace tabvex::tool
