// The repair-method and mutation lists of a record set.
#pragma once

#include <string_view>

#include "layout/layout.h"
#include "tabvex/arrays.h"

namespace tabvex {

struct CCodeLists {
    CStringArray X4RepairMethods;
    CStringArray W4RepairMethods;
    CStringArray X6RepairMethods;
    CStringArray W6RepairMethods;
    CStringArray G9RepairMethods;
    CStringArray X4Mutations;
    CStringArray W4Mutations;
    CStringArray G9Mutations;
    CUIntArray X4MutationKinds; ///< kind i belongs to mutation i, unless a list given by a caller was out of step
    CUIntArray W4MutationKinds;
    CUIntArray G9MutationKinds;
};

/// The lists that a type's layout takes its value lists from; none for most types, and for "X4" in its old form.
CLayoutCodes LayoutCodesOf(std::string_view type, const CCodeLists& lists, bool x4NewForm);

} // namespace tabvex
