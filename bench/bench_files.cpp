#include "bench_files.h"

#include <filesystem>
#include <fstream>
#include <unistd.h>
#include <vector>

#include "child_process.h"
#include "sample_table.h"
#include "small_calculation.h"

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kLongTableLines = 2500;
constexpr const char* kSeed = "7";

fs::path ScratchFolder() {
    fs::path folder = TABVEX_BENCH_SCRATCH;
    fs::create_directories(folder);
    return folder;
}

fs::path MemoryFolder() {
    const fs::path memory = "/dev/shm";
    std::error_code error;
    return fs::is_directory(memory, error) ? memory : ScratchFolder();
}

std::vector<std::string> GeneratorOptions(EFileKind kind) {
    switch (kind) {
    case EFileKind::Known:
        return {};
    case EFileKind::KnownUnseparated:
        return {"--no-crlf"};
    case EFileKind::Unknown:
        return {"--unknown", "100"};
    case EFileKind::Options:
        return {"--types", "X2"};
    case EFileKind::Small:
        return {"--types", kSmallCalculationTypes};
    }
    return {};
}

const char* NameOf(EFileKind kind) {
    switch (kind) {
    case EFileKind::Known:
        return "known";
    case EFileKind::KnownUnseparated:
        return "unseparated";
    case EFileKind::Unknown:
        return "unknown";
    case EFileKind::Options:
        return "options";
    case EFileKind::Small:
        return "small";
    }
    return "";
}

struct CTableText {
    std::vector<std::vector<std::string>> Sections; // heads left out
    std::vector<std::string> Lines;                 // all, heads included
};

CTableText ReadTable() {
    CTableText table;
    std::ifstream file(kSampleTable);
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line.front() == '#') {
            continue;
        }
        table.Lines.push_back(line);
        if (line.rfind("[DATA_", 0) == 0) {
            table.Sections.emplace_back();
        } else if (!table.Sections.empty()) {
            table.Sections.back().push_back(line);
        }
    }
    if (table.Sections.empty()) {
        Die(std::string("no table ") + kSampleTable);
    }
    return table;
}

} // namespace

std::string RecordFile(EFileKind kind, std::int64_t records) {
    const fs::path file = ScratchFolder() / (std::string(NameOf(kind)) + "-" + std::to_string(records) + ".rec");
    if (fs::exists(file)) {
        return file.string();
    }
    const fs::path part = file.string() + ".part"; // a run that is broken off leaves no half file behind
    std::vector<std::string> arguments = {TABVEX_GENERATE, "records",    "--table",   kSampleTable,
                                          "--seed",        kSeed,        "--records", std::to_string(records),
                                          "--out",         part.string()};
    for (const std::string& option : GeneratorOptions(kind)) {
        arguments.push_back(option);
    }
    RunProgram(arguments);
    fs::rename(part, file);
    return file.string();
}

std::string LongTable() {
    const fs::path name = ScratchFolder() / "long.table";
    CTableText table = ReadTable();
    const std::size_t sections = table.Sections.size();
    for (std::size_t i = 0; table.Lines.size() < kLongTableLines; ++i) {
        table.Lines.push_back("[DATA_Q" + std::to_string(i) + "]");
        for (const std::string& line : table.Sections[i % sections]) {
            table.Lines.push_back(line);
        }
    }
    table.Lines.resize(kLongTableLines);
    std::ofstream file(name);
    for (const std::string& line : table.Lines) {
        file << line << '\n';
    }
    file.close();
    if (!file) {
        Die("cannot write " + name.string());
    }
    return name.string();
}

CFileInMemory::CFileInMemory(const std::string& name)
    : m_strName((MemoryFolder() / ("tabvex-bench-" + std::to_string(::getpid()) + "-" + name)).string()) {}

CFileInMemory CFileInMemory::CopyOf(const std::string& fileName) {
    return {fileName, fs::path(fileName).filename().string()};
}

CFileInMemory::CFileInMemory(const std::string& original, const std::string& name) : CFileInMemory(name) {
    fs::copy_file(original, m_strName);
}

CFileInMemory::~CFileInMemory() {
    std::error_code error;
    fs::remove(m_strName, error);
}

double FileSize(const std::string& fileName) {
    return static_cast<double>(fs::file_size(fileName));
}
