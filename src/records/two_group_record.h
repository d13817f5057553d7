// Records with two entry groups side by side, each with a cursor of its own.
#pragma once

#include "records/entry_record.h"

namespace tabvex {

class CTwoGroupRecord : public CEntryRecord {
public:
    /// `rows`: the rows of both groups, one behind the other.
    CTwoGroupRecord(const CGroupRow* rows, CRecordContext& context);

protected:
    int FirstEntry(int item) override;
    int NextEntry(int item) override;
    int ReadEntryItem(int item, const CItemDef& definition, std::string_view& text) override;
    int WriteEntry(int item, const CItemDef& definition, std::string_view value) override;

    int MakeRoom(int writeLimit) override;

private:
    struct COtherGroup {
        CGroup Group;
        int Line = 0;
        int Offset = 0;
    };

    void SwitchGroup();
    void SwitchToGroupOfKey(int item);

    COtherGroup m_Other; // the group that the cursor does not stand in
};

} // namespace tabvex
