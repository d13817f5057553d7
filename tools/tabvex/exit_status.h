// How the tool ends: exit status and the errors that end it early.
#pragma once

#include <stdexcept>
#include <string>

namespace tabvex::tool {

enum EExitStatus : int {
    kFine = 0,
    kFindings = 1,   ///< the command did its work and found something wrong
    kUsage = 2,      ///< the command line makes no sense
    kCannotRead = 3, ///< a file cannot be read, or the result cannot be written
};

/// Ends the tool with a message and a status.
class CToolError : public std::runtime_error {
public:
    explicit CToolError(const std::string& message, EExitStatus status = kCannotRead)
        : std::runtime_error(message), m_nStatus(status) {}

    EExitStatus GetStatus() const { return m_nStatus; }

private:
    EExitStatus m_nStatus;
};

} // namespace tabvex::tool
