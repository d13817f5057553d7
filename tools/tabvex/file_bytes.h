// Whole files in memory.
#pragma once

#include <string>

namespace tabvex::tool {

/// Everything in a file. Throws CToolError when it cannot be read; a folder cannot.
std::string ReadFileBytes(const std::string& fileName);

} // namespace tabvex::tool
