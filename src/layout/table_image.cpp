#include "layout/table_image.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "layout/ascii.h"
#include "platform/char_block.h"

namespace tabvex {

namespace {

constexpr std::string_view kDataPrefix = "DATA_";
// Twice this is what glibc keeps for the program once a piece of this size was freed. With less it gives memory back
// behind every table, only to fetch it again for the next one.
constexpr std::size_t kUsualText = std::size_t{256} << 10;
constexpr std::size_t kUsualLines = 3000;
constexpr std::size_t kUsualHeads = 400;

bool SameText(std::string_view a, std::string_view b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return UpperCase(x) == UpperCase(y); });
}

// Anywhere in a head's line it makes that the start of a data section.
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

// The last characters, case ignored, which tell most names apart; goes on from the key of what stands before. One bit
// makes letters small; that it makes the same of some other characters does no harm.
constexpr std::uint32_t KeyOf(std::string_view name, std::uint32_t key = 0) {
    constexpr unsigned kSmallLetterBit = 0x20;
    for (std::size_t i = name.size() < sizeof key ? 0 : name.size() - sizeof key; i < name.size(); ++i) {
        key = key << 8U | static_cast<unsigned char>(name[i]) | kSmallLetterBit;
    }
    return key;
}

// Moves the first `count` elements into room for `capacity`.
template <typename Element>
void MoveTo(std::size_t capacity, std::size_t most, std::unique_ptr<Element[]>& elements, std::size_t count) {
    if (capacity > most) {
        throw std::length_error("table file");
    }
    std::unique_ptr<Element[]> moved(new Element[capacity]);
    std::copy_n(elements.get(), count, moved.get());
    elements = std::move(moved);
}

} // namespace

void CTableImage::Reserve() {
    MoveText(kUsualText);
    MoveLines(kUsualLines);
}

void CTableImage::GiveBackRoom() {
    constexpr std::size_t kMuchMore = 4;
    if (m_nText < m_nCapacity / kMuchMore) {
        MoveText(m_nText);
    }
}

// Finds the line's end while copying it: lines are short, so that two passes would take twice as long.
void CTableImage::AddLine(const char* line) {
    if (!HasRoom()) {
        return GrowAndAddLine(line);
    }
    char* const text = m_pText.get() + m_nText;
    std::size_t length = 0;
    std::size_t found = kCopiedAtOnce;
    for (; found == kCopiedAtOnce; length += found) {
        found = CopyAndFindNul(line + length, text + length);
    }
    CLine& added = m_pLines[m_nLines++];
    added.Begin = static_cast<std::uint32_t>(m_nText);
    m_nText += length;
    added.End = static_cast<std::uint32_t>(m_nText);
}

// Kept apart, so that adding a line saves no registers for it.
[[gnu::noinline]] void CTableImage::GrowAndAddLine(const char* line) {
    if (m_nText + kLineRoom > m_nCapacity) {
        MoveText(2 * m_nCapacity + kLineRoom);
    }
    if (m_nLines == m_nLineCapacity) {
        MoveLines(2 * m_nLineCapacity + 1);
    }
    AddLine(line);
}

void CTableImage::MoveText(std::size_t capacity) {
    MoveTo(capacity, UINT32_MAX, m_pText, m_nText);
    m_nCapacity = capacity;
}

void CTableImage::MoveLines(std::size_t capacity) {
    MoveTo(capacity, INT32_MAX, m_pLines, m_nLines);
    m_nLineCapacity = capacity;
}

// Searches the whole text at once, as few lines hold the character; `visit` gets each such line and the offset in it at
// which the character stands first.
template <typename Visit>
void CTableImage::VisitLinesWith(char character, Visit visit) {
    const std::string_view text = GetText();
    const CLine* const lines = m_pLines.get();
    const CLine* const end = lines + m_nLines;
    const CLine* line = lines;
    for (std::size_t at = text.find(character); at != std::string_view::npos;) {
        line = std::find_if(line, end, [at](const CLine& l) { return l.End > at; });
        if (line == end) {
            return; // what is left was cut off the last line
        }
        const auto [lineBegin, lineEnd] = *line;
        if (at < lineBegin) {
            at = text.find(character, lineBegin); // it stood in what was cut off a line before
            continue;
        }
        visit(static_cast<int>(line - lines), at - lineBegin);
        at = text.find(character, lineEnd);
    }
}

void CTableImage::TrimLineLeft(int index) {
    CLine& line = LineAt(index);
    line.Begin = line.End - static_cast<std::uint32_t>(TrimSpaceLeft(GetLine(index)).size());
}

void CTableImage::CutComments(char comment) {
    if (comment == 0) {
        return;
    }
    VisitLinesWith(comment, [this](int index, std::size_t at) {
        CLine& line = LineAt(index);
        line.End = line.Begin + static_cast<std::uint32_t>(at);
    });
    CLine* const end = std::remove_if(m_pLines.get(), m_pLines.get() + m_nLines,
                                      [](const CLine& line) { return line.Begin == line.End; });
    m_nLines = static_cast<std::size_t>(end - m_pLines.get());
}

void CTableImage::IndexHeads() {
    m_Heads.clear();
    m_Heads.reserve(kUsualHeads);
    m_DataHeads.clear();
    m_DataHeads.reserve(kUsualHeads);
    VisitLinesWith('[', [this](int index, std::size_t at) {
        std::string_view name;
        if (!FindName(GetLine(index), at, name)) {
            return;
        }
        CHead& head = m_Heads.emplace_back(); // filled in place: copying two halves as a whole would have to wait
        head.NameKey = KeyOf(name);
        head.Line = index;
        if (name.substr(0, kDataPrefix.size()) == kDataPrefix || HoldsDataPrefix(GetLine(index))) {
            m_DataHeads.push_back(index);
        }
    });
    m_bIndexed = true;
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

int CTableImage::FindDataHead(int from) const {
    if (m_bIndexed) {
        const auto head = std::lower_bound(m_DataHeads.begin(), m_DataHeads.end(), from);
        return head == m_DataHeads.end() ? GetLineCount() : *head;
    }
    int line = from;
    while (line < GetLineCount() && !IsHeadOf(kDataPrefix, line)) {
        ++line;
    }
    return line;
}

} // namespace tabvex
