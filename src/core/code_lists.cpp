#include "core/code_lists.h"

#include <algorithm>
#include <utility>

namespace tabvex {

std::optional<EListType> ListTypeOf(std::string_view type) {
    const auto* const found = std::find(kListTypes.begin(), kListTypes.end(), type);
    if (found == kListTypes.end()) {
        return std::nullopt;
    }
    return static_cast<EListType>(found - kListTypes.begin());
}

CLayoutCodes& CCodeLists::Of(EListType type, const CTableImage& image) {
    CTypeLists& lists = At(type);
    if (lists.Fill != nullptr) {
        CLayoutCodes filled;
        lists.Fill(image, filled);
        lists.Codes = std::move(filled);
        lists.Fill = nullptr;
    }
    return lists.Codes;
}

CLayoutCodes& CCodeLists::HandOut(EListType type, const CTableImage& image) noexcept {
    CTypeLists& lists = At(type);
    lists.HandedOut = true;
    try {
        return Of(type, image);
    } catch (...) {
        lists.Codes = {};
        return lists.Codes;
    }
}

void CCodeLists::Refill(EListType type, CFillCodes fill, const CTableImage& image) {
    CTypeLists& lists = At(type);
    lists.Fill = fill;
    if (lists.HandedOut) {
        Of(type, image);
    }
}

} // namespace tabvex
