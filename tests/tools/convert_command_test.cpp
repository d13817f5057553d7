#include "tool_runner.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

namespace tool_tests {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class ConvertCommand : public CToolTest {
protected:
    CToolResult Convert(std::string_view bytes, const std::vector<std::string>& options) const {
        std::vector<std::string> arguments = {"convert", Write("x.rec", bytes), OutName()};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return Run(arguments);
    }
    /// What the conversion of these bytes wrote, for one that finds nothing wrong.
    std::string Converted(std::string_view bytes, const std::vector<std::string>& options) const {
        const CToolResult result = Convert(bytes, options);
        EXPECT_EQ(result.Status, 0) << testing::PrintToString(options);
        EXPECT_THAT(result.Out, IsEmpty());
        EXPECT_THAT(result.Errors, IsEmpty());
        return OutBytes();
    }
    std::string OutName() const { return GetFolder() + "/out.rec"; }
    std::string OutBytes() const {
        std::ifstream file(OutName(), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    bool IsOutWritten() const { return std::ifstream(OutName()).is_open(); }
};

// Types in no order, one that is not known, a NUL, and markers that no save would leave.
std::vector<std::string> MixedLines() {
    return {"X100019 claim", "QQ unknown", std::string("X200019 a\0b", 11), "X100019 more"};
}

std::string Unseparated(const std::vector<std::string>& lines) {
    std::string bytes;
    for (const std::string& line : lines) {
        bytes.append(Record(line));
    }
    return bytes;
}

TEST_F(ConvertCommand, CrLfComeAndGoAndNothingElseChanges) {
    const std::string with = CrLfRecords(MixedLines());
    const std::string without = Unseparated(MixedLines());
    EXPECT_EQ(Converted(with, {"--no-crlf"}), without);
    EXPECT_EQ(Converted(without, {"--crlf"}), with);
    EXPECT_EQ(Converted(with, {"--crlf"}), with);
    EXPECT_EQ(Converted(without, {"--no-crlf"}), without);
}

TEST_F(ConvertCommand, WithoutOptionsTheCopyIsTheSame) {
    EXPECT_EQ(Converted(CrLfRecords(MixedLines()), {}), CrLfRecords(MixedLines()));
    EXPECT_EQ(Converted(Unseparated(MixedLines()), {}), Unseparated(MixedLines()));
    EXPECT_EQ(Converted("", {"--crlf"}), "");
}

TEST_F(ConvertCommand, TheLastRecordGetsTheCrLfThatOthersHave) {
    EXPECT_EQ(Converted(CrLfRecords({"X1"}) + Record("X1"), {}), CrLfRecords({"X1", "X1"}));
}

TEST_F(ConvertCommand, TheSampleFilesTurnIntoEachOther) {
    EXPECT_EQ(Run({"convert", Sample("all-types.rec"), OutName(), "--no-crlf"}).Status, 0);
    EXPECT_EQ(RunShell("cmp '" + OutName() + "' '" + Sample("all-types-unseparated.rec") + "'").Status, 0);
    EXPECT_EQ(Run({"convert", Sample("all-types-unseparated.rec"), OutName(), "--crlf"}).Status, 0);
    EXPECT_EQ(RunShell("cmp '" + OutName() + "' '" + Sample("all-types.rec") + "'").Status, 0);
}

TEST_F(ConvertCommand, LettersAreConvertedBetweenTheCodePages) {
    // u and a with two dots, sharp s.
    struct {
        const char* From;
        const char* To;
        const char* Before;
        const char* After;
    } const rows[] = {{"850", "1252", "\x81\x84\xE1", "\xFC\xE4\xDF"},
                      {"437", "1252", "\x81\x84\xE1", "\xFC\xE4\xDF"},
                      {"1252", "850", "\xFC\xE4\xDF", "\x81\x84\xE1"},
                      {"1252", "437", "\xFC\xE4\xDF", "\x81\x84\xE1"},
                      {"850", "437", "\x81\x84\xE1", "\x81\x84\xE1"},
                      {"850", "437", "\xBD", "\x9B"}, // cent sign
                      {"437", "850", "\x9B", "\xBD"},
                      {"850", "850", "\xB3\xFF", "\xB3\xFF"}};
    for (const auto& row : rows) {
        const std::vector<std::string> options = {"--from", row.From, "--to", row.To};
        EXPECT_EQ(Converted(CrLfRecords({"X1 A", std::string("QQ") + row.Before, "X1 Z~"}), options),
                  CrLfRecords({"X1 A", std::string("QQ") + row.After, "X1 Z~"}))
            << row.From << " to " << row.To;
    }
}

TEST_F(ConvertCommand, CodePageAndCrLfCanChangeTogether) {
    EXPECT_EQ(Converted(CrLfRecords({"X1\x81"}), {"--from", "850", "--to", "1252", "--no-crlf"}), Record("X1\xFC"));
}

TEST_F(ConvertCommand, CharactersThatTheCodePageLacksBecomeTheNearestOnesAndAreReported) {
    // The o with a stroke and the euro sign of 1252 become o and a question mark in 437; the cent sign is there.
    const CToolResult result = Convert(Record("X1\xF8\x80\xA2"), {"--from", "1252", "--to", "437"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors,
              "tabvex: " + GetFolder() + "/x.rec: 2 characters not in code page 437; each became the nearest one\n");
    EXPECT_EQ(OutBytes(), Record("X1o?\x9B"));
}

TEST_F(ConvertCommand, ASavedFzRecordStaysOneRecordBehindCrLf) {
    const std::string fz = Padded("FZ0001 vehicle", 640);
    const std::string with = CrLfRecords({"X1"}) + fz + "\r\n" + CrLfRecords({"X2"});
    EXPECT_EQ(Converted(with, {}), with);
    EXPECT_EQ(Converted(with, {"--no-crlf"}), Record("X1") + fz + Record("X2"));
}

TEST_F(ConvertCommand, ASavedFzRecordWithoutCrLfIsOneRecordOnlyAtTheEndOnPurpose) {
    const std::string fz = Padded("FZ0001 vehicle", 640);
    EXPECT_EQ(Converted(Record("X1") + fz, {"--crlf"}), CrLfRecords({"X1"}) + fz + "\r\n");
    EXPECT_EQ(Converted(fz + Record("X1"), {"--crlf"}), CrLfRecords({"FZ0001 vehicle", "", "", "", "", "X1"}));
}

TEST_F(ConvertCommand, AnFzRecordOf128CharactersIsLikeAllOthers) {
    const std::vector<std::string> lines = {"FZ0001 vehicle", "X1", "X2"};
    EXPECT_EQ(Converted(CrLfRecords(lines), {"--no-crlf"}), Unseparated(lines));
    EXPECT_EQ(Converted(Unseparated(lines), {"--crlf"}), CrLfRecords(lines));
}

TEST_F(ConvertCommand, ADamagedFileIsNotConverted) {
    struct {
        std::string Bytes;
        const char* Message;
    } const rows[] = {{CrLfRecords({"X1"}) + "X2", ":2: the record is cut off"},
                      {"X1", ":1: the record is cut off"},
                      {CrLfRecords({"X1"}) + Record("X2") + Record("X3"), ":2: no CR LF behind the record"},
                      {CrLfRecords({"X1"}) + Record("X2") + "\r", ":2: no CR LF behind the record"}};
    for (const auto& row : rows) {
        const CToolResult result = Convert(row.Bytes, {"--crlf"});
        EXPECT_EQ(result.Status, 1) << row.Message;
        EXPECT_EQ(result.Errors, "tabvex: " + GetFolder() + "/x.rec" + row.Message + "; nothing was written\n");
        EXPECT_FALSE(IsOutWritten()) << row.Message;
    }
}

TEST_F(ConvertCommand, LinesOfAnyLengthCanOnlyChangeTheirCodePage) {
    EXPECT_EQ(Converted("V1 T\x81r\nV2\r\n\nV3\n", {"--from", "850", "--to", "1252"}), "V1 T\xFCr\nV2\r\n\nV3\n");
    const CToolResult result = Convert("V1\nV2\n", {"--crlf"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors, HasSubstr("its lines are of any length"));
}

TEST_F(ConvertCommand, TheFileItselfCanBeTheOneToWrite) {
    const std::string file = Write("out.rec", CrLfRecords({"X1", "QQ"}));
    EXPECT_EQ(Run({"convert", file, file, "--no-crlf"}).Status, 0);
    EXPECT_EQ(OutBytes(), Record("X1") + Record("QQ"));
}

TEST_F(ConvertCommand, WrongUsageEndsWithStatusTwo) {
    const std::vector<std::vector<std::string>> rows = {
        {"--crlf", "--no-crlf"},        {"--from", "850"},         {"--to", "850"}, {"--from", "852", "--to", "850"},
        {"--from", "850", "--to", "0"}, {"--from", "850", "--to"}, {"another"}};
    for (const std::vector<std::string>& options : rows) {
        EXPECT_EQ(Convert(Record("X1"), options).Status, 2) << testing::PrintToString(options);
        EXPECT_FALSE(IsOutWritten());
    }
    EXPECT_EQ(Run({"convert", Write("x.rec", "")}).Status, 2);
}

TEST_F(ConvertCommand, AFileThatCannotBeReadOrWrittenEndsWithStatusThree) {
    EXPECT_EQ(Run({"convert", GetFolder() + "/missing", OutName()}).Status, 3);
    EXPECT_EQ(Run({"convert", Write("x.rec", Record("X1")), GetFolder() + "/no/folder"}).Status, 3);
}

TEST_F(ConvertCommand, HelpTellsWhatStaysAndHasExamples) {
    const CToolResult result = Run({"convert", "--help"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Out, HasSubstr("record-number markers stay as they are"));
    EXPECT_THAT(result.Out, HasSubstr("Examples:\n  tabvex convert"));
}

} // namespace
} // namespace tool_tests
