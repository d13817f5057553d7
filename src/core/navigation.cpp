#include <algorithm>
#include <array>
#include <utility>

#include "core/all_records.h"

namespace {

// Searches whose item is none of the layout's: they look for a mutation with the code.
struct CFixedSearch {
    int Item;
    std::string_view Type;
};

constexpr std::array<CFixedSearch, 3> kFixedSearches = {{{8055, "X4"}, {9035, "W4"}, {38455, "G9"}}};

} // namespace

int CAllRecords::ReadFirst(int item) {
    return StepTo(item, &CRecord::FirstEntry);
}

int CAllRecords::ReadNext(int item) {
    return StepTo(item, &CRecord::NextEntry);
}

int CAllRecords::ReadPrev(int item) {
    return StepTo(item, &CRecord::PrevEntry);
}

int CAllRecords::ReadLast(int item) {
    return StepTo(item, &CRecord::ReadLast);
}

int CAllRecords::StepTo(int item, int (CRecord::*step)(int item)) {
    return WithTable([&]() -> int {
        CRecord* record = RecordOfItem(item);
        return record == nullptr ? TABVEX_NO_RECORD : (record->*step)(item);
    });
}

int CAllRecords::FindFirst(int item, const char* text) {
    return tabvex::Guarded([&]() -> int {
        const auto* const fixed = std::find_if(kFixedSearches.begin(), kFixedSearches.end(),
                                               [item](const CFixedSearch& search) { return search.Item == item; });
        const bool isFixed = fixed != kFixedSearches.end();
        const bool owned = m_pState->RangesKnown && tabvex::FindItemNumberRange(item) >= 0;
        if (text == nullptr || !(isFixed || owned)) {
            return TABVEX_FIND_NO_TYPE;
        }
        const int type = isFixed ? tabvex::FindRecordType(fixed->Type) : tabvex::RecordTypeOfItem(item);
        CRecord* record = m_pState->Store.Find(type);
        if (record == nullptr) {
            return TABVEX_FIND_NO_RECORD;
        }
        if (tabvex::IsListType(type)) {
            return TABVEX_FIND_LIST_TYPE;
        }
        tabvex::CFindState find = {false, item, record, text};
        const int result = record->FindFirst(item, find.Text);
        find.InProgress = result > 0;
        m_pState->Find = std::move(find);
        return result;
    });
}

int CAllRecords::FindNext() {
    return tabvex::Guarded([&]() -> int {
        tabvex::CFindState& find = m_pState->Find;
        if (!find.InProgress) {
            return TABVEX_FIND_NOT_STARTED;
        }
        const int result = find.Record->FindNext(find.Item, find.Text);
        if (result > 0) {
            return result;
        }
        find = {};
        return TABVEX_FIND_NOTHING;
    });
}
