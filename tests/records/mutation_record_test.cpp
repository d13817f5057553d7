// Records of repair positions with mutations that are held as entries: "X4" in its newer form, and "G9".
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "support/guard_buffer.h"
#include "support/mutation_cells.h"
#include "support/record_access.h"
#include "support/record_set_test.h"

namespace {

using ::testing::ElementsAre;

class MutationRecord : public RecordSetTest, public ::testing::WithParamInterface<const CMutationType*> {
protected:
    MutationRecord() {
        Load(MutationTable());
        (void)m_Records.UseX4New(1);
        SetMutations("EM/1/IM/1/BM/2/TM/3");
    }

    static const CMutationType& Type() { return *GetParam(); }
    static int Key() { return Type().Key(); }
    static int Number(int number) { return Type().Item(number); }

    void SetMutations(const char* list) { m_Records.SetMutationList(Type().Name, list); }

    /// The seven characters that a line begins with.
    static std::string Header(const char* rest = "0001 ") { return std::string(Type().Name) + rest; }
    static std::string Line(const std::vector<std::string>& cells, char last = ' ') {
        return CellLine(Header(), cells, last);
    }

    void ReadCells(const std::vector<std::string>& lines) { ReadUnnumbered(Type().Name, lines); }

    int First() { return m_Records.ReadFirst(Key()); }
    int Next() { return m_Records.ReadNext(Key()); }
    int Write(const char* value) { return m_Records.WriteItem(Key(), value); }
    int Add(const char* mutation) { return (m_Records.*Type().Add)(mutation); }
    int DeleteOne(const char* code) { return (m_Records.*Type().DeleteOne)(code); }
    int DeleteAll() { return (m_Records.*Type().DeleteAll)(); }
    int Count() { return (m_Records.*Type().Count)(); }
    std::string Mutation(int index) { return ReadMutation(m_Records, Type(), index); }

    int ReadResult(int number) { return RecordSetTest::ReadResult(Number(number)); }

    /// The second field of every entry, after stepping over all of them.
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (int result = First(); result == 0; result = Next()) {
            names.push_back(Item(Number(30)));
        }
        return names;
    }
};

INSTANTIATE_TEST_SUITE_P(Types, MutationRecord, ::testing::Values(&kX4, &kG9),
                         [](const auto& test) { return std::string(test.param->Name); });

const std::string kE = PositionCell("E", "aaaa", "  10", "1", "abc");
const std::string kLe = PositionCell("LE", "bbbb", "  20", "2", "d");
const std::string kI = PositionCell("I", "cccc");
const std::string kEm = AmountCell("EM", "12.50");
const std::string kIm = AmountCell("IM", "3.00");
const std::string kBm = AmountCell("BM", "0.25");
const std::string kTm = TextsCell("TM", "LA", "two layers");
const std::string kBlank = std::string(15, ' ');

// --- Stepping over entries ------------------------------------------------------------------------------------------

TEST_P(MutationRecord, EntriesAreTheRepairPositionsOfAllLines) {
    ReadCells({Line({kE, kEm, kLe}), Line({kI, kTm, kE})});
    EXPECT_THAT(Names(), ElementsAre("aaaa", "bbbb", "cccc", "aaaa"));
}

TEST_P(MutationRecord, TheFirstEntryIsCurrentAfterReading) {
    ReadCells({Line({kE, kEm, kLe, kIm, kBm})});
    EXPECT_EQ(Count(), 1);
    EXPECT_EQ(Item(Number(30)), "aaaa");
}

TEST_P(MutationRecord, AllCellsUpToTheOneAt112ArePositionsOrMutations) {
    ReadCells({Line({kE, kEm, kIm, kLe, kI, kTm, kLe, kE}, 'z'), Line({kEm})});
    EXPECT_THAT(Names(), ElementsAre("aaaa", "bbbb", "cccc", "bbbb", "aaaa"));
    ASSERT_EQ(First(), 0);
    for (int step = 0; step < 4; ++step) {
        ASSERT_EQ(Next(), 0);
    }
    EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''");
    EXPECT_EQ(Count(), 1);
}

TEST_P(MutationRecord, StepsTakeTheKeyItemOnlyButTheFirstTakesMutationCodesToo) {
    ReadCells({Line({kE, kLe})});
    for (const int number : {25, 55, 70}) {
        EXPECT_EQ(m_Records.ReadFirst(Number(number)), 0) << number;
    }
    EXPECT_EQ(m_Records.ReadFirst(4085), Type().Base == 4000 ? 0 : -1);
    for (const int number : {0, 10, 30, 45, 60, 75, 80}) {
        EXPECT_EQ(m_Records.ReadFirst(Number(number)), -74) << number;
    }
    for (const int number : {0, 30, 55, 70, 60}) {
        EXPECT_EQ(m_Records.ReadNext(Number(number)), -74) << number;
    }
    EXPECT_EQ(m_Records.ReadNext(Key()), 0);
    EXPECT_EQ(m_Records.ReadPrev(Key()), -62);
}

TEST_P(MutationRecord, PastTheLastEntryEveryStepGivesMinus5UntilTheFirstIsAskedFor) {
    ReadCells({Line({kE, kLe})});
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Next(), -5);
    EXPECT_EQ(Next(), -5);
    EXPECT_EQ(ReadResult(30), -5);
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Item(Number(30)), "aaaa");
}

TEST_P(MutationRecord, TheCursorIsAtTheCellOfTheCurrentEntry) {
    ReadCells({Line({kE, kEm, kLe}), Line({kBlank, kI})});
    const CRecord& record = Record(Type().Name);
    ASSERT_EQ(First(), 0);
    EXPECT_EQ(record.GetCurrentLine(), 0);
    EXPECT_EQ(record.GetCurrentOffset(), 7);
    ASSERT_EQ(Next(), 0);
    EXPECT_EQ(record.GetCurrentLine(), 0);
    EXPECT_EQ(record.GetCurrentOffset(), 37);
    ASSERT_EQ(Next(), 0);
    EXPECT_EQ(record.GetCurrentLine(), 1);
    EXPECT_EQ(record.GetCurrentOffset(), 22);
    ASSERT_EQ(Next(), -5);
    EXPECT_EQ(record.GetCurrentLine(), 2);
}

TEST_P(MutationRecord, WithoutEntriesTheFirstIsMinus5) {
    ReadCells({Line({kBlank, kEm, PositionCell("ZZ")})});
    EXPECT_EQ(First(), -5);
    EXPECT_EQ(Next(), -5);
    EXPECT_EQ(ReadResult(25), -5);
}

TEST_P(MutationRecord, RecordsReadWithoutAFixUpAreParsedWhenAnEntryIsAskedFor) {
    const std::string path = m_Folder.Write("cells.rec", Line({kE, kEm, kIm}) + "\r\n" + Line({kLe}) + "\r\n");
    ASSERT_EQ(m_Records.ReadAllRecords(path.c_str()), 1);
    EXPECT_EQ(Count(), 2);
    ASSERT_EQ(m_Records.ReadAllRecords(path.c_str()), 1);
    EXPECT_EQ(Mutation(2), "0: IM 3 '' ''");
    ASSERT_EQ(m_Records.ReadAllRecords(path.c_str()), 1);
    EXPECT_EQ(Add("BM/1"), 0);
    EXPECT_EQ(Count(), 3);
    ASSERT_EQ(m_Records.ReadAllRecords(path.c_str()), 1);
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Item(Number(30)), "bbbb");
}

TEST_P(MutationRecord, TheFixUpsReturn0) {
    ReadCells({Line({kE, kEm})});
    EXPECT_EQ(CRecordAccess(Record(Type().Name)).PostRead(), 0);
    EXPECT_EQ(CRecordAccess(Record(Type().Name)).PrepareWrite(), 0);
}

// --- What a cell is -------------------------------------------------------------------------------------------------

TEST_P(MutationRecord, TheCodeOfACellIsCutAtABlankInItsSecondOrThirdPlace) {
    const std::string afterBlank = "E Xgggg" + std::string(8, ' ');
    const std::string afterTwo = "LE1gggh" + std::string(8, ' ');
    const std::string leadingBlank = " E gggi" + std::string(8, ' ');
    const std::string tooLong = "EMXgggj" + std::string(8, ' ');
    ReadCells({Line({afterBlank, afterTwo, leadingBlank, tooLong, kLe})});
    EXPECT_THAT(Names(), ElementsAre("gggg", "gggh", "bbbb"));
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Item(Number(25)), "E X");
}

TEST_P(MutationRecord, CodesAreTakenAsTheyAreWritten) {
    ReadCells({Line({PositionCell("e", "gggg"), PositionCell("ET", "hhhh"), PositionCell("T", "iiii")})});
    EXPECT_THAT(Names(), ElementsAre("hhhh"));
}

TEST_P(MutationRecord, MutationsBeforeTheFirstPositionBelongToNoEntry) {
    ReadCells({Line({kEm, kTm, kE, kIm})});
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Count(), 1);
    EXPECT_EQ(Mutation(1), "0: IM 3 '' ''");
}

TEST_P(MutationRecord, CellsOfUnknownCodesAreSkipped) {
    ReadCells({Line({kE, AmountCell("QQ", "1.00"), kEm, kBlank, kIm, kBlank, kLe})});
    EXPECT_EQ(Count(), 2);
    EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''");
    EXPECT_EQ(Mutation(2), "0: IM 3 '' ''");
    EXPECT_THAT(Names(), ElementsAre("aaaa", "bbbb"));
}

TEST_P(MutationRecord, MutationsGoOnInTheNextLine) {
    ReadCells({Line({kLe, kLe, kLe, kLe, kLe, kLe, kE, kEm}), Line({kIm, kBm, kLe})});
    ASSERT_EQ(First(), 0);
    for (int step = 0; step < 6; ++step) {
        ASSERT_EQ(Next(), 0);
    }
    EXPECT_EQ(Count(), 3);
    EXPECT_EQ(Mutation(3), "0: BM 0.25 '' ''");
}

TEST_P(MutationRecord, AnEntryHoldsItsFirstThreeMutations) {
    ReadCells({Line({kE, kEm, kIm, kBm, kTm, kLe, kTm})});
    EXPECT_EQ(Count(), 3);
    EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''");
    EXPECT_EQ(Mutation(2), "0: IM 3 '' ''");
    EXPECT_EQ(Mutation(3), "0: BM 0.25 '' ''");
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Mutation(1), "0: TM -1 'LA' 'two layers'");
}

TEST_P(MutationRecord, ACodeThatIsBothIsARepairPosition) {
    SetMutations("E/1/EM/1");
    ReadCells({Line({kE, kE, kEm})});
    EXPECT_THAT(Names(), ElementsAre("aaaa", "aaaa"));
}

TEST_P(MutationRecord, ListsReplacedBeforeTheFirstAccessDecideWhatACellIs) {
    const std::string path = m_Folder.Write("cells.rec", Line({kE, kEm, AmountCell("ZM", "7.00")}) + "\r\n");
    ASSERT_EQ(m_Records.ReadAllRecords(path.c_str()), 1);
    SetMutations("ZM/1");
    EXPECT_EQ(Count(), 1);
    EXPECT_EQ(Mutation(1), "0: ZM 7 '' ''");
}

TEST_P(MutationRecord, ListsReplacedLaterReachTheMutationsThatExist) {
    ReadCells({Line({kE, kEm, kTm})});
    EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''");
    EXPECT_EQ(Mutation(2), "0: TM -1 'LA' 'two layers'");
    SetMutations("EM/3/XM/1");
    EXPECT_EQ(Count(), 2);
    EXPECT_EQ(Mutation(2).substr(0, 4), "-90:");
    SetMutations("EM/1/TM/3");
    EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''");
}

// --- Reading items --------------------------------------------------------------------------------------------------

TEST_P(MutationRecord, ItemsOfThePositionComeFromTheCurrentEntryInFullLength) {
    ReadCells({Line({kE, kEm, kLe})});
    ASSERT_EQ(First(), 0);
    ASSERT_EQ(Next(), 0);
    EXPECT_EQ(Item(Number(25)), "LE ");
    EXPECT_EQ(Item(Number(30)), "bbbb");
    EXPECT_EQ(Item(Number(35)), "  20");
    EXPECT_EQ(Item(Number(40)), "2");
    EXPECT_EQ(Item(Number(45)), "d  ");
}

TEST_P(MutationRecord, HeaderItemsComeFromTheFirstLineWhateverTheEntry) {
    ReadCells({CellLine(Header("0007x"), {kE}), CellLine(Header("0008y"), {kLe})});
    ASSERT_EQ(First(), 0);
    ASSERT_EQ(Next(), 0);
    EXPECT_EQ(Item(Number(5)), "0007");
    EXPECT_EQ(Item(Number(10)), "x");
    EXPECT_EQ(Next(), -5);
    EXPECT_EQ(Item(Number(0)), Type().Name);
    EXPECT_EQ(Item(Number(5)), "0007");
}

TEST_P(MutationRecord, OtherItemsGiveMinus22WhereverTheCursorIs) {
    ReadCells({Line({kE, kEm})});
    ASSERT_EQ(First(), 0);
    for (const int number : {55, 60, 70, 75, 80}) {
        EXPECT_EQ(ReadResult(number), -22) << number;
    }
    EXPECT_EQ(Next(), -5);
    EXPECT_EQ(ReadResult(55), -22);
}

TEST_P(MutationRecord, NumbersOfAnEntryAreRead) {
    ReadCells({Line({kE, kLe, kI})});
    int value = -1;
    EXPECT_EQ(m_Records.ReadIntItem(Number(35), value), 0);
    EXPECT_EQ(value, 10);
    ASSERT_EQ(Next(), 0);
    ASSERT_EQ(Next(), 0);
    EXPECT_EQ(m_Records.ReadIntItem(Number(35), value), -101);
    EXPECT_EQ(value, 0);
}

// --- Reading mutations ----------------------------------------------------------------------------------------------

TEST_P(MutationRecord, AnAmountThatIsNoNumberReadsAsMinus1) {
    ReadCells({Line({kE, AmountCell("EM", "12x"), AmountCell("IM", ""), AmountCell("BM", "-4,5")})});
    EXPECT_EQ(Mutation(1), "-66: EM -1 '' ''");
    EXPECT_EQ(Mutation(2), "-101: IM -1 '' ''");
    EXPECT_EQ(Mutation(3), "0: BM -4.5 '' ''");
}

TEST_P(MutationRecord, TextsAreDeliveredAsTheCellHoldsThem) {
    ReadCells({Line({kE, TextsCell("TM", " a", "  b")})});
    EXPECT_EQ(Mutation(1), "0: TM -1 ' a' '  b       '");
}

TEST_P(MutationRecord, Kind7SplitsTheValueIntoTwoAndTenCharacters) {
    SetMutations("EM/1/TM/7");
    ReadCells({Line({kE, kTm, AmountCell("EM", "5.00")})});
    EXPECT_EQ(Mutation(1), "0: TM -1 'LA' 'two layers'");
    EXPECT_EQ(Mutation(2), "0: EM 5 '' ''");
}

TEST_P(MutationRecord, EveryKindButOneOf3And7IsANumber) {
    for (const char* list : {"EM/0", "EM/1", "EM/2", "EM/4", "EM/5", "EM/6", "EM/8", "EM/9", "EM/-1"}) {
        SetMutations(list);
        ReadCells({Line({kE, kEm})});
        EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''") << list;
    }
}

TEST_P(MutationRecord, ACodeOfTheTextItemOfTheTableHasKind4AndIsReadAsANumberOnPurpose) {
    Load(MutationTable());
    ReadCells({Line({kE, kTm, AmountCell("TM", "8.00")})});
    EXPECT_EQ(Mutation(1), "-66: TM -1 '' ''");
    EXPECT_EQ(Mutation(2), "0: TM 8 '' ''");
}

TEST_P(MutationRecord, TheDefaultTmHasTwoTexts) {
    CTableBuilder table;
    table.Section(Type().Name)
        .Item(Number(0), 2, 1, "C")
        .Item(Number(25), 3, 8, "C")
        .Item(Number(30), 4, 11, "C")
        .Item(Number(55), 3, 8, "C")
        .Item(Number(60), 12, 11, "N,,,R 9.2")
        .Item(Number(70), 3, 8, "C")
        .Item(Number(75), 2, 11, "C")
        .Item(Number(80), 10, 13, "C");
    Load(table);
    ReadCells({Line({PositionCell("EVI"), kTm, AmountCell("XM", "2.00"), AmountCell("GM", "1.00")})});
    EXPECT_EQ(Mutation(1), "0: TM -1 'LA' 'two layers'");
    EXPECT_EQ(Mutation(2), "0: XM 2 '' ''");
    EXPECT_EQ(Mutation(3), "0: GM 1 '' ''");
}

// --- Writing entries ------------------------------------------------------------------------------------------------

TEST_P(MutationRecord, ANewRecordGrowsByTheEntriesWritten) {
    EXPECT_EQ(Write("E/aaaa/10/1/abc"), 0);
    EXPECT_EQ(Write("LE/bbbb/20/2/d"), 0);
    EXPECT_THAT(WrittenLines(), ElementsAre(CellLine(Padded(Type().Name, 7), {kE, kLe})));
}

TEST_P(MutationRecord, ANewRecordHasNoEntry) {
    EXPECT_EQ(m_Records.WriteItem(Number(30), "aaaa"), -6);
    EXPECT_EQ(First(), -5);
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(Mutation(1).substr(0, 4), "-90:");
}

TEST_P(MutationRecord, AnEntryIsWrittenByTheKeyItemWithFiveParts) {
    ReadCells({Line({kE})});
    for (const int number : {0, 5, 30, 45, 55, 60}) {
        EXPECT_EQ(m_Records.WriteItem(Number(number), "E/aaaa/10/1/abc"), -6) << number;
    }
    for (const char* value : {"", "LE", "LE/b", "LE/bbbb/20/2", "LE/bbbb/20/2/d/", "/////"}) {
        EXPECT_EQ(Write(value), -7) << value;
    }
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({kE})));
}

TEST_P(MutationRecord, PartsAreSplitAtTheDelimiterOfTheRecordSet) {
    (void)m_Records.SetDelimiter(';');
    ReadCells({Line({})});
    EXPECT_EQ(Write("E/a/10/1/b"), -7);
    EXPECT_EQ(Write("E;a/b;10;1;c/d"), 0);
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({PositionCell("E", "a/b", "  10", "1", "c/d")})));
}

TEST_P(MutationRecord, WritingReplacesTheEntryAtTheWritePositionAndKeepsItsMutations) {
    ReadCells({Line({kE, kEm, kTm, kI})});
    EXPECT_EQ(Write("LE/bbbb/20/2/d"), 0);
    EXPECT_EQ(Count(), 2);
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({kLe, kEm, kTm, kI})));
}

TEST_P(MutationRecord, TheWrittenEntryIsCurrentAndTheNextWriteGoesBehindIt) {
    ReadCells({Line({kE, kEm, kE, kIm, kBm})});
    EXPECT_EQ(Write("LE/bbbb/20/2/d"), 0);
    EXPECT_EQ(Item(Number(30)), "bbbb");
    EXPECT_EQ(Count(), 1);
    EXPECT_EQ(Write("I/cccc///"), 0);
    EXPECT_EQ(Item(Number(30)), "cccc");
    EXPECT_EQ(Count(), 2);
    EXPECT_EQ(Write("E/aaaa/10/1/abc"), 0);
    EXPECT_EQ(Item(Number(30)), "aaaa");
    EXPECT_EQ(Count(), 0);
    EXPECT_THAT(WrittenLines(),
                ElementsAre(Line({kLe, kEm, PositionCell("I", "cccc", "  10", "1", "abc"), kIm, kBm, kE})));
}

TEST_P(MutationRecord, ABlankPartLeavesTheFieldOfTheEntryReplaced) {
    ReadCells({Line({kE})});
    EXPECT_EQ(Write("/zz/ / /"), 0);
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({PositionCell("E", "zz", "  10", "1", "abc")})));
}

TEST_P(MutationRecord, APartThatFailsLeavesItsFieldAndTheLastFailureIsReturned) {
    ReadCells({Line({kE})});
    EXPECT_EQ(Write("I/zzzzz/x/2/y"), -66);
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({PositionCell("I", "aaaa", "  10", "2", "y")})));
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Write("QQ/1111/7/9/"), -55);
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({PositionCell("I", "1111", "   7", "2", "y")})));
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Write("//12345//zzzz"), -45);
}

TEST_P(MutationRecord, ANewEntryNeedsARepairMethod) {
    ReadCells({Line({})});
    EXPECT_EQ(Write("/aaaa/10/1/abc"), -55);
    EXPECT_EQ(Write("   /aaaa/10/1/abc"), -55);
    EXPECT_EQ(Write("QQ/aaaa/10/1/abc"), -55);
    EXPECT_EQ(Write("LEEE/aaaa/10/1/abc"), -55);
    EXPECT_EQ(First(), -5);
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({})));
}

TEST_P(MutationRecord, ANewEntryNeedsARepairMethodEvenWhenItsItemTakesAnyText) {
    CTableBuilder table;
    table.Section(Type().Name)
        .Item(Key(), 3, 8, "C") // the first line of a section takes no list
        .Item(Number(30), 4, 11, "C")
        .Item(Number(35), 4, 15, "C")
        .Item(Number(40), 1, 19, "C")
        .Item(Number(45), 3, 20, "C");
    Load(table);
    ReadCells({Line({})});
    EXPECT_EQ(Write("/aaaa/10/1/abc"), -55);
    EXPECT_EQ(Write("  /aaaa/10/1/abc"), -55);
    EXPECT_EQ(First(), -5);
    EXPECT_EQ(Write("E/aaaa/10/1/abc"), 0);
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({PositionCell("E", "aaaa", "10", "1", "abc")})));
}

TEST_P(MutationRecord, ANewEntryIsAddedWithoutThePartsThatFail) {
    ReadCells({Line({})});
    EXPECT_EQ(Write("E/aaaa/x/1/abc"), -66);
    EXPECT_THAT(Names(), ElementsAre("aaaa"));
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({PositionCell("E", "aaaa", "", "1", "abc")})));
}

TEST_P(MutationRecord, WritingAfterTheLastEntryAppends) {
    ReadCells({Line({kE, kEm})});
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Next(), -5);
    EXPECT_EQ(Write("LE/bbbb/20/2/d"), 0);
    EXPECT_EQ(Write("I/cccc///"), 0);
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({kE, kEm, kLe, kI})));
}

TEST_P(MutationRecord, StepsMoveTheWritePosition) {
    ReadCells({Line({kE, kE, kE})});
    ASSERT_EQ(First(), 0);
    ASSERT_EQ(Next(), 0);
    EXPECT_EQ(Write("I/cccc/30/2/z"), 0);
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Write("LE/bbbb/20/2/d"), 0);
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({kE, PositionCell("I", "cccc", "  30", "2", "z"),
                                                  PositionCell("LE", "bbbb", "  20", "2", "d")})));
    ASSERT_EQ(First(), 0);
    EXPECT_EQ(Write("LE/bbbb/20/2/d"), 0);
    EXPECT_THAT(Names(), ElementsAre("bbbb", "cccc", "bbbb"));
}

TEST_P(MutationRecord, NumberItemsAreLaidOutAndTextsPadded) {
    ReadCells({Line({})});
    EXPECT_EQ(Write("ET/x/7/2/y"), 0);
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({PositionCell("ET", "x", "   7", "2", "y")})));
}

TEST_P(MutationRecord, WriteDynIsNotSupported) {
    ReadCells({Line({kE})});
    EXPECT_EQ(m_Records.HardWriteDynItem(Key(), "E/a/1/1/b"), -1);
    CGuardBuffer text(40);
    EXPECT_EQ(m_Records.HardReadDynItem(Key(), text.Data(), text.Size()), -1);
}

// --- Saving ---------------------------------------------------------------------------------------------------------

TEST_P(MutationRecord, LinesThatWereNotChangedStayByteForByte) {
    const std::vector<std::string> lines = {
        CellLine(Header("0001a"), {kEm, kBlank, kE, AmountCell("QQ", "x"), kBlank, kEm}, 'p'),
        CellLine(Header("0002b"), {kBlank, kBlank}, 'q'), CellLine(Header("0003c"), {kTm, kIm, kBm, kEm, kLe}, 'r')};
    CRecordBuilder records;
    for (const std::string& line : lines) {
        records.Add(Type().Name).Put(0, line);
    }
    Read(records);
    EXPECT_THAT(Names(), ElementsAre("aaaa", "bbbb"));
    EXPECT_EQ(Mutation(1).substr(0, 4), "-90:");
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(DeleteOne("ZZ"), -90);
    EXPECT_EQ(Add("QQ/1.00"), -5);
    EXPECT_EQ(Write("x"), -7);
    std::vector<std::string> expected = lines;
    expected[0][6] = '1';
    expected[1][6] = '2';
    expected[2][6] = '3';
    EXPECT_EQ(WrittenLines(), expected);
}

TEST_P(MutationRecord, AfterAChangeEntriesFollowWithoutGaps) {
    ReadCells({Line({kBlank, kE, kBlank, kEm, kBlank, kLe}), Line({kBlank, kI, kTm})});
    EXPECT_EQ(Add("IM/3"), 0);
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({kE, kEm, kIm, kLe, kI, kTm}), Line({})));
}

TEST_P(MutationRecord, AfterAChangeEveryLineHasTheHeaderOfTheFirst) {
    ReadCells({CellLine(Header("0001 "), {kE, kE, kE, kE, kE, kE, kE, kE}, 'p'), CellLine(Header("0002 "), {kE}, 'q'),
               CellLine(Header("0003 "), {}, 'r')});
    EXPECT_EQ(Add("EM/12.5"), 0);
    EXPECT_THAT(WrittenLines(),
                ElementsAre(CellLine(Header("0001 "), {kE, kEm, kE, kE, kE, kE, kE, kE}, 'p'),
                            CellLine(Header("0001 "), {kE, kE}, 'q'), CellLine(Header("0001 "), {}, 'r')));
}

TEST_P(MutationRecord, SkippedCellsKeepTheirPlaceBehindTheEntryTheyFollowed) {
    const std::string q1 = AmountCell("Q1", "1");
    const std::string q2 = AmountCell("Q2", "2");
    const std::string q3 = AmountCell("Q3", "3");
    ReadCells({Line({kEm, q1, kE, q2, kEm, q3, kLe})});
    EXPECT_EQ(Add("IM/3"), 0);
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({kEm, q1, kE, kEm, kIm, q2, q3, kLe})));
}

TEST_P(MutationRecord, AFourthMutationOfAFileIsKeptBehindItsEntry) {
    ReadCells({Line({kE, kEm, kIm, kBm, kTm, kLe})});
    EXPECT_EQ(DeleteOne("IM"), 0);
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({kE, kEm, kBm, kTm, kLe})));
}

TEST_P(MutationRecord, LinesAreAddedAsNeededWithTheHeaderOfTheFirst) {
    ReadCells({CellLine(Header("0001 "), {kE, kE, kE, kE, kE, kE, kE, kE}, 'p')});
    EXPECT_EQ(Add("EM/12.5"), 0);
    EXPECT_THAT(WrittenLines(), ElementsAre(CellLine(Header("0001 "), {kE, kEm, kE, kE, kE, kE, kE, kE}, 'p'),
                                            CellLine(Header("0001 "), {kE})));
}

TEST_P(MutationRecord, LinesAreNeverRemovedAndCellsNoLongerUsedBecomeBlank) {
    ReadCells({Line({kE, kEm, kIm, kBm, kE, kEm, kIm, kBm}, 'p'), Line({kLe, kTm}, 'q')});
    EXPECT_EQ(DeleteAll(), 3);
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(DeleteAll(), 3);
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({kE, kE, kLe, kTm}, 'p'), Line({}, 'q')));
}

TEST_P(MutationRecord, TheMarkerIsSetAfterTheHeaderWasRepeated) {
    ReadCells({CellLine(Header("0001x"), {kE, kE, kE, kE, kE, kE, kE, kE}), CellLine(Header("0001y"), {kE})});
    ASSERT_EQ(m_Records.SetRecNums("*", 1), 0);
    EXPECT_EQ(Add("EM/12.5"), 0);
    EXPECT_THAT(WrittenLines(), ElementsAre(CellLine(Header("00011"), {kE, kEm, kE, kE, kE, kE, kE, kE}),
                                            CellLine(Header("00013"), {kE, kE})));
}

TEST_P(MutationRecord, ChangesOfTheHeaderReachEveryLineOnceAnEntryIsChanged) {
    ReadCells({CellLine(Header("0001 "), {kE}), CellLine(Header("0002 "), {kE})});
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(m_Records.HardWriteItem(Number(5), "0009"), 0);
    EXPECT_THAT(WrittenLines(), ElementsAre(CellLine(Header("0009 "), {kE}), CellLine(Header("0002 "), {kE})));
    EXPECT_EQ(Add("EM/12.5"), 0);
    EXPECT_THAT(WrittenLines(), ElementsAre(CellLine(Header("0009 "), {kE, kEm, kE}), CellLine(Header("0009 "), {})));
}

TEST_P(MutationRecord, EntriesAndPositionSurviveASave) {
    ReadCells({Line({kE, kEm, kLe, kTm})});
    ASSERT_EQ(First(), 0);
    ASSERT_EQ(Next(), 0);
    EXPECT_EQ(Add("IM/3"), 0);
    const std::string path = m_Folder.PathOf("saved.rec");
    for (const int crlf : {1, 0}) {
        EXPECT_EQ(m_Records.SaveAllRecords(path.c_str(), crlf), 1);
        EXPECT_EQ(Item(Number(30)), "bbbb");
        EXPECT_EQ(Count(), 2);
        EXPECT_EQ(Mutation(1), "0: TM -1 'LA' 'two layers'");
    }
    EXPECT_EQ(Add("EM/12.5"), 0);
    EXPECT_EQ(Next(), -5);
    EXPECT_EQ(m_Records.SaveAllRecords(path.c_str(), 1), 1);
    EXPECT_EQ(ReadFile(path), Line({kE, kEm, kLe, kTm, kIm, kEm}) + "\r\n");
}

TEST_P(MutationRecord, ALineIsStill128CharactersAfterASaveWithCrLf) {
    ReadCells({Line({kE, kEm, kLe})});
    EXPECT_EQ(m_Records.SaveAllRecords(m_Folder.PathOf("saved.rec").c_str(), 1), 1);
    EXPECT_EQ(m_Records.HardWriteItem(Number(30), "zzzz"), 0);
    EXPECT_THAT(Names(), ElementsAre("zzzz", "bbbb"));
}

TEST_P(MutationRecord, TheSavedFileReadsAsTheSameEntries) {
    ReadCells({Line({kE, kLe})});
    EXPECT_EQ(Add("EM/1.5"), 0);
    EXPECT_EQ(Add("TM/AB/text"), 0);
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Add("BM/-2"), 0);
    const std::string path = m_Folder.PathOf("saved.rec");
    ASSERT_EQ(m_Records.SaveAllRecords(path.c_str(), 1), 1);
    ASSERT_EQ(m_Records.ReadAllRecordsEx(path.c_str()), 0);
    EXPECT_EQ(Mutation(1), "0: EM 1.5 '' ''");
    EXPECT_EQ(Mutation(2), "0: TM -1 'AB' 'text      '");
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Mutation(1), "0: BM -2 '' ''");
    EXPECT_EQ(Next(), -5);
}

// --- Raw writes -----------------------------------------------------------------------------------------------------

TEST_P(MutationRecord, ARawWriteGoesIntoTheLineOfTheCurrentEntry) {
    ReadCells({Line({kE, kE, kE, kE, kE, kE, kE, kE}), Line({kLe, kI})});
    ASSERT_EQ(First(), 0);
    for (int step = 0; step < 9; ++step) {
        ASSERT_EQ(Next(), 0);
    }
    EXPECT_EQ(m_Records.HardWriteItem(Number(30), "zzzz"), 0);
    EXPECT_THAT(LinesOf(Type().Name), ElementsAre(Line({kE, kE, kE, kE, kE, kE, kE, kE}),
                                                  Line({PositionCell("LE", "zzzz", "  20", "2", "d"), kI})));
}

TEST_P(MutationRecord, ARawWriteBehindTheLastEntryGoesIntoTheLastLine) {
    ReadCells({Line({kE}), Line({kLe})});
    ASSERT_EQ(First(), 0);
    ASSERT_EQ(Next(), 0);
    EXPECT_EQ(Next(), -5);
    EXPECT_EQ(m_Records.HardWriteItem(Number(30), "zzzz"), 0);
    EXPECT_THAT(Names(), ElementsAre("aaaa", "zzzz"));
}

TEST_P(MutationRecord, ARawWriteLeavesTheCurrentEntryWhereItIs) {
    ReadCells({Line({kE, kEm, kLe, kIm, kBm})});
    ASSERT_EQ(First(), 0);
    ASSERT_EQ(Next(), 0);
    EXPECT_EQ(m_Records.HardWriteItem(Number(30), "zzzz"), 0);
    EXPECT_EQ(Item(Number(30)), "bbbb");
    EXPECT_EQ(Write("I/cccc/30/2/d"), 0);
    EXPECT_EQ(Count(), 2);
    EXPECT_THAT(Names(), ElementsAre("zzzz", "cccc"));
}

TEST_P(MutationRecord, AfterARawWriteTheRecordIsParsedAgain) {
    ReadCells({Line({kE, kEm, kLe, kIm, kBm})});
    ASSERT_EQ(First(), 0);
    ASSERT_EQ(Next(), 0);
    EXPECT_EQ(m_Records.HardWriteItem(Number(25), "QQ "), 0);
    EXPECT_EQ(Item(Number(30)), "bbbb");
    EXPECT_EQ(Count(), 2);
    EXPECT_THAT(Names(), ElementsAre("bbbb"));
    EXPECT_EQ(m_Records.HardWriteItem(Number(25), "E  "), 0);
    EXPECT_THAT(Names(), ElementsAre("aaaa", "bbbb"));
}

TEST_P(MutationRecord, ARawWriteWritesPendingChangesFirst) {
    ReadCells({Line({kE, kLe})});
    EXPECT_EQ(Add("EM/12.5"), 0);
    EXPECT_EQ(m_Records.HardWriteItem(Number(30), "zzzz"), 0);
    EXPECT_THAT(LinesOf(Type().Name), ElementsAre(Line({PositionCell("E", "zzzz", "  10", "1", "abc"), kEm, kLe})));
    EXPECT_EQ(Count(), 1);
}

TEST_P(MutationRecord, ARawWriteFollowsAnEntryThatPendingChangesMoveToTheNextLine) {
    ReadCells({Line({kE, kE, kE, kE, kE, kE, kE, kLe})});
    EXPECT_EQ(Add("EM/12.5"), 0);
    for (int step = 0; step < 7; ++step) {
        ASSERT_EQ(Next(), 0);
    }
    EXPECT_EQ(m_Records.HardWriteItem(Number(30), "zzzz"), 0);
    EXPECT_THAT(LinesOf(Type().Name), ElementsAre(Line({kE, kEm, kE, kE, kE, kE, kE, kE}),
                                                  Line({PositionCell("LE", "zzzz", "  20", "2", "d")})));
}

TEST_P(MutationRecord, AClearedItemIsBlankAndTheRecordIsParsedAgain) {
    ReadCells({Line({kE, kEm, kLe})});
    EXPECT_EQ(m_Records.ClearItem(Number(30)), 0);
    EXPECT_EQ(Item(Number(30)), "    ");
    EXPECT_EQ(m_Records.ClearItem(Key()), 0);
    EXPECT_EQ(Item(Number(30)), "bbbb");
    EXPECT_EQ(Count(), 0);
    EXPECT_THAT(LinesOf(Type().Name), ElementsAre(Line({PositionCell("", "", "  10", "1", "abc"), kEm, kLe})));
}

TEST_P(MutationRecord, ARawWriteOfTheWrongLengthKeepsEntryAndPosition) {
    ReadCells({Line({kE, kLe})});
    ASSERT_EQ(First(), 0);
    ASSERT_EQ(Next(), 0);
    EXPECT_EQ(m_Records.HardWriteItem(Number(30), "zzz"), -2);
    EXPECT_EQ(m_Records.HardWriteItem(Number(31), "zzzz"), -1);
    EXPECT_EQ(m_Records.ClearItem(Number(31)), -1);
    EXPECT_EQ(Item(Number(30)), "bbbb");
}

// --- Whole lines ----------------------------------------------------------------------------------------------------

TEST_P(MutationRecord, ALineAddedIsParsedWithTheOthers) {
    ReadCells({Line({kE, kEm})});
    EXPECT_EQ(Add("IM/3"), 0);
    std::string line = Line({kTm, kLe}) + " ";
    EXPECT_EQ(m_Records.SetCompleteRecord(Type().Name, line.data(), 129), 0);
    EXPECT_EQ(Count(), 3);
    EXPECT_EQ(Mutation(3), "0: TM -1 'LA' 'two layers'");
    EXPECT_THAT(Names(), ElementsAre("aaaa", "bbbb"));
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({kE, kEm, kIm}), Line({kTm, kLe})));
}

TEST_P(MutationRecord, ARecordCreatedFromAWholeLineHasItsEntries) {
    std::string line = Line({kE, kEm, kLe}) + " ";
    EXPECT_EQ(m_Records.SetCompleteRecord(Type().Name, line.data(), 129), 0);
    EXPECT_EQ(Count(), 1);
    EXPECT_THAT(Names(), ElementsAre("aaaa", "bbbb"));
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Add("IM/3"), 0);
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({kE, kEm, kIm, kLe})));
}

TEST_P(MutationRecord, WholeLinesAreHandedOutWithPendingChanges) {
    ReadCells({Line({kE, kE, kE, kE, kE, kE, kE, kE})});
    EXPECT_EQ(Add("EM/12.5"), 0);
    CGuardBuffer buffer(128);
    EXPECT_EQ(m_Records.GetNextCompleteRecord(Type().Name, buffer.Data(), 128, 2), 0);
    EXPECT_EQ(buffer.Bytes(), Line({kE}));
    EXPECT_EQ(m_Records.GetFirstCompleteRecord(Type().Name, buffer.Data(), 128), 0);
    EXPECT_EQ(buffer.Bytes(), Line({kE, kEm, kE, kE, kE, kE, kE, kE}));
}

// --- Records that cannot be parsed ----------------------------------------------------------------------------------

class UnparsedMutationRecord : public MutationRecord {
protected:
    UnparsedMutationRecord() {
        m_strShort = Line({kLe}).substr(0, 60);
        ReadLines(Line({kE, kEm}) + "\n" + m_strShort + "\n");
    }

    std::string m_strShort;
};

INSTANTIATE_TEST_SUITE_P(Types, UnparsedMutationRecord, ::testing::Values(&kX4, &kG9),
                         [](const auto& test) { return std::string(test.param->Name); });

TEST_P(UnparsedMutationRecord, AnswersEveryEntryAndMutationOperationWithMinus100) {
    for (int repeat = 0; repeat < 2; ++repeat) {
        EXPECT_EQ(First(), -100);
        EXPECT_EQ(Next(), -100);
        EXPECT_EQ(ReadResult(25), -100);
        EXPECT_EQ(ReadResult(30), -100);
        EXPECT_EQ(Write("E/aaaa/10/1/abc"), -100);
        EXPECT_EQ(Add("EM/1"), -100);
        EXPECT_EQ(DeleteOne("EM"), -100);
        EXPECT_EQ(DeleteAll(), -100);
        EXPECT_EQ(Count(), -100);
        EXPECT_EQ(Mutation(1).substr(0, 5), "-100:");
        EXPECT_EQ(ReadMutationTexts(m_Records, Type(), 1).substr(0, 5), "-100:");
        EXPECT_EQ(m_Records.HardWriteItem(Number(30), "zzzz"), -100);
        EXPECT_EQ(m_Records.ClearItem(Number(30)), -100);
    }
}

TEST_P(UnparsedMutationRecord, AnswersTheFixUpAfterReadingFirstWithMinus1ThenWithMinus100) {
    EXPECT_EQ(CRecordAccess(Record(Type().Name)).PostRead(), -1);
    EXPECT_EQ(CRecordAccess(Record(Type().Name)).PostRead(), -100);
}

TEST_P(UnparsedMutationRecord, IsSavedAsItIs) {
    EXPECT_EQ(First(), -100);
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({kE, kEm}), Padded(m_strShort)));
}

TEST_P(UnparsedMutationRecord, ALineWithANulIsNot128CharactersLong) {
    std::string line = Line({kE, kEm});
    line[100] = '\0';
    ReadCells({Line({kE}), line});
    EXPECT_EQ(First(), -100);
    EXPECT_EQ(Count(), -100);
}

TEST_P(UnparsedMutationRecord, IsParsedAfterAllOnceTheLinesAreReadAnew) {
    EXPECT_EQ(First(), -100);
    ReadCells({Line({kE, kEm})});
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(Count(), 1);
}

// --- Searching ------------------------------------------------------------------------------------------------------

TEST_P(MutationRecord, ASearchComparesTheItemOfEveryEntryWithoutBlanksAtItsEnds) {
    ReadCells({Line({kE, kLe, kI}), Line({kLe, kE})});
    EXPECT_EQ(m_Records.FindFirst(Number(45), "  d "), 1);
    EXPECT_EQ(Item(Number(30)), "bbbb");
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Item(Number(30)), "cccc");
    EXPECT_EQ(m_Records.FindNext(), 1);
    EXPECT_EQ(Item(Number(30)), "bbbb");
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Item(Number(30)), "aaaa");
    EXPECT_EQ(m_Records.FindNext(), 0);
    EXPECT_EQ(m_Records.FindNext(), -4);
}

TEST_P(MutationRecord, ASearchGoesOnBehindTheEntryLastFoundWhereverTheCursorWent) {
    ReadCells({Line({kLe, kE, kLe, kI, kLe})});
    EXPECT_EQ(m_Records.FindFirst(Number(45), "d"), 1);
    for (int step = 0; step < 4; ++step) {
        ASSERT_EQ(Next(), 0);
    }
    EXPECT_EQ(m_Records.FindNext(), 1);
    EXPECT_EQ(Next(), 0);
    EXPECT_EQ(Item(Number(30)), "cccc");
    EXPECT_EQ(First(), 0);
    EXPECT_EQ(m_Records.FindNext(), 1);
    EXPECT_EQ(Next(), -5);
}

TEST_P(MutationRecord, EveryItemOfThePositionCanBeSearched) {
    ReadCells({Line({kE, kEm, kLe})});
    const std::vector<std::pair<int, const char*>> searches = {
        {25, "LE"}, {30, "bbbb"}, {35, "20"}, {40, "2"}, {45, "d"}};
    for (const auto& [number, text] : searches) {
        EXPECT_EQ(First(), 0);
        EXPECT_EQ(m_Records.FindFirst(Number(number), text), 1) << number;
        EXPECT_EQ(Item(Number(25)), "LE ") << number;
    }
}

TEST_P(MutationRecord, WithoutAMatchTheCurrentEntryStays) {
    ReadCells({Line({kE, kLe, kI})});
    ASSERT_EQ(First(), 0);
    ASSERT_EQ(Next(), 0);
    EXPECT_EQ(m_Records.FindFirst(Number(30), "zzzz"), 0);
    EXPECT_EQ(Item(Number(30)), "bbbb");
    EXPECT_EQ(m_Records.FindFirst(Number(30), "aaaa"), 1);
    EXPECT_EQ(m_Records.FindNext(), 0);
    EXPECT_EQ(Item(Number(30)), "aaaa");
}

TEST_P(MutationRecord, ABlankTextFindsABlankItem) {
    ReadCells({Line({kE, kI})});
    EXPECT_EQ(m_Records.FindFirst(Number(45), ""), 1);
    EXPECT_EQ(Item(Number(30)), "cccc");
}

TEST_P(MutationRecord, ASearchForAMutationFindsTheEntriesThatCarryItsCode) {
    ReadCells({Line({kE, kEm, kLe, kIm, kTm, kI, kEm, kTm})});
    EXPECT_EQ(m_Records.FindFirst(Type().Search, "TM"), 1);
    EXPECT_EQ(Item(Number(30)), "bbbb");
    EXPECT_EQ(m_Records.FindNext(), 1);
    EXPECT_EQ(Item(Number(30)), "cccc");
    EXPECT_EQ(m_Records.FindNext(), 0);
    EXPECT_EQ(m_Records.FindFirst(Type().Search, " EM "), 1);
    EXPECT_EQ(Item(Number(30)), "aaaa");
    EXPECT_EQ(m_Records.FindFirst(Type().Search, "BM"), 0);
    EXPECT_EQ(m_Records.FindFirst(Type().Search, "E"), 0);
}

TEST_P(MutationRecord, OnlyItemsOfThePositionAndMutationCodesCanBeSearched) {
    ReadCells({Line({kE})});
    for (const int number : {0, 5, 10, 55, 60, 70, 80}) {
        EXPECT_EQ(m_Records.FindFirst(Number(number), "E"), -11) << number;
    }
    EXPECT_EQ(m_Records.FindNext(), -4);
}

TEST_P(MutationRecord, ASearchForAnItemWithoutDefinitionGivesMinus13) {
    CTableBuilder table;
    table.Section(Type().Name).Item(Number(0), 2, 1, "C").Item(Number(25), 3, 8, R"(C,,,,,("E"))");
    Load(table);
    ReadCells({Line({kE})});
    EXPECT_EQ(m_Records.FindFirst(Number(30), "aaaa"), -13);
    EXPECT_EQ(m_Records.FindFirst(Number(25), "E"), 1);
}

TEST_P(MutationRecord, WhatWasFoundIsTheWritePosition) {
    ReadCells({Line({kE, kLe, kI})});
    EXPECT_EQ(m_Records.FindFirst(Number(30), "bbbb"), 1);
    EXPECT_EQ(Write("ET/////"), -7);
    EXPECT_EQ(Write("ET/zzzz///"), 0);
    EXPECT_THAT(Names(), ElementsAre("aaaa", "zzzz", "cccc"));
}

TEST_P(MutationRecord, InOemModeTheSearchTextIsConverted) {
    m_Records.SetCharacterSet("OEM");
    ReadCells({Line({kE, PositionCell("LE", "T\x81r")})});
    EXPECT_EQ(m_Records.FindFirst(Number(30), "T\xFCr"), 1);
    EXPECT_EQ(Item(Number(25)), "LE ");
    EXPECT_EQ(m_Records.FindFirst(Number(30), "T\x81r"), 0);
    m_Records.SetCharacterSet("ANSI");
    EXPECT_EQ(m_Records.FindFirst(Number(30), "T\x81r"), 1);
}

// --- Entries and the OEM character set ------------------------------------------------------------------------------

TEST_P(MutationRecord, InOemModeEntriesAreConvertedOnTheirWay) {
    m_Records.SetCharacterSet("OEM");
    ReadCells({Line({})});
    EXPECT_EQ(Write("E/T\xFCr///"), 0);
    EXPECT_EQ(Item(Number(30)), "T\xFCr ");
    EXPECT_THAT(WrittenLines(), ElementsAre(Line({PositionCell("E", "T\x81r")})));
}

} // namespace
