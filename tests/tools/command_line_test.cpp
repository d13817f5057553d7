#include "tool_runner.h"

#include <gmock/gmock.h>

namespace tool_tests {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;

class CommandLine : public CToolTest {};

TEST_F(CommandLine, HelpNamesTheCommands) {
    const CToolResult result = Run({"--help"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Out, HasSubstr("show"));
    EXPECT_THAT(result.Out, HasSubstr("table"));
    EXPECT_THAT(result.Out, HasSubstr("Exit status: 0 fine"));
    EXPECT_THAT(result.Errors, IsEmpty());
}

TEST_F(CommandLine, EveryCommandsHelpHasExamples) {
    for (const char* command : {"show", "table"}) {
        const CToolResult result = Run({command, "--help"});
        EXPECT_EQ(result.Status, 0) << command;
        EXPECT_THAT(result.Out, HasSubstr(std::string("Examples:\n  tabvex ") + command)) << command;
    }
}

TEST_F(CommandLine, VersionIsThatOfTheProject) {
    const CToolResult result = Run({"--version"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Out, MatchesRegex("tabvex [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST_F(CommandLine, WrongUsageEndsWithStatusTwoAndAMessage) {
    const std::string table = Sample("calculation.table");
    const std::string file = Sample("all-types.rec");
    const std::vector<std::vector<std::string>> rows = {
        {},
        {"shew"},
        {"show"},
        {"show", file},
        {"show", "--table", table},
        {"show", file, "--table"},
        {"show", file, "--table", table, "--colour"},
        {"show", file, "--table", table, "--code-page", "852"},
        {"show", file, "--table", table, "--code-page", "latin"},
        {"show", file, "--table", table, "--form", "wide"},
        {"show", file, "another", "--table", table},
        {"table"},
        {"table", table, "--entries"},
        {"table", table, "--code-page", "0"},
    };
    for (const std::vector<std::string>& arguments : rows) {
        const CToolResult result = Run(arguments);
        EXPECT_EQ(result.Status, 2) << testing::PrintToString(arguments);
        EXPECT_THAT(result.Out, IsEmpty()) << testing::PrintToString(arguments);
        EXPECT_THAT(result.Errors, testing::Not(IsEmpty())) << testing::PrintToString(arguments);
    }
}

TEST_F(CommandLine, AFileThatIsMissingEndsWithStatusThreeAndItsName) {
    const std::string missing = GetFolder() + "/missing";
    const std::string table = Sample("calculation.table");
    const std::vector<std::vector<std::string>> rows = {
        {"show", missing, "--table", table}, {"show", Sample("all-types.rec"), "--table", missing}, {"table", missing}};
    for (const std::vector<std::string>& arguments : rows) {
        const CToolResult result = Run(arguments);
        EXPECT_EQ(result.Status, 3) << testing::PrintToString(arguments);
        EXPECT_THAT(result.Out, IsEmpty());
        EXPECT_THAT(result.Errors, HasSubstr(missing + ": cannot be read"));
    }
}

TEST_F(CommandLine, AFolderIsNoFile) {
    const std::string table = Sample("calculation.table");
    const std::vector<std::vector<std::string>> rows = {{"show", GetFolder(), "--table", table},
                                                        {"show", Sample("all-types.rec"), "--table", GetFolder()},
                                                        {"table", GetFolder()}};
    for (const std::vector<std::string>& arguments : rows) {
        const CToolResult result = Run(arguments);
        EXPECT_EQ(result.Status, 3) << testing::PrintToString(arguments);
        EXPECT_THAT(result.Out, IsEmpty());
        EXPECT_THAT(result.Errors, HasSubstr(GetFolder() + ": cannot be read"));
    }
}

TEST_F(CommandLine, AReaderThatClosesThePipeEndsTheToolQuietly) {
    // Far more than a pipe holds, so that the tool is still writing when the reader goes.
    std::string records;
    for (int i = 0; i < 20000; ++i) {
        records.append(Record("QQ an unknown line"));
    }
    const std::string file = Write("large.rec", records);
    const CToolResult result = RunShell("TOOL show '" + file + "' --table '" + Sample("calculation.table") +
                                        "' | head -n 1; echo \"status ${PIPESTATUS[0]}\"");
    EXPECT_EQ(result.Out, "Unknown record types\nstatus 0\n");
    EXPECT_THAT(result.Errors, IsEmpty());
}

TEST_F(CommandLine, AnOutputThatCannotBeStoredEndsWithStatusThree) {
    const CToolResult result = RunShell("TOOL table '" + Sample("calculation.table") + "' >/dev/full");
    EXPECT_EQ(result.Status, 3);
    EXPECT_THAT(result.Errors, HasSubstr("cannot write the output"));
}

} // namespace
} // namespace tool_tests
