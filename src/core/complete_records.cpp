#include <algorithm>
#include <array>
#include <cstring>

#include "core/all_records.h"

namespace {

constexpr int kSmallestBuffer = tabvex::kLineLength;
constexpr std::size_t kCompleteLineSize = tabvex::kLineLength + 1;

} // namespace

// Every name of a type finds its record object, "UNKNOWN" the first one of an unknown type.
CRecord* CAllRecords::ExistingRecordForKey(const char* key) {
    const int type = tabvex::FindRecordType(key);
    return type == tabvex::kNoRecordType ? ExistRecord(key) : m_pState->Store.Find(type);
}

int CAllRecords::GetFirstCompleteRecord(const char* type, char* buffer, int bufferSize) {
    return GetNextCompleteRecord(type, buffer, bufferSize, 1);
}

int CAllRecords::GetNextCompleteRecord(const char* type, char* buffer, int bufferSize, int lineNumber) {
    return tabvex::Guarded([&]() -> int {
        if (type == nullptr || buffer == nullptr) {
            return TABVEX_BAD_ARGUMENT;
        }
        CRecord* record = ExistRecord(type);
        if (record == nullptr) {
            return TABVEX_NO_RECORD;
        }
        record->PrepareWrite();
        if (record->GetLineCount() == 0) {
            return TABVEX_COMPLETE_NO_LINES;
        }
        if (bufferSize < kSmallestBuffer) {
            return TABVEX_COMPLETE_BUFFER_TOO_SMALL;
        }
        if (lineNumber < 1 || lineNumber > record->GetLineCount()) {
            return TABVEX_COMPLETE_NO_SUCH_LINE;
        }
        const std::string_view line = record->CutText(lineNumber - 1, 0, record->GetLineLength());
        const std::size_t count = std::min(line.size(), static_cast<std::size_t>(bufferSize));
        line.copy(buffer, count);
        if (count < static_cast<std::size_t>(bufferSize)) {
            buffer[count] = '\0';
        }
        if (m_pState->Context.IsOem) {
            m_pState->Context.CodePages.OemToAnsi(buffer, count);
        }
        return TABVEX_OK;
    });
}

int CAllRecords::SetCompleteRecord(const char* type, char* line, int lineSize) {
    return tabvex::Guarded([&]() -> int {
        if (type == nullptr || line == nullptr || lineSize != static_cast<int>(kCompleteLineSize)) {
            return TABVEX_BAD_ARGUMENT;
        }
        std::array<char, kCompleteLineSize> text;
        text.fill(' ');
        text.back() = '\0';
        std::memcpy(text.data(), line, strnlen(line, kCompleteLineSize - 1));
        if (m_pState->Context.IsOem) {
            m_pState->Context.CodePages.AnsiToOem(text.data(), kCompleteLineSize - 1);
        }
        std::memcpy(line, text.data(), kCompleteLineSize);
        CRecord* record = ExistingRecordForKey(type);
        if (record != nullptr) {
            RefreshNumbering(*record);
            record->ParseLine(nullptr);
        } else {
            record = CreateRecord(tabvex::FindRecordType(type), true);
        }
        record->ReplaceLastLine(text.data());
        return TABVEX_OK;
    });
}
