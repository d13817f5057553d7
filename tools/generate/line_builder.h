#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "record_shapes.h"

namespace tabvex::generate {

// A line in the making: as long as the longest line a table can describe, cut when written.
constexpr std::size_t kBuildLength = 640;
constexpr std::size_t kRecordLength = 128;

// Between the item values of an entry given as one text.
constexpr char kPartDelimiter = '/';

// A blank line that holds the record type and the other default texts of the header.
std::string NewLine(const RecordShape& shape);

// The line that goes on with the entries where the first one is full.
std::string ContinuationLine(const RecordShape& shape, const std::string& firstLine);

// Checks the value and writes it at the item's place, moved by some characters.
void PutValue(std::string& line, const Item& item, std::string_view value, std::size_t shift = 0);

// Writes one entry, given as its items' values joined by kPartDelimiter, at the offset. A blank
// part leaves its item blank.
void PutEntry(std::string& line, const EntryGroup& group, std::size_t offset, std::string_view entry);

} // namespace tabvex::generate
