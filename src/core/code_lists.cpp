#include "core/code_lists.h"

#include <algorithm>
#include <array>

namespace tabvex {

namespace {

struct CListsOfType {
    std::string_view Type;
    CStringArray CCodeLists::*RepairMethods;
    CStringArray CCodeLists::*Mutations; // null: the layout takes no mutation codes
    CUIntArray CCodeLists::*Kinds;
};

// clang-format off
constexpr std::array<CListsOfType, 5> kListsOfTypes = {{
//   type, repair methods,               mutations,                kinds
    {"X4", &CCodeLists::X4RepairMethods, &CCodeLists::X4Mutations, &CCodeLists::X4MutationKinds},
    {"W4", &CCodeLists::W4RepairMethods, &CCodeLists::W4Mutations, &CCodeLists::W4MutationKinds},
    {"G9", &CCodeLists::G9RepairMethods, &CCodeLists::G9Mutations, &CCodeLists::G9MutationKinds},
    {"X6", &CCodeLists::X6RepairMethods, nullptr,                  nullptr},
    {"W6", &CCodeLists::W6RepairMethods, nullptr,                  nullptr},
}};
// clang-format on

} // namespace

CLayoutCodes LayoutCodesOf(std::string_view type, const CCodeLists& lists, bool x4NewForm) {
    const auto* const row = std::find_if(kListsOfTypes.begin(), kListsOfTypes.end(),
                                         [type](const CListsOfType& r) { return r.Type == type; });
    CLayoutCodes codes;
    if (row == kListsOfTypes.end() || (type == "X4" && !x4NewForm)) {
        return codes;
    }
    codes.All = lists.*row->RepairMethods;
    if (row->Mutations != nullptr) {
        codes.Codes = lists.*row->Mutations;
        codes.Kinds = lists.*row->Kinds;
    }
    return codes;
}

} // namespace tabvex
