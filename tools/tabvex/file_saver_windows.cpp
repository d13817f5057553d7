#include "file_saver.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "exit_status.h"
#include "file_bytes.h"
#include "output.h"
#include "windows_text.h"

#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace tabvex::tool {

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

[[noreturn]] void ThrowNotSaved(const std::string& fileName, DWORD error) {
    throw CToolError(fileName + ": cannot be saved: " + ErrorText(error));
}

[[noreturn]] void ThrowNotTheSame(const std::string& fileName) {
    throw CToolError(fileName + ": cannot be saved: what was written does not read back the same");
}

void Require(bool done, const std::string& fileName) {
    if (!done) {
        ThrowNotSaved(fileName, ::GetLastError());
    }
}

class CHandle {
public:
    explicit CHandle(HANDLE handle) : m_Handle(handle) {}
    ~CHandle() { static_cast<void>(Close()); }
    CHandle(const CHandle&) = delete;
    CHandle& operator=(const CHandle&) = delete;

    bool IsOpen() const { return m_Handle != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return m_Handle; }
    bool Close() { return !IsOpen() || ::CloseHandle(std::exchange(m_Handle, INVALID_HANDLE_VALUE)) != 0; }

private:
    HANDLE m_Handle;
};

HANDLE OpenExisting(const std::wstring& path) {
    return ::CreateFileW(path.c_str(), GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                         nullptr);
}

bool WriteAll(HANDLE file, std::string_view bytes) {
    constexpr std::size_t kLargestWrite = std::size_t{1} << 30;
    while (!bytes.empty()) {
        DWORD count = 0;
        const auto size = static_cast<DWORD>(std::min(bytes.size(), kLargestWrite));
        if (::WriteFile(file, bytes.data(), size, &count, nullptr) == 0 || count == 0) {
            return false;
        }
        bytes.remove_prefix(count);
    }
    return true;
}

// A file that goes away again, unless it is moved to its place.
class CTemporaryFile {
public:
    explicit CTemporaryFile(const std::wstring& prefix) : m_File(CreateNew(prefix, m_strName)) {
        m_nError = m_File.IsOpen() ? NO_ERROR : ::GetLastError();
    }
    ~CTemporaryFile() {
        static_cast<void>(m_File.Close());
        if (m_nError == NO_ERROR && !m_bKept) {
            ::DeleteFileW(m_strName.c_str());
        }
    }
    CTemporaryFile(const CTemporaryFile&) = delete;
    CTemporaryFile& operator=(const CTemporaryFile&) = delete;

    DWORD GetError() const { return m_nError; }
    const std::wstring& GetPath() const { return m_strName; }
    std::string GetName() const { return ToUtf8(m_strName); }
    void Keep(bool kept = true) { m_bKept = kept; }
    bool Store(const std::string& bytes) {
        return WriteAll(m_File.Get(), bytes) && ::FlushFileBuffers(m_File.Get()) != 0 && m_File.Close();
    }

private:
    // Short, as paths are.
    static std::wstring NewName(const std::wstring& prefix) {
        static std::uint32_t number = 0;
        std::wstring name = prefix;
        std::uint32_t rest = ::GetCurrentProcessId() * 2654435761U + ::GetTickCount() + ++number; // spreads them
        for (int i = 0; i < 6; ++i, rest /= 32) {
            name += L"0123456789abcdefghijklmnopqrstuv"[rest % 32];
        }
        return name;
    }
    // A name that is taken is passed over.
    static HANDLE CreateNew(const std::wstring& prefix, std::wstring& name) {
        constexpr int kMostNames = 100;
        HANDLE file = INVALID_HANDLE_VALUE;
        for (int i = 0; i < kMostNames && file == INVALID_HANDLE_VALUE; ++i) {
            name = NewName(prefix);
            file = ::CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
            if (file == INVALID_HANDLE_VALUE && ::GetLastError() != ERROR_FILE_EXISTS) {
                break;
            }
        }
        return file;
    }

    std::wstring m_strName;
    CHandle m_File;
    DWORD m_nError = NO_ERROR;
    bool m_bKept = false;
};

bool AllowsNoNewFile(DWORD error) {
    return error == ERROR_ACCESS_DENIED || error == ERROR_WRITE_PROTECT;
}

std::wstring FolderOf(const std::wstring& path) {
    return path.substr(0, path.find_last_of(L"\\/:") + 1);
}

// The path from the drive on: replacing a file takes no other everywhere.
std::wstring FullPath(const std::wstring& path) {
    std::wstring full(::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(::GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full.empty() ? path : full;
}

std::wstring TemporaryFolder() {
    std::wstring folder(MAX_PATH + 1, L'\0');
    folder.resize(::GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()));
    return folder;
}

// The file itself where the name is that of a link to it; empty where the system does not tell it.
std::wstring FollowLinks(const std::wstring& path, HANDLE file) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
        return path;
    }
    constexpr DWORD kLongestPath = 32768;
    std::wstring target(kLongestPath, L'\0');
    const DWORD length = ::GetFinalPathNameByHandleW(file, target.data(), kLongestPath, FILE_NAME_NORMALIZED);
    target.resize(length < kLongestPath ? length : 0);
    return target;
}

void CheckStored(const std::string& stored, const std::string& bytes, const std::string& fileName,
                 const CSaveCheck& check) {
    if (ReadFileBytes(stored) != bytes) {
        ThrowNotTheSame(fileName);
    }
    check(stored);
}

bool IsMissing(DWORD error) {
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

// The last of them comes when the old file is away already.
bool CannotReplaceFiles(DWORD error) {
    return error == ERROR_INVALID_FUNCTION || error == ERROR_NOT_SUPPORTED || error == ERROR_CALL_NOT_IMPLEMENTED ||
           error == ERROR_UNABLE_TO_MOVE_REPLACEMENT;
}

// Attributes and access rights are those of the old file. A disk that cannot replace files still moves them, without
// these; any other error is told, so that nobody loses access rights unawares.
DWORD MoveOver(const std::wstring& from, const std::wstring& path, bool exists) {
    if (exists) {
        const std::wstring target = FullPath(path);
        const std::wstring source = FullPath(from);
        const BOOL replaced = ::ReplaceFileW(target.c_str(), source.c_str(), nullptr, 0, nullptr, nullptr);
        const DWORD error = replaced != 0 ? NO_ERROR : ::GetLastError();
        if (error == NO_ERROR || !(CannotReplaceFiles(error) || IsMissing(error))) {
            return error;
        }
    }
    constexpr DWORD kHow = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    return ::MoveFileExW(from.c_str(), path.c_str(), kHow) != 0 ? NO_ERROR : ::GetLastError();
}

void MoveIntoPlace(CTemporaryFile& file, const std::wstring& path, bool exists, const std::string& fileName) {
    const DWORD error = MoveOver(file.GetPath(), path, exists);
    if (error == NO_ERROR) {
        file.Keep();
        return;
    }
    if (exists && ::GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) {
        file.Keep();
        throw CToolError(fileName + ": cannot be saved; what it should hold is in " + file.GetName());
    }
    ThrowNotSaved(fileName, error);
}

bool SetFileSize(HANDLE file, std::size_t size) {
    LARGE_INTEGER end = {};
    end.QuadPart = static_cast<LONGLONG>(size);
    return ::SetFilePointerEx(file, end, nullptr, FILE_BEGIN) != 0 && ::SetEndOfFile(file) != 0;
}

// Room is taken before the first byte is overwritten.
bool Overwrite(HANDLE file, const std::string& bytes, std::size_t oldSize) {
    const LARGE_INTEGER begin = {};
    return SetFileSize(file, std::max(bytes.size(), oldSize)) &&
           ::SetFilePointerEx(file, begin, nullptr, FILE_BEGIN) != 0 && WriteAll(file, bytes) &&
           SetFileSize(file, bytes.size()) && ::FlushFileBuffers(file) != 0;
}

bool Holds(const std::string& fileName, const std::string& bytes) {
    try {
        return ReadFileBytes(fileName) == bytes;
    } catch (const CToolError&) {
        return false;
    }
}

// The copy may be the only one left until the file is known to hold the new bytes, or the old ones again.
void OverwriteOrRestore(HANDLE file, const std::string& fileName, const std::string& bytes, const std::string& old,
                        CTemporaryFile& copy) {
    copy.Keep();
    const DWORD error = Overwrite(file, bytes, old.size()) ? NO_ERROR : ::GetLastError();
    if (error == NO_ERROR && Holds(fileName, bytes)) {
        copy.Keep(false);
        return;
    }
    if (!Overwrite(file, old, bytes.size()) || !Holds(fileName, old)) {
        throw CToolError(fileName + ": cannot be saved; what it held is in " + copy.GetName());
    }
    copy.Keep(false);
    if (error == NO_ERROR) {
        ThrowNotTheSame(fileName);
    }
    ThrowNotSaved(fileName, error);
}

// `reason` tells the user why the file is not replaced.
void OverwriteInPlace(HANDLE file, const std::string& fileName, const std::string& bytes, const CSaveCheck& check,
                      const char* reason) {
    const std::wstring prefix = TemporaryFolder() + L"tabvex-";
    const std::string old = ReadFileBytes(fileName);
    CTemporaryFile copy(prefix);
    CTemporaryFile next(prefix);
    for (const DWORD error : {copy.GetError(), next.GetError()}) {
        if (error != NO_ERROR) {
            ThrowNotSaved(fileName, error);
        }
    }
    Require(next.Store(bytes) && copy.Store(old), fileName);
    CheckStored(next.GetName(), bytes, fileName, check);
    PrintMessage(fileName + ": " + reason + ", so it is overwritten; until that is done there is a copy, " +
                 copy.GetName());
    OverwriteOrRestore(file, fileName, bytes, old, copy);
}

} // namespace

void SaveFile(const std::string& fileName, const std::string& bytes, const CSaveCheck& check) {
    const std::wstring name = ToUtf16(fileName);
    CHandle old(OpenExisting(name));
    const bool exists = old.IsOpen() || !IsMissing(::GetLastError());
    Require(old.IsOpen() || !exists, fileName);
    if (exists && ::GetFileType(old.Get()) != FILE_TYPE_DISK) {
        Require(WriteAll(old.Get(), bytes) && old.Close(), fileName);
        return;
    }
    const std::wstring path = exists ? FollowLinks(name, old.Get()) : name;
    if (path.empty()) {
        OverwriteInPlace(old.Get(), fileName, bytes, check, "it is a link and where to is not known");
        return;
    }
    CTemporaryFile file(FolderOf(path) + L".tabvex-");
    if (exists && AllowsNoNewFile(file.GetError())) {
        OverwriteInPlace(old.Get(), fileName, bytes, check, "its folder allows no new file");
        return;
    }
    if (file.GetError() != NO_ERROR) {
        ThrowNotSaved(fileName, file.GetError());
    }
    Require(file.Store(bytes) && old.Close(), fileName);
    CheckStored(file.GetName(), bytes, fileName, check);
    MoveIntoPlace(file, path, exists, fileName);
}

} // namespace tabvex::tool
