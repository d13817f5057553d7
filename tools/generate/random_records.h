#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "record_writer.h"
#include "table_text.h"

namespace tabvex::generate {

struct RandomFileOptions {
    std::string fileName;
    std::uint64_t records = 0;
    std::uint64_t seed = 0;
    std::vector<std::string> types; // empty: every type of the table that suits
    unsigned unknownPercent = 0;
    LineEnd lineEnd = LineEnd::kCrLf;
};

// Writes a record file of random contents that suit the table. The same table and options give the
// same bytes. Throws when a type is not in the table or the file cannot be written.
void WriteRandomFile(const Table& table, const RandomFileOptions& options);

} // namespace tabvex::generate
