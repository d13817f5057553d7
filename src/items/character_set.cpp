#include <cstring>

#include "core/all_records.h"

void CAllRecordsEx::SetCharacterSet(const char* mode) {
    if (mode != nullptr) {
        m_pState->Context.IsOem = std::strcmp(mode, "OEM") == 0;
    }
}

int CAllRecordsEx::SetCodePages(int oem, int ansi) {
    return m_pState->Context.CodePages.Select(oem, ansi);
}

int CAllRecords::SetNewCharacterTable(const char* sequence) {
    return tabvex::Guarded([&]() -> int {
        return sequence == nullptr ? TABVEX_BAD_ARGUMENT : m_pState->CollatingTable.SetSequence(sequence);
    });
}
