#include "show_source.h"

#include <utility>

#include "exit_status.h"
#include "tool_system.h"

namespace tabvex::tool {

namespace {

constexpr const char* kUnknownType = "UNKNOWN";

} // namespace

CShowSource::CShowSource(CShowOptions options)
    : m_Options(std::move(options)), m_Decoder(m_Options.CodePage), m_Table(m_Options.Table),
      m_ShapeFinder(m_Options.Table, m_Table), m_File(m_Options.File, m_Options.Form) {
    ReadRecords();
    m_pNumbers = std::make_unique<CLineNumbers>(m_File, m_Records);
    SelectRecords();
    DescribeItems();
}

// Texts are taken as the file has them; the decoder converts them as the library does.
void CShowSource::ReadRecords() {
    m_Records.SetCharacterSet("ANSI");
    LoadTable(m_Records, m_Options.Table, m_Table);
    m_Findings = m_File.Check();
    if (!m_File.IsFixed()) {
        if (m_Records.ReadAll_V_Records(SystemFileName(m_Options.File).c_str()) != TABVEX_READ_SUCCEEDED) {
            throw CToolError(m_Options.File + ": the library cannot read it");
        }
        return;
    }
    const int result = m_Records.ReadAllRecordsEx(SystemFileName(m_Options.File).c_str());
    if (result == TABVEX_READ_CANNOT_OPEN) {
        throw CToolError(m_Options.File + ": the library cannot read it");
    }
    if (result != TABVEX_OK && m_Findings.empty()) {
        m_Findings.push_back({0, "the library could not read all of it (result " + std::to_string(result) + ")"});
    }
}

void CShowSource::SelectRecords() {
    for (int i = 0; i < m_Records.GetRecordCount(); ++i) {
        if (m_Options.Type.empty() || m_Options.Type == m_Records.GetRecord(i)->GetType()) {
            m_Shown.push_back(i);
        }
    }
    if (!m_Options.Type.empty() && m_Shown.empty() && GetForeignLines().empty()) {
        m_Findings.push_back({0, "no record of type " + m_Options.Type});
    }
}

void CShowSource::DescribeItems() {
    for (const CTableSection& section : m_Table.GetSections()) {
        for (const CTableItem& item : section.Items) {
            const std::string& text = item.Description;
            m_Descriptions.emplace(item.Definition.Number, IsUtf8(text) ? text : m_Decoder.ToUtf8(text));
        }
    }
}

std::vector<int> CShowSource::GetForeignLines() const {
    return m_Options.Type.empty() || m_Options.Type == kUnknownType ? m_pNumbers->GetForeign() : std::vector<int>();
}

const CRecordShape& CShowSource::GetShape(const std::string& type) {
    const auto known = m_Shapes.find(type);
    return known != m_Shapes.end() ? known->second : m_Shapes.emplace(type, m_ShapeFinder.Find(type)).first->second;
}

const CCellLayout* CShowSource::GetCells(const std::string& type) {
    const CTableSection* section = m_Table.FindSection(type);
    if (section == nullptr || !CCellLayout::IsCellType(type)) {
        return nullptr;
    }
    return &m_Cells.try_emplace(type, *section, m_Records).first->second;
}

const std::string& CShowSource::GetDescription(int item) const {
    static const std::string none;
    const auto description = m_Descriptions.find(item);
    return description == m_Descriptions.end() ? none : description->second;
}

std::string_view CShowSource::GetRawLine(int index, int line) const {
    const int number = m_pNumbers->Get(index, line);
    return number > 0 ? m_File.GetLine(number) : std::string_view(m_Records.GetRecord(index)->GetLine(line));
}

std::string_view FirstLineOf(const CRecord& record) {
    return record.GetLine(0);
}

} // namespace tabvex::tool
