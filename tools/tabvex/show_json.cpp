// The show command's JSON.
#include <algorithm>

#include "entry_walk.h"
#include "item_text.h"
#include "json_text.h"
#include "show_source.h"
#include "text_layout.h"

namespace tabvex::tool {

namespace {

using nlohmann::ordered_json;

ordered_json LineNumber(int number) {
    return number > 0 ? ordered_json(number) : ordered_json(nullptr);
}

class CJsonView {
public:
    CJsonView(CShowSource& source, COutput& out) : m_Source(source), m_Out(out) {}

    void Show() {
        const CShowOptions& options = m_Source.GetOptions();
        m_Out.Write("{\"file\":" + ToJson(options.File) + ",\"table\":" + ToJson(options.Table) +
                    ",\"code_page\":" + std::to_string(options.CodePage) + ",\n\"records\":[");
        CJsonList records(m_Out);
        for (const int index : m_Source.GetShown()) {
            if (IsShown(index)) {
                records.Begin();
                ShowRecord(index);
            }
        }
        ShowForeignLines(records);
        m_Out.WriteLine("\n],\n\"findings\":" + ToJson(FindingsToJson(m_Source.GetFindings())) + "}");
    }

private:
    bool IsEntriesOnly() const { return m_Source.GetOptions().EntriesOnly; }

    std::string Text(std::string_view text) const { return ToJson(m_Source.GetDecoder().ToUtf8(TrimRight(text))); }

    bool IsShown(int index) {
        const CRecord& record = *m_Source.GetRecords().GetRecord(index);
        return !IsEntriesOnly() || (!record.IsGeneric() && (m_Source.GetCells(record.GetType()) != nullptr ||
                                                            !m_Source.GetShape(record.GetType()).Groups.empty()));
    }

    void ShowForeignLines(CJsonList& records) {
        if (IsEntriesOnly()) {
            return;
        }
        for (const int number : m_Source.GetForeignLines()) {
            records.Add(R"({"type":"UNKNOWN","lines":[)" + std::to_string(number) + R"(],"raw":[)" +
                        RawLine(number, m_Source.GetFileLine(number)) + "]}");
        }
    }

    void ShowRecord(int index) {
        const CRecord& record = *m_Source.GetRecords().GetRecord(index);
        m_Out.Write("{\"type\":" + ToJson(record.GetType()) + ",\"lines\":" + LineList(index));
        int reached = 0;
        if (!record.IsGeneric()) {
            reached = ShowContents(index, record);
        }
        if (!IsEntriesOnly()) {
            ShowRawLines(index, reached, record.GetLineCount());
        }
        m_Out.Write("}");
    }

    std::string LineList(int index) const {
        std::string list;
        for (const int number : m_Source.GetLineNumbers().GetAll(index)) {
            list.append(list.empty() ? "[" : ",").append(std::to_string(number));
        }
        return list.empty() ? "[]" : list.append("]");
    }

    // The number of lines that were taken apart.
    int ShowContents(int index, const CRecord& record) {
        const CRecordShape& shape = m_Source.GetShape(record.GetType());
        const CCellLayout* cells = m_Source.GetCells(record.GetType());
        if (!IsEntriesOnly()) {
            ShowHeaderItems(record, shape);
        }
        int reached = shape.Groups.empty() && !record.GetLayout().empty() ? 1 : 0;
        if (cells != nullptr) {
            ShowCells(index, record, *cells);
            reached = record.GetLineCount();
        }
        if (!shape.Groups.empty()) {
            m_Out.Write(",\"groups\":[");
            for (const CEntryGroup& group : shape.Groups) {
                m_Out.Write(&group == &shape.Groups.front() ? "" : ",");
                reached = std::max(reached, ShowGroup(index, record, group));
            }
            m_Out.Write("]");
        }
        return reached;
    }

    void ShowHeaderItems(const CRecord& record, const CRecordShape& shape) {
        m_Out.Write(",\"items\":[");
        CJsonList items(m_Out);
        for (const CItemDef& item : record.GetLayout()) {
            if (shape.FindGroup(item.Number) == nullptr && CCellLayout::KindOfItem(record.GetType(), item.Number) < 0) {
                items.Add("{\"number\":" + std::to_string(item.Number) +
                          ",\"value\":" + Text(CutItem(FirstLineOf(record), item)) +
                          ",\"description\":" + ToJson(m_Source.GetDescription(item.Number)) + "}");
            }
        }
        m_Out.Write("]");
    }

    int ShowGroup(int index, const CRecord& record, const CEntryGroup& group) {
        ordered_json columns = ordered_json::array();
        for (const int item : group.Items) {
            columns.push_back({{"number", item}, {"description", m_Source.GetDescription(item)}});
        }
        m_Out.Write("{\"key\":" + std::to_string(group.KeyItem) + ",\"columns\":" + ToJson(columns) + ",\"entries\":[");
        CJsonList entries(m_Out);
        const int reached = WalkEntries(m_Source.GetRecords(), record, group, [&](const CEntry& entry) {
            std::string items;
            for (std::size_t i = 0; i < group.Items.size(); ++i) {
                AppendMember(items, group.Items[i], entry.Values[i]);
            }
            entries.Add(Place(index, entry.Line, entry.Offset) + ",\"items\":{" + items + "}}");
        });
        m_Out.Write("]}");
        return reached;
    }

    void AppendMember(std::string& members, int item, std::string_view value) const {
        members.append(members.empty() ? "\"" : ",\"").append(std::to_string(item)).append("\":").append(Text(value));
    }

    // Begins an object.
    std::string Place(int index, int line, int offset) const {
        return "{\"line\":" + ToJson(LineNumber(m_Source.GetLineNumbers().Get(index, line))) +
               ",\"offset\":" + std::to_string(offset);
    }

    void ShowCells(int index, const CRecord& record, const CCellLayout& cells) {
        m_Out.Write(",\"cells\":[");
        CJsonList list(m_Out);
        for (int line = 0; line < record.GetLineCount(); ++line) {
            for (const int offset : CCellLayout::GetOffsets()) {
                const std::string_view cell = CCellLayout::CutCell(record.GetLine(line), offset);
                if (!TrimRight(cell).empty()) {
                    list.Add(Place(index, line, offset) + CellContents(cell, cells.FindKind(cell)));
                }
            }
        }
        m_Out.Write("]");
    }

    std::string CellContents(std::string_view cell, const CCellKind* kind) const {
        if (kind == nullptr) {
            return R"(,"kind":"unknown","text":)" + Text(cell) + "}";
        }
        std::string items;
        for (const CItemDef* item : kind->Items) {
            AppendMember(items, item->Number, CCellLayout::CutItem(cell, *item));
        }
        return R"(,"kind":")" + std::string(kind->Name) + R"(","items":{)" + items + "}}";
    }

    std::string RawLine(int number, std::string_view line) const {
        return "{\"line\":" + ToJson(LineNumber(number)) + ",\"text\":" + Text(line) + "}";
    }

    void ShowRawLines(int index, int from, int count) {
        m_Out.Write(",\"raw\":[");
        CJsonList lines(m_Out);
        for (int line = from; line < count; ++line) {
            lines.Add(RawLine(m_Source.GetLineNumbers().Get(index, line), m_Source.GetRawLine(index, line)));
        }
        m_Out.Write("]");
    }

    CShowSource& m_Source;
    COutput& m_Out;
};

} // namespace

void ShowAsJson(CShowSource& source, COutput& out) {
    CJsonView(source, out).Show();
}

} // namespace tabvex::tool
