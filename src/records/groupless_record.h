// The "G3" record: a type of its own without any entries.
#pragma once

#include "tabvex/record.h"

namespace tabvex {

class CGrouplessRecord : public CRecord {
public:
    /// `type` is an index of the record types.
    CGrouplessRecord(int type, CRecordContext& context);

protected:
    int FirstEntry(int item) override;
    int NextEntry(int item) override;
    int ReadEntryItem(int item, const CItemDef& definition, std::string_view& text) override;
    int WriteEntry(int item, const CItemDef& definition, std::string_view value) override;
};

} // namespace tabvex
