// The tool's commands. Each adds itself to the command line and, when it is run, sets the exit status.
#pragma once

namespace CLI {
class App;
} // namespace CLI

namespace tabvex::tool {

class COutput;

void AddShowCommand(CLI::App& app, COutput& out, int& status);
void AddTableCommand(CLI::App& app, COutput& out, int& status);
void AddGetCommand(CLI::App& app, COutput& out, int& status);
void AddSetCommand(CLI::App& app, COutput& out, int& status);
void AddCheckCommand(CLI::App& app, COutput& out, int& status);
void AddMutationCommand(CLI::App& app, COutput& out, int& status);
void AddConvertCommand(CLI::App& app, COutput& out, int& status);
void AddDiffCommand(CLI::App& app, COutput& out, int& status);

} // namespace tabvex::tool
