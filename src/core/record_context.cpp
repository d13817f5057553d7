#include "core/record_context.h"

#include <optional>

namespace tabvex {

const std::shared_ptr<const CLayout>& CRecordContext::LayoutOf(int type) {
    std::shared_ptr<const CLayout>& layout = Layouts[static_cast<std::size_t>(type)];
    const std::string_view key = RecordTypeRow(type).Key;
    const std::optional<EListType> listType = ListTypeOf(key);
    if (!listType.has_value() || (listType == EListType::X4 && !X4NewForm)) {
        return LayoutMadeWith(CLayoutCodes(), key, layout);
    }
    const CFillCodes pending = Lists.GetPendingFill(*listType);
    return pending != nullptr ? LayoutMadeWith(pending, key, layout) : LayoutMadeWith(CodesOf(*listType), key, layout);
}

template <typename Codes>
const std::shared_ptr<const CLayout>& CRecordContext::LayoutMadeWith(const Codes& codes, std::string_view key,
                                                                     std::shared_ptr<const CLayout>& layout) const {
    if (layout == nullptr || !layout->IsMadeWith(codes)) {
        layout = std::make_shared<CLayout>(Table.GetImage(), key, codes);
    }
    return layout;
}

} // namespace tabvex
