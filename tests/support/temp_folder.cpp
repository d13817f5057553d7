#include "support/temp_folder.h"

#include <atomic>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <system_error>

namespace fs = std::filesystem;

namespace {

// Tests run in many processes at a time, so that the name must be new in all of them.
fs::path NewFolder() {
    static std::atomic<int> number = 0;
    std::random_device random;
    for (;;) {
        const std::string name = "tabvex-test-" + std::to_string(random()) + "-" + std::to_string(++number);
        fs::path path = fs::temp_directory_path() / name;
        if (fs::create_directory(path)) {
            return path;
        }
    }
}

} // namespace

CTempFolder::CTempFolder() : m_Path(NewFolder()) {}

CTempFolder::~CTempFolder() {
    std::error_code ignored;
    fs::remove_all(m_Path, ignored);
}

std::string CTempFolder::PathOf(std::string_view name) const {
    return (m_Path / name).string();
}

std::string CTempFolder::Write(std::string_view name, std::string_view bytes) const {
    std::string path = PathOf(name);
    WriteFile(path, bytes);
    return path;
}

void WriteFile(const std::string& path, std::string_view bytes) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) {
        throw std::runtime_error("cannot write " + path);
    }
}

std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot read " + path);
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}
