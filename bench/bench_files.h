// The files that are measured. They are made when they are missing, and stay for the next run.
#pragma once

#include <cstdint>
#include <string>

enum class EFileKind {
    Known,            ///< records of all types, with CR LF
    KnownUnseparated, ///< the same, back to back
    Unknown,          ///< every record of an unknown type, with CR LF
    Options,          ///< records of one type, X2, with seven entries each
    Small             ///< the records of a small calculation
};

/// A record file with so many records; its name.
std::string RecordFile(EFileKind kind, std::int64_t records);
/// The sample table without comments, its sections repeated under invented type names up to 2,500 lines; its name.
std::string LongTable();
/// A file in a folder kept in memory, so that no disk is measured. It is removed with this object.
class CFileInMemory {
public:
    /// A name for a file to write.
    explicit CFileInMemory(const std::string& name);
    /// A copy of a file.
    static CFileInMemory CopyOf(const std::string& fileName);
    ~CFileInMemory();
    CFileInMemory(const CFileInMemory&) = delete;
    CFileInMemory& operator=(const CFileInMemory&) = delete;

    const std::string& Name() const { return m_strName; }

private:
    CFileInMemory(const std::string& original, const std::string& name);

    std::string m_strName;
};

/// The file's length in bytes.
double FileSize(const std::string& fileName);
