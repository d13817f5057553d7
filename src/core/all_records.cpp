#include "core/all_records.h"

#include <cstring>

namespace {

bool CarriesMarker(const CRecord& record) {
    const char marker = record.GetLineCount() > 0 ? record.GetLine(0)[tabvex::kNumberingOffset] : '\0';
    return marker >= '1' && marker <= '3';
}

} // namespace

CAllRecords::CAllRecords() : m_pState(std::make_unique<tabvex::CRecordSetState>()) {}

CAllRecords::~CAllRecords() = default;

CAllRecordsEx::CAllRecordsEx() = default;

CAllRecordsEx::~CAllRecordsEx() = default;

void CAllRecords::DestroyAllRecords() {
    m_pState->Find = {};
    m_pState->Store.Clear();
    m_pState->Context.Lines.Clear();
    m_pState->Context.LongLines.Clear();
}

void CAllRecords::DestroyRecords(const char* type) {
    if (type == nullptr) {
        return;
    }
    // A newer form goes with its older one, not the other way round.
    RemoveRecords(
        [](const CRecord& record, const char* wanted) {
            const bool newerForm = (std::strcmp(wanted, "X2") == 0 && std::strcmp(record.GetType(), "X2N") == 0) ||
                                   (std::strcmp(wanted, "X9") == 0 && std::strcmp(record.GetType(), "X9_NEU") == 0);
            return newerForm || std::strcmp(record.GetType(), wanted) == 0;
        },
        type);
}

void CAllRecords::DestroyKnownRecordsOnly() {
    RemoveRecords([](const CRecord& record, const char*) { return !record.IsGeneric(); }, "");
}

void CAllRecords::RemoveRecords(bool (*condemned)(const CRecord& record, const char* type), const char* type) {
    m_pState->Find = {};
    m_pState->Store.Remove([&](const CRecord& record) { return condemned(record, type); },
                           [this](const CRecord& record) { ReleaseLines(record); });
}

void CAllRecords::RemoveRecordsFrom(std::size_t count) {
    std::size_t index = 0;
    m_pState->Store.Remove([&](const CRecord&) { return index++ >= count; },
                           [this](const CRecord& record) { ReleaseLines(record); });
}

void CAllRecords::ReleaseLines(const CRecord& record) {
    tabvex::CLinePool& pool = m_pState->Context.PoolOf(record.m_nLineLength);
    for (const std::uint32_t line : record.m_Lines) {
        pool.Give(line);
    }
}

CRecord* CAllRecords::ExistRecord(const char* type) {
    return type == nullptr ? nullptr : m_pState->Store.Find(std::string_view(type));
}

const char* CAllRecords::GetTypeOfItem(int item) {
    const int range = tabvex::FindItemNumberRange(item);
    // The keys are literals, so that their views are terminated.
    return range < 0 ? "" : TypeKeyOf(tabvex::kItemNumberRanges[static_cast<std::size_t>(range)]).data();
}

int CAllRecords::GetRecordCount() const {
    return static_cast<int>(m_pState->Store.All().size());
}

CRecord* CAllRecords::GetRecord(int index) const {
    return index >= 0 && index < GetRecordCount() ? m_pState->Store.All()[static_cast<std::size_t>(index)].get()
                                                  : nullptr;
}

CRecord* CAllRecords::RecordOfItem(int item) const {
    return m_pState->Store.Find(tabvex::RecordTypeOfItem(item));
}

CRecord* CAllRecords::GetOrCreateRecord(int type, bool blankLine) {
    if (CRecord* record = m_pState->Store.Find(type)) {
        RefreshNumbering(*record);
        return record;
    }
    return CreateRecord(type, blankLine);
}

// A type whose letter was switched off is numbered again once its lines carry the marker.
void CAllRecords::RefreshNumbering(const CRecord& record) {
    const char letter = record.GetType()[0];
    if (m_pState->NumberedLetters.IsOn(letter)) {
        return;
    }
    for (int type = 0; type < tabvex::kRecordTypeCount; ++type) {
        const CRecord* other = m_pState->Store.Find(type);
        if (other != nullptr && other->GetType()[0] == letter && CarriesMarker(*other)) {
            m_pState->NumberedLetters.SwitchOn(letter);
            return;
        }
    }
}

char CAllRecords::SetDelimiter(char delimiter) {
    const char before = m_pState->Context.Delimiter;
    m_pState->Context.Delimiter = delimiter;
    return before;
}

int CAllRecords::SetRecNums(const char* letter, int mode) {
    return m_pState->NumberedLetters.Set(letter, mode);
}

void CAllRecords::SetOptimierungsCode(char /*code*/) {}

void CAllRecords::SetKalkArt(char /*kind*/) {}

void CAllRecords::SetCalcNr_K_Records(char* /*number*/) {}

void CAllRecords::DoNotSortKRecords(char* /*type*/) {}

int CAllRecords::CreateNewKRecord(char* /*type*/) {
    return TABVEX_NOT_SUPPORTED;
}
