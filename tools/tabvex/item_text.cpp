#include "item_text.h"

#include <array>

namespace tabvex::tool {

namespace {

constexpr int kLongestItem = 640; // no line is longer

} // namespace

std::string ReadItemText(CAllRecords& records, int item) {
    std::array<char, kLongestItem + 1> text = {};
    const int result = records.ReadItem(item, text.data(), static_cast<int>(text.size()));
    return result == TABVEX_OK || result == TABVEX_TEXT_CUT ? std::string(text.data()) : std::string();
}

std::string_view CutItem(std::string_view line, const CItemDef& item) {
    const auto begin = static_cast<std::size_t>(item.Position) - 1;
    if (item.Position < 1 || item.Length < 1 || begin >= line.size()) {
        return {};
    }
    return line.substr(begin, static_cast<std::size_t>(item.Length));
}

} // namespace tabvex::tool
