#include "records/entry_record.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "items/value_format.h"
#include "records/value_parts.h"
#include "tabvex/result_codes.h"

namespace tabvex {

namespace {

constexpr int kLongestEntry = 4096; // no line is as long, whatever a layout says
constexpr int kLastEntryEnd = 127;  // of the types whose group end depends on the entry length
constexpr int kDefaultFirstOffset = 7;

} // namespace

CEntryRecord::CEntryRecord(const CGroupRow& row, CRecordContext& context)
    : CRecord(row.Type.data(), context), m_Group() {
    m_Group.Row = &row;
    m_pLayout = context.LayoutOf(RecordTypeOf(row.Type));
    m_nCurOffset = row.FirstOffset == kFromLayout ? Group().FirstOffset : row.FirstOffset;
}

const CEntryRecord::CGroup& CEntryRecord::Group() {
    if (!m_Group.Known) {
        m_Group = MakeGroup(*m_Group.Row);
    }
    return m_Group;
}

CEntryRecord::CGroup CEntryRecord::MakeGroup(const CGroupRow& row) const {
    CGroup group = {};
    group.Row = &row;
    std::int64_t length = 0;
    if (row.ItemsKind == EItems::Span) {
        length = m_pLayout->SumLengths(row.Items[0], row.Items[1]);
        for (const CItemDef& definition : Items()) {
            const bool inSpan = definition.Number >= row.Items[0] && definition.Number <= row.Items[1];
            if (inSpan && Definition(definition.Number) == &definition) {
                group.Items.push_back(&definition);
            }
        }
    } else {
        for (const int item : row.Items) {
            if (item != 0) {
                group.Items.push_back(Definition(item));
                length += group.Items.back() == nullptr ? 0 : group.Items.back()->Length;
            }
        }
    }
    group.EntryLength = static_cast<int>(std::clamp<std::int64_t>(length, 0, kLongestEntry));
    const CItemDef* key = Definition(row.Items[0]);
    const bool placed = key != nullptr && key->Position >= 1 && key->Position <= m_nLineLength;
    const int fromLayout = placed ? key->Position - 1 : kDefaultFirstOffset;
    group.FirstOffset = row.FirstOffset == kFromLayout ? fromLayout : row.FirstOffset;
    group.LastOffset = row.LastOffset == kFromLayout ? kLastEntryEnd - group.EntryLength : row.LastOffset;
    group.Known = true;
    return group;
}

bool CEntryRecord::IsHeaderItem(int item) const {
    const CGroupRow& row = *m_Group.Row;
    if (row.Flags.OthersAreHeader) {
        return !IsEntryItem(item);
    }
    return std::find(row.HeaderItems.begin(), row.HeaderItems.end(), item) != row.HeaderItems.end();
}

int CEntryRecord::FirstEntry(int item) {
    if (item != m_Group.Row->Items[0]) {
        return TABVEX_ENTRY_WRONG_KEY;
    }
    if (m_Lines.empty()) {
        return TABVEX_ENTRY_NO_LINES;
    }
    if (m_Group.Row->Flags.EmptySpanFails && Group().EntryLength == 0) {
        return TABVEX_ENTRY_EMPTY_SPAN;
    }
    m_nCurLine = 0;
    m_nCurOffset = Group().FirstOffset;
    return TABVEX_OK;
}

int CEntryRecord::NextEntry(int item) {
    if (m_Lines.empty()) {
        return TABVEX_ENTRY_NO_LINES;
    }
    if (item != m_Group.Row->Items[0]) {
        return TABVEX_ENTRY_WRONG_KEY;
    }
    return StepForward();
}

int CEntryRecord::StepForward() {
    if (IsPastLastLine()) {
        return TABVEX_ENTRY_NO_MORE;
    }
    const CGroup& group = Group();
    if (group.EntryLength == 0) {
        return TABVEX_ENTRY_EMPTY_SPAN; // a step would never end
    }
    m_nCurOffset += group.EntryLength;
    if (m_nCurOffset > group.LastOffset) {
        if (group.Row->End == EGroupEnd::Rewound) {
            m_nCurOffset = group.FirstOffset;
            return TABVEX_ENTRY_NO_MORE;
        }
        ++m_nCurLine;
        m_nCurOffset = group.FirstOffset;
        if (IsPastLastLine()) {
            return LeaveLastLine();
        }
    }
    return group.Row->Flags.BlankEnds != 0 && IsBlankEntry() ? TABVEX_ENTRY_NO_MORE : TABVEX_OK;
}

int CEntryRecord::LeaveLastLine() {
    switch (m_Group.Row->End) {
    case EGroupEnd::Parked:
        m_nCurLine = GetLineCount() - 1;
        m_nCurOffset = m_Group.Row->ParkOffset;
        return TABVEX_ENTRY_NO_MORE;
    case EGroupEnd::BehindNoMore:
    case EGroupEnd::Rewound:
        return TABVEX_ENTRY_NO_MORE;
    case EGroupEnd::Behind:
        break;
    }
    return TABVEX_OK;
}

bool CEntryRecord::IsBlankEntry() {
    const std::string_view entry = CutFromLine(m_nCurLine, m_nCurOffset, Group().EntryLength);
    return IsBlank(entry.substr(0, static_cast<std::size_t>(m_Group.Row->Flags.BlankEnds)));
}

int CEntryRecord::ReadEntryItem(int item, const CItemDef& definition, std::string_view& text) {
    if (IsHeaderItem(item)) {
        if (m_Lines.empty()) {
            return TABVEX_ITEM_NO_LINE;
        }
        text = CutText(0, OffsetOf(definition), definition.Length);
        return TABVEX_OK;
    }
    if (m_Group.Row->Flags.ForeignItemsFail && !IsEntryItem(item)) {
        return TABVEX_ENTRY_FOREIGN_ITEM;
    }
    if (IsPastLastLine()) {
        return TABVEX_ENTRY_NO_MORE;
    }
    text = CutFromEntry(definition);
    return TABVEX_OK;
}

std::string_view CEntryRecord::CutFromEntry(const CItemDef& definition) {
    const CGroup& group = Group();
    const int offset = OffsetOf(definition) - group.FirstOffset; // in the entry
    if (offset < 0 || offset >= group.EntryLength || definition.Length <= 0) {
        return {};
    }
    const int length = std::min(definition.Length, group.EntryLength - offset);
    const int begin = m_nCurOffset + offset;
    if (begin + length <= m_nLineLength) {
        return CutText(m_nCurLine, begin, length);
    }
    std::string& text = m_Context.EntryText;
    text.assign(CutFromLine(m_nCurLine, begin, length));
    text.resize(static_cast<std::size_t>(length), ' ');
    return std::string_view(text).substr(0, text.find('\0'));
}

int CEntryRecord::WriteEntry(int item, const CItemDef& /*definition*/, std::string_view value) {
    if (item != m_Group.Row->Items[0]) {
        return TABVEX_ENTRY_NOT_THE_KEY;
    }
    if (CountParts(value, m_Context.Delimiter) != Group().Items.size()) {
        return TABVEX_ENTRY_WRONG_PARTS;
    }
    const int result = MakeRoom(m_Group.Row->WriteLimit);
    return result == TABVEX_OK ? PutParts(value, false) : result;
}

// With a write limit that alone counts; without one the entry must also fit into the line.
int CEntryRecord::MakeRoom(int writeLimit) {
    const CGroup& group = Group();
    const bool room = writeLimit != kNoLimit
                          ? m_nCurOffset < writeLimit
                          : m_nCurOffset <= group.LastOffset && m_nCurOffset + group.EntryLength <= m_nLineLength;
    if (room && !IsPastLastLine()) {
        return TABVEX_OK;
    }
    if (group.Row->Variant == EVariant::LongLine) {
        return TABVEX_ENTRY_NO_MORE;
    }
    return AppendContinuationLine(group.FirstOffset + 1);
}

int CEntryRecord::PutParts(std::string_view value, bool toOem) {
    int result = TABVEX_OK;
    for (const CItemDef* definition : Group().Items) {
        std::string_view part = TakePart(value, m_Context.Delimiter);
        if (toOem) {
            m_Context.ValueText.assign(part);
            m_Context.CodePages.AnsiToOem(m_Context.ValueText.data(), part.size());
            part = m_Context.ValueText;
        }
        if (definition == nullptr) {
            result = IsBlank(part) ? result : TABVEX_ITEM_UNKNOWN;
            continue;
        }
        if (!IsBlank(part)) {
            const int checked = FormatValue(*definition, part, true, m_Context.FieldText);
            if (checked == TABVEX_OK) {
                PutField(m_nCurLine, m_nCurOffset, definition->Length, m_Context.FieldText);
            } else {
                result = checked;
            }
        }
        m_nCurOffset += std::clamp(definition->Length, 0, kLongestEntry);
    }
    return result;
}

} // namespace tabvex
