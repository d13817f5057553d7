// Parses format descriptors, one function for each component.
#pragma once

#include <string_view>

#include "tabvex/item_def.h"

namespace tabvex {

/// Parses one descriptor into one item definition: construct, Parse, done. The contract is that of
/// CItemDef::ParseFormat.
class CDescriptorParser {
public:
    CDescriptorParser(std::string_view descriptor, CItemDef& item) : m_strRest(descriptor), m_Item(item) {}

    /// TABVEX_OK, or the number of the first component that is wrong.
    int Parse();

private:
    struct CComponent;

    bool AtEndOfComponent() const;
    bool Skip(char c);
    bool IsAllowed(std::string_view value) const;
    bool AreAllowedBounds(std::string_view lower, std::string_view upper) const;

    bool ParseComponent(const CComponent& component);
    bool ReadFormat();
    bool ReadDefault();
    bool ReadFill();
    bool ReadModifiers();
    bool ReadModifierLetters();
    bool ReadDigitCounts();
    bool ReadRanges();
    bool ReadRange();
    bool ReadValues();
    bool ReadValue();
    bool ReadDatePattern();

    std::string_view m_strRest; // what is still to be read
    CItemDef& m_Item;
};

} // namespace tabvex
