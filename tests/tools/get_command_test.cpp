#include "tool_runner.h"

#include <gmock/gmock.h>

namespace tool_tests {
namespace {

using nlohmann::ordered_json;
using testing::HasSubstr;
using testing::IsEmpty;

// One item of each kind in a list, and entries of 17 characters.
constexpr std::string_view kSections = "[DATA_X1]\n"
                                       "1000|2|1|C\n"
                                       "1020|10|8|C\n"
                                       "1021|9|18|N,,,R 6.2\n"
                                       "1022|8|27|N,,\"0\",RPE 5.2\n"
                                       "1023|8|35|N,,\"*\",RB 4.2\n"
                                       "1024|17|43|N\n"
                                       "1025|10|60|D,,,,,,DD.MM.YYYY\n"
                                       "1026|6|70|D,,,,,,DDMMYY\n"
                                       "1027|4|76|D,,,,,,YYMM\n"
                                       "[DATA_X2]\n"
                                       "2000|2|1|C\n"
                                       "2020|8|8|C\n"
                                       "2025|9|16|N,,,R 6.2\n";

class GetCommand : public CToolTest {
protected:
    CToolResult Get(std::string_view bytes, std::vector<std::string> arguments,
                    std::string_view sections = kSections) const {
        arguments.insert(arguments.begin(), {"get", Write("x.rec", bytes), "--table",
                                             Write("x.table", std::string(kHeader).append(sections))});
        return Run(arguments);
    }
    /// A line of X1 with this text at a position.
    static std::string Line(std::size_t position, const std::string& text) {
        return CrLfRecords({Padded("X10001", position - 1) + text});
    }
};

TEST_F(GetCommand, ValuesComeOneALineInTheOrderAskedFor) {
    const CToolResult result =
        Get(CrLfRecords({"X10001 CLAIM-1     -12.50", "X20001 AIRCON    1250.00RADIO       99.00"}),
            {"1021", "1020", "2025", "2020", "1024"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Errors, IsEmpty());
    EXPECT_EQ(result.Out, "-12.50\nCLAIM-1\n1250.00\nAIRCON\n\n");
}

TEST_F(GetCommand, NumbersAreReadFromTheirLayout) {
    struct {
        const char* Item;
        std::size_t Position;
        const char* Field;
        const char* Value;
    } const rows[] = {
        {"1021", 18, "     0.50", "0.50"},  {"1021", 18, "999999.99", "999999.99"},
        {"1021", 18, "    -1.25", "-1.25"}, {"1021", 18, "   0012.5", "12.5"},
        {"1021", 18, "      1,5", "1.5"},   {"1021", 18, "      .75", "0.75"},
        {"1021", 18, "       3.", "3"},     {"1022", 27, "0001250-", "-12.50"},
        {"1022", 27, "0000007+", "0.07"},   {"1022", 27, "0000000+", "0.00"},
        {"1023", 35, "+**12.50", "12.50"},  {"1023", 35, "-*123.45", "-123.45"},
        {"1023", 35, "********", ""},       {"1024", 43, "12345678901234567", "12345678901234567"},
    };
    for (const auto& row : rows) {
        const CToolResult result = Get(Line(row.Position, row.Field), {row.Item});
        EXPECT_EQ(result.Out, std::string(row.Value) + "\n") << row.Field;
        EXPECT_EQ(result.Status, 0) << row.Field << ": " << result.Errors;
    }
}

TEST_F(GetCommand, DatesAreIsoDates) {
    struct {
        const char* Item;
        std::size_t Position;
        const char* Field;
        const char* Value;
    } const rows[] = {
        {"1025", 60, "14.11.2025", "2025-11-14"}, {"1025", 60, "29.02.2024", "2024-02-29"},
        {"1026", 70, "301250", "2050-12-30"},     {"1026", 70, "010151", "1951-01-01"},
        {"1027", 76, "2503", "2025-03"},          {"1027", 76, "    ", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Get(Line(row.Position, row.Field), {row.Item}).Out, std::string(row.Value) + "\n") << row.Field;
    }
}

TEST_F(GetCommand, WhatIsNoNumberOrDateIsTold) {
    struct {
        const char* Item;
        std::size_t Position;
        const char* Field;
        const char* Message;
    } const rows[] = {
        {"1021", 18, "     12A4", "tabvex: item 1021: \"     12A4\" is no number\n"},
        {"1021", 18, "  1.2.3", "tabvex: item 1021: \"  1.2.3\" is no number\n"},
        {"1021", 18, "  -", "tabvex: item 1021: \"  -\" is no number\n"},
        // The library's calendar has no 31 August.
        {"1025", 60, "31.08.2025", "tabvex: item 1025: \"31.08.2025\" is no date DD.MM.YYYY\n"},
        {"1025", 60, "1.1.2025", "tabvex: item 1025: \"1.1.2025\" is no date DD.MM.YYYY\n"},
    };
    for (const auto& row : rows) {
        const CToolResult result = Get(Line(row.Position, row.Field), {"1020", row.Item});
        EXPECT_EQ(result.Status, 1) << row.Field;
        EXPECT_EQ(result.Errors, row.Message);
        EXPECT_THAT(result.Out, IsEmpty());
    }
}

TEST_F(GetCommand, EntriesAreCountedFromOneWithoutBlankOnes) {
    const std::string records =
        CrLfRecords({"X20001 AIRCON    1250.00                 RADIO       99.00", "X20001 NAVI       500.00"});
    EXPECT_EQ(Get(records, {"2020"}).Out, "AIRCON\n");
    EXPECT_EQ(Get(records, {"2020", "--entry", "2"}).Out, "RADIO\n");
    EXPECT_EQ(Get(records, {"2025", "--entry", "3"}).Out, "500.00\n");
    const CToolResult none = Get(records, {"2020", "--entry", "4"});
    EXPECT_EQ(none.Status, 1);
    EXPECT_EQ(none.Errors, "tabvex: item 2020: there is no entry 4, the file has 3 entries\n");
}

TEST_F(GetCommand, HeaderItemsAreThoseOfTheFirstLineWhateverTheEntry) {
    EXPECT_EQ(Get(CrLfRecords({"X20001 A", "X20002 B"}), {"2000", "2020", "--entry", "2"}).Out, "X2\nB\n");
}

TEST_F(GetCommand, CellsAreCountedByTheItemsTheyHold) {
    const std::string sections = "[DATA_X4]\n4000|2|1|C\n4025|3|8|C,,,,,(\"E\";\"LE1\")\n4030|4|11|C\n"
                                 "4055|3|8|C,,,,,(\"EM\")\n4060|12|11|N,,,R 9.2\n";
    const std::string line = "X40001 " + Padded("E  0410", 15) + Padded("EM        99.00", 15) + Padded("LE10512", 15) +
                             Padded("EM         1.00", 15);
    EXPECT_EQ(Get(CrLfRecords({line}), {"4030", "4060"}, sections).Out, "0410\n99.00\n");
    EXPECT_EQ(Get(CrLfRecords({line}), {"4030", "4060", "--entry", "2"}, sections).Out, "0512\n1.00\n");
}

TEST_F(GetCommand, JsonHasNumbersAsNumbers) {
    const CToolResult result =
        Get(CrLfRecords({"X10001 CLAIM-1     -12.50", "X20001 AIRCON    1250.00RADIO       99.00"}),
            {"1020", "1021", "1025", "2025", "--entry", "2", "--json"});
    EXPECT_EQ(result.Json()["items"], ordered_json::parse(R"([
        {"number":1020,"entry":null,"line":1,"value":"CLAIM-1"},
        {"number":1021,"entry":null,"line":1,"value":-12.5},
        {"number":1025,"entry":null,"line":1,"value":null},
        {"number":2025,"entry":2,"line":2,"value":99.0}])"));
    EXPECT_THAT(Get(Line(43, "12345678901234567"), {"1024", "--json"}).Out, HasSubstr("\"value\":12345678901234567}"));
}

TEST_F(GetCommand, WhatIsNotThereIsToldAndNothingIsPrinted) {
    struct {
        const char* Item;
        const char* Message;
    } const rows[] = {
        {"99999", "tabvex: item 99999: no record type of the table file has it\n"},
        {"1500", "tabvex: item 1500: no record type of the table file has it\n"},
        {"1029", "tabvex: item 1029: the table file does not have it among the items of X1\n"},
        {"2025", "tabvex: item 2025: the file has no X2 record\n"},
    };
    for (const auto& row : rows) {
        const CToolResult result = Get(CrLfRecords({"X10001 CLAIM-1"}), {"1020", row.Item});
        EXPECT_EQ(result.Status, 1) << row.Item;
        EXPECT_THAT(result.Out, IsEmpty()) << row.Item;
        EXPECT_EQ(result.Errors, row.Message);
    }
}

TEST_F(GetCommand, TextsAreDecodedFromTheChosenCodePage) {
    EXPECT_EQ(Get(CrLfRecords({"X10001 K\x94ln"}), {"1020"}).Out, "Köln\n");
    EXPECT_EQ(Get(CrLfRecords({"X10001 K\xF6ln"}), {"1020", "--code-page", "1252"}).Out, "Köln\n");
}

TEST_F(GetCommand, ADamagedFileGivesItsValuesAndStatusOne) {
    const CToolResult result = Get(CrLfRecords({"X10001 CLAIM-1"}) + "X2", {"1020"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Out, "CLAIM-1\n");
    EXPECT_THAT(result.Errors, HasSubstr("x.rec:2: the record is cut off"));
}

TEST_F(GetCommand, TheSampleFileHasItsValues) {
    const CToolResult result = Run({"get", Sample("all-types.rec"), "1020", "1030", "1070", "1130", "2025", "--table",
                                    Sample("calculation.table")});
    EXPECT_EQ(result.Out, "CLM-2025-004711\n2025-11-14\n2021-03\n19.00\n1250.00\n");
    EXPECT_EQ(result.Status, 0);
}

TEST_F(GetCommand, HelpHasExamplesAndWrongUsageIsStatusTwo) {
    EXPECT_THAT(Run({"get", "--help"}).Out, HasSubstr("Examples:\n  tabvex get "));
    const std::string file = Sample("all-types.rec");
    const std::string table = Sample("calculation.table");
    const std::vector<std::vector<std::string>> rows = {{"get", file, "--table", table},
                                                        {"get", file, "1020"},
                                                        {"get", file, "name", "--table", table},
                                                        {"get", file, "0", "--table", table},
                                                        {"get", file, "2020", "--entry", "0", "--table", table}};
    for (const auto& arguments : rows) {
        EXPECT_EQ(Run(arguments).Status, 2) << testing::PrintToString(arguments);
    }
    EXPECT_EQ(Run({"get", file + "x", "1020", "--table", table}).Status, 3);
}

} // namespace
} // namespace tool_tests
