// Records that are flat lists of items.
#pragma once

#include "tabvex/record.h"

namespace tabvex {

/// Items always lie in the first line; further lines are kept and written back as they are.
class CListRecord : public CRecord {
public:
    /// `type` is an index of the record types.
    CListRecord(int type, CRecordContext& context);

protected:
    int FirstEntry(int item) override;
    int NextEntry(int item) override;
    int ReadEntryItem(int item, const CItemDef& definition, std::string_view& text) override;
    int WriteEntry(int item, const CItemDef& definition, std::string_view value) override;
};

} // namespace tabvex
