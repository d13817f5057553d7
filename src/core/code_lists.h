// The repair-method and mutation lists of a record set.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "layout/layout.h"

namespace tabvex {

/// The types that have lists. "X6" and "W6" have repair methods only.
enum class EListType { X4, W4, X6, W6, G9 };
inline constexpr std::array<std::string_view, 5> kListTypes = {"X4", "W4", "X6", "W6", "G9"}; // by EListType

std::optional<EListType> ListTypeOf(std::string_view type);

/// The lists of every type, each filled when it is first asked for, as few callers ask for any.
class CCodeLists {
public:
    CLayoutCodes& Of(EListType type, const CTableImage& image);
    /// What is still to fill the lists of a type; null once they were asked for.
    CFillCodes GetPendingFill(EListType type) const { return m_Types[static_cast<std::size_t>(type)].Fill; }
    /// To be called when the table file has changed: the lists of the type are to be filled anew. They are at once when
    /// somebody may hold them.
    void Refill(EListType type, CFillCodes fill, const CTableImage& image);

private:
    struct CTypeLists {
        CLayoutCodes Codes;
        CFillCodes Fill = nullptr; // not null: still to be called
        bool Used = false;
    };
    std::array<CTypeLists, kListTypes.size()> m_Types;
};

} // namespace tabvex
