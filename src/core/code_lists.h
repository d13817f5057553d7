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

static_assert(kListTypes[static_cast<std::size_t>(EListType::X4)] == "X4" &&
              kListTypes[static_cast<std::size_t>(EListType::G9)] == "G9");

std::optional<EListType> ListTypeOf(std::string_view type);

/// The lists of every type, each filled when it is first asked for, as few callers ask for any.
class CCodeLists {
public:
    CLayoutCodes& Of(EListType type, const CTableImage& image);
    /// The same for somebody who keeps them: from now on they are filled whenever a table is loaded. They are empty
    /// when there is no memory to fill them, and are filled when they are asked for again.
    CLayoutCodes& HandOut(EListType type, const CTableImage& image) noexcept;
    /// What is still to fill the lists of a type; null once they were asked for.
    CFillCodes GetPendingFill(EListType type) const { return At(type).Fill; }
    /// To be called when the table file has changed: the lists of the type are to be filled anew.
    void Refill(EListType type, CFillCodes fill, const CTableImage& image);

private:
    struct CTypeLists {
        CLayoutCodes Codes;
        CFillCodes Fill = nullptr; // not null: still to be called
        bool HandedOut = false;
    };

    CTypeLists& At(EListType type) { return m_Types[static_cast<std::size_t>(type)]; }
    const CTypeLists& At(EListType type) const { return m_Types[static_cast<std::size_t>(type)]; }

    std::array<CTypeLists, kListTypes.size()> m_Types;
};

} // namespace tabvex
