// What a record offers to its record set only.
#pragma once

#include <string>
#include <string_view>

#include "tabvex/record.h"

/// A record whose operations a test may call; for records that a test makes itself.
template <typename Record>
class COpenRecord : public Record {
public:
    using Record::Record;

    using Record::AddLine;
    using Record::AppendContinuationLine;
    using Record::AppendLines;
    using Record::FillDefaults;
    using Record::FindFirst;
    using Record::FindNext;
    using Record::FirstEntry;
    using Record::HardWrite;
    using Record::NextEntry;
    using Record::ParseLine;
    using Record::PostRead;
    using Record::PrepareWrite;
    using Record::PrevEntry;
    using Record::ReadEntry;
    using Record::ReadEntryItem;
    using Record::ReadLast;
    using Record::ReplaceLastLine;
    using Record::WriteDynEntry;
    using Record::WriteEntry;
    using Record::WriteLines;
};

/// Stands for a record that a record set owns.
class CRecordAccess {
public:
    // Not explicit: a test names the record, and what it asks of it is told by the call.
    CRecordAccess(CRecord& record) : m_Record(record) {} // NOLINT(google-explicit-constructor)

    operator const CRecord&() const { return m_Record; } // NOLINT(google-explicit-constructor)

    // clang-format off
    int FirstEntry(int item) { return Call(&COpen::FirstEntry, item); }
    int NextEntry(int item) { return Call(&COpen::NextEntry, item); }
    int PrevEntry(int item) { return Call(&COpen::PrevEntry, item); }
    int ReadLast(int item) { return Call(&COpen::ReadLast, item); }
    int ReadEntryItem(int item, const CItemDef& definition, std::string_view& text) { return Call(&COpen::ReadEntryItem, item, definition, text); }
    int WriteEntry(int item, const CItemDef& definition, std::string_view value) { return Call(&COpen::WriteEntry, item, definition, value); }
    int FindFirst(int item, std::string_view text) { return Call(&COpen::FindFirst, item, text); }
    int FindNext(int item, std::string_view text) { return Call(&COpen::FindNext, item, text); }
    int ParseLine(const char* text) { return Call(&COpen::ParseLine, text); }
    int AppendContinuationLine(int headerLength) { return Call(&COpen::AppendContinuationLine, headerLength); }
    int PostRead() { return Call(&COpen::PostRead); }
    int PrepareWrite() { return Call(&COpen::PrepareWrite); }
    // clang-format on

private:
    // The members that it names are still those of the base class.
    using COpen = COpenRecord<CRecord>;

    template <typename Result, typename... Parameters, typename... Arguments>
    Result Call(Result (CRecord::*operation)(Parameters...), Arguments&&... arguments) {
        return (m_Record.*operation)(arguments...);
    }

    CRecord& m_Record;
};
