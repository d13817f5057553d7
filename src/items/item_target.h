// The record object and the definition that an item call works on.
#pragma once

#include "core/all_records.h"

struct CAllRecords::CItemTarget {
    CRecord* Record = nullptr;
    const CItemDef* Definition = nullptr;
};

namespace tabvex {

inline bool IsCharacterItem(const CItemDef& definition) {
    return definition.Format == 'C' || definition.Format == 'U';
}

/// Copies a text into a caller's buffer of `size` characters, terminator included. TABVEX_OK, or TABVEX_TEXT_CUT with
/// the first `size` - 1 characters copied. In OEM mode (`codePages` given) the copy is converted to ANSI.
int DeliverText(std::string_view text, char* buffer, int size, const CCodePages* codePages);

} // namespace tabvex
