#include "platform/platform.h"

#include <algorithm>
#include <new>
#include <utility>

#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

namespace tabvex {

const char* const kTableReaderFile = "TBLREAD.DLL";

namespace {

constexpr std::size_t kLargestTransfer = std::size_t{1} << 30; // a single call takes 32 bits

HANDLE HandleOf(std::intptr_t handle) {
    return reinterpret_cast<HANDLE>(handle); // NOLINT(*-reinterpret-cast,performance-no-int-to-ptr)
}

std::intptr_t NumberOf(HANDLE handle) {
    return reinterpret_cast<std::intptr_t>(handle); // NOLINT(*-reinterpret-cast)
}

DWORD TransferSize(std::size_t size) {
    return static_cast<DWORD>(std::min(size, kLargestTransfer));
}

/// The system asks nobody about a library or a disk that it cannot read; it has the call fail.
class CNoErrorBoxes {
public:
    CNoErrorBoxes() { ::SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &m_nBefore); }
    ~CNoErrorBoxes() { ::SetThreadErrorMode(m_nBefore, nullptr); }
    CNoErrorBoxes(const CNoErrorBoxes&) = delete;
    CNoErrorBoxes& operator=(const CNoErrorBoxes&) = delete;

private:
    DWORD m_nBefore = 0;
};

} // namespace

CFile::~CFile() {
    Close();
}

bool CFile::OpenForReading(const char* fileName) {
    const CNoErrorBoxes quiet;
    m_nHandle = NumberOf(
        ::CreateFileA(fileName, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    return IsOpen();
}

bool CFile::Create(const char* fileName) {
    const CNoErrorBoxes quiet;
    m_nHandle = NumberOf(::CreateFileA(fileName, GENERIC_WRITE, FILE_SHARE_WRITE, nullptr, CREATE_ALWAYS,
                                       FILE_ATTRIBUTE_NORMAL, nullptr));
    return IsOpen();
}

// Reading and writing change the file, if not this object.
// NOLINTNEXTLINE(readability-make-member-function-const)
long CFile::Read(char* buffer, std::size_t size) {
    DWORD count = 0;
    if (::ReadFile(HandleOf(m_nHandle), buffer, TransferSize(size), &count, nullptr) == 0) {
        return ::GetLastError() == ERROR_BROKEN_PIPE ? 0 : -1; // how a pipe ends
    }
    return static_cast<long>(count);
}

// NOLINTNEXTLINE(readability-make-member-function-const)
std::size_t CFile::Write(const char* data, std::size_t size) {
    std::size_t written = 0;
    while (written < size) {
        DWORD count = 0;
        const BOOL done =
            ::WriteFile(HandleOf(m_nHandle), data + written, TransferSize(size - written), &count, nullptr);
        written += count;
        if (done == 0 || count == 0) {
            break;
        }
    }
    return written;
}

bool CFile::Close() {
    static_assert(kNone == -1, "the value of INVALID_HANDLE_VALUE");
    return !IsOpen() || ::CloseHandle(HandleOf(std::exchange(m_nHandle, kNone))) != 0;
}

CSharedLibrary::~CSharedLibrary() {
    Release();
}

bool CSharedLibrary::Load(const char* fileName) {
    Release();
    const CNoErrorBoxes quiet;
    m_pHandle = ::LoadLibraryA(fileName);
    return IsLoaded();
}

void* CSharedLibrary::Find(const char* name) const {
    // NOLINTNEXTLINE(*-reinterpret-cast)
    return reinterpret_cast<void*>(::GetProcAddress(static_cast<HMODULE>(m_pHandle), name));
}

void CSharedLibrary::Release() {
    if (IsLoaded()) {
        ::FreeLibrary(static_cast<HMODULE>(m_pHandle));
        m_pHandle = nullptr;
    }
}

// Large pages take a privilege that callers rarely have.
CLargeMemory::CLargeMemory(std::size_t size)
    : m_pBegin(static_cast<char*>(::VirtualAlloc(nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE))) {
    if (m_pBegin == nullptr) {
        throw std::bad_alloc();
    }
}

CLargeMemory::~CLargeMemory() {
    if (m_pBegin != nullptr) {
        ::VirtualFree(m_pBegin, 0, MEM_RELEASE);
    }
}

CLargeMemory::CLargeMemory(CLargeMemory&& other) noexcept : m_pBegin(std::exchange(other.m_pBegin, nullptr)) {}

bool FindOwnFolder(std::string& folder) {
    char path[MAX_PATH];
    HMODULE module = nullptr;
    constexpr DWORD kModuleOfAddress =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    // NOLINTNEXTLINE(*-reinterpret-cast)
    const auto* inside = reinterpret_cast<const char*>(&kTableReaderFile);
    if (::GetModuleHandleExA(kModuleOfAddress, inside, &module) == 0) {
        return false;
    }
    const DWORD length = ::GetModuleFileNameA(module, path, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) { // a path that was cut is none
        return false;
    }
    folder.assign(path, length);
    folder.resize(folder.rfind('\\') + 1); // none: the empty text
    return true;
}

bool FindSystemCodePages(CCodePageTable& oemToAnsi, CCodePageTable& ansiToOem) {
    for (std::size_t i = 0; i < oemToAnsi.size(); ++i) {
        oemToAnsi[i] = ansiToOem[i] = static_cast<unsigned char>(i);
    }
    if (::GetOEMCP() == ::GetACP()) {
        return true; // nothing to convert, however many bytes a character has
    }
    CPINFO oem = {};
    CPINFO ansi = {};
    if (::GetCPInfo(CP_OEMCP, &oem) == 0 || ::GetCPInfo(CP_ACP, &ansi) == 0 || oem.MaxCharSize != 1 ||
        ansi.MaxCharSize != 1) {
        return false;
    }
    // NUL ends a text and is never asked for.
    auto* const fromOem = reinterpret_cast<char*>(&oemToAnsi[1]);  // NOLINT(*-reinterpret-cast)
    auto* const fromAnsi = reinterpret_cast<char*>(&ansiToOem[1]); // NOLINT(*-reinterpret-cast)
    const auto size = static_cast<DWORD>(oemToAnsi.size() - 1);
    return ::OemToCharBuffA(fromOem, fromOem, size) != 0 && ::CharToOemBuffA(fromAnsi, fromAnsi, size) != 0;
}

} // namespace tabvex
