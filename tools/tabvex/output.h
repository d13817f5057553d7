// Standard output and messages.
#pragma once

#include <string>
#include <string_view>

#include "finding.h"

namespace tabvex::tool {

/// Thrown when nobody reads the standard output any more.
struct CClosedPipe {};

/// Standard output in large pieces. Write and Flush throw CClosedPipe, or CToolError when the output cannot be stored.
class COutput {
public:
    COutput();
    void Write(std::string_view text);
    void WriteLine(std::string_view text);
    void Flush();

private:
    std::string m_strPending;
};

/// Prints "tabvex: message" to standard error.
void PrintMessage(std::string_view message) noexcept;
/// Prints every finding as "file:line: text" to standard error.
void PrintFindings(std::string_view fileName, const CFindings& findings);

} // namespace tabvex::tool
