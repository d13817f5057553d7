// A line of a type that is not known.
#pragma once

#include "tabvex/record.h"

namespace tabvex {

/// Keeps its line and writes it back unchanged; it has no items.
class CUnknownRecord : public CRecord {
public:
    explicit CUnknownRecord(CRecordContext& context);

protected:
    int FirstEntry(int item) override;
    int NextEntry(int item) override;
    int ReadEntryItem(int item, const CItemDef& definition, std::string_view& text) override;
    int WriteEntry(int item, const CItemDef& definition, std::string_view value) override;
};

} // namespace tabvex
