// Runs the built tabvex tool and keeps what it answers; writes the small files that tests run it on.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace tool_tests {

struct CToolResult {
    int Status = -1; ///< exit status; -1 when the tool was killed
    std::string Out;
    std::string Errors;

    nlohmann::ordered_json Json() const { return nlohmann::ordered_json::parse(Out); }
};

/// The tool: the one that was built, or what TABVEX_TEST_TOOL names, such as a script that runs it elsewhere.
std::string ToolFile();
/// A sample file by its name.
std::string Sample(const std::string& name);

/// A test with a folder of its own, which goes away with it.
class CToolTest : public testing::Test {
public:
    CToolTest(const CToolTest&) = delete;
    CToolTest& operator=(const CToolTest&) = delete;

protected:
    CToolTest();
    ~CToolTest() override;

    /// Runs the tool with these arguments.
    CToolResult Run(const std::vector<std::string>& arguments) const;
    /// Runs a shell command in which TOOL stands for the tool.
    CToolResult RunShell(const std::string& command) const;
    /// Writes a file into the test's folder; its full name.
    std::string Write(const std::string& name, std::string_view contents) const;
    const std::string& GetFolder() const { return m_strFolder; }

private:
    std::string m_strFolder;
};

/// The text in 128 characters.
std::string Record(std::string_view text);
/// Several records, each with CR LF behind it.
std::string CrLfRecords(const std::vector<std::string>& texts);
/// The text with blanks behind it up to `width` characters.
std::string Padded(std::string_view text, std::size_t width);

/// A table file's header that lacks nothing.
inline constexpr std::string_view kHeader = "[HEADER]\n"
                                            "ID=test\nAUTHOR=tests\nCOUNTRY=D\nLANGUAGE=E\nDATE=2025-01-31\n"
                                            "VERSION=4.7\nDELIMITER=|\nCOMMENT=#\nNEWLINE=^\n";

/// Layouts of a list type and of a type with entries of 17 characters; the descriptions tell what is what.
inline constexpr std::string_view kListAndEntries = "[DATA_X1]\n"
                                                    "1000|2|1|C|Record type\n"
                                                    "1005|4|3|N|Number\n"
                                                    "1020|10|8|C|Claim\n"
                                                    "[DATA_X2]\n"
                                                    "2000|2|1|C|Record type\n"
                                                    "2005|4|3|N|Number\n"
                                                    "2020|8|8|C|Code\n"
                                                    "2025|9|16|N|Price\n";
/// The layout of a type with entries of 12 characters.
inline constexpr std::string_view kReports = "[DATA_V1]\n"
                                             "21005|2|1|C|Record type\n"
                                             "21035|47|28|C|Report\n";

} // namespace tool_tests
