#include <climits>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "support/record_set_test.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kMajor = CTableBuilder::kVersionMajor;
constexpr int kMinor = CTableBuilder::kVersionMinor;

std::vector<std::string> All(const CStringArray* list) {
    return {list->begin(), list->end()};
}

std::vector<unsigned> All(const CUIntArray* list) {
    return {list->begin(), list->end()};
}

// The codes a list has when the table file gives none.
const std::vector<std::string> kListA = {"E",   "ET",  "TE",  "I",  "IT",  "N",  "P",  "V",  "U",  "H",   "LE",  "LE1",
                                         "LE2", "LE3", "LE4", "LI", "LI1", "L",  "S",  "IE", "NE", "PE",  "UE",  "HE",
                                         "LEE", "SN",  "LV",  "EV", "EVI", "EO", "IO", "NO", "PO", "LEO", "LIO", "LO"};
const std::vector<std::string> kListB = {"E",   "ET",  "TE",  "I",   "IT",  "N",  "P",   "V",   "U", "H",
                                         "LE",  "LE1", "LE2", "LE3", "LE4", "LI", "LI1", "L",   "S", "R",
                                         "E G", "PE",  "EO",  "IO",  "NO",  "PO", "LEO", "LIO", "LO"};
const std::vector<std::string> kListC = {"BM", "EM", "IM", "WM", "MM", "LM", "NM", "FM", "VM", "QM", "GM", "XM", "TM"};
const std::vector<unsigned> kKindsC = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 3};
const std::vector<std::string> kListD = {"EM", "IM", "WM", "MM", "LM"};
const std::vector<unsigned> kKindsD = {0, 0, 0, 0, 0};

// A fresh record set, without the fixture's table.
class LoadTable : public ::testing::Test {
protected:
    LoadTable() { m_Records.SetCharacterSet("ANSI"); }

    int LoadVersion(const CTableBuilder& table, int versionMajor, int versionMinor) {
        return m_Records.LoadTable(table.Write(m_Folder.PathOf("table")).c_str(), versionMajor, versionMinor);
    }

    int Load(const CTableBuilder& table) { return LoadVersion(table, kMajor, kMinor); }

    void Read(const CRecordBuilder& records) {
        ASSERT_EQ(m_Records.ReadAllRecords(records.Save(m_Folder.PathOf("records")).c_str()), 1);
    }

    // The item's text, or the code that reading it gave.
    std::string Item(int item) {
        char text[200];
        const int result = m_Records.ReadItem(item, text, sizeof text);
        return result == TABVEX_OK ? text : std::to_string(result);
    }

    CTempFolder m_Folder;
    CAllRecordsEx m_Records;
};

// An "X1" layout with an item of three characters at a position.
CTableBuilder ItemAt(int position) {
    return CTableBuilder().Section("X1").Item(1005, 3, position, "C");
}

CRecordBuilder X1() {
    CRecordBuilder records;
    return records.Add("X1", "     abcdefghi");
}

// --- Results
// ------------------------------------------------------------------------------------------------------------------

TEST_F(LoadTable, SucceedsWhenTheVersionIsTheOneRequired) {
    EXPECT_EQ(Load(ItemAt(8)), 0);
}

TEST_F(LoadTable, BothPartsOfTheVersionCount) {
    for (const auto& [versionMajor, versionMinor] :
         {std::pair{3, 1}, {2, 2}, {2, 3}, {3, 20}, {0, 0}, {-3, -2}, {INT_MAX, INT_MIN}}) {
        EXPECT_EQ(LoadVersion(ItemAt(8), versionMajor, versionMinor), TABVEX_TABLE_WRONG_VERSION) << versionMajor;
    }
    EXPECT_EQ(TABVEX_TABLE_WRONG_VERSION, -15);
}

TEST_F(LoadTable, ATableWithoutAVersionHasVersionZero) {
    EXPECT_EQ(LoadVersion(ItemAt(8).Header("VERSION", ""), 0, 0), 0);
}

TEST_F(LoadTable, PassesTheCodesOfTheTableFileOn) {
    EXPECT_EQ(m_Records.LoadTable(m_Folder.PathOf("none").c_str(), kMajor, kMinor), -1);
    EXPECT_EQ(m_Records.LoadTable(m_Folder.Path().c_str(), kMajor, kMinor), -1);
    EXPECT_EQ(m_Records.LoadTable("", kMajor, kMinor), -1);
    EXPECT_EQ(m_Records.LoadTable(nullptr, kMajor, kMinor), -1);
    EXPECT_EQ(m_Records.LoadTable(m_Folder.Write("empty", "").c_str(), kMajor, kMinor), -3);
    EXPECT_EQ(m_Records.LoadTable(m_Folder.Write("text", "VERSION=3.2\n").c_str(), kMajor, kMinor), -4);
}

// --- What a load changes
// ------------------------------------------------------------------------------------------------------

TEST_F(LoadTable, SearchesKnowTheTypesOfItemsOnceATableOfAnyVersionWasLoaded) {
    Read(CRecordBuilder().Add("X2"));
    EXPECT_EQ(m_Records.FindFirst(2020, "x"), TABVEX_FIND_NO_TYPE);
    EXPECT_EQ(LoadVersion(ItemAt(8), 9, 9), TABVEX_TABLE_WRONG_VERSION);
    EXPECT_EQ(m_Records.FindFirst(2020, "x"), TABVEX_FIND_NO_DEFINITION);
    EXPECT_EQ(m_Records.FindFirst(1005, "x"), TABVEX_FIND_NO_RECORD);
}

TEST_F(LoadTable, ItemsAreRefusedUntilATableIsLoaded) {
    Read(X1());
    EXPECT_EQ(Item(1005), "-40");
    EXPECT_EQ(m_Records.ReadFirst(1005), TABVEX_NO_TABLE);
    m_Records.DestroyAllRecords();
    ASSERT_EQ(Load(ItemAt(8)), 0);
    Read(X1());
    EXPECT_EQ(Item(1005), "abc");
    EXPECT_EQ(m_Records.ReadFirst(1005), 0);
}

TEST_F(LoadTable, ATableOfAnotherVersionIsKeptInMemoryAndItemsStayRefused) {
    EXPECT_EQ(LoadVersion(ItemAt(8).Header("VERSION", "2.0"), 2, 1), -15);
    EXPECT_EQ(m_Records.SumItemLengths("X1", 1000, 1341), 3);
    Read(X1());
    EXPECT_EQ(m_Records.ExistRecord("X1")->GetLayout().size(), 1U);
    EXPECT_EQ(Item(1005), "-40");
    EXPECT_EQ(All(m_Records.GetX4RepArtList()), kListA);
}

TEST_F(LoadTable, ATableOfAnotherVersionBehindAGoodOneIsUsed) {
    ASSERT_EQ(Load(ItemAt(8)), 0);
    EXPECT_EQ(LoadVersion(ItemAt(11), 9, 9), -15);
    Read(X1());
    EXPECT_EQ(Item(1005), "def"); // the flag that an earlier load has set is never cleared
}

TEST_F(LoadTable, AFailedLoadChangesNothing) {
    ASSERT_EQ(Load(ItemAt(8)), 0);
    char type[] = "X4";
    m_Records.SetRepairMethodList(type, "AA/BB");
    EXPECT_EQ(m_Records.LoadTable(m_Folder.PathOf("none").c_str(), kMajor, kMinor), -1);
    EXPECT_EQ(m_Records.LoadTable(m_Folder.Write("text", "[DATA_X1]\n1005|9|1|C\n").c_str(), kMajor, kMinor), -4);
    EXPECT_EQ(m_Records.SumItemLengths("X1", 1000, 1341), 3);
    EXPECT_THAT(All(m_Records.GetX4RepArtList()), ElementsAre("AA", "BB"));
    Read(X1());
    EXPECT_EQ(Item(1005), "abc");
}

TEST_F(LoadTable, ALoadBehindAFailedOneSucceeds) {
    EXPECT_EQ(m_Records.LoadTable(m_Folder.PathOf("none").c_str(), kMajor, kMinor), -1);
    EXPECT_EQ(m_Records.LoadTable(m_Folder.Write("text", "x\n").c_str(), kMajor, kMinor), -4);
    EXPECT_EQ(Load(ItemAt(8)), 0);
}

TEST_F(LoadTable, RecordsThatExistKeepTheirLayoutsAndNewOnesGetTheNewTables) {
    ASSERT_EQ(Load(ItemAt(8)), 0);
    Read(X1());
    ASSERT_EQ(Load(ItemAt(11)), 0);
    EXPECT_EQ(Item(1005), "abc");
    Read(X1());
    EXPECT_EQ(Item(1005), "def");
}

TEST_F(LoadTable, ARecordCreatedBeforeAnyTableHasNoItems) {
    Read(X1());
    ASSERT_EQ(Load(ItemAt(8)), 0);
    EXPECT_TRUE(m_Records.ExistRecord("X1")->GetLayout().empty());
    EXPECT_EQ(Item(1005), "-1");
}

TEST_F(LoadTable, RecordsStayWhereTheyAre) {
    ASSERT_EQ(Load(ItemAt(8)), 0);
    Read(X1().Add("QQ"));
    ASSERT_EQ(Load(ItemAt(11)), 0);
    EXPECT_EQ(m_Records.GetRecordCount(), 2);
    EXPECT_EQ(m_Records.ExistRecord("X1")->GetLine(0), Padded("X1     abcdefghi"));
}

TEST_F(LoadTable, ATypeThatANewTableLacksHasNoItemsAnyMore) {
    ASSERT_EQ(Load(ItemAt(8)), 0);
    ASSERT_EQ(Load(CTableBuilder().Section("W1").Item(1500, 2, 1, "C")), 0);
    EXPECT_EQ(m_Records.SumItemLengths("X1", 1000, 1341), 0);
    Read(X1().Add("W1"));
    EXPECT_EQ(Item(1005), "-1");
    EXPECT_EQ(Item(1500), "W1");
}

TEST_F(LoadTable, HeaderKeysThatANewFileLacksKeepTheirValues) {
    ASSERT_EQ(Load(ItemAt(8)), 0);
    const std::string path = m_Folder.Write("short", "[HEADER]\nID=x\n[DATA_X1]\n1005|3|11|C\n");
    EXPECT_EQ(m_Records.LoadTable(path.c_str(), kMajor, kMinor), 0);
    Read(X1());
    EXPECT_EQ(Item(1005), "def");
}

TEST_F(LoadTable, LoadingOverAndOverStaysTheSame) {
    for (int i = 0; i < 50; ++i) {
        ASSERT_EQ(Load(ItemAt(8)), 0);
        Read(X1());
        ASSERT_EQ(Item(1005), "abc");
        ASSERT_EQ(m_Records.GetX4RepArtList()->GetSize(), 36);
    }
}

TEST_F(LoadTable, ANewRecordGetsTheDefaultsOfTheTable) {
    ASSERT_EQ(Load(CTableBuilder()
                       .Section("X1")
                       .Item(1000, 2, 1, "C,\"X1\"")
                       .Item(1005, 4, 8, "C,\"ab\"")
                       .Item(1010, 3, 20, "C")),
              0);
    EXPECT_EQ(m_Records.WriteItem(1010, "xyz"), 0);
    const std::string line(m_Records.ExistRecord("X1")->GetLine(0), 128);
    EXPECT_EQ(line, "X1     ab" + std::string(2, '\0') + Padded("        xyz", 117));
}

TEST_F(LoadTable, SumsOfItemLengthsComeFromTheSectionOfTheType) {
    ASSERT_EQ(Load(CTableBuilder()
                       .Section("G1")
                       .Item(12015, 4, 8, "C")
                       .Item(12020, 6, 12, "C")
                       .Section("K101_01")
                       .Item(100500, 7, 1, "C")),
              0);
    EXPECT_EQ(m_Records.SumItemLengths("G1", 12015, 12020), 10);
    EXPECT_EQ(m_Records.SumItemLengths("G1", 12016, 12020), 6);
    EXPECT_EQ(m_Records.SumItemLengths("K101_01", 100500, 100790), 7);
    EXPECT_EQ(m_Records.SumItemLengths("X1", INT_MIN, INT_MAX), 0);
    EXPECT_EQ(m_Records.SumItemLengths("QQ", INT_MIN, INT_MAX), 0);
    EXPECT_EQ(m_Records.SumItemLengths(nullptr, INT_MIN, INT_MAX), TABVEX_BAD_ARGUMENT);
}

TEST_F(LoadTable, SumsAreZeroWithoutATable) {
    EXPECT_EQ(m_Records.SumItemLengths("X1", INT_MIN, INT_MAX), 0);
}

TEST_F(LoadTable, ThePlainRecordSetLoadsTablesAsWell) {
    CAllRecords records;
    const std::string path = ItemAt(8).Write(m_Folder.PathOf("plain"));
    EXPECT_EQ(records.LoadTable(path.c_str(), 3, 3), -15);
    EXPECT_EQ(records.LoadTable(path.c_str(), kMajor, kMinor), 0);
    EXPECT_EQ(records.ReadAllRecords(X1().Save(m_Folder.PathOf("records")).c_str()), 1);
    char text[10];
    EXPECT_EQ(records.ReadItem(1005, text, sizeof text), 0);
    EXPECT_STREQ(text, "abc");
    EXPECT_EQ(All(records.GetX4RepArtList()), kListA);
}

// --- Code lists
// ---------------------------------------------------------------------------------------------------------------

TEST_F(LoadTable, ListsAreEmptyBeforeAnyTable) {
    for (const CStringArray* list :
         {m_Records.GetX4RepArtList(), m_Records.GetW4RepArtList(), m_Records.GetX6RepArtList(),
          m_Records.GetW6RepArtList(), m_Records.GetG9RepArtList(), m_Records.GetX4MutationList(),
          m_Records.GetW4MutationList(), m_Records.GetG9MutationList()}) {
        EXPECT_THAT(All(list), IsEmpty());
    }
    EXPECT_THAT(All(m_Records.GetX4MutationKinds()), IsEmpty());
    EXPECT_THAT(All(m_Records.GetW4MutationKinds()), IsEmpty());
    EXPECT_THAT(All(m_Records.GetG9MutationKinds()), IsEmpty());
}

TEST_F(LoadTable, ListsThatTheTableDoesNotGiveHaveDefaultsButTheW4RepairMethodsOnPurpose) {
    ASSERT_EQ(Load(CTableBuilder()), 0);
    EXPECT_EQ(All(m_Records.GetX4RepArtList()), kListA);
    EXPECT_EQ(All(m_Records.GetX6RepArtList()), kListB);
    EXPECT_EQ(All(m_Records.GetW6RepArtList()), kListB);
    EXPECT_EQ(All(m_Records.GetG9RepArtList()), kListA);
    EXPECT_EQ(All(m_Records.GetX4MutationList()), kListC);
    EXPECT_EQ(All(m_Records.GetX4MutationKinds()), kKindsC);
    EXPECT_EQ(All(m_Records.GetG9MutationList()), kListC);
    EXPECT_EQ(All(m_Records.GetG9MutationKinds()), kKindsC);
    EXPECT_EQ(All(m_Records.GetW4MutationList()), kListD);
    EXPECT_EQ(All(m_Records.GetW4MutationKinds()), kKindsD);
    EXPECT_THAT(All(m_Records.GetW4RepArtList()), IsEmpty()); // a failed reading is not replaced here
}

struct CListRow {
    const char* Type;
    int Item;
    CStringArray* (CAllRecordsEx::*List)();
};

const CListRow kRepairMethodRows[] = {{"X4", 4025, &CAllRecordsEx::GetX4RepArtList},
                                      {"W4", 4515, &CAllRecordsEx::GetW4RepArtList},
                                      {"X6", 6015, &CAllRecordsEx::GetX6RepArtList},
                                      {"W6", 6515, &CAllRecordsEx::GetW6RepArtList},
                                      {"G9", 19225, &CAllRecordsEx::GetG9RepArtList}};

// The repair methods of a row's type when its item has this line behind item number and a delimiter.
std::vector<std::string> RepairMethods(const CListRow& row, const std::string& columns) {
    const CTempFolder folder;
    CAllRecordsEx records;
    const std::string path = CTableBuilder()
                                 .Section(row.Type)
                                 .Line("1|2|1|C,,,,,(\"other\")")
                                 .Line(std::to_string(row.Item) + "|" + columns)
                                 .Write(folder.PathOf("table"));
    EXPECT_EQ(records.LoadTable(path.c_str(), kMajor, kMinor), 0);
    return All((records.*row.List)());
}

TEST_F(LoadTable, RepairMethodsAreTheValuesOfTheirItems) {
    for (const CListRow& row : kRepairMethodRows) {
        EXPECT_THAT(RepairMethods(row, "3|8|C,,,,,(\"AA\";\"B C\";\"D\")"), ElementsAre("AA", "B C", "D")) << row.Type;
        EXPECT_THAT(RepairMethods(row, "3|8|N,,,,,(1;2.5)"), ElementsAre("1", "2.5")) << row.Type;
    }
}

TEST_F(LoadTable, RepairMethodsOfAnItemWithoutValuesAreTheDefaultsOfEveryType) {
    for (const CListRow& row : kRepairMethodRows) {
        const bool other = row.Type == std::string("X6") || row.Type == std::string("W6");
        EXPECT_EQ(RepairMethods(row, "3|8|C"), other ? kListB : kListA) << row.Type;
    }
}

TEST_F(LoadTable, RepairMethodsThatCannotBeReadAreTheDefaultsButEmptyForW4OnPurpose) {
    for (const CListRow& row : kRepairMethodRows) {
        const bool other = row.Type == std::string("X6") || row.Type == std::string("W6");
        const std::vector<std::string>& defaults = other ? kListB : kListA;
        for (const char* columns : {"3|8|Q,,,,,(\"AA\")", "3|8|C,,,,,(\"AA\"", "3|8|C,,,,,(AA)", "3|8|", "3|8"}) {
            EXPECT_EQ(RepairMethods(row, columns), row.Item == 4515 ? std::vector<std::string>() : defaults)
                << row.Type << " " << columns;
        }
    }
}

TEST_F(LoadTable, ListsTakeTheFirstLineWithTheirItemsNumber) {
    ASSERT_EQ(Load(CTableBuilder()
                       .Section("X4")
                       .Item(4025, 3, 8, "C,,,,,(\"one\")")
                       .Item(4025, 3, 8, "C,,,,,(\"two\")")
                       .Section("X6")
                       .Line(" 6015x|3|8|C,,,,,(\"six\")")
                       .Section("X4")
                       .Item(4055, 3, 8, "C,,,,,(\"late\")")),
              0);
    EXPECT_THAT(All(m_Records.GetX4RepArtList()), ElementsAre("one"));
    EXPECT_THAT(All(m_Records.GetX6RepArtList()), ElementsAre("six"));
    EXPECT_EQ(All(m_Records.GetX4MutationList()), kListC); // only the first section of the type is looked at
}

TEST_F(LoadTable, ABadLineBeforeTheItemDoesNoHarm) {
    ASSERT_EQ(Load(CTableBuilder().Section("X4").Line("x").Line("4000|2|1|Q").Item(4025, 3, 8, "C,,,,,(\"one\")")), 0);
    EXPECT_THAT(All(m_Records.GetX4RepArtList()), ElementsAre("one"));
}

struct CMutationRow {
    const char* Type;
    int Numeric;
    int TwoPart;
    CStringArray* (CAllRecordsEx::*Codes)();
    CUIntArray* (CAllRecordsEx::*Kinds)();
};

const CMutationRow kMutationRows[] = {
    {"X4", 4055, 4070, &CAllRecordsEx::GetX4MutationList, &CAllRecordsEx::GetX4MutationKinds},
    {"G9", 19255, 19270, &CAllRecordsEx::GetG9MutationList, &CAllRecordsEx::GetG9MutationKinds}};

TEST_F(LoadTable, MutationCodesAreThoseOfBothItemsWithKindsZeroAndFour) {
    for (const CMutationRow& row : kMutationRows) {
        ASSERT_EQ(Load(CTableBuilder()
                           .Section(row.Type)
                           .Item(row.TwoPart, 3, 8, "C,,,,,(\"TM\")")
                           .Item(row.Numeric, 3, 8, "C,,,,,(\"EM\";\"IM\")")),
                  0);
        EXPECT_THAT(All((m_Records.*row.Codes)()), ElementsAre("EM", "IM", "TM")) << row.Type;
        EXPECT_THAT(All((m_Records.*row.Kinds)()), ElementsAre(0, 0, 4)) << row.Type;
    }
}

TEST_F(LoadTable, MutationCodesOfOneItemAreEnough) {
    for (const CMutationRow& row : kMutationRows) {
        ASSERT_EQ(Load(CTableBuilder().Section(row.Type).Item(row.TwoPart, 3, 8, "C,,,,,(\"TM\";\"UM\")")), 0);
        EXPECT_THAT(All((m_Records.*row.Codes)()), ElementsAre("TM", "UM")) << row.Type;
        EXPECT_THAT(All((m_Records.*row.Kinds)()), ElementsAre(4, 4)) << row.Type;
        ASSERT_EQ(Load(CTableBuilder().Section(row.Type).Item(row.Numeric, 3, 8, "C,,,,,(\"EM\")")), 0);
        EXPECT_THAT(All((m_Records.*row.Codes)()), ElementsAre("EM")) << row.Type;
        EXPECT_THAT(All((m_Records.*row.Kinds)()), ElementsAre(0)) << row.Type;
    }
}

TEST_F(LoadTable, MutationCodesThatTheTableDoesNotGiveAreTheDefaults) {
    for (const CMutationRow& row : kMutationRows) {
        for (const char* descriptor : {"C", "Q", "C,,,,,(\"EM\""}) {
            ASSERT_EQ(
                Load(
                    CTableBuilder().Section(row.Type).Item(row.Numeric, 3, 8, descriptor).Item(row.TwoPart, 3, 8, "C")),
                0);
            EXPECT_EQ(All((m_Records.*row.Codes)()), kListC) << row.Type << " " << descriptor;
            EXPECT_EQ(All((m_Records.*row.Kinds)()), kKindsC) << row.Type << " " << descriptor;
        }
    }
}

TEST_F(LoadTable, W4MutationCodesComeFromOneItemWithKindZero) {
    ASSERT_EQ(Load(CTableBuilder().Section("W4").Item(4555, 3, 8, "C,,,,,(\"AM\";\"BM\")")), 0);
    EXPECT_THAT(All(m_Records.GetW4MutationList()), ElementsAre("AM", "BM"));
    EXPECT_THAT(All(m_Records.GetW4MutationKinds()), ElementsAre(0, 0));
    for (const char* descriptor : {"C", "Q"}) {
        ASSERT_EQ(Load(CTableBuilder().Section("W4").Item(4555, 3, 8, descriptor)), 0);
        EXPECT_EQ(All(m_Records.GetW4MutationList()), kListD) << descriptor;
        EXPECT_EQ(All(m_Records.GetW4MutationKinds()), kKindsD) << descriptor;
    }
}

TEST_F(LoadTable, EveryLoadFillsTheListsAnew) {
    char type[] = "X4";
    ASSERT_EQ(Load(CTableBuilder()), 0);
    m_Records.SetRepairMethodList(type, "AA");
    m_Records.SetMutationList(type, "AM/7");
    ASSERT_EQ(Load(CTableBuilder()), 0);
    EXPECT_EQ(All(m_Records.GetX4RepArtList()), kListA);
    EXPECT_EQ(All(m_Records.GetX4MutationList()), kListC);
    EXPECT_EQ(All(m_Records.GetX4MutationKinds()), kKindsC);
}

TEST_F(LoadTable, ThePlainRecordSetLeavesTheG9ListsToTheExtendedOne) {
    CAllRecords records;
    EXPECT_EQ(records.LoadTable(CTableBuilder().Write(m_Folder.PathOf("table")).c_str(), kMajor, kMinor), 0);
    EXPECT_EQ(All(records.GetX4MutationList()), kListC);
    EXPECT_EQ(All(records.GetW4MutationList()), kListD);
    EXPECT_EQ(All(records.GetX6RepArtList()), kListB);
}

// --- Layouts and lists
// ----------------------------------------------------------------------------------------------------------

class LayoutLists : public LoadTable {
protected:
    // The value list of an item in a new record of the type.
    std::vector<std::string> ValuesOf(const char* type, int item) {
        Read(CRecordBuilder().Add(type));
        const CItemDef* definition = m_Records.ExistRecord(type)->FindItem(item);
        EXPECT_NE(definition, nullptr) << item;
        return definition == nullptr ? std::vector<std::string>() : definition->Values;
    }

    // A section of these items, without values of their own.
    static CTableBuilder Items(const char* type, const std::vector<int>& items) {
        CTableBuilder table = CTableBuilder().Section(type).Item(1, 2, 1, "C");
        for (const int item : items) {
            table.Item(item, 3, 8, "C");
        }
        return table;
    }
};

TEST_F(LayoutLists, RepairMethodsOfX6AndW6AreTheValuesOfTheirItems) {
    ASSERT_EQ(Load(Items("X6", {6015})), 0);
    EXPECT_EQ(ValuesOf("X6", 6015), kListB);
    ASSERT_EQ(Load(Items("W6", {6515})), 0);
    EXPECT_EQ(ValuesOf("W6", 6515), kListB);
}

TEST_F(LayoutLists, W4PassesItsRepairMethodsAndMutationCodes) {
    ASSERT_EQ(Load(Items("W4", {4515, 4555})), 0);
    EXPECT_EQ(ValuesOf("W4", 4515), kListA);
    EXPECT_THAT(ValuesOf("W4", 4555), IsEmpty()); // the default kinds are 0, the item takes 1 to 8
    char type[] = "W4";
    m_Records.SetMutationList(type, "AM/0/BM/1/CM/8/DM/9");
    EXPECT_THAT(ValuesOf("W4", 4555), ElementsAre("BM", "CM"));
}

TEST_F(LayoutLists, OnlyTheNewFormOfX4PassesItsLists) {
    ASSERT_EQ(Load(Items("X4", {4025, 4055, 4070, 4085})), 0);
    EXPECT_THAT(ValuesOf("X4", 4025), IsEmpty());
    EXPECT_EQ(m_Records.UseX4New(1), 0);
    EXPECT_EQ(ValuesOf("X4", 4025), kListA);
    EXPECT_THAT(ValuesOf("X4", 4055), ElementsAre("TM")); // of the defaults only the two-part code is of kinds 1 to 8
    EXPECT_THAT(ValuesOf("X4", 4070), ElementsAre("TM"));
    EXPECT_THAT(ValuesOf("X4", 4085), IsEmpty());
    EXPECT_EQ(m_Records.UseX4New(0), 1);
    EXPECT_THAT(ValuesOf("X4", 4025), IsEmpty());
}

TEST_F(LayoutLists, G9PassesItsLists) {
    ASSERT_EQ(Load(Items("G9", {19225, 19255, 19270})), 0);
    EXPECT_EQ(ValuesOf("G9", 19225), kListA);
    EXPECT_THAT(ValuesOf("G9", 19255), ElementsAre("TM"));
    EXPECT_THAT(ValuesOf("G9", 19270), ElementsAre("TM"));
}

TEST_F(LayoutLists, OtherTypesPassNone) {
    ASSERT_EQ(Load(Items("X1", {4025, 6015, 4055})), 0);
    EXPECT_THAT(ValuesOf("X1", 4025), IsEmpty());
    EXPECT_THAT(ValuesOf("X1", 6015), IsEmpty());
    EXPECT_THAT(ValuesOf("X1", 4055), IsEmpty());
}

TEST_F(LayoutLists, AListThatACallerSetsReachesRecordsCreatedFromThenOn) {
    ASSERT_EQ(Load(Items("X6", {6015})), 0);
    Read(CRecordBuilder().Add("X6"));
    char type[] = "x6";
    m_Records.SetRepairMethodList(type, "AA/BB");
    EXPECT_EQ(m_Records.ExistRecord("X6")->FindItem(6015)->Values, kListB);
    EXPECT_THAT(ValuesOf("X6", 6015), ElementsAre("AA", "BB"));
}

} // namespace
