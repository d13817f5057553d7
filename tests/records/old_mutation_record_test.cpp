// The "X4" record in its older form: entries and mutations are read straight from the cells of the lines.
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "support/guard_buffer.h"
#include "support/mutation_cells.h"
#include "support/record_set_test.h"

namespace {

using ::testing::ElementsAre;

class OldMutationRecord : public RecordSetTest {
protected:
    OldMutationRecord() { Load(MutationTable()); }

    static std::string Line(const std::vector<std::string>& cells, char last = ' ') {
        return CellLine("X40001 ", cells, last);
    }

    void ReadCells(const std::vector<std::string>& lines) { ReadUnnumbered("X4", lines); }

    int First() { return m_Records.ReadFirst(4025); }
    int Next() { return m_Records.ReadNext(4025); }
    int Write(const char* value) { return m_Records.WriteItem(4025, value); }
    std::string Mutation(int index) { return ReadMutation(m_Records, kX4, index); }

    std::pair<int, int> Cursor() { return {Record("X4").GetCurrentLine(), Record("X4").GetCurrentOffset()}; }
};

const std::string kE = PositionCell("E", "aaaa", "  10", "1", "abc");
const std::string kLe = PositionCell("LE", "bbbb", "  20", "2", "d");
const std::string kI = PositionCell("I", "cccc");
const std::string kEm = AmountCell("EM", "12.50");
const std::string kIm = AmountCell("IM", "3.00");
const std::string kTm = TextsCell("TM", "LA", "two layers");
const std::string kBlank = std::string(15, ' ');

// --- Stepping -------------------------------------------------------------------------------------------------------

TEST_F(OldMutationRecord, NextGoesOnToTheNextCellThatIsARepairPosition) {
    ReadCells({Line({kE, kEm, kLe, kTm, kBlank, AmountCell("QQ", "1"), kI})});
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Cursor(), std::pair(0, 7));
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Cursor(), std::pair(0, 37));
    EXPECT_EQ(Item(4030), "bbbb");
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Cursor(), std::pair(0, 97));
    EXPECT_EQ(Next(), -5);
    EXPECT_EQ(Next(), -5);
}

TEST_F(OldMutationRecord, NextGoesOverLineEnds) {
    ReadCells(
        {Line({kE, kEm}), Line({}), Line({kEm, kBlank, kBlank, kBlank, kBlank, kBlank, kBlank, kLe}, 'z'), Line({kI})});
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Cursor(), std::pair(2, 112));
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Cursor(), std::pair(3, 7));
    EXPECT_EQ(Next(), -5);
    EXPECT_EQ(Record("X4").GetCurrentLine(), 4);
}

TEST_F(OldMutationRecord, FirstGoesToTheFirstCellWhateverItHolds) {
    ReadCells({Line({kEm, kE})});
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Cursor(), std::pair(0, 7));
    EXPECT_EQ(Item(4025), "EM ");
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Item(4030), "aaaa");
}

TEST_F(OldMutationRecord, StepsTakeTheKeyItemOnly) {
    ReadCells({Line({kE, kLe})});
    for (const int item : {4000, 4010, 4030, 4055, 4070, 4085}) {
        EXPECT_EQ(m_Records.ReadFirst(item), -74) << item;
        EXPECT_EQ(m_Records.ReadNext(item), -74) << item;
    }
    EXPECT_EQ(m_Records.ReadPrev(4025), -62);
}

TEST_F(OldMutationRecord, TheRepairMethodsAreTheValuesOfTheLayout) {
    char type[] = "X4";
    m_Records.SetRepairMethodList(type, "QQ");
    ReadCells({Line({kE, PositionCell("QQ"), PositionCell("EVI"), kLe})});
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Item(4030), "bbbb");
}

TEST_F(OldMutationRecord, WithoutValuesInTheLayoutTheRepairMethodsAreTheDefaults) {
    CTableBuilder table;
    table.Section("X4").Item(4000, 2, 1, "C").Item(4025, 3, 8, "C").Item(4030, 4, 11, "C");
    Load(table);
    ReadCells({Line({kE, PositionCell("QQ"), PositionCell("EVI", "eeee"), PositionCell("R"), kLe})});
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Item(4030), "eeee");
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Item(4030), "bbbb");
    EXPECT_EQ(Next(), -5);
}

// --- Reading items --------------------------------------------------------------------------------------------------

TEST_F(OldMutationRecord, ItemsOfThePositionComeFromTheCurrentCell) {
    ReadCells({Line({kE, kEm, kLe})});
    ASSERT_EQ(First(), 0);
    ASSERT_EQ(Next(), 0);
    EXPECT_EQ(Item(4025), "LE ");
    EXPECT_EQ(Item(4030), "bbbb");
    EXPECT_EQ(Item(4035), "  20");
    EXPECT_EQ(Item(4040), "2");
    EXPECT_EQ(Item(4045), "d  ");
}

TEST_F(OldMutationRecord, HeaderItemsComeFromTheFirstLine) {
    ReadCells({CellLine("X40007x", {kE}), CellLine("X40008y", {kLe})});
    ASSERT_EQ(First(), 0);
    ASSERT_EQ(Next(), 0);
    EXPECT_EQ(Item(4000), "X4");
    EXPECT_EQ(Item(4005), "0007");
    EXPECT_EQ(Item(4010), "x");
    EXPECT_EQ(Next(), -5);
    EXPECT_EQ(Item(4005), "0007");
}

TEST_F(OldMutationRecord, OtherItemsGiveMinus22AndPastTheEndTheOthersGiveMinus5) {
    ReadCells({Line({kE, kEm})});
    ASSERT_EQ(First(), 0);
    for (const int item : {4055, 4060, 4070, 4075, 4080, 4085, 4090}) {
        EXPECT_EQ(ReadResult(item), -22) << item;
    }
    EXPECT_EQ(Next(), -5);
    EXPECT_EQ(ReadResult(4055), -22);
    EXPECT_EQ(ReadResult(4025), -5);
    EXPECT_EQ(ReadResult(4045), -5);
}

// --- Reading mutations ----------------------------------------------------------------------------------------------

TEST_F(OldMutationRecord, MutationsAreTheCellsBehindTheEntry) {
    ReadCells({Line({kE, kEm, kTm, kIm, kLe, AmountCell("BM", "-0,5")})});
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''");
    EXPECT_EQ(Mutation(2), "0: TM -1 'LA' 'two layers'");
    EXPECT_EQ(Mutation(3), "0: IM 3 '' ''");
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Mutation(1), "0: BM -0.5 '' ''");
    EXPECT_EQ(Mutation(2).substr(0, 4), "-90:");
}

TEST_F(OldMutationRecord, MutationsCanBeReadBeforeAnyStep) {
    ReadCells({Line({kE, kEm})});
    EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''");
}

TEST_F(OldMutationRecord, AnEntryGoesOnInTheNextLine) {
    ReadCells({Line({kBlank, kBlank, kBlank, kBlank, kBlank, kBlank, kE, kEm}, 'z'), Line({kTm, kIm})});
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''");
    EXPECT_EQ(Mutation(2), "0: TM -1 'LA' 'two layers'");
    EXPECT_EQ(Mutation(3), "0: IM 3 '' ''");
}

TEST_F(OldMutationRecord, WhatLiesBehindTheLastLineIsNoMutation) {
    ReadCells({Line({kBlank, kBlank, kBlank, kBlank, kBlank, kBlank, kE, kEm})});
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''");
    EXPECT_EQ(Mutation(2).substr(0, 4), "-90:");
    EXPECT_EQ(Mutation(3).substr(0, 4), "-90:");
}

TEST_F(OldMutationRecord, CellsAreCountedWhateverTheyHoldOnPurpose) {
    // Kept on purpose: mutation 2 is the second cell behind the entry, also when it belongs to the next one.
    ReadCells({Line({kE, kLe, kEm, kBlank})});
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Mutation(1).substr(0, 4), "-90:");
    EXPECT_EQ(Mutation(2), "0: EM 12.5 '' ''");
    EXPECT_EQ(Mutation(3).substr(0, 4), "-90:");
}

TEST_F(OldMutationRecord, BlanksOnBothSidesOfACodeDoNotCount) {
    ReadCells({Line({kE, AmountCell(" EM", "7.00")})});
    EXPECT_EQ(Mutation(1), "0: EM 7 '' ''");
}

TEST_F(OldMutationRecord, AnAmountThatIsNoNumberReadsAsMinus1) {
    ReadCells({Line({kE, AmountCell("EM", "12x"), AmountCell("IM", "")})});
    EXPECT_EQ(Mutation(1), "-66: EM -1 '' ''");
    EXPECT_EQ(Mutation(2), "-101: IM -1 '' ''");
}

TEST_F(OldMutationRecord, TheCodesAreTheValuesOfTheLayoutNotTheListsOfTheRecordSet) {
    char type[] = "X4";
    m_Records.SetMutationList(type, "QM/1/EM/3");
    ReadCells({Line({kE, kEm, AmountCell("QM", "1.00"), kTm})});
    EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''");
    EXPECT_EQ(Mutation(2).substr(0, 4), "-90:");
    EXPECT_EQ(Mutation(3), "0: TM -1 'LA' 'two layers'");
}

TEST_F(OldMutationRecord, XmIsACodeLikeAnyOther) {
    ReadCells({Line({kE, AmountCell("XM", "9.00")})});
    EXPECT_EQ(Mutation(1).substr(0, 4), "-90:");
    CTableBuilder table;
    table.Section("X4")
        .Item(4000, 2, 1, "C")
        .Item(4025, 3, 8, R"(C,,,,,("E"))")
        .Item(4055, 3, 8, R"(C,,,,,("XM"))")
        .Item(4060, 12, 11, "N,,,R 9.2");
    Load(table);
    ReadCells({Line({kE, AmountCell("XM", "9.00")})});
    EXPECT_EQ(Mutation(1), "0: XM 9 '' ''");
}

TEST_F(OldMutationRecord, TheDataBeginBehindTheLengthOfTheCodeItem) {
    CTableBuilder table;
    table.Section("X4")
        .Item(4000, 2, 1, "C")
        .Item(4025, 3, 8, R"(C,,,,,("E"))")
        .Item(4055, 4, 8, R"(C,,,,,("EM"))")
        .Item(4060, 6, 11, "N,,,R 3.2")
        .Item(4070, 3, 8, R"(C,,,,,("TM"))")
        .Item(4075, 3, 11, "C")
        .Item(4080, 4, 13, "C");
    Load(table);
    ReadCells({Line({kE, "EM 9  1.25zzzzz", "TM ZabcdefgYYYY"})});
    EXPECT_EQ(Mutation(1), "0: EM 1.25 '' ''");
    CGuardBuffer code(4);
    CGuardBuffer text1(4);
    CGuardBuffer text2(5);
    double value = 0;
    EXPECT_EQ(m_Records.ReadX4Mutation(2, code.Data(), 3, value, text1.Data(), 3, text2.Data(), 4), 0);
    EXPECT_EQ(code.Text(), "TM");
    EXPECT_EQ(text1.Text(), "abc");
    EXPECT_EQ(text2.Text(), "defg");
}

TEST_F(OldMutationRecord, PastTheLastLineReadingGivesMinus5) {
    ReadCells({Line({kE, kEm})});
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Next(), -5);
    EXPECT_EQ(Mutation(1).substr(0, 3), "-5:");
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''");
}

TEST_F(OldMutationRecord, AllOtherMutationOperationsAreNotSupported) {
    ReadCells({Line({kE, kEm})});
    EXPECT_EQ(m_Records.AddX4Mutation("IM/1"), -1);
    EXPECT_EQ(m_Records.DeleteOneX4Mutation("EM"), -1);
    EXPECT_EQ(m_Records.DeleteX4Mutations(), -1);
    EXPECT_EQ(m_Records.GetX4MutationCount(), -1);
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({kE, kEm})));
}

TEST_F(OldMutationRecord, ShortLinesAreReadAsFarAsTheyGo) {
    ReadLines(Line({kE, kEm}).substr(0, 37) + "\n" + Line({kLe}).substr(0, 12) + "\n");
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''");
    EXPECT_EQ(Mutation(2).substr(0, 4), "-90:");
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Cursor(), std::pair(1, 7));
    EXPECT_EQ(Item(4025), "LE ");
    EXPECT_EQ(Mutation(1).substr(0, 4), "-90:");
}

// --- Writing --------------------------------------------------------------------------------------------------------

TEST_F(OldMutationRecord, WritingFillsTheCellAtTheCursorAndMovesBehindIt) {
    ReadCells({Line({kE, kEm, kE})});
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Write("LE/bbbb/20/2/d"), 0);
    EXPECT_EQ(Cursor(), std::pair(0, 22));
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Write("I/cccc/30/1/zzz"), 0);
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({kLe, kEm, PositionCell("I", "cccc", "  30", "1", "zzz")})));
}

TEST_F(OldMutationRecord, WritesFollowEachOtherIntoTheNextLine) {
    ReadCells({CellLine("X40007 ", {}, 'z')});
    EXPECT_EQ(First(), 0);
    for (int entry = 0; entry < 9; ++entry) {
        EXPECT_EQ(Write("LE/bbbb/20/2/d"), 0);
    }
    EXPECT_EQ(Cursor(), std::pair(1, 22));
    EXPECT_THAT(WrittenLines(), ElementsAre(CellLine("X40007 ", {kLe, kLe, kLe, kLe, kLe, kLe, kLe, kLe}, 'z'),
                                            CellLine("X40007 ", {kLe})));
}

TEST_F(OldMutationRecord, WritingPastTheLastEntryAppendsALine) {
    ReadCells({CellLine("X40007 ", {kE}, 'z')});
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Next(), -5);
    EXPECT_EQ(Write("LE/bbbb/20/2/d"), 0);
    EXPECT_THAT(WrittenLines(), ElementsAre(CellLine("X40007 ", {kE}, 'z'), CellLine("X40007 ", {kLe})));
}

TEST_F(OldMutationRecord, ANewRecordGrowsByTheEntriesWritten) {
    EXPECT_EQ(Write("E/aaaa/10/1/abc"), 0);
    EXPECT_EQ(Write("LE/bbbb/20/2/d"), 0);
    EXPECT_THAT(WrittenLines(), ElementsAre(CellLine("X4     ", {kE, kLe})));
}

TEST_F(OldMutationRecord, AnEntryIsWrittenByTheKeyItemWithFiveParts) {
    ReadCells({Line({kE})});
    for (const int item : {4000, 4005, 4030, 4045, 4055, 4060}) {
        EXPECT_EQ(m_Records.WriteItem(item, "LE/bbbb/20/2/d"), -6) << item;
    }
    for (const char* value : {"", "LE", "LE/bbbb/20/2", "LE/bbbb/20/2/d/"}) {
        EXPECT_EQ(Write(value), -7) << value;
    }
    EXPECT_EQ(Cursor(), std::pair(0, 7));
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({kE})));
}

TEST_F(OldMutationRecord, BlankPartsAndPartsThatFailLeaveTheirFields) {
    ReadCells({Line({kE, kE})});
    EXPECT_EQ(Write("/zz/ //"), 0);
    EXPECT_EQ(Write("QQ/zzzzz/x/2/y"), -66);
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({PositionCell("E", "zz", "  10", "1", "abc"),
                                                  PositionCell("E", "aaaa", "  10", "2", "y")})));
}

TEST_F(OldMutationRecord, ARawWriteGoesIntoTheLineAtTheCursor) {
    ReadCells({Line({kE}), Line({kLe})});
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(m_Records.HardWriteItem(4030, "zzzz"), 0);
    EXPECT_EQ(Item(4030), "zzzz");
    EXPECT_EQ(Next(), -5);
    EXPECT_EQ(m_Records.HardWriteItem(4030, "yyyy"), 0);
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({kE}), Line({PositionCell("LE", "yyyy", "  20", "2", "d")})));
}

// --- Searching ------------------------------------------------------------------------------------------------------

TEST_F(OldMutationRecord, ASearchFindsEntriesByTheirItems) {
    ReadCells({Line({kE, kEm, kLe}), Line({kI, kLe})});
    EXPECT_EQ(m_Records.FindFirst(4045, " d "), 1);
    EXPECT_EQ(Cursor(), std::pair(0, 37));
    EXPECT_EQ(m_Records.FindNext(), 1);
    EXPECT_EQ(Cursor(), std::pair(1, 22));
    EXPECT_EQ(m_Records.FindNext(), 0);
    EXPECT_EQ(Cursor(), std::pair(1, 22));
    EXPECT_EQ(m_Records.FindNext(), -4);
    EXPECT_EQ(m_Records.FindFirst(4025, "E"), 1);
    EXPECT_EQ(Cursor(), std::pair(0, 7));
    EXPECT_EQ(m_Records.FindFirst(4030, "zzzz"), 0);
    EXPECT_EQ(Cursor(), std::pair(0, 7));
}

TEST_F(OldMutationRecord, ASearchGoesOnBehindTheEntryLastFoundWhereverTheCursorWent) {
    ReadCells({Line({kLe, kE, kLe}), Line({kI, kLe})});
    EXPECT_EQ(m_Records.FindFirst(4045, "d"), 1);
    for (int step = 0; step < 4; ++step) {
        ASSERT_EQ(Next(), 0);
    }
    EXPECT_EQ(m_Records.FindNext(), 1);
    EXPECT_EQ(Cursor(), std::pair(0, 37));
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(m_Records.FindNext(), 1);
    EXPECT_EQ(Cursor(), std::pair(1, 22));
}

TEST_F(OldMutationRecord, ASearchForAMutationFindsTheEntriesThatCarryItsCode) {
    ReadCells({Line({kE, kEm, kLe, kIm, kTm}), Line({kI, kEm})});
    EXPECT_EQ(m_Records.FindFirst(8055, "TM"), 1);
    EXPECT_EQ(Cursor(), std::pair(0, 37));
    EXPECT_EQ(m_Records.FindFirst(8055, "EM"), 1);
    EXPECT_EQ(Cursor(), std::pair(0, 7));
    EXPECT_EQ(m_Records.FindNext(), 1);
    EXPECT_EQ(Cursor(), std::pair(1, 7));
    EXPECT_EQ(m_Records.FindNext(), 0);
    EXPECT_EQ(m_Records.FindFirst(8055, "BM"), 0);
}

TEST_F(OldMutationRecord, OnlyItemsOfThePositionAndMutationCodesCanBeSearched) {
    ReadCells({Line({kE})});
    for (const int item : {4000, 4010, 4055, 4060, 4085}) {
        EXPECT_EQ(m_Records.FindFirst(item, "E"), -11) << item;
    }
}

// --- Switching between the forms ------------------------------------------------------------------------------------

TEST_F(OldMutationRecord, ReadByTheNewFormsSwitchItGivesMinus100) {
    ReadCells({Line({kE, kEm})});
    (void)m_Records.UseX4New(1);
    EXPECT_EQ(Mutation(1).substr(0, 5), "-100:");
    EXPECT_EQ(m_Records.GetX4MutationCount(), -1);
    (void)m_Records.UseX4New(0);
    EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''");
}

class NewRecordReadByTheOldForm : public OldMutationRecord {
protected:
    NewRecordReadByTheOldForm() {
        (void)m_Records.UseX4New(1);
        char type[] = "X4";
        m_Records.SetMutationList(type, "EM/1/IM/1/BM/1/TM/3");
    }

    void ReadAsNewForm(const std::vector<std::string>& lines) {
        (void)m_Records.UseX4New(1);
        ReadCells(lines);
        (void)m_Records.UseX4New(0);
    }
};

TEST_F(NewRecordReadByTheOldForm, TheCellsBehindTheCurrentEntryAreRead) {
    ReadAsNewForm({Line({kE, kLe, kEm, AmountCell("QQ", "1")}), Line({kI, kTm})});
    EXPECT_EQ(Mutation(1).substr(0, 4), "-90:");
    EXPECT_EQ(Mutation(2), "0: EM 12.5 '' ''");
    ASSERT_EQ(Next(), 0);
    EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''");
    EXPECT_EQ(Mutation(2).substr(0, 4), "-90:");
    ASSERT_EQ(Next(), 0);
    EXPECT_EQ(Mutation(1), "-66: TM -1 '' ''");
}

TEST_F(NewRecordReadByTheOldForm, PendingChangesAreWrittenIntoTheLinesFirst) {
    ReadAsNewForm({Line({kE, kE, kE, kE, kE, kE, kE, kLe})});
    EXPECT_EQ(m_Records.AddX4Mutation("EM/1.5"), 0);
    EXPECT_EQ(m_Records.AddX4Mutation("TM/AB/text"), 0);
    EXPECT_EQ(Mutation(1), "0: EM 1.5 '' ''");
    EXPECT_EQ(Mutation(2), "-66: TM -1 '' ''");
    EXPECT_EQ(Mutation(3).substr(0, 4), "-90:");
    for (int step = 0; step < 7; ++step) {
        ASSERT_EQ(Next(), 0);
    }
    EXPECT_EQ(m_Records.AddX4Mutation("BM/2"), 0);
    EXPECT_EQ(Mutation(1), "0: BM 2 '' ''");
    EXPECT_THAT(LinesOf("X4"),
                ElementsAre(Line({kE, AmountCell("EM", "1.50"), TextsCell("TM", "AB", "text"), kE, kE, kE, kE, kE}),
                            Line({kE, kLe, AmountCell("BM", "2.00")})));
}

TEST_F(NewRecordReadByTheOldForm, CodesWithTextsAreReadAsAmountsOnPurpose) {
    // Kept on purpose: in the layout of the newer form 4055 takes the codes of all kinds, and it is asked first.
    ReadAsNewForm({Line({kE, kTm, AmountCell("TM", "4.00")})});
    EXPECT_EQ(Mutation(1), "-66: TM -1 '' ''");
    EXPECT_EQ(Mutation(2), "0: TM 4 '' ''");
    (void)m_Records.UseX4New(1);
    EXPECT_EQ(Mutation(1), "0: TM -1 'LA' 'two layers'");
}

TEST_F(NewRecordReadByTheOldForm, TheCodesAreTheValuesOfItsLayout) {
    char type[] = "X4";
    (void)m_Records.UseX4New(1);
    m_Records.SetMutationList(type, "EM/1");
    ReadAsNewForm({Line({kE, kEm, kIm})});
    EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''");
    EXPECT_EQ(Mutation(2).substr(0, 4), "-90:");
}

TEST_F(NewRecordReadByTheOldForm, WithoutACurrentEntryReadingGivesMinus5) {
    ReadAsNewForm({Line({kE, kEm})});
    ASSERT_EQ(Next(), -5);
    EXPECT_EQ(Mutation(1).substr(0, 3), "-5:");
}

TEST_F(NewRecordReadByTheOldForm, AllOtherOperationsStayThoseOfTheNewerForm) {
    ReadAsNewForm({Line({kE, kEm})});
    EXPECT_EQ(m_Records.GetX4MutationCount(), 1);
    EXPECT_EQ(m_Records.AddX4Mutation("IM/1"), 0);
    EXPECT_EQ(m_Records.DeleteOneX4Mutation("EM"), 0);
    EXPECT_EQ(m_Records.DeleteX4Mutations(), 1);
}

} // namespace
