// Files that fail; each kind of system has its own (tests/posix, tests/windows).
#pragma once

#include <memory>
#include <string>

class CFailingPipe;

/// A file that opens for reading, and of which every read fails.
class CUnreadableFile {
public:
    CUnreadableFile();
    ~CUnreadableFile();
    CUnreadableFile(const CUnreadableFile&) = delete;
    CUnreadableFile& operator=(const CUnreadableFile&) = delete;

    const char* Name() const { return m_strName.c_str(); }

private:
    std::string m_strName;
    std::unique_ptr<CFailingPipe> m_pPipe;
};

/// A file that opens for writing, and of which every write fails.
class CFullFile {
public:
    CFullFile();
    ~CFullFile();
    CFullFile(const CFullFile&) = delete;
    CFullFile& operator=(const CFullFile&) = delete;

    const char* Name() const { return m_strName.c_str(); }

private:
    std::string m_strName;
    std::unique_ptr<CFailingPipe> m_pPipe;
};
