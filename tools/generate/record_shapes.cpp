#include "record_shapes.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace tabvex::generate {
namespace {

constexpr std::size_t kLineLength = 128;
constexpr int kByEntryLength = -1; // the last entry begins where it still ends before character 127
constexpr int kEndByEntryLength = 127;

struct EntrySpan {
    std::string_view key;
    int firstItem;
    int lastItem;
    int lastBegin; // the last 0-based offset at which an entry may begin
};

// FZ is missing on purpose: its entries lie behind character 128, which files do not carry.
// clang-format off
constexpr EntrySpan kEntrySpans[] = {
    // type, first item, last item, last begin
    {"G0",     12325, 12330, 118},
    {"G1",     12015, 12020, 126},
    {"G4",     14150, 14300, 126},
    {"G5",     15150, 15150, 126},
    {"G6",     17015, 17110,  86},
    {"G7",     18215, 18220, 126},
    {"G8",     12215, 12220, 121},
    {"G9",     19225, 19245, 112},
    {"GD",     19315, 19500, kByEntryLength},
    {"GE",     19615, 19635, kByEntryLength},
    {"GI",     19704, 19721, kByEntryLength},
    {"V1",     21035, 21035,  73},
    {"V2",     22020, 22020,  70},
    {"V3",     23030, 23030,  73},
    {"W2",      2520,  2525, 126},
    {"W2N",     2620,  2625, 126},
    {"W3",      3540,  3540, 122},
    {"W4",      4515,  4560, 122},
    {"W6",      6515,  6560, kByEntryLength},
    {"W7",      7515,  7515,  82},
    {"W7",      7525,  7530, 126},
    {"W9",      9520,  9525, 112},
    {"X0",     30020, 30025, 121},
    {"X2",      2020,  2025, 125},
    {"X2N",     2120,  2125, 122},
    {"X3",      3040,  3040, 122},
    {"X4",      4025,  4045, 112},
    {"X6",      6015,  6060, kByEntryLength},
    {"X7",      7015,  7015,  82},
    {"X7",      7025,  7030, 126},
    {"X9",      9020,  9025, 119},
    {"X9_NEU",  9420,  9425, 113},
    {"Z0",     16704, 16711, 126},
    {"Z2",     16315, 16320, 117},
    {"Z4",     16603, 16616, 105},
    {"Z9",     18035, 18095, 127},
};

// Mutations: other contents of the cells of a type.
struct CellContents { std::string_view key; int firstItem; int lastItem; };
constexpr CellContents kCellContents[] = {
    {"X4",  4055,  4060}, {"X4",  4070,  4080},
    {"G9", 19255, 19260}, {"G9", 19270, 19280},
};

struct Mark { std::string_view key; std::size_t offset; };
constexpr Mark kMarks[] = {{"X2N", 127}, {"X9_NEU", 122}};
// clang-format on

constexpr std::string_view kTypeOnlyContinuations[] = {"W3", "X3", "V1", "V2", "V3"};

std::vector<const Item*> ItemsBetween(const Section& section, int first, int last) {
    std::vector<const Item*> items;
    for (const Item& item : section.items) {
        if (item.number >= first && item.number <= last) {
            items.push_back(&item);
        }
    }
    if (items.empty()) {
        throw std::runtime_error(section.key + ": no item from " + std::to_string(first) + " to " +
                                 std::to_string(last));
    }
    return items;
}

EntryGroup GroupOf(const Section& section, const EntrySpan& span) {
    EntryGroup group;
    group.alternatives.push_back(ItemsBetween(section, span.firstItem, span.lastItem));
    for (const CellContents& contents : kCellContents) {
        if (contents.key == section.key) {
            group.alternatives.push_back(ItemsBetween(section, contents.firstItem, contents.lastItem));
        }
    }
    for (const Item* item : group.alternatives.front()) {
        group.entryLength += item->Width();
    }
    const std::size_t last = span.lastBegin == kByEntryLength ? kEndByEntryLength - group.entryLength
                                                              : static_cast<std::size_t>(span.lastBegin);
    std::size_t offset = group.alternatives.front().front()->Offset();
    for (; offset <= last; offset += group.entryLength) {
        group.offsets.push_back(offset);
    }
    if (group.offsets.empty() || group.offsets.back() + group.entryLength > kLineLength) {
        throw std::runtime_error(section.key + ": the entries do not fit the line");
    }
    return group;
}

bool LiesInEntry(const Item& item, const EntryGroup& group) {
    return item.Offset() >= group.FirstOffset() && item.Offset() < group.offsets.back() + group.entryLength;
}

std::size_t HeaderLengthOf(const RecordShape& shape) {
    const auto& keys = kTypeOnlyContinuations;
    const bool typeOnly = std::find(std::begin(keys), std::end(keys), shape.section->key) != std::end(keys);
    return typeOnly ? 2 : shape.groups.front().FirstOffset();
}

const Item* MarkOf(const Section& section) {
    for (const Mark& mark : kMarks) {
        if (mark.key == section.key) {
            for (const Item& item : section.items) {
                if (item.Offset() == mark.offset) {
                    return &item;
                }
            }
        }
    }
    return nullptr;
}

} // namespace

RecordShape ShapeOf(const Section& section) {
    RecordShape shape;
    shape.section = &section;
    shape.mark = MarkOf(section);
    for (const EntrySpan& span : kEntrySpans) {
        if (span.key == section.key) {
            shape.groups.push_back(GroupOf(section, span));
        }
    }
    for (const Item& item : section.items) {
        if (std::none_of(shape.groups.begin(), shape.groups.end(),
                         [&](const EntryGroup& group) { return LiesInEntry(item, group); })) {
            shape.headerItems.push_back(&item);
        }
    }
    if (!shape.groups.empty()) {
        shape.headerLength = HeaderLengthOf(shape);
    }
    return shape;
}

bool IsNumbered(std::string_view key) {
    return key != "T0" && key != "FZ" && key != "X8" && key.front() != 'K' && key.front() != 'M';
}

} // namespace tabvex::generate
