#include "record_check.h"

#include <algorithm>
#include <tuple>

#include "entry_walk.h"
#include "field_rules.h"
#include "text_layout.h"

namespace tabvex::tool {

namespace {

constexpr std::size_t kTypeEnd = 9; // sub-types stand at characters 8 and 9
constexpr std::size_t kCodeLength = 3;

class CRecordChecker {
public:
    explicit CRecordChecker(CShowSource& source) : m_Source(source) {}

    CRecordFindings Check() {
        for (const CFinding& finding : m_Source.GetFindings()) {
            m_Result.Findings.push_back({finding.Line, 0, 0, kFileRule, "", finding.Text});
        }
        for (const int index : m_Source.GetShown()) {
            CheckRecord(index);
        }
        for (const int number : m_Source.GetForeignLines()) {
            AddUnknown(number, m_Source.GetFileLine(number));
        }
        std::stable_sort(m_Result.Findings.begin(), m_Result.Findings.end(), [](const auto& a, const auto& b) {
            return std::tie(a.Line, a.Column, a.Item) < std::tie(b.Line, b.Column, b.Item);
        });
        return std::move(m_Result);
    }

private:
    void AddUnknown(int number, std::string_view line) {
        m_Result.Findings.push_back({number, 1, 0, kUnknownTypeRule, std::string(TrimRight(line.substr(0, kTypeEnd))),
                                     "a record type that the library takes apart"});
    }

    int LineNumber(int index, int line) const { return m_Source.GetLineNumbers().Get(index, line); }

    void CheckRecord(int index) {
        const CRecord& record = *m_Source.GetRecords().GetRecord(index);
        const std::string type = record.GetType();
        if (record.IsGeneric()) {
            AddUnknown(LineNumber(index, 0), m_Source.GetRawLine(index, 0));
            return;
        }
        const CTableSection* section = m_Source.GetTable().FindSection(type);
        if (section == nullptr) {
            m_Result.Findings.push_back(
                {LineNumber(index, 0), 1, 0, kNoLayoutRule, type, "a section in the table file"});
            return;
        }
        AddUnusable(LineNumber(index, 0), *section);
        const CRecordShape& shape = m_Source.GetShape(type);
        CheckHeader(index, *section, shape);
        for (const CEntryGroup& group : shape.Groups) {
            CheckGroup(index, *section, group);
        }
        if (const CCellLayout* cells = m_Source.GetCells(type)) {
            CheckCells(index, *section, *cells);
        }
    }

    static bool IsUsable(const CTableItem& item) {
        return item.IsComplete() && item.BadComponent == 0 && item.Definition.Position > 0 &&
               item.Definition.Length > 0;
    }

    // What cannot be judged is told, lest it be taken for fine.
    void AddUnusable(int number, const CTableSection& section) {
        for (const CTableItem& item : section.Items) {
            if (!IsUsable(item)) {
                m_Result.Findings.push_back({number, 1, item.Definition.Number, kNoLayoutRule, section.Type,
                                             "a line in the table file that can be read, see 'tabvex table'"});
            }
        }
    }

    void CheckHeader(int index, const CTableSection& section, const CRecordShape& shape) {
        for (const CTableItem& item : section.Items) {
            const int number = item.Definition.Number;
            if (IsUsable(item) && shape.FindGroup(number) == nullptr &&
                CCellLayout::KindOfItem(section.Type, number) < 0) {
                CheckField(index, 0, item.Definition.Position - 1, item.Definition);
            }
        }
    }

    // Items of entries are described at their place in the first entry.
    void CheckGroup(int index, const CTableSection& section, const CEntryGroup& group) {
        CAllRecordsEx& records = m_Source.GetRecords();
        const CRecord& record = *records.GetRecord(index);
        std::vector<const CItemDef*> items;
        for (const CTableItem& item : section.Items) {
            if (IsUsable(item) && std::count(group.Items.begin(), group.Items.end(), item.Definition.Number) > 0) {
                items.push_back(&item.Definition);
            }
        }
        if (records.ReadFirst(group.KeyItem) != TABVEX_OK) {
            return;
        }
        const int first = record.GetCurrentOffset();
        WalkEntries(records, record, group, [&](const CEntry& entry) {
            for (const CItemDef* item : items) {
                CheckField(index, entry.Line, entry.Offset + item->Position - 1 - first, *item);
            }
        });
    }

    // What a cell begins with when it is a repair position.
    static int CodeItemOf(const CTableSection& section) {
        const auto item = std::find_if(section.Items.begin(), section.Items.end(), [&section](const CTableItem& i) {
            return CCellLayout::KindOfItem(section.Type, i.Definition.Number) == 0;
        });
        return item == section.Items.end() ? 0 : item->Definition.Number;
    }

    void CheckCells(int index, const CTableSection& section, const CCellLayout& cells) {
        const int codeItem = CodeItemOf(section);
        const CRecord& record = *m_Source.GetRecords().GetRecord(index);
        for (int line = 0; line < record.GetLineCount(); ++line) {
            for (const int offset : CCellLayout::GetOffsets()) {
                CheckCell(index, line, offset, codeItem, cells);
            }
        }
    }

    void CheckCell(int index, int line, int offset, int codeItem, const CCellLayout& cells) {
        const std::string_view cell = CCellLayout::CutCell(m_Source.GetRawLine(index, line), offset);
        if (TrimRight(cell).empty()) {
            return;
        }
        const CCellKind* kind = cells.FindKind(cell);
        if (kind == nullptr) {
            m_Result.Findings.push_back({LineNumber(index, line), offset + 1, codeItem, kValueListRule,
                                         std::string(cell.substr(0, kCodeLength)),
                                         "the code of a repair position or of a mutation"});
            return;
        }
        for (const CItemDef* item : kind->Items) {
            CheckField(index, line, offset + item->Position - 1 - CCellLayout::GetOffsets().front(), *item);
        }
    }

    void CheckField(int index, int line, int offset, const CItemDef& item) {
        const std::string_view raw = m_Source.GetRawLine(index, line);
        if (offset < 0 || static_cast<std::size_t>(offset) >= raw.size()) {
            return;
        }
        ++m_Result.FieldCount;
        const std::string_view field =
            raw.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(item.Length));
        if (auto broken = JudgeField(item, field)) {
            m_Result.Findings.push_back({LineNumber(index, line), offset + 1, item.Number, broken->Rule,
                                         std::string(field), std::move(broken->Expected)});
        }
    }

    CShowSource& m_Source;
    CRecordFindings m_Result;
};

} // namespace

std::map<std::string, std::size_t> CRecordFindings::CountByRule() const {
    std::map<std::string, std::size_t> counts;
    for (const CRecordFinding& finding : Findings) {
        ++counts[finding.Rule];
    }
    return counts;
}

CRecordFindings CheckRecords(CShowSource& source) {
    return CRecordChecker(source).Check();
}

} // namespace tabvex::tool
