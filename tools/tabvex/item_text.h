// Items as texts of their own.
#pragma once

#include <string>
#include <string_view>

#include "tabvex/all_records.h"

namespace tabvex::tool {

/// The item's text in the current entry; "" when the library does not hand it out.
std::string ReadItemText(CAllRecords& records, int item);
/// The characters of the item in a whole line, cut at the line's end.
std::string_view CutItem(std::string_view line, const CItemDef& item);

} // namespace tabvex::tool
