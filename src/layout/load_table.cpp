#include <memory>
#include <utility>

#include "core/all_records.h"

int CAllRecords::LoadTable(const char* fileName, int versionMajor, int versionMinor) {
    return tabvex::Guarded([&]() -> int {
        tabvex::CRecordContext& context = m_pState->Context;
        const std::shared_ptr<const tabvex::CTableImage> imageBefore = context.Table.GetImage();
        tabvex::CCodeLists listsBefore = context.Lists;
        const int result = context.Table.Open(fileName);
        if (result != TABVEX_OK) {
            return result;
        }
        try {
            FillCodeLists();
        } catch (...) {
            context.Table.SetImage(imageBefore);
            context.Lists = std::move(listsBefore);
            throw;
        }
        context.ForgetLayouts();
        // A table of another version is kept, and items stay refused only while no table of the right one was loaded.
        const tabvex::CTableHeader& header = context.Table.GetHeader();
        const bool wanted = versionMajor == header.VersionMajor && versionMinor == header.VersionMinor;
        m_pState->RangesKnown = true;
        m_pState->TableLoaded = m_pState->TableLoaded || wanted;
        return wanted ? TABVEX_OK : TABVEX_TABLE_WRONG_VERSION;
    });
}

bool CAllRecords::IsTableLoaded() const {
    return m_pState->TableLoaded;
}

int CAllRecords::SumItemLengths(const char* type, int lowest, int highest) {
    return tabvex::Guarded([&]() -> int {
        if (type == nullptr) {
            return TABVEX_BAD_ARGUMENT;
        }
        const int index = tabvex::RecordTypeOf(type);
        if (index != tabvex::kNoRecordType) {
            return m_pState->Context.LayoutOf(index)->SumLengths(lowest, highest);
        }
        return tabvex::CLayout(m_pState->Context.Table.GetImage(), type).SumLengths(lowest, highest);
    });
}
