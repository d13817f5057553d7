#include "records/list_record.h"

#include "core/record_context.h"
#include "items/value_format.h"
#include "tabvex/result_codes.h"

namespace tabvex {

CListRecord::CListRecord(int type, CRecordContext& context) : CRecord(RecordTypeRow(type).Key.data(), context) {
    m_pLayout = context.LayoutOf(type);
}

int CListRecord::FirstEntry(int /*item*/) {
    return TABVEX_OK;
}

int CListRecord::NextEntry(int /*item*/) {
    return TABVEX_OK;
}

int CListRecord::ReadEntryItem(int /*item*/, const CItemDef& definition, std::string_view& text) {
    if (GetLineCount() == 0) {
        return TABVEX_ITEM_NO_LINE;
    }
    text = CutText(0, OffsetOf(definition), definition.Length);
    return TABVEX_OK;
}

int CListRecord::WriteEntry(int /*item*/, const CItemDef& definition, std::string_view value) {
    if (GetLineCount() == 0) {
        return TABVEX_ITEM_NO_LINE;
    }
    const int result = FormatValue(definition, value, true, m_Context.FieldText);
    if (result == TABVEX_OK) {
        PutField(0, OffsetOf(definition), definition.Length, m_Context.FieldText);
    }
    return result;
}

} // namespace tabvex
