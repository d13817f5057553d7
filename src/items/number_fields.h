// Numbers in fields: reading them, rounding them, printing them.
#pragma once

#include <string_view>

#include "tabvex/item_def.h"

namespace tabvex {

/// Reads the text of a numeric field as an integer, sign modifiers E and B applied. TABVEX_OK;
/// TABVEX_VALUE_BLANK with value 0; TABVEX_VALUE_NOT_A_NUMBER with the value read so far.
int ParseIntField(const CItemDef& definition, std::string_view field, int& value);

/// Reads the text of a numeric field as a floating-point number, sign modifiers and the implied point (P) applied.
/// TABVEX_OK; TABVEX_VALUE_BLANK with value 0.0; TABVEX_VALUE_NOT_A_NUMBER with the unscaled value read so far.
int ParseFloatField(const CItemDef& definition, std::string_view field, double& value);

/// Rounds to a number of decimals: half up, and toward zero after adding one half for negative values (kept on
/// purpose).
double RoundToDecimals(double value, int decimals);

/// Room for any number that PrintNumber makes, terminator included.
constexpr int kNumberTextSize = 32;
/// Prints as "%g" does in the "C" locale, six significant digits, or as a decimal integer. Returns a view into `text`,
/// which is terminated.
std::string_view PrintNumber(double value, char (&text)[kNumberTextSize]);
std::string_view PrintNumber(int value, char (&text)[kNumberTextSize]);

} // namespace tabvex
