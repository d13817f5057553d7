#include "platform/platform.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <new>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tabvex {

const char* const kTableReaderFile = "libTBLREAD.so";

CFile::~CFile() {
    Close();
}

bool CFile::OpenForReading(const char* fileName) {
    const int handle = ::open(fileName, O_RDONLY | O_CLOEXEC);
    if (handle < 0) {
        return false;
    }
    struct stat status = {};
    if (::fstat(handle, &status) != 0 || S_ISDIR(status.st_mode)) {
        ::close(handle);
        return false;
    }
    m_nHandle = handle;
    return true;
}

bool CFile::Create(const char* fileName) {
    const int handle = ::open(fileName, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (handle < 0) {
        return false;
    }
    m_nHandle = handle;
    return true;
}

// Reading and writing change the file, if not this object.
// NOLINTNEXTLINE(readability-make-member-function-const)
long CFile::Read(char* buffer, std::size_t size) {
    ssize_t count = 0;
    do {
        count = ::read(static_cast<int>(m_nHandle), buffer, size);
    } while (count < 0 && errno == EINTR);
    return count;
}

// NOLINTNEXTLINE(readability-make-member-function-const)
std::size_t CFile::Write(const char* data, std::size_t size) {
    std::size_t written = 0;
    while (written < size) {
        const ssize_t count = ::write(static_cast<int>(m_nHandle), data + written, size - written);
        if (count > 0) {
            written += static_cast<std::size_t>(count);
        } else if (count == 0 || errno != EINTR) {
            break;
        }
    }
    return written;
}

bool CFile::Close() {
    if (!IsOpen()) {
        return true;
    }
    const int handle = static_cast<int>(m_nHandle);
    m_nHandle = kNone;
    return ::close(handle) == 0;
}

CSharedLibrary::~CSharedLibrary() {
    Release();
}

bool CSharedLibrary::Load(const char* fileName) {
    Release();
    m_pHandle = ::dlopen(fileName, RTLD_NOW | RTLD_LOCAL);
    return IsLoaded();
}

void* CSharedLibrary::Find(const char* name) const {
    return ::dlsym(m_pHandle, name);
}

void CSharedLibrary::Release() {
    if (IsLoaded()) {
        ::dlclose(m_pHandle);
        m_pHandle = nullptr;
    }
}

namespace {

// Most of the time that reading a large file takes goes into first touches of memory, a page each.
constexpr std::align_val_t kLargePage{std::size_t{1} << 21};

} // namespace

CLargeMemory::CLargeMemory(std::size_t size) {
    constexpr auto pageSize = static_cast<std::size_t>(kLargePage);
    const std::size_t pages = (size + pageSize - 1) / pageSize;
    m_pBegin = static_cast<char*>(::operator new(pages* pageSize, kLargePage));
#ifdef MADV_HUGEPAGE
    ::madvise(m_pBegin, pages * pageSize, MADV_HUGEPAGE); // where it fails, small pages serve as well
#endif
}

CLargeMemory::~CLargeMemory() {
    ::operator delete(m_pBegin, kLargePage);
}

CLargeMemory::CLargeMemory(CLargeMemory&& other) noexcept : m_pBegin(std::exchange(other.m_pBegin, nullptr)) {}

namespace {

std::string ResolvedPath(const char* path) {
    char resolved[PATH_MAX];
    return ::realpath(path, resolved) != nullptr ? resolved : "";
}

// A program started through PATH is known to the loader by its bare name only; the kernel knows its path.
std::string OwnPath() {
    Dl_info info = {};
    if (::dladdr(&kTableReaderFile, &info) == 0 || info.dli_fname == nullptr) {
        return "";
    }
    const std::string name = info.dli_fname;
    std::string path = name.find('/') == std::string::npos ? "" : ResolvedPath(name.c_str());
    return path.empty() ? ResolvedPath("/proc/self/exe") : path;
}

} // namespace

bool FindOwnFolder(std::string& folder) {
    static const std::string path = OwnPath();
    if (path.empty()) {
        return false;
    }
    folder = path.substr(0, path.rfind('/') + 1);
    return true;
}

bool FindSystemCodePages(CCodePageTable& /*oemToAnsi*/, CCodePageTable& /*ansiToOem*/) {
    return false;
}

} // namespace tabvex
