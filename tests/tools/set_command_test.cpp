#include "tool_runner.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace tool_tests {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::string_view kSections = "[DATA_X1]\n"
                                       "1000|2|1|C\n"
                                       "1005|4|3|N,,\"0\",R 4.0,<1;9999>\n"
                                       "1020|10|8|C\n"
                                       "1021|9|18|N,,,R 6.2\n"
                                       "1022|8|27|N,,\"0\",RPE 5.2\n"
                                       "1023|8|35|U,,,,,(\"ABC\";\"DEF\")\n"
                                       "1024|17|43|N\n"
                                       "1025|10|60|D,,,,<2000-01-01;),,DD.MM.YYYY\n"
                                       "1026|6|70|D,,,,,,DDMMYY\n"
                                       "1027|4|76|D,,,,,,YYMM\n"
                                       "[DATA_X2]\n"
                                       "2000|2|1|C\n"
                                       "2005|4|3|N,,\"0\",R 4.0\n"
                                       "2020|8|8|C\n"
                                       "2025|9|16|N,,,R 6.2\n"
                                       "[DATA_X6]\n"
                                       "6000|2|1|C\n"
                                       "6015|3|8|C\n"
                                       "6020|5|11|C\n"
                                       "[DATA_V1]\n"
                                       "21005|2|1|C\n"
                                       "21010|4|3|N\n"
                                       "21035|47|28|C\n";

std::string Contents(const std::string& name) {
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class SetCommand : public CToolTest {
protected:
    std::string File() const { return GetFolder() + "/x.rec"; }
    std::string Table() const { return GetFolder() + "/x.table"; }
    void Prepare(std::string_view bytes, std::string_view sections = kSections) const {
        Write("x.rec", bytes);
        Write("x.table", std::string(kHeader).append(sections));
    }
    /// Changes the file that was prepared.
    CToolResult Set(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"set", File(), "--table", Table()});
        return Run(arguments);
    }
    CToolResult SetIn(std::string_view bytes, std::vector<std::string> arguments) const {
        Prepare(bytes);
        return Set(std::move(arguments));
    }
    /// Runs a shell command in which SET stands for changing the claim.
    CToolResult SetInShell(std::string command) const {
        command.replace(command.find("SET"), 3, "TOOL set '" + File() + "' --table '" + Table() + "' 1020=NEW");
        return RunShell(command);
    }
    std::vector<std::string> FilesInFolder() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(GetFolder())) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }
    static std::string Line(std::size_t position, const std::string& text) {
        return CrLfRecords({Padded("X10001", position - 1) + text});
    }
};

TEST_F(SetCommand, ChangesTheItemsAndNothingElse) {
    const CToolResult result = SetIn(CrLfRecords({"X10001*CLAIM-1       12.50", "QQ   unknown",
                                                  "X20001 AIRCON    1250.00", "X10001 more", "X20001 RADIO"}),
                                     {"1020=CLAIM-22", "1021=-7", "2025=99.5"});
    EXPECT_EQ(result.Status, 0) << result.Errors;
    EXPECT_EQ(result.Out, "1020: CLAIM-1, now CLAIM-22\n1021: 12.50, now -7.00\n2025 entry 1: 1250.00, now 99.50\n");
    EXPECT_EQ(Contents(File()), CrLfRecords({"X10001*CLAIM-22      -7.00", "QQ   unknown", "X20001 AIRCON      99.50",
                                             "X10001 more", "X20001 RADIO"}));
}

TEST_F(SetCommand, ValuesAreLaidOutByTheirItems) {
    struct {
        const char* Assignment;
        std::size_t Position;
        const char* Field;
    } const rows[] = {
        {"1005=12", 3, "0012"},
        {"1020=a b", 8, "a b       "},
        {"1021=999999.99", 18, "999999.99"},
        {"1021=1,5", 18, "     1.50"},
        {"1021=+2.", 18, "     2.00"},
        {"1021=.25", 18, "     0.25"},
        {"1022=-12.5", 27, "0001250-"},
        {"1022=3", 27, "0000300+"},
        {"1023=ABC", 35, "ABC     "},
        {"1024=12345678901234567", 43, "12345678901234567"},
        {"1025=2025-11-14", 60, "14.11.2025"},
        {"1025=14.11.2025", 60, "14.11.2025"},
        {"1026=1999-12-30", 70, "301299"},
        {"1026=301299", 70, "301299"},
        {"1027=2025-03", 76, "2503"},
        {"1027=2025-03-01", 76, "2503"},
        {"1027=2503", 76, "2503"},
    };
    for (const auto& row : rows) {
        const CToolResult result = SetIn(CrLfRecords({"X10001"}), {row.Assignment});
        EXPECT_EQ(result.Status, 0) << row.Assignment << ": " << result.Errors;
        EXPECT_EQ(Contents(File()).substr(row.Position - 1, std::string(row.Field).size()), row.Field)
            << row.Assignment;
    }
}

TEST_F(SetCommand, AnEmptyValueBlanksTheItem) {
    const CToolResult result = SetIn(CrLfRecords({"X10001 CLAIM-1", "X20001 A            1.00B            2.00"}),
                                     {"1020=", "2025=", "--entry", "2"});
    EXPECT_EQ(result.Out, "1020: CLAIM-1, now (blank)\n2025 entry 2: 2.00, now (blank)\n");
    EXPECT_EQ(Contents(File()), CrLfRecords({"X10001", "X20001 A            1.00B"}));
}

TEST_F(SetCommand, TheEntryIsChosenByItsNumber) {
    const std::string first = "X20001 A            1.00                 B            2.00";
    const CToolResult result =
        SetIn(CrLfRecords({first, "X20001 C            3.00"}), {"2020=NEW", "2025=7", "--entry", "3"});
    EXPECT_EQ(result.Out, "2020 entry 3: C, now NEW\n2025 entry 3: 3.00, now 7.00\n");
    EXPECT_EQ(Contents(File()), CrLfRecords({first, "X20001 NEW          7.00"}));
    const CToolResult none = Set({"2020=NEW", "--entry", "4"});
    EXPECT_EQ(none.Status, 1);
    EXPECT_THAT(none.Errors, HasSubstr("item 2020: there is no entry 4, the file has 3 entries"));
}

TEST_F(SetCommand, HeaderItemsOfTypesWithEntriesAreChangedInTheFirstLine) {
    SetIn(CrLfRecords({"X20001 A", "X20001 B"}), {"2005=42"});
    EXPECT_EQ(Contents(File()), CrLfRecords({"X20042 A", "X20001 B"}));
}

TEST_F(SetCommand, ItemsOfCellsAreChangedWhereverTheyStand) {
    const std::string sections = "[DATA_G9]\n19200|2|1|C\n19225|3|8|C,,,,,(\"E\";\"LE1\")\n19235|4|15|N,,,R 4.0\n"
                                 "19255|3|8|C,,,,,(\"EM\")\n19260|12|11|N,,,R 9.2\n";
    const std::string gap(30, ' ');
    Prepare(CrLfRecords({"G90001 " + Padded("E  0410  10", 15) + gap + "EM         1.00", "G90001 LE10512  20 "}),
            sections);
    EXPECT_EQ(Set({"19235=7", "--entry", "2"}).Out, "19235 entry 2: 20, now 7\n");
    EXPECT_EQ(Set({"19260=-3.5"}).Out, "19260 entry 1: 1.00, now -3.50\n");
    EXPECT_EQ(Contents(File()),
              CrLfRecords({"G90001 " + Padded("E  0410  10", 15) + gap + "EM        -3.50", "G90001 LE10512   7 "}));
    const CToolResult blank = Set({"19225="});
    EXPECT_EQ(blank.Status, 1);
    EXPECT_THAT(blank.Errors, HasSubstr("programs would not find all entries any more"));
}

TEST_F(SetCommand, OneBadValueChangesNothingAndEachIsTold) {
    const std::string records = CrLfRecords({"X10001 CLAIM-1"});
    struct {
        const char* Assignment;
        const char* Message;
    } const rows[] = {
        {"1020=12345678901", "item 1020: \"12345678901\": length, expected 10 characters at most"},
        {"1005=0", "item 1005: \"0\": range, expected <1;9999>"},
        {"1005=12345", "item 1005: \"12345\": range, expected <1;9999>"},
        {"1021=1234567", "item 1021: \"1234567\": digits, expected 6 digits at most before the point"},
        {"1021=1.005", "item 1021: \"1.005\": decimals, expected 2 decimals at most"},
        {"1021=-999999.99",
         "item 1021: \"-999999.99\": length, expected 9 characters at most, sign and point included"},
        {"1021=1e3", "item 1021: \"1e3\": number, expected a number"},
        {"1021=--1", "item 1021: \"--1\": number, expected a number"},
        {"1021=1.000,00", "item 1021: \"1.000,00\": number, expected a number"},
        {"1023=GHI", "item 1023: \"GHI\": value-list, expected one of ABC, DEF"},
        {"1024=123456789012345678", "item 1024: \"123456789012345678\": length, expected 17 characters at most"},
        {"1025=2025-08-31", "item 1025: \"2025-08-31\": date, expected a date DD.MM.YYYY or YYYY-MM-DD"},
        {"1025=1999-12-30", "item 1025: \"1999-12-30\": range, expected <2000-01-01;)"},
        {"1025=2025-11", "item 1025: \"2025-11\": date, expected a date DD.MM.YYYY or YYYY-MM-DD"},
        {"1026=1950-12-30", "item 1026: \"1950-12-30\": date, expected a date from 1951 to 2050"},
        {"1020=Ωmega", "item 1020: \"Ωmega\": the code page has no \"Ω\""},
        {"1020=a\tb", "item 1020: \"a\\x09b\": the code page has no \"\\x09\""},
        {"2020=A", "item 2020: the file has no X2 record"},
        {"1029=A", "item 1029: the table file does not have it among the items of X1"},
    };
    for (const auto& row : rows) {
        const CToolResult result = SetIn(records, {"1022=5", row.Assignment});
        EXPECT_EQ(result.Status, 1) << row.Assignment;
        EXPECT_THAT(result.Errors, HasSubstr(row.Message)) << row.Assignment;
        EXPECT_THAT(result.Errors, HasSubstr("x.rec: nothing was changed\n")) << row.Assignment;
        EXPECT_THAT(result.Out, IsEmpty()) << row.Assignment;
        EXPECT_EQ(Contents(File()), records) << row.Assignment;
    }
}

TEST_F(SetCommand, AnItemThatLeavesItsLineIsRefusedWhateverItsLength) {
    constexpr std::string_view sections = "[DATA_X1]\n1000|2|1|C\n1020|2|127|C\n1021|2|128|C\n"
                                          "[DATA_FZ]\n200000|2|1|C\n200005|126|3|C\n200010|127|3|C\n200015|200|3|C\n";
    const std::string bytes = CrLfRecords({"X10001", "FZkept"});
    for (const char* item : {"1021", "200010", "200015"}) {
        Prepare(bytes, sections);
        const CToolResult result = Set({std::string(item) + "=b"});
        EXPECT_EQ(result.Status, 1) << item;
        EXPECT_THAT(result.Errors, HasSubstr("does not stand within the 128 characters of its line\n")) << item;
        EXPECT_EQ(Contents(File()), bytes) << item;
    }
    EXPECT_EQ(Set({"1020=b", "200005=" + std::string(126, 'b')}).Status, 0);
    EXPECT_EQ(Contents(File()), CrLfRecords({Padded("X10001", 126) + "b ", "FZ" + std::string(126, 'b')}));
}

TEST_F(SetCommand, AValueThatWouldChangeTheKindOfRecordIsRefused) {
    const std::string records = CrLfRecords({"X10001 CLAIM-1"});
    const CToolResult result = SetIn(records, {"1000=X2"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors, HasSubstr("nothing was changed, as its records would become other ones"));
    EXPECT_EQ(Contents(File()), records);
}

TEST_F(SetCommand, ABlankEntryThatWouldHideTheOnesBehindItIsRefused) {
    // A blank entry ends the group of X6.
    const std::string records = CrLfRecords({"X60001 E       ET      "});
    const CToolResult result = SetIn(records, {"6015=", "--entry", "1"});
    EXPECT_EQ(result.Status, 0); // the first entry ends no group
    const std::string three = CrLfRecords({"X60001 E       ET      N       "});
    const CToolResult hidden = SetIn(three, {"6015=", "--entry", "2"});
    EXPECT_EQ(hidden.Status, 1);
    EXPECT_THAT(hidden.Errors, HasSubstr("programs would not find all entries any more"));
    EXPECT_EQ(Contents(File()), three);
}

TEST_F(SetCommand, UmlautsAreStoredInTheFilesCodePage) {
    SetIn(CrLfRecords({"X10001"}), {"1020=Köln ß"});
    EXPECT_EQ(Contents(File()), CrLfRecords({"X10001 K\x94ln \xE1"}));
    SetIn(CrLfRecords({"X10001"}), {"1020=Köln €", "--code-page", "1252"});
    EXPECT_EQ(Contents(File()), CrLfRecords({"X10001 K\xF6ln \x80"}));
    const CToolResult euro = SetIn(CrLfRecords({"X10001"}), {"1020=€", "--code-page", "437"});
    EXPECT_EQ(euro.Status, 1);
    EXPECT_THAT(euro.Errors, HasSubstr("the code page has no \"€\""));
}

TEST_F(SetCommand, AnotherNameLeavesTheFileAsItIs) {
    const std::string records = CrLfRecords({"X10001 CLAIM-1"});
    const std::string out = GetFolder() + "/out.rec";
    const CToolResult result = SetIn(records, {"1020=NEW", "-o", out});
    EXPECT_EQ(result.Status, 0) << result.Errors;
    EXPECT_EQ(Contents(File()), records);
    EXPECT_EQ(Contents(out), CrLfRecords({"X10001 NEW"}));
}

TEST_F(SetCommand, SeparatorsStayAsTheyAreUnlessAskedFor) {
    const std::string plain = Record("X10001 OLD") + Record("QQ");
    const std::string separated = CrLfRecords({"X10001 NEW", "QQ"});
    SetIn(plain, {"1020=NEW"});
    EXPECT_EQ(Contents(File()), Record("X10001 NEW") + Record("QQ"));
    SetIn(plain, {"1020=NEW", "--crlf"});
    EXPECT_EQ(Contents(File()), separated);
    SetIn(CrLfRecords({"X10001 OLD", "QQ"}), {"1020=NEW", "--no-crlf"});
    EXPECT_EQ(Contents(File()), Record("X10001 NEW") + Record("QQ"));
    SetIn(CrLfRecords({"X10001 OLD", "QQ"}), {"1020=NEW", "--crlf"});
    EXPECT_EQ(Contents(File()), separated);
    EXPECT_EQ(SetIn(plain, {"1020=NEW", "--crlf", "--no-crlf"}).Status, 2);
}

TEST_F(SetCommand, LinesOfAnyLengthGrowWithTheirItems) {
    SetIn("V10001\nV10002" + std::string(21, ' ') + "It rained.\n", {"21010=7", "21035=It hailed.", "--entry", "1"});
    EXPECT_EQ(Contents(File()), "V17   \nV10002" + std::string(21, ' ') + Padded("It hailed.", 47) + "\n");
}

TEST_F(SetCommand, ADamagedFileIsNotWorkedOn) {
    const std::string records = CrLfRecords({"X10001 CLAIM-1"}) + "X2";
    const CToolResult result = SetIn(records, {"1020=NEW"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors, HasSubstr("x.rec:2: the record is cut off"));
    EXPECT_EQ(Contents(File()), records);
}

TEST_F(SetCommand, TheSameValueLeavesTheFileAlone) {
    Prepare(CrLfRecords({"X10001 CLAIM-1"}));
    struct stat before = {};
    struct stat after = {};
    ASSERT_EQ(stat(File().c_str(), &before), 0);
    EXPECT_EQ(Set({"1020=CLAIM-1"}).Out, "1020: CLAIM-1, unchanged\n");
    ASSERT_EQ(stat(File().c_str(), &after), 0);
    EXPECT_EQ(before.st_ino, after.st_ino);
}

TEST_F(SetCommand, ADeviceThatIsFullIsAnErrorAndStaysADevice) {
    const std::string records = CrLfRecords({"X10001 CLAIM-1"});
    const CToolResult result = SetIn(records, {"1020=NEW", "-o", "/dev/full"});
    EXPECT_EQ(result.Status, 3);
    EXPECT_THAT(result.Errors, HasSubstr("/dev/full: cannot be saved: "));
    EXPECT_THAT(result.Out, IsEmpty());
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    EXPECT_EQ(Contents(File()), records);
}

TEST_F(SetCommand, AFolderThatIsMissingIsAnError) {
    const CToolResult result =
        SetIn(CrLfRecords({"X10001 CLAIM-1"}), {"1020=NEW", "-o", GetFolder() + "/none/out.rec"});
    EXPECT_EQ(result.Status, 3);
    EXPECT_THAT(result.Errors, HasSubstr("none/out.rec: cannot be saved: "));
}

// A file of 20 records is longer than the limit of 1024 characters.
TEST_F(SetCommand, ASaveThatIsKilledLeavesTheOldFile) {
    std::vector<std::string> lines(20, "QQ");
    lines[0] = "X10001 CLAIM-1";
    Prepare(CrLfRecords(lines));
    const CToolResult result = SetInShell("(ulimit -f 1; SET); echo status $?");
    EXPECT_EQ(result.Out, "status 153\n"); // killed by SIGXFSZ
    EXPECT_EQ(Contents(File()), CrLfRecords(lines));
}

TEST_F(SetCommand, ASaveThatFailsLeavesTheOldFileAndNoOtherOne) {
    std::vector<std::string> lines(20, "QQ");
    lines[0] = "X10001 CLAIM-1";
    Prepare(CrLfRecords(lines));
    const CToolResult result = SetInShell("(trap '' XFSZ; ulimit -f 1; SET); echo status $?");
    EXPECT_EQ(result.Out, "status 3\n");
    EXPECT_THAT(result.Errors, HasSubstr("x.rec: cannot be saved: "));
    EXPECT_EQ(Contents(File()), CrLfRecords(lines));
    EXPECT_EQ(FilesInFolder().size(), 4U); // the file, the table, the runner's two
}

// What only POSIX systems have: modes, links, limits, arguments of any bytes, a folder for temporary files by call.
class SetCommandPosix : public SetCommand {};

TEST_F(SetCommandPosix, AValueThatIsNotUtf8ChangesNothing) {
    const std::string records = CrLfRecords({"X10001 CLAIM-1"});
    const CToolResult result = SetIn(records, {"1020=\xF6"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors, HasSubstr("is not UTF-8"));
    EXPECT_EQ(Contents(File()), records);
}

TEST_F(SetCommandPosix, ASaveThatFailsTellsWhy) {
    std::vector<std::string> lines(20, "QQ");
    lines[0] = "X10001 CLAIM-1";
    Prepare(CrLfRecords(lines));
    const CToolResult result = SetInShell("(trap '' XFSZ; ulimit -f 1; SET); echo status $?");
    EXPECT_THAT(result.Errors, HasSubstr("x.rec: cannot be saved: File too large"));
}

TEST_F(SetCommandPosix, TheFileKeepsItsModeAndALinkItsTarget) {
    Prepare(CrLfRecords({"X10001 CLAIM-1"}));
    const std::string target = GetFolder() + "/target.rec";
    fs::rename(File(), target);
    fs::permissions(target, fs::perms(0640));
    fs::create_symlink("target.rec", File());
    EXPECT_EQ(Set({"1020=NEW"}).Status, 0);
    EXPECT_TRUE(fs::is_symlink(File()));
    EXPECT_EQ(Contents(target), CrLfRecords({"X10001 NEW"}));
    EXPECT_EQ(fs::status(target).permissions(), fs::perms(0640));
    EXPECT_EQ(FilesInFolder().size(), 5U); // the link, its target, the table, the runner's two
}

TEST_F(SetCommandPosix, ALinkToNowhereIsFilled) {
    Prepare(CrLfRecords({"X10001 CLAIM-1"}));
    fs::create_symlink("later.rec", GetFolder() + "/link.rec");
    EXPECT_EQ(Set({"1020=NEW", "-o", GetFolder() + "/link.rec"}).Status, 0);
    EXPECT_TRUE(fs::is_symlink(GetFolder() + "/link.rec"));
    EXPECT_EQ(Contents(GetFolder() + "/later.rec"), CrLfRecords({"X10001 NEW"}));
}

// For root no folder is closed, unless it gives its rights away.
class SetCommandInClosedFolder : public SetCommand {
protected:
    void SetUp() override {
        if (geteuid() == 0 && RunShell("setpriv --bounding-set=-all true").Status != 0) {
            GTEST_SKIP() << "root without setpriv can write anywhere";
        }
        m_strClosed = GetFolder() + "/closed";
        fs::create_directory(m_strClosed);
        fs::create_directory(Temporary());
        Write("x.table", std::string(kHeader).append(kSections));
        Write("closed/x.rec", CrLfRecords({"X10001 CLAIM-1", "QQ"}));
        fs::permissions(m_strClosed, fs::perms(0555));
    }
    void TearDown() override { fs::permissions(m_strClosed, fs::perms(0755)); }

    CToolResult SetThere(const std::string& arguments) const {
        const std::string rights = geteuid() == 0 ? "setpriv --bounding-set=-all " : "";
        const std::string tool = rights + "env TMPDIR='" + Temporary() + "' '" + ToolFile() + "'";
        return RunShell(tool + " set '" + m_strClosed + "/x.rec' --table '" + Table() + "' " + arguments);
    }
    std::string Temporary() const { return GetFolder() + "/temporary"; }
    std::string ClosedFile() const { return m_strClosed + "/x.rec"; }

private:
    std::string m_strClosed;
};

TEST_F(SetCommandInClosedFolder, TheFileIsOverwritten) {
    const CToolResult result = SetThere("1020=NEW");
    EXPECT_EQ(result.Status, 0) << result.Errors;
    EXPECT_EQ(Contents(ClosedFile()), CrLfRecords({"X10001 NEW", "QQ"}));
    EXPECT_THAT(result.Errors, HasSubstr("its folder allows no new file, so it is overwritten"));
}

TEST_F(SetCommandInClosedFolder, AShorterFileIsCutAndALongerOneGrows) {
    EXPECT_EQ(SetThere("1020=NEW --no-crlf").Status, 0);
    EXPECT_EQ(Contents(ClosedFile()), Record("X10001 NEW") + Record("QQ"));
    EXPECT_EQ(SetThere("1020=NEWER --crlf").Status, 0);
    EXPECT_EQ(Contents(ClosedFile()), CrLfRecords({"X10001 NEWER", "QQ"}));
}

TEST_F(SetCommandInClosedFolder, AFileThatIsReadOnlyIsNotTouched) {
    fs::permissions(ClosedFile(), fs::perms(0444));
    const CToolResult result = SetThere("1020=NEW");
    EXPECT_EQ(result.Status, 3);
    EXPECT_THAT(result.Errors, HasSubstr("closed/x.rec: cannot be saved: Permission denied"));
    EXPECT_EQ(Contents(ClosedFile()), CrLfRecords({"X10001 CLAIM-1", "QQ"}));
}

TEST_F(SetCommandInClosedFolder, ANewFileIsAnError) {
    const CToolResult result = SetThere("1020=NEW -o '" + GetFolder() + "/closed/new.rec'");
    EXPECT_EQ(result.Status, 3);
    EXPECT_THAT(result.Errors, HasSubstr("closed/new.rec: cannot be saved: Permission denied"));
}

class SetCommandInClosedFolderPosix : public SetCommandInClosedFolder {};

TEST_F(SetCommandInClosedFolderPosix, NoCopyIsLeftBehind) {
    EXPECT_EQ(SetThere("1020=NEW").Status, 0);
    EXPECT_EQ(Contents(ClosedFile()), CrLfRecords({"X10001 NEW", "QQ"}));
    EXPECT_TRUE(fs::is_empty(Temporary()));
}

TEST_F(SetCommandInClosedFolderPosix, WithoutRoomForACopyTheFileIsNotTouched) {
    fs::remove(Temporary());
    EXPECT_EQ(SetThere("1020=NEW").Status, 3);
    EXPECT_EQ(Contents(ClosedFile()), CrLfRecords({"X10001 CLAIM-1", "QQ"}));
}

TEST_F(SetCommand, EveryItemOfTheSampleCanBeSetToWhatItIs) {
    const std::string file = GetFolder() + "/copy.rec";
    fs::copy_file(Sample("all-types.rec"), file);
    const std::string table = Sample("calculation.table");
    for (const char* item :
         {"1030", "1070", "1130", "2025", "3025", "4035", "4060", "5380", "9025", "12020", "18220"}) {
        const std::string value = Run({"get", file, item, "--table", table}).Out;
        const CToolResult result =
            Run({"set", file, std::string(item) + "=" + value.substr(0, value.find('\n')), "--table", table});
        EXPECT_EQ(result.Status, 0) << item << ": " << result.Errors;
        EXPECT_THAT(result.Out, HasSubstr(", unchanged\n")) << item;
    }
    EXPECT_EQ(Contents(file), Contents(Sample("all-types.rec")));
}

TEST_F(SetCommand, HelpHasExamplesAndWrongUsageIsStatusTwo) {
    EXPECT_THAT(Run({"set", "--help"}).Out, HasSubstr("Examples:\n  tabvex set "));
    Prepare(CrLfRecords({"X10001 CLAIM-1"}));
    for (const char* argument : {"1020", "name=X", "=X", "1020.5=X"}) {
        EXPECT_EQ(Set({argument}).Status, 2) << argument;
    }
    EXPECT_EQ(Set({}).Status, 2);
    EXPECT_EQ(Set({"1020=A", "1020=B"}).Status, 2);
    EXPECT_EQ(Set({"1020=A", "--entry", "0"}).Status, 2);
    EXPECT_EQ(Contents(File()), CrLfRecords({"X10001 CLAIM-1"}));
}

} // namespace
} // namespace tool_tests
