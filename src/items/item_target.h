// The record object and the definition that an item call works on.
#pragma once

#include "core/all_records.h"

struct CAllRecords::CItemTarget {
    CRecord* Record;
    const CItemDef* Definition;
};

/// Runs `operation(target)` on the record object that owns an item and the item's definition; TABVEX_NO_RECORD or
/// TABVEX_ITEM_UNKNOWN without them.
template <typename Operation>
int CAllRecords::WithItem(int item, EMissing missing, Operation operation) {
    CRecord* record = missing == EMissing::IsCreated ? GetOrCreateRecordOfItem(item) : RecordOfItem(item);
    if (record == nullptr) {
        return TABVEX_NO_RECORD;
    }
    const CItemDef* definition = record->Definition(item);
    return definition == nullptr ? TABVEX_ITEM_UNKNOWN : operation(CItemTarget{record, definition});
}

namespace tabvex {

inline bool IsCharacterItem(const CItemDef& definition) {
    return definition.Format == 'C' || definition.Format == 'U';
}

/// Copies a text into a caller's buffer of `size` characters, terminator included. TABVEX_OK, or TABVEX_TEXT_CUT with
/// the first `size` - 1 characters copied. In OEM mode (`codePages` given) the copy is converted to ANSI.
int DeliverText(std::string_view text, char* buffer, int size, const CCodePages* codePages);

} // namespace tabvex
