#pragma once

#include <string>
#include <string_view>

#include "table_text.h"

namespace tabvex::generate {

// Each of the three writes exactly the item's length to the field.
// A number is given in units of the item's last decimal place.
void PlaceNumber(const Item& item, long long units, char* field);
void PlaceText(const Item& item, std::string_view text, char* field);
void PlaceDate(const Item& item, const Date& date, char* field);

// The most digits before the point that a number of the item can have, sign included.
int MaxIntDigits(const Item& item);

// 10 to the power of the item's decimals.
long long UnitsPerOne(const Item& item);

// Checks a value against its item (value list, ranges, digits, width) and writes its field.
// Dates are given as YYYY-MM-DD. Throws std::invalid_argument when the value does not suit the item.
void PlaceValue(const Item& item, std::string_view value, char* field);

} // namespace tabvex::generate
