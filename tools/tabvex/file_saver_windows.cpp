#include "file_saver.h"

#include <algorithm>
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
    explicit CTemporaryFile(const std::wstring& prefix) : m_strName(NewName(prefix)), m_File(CreateNew(m_strName)) {
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
    void Keep() { m_bKept = true; }
    bool Store(const std::string& bytes) {
        return WriteAll(m_File.Get(), bytes) && ::FlushFileBuffers(m_File.Get()) != 0 && m_File.Close();
    }

private:
    // New in this process by its number, in all of them by the process and the time.
    static std::wstring NewName(const std::wstring& prefix) {
        static int number = 0;
        return prefix + std::to_wstring(::GetCurrentProcessId()) + L"-" + std::to_wstring(::GetTickCount64()) + L"-" +
               std::to_wstring(++number);
    }
    static HANDLE CreateNew(const std::wstring& name) {
        return ::CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
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

std::wstring TemporaryFolder() {
    std::wstring folder(MAX_PATH + 1, L'\0');
    folder.resize(::GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()));
    return folder;
}

// The file itself where the name is that of a link to it.
std::wstring FollowLinks(const std::wstring& path, HANDLE file) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
        return path;
    }
    constexpr DWORD kLongestPath = 32768;
    std::wstring target(kLongestPath, L'\0');
    const DWORD length = ::GetFinalPathNameByHandleW(file, target.data(), kLongestPath, FILE_NAME_NORMALIZED);
    target.resize(length < kLongestPath ? length : 0);
    return target.empty() ? path : target;
}

void CheckStored(const std::string& stored, const std::string& bytes, const std::string& fileName,
                 const CSaveCheck& check) {
    if (ReadFileBytes(stored) != bytes) {
        throw CToolError(fileName + ": cannot be saved: what was written does not read back the same");
    }
    check(stored);
}

// Attributes and access rights are those of the old file. A disk that cannot replace files still moves them.
void MoveIntoPlace(CTemporaryFile& file, const std::wstring& path, bool exists, const std::string& fileName) {
    const wchar_t* from = file.GetPath().c_str();
    bool moved =
        exists && ::ReplaceFileW(path.c_str(), from, nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) != 0;
    moved = moved || ::MoveFileExW(from, path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
    if (moved) {
        file.Keep();
        return;
    }
    const DWORD error = ::GetLastError();
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

void OverwriteInPlace(HANDLE file, const std::string& fileName, const std::string& bytes, const CSaveCheck& check) {
    const std::wstring prefix = TemporaryFolder() + L"tabvex-";
    const std::string old = ReadFileBytes(fileName);
    CTemporaryFile copy(prefix);
    CTemporaryFile next(prefix);
    Require(copy.GetError() == NO_ERROR && next.GetError() == NO_ERROR && next.Store(bytes) && copy.Store(old),
            fileName);
    CheckStored(next.GetName(), bytes, fileName, check);
    PrintMessage(fileName +
                 ": its folder allows no new file, so it is overwritten; until that is done there is a copy, " +
                 copy.GetName());
    if (Overwrite(file, bytes, old.size()) && ReadFileBytes(fileName) == bytes) {
        return;
    }
    const DWORD error = ::GetLastError();
    if (!Overwrite(file, old, bytes.size())) {
        copy.Keep();
        throw CToolError(fileName + ": cannot be saved; what it held is in " + copy.GetName());
    }
    ThrowNotSaved(fileName, error);
}

bool IsMissing(DWORD error) {
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
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
    CTemporaryFile file(FolderOf(path) + L".tabvex-");
    if (exists && AllowsNoNewFile(file.GetError())) {
        OverwriteInPlace(old.Get(), fileName, bytes, check);
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
