#include "table_text.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <stdexcept>

namespace tabvex::generate {
namespace {

constexpr int kLineLength = 128;
constexpr int kVehicleLineLength = 640; // FZ alone has longer lines in memory
constexpr std::size_t kMinColumns = 4;

std::string Trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

std::string Upper(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return text;
}

int ToNumber(const std::string& column) {
    int number = 0;
    const auto result = std::from_chars(column.data(), column.data() + column.size(), number);
    if (column.empty() || result.ec != std::errc() || result.ptr != column.data() + column.size()) {
        throw std::invalid_argument("\"" + column + "\" is no number");
    }
    return number;
}

std::vector<std::string> Split(const std::string& line, char delimiter) {
    std::vector<std::string> parts;
    std::size_t begin = 0;
    for (std::size_t end; (end = line.find(delimiter, begin)) != std::string::npos; begin = end + 1) {
        parts.push_back(line.substr(begin, end - begin));
    }
    parts.push_back(line.substr(begin));
    return parts;
}

class CTableParser {
public:
    void TakeLine(std::string line) {
        if (m_bInHeader) {
            TakeHeaderLine(line);
        }
        if (m_cComment != '\0') {
            line = line.substr(0, line.find(m_cComment));
        }
        line = Trimmed(line);
        if (line.empty()) {
            return;
        }
        if (line.front() == '[') {
            return TakeSectionHead(line);
        }
        if (!m_bInHeader) {
            TakeItemLine(line);
        }
    }

    Table TakeResult() { return std::move(m_Table); }

private:
    void TakeHeaderLine(const std::string& line) {
        const std::size_t equals = line.find('=');
        if (equals == std::string::npos) {
            return;
        }
        const std::string key = Upper(Trimmed(line.substr(0, equals)));
        const std::string value = Trimmed(line.substr(equals + 1));
        if (value.empty()) {
            return;
        }
        if (key == "COMMENT") {
            m_cComment = value.front();
        }
        if (key == "DELIMITER") {
            m_cDelimiter = DelimiterOf(Upper(value));
        }
    }

    static char DelimiterOf(const std::string& value) {
        if (value == "TAB") {
            return '\t';
        }
        if (value == "SPC") {
            return ' ';
        }
        return value.front();
    }

    void TakeSectionHead(const std::string& line) {
        const std::string name = Upper(Trimmed(line.substr(1, line.find(']') - 1)));
        m_bInHeader = name == "HEADER";
        if (m_bInHeader) {
            return;
        }
        if (name.rfind("DATA_", 0) != 0) {
            throw std::invalid_argument("unknown section " + name);
        }
        m_Table.sections.push_back(Section{name.substr(5), {}});
    }

    void TakeItemLine(const std::string& line) {
        if (m_Table.sections.empty()) {
            return;
        }
        const std::vector<std::string> columns = Split(line, m_cDelimiter);
        if (columns.size() < kMinColumns) {
            throw std::invalid_argument("fewer than four columns");
        }
        Item item;
        item.number = ToNumber(columns[0]);
        item.length = ToNumber(columns[1]);
        item.position = ToNumber(columns[2]);
        const int limit = m_Table.sections.back().key == "FZ" ? kVehicleLineLength : kLineLength;
        if (item.length < 1 || item.position < 1 || item.position - 1 + item.length > limit) {
            throw std::invalid_argument("the item leaves the line");
        }
        item.format = ParseDescriptor(columns[3], item.length);
        m_Table.sections.back().items.push_back(std::move(item));
    }

    Table m_Table;
    bool m_bInHeader = false;
    char m_cDelimiter = '|';
    char m_cComment = '\0';
};

} // namespace

const Item* Section::Find(int number) const {
    const auto found =
        std::find_if(items.begin(), items.end(), [&](const Item& item) { return item.number == number; });
    return found == items.end() ? nullptr : &*found;
}

const Section* Table::Find(std::string_view key) const {
    const auto found =
        std::find_if(sections.begin(), sections.end(), [&](const Section& section) { return section.key == key; });
    return found == sections.end() ? nullptr : &*found;
}

Table ReadTable(const std::string& fileName) {
    std::ifstream file(fileName, std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot read " + fileName);
    }
    CTableParser parser;
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        try {
            parser.TakeLine(line);
        } catch (const std::exception& error) {
            throw std::runtime_error(fileName + ":" + std::to_string(number) + ": " + error.what());
        }
    }
    return parser.TakeResult();
}

} // namespace tabvex::generate
