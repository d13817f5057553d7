// What is wrong in a file, and where.
#pragma once

#include <string>
#include <vector>

namespace tabvex::tool {

struct CFinding {
    int Line = 0; ///< in the file, from 1; 0: the file as a whole
    std::string Text;
};

using CFindings = std::vector<CFinding>;

} // namespace tabvex::tool
