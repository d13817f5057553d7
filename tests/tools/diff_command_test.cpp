#include "tool_runner.h"

#include <gmock/gmock.h>

namespace tool_tests {
namespace {

using nlohmann::ordered_json;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::string_view kCells = "[DATA_X4]\n"
                                    "4000|2|1|C|Record type\n"
                                    "4025|3|8|C,,,,,(\"E\";\"LE1\")\n"
                                    "4030|4|11|C\n"
                                    "4055|3|8|C,,,,,(\"EM\";\"WM\")\n"
                                    "4060|12|11|N\n";

class DiffCommand : public CToolTest {
protected:
    CToolResult Diff(std::string_view a, std::string_view b, const std::vector<std::string>& options = {}) const {
        std::vector<std::string> arguments = {
            "diff", Write("a.rec", a), Write("b.rec", b), "--table",
            Write("x.table", std::string(kHeader).append(kListAndEntries).append(kCells).append(kReports))};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return Run(arguments);
    }
    CToolResult DiffLines(const std::vector<std::string>& a, const std::vector<std::string>& b) const {
        return Diff(CrLfRecords(a), CrLfRecords(b));
    }
    /// The differences alone; checks that there are some and nothing else.
    std::string Differences(const std::vector<std::string>& a, const std::vector<std::string>& b) const {
        const CToolResult result = DiffLines(a, b);
        EXPECT_EQ(result.Status, 1);
        EXPECT_THAT(result.Errors, IsEmpty());
        return result.Out;
    }
};

std::string Cells(const std::vector<std::string>& cells) {
    std::string line = "X40001 ";
    for (const std::string& cell : cells) {
        line.append(Padded(cell, 15));
    }
    return line;
}

TEST_F(DiffCommand, AFileIsTheSameAsItself) {
    for (const char* name : {"all-types.rec", "v-records.txt", "unknown-types.rec"}) {
        const CToolResult result = Run({"diff", Sample(name), Sample(name), "--table", Sample("calculation.table")});
        EXPECT_EQ(result.Status, 0) << name;
        EXPECT_THAT(result.Out, IsEmpty());
        EXPECT_THAT(result.Errors, IsEmpty());
    }
}

TEST_F(DiffCommand, CrLfAndTheOrderOfTheTypesDoNotCount) {
    const CToolResult result = Diff(CrLfRecords({"X10001 CLAIM-1", "X20001 AIRCON    1250.00", "QQ"}),
                                    Record("QQ") + Record("X20001 AIRCON    1250.00") + Record("X10001 CLAIM-1"));
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Out, IsEmpty());
}

TEST_F(DiffCommand, ShowsItemsEntriesAndUnknownLines) {
    EXPECT_EQ(
        Differences({"X10001 CLAIM-1", "X20001 AIRCON    1250.00RADIO       99.00", "QQ0001 one"},
                    {"X10001 CLAIM-2", "X20001 AIRCON    1250.00RADIO       89.00NAVI         5.00", "QQ0001 two"}),
        "X1 changed, line 1: 1020 \"CLAIM-1\" -> \"CLAIM-2\"\n"
        "X2 entry 2 changed, line 2: 2025 \"    99.00\" -> \"    89.00\"\n"
        "X2 entry 3 added, line 2: 2020 \"NAVI\", 2025 \"     5.00\"\n"
        "UNKNOWN removed, line 3: \"QQ0001 one\"\n"
        "UNKNOWN added, line 3: \"QQ0001 two\"\n");
}

TEST_F(DiffCommand, EntriesRemovedAtTheEndAreShownAsSuch) {
    EXPECT_EQ(Differences({"X20001 AIRCON    1250.00RADIO       99.00"}, {"X20001 AIRCON    1250.00"}),
              "X2 entry 2 removed, line 1: 2020 \"RADIO\", 2025 \"    99.00\"\n");
}

TEST_F(DiffCommand, EntriesAreMatchedByTheirPlaceAlsoBehindABlankOne) {
    EXPECT_EQ(Differences({"X20001 " + std::string(17, ' ') + "RADIO       99.00"},
                          {"X20001 AIRCON    1250.00RADIO       99.00"}),
              "X2 entry 1 added, line 1: 2020 \"AIRCON\", 2025 \"  1250.00\"\n");
}

TEST_F(DiffCommand, EntriesOfFurtherLinesHaveTheirOwnLineNumbers) {
    const std::string full = "X20001 " + [] {
        std::string entries;
        for (int i = 0; i < 7; ++i) {
            entries.append("AIRCON    1250.00");
        }
        return entries;
    }();
    EXPECT_EQ(Differences({full, "X20001 RADIO       99.00"}, {"QQ", full, "X20001 NAVI        99.00"}),
              "X2 entry 8 changed, line 2/3: 2020 \"RADIO\" -> \"NAVI\"\n"
              "UNKNOWN added, line 1: \"QQ\"\n");
}

TEST_F(DiffCommand, ATypeThatOneFileLacksIsShownByItsLines) {
    EXPECT_EQ(Differences({"X10001 A", "X20001 AIRCON"}, {"X20001 AIRCON", "V10001 B", "V1     C"}),
              "X1 removed, line 1: \"X10001 A\"\n"
              "V1 added, line 2: \"V10001 B\"\n"
              "V1 added, line 3: \"V1     C\"\n");
}

TEST_F(DiffCommand, UnknownLinesInBetweenAreFoundAmongEqualOnes) {
    EXPECT_EQ(Differences({"QQ1", "QQ2", "QQ3"}, {"QQ1", "QQ1b", "QQ2", "QQ3"}), "UNKNOWN added, line 2: \"QQ1b\"\n");
    EXPECT_EQ(Differences({"QQ1", "QQ1", "QQ3"}, {"QQ1", "QQ3"}), "UNKNOWN removed, line 2: \"QQ1\"\n");
}

TEST_F(DiffCommand, FurtherLinesOfAListAreComparedAsLines) {
    EXPECT_EQ(Differences({"X10001 A", "X10001 B", "X10001 C"}, {"X10001 A", "X10001 C"}),
              "X1 removed, line 2: \"X10001 B\"\n");
}

TEST_F(DiffCommand, WhatNoItemHoldsIsComparedAsALine) {
    EXPECT_EQ(Differences({Padded("X10001 A", 50) + "x"}, {Padded("X10001 A", 50) + "y"}),
              "X1 removed, line 1: \"" + Padded("X10001 A", 50) + "x\"\n" + "X1 added, line 1: \"" +
                  Padded("X10001 A", 50) + "y\"\n");
    // The header of a further line is in no item: items are those of the first.
    const std::string blank(std::size_t{7} * 17, ' ');
    EXPECT_EQ(Differences({"X20001 A" + blank, "X20001 B"}, {"X20001 A" + blank, "X20002 B"}),
              "X2 changed, line 2: \"X20001 B\" -> \"X20002 B\"\n");
}

TEST_F(DiffCommand, MutationsAreMatchedByTheirCode) {
    EXPECT_EQ(Differences({Cells({"E  0283", "EM       412.50", "WM        35.00", "LE10291"})},
                          {Cells({"E  0284", "WM        36.00", "LE10291", "EM         1.00"})}),
              "X4 entry 1 changed, line 1: 4030 \"0283\" -> \"0284\"\n"
              "X4 entry 1 mutation EM removed, line 1: 4055 \"EM\", 4060 \"      412.50\"\n"
              "X4 entry 1 mutation WM changed, line 1: 4060 \"       35.00\" -> \"       36.00\"\n"
              "X4 entry 2 mutation EM added, line 1: 4055 \"EM\", 4060 \"        1.00\"\n");
}

TEST_F(DiffCommand, RepairPositionsAtTheEndAreAddedWithTheirMutations) {
    EXPECT_EQ(Differences({Cells({"E  0283"})}, {Cells({"E  0283", "LE10291", "EM         1.00"})}),
              "X4 entry 2 added, line 1: 4025 \"LE1\", 4030 \"0291\"\n"
              "X4 entry 2 mutation EM added, line 1: 4055 \"EM\", 4060 \"        1.00\"\n");
}

TEST_F(DiffCommand, CellsThatOnlyMovedAreShownByTheirLine) {
    const std::string together = Cells({"E  0283", "EM         1.00"});
    const std::string apart = Cells({"E  0283", "", "EM         1.00"});
    EXPECT_EQ(Differences({together}, {apart}), "X4 changed, line 1: \"" + together + "\" -> \"" + apart + "\"\n");
}

TEST_F(DiffCommand, TextsAreDecodedFromTheCodePage) {
    EXPECT_EQ(Differences({"X10001 T\x81r"}, {"X10001 T\x81rE"}),
              "X1 changed, line 1: 1020 \"T\xC3\xBCr\" -> \"T\xC3\xBCrE\"\n");
    EXPECT_THAT(Diff(Record("X10001 \xFC"), Record("X10001"), {"--code-page", "1252"}).Out,
                HasSubstr("\"\xC3\xBC\" -> \"\""));
}

TEST_F(DiffCommand, LinesOfAnyLengthMayLackTheirLastBlanks) {
    const std::string report = "V10001" + std::string(21, ' ') + "It hailed.";
    EXPECT_EQ(Diff(report + "\nV9\n", report + "   \nV9 \n").Status, 0);
    const CToolResult result = Diff(report + "\nV9\n", report + "!\nV9\n");
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Out, "V1 entry 1 changed, line 1: 21035 \"It hailed.\" -> \"It hailed.!\"\n");
}

TEST_F(DiffCommand, GivesJson) {
    const CToolResult result = Diff(
        CrLfRecords({"X10001 CLAIM-1", "X20001 AIRCON    1250.00", "QQ1", Cells({"E  0283", "EM         1.00"})}),
        CrLfRecords({"X10001 CLAIM-2", "X20001 AIRCON    1250.00NAVI         5.00", Cells({"E  0283"})}), {"--json"});
    EXPECT_EQ(result.Status, 1);
    const ordered_json json = result.Json();
    EXPECT_EQ(json["a"], GetFolder() + "/a.rec");
    EXPECT_EQ(json["b"], GetFolder() + "/b.rec");
    EXPECT_EQ(json["findings_a"].size(), 0U);
    EXPECT_EQ(json["findings_b"].size(), 0U);
    EXPECT_EQ(json["differences"], ordered_json::parse(R"([
        {"type":"X1","change":"changed","line_a":1,"line_b":1,"item":1020,"old":"CLAIM-1","new":"CLAIM-2"},
        {"type":"X2","change":"added","entry":2,"line_a":null,"line_b":2,"items":{"2020":"NAVI","2025":"     5.00"}},
        {"type":"X4","change":"removed","entry":1,"mutation":"EM","line_a":4,"line_b":null,
         "items":{"4055":"EM","4060":"        1.00"}},
        {"type":"UNKNOWN","change":"removed","line_a":3,"line_b":null,"old":"QQ1"}])"));
    EXPECT_EQ(Diff(Record("X1"), Record("X1"), {"--json"}).Json()["differences"].size(), 0U);
}

TEST_F(DiffCommand, ADamagedFileIsTroubleButIsComparedAsFarAsItGoes) {
    const CToolResult result = Diff(CrLfRecords({"X10001 A"}), CrLfRecords({"X10001 B"}) + "X1");
    EXPECT_EQ(result.Status, 2);
    EXPECT_EQ(result.Out, "X1 changed, line 1: 1020 \"A\" -> \"B\"\n");
    EXPECT_THAT(result.Errors, HasSubstr("b.rec:2: the record is cut off"));
}

TEST_F(DiffCommand, WhatGoesWrongHasStatusTwo) {
    const std::string file = Sample("all-types.rec");
    const std::string table = Sample("calculation.table");
    const std::string missing = GetFolder() + "/missing";
    const std::vector<std::vector<std::string>> rows = {{"diff", file, missing, "--table", table},
                                                        {"diff", missing, file, "--table", table},
                                                        {"diff", file, file, "--table", missing},
                                                        {"diff", file, file, "--table", file},
                                                        {"diff", file, "--table", table},
                                                        {"diff", file, file},
                                                        {"diff", file, file, "--table", table, "--code-page", "1"},
                                                        {"diff", file, file, "--table", table, "--colour"}};
    for (const std::vector<std::string>& arguments : rows) {
        const CToolResult result = Run(arguments);
        EXPECT_EQ(result.Status, 2) << testing::PrintToString(arguments);
        EXPECT_THAT(result.Out, IsEmpty());
        EXPECT_THAT(result.Errors, testing::Not(IsEmpty()));
    }
}

TEST_F(DiffCommand, HelpTellsTheExitStatusAndHasExamples) {
    const CToolResult result = Run({"diff", "--help"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Out, HasSubstr("Exit status: 0 no difference, 1 differences, 2 trouble"));
    EXPECT_THAT(result.Out, HasSubstr("Examples:\n  tabvex diff"));
}

} // namespace
} // namespace tool_tests
