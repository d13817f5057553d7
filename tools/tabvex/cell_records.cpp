#include "cell_records.h"

#include <algorithm>
#include <array>

#include "text_layout.h"

namespace tabvex::tool {

namespace {

constexpr int kFirstOffset = 7;
constexpr int kCellLength = 15;
constexpr int kCellsInLine = 8;
constexpr std::size_t kCodeLength = 3;

enum EKind : std::size_t { kPosition, kAmount, kTexts, kSplitValue, kKindCount };

constexpr std::array<const char*, kKindCount> kKindNames = {"position", "mutation", "mutation", "mutation"};

// Kinds of the library's mutation lists; all others carry an amount.
constexpr unsigned kTextsNumber = 3;
constexpr unsigned kSplitValueNumber = 7;

struct CCellType {
    std::string_view Type;
    std::array<int, kKindCount + 1> FirstItems; // of each kind, then the one behind the last
};

// clang-format off
constexpr std::array<CCellType, 2> kCellTypes = {{
//   type, position, amount, texts, split value, end
    {"X4", { 4025,    4055,   4070,  4085,        4091}},
    {"G9", {19225,   19255,  19270, 19281,       19281}},
}};
// clang-format on

const CCellType* FindCellType(std::string_view type) {
    const auto* const row = std::find_if(kCellTypes.begin(), kCellTypes.end(),
                                         [type](const CCellType& cells) { return cells.Type == type; });
    return row == kCellTypes.end() ? nullptr : row;
}

bool Holds(const CStringArray& codes, const std::string& code) {
    return std::find(codes.begin(), codes.end(), code) != codes.end();
}

} // namespace

bool CCellLayout::IsCellType(std::string_view type) {
    return FindCellType(type) != nullptr;
}

int CCellLayout::KindOfItem(std::string_view type, int item) {
    const CCellType* cells = FindCellType(type);
    for (std::size_t kind = 0; cells != nullptr && kind < kKindCount; ++kind) {
        if (item >= cells->FirstItems[kind] && item < cells->FirstItems[kind + 1]) {
            return static_cast<int>(kind);
        }
    }
    return -1;
}

CCellLayout::CCellLayout(const CTableSection& section, CAllRecordsEx& records)
    : m_Repairs(section.Type == "G9" ? *records.GetG9RepArtList() : *records.GetX4RepArtList()),
      m_Mutations(section.Type == "G9" ? *records.GetG9MutationList() : *records.GetX4MutationList()),
      m_MutationKinds(section.Type == "G9" ? *records.GetG9MutationKinds() : *records.GetX4MutationKinds()) {
    m_Kinds.reserve(kKindNames.size());
    for (const char* name : kKindNames) {
        m_Kinds.push_back({name, {}});
    }
    for (const CTableItem& item : section.Items) {
        const int kind = KindOfItem(section.Type, item.Definition.Number);
        if (kind >= 0) {
            m_Kinds[static_cast<std::size_t>(kind)].Items.push_back(&item.Definition);
        }
    }
}

const std::vector<int>& CCellLayout::GetOffsets() {
    static const std::vector<int> offsets = [] {
        std::vector<int> result;
        result.reserve(kCellsInLine);
        for (int cell = 0; cell < kCellsInLine; ++cell) {
            result.push_back(kFirstOffset + cell * kCellLength);
        }
        return result;
    }();
    return offsets;
}

std::string_view CCellLayout::CutCell(std::string_view line, int offset) {
    const std::size_t begin = std::min(static_cast<std::size_t>(offset), line.size());
    return line.substr(begin, kCellLength);
}

// A code ends at the first blank in its second or third place.
const CCellKind* CCellLayout::FindKind(std::string_view cell) const {
    const std::string_view first = cell.substr(0, kCodeLength);
    const std::string code(first.substr(0, std::min(first.find(' ', 1), first.size())));
    return Holds(m_Repairs, code) ? &m_Kinds[kPosition] : FindMutationKind(code);
}

// What the table lists for a kind comes before the library's lists, which know no texts when they come from a table.
const CCellKind* CCellLayout::FindMutationKind(const std::string& code) const {
    for (const std::size_t kind : {kTexts, kSplitValue, kAmount}) {
        if (IsListed(kind, code)) {
            return &m_Kinds[kind];
        }
    }
    for (int i = 0; i < m_Mutations.GetSize(); ++i) {
        if (m_Mutations.GetAt(i) == code) {
            const unsigned kind = m_MutationKinds.GetAt(i);
            return &m_Kinds[kind == kTextsNumber ? kTexts : kind == kSplitValueNumber ? kSplitValue : kAmount];
        }
    }
    return nullptr;
}

bool CCellLayout::IsListed(std::size_t kind, const std::string& code) const {
    const std::vector<const CItemDef*>& items = m_Kinds[kind].Items;
    if (items.empty()) {
        return false;
    }
    const std::vector<std::string>& values = items.front()->Values;
    return std::find(values.begin(), values.end(), code) != values.end();
}

std::string_view CCellLayout::CutItem(std::string_view cell, const CItemDef& item) {
    const int offset = item.Position - 1 - kFirstOffset;
    if (offset < 0 || item.Length < 1 || static_cast<std::size_t>(offset) >= cell.size()) {
        return {};
    }
    return cell.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(item.Length));
}

} // namespace tabvex::tool
