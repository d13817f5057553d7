// Filling the code lists: from the table file, from callers' texts, with defaults.

#include <array>
#include <cstdlib>

#include "core/all_records.h"
#include "layout/ascii.h"
#include "layout/number_text.h"
#include "records/default_codes.h"

using tabvex::CCodeLists;

namespace {

constexpr unsigned kTableKind = 0;       // codes of the numeric mutation item
constexpr unsigned kSecondTableKind = 4; // codes of the two-part mutation item: numeric all the same, kept on purpose
constexpr int kNoValues = -1;
constexpr std::size_t kLineSize = 500; // columns are cut there

// Appends the value list of an item: the number of its values, kNoValues when section, line or a good descriptor is
// missing.
int AppendValues(const tabvex::CTableImage& image, const char* type, int item, CStringArray& values) {
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
        if (definition.ParseFormat(std::string(column.substr(0, kLineSize)).c_str()) != TABVEX_OK) {
            return kNoValues;
        }
        for (const std::string& value : definition.Values) {
            values.Add(value);
        }
        return static_cast<int>(definition.Values.size());
    }
    return kNoValues;
}

template <std::size_t Count>
void AddAll(const std::array<const char*, Count>& codes, CStringArray& list) {
    for (const char* code : codes) {
        list.Add(code);
    }
}

template <std::size_t Count>
void AddAll(const std::array<tabvex::CMutationCode, Count>& mutations, CStringArray& codes, CUIntArray& kinds) {
    for (const tabvex::CMutationCode& mutation : mutations) {
        codes.Add(mutation.Code);
        kinds.Add(mutation.Kind);
    }
}

void AppendMutations(const tabvex::CTableImage& image, const char* type, int item, unsigned kind, CStringArray& codes,
                     CUIntArray& kinds) {
    AppendValues(image, type, item, codes);
    while (kinds.GetSize() < codes.GetSize()) {
        kinds.Add(kind);
    }
}

// The two mutation items of "X4" and "G9".
void FillMutations(const tabvex::CTableImage& image, const char* type, int numericItem, int twoPartItem,
                   CStringArray& codes, CUIntArray& kinds) {
    codes.RemoveAll();
    kinds.RemoveAll();
    AppendMutations(image, type, numericItem, kTableKind, codes, kinds);
    AppendMutations(image, type, twoPartItem, kSecondTableKind, codes, kinds);
    if (codes.GetSize() == 0) {
        AddAll(tabvex::kMutationsC, codes, kinds);
    }
}

template <std::size_t Count>
void FillRepairMethods(const tabvex::CTableImage& image, const char* type, int item,
                       const std::array<const char*, Count>& defaults, CStringArray& list) {
    list.RemoveAll();
    if (AppendValues(image, type, item, list) < 1) {
        AddAll(defaults, list);
    }
}

void FillW4Lists(const tabvex::CTableImage& image, CCodeLists& lists) {
    lists.W4RepairMethods.RemoveAll();
    // Only a reading that succeeds without values is replaced; a failed one leaves the list empty: kept on purpose.
    if (AppendValues(image, "W4", 4515, lists.W4RepairMethods) == 0) {
        AddAll(tabvex::kRepairMethodsA, lists.W4RepairMethods);
    }
    lists.W4Mutations.RemoveAll();
    lists.W4MutationKinds.RemoveAll();
    AppendMutations(image, "W4", 4555, kTableKind, lists.W4Mutations, lists.W4MutationKinds);
    if (lists.W4Mutations.GetSize() == 0) {
        AddAll(tabvex::kMutationsD, lists.W4Mutations, lists.W4MutationKinds);
    }
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

CStringArray* RepairMethodsOf(CCodeLists& lists, std::string_view type) {
    if (type == "X4") {
        return &lists.X4RepairMethods;
    }
    if (type == "W4") {
        return &lists.W4RepairMethods;
    }
    if (type == "X6") {
        return &lists.X6RepairMethods;
    }
    return type == "W6" ? &lists.W6RepairMethods : nullptr;
}

} // namespace

void CAllRecords::FillCodeLists() {
    CCodeLists& lists = m_pState->Context.Lists;
    const tabvex::CTableImage& image = *m_pState->Context.Table.GetImage();
    FillRepairMethods(image, "X4", 4025, tabvex::kRepairMethodsA, lists.X4RepairMethods);
    FillW4Lists(image, lists);
    FillRepairMethods(image, "X6", 6015, tabvex::kRepairMethodsB, lists.X6RepairMethods);
    FillRepairMethods(image, "W6", 6515, tabvex::kRepairMethodsB, lists.W6RepairMethods);
    FillMutations(image, "X4", 4055, 4070, lists.X4Mutations, lists.X4MutationKinds);
}

void CAllRecordsEx::FillCodeLists() {
    ReadRepArtAndMutList();
}

void CAllRecordsEx::ReadRepArtAndMutList() {
    CAllRecords::FillCodeLists();
    ReadG9RepArtList();
    ReadG9MutList();
}

void CAllRecordsEx::ReadG9RepArtList() {
    FillRepairMethods(*m_pState->Context.Table.GetImage(), "G9", 19225, tabvex::kRepairMethodsA,
                      m_pState->Context.Lists.G9RepairMethods);
}

void CAllRecordsEx::ReadG9MutList() {
    CCodeLists& lists = m_pState->Context.Lists;
    FillMutations(*m_pState->Context.Table.GetImage(), "G9", 19255, 19270, lists.G9Mutations, lists.G9MutationKinds);
}

void CAllRecords::SetRepairMethodList(char* type, const char* list) {
    if (type == nullptr || list == nullptr) {
        return;
    }
    UpperCaseInPlace(type);
    CStringArray* methods = RepairMethodsOf(m_pState->Context.Lists, type);
    if (methods == nullptr) {
        return;
    }
    tabvex::Guarded([&]() -> int {
        CStringArray parts;
        SplitList(list, m_pState->Context.Delimiter, [&parts](int, std::string_view part) {
            if (!part.empty()) {
                parts.Add(std::string(part));
            }
        });
        *methods = std::move(parts);
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
            kinds.Add(static_cast<unsigned>(tabvex::LeadingInteger(part)));
        } else if (!part.empty()) {
            codes.Add(std::string(part));
        }
    });
    CCodeLists& lists = m_pState->Context.Lists;
    CStringArray& targetCodes = type == "X4" ? lists.X4Mutations : type == "W4" ? lists.W4Mutations : lists.G9Mutations;
    CUIntArray& targetKinds = type == "X4"   ? lists.X4MutationKinds
                              : type == "W4" ? lists.W4MutationKinds
                                             : lists.G9MutationKinds;
    targetCodes = std::move(codes);
    targetKinds = std::move(kinds);
}

CStringArray* CAllRecords::GetX4RepArtList() {
    return &m_pState->Context.Lists.X4RepairMethods;
}

CStringArray* CAllRecords::GetW4RepArtList() {
    return &m_pState->Context.Lists.W4RepairMethods;
}

CStringArray* CAllRecords::GetX6RepArtList() {
    return &m_pState->Context.Lists.X6RepairMethods;
}

CStringArray* CAllRecords::GetW6RepArtList() {
    return &m_pState->Context.Lists.W6RepairMethods;
}

CStringArray* CAllRecords::GetX4MutationList() {
    return &m_pState->Context.Lists.X4Mutations;
}

CStringArray* CAllRecords::GetW4MutationList() {
    return &m_pState->Context.Lists.W4Mutations;
}

CUIntArray* CAllRecords::GetX4MutationKinds() {
    return &m_pState->Context.Lists.X4MutationKinds;
}

CUIntArray* CAllRecords::GetW4MutationKinds() {
    return &m_pState->Context.Lists.W4MutationKinds;
}

CStringArray* CAllRecordsEx::GetG9RepArtList() {
    return &m_pState->Context.Lists.G9RepairMethods;
}

CStringArray* CAllRecordsEx::GetG9MutationList() {
    return &m_pState->Context.Lists.G9Mutations;
}

CUIntArray* CAllRecordsEx::GetG9MutationKinds() {
    return &m_pState->Context.Lists.G9MutationKinds;
}
