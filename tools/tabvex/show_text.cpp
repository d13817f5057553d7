// The show command's text for people.
#include <algorithm>

#include "entry_walk.h"
#include "item_text.h"
#include "output.h"
#include "show_source.h"
#include "text_layout.h"

namespace tabvex::tool {

namespace {

constexpr std::size_t kNumberWidth = 8;
constexpr std::size_t kWidestValueColumn = 40;
constexpr std::size_t kMostRanges = 8;
constexpr const char* kGap = "  ";
constexpr const char* kBlankItem = "(blank)";
constexpr const char* kBlankField = "-";

// "8-12, 40"; a long list breaks off.
std::string LineRanges(const std::vector<int>& lines) {
    std::string text;
    std::size_t ranges = 0;
    for (std::size_t i = 0; i < lines.size(); ++ranges) {
        if (ranges == kMostRanges) {
            return text + ", ...";
        }
        std::size_t last = i;
        while (last + 1 < lines.size() && lines[last + 1] == lines[last] + 1) {
            ++last;
        }
        text.append(text.empty() ? "" : ", ").append(std::to_string(lines[i]));
        text.append(last > i ? "-" + std::to_string(lines[last]) : "");
        i = last + 1;
    }
    return text;
}

std::string LineNumber(int number) {
    return PadLeft(number > 0 ? std::to_string(number) : "?", kNumberWidth);
}

class CTextView {
public:
    CTextView(CShowSource& source, COutput& out) : m_Source(source), m_Out(out) {}

    void Show() {
        for (const int index : m_Source.GetShown()) {
            ShowRecord(index);
        }
        for (const int number : m_Source.GetForeignLines()) {
            ShowUnknownLine(number, m_Source.GetFileLine(number));
        }
    }

private:
    bool IsEntriesOnly() const { return m_Source.GetOptions().EntriesOnly; }
    std::string Shown(std::string_view text) const { return m_Source.GetDecoder().ToShown(TrimRight(text)); }

    std::string Describe(int item) const { return EscapeControls(m_Source.GetDescription(item)); }

    void ShowRecord(int index) {
        CRecord& record = *m_Source.GetRecords().GetRecord(index);
        if (record.IsGeneric()) {
            ShowUnknownLine(m_Source.GetLineNumbers().Get(index, 0), m_Source.GetRawLine(index, 0));
            return;
        }
        const std::string type = record.GetType();
        const CCellLayout* cells = m_Source.GetCells(type);
        const CRecordShape& shape = m_Source.GetShape(type);
        const bool hasEntries = cells != nullptr || !shape.Groups.empty();
        if (IsEntriesOnly() && !hasEntries) {
            return;
        }
        ShowHeading(index, type, record.GetLineCount());
        ShowHeaderItems(record, shape);
        int reached = cells == nullptr ? 0 : record.GetLineCount();
        if (cells != nullptr) {
            ShowCells(index, *cells);
        }
        for (const CEntryGroup& group : shape.Groups) {
            reached = std::max(reached, ShowGroup(index, group));
        }
        // The items of a list stand on the first line.
        const bool firstShown = shape.Groups.empty() && !record.GetLayout().empty();
        ShowRawLines(index, std::max(reached, firstShown ? 1 : 0), record);
    }

    void BeginParagraph() {
        if (m_bBegun) {
            m_Out.WriteLine("");
        }
        m_bBegun = true;
        m_bInUnknown = false;
    }

    // Lines of unknown types that follow one another share a heading.
    void ShowUnknownLine(int number, std::string_view line) {
        if (IsEntriesOnly()) {
            return;
        }
        if (!m_bInUnknown) {
            BeginParagraph();
            m_Out.WriteLine("Unknown record types");
            m_bInUnknown = true;
        }
        m_Out.WriteLine(LineNumber(number) + kGap + Shown(line));
    }

    void ShowHeading(int index, const std::string& type, int lines) {
        BeginParagraph();
        const std::string ranges = LineRanges(m_Source.GetLineNumbers().GetAll(index));
        m_Out.WriteLine(type + kGap + Counted(static_cast<std::size_t>(lines), "line") + ": " + ranges);
    }

    static bool IsHeaderItem(const CRecord& record, const CRecordShape& shape, int item) {
        return shape.FindGroup(item) == nullptr && CCellLayout::KindOfItem(record.GetType(), item) < 0;
    }

    void ShowHeaderItems(const CRecord& record, const CRecordShape& shape) {
        if (IsEntriesOnly()) {
            return;
        }
        std::vector<std::pair<int, std::string>> items;
        std::size_t width = 0;
        for (const CItemDef& item : record.GetLayout()) {
            if (IsHeaderItem(record, shape, item.Number)) {
                const std::string value = Shown(CutItem(FirstLineOf(record), item));
                items.emplace_back(item.Number, value.empty() ? kBlankItem : value);
                width = std::max(width, CountCharacters(items.back().second));
            }
        }
        for (const auto& [number, value] : items) {
            ShowItem(number, value, std::min(width, kWidestValueColumn));
        }
    }

    void ShowItem(int number, const std::string& value, std::size_t width) {
        std::string text = PadLeft(std::to_string(number), kNumberWidth) + kGap;
        const std::string description = Describe(number);
        if (description.empty()) {
            m_Out.WriteLine(text.append(value));
            return;
        }
        if (CountCharacters(value) > width) {
            m_Out.WriteLine(text.append(value));
            text.assign(kNumberWidth + 2, ' ');
            m_Out.WriteLine(Hang(text + std::string(width, ' ') + kGap, description));
            return;
        }
        m_Out.WriteLine(Hang(text.append(PadRight(value, width)).append(kGap), description));
    }

    // Twice through the entries: once for the widths of the columns.
    int ShowGroup(int index, const CEntryGroup& group) {
        const CRecord& record = *m_Source.GetRecords().GetRecord(index);
        std::vector<std::size_t> widths;
        for (const int item : group.Items) {
            widths.push_back(std::to_string(item).size());
        }
        std::size_t count = 0;
        WalkEntries(m_Source.GetRecords(), record, group, [&](const CEntry& entry) {
            ++count;
            for (std::size_t i = 0; i < widths.size(); ++i) {
                widths[i] = std::max(widths[i], CountCharacters(Shown(entry.Values[i])));
            }
        });
        ShowGroupHeading(group, widths, count);
        return WalkEntries(m_Source.GetRecords(), record, group,
                           [&](const CEntry& entry) { ShowEntry(index, entry, widths); });
    }

    void ShowGroupHeading(const CEntryGroup& group, const std::vector<std::size_t>& widths, std::size_t count) {
        std::string legend;
        std::string columns = PadLeft("line", kNumberWidth);
        for (std::size_t i = 0; i < group.Items.size(); ++i) {
            const std::string number = std::to_string(group.Items[i]);
            const std::string description = Describe(group.Items[i]);
            legend.append(i == 0 ? "" : "; ").append(number).append(description.empty() ? "" : " " + description);
            columns.append(kGap).append(PadRight(number, widths[i]));
        }
        m_Out.WriteLine(Hang(kGap + Counted(count, "entry") + ": ", legend));
        if (count > 0) {
            m_Out.WriteLine(TrimRight(columns));
        }
    }

    void ShowEntry(int index, const CEntry& entry, const std::vector<std::size_t>& widths) {
        std::string row = LineNumber(m_Source.GetLineNumbers().Get(index, entry.Line));
        for (std::size_t i = 0; i < widths.size(); ++i) {
            const std::string value = Shown(entry.Values[i]);
            row.append(kGap).append(PadRight(value.empty() ? kBlankField : value, widths[i]));
        }
        m_Out.WriteLine(TrimRight(row));
    }

    void ShowCells(int index, const CCellLayout& cells) {
        const CRecord& record = *m_Source.GetRecords().GetRecord(index);
        m_Out.WriteLine("  cells:");
        for (int line = 0; line < record.GetLineCount(); ++line) {
            for (const int offset : CCellLayout::GetOffsets()) {
                ShowCell(m_Source.GetLineNumbers().Get(index, line), CCellLayout::CutCell(record.GetLine(line), offset),
                         cells);
            }
        }
    }

    void ShowCell(int number, std::string_view cell, const CCellLayout& cells) {
        if (TrimRight(cell).empty()) {
            return;
        }
        const CCellKind* kind = cells.FindKind(cell);
        std::string row = LineNumber(number) + kGap + PadRight(kind == nullptr ? "unknown" : kind->Name, kNumberWidth);
        if (kind == nullptr) {
            m_Out.WriteLine(row.append(kGap).append(Shown(cell)));
            return;
        }
        for (const CItemDef* item : kind->Items) {
            const std::string value = Shown(CCellLayout::CutItem(cell, *item));
            const auto width = static_cast<std::size_t>(std::max(item->Length, 0));
            row.append(kGap).append(std::to_string(item->Number)).append(" ");
            row.append(PadRight(value.empty() ? kBlankField : value, std::min(width, kWidestValueColumn)));
        }
        m_Out.WriteLine(TrimRight(row));
    }

    // Lines that neither items nor stepping reach.
    void ShowRawLines(int index, int from, const CRecord& record) {
        if (IsEntriesOnly() || from >= record.GetLineCount()) {
            return;
        }
        m_Out.WriteLine(record.GetLayout().empty() ? "  no layout in the table file; the lines as they are:"
                                                   : "  further lines, as they are:");
        for (int line = from; line < record.GetLineCount(); ++line) {
            m_Out.WriteLine(LineNumber(m_Source.GetLineNumbers().Get(index, line)) + kGap +
                            Shown(m_Source.GetRawLine(index, line)));
        }
    }

    CShowSource& m_Source;
    COutput& m_Out;
    bool m_bBegun = false;
    bool m_bInUnknown = false;
};

} // namespace

void ShowAsText(CShowSource& source, COutput& out) {
    CTextView(source, out).Show();
}

} // namespace tabvex::tool
