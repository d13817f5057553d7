#include "random_records.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>

#include "line_builder.h"
#include "random_values.h"

namespace tabvex::generate {
namespace {

constexpr std::uint64_t kLongestRun = 6; // lines of one type that follow one another
constexpr unsigned kBlankPercent = 6;
constexpr unsigned kMutationPercent = 50;
constexpr unsigned kMaxMutations = 3;
constexpr std::size_t kMarkerOffset = 6;
constexpr std::size_t kSubTypeOffset = 7;

// Not chosen unless asked for: FZ grows beyond a file's lines, and every X8 line is a record of its own.
constexpr std::string_view kOnlyWhenAsked[] = {"FZ", "X8"};
// A line of this type reads back as W2, so no file can hold it.
constexpr std::string_view kNotInFiles = "W2N";

constexpr std::string_view kUnknownStarts[] = {"QQ0001 ", "XT0001 99", "WT0001 01", "A10001 ", "ZX0001 ", "xx0001 "};

bool IsFamily(std::string_view type) {
    return type == "XT" || type == "WT";
}

// The record type, its sub-type, the marker and the mark of a new form are not random.
bool IsFixed(const RecordShape& shape, const Item& item) {
    const bool subType = item.Offset() == kSubTypeOffset && IsFamily(shape.section->LineType());
    return item.Offset() == 0 || item.Offset() == kMarkerOffset || subType || &item == shape.mark;
}

// Makes the lines of one record type: the first with a random header, the others continuing it.
class CTypeMaker {
public:
    explicit CTypeMaker(const Section& section) : m_Shape(ShapeOf(section)) {
        for (const Item* item : m_Shape.headerItems) {
            if (!IsFixed(m_Shape, *item)) {
                m_Header.emplace_back(*item);
            }
        }
        for (const EntryGroup& group : m_Shape.groups) {
            m_Groups.push_back(MakersOf(group));
        }
    }

    bool Numbered() const { return IsNumbered(m_Shape.section->key); }

    // The next line; it stays valid until the next call.
    std::string_view Next(CRandom& random) {
        if (m_strFirst.empty() || m_Shape.groups.empty()) {
            m_strFirst = NewLine(m_Shape);
            PutHeader(random);
            m_strLine = m_strFirst;
        } else {
            m_strLine = ContinuationLine(m_Shape, m_strFirst);
        }
        for (std::size_t i = 0; i < m_Groups.size(); ++i) {
            PutEntries(random, m_Shape.groups[i], m_Groups[i]);
        }
        return std::string_view(m_strLine).substr(0, kRecordLength);
    }

private:
    using Entry = std::vector<CValueMaker>;

    static std::vector<Entry> MakersOf(const EntryGroup& group) {
        std::vector<Entry> makers;
        for (const auto& items : group.alternatives) {
            Entry& entry = makers.emplace_back();
            for (const Item* item : items) {
                entry.emplace_back(*item);
            }
        }
        return makers;
    }

    void PutHeader(CRandom& random) {
        for (const CValueMaker& maker : m_Header) {
            if (!random.InPercent(kBlankPercent)) {
                maker.Put(random, m_strFirst.data() + maker.GetItem().Offset());
            }
        }
    }

    void PutEntries(CRandom& random, const EntryGroup& group, const std::vector<Entry>& makers) {
        unsigned mutations = kMaxMutations; // a line begins with an entry, not with its mutations
        for (const std::size_t offset : group.offsets) {
            const bool mutation = makers.size() > 1 && mutations < kMaxMutations && random.InPercent(kMutationPercent);
            mutations = mutation ? mutations + 1 : 0;
            const Entry& entry = mutation ? makers[1 + random.Below(makers.size() - 1)] : makers.front();
            PutEntry(random, entry, offset - group.FirstOffset());
        }
    }

    void PutEntry(CRandom& random, const Entry& entry, std::size_t shift) {
        for (const CValueMaker& maker : entry) {
            const bool blank = &maker != &entry.front() && random.InPercent(kBlankPercent);
            if (!blank) {
                maker.Put(random, m_strLine.data() + maker.GetItem().Offset() + shift);
            }
        }
    }

    RecordShape m_Shape;
    std::vector<CValueMaker> m_Header;
    std::vector<std::vector<Entry>> m_Groups;
    std::string m_strFirst;
    std::string m_strLine;
};

bool SuitsEveryFile(const Section& section) {
    const auto& excluded = kOnlyWhenAsked;
    return section.key != kNotInFiles && section.key.front() != 'K' &&
           std::find(std::begin(excluded), std::end(excluded), section.key) == std::end(excluded);
}

const Section& SectionOf(const Table& table, const std::string& key) {
    const Section* section = table.Find(key);
    if (section == nullptr) {
        throw std::runtime_error("the table has no type " + key);
    }
    if (key == kNotInFiles) {
        throw std::runtime_error("a file cannot hold lines of type " + key);
    }
    return *section;
}

std::vector<CTypeMaker> MakersOf(const Table& table, const std::vector<std::string>& types) {
    std::vector<CTypeMaker> makers;
    makers.reserve(types.size() + table.sections.size());
    for (const std::string& type : types) {
        makers.emplace_back(SectionOf(table, type));
    }
    for (const Section& section : table.sections) {
        if (types.empty() && SuitsEveryFile(section)) {
            makers.emplace_back(section);
        }
    }
    if (makers.empty()) {
        throw std::runtime_error("no record type to write");
    }
    return makers;
}

std::string UnknownLine(CRandom& random) {
    std::string line(kUnknownStarts[random.Below(std::size(kUnknownStarts))]);
    line += ' ';
    line += RandomText(random, kRecordLength - line.size(), false);
    line.resize(kRecordLength, ' ');
    return line;
}

} // namespace

void WriteRandomFile(const Table& table, const RandomFileOptions& options) {
    std::vector<CTypeMaker> makers = MakersOf(table, options.types);
    CRandom random(options.seed);
    CRecordWriter writer(options.fileName, options.lineEnd);
    CTypeMaker* current = nullptr;
    std::uint64_t left = 0;
    for (std::uint64_t i = 0; i < options.records; ++i) {
        if (random.InPercent(options.unknownPercent)) {
            writer.WriteAsItIs(UnknownLine(random));
            continue;
        }
        if (left == 0) {
            current = &makers[random.Below(makers.size())];
            left = 1 + random.Below(kLongestRun);
        }
        --left;
        const std::string_view line = current->Next(random);
        current->Numbered() ? writer.WriteNumbered(line) : writer.WriteAsItIs(line);
    }
    writer.Finish();
}

} // namespace tabvex::generate
