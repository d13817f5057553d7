// tabvex table: the layouts of a table file, and what is wrong in them.
#include <CLI/CLI.hpp>

#include <memory>
#include <optional>

#include "commands.h"
#include "exit_status.h"
#include "output.h"
#include "table_view.h"
#include "text_layout.h"

namespace tabvex::tool {

namespace {

constexpr const char* kFooter =
    "Formats: C text, U text in upper case, N number, D date. What is wrong in the file is told on standard error\n"
    "as file:line: finding.\n\n"
    "Examples:\n"
    "  tabvex table samples/calculation.table\n"
    "  tabvex table calculation.table --type X1\n"
    "  tabvex table calculation.table > /dev/null && echo fine\n"
    "  tabvex table calculation.table --json | jq '.sections[].type'";

struct CTableOptions {
    std::string File;
    std::string Type;
    bool Json = false;
    int CodePage = 850;
};

int ShowTable(const CTableOptions& options, COutput& out) {
    const CTableText table(options.File);
    const CTextDecoder decoder(options.CodePage);
    std::optional<CShapeFinder> shapes;
    // A file without a header is nothing that the library loads; its text is checked all the same.
    if (table.GetHeaderLine() > 0) {
        shapes.emplace(options.File, table);
    }
    const CTableFindings result = CheckTable(table, options.Type, shapes ? &*shapes : nullptr);
    const CTableSource source = {options.File, options.Type, table, decoder, result};
    if (options.Json) {
        ShowTableAsJson(source, out);
    } else {
        ShowTableAsText(source, out);
    }
    out.Flush();
    PrintFindings(options.File, result.Findings);
    return result.Findings.empty() ? kFine : kFindings;
}

} // namespace

void AddTableCommand(CLI::App& app, COutput& out, int& status) {
    CLI::App* command = app.add_subcommand("table", "Show the layouts of a table file and check it");
    const auto options = std::make_shared<CTableOptions>();
    command->add_option("TABLE", options->File, "Table file")->required();
    command->add_option("--type", options->Type, "Only the section of this record type, e.g. X1");
    command->add_flag("--json", options->Json, "JSON instead of text");
    command->add_option("--code-page", options->CodePage, "Code page of texts that are not UTF-8: 850, 437 or 1252")
        ->check(CLI::IsMember({850, 437, 1252}))
        ->capture_default_str();
    command->footer(kFooter);
    command->callback([options, &out, &status] {
        options->Type = UpperCase(options->Type);
        status = ShowTable(*options, out);
    });
}

} // namespace tabvex::tool
