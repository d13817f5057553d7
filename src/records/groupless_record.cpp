#include "records/groupless_record.h"

#include "core/record_context.h"
#include "tabvex/result_codes.h"

namespace tabvex {

CGrouplessRecord::CGrouplessRecord(int type, CRecordContext& context)
    : CRecord(RecordTypeRow(type).Key.data(), context) {
    m_pLayout = context.LayoutOf(type);
}

int CGrouplessRecord::FirstEntry(int /*item*/) {
    return TABVEX_ENTRY_NO_GROUP;
}

int CGrouplessRecord::NextEntry(int /*item*/) {
    return TABVEX_ENTRY_NO_GROUP;
}

int CGrouplessRecord::ReadEntryItem(int /*item*/, const CItemDef& /*definition*/, std::string_view& /*text*/) {
    return TABVEX_ENTRY_NO_GROUP;
}

int CGrouplessRecord::WriteEntry(int /*item*/, const CItemDef& /*definition*/, std::string_view /*value*/) {
    return TABVEX_ENTRY_NO_GROUP;
}

} // namespace tabvex
