// What the library asks of the operating system; one source file per system implements it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace tabvex {

/// One open file, closed with the object.
class CFile {
public:
    CFile() = default;
    ~CFile();
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;

    /// Opens an existing file, others may read it meanwhile. False when it cannot be opened or is a directory.
    bool OpenForReading(const char* fileName);
    /// Creates the file, replacing one that exists.
    bool Create(const char* fileName);
    bool IsOpen() const { return m_nHandle != kNone; }
    /// Reads up to `size` bytes: their number, 0 at the end of the file, -1 when the read fails.
    long Read(char* buffer, std::size_t size);
    /// Writes `size` bytes; the number of bytes that were written, less than `size` when the write fails.
    std::size_t Write(const char* data, std::size_t size);
    /// False when closing reports that written data was lost.
    bool Close();

private:
    static constexpr std::intptr_t kNone = -1;
    std::intptr_t m_nHandle = kNone;
};

/// A library loaded at run time, released with the object.
class CSharedLibrary {
public:
    CSharedLibrary() = default;
    ~CSharedLibrary();
    CSharedLibrary(const CSharedLibrary&) = delete;
    CSharedLibrary& operator=(const CSharedLibrary&) = delete;

    bool Load(const char* fileName);
    bool IsLoaded() const { return m_pHandle != nullptr; }
    /// Address of an entry point, null when the library has none of that name.
    void* Find(const char* name) const;
    void Release();

private:
    void* m_pHandle = nullptr;
};

/// Tells the processor that `size` bytes are about to be used; has no other effect.
inline void FetchIntoCache(const char* data, std::size_t size) {
    constexpr std::size_t kCacheLine = 64;
    for (std::size_t offset = 0; offset < size; offset += kCacheLine) {
        __builtin_prefetch(data + offset, 1);
    }
}

/// A large piece of memory, in large pages where the system has them; freed with the object.
class CLargeMemory {
public:
    /// Throws std::bad_alloc when there is not as much.
    explicit CLargeMemory(std::size_t size);
    ~CLargeMemory();
    CLargeMemory(CLargeMemory&& other) noexcept;
    CLargeMemory& operator=(CLargeMemory&&) = delete;
    CLargeMemory(const CLargeMemory&) = delete;
    CLargeMemory& operator=(const CLargeMemory&) = delete;

    char* Begin() const { return m_pBegin; }

private:
    char* m_pBegin;
};

/// Folder of the file that holds this code, with the separator behind it; empty when the path has no folder.
/// False when the system cannot tell.
bool FindOwnFolder(std::string& folder);

/// What every character of one code page becomes in another.
using CCodePageTable = std::array<unsigned char, 256>;

/// Tells what the system makes of the characters of its OEM code page when it converts them to its ANSI code page, and
/// the other way round. False where the system has no such pages, or no table can tell because a character takes
/// several bytes.
bool FindSystemCodePages(CCodePageTable& oemToAnsi, CCodePageTable& ansiToOem);

/// File name of the table-line reader.
extern const char* const kTableReaderFile;

} // namespace tabvex
