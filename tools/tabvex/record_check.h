// What is wrong in a record file, held against its table file.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "show_source.h"

namespace tabvex::tool {

inline constexpr const char* kUnknownTypeRule = "unknown-type";
inline constexpr const char* kNoLayoutRule = "no-layout"; ///< a type or item that the table file does not describe
inline constexpr const char* kFileRule = "file";          ///< how the records lie in the file; short ones among them

struct CRecordFinding {
    int Line = 0;   ///< of the file, 1-based; 0: the file as a whole
    int Column = 0; ///< 1-based; 0: the whole line
    int Item = 0;   ///< 0: not about an item
    std::string Rule;
    std::string Found; ///< as the file has it
    std::string Expected;
};

struct CRecordFindings {
    std::vector<CRecordFinding> Findings; ///< by line and column
    std::size_t FieldCount = 0;           ///< of the fields judged, blank ones included

    std::map<std::string, std::size_t> CountByRule() const;
};

/// Judges every item of every record that the library hands out: header items in a record's first line, those of
/// entries in every entry, those of cells in every cell.
CRecordFindings CheckRecords(CShowSource& source);

} // namespace tabvex::tool
