#include "memory_file.h"

#include <cstdlib>
#include <dlfcn.h>
#include <sys/mman.h>
#include <unistd.h>

namespace tabvex::fuzz {

CMemoryFile::CMemoryFile(const std::uint8_t* data, std::size_t size)
    : m_nHandle(::memfd_create("input", MFD_CLOEXEC)), m_strName("/proc/self/fd/" + std::to_string(m_nHandle)) {
    Require(m_nHandle >= 0 && ::write(m_nHandle, data, size) == static_cast<ssize_t>(size));
}

CMemoryFile::~CMemoryFile() {
    ::close(m_nHandle);
}

void PinLibrary(const char* fileName) {
    Require(::dlopen(fileName, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE) != nullptr);
}

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

} // namespace tabvex::fuzz
