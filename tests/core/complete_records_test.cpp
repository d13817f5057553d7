// Whole lines, handed out and added.
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "core/all_records.h"
#include "records/entry_record.h"
#include "support/guard_buffer.h"
#include "support/record_set_test.h"

namespace {

using ::testing::ElementsAre;

constexpr int kBadArgument = -1;
constexpr int kNoRecord = -1;
constexpr int kNoLines = -2;
constexpr int kTooSmall = -3;
constexpr int kNoSuchLine = -4;

/// What stands in a guard buffer before anything is written.
constexpr char kUntouched = '\x5A';

class CompleteRecords : public RecordSetTest {
protected:
    /// A line of the type with a character for every one of its 128 places.
    static std::string FullLine(const std::string& type, char begin) {
        std::string line = type;
        while (line.size() < 128) {
            line.push_back(static_cast<char>('A' + (static_cast<std::size_t>(begin) + line.size()) % 26));
        }
        return line;
    }

    int SetLine(const char* type, const std::string& text) {
        std::string line = text;
        line.resize(129, '\0');
        return m_Records.SetCompleteRecord(type, line.data(), 129);
    }

    /// Line `number` of a type (from 1), as callers get it.
    std::string Complete(const char* type, int number) {
        CGuardBuffer buffer(700);
        EXPECT_EQ(m_Records.GetNextCompleteRecord(type, buffer.Data(), buffer.Size(), number), 0);
        return buffer.Text();
    }
};

// --- Handing out ---

TEST_F(CompleteRecords, TheFirstLineFillsABufferOf128WithoutATerminator) {
    const std::string line = FullLine("X1", 'a');
    ReadLines(line + "\n" + FullLine("X1", 'b') + "\n");
    CGuardBuffer buffer(128);
    EXPECT_EQ(m_Records.GetFirstCompleteRecord("X1", buffer.Data(), buffer.Size()), 0);
    EXPECT_EQ(buffer.Bytes(), line);
}

TEST_F(CompleteRecords, ALargerBufferGetsATerminatorAndNothingElse) {
    const std::string line = FullLine("X1", 'a');
    ReadLines(line + "\n");
    CGuardBuffer buffer(140);
    EXPECT_EQ(m_Records.GetFirstCompleteRecord("X1", buffer.Data(), buffer.Size()), 0);
    EXPECT_EQ(buffer.Bytes(), line + '\0' + std::string(11, kUntouched));
}

TEST_F(CompleteRecords, ASmallerBufferGetsNothing) {
    ReadLines(FullLine("X1", 'a') + "\n");
    CGuardBuffer buffer(140);
    for (const int size : {127, 1, 0, -1, -2147483647 - 1}) {
        EXPECT_EQ(m_Records.GetFirstCompleteRecord("X1", buffer.Data(), size), kTooSmall) << size;
        EXPECT_EQ(m_Records.GetNextCompleteRecord("X1", buffer.Data(), size, 1), kTooSmall) << size;
    }
    EXPECT_TRUE(buffer.IsUntouched());
}

TEST_F(CompleteRecords, LinesAreHandedOutByTheirNumberFrom1) {
    const std::vector<std::string> lines = {FullLine("X1", 'a'), FullLine("X1", 'b'), FullLine("X1", 'c')};
    ReadLines(lines[0] + "\n" + FullLine("W4", 'x') + "\n" + lines[1] + "\n" + lines[2] + "\n");
    for (int number = 1; number <= 3; ++number) {
        EXPECT_EQ(Complete("X1", number), lines[static_cast<std::size_t>(number - 1)]);
    }
    CGuardBuffer first(128);
    CGuardBuffer next(128);
    EXPECT_EQ(m_Records.GetFirstCompleteRecord("X1", first.Data(), 128), 0);
    EXPECT_EQ(m_Records.GetNextCompleteRecord("X1", next.Data(), 128, 1), 0);
    EXPECT_EQ(first.Bytes(), next.Bytes());
}

TEST_F(CompleteRecords, ALineNumberOutsideTheLinesIsTold) {
    ReadLines(FullLine("X1", 'a') + "\n" + FullLine("X1", 'b') + "\n");
    CGuardBuffer buffer(140);
    for (const int number : {0, -1, 3, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(m_Records.GetNextCompleteRecord("X1", buffer.Data(), buffer.Size(), number), kNoSuchLine) << number;
    }
    EXPECT_TRUE(buffer.IsUntouched());
}

TEST_F(CompleteRecords, TypeThenLinesThenBufferThenNumberAreLookedAt) {
    struct COpenRecords : CAllRecordsEx {
        void AddWithoutLines() {
            m_pState->Store.Add(
                std::make_unique<tabvex::CEntryRecord>(*tabvex::GroupRowsOf("G1").Begin, m_pState->Context),
                tabvex::RecordTypeOf("G1"));
        }
    } records;
    CGuardBuffer buffer(140);
    EXPECT_EQ(records.GetNextCompleteRecord("G1", buffer.Data(), 10, 99), kNoRecord);
    EXPECT_EQ(records.GetFirstCompleteRecord("G1", buffer.Data(), 10), kNoRecord);
    records.AddWithoutLines();
    EXPECT_EQ(records.GetNextCompleteRecord("G1", buffer.Data(), 10, 99), kNoLines);
    EXPECT_EQ(records.GetFirstCompleteRecord("G1", buffer.Data(), 10), kNoLines);
    std::string line = Padded("G1") + '\0';
    ASSERT_EQ(records.SetCompleteRecord("G1", line.data(), 129), 0);
    EXPECT_EQ(records.GetNextCompleteRecord("G1", buffer.Data(), 10, 99), kTooSmall);
    EXPECT_EQ(records.GetNextCompleteRecord("G1", buffer.Data(), 128, 99), kNoSuchLine);
    EXPECT_TRUE(buffer.IsUntouched());
}

TEST_F(CompleteRecords, NullPointersAreRefused) {
    ReadLines(FullLine("X1", 'a') + "\n");
    CGuardBuffer buffer(140);
    EXPECT_EQ(m_Records.GetFirstCompleteRecord(nullptr, buffer.Data(), buffer.Size()), kBadArgument);
    EXPECT_EQ(m_Records.GetFirstCompleteRecord("X1", nullptr, 140), kBadArgument);
    EXPECT_EQ(m_Records.GetNextCompleteRecord(nullptr, nullptr, 0, 0), kBadArgument);
    EXPECT_EQ(m_Records.SetCompleteRecord("X1", nullptr, 129), kBadArgument);
    EXPECT_EQ(m_Records.SetCompleteRecord(nullptr, buffer.Data(), 129), kBadArgument);
    EXPECT_TRUE(buffer.IsUntouched());
    EXPECT_EQ(Record("X1").GetLineCount(), 1);
}

TEST_F(CompleteRecords, NoTableIsNeeded) {
    CAllRecordsEx records;
    std::string line = Padded("X1") + '\0';
    CGuardBuffer buffer(128);
    EXPECT_EQ(records.SetCompleteRecord("X1", line.data(), 129), 0);
    EXPECT_EQ(records.GetFirstCompleteRecord("X1", buffer.Data(), buffer.Size()), 0);
    EXPECT_EQ(buffer.Bytes(), Padded("X1"));
}

TEST_F(CompleteRecords, ALineEndsAtItsFirstNul) {
    ReadLines("X1 short\n");
    CGuardBuffer buffer(140);
    EXPECT_EQ(m_Records.GetFirstCompleteRecord("X1", buffer.Data(), buffer.Size()), 0);
    EXPECT_EQ(buffer.Bytes(), std::string("X1 short") + '\0' + std::string(131, kUntouched));
}

TEST_F(CompleteRecords, NoMoreThan128CharactersOfALongerLineAreHandedOut) {
    ReadLines(FullLine("X1", 'a') + "yz\n"); // a record keeps 130
    ASSERT_EQ(LinesOf("X1")[0].size(), 130U);
    EXPECT_EQ(Complete("X1", 1), FullLine("X1", 'a'));
    ASSERT_EQ(m_Records.WriteItem(12015, "a/b"), 0); // a created line has 130 blanks in memory
    EXPECT_EQ(Complete("G1", 1).size(), 128U);
}

TEST_F(CompleteRecords, ASavedLineIsHandedOutWithoutTheCrLfThatStandsInMemory) {
    const std::string line = FullLine("T0", 'a');
    Read(CRecordBuilder().Add("T0", line.substr(2)));
    ASSERT_EQ(m_Records.SaveAllRecords(m_Folder.PathOf("saved.rec").c_str(), 1), 1);
    ASSERT_EQ(LinesOf("T0")[0], line + "\r\n");
    CGuardBuffer buffer(140);
    EXPECT_EQ(m_Records.GetFirstCompleteRecord("T0", buffer.Data(), buffer.Size()), 0);
    EXPECT_EQ(buffer.Bytes(), line + '\0' + std::string(11, kUntouched));
}

TEST_F(CompleteRecords, FZLinesHave640Characters) {
    std::string line = FullLine("FZ", 'a');
    for (char begin = 'b'; line.size() < 640; ++begin) {
        line += FullLine("", begin);
    }
    ReadLines(line + "\n");
    EXPECT_EQ(Complete("FZ", 1), line);
    CGuardBuffer exact(640);
    EXPECT_EQ(m_Records.GetFirstCompleteRecord("FZ", exact.Data(), exact.Size()), 0);
    EXPECT_EQ(exact.Bytes(), line);
    for (const std::size_t size : {128U, 129U, 300U, 639U}) {
        CGuardBuffer part(size);
        EXPECT_EQ(m_Records.GetFirstCompleteRecord("FZ", part.Data(), part.Size()), 0);
        EXPECT_EQ(part.Bytes(), line.substr(0, size));
    }
    CGuardBuffer small(127);
    EXPECT_EQ(m_Records.GetFirstCompleteRecord("FZ", small.Data(), small.Size()), kTooSmall);
    EXPECT_TRUE(small.IsUntouched());
}

TEST_F(CompleteRecords, InOemModeTheCopyIsConverted) {
    ReadLines("X1 M\x81ller\n");
    EXPECT_EQ(Complete("X1", 1), "X1 M\x81ller");
    m_Records.SetCharacterSet("OEM");
    EXPECT_EQ(Complete("X1", 1), "X1 M\xFCller");
    EXPECT_EQ(LinesOf("X1")[0], "X1 M\x81ller"); // the record keeps its own
    CGuardBuffer exact(128);
    ReadLines(Padded("X1", 127) + "\x81\n");
    EXPECT_EQ(m_Records.GetFirstCompleteRecord("X1", exact.Data(), exact.Size()), 0);
    EXPECT_EQ(exact.Bytes(), Padded("X1", 127) + "\xFC");
}

TEST_F(CompleteRecords, TheFirstUnknownRecordIsHandedOut) {
    Read(CRecordBuilder().Add("QQ").Put(9, "first").Add("RR"));
    EXPECT_EQ(Complete("UNKNOWN", 1), Padded("QQ       first"));
    CGuardBuffer buffer(140);
    EXPECT_EQ(m_Records.GetNextCompleteRecord("UNKNOWN", buffer.Data(), buffer.Size(), 2), kNoSuchLine);
    EXPECT_EQ(m_Records.GetFirstCompleteRecord("QQ", buffer.Data(), buffer.Size()), kNoRecord);
}

TEST_F(CompleteRecords, HandingOutMovesNoCursor) {
    Read(CRecordBuilder().Add("G1").Put(17, "two").Add("G1"));
    ASSERT_EQ(m_Records.ReadNext(12015), 0);
    Complete("G1", 2);
    EXPECT_EQ(Item(12015), "two ");
}

// --- Adding ---

TEST_F(CompleteRecords, OnlyASizeOf129IsAccepted) {
    std::string line = Padded("X1") + std::string(2, '\0');
    for (const int size : {128, 130, 0, -1, 1, 2147483647}) {
        EXPECT_EQ(m_Records.SetCompleteRecord("X1", line.data(), size), kBadArgument) << size;
    }
    EXPECT_EQ(m_Records.GetRecordCount(), 0);
    EXPECT_EQ(m_Records.SetCompleteRecord("X1", line.data(), 129), 0);
}

TEST_F(CompleteRecords, ALineOfATypeThatWasNotThereCreatesItsRecordWithThatLineAlone) {
    EXPECT_EQ(SetLine("X1", FullLine("X1", 'a')), 0);
    EXPECT_THAT(LinesOf("X1"), ElementsAre(FullLine("X1", 'a')));
    EXPECT_EQ(SetLine("X1", FullLine("X1", 'b')), 0);
    EXPECT_THAT(LinesOf("X1"), ElementsAre(FullLine("X1", 'a'), FullLine("X1", 'b')));
    EXPECT_THAT(Types(), ElementsAre("X1"));
}

TEST_F(CompleteRecords, ALineOfATypeThatIsThereIsAddedBehindItsLines) {
    Read(CRecordBuilder().Add("X1").Add("G1").Put(7, "aaaa").Add("X1"));
    EXPECT_EQ(SetLine("G1", "G1     bbbb"), 0);
    EXPECT_THAT(LinesOf("G1"), ElementsAre(Padded("G1     aaaa"), Padded("G1     bbbb")));
    EXPECT_THAT(Types(), ElementsAre("X1", "G1"));
    EXPECT_EQ(Item(12015), "aaaa"); // the cursor stays
}

TEST_F(CompleteRecords, TheLineReplacesTheDefaultsOfANewRecord) {
    CTableBuilder table;
    table.Section("X1").Item(1000, 2, 1, "C,\"X1\"").Item(1005, 4, 8, "C,\"EURO\"");
    Load(table);
    EXPECT_EQ(SetLine("X1", "X1"), 0);
    EXPECT_EQ(Item(1005), "    ");
}

TEST_F(CompleteRecords, AShorterTextIsPaddedInTheRecordAndInTheCallersBuffer) {
    CGuardBuffer buffer(129);
    const std::string text("X1 short\0not looked at", 22);
    text.copy(buffer.Data(), text.size());
    EXPECT_EQ(m_Records.SetCompleteRecord("X1", buffer.Data(), buffer.Size()), 0);
    EXPECT_EQ(buffer.Bytes(), Padded("X1 short") + '\0');
    EXPECT_THAT(LinesOf("X1"), ElementsAre(Padded("X1 short")));
}

TEST_F(CompleteRecords, AnEmptyTextIsALineOfBlanks) {
    EXPECT_EQ(SetLine("X1", ""), 0);
    EXPECT_THAT(LinesOf("X1"), ElementsAre(Padded("")));
}

TEST_F(CompleteRecords, OnlyThe128CharactersOfALineWithoutATerminatorAreTaken) {
    CGuardBuffer buffer(129);
    (FullLine("X1", 'a') + "!").copy(buffer.Data(), 129);
    EXPECT_EQ(m_Records.SetCompleteRecord("X1", buffer.Data(), buffer.Size()), 0);
    EXPECT_THAT(LinesOf("X1"), ElementsAre(FullLine("X1", 'a')));
    EXPECT_EQ(buffer.Bytes(), FullLine("X1", 'a') + '\0');
}

TEST_F(CompleteRecords, InOemModeTheLineIsConvertedInTheRecordAndInTheCallersBuffer) {
    m_Records.SetCharacterSet("OEM");
    std::string line = Padded("X1 M\xFCller") + '\0';
    EXPECT_EQ(m_Records.SetCompleteRecord("X1", line.data(), 129), 0);
    EXPECT_EQ(line, Padded("X1 M\x81ller") + '\0');
    EXPECT_THAT(LinesOf("X1"), ElementsAre(Padded("X1 M\x81ller")));
    EXPECT_EQ(Complete("X1", 1), Padded("X1 M\xFCller"));
}

TEST_F(CompleteRecords, OutsideOemModeTheLineIsNotConverted) {
    EXPECT_EQ(SetLine("X1", "X1 M\xFCller"), 0);
    EXPECT_THAT(LinesOf("X1"), ElementsAre(Padded("X1 M\xFCller")));
}

TEST_F(CompleteRecords, TheTypeIsTheOneThatIsNamedWhateverTheLineSays) {
    EXPECT_EQ(SetLine("X2N", "W4"), 0);
    EXPECT_EQ(SetLine("W2_NEU", "W2"), 0);
    EXPECT_EQ(SetLine("W2N", "W2 again"), 0);
    EXPECT_THAT(Types(), ElementsAre("X2N", "W2N"));
    EXPECT_THAT(LinesOf("X2N"), ElementsAre(Padded("W4")));
    EXPECT_THAT(LinesOf("W2N"), ElementsAre(Padded("W2"), Padded("W2 again")));
}

TEST_F(CompleteRecords, EveryLineOfAnUnknownTypeGetsARecordOfItsOwn) {
    EXPECT_EQ(SetLine("QQ", "QQ one"), 0);
    EXPECT_EQ(SetLine("QQ", "QQ two"), 0);
    EXPECT_EQ(SetLine("X8", "X8 three"), 0);
    EXPECT_THAT(Types(), ElementsAre("UNKNOWN", "UNKNOWN", "UNKNOWN"));
    EXPECT_EQ(SetLine("UNKNOWN", "RR four"), 0); // a key that is there
    EXPECT_THAT(Types(), ElementsAre("UNKNOWN", "UNKNOWN", "UNKNOWN"));
    EXPECT_THAT(LinesOf("UNKNOWN"), ElementsAre(Padded("QQ one"), Padded("RR four")));
}

TEST_F(CompleteRecords, OnlyTheExtendedRecordSetMakesAG9RecordOfItsOwn) {
    CAllRecords records;
    std::string line = Padded("G9") + '\0';
    EXPECT_EQ(records.SetCompleteRecord("G9", line.data(), 129), 0);
    EXPECT_STREQ(records.GetRecord(0)->GetType(), "UNKNOWN");
    EXPECT_EQ(SetLine("G9", "G9"), 0);
    EXPECT_THAT(Types(), ElementsAre("G9"));
}

TEST_F(CompleteRecords, AnAddedLineIsReadByItemAndSaved) {
    EXPECT_EQ(SetLine("G1", "G1     aaaa111111bbbb222222"), 0);
    EXPECT_EQ(Item(12015), "aaaa");
    ASSERT_EQ(m_Records.ReadNext(12015), 0);
    EXPECT_EQ(Item(12020), "222222");
    const std::string path = m_Folder.PathOf("saved.rec");
    ASSERT_EQ(m_Records.SaveAllRecords(path.c_str(), 1), 1);
    EXPECT_EQ(ReadFile(path), Padded("G1     aaaa111111bbbb222222") + "\r\n");
}

TEST_F(CompleteRecords, AnFZLineAddedWholeHas128CharactersAndEndsThere) {
    EXPECT_EQ(SetLine("FZ", FullLine("FZ", 'a')), 0);
    EXPECT_EQ(Complete("FZ", 1), FullLine("FZ", 'a'));
}

} // namespace
