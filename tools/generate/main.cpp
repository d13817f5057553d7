#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>
#include <string>

#include "random_records.h"
#include "sample_files.h"
#include "table_text.h"

namespace {

using tabvex::generate::LineEnd;

struct Options {
    std::string table;
    std::string folder;
    bool noCrLf = false;
    tabvex::generate::RandomFileOptions random;
};

void AddSamples(CLI::App& app, Options& options) {
    CLI::App* command = app.add_subcommand("samples", "Write the sample calculation files");
    command->add_option("--table", options.table, "Table file that describes them")->required();
    command->add_option("--out", options.folder, "Folder to write them into")->required();
    command->callback([&options] { WriteSampleFiles(tabvex::generate::ReadTable(options.table), options.folder); });
}

void AddRecords(CLI::App& app, Options& options) {
    CLI::App* command = app.add_subcommand("records", "Write a record file of any size with random contents");
    auto& random = options.random;
    command->add_option("--table", options.table, "Table file that describes the records")->required();
    command->add_option("--records", random.records, "Number of records")->required();
    command->add_option("--seed", random.seed, "The same seed gives the same file")->capture_default_str();
    command->add_option("--types", random.types, "Record types, separated by commas (default: all but FZ and X8)")
        ->delimiter(',');
    command->add_option("--unknown", random.unknownPercent, "Percentage of records of unknown types")
        ->check(CLI::Range(0, 100))
        ->capture_default_str();
    command->add_flag("--no-crlf", options.noCrLf, "Write the records back to back, without CR LF");
    command->add_option("--out", random.fileName, "File to write")->required();
    command->callback([&options] {
        options.random.lineEnd = options.noCrLf ? LineEnd::kNone : LineEnd::kCrLf;
        WriteRandomFile(tabvex::generate::ReadTable(options.table), options.random);
    });
}

int Run(int argc, char** argv) {
    CLI::App app("Writes sample and random calculation record files");
    app.allow_windows_style_options(false); // the same arguments on every system
    app.require_subcommand(1);
    Options options;
    AddSamples(app, options);
    AddRecords(app, options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error);
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    try {
        return Run(argc, argv);
    } catch (const std::exception& error) {
        static_cast<void>(std::fprintf(stderr, "tabvex-generate: %s\n", error.what()));
        return 1;
    }
}
