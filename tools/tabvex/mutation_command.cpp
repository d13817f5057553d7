// tabvex mutation: the mutations of repair positions.
#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>

#include "commands.h"
#include "exit_status.h"
#include "file_saver.h"
#include "json_text.h"
#include "mutation_file.h"
#include "output.h"
#include "text_layout.h"

namespace tabvex::tool {

namespace {

using nlohmann::ordered_json;

constexpr const char* kFooter =
    "A mutation is written CODE=VALUE, or CODE=TEXT1,TEXT2 for a code of kind 3 or 7; kinds tell what a code carries.\n"
    "The codes of a table file have kind 0, those of its items 4070 and 19270 kind 4: an amount is read for both. The\n"
    "library adds only codes whose kind says what they carry, so that 'add' needs --kinds:\n"
    "  1, 2, 4   an amount                 3   two texts\n"
    "  5, 6, 8   an amount, X4 only        7   two texts of 2 and 10 characters, X4 only\n"
    "'--kinds EM:1,TM:3' sets the kinds of two codes and leaves the others as they are; '--kinds table' gives each "
    "code\n"
    "the kind that its item in the table file stands for.\n\n"
    "A changed file is written as the library saves it: lines of a type together, where its first one was; the\n"
    "record-number markers at character 6 made new; CR LF as before. FZ records, which a save makes 640 characters "
    "long,\n"
    "keep their 128. A damaged file is not changed.\n\n"
    "Examples:\n"
    "  tabvex mutation list samples/all-types.rec --table samples/calculation.table --kinds table\n"
    "  tabvex mutation add samples/all-types.rec --table samples/calculation.table --entry 2 --kinds EM:1,TM:3 \\\n"
    "    EM=12.50 'TM=LA,two layers' -o changed.rec\n"
    "  tabvex mutation delete samples/all-types.rec --table samples/calculation.table --entry 1 EM -o changed.rec";

struct CCommandOptions : CMutationOptions {
    int Entry = 0; ///< 0: all
    bool Json = false;
    bool All = false;
    std::vector<std::string> Mutations; ///< to add, or the codes to delete
    std::string Out;
};

constexpr std::size_t kNumberWidth = 4;
constexpr const char* kGap = "  ";

std::string MutationText(const CMutationTexts& mutation) {
    switch (mutation.Result) {
    case TABVEX_OK:
        return mutation.Code + "=" + (mutation.Value.empty() ? mutation.Text1 + "," + mutation.Text2 : mutation.Value);
    case TABVEX_VALUE_BLANK:
        return mutation.Code + "  (blank)";
    case TABVEX_VALUE_NOT_A_NUMBER:
        return mutation.Code + "  (no number)";
    default:
        return mutation.Code + "  (result " + std::to_string(mutation.Result) + ")";
    }
}

void WriteAsText(int number, const CRepairPosition& position, COutput& out) {
    constexpr std::size_t kWidth = 4; // no item of a position is longer
    std::string line = PadLeft(std::to_string(number), kNumberWidth);
    for (const std::string& value : position.Values) {
        line.append(kGap).append(PadRight(value.empty() ? "-" : EscapeControls(value), kWidth));
    }
    out.WriteLine(TrimRight(line));
    for (const CMutationTexts& mutation : position.Mutations) {
        out.WriteLine(std::string(kNumberWidth + 2, ' ') + EscapeControls(TrimRight(MutationText(mutation))));
    }
}

std::string ToJsonText(int number, const CRepairPosition& position, const std::vector<int>& items) {
    ordered_json values = ordered_json::object();
    for (std::size_t i = 0; i < items.size(); ++i) {
        values[std::to_string(items[i])] = position.Values[i];
    }
    ordered_json mutations = ordered_json::array();
    for (const CMutationTexts& mutation : position.Mutations) {
        ordered_json member = {{"code", mutation.Code}};
        if (mutation.Result != TABVEX_OK) {
            member["value"] = nullptr;
        } else if (mutation.Value.empty()) {
            member["text1"] = mutation.Text1;
            member["text2"] = mutation.Text2;
        } else {
            member["value"] = mutation.Value;
        }
        mutations.push_back(std::move(member));
    }
    return ToJson({{"entry", number}, {"items", std::move(values)}, {"mutations", std::move(mutations)}});
}

int List(const CCommandOptions& options, COutput& out) {
    CMutationFile file(options);
    std::vector<CRepairPosition> positions;
    if (options.Entry > 0) {
        file.Select(options.Entry);
        positions.push_back(file.ReadSelected());
    } else {
        positions = file.ReadAll();
    }
    int number = std::max(options.Entry, 1);
    CJsonList list(out);
    out.Write(options.Json ? "{\"type\":" + ToJson(options.Type) + ",\"entries\":[" : "");
    for (const CRepairPosition& position : positions) {
        if (options.Json) {
            list.Add(ToJsonText(number, position, file.GetPositionItems()));
        } else {
            WriteAsText(number, position, out);
        }
        ++number;
    }
    out.Write(options.Json ? "\n]}\n" : "");
    return kFine;
}

// A fourth mutation, which the library passes over, moves up when one before it goes away.
bool ReadsBackAs(const CRepairPosition& expected, const CRepairPosition& position) {
    return position.Values == expected.Values && position.Mutations.size() >= expected.Mutations.size() &&
           std::equal(expected.Mutations.begin(), expected.Mutations.end(), position.Mutations.begin());
}

// Judged by reading it again, not by what the library answers to a save.
void Save(CMutationFile& file, const CCommandOptions& options) {
    const std::string bytes = file.GetBytes();
    const std::vector<CRepairPosition> expected = file.ReadAll();
    const std::string& target = options.Out.empty() ? options.File : options.Out;
    SaveFile(target, bytes, [&](const std::string& name) {
        CMutationOptions again = options;
        again.File = name;
        const std::vector<CRepairPosition> stored = CMutationFile(again).ReadAll();
        if (!std::equal(expected.begin(), expected.end(), stored.begin(), stored.end(), ReadsBackAs)) {
            throw CToolError(target + ": cannot be saved: its entries would not read back as they should be",
                             kFindings);
        }
    });
}

template <typename Change>
int ChangeEntry(const CCommandOptions& options, COutput& out, Change change) {
    CMutationFile file(options);
    file.Select(options.Entry);
    change(file);
    const CRepairPosition changed = file.ReadSelected();
    Save(file, options);
    WriteAsText(options.Entry, changed, out);
    return kFine;
}

int Add(const CCommandOptions& options, COutput& out) {
    return ChangeEntry(options, out, [&](CMutationFile& file) {
        for (const std::string& mutation : options.Mutations) {
            file.Add(mutation);
        }
    });
}

int Delete(const CCommandOptions& options, COutput& out) {
    if (options.All != options.Mutations.empty()) {
        throw CToolError("give either the codes to delete or --all", kUsage);
    }
    return ChangeEntry(options, out, [&](CMutationFile& file) {
        for (const std::string& code : options.Mutations) {
            file.Delete(code);
        }
        if (options.All) {
            file.DeleteAll();
        }
    });
}

using COptionsPointer = std::shared_ptr<CCommandOptions>;

CLI::App* AddAction(CLI::App& app, const char* name, const char* description, const COptionsPointer& options) {
    CLI::App* action = app.add_subcommand(name, description);
    action->add_option("FILE", options->File, "Record file")->required();
    action->add_option("--table", options->Table, "Table file that describes it")->required();
    action->add_option("--type", options->Type, "Record type: X4 or G9")
        ->check(CLI::IsMember({"X4", "G9"}))
        ->capture_default_str();
    action->add_option("--kinds", options->Kinds, "Kinds of mutation codes, e.g. EM:1,TM:3, or 'table'");
    action->add_option("--code-page", options->CodePage, "Code page of the record file: 850, 437 or 1252")
        ->check(CLI::IsMember({850, 437, 1252}))
        ->capture_default_str();
    action->footer(kFooter);
    return action;
}

CLI::Option* AddEntry(CLI::App& action, const COptionsPointer& options, const char* description) {
    return action.add_option("--entry", options->Entry, description)->check(CLI::PositiveNumber);
}

void AddOut(CLI::App& action, const COptionsPointer& options) {
    action.add_option("-o,--output", options->Out, "Save under this name, and leave FILE as it is");
}

} // namespace

void AddMutationCommand(CLI::App& app, COutput& out, int& status) {
    CLI::App* command = app.add_subcommand("mutation", "List, add and delete the mutations of repair positions");
    command->require_subcommand(1);
    command->footer(kFooter);
    const auto options = std::make_shared<CCommandOptions>();

    CLI::App* list = AddAction(*command, "list", "List repair positions with their mutations", options);
    AddEntry(*list, options, "Only this entry, counted from 1");
    list->add_flag("--json", options->Json, "JSON instead of text");
    list->callback([options, &out, &status] { status = List(*options, out); });

    CLI::App* add =
        AddAction(*command, "add", "Add mutations to an entry; one with the same code is replaced", options);
    add->add_option("CODE=VALUE", options->Mutations, "Mutations to add; two texts as CODE=TEXT1,TEXT2")->required();
    AddEntry(*add, options, "Entry, counted from 1")->required();
    AddOut(*add, options);
    add->callback([options, &out, &status] { status = Add(*options, out); });

    CLI::App* remove = AddAction(*command, "delete", "Delete mutations of an entry", options);
    remove->add_option("CODE", options->Mutations, "Codes of the mutations to delete");
    remove->add_flag("--all", options->All, "Delete all mutations of the entry");
    AddEntry(*remove, options, "Entry, counted from 1")->required();
    AddOut(*remove, options);
    remove->callback([options, &out, &status] { status = Delete(*options, out); });
}

} // namespace tabvex::tool
