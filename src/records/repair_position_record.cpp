#include "records/repair_position_record.h"

#include <algorithm>

#include "core/record_context.h"
#include "items/number_fields.h"
#include "items/value_format.h"
#include "layout/number_text.h"
#include "records/value_parts.h"
#include "tabvex/result_codes.h"

namespace tabvex {

namespace {

constexpr int kCodeLength = 3;

bool Lists(const CItemDef* definition, std::string_view code) {
    return definition != nullptr &&
           std::find(definition->Values.begin(), definition->Values.end(), code) != definition->Values.end();
}

std::string_view Cut(std::string_view text, int offset, int length) {
    const std::size_t begin = std::min(text.size(), static_cast<std::size_t>(std::max(offset, 0)));
    return text.substr(begin, static_cast<std::size_t>(std::max(length, 0)));
}

int LengthOf(const CItemDef* definition) {
    return definition == nullptr ? 0 : definition->Length;
}

} // namespace

CRepairPositionRecord::CRepairPositionRecord(const CMutationItems& items, CRecordContext& context)
    : CRecord(items.Type.data(), context), m_Items(items) {
    m_pLayout = context.LayoutOf(RecordTypeOf(items.Type));
    m_nCurOffset = kFirstCellOffset;
}

bool CRepairPositionRecord::IsHeaderItem(int item) const {
    return std::find(m_Items.Header.begin(), m_Items.Header.end(), item) != m_Items.Header.end();
}

int CRepairPositionRecord::PositionField(int item) const {
    const auto* const field = std::find(m_Items.Position.begin(), m_Items.Position.end(), item);
    return field == m_Items.Position.end() ? -1 : static_cast<int>(field - m_Items.Position.begin());
}

std::string_view CRepairPositionRecord::CellText(int index) const {
    return CutFromLine(CellLine(index), CellOffset(index), kCellLength);
}

int CRepairPositionRecord::PrepareSearch(int item, std::string_view text, const CItemDef*& definition) {
    if (PositionField(item) < 0 && item != m_Items.MutationSearch) {
        return TABVEX_FIND_WRONG_ITEM;
    }
    if (m_Lines.empty()) {
        return TABVEX_FIND_NO_LINES;
    }
    definition = item == m_Items.MutationSearch ? nullptr : Definition(item);
    if (definition == nullptr && item != m_Items.MutationSearch) {
        return TABVEX_FIND_NO_DEFINITION;
    }
    std::string& sought = m_Context.ValueText;
    sought.assign(TrimBlanks(text));
    if (m_Context.IsOem) {
        m_Context.CodePages.AnsiToOem(sought.data(), sought.size());
    }
    return TABVEX_OK;
}

int CRepairPositionRecord::PutPositionParts(CCell& cell, std::string_view value) {
    int result = TABVEX_OK;
    for (std::size_t i = 0; i < m_Items.Position.size(); ++i) {
        const std::string_view part = TakePart(value, m_Context.Delimiter);
        const int put = IsBlank(part) ? TABVEX_OK : PutPart(cell, m_Items.Position[i], kPositionOffsets[i], part);
        result = put == TABVEX_OK ? result : put;
    }
    return result;
}

int CRepairPositionRecord::PutPart(CCell& cell, int item, int offset, std::string_view part) {
    const CItemDef* definition = Definition(item);
    if (definition == nullptr) {
        return TABVEX_ITEM_UNKNOWN;
    }
    const int result = FormatValue(*definition, part, true, m_Context.FieldText);
    if (result == TABVEX_OK) {
        const std::string_view field =
            std::string_view(m_Context.FieldText).substr(0, static_cast<std::size_t>(std::max(definition->Length, 0)));
        std::copy_n(field.begin(), std::min(field.size(), cell.size() - static_cast<std::size_t>(offset)),
                    cell.begin() + offset);
    }
    return result;
}

int CRepairPositionRecord::ReadMutationFromCells(int index, int number, CMutation& mutation) const {
    std::string entry; // the position and its mutations, over a line's end where they run past it
    for (int cell = index; cell <= index + kMostMutations; ++cell) {
        entry.append(CellText(cell));
    }
    const int begin = number * kCellLength;
    const std::string_view code = TrimBlanks(Cut(entry, begin, kCodeLength));
    const CItemDef* numericCode = Definition(m_Items.Numeric[0]);
    const int data = begin + std::clamp(LengthOf(numericCode), 0, kCellLength);
    mutation.Code = code;
    if (Lists(numericCode, code)) {
        const CItemDef* value = Definition(m_Items.Numeric[1]);
        return value == nullptr ? TABVEX_ITEM_UNKNOWN
                                : ReadMutationValue(*value, Cut(entry, data, value->Length), mutation);
    }
    if (!Lists(Definition(m_Items.TwoPart[0]), code)) {
        return TABVEX_MUTATION_NONE;
    }
    const int text1Length = std::clamp(LengthOf(Definition(m_Items.TwoPart[1])), 0, kCellLength);
    mutation.Text1 = Cut(entry, data, text1Length);
    mutation.Text2 = Cut(entry, data + text1Length, LengthOf(Definition(m_Items.TwoPart[2])));
    return TABVEX_OK;
}

int CRepairPositionRecord::ReadMutationValue(const CItemDef& definition, std::string_view text, CMutation& mutation) {
    double value = 0.0;
    const int result = ParseFloatField(definition, text, value);
    if (result == TABVEX_OK) {
        mutation.Value = value;
        mutation.HasValue = true;
    }
    return result;
}

} // namespace tabvex
