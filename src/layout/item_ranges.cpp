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

// Every item call looks for a range: item numbers are gathered in buckets, each of which names the first range, by
// lowest number, that reaches into it or lies behind it. Few ranges lie in one bucket.
constexpr int kBucketSize = 64;
constexpr int kHighestItem = kItemNumberRanges[kByLowest.back()].Highest;
constexpr std::size_t kBucketCount = kHighestItem / kBucketSize + 1;

constexpr std::array<std::uint8_t, kBucketCount> FillBuckets() {
    std::array<std::uint8_t, kBucketCount> buckets = {};
    std::uint8_t range = 0;
    for (std::size_t bucket = 0; bucket < kBucketCount; ++bucket) {
        while (kItemNumberRanges[kByLowest[range]].Highest < static_cast<int>(bucket) * kBucketSize) {
            ++range;
        }
        buckets[bucket] = range;
    }
    return buckets;
}

constexpr auto kBuckets = FillBuckets();

} // namespace

int FindItemNumberRange(int item) {
    if (item < 0 || item > kHighestItem) {
        return -1;
    }
    for (std::size_t i = kBuckets[static_cast<std::size_t>(item / kBucketSize)]; i < kByLowest.size(); ++i) {
        const CItemNumberRange& range = kItemNumberRanges[kByLowest[i]];
        if (item <= range.Highest) {
            return item >= range.Lowest ? kByLowest[i] : -1;
        }
    }
    return -1;
}

const CItemNumberRange* FindRangeOfType(std::string_view typeKey, int someItem) {
    const auto isOfType = [typeKey](const CItemNumberRange& range) { return TypeKeyOf(range) == typeKey; };
    const int likely = FindItemNumberRange(someItem);
    if (likely >= 0 && isOfType(kItemNumberRanges[static_cast<std::size_t>(likely)])) {
        return &kItemNumberRanges[static_cast<std::size_t>(likely)];
    }
    const auto* const found = std::find_if(kItemNumberRanges.begin(), kItemNumberRanges.end(), isOfType);
    return found == kItemNumberRanges.end() ? nullptr : found;
}

} // namespace tabvex
