#include "tool_runner.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

namespace tool_tests {
namespace {

using nlohmann::ordered_json;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

std::string SampleBytes(const std::string& name) {
    std::ifstream file(Sample(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class CheckCommand : public CToolTest {
protected:
    CToolResult Check(std::string_view bytes, const std::string& table) const {
        return Run({"check", Write("x.rec", bytes), "--table", table});
    }
    CToolResult CheckSections(std::string_view bytes, const std::string& sections) const {
        return Check(bytes, Write("x.table", std::string(kHeader) + sections));
    }
    /// A copy of the sample file in which a text stands at a line and column, both from 1.
    CToolResult CheckChanged(int line, int column, const std::string& text) const {
        constexpr int kStep = 130;
        std::string bytes = SampleBytes("all-types.rec");
        bytes.replace(static_cast<std::size_t>((line - 1) * kStep + column - 1), text.size(), text);
        return Check(bytes, Sample("calculation.table"));
    }
    std::string At(const std::string& place, const std::string& text) const {
        return GetFolder() + "/x.rec:" + place + ": " + text + "\n";
    }
};

TEST_F(CheckCommand, TheSampleFilesAreClean) {
    for (const char* name : {"all-types.rec", "all-types-unseparated.rec", "umlauts-cp850.rec", "v-records.txt"}) {
        const CToolResult result = Run({"check", Sample(name), "--table", Sample("calculation.table")});
        EXPECT_EQ(result.Status, 0) << name;
        EXPECT_THAT(result.Out, StartsWith("no findings in ")) << name;
        EXPECT_THAT(result.Errors, IsEmpty()) << name;
    }
}

// Line 1 is X1, lines 8 and 9 are X2, whose first entry stands at columns 8 and 16.
TEST_F(CheckCommand, OneBadValueIsFoundAtItsPlaceByItsRule) {
    struct {
        int Line;
        int Column;
        const char* Text;
        const char* Finding;
    } const rows[] = {
        {1, 75, "Q", "item 1080: value-list: found \"Q\", expected one of P, V, M, T"},
        {1, 124, " 1800", "item 1130: value-list: found \" 1800\", expected one of 0, 7, 8.1, 19, 20"},
        {1, 3, "0000", "item 1005: range: found \"0000\", expected <1;9999>"},
        {1, 61, "2000001", "item 1060: range: found \"2000001\", expected <0;2000000>"},
        {1, 61, " 4821O ", "item 1060: number: found \" 4821O \", expected a number"},
        {1, 61, "4821.50", "item 1060: decimals: found \"4821.50\", expected 0 decimals at most"},
        {1, 61, "48210  ", R"(item 1060: layout: found "48210  ", expected "  48210")"},
        {1, 3, "   1", R"(item 1005: layout: found "   1", expected "0001")"},
        {1, 24, "31.08.2025", "item 1030: date: found \"31.08.2025\", expected a date DD.MM.YYYY"},
        {1, 24, "14-11-2025", "item 1030: date: found \"14-11-2025\", expected a date DD.MM.YYYY"},
        {1, 24, "30.11.1999", "item 1030: range: found \"30.11.1999\", expected <2000-01-01;2049-12-30>"},
        {1, 68, "13/2021", "item 1070: date: found \"13/2021\", expected a date MM/YYYY"},
        {1, 8, "clm             ", R"(item 1020: upper-case: found "clm             ", expected "CLM             ")"},
        {8, 16, "    -5.00", "item 2025: range: found \"    -5.00\", expected <0;)"},
        {8, 16, "1234567.0", "item 2025: digits: found \"1234567.0\", expected 6 digits at most before the point"},
    };
    for (const auto& row : rows) {
        const CToolResult result = CheckChanged(row.Line, row.Column, row.Text);
        EXPECT_EQ(result.Status, 1) << row.Text;
        const std::string place = std::to_string(row.Line) + ":" + std::to_string(row.Column);
        EXPECT_THAT(result.Out, StartsWith(At(place, row.Finding) + "1 finding in 196 lines, ")) << row.Text;
    }
}

TEST_F(CheckCommand, ItemsOfLaterEntriesAndLinesHaveTheirOwnPlace) {
    const std::string sections = "[DATA_X2]\n2000|2|1|C\n2020|8|8|C\n2025|9|16|N,,,R 6.2\n";
    const CToolResult result = CheckSections(CrLfRecords({"X20001 A            1.00B            x.00", "QQ",
                                                          "X20001 C            1.00D            2.00E         x"}),
                                             sections);
    EXPECT_EQ(result.Out,
              At("1:33", "item 2025: number: found \"     x.00\", expected a number") +
                  At("2:1", "unknown-type: found \"QQ\", expected a record type that the library takes apart") +
                  At("3:50", "item 2025: number: found \"  x      \", expected a number") +
                  "3 findings in 3 lines, 11 fields\n  number        2\n  unknown-type  1\n");
}

TEST_F(CheckCommand, BlankFieldsAndUnwrittenEntriesAreFine) {
    const std::string sections = "[DATA_X1]\n1000|2|1|C\n1020|3|8|C,,,,,(\"A\")\n1025|10|20|D,,,,,,DD.MM.YYYY\n"
                                 "[DATA_X2]\n2000|2|1|C\n2020|8|8|C,,,,,(\"A\")\n2025|9|16|N,,,R 6.2,<1;5>\n";
    const CToolResult result = CheckSections(CrLfRecords({"X1", "X20001 A            1.00", "X2"}), sections);
    EXPECT_EQ(result.Status, 0) << result.Out;
}

TEST_F(CheckCommand, SignFillAndPointFollowTheLayout) {
    struct {
        const char* Descriptor;
        const char* Field; // 8 characters
        const char* Finding;
    } const rows[] = {
        {"N,,\"0\",RPE 5.2", "0001250-", ""},
        {R"(N,,"0",RPE 5.2)", "0001250 ", R"(layout: found "0001250 ", expected "0001250+")"},
        {R"(N,,"0",RPE 5.2)", "-0001250", R"(layout: found "-0001250", expected "0001250-")"},
        {R"(N,,"0",RPE 5.2)", "   1250-", R"(layout: found "   1250-", expected "0001250-")"},
        {"N,,,RB 4.2", "-  12.50", ""},
        {"N,,,RB 4.2", "  -12.50", R"(layout: found "  -12.50", expected "-  12.50")"},
        {"N,,,RS 4.2", "  +12.50", ""},
        {"N,,,RS 4.2", "   12.50", R"(layout: found "   12.50", expected "  +12.50")"},
        {"N,,,L 5.2", "12.50   ", ""},
        {"N,,,L 5.2", "   12.50", R"(layout: found "   12.50", expected "12.50   ")"},
        {"N,,,R 5.2", "    12.5", R"(layout: found "    12.5", expected "   12.50")"},
        {"N,,,R 5.2", "   12,50", R"(layout: found "   12,50", expected "   12.50")"},
        {"N,,\"*\",R 5.2", "***12.50", ""},
        {"N,,,R 5.2", "    0.50", ""},
        {"N,,,R 5.2", "   12.505", "decimals: found \"  12.505\", expected 2 decimals at most"},
        {"N,,,R 5.2", "123456.0", "digits: found \"123456.0\", expected 5 digits at most before the point"},
        {"N", "12,5    ", ""},
        {"N", "1e3     ", "number: found \"1e3     \", expected a number"},
        {"C,,,R,", "      AB", ""},
        {"C,,,R,", "AB      ", R"(layout: found "AB      ", expected "      AB")"},
        {R"(C,,,R,,("AB";"C"))", "       C", ""},
        {R"(C,,,L,,("AB";"C"))", "ABC     ", R"(value-list: found "ABC     ", expected one of AB, C)"},
        {"D,,,,,(2025-01-01;2026-01-01),DDMMYYYY", "01012026", ""},
        {"D,,,,,(2025-01-01;2026-01-01),DDMMYYYY", "02012026",
         "value-list: found \"02012026\", expected one of 2025-01-01, 2026-01-01"},
        {"D,,,,(2025-01-01;2026-01-01),,DDMMYYYY", "01012025",
         "range: found \"01012025\", expected (2025-01-01;2026-01-01)"},
        {"D,,,,(2025-01-01;2026-01-01),,DDMMYYYY", "02012025", ""},
    };
    for (const auto& row : rows) {
        std::string field = row.Field;
        field = field.size() > 8 ? field.substr(field.size() - 8) : field;
        const CToolResult result = CheckSections(CrLfRecords({"X10001 " + field}),
                                                 std::string("[DATA_X1]\n1020|8|8|") + row.Descriptor + "\n");
        const std::string finding = row.Finding;
        EXPECT_EQ(result.Status, finding.empty() ? 0 : 1) << row.Descriptor << " " << field << "\n" << result.Out;
        EXPECT_THAT(result.Out, StartsWith(finding.empty() ? "no findings" : At("1:8", "item 1020: " + finding)))
            << row.Descriptor << " " << field;
    }
}

TEST_F(CheckCommand, TheCodesOfCellsAreHeldAgainstTheTable) {
    const std::string sections = "[DATA_X4]\n4000|2|1|C\n4025|3|8|C,,,,,(\"E\")\n4035|4|15|N,,,R 4.0,<0;500>\n"
                                 "4055|3|8|C,,,,,(\"EM\")\n4060|12|11|N,,,R 9.2\n"
                                 "4070|3|8|C,,,,,(\"TM\")\n4075|2|11|C,,,,,(\"LA\")\n4080|10|13|C\n";
    const std::string line = "X40001 " + Padded("E  0410 999", 15) + Padded("EM           xx", 15) +
                             Padded("TM LBtext", 15) + Padded("QQ?", 15);
    const CToolResult result = CheckSections(CrLfRecords({"X40001 " + Padded("E", 15) + "TM LA", line}), sections);
    EXPECT_EQ(result.Out,
              At("2:15", "item 4035: range: found \" 999\", expected <0;500>") +
                  At("2:26", "item 4060: number: found \"          xx\", expected a number") +
                  At("2:41", "item 4075: value-list: found \"LB\", expected one of LA") +
                  At("2:53",
                     "item 4025: value-list: found \"QQ?\", expected the code of a repair position or of a mutation") +
                  "4 findings in 2 lines, 13 fields\n  number        1\n  range         1\n  value-list    2\n");
}

TEST_F(CheckCommand, UnknownTypesAndShortRecordsAreFindings) {
    const CToolResult unknown = Run({"check", Sample("unknown-types.rec"), "--table", Sample("calculation.table")});
    EXPECT_EQ(unknown.Status, 1);
    EXPECT_THAT(unknown.Out, HasSubstr(":1:1: unknown-type: found \"QQ0001 fi\""));
    EXPECT_THAT(unknown.Out, HasSubstr(":4:1: unknown-type: found \"X80001 Ca\""));
    EXPECT_THAT(unknown.Out, HasSubstr("11 findings in 18 lines, "));
    const CToolResult damaged = Run({"check", Sample("damaged.rec"), "--table", Sample("calculation.table")});
    EXPECT_EQ(damaged.Status, 1);
    EXPECT_THAT(damaged.Out, HasSubstr("damaged.rec:13: file: the record is cut off: it has 61 of 128 characters"));
    EXPECT_THAT(damaged.Out, HasSubstr("\n  file          1\n"));
}

TEST_F(CheckCommand, UnknownLinesOfAnyLengthAreFindings) {
    const CToolResult result = CheckSections("V1\nQQ\nV1\n", "[DATA_V1]\n21005|2|1|C\n21035|47|28|C\n");
    EXPECT_THAT(result.Out, StartsWith(At("2:1", "unknown-type: found \"QQ\", expected a record type that the library "
                                                 "takes apart")));
    EXPECT_EQ(result.Status, 1);
}

TEST_F(CheckCommand, ATypeThatTheTableLeavesOutIsAFinding) {
    const CToolResult result = CheckSections(CrLfRecords({"X1", "W10001 workshop"}), "[DATA_X1]\n1000|2|1|C\n");
    EXPECT_THAT(result.Out, StartsWith(At("2:1", "no-layout: found \"W1\", expected a section in the table file")));
}

TEST_F(CheckCommand, AnItemThatTheTableDescribesBadlyIsAFinding) {
    // Modifiers must be followed by a blank or a comma.
    const CToolResult result = CheckSections(CrLfRecords({"X10001"}), "[DATA_X1]\n1000|2|1|C\n1020|8|8|C,,,R\n");
    EXPECT_THAT(result.Out,
                StartsWith(At("1:1", "item 1020: no-layout: found \"X1\", expected a line in the table file "
                                     "that can be read, see 'tabvex table'")));
}

TEST_F(CheckCommand, JsonHoldsFindingsAndTotals) {
    const std::string table =
        Write("x.table", std::string(kHeader) + "[DATA_X1]\n1000|2|1|C\n1020|8|8|C,,,,,(\"\x94l\";\"B\")\n");
    const CToolResult result =
        Run({"check", Write("x.rec", CrLfRecords({"X10001 \x84l"}) + "X"), "--table", table, "--json"});
    EXPECT_EQ(result.Status, 1);
    const ordered_json json = result.Json();
    EXPECT_EQ(json["lines"], 1);
    EXPECT_EQ(json["fields"], 2);
    ASSERT_EQ(json["findings"].size(), 2U);
    EXPECT_EQ(json["findings"][0], ordered_json::parse(R"({"line":1,"column":8,"item":1020,"rule":"value-list",
                                       "found":"äl      ","expected":"one of öl, B"})"));
    EXPECT_EQ(json["findings"][1]["line"], 2);
    EXPECT_EQ(json["findings"][1]["column"], nullptr);
    EXPECT_EQ(json["findings"][1]["rule"], "file");
    EXPECT_EQ(json["totals"], ordered_json::parse(R"({"file":1,"value-list":1})"));
    const ordered_json clean =
        Run({"check", Sample("all-types.rec"), "--table", Sample("calculation.table"), "--json"}).Json();
    EXPECT_EQ(clean["findings"].size(), 0U);
    EXPECT_EQ(clean["totals"], ordered_json::object());
}

TEST_F(CheckCommand, HelpHasExamplesAndWrongUsageIsStatusTwo) {
    EXPECT_THAT(Run({"check", "--help"}).Out, HasSubstr("Examples:\n  tabvex check "));
    EXPECT_EQ(Run({"check", Sample("all-types.rec")}).Status, 2);
    EXPECT_EQ(Run({"check", GetFolder(), "--table", Sample("calculation.table")}).Status, 3);
}

} // namespace
} // namespace tool_tests
