#pragma once

#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>

namespace tabvex::generate {

enum class LineEnd { kNone, kLf, kCrLf };

// Writes the lines of one record file through a large buffer and numbers them at character 6 as a
// save does: 1 on the first line, 2 on the following ones, 3 on the last.
class CRecordWriter {
public:
    // Throws std::runtime_error when the file cannot be created.
    CRecordWriter(const std::string& fileName, LineEnd lineEnd);

    void WriteNumbered(std::string_view line);
    void WriteAsItIs(std::string_view line);

    // Sets the number of the last line and writes what is still buffered. Throws
    // std::runtime_error when anything could not be written. Nothing is written afterwards.
    void Finish();

private:
    void Flush();

    std::string m_strFileName;
    LineEnd m_LineEnd;
    std::ofstream m_File;
    std::string m_strBuffer;
    std::int64_t m_nFlushed = 0;
    std::int64_t m_nLastMarker = -1;
};

} // namespace tabvex::generate
