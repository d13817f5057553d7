// What stands in a field, as a value.
#pragma once

#include <string>
#include <string_view>

#include "tabvex/item_def.h"

namespace tabvex::tool {

enum class EValueKind {
    Blank,
    Text,   ///< without blanks at its end
    Number, ///< in decimal with every digit that the field holds: "-12.50"
    Date,   ///< "2025-11-14", without a day "2025-11"
    Bad,    ///< not what the item's format asks for; the text as it is, without blanks at its end
};

struct CFieldValue {
    EValueKind Kind = EValueKind::Blank;
    std::string Text;
};

/// The value in an item's field, which ends at the first NUL.
CFieldValue ReadFieldValue(const CItemDef& item, std::string_view field);

/// A number without blanks and fill, with its sign in front: as written, and without zeros that say nothing.
struct CFieldNumber {
    std::string Written; ///< "-0012.50"
    std::string Value;   ///< "-12.50"
};

/// False when the field holds no number.
bool ReadFieldNumber(const CItemDef& item, std::string_view field, CFieldNumber& number);

/// Reads a date in the form of a date pattern: "20251114", without a day "202511". False when it is none, the pattern
/// is none of the library's layouts, or there is no such day by the library's calendar.
bool ReadDate(std::string_view pattern, std::string_view text, std::string& date);
/// True for a date pattern that dates can be read and written by.
bool IsUsablePattern(std::string_view pattern);
/// "2025-11-14" for "20251114", "2025-11" for "202511".
std::string IsoDate(std::string_view date);

/// The field without what lies behind the first NUL, padded with blanks to the item's length.
std::string PaddedField(const CItemDef& item, std::string_view field);

} // namespace tabvex::tool
