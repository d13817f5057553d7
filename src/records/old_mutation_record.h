// The "X4" record in its older form: repair positions and mutations are read straight from the lines.
#pragma once

#include "records/repair_position_record.h"

namespace tabvex {

/// An entry is a cell whose code is a repair method; the cursor steps from cell to cell.
class COldMutationRecord : public CRepairPositionRecord {
public:
    COldMutationRecord(const CMutationItems& items, CRecordContext& context);

protected:
    int FirstEntry(int item) override;
    int NextEntry(int item) override;
    int ReadEntryItem(int item, const CItemDef& definition, std::string_view& text) override;
    int WriteEntry(int item, const CItemDef& definition, std::string_view value) override;
    int FindFirst(int item, std::string_view text) override;
    int FindNext(int item, std::string_view text) override;
    int ReadMutation(int index, bool newForm, CMutation& mutation) override;

private:
    int CurrentCell() const;
    bool IsPosition(int cell) const;
    void MoveToPosition(int cell);
    bool IsPastLastLine() const { return m_nCurLine >= GetLineCount(); }
    std::string_view FieldText(const CItemDef& definition) const;
    int SearchFrom(int cell, int item, std::string_view text);
    bool CarriesMutation(std::string_view code) const;

    int m_nFoundCell = 0; // by the last search
};

} // namespace tabvex
