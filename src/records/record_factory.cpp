// Which class holds the lines of which record type.

#include <array>
#include <cstddef>
#include <memory>
#include <utility>

#include "core/all_records.h"
#include "records/groupless_record.h"
#include "records/list_record.h"
#include "records/long_line_record.h"
#include "records/mutation_record.h"
#include "records/old_mutation_record.h"
#include "records/record_geometry.h"
#include "records/searching_record.h"
#include "records/two_group_record.h"
#include "records/unknown_record.h"

using tabvex::CRecordContext;
using tabvex::EVariant;

namespace {

constexpr int kTypeG3 = tabvex::RecordTypeOf("G3");
constexpr int kTypeX4 = tabvex::RecordTypeOf("X4");
constexpr int kTypeG9 = tabvex::RecordTypeOf("G9");

// The first row of each type's group, null without one.
using CFirstRows = std::array<const tabvex::CGroupRow*, tabvex::kRecordTypeCount>;

constexpr CFirstRows FindFirstRows() {
    CFirstRows rows = {};
    for (int type = 0; type < static_cast<int>(rows.size()); ++type) {
        rows[static_cast<std::size_t>(type)] = tabvex::GroupRowsOf(tabvex::RecordTypeRow(type).Key).Begin;
    }
    return rows;
}

constexpr CFirstRows kFirstRows = FindFirstRows();

std::unique_ptr<CRecord> NewEntryRecord(const tabvex::CGroupRow& row, CRecordContext& context) {
    switch (row.Variant) {
    case EVariant::Plain:
        break;
    case EVariant::Searching:
        return std::make_unique<tabvex::CSearchingRecord>(row, context);
    case EVariant::Dynamic:
        return std::make_unique<tabvex::CDynamicRecord>(row, context);
    case EVariant::TwoGroups:
        return std::make_unique<tabvex::CTwoGroupRecord>(&row, context);
    case EVariant::LongLine:
        return std::make_unique<tabvex::CLongLineRecord>(row, context);
    }
    return std::make_unique<tabvex::CEntryRecord>(row, context);
}

} // namespace

bool CAllRecords::KnowsType(int type) const {
    return type != tabvex::kNoRecordType && type != kTypeG9 &&
           tabvex::RecordTypeRow(type).Class != tabvex::ERecordClass::Generic;
}

bool CAllRecordsEx::KnowsType(int type) const {
    return type == kTypeG9 || CAllRecords::KnowsType(type);
}

std::unique_ptr<CRecord> CAllRecords::NewRecord(int type) {
    CRecordContext& context = m_pState->Context;
    if (type == kTypeX4 && !context.X4NewForm) {
        return std::make_unique<tabvex::COldMutationRecord>(*tabvex::MutationItemsOf("X4"), context);
    }
    if (type == kTypeX4 || type == kTypeG9) {
        return std::make_unique<tabvex::CMutationRecord>(*tabvex::MutationItemsOf(tabvex::RecordTypeRow(type).Key),
                                                         context);
    }
    if (const tabvex::CGroupRow* row = kFirstRows[static_cast<std::size_t>(type)]) {
        return NewEntryRecord(*row, context);
    }
    if (type == kTypeG3) {
        return std::make_unique<tabvex::CGrouplessRecord>(type, context);
    }
    return std::make_unique<tabvex::CListRecord>(type, context);
}

CRecord* CAllRecords::CreateRecord(int type, bool blankLine) {
    const int known = KnowsType(type) ? type : tabvex::kNoRecordType;
    std::unique_ptr<CRecord> record;
    if (known == tabvex::kNoRecordType) {
        record = std::make_unique<tabvex::CUnknownRecord>(m_pState->Context);
    } else {
        record = NewRecord(known);
    }
    CRecord* added = m_pState->Store.Add(std::move(record), known);
    if (blankLine) {
        try {
            added->ParseLine(nullptr);
            added->FillDefaults(); // nothing without a layout
            added->AfterCreation();
        } catch (...) {
            RemoveRecordsFrom(m_pState->Store.All().size() - 1);
            throw;
        }
    }
    return added;
}
