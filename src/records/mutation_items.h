// The item numbers and cells of the two record types that carry mutations.
#pragma once

#include <array>
#include <string_view>

#include "core/code_lists.h"

namespace tabvex {

/// Behind its header a line is a row of cells: a repair position, or one mutation of the position before it.
inline constexpr int kCellLength = 15;
inline constexpr int kFirstCellOffset = 7;
inline constexpr int kCellsInLine = 8;
inline constexpr int kCellsEnd = kFirstCellOffset + kCellsInLine * kCellLength;
inline constexpr int kMostMutations = 3;

/// Where the parts of a cell begin in it; each is as long as its item.
inline constexpr std::array<int, 5> kPositionOffsets = {0, 3, 7, 11, 12};
inline constexpr int kCodeOffset = 0;
inline constexpr int kValueOffset = 3;
inline constexpr int kText1Offset = 3;
inline constexpr int kText2Offset = 5;

/// Kinds of mutation codes that are not numeric.
inline constexpr unsigned kTwoPartKind = 3;
inline constexpr unsigned kSplitValueKind = 7;

struct CMutationItems {
    std::string_view Type;
    std::array<int, 3> Header;
    std::array<int, 5> Position; ///< the first is the group key item
    std::array<int, 2> Numeric;  ///< code, value
    std::array<int, 3> TwoPart;  ///< code, text 1, text 2
    std::array<int, 2> Split;    ///< code, value
    int MutationSearch;          ///< a search by this item number looks for the code of a mutation
    EListType Lists;
};

// "G9" has no items of its own for split values: they are the numeric ones.
// clang-format off
inline constexpr std::array<CMutationItems, 2> kMutationItems = {{
//   type, header,                position,                            numeric,        two-part,              split,          search, lists
    {"X4", { 4000,  4005,  4010}, { 4025,  4030,  4035,  4040,  4045}, { 4055,  4060}, { 4070,  4075,  4080}, { 4085,  4090},  8055, EListType::X4},
    {"G9", {19200, 19205, 19210}, {19225, 19230, 19235, 19240, 19245}, {19255, 19260}, {19270, 19275, 19280}, {19255, 19260}, 38455, EListType::G9},
}};
// clang-format on

/// The items of a type, null for types without mutations.
constexpr const CMutationItems* MutationItemsOf(std::string_view type) {
    for (const CMutationItems& items : kMutationItems) {
        if (items.Type == type) {
            return &items;
        }
    }
    return nullptr;
}

/// The code that a cell begins with: 1 to 3 characters, ended by a blank in the second or third place.
constexpr std::string_view CodeOfCell(std::string_view cell) {
    const std::string_view code = cell.substr(kCodeOffset, 3);
    return code.substr(0, code.find(' ', 1));
}

} // namespace tabvex
