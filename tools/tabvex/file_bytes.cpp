#include "file_bytes.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "exit_status.h"
#include "tool_system.h"

namespace tabvex::tool {

namespace {

struct CFileCloser {
    void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};

[[noreturn]] void ThrowCannotRead(const std::string& fileName, int error) {
    throw CToolError(fileName + ": cannot be read: " + std::strerror(error)); // NOLINT(concurrency-mt-unsafe)
}

} // namespace

std::string ReadFileBytes(const std::string& fileName) {
    const std::unique_ptr<std::FILE, CFileCloser> file(std::fopen(SystemFileName(fileName).c_str(), "rb"));
    if (file == nullptr) {
        ThrowCannotRead(fileName, errno);
    }
    std::string bytes;
    std::array<char, 1 << 16> block; // NOLINT(cppcoreguidelines-pro-type-member-init): filled before it is read
    std::size_t count = 0;
    while ((count = std::fread(block.data(), 1, block.size(), file.get())) > 0) {
        bytes.append(block.data(), count);
    }
    if (std::ferror(file.get()) != 0) {
        ThrowCannotRead(fileName, errno);
    }
    return bytes;
}

} // namespace tabvex::tool
