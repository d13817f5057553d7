// The tool as a whole: its command line and what it answers to the shell.
#pragma once

namespace tabvex::tool {

/// Runs the command that the command line names; the exit status, a value of EExitStatus.
int RunTool(int argc, char** argv) noexcept;

} // namespace tabvex::tool
