#include "tool.h"

#include <CLI/CLI.hpp>

#include <csignal>
#include <exception>

#include "commands.h"
#include "exit_status.h"
#include "output.h"

namespace tabvex::tool {

namespace {

constexpr const char* kFooter =
    "Exit status: 0 fine, 1 something found wrong, 2 wrong usage, 3 a file cannot be read or written.\n"
    "'tabvex COMMAND --help' tells about a command, with examples.";

int Parse(CLI::App& app, int argc, char** argv) {
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? kFine : kUsage;
    }
    return kFine;
}

int Run(int argc, char** argv) {
    CLI::App app("Looks into calculation record files and the table files that describe them, checks and changes them",
                 "tabvex");
    app.set_version_flag("--version", "tabvex " TABVEX_TOOL_VERSION);
    app.require_subcommand(1);
    app.footer(kFooter);
    COutput out;
    int status = kFine;
    AddShowCommand(app, out, status);
    AddTableCommand(app, out, status);
    AddGetCommand(app, out, status);
    AddSetCommand(app, out, status);
    AddCheckCommand(app, out, status);
    AddMutationCommand(app, out, status);
    AddConvertCommand(app, out, status);
    AddDiffCommand(app, out, status);
    const int parsed = Parse(app, argc, argv);
    out.Flush();
    return parsed == kFine ? status : parsed;
}

// A reader that has seen enough, like 'head', closes the pipe: a write then fails instead of killing the tool.
void IgnoreClosedPipes() {
#ifdef SIGPIPE
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
#endif
}

} // namespace

int RunTool(int argc, char** argv) noexcept {
    IgnoreClosedPipes();
    try {
        return Run(argc, argv);
    } catch (const CClosedPipe&) {
        return kFine;
    } catch (const CToolError& error) {
        PrintMessage(error.what());
        return error.GetStatus();
    } catch (const std::exception& error) {
        PrintMessage(error.what());
        return kCannotRead;
    }
}

} // namespace tabvex::tool
