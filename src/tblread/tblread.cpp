// The table-line reader: delivers the lines of one text file through four C entry points.
//
// Line ends LF, CR LF and CR are removed. A line's buffer holds 2000 bytes; what lies behind character 1999 of a line
// is dropped. One file at a time is open; nothing is locked.

#include <cstdio>
#include <cstring>

#ifdef _WIN32
#define TBLREAD_API extern "C" __declspec(dllexport)
#else
#define TBLREAD_API extern "C" __attribute__((visibility("default")))
#endif

namespace {

constexpr std::size_t kLineSize = 2000; // terminator included
constexpr int kCannotOpen = 2;
constexpr int kNoLine = 1;

// Reads a file in blocks and cuts it into lines.
class CLineSource {
public:
    ~CLineSource() { Close(); }

    bool Open(const char* fileName) {
        Close();
        m_pFile = std::fopen(fileName, "rb");
        if (m_pFile == nullptr) {
            return false;
        }
        static_cast<void>(std::setvbuf(m_pFile, nullptr, _IONBF, 0)); // a buffer more would do no harm
        // A directory opens on some systems; only reading tells.
        if (!Fill() && std::feof(m_pFile) == 0) {
            Close();
            return false;
        }
        return true;
    }

    void Close() {
        if (m_pFile != nullptr) {
            static_cast<void>(std::fclose(m_pFile)); // nothing was written
            m_pFile = nullptr;
        }
        m_nNext = m_nEnd = m_nNextCr = 0;
        m_bSkipLf = false;
    }

    // The next line into `line` of kLineSize bytes; false when there is none.
    bool Next(char* line) {
        line[0] = '\0';
        if (!SkipLfOfCrLf()) {
            return false;
        }
        std::size_t length = 0;
        while (!TakePiece(line, length) && Fill()) {
        }
        line[length] = '\0';
        return true;
    }

private:
    bool Fill() {
        if (m_pFile == nullptr) {
            return false;
        }
        m_nNext = 0;
        m_nEnd = std::fread(m_Block, 1, sizeof m_Block, m_pFile);
        m_nNextCr = Find('\r', m_nEnd);
        return m_nEnd > 0;
    }

    // Passes over the LF of a CR LF, of which the CR has ended the line before. False at the end of the file.
    bool SkipLfOfCrLf() {
        if (m_nNext == m_nEnd && !Fill()) {
            return false;
        }
        if (m_bSkipLf && m_Block[m_nNext] == '\n') {
            ++m_nNext;
        }
        m_bSkipLf = false;
        return m_nNext < m_nEnd || Fill();
    }

    // Appends what the block still has of the line; true when the line ends in this block.
    bool TakePiece(char* line, std::size_t& length) {
        const std::size_t end = LineEnd();
        const std::size_t room = kLineSize - 1 - length;
        const std::size_t size = end - m_nNext < room ? end - m_nNext : room;
        std::memcpy(line + length, m_Block + m_nNext, size);
        length += size;
        m_nNext = end;
        if (end == m_nEnd) {
            return false;
        }
        m_bSkipLf = m_Block[end] == '\r';
        ++m_nNext;
        return true;
    }

    // Where the line ends in the block, m_nEnd when it does not. The next CR is searched once, as most files have none.
    std::size_t LineEnd() {
        if (m_nNextCr < m_nNext) {
            m_nNextCr = Find('\r', m_nEnd);
        }
        return Find('\n', m_nNextCr);
    }

    std::size_t Find(char character, std::size_t end) const {
        const void* found = std::memchr(m_Block + m_nNext, character, end - m_nNext);
        return found == nullptr ? end : static_cast<std::size_t>(static_cast<const char*>(found) - m_Block);
    }

    std::FILE* m_pFile = nullptr;
    std::size_t m_nNext = 0;
    std::size_t m_nEnd = 0;
    std::size_t m_nNextCr = 0; // the first CR at or behind m_nNext, m_nEnd without one
    bool m_bSkipLf = false;
    char m_Block[1 << 14] = {};
};

CLineSource g_Source;

} // namespace

/// Opens the named file and starts at its first line; a file that was open is closed. 0, or 2 when the file cannot be
/// opened for reading.
TBLREAD_API int FileName2(const char* fileName) {
    if (fileName == nullptr || *fileName == '\0') {
        return kCannotOpen;
    }
    return g_Source.Open(fileName) ? 0 : kCannotOpen;
}

/// Delivers the first line into a buffer of 2000 bytes. 0, or 1 with an empty text when there is none.
TBLREAD_API int GetFirstLine(char* line) {
    if (line == nullptr) {
        return kNoLine;
    }
    return g_Source.Next(line) ? 0 : kNoLine;
}

/// Delivers the next line into a buffer of 2000 bytes. 0, or 1 with an empty text at the end of the file.
TBLREAD_API int GetNextLine(char* line) {
    return GetFirstLine(line);
}

/// Closes the file; does nothing when none is open.
TBLREAD_API void FileClose() {
    g_Source.Close();
}
