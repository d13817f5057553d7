// tabvex check: every value of a record file, held against its layout.
#include <CLI/CLI.hpp>

#include <memory>

#include "commands.h"
#include "exit_status.h"
#include "json_text.h"
#include "output.h"
#include "record_check.h"
#include "text_layout.h"

namespace tabvex::tool {

namespace {

constexpr const char* kFooter =
    "Findings are printed as file:line:column: item: rule: found, expected; then how many there are of each rule.\n"
    "Rules: number, digits, decimals, range, value-list, date, upper-case, length, layout (sign, fill, alignment),\n"
    "unknown-type, no-layout (the table file does not describe it), file (short records, lost separators).\n"
    "Blank fields are fine. Items are judged where programs read them: in entries, and in a record's first line.\n\n"
    "Examples:\n"
    "  tabvex check samples/all-types.rec --table samples/calculation.table\n"
    "  tabvex check calculation.rec --table calculation.table > /dev/null && echo fine\n"
    "  tabvex check calculation.rec --table calculation.table --json | jq '.totals'";

class CCheckView {
public:
    CCheckView(const CShowSource& source, const CRecordFindings& result, COutput& out)
        : m_Source(source), m_Result(result), m_Out(out) {}

    void ShowText() {
        for (const CRecordFinding& finding : m_Result.Findings) {
            m_Out.WriteLine(Place(finding) + Contents(finding));
        }
        const std::size_t count = m_Result.Findings.size();
        m_Out.WriteLine((count == 0 ? "no findings" : Counted(count, "finding")) + " in " +
                        Counted(static_cast<std::size_t>(m_Source.GetFile().GetLineCount()), "line") + ", " +
                        Counted(m_Result.FieldCount, "field"));
        for (const auto& [rule, total] : m_Result.CountByRule()) {
            m_Out.WriteLine("  " + PadRight(rule, kRuleWidth) + "  " + std::to_string(total));
        }
    }

    void ShowJson() {
        m_Out.Write("{\"file\":" + ToJson(m_Source.GetOptions().File) +
                    ",\"lines\":" + std::to_string(m_Source.GetFile().GetLineCount()) +
                    ",\"fields\":" + std::to_string(m_Result.FieldCount) + ",\n\"findings\":[");
        CJsonList list(m_Out);
        for (const CRecordFinding& finding : m_Result.Findings) {
            list.Add(ToJson({{"line", Number(finding.Line)},
                             {"column", Number(finding.Column)},
                             {"item", Number(finding.Item)},
                             {"rule", finding.Rule},
                             {"found", m_Source.GetDecoder().ToUtf8(finding.Found)},
                             {"expected", m_Source.GetDecoder().ToUtf8(finding.Expected)}}));
        }
        nlohmann::ordered_json totals = nlohmann::ordered_json::object();
        for (const auto& [rule, total] : m_Result.CountByRule()) {
            totals[rule] = total;
        }
        m_Out.WriteLine("\n],\n\"totals\":" + ToJson(totals) + "}");
    }

private:
    static constexpr std::size_t kRuleWidth = 12;

    static nlohmann::ordered_json Number(int number) {
        return number > 0 ? nlohmann::ordered_json(number) : nlohmann::ordered_json(nullptr);
    }

    std::string Place(const CRecordFinding& finding) const {
        std::string place = m_Source.GetOptions().File + ":";
        for (const int number : {finding.Line, finding.Column}) {
            place.append(number > 0 ? std::to_string(number) + ":" : "");
        }
        return place + " ";
    }

    // What is wrong with the file as a whole is told in words.
    std::string Contents(const CRecordFinding& finding) const {
        const std::string expected = m_Source.GetDecoder().ToShown(finding.Expected);
        if (finding.Rule == kFileRule) {
            return finding.Rule + ": " + expected;
        }
        const std::string item = finding.Item > 0 ? "item " + std::to_string(finding.Item) + ": " : "";
        return item + finding.Rule + ": found \"" + m_Source.GetDecoder().ToShown(finding.Found) + "\", expected " +
               expected;
    }

    const CShowSource& m_Source;
    const CRecordFindings& m_Result;
    COutput& m_Out;
};

int Check(const CShowOptions& options, COutput& out) {
    CShowSource source(options);
    const CRecordFindings result = CheckRecords(source);
    CCheckView view(source, result, out);
    if (options.Json) {
        view.ShowJson();
    } else {
        view.ShowText();
    }
    return result.Findings.empty() ? kFine : kFindings;
}

} // namespace

void AddCheckCommand(CLI::App& app, COutput& out, int& status) {
    CLI::App* command = app.add_subcommand("check", "Hold every value of a record file against its layout");
    const auto options = std::make_shared<CShowOptions>();
    command->add_option("FILE", options->File, "Record file")->required();
    command->add_option("--table", options->Table, "Table file that describes it")->required();
    command->add_flag("--json", options->Json, "JSON instead of text");
    command->add_option("--code-page", options->CodePage, "Code page of the record file: 850, 437 or 1252")
        ->check(CLI::IsMember({850, 437, 1252}))
        ->capture_default_str();
    command->footer(kFooter);
    command->callback([options, &out, &status] { status = Check(*options, out); });
}

} // namespace tabvex::tool
