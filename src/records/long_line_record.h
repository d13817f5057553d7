// The "FZ" record: lines of 640 characters, of which it never grows a second one.
#pragma once

#include "records/entry_record.h"

namespace tabvex {

class CLongLineRecord : public CEntryRecord {
public:
    CLongLineRecord(const CGroupRow& row, CRecordContext& context) : CEntryRecord(row, context) {
        m_nLineLength = kLongLineLength;
    }

protected:
    int AppendContinuationLine(int headerLength) override;
};

} // namespace tabvex
