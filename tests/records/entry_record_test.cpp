// What records with entry groups do beyond the numbers of their group: the order of the checks, what a failed part
// leaves behind, where written entries go, and the oddities of single types.
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "core/all_records.h"
#include "records/searching_record.h"
#include "support/guard_buffer.h"
#include "support/record_access.h"
#include "support/record_set_test.h"

namespace {

constexpr int kNoRecord = -1;
constexpr int kNotSupported = -1;
constexpr int kNoMore = -5;
constexpr int kNotTheKey = -6;
constexpr int kWrongParts = -7;
constexpr int kForeignItem = -22;
constexpr int kTooLong = -45;
constexpr int kNotListed = -55;
constexpr int kNoLayout = -62;
constexpr int kNoStepBack = -62;
constexpr int kNotANumber = -66;
constexpr int kWrongKey = -74;
constexpr int kEmptySpan = -75;
constexpr int kNoLines = -78;
constexpr int kNoGroup = -999;

/// A record set into which record objects without any line can be put.
class COpenRecords : public CAllRecordsEx {
public:
    CRecord& AddWithoutLines(const char* type) {
        const tabvex::CGroupRow& row = *tabvex::GroupRowsOf(type).Begin;
        std::unique_ptr<CRecord> record = std::make_unique<tabvex::CEntryRecord>(row, m_pState->Context);
        if (row.Variant == tabvex::EVariant::Dynamic) {
            record = std::make_unique<tabvex::CDynamicRecord>(row, m_pState->Context);
        }
        return *m_pState->Store.Add(std::move(record), tabvex::FindRecordType(type));
    }
};

/// Line and offset of a record's cursor.
using CPlace = std::tuple<int, int>;

CPlace CursorOf(const CRecord& record) {
    return {record.GetCurrentLine(), record.GetCurrentOffset()};
}

/// "G1" with entries of 40 characters: a name and an amount.
CTableBuilder G1Table(int nameLength = 30) {
    CTableBuilder table;
    table.Section("G1")
        .Item(12000, 2, 1, "C,\"G1\"")
        .Item(12005, 4, 3, "C")
        .Item(12010, 1, 7, "C")
        .Item(12015, nameLength, 8, "C")
        .Item(12020, 10, 8 + nameLength, "N,,,R 6.2");
    return table;
}

class EntryRecord : public RecordSetTest {
protected:
    EntryRecord() { Load(G1Table()); }

    /// Loads a table with one section, given as its items.
    void LoadItems(std::string_view type, const std::vector<std::tuple<int, int, int, const char*>>& items) {
        CTableBuilder table;
        table.Section(type);
        for (const auto& [number, length, position, descriptor] : items) {
            table.Item(number, length, position, descriptor);
        }
        Load(table);
    }

    CPlace Cursor(const char* type) { return CursorOf(Record(type)); }

    /// The characters of a line that are saved.
    std::string Line(const char* type, int index) { return std::string(Record(type).GetLine(index)).substr(0, 128); }
};

std::string Amount(const std::string& digits) {
    return std::string(10 - digits.size(), ' ') + digits;
}

// --- Stepping ---

TEST_F(EntryRecord, EntriesOf40CharactersLieAt7And47And87) {
    Read(CRecordBuilder().Add("G1"));
    EXPECT_EQ(m_Records.ReadFirst(12015), 0);
    EXPECT_EQ(Cursor("G1"), CPlace(0, 7));
    EXPECT_EQ(m_Records.ReadNext(12015), 0);
    EXPECT_EQ(Cursor("G1"), CPlace(0, 47));
    EXPECT_EQ(m_Records.ReadNext(12015), 0);
    EXPECT_EQ(Cursor("G1"), CPlace(0, 87));
    EXPECT_EQ(m_Records.ReadNext(12015), 0);
    EXPECT_EQ(Cursor("G1"), CPlace(1, 7));
    EXPECT_EQ(m_Records.ReadNext(12015), kNoMore);
    EXPECT_EQ(m_Records.ReadNext(12015), kNoMore);
    EXPECT_EQ(Cursor("G1"), CPlace(1, 7));
}

TEST_F(EntryRecord, FirstEntryTestsTheItemBeforeTheLines) {
    COpenRecords records;
    CRecordAccess record = records.AddWithoutLines("G1");
    EXPECT_EQ(record.FirstEntry(12020), kWrongKey);
    EXPECT_EQ(record.FirstEntry(12015), kNoLines);
}

TEST_F(EntryRecord, NextEntryTestsTheLinesBeforeTheItem) {
    COpenRecords records;
    CRecordAccess record = records.AddWithoutLines("G1");
    EXPECT_EQ(record.NextEntry(12020), kNoLines);
    EXPECT_EQ(record.NextEntry(12015), kNoLines);
    record.ParseLine(nullptr);
    EXPECT_EQ(record.NextEntry(12020), kWrongKey);
}

TEST_F(EntryRecord, PrevEntryTestsTheLinesBeforeTheItem) {
    COpenRecords records;
    for (const auto& [type, other] : {std::pair("X2", 2025), std::pair("X2N", 2125), std::pair("G0", 12330)}) {
        CRecordAccess record = records.AddWithoutLines(type);
        EXPECT_EQ(record.PrevEntry(other), kNoLines) << type;
        record.ParseLine(nullptr);
        EXPECT_EQ(record.PrevEntry(other), kWrongKey) << type;
    }
}

TEST_F(EntryRecord, FirstEntryTestsItemAndLinesBeforeTheLengthOfTheEntry) {
    const std::vector<std::pair<const char*, int>> types = {
        {"G8", 12215}, {"GD", 19315}, {"GE", 19615}, {"GI", 19704},    {"W6", 6515},  {"W9", 9520},
        {"X6", 6015},  {"X9", 9020},  {"Z2", 16315}, {"X9_NEU", 9420}, {"Z4", 16603}, {"Z9", 18035}};
    COpenRecords records;
    for (const auto& [type, key] : types) {
        CRecordAccess record = records.AddWithoutLines(type);
        EXPECT_EQ(record.FirstEntry(key + 1), kWrongKey) << type;
        EXPECT_EQ(record.FirstEntry(key), kNoLines) << type;
        record.ParseLine(nullptr);
        EXPECT_EQ(record.FirstEntry(key + 1), kWrongKey) << type;
        EXPECT_EQ(record.FirstEntry(key), kEmptySpan) << type;
    }
}

TEST_F(EntryRecord, SteppingOverEntriesWithoutLengthEndsAtOnceAndStaysWhereItIs) {
    LoadItems("G1", {{12000, 2, 1, "C"}});
    Read(CRecordBuilder().Add("G1"));
    EXPECT_EQ(m_Records.ReadFirst(12015), 0);
    EXPECT_EQ(m_Records.ReadNext(12015), TABVEX_ENTRY_EMPTY_SPAN) << "a caller's loop would never end";
    EXPECT_EQ(Cursor("G1"), CPlace(0, 7));
}

TEST_F(EntryRecord, SteppingBackOverEntriesWithoutLengthEndsAtOnceAndStaysWhereItIs) {
    LoadItems("X2", {{2000, 2, 1, "C"}});
    Read(CRecordBuilder().Add("X2"));
    EXPECT_EQ(m_Records.ReadFirst(2020), 0);
    EXPECT_EQ(m_Records.ReadPrev(2020), TABVEX_ENTRY_EMPTY_SPAN);
    EXPECT_EQ(Cursor("X2"), CPlace(0, 7));
}

TEST_F(EntryRecord, ThePositionSurvivesOtherCalls) {
    Read(CRecordBuilder().Add("G1").Put(47, "second").Add("X1"));
    ASSERT_EQ(m_Records.ReadFirst(12015), 0);
    ASSERT_EQ(m_Records.ReadNext(12015), 0);
    Item(12000);
    EXPECT_EQ(m_Records.ReadFirst(12000), kWrongKey);
    EXPECT_EQ(m_Records.ReadPrev(12015), kNoStepBack);
    EXPECT_EQ(m_Records.ReadLast(12015), kNotSupported);
    EXPECT_EQ(Cursor("G1"), CPlace(0, 47));
    EXPECT_EQ(Item(12015), Padded("second", 30));
}

TEST_F(EntryRecord, ANewRecordStandsOnItsFirstEntry) {
    ASSERT_EQ(m_Records.WriteItem(12015, "/"), 0);
    m_Records.DestroyAllRecords();
    Read(CRecordBuilder().Add("G1").Put(7, "first"));
    EXPECT_EQ(Cursor("G1"), CPlace(0, 7));
    EXPECT_EQ(Item(12015), Padded("first", 30));
}

TEST_F(EntryRecord, SteppingBackOverALineStartTakesTheOffsetThatSuitsNoEntryOfX2NToo) {
    // The last entry of a line begins at 94; stepping back goes to 121 - 29 = 92: kept on purpose.
    LoadItems("X2N", {{2120, 19, 8, "C"}, {2125, 10, 27, "C"}});
    Read(CRecordBuilder().Add("X2N").Put(92, "between").Add("X2N"));
    ASSERT_EQ(m_Records.ReadFirst(2120), 0);
    for (int i = 0; i < 4; ++i) {
        ASSERT_EQ(m_Records.ReadNext(2120), 0);
    }
    ASSERT_EQ(Cursor("X2N"), CPlace(1, 7));
    EXPECT_EQ(m_Records.ReadPrev(2120), 0);
    EXPECT_EQ(Cursor("X2N"), CPlace(0, 92));
    EXPECT_EQ(Item(2120), Padded("between", 19));
}

// --- Ends of groups ---

class BlankEnd : public EntryRecord {
protected:
    static constexpr int kKey = 17015;

    /// "G6" with an entry of 80 characters, one a line.
    BlankEnd() { LoadItems("G6", {{17000, 2, 1, "C"}, {17015, 70, 8, "C"}, {17110, 10, 78, "C"}}); }
};

TEST_F(BlankEnd, ABlankG6EntryEndsTheGroup) {
    Read(CRecordBuilder().Add("G6").Put(7, "a").Add("G6").Put(87, "behind it").Add("G6"));
    ASSERT_EQ(m_Records.ReadFirst(kKey), 0);
    EXPECT_EQ(m_Records.ReadNext(kKey), kNoMore);
    EXPECT_EQ(Cursor("G6"), CPlace(1, 7));
}

TEST_F(BlankEnd, OnlyTheFirst76CharactersOfAG6EntryTellThatItIsBlankOnPurpose) {
    Read(CRecordBuilder().Add("G6").Put(7, "a").Add("G6").Put(82, "x").Add("G6").Put(83, "x"));
    ASSERT_EQ(m_Records.ReadFirst(kKey), 0);
    EXPECT_EQ(m_Records.ReadNext(kKey), 0);
    EXPECT_EQ(Item(17110), "     x    ");
    EXPECT_EQ(m_Records.ReadNext(kKey), kNoMore);
    EXPECT_EQ(Cursor("G6"), CPlace(2, 7));
    EXPECT_EQ(Item(17110), "      x   ");
}

TEST_F(BlankEnd, TheFirstG6EntryIsStoodOnEvenWhenItIsBlank) {
    Read(CRecordBuilder().Add("G6"));
    EXPECT_EQ(m_Records.ReadFirst(kKey), 0);
    EXPECT_EQ(Item(17110), std::string(10, ' '));
}

TEST_F(BlankEnd, AWriteFillsTheBlankEntryThatEndedTheGroup) {
    Read(CRecordBuilder().Add("G6").Put(7, "a").Add("G6").Add("G6").Put(7, "c"));
    ASSERT_EQ(m_Records.ReadFirst(kKey), 0);
    ASSERT_EQ(m_Records.ReadNext(kKey), kNoMore);
    ASSERT_EQ(m_Records.WriteItem(kKey, "b/x"), 0);
    EXPECT_EQ(Line("G6", 1), Padded("G6     b" + std::string(69, ' ') + "x"));
    EXPECT_EQ(Record("G6").GetLineCount(), 3);
    EXPECT_EQ(m_Records.ReadFirst(kKey), 0);
    EXPECT_EQ(m_Records.ReadNext(kKey), 0);
    EXPECT_EQ(m_Records.ReadNext(kKey), 0);
    EXPECT_EQ(m_Records.ReadNext(kKey), kNoMore);
}

TEST_F(BlankEnd, G6PastItsEndStandsOnTheLastLineAt87) {
    Read(CRecordBuilder().Add("G6").Put(7, "a").Add("G6").Put(7, "b").Put(87, "seen at 87"));
    ASSERT_EQ(m_Records.ReadFirst(kKey), 0);
    ASSERT_EQ(m_Records.ReadNext(kKey), 0);
    EXPECT_EQ(m_Records.ReadNext(kKey), kNoMore);
    EXPECT_EQ(Cursor("G6"), CPlace(1, 87));
    EXPECT_EQ(Item(kKey), Padded("seen at 87", 70)); // 41 characters of the line, blanks behind it
    EXPECT_EQ(Item(17110), std::string(10, ' '));
    EXPECT_EQ(m_Records.ReadNext(kKey), kNoMore);
    EXPECT_EQ(Cursor("G6"), CPlace(1, 87));
    EXPECT_EQ(m_Records.WriteItem(kKey, "c/"), 0);
    EXPECT_EQ(Record("G6").GetLineCount(), 3);
    EXPECT_EQ(Line("G6", 2), Padded("G6     c"));
}

TEST_F(EntryRecord, G7PastItsEndStandsOnTheLastLineAt127) {
    LoadItems("G7", {{18200, 2, 1, "C"}, {18215, 8, 8, "C"}, {18220, 12, 16, "C"}});
    Read(CRecordBuilder().Add("G7").Put(7, "a"));
    ASSERT_EQ(m_Records.ReadFirst(18215), 0);
    for (int i = 0; i < 5; ++i) {
        ASSERT_EQ(m_Records.ReadNext(18215), 0);
    }
    EXPECT_EQ(Cursor("G7"), CPlace(0, 107));
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(m_Records.ReadNext(18215), kNoMore);
        EXPECT_EQ(Cursor("G7"), CPlace(0, 127));
        EXPECT_EQ(Item(18215), std::string(8, ' '));
        EXPECT_EQ(Item(18220), std::string(12, ' '));
    }
    EXPECT_EQ(m_Records.WriteItem(18215, "b/"), 0);
    EXPECT_EQ(Record("G7").GetLineCount(), 2);
    EXPECT_EQ(Line("G7", 1), Padded("G7     b"));
}

TEST_F(EntryRecord, X6AndGDEndAtABlankEntryAndAWriteFillsIt) {
    for (const auto& [type, key] : {std::pair("X6", 6015), std::pair("GD", 19315)}) {
        SCOPED_TRACE(type);
        LoadItems(type, {{key, 3, 8, "C"}, {key + 5, 7, 11, "C"}});
        Read(CRecordBuilder().Add(type).Put(7, "a").Put(26, "x").Put(37, "d"));
        ASSERT_EQ(m_Records.ReadFirst(key), 0);
        EXPECT_EQ(m_Records.ReadNext(key), 0); // its last character is not blank
        EXPECT_EQ(Cursor(type), CPlace(0, 17));
        EXPECT_EQ(m_Records.ReadNext(key), kNoMore);
        EXPECT_EQ(Cursor(type), CPlace(0, 27));
        ASSERT_EQ(m_Records.WriteItem(key, "c/"), 0);
        EXPECT_EQ(Cursor(type), CPlace(0, 37));
        EXPECT_EQ(Item(key), "d  ");
        EXPECT_EQ(Line(type, 0).substr(26, 12), "xc         d");
    }
}

TEST_F(EntryRecord, ALongEntryOfX6AndGDEndsTheGroupOnlyWhenItIsBlankToItsEnd) {
    for (const auto& [type, key] : {std::pair("X6", 6015), std::pair("GD", 19315)}) {
        SCOPED_TRACE(type);
        LoadItems(type, {{key, 3, 8, "C"}, {key + 5, 77, 11, "C"}});
        Read(CRecordBuilder().Add(type).Put(7, "a").Add(type).Put(86, "x").Add(type));
        ASSERT_EQ(m_Records.ReadFirst(key), 0);
        EXPECT_EQ(m_Records.ReadNext(key), 0); // its 80th character is not blank
        EXPECT_EQ(Cursor(type), CPlace(1, 7));
        EXPECT_EQ(m_Records.ReadNext(key), kNoMore);
        EXPECT_EQ(Cursor(type), CPlace(2, 7));
    }
}

TEST_F(EntryRecord, X2NTellsAtOnceThatItsLastLineWasLeft) {
    LoadItems("X2N", {{2120, 100, 8, "C"}, {2125, 16, 108, "C"}});
    Read(CRecordBuilder().Add("X2N").Add("X2N"));
    ASSERT_EQ(m_Records.ReadFirst(2120), 0);
    EXPECT_EQ(m_Records.ReadNext(2120), 0);
    EXPECT_EQ(m_Records.ReadNext(2120), kNoMore);
    EXPECT_EQ(Cursor("X2N"), CPlace(2, 7));
    EXPECT_EQ(ReadResult(2120), kNoMore);
}

TEST_F(EntryRecord, TheGroupEndOfGDIs127LessTheEntryLengthFromTheKeyItemsPlaceOn) {
    LoadItems("GD", {{19300, 2, 1, "C"}, {19310, 20, 8, "C"}, {19315, 10, 28, "C"}, {19500, 23, 38, "C"}});
    Read(CRecordBuilder().Add("GD").Put(7, "header").Put(27, "one").Put(60, "two").Put(93, "three").Add("GD"));
    ASSERT_EQ(m_Records.ReadFirst(19315), 0);
    EXPECT_EQ(Cursor("GD"), CPlace(0, 27));
    EXPECT_EQ(Item(19315), Padded("one", 10));
    EXPECT_EQ(m_Records.ReadNext(19315), 0);
    EXPECT_EQ(Cursor("GD"), CPlace(0, 60));
    EXPECT_EQ(m_Records.ReadNext(19315), 0); // 93 is below 127 - 33 = 94
    EXPECT_EQ(Cursor("GD"), CPlace(0, 93));
    EXPECT_EQ(m_Records.ReadNext(19315), kNoMore); // a blank entry
    EXPECT_EQ(Cursor("GD"), CPlace(1, 27));
    ASSERT_EQ(m_Records.WriteItem(19315, "four/"), 0);
    EXPECT_EQ(Line("GD", 1), Padded("GD").replace(27, 4, "four"));
}

TEST_F(EntryRecord, GDWithoutItsKeyItemBeginsAt7) {
    LoadItems("GD", {{19300, 2, 1, "C"}, {19320, 10, 8, "C"}});
    Read(CRecordBuilder().Add("GD").Put(7, "one").Put(17, "two"));
    ASSERT_EQ(m_Records.ReadFirst(19315), 0);
    EXPECT_EQ(Item(19320), Padded("one", 10));
    ASSERT_EQ(m_Records.ReadNext(19315), 0);
    EXPECT_EQ(Item(19320), Padded("two", 10));
}

TEST_F(EntryRecord, ContinuationLinesOfGDRepeatAllBeforeTheKeyItemsPlace) {
    LoadItems("GD", {{19310, 20, 8, "C"}, {19315, 60, 28, "C"}});
    Read(CRecordBuilder().Add("GD").Put(7, "the header in full..").Put(27, "one"));
    ASSERT_EQ(m_Records.ReadFirst(19315), 0);
    ASSERT_EQ(m_Records.ReadNext(19315), 0);
    ASSERT_EQ(m_Records.WriteItem(19315, "two"), 0);
    EXPECT_EQ(Line("GD", 1), Padded("GD     the header in full..two"));
}

// --- Reading items ---

TEST_F(EntryRecord, HeaderItemsAreReadFromTheFirstLineWhateverTheEntry) {
    Read(CRecordBuilder().Add("G1").Put(2, "0001").Put(7, "a").Add("G1").Put(2, "0002").Put(7, "b"));
    for (const int expected : {0, 0, 0, 0, 0, 0, 0, kNoMore}) {
        EXPECT_EQ(Item(12000), "G1");
        EXPECT_EQ(Item(12005), "0001");
        EXPECT_EQ(m_Records.ReadNext(12015), Cursor("G1") == CPlace(2, 7) ? kNoMore : expected);
    }
    EXPECT_EQ(Item(12005), "0001");
    EXPECT_EQ(ReadResult(12015), kNoMore);
    EXPECT_EQ(ReadResult(12020), kNoMore);
}

TEST_F(EntryRecord, ItemsOfARecordWithoutLinesAreTold) {
    COpenRecords records;
    ASSERT_EQ(records.LoadTable(G1Table().Write(m_Folder.PathOf("g1.table")).c_str(), 3, 2), 0);
    records.AddWithoutLines("G1");
    CGuardBuffer text(20);
    EXPECT_EQ(records.ReadItem(12000, text.Data(), text.Size()), kNoMore);
    EXPECT_EQ(records.ReadItem(12015, text.Data(), text.Size()), kNoMore);
    EXPECT_EQ(records.ClearItem(12015), kNoMore);
    EXPECT_EQ(records.HardWriteItem(12000, "G1"), kNoMore);
    EXPECT_TRUE(text.IsUntouched());
}

TEST_F(EntryRecord, TheFirstEntryIsWrittenIntoARecordWithoutLines) {
    COpenRecords records;
    ASSERT_EQ(records.LoadTable(G1Table().Write(m_Folder.PathOf("g1.table")).c_str(), 3, 2), 0);
    const CRecord& record = records.AddWithoutLines("G1");
    EXPECT_EQ(records.WriteItem(12015, "one/1"), 0);
    ASSERT_EQ(record.GetLineCount(), 1);
    EXPECT_EQ(std::string(record.GetLine(0)).substr(7, 40), Padded("one", 30) + Amount("1.00"));
}

TEST_F(EntryRecord, WhatLiesBehindTheLineReadsAsBlanks) {
    // Entries of 50 characters at 7, 57 and 107, of which the last has 21 characters in the line.
    LoadItems("G4", {{14150, 15, 8, "C"}, {14200, 15, 23, "C"}, {14250, 15, 38, "C"}, {14300, 5, 53, "C"}});
    Read(CRecordBuilder().Add("G4").Put(107, "abcdefghijklmnopqrstu"));
    ASSERT_EQ(m_Records.ReadFirst(14150), 0);
    ASSERT_EQ(m_Records.ReadNext(14150), 0);
    ASSERT_EQ(m_Records.ReadNext(14150), 0);
    EXPECT_EQ(Item(14150), "abcdefghijklmno");
    EXPECT_EQ(Item(14200), Padded("pqrstu", 15));
    EXPECT_EQ(Item(14250), std::string(15, ' '));
    EXPECT_EQ(Item(14300), std::string(5, ' '));
}

TEST_F(EntryRecord, OtherItemsAreCutToTheEntry) {
    // Entries are 40 characters long: 12015 and 12020.
    LoadItems("G1", {{12015, 30, 8, "C"},
                     {12020, 10, 38, "C"},
                     {12016, 4, 9, "C"},   // in the entry
                     {12017, 20, 43, "C"}, // its last five characters and what is behind it
                     {12018, 5, 48, "C"},  // behind it
                     {12019, 3, 2, "C"}}); // before it
    Read(CRecordBuilder().Add("G1", "00011" + std::string(40, 'a') + "0123456789abcdefghijABCDEFGHIJklmnopqrstUVW"));
    ASSERT_EQ(m_Records.ReadFirst(12015), 0);
    ASSERT_EQ(m_Records.ReadNext(12015), 0);
    ASSERT_EQ(Item(12015), "0123456789abcdefghijABCDEFGHIJ");
    EXPECT_EQ(Item(12016), "1234");
    EXPECT_EQ(Item(12017), "pqrst");
    EXPECT_EQ(Item(12018), "");
    EXPECT_EQ(Item(12019), "");
}

TEST_F(EntryRecord, AnItemInTheHeadOfX0IsNotOfItsEntriesAndReadsAsNothing) {
    LoadItems("X0", {{30000, 2, 1, "C"}, {30020, 11, 8, "C"}, {30025, 12, 19, "C"}});
    Read(CRecordBuilder().Add("X0"));
    EXPECT_EQ(Item(30000), "");
}

struct CForeignCase {
    const char* Type;
    int Key;
    int Second; // another item of the entry, 0: none
    int Header; // 0: none
    int Foreign;
};

TEST_F(EntryRecord, SixTypesRefuseItemsOfNeitherHeaderNorEntryWhereverTheCursorIs) {
    const std::vector<CForeignCase> cases = {{"V1", 21035, 0, 21005, 21007},     {"V2", 22020, 0, 22005, 22007},
                                             {"V3", 23030, 0, 23005, 23007},     {"W4", 4515, 4560, 0, 4500},
                                             {"Z2", 16315, 16320, 16300, 16325}, {"Z9", 18035, 18095, 0, 18000}};
    for (const CForeignCase& row : cases) {
        SCOPED_TRACE(row.Type);
        std::vector<std::tuple<int, int, int, const char*>> items = {{row.Key, 40, 30, "C"}, {row.Foreign, 3, 32, "C"}};
        if (row.Second != 0) {
            items.emplace_back(row.Second, 40, 70, "C");
        }
        if (row.Header != 0) {
            items.emplace_back(row.Header, 2, 1, "C");
        }
        LoadItems(row.Type, items);
        Read(CRecordBuilder().Add(row.Type));
        ASSERT_EQ(m_Records.ReadFirst(row.Key), 0);
        EXPECT_EQ(ReadResult(row.Foreign), kForeignItem);
        EXPECT_EQ(ReadResult(row.Key), 0);
        while (m_Records.ReadNext(row.Key) == 0) {
        }
        EXPECT_EQ(ReadResult(row.Foreign), kForeignItem);
        EXPECT_EQ(ReadResult(row.Key), kNoMore);
        if (row.Second != 0) {
            EXPECT_EQ(ReadResult(row.Second), kNoMore);
        }
        if (row.Header != 0) {
            EXPECT_EQ(ReadResult(row.Header), 0);
        }
    }
}

TEST_F(EntryRecord, Z2AlsoReads16330FromTheEntry) {
    LoadItems("Z2", {{16300, 2, 1, "C"}, {16315, 2, 8, "C"}, {16320, 8, 10, "C"}, {16330, 10, 8, "C"}});
    Read(CRecordBuilder().Add("Z2").Put(7, "X4      12T0       3"));
    ASSERT_EQ(m_Records.ReadFirst(16315), 0);
    EXPECT_EQ(Item(16330), "X4      12");
    ASSERT_EQ(m_Records.ReadNext(16315), 0);
    EXPECT_EQ(Item(16330), "T0       3");
    EXPECT_EQ(Item(16315), "T0");
    EXPECT_EQ(m_Records.WriteItem(16330, "X2/1"), kNotTheKey);
    EXPECT_EQ(m_Records.ReadFirst(16330), kWrongKey);
}

TEST_F(EntryRecord, ANulEndsOnlyTheItemItStandsIn) {
    LoadItems("G4", {{14000, 4, 1, "C,\"G4\""},
                     {14150, 6, 8, "C,\"one\""},
                     {14200, 6, 14, "C"},
                     {14250, 6, 20, "C,\"three3\""},
                     {14300, 6, 26, "C,\"4\""}});
    // Defaults shorter than their items leave NULs behind them: kept on purpose.
    ASSERT_EQ(m_Records.WriteItem(14150, "///"), 0);
    ASSERT_EQ(m_Records.ReadFirst(14150), 0);
    EXPECT_EQ(Item(14000), "G4");
    EXPECT_EQ(Item(14150), "one");
    EXPECT_EQ(Item(14200), "      ");
    EXPECT_EQ(Item(14250), "three3");
    EXPECT_EQ(Item(14300), "4");
}

class ItemOutsideTheLine : public EntryRecord {
protected:
    // A list type, an entry type and a type without groups each get an item at the position; 1005 lies at `second`.
    void ReadWithItemsAt(int position, int second) {
        CTableBuilder table = G1Table();
        table.Item(12003, 4, position, "C").Section("X1").Item(1000, 4, position, "C").Item(1005, 4, second, "C");
        table.Section("G5").Item(15150, 4, 8, "C").Item(15000, 4, position, "C");
        Load(table);
        Read(CRecordBuilder().Add("X1").Put(124, "abcd").Add("G1").Put(7, "name").Add("G5").Put(7, "text"));
    }

    void ExpectNothingReadOrWritten() {
        const std::string before = Written();
        for (const int item : {1000, 12003, 15000}) {
            EXPECT_EQ(Item(item), "") << item;
            EXPECT_EQ(m_Records.HardWriteItem(item, "wxyz"), 0) << item;
            EXPECT_EQ(m_Records.ClearItem(item), 0) << item;
        }
        EXPECT_EQ(m_Records.WriteItem(1000, "wxyz"), 0);
        EXPECT_EQ(Written(), before);
    }
};

TEST_F(ItemOutsideTheLine, ReadsAsNothingAndIsNotWrittenBelowPosition1) {
    for (const int position : {0, -1, -128, -2147483647 - 1}) {
        SCOPED_TRACE(position);
        ReadWithItemsAt(position, 3);
        ExpectNothingReadOrWritten();
    }
}

TEST_F(ItemOutsideTheLine, ReadsAsNothingAndIsNotWrittenBehindTheLine) {
    for (const int position : {129, 130, 131, 132, 1000, 2147483647}) {
        SCOPED_TRACE(position);
        ReadWithItemsAt(position, 126);
        ExpectNothingReadOrWritten();
        EXPECT_EQ(Item(1005), "bcd"); // what of it lies in the line
        EXPECT_EQ(m_Records.WriteItem(1005, "1234"), 0);
        EXPECT_EQ(Line("X1", 0).substr(124), "a123");
    }
}

// --- Writing entries ---

TEST_F(EntryRecord, ThreePartsAreRefusedAndWriteNothing) {
    Read(CRecordBuilder().Add("G1").Put(7, "kept"));
    const std::string before = Written();
    EXPECT_EQ(m_Records.WriteItem(12015, "name/1/2"), kWrongParts);
    EXPECT_EQ(m_Records.WriteItem(12015, "name/1/"), kWrongParts);
    EXPECT_EQ(m_Records.WriteItem(12015, "//"), kWrongParts);
    EXPECT_EQ(m_Records.WriteItem(12015, "name"), kWrongParts);
    EXPECT_EQ(Written(), before);
    EXPECT_EQ(Cursor("G1"), CPlace(0, 7));
}

TEST_F(EntryRecord, TwoPartsOfWhichTheSecondIsEmptyLeaveTheSecondItemBlank) {
    ASSERT_EQ(m_Records.WriteItem(12015, "name/"), 0);
    EXPECT_EQ(Cursor("G1"), CPlace(0, 47));
    ASSERT_EQ(m_Records.ReadFirst(12015), 0);
    EXPECT_EQ(Item(12015), Padded("name", 30));
    EXPECT_EQ(Item(12020), std::string(10, ' '));
}

TEST_F(EntryRecord, TheItemIsLookedAtBeforeTheParts) {
    Read(CRecordBuilder().Add("G1"));
    EXPECT_EQ(m_Records.WriteItem(12020, "a/b/c"), kNotTheKey);
    EXPECT_EQ(m_Records.WriteItem(12000, "G1"), kNotTheKey);
    EXPECT_EQ(m_Records.WriteItem(12015, "a/b/c"), kWrongParts);
}

TEST_F(EntryRecord, ABlankPartLeavesTheCharactersOfItsItem) {
    Read(CRecordBuilder().Add("G1").Put(7, "old name").Put(37, Amount("12.00")));
    ASSERT_EQ(m_Records.ReadFirst(12015), 0);
    ASSERT_EQ(m_Records.WriteItem(12015, "   /7"), 0);
    EXPECT_EQ(Line("G1", 0).substr(7, 40), Padded("old name", 30) + Amount("7.00"));
    ASSERT_EQ(m_Records.ReadFirst(12015), 0);
    ASSERT_EQ(m_Records.WriteItem(12015, "new/ "), 0);
    EXPECT_EQ(Line("G1", 0).substr(7, 40), Padded("new", 30) + Amount("7.00"));
    ASSERT_EQ(m_Records.ReadFirst(12015), 0);
    ASSERT_EQ(m_Records.WriteItem(12015, "/"), 0);
    EXPECT_EQ(Line("G1", 0).substr(7, 40), Padded("new", 30) + Amount("7.00"));
    EXPECT_EQ(Cursor("G1"), CPlace(0, 47));
}

TEST_F(EntryRecord, AFailingPartGivesItsCodeAndTheOtherPartsAreWritten) {
    Read(CRecordBuilder().Add("G1").Put(7, "old").Put(37, Amount("12.00")));
    ASSERT_EQ(m_Records.ReadFirst(12015), 0);
    EXPECT_EQ(m_Records.WriteItem(12015, "new/abc"), kNotANumber);
    EXPECT_EQ(Line("G1", 0).substr(7, 40), Padded("new", 30) + Amount("12.00"));
    EXPECT_EQ(Cursor("G1"), CPlace(0, 47)); // behind the entry all the same
    ASSERT_EQ(m_Records.ReadFirst(12015), 0);
    EXPECT_EQ(m_Records.WriteItem(12015, (std::string(31, 'n') + "/5").c_str()), kTooLong);
    EXPECT_EQ(Line("G1", 0).substr(7, 40), Padded("new", 30) + Amount("5.00"));
}

TEST_F(EntryRecord, OfSeveralFailingPartsTheLastOneGivesTheCode) {
    LoadItems(
        "G4",
        {{14150, 2, 8, R"(C,,,,,("M1";"M2"))"}, {14200, 6, 10, "N,,,R 4.1"}, {14250, 4, 16, "C"}, {14300, 8, 20, "C"}});
    EXPECT_EQ(m_Records.WriteItem(14150, "XX/abc/five5/written"), kTooLong);
    EXPECT_EQ(Line("G4", 0).substr(7, 20), Padded("", 12) + "written ");
    EXPECT_EQ(m_Records.WriteItem(14150, "XX/12/ab/"), kNotListed);
    EXPECT_EQ(Line("G4", 0).substr(27, 20), "    12.0ab  " + Padded("", 8));
}

TEST_F(EntryRecord, AnItemOfTheEntryThatTheLayoutLacksStillHasItsPart) {
    LoadItems("G1", {{12000, 2, 1, "C"}, {12015, 30, 8, "C"}});
    EXPECT_EQ(m_Records.WriteItem(12015, "alone"), kWrongParts);
    EXPECT_EQ(m_Records.WriteItem(12015, "name/"), 0);
    EXPECT_EQ(Cursor("G1"), CPlace(0, 37)); // the entry is the item that there is
    EXPECT_EQ(m_Records.WriteItem(12015, "more/12"), -1);
    EXPECT_EQ(Line("G1", 0), Padded(Padded("       name", 37) + "more"));
}

TEST_F(EntryRecord, WithoutTheKeyItemInTheLayoutNothingIsWritten) {
    LoadItems("G1", {{12000, 2, 1, "C"}, {12020, 10, 8, "C"}});
    Read(CRecordBuilder().Add("G1"));
    const std::string before = Written();
    EXPECT_EQ(m_Records.WriteItem(12015, "a/b"), -1);
    EXPECT_EQ(Written(), before);
    EXPECT_EQ(m_Records.ReadFirst(12015), 0);
    EXPECT_EQ(Item(12020), std::string(10, ' '));
}

TEST_F(EntryRecord, AnItemThatTheLayoutHasTwiceIsItsFirstDefinition) {
    LoadItems("G1", {{12015, 10, 8, "C"}, {12020, 10, 18, "C"}, {12015, 2, 1, "N"}});
    ASSERT_EQ(m_Records.WriteItem(12015, "name/amount"), 0);
    ASSERT_EQ(m_Records.ReadFirst(12015), 0);
    EXPECT_EQ(Item(12015), Padded("name", 10));
    EXPECT_EQ(Item(12020), Padded("amount", 10));
    ASSERT_EQ(m_Records.ReadNext(12015), 0);
    EXPECT_EQ(Cursor("G1"), CPlace(0, 27));
}

TEST_F(EntryRecord, TheDelimiterOfTheMomentSplitsTheValue) {
    ASSERT_EQ(m_Records.WriteItem(12015, "one/1"), 0);
    EXPECT_EQ(m_Records.SetDelimiter(';'), '/');
    EXPECT_EQ(m_Records.WriteItem(12015, "two/2"), kWrongParts);
    EXPECT_EQ(m_Records.WriteItem(12015, "a/b;2"), 0);
    EXPECT_EQ(m_Records.SetDelimiter('/'), ';');
    EXPECT_EQ(m_Records.WriteItem(12015, "x;y/3"), 0);
    EXPECT_EQ(Line("G1", 0), Padded("G1     " + Padded("one", 30) + Amount("1.00") + Padded("a/b", 30) +
                                    Amount("2.00") + Padded("x;y", 30) + Amount("3.00")));
}

TEST_F(EntryRecord, ABlankAsDelimiterSplitsAtEveryBlank) {
    m_Records.SetDelimiter(' ');
    EXPECT_EQ(m_Records.WriteItem(12015, "one 1"), 0);
    EXPECT_EQ(m_Records.WriteItem(12015, "one  1"), kWrongParts);
    EXPECT_EQ(Line("G1", 0).substr(7, 40), Padded("one", 30) + Amount("1.00"));
}

// --- Where written entries go ---

TEST_F(EntryRecord, AG1EntryAtOffset89StartsAContinuationLine) {
    Load(G1Table(31)); // entries of 41 characters at 7, 48 and 89
    Read(CRecordBuilder().Add("G1").Put(2, "0042x").Put(7, "first"));
    for (const char* value : {"one/1", "two/2", "three/3"}) {
        ASSERT_EQ(m_Records.WriteItem(12015, value), 0);
    }
    ASSERT_EQ(Record("G1").GetLineCount(), 2);
    EXPECT_EQ(Line("G1", 1), Padded("G10042x" + Padded("three", 31) + Amount("3.00")));
    EXPECT_EQ(Line("G1", 0).substr(89), std::string(39, ' '));
    EXPECT_EQ(Cursor("G1"), CPlace(1, 48));
}

TEST_F(EntryRecord, AG1EntryBelowOffset89IsWrittenAsFarAsTheLineGoes) {
    Load(G1Table(40)); // entries of 50 characters at 7 and 57, which leaves 107 behind the limit
    for (const char* value : {"one/1", "two/2", "three/3"}) {
        ASSERT_EQ(m_Records.WriteItem(12015, value), 0);
    }
    EXPECT_EQ(Record("G1").GetLineCount(), 2);

    m_Records.DestroyAllRecords();
    Load(G1Table(70)); // entries of 80 characters at 7 and 87, of which 41 lie in the line
    for (const char* value : {"one/1", "two/2"}) {
        ASSERT_EQ(m_Records.WriteItem(12015, value), 0);
    }
    ASSERT_EQ(Record("G1").GetLineCount(), 1);
    EXPECT_EQ(Line("G1", 0), Padded("G1     " + Padded("one", 70) + Amount("1.00") + "two"));
    EXPECT_EQ(Cursor("G1"), CPlace(0, 167));
    EXPECT_EQ(m_Records.WriteItem(12015, "three/3"), 0);
    EXPECT_EQ(Cursor("G1"), CPlace(1, 87));
}

TEST_F(EntryRecord, AZ0EntryIsWrittenBelowOffset126) {
    // Entries of 39 characters at 8, 47, 86 and 125, of which the last has 3 characters in the line.
    LoadItems("Z0", {{16704, 39, 9, "C"}});
    for (const char* value : {"one", "two", "three", "four", "five"}) {
        ASSERT_EQ(m_Records.WriteItem(16704, value), 0);
    }
    ASSERT_EQ(Record("Z0").GetLineCount(), 2);
    EXPECT_EQ(Line("Z0", 0).substr(86), Padded("three", 39) + "fou");
    EXPECT_EQ(Line("Z0", 1), Padded("        five"));

    m_Records.DestroyAllRecords();
    LoadItems("Z0", {{16704, 59, 9, "C"}}); // 8, 67, 126
    for (const char* value : {"one", "two", "three"}) {
        ASSERT_EQ(m_Records.WriteItem(16704, value), 0);
    }
    EXPECT_EQ(Record("Z0").GetLineCount(), 2);
}

TEST_F(EntryRecord, WithoutAWriteLimitAnEntryMustFitIntoTheLine) {
    LoadItems("G5", {{15150, 50, 8, "C"}}); // 7, 57 and 107, where one may begin, but not end
    for (const char* value : {"one", "two", "three"}) {
        ASSERT_EQ(m_Records.WriteItem(15150, value), 0);
    }
    ASSERT_EQ(Record("G5").GetLineCount(), 2);
    EXPECT_EQ(Line("G5", 0).substr(107), std::string(21, ' '));
    EXPECT_EQ(Line("G5", 1), Padded("       three"));
}

TEST_F(EntryRecord, WithoutAWriteLimitAnEntryMayEndWithTheLine) {
    LoadItems("G5", {{15150, 121, 8, "C"}}); // ends at 128
    const std::string text(121, 'x');
    ASSERT_EQ(m_Records.WriteItem(15150, text.c_str()), 0);
    ASSERT_EQ(m_Records.WriteItem(15150, "two"), 0);
    ASSERT_EQ(Record("G5").GetLineCount(), 2);
    EXPECT_EQ(Line("G5", 0), "       " + text);
}

TEST_F(EntryRecord, WrittenEntriesFollowTheCursor) {
    Read(CRecordBuilder().Add("G1").Put(7, "one").Put(47, "two").Put(87, "three").Add("G1").Put(7, "four"));
    ASSERT_EQ(m_Records.ReadFirst(12015), 0);
    ASSERT_EQ(m_Records.ReadNext(12015), 0);
    ASSERT_EQ(m_Records.WriteItem(12015, "TWO/"), 0);
    EXPECT_EQ(Cursor("G1"), CPlace(0, 87));
    EXPECT_EQ(Item(12015), Padded("three", 30));
    ASSERT_EQ(m_Records.WriteItem(12015, "THREE/"), 0);
    EXPECT_EQ(Cursor("G1"), CPlace(0, 127));
    ASSERT_EQ(m_Records.ReadNext(12015), 0);
    EXPECT_EQ(Item(12015), Padded("four", 30));
    EXPECT_EQ(Record("G1").GetLineCount(), 2);
    EXPECT_EQ(Line("G1", 0), Padded("G1     " + Padded("one", 40) + Padded("TWO", 40) + Padded("THREE", 41)));
}

TEST_F(EntryRecord, AnEntryPastTheEndGoesIntoALineThatRepeatsTheLastLinesHeader) {
    Read(CRecordBuilder().Add("G1").Put(2, "00011").Add("G1").Put(2, "00022").Put(7, "one").Put(120, "behind"));
    while (m_Records.ReadNext(12015) == 0) {
    }
    ASSERT_EQ(Cursor("G1"), CPlace(2, 7));
    ASSERT_EQ(m_Records.WriteItem(12015, "two/2"), 0);
    ASSERT_EQ(Record("G1").GetLineCount(), 3);
    EXPECT_EQ(Line("G1", 2), Padded("G100022" + Padded("two", 30) + Amount("2.00")));
    EXPECT_EQ(Cursor("G1"), CPlace(2, 47));
}

TEST_F(EntryRecord, ALineAddedBeforeTheLastOneGoesToTheEndAndTheEntryToTheNextLine) {
    // Kept on purpose: the cursor only moves on by one line.
    Read(CRecordBuilder().Add("G1").Put(2, "00011").Put(87, "three").Add("G1").Put(2, "00022").Put(7, "four"));
    ASSERT_EQ(m_Records.ReadFirst(12015), 0);
    ASSERT_EQ(m_Records.ReadNext(12015), 0);
    ASSERT_EQ(m_Records.ReadNext(12015), 0);
    ASSERT_EQ(m_Records.WriteItem(12015, "3/"), 0);
    ASSERT_EQ(Cursor("G1"), CPlace(0, 127));
    ASSERT_EQ(m_Records.WriteItem(12015, "FOUR/4"), 0);
    EXPECT_EQ(Cursor("G1"), CPlace(1, 47));
    ASSERT_EQ(Record("G1").GetLineCount(), 3);
    EXPECT_EQ(Line("G1", 1), Padded("G100022" + Padded("FOUR", 30) + Amount("4.00")));
    EXPECT_EQ(Line("G1", 2), Padded("G100011"));
}

TEST_F(EntryRecord, ContinuationLinesOfFiveTypesRepeatTheTypeOnly) {
    const std::vector<std::tuple<const char*, int, int>> types = {
        {"W3", 3540, 63}, {"X3", 3040, 63}, {"V1", 21035, 27}, {"V2", 22020, 12}, {"V3", 23030, 26}};
    for (const auto& [type, key, first] : types) {
        SCOPED_TRACE(type);
        LoadItems(type, {{key, 60, first + 1, "C"}});
        Read(CRecordBuilder().Add(type, std::string(126, 'h')));
        ASSERT_EQ(m_Records.ReadNext(key), 0);
        ASSERT_EQ(m_Records.WriteItem(key, "next"), 0);
        ASSERT_EQ(Record(type).GetLineCount(), 2);
        EXPECT_EQ(Line(type, 1), Padded(Padded(type, static_cast<std::size_t>(first)) + "next"));
    }
}

TEST_F(EntryRecord, ContinuationLinesOfX2NAndX9NEUCarryTheirMark) {
    LoadItems("X2N", {{2120, 60, 8, "C"}, {2125, 56, 68, "C"}});
    Read(CRecordBuilder().Add("X2N").Put(2, "00011"));
    ASSERT_EQ(m_Records.ReadNext(2120), kNoMore);
    ASSERT_EQ(m_Records.WriteItem(2120, "next/"), 0);
    EXPECT_EQ(Line("X2N", 1), Padded("X200011next", 127) + "1");

    LoadItems("X9_NEU", {{9420, 100, 11, "C"}, {9425, 4, 111, "C"}});
    Read(CRecordBuilder().Add("X9_NEU").Put(2, "00011abc"));
    ASSERT_EQ(m_Records.ReadNext(9420), 0);
    ASSERT_EQ(m_Records.WriteItem(9420, "next/"), 0);
    EXPECT_EQ(Line("X9_NEU", 1), Padded(Padded("X900011abcnext", 122) + "1"));
}

// --- Long lines ---

class LongLine : public EntryRecord {
protected:
    /// "FZ" with entries of 24 characters and items on both sides of them.
    LongLine() {
        LoadItems("FZ", {{200000, 2, 1, "C,\"FZ\""},
                         {200010, 4, 127, "C"},
                         {200195, 4, 261, "C"},
                         {200200, 12, 265, "C"},
                         {200205, 8, 277, "C"},
                         {200330, 16, 625, "C"}});
    }
};

TEST_F(LongLine, FZLinesHave640CharactersInMemoryAndInTheFile) {
    ASSERT_EQ(m_Records.WriteItem(200195, "a/b/c"), 0);
    EXPECT_EQ(Record("FZ").GetLineLength(), 640);
    const std::string line =
        Padded("FZ", 260) + "a   " + Padded("b", 12) + Padded("c", 8) + std::string(640 - 284, ' ');
    EXPECT_EQ(std::string(Record("FZ").GetLine(0)).substr(0, 640), line);
    const std::string path = m_Folder.PathOf("saved.rec");
    ASSERT_EQ(m_Records.SaveAllRecords(path.c_str(), 1), 1);
    EXPECT_EQ(ReadFile(path), line + "\r\n");
    ASSERT_EQ(m_Records.SaveAllRecords(path.c_str(), 0), 1);
    EXPECT_EQ(ReadFile(path), line);
}

TEST_F(LongLine, FZReadsAllItemsOutsideTheEntryFromTheFirstLine) {
    ReadLines(Padded("FZ").replace(126, 2, "ab") + "cd" + std::string(494, '.') + "the last sixteen\n");
    EXPECT_EQ(Item(200000), "FZ");
    EXPECT_EQ(Item(200010), "abcd");
    EXPECT_EQ(Item(200330), "the last sixteen");
}

TEST_F(LongLine, FZRewindsAtTheEndOfItsEntries) {
    ASSERT_EQ(m_Records.WriteItem(200195, "a/b/c"), 0);
    ASSERT_EQ(m_Records.ReadFirst(200195), 0);
    for (int entry = 1; entry < 11; ++entry) {
        ASSERT_EQ(m_Records.ReadNext(200195), 0);
        EXPECT_EQ(Cursor("FZ"), CPlace(0, 260 + 24 * entry));
    }
    EXPECT_EQ(m_Records.ReadNext(200195), kNoMore);
    EXPECT_EQ(Cursor("FZ"), CPlace(0, 260));
    EXPECT_EQ(Item(200195), "a   ");
    EXPECT_EQ(m_Records.ReadNext(200195), 0);
    EXPECT_EQ(Cursor("FZ"), CPlace(0, 284));
}

TEST_F(LongLine, FZNeverGrowsASecondLine) {
    for (int entry = 0; entry < 11; ++entry) {
        ASSERT_EQ(m_Records.WriteItem(200195, "a/b/c"), 0);
    }
    const std::string full = Record("FZ").GetLine(0);
    EXPECT_EQ(Cursor("FZ"), CPlace(0, 524));
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(m_Records.WriteItem(200195, "d/e/f"), kNoMore);
        EXPECT_EQ(Record("FZ").GetLineCount(), 1);
        EXPECT_EQ(Record("FZ").GetLine(0), full);
        EXPECT_EQ(Cursor("FZ"), CPlace(0, 524));
    }
    EXPECT_EQ(CRecordAccess(Record("FZ")).AppendContinuationLine(261), 0);
    EXPECT_EQ(Record("FZ").GetLineCount(), 1);
    EXPECT_EQ(Cursor("FZ"), CPlace(0, 524));
}

TEST_F(LongLine, FZEntriesStayInTheirFirstLine) {
    ReadLines(Padded("FZ", 640) + "\n" + Padded("FZ", 260) + Padded("not reached", 380) + "\n");
    ASSERT_EQ(Record("FZ").GetLineCount(), 2);
    ASSERT_EQ(m_Records.ReadFirst(200195), 0);
    for (int entry = 1; entry < 11; ++entry) {
        ASSERT_EQ(m_Records.ReadNext(200195), 0);
    }
    EXPECT_EQ(m_Records.ReadNext(200195), kNoMore);
    EXPECT_EQ(Cursor("FZ"), CPlace(0, 260));
}

TEST_F(LongLine, AnFZEntryThatWouldLeaveTheLineIsRefused) {
    // Entries of 200 characters at 260 and 460, where one may begin, but not end.
    LoadItems("FZ", {{200195, 200, 261, "C"}});
    ASSERT_EQ(m_Records.WriteItem(200195, "a"), 0);
    EXPECT_EQ(m_Records.WriteItem(200195, "b"), kNoMore);
    EXPECT_EQ(std::string(Record("FZ").GetLine(0)).substr(0, 640), Padded(Padded("", 260) + "a", 640));
    EXPECT_EQ(m_Records.ReadFirst(200195), 0);
    EXPECT_EQ(m_Records.ReadNext(200195), 0);
    EXPECT_EQ(Item(200195), std::string(200, ' '));
}

TEST_F(LongLine, AnFZLineOfAFileWith128CharactersEndsThere) {
    Read(CRecordBuilder().Add("FZ").Put(126, "ab"));
    EXPECT_EQ(Item(200010), "ab");
    EXPECT_EQ(Item(200195), "");
    EXPECT_EQ(Item(200330), "");
}

// --- Two groups in one line ---

class TwoGroups : public EntryRecord, public ::testing::WithParamInterface<int> {
protected:
    /// "W7" or "X7" with entries of 38 characters (two a line) and of 15 (three a line).
    TwoGroups() {
        LoadItems(Type(), {{Base() + 500, 2, 1, "C"},
                           {Base() + 505, 4, 3, "C"},
                           {First(), 38, 8, "C"},
                           {Second(), 4, 84, "C"},
                           {Second() + 5, 11, 88, "C"}});
    }

    static int Base() { return GetParam(); }
    static const char* Type() { return Base() == 7000 ? "W7" : "X7"; }
    static int First() { return Base() == 7000 ? 7515 : 7015; }
    static int Second() { return First() + 10; }

    void LoadItems(std::string_view type, std::vector<std::tuple<int, int, int, const char*>> items) {
        for (auto& item : items) { // "X7" has its numbers 500 lower
            const bool isGroupItem = std::get<0>(item) > Base() + 510;
            std::get<0>(item) -= Base() == 7000 || isGroupItem ? 0 : 500;
        }
        EntryRecord::LoadItems(type, items);
    }

    CPlace Place() { return Cursor(Type()); }

    static std::string TwoLines(const char* one, const char* two) { return Padded(Padded(one, 38) + two, 76); }
};

// The record set asks for the numbers of each type: "W7" 7500 to 7540, "X7" 7000 to 7045.
INSTANTIATE_TEST_SUITE_P(W7AndX7, TwoGroups, ::testing::Values(7000, 6500),
                         [](const auto& row) { return row.param == 7000 ? "W7" : "X7"; });

TEST_P(TwoGroups, EachGroupHasACursorOfItsOwn) {
    Read(CRecordBuilder()
             .Add(Type())
             .Put(7, "a1")
             .Put(45, "a2")
             .Put(83, "b1")
             .Put(98, "b2")
             .Put(113, "b3")
             .Add(Type())
             .Put(7, "a3")
             .Put(83, "b4"));
    ASSERT_EQ(m_Records.ReadFirst(First()), 0);
    EXPECT_EQ(Place(), CPlace(0, 7));
    ASSERT_EQ(m_Records.ReadFirst(Second()), 0);
    EXPECT_EQ(Place(), CPlace(0, 83));
    ASSERT_EQ(m_Records.ReadNext(First()), 0);
    EXPECT_EQ(Place(), CPlace(0, 45));
    EXPECT_EQ(Item(First()), Padded("a2", 38));
    EXPECT_EQ(Item(Second()), "b1  ");
    ASSERT_EQ(m_Records.ReadNext(Second()), 0);
    ASSERT_EQ(m_Records.ReadNext(Second()), 0);
    EXPECT_EQ(Item(Second()), "b3  ");
    EXPECT_EQ(Item(First()), Padded("a2", 38));
    ASSERT_EQ(m_Records.ReadNext(Second()), 0);
    EXPECT_EQ(Item(Second()), "b4  ");
    ASSERT_EQ(m_Records.ReadNext(First()), 0);
    EXPECT_EQ(Item(First()), Padded("a3", 38));
    ASSERT_EQ(m_Records.ReadFirst(Second()), 0);
    EXPECT_EQ(Item(First()), Padded("a3", 38));
    EXPECT_EQ(Item(Second()), "b1  ");
}

TEST_P(TwoGroups, TheEndOfOneGroupLeavesTheOtherWhereItIs) {
    Read(CRecordBuilder().Add(Type()).Put(7, "a1").Put(83, "b1"));
    ASSERT_EQ(m_Records.ReadNext(First()), 0);
    ASSERT_EQ(m_Records.ReadNext(First()), 0);
    EXPECT_EQ(Place(), CPlace(1, 7));
    EXPECT_EQ(m_Records.ReadNext(First()), kNoMore);
    EXPECT_EQ(ReadResult(First()), kNoMore);
    EXPECT_EQ(Item(Second()), "b1  ");
    for (int i = 0; i < 3; ++i) {
        ASSERT_EQ(m_Records.ReadNext(Second()), 0);
    }
    EXPECT_EQ(Place(), CPlace(1, 83));
    EXPECT_EQ(m_Records.ReadNext(Second()), kNoMore);
    EXPECT_EQ(ReadResult(Second() + 5), kNoMore);
}

TEST_P(TwoGroups, OnlyTheTwoKeyItemsStepAndWrite) {
    Read(CRecordBuilder().Add(Type()));
    EXPECT_EQ(m_Records.ReadFirst(Second() + 5), kWrongKey);
    EXPECT_EQ(m_Records.ReadNext(Second() + 5), kWrongKey);
    EXPECT_EQ(m_Records.WriteItem(Second() + 5, "a/b"), kNotTheKey);
    EXPECT_EQ(m_Records.WriteItem(First(), "a/b"), kWrongParts);
    EXPECT_EQ(m_Records.WriteItem(Second(), "a"), kWrongParts);
    EXPECT_EQ(m_Records.ReadPrev(First()), kNoStepBack);
}

TEST_P(TwoGroups, OneGroupUsesTheLineThatTheOtherHasMade) {
    for (const char* value : {"a1", "a2", "a3"}) {
        ASSERT_EQ(m_Records.WriteItem(First(), value), 0);
    }
    ASSERT_EQ(Record(Type()).GetLineCount(), 2);
    for (const char* value : {"b1/", "b2/", "b3/", "b4/x"}) {
        ASSERT_EQ(m_Records.WriteItem(Second(), value), 0);
    }
    ASSERT_EQ(Record(Type()).GetLineCount(), 2);
    EXPECT_EQ(Place(), CPlace(1, 98));
    EXPECT_EQ(Line(Type(), 0).substr(7), TwoLines("a1", "a2") + Padded("b1", 15) + Padded("b2", 15) + Padded("b3", 15));
    EXPECT_EQ(Line(Type(), 1).substr(7), TwoLines("a3", "") + Padded("b4  x", 45));
}

TEST_P(TwoGroups, TheSecondGroupMakesALineThatTheFirstOneUses) {
    for (const char* value : {"b1/", "b2/", "b3/", "b4/"}) {
        ASSERT_EQ(m_Records.WriteItem(Second(), value), 0);
    }
    ASSERT_EQ(Record(Type()).GetLineCount(), 2);
    EXPECT_EQ(Place(), CPlace(1, 98));
    for (const char* value : {"a1", "a2", "a3"}) {
        ASSERT_EQ(m_Records.WriteItem(First(), value), 0);
    }
    ASSERT_EQ(Record(Type()).GetLineCount(), 2);
    EXPECT_EQ(Line(Type(), 1).substr(7), TwoLines("a3", "") + Padded("b4", 45));
    for (const char* value : {"a4", "a5"}) {
        ASSERT_EQ(m_Records.WriteItem(First(), value), 0);
    }
    ASSERT_EQ(Record(Type()).GetLineCount(), 3);
    EXPECT_EQ(Line(Type(), 2).substr(7), Padded("a5", 121));
    for (const char* value : {"b5/", "b6/", "b7/"}) {
        ASSERT_EQ(m_Records.WriteItem(Second(), value), 0);
    }
    EXPECT_EQ(Record(Type()).GetLineCount(), 3);
    EXPECT_EQ(Line(Type(), 2).substr(7), TwoLines("a5", "") + Padded("b7", 45));
}

TEST_P(TwoGroups, ContinuationLinesRepeatTheFirst7Characters) {
    Read(CRecordBuilder().Add(Type()).Put(2, "00421").Put(126, "xy"));
    for (const char* value : {"a1", "a2", "a3"}) {
        ASSERT_EQ(m_Records.WriteItem(First(), value), 0);
    }
    EXPECT_EQ(Line(Type(), 1), Padded(std::string(Type()) + "00421a3"));
}

TEST_P(TwoGroups, AGroupPastTheEndOfItsLinesAppendsOne) {
    Read(CRecordBuilder().Add(Type()).Put(2, "00421").Put(7, "a1").Put(45, "a2"));
    ASSERT_EQ(m_Records.ReadNext(First()), 0);
    ASSERT_EQ(m_Records.ReadNext(First()), 0);
    ASSERT_EQ(m_Records.WriteItem(First(), "a3"), 0);
    EXPECT_EQ(Place(), CPlace(1, 45));
    EXPECT_EQ(Line(Type(), 1), Padded(std::string(Type()) + "00421a3"));
}

// --- Types without entries ---

TEST_F(EntryRecord, EveryEntryOperationOfG3AnswersMinus999) {
    LoadItems("G3", {{13000, 2, 1, "C"}, {13100, 10, 8, "C"}});
    Read(CRecordBuilder().Add("G3").Put(7, "text"));
    const std::string before = Written();
    for (const int item : {13000, 13100, 13500}) {
        EXPECT_EQ(m_Records.ReadFirst(item), kNoGroup);
        EXPECT_EQ(m_Records.ReadNext(item), kNoGroup);
        EXPECT_EQ(m_Records.ReadPrev(item), kNoStepBack); // which is the same in all types that do not step back
        EXPECT_EQ(m_Records.FindFirst(item, "text"), kNotSupported);
        CGuardBuffer text(40);
        EXPECT_EQ(m_Records.HardReadDynItem(item, text.Data(), text.Size()), kNotSupported);
        EXPECT_EQ(m_Records.HardWriteDynItem(item, "a/b"), kNotSupported);
        EXPECT_TRUE(text.IsUntouched());
    }
    EXPECT_EQ(ReadResult(13100), kNoGroup);
    EXPECT_EQ(m_Records.WriteItem(13100, "other"), kNoGroup);
    EXPECT_EQ(Written(), before);
    EXPECT_EQ(m_Records.HardWriteItem(13100, "0123456789"), 0); // which does not ask the type
    EXPECT_EQ(Line("G3", 0).substr(7), Padded("0123456789", 121));
}

TEST_F(EntryRecord, RecordsOfUnknownTypesAnswerMinus62AndKeepTheirLines) {
    Read(CRecordBuilder().Add("QQ", "what it held").Add("QQ", "again"));
    ASSERT_EQ(m_Records.GetRecordCount(), 2);
    const std::string before = Written();
    CRecordAccess record = Record("UNKNOWN");
    const CItemDef definition;
    std::string_view text = "untouched";
    EXPECT_EQ(record.FirstEntry(1), kNoLayout);
    EXPECT_EQ(record.NextEntry(1), kNoLayout);
    EXPECT_EQ(record.PrevEntry(1), kNoLayout);
    EXPECT_EQ(record.ReadEntryItem(1, definition, text), kNoLayout);
    EXPECT_EQ(text, "untouched");
    EXPECT_EQ(record.WriteEntry(1, definition, "x"), kNoLayout);
    EXPECT_EQ(record.ReadLast(1), kNotSupported);
    EXPECT_EQ(record.FindFirst(1, "what"), kNotSupported);
    EXPECT_EQ(Written(), before);
    EXPECT_EQ(Line("UNKNOWN", 0), Padded("QQwhat it held"));
}

class ListType : public EntryRecord {
protected:
    ListType() {
        LoadItems("X1",
                  {{1000, 2, 1, "C,\"X1\""}, {1005, 10, 8, "C"}, {1010, 8, 18, "N,,,R 5.2"}, {1015, 4, 127, "C"}});
    }
};

TEST_F(ListType, EveryItemAnswersThatItIsTheFirstAndTheNext) {
    Read(CRecordBuilder().Add("X1").Add("X1"));
    for (const int item : {1000, 1005, 1341}) {
        EXPECT_EQ(m_Records.ReadFirst(item), 0);
        EXPECT_EQ(m_Records.ReadNext(item), 0);
        EXPECT_EQ(m_Records.ReadNext(item), 0);
        EXPECT_EQ(m_Records.ReadPrev(item), kNoStepBack);
        EXPECT_EQ(m_Records.ReadLast(item), kNotSupported);
    }
    EXPECT_EQ(Cursor("X1"), CPlace(0, 0));
}

TEST_F(ListType, ItemsAreReadFromAndWrittenIntoTheFirstLineOnly) {
    Read(CRecordBuilder().Add("X1").Put(7, "one").Add("X1").Put(7, "two").Put(17, "a  1"));
    EXPECT_EQ(Item(1005), Padded("one", 10));
    EXPECT_EQ(m_Records.WriteItem(1005, "ONE"), 0);
    EXPECT_EQ(m_Records.WriteItem(1010, "2.5"), 0);
    EXPECT_EQ(Line("X1", 0), Padded("X1     ONE           2.50"));
    EXPECT_EQ(Line("X1", 1), Padded("X1     two       a  1"));
}

TEST_F(ListType, AValueThatFailsItsCheckLeavesTheLine) {
    Read(CRecordBuilder().Add("X1").Put(7, "one").Put(17, "    1.00"));
    const std::string before = Written();
    EXPECT_EQ(m_Records.WriteItem(1005, "eleven more"), kTooLong);
    EXPECT_EQ(m_Records.WriteItem(1010, "abc"), kNotANumber);
    EXPECT_EQ(m_Records.WriteItem(1010, ""), kNotANumber);
    EXPECT_EQ(Written(), before);
}

TEST_F(ListType, AValueMayHoldTheDelimiter) {
    EXPECT_EQ(m_Records.WriteItem(1005, "a/b/c"), 0);
    EXPECT_EQ(Item(1005), Padded("a/b/c", 10));
}

TEST_F(ListType, AnItemThatLeavesTheLineIsCutThere) {
    EXPECT_EQ(m_Records.WriteItem(1015, "wxyz"), 0);
    EXPECT_EQ(Item(1015), "wx");
    EXPECT_EQ(Line("X1", 0), Padded("X1", 126) + "wx");
}

TEST_F(ListType, AllOtherOperationsAreNotThere) {
    Read(CRecordBuilder().Add("X1"));
    CGuardBuffer text(40);
    EXPECT_EQ(m_Records.HardReadDynItem(1005, text.Data(), text.Size()), kNotSupported);
    EXPECT_EQ(m_Records.HardWriteDynItem(1005, "a/b"), kNotSupported);
    EXPECT_EQ(CRecordAccess(Record("X1")).FindFirst(1005, ""), kNotSupported);
    EXPECT_EQ(CRecordAccess(Record("X1")).FindNext(1005, ""), kNotSupported);
    EXPECT_EQ(CRecordAccess(Record("X1")).PostRead(), -2);
    EXPECT_EQ(CRecordAccess(Record("X1")).PrepareWrite(), 0);
    EXPECT_TRUE(text.IsUntouched());
}

TEST_F(EntryRecord, ItemsWithoutARecordAreTold) {
    EXPECT_EQ(m_Records.ReadFirst(12015), kNoRecord);
    EXPECT_EQ(m_Records.ReadNext(12015), kNoRecord);
    EXPECT_EQ(ReadResult(12015), kNoRecord);
}

} // namespace
