// tabvex get: the values of single items.
#include <CLI/CLI.hpp>

#include <memory>

#include "commands.h"
#include "exit_status.h"
#include "field_value.h"
#include "item_place.h"
#include "json_text.h"
#include "output.h"

namespace tabvex::tool {

namespace {

constexpr const char* kFooter =
    "Prints one value a line, in the order asked for; a blank one as an empty line. Numbers are printed with the "
    "digits\n"
    "that the file holds and a point, dates as YYYY-MM-DD or YYYY-MM, texts without the blanks at their end.\n"
    "Items of entries are those of one entry, counted as 'tabvex show' lists them. When one item cannot be had, "
    "nothing\n"
    "is printed but a message.\n\n"
    "Examples:\n"
    "  tabvex get samples/all-types.rec 1020 1030 --table samples/calculation.table\n"
    "  tabvex get calculation.rec 2020 2025 --table calculation.table --entry 3\n"
    "  tabvex get calculation.rec 1060 --table calculation.table --json | jq '.items[0].value'";

struct CGetOptions {
    CShowOptions Source;
    std::vector<int> Items;
    int Entry = 1;
};

struct CGotItem {
    CItemPlace Place;
    CFieldValue Value;
};

// Null for an item that cannot be had, which is told.
std::unique_ptr<CGotItem> GetItem(CShowSource& source, int item, int entry) {
    try {
        auto got = std::make_unique<CGotItem>();
        got->Place = FindItemPlace(source, item, entry);
        got->Value = ReadFieldValue(*got->Place.Item, FieldAt(source, got->Place));
        if (got->Value.Kind != EValueKind::Bad) {
            return got;
        }
        const CItemDef& definition = *got->Place.Item;
        const std::string kind = definition.Format == 'N' ? "number" : "date " + definition.DatePattern;
        PrintMessage(NameOf(got->Place) + ": \"" + source.GetDecoder().ToShown(got->Value.Text) + "\" is no " + kind);
    } catch (const CToolError& error) {
        if (error.GetStatus() != kFindings) {
            throw;
        }
        PrintMessage(error.what());
    }
    return nullptr;
}

// Numbers are written as they are: a floating-point number would not keep all digits.
std::string JsonValue(const CShowSource& source, const CFieldValue& value) {
    switch (value.Kind) {
    case EValueKind::Blank:
        return "null";
    case EValueKind::Number:
        return value.Text;
    default:
        return ToJson(source.GetDecoder().ToUtf8(value.Text));
    }
}

void PrintJson(const CShowSource& source, const std::vector<std::unique_ptr<CGotItem>>& items, COutput& out) {
    out.Write("{\"file\":" + ToJson(source.GetOptions().File) + ",\"items\":[");
    CJsonList list(out);
    for (const auto& item : items) {
        const CItemPlace& place = item->Place;
        list.Add("{\"number\":" + std::to_string(place.Item->Number) +
                 ",\"entry\":" + (place.Entry == 0 ? "null" : std::to_string(place.Entry)) +
                 ",\"line\":" + std::to_string(place.Line) + ",\"value\":" + JsonValue(source, item->Value) + "}");
    }
    out.WriteLine("\n]}");
}

int Get(const CGetOptions& options, COutput& out) {
    CShowSource source(options.Source);
    std::vector<std::unique_ptr<CGotItem>> items;
    bool complete = true;
    for (const int item : options.Items) {
        items.push_back(GetItem(source, item, options.Entry));
        complete = complete && items.back() != nullptr;
    }
    if (complete && options.Source.Json) {
        PrintJson(source, items, out);
    } else if (complete) {
        for (const auto& item : items) {
            out.WriteLine(source.GetDecoder().ToShown(item->Value.Text));
        }
    }
    out.Flush();
    PrintFindings(options.Source.File, source.GetFindings());
    return complete && source.GetFindings().empty() ? kFine : kFindings;
}

} // namespace

void AddGetCommand(CLI::App& app, COutput& out, int& status) {
    CLI::App* command = app.add_subcommand("get", "Print the values of items");
    const auto options = std::make_shared<CGetOptions>();
    command->add_option("FILE", options->Source.File, "Record file")->required();
    command->add_option("ITEM", options->Items, "Numbers of the items")->required()->check(CLI::PositiveNumber);
    command->add_option("--table", options->Source.Table, "Table file that describes it")->required();
    command->add_option("--entry", options->Entry, "Entry of which items of entries are printed, from 1")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    command->add_flag("--json", options->Source.Json, "JSON instead of text");
    command->add_option("--code-page", options->Source.CodePage, "Code page of the record file: 850, 437 or 1252")
        ->check(CLI::IsMember({850, 437, 1252}))
        ->capture_default_str();
    command->footer(kFooter);
    command->callback([options, &out, &status] { status = Get(*options, out); });
}

} // namespace tabvex::tool
