// The record objects of a record set, in the order in which their types were met.
#pragma once

#include <array>
#include <memory>
#include <string_view>
#include <vector>

#include "core/record_types.h"
#include "tabvex/record.h"

namespace tabvex {

class CRecordStore {
public:
    CRecordStore();
    ~CRecordStore();
    CRecordStore(const CRecordStore&) = delete;
    CRecordStore& operator=(const CRecordStore&) = delete;

    /// Appends a record object of a type, kNoRecordType for a generic one, and takes it over.
    CRecord* Add(std::unique_ptr<CRecord> record, int type);
    /// The first record object whose type key equals `key`; null without one and for keys that begin with "K".
    CRecord* Find(std::string_view key) const;
    /// The same for a type of kRecordTypes.
    CRecord* Find(int type) const { return type == kNoRecordType ? nullptr : m_ByType[static_cast<std::size_t>(type)]; }

    const std::vector<std::unique_ptr<CRecord>>& All() const { return m_Records; }
    /// Destroys every record object.
    void Clear();
    void Swap(CRecordStore& other) noexcept;
    /// Destroys the record objects for which `condemned(record)` holds, after `release(record)`; the others keep their
    /// order.
    template <typename Condemned, typename Release>
    void Remove(Condemned condemned, Release release);

private:
    void IndexAll();
    void Index(CRecord& record);

    std::vector<std::unique_ptr<CRecord>> m_Records;
    std::array<CRecord*, kRecordTypeCount> m_ByType = {};
    CRecord* m_pFirstGeneric = nullptr;
};

template <typename Condemned, typename Release>
void CRecordStore::Remove(Condemned condemned, Release release) {
    std::size_t kept = 0;
    for (std::unique_ptr<CRecord>& record : m_Records) {
        if (condemned(*record)) {
            release(*record);
            record.reset();
        } else {
            m_Records[kept++].swap(record);
        }
    }
    m_Records.resize(kept);
    IndexAll();
}

} // namespace tabvex
