#include "core/record_store.h"

#include <utility>

namespace tabvex {

CRecordStore::CRecordStore() = default;
CRecordStore::~CRecordStore() = default;

CRecord* CRecordStore::Add(std::unique_ptr<CRecord> record, int type) {
    m_Records.push_back(std::move(record));
    CRecord* added = m_Records.back().get();
    CRecord*& first = type == kNoRecordType ? m_pFirstGeneric : m_ByType[static_cast<std::size_t>(type)];
    if (first == nullptr) {
        first = added;
    }
    return added;
}

CRecord* CRecordStore::Find(std::string_view key) const {
    return key == kUnknownType ? m_pFirstGeneric : Find(RecordTypeOf(key));
}

void CRecordStore::Clear() {
    m_Records.clear();
    IndexAll();
}

void CRecordStore::Swap(CRecordStore& other) noexcept {
    m_Records.swap(other.m_Records);
    m_ByType.swap(other.m_ByType);
    std::swap(m_pFirstGeneric, other.m_pFirstGeneric);
}

void CRecordStore::IndexAll() {
    m_ByType.fill(nullptr);
    m_pFirstGeneric = nullptr;
    for (const auto& record : m_Records) {
        Index(*record);
    }
}

void CRecordStore::Index(CRecord& record) {
    const int type = record.IsGeneric() ? kNoRecordType : RecordTypeOf(record.GetType());
    CRecord*& first = type == kNoRecordType ? m_pFirstGeneric : m_ByType[static_cast<std::size_t>(type)];
    if (first == nullptr) {
        first = &record;
    }
}

} // namespace tabvex
