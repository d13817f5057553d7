#include "tool_system.h"

#include <cerrno>
#include <csignal>

namespace tabvex::tool {

// A reader that has seen enough, like 'head', closes the pipe.
void PrepareStreams() {
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
}

bool IsClosedPipe(int error) {
    return error == EPIPE;
}

std::vector<std::string> ArgumentsOf(int argc, char** argv) {
    return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

std::string SystemFileName(const std::string& name) {
    return name;
}

} // namespace tabvex::tool
