// What is wrong in a table file.
#pragma once

#include <string>

#include "finding.h"
#include "record_shape.h"
#include "table_text.h"

namespace tabvex::tool {

/// What a check has found: findings are mistakes, notes are peculiarities that may well be meant.
struct CTableFindings {
    CFindings Findings;
    CFindings Notes;
};

/// Checks the header, and the sections: all of them, or only that of one record type. `shapes` may be null when the
/// library cannot load the file; overlaps are then left out.
CTableFindings CheckTable(const CTableText& table, const std::string& type, CShapeFinder* shapes);

} // namespace tabvex::tool
