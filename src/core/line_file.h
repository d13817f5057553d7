// One record file, read or written record by record.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/platform.h"

namespace tabvex {

/// Characters in a record, and bytes of one that CR LF follows.
inline constexpr int kRecordLength = 128;
inline constexpr int kRecordLengthCrLf = 130;

} // namespace tabvex

/// Reads and writes records of a fixed length, or lines of any length. Underneath, the file is read and written in
/// large blocks; what was written is on its way to the file only when Close has succeeded.
class CLineFile {
public:
    CLineFile() = default;
    ~CLineFile();
    CLineFile(const CLineFile&) = delete;
    CLineFile& operator=(const CLineFile&) = delete;

    /// Opens an existing file for reading, or creates one for writing, replacing one that exists. `recordLength`: bytes
    /// that one read moves. TABVEX_OK, TABVEX_FILE_ALREADY_OPEN, TABVEX_FILE_CANNOT_OPEN, TABVEX_FILE_CANNOT_CREATE.
    int Open(const char* fileName, bool forReading, int recordLength);

    /// Sets the record length to 130 when the first record is followed by CR LF, else to 128, and tells which; to be
    /// called before anything is read. No other record is looked at.
    bool DetectCrLf();

    /// Reads one record into a buffer of record length + 1 characters and ends it with a NUL. The number of bytes
    /// read, fewer than the record length at the end of the file; TABVEX_FILE_END with the empty text;
    /// TABVEX_FILE_NOT_OPEN, TABVEX_FILE_IS_FOR_WRITING, TABVEX_FILE_READ_FAILED.
    int ReadRecord(char* buffer);
    /// The same without a copy: the record is valid until the next call, and empty on failure.
    int ReadRecord(std::string_view& record);

    /// Reads one line of any length. CRs in it are dropped, LF or the end of the file ends it. Its length, or
    /// TABVEX_FILE_END when it is empty or begins with a CR; otherwise the codes of ReadRecord.
    int ReadLine(std::string& line);

    /// Writes a record of `length` bytes: the text up to its NUL, cut or padded with blanks. The number of bytes
    /// written, TABVEX_FILE_NOT_OPEN, TABVEX_FILE_IS_FOR_READING, TABVEX_FILE_WRITE_FAILED. Every write behind one that
    /// failed fails.
    int WriteRecord(const char* text, int length);

    /// The same with CR LF behind the record when `crlf`.
    int WriteLine(const char* text, int length, bool crlf);

    /// Writes what is still in memory and closes the file. TABVEX_OK, also when it was not open, or
    /// TABVEX_FILE_WRITE_FAILED.
    int Close();

    /// Bytes that WriteRecord has taken, and of these the bytes that the system has taken so far.
    std::uint64_t GetBytesAccepted() const { return m_nBytesStored + m_nEnd; }
    std::uint64_t GetBytesStored() const { return m_nBytesStored; }

private:
    bool Fill(std::size_t wanted);
    bool Flush();
    char* Reserve(std::size_t size);

    tabvex::CFile m_File;
    bool m_bReadMode = false;
    int m_nRecordLength = 0;
    bool m_bFailed = false;
    std::unique_ptr<char[]> m_pBlock;
    std::size_t m_nCapacity = 0;
    std::size_t m_nNext = 0; // reading: first byte not handed out
    std::size_t m_nEnd = 0;  // end of the bytes in the block
    std::uint64_t m_nBytesStored = 0;
};
