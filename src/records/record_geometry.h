// Where the entries of each record type lie: one row per entry group.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "core/record_context.h"
#include "core/record_types.h"

namespace tabvex {

/// Which class holds the entries of a type.
enum class EVariant : std::uint8_t {
    Plain,     ///< entries to step through, read and write
    Searching, ///< and to search
    Dynamic,   ///< and to step back, read and write as one text
    TwoGroups, ///< two groups side by side, each with a cursor of its own
    LongLine,  ///< one line of 640 characters
};

/// What NextEntry answers when it leaves the last line.
enum class EGroupEnd : std::uint8_t {
    Behind,       ///< 0; the next call finds no more
    BehindNoMore, ///< no more at once
    Parked,       ///< no more; the cursor goes back to the last line, to the park offset
    Rewound,      ///< no more; the cursor goes back to the line's first entry; other lines are not stepped to
};

/// Whether the entry's items are those listed, or all from the first one listed to the second.
enum class EItems : std::uint8_t { Listed, Span };

inline constexpr int kFromLayout = -1; ///< offset that depends on the layout
inline constexpr int kNoLimit = 0;

struct CGroupFlags {
    bool EmptySpanFails;   ///< FirstEntry answers when the layout gives the entry no length
    int BlankEnds;         ///< an entry whose first so many characters are blank ends the group; 0: none does
    bool ForeignItemsFail; ///< reading an item that is neither a header item nor one of the entry
    bool OthersAreHeader;  ///< every item outside the entry is a header item
};

struct CGroupRow {
    std::string_view Type;
    EVariant Variant;
    EItems ItemsKind;
    std::array<int, 4> Items; ///< the first is the group key item
    int FirstOffset;          ///< of the first entry in a line; kFromLayout: where the layout places the key item
    int LastOffset;           ///< at which an entry may begin; kFromLayout: 127 - entry length
    EGroupEnd End;
    int ParkOffset;
    CGroupFlags Flags;
    int WriteLimit;    ///< entries are written while the offset is below it; kNoLimit: while they begin and fit
    int DynWriteLimit; ///< the same for dynamic writes
    int LastLineEnd;   ///< stepping back over a line start goes to this offset less the entry length
    int ExtraItem;     ///< another item that is read from the entry
    std::array<int, 8> HeaderItems;
};

// clang-format off
inline constexpr int kWholeEntry = 4096; // longer than any
inline constexpr CGroupFlags kNoFlags     = {false, 0,           false, false};
inline constexpr CGroupFlags kSpanFails   = {true,  0,           false, false};
inline constexpr CGroupFlags kBlankSpan   = {true,  kWholeEntry, false, false};
inline constexpr CGroupFlags kBlank       = {false, 76,          false, false};
inline constexpr CGroupFlags kForeign     = {false, 0,           true,  false};
inline constexpr CGroupFlags kForeignSpan = {true,  0,           true,  false};
inline constexpr CGroupFlags kAllHeader   = {false, 0,           false, true};

inline constexpr std::array<CGroupRow, 35> kGroupRows = {{
//   type, variant,  items,                             first offset, last offset, end,        park, flags, write limit, dynamic limit, last line end, extra item, header items
    {"FZ",     EVariant::LongLine,  EItems::Span,   {200195, 200205},                       260,         500, EGroupEnd::Rewound,        0, kAllHeader,     0,   0,   0,     0, {}},
    {"G0",     EVariant::Dynamic,   EItems::Listed, {12325, 12330},                          21,         118, EGroupEnd::Behind,         0, kNoFlags,       0, 119, 119,     0, {12300, 12305, 12310, 12315, 12320, 12345, 12350, 12355}},
    {"G1",     EVariant::Plain,     EItems::Listed, {12015, 12020},                           7,         126, EGroupEnd::Behind,         0, kNoFlags,      89,   0,   0,     0, {12000, 12005, 12010}},
    {"G4",     EVariant::Plain,     EItems::Listed, {14150, 14200, 14250, 14300},             7,         126, EGroupEnd::Behind,         0, kNoFlags,       0,   0,   0,     0, {14000, 14050, 14100}},
    {"G5",     EVariant::Plain,     EItems::Listed, {15150},                                  7,         126, EGroupEnd::Behind,         0, kNoFlags,       0,   0,   0,     0, {15000, 15050, 15100}},
    {"G6",     EVariant::Plain,     EItems::Span,   {17015, 17110},                           7,          86, EGroupEnd::Parked,        87, kBlank,         0,   0,   0,     0, {17000, 17005, 17010}},
    {"G7",     EVariant::Plain,     EItems::Span,   {18215, 18220},                           7,         126, EGroupEnd::Parked,       127, kNoFlags,       0,   0,   0,     0, {18200, 18205}},
    {"G8",     EVariant::Plain,     EItems::Span,   {12215, 12220},                           7,         121, EGroupEnd::Behind,         0, kSpanFails,     0,   0,   0,     0, {12200, 12205, 12210}},
    {"GD",     EVariant::Plain,     EItems::Span,   {19315, 19500},                 kFromLayout, kFromLayout, EGroupEnd::Behind,         0, kBlankSpan,     0,   0,   0,     0, {19300, 19305, 19310}},
    {"GE",     EVariant::Plain,     EItems::Span,   {19615, 19635},                           7, kFromLayout, EGroupEnd::Behind,         0, kSpanFails,     0,   0,   0,     0, {19600, 19605, 19610}},
    {"GI",     EVariant::Plain,     EItems::Span,   {19704, 19721},                           7, kFromLayout, EGroupEnd::Behind,         0, kSpanFails,     0,   0,   0,     0, {19701, 19702, 19703}},
    {"V1",     EVariant::Plain,     EItems::Listed, {21035},                                 27,          73, EGroupEnd::Behind,         0, kForeign,       0,   0,   0,     0, {21005, 21010, 21015, 21020, 21025, 21030}},
    {"V2",     EVariant::Plain,     EItems::Listed, {22020},                                 12,          70, EGroupEnd::Behind,         0, kForeign,       0,   0,   0,     0, {22005, 22010, 22015}},
    {"V3",     EVariant::Plain,     EItems::Listed, {23030},                                 26,          73, EGroupEnd::Behind,         0, kForeign,       0,   0,   0,     0, {23005, 23010, 23015, 23020, 23025}},
    {"W2N",    EVariant::Plain,     EItems::Listed, {2620, 2625},                             7,         126, EGroupEnd::Behind,         0, kNoFlags,       0,   0,   0,     0, {2600, 2605, 2610}},
    {"W2",     EVariant::Plain,     EItems::Listed, {2520, 2525},                             7,         126, EGroupEnd::Behind,         0, kNoFlags,       0,   0,   0,     0, {2500, 2505, 2510}},
    {"W3",     EVariant::Plain,     EItems::Listed, {3540},                                  63,         122, EGroupEnd::Behind,         0, kNoFlags,       0,   0,   0,     0, {3500, 3505, 3510, 3515, 3520, 3525, 3530, 3545}},
    {"W4",     EVariant::Searching, EItems::Span,   {4515, 4560},                             7,         122, EGroupEnd::Behind,         0, kForeign,       0,   0,   0,     0, {}},
    {"W6",     EVariant::Plain,     EItems::Span,   {6515, 6560},                             7, kFromLayout, EGroupEnd::Behind,         0, kSpanFails,     0,   0,   0,     0, {6500, 6505, 6510}},
    {"W7",     EVariant::TwoGroups, EItems::Listed, {7515},                                   7,          82, EGroupEnd::Behind,         0, kNoFlags,       0,   0,   0,     0, {7500, 7505, 7510, 7545}},
    {"W7",     EVariant::TwoGroups, EItems::Span,   {7525, 7530},                            83,         126, EGroupEnd::Behind,         0, kNoFlags,       0,   0,   0,     0, {7500, 7505, 7510, 7545}},
    {"W9",     EVariant::Plain,     EItems::Span,   {9520, 9525},                            10,         112, EGroupEnd::Behind,         0, kSpanFails,     0,   0,   0,     0, {9500, 9505, 9510, 9515, 9530, 9535}},
    {"X0",     EVariant::Plain,     EItems::Span,   {30020, 30025},                           7,         121, EGroupEnd::Behind,         0, kNoFlags,       0,   0,   0,     0, {}},
    {"X2N",    EVariant::Dynamic,   EItems::Listed, {2120, 2125},                             7,         122, EGroupEnd::BehindNoMore,   0, kNoFlags,       0, 123, 121,     0, {2100, 2105, 2110}},
    {"X2",     EVariant::Dynamic,   EItems::Listed, {2020, 2025},                             7,         125, EGroupEnd::Behind,         0, kNoFlags,       0, 126, 126,     0, {2000, 2005, 2010}},
    {"X3",     EVariant::Plain,     EItems::Listed, {3040},                                  63,         122, EGroupEnd::Behind,         0, kNoFlags,       0,   0,   0,     0, {3000, 3005, 3010, 3015, 3020, 3025, 3030, 3045}},
    {"X6",     EVariant::Plain,     EItems::Span,   {6015, 6060},                             7, kFromLayout, EGroupEnd::Behind,         0, kBlankSpan,     0,   0,   0,     0, {6000, 6005, 6010}},
    {"X7",     EVariant::TwoGroups, EItems::Listed, {7015},                                   7,          82, EGroupEnd::Behind,         0, kNoFlags,       0,   0,   0,     0, {7000, 7005, 7010, 7045}},
    {"X7",     EVariant::TwoGroups, EItems::Span,   {7025, 7030},                            83,         126, EGroupEnd::Behind,         0, kNoFlags,       0,   0,   0,     0, {7000, 7005, 7010, 7045}},
    {"X9_NEU", EVariant::Plain,     EItems::Span,   {9420, 9425},                            10,         113, EGroupEnd::Behind,         0, kSpanFails,     0,   0,   0,     0, {9400, 9405, 9410, 9430, 9435, 9440}},
    {"X9",     EVariant::Plain,     EItems::Span,   {9020, 9025},                            10,         119, EGroupEnd::Behind,         0, kSpanFails,     0,   0,   0,     0, {9000, 9005, 9010, 9015, 9035}},
    {"Z0",     EVariant::Plain,     EItems::Span,   {16704, 16711},                           8,         126, EGroupEnd::Behind,         0, kNoFlags,     126,   0,   0,     0, {16700, 16701, 16702, 16712}},
    {"Z2",     EVariant::Plain,     EItems::Span,   {16315, 16320},                           7,         117, EGroupEnd::Behind,         0, kForeignSpan,   0,   0,   0, 16330, {16300, 16305, 16310}},
    {"Z4",     EVariant::Plain,     EItems::Span,   {16603, 16616},                           7,         105, EGroupEnd::Behind,         0, kSpanFails,     0,   0,   0,     0, {16600, 16601, 16602}},
    {"Z9",     EVariant::Plain,     EItems::Span,   {18035, 18095},                          11,         127, EGroupEnd::Behind,         0, kForeignSpan,   0,   0,   0,     0, {}},
}};
// clang-format on

/// The rows of a type, which stand together; none for types without an entry group of this kind.
struct CGroupRows {
    const CGroupRow* Begin;
    int Count;
};

constexpr CGroupRows GroupRowsOf(std::string_view type) {
    CGroupRows rows = {nullptr, 0};
    for (const CGroupRow& row : kGroupRows) {
        if (row.Type == type) {
            rows.Begin = rows.Count == 0 ? &row : rows.Begin;
            ++rows.Count;
        }
    }
    return rows;
}

/// True for an item that is read from the entries of the group.
constexpr bool IsItemOf(const CGroupRow& row, int item) {
    if (row.ItemsKind == EItems::Span) {
        return (item >= row.Items[0] && item <= row.Items[1]) || (row.ExtraItem != 0 && item == row.ExtraItem);
    }
    for (const int listed : row.Items) {
        if (listed != 0 && listed == item) {
            return true;
        }
    }
    return false;
}

constexpr bool GroupRowsAreSound() {
    for (const CGroupRow& row : kGroupRows) {
        const int length = row.Variant == EVariant::LongLine ? kLongLineLength : kLineLength;
        const int type = RecordTypeOf(row.Type);
        const int expected = row.Variant == EVariant::TwoGroups ? 2 : 1;
        if (type == kNoRecordType || RecordTypeRow(type).Class != ERecordClass::Own || row.FirstOffset < kFromLayout ||
            row.FirstOffset >= length || row.LastOffset >= length || row.ParkOffset >= length ||
            GroupRowsOf(row.Type).Count != expected || GroupRowsOf(row.Type).Begin[expected - 1].Type != row.Type) {
            return false;
        }
    }
    return true;
}

static_assert(GroupRowsAreSound());

} // namespace tabvex
