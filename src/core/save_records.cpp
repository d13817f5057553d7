#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>
#include <vector>

#include "core/all_records.h"
#include "core/line_file.h"
#include "core/record_lines.h"

using tabvex::kRecordLength;
using tabvex::kRecordLengthCrLf;

namespace {

constexpr char kNotNumbered = ' ';
constexpr char kFirstNumbered = '1';
constexpr char kLaterNumbered = '2';
constexpr char kLastNumbered = '3';

// Lines of these types keep what they have at the marker's place while their letter is numbered.
bool KeepsMarker(std::string_view type) {
    return type == "T0" || type == "FZ" || type == tabvex::kUnknownType || type[0] == 'K' || type[0] == 'M';
}

// Calculation records are kept, but not written.
bool IsWritten(const CRecord& record) {
    return record.GetType()[0] != 'K';
}

// A record whose bytes did not all reach the file was not written, though its own calls succeeded.
int SumResults(const CLineFile& file, const std::vector<int>& results, const std::vector<std::uint64_t>& ends,
               int& errors) {
    int sum = 0;
    for (std::size_t i = 0; i < results.size(); ++i) {
        const bool stored = results[i] >= 0 && ends[i] <= file.GetBytesStored();
        sum += stored ? results[i] : TABVEX_FILE_WRITE_FAILED;
        errors += stored ? 0 : 1;
    }
    return sum;
}

} // namespace

void CAllRecords::PrepareSave() {
    char next = kFirstNumbered;
    char* lastNumbered = nullptr;
    for (const auto& record : m_pState->Store.All()) {
        record->PrepareWrite();
    }
    for (const auto& record : m_pState->Store.All()) {
        const bool keeps = KeepsMarker(record->GetType());
        const auto number = [&](std::size_t index, char* line) {
            char& marker = line[tabvex::kNumberingOffset];
            if (!m_pState->NumberedLetters.IsOn(line[0])) {
                marker = kNotNumbered;
            } else if (!keeps) {
                marker = next;
                next = kLaterNumbered;
                lastNumbered = index + 1 == record->m_Lines.size() ? &marker : lastNumbered;
            }
            return true;
        };
        tabvex::VisitLines(m_pState->Context.PoolOf(record->m_nLineLength), record->m_Lines,
                           static_cast<std::size_t>(record->m_nLineLength), number);
    }
    if (lastNumbered != nullptr) {
        *lastNumbered = kLastNumbered;
    }
}

int CAllRecords::SaveAllRecords(const char* fileName, int crlf) {
    return tabvex::Guarded([&]() -> int {
        if (fileName == nullptr) {
            return TABVEX_BAD_ARGUMENT;
        }
        const auto& records = m_pState->Store.All();
        m_pState->SaveErrors = static_cast<int>(
            std::count_if(records.begin(), records.end(), [](const auto& record) { return IsWritten(*record); }));
        CLineFile file;
        const int opened = file.Open(fileName, false, kRecordLengthCrLf);
        if (opened != TABVEX_OK) {
            return opened;
        }
        PrepareSave();
        std::vector<int> results;
        std::vector<std::uint64_t> ends;
        results.reserve(records.size());
        ends.reserve(records.size());
        for (const auto& record : records) {
            if (IsWritten(*record)) {
                results.push_back(record->WriteLines(file, crlf != 0));
                ends.push_back(file.GetBytesAccepted());
            }
        }
        file.Close();
        m_pState->SaveErrors = 0;
        return SumResults(file, results, ends, m_pState->SaveErrors);
    });
}

int CAllRecords::GetSaveErrors() const {
    return m_pState->SaveErrors;
}

int CAllRecords::WriteAllRecords(char* buffer, int bufferSize, int lf) {
    return tabvex::Guarded([&]() -> int {
        PrepareSave();
        std::string text;
        for (const auto& record : m_pState->Store.All()) {
            if (IsWritten(*record)) {
                record->AppendLines(text, lf != 0);
            }
        }
        if (text.size() > INT_MAX) {
            return TABVEX_INTERNAL_FAILURE;
        }
        const int length = static_cast<int>(text.size());
        if (buffer == nullptr || bufferSize == 0) {
            return length;
        }
        if (bufferSize < length) {
            return -length;
        }
        std::memset(buffer, 0, static_cast<std::size_t>(bufferSize) + 1);
        text.copy(buffer, text.size());
        return length;
    });
}

int CAllRecords::GetX1Record(char* buffer, int bufferSize) {
    return GetSingleRecord("X1", false, buffer, bufferSize);
}

int CAllRecords::GetXDollarRecord(char* buffer, int bufferSize) {
    return GetSingleRecord("X$", false, buffer, bufferSize);
}

int CAllRecords::GetX7Record(char* buffer, int bufferSize) {
    return GetSingleRecord("X7", true, buffer, bufferSize);
}

int CAllRecords::GetSingleRecord(const char* type, bool whole, char* buffer, int bufferSize) {
    return tabvex::Guarded([&]() -> int {
        PrepareSave();
        const auto& records = m_pState->Store.All();
        const auto found = std::find_if(records.begin(), records.end(), [type](const auto& record) {
            return std::strncmp(record->GetType(), type, 2) == 0 && record->GetLineCount() > 0;
        });
        if (found == records.end()) {
            return TABVEX_NO_RECORD;
        }
        std::string text;
        (*found)->AppendLines(text, false);
        const int length = static_cast<int>(text.size());
        if (buffer == nullptr || bufferSize == 0) {
            return length;
        }
        if (bufferSize < (whole ? length + 1 : length)) {
            return -length;
        }
        text.resize(whole ? text.size() : kRecordLength);
        std::memcpy(buffer, text.c_str(), text.size() + 1);
        return TABVEX_OK;
    });
}
