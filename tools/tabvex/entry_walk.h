// Stepping through the entries of a record.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "record_shape.h"

namespace tabvex::tool {

/// One entry that is not blank.
struct CEntry {
    int Line = 0;                    ///< of the record, 0-based
    int Offset = 0;                  ///< in the line, 0-based
    std::vector<std::string> Values; ///< of the group's items, in their order, as the line holds them
};

/// Visits the entries of a group in order; the steps are bounded, whatever the table says. Returns the number of lines,
/// from the first one on, that stepping has reached.
int WalkEntries(CAllRecords& records, const CRecord& record, const CEntryGroup& group,
                const std::function<void(const CEntry&)>& visit);

} // namespace tabvex::tool
