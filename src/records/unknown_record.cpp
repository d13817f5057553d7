#include "records/unknown_record.h"

#include "core/record_types.h"
#include "tabvex/result_codes.h"

namespace tabvex {

CUnknownRecord::CUnknownRecord(CRecordContext& context) : CRecord(kUnknownType.data(), context) {
    m_bGeneric = 1;
}

int CUnknownRecord::FirstEntry(int /*item*/) {
    return TABVEX_ENTRY_NO_LAYOUT;
}

int CUnknownRecord::NextEntry(int /*item*/) {
    return TABVEX_ENTRY_NO_LAYOUT;
}

int CUnknownRecord::ReadEntryItem(int /*item*/, const CItemDef& /*definition*/, std::string_view& /*text*/) {
    return TABVEX_ITEM_NO_ACCESS;
}

int CUnknownRecord::WriteEntry(int /*item*/, const CItemDef& /*definition*/, std::string_view /*value*/) {
    return TABVEX_ITEM_NO_ACCESS;
}

} // namespace tabvex
