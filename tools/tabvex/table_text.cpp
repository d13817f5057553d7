#include "table_text.h"

#include <algorithm>
#include <charconv>

#include "file_bytes.h"
#include "text_layout.h"

namespace tabvex::tool {

namespace {

constexpr std::size_t kLongestLine = 1999;
constexpr std::size_t kLongestHeaderLine = 500;
constexpr std::size_t kLongestDescriptor = 500;
constexpr std::string_view kDataPrefix = "DATA_";
constexpr std::size_t kDescriptionColumn = 4;

bool IsSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

std::string_view TrimSpace(std::string_view text) {
    while (!text.empty() && IsSpace(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && IsSpace(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

// Reads like the library: what stands behind the digits is ignored, and no number is 0.
int LeadingNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n\v\f"), text.size()));
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
    }
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

struct CHead {
    bool IsHead = false;
    bool IsData = false; // begins a record type's section, or at least ends the one before
    std::string Name;
};

CHead HeadOf(std::string_view text) {
    const std::string line = UpperCase(text);
    const std::size_t open = line.find('[');
    const std::size_t close = line.find(']');
    if (open == std::string::npos || close == std::string::npos || open > close) {
        return {};
    }
    const std::string_view name = std::string_view(line).substr(open + 1, close - open - 1);
    return {true, line.find(kDataPrefix) != std::string::npos, std::string(TrimSpace(name))};
}

std::string WithLineBreaks(const std::string& text, char newline) {
    std::string result;
    for (const char c : text) {
        result.append(newline != 0 && c == newline ? std::string_view("\r\n") : std::string_view(&c, 1));
    }
    return result;
}

std::vector<std::string> SplitColumns(std::string_view text, char delimiter, char newline) {
    std::vector<std::string> columns;
    std::size_t end = 0;
    while (end != std::string_view::npos) {
        end = delimiter == 0 ? std::string_view::npos : text.find(delimiter);
        columns.push_back(WithLineBreaks(std::string(text.substr(0, end)), newline));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return columns;
}

// Line breaks serve to lay out longer descriptions; here they are blanks.
std::string MakeDescription(std::string text) {
    std::replace_if(text.begin(), text.end(), IsSpace, ' ');
    return std::string(Trim(text));
}

} // namespace

CTableText::CTableText(const std::string& fileName) {
    SplitLines(ReadFileBytes(fileName));
    ReadHeader();
    CutComments();
    ReadSections();
}

const CTableKey* CTableText::FindKey(std::string_view name) const {
    const auto key =
        std::find_if(m_Keys.rbegin(), m_Keys.rend(), [name](const CTableKey& k) { return k.Name == name; });
    return key == m_Keys.rend() ? nullptr : &*key;
}

const CTableSection* CTableText::FindSection(std::string_view type) const {
    const auto section = std::find_if(m_Sections.begin(), m_Sections.end(),
                                      [type](const CTableSection& s) { return !type.empty() && s.Type == type; });
    return section == m_Sections.end() ? nullptr : &*section;
}

void CTableText::SplitLines(std::string_view text) {
    for (int number = 1; !text.empty(); ++number) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        AddLine(number, text.substr(0, end));
        const std::size_t next = text.substr(end, 2) == "\r\n" ? end + 2 : end + 1;
        text.remove_prefix(std::min(next, text.size()));
    }
}

// A text ends at its first NUL.
void CTableText::AddLine(int number, std::string_view text) {
    if (text.size() > kLongestLine) {
        m_CutLines.push_back(number);
    }
    text = text.substr(0, kLongestLine);
    if (!IsDropped(text) || number == 1) {
        m_Lines.push_back({number, std::string(text.substr(0, text.find('\0')))});
    }
}

// An empty line is. One that begins with another character than those of ASCII from the blank on is as well, unless the
// library's buffer, in which the ends of longer lines stay, holds such a character anywhere.
bool CTableText::IsDropped(std::string_view text) {
    const auto printable = [](char c) { return c >= ' ' && static_cast<unsigned char>(c) <= 127; };
    m_strBuffer.resize(kLongestLine + 1, '\0');
    text.copy(m_strBuffer.data(), text.size());
    m_strBuffer[text.size()] = '\0';
    const bool blank = std::none_of(m_strBuffer.begin(), m_strBuffer.end(), printable);
    const bool dropped = m_strBuffer.front() == '\0' || (!printable(m_strBuffer.front()) && blank);
    m_strBuffer.front() = '\0';
    return dropped;
}

void CTableText::ReadHeader() {
    auto line =
        std::find_if(m_Lines.begin(), m_Lines.end(), [](const CLine& l) { return HeadOf(l.Text).Name == "HEADER"; });
    if (line == m_Lines.end()) {
        return;
    }
    m_nHeaderLine = line->Number;
    for (++line; line != m_Lines.end() && !HeadOf(line->Text).IsData; ++line) {
        ReadHeaderLine(*line);
    }
    m_cDelimiter = CharacterOf("DELIMITER");
    ReadVersion();
}

// A line of blanks ends the header. The header's own newline character already holds for the lines behind it.
void CTableText::ReadHeaderLine(const CLine& line) {
    const auto begin = std::find_if_not(line.Text.begin(), line.Text.end(), IsSpace);
    if (m_nHeaderEnd == 0 && begin == line.Text.end()) {
        m_nHeaderEnd = line.Number;
    }
    const std::string text = WithLineBreaks({begin, line.Text.end()}, m_cNewline);
    ReadKey({line.Number, text.substr(0, kLongestHeaderLine)}, m_nHeaderEnd == 0 ? m_Keys : m_LostKeys);
    m_cNewline = CharacterOf("NEWLINE");
}

void CTableText::ReadKey(const CLine& line, std::vector<CTableKey>& keys) const {
    const std::size_t equals = line.Text.find('=');
    if (equals == 0 || equals == std::string::npos) {
        return;
    }
    CTableKey key;
    key.Line = line.Number;
    key.Name = UpperCase(line.Text.substr(0, equals));
    key.Name.erase(
        std::remove_if(key.Name.begin(), key.Name.end(), [](char c) { return static_cast<unsigned char>(c) <= ' '; }),
        key.Name.end());
    key.Value = TrimSpace(std::string_view(line.Text).substr(equals + 1));
    if (!key.Name.empty() && !key.Value.empty()) {
        keys.push_back(std::move(key));
    }
}

char CTableText::CharacterOf(std::string_view name) const {
    const CTableKey* key = FindKey(name);
    if (key == nullptr) {
        return 0;
    }
    if (name != "DELIMITER") {
        return key->Value.front();
    }
    const std::string value = UpperCase(key->Value);
    if (value == "TAB") {
        return '\t';
    }
    return value == "SPC" ? ' ' : value.front();
}

void CTableText::ReadVersion() {
    const CTableKey* key = FindKey("VERSION");
    if (key == nullptr) {
        return;
    }
    const std::string_view value = key->Value;
    const std::size_t point = value.find('.');
    ReadWholeNumber(value.substr(0, point), m_nVersionMajor);
    ReadWholeNumber(point == std::string_view::npos ? "0" : value.substr(point + 1), m_nVersionMinor);
}

void CTableText::CutComments() {
    const char comment = CharacterOf("COMMENT");
    if (comment == 0) {
        return;
    }
    for (CLine& line : m_Lines) {
        line.Text.resize(std::min(line.Text.find(comment), line.Text.size()));
    }
    m_Lines.erase(std::remove_if(m_Lines.begin(), m_Lines.end(), [](const CLine& line) { return line.Text.empty(); }),
                  m_Lines.end());
}

void CTableText::ReadSections() {
    for (const CLine& line : m_Lines) {
        const CHead head = HeadOf(line.Text);
        if (head.IsData) {
            const bool named = head.Name.compare(0, kDataPrefix.size(), kDataPrefix) == 0;
            m_Sections.push_back({line.Number, head.Name, named ? head.Name.substr(kDataPrefix.size()) : "", {}});
        } else if (!m_Sections.empty()) {
            m_Sections.back().Items.push_back(MakeItem(line));
        }
    }
}

CTableItem CTableText::MakeItem(const CLine& line) const {
    CTableItem item;
    item.Line = line.Number;
    // Without a newline character the library reads no column at all.
    item.Columns = SplitColumns(line.Text, m_cNewline == 0 ? '\0' : m_cDelimiter, m_cNewline);
    if (item.Columns.size() > kDescriptionColumn) {
        item.Description = MakeDescription(item.Columns[kDescriptionColumn]);
    }
    if (item.IsComplete()) {
        item.Definition.Number = LeadingNumber(item.Columns[0]);
        item.Definition.Length = LeadingNumber(item.Columns[1]);
        item.Definition.Position = LeadingNumber(item.Columns[2]);
        item.BadComponent = item.Definition.ParseFormat(item.Columns[3].substr(0, kLongestDescriptor).c_str());
    }
    return item;
}

bool ReadWholeNumber(std::string_view text, int& number) {
    int value = 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    if (text.empty() || text.front() == '-' || result.ec != std::errc() || result.ptr != end) {
        return false;
    }
    number = value;
    return true;
}

} // namespace tabvex::tool
