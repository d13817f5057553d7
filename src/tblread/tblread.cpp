// The table-line reader: delivers the lines of one text file through four C entry points.
//
// Line ends LF, CR LF and CR are removed. A line's buffer holds 2000 bytes; what lies behind character 1999 of a line
// is dropped, and what lies behind a line's end is left as it was. One file at a time is open; nothing is locked.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/char_block.h"
#include "tabvex/export.h"

using tabvex::CCharBlock;
using tabvex::kBlockLength;

#define TBLREAD_API extern "C" TABVEX_API

namespace {

constexpr std::size_t kLineSize = 2000; // terminator included
constexpr std::size_t kReadSize = std::size_t{1} << 16;
constexpr int kCannotOpen = 2;
constexpr int kNoLine = 1;

// Reads a file in blocks and cuts it into lines.
class CLineSource {
public:
    bool Open(const char* fileName) {
        Close();
        m_pFile = std::fopen(fileName, "rb");
        if (m_pFile == nullptr) {
            return false;
        }
        static_cast<void>(std::setvbuf(m_pFile, nullptr, _IONBF, 0)); // a buffer more would do no harm
        m_pBlock = static_cast<char*>(std::malloc(kReadSize + kBlockLength));
        // A directory opens on some systems; only reading tells. One character does, as callers open each file twice.
        if (m_pBlock == nullptr || (!Fill(1) && std::feof(m_pFile) == 0)) {
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
        std::free(m_pBlock);
        m_pNext = m_pBlock = m_pEnd = nullptr;
        m_bSkipLf = false;
    }

    // The next line into `line` of kLineSize bytes; false when there is none.
    bool Next(char* line) {
        if ((m_pNext == m_pEnd || m_bSkipLf) && !BeginLine()) {
            line[0] = '\0';
            return false;
        }
        if (std::size_t length = 0; !TakePiece(line, length)) {
            TakeMorePieces(line, length);
        }
        return true;
    }

private:
    // The block is always followed by a line end, which stops the search for one.
    bool Fill(std::size_t size = kReadSize) {
        if (m_pFile == nullptr || std::feof(m_pFile) != 0) {
            return false;
        }
        m_pNext = m_pBlock;
        m_pEnd = m_pBlock + std::fread(m_pBlock, 1, size, m_pFile);
        std::memset(m_pEnd, '\n', kBlockLength);
        return m_pEnd > m_pNext;
    }

    // What few lines need is kept out of the way of the others: they then save no registers for it.

    // Passes over the LF of a CR LF, of which the CR has ended the line before. False at the end of the file.
    [[gnu::noinline]] bool BeginLine() {
        if (m_pNext == m_pEnd && !Fill()) {
            return false;
        }
        if (m_bSkipLf && *m_pNext == '\n') {
            ++m_pNext;
        }
        m_bSkipLf = false;
        return m_pNext < m_pEnd || Fill();
    }

    // For a line that goes on in the next block.
    [[gnu::noinline]] void TakeMorePieces(char* line, std::size_t length) {
        while (Fill()) {
            if (TakePiece(line, length)) {
                return;
            }
        }
        line[length] = '\0';
    }

    // Appends what the block still has of the line. True, with the text ended, when the line ends in this block.
    bool TakePiece(char* line, std::size_t& length) {
        const char* from = m_pNext;
        char* to = line + length;
        for (; to + kBlockLength < line + kLineSize; from += kBlockLength, to += kBlockLength) {
            const CCharBlock block = tabvex::LoadBlock(from);
            const std::uint32_t ends = tabvex::PlacesOfEither('\n', '\r', block);
            if (ends != 0) {
                const std::size_t count = tabvex::FirstPlace(ends);
                tabvex::StoreText(to, block, count);
                length = static_cast<std::size_t>(to - line) + count;
                return EndLine(from + count);
            }
            tabvex::StoreBlock(to, block);
        }
        return TakeRest(line, to, from, length);
    }

    // The end of a very long line, character by character.
    // NOLINTNEXTLINE(readability-non-const-parameter): `to` lies in it
    [[gnu::noinline]] bool TakeRest(char* line, char* to, const char* from, std::size_t& length) {
        for (; *from != '\n' && *from != '\r'; ++from) {
            if (to < line + kLineSize - 1) {
                *to++ = *from;
            }
        }
        *to = '\0';
        length = static_cast<std::size_t>(to - line);
        return EndLine(from);
    }

    // False when the line end is the one behind the block.
    bool EndLine(const char* end) {
        m_pNext = end;
        if (end == m_pEnd) {
            return false;
        }
        m_bSkipLf = *end == '\r';
        ++m_pNext;
        return true;
    }

    std::FILE* m_pFile = nullptr;
    char* m_pBlock = nullptr;
    const char* m_pNext = nullptr;
    char* m_pEnd = nullptr;
    bool m_bSkipLf = false;
};

CLineSource g_Source;

// In place of a destructor, which would have to be registered whenever the library is loaded.
__attribute__((destructor)) void CloseAtUnload() {
    g_Source.Close();
}

} // namespace

/// Opens the named file and starts at its first line; a file that was open is closed. 0, or 2 when the file cannot be
/// opened for reading.
TBLREAD_API int FileName2(const char* fileName) {
    if (fileName == nullptr || *fileName == '\0') {
        return kCannotOpen;
    }
    return g_Source.Open(fileName) ? 0 : kCannotOpen;
}

static int TakeLine(char* line) {
    return line != nullptr && g_Source.Next(line) ? 0 : kNoLine;
}

/// Delivers the first line into a buffer of 2000 bytes. 0, or 1 with an empty text when there is none.
TBLREAD_API int GetFirstLine(char* line) {
    return TakeLine(line);
}

/// Delivers the next line into a buffer of 2000 bytes. 0, or 1 with an empty text at the end of the file.
TBLREAD_API int GetNextLine(char* line) {
    return TakeLine(line);
}

/// Closes the file; does nothing when none is open.
TBLREAD_API void FileClose() {
    g_Source.Close();
}
