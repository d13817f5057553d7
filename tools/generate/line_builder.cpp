#include "line_builder.h"

#include <algorithm>
#include <stdexcept>

#include "field_text.h"

namespace tabvex::generate {
namespace {

std::vector<std::string_view> Parts(std::string_view entry) {
    std::vector<std::string_view> parts;
    while (true) {
        const std::size_t end = entry.find(kPartDelimiter);
        parts.push_back(entry.substr(0, end));
        if (end == std::string_view::npos) {
            return parts;
        }
        entry.remove_prefix(end + 1);
    }
}

const std::vector<const Item*>& ItemsFor(const EntryGroup& group, std::size_t parts) {
    for (const auto& items : group.alternatives) {
        if (items.size() == parts) {
            return items;
        }
    }
    throw std::invalid_argument("an entry of " + std::to_string(parts) + " parts");
}

} // namespace

std::string NewLine(const RecordShape& shape) {
    std::string line(kBuildLength, ' ');
    for (const Item* item : shape.headerItems) {
        std::copy(item->format.defaultText.begin(), item->format.defaultText.end(),
                  line.begin() + static_cast<std::ptrdiff_t>(item->Offset()));
    }
    return line;
}

std::string ContinuationLine(const RecordShape& shape, const std::string& firstLine) {
    std::string line = firstLine.substr(0, shape.headerLength);
    line.resize(kBuildLength, ' ');
    if (shape.mark != nullptr) {
        line[shape.mark->Offset()] = '1';
    }
    return line;
}

void PutValue(std::string& line, const Item& item, std::string_view value, std::size_t shift) {
    PlaceValue(item, value, line.data() + item.Offset() + shift);
}

void PutEntry(std::string& line, const EntryGroup& group, std::size_t offset, std::string_view entry) {
    const std::vector<std::string_view> parts = Parts(entry);
    const auto& items = ItemsFor(group, parts.size());
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (!parts[i].empty()) {
            PutValue(line, *items[i], parts[i], offset - group.FirstOffset());
        }
    }
}

} // namespace tabvex::generate
