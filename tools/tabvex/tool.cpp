#include "tool.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <exception>
#include <utility>

#include "commands.h"
#include "exit_status.h"
#include "output.h"
#include "tool_system.h"

namespace tabvex::tool {

namespace {

constexpr const char* kFooter =
    "Exit status: 0 fine, 1 something found wrong, 2 wrong usage, 3 a file cannot be read or written.\n"
    "'tabvex COMMAND --help' tells about a command, with examples.";

int Parse(CLI::App& app, std::vector<std::string> arguments) {
    try {
        std::reverse(arguments.begin(), arguments.end()); // as the parser takes them
        app.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? kFine : kUsage;
    }
    return kFine;
}

int Run(int argc, char** argv) {
    CLI::App app("Looks into calculation record files and the table files that describe them, checks and changes them",
                 "tabvex");
    app.allow_windows_style_options(false); // the same arguments on every system
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
    const int parsed = Parse(app, ArgumentsOf(argc, argv));
    out.Flush();
    return parsed == kFine ? status : parsed;
}

} // namespace

int RunTool(int argc, char** argv) noexcept {
    try {
        PrepareStreams();
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
