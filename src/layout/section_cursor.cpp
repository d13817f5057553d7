#include "layout/section_cursor.h"

#include <algorithm>

#include "tabvex/result_codes.h"

namespace tabvex {

namespace {

constexpr std::string_view LineBreak(ENewlineMode mode) {
    switch (mode) {
    case ENewlineMode::Cr:
        return "\r";
    case ENewlineMode::Lf:
        return "\n";
    case ENewlineMode::CrLf:
        break;
    }
    return "\r\n";
}

} // namespace

void CSectionCursor::SetImage(const CTableImage& image) noexcept {
    m_pImage = &image;
    m_nLine = CTableImage::kNone;
    m_nSectionEnd = CTableImage::kNone;
    m_Column = {CTableImage::kNone, 0, 0};
}

int CSectionCursor::FindSection(std::string_view name) {
    return EnterSection(m_pImage->FindHead(name));
}

int CSectionCursor::EnterSection(int head) {
    JumpTo(head);
    if (head == CTableImage::kNone) {
        return TABVEX_SECTION_MISSING;
    }
    const int end = FindSectionEnd();
    if (end != head + 1) {
        return MakeCurrent(head + 1);
    }
    if (end < m_pImage->GetLineCount()) {
        JumpTo(end);
    }
    return TABVEX_SECTION_EMPTY;
}

int CSectionCursor::NextLine() {
    const int next = m_nLine + 1;
    if (next < FindSectionEnd()) {
        return MakeCurrent(next);
    }
    return next < m_pImage->GetLineCount() ? TABVEX_SECTION_ENDS : TABVEX_LINES_END;
}

void CSectionCursor::JumpTo(int line) noexcept {
    MakeCurrent(line);
    m_nSectionEnd = CTableImage::kNone;
}

int CSectionCursor::FindSectionEnd() {
    if (m_nSectionEnd == CTableImage::kNone) {
        m_nSectionEnd = m_pImage->FindDataHead(m_nLine + 1);
    }
    return m_nSectionEnd;
}

// Few lines hold line breaks: the columns of the others need not be looked at.
int CSectionCursor::MakeCurrent(int line) noexcept {
    m_nLine = line;
    const std::string_view text = RawText();
    const char newline = m_pImage->Header.Newline;
    m_bHasLineBreaks = newline != 0 && text.find(newline) != std::string_view::npos;
    const auto breaks = m_bHasLineBreaks ? std::count(text.begin(), text.end(), newline) : 0;
    return static_cast<int>(text.size()) + static_cast<int>(breaks) * (static_cast<int>(LineBreak(m_Mode).size()) - 1);
}

std::string_view CSectionCursor::GetText() {
    return WithLineBreaks(RawText());
}

int CSectionCursor::GetColumnCount() const {
    const char delimiter = m_pImage->Header.Delimiter;
    if (delimiter == 0) {
        return TABVEX_COLUMNS_NO_DELIMITER;
    }
    if (m_nLine == CTableImage::kNone) {
        return 0;
    }
    const std::string_view text = RawText();
    return 1 + static_cast<int>(std::count(text.begin(), text.end(), delimiter));
}

int CSectionCursor::GetColumn(int index, std::string_view& column) {
    if (index < 0) {
        return TABVEX_COLUMN_BAD_INDEX;
    }
    const char delimiter = m_pImage->Header.Delimiter;
    if (delimiter == 0) {
        return TABVEX_COLUMN_NO_DELIMITER;
    }
    // Without a current line there are no columns, so that every index lies beyond them.
    if (m_nLine == CTableImage::kNone) {
        return TABVEX_COLUMN_BEYOND_LINE;
    }
    if (!FindColumn(index, column)) {
        return TABVEX_COLUMN_BEYOND_LINE;
    }
    if (m_pImage->Header.Newline == 0) {
        column = {};
        return TABVEX_COLUMN_NO_NEWLINE;
    }
    if (m_bHasLineBreaks) {
        column = WithLineBreaks(column);
    }
    return static_cast<int>(column.size());
}

// Columns are mostly asked for in their order, so that each one goes on behind the one before.
bool CSectionCursor::FindColumn(int index, std::string_view& column) {
    if (m_Column.Line != m_nLine || m_Column.Index > index) {
        m_Column = {m_nLine, 0, 0};
    }
    const char delimiter = m_pImage->Header.Delimiter;
    std::string_view text = RawText().substr(m_Column.Begin);
    std::size_t end = text.find(delimiter);
    for (; m_Column.Index < index; ++m_Column.Index) {
        if (end == std::string_view::npos) {
            return false;
        }
        m_Column.Begin += end + 1;
        text.remove_prefix(end + 1);
        end = text.find(delimiter);
    }
    column = text.substr(0, end);
    return true;
}

void CSectionCursor::SetCurrentLine(int index) {
    if (index >= 0 && index < m_pImage->GetLineCount()) {
        JumpTo(index);
    }
}

std::string_view CSectionCursor::RawText() const {
    return m_nLine == CTableImage::kNone ? std::string_view() : m_pImage->GetLine(m_nLine);
}

std::string_view CSectionCursor::WithLineBreaks(std::string_view text) {
    const char newline = m_pImage->Header.Newline;
    if (newline == 0 || text.find(newline) == std::string_view::npos) {
        return text;
    }
    m_strText.clear();
    for (const char character : text) {
        if (character == newline) {
            m_strText.append(LineBreak(m_Mode));
        } else {
            m_strText.push_back(character);
        }
    }
    return m_strText;
}

} // namespace tabvex
