#include <algorithm>
#include <cstring>
#include <string>

#include "core/all_records.h"
#include "core/line_file.h"

using tabvex::kRecordLength;

int CAllRecords::ReadAllRecords(const char* fileName) {
    if (fileName == nullptr) {
        return TABVEX_BAD_ARGUMENT;
    }
    const int result = tabvex::Guarded([&] { return ReadFixedRecords(fileName, false); });
    return result == TABVEX_OK ? TABVEX_READ_SUCCEEDED : TABVEX_READ_FAILED;
}

int CAllRecords::ReadAllRecordsEx(const char* fileName) {
    if (fileName == nullptr) {
        return TABVEX_BAD_ARGUMENT;
    }
    return tabvex::Guarded([&] { return ReadFixedRecords(fileName, true); });
}

int CAllRecords::ReadAll_V_Records(const char* fileName) {
    if (fileName == nullptr) {
        return TABVEX_BAD_ARGUMENT;
    }
    return tabvex::Guarded([&] { return ReadVariableLines(fileName); }, TABVEX_READ_FAILED);
}

int CAllRecords::ReadFixedRecords(const char* fileName, bool parse) {
    const tabvex::CNumberedLetters numbered = m_pState->NumberedLetters;
    SetRecNums("*", 1);
    CLineFile file;
    if (file.Open(fileName, true, kRecordLength) != TABVEX_OK) {
        return TABVEX_READ_CANNOT_OPEN;
    }
    file.DetectCrLf();
    return m_pState->Refill(numbered, [&] {
        const int result = AddFixedRecords(file);
        if (parse && result == TABVEX_OK) {
            for (const auto& record : m_pState->Store.All()) {
                record->PostRead();
            }
        }
        return result;
    });
}

int CAllRecords::AddFixedRecords(CLineFile& file) {
    std::string_view line;
    for (int length = file.ReadRecord(line); length != TABVEX_FILE_END; length = file.ReadRecord(line)) {
        if (length < kRecordLength) {
            return length < 0 ? TABVEX_FILE_READ_FAILED : TABVEX_READ_SHORT_RECORD;
        }
        const int type = tabvex::WidenRecordType(tabvex::RecordTypeOfLine(line.data()), line.data());
        // Numbering is on for every type already.
        CRecord* record = m_pState->Store.Find(type);
        record = record == nullptr ? CreateRecord(type, false) : record;
        record->AddLine(line.substr(0, kRecordLength));
    }
    return TABVEX_OK;
}

int CAllRecords::ReadVariableLines(const char* fileName) {
    CLineFile file;
    if (file.Open(fileName, true, 1) != TABVEX_OK) {
        return TABVEX_READ_FAILED;
    }
    return m_pState->Refill(m_pState->NumberedLetters, [&] { return AddVariableLines(file); });
}

int CAllRecords::AddVariableLines(CLineFile& file) {
    // Bytes of longer lines stay behind a shorter one and may complete its type: kept on purpose.
    std::string buffer(tabvex::kRecordLengthCrLf, ' ');
    std::string line;
    int length = file.ReadLine(line);
    for (; length > 0; length = file.ReadLine(line)) {
        buffer.resize(std::max(buffer.size(), line.size() + 1), ' ');
        std::memcpy(buffer.data(), line.c_str(), line.size() + 1);
        const int type = tabvex::RecordTypeOfLine(buffer.data());
        if (type != tabvex::kNoRecordType) {
            GetOrCreateRecord(type, false)->ParseLine(buffer.c_str());
        }
    }
    return length == TABVEX_FILE_END ? TABVEX_READ_SUCCEEDED : TABVEX_READ_FAILED;
}
