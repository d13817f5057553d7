#include "core/record_context.h"

namespace tabvex {

const std::shared_ptr<const CLayout>& CRecordContext::LayoutOf(int type) {
    std::shared_ptr<const CLayout>& layout = Layouts[static_cast<std::size_t>(type)];
    if (layout == nullptr) {
        const std::string_view key = RecordTypeRow(type).Key;
        layout = std::make_shared<CLayout>(Table.GetImage(), key, LayoutCodesOf(key, Lists, X4NewForm));
    }
    return layout;
}

} // namespace tabvex
