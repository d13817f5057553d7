// The record set together with what it holds, for the members of CAllRecords.
#pragma once

#include "core/record_set_state.h"
#include "platform/guard.h"
#include "tabvex/all_records.h"

/// Runs an operation that needs a loaded table; nothing thrown leaves it, and record objects that it has added by then
/// are taken back.
template <typename Operation>
int CAllRecords::WithTable(Operation operation) {
    const std::size_t count = m_pState->Store.All().size();
    try {
        return m_pState->TableLoaded ? operation() : TABVEX_NO_TABLE;
    } catch (...) {
        RemoveRecordsFrom(count);
        return TABVEX_INTERNAL_FAILURE;
    }
}
