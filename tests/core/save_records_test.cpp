// What a save leaves in the file, in the caller's buffer and in the record set.
#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>

#include "core/all_records.h"
#include "records/list_record.h"
#include "support/guard_buffer.h"
#include "support/odd_files.h"
#include "support/record_set_test.h"

namespace {

using ::testing::ElementsAre;

constexpr std::size_t kMarker = 6;
constexpr std::size_t kStored = 130; // bytes of a line with its CR LF

/// A record set into which a record object without any line can be put.
class COpenRecords : public CAllRecordsEx {
public:
    void AddWithoutLines(const char* type) {
        const int number = tabvex::FindRecordType(type);
        m_pState->Store.Add(std::make_unique<tabvex::CListRecord>(number, m_pState->Context), number);
    }
};

class SaveRecords : public RecordSetTest {
protected:
    /// Saves the record set; the file's bytes.
    std::string Saved(int crlf = 1) {
        const std::string path = m_Folder.PathOf("saved.rec");
        m_nResult = m_Records.SaveAllRecords(path.c_str(), crlf);
        return ReadFile(path);
    }

    /// Reads and saves; the file's bytes.
    std::string Resaved(const CRecordBuilder& records, int crlf = 1) {
        Read(records);
        return Saved(crlf);
    }

    /// Character 6 of every line in store order, after a save.
    std::string Markers() {
        (void)Saved();
        std::string markers;
        for (int index = 0; index < m_Records.GetRecordCount(); ++index) {
            const CRecord& record = *m_Records.GetRecord(index);
            for (int line = 0; line < record.GetLineCount(); ++line) {
                markers += record.GetLine(line)[kMarker];
            }
        }
        return markers;
    }

    int m_nResult = -99;
};

/// Lines of the types, each with an "x" where the marker goes.
CRecordBuilder LinesOfTypes(const std::vector<std::string>& types) {
    CRecordBuilder records;
    for (const std::string& type : types) {
        records.Add(type).Put(kMarker, "x");
    }
    return records;
}

const std::vector<std::string> kThree = {"X1", "W4", "Z2"};

// --- Results and files ----------------------------------------------------------------------------------------------

TEST_F(SaveRecords, TheResultIsTheNumberOfRecordTypes) {
    Read(LinesOfTypes({"X1", "W4", "Z2", "X1", "W4"}));
    (void)Saved();
    EXPECT_EQ(m_nResult, 3);
    EXPECT_EQ(m_Records.GetSaveErrors(), 0);
}

TEST_F(SaveRecords, EveryLineOfAnUnknownTypeCountsAsARecord) {
    Read(LinesOfTypes({"QQ", "X1", "QQ", "QQ"}));
    (void)Saved();
    EXPECT_EQ(m_nResult, 4);
}

TEST_F(SaveRecords, AnEmptyStoreGivesAnEmptyFileAnd0) {
    EXPECT_EQ(Saved(), "");
    EXPECT_EQ(m_nResult, 0);
    EXPECT_EQ(Saved(0), "");
    EXPECT_EQ(m_nResult, 0);
    EXPECT_EQ(m_Records.GetSaveErrors(), 0);
}

TEST_F(SaveRecords, ARecordWithoutLinesCountsAsWritten) {
    COpenRecords records;
    records.AddWithoutLines("X1");
    const std::string path = m_Folder.PathOf("saved.rec");
    EXPECT_EQ(records.SaveAllRecords(path.c_str(), 1), 1);
    EXPECT_EQ(ReadFile(path), "");
}

TEST_F(SaveRecords, LinesAre130BytesWithCrLfAnd128Without) {
    EXPECT_EQ(Resaved(CRecordBuilder().Add("X1").Put(6, "1").Put(127, "e").Add("W4").Put(6, "3")),
              "X1    1" + std::string(120, ' ') + "e\r\nW4    3" + std::string(121, ' ') + "\r\n");
    EXPECT_EQ(Saved(0), "X1    1" + std::string(120, ' ') + "eW4    3" + std::string(121, ' '));
}

TEST_F(SaveRecords, AnyNonZeroSwitchAsksForCrLf) {
    Read(LinesOfTypes({"X1"}));
    EXPECT_EQ(Saved(-1).size(), 130U);
    EXPECT_EQ(Saved(2).size(), 130U);
    EXPECT_EQ(Saved(0).size(), 128U);
    EXPECT_EQ(Saved(1).size(), 130U);
}

TEST_F(SaveRecords, LinesAreGroupedByTypeInTheOrderInWhichTypesWereMet) {
    const std::string saved =
        Resaved(CRecordBuilder().Add("X1", " a").Add("W4", " b").Add("X1", " c").Add("Z2", " d").Add("W4", " e"), 0);
    ASSERT_EQ(saved.size(), 640U);
    std::string letters;
    for (std::size_t line = 0; line < 5; ++line) {
        letters += saved[line * 128 + 3];
    }
    EXPECT_EQ(letters, "acbed");
}

TEST_F(SaveRecords, AnExistingFileIsReplaced) {
    const std::string path = m_Folder.Write("old.rec", std::string(5000, 'o'));
    Read(LinesOfTypes({"X1"}));
    EXPECT_EQ(m_Records.SaveAllRecords(path.c_str(), 0), 1);
    EXPECT_EQ(ReadFile(path), "X1    3" + std::string(121, ' '));
}

TEST_F(SaveRecords, TheFileReadCanBeSavedTo) {
    const CRecordBuilder records = CRecordBuilder().Add("X1", "    1 a").Add("W4", "    3 b");
    Read(records);
    const std::string path = m_Folder.PathOf("records.rec");
    EXPECT_EQ(m_Records.SaveAllRecords(path.c_str(), 1), 2);
    EXPECT_EQ(ReadFile(path), records.Text());
}

TEST_F(SaveRecords, SavingNeedsNoTable) {
    CAllRecordsEx records;
    ASSERT_EQ(records.ReadAllRecordsEx(LinesOfTypes(kThree).Save(m_Folder.PathOf("in.rec")).c_str()), 0);
    EXPECT_EQ(records.SaveAllRecords(m_Folder.PathOf("out.rec").c_str(), 1), 3);
}

TEST_F(SaveRecords, LinesThatBeginWithKAreOfAnUnknownTypeAndAreSaved) {
    const CRecordBuilder records = CRecordBuilder().Add("K1", "01_01 a").Add("X1", "    3 b");
    EXPECT_EQ(Resaved(records), records.Text());
    EXPECT_EQ(m_nResult, 2);
}

TEST_F(SaveRecords, SavingTwiceGivesTheSameBytes) {
    const std::string first = Resaved(LinesOfTypes({"X1", "W4", "FZ", "QQ", "M2", "Z2"}));
    EXPECT_EQ(Saved(), first);
    (void)Saved(0);
    EXPECT_EQ(Saved(), first);
}

TEST_F(SaveRecords, TheLinesStayReadableAs128CharactersAfterASaveWithCrLf) {
    Read(CRecordBuilder().Add("X1", "    3 text").Put(127, "e"));
    (void)Saved();
    CGuardBuffer line(128);
    EXPECT_EQ(m_Records.GetFirstCompleteRecord("X1", line.Data(), line.Size()), 0);
    EXPECT_EQ(line.Bytes(), "X1    3 text" + std::string(115, ' ') + "e");
}

// --- Record numbering -----------------------------------------------------------------------------------------------

TEST_F(SaveRecords, TheFirstLineIs1TheLast3AndAllBetween2) {
    Read(LinesOfTypes(kThree));
    EXPECT_EQ(Markers(), "123");
}

TEST_F(SaveRecords, ASingleNumberedLineEndsAs3) {
    Read(LinesOfTypes({"X1"}));
    EXPECT_EQ(Markers(), "3");
}

TEST_F(SaveRecords, NumberingCountsLinesNotRecords) {
    Read(LinesOfTypes({"X1", "X1", "W4", "W4"}));
    EXPECT_EQ(Markers(), "1223");
}

TEST_F(SaveRecords, LinesOfALetterWithoutNumberingGetABlank) {
    Read(LinesOfTypes(kThree));
    ASSERT_EQ(m_Records.SetRecNums("W", 0), 0);
    EXPECT_EQ(Markers(), "1 3");
}

TEST_F(SaveRecords, The3GoesToTheLastQualifyingRecord) {
    Read(LinesOfTypes({"X1", "Z2", "W4", "W6"}));
    ASSERT_EQ(m_Records.SetRecNums("W", 0), 0);
    EXPECT_EQ(Markers(), "13  ");
}

TEST_F(SaveRecords, WithoutAnyLetterEveryMarkerIsBlank) {
    Read(LinesOfTypes({"X1", "T0", "FZ", "M2", "MS", "QQ", "Z2"}));
    ASSERT_EQ(m_Records.SetRecNums("*", 0), 0);
    EXPECT_EQ(Markers(), "       ");
}

TEST_F(SaveRecords, ReadingAFileSwitchesNumberingOnAgain) {
    ASSERT_EQ(m_Records.SetRecNums("*", 0), 0);
    Read(LinesOfTypes(kThree));
    EXPECT_EQ(Markers(), "123");
}

TEST_F(SaveRecords, ALetterSwitchedOnAgainIsNumbered) {
    Read(LinesOfTypes(kThree));
    ASSERT_EQ(m_Records.SetRecNums("*", 0), 0);
    ASSERT_EQ(m_Records.SetRecNums("Z", 1), 0);
    ASSERT_EQ(m_Records.SetRecNums("X", -1), 0);
    EXPECT_EQ(Markers(), "  3");
}

TEST_F(SaveRecords, ANewRecordSetNumbersNothing) {
    CAllRecordsEx records;
    std::string line = Padded("X1    x", 129);
    ASSERT_EQ(records.SetCompleteRecord("X1", line.data(), 129), 0);
    std::string text(129, '\0');
    EXPECT_EQ(records.WriteAllRecords(text.data(), 128, 0), 128);
    EXPECT_EQ(text.substr(0, 8), "X1      ");
}

TEST_F(SaveRecords, AddingToARecordWhoseFirstLineIsNumberedSwitchesItsLetterOn) {
    for (const char marker : {'1', '2', '3'}) {
        CAllRecordsEx records;
        for (int count = 0; count < 2; ++count) {
            std::string line = Padded(std::string("X1    ") + marker, 129);
            ASSERT_EQ(records.SetCompleteRecord("X1", line.data(), 129), 0);
        }
        std::string text(257, '\0');
        EXPECT_EQ(records.WriteAllRecords(text.data(), 256, 0), 256);
        EXPECT_EQ(text[kMarker], '1') << marker;
        EXPECT_EQ(text[128 + kMarker], '3') << marker;
    }
}

TEST_F(SaveRecords, AddingToARecordWhoseFirstLineIsNotNumberedDoesNot) {
    CAllRecordsEx records;
    for (const char* begin : {"X1    4", "X1    1"}) {
        std::string line = Padded(begin, 129);
        ASSERT_EQ(records.SetCompleteRecord("X1", line.data(), 129), 0);
    }
    std::string text(257, '\0');
    EXPECT_EQ(records.WriteAllRecords(text.data(), 256, 0), 256);
    EXPECT_EQ(text[kMarker], ' ');
    EXPECT_EQ(text[128 + kMarker], ' ');
}

TEST_F(SaveRecords, TheMarkersOfTheExcludedTypesAreLeftAsTheyAre) {
    for (const char* type : {"T0", "FZ", "M2", "MS", "QQ", "K1"}) {
        Read(LinesOfTypes({type, "X1", type, "Z2", type}));
        std::string markers = Markers();
        EXPECT_EQ(std::count(markers.begin(), markers.end(), 'x'), 3) << type;
        markers.erase(std::remove(markers.begin(), markers.end(), 'x'), markers.end());
        EXPECT_EQ(markers, "13") << type;
    }
}

TEST_F(SaveRecords, OnlyExcludedTypesLeaveTheFileUnnumbered) {
    Read(LinesOfTypes({"T0", "M2", "QQ"}));
    EXPECT_EQ(Markers(), "xxx");
}

TEST_F(SaveRecords, TheMarkersOfExcludedTypesAreBlankedWhenTheirLetterIsOff) {
    Read(LinesOfTypes({"T0", "FZ", "M2", "QQ", "X1"}));
    for (const char* letter : {"T", "F", "M", "Q"}) {
        ASSERT_EQ(m_Records.SetRecNums(letter, 0), 0);
    }
    EXPECT_EQ(Markers(), "    3");
}

TEST_F(SaveRecords, ALineThatBeginsWithNoCapitalLetterHasNoNumbering) {
    Read(LinesOfTypes({"xx", "1A", "?!", "  ", "X1"}));
    EXPECT_EQ(Markers(), "    3");
}

TEST_F(SaveRecords, TheLetterIsThatOfTheLineNotOfTheType) {
    Read(LinesOfTypes({"X1", "Z2"}));
    ASSERT_EQ(m_Records.HardWriteItem(1000, "Q1"), 0);
    ASSERT_EQ(m_Records.SetRecNums("X", 0), 0);
    EXPECT_EQ(Markers(), "13");
    ASSERT_EQ(m_Records.SetRecNums("Q", 0), 0);
    EXPECT_EQ(Markers(), " 3");
}

TEST_F(SaveRecords, OnlyTheLastLineOfARecordIsLookedAtForThe3) {
    // Kept on purpose: the record's first line has numbering, its last one has not, so no line gets the 3.
    Read(LinesOfTypes({"X1", "X1"}));
    std::string line = Padded("Q1    x", 129);
    ASSERT_EQ(m_Records.SetCompleteRecord("X1", line.data(), 129), 0);
    ASSERT_EQ(m_Records.SetRecNums("Q", 0), 0);
    EXPECT_EQ(Markers(), "12 ");
}

TEST_F(SaveRecords, ARecordWhoseLastLineHasNoNumberingIsPassedOverForThe3) {
    Read(LinesOfTypes({"Z2", "X1"}));
    std::string line = Padded("Q1    x", 129);
    ASSERT_EQ(m_Records.SetCompleteRecord("X1", line.data(), 129), 0);
    ASSERT_EQ(m_Records.SetRecNums("Q", 0), 0);
    EXPECT_EQ(Markers(), "32 ");
}

TEST_F(SaveRecords, ARecordWithoutLinesIsPassedOverForThe3) {
    COpenRecords records;
    ASSERT_EQ(records.ReadAllRecordsEx(LinesOfTypes({"X1", "Z2"}).Save(m_Folder.PathOf("in.rec")).c_str()), 0);
    records.AddWithoutLines("X5");
    std::string text(257, '\0');
    EXPECT_EQ(records.WriteAllRecords(text.data(), 256, 0), 256);
    EXPECT_EQ(text[kMarker], '1');
    EXPECT_EQ(text[128 + kMarker], '3');
}

TEST_F(SaveRecords, EveryOperationThatHandsOutRecordsNumbersThem) {
    const std::vector<std::string> types = {"X1", "X7", "X$", "Z2"};
    const std::vector<int (*)(CAllRecords&)> operations = {
        [](CAllRecords& records) { return records.WriteAllRecords(nullptr, 0, 0); },
        [](CAllRecords& records) { return records.GetX1Record(nullptr, 0); },
        [](CAllRecords& records) { return records.GetXDollarRecord(nullptr, 0); },
        [](CAllRecords& records) { return records.GetX7Record(nullptr, 0); }};
    for (const auto& operation : operations) {
        Read(LinesOfTypes(types));
        EXPECT_GT(operation(m_Records), 0);
        EXPECT_EQ(Record("X1").GetLine(0)[kMarker], '1');
        EXPECT_EQ(Record("X$").GetLine(0)[kMarker], '2');
        EXPECT_EQ(Record("Z2").GetLine(0)[kMarker], '3');
    }
}

// --- FZ and short lines ---------------------------------------------------------------------------------------------

TEST_F(SaveRecords, AnFzLineIsWrittenAs640CharactersAnd642WithCrLf) {
    const CRecordBuilder records = CRecordBuilder().Add("X1").Put(6, "3").Add("FZ", " car").Put(127, "e");
    const std::string fz = "FZ car" + std::string(121, ' ') + "e" + std::string(512, ' ');
    EXPECT_EQ(Resaved(records, 0), records.Lines()[0] + fz);
    EXPECT_EQ(Saved(1), records.Lines()[0] + "\r\n" + fz + "\r\n");
    EXPECT_EQ(m_nResult, 2);
}

TEST_F(SaveRecords, EveryShortLineIsPaddedWithBlanksBeforeItsCrLf) {
    ReadLines("X1 short\nV1    1\nV1    2 second\nZ2\n");
    ASSERT_EQ(m_Records.SetRecNums("*", 1), 0);
    EXPECT_EQ(Saved(1), Padded("X1 sho1t") + "\r\n" + Padded("V1    2") + "\r\n" + Padded("V1    2 second") + "\r\n" +
                            Padded("Z2") + "\r\n");
    EXPECT_EQ(Saved(0), Padded("X1 sho1t") + Padded("V1    2") + Padded("V1    2 second") + Padded("Z2"));
}

TEST_F(SaveRecords, AMarkerBehindTheEndOfAShortLineIsNotSeen) {
    ReadLines("Z2 ab\nX1\n");
    ASSERT_EQ(m_Records.SetRecNums("*", 1), 0);
    EXPECT_EQ(Saved(0), Padded("Z2 ab") + Padded("X1"));
}

TEST_F(SaveRecords, ALineOfExactlySixCharactersGetsItsMarker) {
    ReadLines("Z2 abc\nX1\n");
    ASSERT_EQ(m_Records.SetRecNums("*", 1), 0);
    EXPECT_EQ(Saved(1), Padded("Z2 abc1") + "\r\n" + Padded("X1") + "\r\n");
}

TEST_F(SaveRecords, ALineOfMoreThan128CharactersIsCut) {
    ReadLines("Z2    x" + std::string(121, 'a') + "bcdefgh\nX1\n");
    ASSERT_EQ(m_Records.SetRecNums("*", 1), 0);
    EXPECT_EQ(Saved(0), "Z2    1" + std::string(121, 'a') + Padded("X1"));
    EXPECT_EQ(Saved(1), "Z2    1" + std::string(121, 'a') + "\r\n" + Padded("X1") + "\r\n");
}

TEST_F(SaveRecords, WhatStandsBehindANulIsLostAndBecomesBlank) {
    CRecordBuilder records;
    records.Add("X1", "    3 kept").Put(20, std::string_view("\0lost", 5));
    EXPECT_EQ(Resaved(records), Padded("X1    3 kept") + "\r\n");
    EXPECT_EQ(Saved(0), Padded("X1    3 kept"));
}

// --- Failures -------------------------------------------------------------------------------------------------------

TEST_F(SaveRecords, AFileThatCannotBeCreatedGivesMinus3) {
    Read(LinesOfTypes(kThree));
    const std::string file = m_Folder.Write("file", "x");
    for (const std::string& path :
         {m_Folder.Path(), file + "/below", m_Folder.PathOf("missing/below"), std::string()}) {
        EXPECT_EQ(m_Records.SaveAllRecords(path.c_str(), 1), -3) << path;
        EXPECT_EQ(m_Records.GetSaveErrors(), 3) << path;
    }
    EXPECT_EQ(ReadFile(file), "x");
}

TEST_F(SaveRecords, AFileThatCannotBeCreatedLeavesEvenTheMarkers) {
    const CRecordBuilder records = LinesOfTypes(kThree);
    Read(records);
    EXPECT_EQ(m_Records.SaveAllRecords(m_Folder.Path().c_str(), 1), -3);
    EXPECT_THAT(LinesOf("X1"), ElementsAre(records.Lines()[0]));
    EXPECT_THAT(LinesOf("W4"), ElementsAre(records.Lines()[1]));
    EXPECT_THAT(LinesOf("Z2"), ElementsAre(records.Lines()[2]));
}

TEST_F(SaveRecords, ANullFileNameGivesMinus1AndChangesNothing) {
    const CRecordBuilder records = LinesOfTypes({"X1"});
    Read(records);
    EXPECT_EQ(m_Records.SaveAllRecords(nullptr, 1), -1);
    EXPECT_THAT(LinesOf("X1"), ElementsAre(records.Lines()[0]));
}

class SaveToAFullDevice : public SaveRecords {
protected:
    int Save(int crlf) { return m_Records.SaveAllRecords(m_Full.Name(), crlf); }

private:
    CFullFile m_Full;
};

TEST_F(SaveToAFullDevice, EveryRecordAddsMinus8) {
    Read(LinesOfTypes(kThree));
    EXPECT_EQ(Save(1), -24);
    EXPECT_EQ(m_Records.GetSaveErrors(), 3);
    EXPECT_EQ(Save(0), -24);
    EXPECT_EQ(m_Records.GetSaveErrors(), 3);
}

TEST_F(SaveToAFullDevice, ARecordOfManyLinesAddsMinus8Once) {
    CRecordBuilder records;
    for (int line = 0; line < 20000; ++line) {
        records.Add("X1");
    }
    records.Add("Z2");
    Read(records);
    EXPECT_EQ(Save(1), -16);
    EXPECT_EQ(m_Records.GetSaveErrors(), 2);
}

TEST_F(SaveToAFullDevice, AnEmptyStoreIsSavedEvenThere) {
    EXPECT_EQ(Save(1), 0);
    EXPECT_EQ(m_Records.GetSaveErrors(), 0);
}

TEST_F(SaveToAFullDevice, TheStoreKeepsEverythingButTheMarkers) {
    const CRecordBuilder records =
        CRecordBuilder().Add("X1", "     text").Put(127, "e").Add("W4", "     more").Add("FZ", " car");
    Read(records);
    EXPECT_LT(Save(1), 0);
    EXPECT_EQ(Saved(0), "X1    1text" + std::string(116, ' ') + "e" + Padded("W4    3more") + Padded("FZ car", 640));
    EXPECT_EQ(m_nResult, 3);
    EXPECT_EQ(m_Records.GetSaveErrors(), 0);
}

// --- The whole file as text -----------------------------------------------------------------------------------------

TEST_F(SaveRecords, WithoutABufferTheLengthOfTheTextIsReturned) {
    Read(LinesOfTypes({"X1", "W4"}));
    EXPECT_EQ(m_Records.WriteAllRecords(nullptr, 0, 1), 258);
    EXPECT_EQ(m_Records.WriteAllRecords(nullptr, 0, 0), 256);
    EXPECT_EQ(m_Records.WriteAllRecords(nullptr, 10, 1), 258);
    CGuardBuffer buffer(1);
    EXPECT_EQ(m_Records.WriteAllRecords(buffer.Data(), 0, 1), 258);
    EXPECT_TRUE(buffer.IsUntouched());
}

TEST_F(SaveRecords, ABufferThatIsTooSmallStaysUntouched) {
    Read(LinesOfTypes({"X1", "W4"}));
    CGuardBuffer buffer(300);
    EXPECT_EQ(m_Records.WriteAllRecords(buffer.Data(), 257, 1), -258);
    EXPECT_EQ(m_Records.WriteAllRecords(buffer.Data(), 255, 0), -256);
    EXPECT_EQ(m_Records.WriteAllRecords(buffer.Data(), 1, 0), -256);
    EXPECT_EQ(m_Records.WriteAllRecords(buffer.Data(), -1, 0), -256);
    EXPECT_TRUE(buffer.IsUntouched());
}

TEST_F(SaveRecords, TheTextHasA0BehindItInTheByteBehindTheSize) {
    Read(LinesOfTypes({"X1", "W4"}));
    CGuardBuffer withLf(259);
    EXPECT_EQ(m_Records.WriteAllRecords(withLf.Data(), 258, 1), 258);
    EXPECT_EQ(withLf.Bytes(), Padded("X1    1") + "\n" + Padded("W4    3") + "\n" + std::string(1, '\0'));
    CGuardBuffer without(257);
    EXPECT_EQ(m_Records.WriteAllRecords(without.Data(), 256, 0), 256);
    EXPECT_EQ(without.Bytes(), Padded("X1    1") + Padded("W4    3") + std::string(1, '\0'));
}

TEST_F(SaveRecords, ALargerBufferIsFilledWithZerosUpToTheByteBehindItsSize) {
    Read(LinesOfTypes({"X1"}));
    CGuardBuffer buffer(151);
    EXPECT_EQ(m_Records.WriteAllRecords(buffer.Data(), 150, 0), 128);
    EXPECT_EQ(buffer.Bytes(), Padded("X1    3") + std::string(23, '\0'));
}

TEST_F(SaveRecords, TheTextOfAnEmptyStoreIsEmpty) {
    EXPECT_EQ(m_Records.WriteAllRecords(nullptr, 0, 1), 0);
    CGuardBuffer buffer(6);
    EXPECT_EQ(m_Records.WriteAllRecords(buffer.Data(), 5, 1), 0);
    EXPECT_EQ(buffer.Bytes(), std::string(6, '\0'));
}

TEST_F(SaveRecords, TheTextCutsEveryLineTo128CharactersAndPadsShortOnes) {
    ReadLines("FZ car\nV1    1\nZ2    x" + std::string(123, 'a') + "\n");
    ASSERT_EQ(m_Records.SetRecNums("*", 1), 0);
    const std::string expected = Padded("FZ car") + Padded("V1    1") + "Z2    3" + std::string(121, 'a');
    CGuardBuffer buffer(385);
    EXPECT_EQ(m_Records.WriteAllRecords(buffer.Data(), 384, 0), 384);
    EXPECT_EQ(buffer.Text(), expected);
    (void)Saved(1); // leaves CR LF behind the lines in memory
    EXPECT_EQ(m_Records.WriteAllRecords(buffer.Data(), 384, 0), 384);
    EXPECT_EQ(buffer.Text(), expected);
}

// --- Single records -------------------------------------------------------------------------------------------------

TEST_F(SaveRecords, TheX1RecordNeedsItsWholeLengthAndIsDeliveredIn129Bytes) {
    Read(CRecordBuilder().Add("Z2").Add("X1", "     text").Put(127, "e"));
    EXPECT_EQ(m_Records.GetX1Record(nullptr, 0), 128);
    EXPECT_EQ(m_Records.GetX1Record(nullptr, 500), 128);
    CGuardBuffer small(200);
    EXPECT_EQ(m_Records.GetX1Record(small.Data(), 0), 128);
    EXPECT_EQ(m_Records.GetX1Record(small.Data(), 100), -128);
    EXPECT_EQ(m_Records.GetX1Record(small.Data(), 127), -128);
    EXPECT_EQ(m_Records.GetX1Record(small.Data(), -5), -128);
    EXPECT_TRUE(small.IsUntouched());
    CGuardBuffer buffer(129);
    EXPECT_EQ(m_Records.GetX1Record(buffer.Data(), 128), 0);
    EXPECT_EQ(buffer.Bytes(), "X1    3text" + std::string(116, ' ') + "e" + std::string(1, '\0'));
}

TEST_F(SaveRecords, ALargerBufferForTheX1RecordIsNotTouchedBehind129Bytes) {
    Read(LinesOfTypes({"X1"}));
    CGuardBuffer untouched(71);
    const std::string untouchedBytes = untouched.Bytes();
    CGuardBuffer buffer(200);
    EXPECT_EQ(m_Records.GetX1Record(buffer.Data(), 200), 0);
    EXPECT_EQ(buffer.Bytes(), Padded("X1    3") + std::string(1, '\0') + untouchedBytes);
}

TEST_F(SaveRecords, TheSizeOfTheX1RecordCountsAllItsLinesButOnlyTheFirstIsDelivered) {
    Read(LinesOfTypes({"X1", "X1"}));
    EXPECT_EQ(m_Records.GetX1Record(nullptr, 0), 256);
    CGuardBuffer buffer(129);
    EXPECT_EQ(m_Records.GetX1Record(buffer.Data(), 128), -256);
    EXPECT_EQ(m_Records.GetX1Record(buffer.Data(), 255), -256);
    EXPECT_TRUE(buffer.IsUntouched());
    EXPECT_EQ(m_Records.GetX1Record(buffer.Data(), 256), 0);
    EXPECT_EQ(buffer.Bytes(), Padded("X1    1") + std::string(1, '\0'));
}

TEST_F(SaveRecords, TheXDollarRecordIsDeliveredLikeTheX1Record) {
    Read(LinesOfTypes({"X1", "X$"}));
    EXPECT_EQ(m_Records.GetXDollarRecord(nullptr, 0), 128);
    CGuardBuffer buffer(129);
    EXPECT_EQ(m_Records.GetXDollarRecord(buffer.Data(), 127), -128);
    EXPECT_TRUE(buffer.IsUntouched());
    EXPECT_EQ(m_Records.GetXDollarRecord(buffer.Data(), 128), 0);
    EXPECT_EQ(buffer.Bytes(), Padded("X$    3") + std::string(1, '\0'));
}

TEST_F(SaveRecords, TheX7RecordIsDeliveredWholeAndNeedsAByteMore) {
    Read(LinesOfTypes({"X7", "X1", "X7"}));
    EXPECT_EQ(m_Records.GetX7Record(nullptr, 0), 256);
    CGuardBuffer small(300);
    EXPECT_EQ(m_Records.GetX7Record(small.Data(), 0), 256);
    EXPECT_EQ(m_Records.GetX7Record(small.Data(), 255), -256);
    EXPECT_EQ(m_Records.GetX7Record(small.Data(), 256), -256);
    EXPECT_TRUE(small.IsUntouched());
    CGuardBuffer buffer(257);
    EXPECT_EQ(m_Records.GetX7Record(buffer.Data(), 257), 0);
    EXPECT_EQ(buffer.Bytes(), Padded("X7    1") + Padded("X7    2") + std::string(1, '\0'));
    CGuardBuffer untouched(43);
    const std::string untouchedBytes = untouched.Bytes();
    CGuardBuffer large(300);
    EXPECT_EQ(m_Records.GetX7Record(large.Data(), 300), 0);
    EXPECT_EQ(large.Bytes(), Padded("X7    1") + Padded("X7    2") + std::string(1, '\0') + untouchedBytes);
}

TEST_F(SaveRecords, WithoutTheRecordTheSingleRecordOperationsGiveMinus1) {
    Read(LinesOfTypes({"Z2", "XT15", "X2"}));
    CGuardBuffer buffer(200);
    EXPECT_EQ(m_Records.GetX1Record(buffer.Data(), 200), -1);
    EXPECT_EQ(m_Records.GetXDollarRecord(buffer.Data(), 200), -1);
    EXPECT_EQ(m_Records.GetX7Record(buffer.Data(), 200), -1);
    EXPECT_EQ(m_Records.GetX1Record(nullptr, 0), -1);
    EXPECT_EQ(m_Records.GetX7Record(nullptr, 0), -1);
    EXPECT_TRUE(buffer.IsUntouched());
}

TEST_F(SaveRecords, ASingleRecordWithoutLinesIsPassedOver) {
    COpenRecords records;
    records.AddWithoutLines("X1");
    EXPECT_EQ(records.GetX1Record(nullptr, 0), -1);
    ASSERT_EQ(records.ReadAllRecordsEx(LinesOfTypes({"Z2"}).Save(m_Folder.PathOf("in.rec")).c_str()), 0);
    records.AddWithoutLines("X1");
    EXPECT_EQ(records.GetX1Record(nullptr, 0), -1);
}

TEST_F(SaveRecords, AShortSingleRecordIsPaddedWithBlanks) {
    ReadLines("X7    1 ab\nX7    2\n");
    EXPECT_EQ(m_Records.GetX7Record(nullptr, 0), 256);
    CGuardBuffer buffer(257);
    EXPECT_EQ(m_Records.GetX7Record(buffer.Data(), 257), 0);
    EXPECT_EQ(buffer.Text(), Padded("X7    1 ab") + Padded("X7    3"));
}

// --- Reading and saving again ---------------------------------------------------------------------------------------

/// What a save makes of a file of lines of 128 characters, told without the library: lines grouped by type in the order
/// in which types are met, markers set, FZ lines longer, NULs and what follows them blank.
class CExpectedSave {
public:
    explicit CExpectedSave(const std::vector<std::string>& lines) {
        for (const std::string& line : lines) {
            Group(TypeOf(line)).Lines.push_back(Padded(line.substr(0, line.find('\0'))));
        }
        Number();
    }

    std::string Text(const char* lineEnd) const {
        std::string text;
        for (const CGroup& group : m_Groups) {
            for (const std::string& line : group.Lines) {
                text += Padded(line, group.Type == "FZ" ? 640 : 128) + lineEnd;
            }
        }
        return text;
    }

private:
    struct CGroup {
        std::string Type; // empty: unknown
        std::vector<std::string> Lines;
    };

    static bool IsOneOf(const std::string& type, std::string_view list) {
        return list.find(" " + type + " ") != std::string_view::npos;
    }

    static std::string TypeOf(const std::string& line) {
        std::string two = line.substr(0, 2);
        std::string four = two + line.substr(7, 2);
        if ((two == "X2" && line[127] == '1') || (two == "X9" && line[122] == '1')) {
            return two + "+";
        }
        if (IsOneOf(two,
                    " X0 X1 X2 X3 X4 X5 X6 X7 X9 G0 G1 G2 G3 G4 G5 G6 G7 G9 GD GE GI Z1 Z2 Z3 Z4 Z9 W1 W2 W3 W4 W6 "
                    "W7 W9 V1 V2 V3 X$ MS M2 T0 G8 FZ Z5 ZT Z0 ")) {
            return two;
        }
        return IsOneOf(four, " WT02 WT03 WT04 WT05 WT06 WT07 WT08 XT02 XT03 XT04 XT05 XT06 XT07 XT08 XT15 XT16 XT19 "
                             "XT22 ")
                   ? four
                   : "";
    }

    CGroup& Group(const std::string& type) {
        const auto known =
            std::find_if(m_Groups.begin(), m_Groups.end(), [&](const CGroup& group) { return group.Type == type; });
        return type.empty() || known == m_Groups.end() ? m_Groups.emplace_back(CGroup{type, {}}) : *known;
    }

    void Number() {
        std::string* last = nullptr;
        bool first = true;
        for (CGroup& group : m_Groups) {
            for (std::string& line : group.Lines) {
                if (line[0] < 'A' || line[0] > 'Z') {
                    line[kMarker] = ' ';
                } else if (!IsOneOf(group.Type, " T0 FZ M2 MS  ")) {
                    line[kMarker] = first ? '1' : '2';
                    first = false;
                    last = &line;
                }
            }
        }
        if (last != nullptr) {
            (*last)[kMarker] = '3';
        }
    }

    std::vector<CGroup> m_Groups;
};

std::vector<std::string> SplitLines(const std::string& text, std::size_t lineSize) {
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin + 128 <= text.size(); begin += lineSize) {
        lines.push_back(text.substr(begin, 128));
    }
    return lines;
}

class SaveSamples : public SaveRecords {
protected:
    SaveSamples() { EXPECT_EQ(m_Records.LoadTable(Sample("calculation.table").c_str(), 3, 2), 0); }

    static std::string Sample(const std::string& name) { return std::string(TABVEX_SAMPLES_DIR) + "/" + name; }
};

TEST_F(SaveSamples, ReadingAndSavingAFileWithCrLfChangesNothingButTheFzRecord) {
    const std::string sample = ReadFile(Sample("all-types.rec"));
    ASSERT_EQ(m_Records.ReadAllRecordsEx(Sample("all-types.rec").c_str()), 0);
    const std::string saved = Saved(1);
    const std::size_t fz = sample.size() - 130;
    ASSERT_EQ(sample.substr(fz, 2), "FZ");
    EXPECT_EQ(saved, sample.substr(0, sample.size() - 2) + std::string(512, ' ') + "\r\n");
    EXPECT_EQ(m_nResult, m_Records.GetRecordCount());
}

TEST_F(SaveSamples, ReadingAndSavingAFileWithoutSeparatorsChangesNothingButTheFzRecord) {
    ASSERT_EQ(m_Records.ReadAllRecordsEx(Sample("all-types-unseparated.rec").c_str()), 0);
    EXPECT_EQ(Saved(0), ReadFile(Sample("all-types-unseparated.rec")) + std::string(512, ' '));
}

TEST_F(SaveSamples, TheFormOfTheX4RecordDoesNotMatterForASave) {
    for (const int newForm : {1, 0}) {
        (void)m_Records.UseX4New(newForm);
        ASSERT_EQ(m_Records.ReadAllRecordsEx(Sample("all-types-unseparated.rec").c_str()), 0);
        EXPECT_EQ(Saved(0), ReadFile(Sample("all-types-unseparated.rec")) + std::string(512, ' '));
    }
}

TEST_F(SaveSamples, LookingAtEntriesAndMutationsChangesNothing) {
    (void)m_Records.UseX4New(1);
    ASSERT_EQ(m_Records.ReadAllRecordsEx(Sample("all-types-unseparated.rec").c_str()), 0);
    for (const int key : {4025, 19225}) {
        int entries = 0;
        for (int result = m_Records.ReadFirst(key); result == 0; result = m_Records.ReadNext(key)) {
            EXPECT_GE(key == 4025 ? m_Records.GetX4MutationCount() : m_Records.GetG9MutationCount(), 0);
            ++entries;
        }
        EXPECT_GT(entries, 8);
    }
    EXPECT_EQ(Saved(0), ReadFile(Sample("all-types-unseparated.rec")) + std::string(512, ' '));
}

TEST_F(SaveSamples, ReadingAndSavingUnknownTypesChangesNothing) {
    ASSERT_EQ(m_Records.ReadAllRecordsEx(Sample("unknown-types.rec").c_str()), 0);
    const std::string sample = ReadFile(Sample("unknown-types.rec"));
    EXPECT_EQ(Saved(1), CExpectedSave(SplitLines(sample, 130)).Text("\r\n"));
    EXPECT_EQ(m_nResult, m_Records.GetRecordCount());
}

TEST_F(SaveSamples, ReadingAndSavingUmlautsChangesNothingInAnyCharacterSetMode) {
    for (const char* mode : {"OEM", "ANSI"}) {
        m_Records.SetCharacterSet(mode);
        ASSERT_EQ(m_Records.ReadAllRecordsEx(Sample("umlauts-cp850.rec").c_str()), 0);
        EXPECT_EQ(Saved(1), ReadFile(Sample("umlauts-cp850.rec"))) << mode;
    }
}

TEST_F(SaveSamples, OfADamagedFileTheWholeRecordsAreSaved) {
    EXPECT_EQ(m_Records.ReadAllRecordsEx(Sample("damaged.rec").c_str()), -6);
    std::string expected = ReadFile(Sample("damaged.rec")).substr(0, 12 * kStored);
    expected[11 * kStored + kMarker] = '3';
    EXPECT_EQ(Saved(1), expected);
}

TEST_F(SaveSamples, LinesOfVariableLengthArePaddedAndNumbered) {
    ASSERT_EQ(m_Records.ReadAll_V_Records(Sample("v-records.txt").c_str()), 1);
    std::string expected;
    const std::string sample = ReadFile(Sample("v-records.txt"));
    for (std::size_t begin = 0; begin < sample.size();) {
        const std::size_t end = sample.find('\n', begin);
        expected += Padded(sample.substr(begin, end - begin)) + "\r\n";
        begin = end + 1;
    }
    EXPECT_EQ(Saved(1), expected);
    EXPECT_EQ(m_nResult, 3);
}

/// Files of random lines: known, unknown and excluded types in any order.
class SaveGeneratedFiles : public SaveSamples {
protected:
    std::string Line(bool withNuls) {
        static const std::vector<std::string> types = {"X0",   "X1",   "X2", "X2N", "X4", "X6", "X9", "X9_NEU", "G0",
                                                       "G9",   "W4",   "W7", "V1",  "Z2", "MS", "M2", "T0",     "FZ",
                                                       "XT15", "WT02", "QQ", "X8",  "K1", "xx", "1A", "XT99"};
        std::string text;
        for (int at = 0; at < 119; ++at) {
            text += static_cast<char>(' ' + Below(224));
        }
        CRecordBuilder record;
        const std::string& type = types[Below(types.size())];
        record.Add(type).Put(9, text).Put(2, text.substr(0, 5)).Put(122, " ").Put(127, " ");
        if (type == "X2N" || type == "X9_NEU") {
            record.Put(type == "X2N" ? 127 : 122, "1");
        }
        if (withNuls) {
            record.Put(static_cast<int>(10 + Below(100)), std::string_view("\0", 1));
        }
        return record.Lines()[0];
    }

    void ReadAndSave(bool crlf, bool withNuls) {
        std::vector<std::string> lines;
        std::string text;
        const std::string lineEnd = crlf ? "\r\n" : "";
        for (std::size_t count = Below(40); count > 0; --count) {
            lines.push_back(Line(withNuls));
            text += lines.back() + lineEnd;
        }
        const std::string path = m_Folder.Write("generated.rec", text);
        ASSERT_EQ(m_Records.ReadAllRecordsEx(path.c_str()), 0);
        const CExpectedSave expected(lines);
        EXPECT_EQ(Saved(0), expected.Text(""));
        EXPECT_EQ(Saved(1), expected.Text("\r\n"));
    }

    std::size_t Below(std::size_t end) { return static_cast<std::size_t>(m_Random()) % end; }

    std::mt19937 m_Random{20240611};
};

TEST_F(SaveGeneratedFiles, KeepEveryByteButTheMarkersAndTheOrderOfTypes) {
    for (int file = 0; file < 150 && !HasFailure(); ++file) {
        (void)m_Records.UseX4New(file % 2);
        ReadAndSave(file % 3 != 0, false);
    }
}

TEST_F(SaveGeneratedFiles, LoseWhatStandsBehindANul) {
    for (int file = 0; file < 50 && !HasFailure(); ++file) {
        (void)m_Records.UseX4New(file % 2);
        ReadAndSave(file % 3 != 0, true);
    }
}

TEST_F(SaveGeneratedFiles, AreTheSameBytesWhenTheSaveIsReadAgain) {
    for (int file = 0; file < 30 && !HasFailure(); ++file) {
        CRecordBuilder records;
        for (const char* type : {"X1", "X4", "W4", "G9", "QQ", "T0"}) {
            records.Add(type, Line(false).substr(9, 100));
        }
        const std::string saved = Resaved(records);
        ASSERT_EQ(m_Records.ReadAllRecordsEx(m_Folder.PathOf("saved.rec").c_str()), 0);
        EXPECT_EQ(Saved(), saved);
    }
}

} // namespace
