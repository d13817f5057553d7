// The record set together with what it holds, for the members of CAllRecords.
#pragma once

#include "core/guard.h"
#include "core/record_set_state.h"
#include "tabvex/all_records.h"

/// Runs an operation that needs a loaded table; nothing thrown leaves it.
template <typename Operation>
int CAllRecords::WithTable(Operation operation) {
    return tabvex::Guarded([&]() -> int { return m_pState->TableLoaded ? operation() : TABVEX_NO_TABLE; });
}
