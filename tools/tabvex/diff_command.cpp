// tabvex diff: what differs between two record files.
#include <CLI/CLI.hpp>

#include <memory>

#include "commands.h"
#include "exit_status.h"
#include "file_diff.h"
#include "json_text.h"
#include "output.h"

namespace tabvex::tool {

namespace {

using nlohmann::ordered_json;

constexpr const char* kFooter =
    "Files are compared by record type, entry and item; lines of unknown types, and those that no item reaches, as\n"
    "lines. The order of the record types, CR LF and blanks at the end of a line do not count.\n"
    "Two line numbers, as in 7/8, are those in A and in B.\n"
    "Exit status: 0 no difference, 1 differences, 2 trouble, also when a file is damaged.\n\n"
    "Examples:\n"
    "  tabvex diff before.rec after.rec --table calculation.table\n"
    "  tabvex diff samples/all-types.rec samples/damaged.rec --table samples/calculation.table --json";

constexpr int kTrouble = 2;

struct CDiffOptions {
    std::string A;
    std::string B;
    std::string Table;
    int CodePage = 850;
    EFileForm Form = EFileForm::Auto;
    bool Json = false;
};

const char* NameOf(EChange change) {
    switch (change) {
    case EChange::Added:
        return "added";
    case EChange::Removed:
        return "removed";
    default:
        return "changed";
    }
}

CShowOptions SourceOptions(const CDiffOptions& options, const std::string& file) {
    CShowOptions source;
    source.File = file;
    source.Table = options.Table;
    source.CodePage = options.CodePage;
    source.Form = options.Form;
    return source;
}

class CDiffView {
public:
    CDiffView(const CTextDecoder& decoder, COutput& out, bool json)
        : m_Decoder(decoder), m_Out(out), m_List(out), m_bJson(json) {}

    void Show(const CDifference& difference) {
        ++m_nCount;
        if (m_bJson) {
            m_List.Add(ToJson(JsonOf(difference)));
        } else {
            m_Out.WriteLine(TextOf(difference));
        }
    }
    bool IsEmpty() const { return m_nCount == 0; }

private:
    std::string Quoted(const std::string& text) const { return "\"" + m_Decoder.ToShown(text) + "\""; }

    static std::string LineOf(const CDifference& difference) {
        const auto [a, b] = std::pair(difference.LineA, difference.LineB);
        return "line " + (a == 0 || b == 0 || a == b ? std::to_string(std::max(a, b))
                                                     : std::to_string(a) + "/" + std::to_string(b));
    }

    std::string TextOf(const CDifference& difference) const {
        std::string text = difference.Type + " ";
        if (difference.Entry > 0) {
            text.append("entry ").append(std::to_string(difference.Entry)).append(" ");
        }
        if (!difference.Mutation.empty()) {
            text.append("mutation ").append(m_Decoder.ToShown(difference.Mutation)).append(" ");
        }
        text.append(NameOf(difference.Change)).append(", ").append(LineOf(difference)).append(": ");
        if (difference.Change == EChange::Changed) {
            text.append(difference.Item > 0 ? std::to_string(difference.Item) + " " : "");
            return text + Quoted(difference.Old) + " -> " + Quoted(difference.New);
        }
        if (difference.Entry == 0 && difference.Mutation.empty()) {
            return text + Quoted(difference.Change == EChange::Added ? difference.New : difference.Old);
        }
        for (const auto& [item, value] : difference.Items) {
            text.append(std::to_string(item)).append(" ").append(Quoted(value));
            text.append(item == difference.Items.back().first ? "" : ", ");
        }
        return text;
    }

    ordered_json JsonOf(const CDifference& difference) const {
        const auto line = [](int number) { return number > 0 ? ordered_json(number) : ordered_json(nullptr); };
        ordered_json json = {{"type", difference.Type}, {"change", NameOf(difference.Change)}};
        if (difference.Entry > 0) {
            json["entry"] = difference.Entry;
        }
        if (!difference.Mutation.empty()) {
            json["mutation"] = m_Decoder.ToUtf8(difference.Mutation);
        }
        json["line_a"] = line(difference.LineA);
        json["line_b"] = line(difference.LineB);
        if (!difference.Items.empty()) {
            for (const auto& [item, value] : difference.Items) {
                json["items"][std::to_string(item)] = m_Decoder.ToUtf8(value);
            }
            return json;
        }
        if (difference.Item > 0) {
            json["item"] = difference.Item;
        }
        if (difference.Change != EChange::Added) {
            json["old"] = m_Decoder.ToUtf8(difference.Old);
        }
        if (difference.Change != EChange::Removed) {
            json["new"] = m_Decoder.ToUtf8(difference.New);
        }
        return json;
    }

    const CTextDecoder& m_Decoder;
    COutput& m_Out;
    CJsonList m_List;
    bool m_bJson;
    std::size_t m_nCount = 0;
};

int Diff(const CDiffOptions& options, COutput& out) {
    CShowSource a(SourceOptions(options, options.A));
    CShowSource b(SourceOptions(options, options.B));
    CDiffView view(a.GetDecoder(), out, options.Json);
    if (options.Json) {
        out.Write("{\"a\":" + ToJson(options.A) + ",\"b\":" + ToJson(options.B) + ",\"differences\":[");
    }
    CFileDiff(a, b, [&](const CDifference& difference) { view.Show(difference); }).Compare();
    if (options.Json) {
        out.WriteLine("\n],\"findings_a\":" + ToJson(FindingsToJson(a.GetFindings())) +
                      ",\"findings_b\":" + ToJson(FindingsToJson(b.GetFindings())) + "}");
    }
    out.Flush();
    PrintFindings(options.A, a.GetFindings());
    PrintFindings(options.B, b.GetFindings());
    if (!a.GetFindings().empty() || !b.GetFindings().empty()) {
        return kTrouble;
    }
    return view.IsEmpty() ? kFine : kFindings;
}

// Like the system's own tool it has one status for all that goes wrong.
int DiffOrTrouble(const CDiffOptions& options, COutput& out) {
    try {
        return Diff(options, out);
    } catch (const std::exception& error) {
        PrintMessage(error.what());
        return kTrouble;
    }
}

} // namespace

void AddDiffCommand(CLI::App& app, COutput& out, int& status) {
    CLI::App* command = app.add_subcommand("diff", "Show what differs between two record files");
    const auto options = std::make_shared<CDiffOptions>();
    const std::map<std::string, EFileForm> forms = {
        {"auto", EFileForm::Auto}, {"fixed", EFileForm::Fixed}, {"lines", EFileForm::Lines}};
    command->add_option("A", options->A, "Old record file")->required();
    command->add_option("B", options->B, "New record file")->required();
    command->add_option("--table", options->Table, "Table file that describes them")->required();
    command->add_flag("--json", options->Json, "JSON instead of text");
    command->add_option("--code-page", options->CodePage, "Code page of the record files: 850, 437 or 1252")
        ->check(CLI::IsMember({850, 437, 1252}))
        ->capture_default_str();
    command->add_option("--form", options->Form, "fixed: records of 128 characters; lines: lines of any length; auto")
        ->transform(CLI::CheckedTransformer(forms));
    command->footer(kFooter);
    command->callback([options, &out, &status] { status = DiffOrTrouble(*options, out); });
}

} // namespace tabvex::tool
