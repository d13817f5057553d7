#include "core/code_lists.h"

#include <algorithm>

namespace tabvex {

std::optional<EListType> ListTypeOf(std::string_view type) {
    const auto* const found = std::find(kListTypes.begin(), kListTypes.end(), type);
    if (found == kListTypes.end()) {
        return std::nullopt;
    }
    return static_cast<EListType>(found - kListTypes.begin());
}

CLayoutCodes& CCodeLists::Of(EListType type, const CTableImage& image) {
    CTypeLists& lists = m_Types[static_cast<std::size_t>(type)];
    lists.Used = true;
    if (lists.Fill != nullptr) {
        lists.Fill(image, lists.Codes);
        lists.Fill = nullptr;
    }
    return lists.Codes;
}

void CCodeLists::Refill(EListType type, CFillCodes fill, const CTableImage& image) {
    CTypeLists& lists = m_Types[static_cast<std::size_t>(type)];
    lists.Fill = fill;
    if (lists.Used) {
        Of(type, image);
    }
}

} // namespace tabvex
