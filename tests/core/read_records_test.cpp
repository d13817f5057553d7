#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "support/odd_files.h"
#include "support/record_set_test.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Reading is the same with and without a table; these tests need none but the fixture's.
using ReadRecords = RecordSetTest;

CRecordBuilder ThreeTypes() {
    CRecordBuilder records;
    return records.Add("X1", " one").Add("W4", " two").Add("X1", " three");
}

std::vector<std::string> TypesOf(const CAllRecords& records) {
    std::vector<std::string> types;
    types.reserve(static_cast<std::size_t>(records.GetRecordCount()));
    for (int index = 0; index < records.GetRecordCount(); ++index) {
        types.emplace_back(records.GetRecord(index)->GetType());
    }
    return types;
}

TEST_F(ReadRecords, ANewRecordSetIsEmpty) {
    EXPECT_EQ(m_Records.GetRecordCount(), 0);
    EXPECT_EQ(m_Records.GetRecord(0), nullptr);
    EXPECT_EQ(m_Records.GetRecord(-1), nullptr);
    EXPECT_EQ(m_Records.ExistRecord("X1"), nullptr);
    EXPECT_EQ(m_Records.ExistRecord(nullptr), nullptr);
}

// --- Which object a line goes to ------------------------------------------------------------------------------------

TEST_F(ReadRecords, AllLinesOfATypeGoToOneRecordInStoreOrder) {
    Read(ThreeTypes());
    EXPECT_THAT(Types(), ElementsAre("X1", "W4"));
    EXPECT_THAT(LinesOf("X1"), ElementsAre(Padded("X1 one"), Padded("X1 three")));
    EXPECT_THAT(LinesOf("W4"), ElementsAre(Padded("W4 two")));
}

TEST_F(ReadRecords, TheStoreKeepsTheOrderInWhichTypesAreMet) {
    Read(CRecordBuilder().Add("Z2").Add("X1").Add("XT15").Add("G9").Add("X$").Add("WT02").Add("Z2"));
    EXPECT_THAT(Types(), ElementsAre("Z2", "X1", "XT15", "G9", "X$", "WT02"));
}

TEST_F(ReadRecords, TheNewerFormsOfX2AndX9AreRecordsOfTheirOwn) {
    Read(CRecordBuilder().Add("X2").Add("X2N").Add("X9_NEU").Add("X9").Add("X2N"));
    EXPECT_THAT(Types(), ElementsAre("X2", "X2N", "X9_NEU", "X9"));
    EXPECT_EQ(Record("X2N").GetLineCount(), 2);
}

TEST_F(ReadRecords, EveryLineOfAnUnknownTypeIsAGenericRecord) {
    Read(CRecordBuilder().Add("QQ", " one").Add("X1").Add("QQ", " two").Add("XT", "     99"));
    EXPECT_THAT(Types(), ElementsAre("UNKNOWN", "X1", "UNKNOWN", "UNKNOWN"));
    EXPECT_TRUE(m_Records.GetRecord(0)->IsGeneric());
    EXPECT_FALSE(m_Records.GetRecord(1)->IsGeneric());
    EXPECT_EQ(m_Records.GetRecord(0)->GetLine(0), Padded("QQ one"));
    EXPECT_EQ(m_Records.GetRecord(2)->GetLine(0), Padded("QQ two"));
    EXPECT_EQ(m_Records.GetRecord(2)->GetLineCount(), 1);
    EXPECT_EQ(m_Records.GetRecord(3)->GetLine(0), Padded("XT     99"));
    EXPECT_EQ(m_Records.ExistRecord("UNKNOWN"), m_Records.GetRecord(0));
    EXPECT_EQ(m_Records.ExistRecord("QQ"), nullptr);
}

TEST_F(ReadRecords, TheTypeX8IsKnownButHasNoClass) {
    Read(CRecordBuilder().Add("X8", " one").Add("X8", " two"));
    EXPECT_THAT(Types(), ElementsAre("UNKNOWN", "UNKNOWN"));
    EXPECT_TRUE(m_Records.GetRecord(1)->IsGeneric());
}

TEST_F(ReadRecords, EveryOtherTypeHasARecordOfItsOwn) {
    CRecordBuilder records;
    const std::vector<std::string> keys = {
        "X0",   "X1",   "X2",   "X3",   "X4",   "X5",   "X6",   "X7",     "X9",   "G0",   "G1",   "G2",   "G3",
        "G4",   "G5",   "G6",   "G7",   "G9",   "GD",   "GE",   "GI",     "Z1",   "Z2",   "Z3",   "Z4",   "Z9",
        "W1",   "W2",   "W3",   "W4",   "W6",   "W7",   "W9",   "V1",     "V2",   "V3",   "X$",   "MS",   "M2",
        "T0",   "G8",   "FZ",   "Z5",   "ZT",   "Z0",   "X2N",  "X9_NEU", "WT02", "WT03", "WT04", "WT05", "WT06",
        "WT07", "WT08", "XT02", "XT03", "XT04", "XT05", "XT06", "XT07",   "XT08", "XT15", "XT16", "XT19", "XT22"};
    for (const std::string& key : keys) {
        records.Add(key);
    }
    Read(records);
    EXPECT_EQ(Types(), keys);
    for (int index = 0; index < m_Records.GetRecordCount(); ++index) {
        EXPECT_FALSE(m_Records.GetRecord(index)->IsGeneric()) << keys[static_cast<std::size_t>(index)];
    }
}

TEST_F(ReadRecords, OnlyTheExtendedRecordSetHasAClassForG9) {
    const std::string path = CRecordBuilder().Add("G9").Add("G9").Save(m_Folder.PathOf("g9"));
    CAllRecords plain;
    EXPECT_EQ(plain.ReadAllRecords(path.c_str()), 1);
    EXPECT_THAT(TypesOf(plain), ElementsAre("UNKNOWN", "UNKNOWN"));
    EXPECT_TRUE(plain.GetRecord(0)->IsGeneric());
    EXPECT_EQ(m_Records.ReadAllRecords(path.c_str()), 1);
    EXPECT_THAT(Types(), ElementsAre("G9"));
    EXPECT_FALSE(m_Records.GetRecord(0)->IsGeneric());
}

TEST_F(ReadRecords, NoTableIsNeededToRead) {
    CAllRecordsEx records;
    EXPECT_EQ(records.ReadAllRecordsEx(ThreeTypes().Save(m_Folder.PathOf("in")).c_str()), 0);
    EXPECT_THAT(TypesOf(records), ElementsAre("X1", "W4"));
}

// --- Files of fixed-length records ----------------------------------------------------------------------------------

TEST_F(ReadRecords, AnEmptyFileIsReadAndLeavesAnEmptyStore) {
    const std::string empty = m_Folder.Write("empty", "");
    Read(ThreeTypes());
    EXPECT_EQ(m_Records.ReadAllRecords(empty.c_str()), TABVEX_READ_SUCCEEDED);
    EXPECT_THAT(Types(), IsEmpty());
    Read(ThreeTypes());
    EXPECT_EQ(m_Records.ReadAllRecordsEx(empty.c_str()), TABVEX_OK);
    EXPECT_THAT(Types(), IsEmpty());
    Read(ThreeTypes());
    EXPECT_EQ(m_Records.ReadAll_V_Records(empty.c_str()), TABVEX_READ_SUCCEEDED);
    EXPECT_THAT(Types(), IsEmpty());
}

TEST_F(ReadRecords, RecordsWithAndWithoutCrLfAreReadAlike) {
    for (const bool crlf : {true, false}) {
        EXPECT_EQ(m_Records.ReadAllRecords(ThreeTypes().Save(m_Folder.PathOf("in"), crlf).c_str()), 1);
        EXPECT_THAT(LinesOf("X1"), ElementsAre(Padded("X1 one"), Padded("X1 three"))) << crlf;
        EXPECT_THAT(Types(), ElementsAre("X1", "W4")) << crlf;
    }
}

TEST_F(ReadRecords, ASingleRecordNeedsNoCrLf) {
    EXPECT_EQ(m_Records.ReadAllRecordsEx(m_Folder.Write("in", Padded("X1 only")).c_str()), 0);
    EXPECT_THAT(LinesOf("X1"), ElementsAre(Padded("X1 only")));
}

TEST_F(ReadRecords, TheLastRecordMayLackItsCrLf) {
    for (const std::string_view end : {"", "\r"}) {
        const std::string bytes = Padded("X1 one") + "\r\n" + Padded("X1 two") + std::string(end);
        EXPECT_EQ(m_Records.ReadAllRecordsEx(m_Folder.Write("in", bytes).c_str()), 0);
        EXPECT_THAT(LinesOf("X1"), ElementsAre(Padded("X1 one"), Padded("X1 two")));
    }
}

TEST_F(ReadRecords, OnlyTheFirstRecordTellsWhetherThereIsCrLfSoLaterOnesMayBeMisaligned) {
    // The second record lacks its CR LF: the third is read from its third character on.
    const std::string bytes =
        Padded("X1 one") + "\r\n" + Padded("X1 two") + Padded("X1W4 three") + "\r\n" + std::string(128, 'f') + "\r\n";
    EXPECT_EQ(m_Records.ReadAllRecordsEx(m_Folder.Write("in", bytes).c_str()), 0);
    EXPECT_THAT(Types(), ElementsAre("X1", "W4", "UNKNOWN"));
    EXPECT_THAT(LinesOf("X1"), ElementsAre(Padded("X1 one"), Padded("X1 two")));
    EXPECT_THAT(LinesOf("W4"), ElementsAre(Padded("W4 three", 126) + "\r\n"));
}

TEST_F(ReadRecords, LinesOf127BytesFailAtTheFirstRecord) {
    const std::string path = m_Folder.Write("in", Padded("X1", 127));
    EXPECT_EQ(m_Records.ReadAllRecords(path.c_str()), 0);
    EXPECT_THAT(Types(), IsEmpty());
    EXPECT_EQ(m_Records.ReadAllRecordsEx(path.c_str()), -6);
    EXPECT_THAT(Types(), IsEmpty());
}

TEST_F(ReadRecords, AShortLastRecordFailsAndWhatWasReadStays) {
    const std::string bytes = Padded("X1 one") + "\r\n" + Padded("W4 two") + "\r\n" + "X1 three";
    const std::string path = m_Folder.Write("in", bytes);
    EXPECT_EQ(m_Records.ReadAllRecords(path.c_str()), 0);
    EXPECT_THAT(Types(), ElementsAre("X1", "W4"));
    EXPECT_EQ(m_Records.ReadAllRecordsEx(path.c_str()), TABVEX_READ_SHORT_RECORD);
    EXPECT_THAT(LinesOf("X1"), ElementsAre(Padded("X1 one")));
}

TEST_F(ReadRecords, LinesEndedByLfAloneAreReadAsOneRunOf128CharacterRecords) {
    const std::string bytes = Padded("X1 one") + "\n" + Padded("X1 two") + "\n";
    EXPECT_EQ(m_Records.ReadAllRecordsEx(m_Folder.Write("in", bytes).c_str()), -6); // 258 bytes: 2 are left over
    EXPECT_THAT(Types(), ElementsAre("X1", "UNKNOWN"));
    EXPECT_EQ(m_Records.GetRecord(1)->GetLine(0), "\n" + Padded("X1 two", 127));
}

TEST_F(ReadRecords, ALineEndsAtANulAndNulsFollowIt) {
    const std::string line = Padded("X1 one").replace(10, 1, std::string(1, '\0'));
    EXPECT_EQ(m_Records.ReadAllRecordsEx(m_Folder.Write("in", line + line).c_str()), 0);
    EXPECT_THAT(LinesOf("X1"), ElementsAre("X1 one    ", "X1 one    "));
    EXPECT_EQ(Written(), Padded("X1 one1") + Padded("X1 one3"));
}

TEST_F(ReadRecords, ALineOfNulsIsOfAnUnknownType) {
    EXPECT_EQ(m_Records.ReadAllRecordsEx(m_Folder.Write("in", std::string(256, '\0')).c_str()), 0);
    EXPECT_THAT(Types(), ElementsAre("UNKNOWN", "UNKNOWN"));
    EXPECT_STREQ(m_Records.GetRecord(0)->GetLine(0), "");
}

TEST_F(ReadRecords, AFileThatCannotBeOpenedKeepsTheRecordsHeldBefore) {
    Read(ThreeTypes());
    for (const std::string& path : {m_Folder.PathOf("none"), m_Folder.Path(), std::string()}) {
        EXPECT_EQ(m_Records.ReadAllRecords(path.c_str()), 0) << path;
        EXPECT_EQ(m_Records.ReadAllRecordsEx(path.c_str()), -8) << path;
        EXPECT_EQ(m_Records.ReadAll_V_Records(path.c_str()), 0) << path;
    }
    EXPECT_THAT(Types(), ElementsAre("X1", "W4"));
}

TEST_F(ReadRecords, ANullNameIsABadArgument) {
    Read(ThreeTypes());
    EXPECT_EQ(m_Records.ReadAllRecords(nullptr), TABVEX_BAD_ARGUMENT);
    EXPECT_EQ(m_Records.ReadAllRecordsEx(nullptr), -1);
    EXPECT_EQ(m_Records.ReadAll_V_Records(nullptr), -1);
    EXPECT_THAT(Types(), ElementsAre("X1", "W4"));
}

TEST_F(ReadRecords, AReadThatFailsEndsTheReading) {
    const CUnreadableFile unreadable;
    EXPECT_EQ(m_Records.ReadAllRecords(unreadable.Name()), 0);
    EXPECT_EQ(m_Records.ReadAllRecordsEx(unreadable.Name()), TABVEX_FILE_READ_FAILED);
    EXPECT_THAT(Types(), IsEmpty());
}

TEST_F(ReadRecords, ReadingReplacesTheRecordsOfAnEarlierFile) {
    Read(ThreeTypes());
    Read(CRecordBuilder().Add("Z2").Add("X1", " other"));
    EXPECT_THAT(Types(), ElementsAre("Z2", "X1"));
    EXPECT_THAT(LinesOf("X1"), ElementsAre(Padded("X1 other")));
}

TEST_F(ReadRecords, ReadingEndsASearchInProgress) {
    Load(SmallTable().Section("W4").Item(4515, 3, 8, "C").Item(4560, 2, 11, "C"));
    Read(CRecordBuilder().Add("W4").Put(7, "E  "));
    ASSERT_EQ(m_Records.FindFirst(4515, "E"), TABVEX_FIND_FOUND);
    Read(CRecordBuilder().Add("W4").Put(7, "E  "));
    EXPECT_EQ(m_Records.FindNext(), TABVEX_FIND_NOT_STARTED);
}

// --- Record numbering ------------------------------------------------------------------------------------------------

// A line with the marker at its place, and such a line in a file of lines.
std::string Marked(char marker, std::string_view type = "X1") {
    return Padded(std::string(type) + "    " + marker);
}

std::string MarkedLine(char marker, std::string_view type = "X1") {
    return Marked(marker, type) + "\n";
}

TEST_F(ReadRecords, ReadingSwitchesRecordNumberingOnForAllTypes) {
    for (const bool ex : {false, true}) {
        ASSERT_EQ(m_Records.SetRecNums("*", 0), TABVEX_OK);
        const std::string path = CRecordBuilder().Add("X1").Add("X1").Save(m_Folder.PathOf("in"));
        EXPECT_EQ(ex ? m_Records.ReadAllRecordsEx(path.c_str()) : m_Records.ReadAllRecords(path.c_str()), ex ? 0 : 1);
        EXPECT_EQ(Written(), Marked('1') + Marked('3')) << ex;
    }
}

TEST_F(ReadRecords, AFileThatCannotBeOpenedSwitchesRecordNumberingOnAllTheSame) {
    Read(CRecordBuilder().Add("X1").Add("X1"));
    m_Records.SetRecNums("*", 0);
    EXPECT_EQ(m_Records.ReadAllRecords(m_Folder.PathOf("none").c_str()), 0);
    EXPECT_EQ(Written(), Marked('1') + Marked('3'));
}

TEST_F(ReadRecords, ReadingLinesOfAnyLengthLeavesRecordNumberingAlone) {
    m_Records.SetRecNums("*", 0);
    ReadLines(MarkedLine(' ') + MarkedLine(' '));
    EXPECT_EQ(Written(), Marked(' ') + Marked(' '));
    m_Records.SetRecNums("*", 1);
    ReadLines(MarkedLine(' ') + MarkedLine(' '));
    EXPECT_EQ(Written(), Marked('1') + Marked('3'));
}

TEST_F(ReadRecords, AMarkedFirstLineSwitchesNumberingOnWhenItsRecordIsMetAgain) {
    for (const char marker : {'1', '2', '3'}) {
        m_Records.SetRecNums("*", 0);
        ReadLines(MarkedLine(marker) + MarkedLine(' '));
        EXPECT_EQ(Written(), Marked('1') + Marked('3')) << marker;
    }
}

TEST_F(ReadRecords, NoOtherMarkSwitchesNumberingOn) {
    for (const char marker : {' ', '0', '4', 'x'}) {
        m_Records.SetRecNums("*", 0);
        ReadLines(MarkedLine(marker) + MarkedLine('1'));
        EXPECT_EQ(Written(), Marked(' ') + Marked(' ')) << marker;
    }
}

TEST_F(ReadRecords, AMarkedLineAloneDoesNotSwitchNumberingOn) {
    m_Records.SetRecNums("*", 0);
    ReadLines(MarkedLine('1') + MarkedLine('1', "W4"));
    EXPECT_EQ(Written(), Marked(' ') + Marked(' ', "W4"));
}

TEST_F(ReadRecords, TheMarkOfAnotherTypeOfTheSameLetterCounts) {
    m_Records.SetRecNums("*", 0);
    ReadLines(MarkedLine('1', "X3") + MarkedLine(' ') + MarkedLine(' '));
    EXPECT_EQ(Written(), Marked('1', "X3") + Marked('2') + Marked('3'));
}

// --- Fix-up after reading --------------------------------------------------------------------------------------------

TEST_F(ReadRecords, RecordsThatNeedNoFixUpAreReadAlikeByBothReaders) {
    const std::string path = ThreeTypes().Add("Z1", " one").Add("Z2", " two").Save(m_Folder.PathOf("in"));
    EXPECT_EQ(m_Records.ReadAllRecords(path.c_str()), 1);
    const std::string first = Written();
    EXPECT_EQ(m_Records.ReadAllRecordsEx(path.c_str()), 0);
    EXPECT_EQ(Written(), first);
    EXPECT_THAT(Types(), ElementsAre("X1", "W4", "Z1", "Z2"));
}

// --- Lines of any length ---------------------------------------------------------------------------------------------

TEST_F(ReadRecords, LinesOfAnyLengthAreKeptUpTo130Characters) {
    ReadLines("V1\r\nV1 " + std::string(200, 'v') + "\nV1 short\n");
    EXPECT_THAT(LinesOf("V1"), ElementsAre("V1", "V1 " + std::string(127, 'v'), "V1 short"));
}

TEST_F(ReadRecords, AShortLineIsFollowedByNulsAndSavedWithBlanks) {
    m_Records.SetRecNums("*", 0);
    ReadLines("V1 short\n");
    EXPECT_STREQ(Record("V1").GetLine(0), "V1 short");
    EXPECT_EQ(Record("V1").GetLine(0)[9], '\0');
    EXPECT_EQ(Record("V1").GetLine(0)[129], '\0');
    EXPECT_EQ(Written(), Padded("V1 sho t"));
}

TEST_F(ReadRecords, LinesEndAtTheFirstEmptyLine) {
    for (const std::string_view text : {"X1\n\nW4\n", "X1\r\n\r\nW4\r\n", "X1\n\rW4\n"}) {
        ReadLines(text);
        EXPECT_THAT(Types(), ElementsAre("X1"));
    }
    ReadLines("\nX1\n");
    EXPECT_THAT(Types(), IsEmpty());
    ReadLines("\r\nX1\n");
    EXPECT_THAT(Types(), IsEmpty());
}

TEST_F(ReadRecords, TheLastLineNeedsNoLineEnd) {
    ReadLines("X1\nW4 last");
    EXPECT_THAT(LinesOf("W4"), ElementsAre("W4 last"));
}

TEST_F(ReadRecords, LinesOfUnknownTypesArePassedOver) {
    ReadLines("QQ\nX1\nXT     99\nx1\n \nW4\n");
    EXPECT_THAT(Types(), ElementsAre("X1", "W4"));
}

TEST_F(ReadRecords, TheLinesOfX8AreKeptAsTheTypeIsKnown) {
    ReadLines("X8 one\nX8 two\n");
    EXPECT_THAT(Types(), ElementsAre("UNKNOWN", "UNKNOWN"));
    EXPECT_STREQ(m_Records.GetRecord(1)->GetLine(0), "X8 two");
}

TEST_F(ReadRecords, LinesOfAnyLengthAreNeverWidenedToNewerForms) {
    ReadLines(CRecordBuilder().Add("X2N").Add("X9_NEU").Text(true));
    EXPECT_THAT(Types(), ElementsAre("X2", "X9"));
}

TEST_F(ReadRecords, FamiliesAreToldBySevenAndEightInLinesOfAnyLength) {
    ReadLines("XT     15\nWT     02 x\n");
    EXPECT_THAT(Types(), ElementsAre("XT15", "WT02"));
}

TEST_F(ReadRecords, BytesOfAnEarlierLineCompleteTheTypeOfAShorterOneOnPurpose) {
    // Characters 7-8 of the line before are still in the buffer behind the line "XT".
    ReadLines("XT     15 long\nXT\n");
    EXPECT_THAT(Types(), ElementsAre("XT15"));
    EXPECT_THAT(LinesOf("XT15"), ElementsAre("XT     15 long", "XT"));
}

TEST_F(ReadRecords, TheBytesThatStayMayBeThoseOfALineThatWasPassedOver) {
    ReadLines("QQ     02\nWT\nXT\n");
    EXPECT_THAT(Types(), ElementsAre("WT02", "XT02"));
}

TEST_F(ReadRecords, TheFirstLineHasBlanksBehindIt) {
    ReadLines("XT\nX1\n");
    EXPECT_THAT(Types(), ElementsAre("X1"));
}

TEST_F(ReadRecords, TheNulBehindALineIsOneOfTheBytesThatStay) {
    // "XT     1" ends in front of character 8, which is its NUL from then on.
    ReadLines("XT     15\nXT     1\nXT\n");
    EXPECT_THAT(LinesOf("XT15"), ElementsAre("XT     15"));
    EXPECT_THAT(Types(), ElementsAre("XT15"));
}

TEST_F(ReadRecords, ALineOfAnyLengthEndsAtANulAndTheFileGoesOnBehindIt) {
    ReadLines(std::string("X1\0abc\nW4\n", 10));
    EXPECT_THAT(LinesOf("X1"), ElementsAre("X1"));
    EXPECT_THAT(LinesOf("W4"), ElementsAre("W4"));
}

TEST_F(ReadRecords, AnFzLineOfAnyLengthIsKeptUpTo642Characters) {
    ReadLines("FZ" + std::string(800, 'f') + "\n");
    EXPECT_THAT(LinesOf("FZ"), ElementsAre("FZ" + std::string(640, 'f')));
}

TEST_F(ReadRecords, ReadingLinesOfAnyLengthReplacesTheRecordsHeldBefore) {
    Read(ThreeTypes());
    ReadLines("Z2\n");
    EXPECT_THAT(Types(), ElementsAre("Z2"));
}

// --- Destroying ------------------------------------------------------------------------------------------------------

TEST_F(ReadRecords, DestroyingAllEmptiesTheStore) {
    Read(ThreeTypes());
    m_Records.DestroyAllRecords();
    EXPECT_THAT(Types(), IsEmpty());
    EXPECT_EQ(m_Records.ExistRecord("X1"), nullptr);
    m_Records.DestroyAllRecords();
    Read(ThreeTypes());
    EXPECT_THAT(Types(), ElementsAre("X1", "W4"));
}

TEST_F(ReadRecords, DestroyingATypeKeepsTheOthersInTheirOrder) {
    Read(CRecordBuilder().Add("Z2").Add("QQ").Add("X1").Add("W4"));
    m_Records.DestroyRecords("X1");
    EXPECT_THAT(Types(), ElementsAre("Z2", "UNKNOWN", "W4"));
    EXPECT_EQ(m_Records.ExistRecord("X1"), nullptr);
    EXPECT_THAT(LinesOf("W4"), ElementsAre(Padded("W4")));
}

TEST_F(ReadRecords, DestroyingX2TakesItsNewerFormWithItAndNotTheOtherWayRound) {
    const CRecordBuilder records = CRecordBuilder().Add("X2").Add("X2N").Add("X9").Add("X9_NEU");
    struct {
        const char* Type;
        std::vector<std::string> Left;
    } const rows[] = {
        {"X2", {"X9", "X9_NEU"}},
        {"X2N", {"X2", "X9", "X9_NEU"}},
        {"X9", {"X2", "X2N"}},
        {"X9_NEU", {"X2", "X2N", "X9"}},
    };
    for (const auto& row : rows) {
        Read(records);
        m_Records.DestroyRecords(row.Type);
        EXPECT_EQ(Types(), row.Left) << row.Type;
    }
}

TEST_F(ReadRecords, DestroyingUnknownDestroysEveryGenericRecord) {
    Read(CRecordBuilder().Add("QQ").Add("X1").Add("X8").Add("RR"));
    m_Records.DestroyRecords("UNKNOWN");
    EXPECT_THAT(Types(), ElementsAre("X1"));
}

TEST_F(ReadRecords, DestroyingATypeThatIsNotThereChangesNothing) {
    Read(ThreeTypes());
    for (const char* type : {"QQ", "x1", "X", "", "X1 ", "K101_01"}) {
        m_Records.DestroyRecords(type);
    }
    m_Records.DestroyRecords(nullptr);
    EXPECT_THAT(Types(), ElementsAre("X1", "W4"));
}

TEST_F(ReadRecords, DestroyingKnownRecordsKeepsTheGenericOnesInTheirOrder) {
    Read(CRecordBuilder().Add("QQ", " one").Add("X1").Add("QQ", " two").Add("W4").Add("X2N"));
    m_Records.DestroyKnownRecordsOnly();
    EXPECT_THAT(Types(), ElementsAre("UNKNOWN", "UNKNOWN"));
    EXPECT_EQ(m_Records.GetRecord(0)->GetLine(0), Padded("QQ one"));
    EXPECT_EQ(m_Records.GetRecord(1)->GetLine(0), Padded("QQ two"));
    EXPECT_EQ(m_Records.ExistRecord("X1"), nullptr);
}

TEST_F(ReadRecords, RecordsCreatedAfterDestroyingHaveNothingOfTheOldOnes) {
    Read(CRecordBuilder().Add("X1", std::string(126, 'o')).Add("W4", std::string(126, 'o')));
    m_Records.DestroyRecords("X1");
    std::string line = Padded("X1 new");
    line.push_back('\0');
    EXPECT_EQ(m_Records.SetCompleteRecord("X1", line.data(), 129), TABVEX_OK);
    EXPECT_THAT(Types(), ElementsAre("W4", "X1"));
    EXPECT_THAT(LinesOf("X1"), ElementsAre(Padded("X1 new")));
}

// --- Kept for callers that still make these calls
// ---------------------------------------------------------------------

TEST_F(ReadRecords, CallsThatAreOnlyKeptChangeNothing) {
    Read(ThreeTypes());
    const std::string before = Written();
    std::string text = "X1";
    m_Records.SetOptimierungsCode('A');
    m_Records.SetKalkArt('B');
    m_Records.SetCalcNr_K_Records(text.data());
    m_Records.DoNotSortKRecords(text.data());
    EXPECT_EQ(m_Records.CreateNewKRecord(text.data()), -1);
    m_Records.SetCalcNr_K_Records(nullptr);
    m_Records.DoNotSortKRecords(nullptr);
    EXPECT_EQ(m_Records.CreateNewKRecord(nullptr), -1);
    EXPECT_EQ(text, "X1");
    EXPECT_EQ(Written(), before);
}

// --- Hostile files
// -----------------------------------------------------------------------------------------------------

// Bytes that look random and are the same in every run.
std::string BinaryBytes(std::size_t size) {
    std::string bytes(size, '\0');
    unsigned state = 12345;
    std::generate(bytes.begin(), bytes.end(), [&state] {
        state = state * 1103515245U + 12345U;
        return static_cast<char>(state >> 16U);
    });
    return bytes;
}

TEST_F(ReadRecords, ABinaryFileIsReadRecordByRecord) {
    const std::size_t size = std::size_t{128} * 500;
    EXPECT_EQ(m_Records.ReadAllRecordsEx(m_Folder.Write("in", BinaryBytes(size)).c_str()), 0);
    int lines = 0;
    for (int index = 0; index < m_Records.GetRecordCount(); ++index) {
        lines += m_Records.GetRecord(index)->GetLineCount();
    }
    EXPECT_EQ(lines, 500);
    EXPECT_EQ(Written().size(), size);
    EXPECT_EQ(m_Records.ReadAllRecordsEx(m_Folder.Write("in", BinaryBytes(size + 1)).c_str()), -6);
}

TEST_F(ReadRecords, ABinaryFileOfLinesOfAnyLengthDoesNoHarm) {
    ReadLines(BinaryBytes(100000));
    ReadLines("X1" + BinaryBytes(100000));
    EXPECT_THAT(Types(), ::testing::Contains("X1"));
}

TEST_F(ReadRecords, OneEndlessLineIsReadAndCut) {
    ReadLines("X1" + std::string(3000000, 'e'));
    EXPECT_THAT(LinesOf("X1"), ElementsAre("X1" + std::string(128, 'e')));
    ReadLines("QQ" + std::string(3000000, '\r'));
    EXPECT_THAT(Types(), IsEmpty());
}

TEST_F(ReadRecords, ThousandsOfUnknownLinesAreKeptAndDestroyedInTheirOrder) {
    CRecordBuilder records;
    const int count = 20000;
    for (int i = 0; i < count; ++i) {
        records.Add("QQ", std::to_string(i));
    }
    Read(records.Add("X1"));
    EXPECT_EQ(m_Records.GetRecordCount(), count + 1);
    m_Records.DestroyRecords("X1");
    ASSERT_EQ(m_Records.GetRecordCount(), count);
    for (int i = 0; i < count; ++i) {
        ASSERT_EQ(m_Records.GetRecord(i)->GetLine(0), records.Lines()[static_cast<std::size_t>(i)]);
    }
    m_Records.DestroyRecords("UNKNOWN");
    EXPECT_EQ(m_Records.GetRecordCount(), 0);
}

} // namespace
