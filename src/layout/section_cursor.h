// Walks the lines of a table file's sections and splits them into columns.
#pragma once

#include <string>
#include <string_view>

#include "layout/table_image.h"

namespace tabvex {

/// What the newline character of a table file becomes in a line or column handed out.
enum class ENewlineMode { Cr = 0, Lf = 1, CrLf = 2 };

/// A cursor over a table image, which must outlive it. Texts handed out are valid until the next call.
class CSectionCursor {
public:
    explicit CSectionCursor(const CTableImage& image, ENewlineMode mode = ENewlineMode::CrLf)
        : m_pImage(&image), m_Mode(mode) {}

    /// Goes on with another image, without a current line.
    void SetImage(const CTableImage& image) noexcept;

    /// Makes the first line of the section current. The line's length, TABVEX_SECTION_MISSING, or
    /// TABVEX_SECTION_EMPTY with the head that ends the file,
    /// or the next section's head, as the current line.
    int FindSection(std::string_view name);
    /// The same for a section whose head is known: line `head`, or CTableImage::kNone.
    int EnterSection(int head);
    /// Makes the section's next line current. The line's length; TABVEX_LINES_END or TABVEX_SECTION_ENDS with the
    /// current line kept.
    int NextLine();
    /// The current line, line breaks in place; empty when there is none.
    std::string_view GetText();

    /// Number of columns of the current line; 0 without one, TABVEX_COLUMNS_NO_DELIMITER.
    int GetColumnCount() const;
    /// Column `index` (0-based), not trimmed, line breaks in place. Its length, or TABVEX_COLUMN_BAD_INDEX,
    /// TABVEX_COLUMN_NO_DELIMITER, TABVEX_COLUMN_BEYOND_LINE (also without a current line), TABVEX_COLUMN_NO_NEWLINE.
    int GetColumn(int index, std::string_view& column);

    /// Index of the current line, CTableImage::kNone without one. A line that does not exist is not made current.
    int GetCurrentLine() const { return m_nLine; }
    void SetCurrentLine(int index);
    ENewlineMode GetMode() const { return m_Mode; }
    void SetMode(ENewlineMode mode) { m_Mode = mode; }

private:
    struct CColumn {
        int Line;
        int Index;
        std::size_t Begin; // in the line
    };

    int MakeCurrent(int line) noexcept;
    void JumpTo(int line) noexcept;
    int FindSectionEnd();
    bool FindColumn(int index, std::string_view& column);
    std::string_view RawText() const;
    std::string_view WithLineBreaks(std::string_view text);

    const CTableImage* m_pImage;
    ENewlineMode m_Mode;
    int m_nLine = CTableImage::kNone;
    int m_nSectionEnd = CTableImage::kNone;        // first line behind the current one that begins another section
    bool m_bHasLineBreaks = false;                 // the current line
    CColumn m_Column = {CTableImage::kNone, 0, 0}; // last found
    std::string m_strText;                         // of a line or column with line breaks in it
};

} // namespace tabvex
