#include "layout/item_ranges.h"

#include <algorithm>
#include <cstdint>

namespace tabvex {

namespace {

using CRangeOrder = std::array<std::uint8_t, kItemNumberRanges.size()>;

// Indexes of the ranges by lowest item number, equal ones in table order.
constexpr CRangeOrder SortRanges() {
    CRangeOrder order = {};
    for (std::size_t i = 0; i < order.size(); ++i) {
        std::size_t place = i;
        for (; place > 0 && kItemNumberRanges[i].Lowest < kItemNumberRanges[order[place - 1]].Lowest; --place) {
            order[place] = order[place - 1];
        }
        order[place] = static_cast<std::uint8_t>(i);
    }
    return order;
}

constexpr CRangeOrder kByLowest = SortRanges();

// Ranges are the same or apart, so that the last one that begins at or below an item is the only one to look at.
constexpr bool RangesAreSameOrApart() {
    for (std::size_t i = 1; i < kByLowest.size(); ++i) {
        const CItemNumberRange& before = kItemNumberRanges[kByLowest[i - 1]];
        const CItemNumberRange& range = kItemNumberRanges[kByLowest[i]];
        const bool same =
            before.Lowest == range.Lowest && before.Highest == range.Highest && before.TypeKey == range.TypeKey;
        if (range.Lowest > range.Highest || !(same || before.Highest < range.Lowest)) {
            return false;
        }
    }
    return true;
}

static_assert(RangesAreSameOrApart());

} // namespace

int FindItemNumberRange(int item) {
    const auto* const behind =
        std::upper_bound(kByLowest.begin(), kByLowest.end(), item,
                         [](int number, std::uint8_t index) { return number < kItemNumberRanges[index].Lowest; });
    if (behind == kByLowest.begin()) {
        return -1;
    }
    const int index = *(behind - 1);
    return item <= kItemNumberRanges[static_cast<std::size_t>(index)].Highest ? index : -1;
}

} // namespace tabvex
