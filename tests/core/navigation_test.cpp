// Finding record objects, stepping by item number, and the settings of the record set.
#include <string>
#include <tuple>
#include <vector>

#include <gmock/gmock.h>

#include "support/guard_buffer.h"
#include "support/record_set_test.h"

namespace {

using ::testing::ElementsAre;

constexpr int kBadArgument = -1;
constexpr int kNoRecord = -1;
constexpr int kNotSupported = -1;
constexpr int kNoTable = -40;
constexpr int kNoStepBack = -62;
constexpr int kWrongKey = -74;
constexpr int kWrongVersion = -15;

class Navigation : public RecordSetTest {
protected:
    /// The record-number marker of every line, as a save would write it.
    std::string Markers() {
        std::string markers;
        const std::string text = Written();
        for (std::size_t line = 0; line < text.size(); line += 128) {
            markers.push_back(text[line + 6]);
        }
        return markers;
    }
};

// --- Stepping ---

TEST_F(Navigation, WithoutATableEveryStepIsRefusedEvenForATypeThatIsThere) {
    CAllRecordsEx records;
    ASSERT_EQ(records.ReadAllRecordsEx(CRecordBuilder().Add("G1").Add("X1").Save(m_Folder.PathOf("g1.rec")).c_str()),
              0);
    for (const int item : {12015, 12020, 1000, 2020, 500, -1}) {
        EXPECT_EQ(records.ReadFirst(item), kNoTable) << item;
        EXPECT_EQ(records.ReadNext(item), kNoTable) << item;
        EXPECT_EQ(records.ReadPrev(item), kNoTable) << item;
        EXPECT_EQ(records.ReadLast(item), kNoTable) << item;
    }
}

TEST_F(Navigation, ATableOfTheWrongVersionIsNone) {
    CAllRecordsEx records;
    const std::string table = SmallTable().Write(m_Folder.PathOf("table"));
    ASSERT_EQ(records.ReadAllRecordsEx(CRecordBuilder().Add("G1").Save(m_Folder.PathOf("g1.rec")).c_str()), 0);
    ASSERT_EQ(records.LoadTable(table.c_str(), 3, 1), kWrongVersion);
    EXPECT_EQ(records.ReadFirst(12015), kNoTable);
    ASSERT_EQ(records.LoadTable(table.c_str(), 3, 2), 0);
    EXPECT_EQ(records.ReadFirst(12015), 0);
    ASSERT_EQ(records.LoadTable(table.c_str(), 2, 2), kWrongVersion);
    EXPECT_EQ(records.ReadFirst(12015), 0); // the earlier load still counts
}

TEST_F(Navigation, ATypeWithoutARecordIsTold) {
    Read(CRecordBuilder().Add("X1").Add("X8"));
    for (const int item : {12015, 2020, 8000, 100500, 500, 0, -1, -12015}) {
        EXPECT_EQ(m_Records.ReadFirst(item), kNoRecord) << item;
        EXPECT_EQ(m_Records.ReadNext(item), kNoRecord) << item;
        EXPECT_EQ(m_Records.ReadPrev(item), kNoRecord) << item;
        EXPECT_EQ(m_Records.ReadLast(item), kNoRecord) << item;
    }
}

TEST_F(Navigation, NoTypeStepsToItsLastEntry) {
    Read(CRecordBuilder().Add("X1").Add("G1").Add("X2").Add("FZ").Add("G3"));
    for (const int item : {1000, 12015, 12020, 2020, 200195, 13000}) {
        EXPECT_EQ(m_Records.ReadLast(item), kNotSupported) << item;
    }
}

TEST_F(Navigation, AStepAnswersWhatTheRecordAnswers) {
    Read(CRecordBuilder().Add("X1").Add("G1").Put(7, "aaaa").Put(17, "bbbb").Add("G3"));
    EXPECT_EQ(m_Records.ReadFirst(1000), 0);
    EXPECT_EQ(m_Records.ReadPrev(1000), kNoStepBack);
    EXPECT_EQ(m_Records.ReadFirst(12020), kWrongKey);
    EXPECT_EQ(m_Records.ReadFirst(12015), 0);
    EXPECT_EQ(Item(12015), "aaaa");
    EXPECT_EQ(m_Records.ReadNext(12015), 0);
    EXPECT_EQ(Item(12015), "bbbb");
    EXPECT_EQ(m_Records.ReadPrev(12015), kNoStepBack);
    EXPECT_EQ(m_Records.ReadFirst(13000), -999);
}

TEST_F(Navigation, TypesAreSteppedOverIndependently) {
    CTableBuilder table = SmallTable();
    table.Section("X2").Item(2020, 10, 8, "C").Item(2025, 7, 18, "C");
    Load(table);
    Read(CRecordBuilder().Add("G1").Put(17, "g two").Add("X2").Put(24, "x two"));
    ASSERT_EQ(m_Records.ReadNext(2020), 0);
    EXPECT_EQ(Item(12015), "    ");
    ASSERT_EQ(m_Records.ReadNext(12015), 0);
    ASSERT_EQ(m_Records.ReadPrev(2020), 0);
    EXPECT_EQ(Item(12015), "g tw");
    ASSERT_EQ(m_Records.ReadNext(2020), 0);
    EXPECT_EQ(Item(2020), Padded("x two", 10));
}

// --- Item numbers ---

TEST_F(Navigation, AnItemNumberNamesTheTypeWhoseRangeHoldsIt) {
    const std::vector<std::tuple<int, const char*>> rows = {{999, ""},
                                                            {1000, "X1"},
                                                            {1341, "X1"},
                                                            {1342, ""},
                                                            {1500, "W1"},
                                                            {2000, "X2"},
                                                            {2030, "X2"},
                                                            {2031, ""},
                                                            {2099, ""},
                                                            {2100, "X2N"},
                                                            {2110, "X2N"},
                                                            {2135, "X2N"},
                                                            {2136, ""},
                                                            {2500, "W2"},
                                                            {2530, "W2"},
                                                            {2599, ""},
                                                            {2600, "W2N"},
                                                            {2610, "W2N"},
                                                            {2635, "W2N"},
                                                            {2636, ""},
                                                            {8000, "X8"},
                                                            {8055, ""},
                                                            {9035, "X9"},
                                                            {9400, "X9_NEU"},
                                                            {9440, "X9_NEU"},
                                                            {16700, "Z0"},
                                                            {16712, "Z0"},
                                                            {17000, "G6"},
                                                            {18000, "Z9"},
                                                            {18100, "Z9"},
                                                            {19300, "GD"},
                                                            {19500, "GD"},
                                                            {19700, "GE"},
                                                            {19701, "GI"},
                                                            {19799, "GI"},
                                                            {19800, ""},
                                                            {33000, "M2"},
                                                            {100500, "K101_01"},
                                                            {115075, "K270_01"},
                                                            {200000, "FZ"},
                                                            {200330, "FZ"},
                                                            {200331, ""},
                                                            {0, ""},
                                                            {-1, ""},
                                                            {-2, ""},
                                                            {2147483647, ""},
                                                            {-2147483647 - 1, ""}};
    for (const auto& [item, type] : rows) {
        EXPECT_STREQ(CAllRecords::GetTypeOfItem(item), type) << item;
    }
}

TEST_F(Navigation, ItemsOfTheNewerFormsFindTheirRecords) {
    CTableBuilder table;
    table.Section("X2N").Item(2120, 10, 8, "C").Item(2125, 7, 18, "C");
    table.Section("X2").Item(2020, 10, 8, "C").Item(2025, 7, 18, "C");
    table.Section("W2N").Item(2620, 10, 8, "C").Item(2625, 7, 18, "C");
    Load(table);
    Read(CRecordBuilder().Add("X2").Add("W2"));
    EXPECT_EQ(m_Records.ReadFirst(2020), 0);
    EXPECT_EQ(m_Records.ReadFirst(2120), kNoRecord);
    EXPECT_EQ(m_Records.ReadFirst(2620), kNoRecord);
    EXPECT_EQ(m_Records.WriteItem(2620, "a/b"), 0);
    EXPECT_EQ(m_Records.WriteItem(2120, "a/b"), 0);
    EXPECT_EQ(m_Records.ReadFirst(2620), 0);
    EXPECT_EQ(m_Records.ReadFirst(2120), 0);
    EXPECT_THAT(Types(), ElementsAre("X2", "W2", "W2N", "X2N"));
}

// --- Looking up record objects ---

TEST_F(Navigation, ARecordIsFoundByItsExactKey) {
    Read(CRecordBuilder().Add("X1").Add("X2N").Add("XT15").Add("X9_NEU").Add("QQ").Put(7, "first").Add("QQ"));
    for (const char* type : {"X1", "X2N", "XT15", "X9_NEU"}) {
        ASSERT_NE(m_Records.ExistRecord(type), nullptr) << type;
        EXPECT_STREQ(m_Records.ExistRecord(type)->GetType(), type);
    }
    for (const char* type : {"", "X", "x1", "X1 ", "X2", "X9", "XT", "XT16", "QQ", "W1", "K101_01", "X1LONGER"}) {
        EXPECT_EQ(m_Records.ExistRecord(type), nullptr) << type;
    }
    EXPECT_EQ(m_Records.ExistRecord(nullptr), nullptr);
}

TEST_F(Navigation, TheFirstOfTheUnknownRecordsIsFound) {
    Read(CRecordBuilder().Add("QQ").Put(9, "first").Add("RR").Put(9, "second"));
    ASSERT_NE(m_Records.ExistRecord("UNKNOWN"), nullptr);
    EXPECT_EQ(LinesOf("UNKNOWN"), std::vector<std::string>{Padded("QQ       first")});
}

TEST_F(Navigation, RecordObjectsAreCountedAndListedInStoreOrder) {
    Read(CRecordBuilder().Add("W4").Add("X1").Add("W4").Add("G1"));
    EXPECT_EQ(m_Records.GetRecordCount(), 3);
    EXPECT_THAT(Types(), ElementsAre("W4", "X1", "G1"));
    EXPECT_EQ(m_Records.GetRecord(-1), nullptr);
    EXPECT_EQ(m_Records.GetRecord(3), nullptr);
}

// --- Delimiter ---

TEST_F(Navigation, TheDelimiterIsASlashAtFirstAndTheOneBeforeIsHandedOut) {
    EXPECT_EQ(m_Records.SetDelimiter(';'), '/');
    EXPECT_EQ(m_Records.SetDelimiter('\xFE'), ';');
    EXPECT_EQ(m_Records.SetDelimiter('/'), '\xFE');
    CAllRecords other;
    EXPECT_EQ(other.SetDelimiter('|'), '/');
}

TEST_F(Navigation, TheDelimiterReachesRecordsThatExist) {
    Read(CRecordBuilder().Add("G1"));
    m_Records.SetDelimiter(';');
    EXPECT_EQ(m_Records.WriteItem(12015, "a/b;c"), 0);
    ASSERT_EQ(m_Records.ReadFirst(12015), 0);
    EXPECT_EQ(Item(12015), "a/b ");
    EXPECT_EQ(Item(12020), "c     ");
}

// --- Record numbering ---

TEST_F(Navigation, RecordNumberingTakesOneCapitalLetterOrAnAsteriskAndThreeModes) {
    for (const int mode : {1, 0, -1}) {
        for (char letter = 'A'; letter <= 'Z'; ++letter) {
            EXPECT_EQ(m_Records.SetRecNums(std::string(1, letter).c_str(), mode), 0) << letter << mode;
        }
        EXPECT_EQ(m_Records.SetRecNums("*", mode), 0);
        for (const char* letter : {"", "ab", "a", "z", "AB", "A ", "**", "1", " ", "@", "[", "\xC4"}) {
            EXPECT_EQ(m_Records.SetRecNums(letter, mode), kBadArgument) << letter << mode;
        }
        EXPECT_EQ(m_Records.SetRecNums(nullptr, mode), kBadArgument);
    }
    for (const int mode : {2, -2, 100, -2147483647 - 1}) {
        EXPECT_EQ(m_Records.SetRecNums("X", mode), kBadArgument) << mode;
        EXPECT_EQ(m_Records.SetRecNums("*", mode), kBadArgument) << mode;
    }
}

TEST_F(Navigation, NumberedLinesCarryTheirMarker) {
    Read(CRecordBuilder().Add("X1").Add("W4").Add("Z2"));
    EXPECT_EQ(Markers(), "123");
    EXPECT_EQ(m_Records.SetRecNums("W", 0), 0);
    EXPECT_EQ(Markers(), "1 3");
    EXPECT_EQ(m_Records.SetRecNums("W", -1), 0);
    EXPECT_EQ(Markers(), "1 3");
    EXPECT_EQ(m_Records.SetRecNums("*", -1), 0);
    EXPECT_EQ(Markers(), "1 3");
    EXPECT_EQ(m_Records.SetRecNums("Z", 0), 0);
    EXPECT_EQ(Markers(), "3  ");
    EXPECT_EQ(m_Records.SetRecNums("*", 0), 0);
    EXPECT_EQ(Markers(), "   ");
    EXPECT_EQ(m_Records.SetRecNums("Z", 1), 0);
    EXPECT_EQ(m_Records.SetRecNums("Z", 1), 0);
    EXPECT_EQ(Markers(), "  3");
    EXPECT_EQ(m_Records.SetRecNums("Z", 0), 0); // once is enough, however often it was switched on
    EXPECT_EQ(Markers(), "   ");
    EXPECT_EQ(m_Records.SetRecNums("*", 1), 0);
    EXPECT_EQ(Markers(), "123");
}

TEST_F(Navigation, ARefusedCallChangesNoNumbering) {
    Read(CRecordBuilder().Add("X1").Add("W4"));
    for (const char* letter : {"ab", "a", "XW", "x", ""}) {
        EXPECT_EQ(m_Records.SetRecNums(letter, 0), kBadArgument);
    }
    EXPECT_EQ(m_Records.SetRecNums("X", 2), kBadArgument);
    EXPECT_EQ(Markers(), "13");
}

TEST_F(Navigation, BeforeAnyReadNothingIsNumbered) {
    ASSERT_EQ(m_Records.WriteItem(12015, "a/b"), 0);
    EXPECT_EQ(Markers(), " ");
}

} // namespace
