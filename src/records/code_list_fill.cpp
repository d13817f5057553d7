// Filling the code lists: from the table file, from callers' texts, with defaults.

#include <array>
#include <optional>
#include <utility>

#include "core/all_records.h"
#include "layout/add_to.h"
#include "layout/ascii.h"
#include "layout/descriptor_parser.h"
#include "layout/number_text.h"
#include "records/default_codes.h"

using tabvex::CLayoutCodes;
using tabvex::CTableImage;
using tabvex::EListType;

namespace {

constexpr unsigned kTableKind = 0;       // codes of the numeric mutation item
constexpr unsigned kSecondTableKind = 4; // codes of the two-part mutation item: numeric all the same, kept on purpose
constexpr int kNoValues = -1;
constexpr std::size_t kLineSize = 500; // columns are cut there

// Appends the value list of an item: the number of its values, kNoValues when section, line or a good descriptor is
// missing.
int AppendValues(const CTableImage& image, const char* type, int item, CStringArray& values) {
    tabvex::CSectionCursor cursor(image);
    for (int length = cursor.FindSection(type); length > 0; length = cursor.NextLine()) {
        std::string_view column;
        if (cursor.GetColumn(0, column) < 0 || tabvex::LeadingInteger(column) != item) {
            continue;
        }
        CItemDef definition;
        definition.Length = cursor.GetColumn(1, column) < 0 ? 0 : tabvex::LeadingInteger(column);
        if (cursor.GetColumn(3, column) < 0) {
            return kNoValues;
        }
        const std::string descriptor(column.substr(0, kLineSize));
        if (tabvex::CDescriptorParser(descriptor.c_str(), definition).Parse() != TABVEX_OK) {
            return kNoValues;
        }
        for (std::string& value : definition.Values) {
            tabvex::AddTo(values, std::move(value));
        }
        return static_cast<int>(definition.Values.size());
    }
    return kNoValues;
}

template <std::size_t Count>
void AddAll(const std::array<const char*, Count>& codes, CStringArray& list) {
    for (const char* code : codes) {
        tabvex::AddTo(list, code);
    }
}

template <std::size_t Count>
void AddAll(const std::array<tabvex::CMutationCode, Count>& mutations, CLayoutCodes& lists) {
    for (const tabvex::CMutationCode& mutation : mutations) {
        tabvex::AddTo(lists.Codes, mutation.Code);
        tabvex::AddTo(lists.Kinds, mutation.Kind);
    }
}

void AppendMutations(const CTableImage& image, const char* type, int item, unsigned kind, CLayoutCodes& lists) {
    AppendValues(image, type, item, lists.Codes);
    while (lists.Kinds.GetSize() < lists.Codes.GetSize()) {
        tabvex::AddTo(lists.Kinds, kind);
    }
}

// The two mutation items of "X4" and "G9".
void FillMutations(const CTableImage& image, const char* type, int numericItem, int twoPartItem, CLayoutCodes& lists) {
    lists.Codes.RemoveAll();
    lists.Kinds.RemoveAll();
    AppendMutations(image, type, numericItem, kTableKind, lists);
    AppendMutations(image, type, twoPartItem, kSecondTableKind, lists);
    if (lists.Codes.GetSize() == 0) {
        AddAll(tabvex::kMutationsC, lists);
    }
}

template <std::size_t Count>
void FillRepairMethods(const CTableImage& image, const char* type, int item,
                       const std::array<const char*, Count>& defaults, CStringArray& list) {
    list.RemoveAll();
    if (AppendValues(image, type, item, list) < 1) {
        AddAll(defaults, list);
    }
}

void FillX4(const CTableImage& image, CLayoutCodes& lists) {
    FillRepairMethods(image, "X4", 4025, tabvex::kRepairMethodsA, lists.All);
    FillMutations(image, "X4", 4055, 4070, lists);
}

void FillW4(const CTableImage& image, CLayoutCodes& lists) {
    lists.All.RemoveAll();
    // Only a reading that succeeds without values is replaced; a failed one leaves the list empty: kept on purpose.
    if (AppendValues(image, "W4", 4515, lists.All) == 0) {
        AddAll(tabvex::kRepairMethodsA, lists.All);
    }
    lists.Codes.RemoveAll();
    lists.Kinds.RemoveAll();
    AppendMutations(image, "W4", 4555, kTableKind, lists);
    if (lists.Codes.GetSize() == 0) {
        AddAll(tabvex::kMutationsD, lists);
    }
}

void FillX6(const CTableImage& image, CLayoutCodes& lists) {
    FillRepairMethods(image, "X6", 6015, tabvex::kRepairMethodsB, lists.All);
}

void FillW6(const CTableImage& image, CLayoutCodes& lists) {
    FillRepairMethods(image, "W6", 6515, tabvex::kRepairMethodsB, lists.All);
}

void FillG9RepairMethods(const CTableImage& image, CLayoutCodes& lists) {
    FillRepairMethods(image, "G9", 19225, tabvex::kRepairMethodsA, lists.All);
}

void FillG9Mutations(const CTableImage& image, CLayoutCodes& lists) {
    FillMutations(image, "G9", 19255, 19270, lists);
}

void FillG9(const CTableImage& image, CLayoutCodes& lists) {
    FillG9RepairMethods(image, lists);
    FillG9Mutations(image, lists);
}

// Calls `take(number, part)` for every part of a text between delimiters; parts are numbered from 1.
template <typename Take>
void SplitList(std::string_view list, char delimiter, Take take) {
    for (int number = 1;; ++number) {
        const std::size_t end = list.find(delimiter);
        take(number, list.substr(0, end));
        if (end == std::string_view::npos) {
            return;
        }
        list.remove_prefix(end + 1);
    }
}

void UpperCaseInPlace(char* text) {
    for (; *text != '\0'; ++text) {
        *text = tabvex::UpperCase(*text);
    }
}

} // namespace

void CAllRecords::FillCodeLists() {
    tabvex::CRecordContext& context = m_pState->Context;
    const CTableImage& image = *context.Table.GetImage();
    context.Lists.Refill(EListType::X4, FillX4, image);
    context.Lists.Refill(EListType::W4, FillW4, image);
    context.Lists.Refill(EListType::X6, FillX6, image);
    context.Lists.Refill(EListType::W6, FillW6, image);
}

void CAllRecordsEx::FillCodeLists() {
    CAllRecords::FillCodeLists();
    m_pState->Context.Lists.Refill(EListType::G9, FillG9, *m_pState->Context.Table.GetImage());
}

void CAllRecordsEx::ReadRepArtAndMutList() {
    tabvex::Guarded([this]() -> int {
        FillCodeLists();
        return TABVEX_OK;
    });
}

void CAllRecordsEx::ReadG9RepArtList() {
    tabvex::Guarded([this]() -> int {
        CLayoutCodes filled;
        FillG9RepairMethods(*m_pState->Context.Table.GetImage(), filled);
        m_pState->Context.CodesOf(EListType::G9).All = std::move(filled.All);
        return TABVEX_OK;
    });
}

void CAllRecordsEx::ReadG9MutList() {
    tabvex::Guarded([this]() -> int {
        CLayoutCodes filled;
        FillG9Mutations(*m_pState->Context.Table.GetImage(), filled);
        CLayoutCodes& lists = m_pState->Context.CodesOf(EListType::G9);
        lists.Codes = std::move(filled.Codes);
        lists.Kinds = std::move(filled.Kinds);
        return TABVEX_OK;
    });
}

void CAllRecords::SetRepairMethodList(char* type, const char* list) {
    if (type == nullptr || list == nullptr) {
        return;
    }
    UpperCaseInPlace(type);
    tabvex::Guarded([&]() -> int {
        const std::optional<EListType> listType = tabvex::ListTypeOf(type);
        if (!listType.has_value() || listType == EListType::G9) {
            return TABVEX_OK;
        }
        CStringArray parts;
        SplitList(list, m_pState->Context.Delimiter, [&parts](int, std::string_view part) {
            if (!part.empty()) {
                tabvex::AddTo(parts, std::string(part));
            }
        });
        m_pState->Context.CodesOf(*listType).All = std::move(parts);
        return TABVEX_OK;
    });
}

bool CAllRecords::HasMutationList(std::string_view type) const {
    return type == "X4" || type == "W4";
}

bool CAllRecordsEx::HasMutationList(std::string_view type) const {
    return type == "G9" || CAllRecords::HasMutationList(type);
}

void CAllRecords::SetMutationList(char* type, const char* list) {
    if (type == nullptr || list == nullptr) {
        return;
    }
    UpperCaseInPlace(type);
    tabvex::Guarded([&]() -> int {
        ReplaceMutationList(type, list);
        return TABVEX_OK;
    });
}

void CAllRecordsEx::SetMutationList(const char* type, const char* list) {
    if (type == nullptr || list == nullptr) {
        return;
    }
    tabvex::Guarded([&]() -> int {
        std::string copy = type;
        CAllRecords::SetMutationList(copy.data(), list);
        return TABVEX_OK;
    });
}

void CAllRecords::ReplaceMutationList(const std::string& type, const char* list) {
    if (!HasMutationList(type)) {
        return;
    }
    CStringArray codes;
    CUIntArray kinds;
    SplitList(list, m_pState->Context.Delimiter, [&](int number, std::string_view part) {
        if (number % 2 == 0) {
            tabvex::AddTo(kinds, static_cast<unsigned>(tabvex::LeadingInteger(part)));
        } else if (!part.empty()) {
            tabvex::AddTo(codes, std::string(part));
        }
    });
    CLayoutCodes& lists = m_pState->Context.CodesOf(*tabvex::ListTypeOf(type));
    lists.Codes = std::move(codes);
    lists.Kinds = std::move(kinds);
}

CStringArray* CAllRecords::GetX4RepArtList() {
    return &m_pState->Context.HandOutCodes(EListType::X4).All;
}

CStringArray* CAllRecords::GetW4RepArtList() {
    return &m_pState->Context.HandOutCodes(EListType::W4).All;
}

CStringArray* CAllRecords::GetX6RepArtList() {
    return &m_pState->Context.HandOutCodes(EListType::X6).All;
}

CStringArray* CAllRecords::GetW6RepArtList() {
    return &m_pState->Context.HandOutCodes(EListType::W6).All;
}

CStringArray* CAllRecords::GetX4MutationList() {
    return &m_pState->Context.HandOutCodes(EListType::X4).Codes;
}

CStringArray* CAllRecords::GetW4MutationList() {
    return &m_pState->Context.HandOutCodes(EListType::W4).Codes;
}

CUIntArray* CAllRecords::GetX4MutationKinds() {
    return &m_pState->Context.HandOutCodes(EListType::X4).Kinds;
}

CUIntArray* CAllRecords::GetW4MutationKinds() {
    return &m_pState->Context.HandOutCodes(EListType::W4).Kinds;
}

CStringArray* CAllRecordsEx::GetG9RepArtList() {
    return &m_pState->Context.HandOutCodes(EListType::G9).All;
}

CStringArray* CAllRecordsEx::GetG9MutationList() {
    return &m_pState->Context.HandOutCodes(EListType::G9).Codes;
}

CUIntArray* CAllRecordsEx::GetG9MutationKinds() {
    return &m_pState->Context.HandOutCodes(EListType::G9).Kinds;
}
