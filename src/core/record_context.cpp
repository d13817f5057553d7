#include "core/record_context.h"

#include <optional>

namespace tabvex {

// "X4" takes codes in its newer form only.
const CLayoutCodes& CRecordContext::LayoutCodesOf(std::string_view key) {
    static const CLayoutCodes kNoCodes;
    const std::optional<EListType> type = ListTypeOf(key);
    return type.has_value() && (type != EListType::X4 || X4NewForm) ? CodesOf(*type) : kNoCodes;
}

const std::shared_ptr<const CLayout>& CRecordContext::LayoutOf(int type) {
    std::shared_ptr<const CLayout>& layout = Layouts[static_cast<std::size_t>(type)];
    const std::string_view key = RecordTypeRow(type).Key;
    const CLayoutCodes& codes = LayoutCodesOf(key);
    if (layout == nullptr || !layout->IsMadeWith(codes)) {
        layout = std::make_shared<CLayout>(Table.GetImage(), key, codes);
    }
    return layout;
}

} // namespace tabvex
