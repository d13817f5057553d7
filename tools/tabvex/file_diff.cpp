#include "file_diff.h"

#include <algorithm>
#include <utility>

#include "item_text.h"
#include "text_layout.h"

namespace tabvex::tool {

namespace {

constexpr const char* kUnknownType = "UNKNOWN";
constexpr std::string_view kPosition = "position"; // name of the kind of cell
constexpr std::size_t kCodeLength = 3;

std::pair<int, int> PlaceOf(const CEntry& entry) {
    return {entry.Line, entry.Offset};
}

std::unordered_map<std::string, int> KnownTypes(CShowSource& source) {
    std::unordered_map<std::string, int> types;
    for (const int index : source.GetShown()) {
        const CRecord& record = *source.GetRecords().GetRecord(index);
        if (!record.IsGeneric()) {
            types.emplace(record.GetType(), index);
        }
    }
    return types;
}

} // namespace

/// One of the two record objects that are compared.
struct CFileDiff::CSide {
    CShowSource& Source;
    int Index;
    const CRecord& Record;
    std::vector<bool> Touched; ///< by line: a difference in it was reported

    CSide(CShowSource& source, int index)
        : Source(source), Index(index), Record(*source.GetRecords().GetRecord(index)),
          Touched(static_cast<std::size_t>(Record.GetLineCount()), false) {}

    int NumberOf(int line) const { return Source.GetLineNumbers().Get(Index, line); }
    std::string_view LineAt(int line) const { return TrimRight(Source.GetRawLine(Index, line)); }
    void Touch(int line) {
        if (line >= 0 && line < Record.GetLineCount()) {
            Touched[static_cast<std::size_t>(line)] = true;
        }
    }
    bool IsTouched(int line) const { return Touched[static_cast<std::size_t>(line)]; }
};

struct CFileDiff::CPair {
    std::string Type;
    CSide A;
    CSide B;

    CSide& Of(bool b) { return b ? B : A; }
    CDifference At(int lineA, int lineB) const {
        CDifference difference;
        difference.Type = Type;
        difference.LineA = lineA < 0 ? 0 : A.NumberOf(lineA);
        difference.LineB = lineB < 0 ? 0 : B.NumberOf(lineB);
        return difference;
    }
};

/// A cell of "X4" and "G9" records that is not blank.
struct CFileDiff::CCell {
    int Line;
    std::string_view Text;
    std::string Key; ///< code and how often it came before in the entry; for an unknown cell its text
};

/// A repair position and the cells behind it. The first one holds what stands before the first position.
struct CFileDiff::CCellEntry {
    std::vector<CCell> Position; ///< one cell, or none
    std::vector<CCell> Mutations;
};

CFileDiff::CFileDiff(CShowSource& a, CShowSource& b, CVisitor visit) : m_A(a), m_B(b), m_Visit(std::move(visit)) {}

void CFileDiff::Compare() {
    const std::unordered_map<std::string, int> typesA = KnownTypes(m_A);
    const std::unordered_map<std::string, int> typesB = KnownTypes(m_B);
    for (const int index : m_A.GetShown()) {
        const CRecord& record = *m_A.GetRecords().GetRecord(index);
        const auto same = typesB.find(record.GetType());
        if (!record.IsGeneric() && same != typesB.end()) {
            CompareRecords(record.GetType(), index, same->second);
        } else if (!record.IsGeneric()) {
            CompareLines(record.GetType(), LinesOf(m_A, index, 0), {});
        }
    }
    for (const int index : m_B.GetShown()) {
        const CRecord& record = *m_B.GetRecords().GetRecord(index);
        if (!record.IsGeneric() && typesA.find(record.GetType()) == typesA.end()) {
            CompareLines(record.GetType(), {}, LinesOf(m_B, index, 0));
        }
    }
    CompareLines(kUnknownType, UnknownLines(m_A), UnknownLines(m_B));
}

CFileDiff::CLines CFileDiff::LinesOf(const CShowSource& source, int index, int from) {
    CLines lines;
    const std::vector<int>& numbers = source.GetLineNumbers().GetAll(index);
    for (int line = from; line < static_cast<int>(numbers.size()); ++line) {
        lines.emplace_back(numbers[static_cast<std::size_t>(line)], TrimRight(source.GetRawLine(index, line)));
    }
    return lines;
}

CFileDiff::CLines CFileDiff::UnknownLines(CShowSource& source) {
    CLines lines;
    for (const int index : source.GetShown()) {
        if (source.GetRecords().GetRecord(index)->IsGeneric()) {
            const CLines own = LinesOf(source, index, 0);
            lines.insert(lines.end(), own.begin(), own.end());
        }
    }
    for (const int number : source.GetForeignLines()) {
        lines.emplace_back(number, TrimRight(source.GetFileLine(number)));
    }
    return lines;
}

void CFileDiff::CompareRecords(const std::string& type, int a, int b) {
    CPair pair{type, CSide(m_A, a), CSide(m_B, b)};
    const CRecordShape& shape = m_A.GetShape(type);
    const CCellLayout* cells = m_A.GetCells(type);
    CompareHeaders(pair);
    if (cells != nullptr) {
        CompareAllCells(pair, *cells);
        return;
    }
    for (const CEntryGroup& group : shape.Groups) {
        CompareGroup(pair, group);
    }
    if (!shape.Groups.empty()) {
        CompareUntouchedLines(pair);
        return;
    }
    // The items of a list stand on the first line.
    const bool firstCompared = pair.A.IsTouched(0) || pair.A.LineAt(0) == pair.B.LineAt(0);
    const int from = firstCompared ? 1 : 0;
    CompareLines(type, LinesOf(m_A, a, from), LinesOf(m_B, b, from));
}

void CFileDiff::CompareHeaders(CPair& pair) {
    const CRecordShape& shape = m_A.GetShape(pair.Type);
    for (const CItemDef& item : pair.A.Record.GetLayout()) {
        if (shape.FindGroup(item.Number) != nullptr || CCellLayout::KindOfItem(pair.Type, item.Number) >= 0) {
            continue;
        }
        const std::string_view before = TrimRight(CutItem(FirstLineOf(pair.A.Record), item));
        const std::string_view after = TrimRight(CutItem(FirstLineOf(pair.B.Record), item));
        if (before != after) {
            ReportItem(pair.At(0, 0), item.Number, before, after);
            pair.A.Touch(0);
            pair.B.Touch(0);
        }
    }
}

std::vector<CEntry> CFileDiff::EntriesOf(CShowSource& source, int index, const CEntryGroup& group) {
    std::vector<CEntry> entries;
    CAllRecordsEx& records = source.GetRecords();
    WalkEntries(records, *records.GetRecord(index), group, [&](const CEntry& entry) { entries.push_back(entry); });
    return entries;
}

// Entries stand in the order of their places in both.
void CFileDiff::CompareGroup(CPair& pair, const CEntryGroup& group) {
    const std::vector<CEntry> before = EntriesOf(m_A, pair.A.Index, group);
    const std::vector<CEntry> after = EntriesOf(m_B, pair.B.Index, group);
    auto a = before.begin();
    auto b = after.begin();
    while (a != before.end() || b != after.end()) {
        const auto numberA = static_cast<int>(a - before.begin()) + 1;
        const auto numberB = static_cast<int>(b - after.begin()) + 1;
        if (b == after.end() || (a != before.end() && PlaceOf(*a) < PlaceOf(*b))) {
            ReportEntry(pair, false, group, *a++, numberA);
        } else if (a == before.end() || PlaceOf(*b) < PlaceOf(*a)) {
            ReportEntry(pair, true, group, *b++, numberB);
        } else {
            CompareEntries(pair, group, *a++, *b++, numberA);
        }
    }
}

void CFileDiff::CompareEntries(CPair& pair, const CEntryGroup& group, const CEntry& a, const CEntry& b, int number) {
    for (std::size_t i = 0; i < group.Items.size(); ++i) {
        if (TrimRight(a.Values[i]) != TrimRight(b.Values[i])) {
            CDifference difference = pair.At(a.Line, b.Line);
            difference.Entry = number;
            ReportItem(std::move(difference), group.Items[i], a.Values[i], b.Values[i]);
            pair.A.Touch(a.Line);
            pair.B.Touch(b.Line);
        }
    }
}

void CFileDiff::ReportEntry(CPair& pair, bool added, const CEntryGroup& group, const CEntry& entry, int number) {
    CDifference difference = added ? pair.At(-1, entry.Line) : pair.At(entry.Line, -1);
    difference.Change = added ? EChange::Added : EChange::Removed;
    difference.Entry = number;
    for (std::size_t i = 0; i < group.Items.size(); ++i) {
        difference.Items.emplace_back(group.Items[i], TrimRight(entry.Values[i]));
    }
    // The line of the same number holds the place on the other side.
    pair.A.Touch(entry.Line);
    pair.B.Touch(entry.Line);
    ++m_nReported;
    m_Visit(difference);
}

std::vector<CFileDiff::CCellEntry> CFileDiff::CellEntriesOf(CShowSource& source, int index) {
    const CRecord& record = *source.GetRecords().GetRecord(index);
    const CCellLayout& layout = *source.GetCells(record.GetType());
    std::vector<CCellEntry> entries(1);
    std::unordered_map<std::string, int> counts;
    for (int line = 0; line < record.GetLineCount(); ++line) {
        for (const int offset : CCellLayout::GetOffsets()) {
            const std::string_view text = TrimRight(CCellLayout::CutCell(record.GetLine(line), offset));
            if (text.empty()) {
                continue;
            }
            const CCellKind* kind = layout.FindKind(text);
            if (kind != nullptr && kind->Name == kPosition) {
                entries.emplace_back().Position.push_back({line, text, {}});
                counts.clear();
                continue;
            }
            std::string key(kind == nullptr ? text : TrimRight(text.substr(0, kCodeLength)));
            const int before = counts[key]++;
            entries.back().Mutations.push_back({line, text, key.append(1, '\n').append(std::to_string(before))});
        }
    }
    return entries;
}

void CFileDiff::CompareAllCells(CPair& pair, const CCellLayout& cells) {
    const std::size_t reported = m_nReported;
    const std::vector<CCellEntry> before = CellEntriesOf(m_A, pair.A.Index);
    const std::vector<CCellEntry> after = CellEntriesOf(m_B, pair.B.Index);
    for (std::size_t i = 0; i < std::max(before.size(), after.size()); ++i) {
        const auto number = static_cast<int>(i);
        if (i >= before.size()) {
            ReportCellEntry(pair, true, cells, after[i], number);
        } else if (i >= after.size()) {
            ReportCellEntry(pair, false, cells, before[i], number);
        } else {
            CompareCellEntries(pair, cells, before[i], after[i], number);
        }
    }
    // Cells move along behind a change, so that their lines tell nothing then.
    if (m_nReported == reported) {
        CompareUntouchedLines(pair);
    }
}

void CFileDiff::CompareCellEntries(CPair& pair, const CCellLayout& layout, const CCellEntry& a, const CCellEntry& b,
                                   int number) {
    CDifference difference;
    difference.Entry = number;
    if (!a.Position.empty() && !b.Position.empty()) {
        CompareCells(pair, layout, a.Position.front(), b.Position.front(), difference);
    }
    std::unordered_map<std::string_view, const CCell*> after;
    for (const CCell& cell : b.Mutations) {
        after.emplace(cell.Key, &cell);
    }
    for (const CCell& cell : a.Mutations) {
        difference.Mutation = cell.Key.substr(0, cell.Key.find('\n'));
        const auto same = after.find(cell.Key);
        if (same == after.end()) {
            ReportCell(pair, false, layout, cell, difference);
            continue;
        }
        CompareCells(pair, layout, cell, *same->second, difference);
        after.erase(same);
    }
    for (const CCell& cell : b.Mutations) {
        if (after.find(cell.Key) != after.end()) {
            difference.Mutation = cell.Key.substr(0, cell.Key.find('\n'));
            ReportCell(pair, true, layout, cell, difference);
        }
    }
}

void CFileDiff::CompareCells(CPair& pair, const CCellLayout& layout, const CCell& a, const CCell& b,
                             const CDifference& where) {
    const CCellKind* kind = layout.FindKind(a.Text);
    for (std::size_t i = 0; kind != nullptr && i < kind->Items.size(); ++i) {
        const CItemDef& item = *kind->Items[i];
        const std::string_view before = TrimRight(CCellLayout::CutItem(a.Text, item));
        const std::string_view after = TrimRight(CCellLayout::CutItem(b.Text, item));
        if (before != after) {
            CDifference at = pair.At(a.Line, b.Line);
            at.Entry = where.Entry;
            at.Mutation = where.Mutation;
            ReportItem(std::move(at), item.Number, before, after);
        }
    }
}

void CFileDiff::ReportCell(CPair& pair, bool added, const CCellLayout& layout, const CCell& cell,
                           const CDifference& where) {
    CDifference at = added ? pair.At(-1, cell.Line) : pair.At(cell.Line, -1);
    at.Change = added ? EChange::Added : EChange::Removed;
    at.Entry = where.Entry;
    at.Mutation = where.Mutation;
    const CCellKind* kind = layout.FindKind(cell.Text);
    for (std::size_t i = 0; kind != nullptr && i < kind->Items.size(); ++i) {
        const CItemDef& item = *kind->Items[i];
        at.Items.emplace_back(item.Number, TrimRight(CCellLayout::CutItem(cell.Text, item)));
    }
    ++m_nReported;
    m_Visit(at);
}

void CFileDiff::ReportCellEntry(CPair& pair, bool added, const CCellLayout& layout, const CCellEntry& entry,
                                int number) {
    CDifference difference;
    difference.Entry = number;
    for (const CCell& cell : entry.Position) {
        ReportCell(pair, added, layout, cell, difference);
    }
    for (const CCell& cell : entry.Mutations) {
        difference.Mutation = cell.Key.substr(0, cell.Key.find('\n'));
        ReportCell(pair, added, layout, cell, difference);
    }
}

// What no item holds: gaps between items, the header of further lines.
void CFileDiff::CompareUntouchedLines(CPair& pair) {
    const int both = std::min(pair.A.Record.GetLineCount(), pair.B.Record.GetLineCount());
    for (int line = 0; line < both; ++line) {
        if (pair.A.IsTouched(line) || pair.B.IsTouched(line) || pair.A.LineAt(line) == pair.B.LineAt(line)) {
            continue;
        }
        CDifference difference = pair.At(line, line);
        difference.Old = pair.A.LineAt(line);
        difference.New = pair.B.LineAt(line);
        ++m_nReported;
        m_Visit(difference);
    }
    for (const bool b : {false, true}) {
        const CSide& side = pair.Of(b);
        for (int line = both; line < side.Record.GetLineCount(); ++line) {
            if (!side.IsTouched(line)) {
                ReportLine(pair.Type, b ? EChange::Added : EChange::Removed, side.NumberOf(line), side.LineAt(line));
            }
        }
    }
}

// What is the same at the beginning and at the end is left out; between them lines went away and others came.
void CFileDiff::CompareLines(const std::string& type, const CLines& a, const CLines& b) {
    const std::size_t shorter = std::min(a.size(), b.size());
    std::size_t begin = 0;
    while (begin < shorter && a[begin].second == b[begin].second) {
        ++begin;
    }
    std::size_t end = 0;
    while (end < shorter - begin && a[a.size() - end - 1].second == b[b.size() - end - 1].second) {
        ++end;
    }
    for (std::size_t i = begin; i < a.size() - end; ++i) {
        ReportLine(type, EChange::Removed, a[i].first, a[i].second);
    }
    for (std::size_t i = begin; i < b.size() - end; ++i) {
        ReportLine(type, EChange::Added, b[i].first, b[i].second);
    }
}

void CFileDiff::ReportLine(const std::string& type, EChange change, int number, std::string_view text) {
    CDifference difference;
    difference.Change = change;
    difference.Type = type;
    (change == EChange::Added ? difference.LineB : difference.LineA) = number;
    (change == EChange::Added ? difference.New : difference.Old) = text;
    ++m_nReported;
    m_Visit(difference);
}

void CFileDiff::ReportItem(CDifference difference, int item, std::string_view before, std::string_view after) {
    difference.Item = item;
    difference.Old = TrimRight(before);
    difference.New = TrimRight(after);
    ++m_nReported;
    m_Visit(difference);
}

} // namespace tabvex::tool
