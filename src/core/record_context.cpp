#include "core/record_context.h"

#include <utility>

namespace tabvex {

const std::shared_ptr<const CLayout>& CRecordContext::LayoutOf(int type) {
    std::shared_ptr<const CLayout>& layout = Layouts[static_cast<std::size_t>(type)];
    const std::string_view key = RecordTypeRow(type).Key;
    CLayoutCodes codes = LayoutCodesOf(key, Lists, X4NewForm);
    if (layout == nullptr || !layout->IsMadeWith(codes)) {
        layout = std::make_shared<CLayout>(Table.GetImage(), key, std::move(codes));
    }
    return layout;
}

} // namespace tabvex
