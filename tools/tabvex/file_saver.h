// Saving a file so that the old one is never lost.
#pragma once

#include <functional>
#include <string>

namespace tabvex::tool {

/// Called with the name of a file that holds what is to be saved, before anything is replaced; throws to prevent it.
using CSaveCheck = std::function<void(const std::string&)>;

/// Saves `bytes` under a name: into a new file beside it that takes its place when all of it is on the disk and has
/// been checked. An existing file keeps its mode, a link its target. Where the folder allows no new file, the file is
/// overwritten, with a copy of it in the folder for temporary files until that is done. What is no ordinary file, like
/// a device, is written to as it is. Throws CToolError, with the old file as it was.
void SaveFile(const std::string& fileName, const std::string& bytes, const CSaveCheck& check);

} // namespace tabvex::tool
