// What the show command shows: a record file read by the library, with everything needed to explain it.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "cell_records.h"
#include "finding.h"
#include "record_file.h"
#include "record_shape.h"
#include "table_text.h"
#include "tabvex/all_records.h"
#include "text_encoding.h"

namespace tabvex::tool {

class COutput;

struct CShowOptions {
    std::string File;
    std::string Table;
    std::string Type; ///< the only type to show; "" for all
    bool Json = false;
    bool EntriesOnly = false;
    int CodePage = 850;
    EFileForm Form = EFileForm::Auto;
};

class CShowSource {
public:
    /// Reads both files; throws CToolError when one of them cannot be read.
    explicit CShowSource(CShowOptions options);

    const CShowOptions& GetOptions() const { return m_Options; }
    const CTextDecoder& GetDecoder() const { return m_Decoder; }
    const CTableText& GetTable() const { return m_Table; }
    const CRecordFile& GetFile() const { return m_File; }
    const CLineNumbers& GetLineNumbers() const { return *m_pNumbers; }
    CAllRecordsEx& GetRecords() { return m_Records; }
    const CFindings& GetFindings() const { return m_Findings; }

    /// Indexes of the record objects to show, in the store's order.
    const std::vector<int>& GetShown() const { return m_Shown; }
    /// Lines of unknown types that the library does not keep, when these are to be shown.
    std::vector<int> GetForeignLines() const;
    const CRecordShape& GetShape(const std::string& type);
    /// The cells of the record's type; null for a type without, or without a section in the table.
    const CCellLayout* GetCells(const std::string& type);
    /// What the table file says about an item, as UTF-8; "" when nothing.
    const std::string& GetDescription(int item) const;
    /// Line `line` (0-based) of a record object, as the file has it.
    std::string_view GetRawLine(int index, int line) const;
    std::string_view GetFileLine(int number) const { return m_File.GetLine(number); }

private:
    void ReadRecords();
    void SelectRecords();
    void DescribeItems();

    CShowOptions m_Options;
    CTextDecoder m_Decoder;
    CTableText m_Table;
    CShapeFinder m_ShapeFinder;
    CRecordFile m_File;
    CAllRecordsEx m_Records;
    CFindings m_Findings;
    std::unique_ptr<CLineNumbers> m_pNumbers;
    std::vector<int> m_Shown;
    std::map<std::string, CRecordShape> m_Shapes;
    std::map<std::string, CCellLayout> m_Cells;
    std::unordered_map<int, std::string> m_Descriptions;
};

/// The first line of a record object, which its header items stand in, as the library holds it.
std::string_view FirstLineOf(const CRecord& record);

void ShowAsText(CShowSource& source, COutput& out);
void ShowAsJson(CShowSource& source, COutput& out);

} // namespace tabvex::tool
