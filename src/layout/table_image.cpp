#include "layout/table_image.h"

#include <algorithm>
#include <tuple>

#include "layout/ascii.h"

namespace tabvex {

namespace {

constexpr std::string_view kDataPrefix = "DATA_";

} // namespace

void CTableImage::AddLine(std::string_view line) {
    m_Lines.push_back({m_strText.size(), static_cast<std::uint32_t>(line.size()), false});
    m_strText.append(line);
}

std::string_view CTableImage::GetLine(int index) const {
    const CLine& line = m_Lines[static_cast<std::size_t>(index)];
    return std::string_view(m_strText).substr(line.Offset, line.Length);
}

// Searches the whole text at once, as few lines hold the character; `visit` gets each such line and the offset in it at
// which the character stands first.
template <typename Visit>
void CTableImage::VisitLinesWith(char character, Visit visit) {
    const std::string_view text = m_strText;
    std::size_t at = text.find(character);
    for (std::size_t index = 0; index < m_Lines.size() && at != std::string_view::npos; ++index) {
        const std::size_t begin = m_Lines[index].Offset;
        const std::size_t end = begin + m_Lines[index].Length;
        if (at < begin) {
            at = text.find(character, begin); // it stood in what was cut off a line before
        }
        if (at < end) {
            visit(static_cast<int>(index), at - begin);
            at = text.find(character, end);
        }
    }
}

void CTableImage::CutComments(char comment) {
    if (comment == 0) {
        return;
    }
    VisitLinesWith(comment, [this](int index, std::size_t at) {
        m_Lines[static_cast<std::size_t>(index)].Length = static_cast<std::uint32_t>(at);
    });
    m_Lines.erase(std::remove_if(m_Lines.begin(), m_Lines.end(), [](const CLine& line) { return line.Length == 0; }),
                  m_Lines.end());
}

void CTableImage::IndexHeads() {
    m_Heads.clear();
    m_nFirstDataHead = kNone;
    VisitLinesWith('[', [this](int index, std::size_t) { AddHead(index); });
    std::sort(m_Heads.begin(), m_Heads.end(),
              [](const CHead& a, const CHead& b) { return std::tie(a.Name, a.Line) < std::tie(b.Name, b.Line); });
}

// Any text may stand around the brackets; "DATA_" anywhere in the line makes it the start of a data section.
void CTableImage::AddHead(int index) {
    const std::string line = UpperCase(GetLine(index));
    const std::size_t open = line.find('[');
    const std::size_t close = line.find(']');
    if (close == std::string::npos || open > close) {
        return;
    }
    const std::string_view name = TrimSpace(std::string_view(line).substr(open + 1, close - open - 1));
    m_Heads.push_back({std::string(name), index});
    if (line.find(kDataPrefix) == std::string::npos) {
        return;
    }
    m_Lines[static_cast<std::size_t>(index)].IsDataHead = true;
    if (m_nFirstDataHead == kNone) {
        m_nFirstDataHead = index;
    }
}

int CTableImage::FirstHeadNamed(std::string_view name) const {
    const auto head = std::lower_bound(m_Heads.begin(), m_Heads.end(), name,
                                       [](const CHead& h, std::string_view wanted) { return h.Name < wanted; });
    return head != m_Heads.end() && head->Name == name ? head->Line : kNone;
}

int CTableImage::FindHead(std::string_view name) const {
    const std::string wanted = UpperCase(name);
    if (wanted == kDataPrefix) {
        return m_nFirstDataHead;
    }
    const int plain = FirstHeadNamed(wanted);
    const int data = FirstHeadNamed(std::string(kDataPrefix) + wanted);
    return plain == kNone || (data != kNone && data < plain) ? data : plain;
}

bool CTableImage::IsDataHead(int index) const {
    return m_Lines[static_cast<std::size_t>(index)].IsDataHead;
}

} // namespace tabvex
