#include "tool_runner.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tool_tests {
namespace {

using nlohmann::ordered_json;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string kSections = std::string(kListAndEntries).append(kReports);

class ShowCommand : public CToolTest {
protected:
    /// Shows these bytes with the header and sections as the table file.
    CToolResult Show(std::string_view bytes, std::vector<std::string> options = {},
                     std::string_view sections = kSections) const {
        options.insert(options.begin(), {"show", Write("x.rec", bytes), "--table",
                                         Write("x.table", std::string(kHeader).append(sections))});
        return Run(options);
    }
    ordered_json ShowJson(std::string_view bytes, std::vector<std::string> options = {},
                          std::string_view sections = kSections) const {
        options.emplace_back("--json");
        return Show(bytes, std::move(options), sections).Json();
    }
    std::string At(int line, const std::string& text) const {
        return GetFolder() + "/x.rec:" + std::to_string(line) + ": " + text + "\n";
    }
};

const ordered_json& RecordOf(const ordered_json& json, const std::string& type) {
    const auto& records = json.at("records");
    const auto record =
        std::find_if(records.begin(), records.end(), [&](const auto& r) { return r.at("type") == type; });
    if (record == records.end()) {
        throw std::runtime_error("no record of type " + type);
    }
    return *record;
}

TEST_F(ShowCommand, ShowsItemsEntriesFurtherAndUnknownLines) {
    const CToolResult result = Show(CrLfRecords(
        {"X10001 CLAIM-1", "X20001 AIRCON    1250.00RADIO       99.00", "QQ0001 nobody knows", "X10001 continued"}));
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Errors, IsEmpty());
    EXPECT_EQ(result.Out, "X1  2 lines: 1, 4\n"
                          "    1000  X1       Record type\n"
                          "    1005  0001     Number\n"
                          "    1020  CLAIM-1  Claim\n"
                          "  further lines, as they are:\n"
                          "       4  X10001 continued\n"
                          "\n"
                          "X2  1 line: 2\n"
                          "    2000  X2    Record type\n"
                          "    2005  0001  Number\n"
                          "  2 entries: 2020 Code; 2025 Price\n"
                          "    line  2020    2025\n"
                          "       2  AIRCON    1250.00\n"
                          "       2  RADIO       99.00\n"
                          "\n"
                          "Unknown record types\n"
                          "       3  QQ0001 nobody knows\n");
}

TEST_F(ShowCommand, BlankFieldsAreMarkedAndBlankEntriesLeftOut) {
    const CToolResult result = Show(CrLfRecords({"X1", "X20001 AIRCON                            NAVI       5.00"}));
    EXPECT_THAT(result.Out, HasSubstr("    1020  (blank)  Claim\n"));
    EXPECT_THAT(result.Out, HasSubstr("  2 entries: "));
    EXPECT_THAT(result.Out, HasSubstr("       2  AIRCON  -\n"));
    EXPECT_THAT(result.Out, HasSubstr("       2  NAVI"));
}

TEST_F(ShowCommand, EntriesOnlyIsATablePerTypeWithEntries) {
    const std::string records =
        CrLfRecords({"X10001 CLAIM-1", "X20001 AIRCON    1250.00", "QQ", "X20001 RADIO       99.00"});
    const CToolResult result = Show(records, {"--entries"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Out, "X2  2 lines: 2, 4\n"
                          "  2 entries: 2020 Code; 2025 Price\n"
                          "    line  2020    2025\n"
                          "       2  AIRCON    1250.00\n"
                          "       4  RADIO       99.00\n");
    const ordered_json json = ShowJson(records, {"--entries"});
    ASSERT_EQ(json["records"].size(), 1U);
    EXPECT_EQ(json["records"][0]["type"], "X2");
    EXPECT_FALSE(json["records"][0].contains("items"));
    EXPECT_EQ(json["records"][0]["groups"][0]["entries"].size(), 2U);
}

TEST_F(ShowCommand, TypeSelectsTheRecordsOfOneType) {
    const std::string records = CrLfRecords({"X10001 CLAIM-1", "QQ", "X20001 AIRCON    1250.00"});
    EXPECT_EQ(Show(records, {"--type", "X1"}).Out, "X1  1 line: 1\n"
                                                   "    1000  X1       Record type\n"
                                                   "    1005  0001     Number\n"
                                                   "    1020  CLAIM-1  Claim\n");
    EXPECT_EQ(Show(records, {"--type", "UNKNOWN"}).Out, "Unknown record types\n       2  QQ\n");
    const CToolResult none = Show(records, {"--type", "X5"});
    EXPECT_EQ(none.Status, 1);
    EXPECT_EQ(none.Errors, GetFolder() + "/x.rec: no record of type X5\n");
}

TEST_F(ShowCommand, ATypeMayBeGivenInSmallLetters) {
    EXPECT_THAT(Show(CrLfRecords({"X10001 CLAIM-1", "QQ"}), {"--type", "x1"}).Out, HasSubstr("X1  1 line: 1\n"));
}

TEST_F(ShowCommand, JsonHoldsItemsEntriesAndLines) {
    const ordered_json json = ShowJson(CrLfRecords(
        {"X10001 CLAIM-1", "X20001 AIRCON    1250.00RADIO       99.00", "QQ0001 nobody knows", "X10001 continued"}));
    EXPECT_EQ(json["code_page"], 850);
    EXPECT_EQ(json["findings"].size(), 0U);
    ASSERT_EQ(json["records"].size(), 3U);
    EXPECT_EQ(json["records"][0], ordered_json::parse(R"({"type":"X1","lines":[1,4],"items":[
                  {"number":1000,"value":"X1","description":"Record type"},
                  {"number":1005,"value":"0001","description":"Number"},
                  {"number":1020,"value":"CLAIM-1","description":"Claim"}],
                  "raw":[{"line":4,"text":"X10001 continued"}]})"));
    EXPECT_EQ(json["records"][1]["groups"], ordered_json::parse(R"([{"key":2020,
                  "columns":[{"number":2020,"description":"Code"},{"number":2025,"description":"Price"}],
                  "entries":[{"line":2,"offset":7,"items":{"2020":"AIRCON","2025":"  1250.00"}},
                             {"line":2,"offset":24,"items":{"2020":"RADIO","2025":"    99.00"}}]}])"));
    EXPECT_EQ(json["records"][2],
              ordered_json::parse(R"({"type":"UNKNOWN","lines":[3],"raw":[{"line":3,"text":"QQ0001 nobody knows"}]})"));
}

TEST_F(ShowCommand, FilesWithAndWithoutSeparatorsLookTheSame) {
    const std::string table = Sample("calculation.table");
    const CToolResult separated = Run({"show", Sample("all-types.rec"), "--table", table});
    const CToolResult unseparated = Run({"show", Sample("all-types-unseparated.rec"), "--table", table});
    EXPECT_EQ(separated.Status, 0);
    EXPECT_EQ(unseparated.Status, 0);
    EXPECT_EQ(separated.Out, unseparated.Out);
}

TEST_F(ShowCommand, EverySampleFileIsShown) {
    struct {
        const char* Name;
        int Status;
        std::size_t Lines;
    } const rows[] = {{"all-types.rec", 0, 196},    {"all-types-unseparated.rec", 0, 196},
                      {"umlauts-cp850.rec", 0, 17}, {"unknown-types.rec", 0, 18},
                      {"v-records.txt", 0, 15},     {"damaged.rec", 1, 12}};
    for (const auto& row : rows) {
        const CToolResult result = Run({"show", Sample(row.Name), "--table", Sample("calculation.table"), "--json"});
        EXPECT_EQ(result.Status, row.Status) << row.Name;
        const ordered_json json = result.Json();
        std::vector<int> lines;
        for (const auto& record : json["records"]) {
            lines.insert(lines.end(), record["lines"].begin(), record["lines"].end());
        }
        std::sort(lines.begin(), lines.end());
        EXPECT_EQ(lines.size(), row.Lines) << row.Name;
        EXPECT_EQ(std::adjacent_find(lines.begin(), lines.end()), lines.end()) << row.Name;
    }
}

TEST_F(ShowCommand, AnOptionOfTheSampleFileHasItsNameAndPrice) {
    const CToolResult result =
        Run({"show", Sample("umlauts-cp850.rec"), "--table", Sample("calculation.table"), "--type", "X2N"});
    EXPECT_THAT(result.Out, HasSubstr("\n       3  Anhängerkupplung      420.00\n"));
    EXPECT_THAT(result.Out, HasSubstr("\n       4  Türschoner             24.90\n"));
}

TEST_F(ShowCommand, TextsAreDecodedFromTheChosenCodePage) {
    // 0x9B is o with a stroke in code page 850, the cent sign in 437 and a quotation mark in 1252.
    struct {
        std::vector<std::string> Options;
        const char* Text;
    } const rows[] = {{{}, "\xC3\xB8"},
                      {{"--code-page", "850"}, "\xC3\xB8"},
                      {{"--code-page", "437"}, "\xC2\xA2"},
                      {{"--code-page", "1252"}, "\xE2\x80\xBA"}};
    const std::string records = CrLfRecords({"X10001 \x9B", "QQ\x9B"});
    for (const auto& row : rows) {
        const CToolResult result = Show(records, row.Options);
        EXPECT_THAT(result.Out, HasSubstr("    1020  " + std::string(row.Text) + "     Claim\n"));
        EXPECT_THAT(result.Out, HasSubstr("       2  QQ" + std::string(row.Text) + "\n"));
        EXPECT_EQ(RecordOf(ShowJson(records, row.Options), "X1")["items"][2]["value"], row.Text);
    }
}

TEST_F(ShowCommand, EveryByteGivesValidJson) {
    std::string text = "QQ";
    for (int byte = 0; byte < 126; ++byte) {
        text.push_back(static_cast<char>(byte + 130));
    }
    for (const char* page : {"850", "437", "1252"}) {
        const CToolResult result = Show(text, {"--json", "--code-page", page});
        EXPECT_TRUE(ordered_json::accept(result.Out)) << page;
        EXPECT_EQ(result.Status, 0) << page;
    }
}

TEST_F(ShowCommand, ControlCharactersAreEscaped) {
    const std::string unknown = std::string("QQ\0\x1B[2J", 7) + "\t\x7F";
    const std::string records = Record("X10001 A\x01"
                                       "B") +
                                Record(unknown);
    const CToolResult result = Show(records);
    EXPECT_THAT(result.Out, HasSubstr("    1020  A\\x01B  Claim\n"));
    EXPECT_THAT(result.Out, HasSubstr("       2  QQ\\x00\\x1B[2J\\x09\\x7F\n"));
    const ordered_json json = ShowJson(records);
    EXPECT_EQ(RecordOf(json, "X1")["items"][2]["value"], "A\x01"
                                                         "B");
    EXPECT_EQ(RecordOf(json, "UNKNOWN")["raw"][0]["text"], unknown);
}

TEST_F(ShowCommand, ADamagedFileIsShownAsFarAsItGoes) {
    const CToolResult result = Show(CrLfRecords({"X10001 CLAIM-1", "QQ"}) + std::string(61, 'X'));
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors, At(3, "the record is cut off: it has 61 of 128 characters, and is left out"));
    EXPECT_THAT(result.Out, HasSubstr("CLAIM-1"));
    EXPECT_THAT(result.Out, HasSubstr("       2  QQ\n"));
    const ordered_json json = ShowJson(CrLfRecords({"X1"}) + "X");
    EXPECT_EQ(json["findings"],
              ordered_json::parse(
                  R"([{"line":2,"text":"the record is cut off: it has 1 of 128 characters, and is left out"}])"));
}

TEST_F(ShowCommand, ALostSeparatorIsAFinding) {
    const CToolResult result = Show(CrLfRecords({"X1", "X1"}) + Record("QQ") + Record("QQ") + "    ");
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors, At(3, "no CR LF behind the record; what follows is read misplaced"));
}

TEST_F(ShowCommand, AnEmptyFileShowsNothing) {
    const CToolResult result = Show("");
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Out, IsEmpty());
    EXPECT_EQ(ShowJson("")["records"].size(), 0U);
}

TEST_F(ShowCommand, VRecordsMayHaveLinesOfAnyLength) {
    const CToolResult result = Show("V10001" + std::string(21, ' ') + "It hailed.\nV9 unknown\nV1" +
                                    std::string(25, ' ') + "And then it rained.\n");
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Out, "V1  2 lines: 1, 3\n"
                          "   21005  V1  Record type\n"
                          "  2 entries: 21035 Report\n"
                          "    line  21035\n"
                          "       1  It hailed.\n"
                          "       3  And then it rained.\n"
                          "\n"
                          "Unknown record types\n"
                          "       2  V9 unknown\n");
}

TEST_F(ShowCommand, LinesBehindAnEmptyOneAreAFinding) {
    const CToolResult result = Show("V10001\n\nV10001\nV10001\n");
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors, At(2, "reading ends at this empty line; 2 lines behind it left out"));
    EXPECT_THAT(result.Out, HasSubstr("V1  1 line: 1\n"));
}

TEST_F(ShowCommand, TheFormOfAFileCanBeChosen) {
    const std::string lines = "X10001 CLAIM-1\nX10001 more\n";
    EXPECT_EQ(Show(lines).Status, 1); // 27 of 128 characters
    const CToolResult result = Show(lines, {"--form", "lines"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Out, HasSubstr("    1020  CLAIM-1  Claim\n"));
    EXPECT_THAT(result.Out, HasSubstr("       2  X10001 more\n"));
    EXPECT_EQ(Show("V1\n", {"--form", "fixed"}).Status, 1);
}

TEST_F(ShowCommand, LinesBehindABlankEntryAreShownAsTheyAre) {
    // A blank entry ends the group of X6, whatever follows.
    const std::string sections = "[DATA_X6]\n6000|2|1|C\n6015|3|8|C\n6020|7|11|C\n";
    const CToolResult result = Show(CrLfRecords({"X60001 E  PART-01", "X60001 N  PART-02"}), {}, sections);
    EXPECT_EQ(result.Out, "X6  2 lines: 1-2\n"
                          "    6000  X6\n"
                          "  1 entry: 6015; 6020\n"
                          "    line  6015  6020\n"
                          "       1  E     PART-01\n"
                          "  further lines, as they are:\n"
                          "       2  X60001 N  PART-02\n");
}

TEST_F(ShowCommand, BothGroupsOfATypeAreShown) {
    const std::string sections = "[DATA_X7]\n7000|2|1|C\n7015|19|8|C\n7025|5|84|C\n7030|17|89|N\n";
    const std::string line = Padded("X70001 remove door", 83) + "KEY  " + Padded("12.50", 17);
    const ordered_json groups = RecordOf(ShowJson(CrLfRecords({line}), {}, sections), "X7")["groups"];
    EXPECT_EQ(groups, ordered_json::parse(R"([
        {"key":7015,"columns":[{"number":7015,"description":""}],
         "entries":[{"line":1,"offset":7,"items":{"7015":"remove door"}}]},
        {"key":7025,"columns":[{"number":7025,"description":""},{"number":7030,"description":""}],
         "entries":[{"line":1,"offset":83,"items":{"7025":"KEY","7030":"12.50"}}]}])"));
}

TEST_F(ShowCommand, TheCellsOfX4AreToldApartByTheirCodes) {
    const std::string sections = "[DATA_X4]\n4000|2|1|C|Record type\n"
                                 "4025|3|8|C,,,,,(\"E\";\"LE1\")\n4030|4|11|C\n4035|8|15|C\n"
                                 "4055|3|8|C,,,,,(\"EM\")\n4060|12|11|N\n"
                                 "4070|3|8|C,,,,,(\"TM\")\n4075|2|11|C\n4080|10|13|C\n";
    const std::string line = "X40001 " + Padded("E  0410    1000", 15) + Padded("EM        99.00", 15) +
                             Padded("TM LAtwo layers", 15) + Padded("LE1      12", 15) + Padded("QQ?", 15);
    const CToolResult result = Show(CrLfRecords({line}), {}, sections);
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Out, "X4  1 line: 1\n"
                          "    4000  X4  Record type\n"
                          "  cells:\n"
                          "       1  position  4025 E    4030 0410  4035     1000\n"
                          "       1  mutation  4055 EM   4060        99.00\n"
                          "       1  mutation  4070 TM   4075 LA  4080 two layers\n"
                          "       1  position  4025 LE1  4030 -     4035   12\n"
                          "       1  unknown   QQ?\n");
    const ordered_json cells = RecordOf(ShowJson(CrLfRecords({line}), {}, sections), "X4")["cells"];
    ASSERT_EQ(cells.size(), 5U);
    EXPECT_EQ(cells[1], ordered_json::parse(
                            R"({"line":1,"offset":22,"kind":"mutation","items":{"4055":"EM","4060":"       99.00"}})"));
    EXPECT_EQ(cells[4], ordered_json::parse(R"({"line":1,"offset":67,"kind":"unknown","text":"QQ?"})"));
}

TEST_F(ShowCommand, ATypeWithoutALayoutIsShownAsItIs) {
    const CToolResult result = Show(CrLfRecords({"W10001 workshop"}));
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Out, "W1  1 line: 1\n"
                          "  no layout in the table file; the lines as they are:\n"
                          "       1  W10001 workshop\n");
}

TEST_F(ShowCommand, SteppingEndsWhateverTheTableSays) {
    for (const char* length : {"0", "-1", "2000000000", "1"}) {
        const std::string sections = "[DATA_G1]\n12000|2|1|C\n12015|" + std::string(length) + "|8|C\n12020|" + length +
                                     "|9|C\n[DATA_GD]\n19300|2|1|C\n19315|" + length + "|8|C\n";
        const CToolResult result = Show(CrLfRecords({"G10001 abc", "GD0001 abc"}), {}, sections);
        EXPECT_EQ(result.Status, 0) << length;
        EXPECT_THAT(result.Out, HasSubstr("G1  1 line: 1\n")) << length;
        EXPECT_THAT(result.Out, HasSubstr("GD  1 line: 2\n")) << length;
    }
}

TEST_F(ShowCommand, ATableWithoutAHeaderCannotBeUsed) {
    const CToolResult result =
        Run({"show", Write("x.rec", ""), "--table", Write("x.table", "[DATA_X1]\n1000|2|1|C\n")});
    EXPECT_EQ(result.Status, 3);
    EXPECT_THAT(result.Out, IsEmpty());
    EXPECT_EQ(result.Errors, "tabvex: " + GetFolder() + "/x.table: no [HEADER] section\n");
}

TEST_F(ShowCommand, LongDescriptionsGoOnBelowThemselves) {
    const std::string description = "one two three four five six seven eight nine ten eleven twelve thirteen fourteen "
                                    "fifteen sixteen seventeen";
    const CToolResult result = Show(CrLfRecords({"X1"}), {}, "[DATA_X1]\n1000|2|1|C|" + description + "\n");
    EXPECT_EQ(result.Out, "X1  1 line: 1\n"
                          "    1000  X1  one two three four five six seven eight nine ten eleven twelve thirteen "
                          "fourteen\n"
                          "              fifteen sixteen seventeen\n");
}

} // namespace
} // namespace tool_tests
