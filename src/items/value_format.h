// The step that every written value passes: checks against the item's definition and layout in the item's field.
#pragma once

#include <string>
#include <string_view>

#include "tabvex/item_def.h"

namespace tabvex {

/// Turns a value into the text of its field. `check` holds it against the value list and the ranges as well. `field` is
/// replaced only on success; `value` must not lie in it. Allocates nothing once `field` has the capacity.
/// TABVEX_OK; TABVEX_VALUE_NOT_LISTED, TABVEX_VALUE_TOO_LONG (character items); TABVEX_VALUE_NOT_A_NUMBER,
/// TABVEX_VALUE_NUMBER_NOT_LISTED, TABVEX_VALUE_OUT_OF_RANGE, TABVEX_VALUE_DOES_NOT_FIT (numbers);
/// TABVEX_DATE_ITEM_NO_PATTERN, TABVEX_DATE_DOES_NOT_FIT (dates, given in canonical form YYYYMMDD).
int FormatValue(const CItemDef& definition, std::string_view value, bool check, std::string& field);

/// Lays a number text out in a field of the item's length: fill, sign, implied point, alignment. False when it does not
/// fit; `field` is then unspecified.
bool LayOutNumber(const CItemDef& definition, std::string_view number, std::string& field);

/// True when `number` lies in at least one of the item's ranges.
bool IsInRanges(const CItemDef& definition, double number);

} // namespace tabvex
