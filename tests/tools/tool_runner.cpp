#include "tool_runner.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tool_tests {

namespace {

std::string Quoted(const std::string& argument) {
    std::string quoted = "'";
    for (const char c : argument) {
        quoted.append(c == '\'' ? "'\\''" : std::string(1, c));
    }
    return quoted + "'";
}

std::string Contents(const std::string& fileName) {
    std::ifstream file(fileName, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string NewFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "tabvex-tool-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    return name;
}

} // namespace

std::string ToolFile() {
    const char* other = std::getenv("TABVEX_TEST_TOOL");
    return other != nullptr ? other : TABVEX_TOOL;
}

std::string Sample(const std::string& name) {
    return std::string(TABVEX_SAMPLES_DIR "/") + name;
}

CToolTest::CToolTest() : m_strFolder(NewFolder()) {}

CToolTest::~CToolTest() {
    std::error_code ignored;
    std::filesystem::remove_all(m_strFolder, ignored);
}

CToolResult CToolTest::Run(const std::vector<std::string>& arguments) const {
    std::string command = "TOOL";
    for (const std::string& argument : arguments) {
        command.append(" ").append(Quoted(argument));
    }
    return RunShell(command);
}

CToolResult CToolTest::RunShell(const std::string& command) const {
    const std::string out = m_strFolder + "/.out";
    const std::string errors = m_strFolder + "/.errors";
    const std::string script =
        "TOOL() { " + Quoted(ToolFile()) + " \"$@\"; }\n{ " + command + "\n} >" + Quoted(out) + " 2>" + Quoted(errors);
    const int status = std::system(("bash -c " + Quoted(script)).c_str()); // NOLINT(cert-env33-c): the tool's own shell
    CToolResult result;
    result.Status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.Out = Contents(out);
    result.Errors = Contents(errors);
    return result;
}

std::string CToolTest::Write(const std::string& name, std::string_view contents) const {
    std::string fileName = m_strFolder + "/" + name;
    std::ofstream(fileName, std::ios::binary) << contents;
    return fileName;
}

std::string Record(std::string_view text) {
    return Padded(text, 128);
}

std::string CrLfRecords(const std::vector<std::string>& texts) {
    std::string records;
    for (const std::string& text : texts) {
        records.append(Record(text)).append("\r\n");
    }
    return records;
}

std::string Padded(std::string_view text, std::size_t width) {
    std::string padded(text);
    padded.resize(width, ' ');
    return padded;
}

} // namespace tool_tests
