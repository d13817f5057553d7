// tabvex show: every line of a record file, taken apart.
#include <CLI/CLI.hpp>

#include <map>
#include <memory>

#include "commands.h"
#include "exit_status.h"
#include "output.h"
#include "show_source.h"
#include "text_layout.h"

namespace tabvex::tool {

namespace {

constexpr const char* kFooter =
    "Items are shown as number, value and description; blank ones as (blank), in rows of entries as -.\n"
    "Blanks at the end of a value are left out, control characters are shown like \\x00.\n"
    "Lines of unknown types, and lines that no item reaches, are shown as they are.\n\n"
    "Examples:\n"
    "  tabvex show samples/all-types.rec --table samples/calculation.table\n"
    "  tabvex show calculation.rec --table calculation.table --type X2 --entries\n"
    "  tabvex show calculation.rec --table calculation.table --json | jq '.records[].type'";

int Show(const CShowOptions& options, COutput& out) {
    CShowSource source(options);
    if (options.Json) {
        ShowAsJson(source, out);
    } else {
        ShowAsText(source, out);
    }
    out.Flush();
    PrintFindings(options.File, source.GetFindings());
    return source.GetFindings().empty() ? kFine : kFindings;
}

} // namespace

void AddShowCommand(CLI::App& app, COutput& out, int& status) {
    CLI::App* command = app.add_subcommand("show", "Show every line of a record file with its items");
    const auto options = std::make_shared<CShowOptions>();
    const std::map<std::string, EFileForm> forms = {
        {"auto", EFileForm::Auto}, {"fixed", EFileForm::Fixed}, {"lines", EFileForm::Lines}};
    command->add_option("FILE", options->File, "Record file")->required();
    command->add_option("--table", options->Table, "Table file that describes it")->required();
    command->add_option("--type", options->Type, "Only the records of this type, e.g. X1; UNKNOWN for unknown ones");
    command->add_flag("--json", options->Json, "JSON instead of text");
    command->add_flag("--entries", options->EntriesOnly, "Entries only: a table for each type that has entries");
    command->add_option("--code-page", options->CodePage, "Code page of the record file: 850, 437 or 1252")
        ->check(CLI::IsMember({850, 437, 1252}))
        ->capture_default_str();
    command
        ->add_option("--form", options->Form,
                     "fixed: records of 128 characters; lines: lines of any length; auto: lines for V records that are "
                     "such, else fixed")
        ->transform(CLI::CheckedTransformer(forms));
    command->footer(kFooter);
    command->callback([options, &out, &status] {
        options->Type = UpperCase(options->Type);
        status = Show(*options, out);
    });
}

} // namespace tabvex::tool
