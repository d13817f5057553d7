#include "core/line_file.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

#include "tabvex/result_codes.h"

using tabvex::kRecordLength;
using tabvex::kRecordLengthCrLf;

namespace {

constexpr int kCrLfLength = 2;
constexpr std::size_t kReadBlock = std::size_t{1} << 16;
constexpr std::size_t kFirstWriteBlock = std::size_t{1} << 15;
constexpr std::size_t kLargestWriteBlock = std::size_t{1} << 20;

std::unique_ptr<char[]> NewBlock(std::size_t size) {
    return std::unique_ptr<char[]>(new char[size]);
}

} // namespace

CLineFile::~CLineFile() {
    Close();
}

int CLineFile::Open(const char* fileName, bool forReading, int recordLength) {
    if (m_File.IsOpen()) {
        return TABVEX_FILE_ALREADY_OPEN;
    }
    const std::size_t capacity =
        forReading ? std::max(kReadBlock, static_cast<std::size_t>(recordLength)) : kFirstWriteBlock;
    if (capacity > m_nCapacity) {
        m_pBlock = NewBlock(capacity);
        m_nCapacity = capacity;
    }
    if (forReading ? !m_File.OpenForReading(fileName) : !m_File.Create(fileName)) {
        return forReading ? TABVEX_FILE_CANNOT_OPEN : TABVEX_FILE_CANNOT_CREATE;
    }
    m_bReadMode = forReading;
    m_nRecordLength = recordLength;
    m_bFailed = false;
    m_nNext = m_nEnd = 0;
    m_nBytesStored = 0;
    return TABVEX_OK;
}

bool CLineFile::DetectCrLf() {
    const bool filled = m_File.IsOpen() && m_bReadMode && Fill(kRecordLengthCrLf);
    const bool crlf =
        filled && m_nEnd >= kRecordLengthCrLf && m_pBlock[kRecordLength] == '\r' && m_pBlock[kRecordLength + 1] == '\n';
    m_nRecordLength = crlf ? kRecordLengthCrLf : kRecordLength;
    return crlf;
}

int CLineFile::ReadRecord(char* buffer) {
    std::string_view record;
    const int length = ReadRecord(record);
    record.copy(buffer, record.size());
    buffer[record.size()] = '\0';
    return length;
}

int CLineFile::ReadRecord(std::string_view& record) {
    record = "";
    if (!m_File.IsOpen()) {
        return TABVEX_FILE_NOT_OPEN;
    }
    if (!m_bReadMode) {
        return TABVEX_FILE_IS_FOR_WRITING;
    }
    const auto wanted = static_cast<std::size_t>(m_nRecordLength);
    if (m_nEnd - m_nNext < wanted && !Fill(wanted)) {
        return TABVEX_FILE_READ_FAILED;
    }
    const std::size_t length = std::min(wanted, m_nEnd - m_nNext);
    if (length == 0) {
        return TABVEX_FILE_END;
    }
    record = {m_pBlock.get() + m_nNext, length};
    m_nNext += length;
    return static_cast<int>(length);
}

int CLineFile::ReadLine(std::string& line) {
    line.clear();
    if (!m_File.IsOpen()) {
        return TABVEX_FILE_NOT_OPEN;
    }
    if (!m_bReadMode) {
        return TABVEX_FILE_IS_FOR_WRITING;
    }
    for (;;) {
        if (m_nNext == m_nEnd && !Fill(1)) {
            return TABVEX_FILE_READ_FAILED;
        }
        const char* next = m_pBlock.get() + m_nNext;
        const std::string_view block(next, m_nEnd - m_nNext);
        if (block.empty() || (line.empty() && block.front() == '\r')) {
            break;
        }
        const std::size_t lf = block.find('\n');
        const std::string_view piece = block.substr(0, lf);
        std::remove_copy(piece.begin(), piece.end(), std::back_inserter(line), '\r');
        m_nNext += lf == std::string_view::npos ? piece.size() : piece.size() + 1;
        if (lf != std::string_view::npos) {
            break;
        }
    }
    return line.empty() ? TABVEX_FILE_END : static_cast<int>(line.size());
}

int CLineFile::WriteRecord(const char* text, int length) {
    return WriteLine(text, length, false);
}

int CLineFile::WriteLine(const char* text, int length, bool crlf) {
    if (!m_File.IsOpen()) {
        return TABVEX_FILE_NOT_OPEN;
    }
    if (m_bReadMode) {
        return TABVEX_FILE_IS_FOR_READING;
    }
    m_nRecordLength = crlf ? length + kCrLfLength : length;
    const auto size = static_cast<std::size_t>(length);
    char* record = Reserve(static_cast<std::size_t>(m_nRecordLength));
    if (record == nullptr) {
        return TABVEX_FILE_WRITE_FAILED;
    }
    const void* end = std::memchr(text, '\0', size);
    const std::size_t used = end == nullptr ? size : static_cast<std::size_t>(static_cast<const char*>(end) - text);
    std::memcpy(record, text, used);
    std::memset(record + used, ' ', size - used);
    if (crlf) {
        record[size] = '\r';
        record[size + 1] = '\n';
    }
    m_nEnd += static_cast<std::size_t>(m_nRecordLength);
    return m_nRecordLength;
}

int CLineFile::Close() {
    if (!m_File.IsOpen()) {
        return TABVEX_OK;
    }
    const bool flushed = m_bReadMode || Flush();
    const bool closed = m_File.Close();
    if (!closed) {
        m_nBytesStored = 0; // what was lost is not known
    }
    m_nRecordLength = 0;
    return flushed && closed ? TABVEX_OK : TABVEX_FILE_WRITE_FAILED;
}

// Moves what is left to the block's front and reads until `wanted` bytes are there or the file ends.
bool CLineFile::Fill(std::size_t wanted) {
    const std::size_t left = m_nEnd - m_nNext;
    std::memmove(m_pBlock.get(), m_pBlock.get() + m_nNext, left);
    m_nNext = 0;
    m_nEnd = left;
    while (m_nEnd < wanted) {
        const long count = m_File.Read(m_pBlock.get() + m_nEnd, m_nCapacity - m_nEnd);
        if (count < 0) {
            return false;
        }
        if (count == 0) {
            break;
        }
        m_nEnd += static_cast<std::size_t>(count);
    }
    return true;
}

bool CLineFile::Flush() {
    if (m_bFailed) {
        return false;
    }
    const std::size_t stored = m_File.Write(m_pBlock.get(), m_nEnd);
    m_nBytesStored += stored;
    m_bFailed = stored < m_nEnd;
    m_nEnd = 0;
    return !m_bFailed;
}

// Room behind what the block holds: it grows to its largest size before anything is written.
char* CLineFile::Reserve(std::size_t size) {
    if (m_nEnd + size > m_nCapacity && m_nCapacity < kLargestWriteBlock) {
        const std::size_t capacity = std::max(std::min(m_nCapacity * 4, kLargestWriteBlock), m_nEnd + size);
        std::unique_ptr<char[]> larger = NewBlock(capacity);
        std::memcpy(larger.get(), m_pBlock.get(), m_nEnd);
        m_pBlock = std::move(larger);
        m_nCapacity = capacity;
    } else if (m_nEnd + size > m_nCapacity && !Flush()) {
        return nullptr;
    }
    return m_bFailed ? nullptr : m_pBlock.get() + m_nEnd;
}
