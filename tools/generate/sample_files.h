#pragma once

#include <string>

#include "table_text.h"

namespace tabvex::generate {

// Writes every sample calculation file into the folder. The same table gives the same bytes.
// Throws when a sample value does not suit its item in the table, or a file cannot be written.
void WriteSampleFiles(const Table& table, const std::string& folder);

} // namespace tabvex::generate
