#include "tool_runner.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

namespace tool_tests {
namespace {

using nlohmann::ordered_json;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::string_view kSections = "[DATA_X1]\n"
                                       "1000|2|1|C|Record type\n"
                                       "[DATA_X4]\n"
                                       "4000|2|1|C|Record type\n"
                                       "4025|3|8|C,,,,,(\"E\";\"LE1\")|Repair method\n"
                                       "4030|4|11|C|Guide number\n"
                                       "4035|4|15|N,,,R 4.0|Work units\n"
                                       "4040|1|19|C|Labour class\n"
                                       "4045|3|20|C|Deduction\n"
                                       "4055|3|8|C,,,,,(\"EM\";\"WM\";\"LM\";\"BM\")|Amount: code\n"
                                       "4060|12|11|N,,,R 9.2|Amount\n"
                                       "4070|3|8|C,,,,,(\"TM\")|Texts: code\n"
                                       "4075|2|11|C|Text 1\n"
                                       "4080|10|13|C|Text 2\n"
                                       "4085|3|8|C,,,,,(\"SM\")|Split: code\n"
                                       "4090|12|11|C|Split\n"
                                       "[DATA_G9]\n"
                                       "19200|2|1|C|Record type\n"
                                       "19225|3|8|C,,,,,(\"E\")|Repair method\n"
                                       "19230|4|11|C|Guide number\n"
                                       "19255|3|8|C,,,,,(\"EM\")|Amount: code\n"
                                       "19260|12|11|N,,,R 9.2|Amount\n";

// Cells of 15 characters.
constexpr const char* kFirst = "E  0283  241000";
constexpr const char* kAmount = "EM       412.50";
constexpr const char* kTexts = "TM LAtwo layers";
constexpr const char* kSecond = "LE10291  32P100";

std::string Cells(const std::string& header, const std::vector<std::string>& cells) {
    std::string line = header;
    for (const std::string& cell : cells) {
        line.append(Padded(cell, 15));
    }
    return line;
}

class MutationCommand : public CToolTest {
protected:
    MutationCommand() {
        m_strTable = Write("x.table", std::string(kHeader).append(kSections));
        m_strFile = Write("x.rec", OneOfEach());
    }
    static std::string OneOfEach() {
        return CrLfRecords({"X100011 claim", Cells("X400013", {kFirst, kAmount, kTexts, kSecond})});
    }
    CToolResult Mutation(const std::string& action, const std::vector<std::string>& options) const {
        std::vector<std::string> arguments = {"mutation", action, m_strFile, "--table", m_strTable};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return Run(arguments);
    }
    std::string Bytes(const std::string& name = "x.rec") const {
        std::ifstream file(GetFolder() + "/" + name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    std::string m_strTable;
    std::string m_strFile;
};

TEST_F(MutationCommand, ListShowsEveryPositionWithItsMutations) {
    const CToolResult result = Mutation("list", {"--kinds", "TM:3"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Errors, IsEmpty());
    EXPECT_EQ(result.Out, "   1  E     0283    24  1     000\n"
                          "      EM=412.5\n"
                          "      TM=LA,two layers\n"
                          "   2  LE1   0291    32  P     100\n");
}

TEST_F(MutationCommand, ACodeOfTheTableForTwoTextsIsReadAsAnAmountUnlessItGetsItsKindOnPurpose) {
    EXPECT_THAT(Mutation("list", {}).Out, HasSubstr("      TM  (no number)\n"));
    EXPECT_THAT(Mutation("list", {"--kinds", "table"}).Out, HasSubstr("      TM=LA,two layers\n"));
}

TEST_F(MutationCommand, ListShowsOneEntryOnly) {
    EXPECT_EQ(Mutation("list", {"--entry", "2"}).Out, "   2  LE1   0291    32  P     100\n");
}

TEST_F(MutationCommand, ListGivesJson) {
    const CToolResult result = Mutation("list", {"--entry", "1", "--json", "--kinds", "TM:3"});
    EXPECT_EQ(result.Json(), ordered_json::parse(R"({"type":"X4","entries":[{"entry":1,
        "items":{"4025":"E","4030":"0283","4035":"  24","4040":"1","4045":"000"},
        "mutations":[{"code":"EM","value":"412.5"},{"code":"TM","text1":"LA","text2":"two layers"}]}]})"));
}

TEST_F(MutationCommand, ListOfAFileWithoutPositionsIsEmpty) {
    Write("x.rec", CrLfRecords({"X100013 claim"}));
    const CToolResult result = Mutation("list", {});
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Out, IsEmpty());
}

TEST_F(MutationCommand, AddPutsAmountsAndTextsBehindThePosition) {
    const CToolResult result = Mutation("add", {"--entry", "2", "--kinds", "EM:1,TM:3", "EM=12.50", "TM=LB,top"});
    EXPECT_EQ(result.Status, 0) << result.Errors;
    EXPECT_EQ(result.Out, "   2  LE1   0291    32  P     100\n"
                          "      EM=12.5\n"
                          "      TM=LB,top\n");
    EXPECT_EQ(Bytes(), CrLfRecords({"X100011 claim", Cells("X400013", {kFirst, kAmount, kTexts, kSecond,
                                                                       "EM        12.50", "TM LBtop"})}));
}

TEST_F(MutationCommand, AddMovesWhatStandsBehindIntoFurtherLines) {
    Write("x.rec", Record(Cells("X400013", {kFirst, kSecond, kSecond, kSecond, kSecond, kSecond, kSecond, kSecond})));
    const CToolResult result = Mutation("add", {"--entry", "1", "--kinds", "table", "EM=412.50"});
    EXPECT_EQ(result.Status, 0) << result.Errors;
    EXPECT_EQ(Bytes(),
              Record(Cells("X400011", {kFirst, kAmount, kSecond, kSecond, kSecond, kSecond, kSecond, kSecond})) +
                  Record(Cells("X400013", {kSecond})));
}

TEST_F(MutationCommand, AddReplacesTheMutationWithTheSameCode) {
    EXPECT_EQ(Mutation("add", {"--entry", "1", "--kinds", "table", "EM=1"}).Status, 0);
    EXPECT_EQ(Bytes(), CrLfRecords({"X100011 claim", Cells("X400013", {kFirst, "EM         1.00", kTexts, kSecond})}));
}

TEST_F(MutationCommand, ACommaIsADecimalOneWhereTheCodeCarriesAnAmount) {
    EXPECT_THAT(Mutation("add", {"--entry", "2", "--kinds", "table", "EM=12,5"}).Out, HasSubstr("      EM=12.5\n"));
}

TEST_F(MutationCommand, ASplitValueIsTwoTextsOfTwoAndTenCharacters) {
    const CToolResult result = Mutation("add", {"--entry", "2", "--kinds", "SM:7", "SM=A,text"});
    EXPECT_EQ(result.Status, 0) << result.Errors;
    EXPECT_THAT(result.Out, HasSubstr("      SM=A,text\n"));
    EXPECT_THAT(Bytes(), HasSubstr(std::string(kSecond) + "SM A text      "));
}

TEST_F(MutationCommand, TextsAreStoredInTheFilesCodePage) {
    // u with two dots is 0x81 in code page 850 and 0xFC in 1252.
    EXPECT_EQ(
        Mutation("add", {"--entry", "2", "--kinds", "TM:3", "TM=LA,T\xC3\xBCr", "-o", GetFolder() + "/oem"}).Status, 0);
    EXPECT_THAT(Bytes("oem"), HasSubstr("TM LAT\x81r       "));
    EXPECT_EQ(Mutation("add", {"--entry", "2", "--kinds", "TM:3", "TM=LA,T\xC3\xBCr", "-o", GetFolder() + "/ansi",
                               "--code-page", "1252"})
                  .Status,
              0);
    EXPECT_THAT(Bytes("ansi"), HasSubstr("TM LAT\xFCr       "));
}

TEST_F(MutationCommand, ASlashIsPartOfAText) {
    EXPECT_EQ(Mutation("add", {"--entry", "2", "--kinds", "TM:3", "TM=LA,a/b"}).Status, 0);
    EXPECT_THAT(Bytes(), HasSubstr("TM LAa/b       "));
}

TEST_F(MutationCommand, AddNeedsTheKindOfTheCode) {
    const CToolResult result = Mutation("add", {"--entry", "1", "WM=5"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Out, IsEmpty());
    EXPECT_EQ(result.Errors,
              "tabvex: WM=5: the value lists of 4055 and 4070 do not have \"WM\" for such data: its kind is "
              "0, see --kinds (result -55)\n");
    EXPECT_EQ(Bytes(), OneOfEach());
}

TEST_F(MutationCommand, WhatTheLibraryRefusesChangesNothing) {
    struct {
        std::vector<std::string> Mutations;
        const char* Message;
    } const rows[] = {{{"WM=1", "LM=1"}, "LM=1: it holds three mutations already (result -5)"},
                      {{"WM=much"}, "WM=much: the value is no number (result -66)"},
                      {{"WM=1234567890123"}, "(result -65)"},
                      {{"TM=LAB,x"}, "TM=LAB,x: a text is too long for its item (result -45)"},
                      {{"QQ=1"}, "(result -55)"},
                      {{"TM=LA,\xE2\x82\xAC"}, "the code page has no"}};
    for (const auto& row : rows) {
        std::vector<std::string> options = {"--entry", "1", "--kinds", "table"};
        options.insert(options.end(), row.Mutations.begin(), row.Mutations.end());
        const CToolResult result = Mutation("add", options);
        EXPECT_EQ(result.Status, 1) << row.Message;
        EXPECT_THAT(result.Errors, HasSubstr(row.Message));
        EXPECT_THAT(result.Out, IsEmpty());
        EXPECT_EQ(Bytes(), OneOfEach()) << row.Message;
    }
}

TEST_F(MutationCommand, DeleteRemovesOneMutationAndClosesTheGap) {
    const CToolResult result = Mutation("delete", {"--entry", "1", "EM"});
    EXPECT_EQ(result.Status, 0) << result.Errors;
    EXPECT_EQ(Bytes(), CrLfRecords({"X100011 claim", Cells("X400013", {kFirst, kTexts, kSecond})}));
}

TEST_F(MutationCommand, DeleteAllRemovesEveryMutationOfTheEntryOnly) {
    EXPECT_EQ(Mutation("add", {"--entry", "2", "--kinds", "table", "WM=5"}).Status, 0);
    const CToolResult result = Mutation("delete", {"--entry", "1", "--all"});
    EXPECT_EQ(result.Status, 0) << result.Errors;
    EXPECT_EQ(result.Out, "   1  E     0283    24  1     000\n");
    EXPECT_EQ(Bytes(), CrLfRecords({"X100011 claim", Cells("X400013", {kFirst, kSecond, "WM         5.00"})}));
}

TEST_F(MutationCommand, AMutationThatIsNotThereCannotBeDeleted) {
    const CToolResult result = Mutation("delete", {"--entry", "2", "EM"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors, "tabvex: EM: there is no such mutation (result -90)\n");
    EXPECT_EQ(Bytes(), OneOfEach());
}

TEST_F(MutationCommand, AnEntryThatIsNotThereIsFoundWrong) {
    for (const char* action : {"list", "delete"}) {
        std::vector<std::string> options = {"--entry", "3"};
        if (std::string(action) == "delete") {
            options.emplace_back("--all");
        }
        const CToolResult result = Mutation(action, options);
        EXPECT_EQ(result.Status, 1) << action;
        EXPECT_EQ(result.Errors, "tabvex: " + m_strFile + ": there is no X4 entry 3\n") << action;
    }
}

TEST_F(MutationCommand, G9HasItsOwnListsAndItems) {
    Write("x.rec", CrLfRecords({Cells("G900013", {"E  0283"})}));
    const CToolResult result = Mutation("add", {"--type", "G9", "--entry", "1", "--kinds", "EM:1", "EM=7.25"});
    EXPECT_EQ(result.Status, 0) << result.Errors;
    EXPECT_EQ(Bytes(), CrLfRecords({Cells("G900013", {"E  0283", "EM         7.25"})}));
}

TEST_F(MutationCommand, AnotherFileCanBeWrittenAndTheOldOneStays) {
    EXPECT_EQ(Mutation("delete", {"--entry", "1", "EM", "-o", GetFolder() + "/new.rec"}).Status, 0);
    EXPECT_EQ(Bytes(), OneOfEach());
    EXPECT_EQ(Bytes("new.rec"), CrLfRecords({"X100011 claim", Cells("X400013", {kFirst, kTexts, kSecond})}));
}

TEST_F(MutationCommand, AChangedFileIsWrittenLikeASaveButFzRecordsKeepTheirLength) {
    Write("x.rec", Record(Cells("X400019", {kFirst, kAmount})) + Record("QQ00019") + Record("X100019") +
                       Record(Cells("X400019", {kSecond})) + Record("FZ0001 one"));
    EXPECT_EQ(Mutation("delete", {"--entry", "1", "EM"}).Status, 0);
    EXPECT_EQ(Bytes(), Record(Cells("X400011", {kFirst, kSecond})) + Record("X400012") + Record("QQ00019") +
                           Record("X100013") + Record("FZ0001 one"));
}

// Files have modes on POSIX systems only.
class MutationCommandPosix : public MutationCommand {};

TEST_F(MutationCommandPosix, TheModeOfAChangedFileIsKept) {
    EXPECT_EQ(RunShell("chmod 640 '" + m_strFile + "'").Status, 0);
    EXPECT_EQ(Mutation("delete", {"--entry", "1", "EM"}).Status, 0);
    EXPECT_EQ(RunShell("stat -c %a '" + m_strFile + "'").Out, "640\n");
}

TEST_F(MutationCommand, AFourthMutationThatTheLibraryPassesOverMovesUpWhenOneIsDeleted) {
    const std::string bm = "BM        12.00";
    Write("x.rec", Record(Cells("X400013", {kFirst, "EM         1.00", "WM         2.00", "LM         3.00", bm})));
    const CToolResult result = Mutation("delete", {"--entry", "1", "WM"});
    EXPECT_EQ(result.Status, 0) << result.Errors;
    EXPECT_EQ(Bytes(), Record(Cells("X400013", {kFirst, "EM         1.00", "LM         3.00", bm})));
    EXPECT_THAT(Mutation("list", {}).Out, HasSubstr("      EM=1\n      LM=3\n      BM=12\n"));
}

TEST_F(MutationCommand, AMutationThatWouldReadBackAsARepairPositionIsNotSaved) {
    const CToolResult result = Mutation("add", {"--entry", "2", "--kinds", "E:1", "E=5"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors, HasSubstr("would not read back as they should be"));
    EXPECT_EQ(Bytes(), OneOfEach());
    EXPECT_EQ(RunShell("ls -A '" + GetFolder() + "' | grep -c tabvex").Out, "0\n");
}

TEST_F(MutationCommand, ShowHasTheSameMutationsUnderTheSamePositionsInTheOlderForm) {
    for (const char* type : {"X4", "G9"}) {
        const std::vector<std::string> files = {
            Sample("all-types.rec"), "--table", Sample("calculation.table"), "--type", type, "--json"};
        std::vector<std::string> arguments = {"mutation", "list", "--kinds", "table"};
        arguments.insert(arguments.end(), files.begin(), files.end());
        std::vector<std::string> listed;
        const ordered_json list = Run(arguments).Json();
        for (const auto& entry : list["entries"]) {
            listed.push_back(entry["items"].front());
            for (const auto& mutation : entry["mutations"]) {
                listed.push_back(" " + mutation["code"].get<std::string>());
            }
        }
        arguments = {"show"};
        arguments.insert(arguments.end(), files.begin(), files.end());
        std::vector<std::string> shown;
        const ordered_json show = Run(arguments).Json();
        for (const auto& cell : show["records"][0]["cells"]) {
            shown.push_back((cell["kind"] == "position" ? "" : " ") + cell["items"].front().get<std::string>());
        }
        EXPECT_GT(listed.size(), 20U) << type;
        EXPECT_EQ(listed, shown) << type;
    }
}

TEST_F(MutationCommand, ADamagedFileIsNotChanged) {
    const std::string damaged = OneOfEach() + "X1";
    Write("x.rec", damaged);
    const CToolResult result = Mutation("delete", {"--entry", "1", "EM"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors, HasSubstr("x.rec:3: the record is cut off"));
    EXPECT_EQ(Bytes(), damaged);
}

TEST_F(MutationCommand, WrongUsageEndsWithStatusTwo) {
    const std::vector<std::pair<const char*, std::vector<std::string>>> rows = {
        {"add", {"EM=1"}},
        {"add", {"--entry", "1"}},
        {"add", {"--entry", "0", "EM=1"}},
        {"add", {"--entry", "1", "EM"}},
        {"add", {"--entry", "1", "=5"}},
        {"add", {"--entry", "1", "--type", "W4", "EM=1"}},
        {"add", {"--entry", "1", "--kinds", "EM", "EM=1"}},
        {"add", {"--entry", "1", "--kinds", "EM:9", "EM=1"}},
        {"add", {"--entry", "1", "--kinds", "EMXY:1", "EM=1"}},
        {"add", {"--entry", "1", "--kinds", ":1", "EM=1"}},
        {"delete", {"--entry", "1"}},
        {"delete", {"--entry", "1", "EM", "--all"}},
        {"delete", {"--all"}},
        {"change", {"--entry", "1"}},
    };
    for (const auto& [action, options] : rows) {
        const CToolResult result = Mutation(action, options);
        EXPECT_EQ(result.Status, 2) << action << testing::PrintToString(options);
        EXPECT_THAT(result.Out, IsEmpty());
        EXPECT_THAT(result.Errors, testing::Not(IsEmpty()));
        EXPECT_EQ(Bytes(), OneOfEach());
    }
}

TEST_F(MutationCommand, AFileThatCannotBeReadOrWrittenEndsWithStatusThree) {
    EXPECT_EQ(Run({"mutation", "list", GetFolder() + "/missing", "--table", m_strTable}).Status, 3);
    EXPECT_EQ(Run({"mutation", "list", m_strFile, "--table", GetFolder() + "/missing"}).Status, 3);
    EXPECT_EQ(Mutation("delete", {"--entry", "1", "EM", "-o", GetFolder() + "/no/folder"}).Status, 3);
}

TEST_F(MutationCommand, TheExamplesOfTheHelpWork) {
    const std::string samples = Sample("all-types.rec");
    const std::string table = Sample("calculation.table");
    const CToolResult list = Run({"mutation", "list", samples, "--table", table, "--kinds", "table"});
    EXPECT_EQ(list.Status, 0);
    EXPECT_THAT(list.Out,
                HasSubstr("   1  E     0283    24  1     000\n      EM=412.5\n   2  I     0285    18  1     000\n"));
    EXPECT_THAT(list.Out, HasSubstr("      LM=85\n      TM=LA,two layers\n"));
    const std::string changed = GetFolder() + "/changed.rec";
    const CToolResult add = Run({"mutation", "add", samples, "--table", table, "--entry", "2", "--kinds", "EM:1,TM:3",
                                 "EM=12.50", "TM=LA,two layers", "-o", changed});
    EXPECT_EQ(add.Status, 0) << add.Errors;
    EXPECT_EQ(add.Out, "   2  I     0285    18  1     000\n      EM=12.5\n      TM=LA,two layers\n");
    EXPECT_EQ(Run({"mutation", "delete", changed, "--table", table, "--entry", "2", "--all"}).Status, 0);
    EXPECT_EQ(RunShell("cmp '" + changed + "' '" + samples + "'").Status, 0);
    EXPECT_THAT(Run({"mutation", "--help"}).Out, HasSubstr("Examples:\n  tabvex mutation"));
}

} // namespace
} // namespace tool_tests
