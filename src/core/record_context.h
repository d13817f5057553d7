// What the record objects of a record set share.
#pragma once

#include <array>
#include <memory>
#include <string>

#include "core/code_lists.h"
#include "core/line_pool.h"
#include "core/record_types.h"
#include "layout/layout.h"
#include "layout/table_file.h"
#include "platform/code_pages.h"

namespace tabvex {

/// Room behind a line's characters: CR LF and a NUL.
inline constexpr int kLineRoom = 3;
inline constexpr int kLineLength = 128;
inline constexpr int kLongLineLength = 640; // "FZ"

/// Lines in a block of memory: 2 to this power.
inline constexpr unsigned kLinesShift = 8;
inline constexpr unsigned kLongLinesShift = 3;

struct CRecordContext {
    CLinePool Lines{kLineLength + kLineRoom, kLinesShift};
    CLinePool LongLines{kLongLineLength + kLineRoom, kLongLinesShift};
    CTableFile Table;
    std::array<std::shared_ptr<const CLayout>, kRecordTypeCount> Layouts; // by record type; filled on demand
    CCodeLists Lists;
    bool X4NewForm = false; ///< "X4" records are created in the form with parsed mutations
    char Delimiter = '/';
    bool IsOem = true; ///< item texts pass through the code page conversion
    CCodePages CodePages;
    std::string FieldText; // work space of writes, kept for its capacity
    std::string ValueText;
    std::string EntryText;

    CLinePool& PoolOf(int lineLength) { return lineLength == kLineLength ? Lines : LongLines; }
    /// The layout of a record type, from the table file and lists that are loaded now.
    const std::shared_ptr<const CLayout>& LayoutOf(int type);
    /// The code lists of a type.
    CLayoutCodes& CodesOf(EListType type) { return Lists.Of(type, *Table.GetImage()); }
    /// The same for a caller, who may keep them.
    CLayoutCodes& HandOutCodes(EListType type) noexcept { return Lists.HandOut(type, *Table.GetImage()); }
    /// To be called when the table file has changed.
    void ForgetLayouts() { Layouts.fill(nullptr); }

private:
    template <typename Codes>
    const std::shared_ptr<const CLayout>& LayoutMadeWith(const Codes& codes, std::string_view key,
                                                         std::shared_ptr<const CLayout>& layout) const;
};

} // namespace tabvex
