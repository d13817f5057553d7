#include "record_writer.h"

#include <stdexcept>

namespace tabvex::generate {
namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 20;
constexpr std::size_t kMarkerOffset = 6;

std::string_view TextOf(LineEnd lineEnd) {
    if (lineEnd == LineEnd::kCrLf) {
        return "\r\n";
    }
    return lineEnd == LineEnd::kLf ? "\n" : "";
}

} // namespace

CRecordWriter::CRecordWriter(const std::string& fileName, LineEnd lineEnd)
    : m_strFileName(fileName), m_LineEnd(lineEnd), m_File(fileName, std::ios::binary) {
    if (!m_File) {
        throw std::runtime_error("cannot create " + fileName);
    }
    m_strBuffer.reserve(kBufferSize);
}

void CRecordWriter::WriteNumbered(std::string_view line) {
    const std::size_t marker = m_strBuffer.size() + kMarkerOffset;
    const bool first = m_nLastMarker < 0;
    m_nLastMarker = m_nFlushed + static_cast<std::int64_t>(marker);
    m_strBuffer.append(line);
    m_strBuffer[marker] = first ? '1' : '2';
    WriteAsItIs("");
}

void CRecordWriter::WriteAsItIs(std::string_view line) {
    m_strBuffer.append(line);
    m_strBuffer.append(TextOf(m_LineEnd));
    if (m_strBuffer.size() >= kBufferSize) {
        Flush();
    }
}

void CRecordWriter::Finish() {
    Flush();
    if (m_nLastMarker >= 0) {
        m_File.seekp(m_nLastMarker);
        m_File.put('3');
    }
    m_File.close();
    if (!m_File) {
        throw std::runtime_error("cannot write " + m_strFileName);
    }
}

void CRecordWriter::Flush() {
    m_File.write(m_strBuffer.data(), static_cast<std::streamsize>(m_strBuffer.size()));
    m_nFlushed += static_cast<std::int64_t>(m_strBuffer.size());
    m_strBuffer.clear();
}

} // namespace tabvex::generate
