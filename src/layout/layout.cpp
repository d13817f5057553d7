#include "layout/layout.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>
#include <cstring>

#include "layout/descriptor_parser.h"
#include "layout/item_ranges.h"
#include "layout/number_text.h"
#include "tabvex/result_codes.h"

namespace tabvex {

namespace {

constexpr std::size_t kUsualItems = 32;
constexpr std::size_t kColumnSize = 500; // longer columns are cut

enum EColumn { kNumberColumn, kLengthColumn, kPositionColumn, kDescriptorColumn };

// Reads a column as the item's line is read: cut, its full length returned.
int ReadColumn(CSectionCursor& cursor, int index, std::string_view& column) {
    column = {};
    const int length = cursor.GetColumn(index, column);
    column = column.substr(0, kColumnSize);
    return length;
}

int ReadNumber(CSectionCursor& cursor, int index, int& number) {
    std::string_view column;
    const int length = ReadColumn(cursor, index, column);
    number = LeadingInteger(column);
    return length;
}

// Items whose value list is made from code lists. All: every repair method; otherwise the mutation codes of the kinds.
struct CGeneratedItem {
    int Number;
    bool All;
    unsigned LowestKind;
    unsigned HighestKind;
};

// clang-format off
constexpr std::array<CGeneratedItem, 11> kGeneratedItems = {{
//   number, all,  lowest kind, highest kind
    { 4055, false, 1, 8},
    { 4070, false, 3, 3},
    { 4085, false, 7, 7},
    {19255, false, 1, 4},
    {19270, false, 3, 3},
    { 4555, false, 1, 8},
    { 4515, true,  0, 0},
    { 4025, true,  0, 0},
    {19225, true,  0, 0},
    { 6015, true,  0, 0},
    { 6515, true,  0, 0},
}};
// clang-format on

void AppendCode(std::string& list, const std::string& code) {
    list.append(list.empty() ? "\"" : ";\"").append(code).append("\"");
}

std::string SelectCodes(const CGeneratedItem& item, const CLayoutCodes& codes) {
    std::string list;
    const CStringArray& from = item.All ? codes.All : codes.Codes;
    for (int i = 0; i < from.GetSize(); ++i) {
        const unsigned kind = codes.Kinds.GetAt(i);
        if (item.All || (kind >= item.LowestKind && kind <= item.HighestKind)) {
            AppendCode(list, from.GetAt(i));
        }
    }
    return list;
}

// New records of these two types get nine empty counters behind their header.
constexpr std::array<std::string_view, 2> kCounterTypes = {"K110_01", "K110_02"};
constexpr int kCountersOffset = 18;
constexpr int kCounters = 9;
constexpr std::string_view kEmptyCounter = "  000000000+";

// By position, not by grammar: the default is what stands between the quote that is the descriptor's third character
// and the next one.
std::string_view DefaultOf(std::string_view descriptor) {
    constexpr std::size_t kShortest = 5;
    constexpr std::size_t kBegin = 3;
    constexpr std::size_t kLastIndex = 256;
    if (descriptor.size() < kShortest || descriptor[kBegin - 1] != '"') {
        return {};
    }
    const std::string_view text = descriptor.substr(kBegin, kLastIndex - kBegin + 1);
    return text.substr(0, text.find('"'));
}

void Put(char* line, int lineLength, int offset, std::string_view text) {
    if (offset >= 0 && offset < lineLength) {
        text.copy(line + offset, static_cast<std::size_t>(lineLength - offset));
    }
}

} // namespace

CLayout::CLayout(std::shared_ptr<const CTableImage> image, std::string_view type, CLayoutCodes codes)
    : m_pImage(std::move(image)), m_strType(type), m_Codes(std::move(codes)) {}

CLayout::CLayout(std::shared_ptr<const CTableImage> image, std::string_view type, CFillCodes fill)
    : m_pImage(std::move(image)), m_strType(type), m_pFillCodes(fill), m_bCodesFilled(false) {}

const CLayoutCodes& CLayout::Codes() const {
    if (!m_bCodesFilled) {
        CLayout& self = Mutable();
        m_pFillCodes(*m_pImage, self.m_Codes);
        self.m_bCodesFilled = true;
    }
    return m_Codes;
}

bool CLayout::IsMadeWith(const CLayoutCodes& codes) const {
    const auto same = [](const auto& a, const auto& b) { return std::equal(a.begin(), a.end(), b.begin(), b.end()); };
    const CLayoutCodes& own = Codes();
    return same(codes.All, own.All) && same(codes.Codes, own.Codes) && same(codes.Kinds, own.Kinds);
}

const CItemDef* CLayout::Find(int number) const {
    const auto& byNumber = Parsed().m_ByNumber;
    const auto place = static_cast<std::size_t>(static_cast<std::int64_t>(number) - m_nLowestNumber);
    if (place < byNumber.size()) {
        const std::int32_t index = byNumber[place];
        return index == kNoItem ? nullptr : &m_Items[static_cast<std::size_t>(index)];
    }
    // No item call asks for a number outside the type's range.
    const auto found =
        std::find_if(m_Items.begin(), m_Items.end(), [number](const CItemDef& item) { return item.Number == number; });
    return found == m_Items.end() ? nullptr : &*found;
}

int CLayout::SumLengths(int lowest, int highest) const {
    if (!m_bLengthsCollected) {
        Mutable().CollectLengths();
    }
    std::int64_t sum = 0;
    for (const auto& [number, length] : m_Lengths) {
        if (number >= lowest && number <= highest) {
            sum += length;
        }
    }
    return static_cast<int>(std::clamp<std::int64_t>(sum, INT_MIN, INT_MAX));
}

int CLayout::FillDefaults(char* line, int lineLength) const {
    if (!m_bDefaultsCollected) {
        CLayout& self = Mutable();
        self.m_nDefaultsResult = self.CollectDefaults();
        self.m_bDefaultsCollected = true;
    }
    for (const CDefault& item : m_Defaults) {
        // A default shorter than its item leaves NULs, not blanks, in the rest of it: kept on purpose.
        Put(line, lineLength, item.Offset, item.Text);
        if (item.Offset >= 0 && item.Offset < lineLength) {
            const int filled = std::min(static_cast<int>(item.Text.size()), lineLength - item.Offset);
            const int room = std::min(item.Length, lineLength - item.Offset);
            std::memset(line + item.Offset + filled, 0, static_cast<std::size_t>(room - filled));
        }
    }
    if (m_bDefaultsComplete &&
        std::find(kCounterTypes.begin(), kCounterTypes.end(), m_strType) != kCounterTypes.end()) {
        for (int i = 0; i < kCounters; ++i) {
            Put(line, lineLength, kCountersOffset + i * static_cast<int>(kEmptyCounter.size()), kEmptyCounter);
        }
    }
    return m_nDefaultsResult;
}

// What is worked out on first use is not seen from outside, so that it may happen through a constant layout.
CLayout& CLayout::Mutable() const {
    return const_cast<CLayout&>(*this); // NOLINT(cppcoreguidelines-pro-type-const-cast)
}

void CLayout::Parse() {
    m_Items.clear();
    CSectionCursor cursor(*m_pImage);
    m_nResult = ParseItems(cursor);
    IndexItems();
    m_bParsed = true;
}

int CLayout::ParseItems(CSectionCursor& cursor) {
    if (m_strType.empty() || cursor.FindSection("DATA_" + m_strType) < 1) {
        return TABVEX_LAYOUT_BAD;
    }
    m_Items.reserve(kUsualItems);
    int result = ParseItem(cursor, true);
    while (result == TABVEX_OK && cursor.NextLine() >= 1) {
        result = ParseItem(cursor, false);
    }
    return result;
}

// The first line may have an empty length or position, answers otherwise for a bad descriptor, and keeps its own value
// list: kept on purpose.
int CLayout::ParseItem(CSectionCursor& cursor, bool first) {
    CItemDef& item = m_Items.emplace_back();
    ReadNumber(cursor, kNumberColumn, item.Number);
    const int shortest = first ? 0 : 1;
    if (ReadNumber(cursor, kLengthColumn, item.Length) < shortest ||
        ReadNumber(cursor, kPositionColumn, item.Position) < shortest) {
        return TABVEX_LAYOUT_BAD;
    }
    std::string_view column;
    if (ReadColumn(cursor, kDescriptorColumn, column) < 0) {
        return TABVEX_LAYOUT_BAD;
    }
    std::string generated;
    if (!first && GenerateDescriptor(item.Number, generated)) {
        column = generated;
    }
    if (CDescriptorParser(column, item).Parse() != TABVEX_OK) {
        return first ? TABVEX_LAYOUT_BAD_FIRST : TABVEX_LAYOUT_BAD;
    }
    return TABVEX_OK;
}

void CLayout::IndexItems() {
    m_ByNumber.clear();
    const CItemNumberRange* const range = FindRangeOfType(m_strType, m_Items.empty() ? 0 : m_Items.front().Number);
    if (range != nullptr) {
        m_nLowestNumber = range->Lowest;
        m_ByNumber.assign(static_cast<std::size_t>(range->Highest - range->Lowest) + 1, kNoItem);
    }
    // Of items that occur twice the first one counts.
    for (std::size_t index = m_Items.size(); index-- > 0;) {
        const auto place = static_cast<std::size_t>(static_cast<std::int64_t>(m_Items[index].Number) - m_nLowestNumber);
        if (place < m_ByNumber.size()) {
            m_ByNumber[place] = static_cast<std::int32_t>(index);
        }
    }
}

void CLayout::CollectLengths() {
    m_Lengths.clear();
    CSectionCursor cursor(*m_pImage);
    for (int length = cursor.FindSection("DATA_" + m_strType); length > 0; length = cursor.NextLine()) {
        std::pair<int, int> item;
        ReadNumber(cursor, kNumberColumn, item.first);
        ReadNumber(cursor, kLengthColumn, item.second);
        m_Lengths.push_back(item);
    }
    m_bLengthsCollected = true;
}

int CLayout::CollectDefaults() {
    m_Defaults.clear();
    CSectionCursor cursor(*m_pImage);
    if (m_strType.empty()) {
        return 0;
    }
    for (int length = cursor.FindSection("DATA_" + m_strType); length > 0; length = cursor.NextLine()) {
        CDefault item = {};
        int position = 0;
        const int lengthResult = ReadNumber(cursor, kLengthColumn, item.Length);
        const int positionResult = ReadNumber(cursor, kPositionColumn, position);
        if (lengthResult < 0 || positionResult < 0) {
            return std::min(lengthResult, 0) != 0 ? lengthResult : positionResult;
        }
        std::string_view descriptor;
        if (ReadColumn(cursor, kDescriptorColumn, descriptor) < 0) {
            return 0;
        }
        item.Offset = position < 1 ? -1 : position - 1;
        item.Text = DefaultOf(descriptor).substr(0, static_cast<std::size_t>(std::max(item.Length, 0)));
        if (!item.Text.empty()) {
            m_Defaults.push_back(std::move(item));
        }
    }
    m_bDefaultsComplete = true;
    return static_cast<int>(m_Defaults.size());
}

bool CLayout::GenerateDescriptor(int number, std::string& descriptor) const {
    const auto* const item = std::find_if(kGeneratedItems.begin(), kGeneratedItems.end(),
                                          [number](const CGeneratedItem& row) { return row.Number == number; });
    if (item == kGeneratedItems.end()) {
        return false;
    }
    const std::string codes = SelectCodes(*item, Codes());
    if (codes.empty()) {
        return false; // the table's own descriptor stays
    }
    descriptor = "C,,,,,(" + codes + ")";
    return true;
}

} // namespace tabvex
