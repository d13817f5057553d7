// The layout of one record type: its items, as the table file and the code lists describe them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "layout/section_cursor.h"
#include "layout/table_image.h"
#include "tabvex/arrays.h"
#include "tabvex/item_def.h"

namespace tabvex {

/// Code lists from which a layout takes the value lists of its repair-method and mutation items.
struct CLayoutCodes {
    CStringArray All;   ///< repair methods
    CStringArray Codes; ///< mutation codes
    CUIntArray Kinds;   ///< kind i belongs to code i
};

/// Fills the lists of one type from a table file.
using CFillCodes = void (*)(const CTableImage& image, CLayoutCodes& codes);

/// Shared by all record objects of a type that are created from the same table file and lists. It is parsed when it is
/// first looked at, and keeps the table file that it comes from.
class CLayout {
public:
    CLayout(std::shared_ptr<const CTableImage> image, std::string_view type, CLayoutCodes codes = {});
    /// The codes are taken from the table file when they are needed.
    CLayout(std::shared_ptr<const CTableImage> image, std::string_view type, CFillCodes fill);

    /// True when the layout takes its value lists from the same codes.
    bool IsMadeWith(const CLayoutCodes& codes) const;
    bool IsMadeWith(CFillCodes fill) const { return m_pFillCodes == fill; }
    /// TABVEX_OK; TABVEX_LAYOUT_BAD: no type, no section, an unreadable column, or a bad descriptor behind the first
    /// line; TABVEX_LAYOUT_BAD_FIRST: a bad descriptor on the first line. Items before the failure are in the layout.
    int GetResult() const { return Parsed().m_nResult; }
    const std::vector<CItemDef>& GetItems() const { return Parsed().m_Items; }
    /// The first item with this number, or null.
    const CItemDef* Find(int number) const;
    /// Sum of the lengths of the section's items numbered `lowest` to `highest`, whether the layout is good or not.
    int SumLengths(int lowest, int highest) const;
    /// Writes the items' default texts into a line of `lineLength` characters; what lies outside it is dropped. The
    /// number of items with a default, or the result of the column that could not be read.
    int FillDefaults(char* line, int lineLength) const;

private:
    static constexpr std::int32_t kNoItem = -1;

    struct CDefault {
        int Offset;
        int Length;
        std::string Text;
    };

    const CLayout& Parsed() const {
        if (!m_bParsed) {
            Mutable().Parse();
        }
        return *this;
    }
    CLayout& Mutable() const;
    const CLayoutCodes& Codes() const;
    void Parse();
    int ParseItems(CSectionCursor& cursor);
    int ParseItem(CSectionCursor& cursor, bool first);
    void IndexItems();
    void CollectLengths();
    int CollectDefaults();
    bool GenerateDescriptor(int number, std::string& descriptor) const;

    std::shared_ptr<const CTableImage> m_pImage;
    std::string m_strType;
    CLayoutCodes m_Codes;
    CFillCodes m_pFillCodes = nullptr;
    bool m_bCodesFilled = true;
    bool m_bParsed = false;
    int m_nResult = 0;
    std::vector<CItemDef> m_Items;
    int m_nLowestNumber = 0;              // of the type's range of item numbers
    std::vector<std::int32_t> m_ByNumber; // from there on: index in m_Items, kNoItem for numbers that are not used
    bool m_bLengthsCollected = false;
    std::vector<std::pair<int, int>> m_Lengths; // item number, length; of every line of the section
    bool m_bDefaultsCollected = false;
    std::vector<CDefault> m_Defaults;
    int m_nDefaultsResult = 0;
    bool m_bDefaultsComplete = false; // the section was read to its end
};

} // namespace tabvex
