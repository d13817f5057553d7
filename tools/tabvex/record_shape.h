// Which items of a record type stand in its header and which in its entries.
#pragma once

#include <string>
#include <vector>

#include "tabvex/all_records.h"

namespace tabvex::tool {

class CTableText;

/// The items that are repeated in every entry of a group.
struct CEntryGroup {
    int KeyItem = 0;        ///< with which ReadFirst and ReadNext step
    std::vector<int> Items; ///< in the layout's order
};

struct CRecordShape {
    int LineLength = 128;            ///< characters in a line
    bool IsList = false;             ///< a plain list of items, of the first line only
    std::vector<CEntryGroup> Groups; ///< none for records made of cells

    /// The group that the item stands in, or null for an item of the header.
    const CEntryGroup* FindGroup(int item) const;
};

/// Loads the table file into a record set; throws CToolError when that fails.
void LoadTable(CAllRecords& records, const std::string& fileName, const CTableText& table);

/// Finds out shapes from the library itself: it fills two lines of a scratch record differently, steps through them and
/// sees which items change.
class CShapeFinder {
public:
    /// Throws CToolError when the table file cannot be loaded.
    CShapeFinder(const std::string& tableName, const CTableText& table);

    /// The shape of a record type; that of a list without items for a type that the library has no class for.
    CRecordShape Find(const std::string& type);

private:
    CRecord* MakeRecord(const std::string& type);
    bool IsList(const CRecord& record);
    CEntryGroup MakeGroup(const CRecord& record, int keyItem);
    std::vector<std::string> ReadAllItems(const CRecord& record);

    CAllRecordsEx m_Records;
};

} // namespace tabvex::tool
