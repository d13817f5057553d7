// What the tool asks of the operating system beside its files; one source file per system implements it.
#pragma once

#include <string>
#include <vector>

namespace tabvex::tool {

/// Makes the standard streams carry bytes as they are, and a write into a closed pipe fail instead of ending the tool.
void PrepareStreams();
/// True when the write that failed last with this errno did so because nobody reads the pipe any more.
bool IsClosedPipe(int error);

/// The arguments behind the program's name, in UTF-8.
std::vector<std::string> ArgumentsOf(int argc, char** argv);
/// A file name in UTF-8 as the library and the C run time take it.
std::string SystemFileName(const std::string& name);

} // namespace tabvex::tool
