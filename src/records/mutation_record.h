// Repair positions with their mutations, parsed into entries: "X4" in its newer form, and "G9".
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <vector>

#include "records/repair_position_record.h"

namespace tabvex {

/// The lines are parsed when an entry is first asked for, and written back when somebody looks at them. While nothing
/// is changed they stay as they are.
class CMutationRecord : public CRepairPositionRecord {
public:
    CMutationRecord(const CMutationItems& items, CRecordContext& context);

protected:
    int FirstEntry(int item) override;
    int NextEntry(int item) override;
    int ReadEntryItem(int item, const CItemDef& definition, std::string_view& text) override;
    int WriteEntry(int item, const CItemDef& definition, std::string_view value) override;
    int HardWrite(const CItemDef& definition, std::string_view text) override;
    int FindFirst(int item, std::string_view text) override;
    int FindNext(int item, std::string_view text) override;
    int ReadMutation(int index, bool newForm, CMutation& mutation) override;
    int AddMutation(std::string_view text) override;
    int DeleteOneMutation(std::string_view code) override;
    int DeleteMutations() override;
    int GetMutationCount() override;
    int PostRead() override;
    int PrepareWrite() override;

    void BeforeLinesChange() override;
    void AfterCreation() override;

private:
    struct CEntry {
        CCell Position;
        std::array<CCell, kMostMutations> Mutations;
        std::uint8_t MutationCount = 0;
        int CellIndex = 0; // of the position, counted over all lines
    };

    /// A cell that is not blank, but neither position nor mutation; it keeps its place.
    struct CSkippedCell {
        std::size_t BehindEntries; // number of entries before it
        CCell Cell;
    };

    enum class EState { Unparsed, Parsed, Failed };
    class CCodeTable;

    int Parse();
    bool IsParsed() { return Parse() == 0; }
    void ParseCell(std::string_view cell, int index, const CCodeTable& repairMethods, const CCodeTable& mutations);
    bool LinesAreComplete() const;
    void SelectEntry(std::size_t index);
    void PlaceCursor();
    CEntry* CurrentEntry();
    int SearchFrom(std::size_t first, int item, std::string_view text);
    bool CarriesMutation(const CEntry& entry, std::string_view code) const;
    int MakeMutation(std::string_view text, CCell& cell);
    bool FindKind(std::string_view code, unsigned& kind) const;
    std::vector<const CCell*> AllCells();
    void PutCells(const std::vector<const CCell*>& cells);

    EState m_State = EState::Unparsed;
    bool m_bChanged = false;
    std::deque<CEntry> m_Entries; // never moved, as there may be millions
    std::vector<CSkippedCell> m_Skipped;
    std::size_t m_nEntry = 0; // current entry; behind the last: none
    std::size_t m_nWriteEntry = 0;
    std::size_t m_nFoundEntry = 0; // by the last search
};

} // namespace tabvex
