#include "records/mutation_record.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

#include "core/record_context.h"
#include "layout/number_text.h"
#include "records/value_parts.h"
#include "tabvex/result_codes.h"

namespace tabvex {

namespace {

constexpr std::size_t kShortestDeletedCode = 2;
constexpr std::size_t kLongestDeletedCode = 3;
constexpr int kSplitText1Length = 2;

template <typename Cell>
std::string_view TextOf(const Cell& cell) {
    return {cell.data(), cell.size()};
}

template <typename Cell>
Cell BlankCell() {
    Cell cell;
    cell.fill(' ');
    return cell;
}

} // namespace

// The codes of a list, for many look-ups.
class CMutationRecord::CCodeTable {
public:
    explicit CCodeTable(const CStringArray& codes) {
        for (const std::string& code : codes) {
            if (code.size() <= kLongestDeletedCode) {
                m_Codes.push_back(Pack(code));
            }
        }
        std::sort(m_Codes.begin(), m_Codes.end());
    }

    bool Holds(std::string_view code) const { return std::binary_search(m_Codes.begin(), m_Codes.end(), Pack(code)); }

private:
    static std::uint32_t Pack(std::string_view code) {
        std::uint32_t packed = 0;
        for (const char character : code) {
            packed = packed << 8 | static_cast<unsigned char>(character);
        }
        return packed;
    }

    std::vector<std::uint32_t> m_Codes;
};

CMutationRecord::CMutationRecord(const CMutationItems& items, CRecordContext& context)
    : CRepairPositionRecord(items, context) {}

int CMutationRecord::PostRead() {
    return Parse();
}

int CMutationRecord::Parse() {
    if (m_State != EState::Unparsed) {
        return m_State == EState::Failed ? TABVEX_MUTATION_NOT_PARSED : TABVEX_OK;
    }
    m_Entries.clear();
    m_Skipped.clear();
    if (!LinesAreComplete()) {
        m_State = EState::Failed;
        return TABVEX_MUTATION_BAD_LINES;
    }
    const CLayoutCodes& codes = m_Context.CodesOf(m_Items.Lists);
    const CCodeTable repairMethods(codes.All);
    const CCodeTable mutations(codes.Codes);
    const int current = m_nCurLine * kCellsInLine + (m_nCurOffset - kFirstCellOffset) / kCellLength;
    for (int index = 0; index < GetLineCount() * kCellsInLine; ++index) {
        ParseCell(CellText(index), index, repairMethods, mutations);
    }
    m_State = EState::Parsed;
    // Lines that were changed by hand keep their current entry, all others begin with the first.
    const auto entry =
        std::find_if(m_Entries.begin(), m_Entries.end(), [current](const CEntry& e) { return e.CellIndex == current; });
    const bool runThrough = m_nCurLine >= GetLineCount();
    const auto found = static_cast<std::size_t>(entry - m_Entries.begin());
    SelectEntry(entry != m_Entries.end() || runThrough ? found : 0);
    return TABVEX_OK;
}

// A line that was saved has CR LF behind its characters.
bool CMutationRecord::LinesAreComplete() const {
    for (int index = 0; index < GetLineCount(); ++index) {
        const std::string_view line = GetLine(index);
        if (line.size() != kLineLength && line.substr(std::min<std::size_t>(line.size(), kLineLength)) != "\r\n") {
            return false;
        }
    }
    return !m_Lines.empty();
}

void CMutationRecord::ParseCell(std::string_view cell, int index, const CCodeTable& repairMethods,
                                const CCodeTable& mutations) {
    const std::string_view code = CodeOfCell(cell);
    CCell copy;
    std::copy(cell.begin(), cell.end(), copy.begin());
    if (repairMethods.Holds(code)) {
        CEntry& entry = m_Entries.emplace_back();
        entry.Position = copy;
        entry.CellIndex = index;
        return;
    }
    CEntry* entry = m_Entries.empty() ? nullptr : &m_Entries.back();
    if (entry != nullptr && entry->MutationCount < kMostMutations && mutations.Holds(code)) {
        entry->Mutations[entry->MutationCount++] = copy;
    } else if (!IsBlank(cell)) {
        m_Skipped.push_back({m_Entries.size(), copy});
    }
}

void CMutationRecord::SelectEntry(std::size_t index) {
    m_nEntry = index;
    m_nWriteEntry = index;
    PlaceCursor();
}

// At the current entry's cell; behind the last line when the entries were run through.
void CMutationRecord::PlaceCursor() {
    const CEntry* entry = CurrentEntry();
    const bool runThrough = entry == nullptr && !m_Entries.empty();
    const int index = entry == nullptr ? 0 : entry->CellIndex;
    m_nCurLine = runThrough ? GetLineCount() : CellLine(index);
    m_nCurOffset = CellOffset(index);
}

CMutationRecord::CEntry* CMutationRecord::CurrentEntry() {
    return m_nEntry < m_Entries.size() ? &m_Entries[m_nEntry] : nullptr;
}

int CMutationRecord::FirstEntry(int item) {
    const bool isKey = item == m_Items.Position[0] || item == m_Items.Numeric[0] || item == m_Items.TwoPart[0] ||
                       item == m_Items.Split[0];
    if (!isKey) {
        return TABVEX_ENTRY_WRONG_KEY;
    }
    if (m_Lines.empty()) {
        return TABVEX_ENTRY_NO_LINES;
    }
    if (!IsParsed()) {
        return TABVEX_MUTATION_NOT_PARSED;
    }
    SelectEntry(0);
    return m_Entries.empty() ? TABVEX_ENTRY_NO_MORE : TABVEX_OK;
}

int CMutationRecord::NextEntry(int item) {
    if (m_Lines.empty()) {
        return TABVEX_ENTRY_NO_LINES;
    }
    if (item != m_Items.Position[0]) {
        return TABVEX_ENTRY_WRONG_KEY;
    }
    if (!IsParsed()) {
        return TABVEX_MUTATION_NOT_PARSED;
    }
    SelectEntry(std::min(m_nEntry + 1, m_Entries.size()));
    return CurrentEntry() == nullptr ? TABVEX_ENTRY_NO_MORE : TABVEX_OK;
}

int CMutationRecord::ReadEntryItem(int item, const CItemDef& definition, std::string_view& text) {
    if (m_Lines.empty()) {
        return TABVEX_ITEM_NO_LINE;
    }
    if (!IsParsed()) {
        return TABVEX_MUTATION_NOT_PARSED;
    }
    if (IsHeaderItem(item)) {
        text = CutText(0, OffsetOf(definition), definition.Length);
        return TABVEX_OK;
    }
    const int field = PositionField(item);
    if (field < 0) {
        return TABVEX_ENTRY_FOREIGN_ITEM;
    }
    const CEntry* entry = CurrentEntry();
    if (entry == nullptr) {
        return TABVEX_ENTRY_NO_MORE;
    }
    const int offset = kPositionOffsets[static_cast<std::size_t>(field)];
    text = PartOfCell(TextOf(entry->Position), offset, definition.Length);
    return TABVEX_OK;
}

int CMutationRecord::WriteEntry(int item, const CItemDef& /*definition*/, std::string_view value) {
    if (!m_Lines.empty() && !IsParsed()) {
        return TABVEX_MUTATION_NOT_PARSED;
    }
    if (item != m_Items.Position[0]) {
        return TABVEX_ENTRY_NOT_THE_KEY;
    }
    if (CountParts(value, m_Context.Delimiter) != m_Items.Position.size()) {
        return TABVEX_ENTRY_WRONG_PARTS;
    }
    const bool isNew = m_nWriteEntry >= m_Entries.size();
    CCell cell = isNew ? BlankCell<CCell>() : m_Entries[m_nWriteEntry].Position;
    const std::string_view code = value.substr(0, value.find(m_Context.Delimiter));
    if (isNew && IsBlank(code)) {
        return TABVEX_VALUE_NOT_LISTED;
    }
    if (isNew) {
        // A position whose code fails is not added.
        const int checked = PutPart(cell, m_Items.Position[0], kCodeOffset, code);
        if (checked != TABVEX_OK) {
            return checked;
        }
    }
    const int result = PutPositionParts(cell, value);
    if (isNew) {
        m_Entries.emplace_back();
    }
    m_Entries[m_nWriteEntry].Position = cell;
    m_bChanged = true;
    m_nEntry = m_nWriteEntry++;
    return result;
}

int CMutationRecord::HardWrite(const CItemDef& definition, std::string_view text) {
    return m_Lines.empty() || IsParsed() ? CRecord::HardWrite(definition, text) : TABVEX_MUTATION_NOT_PARSED;
}

int CMutationRecord::FindFirst(int item, std::string_view text) {
    return SearchFrom(0, item, text);
}

int CMutationRecord::FindNext(int item, std::string_view text) {
    return SearchFrom(m_nFoundEntry + 1, item, text);
}

int CMutationRecord::SearchFrom(std::size_t first, int item, std::string_view text) {
    const CItemDef* definition = nullptr;
    const int prepared = PrepareSearch(item, text, definition);
    if (prepared != TABVEX_OK) {
        return prepared;
    }
    if (!IsParsed()) {
        return TABVEX_MUTATION_NOT_PARSED;
    }
    const std::string_view sought = m_Context.ValueText;
    const int field = PositionField(item);
    const int offset = field < 0 ? 0 : kPositionOffsets[static_cast<std::size_t>(field)];
    for (std::size_t index = first; index < m_Entries.size(); ++index) {
        const CEntry& entry = m_Entries[index];
        const bool found = field < 0
                               ? CarriesMutation(entry, sought)
                               : TrimBlanks(PartOfCell(TextOf(entry.Position), offset, definition->Length)) == sought;
        if (found) {
            SelectEntry(index);
            m_nFoundEntry = index;
            return TABVEX_FIND_FOUND;
        }
    }
    return TABVEX_FIND_NOTHING;
}

bool CMutationRecord::CarriesMutation(const CEntry& entry, std::string_view code) const {
    return std::any_of(entry.Mutations.begin(), entry.Mutations.begin() + entry.MutationCount,
                       [code](const CCell& mutation) { return TrimBlanks(CodeOfCell(TextOf(mutation))) == code; });
}

// The first code of the list counts, and the kind at its place, whatever the two lists hold.
bool CMutationRecord::FindKind(std::string_view code, unsigned& kind) const {
    const CLayoutCodes& lists = m_Context.CodesOf(m_Items.Lists);
    const auto found = std::find(lists.Codes.begin(), lists.Codes.end(), code);
    if (found == lists.Codes.end()) {
        return false;
    }
    kind = lists.Kinds.GetAt(static_cast<int>(found - lists.Codes.begin()));
    return true;
}

int CMutationRecord::ReadMutation(int index, bool newForm, CMutation& mutation) {
    if (!IsParsed()) {
        return TABVEX_MUTATION_NOT_PARSED;
    }
    if (!newForm) {
        PrepareWrite();
        const CEntry* current = CurrentEntry();
        return current == nullptr ? TABVEX_MUTATION_NO_ENTRY
                                  : ReadMutationFromCells(current->CellIndex, index, mutation);
    }
    const CEntry* entry = CurrentEntry();
    if (entry == nullptr || index < 1 || index > entry->MutationCount) {
        return TABVEX_MUTATION_NONE;
    }
    const CCell& cell = entry->Mutations[static_cast<std::size_t>(index - 1)];
    mutation.Code = TrimBlanksRight(CodeOfCell(TextOf(cell)));
    unsigned kind = 0;
    if (!FindKind(mutation.Code, kind)) {
        return TABVEX_MUTATION_NONE;
    }
    const auto lengthOf = [this](int item) {
        const CItemDef* definition = Definition(item);
        return definition == nullptr ? 0 : definition->Length;
    };
    if (kind == kTwoPartKind) {
        mutation.Text1 = PartOfCell(TextOf(cell), kText1Offset, lengthOf(m_Items.TwoPart[1]));
        mutation.Text2 = PartOfCell(TextOf(cell), kText2Offset, lengthOf(m_Items.TwoPart[2]));
        return TABVEX_OK;
    }
    if (kind == kSplitValueKind) {
        mutation.Text1 = PartOfCell(TextOf(cell), kValueOffset, kSplitText1Length);
        mutation.Text2 = PartOfCell(TextOf(cell), kValueOffset + kSplitText1Length, kCellLength);
        return TABVEX_OK;
    }
    const CItemDef* value = Definition(m_Items.Numeric[1]);
    return value == nullptr
               ? TABVEX_ITEM_UNKNOWN
               : ReadMutationValue(*value, PartOfCell(TextOf(cell), kValueOffset, value->Length), mutation);
}

int CMutationRecord::AddMutation(std::string_view text) {
    if (!IsParsed()) {
        return TABVEX_MUTATION_NOT_PARSED;
    }
    CEntry* entry = CurrentEntry();
    if (entry == nullptr) {
        return TABVEX_MUTATION_NO_ENTRY;
    }
    if (entry->MutationCount == kMostMutations) {
        return TABVEX_MUTATION_FULL;
    }
    auto cell = BlankCell<CCell>();
    const int result = MakeMutation(text, cell);
    if (result != TABVEX_OK) {
        return result;
    }
    auto* const end = entry->Mutations.begin() + entry->MutationCount;
    auto* const same = std::find_if(entry->Mutations.begin(), end, [&cell](const CCell& mutation) {
        return CodeOfCell(TextOf(mutation)) == CodeOfCell(TextOf(cell));
    });
    *same = cell;
    if (same == end) {
        ++entry->MutationCount;
    }
    m_bChanged = true;
    return TABVEX_OK;
}

// Code and value, code and two texts, or all four, of which the kind of the code picks and the others must be empty.
int CMutationRecord::MakeMutation(std::string_view text, CCell& cell) {
    const std::size_t count = CountParts(text, m_Context.Delimiter);
    if (count < 2 || count > 4) {
        return TABVEX_MUTATION_WRONG_PARTS;
    }
    std::array<std::string_view, 4> parts;
    for (std::size_t i = 0; i < count; ++i) {
        parts[i] = TakePart(text, m_Context.Delimiter);
    }
    unsigned kind = 0;
    FindKind(TrimBlanks(parts[0]), kind);
    const bool twoTexts = count == 3 || (count == 4 && kind == kTwoPartKind);
    if (count == 4) {
        if (twoTexts ? !parts[1].empty() : !(parts[2].empty() && parts[3].empty())) {
            return TABVEX_MUTATION_WRONG_PARTS;
        }
        parts[1] = twoTexts ? parts[2] : parts[1];
        parts[2] = parts[3];
    }
    if (IsBlank(parts[0])) {
        return TABVEX_VALUE_NOT_LISTED;
    }
    const std::array<int, 2>& valueItems = kind == kSplitValueKind ? m_Items.Split : m_Items.Numeric;
    int result = PutPart(cell, twoTexts ? m_Items.TwoPart[0] : valueItems[0], kCodeOffset, parts[0]);
    if (result == TABVEX_OK && !twoTexts) {
        return PutPart(cell, valueItems[1], kValueOffset, parts[1]);
    }
    if (result == TABVEX_OK) {
        result = PutPart(cell, m_Items.TwoPart[1], kText1Offset, parts[1]);
    }
    return result == TABVEX_OK ? PutPart(cell, m_Items.TwoPart[2], kText2Offset, parts[2]) : result;
}

int CMutationRecord::DeleteOneMutation(std::string_view code) {
    if (!IsParsed()) {
        return TABVEX_MUTATION_NOT_PARSED;
    }
    if (code.size() < kShortestDeletedCode || code.size() > kLongestDeletedCode) {
        return TABVEX_MUTATION_BAD_CODE;
    }
    CEntry* entry = CurrentEntry();
    if (entry == nullptr || entry->MutationCount == 0) {
        return TABVEX_OK;
    }
    auto* const end = entry->Mutations.begin() + entry->MutationCount;
    auto* const found = std::find_if(entry->Mutations.begin(), end, [code](const CCell& mutation) {
        return TrimBlanksRight(CodeOfCell(TextOf(mutation))) == TrimBlanksRight(code);
    });
    if (found == end) {
        return TABVEX_MUTATION_NONE;
    }
    std::copy(found + 1, end, found);
    --entry->MutationCount;
    m_bChanged = true;
    return TABVEX_OK;
}

int CMutationRecord::DeleteMutations() {
    if (!IsParsed()) {
        return TABVEX_MUTATION_NOT_PARSED;
    }
    CEntry* entry = CurrentEntry();
    if (entry == nullptr || entry->MutationCount == 0) {
        return 0;
    }
    const int count = entry->MutationCount;
    entry->MutationCount = 0;
    m_bChanged = true;
    return count;
}

int CMutationRecord::GetMutationCount() {
    if (!IsParsed()) {
        return TABVEX_MUTATION_NOT_PARSED;
    }
    const CEntry* entry = CurrentEntry();
    return entry == nullptr ? 0 : entry->MutationCount;
}

int CMutationRecord::PrepareWrite() {
    if (m_State == EState::Parsed && m_bChanged) {
        PutCells(AllCells());
        m_bChanged = false;
        PlaceCursor();
    }
    return TABVEX_OK;
}

// All cells in the order in which the lines hold them; tells every entry its place.
std::vector<const CMutationRecord::CCell*> CMutationRecord::AllCells() {
    std::vector<const CCell*> cells;
    auto skipped = m_Skipped.begin();
    const auto takeSkipped = [&](std::size_t entries) {
        for (; skipped != m_Skipped.end() && skipped->BehindEntries == entries; ++skipped) {
            cells.push_back(&skipped->Cell);
        }
    };
    takeSkipped(0);
    for (std::size_t index = 0; index < m_Entries.size(); ++index) {
        CEntry& entry = m_Entries[index];
        entry.CellIndex = static_cast<int>(cells.size());
        cells.push_back(&entry.Position);
        for (std::size_t i = 0; i < entry.MutationCount; ++i) {
            cells.push_back(&entry.Mutations[i]);
        }
        takeSkipped(index + 1);
    }
    return cells;
}

// The header of the first line heads every line. Cells that are not used any more become blank, lines stay.
void CMutationRecord::PutCells(const std::vector<const CCell*>& cells) {
    const std::string header(m_Lines.empty() ? m_szType : LineAt(0), m_Lines.empty() ? 2 : kFirstCellOffset);
    const auto needed = static_cast<int>((cells.size() + kCellsInLine - 1) / kCellsInLine);
    while (GetLineCount() < needed) {
        AppendLine(std::string(kLineLength, ' '));
    }
    for (int line = 0; line < GetLineCount(); ++line) {
        PutIntoLine(line, 0, header);
        for (int i = 0; i < kCellsInLine; ++i) {
            const auto index = static_cast<std::size_t>(line) * kCellsInLine + static_cast<std::size_t>(i);
            const auto blank = BlankCell<CCell>();
            PutIntoLine(line, CellOffset(i), TextOf(index < cells.size() ? *cells[index] : blank));
        }
    }
}

// What was changed is written first; the cursor keeps the current entry's place for the parsing to come.
void CMutationRecord::BeforeLinesChange() {
    if (m_State == EState::Unparsed) {
        return;
    }
    PrepareWrite();
    m_State = EState::Unparsed;
}

// A record that a caller creates has no entry, whatever its defaults hold.
void CMutationRecord::AfterCreation() {
    LineAt(0)[kLineLength] = '\0';
    m_State = EState::Parsed;
    SelectEntry(0);
}

} // namespace tabvex
