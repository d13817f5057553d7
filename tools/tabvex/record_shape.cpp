#include "record_shape.h"

#include <algorithm>
#include <utility>

#include "cell_records.h"
#include "exit_status.h"
#include "item_text.h"
#include "table_text.h"
#include "tool_system.h"

namespace tabvex::tool {

namespace {

constexpr std::size_t kCompleteLine = 128;
constexpr char kFirstLineFill = 'A';
constexpr char kSecondLineFill = 'B';

std::string LoadFailure(int result) {
    switch (result) {
    case TABVEX_TABLE_NO_READER:
        return "the table-line reader, which belongs beside the library, cannot be loaded";
    case TABVEX_TABLE_NO_HEADER:
        return "no [HEADER] section";
    case TABVEX_TABLE_WRONG_VERSION:
        return "the library reads another version than the file's";
    default:
        return "cannot be read as a table file";
    }
}

} // namespace

const CEntryGroup* CRecordShape::FindGroup(int item) const {
    const auto group = std::find_if(Groups.begin(), Groups.end(), [item](const CEntryGroup& g) {
        return std::find(g.Items.begin(), g.Items.end(), item) != g.Items.end();
    });
    return group == Groups.end() ? nullptr : &*group;
}

void LoadTable(CAllRecords& records, const std::string& fileName, const CTableText& table) {
    const int result =
        records.LoadTable(SystemFileName(fileName).c_str(), table.GetVersionMajor(), table.GetVersionMinor());
    if (result != TABVEX_OK) {
        throw CToolError(fileName + ": " + LoadFailure(result));
    }
}

CShapeFinder::CShapeFinder(const std::string& tableName, const CTableText& table) {
    m_Records.SetCharacterSet("ANSI");
    LoadTable(m_Records, tableName, table);
}

CRecordShape CShapeFinder::Find(const std::string& type) {
    CRecordShape shape;
    const CRecord* record = MakeRecord(type);
    shape.IsList = record == nullptr || IsList(*record);
    if (record == nullptr) {
        return shape;
    }
    shape.LineLength = record->GetLineLength();
    if (shape.IsList || CCellLayout::IsCellType(type)) {
        return shape;
    }
    for (const CItemDef& item : record->GetLayout()) {
        if (m_Records.ReadFirst(item.Number) != TABVEX_OK) {
            continue;
        }
        CEntryGroup group = MakeGroup(*record, item.Number);
        if (!group.Items.empty()) {
            shape.Groups.push_back(std::move(group));
        }
    }
    return shape;
}

// Null for a type that the library has no class for.
CRecord* CShapeFinder::MakeRecord(const std::string& type) {
    m_Records.DestroyAllRecords();
    std::string line(kCompleteLine, kFirstLineFill);
    static_cast<void>(m_Records.SetCompleteRecord(type.c_str(), line.data(), static_cast<int>(line.size()) + 1));
    CRecord* record = m_Records.ExistRecord(type.c_str());
    if (record == nullptr || record->IsGeneric()) {
        return nullptr;
    }
    // Longer lines get their filling behind the complete line item by item.
    for (const CItemDef& item : record->GetLayout()) {
        if (item.Length > 0 && item.Length <= record->GetLineLength()) {
            const std::string text(static_cast<std::size_t>(item.Length), kFirstLineFill);
            static_cast<void>(m_Records.HardWriteItem(item.Number, text.c_str()));
        }
    }
    line.assign(kCompleteLine, kSecondLineFill);
    static_cast<void>(m_Records.SetCompleteRecord(type.c_str(), line.data(), static_cast<int>(line.size()) + 1));
    return record;
}

bool CShapeFinder::IsList(const CRecord& record) {
    const std::vector<CItemDef>& layout = record.GetLayout();
    return std::any_of(layout.begin(), layout.end(), [this](const CItemDef& item) {
        return m_Records.FindFirst(item.Number, "") == TABVEX_FIND_LIST_TYPE;
    });
}

// Header items stay what they are on the first line, wherever the cursor goes.
CEntryGroup CShapeFinder::MakeGroup(const CRecord& record, int keyItem) {
    const std::vector<CItemDef>& layout = record.GetLayout();
    const std::vector<std::string> first = ReadAllItems(record);
    std::vector<bool> changed(layout.size(), false);
    for (int step = 0; step < 2 * record.GetLineLength(); ++step) {
        if (m_Records.ReadNext(keyItem) != TABVEX_OK || record.GetCurrentLine() >= record.GetLineCount()) {
            break;
        }
        const std::vector<std::string> now = ReadAllItems(record);
        for (std::size_t i = 0; i < layout.size(); ++i) {
            changed[i] = changed[i] || now[i] != first[i];
        }
    }
    CEntryGroup group;
    group.KeyItem = keyItem;
    for (std::size_t i = 0; i < layout.size(); ++i) {
        if (changed[i]) {
            group.Items.push_back(layout[i].Number);
        }
    }
    return group;
}

std::vector<std::string> CShapeFinder::ReadAllItems(const CRecord& record) {
    std::vector<std::string> texts;
    for (const CItemDef& item : record.GetLayout()) {
        texts.emplace_back(ReadItemText(m_Records, item.Number));
    }
    return texts;
}

} // namespace tabvex::tool
