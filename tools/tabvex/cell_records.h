// "X4" and "G9" records: cells of repair positions and their mutations, told apart by the code each begins with.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "table_text.h"
#include "tabvex/all_records.h"

namespace tabvex::tool {

/// One meaning that a cell can have. Its items stand in the table at their place in the first cell of a line.
struct CCellKind {
    const char* Name;                   ///< "position", "mutation", ...
    std::vector<const CItemDef*> Items; ///< as the table file has them; none when it lacks the kind
};

/// The cells of one record type.
class CCellLayout {
public:
    static bool IsCellType(std::string_view type);
    /// Number of the kind, an index, that an item of the type belongs to; -1 for an item of the header.
    static int KindOfItem(std::string_view type, int item);

    /// `section`: the type's section in the table file; `records` has the table loaded.
    CCellLayout(const CTableSection& section, CAllRecordsEx& records);

    /// Offsets of the cells in a line.
    static const std::vector<int>& GetOffsets();
    /// The characters of a cell.
    static std::string_view CutCell(std::string_view line, int offset);
    /// The kind of a cell; null when its code is not known.
    const CCellKind* FindKind(std::string_view cell) const;
    /// The characters of an item in a cell.
    static std::string_view CutItem(std::string_view cell, const CItemDef& item);

private:
    const CCellKind* FindMutationKind(const std::string& code) const;
    bool IsListed(std::size_t kind, const std::string& code) const;

    std::vector<CCellKind> m_Kinds;
    const CStringArray& m_Repairs;
    const CStringArray& m_Mutations;
    const CUIntArray& m_MutationKinds;
};

} // namespace tabvex::tool
