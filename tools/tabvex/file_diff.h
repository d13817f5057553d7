// What differs between two record files: by record type, entry and item.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "entry_walk.h"
#include "show_source.h"

namespace tabvex::tool {

enum class EChange { Changed, Added, Removed };

/// An item, an entry, a mutation or a line that is not the same. Texts are bytes of the files, without blanks at their
/// ends.
struct CDifference {
    EChange Change = EChange::Changed;
    std::string Type;     ///< of the record; "UNKNOWN"
    int Entry = 0;        ///< from 1, counted in the old file unless it was added; 0: not in an entry
    std::string Mutation; ///< code of the mutation in the entry; "" when the entry itself differs
    int LineA = 0;        ///< in the old file, from 1; 0: not there
    int LineB = 0;        ///< in the new file
    int Item = 0;         ///< 0: a whole entry, mutation or line
    std::string Old;      ///< of the item, or the line as it is
    std::string New;
    std::vector<std::pair<int, std::string>> Items; ///< of an entry or a mutation that was added or removed
};

/// Compares two files in one go over each. The order of the record types in a file, CR LF and blanks at the end of
/// lines do not count. Entries are matched by their place in the record, repair positions by their number and mutations
/// by their code; lines of unknown types, and those that no item reaches, as lines.
class CFileDiff {
public:
    using CVisitor = std::function<void(const CDifference&)>;

    /// Both files were read with the same table file.
    CFileDiff(CShowSource& a, CShowSource& b, CVisitor visit);

    /// Visits every difference.
    void Compare();

private:
    struct CSide;
    struct CCell;
    struct CCellEntry;
    struct CPair;
    using CLines = std::vector<std::pair<int, std::string_view>>; // number in the file, text

    void CompareRecords(const std::string& type, int a, int b);
    void CompareHeaders(CPair& pair);
    void CompareGroup(CPair& pair, const CEntryGroup& group);
    void CompareEntries(CPair& pair, const CEntryGroup& group, const CEntry& a, const CEntry& b, int number);
    void ReportEntry(CPair& pair, bool added, const CEntryGroup& group, const CEntry& entry, int number);
    void CompareAllCells(CPair& pair, const CCellLayout& cells);
    void CompareCellEntries(CPair& pair, const CCellLayout& layout, const CCellEntry& a, const CCellEntry& b,
                            int number);
    void CompareCells(CPair& pair, const CCellLayout& layout, const CCell& a, const CCell& b, const CDifference& where);
    void ReportCell(CPair& pair, bool added, const CCellLayout& layout, const CCell& cell, const CDifference& where);
    void ReportCellEntry(CPair& pair, bool added, const CCellLayout& layout, const CCellEntry& entry, int number);
    void CompareUntouchedLines(CPair& pair);
    void CompareLines(const std::string& type, const CLines& a, const CLines& b);
    void ReportLine(const std::string& type, EChange change, int number, std::string_view text);
    void ReportItem(CDifference difference, int item, std::string_view before, std::string_view after);

    static CLines LinesOf(const CShowSource& source, int index, int from);
    static CLines UnknownLines(CShowSource& source);
    static std::vector<CEntry> EntriesOf(CShowSource& source, int index, const CEntryGroup& group);
    static std::vector<CCellEntry> CellEntriesOf(CShowSource& source, int index);

    CShowSource& m_A;
    CShowSource& m_B;
    CVisitor m_Visit;
    std::size_t m_nReported = 0;
};

} // namespace tabvex::tool
