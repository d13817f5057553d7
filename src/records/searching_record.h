// Records whose entries can be searched, and those whose entries are also read and written as one text.
#pragma once

#include "records/entry_record.h"

namespace tabvex {

/// Searches the items of the entry.
class CSearchingRecord : public CEntryRecord {
public:
    using CEntryRecord::CEntryRecord;

protected:
    int FindFirst(int item, std::string_view text) override;
    int FindNext(int item, std::string_view text) override;

private:
    template <typename Start>
    int Search(int item, std::string_view text, Start start);

    int m_nFoundLine = 0; // of the entry last found
    int m_nFoundOffset = 0;
};

/// Also steps back, and reads and writes a whole entry as its items joined by the delimiter.
class CDynamicRecord : public CSearchingRecord {
public:
    using CSearchingRecord::CSearchingRecord;

protected:
    int PrevEntry(int item) override;
    int ReadEntry(int item, std::string& text) override;
    int WriteDynEntry(int item, std::string_view value) override;
};

} // namespace tabvex
