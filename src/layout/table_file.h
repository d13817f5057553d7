// The table file: loads it through the table-line reader and serves its sections line by line.
#pragma once

#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <variant>
#include <vector>

#include "layout/section_cursor.h"
#include "layout/table_image.h"
#include "layout/table_reader_library.h"

/// The table file of a record set. Copying operations fill `buffer` with up to `size` characters and a NUL behind them,
/// so that the buffer must hold `size` + 1 bytes; they return the full length, more than `size` when the text was cut.
class CTableFile {
public:
    CTableFile();
    /// Looks for the table-line reader under these file names only, in order.
    explicit CTableFile(std::vector<std::string> readerFiles);

    /// Loads a whole table file and parses its header; header keys that it lacks keep their earlier values.
    /// TABVEX_OK; TABVEX_TABLE_NO_READER, TABVEX_TABLE_CANNOT_OPEN, TABVEX_TABLE_CANNOT_READ, TABVEX_TABLE_NO_HEADER:
    /// what was loaded before stays.
    int Open(const char* fileName);

    /// Makes the first line of a section current and copies it: its length, TABVEX_SECTION_MISSING,
    /// TABVEX_SECTION_EMPTY, or TABVEX_LINE_NO_BUFFER with the line made current all the same.
    int FindSection(const char* name, char* buffer, int size);
    /// Makes the next line of the section current and copies it: its length, TABVEX_LINES_END, TABVEX_SECTION_ENDS, or
    /// TABVEX_LINE_NO_BUFFER with the line made current all the same.
    int NextLine(char* buffer, int size);
    /// Columns of the current line; 0 without one, TABVEX_COLUMNS_NO_DELIMITER.
    int GetColumnCount() const;
    /// Copies column `index` (0-based) of the current line: its length, or a TABVEX_COLUMN_... code.
    int GetColumn(int index, char* buffer, int size);

    /// One header field: 0 id, 1 version (major, minor), 2 date (year, month, day), 3 author, 4 country, 5 language,
    /// 6 delimiter, 7 comment, 8 newline; nothing for any other number and for texts that are absent.
    using CHeaderField =
        std::variant<std::monostate, std::string, std::pair<int, int>, std::tuple<int, int, int>, char>;
    CHeaderField GetHeaderField(int number) const;
    const tabvex::CTableHeader& GetHeader() const { return m_pImage->Header; }

    /// Sets what a newline character in a value becomes; the mode before. Modes other than 0 to 2 change nothing.
    int SetNewlineMode(int mode);
    /// Makes a line current by its index (0-based), if it exists.
    void SetCurrentLine(int index) { m_Cursor.SetCurrentLine(index); }
    /// Index of the current line, -1 without one.
    int GetCurrentLine() const { return m_Cursor.GetCurrentLine(); }

    /// The loaded file; it stays as it is when another file is loaded.
    std::shared_ptr<const tabvex::CTableImage> GetImage() const { return m_pImage; }

    /// Goes back to a file that was loaded before. Without a current line.
    void SetImage(std::shared_ptr<const tabvex::CTableImage> image) noexcept;

private:
    int ReadLines(const char* fileName, tabvex::CTableImage& image) const;

    tabvex::CTableReaderLibrary m_Reader;
    std::shared_ptr<const tabvex::CTableImage> m_pImage;
    tabvex::CSectionCursor m_Cursor;
};
