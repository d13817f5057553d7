#include "layout/table_image.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "layout/ascii.h"
#include "platform/char_block.h"

namespace tabvex {

namespace {

constexpr std::string_view kDataPrefix = "DATA_";
constexpr std::size_t kUsualText = std::size_t{120} << 10;
constexpr std::size_t kUsualLines = 3000;

bool SameText(std::string_view a, std::string_view b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return UpperCase(x) == UpperCase(y); });
}

bool HoldsDataPrefix(std::string_view line) {
    return std::search(line.begin(), line.end(), kDataPrefix.begin(), kDataPrefix.end(),
                       [](char x, char y) { return UpperCase(x) == y; }) != line.end();
}

// The name between the brackets, trimmed; false when the line is no head. Any text may stand around the brackets.
// `open` is the line's first opening bracket.
bool FindName(std::string_view line, std::size_t open, std::string_view& name) {
    const std::size_t close = line.find(']');
    if (close == std::string_view::npos || open > close) {
        return false;
    }
    name = TrimSpace(line.substr(open + 1, close - open - 1));
    return true;
}

bool FindName(std::string_view line, std::string_view& name) {
    const std::size_t open = line.find('[');
    return open != std::string_view::npos && FindName(line, open, name);
}

// The last characters, case ignored, which tell most names apart; goes on from the key of what stands before.
constexpr std::uint32_t KeyOf(std::string_view name, std::uint32_t key = 0) {
    for (std::size_t i = name.size() < sizeof key ? 0 : name.size() - sizeof key; i < name.size(); ++i) {
        key = key << 8U | static_cast<unsigned char>(UpperCase(name[i]));
    }
    return key;
}

} // namespace

void CTableImage::Reserve() {
    Grow(kUsualText);
    m_Lines.reserve(kUsualLines);
}

// Finds the line's end while copying it: lines are short, so that two passes would take twice as long.
void CTableImage::AddLine(const char* line) {
    if (m_nCapacity - m_nText < kLineRoom) {
        Grow(std::max(m_nCapacity * 2, m_nText + kLineRoom));
    }
    char* const text = m_pText.get() + m_nText;
    std::size_t length = 0;
    std::size_t found = kCopiedAtOnce;
    for (; found == kCopiedAtOnce; length += found) {
        found = CopyAndFindNul(line + length, text + length);
    }
    CLine& added = m_Lines.emplace_back(); // filled in place: a copy of two halves would be read as a whole at once
    added.Offset = static_cast<std::uint32_t>(m_nText);
    added.Length = static_cast<std::uint32_t>(length);
    m_nText += length;
}

void CTableImage::Grow(std::size_t capacity) {
    if (capacity > UINT32_MAX) {
        throw std::length_error("table file");
    }
    std::unique_ptr<char[]> larger(new char[capacity]);
    GetText().copy(larger.get(), m_nText);
    m_pText = std::move(larger);
    m_nCapacity = capacity;
}

std::string_view CTableImage::GetLine(int index) const {
    const CLine& line = m_Lines[static_cast<std::size_t>(index)];
    return {m_pText.get() + line.Offset, line.Length};
}

// Searches the whole text at once, as few lines hold the character; `visit` gets each such line and the offset in it at
// which the character stands first.
template <typename Visit>
void CTableImage::VisitLinesWith(char character, Visit visit) {
    const std::string_view text = GetText();
    auto line = m_Lines.begin();
    for (std::size_t at = text.find(character); at != std::string_view::npos;) {
        line = std::find_if(line, m_Lines.end(), [at](const CLine& l) { return l.Offset + l.Length > at; });
        if (line == m_Lines.end()) {
            return; // what is left was cut off the last line
        }
        const std::size_t begin = line->Offset;
        const std::size_t end = begin + line->Length;
        if (at < begin) {
            at = text.find(character, begin); // it stood in what was cut off a line before
            continue;
        }
        visit(static_cast<int>(line - m_Lines.begin()), at - begin);
        at = text.find(character, end);
    }
}

void CTableImage::TrimLineLeft(int index) {
    CLine& line = m_Lines[static_cast<std::size_t>(index)];
    const std::size_t kept = TrimSpaceLeft(GetLine(index)).size();
    line.Offset += static_cast<std::uint32_t>(line.Length - kept);
    line.Length = static_cast<std::uint32_t>(kept);
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
    VisitLinesWith('[', [this](int index, std::size_t at) {
        std::string_view name;
        if (FindName(GetLine(index), at, name)) {
            m_Heads.push_back({KeyOf(name), index});
        }
    });
}

int CTableImage::ScanForHead(std::string_view name) const {
    for (int index = 0; index < GetLineCount(); ++index) {
        if (IsHeadOf(name, index)) {
            return index;
        }
    }
    return kNone;
}

int CTableImage::FindHead(std::string_view name) const {
    const bool anyData = SameText(name, kDataPrefix);
    const std::uint32_t plainKey = KeyOf(name);
    const std::uint32_t dataKey = KeyOf(name, KeyOf(kDataPrefix));
    for (const CHead& head : m_Heads) {
        const bool candidate = anyData || head.NameKey == plainKey || head.NameKey == dataKey;
        if (candidate && IsHeadOf(name, head.Line)) {
            return head.Line;
        }
    }
    return kNone;
}

bool CTableImage::IsHeadOf(std::string_view name, int index) const {
    std::string_view found;
    if (!FindName(GetLine(index), found)) {
        return false;
    }
    if (SameText(name, kDataPrefix)) {
        return HoldsDataPrefix(GetLine(index));
    }
    const std::size_t prefix = kDataPrefix.size();
    const bool data = found.size() >= prefix && SameText(found.substr(0, prefix), kDataPrefix);
    return SameText(found, name) || (data && SameText(found.substr(prefix), name));
}

// "DATA_" anywhere in the line makes a head the start of a data section.
bool CTableImage::IsDataHead(int index) const {
    return IsHeadOf(kDataPrefix, index);
}

} // namespace tabvex
