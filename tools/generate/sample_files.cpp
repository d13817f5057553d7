#include "sample_files.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

#include "line_builder.h"
#include "record_writer.h"
#include "sample_contents.h"

namespace tabvex::generate {
namespace {

constexpr std::size_t kDamagedWholeLines = 12;
constexpr std::size_t kCrLfLineLength = kRecordLength + 2;
constexpr std::size_t kDamagedLastLength = 61;
constexpr std::size_t kCalculationNumberOffset = 2;
constexpr int kCalculationNumberLength = 4;

struct Line {
    std::string text;
    bool numbered;
};

// The letters outside ASCII that the samples use, in UTF-8 and in code page 850.
constexpr std::pair<std::string_view, char> kLetters[] = {
    {"ä", '\x84'}, {"ö", '\x94'}, {"ü", '\x81'}, {"Ä", '\x8E'},
    {"Ö", '\x99'}, {"Ü", '\x9A'}, {"ß", '\xE1'}, {"é", '\x82'},
};

std::string ToCodePage850(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto* letter = std::find_if(std::begin(kLetters), std::end(kLetters),
                                          [&](const auto& pair) { return text.substr(i, 2) == pair.first; });
        const bool known = letter != std::end(kLetters);
        if (!known && static_cast<unsigned char>(text[i]) > 127) {
            throw std::invalid_argument("no code page 850 letter for a character of \"" + std::string(text) + "\"");
        }
        result += known ? letter->second : text[i];
        i += known ? 1 : 0;
    }
    return result;
}

class CSampleLines {
public:
    explicit CSampleLines(const Table& table) : m_Table(table) {}

    void Add(const SampleRecord& record) {
        const RecordShape shape = ShapeFor(record.key);
        std::vector<std::string> lines = {FirstLine(shape, record)};
        for (std::size_t i = 0; i < record.groups.size(); ++i) {
            AddEntries(shape, shape.groups.at(i), record.groups[i], lines);
        }
        for (const std::string& line : lines) {
            m_Lines.push_back({line.substr(0, kRecordLength), IsNumbered(record.key)});
        }
    }

    void AddUnknown(std::string text) {
        text.resize(kRecordLength, ' ');
        m_Lines.push_back({text, false});
    }

    const std::vector<Line>& Lines() const { return m_Lines; }

private:
    RecordShape ShapeFor(std::string_view key) const {
        const Section* section = m_Table.Find(key);
        if (section == nullptr) {
            throw std::runtime_error("the table has no section for " + std::string(key));
        }
        return ShapeOf(*section);
    }

    static std::string FirstLine(const RecordShape& shape, const SampleRecord& record) {
        std::string line = NewLine(shape);
        for (const Item* item : shape.headerItems) {
            if (item->Offset() == kCalculationNumberOffset && item->length == kCalculationNumberLength) {
                PutValue(line, *item, "1");
            }
        }
        for (const SampleValue& value : record.values) {
            const Item* item = shape.section->Find(value.item);
            if (item == nullptr) {
                throw std::runtime_error("the table has no item " + std::to_string(value.item));
            }
            PutValue(line, *item, ToCodePage850(value.value));
        }
        return line;
    }

    static void AddEntries(const RecordShape& shape, const EntryGroup& group, const SampleEntries& entries,
                           std::vector<std::string>& lines) {
        const std::size_t perLine = group.offsets.size();
        for (std::size_t i = 0; i < entries.count; ++i) {
            if (i / perLine == lines.size()) {
                lines.push_back(ContinuationLine(shape, lines.front()));
            }
            const std::string entry = ToCodePage850(entries.texts[i % entries.texts.size()]);
            PutEntry(lines[i / perLine], group, group.offsets[i % perLine], entry);
        }
    }

    const Table& m_Table;
    std::vector<Line> m_Lines;
};

std::vector<Line> LinesOf(const Table& table, const std::vector<SampleRecord>& contents) {
    CSampleLines lines(table);
    for (const SampleRecord& record : contents) {
        lines.Add(record);
    }
    return lines.Lines();
}

// Known records with unknown ones before, between and behind them.
std::vector<Line> MixedLines(const Table& table) {
    const std::vector<std::string> unknown = {
        "QQ0001 first line of a type that no table describes",
        "XT0001 99 a sub-type that does not exist",
        "QQ0001 second line of the same unknown type",
        "A10001 letter and digit",
        "WT0001 01 a sub-type below the known ones",
        "xx0001 small letters are a type of their own",
        "XT0001 99 the same missing sub-type again",
        "?!\"%&/ )=",
        "K101_01 looks like a calculation record",
    };
    CSampleLines lines(table);
    std::size_t next = 0;
    for (const SampleRecord& record : MixedContents()) {
        lines.AddUnknown(unknown[next++]);
        lines.Add(record);
    }
    lines.AddUnknown(unknown[next]);
    return lines.Lines();
}

void WriteLine(CRecordWriter& writer, const Line& line) {
    if (line.numbered) {
        writer.WriteNumbered(line.text);
    } else {
        writer.WriteAsItIs(line.text);
    }
}

void WriteFile(const std::string& fileName, const std::vector<Line>& lines, LineEnd lineEnd) {
    CRecordWriter writer(fileName, lineEnd);
    for (const Line& line : lines) {
        WriteLine(writer, line);
    }
    writer.Finish();
}

// Every second line loses its trailing blanks, so whole and short lines take turns.
void WriteVariableLength(const std::string& fileName, std::vector<Line> lines) {
    for (std::size_t i = 1; i < lines.size(); i += 2) {
        std::string& text = lines[i].text;
        text.erase(text.find_last_not_of(' ') + 1);
    }
    WriteFile(fileName, lines, LineEnd::kLf);
}

// A copy that broke off in the middle of a record.
void WriteDamaged(const std::string& fileName, const std::string& wholeFile) {
    std::filesystem::copy_file(wholeFile, fileName, std::filesystem::copy_options::overwrite_existing);
    std::filesystem::resize_file(fileName, kDamagedWholeLines * kCrLfLineLength + kDamagedLastLength);
}

} // namespace

void WriteSampleFiles(const Table& table, const std::string& folder) {
    const std::string prefix = folder + "/";
    const std::vector<Line> calculation = LinesOf(table, CalculationContents());
    WriteFile(prefix + "all-types.rec", calculation, LineEnd::kCrLf);
    WriteFile(prefix + "all-types-unseparated.rec", calculation, LineEnd::kNone);
    WriteVariableLength(prefix + "v-records.txt", LinesOf(table, DamageReportContents()));
    WriteFile(prefix + "umlauts-cp850.rec", LinesOf(table, UmlautContents()), LineEnd::kCrLf);
    WriteFile(prefix + "unknown-types.rec", MixedLines(table), LineEnd::kCrLf);
    WriteDamaged(prefix + "damaged.rec", prefix + "all-types.rec");
}

} // namespace tabvex::generate
