// The record set's operations on mutations: every result code, the order of the checks, what reaches the buffers.
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "support/guard_buffer.h"
#include "support/mutation_cells.h"
#include "support/record_set_test.h"

namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

class Mutations : public RecordSetTest, public ::testing::WithParamInterface<const CMutationType*> {
protected:
    Mutations() {
        Load(MutationTable());
        (void)m_Records.UseX4New(1);
        SetMutations("EM/1/IM/1/BM/2/TM/3/UM/3");
    }

    static const CMutationType& Type() { return *GetParam(); }
    static std::string Line(const std::vector<std::string>& cells) {
        return CellLine(std::string(Type().Name) + "0001 ", cells);
    }

    void SetMutations(const char* list) { m_Records.SetMutationList(Type().Name, list); }

    void ReadCells(const std::vector<std::string>& cells) {
        Read(CRecordBuilder().Add(Type().Name).Put(0, Line(cells)));
        ASSERT_EQ(m_Records.SetRecNums("*", 0), 0);
    }

    int Add(const char* mutation) { return (m_Records.*Type().Add)(mutation); }
    int DeleteOne(const char* code) { return (m_Records.*Type().DeleteOne)(code); }
    int DeleteAll() { return (m_Records.*Type().DeleteAll)(); }
    int Count() { return (m_Records.*Type().Count)(); }
    int Next() { return m_Records.ReadNext(Type().Key()); }
    std::string Mutation(int index) { return ReadMutation(m_Records, Type(), index); }
    std::string MutationTexts(int index) { return ReadMutationTexts(m_Records, Type(), index); }
};

INSTANTIATE_TEST_SUITE_P(Types, Mutations, ::testing::Values(&kX4, &kG9),
                         [](const auto& test) { return std::string(test.param->Name); });

const std::string kE = PositionCell("E", "aaaa", "  10", "1", "abc");
const std::string kLe = PositionCell("LE", "bbbb");
const std::string kEm = AmountCell("EM", "12.50");
const std::string kIm = AmountCell("IM", "3.00");
const std::string kBm = AmountCell("BM", "0.25");
const std::string kTm = TextsCell("TM", "LA", "two layers");

// --- The order of the checks ----------------------------------------------------------------------------------------

/// Reads with one argument null after the other.
std::vector<int> ReadsWithNulls(CAllRecordsEx& records, const CMutationType& type, int index) {
    char code[4];
    char value[16];
    char text1[3];
    char text2[11];
    double number = 0;
    const auto texts = [&](char* c, char* v, char* t1, char* t2) {
        return (records.*type.ReadTexts)(index, c, 3, v, 15, t1, 2, t2, 10);
    };
    const auto values = [&](char* c, char* t1, char* t2) {
        return (records.*type.ReadValue)(index, c, 3, number, t1, 2, t2, 10);
    };
    return {values(nullptr, text1, text2),       values(code, nullptr, text2),       values(code, text1, nullptr),
            texts(nullptr, value, text1, text2), texts(code, nullptr, text1, text2), texts(code, value, nullptr, text2),
            texts(code, value, text1, nullptr)};
}

TEST_P(Mutations, AnIndexOutside1To3GivesMinus6BeforeAnythingElseIsLookedAt) {
    CAllRecordsEx noTable;
    for (const int index : {0, 4, -1, 1000000}) {
        EXPECT_EQ(ReadMutation(noTable, Type(), index), "-6: ? -77 '?' '?'");
        EXPECT_EQ(ReadMutationTexts(noTable, Type(), index), "-6: ? '?' '?' '?'");
        EXPECT_THAT(ReadsWithNulls(noTable, Type(), index), ::testing::Each(-6));
        EXPECT_EQ(Mutation(index), "-6: ? -77 '?' '?'");
    }
    ReadCells({kE, kEm});
    EXPECT_EQ(Mutation(0), "-6: ? -77 '?' '?'");
    EXPECT_EQ(Mutation(4), "-6: ? -77 '?' '?'");
}

TEST_P(Mutations, WithoutATableEveryOperationGivesMinus40) {
    CAllRecordsEx records;
    (void)records.UseX4New(1);
    EXPECT_EQ((records.*Type().Add)("EM/1"), -40);
    EXPECT_EQ((records.*Type().Add)(nullptr), -40);
    EXPECT_EQ((records.*Type().DeleteOne)("EM"), -40);
    EXPECT_EQ((records.*Type().DeleteOne)("E"), -40);
    EXPECT_EQ((records.*Type().DeleteOne)(nullptr), -40);
    EXPECT_EQ((records.*Type().DeleteAll)(), -40);
    EXPECT_EQ((records.*Type().Count)(), -40);
    EXPECT_EQ(ReadMutation(records, Type(), 1), "-40: ? -77 '?' '?'");
    EXPECT_EQ(ReadMutationTexts(records, Type(), 3), "-40: ? '?' '?' '?'");
    EXPECT_THAT(ReadsWithNulls(records, Type(), 1), ::testing::Each(-40));
}

TEST_P(Mutations, ATableOfAnotherVersionCountsAsNone) {
    CAllRecordsEx records;
    const std::string path = MutationTable().Write(m_Folder.PathOf("other.table"));
    ASSERT_EQ(records.LoadTable(path.c_str(), 1, 1), -15);
    ASSERT_EQ(records.ReadAllRecordsEx(
                  CRecordBuilder().Add(Type().Name).Put(0, Line({kE, kEm})).Save(m_Folder.PathOf("in")).c_str()),
              0);
    EXPECT_EQ((records.*Type().Count)(), -40);
    EXPECT_EQ((records.*Type().Add)("EM/1"), -40);
    EXPECT_THAT(ReadMutation(records, Type(), 1), StartsWith("-40:"));
}

TEST_P(Mutations, NullArgumentsGiveMinus1WithAndWithoutARecord) {
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(Add(nullptr), -1);
        EXPECT_EQ(DeleteOne(nullptr), -1);
        EXPECT_THAT(ReadsWithNulls(m_Records, Type(), 1), ::testing::Each(-1));
        ReadCells({kE, kEm});
    }
    EXPECT_EQ(Count(), 1);
}

TEST_P(Mutations, WithoutARecordAddingAndDeletingOneGiveMinus2AndTheOthersMinus1) {
    EXPECT_EQ(Add("EM/1"), -2);
    EXPECT_EQ(Add("x"), -2);
    EXPECT_EQ(DeleteOne("EM"), -2);
    EXPECT_EQ(DeleteOne("E"), -2);
    EXPECT_EQ(DeleteAll(), -1);
    EXPECT_EQ(Count(), -1);
    EXPECT_EQ(Mutation(1), "-1: ? -77 '?' '?'");
    EXPECT_EQ(MutationTexts(1), "-1: ? '?' '?' '?'");
    EXPECT_EQ(m_Records.GetRecordCount(), 0);
}

TEST_P(Mutations, WithoutACurrentEntryReadingGivesMinus90AddingMinus5AndTheOthers0) {
    ReadCells({kE, kEm});
    ASSERT_EQ(Next(), -5);
    EXPECT_EQ(Mutation(1), "-90:  -1 '' ''");
    EXPECT_EQ(Add("EM/1"), -5);
    EXPECT_EQ(Add("x"), -5);
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(DeleteOne("EM"), 0);
    EXPECT_EQ(DeleteOne("E"), -1);
    EXPECT_EQ(DeleteAll(), 0);
    ASSERT_EQ(m_Records.ReadFirst(Type().Key()), 0);
    EXPECT_EQ(Count(), 1);
}

TEST_P(Mutations, ARecordWithoutEntriesHasNoCurrentOne) {
    ReadCells({});
    EXPECT_EQ(Mutation(2), "-90:  -1 '' ''");
    EXPECT_EQ(Add("EM/1"), -5);
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(DeleteOne("EM"), 0);
    EXPECT_EQ(DeleteAll(), 0);
}

// --- Reading --------------------------------------------------------------------------------------------------------

TEST_P(Mutations, AreReadByTheirNumber) {
    ReadCells({kE, kEm, kTm, AmountCell("BM", "-7")});
    EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''");
    EXPECT_EQ(Mutation(2), "0: TM -1 'LA' 'two layers'");
    EXPECT_EQ(Mutation(3), "0: BM -7 '' ''");
}

TEST_P(Mutations, TheThirdOfTwoGivesMinus90AndNothing) {
    ReadCells({kE, kEm, kIm});
    EXPECT_EQ(Mutation(3), "-90:  -1 '' ''");
    EXPECT_EQ(MutationTexts(3), "-90:  '' '' ''");
}

TEST_P(Mutations, ACodeThatNoListKnowsAnyMoreGivesMinus90) {
    ReadCells({kE, kEm});
    EXPECT_EQ(Count(), 1);
    SetMutations("XM/1");
    EXPECT_EQ(Mutation(1), "-90: EM -1 '' ''");
}

TEST_P(Mutations, AValueAsTextHasSixSignificantDigits) {
    ReadCells({kE, kEm, AmountCell("IM", "123456.78"), AmountCell("BM", "1234567.5")});
    EXPECT_EQ(MutationTexts(1), "0: EM '12.5' '' ''");
    EXPECT_EQ(MutationTexts(2), "0: IM '123457' '' ''");
    EXPECT_EQ(MutationTexts(3), "0: BM '1.23457e+06' '' ''");
    ReadCells({kE, kTm, AmountCell("EM", "0.00"), AmountCell("IM", "-,5")});
    EXPECT_EQ(MutationTexts(1), "0: TM '' 'LA' 'two layers'");
    EXPECT_EQ(MutationTexts(2), "0: EM '0' '' ''");
    EXPECT_EQ(MutationTexts(3), "0: IM '-0.5' '' ''");
}

TEST_P(Mutations, AValueThatIsNoNumberHasNoText) {
    ReadCells({kE, AmountCell("EM", "abc"), AmountCell("IM", ""), AmountCell("BM", "1 2")});
    EXPECT_EQ(MutationTexts(1), "-66: EM '' '' ''");
    EXPECT_EQ(MutationTexts(2), "-101: IM '' '' ''");
    EXPECT_EQ(MutationTexts(3), "-66: BM '' '' ''");
    EXPECT_EQ(Mutation(1), "-66: EM -1 '' ''");
    EXPECT_EQ(Mutation(2), "-101: IM -1 '' ''");
    EXPECT_EQ(Mutation(3), "-66: BM -1 '' ''");
}

TEST_P(Mutations, ATextOfExactlyTheSizeIsCopiedWithItsTerminatorOneByteBehindItOnPurpose) {
    ReadCells({kE, kTm, kEm});
    CGuardBuffer code(3);
    CGuardBuffer text1(3);
    CGuardBuffer text2(11);
    double value = 0;
    EXPECT_EQ((m_Records.*Type().ReadValue)(1, code.Data(), 2, value, text1.Data(), 2, text2.Data(), 10), 0);
    EXPECT_EQ(code.Bytes(), std::string("TM\0", 3));
    EXPECT_EQ(text1.Bytes(), std::string("LA\0", 3));
    EXPECT_EQ(text2.Bytes(), std::string("two layers\0", 11));
    EXPECT_EQ(value, -1.0);
    CGuardBuffer number(5);
    EXPECT_EQ((m_Records.*Type().ReadTexts)(2, code.Data(), 2, number.Data(), 4, text1.Data(), 2, text2.Data(), 10), 0);
    EXPECT_EQ(number.Bytes(), std::string("12.5\0", 5));
    EXPECT_EQ(text1.Text(), "");
    EXPECT_EQ(text2.Text(), "");
}

TEST_P(Mutations, WhenOneTextDoesNotFitNoneIsCopied) {
    ReadCells({kE, kTm, kEm});
    struct CSizes {
        int Index, Code, Value, Text1, Text2;
    };
    for (const CSizes& sizes :
         {CSizes{1, 1, 15, 2, 10}, CSizes{1, 2, 15, 1, 10}, CSizes{1, 2, 15, 2, 9}, CSizes{1, 2, 15, 0, 10},
          CSizes{1, 0, 15, 2, 10}, CSizes{1, 2, 15, 2, -1}, CSizes{2, 1, 15, 2, 10}}) {
        CGuardBuffer code(4);
        CGuardBuffer number(16);
        CGuardBuffer text1(3);
        CGuardBuffer text2(11);
        double value = 0;
        EXPECT_EQ((m_Records.*Type().ReadValue)(sizes.Index, code.Data(), sizes.Code, value, text1.Data(), sizes.Text1,
                                                text2.Data(), sizes.Text2),
                  -1000);
        EXPECT_EQ((m_Records.*Type().ReadTexts)(sizes.Index, code.Data(), sizes.Code, number.Data(), sizes.Value,
                                                text1.Data(), sizes.Text1, text2.Data(), sizes.Text2),
                  -1000);
        EXPECT_TRUE(code.IsUntouched() && number.IsUntouched() && text1.IsUntouched() && text2.IsUntouched());
    }
}

TEST_P(Mutations, AValueTextThatDoesNotFitGivesMinus1000) {
    ReadCells({kE, kEm, kTm});
    CGuardBuffer code(4);
    CGuardBuffer number(4);
    CGuardBuffer text1(3);
    CGuardBuffer text2(11);
    for (const int size : {3, 1, 0, -1}) {
        EXPECT_EQ(
            (m_Records.*Type().ReadTexts)(1, code.Data(), 3, number.Data(), size, text1.Data(), 2, text2.Data(), 10),
            -1000)
            << size;
    }
    EXPECT_TRUE(code.IsUntouched() && number.IsUntouched() && text1.IsUntouched() && text2.IsUntouched());
    EXPECT_EQ((m_Records.*Type().ReadTexts)(2, code.Data(), 3, number.Data(), 1, text1.Data(), 2, text2.Data(), 10), 0);
    EXPECT_EQ(number.Text(), "");
}

TEST_P(Mutations, CodeAndTextsAreConvertedInOemMode) {
    m_Records.SetCharacterSet("OEM");
    ReadCells({kE,
               TextsCell("TM", "\x84\x94",
                         "Stra\xE1"
                         "e \x81"),
               kEm});
    EXPECT_EQ(Mutation(1), "0: TM -1 '\xE4\xF6' 'Stra\xDF"
                           "e \xFC  '");
    EXPECT_EQ(MutationTexts(1), "0: TM '' '\xE4\xF6' 'Stra\xDF"
                                "e \xFC  '");
    EXPECT_EQ(Mutation(2), "0: EM 12.5 '' ''");
    m_Records.SetCharacterSet("ANSI");
    EXPECT_EQ(Mutation(1), "0: TM -1 '\x84\x94' 'Stra\xE1"
                           "e \x81  '");
    SetMutations("\x8EM/1");
    ReadCells({kE, AmountCell("\x8EM", "2.00")});
    m_Records.SetCharacterSet("OEM");
    EXPECT_EQ(Mutation(1), "0: \xC4M 2 '' ''");
}

TEST_P(Mutations, AMutationAddedInOemModeIsNotConvertedOnPurpose) {
    m_Records.SetCharacterSet("OEM");
    ReadCells({kE});
    EXPECT_EQ(Add("TM/\xE4/\x84"), 0);
    EXPECT_EQ(Written(), Line({kE, TextsCell("TM", "\xE4", "\x84")}));
    EXPECT_EQ(Mutation(1), "0: TM -1 '\xF5 ' '\xE4         '");
}

// --- Adding ---------------------------------------------------------------------------------------------------------

TEST_P(Mutations, TwoPartsAreCodeAndAmount) {
    ReadCells({kE});
    EXPECT_EQ(Add("EM/12,5"), 0);
    EXPECT_EQ(Add("IM/-3"), 0);
    EXPECT_EQ(Add("BM/.25"), 0);
    EXPECT_EQ(Count(), 3);
    EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''");
    EXPECT_EQ(Mutation(2), "0: IM -3 '' ''");
    EXPECT_EQ(Mutation(3), "0: BM 0.25 '' ''");
    EXPECT_EQ(Written(), Line({kE, kEm, AmountCell("IM", "-3.00"), AmountCell("BM", ".25")}));
}

TEST_P(Mutations, ThreePartsAreCodeAndTwoTexts) {
    ReadCells({kE});
    EXPECT_EQ(Add("TM/LA/two layers"), 0);
    EXPECT_EQ(Add("UM/1/x"), 0);
    EXPECT_EQ(Mutation(1), "0: TM -1 'LA' 'two layers'");
    EXPECT_EQ(Mutation(2), "0: UM -1 '1 ' 'x         '");
    EXPECT_EQ(Written(), Line({kE, kTm, TextsCell("UM", "1", "x")}));
}

TEST_P(Mutations, OfFourPartsTheKindOfTheCodePicksTheAmountOrTheTexts) {
    ReadCells({kE});
    EXPECT_EQ(Add("EM/12.5//"), 0);
    EXPECT_EQ(Add("TM//LA/two layers"), 0);
    EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''");
    EXPECT_EQ(Mutation(2), "0: TM -1 'LA' 'two layers'");
    EXPECT_EQ(Written(), Line({kE, kEm, kTm}));
}

TEST_P(Mutations, OfFourPartsTheOthersMustBeEmpty) {
    ReadCells({kE});
    for (const char* mutation : {"EM/12.5/LA/", "EM/12.5//x", "TM/1/LA/two", "EM//LA/x"}) {
        EXPECT_EQ(Add(mutation), -7) << mutation;
    }
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(Add("QQ/1//"), -55);
}

TEST_P(Mutations, AnyOtherNumberOfPartsGivesMinus7) {
    ReadCells({kE});
    for (const char* mutation : {"", "EM", "TM/LA/x/y/z", "EM/1///", "/////", "QQ"}) {
        EXPECT_EQ(Add(mutation), -7) << mutation;
    }
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(Written(), Line({kE}));
}

TEST_P(Mutations, PartsAreSplitAtTheDelimiterOfTheRecordSet) {
    (void)m_Records.SetDelimiter(';');
    ReadCells({kE});
    EXPECT_EQ(Add("EM/1"), -7);
    EXPECT_EQ(Add("TM;A/;1/2"), 0);
    EXPECT_EQ(Mutation(1), "0: TM -1 'A/' '1/2       '");
    (void)m_Records.SetDelimiter(',');
    EXPECT_EQ(Add("EM,1.5"), 0);
    EXPECT_EQ(Mutation(2), "0: EM 1.5 '' ''");
}

TEST_P(Mutations, TheFirstPartThatFailsItsCheckIsReturned) {
    ReadCells({kE});
    EXPECT_EQ(Add("QQ/x"), -55);
    EXPECT_EQ(Add("EM/x"), -66);
    EXPECT_EQ(Add("EM/1234567890"), -65);
    EXPECT_EQ(Add("EM/1.234"), -65);
    EXPECT_EQ(Add("EM/LA/x"), -55);
    EXPECT_EQ(Add("TM/LAX/01234567890"), -45);
    EXPECT_EQ(Add("TM/LA/01234567890"), -45);
    EXPECT_EQ(Add("/1"), -55);
    EXPECT_EQ(Add("em/1"), -55);
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(Written(), Line({kE}));
}

TEST_P(Mutations, WithCodesFromTheTableOnlyThoseOfTheTextItemAreAcceptedAsAmountsOnPurpose) {
    Load(MutationTable());
    ReadCells({kE});
    EXPECT_EQ(Add("EM/1"), -55);
    EXPECT_EQ(Add("TM/1"), 0);
    EXPECT_EQ(Mutation(1), "0: TM 1 '' ''");
}

TEST_P(Mutations, AFourthGivesMinus5WhateverItIs) {
    ReadCells({kE, kEm, kIm});
    EXPECT_EQ(Add("BM/1"), 0);
    EXPECT_EQ(Add("TM/LA/x"), -5);
    EXPECT_EQ(Add("x"), -5);
    EXPECT_EQ(Add("QQ/1"), -5);
    EXPECT_EQ(Count(), 3);
}

TEST_P(Mutations, AFullEntryRefusesEvenACodeItHoldsOnPurpose) {
    ReadCells({kE, kEm, kIm, kBm});
    EXPECT_EQ(Add("IM/9"), -5);
    EXPECT_EQ(Mutation(2), "0: IM 3 '' ''");
}

TEST_P(Mutations, ACodeThatIsThereIsReplacedInItsPlace) {
    ReadCells({kE, kEm, kTm});
    EXPECT_EQ(Add("EM/1"), 0);
    EXPECT_EQ(Count(), 2);
    EXPECT_EQ(Add("TM/X/y"), 0);
    EXPECT_EQ(Count(), 2);
    EXPECT_EQ(Mutation(1), "0: EM 1 '' ''");
    EXPECT_EQ(Mutation(2), "0: TM -1 'X ' 'y         '");
    EXPECT_EQ(Written(), Line({kE, AmountCell("EM", "1.00"), TextsCell("TM", "X", "y")}));
}

TEST_P(Mutations, AReplacementThatFailsLeavesTheMutation) {
    ReadCells({kE, kEm});
    EXPECT_EQ(Add("EM/x"), -66);
    EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''");
    EXPECT_EQ(Count(), 1);
}

TEST_P(Mutations, BelongToTheCurrentEntryOnly) {
    ReadCells({kE, kEm, kLe});
    ASSERT_EQ(m_Records.ReadFirst(Type().Key()), 0);
    ASSERT_EQ(Next(), 0);
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(Add("EM/1"), 0);
    EXPECT_EQ(Add("IM/3"), 0);
    EXPECT_EQ(DeleteOne("EM"), 0);
    EXPECT_EQ(Written(), Line({kE, kEm, kLe, kIm}));
}

TEST_P(Mutations, AreAddedToTheEntryJustWritten) {
    EXPECT_EQ(m_Records.WriteItem(Type().Key(), "LE/bbbb///"), 0);
    EXPECT_EQ(Add("EM/12.5"), 0);
    EXPECT_EQ(m_Records.WriteItem(Type().Key(), "LE/bbbb///"), 0);
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(Add("IM/3"), 0);
    EXPECT_EQ(Written(), CellLine(Padded(Type().Name, 7), {kLe, kEm, kLe, kIm}));
}

// --- Deleting and counting ------------------------------------------------------------------------------------------

TEST_P(Mutations, DeletingOneMovesTheLaterOnesUp) {
    ReadCells({kE, kEm, kIm, kTm});
    EXPECT_EQ(DeleteOne("IM"), 0);
    EXPECT_EQ(Count(), 2);
    EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''");
    EXPECT_EQ(Mutation(2), "0: TM -1 'LA' 'two layers'");
    EXPECT_THAT(Mutation(3), StartsWith("-90:"));
    EXPECT_EQ(DeleteOne("EM"), 0);
    EXPECT_EQ(DeleteOne("TM"), 0);
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(Written(), Line({kE}));
}

TEST_P(Mutations, OfTwoWithTheSameCodeTheFirstIsDeleted) {
    ReadCells({kE, AmountCell("EM", "1.00"), kIm, AmountCell("EM", "2.00")});
    EXPECT_EQ(DeleteOne("EM"), 0);
    EXPECT_EQ(Mutation(1), "0: IM 3 '' ''");
    EXPECT_EQ(Mutation(2), "0: EM 2 '' ''");
}

TEST_P(Mutations, ACodeToDeleteHasTwoOrThreeCharacters) {
    SetMutations("EM/1/ABC/1");
    ReadCells({kE, kEm, AmountCell("ABC", "1")});
    for (const char* code : {"", "E", "EMMM", "ABCD"}) {
        EXPECT_EQ(DeleteOne(code), -1) << code;
    }
    EXPECT_EQ(Count(), 2);
    EXPECT_EQ(DeleteOne("ABC"), 0);
    EXPECT_EQ(DeleteOne("EM"), 0);
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(DeleteOne("E"), -1);
}

TEST_P(Mutations, DeletingACodeThatIsNotThereGivesMinus90ButWithoutAny0) {
    ReadCells({kE, kEm, kLe});
    EXPECT_EQ(DeleteOne("IM"), -90);
    EXPECT_EQ(DeleteOne("QQ"), -90);
    EXPECT_EQ(DeleteOne("EMX"), -90);
    EXPECT_EQ(Count(), 1);
    ASSERT_EQ(Next(), 0);
    EXPECT_EQ(DeleteOne("IM"), 0);
    EXPECT_EQ(DeleteOne("QQ"), 0);
}

TEST_P(Mutations, DeletingAllReturnsHowManyThereWere) {
    ReadCells({kE, kEm, kIm, kTm, kLe, kBm});
    EXPECT_EQ(DeleteAll(), 3);
    EXPECT_EQ(DeleteAll(), 0);
    EXPECT_EQ(Count(), 0);
    EXPECT_THAT(Mutation(1), StartsWith("-90:"));
    EXPECT_EQ(Add("IM/3"), 0);
    EXPECT_EQ(Written(), Line({kE, kIm, kLe, kBm}));
}

TEST_P(Mutations, AreCountedFrom0To3) {
    ReadCells({kE, kLe, kEm, kE, kEm, kIm, kLe});
    std::vector<int> counts;
    for (int result = m_Records.ReadFirst(Type().Key()); result == 0; result = Next()) {
        counts.push_back(Count());
    }
    EXPECT_THAT(counts, ElementsAre(0, 1, 2, 0));
}

// --- Split values and types that stay apart -------------------------------------------------------------------------

class X4Mutations : public Mutations {};

INSTANTIATE_TEST_SUITE_P(Types, X4Mutations, ::testing::Values(&kX4),
                         [](const auto& test) { return std::string(test.param->Name); });

TEST_P(X4Mutations, OfKind7AreAddedByTheirOwnItemsAndReadAsTwoTexts) {
    SetMutations("EM/1/SM/7");
    ReadCells({kE});
    EXPECT_EQ(Add("SM/LAtwo layers"), 0);
    EXPECT_EQ(Mutation(1), "0: SM -1 'LA' 'two layers'");
    EXPECT_EQ(MutationTexts(1), "0: SM '' 'LA' 'two layers'");
    EXPECT_EQ(Add("SM/x"), 0);
    EXPECT_EQ(Count(), 1);
    EXPECT_EQ(Mutation(1), "0: SM -1 'x ' '          '");
    EXPECT_EQ(Add("SM/0123456789012"), -45);
    EXPECT_EQ(Add("EM/LAtwo layers"), -66);
    EXPECT_EQ(Written(), Line({kE, TextsCell("SM", "x", "")}));
}

TEST_P(X4Mutations, OfKind7TakeTheValueOfFourParts) {
    SetMutations("EM/1/SM/7");
    ReadCells({kE});
    EXPECT_EQ(Add("SM/LAtwo layers//"), 0);
    EXPECT_EQ(Mutation(1), "0: SM -1 'LA' 'two layers'");
    EXPECT_EQ(Add("SM//LA/two layers"), -7);
}

TEST_P(X4Mutations, AreReadByTheFormThatIsSwitchedOnAtTheTimeOfTheCall) {
    ReadCells({kE, kLe, kEm});
    EXPECT_THAT(Mutation(2), StartsWith("-90:"));
    EXPECT_EQ(m_Records.UseX4New(0), 1);
    EXPECT_EQ(Mutation(2), "0: EM 12.5 '' ''");
    EXPECT_EQ(m_Records.UseX4New(1), 0);
    EXPECT_THAT(Mutation(2), StartsWith("-90:"));
}

TEST_P(X4Mutations, OfABaseRecordSetAnswerAlike) {
    CAllRecords records;
    (void)records.UseX4New(1);
    const std::string table = MutationTable().Write(m_Folder.PathOf("other.table"));
    EXPECT_EQ(records.AddX4Mutation("EM/1"), -40);
    ASSERT_EQ(records.LoadTable(table.c_str(), 3, 2), 0);
    EXPECT_EQ(records.AddX4Mutation("EM/1"), -2);
    char type[] = "x4";
    records.SetMutationList(type, "EM/1");
    ASSERT_EQ(records.ReadAllRecords(CRecordBuilder().Add("X4").Put(0, Line({kE})).Save(m_Folder.PathOf("in")).c_str()),
              1);
    EXPECT_EQ(records.AddX4Mutation("EM/1"), 0);
    EXPECT_EQ(records.GetX4MutationCount(), 1);
    EXPECT_EQ(records.DeleteOneX4Mutation("EM"), 0);
    EXPECT_EQ(records.DeleteX4Mutations(), 0);
}

class G9Mutations : public Mutations {};

INSTANTIATE_TEST_SUITE_P(Types, G9Mutations, ::testing::Values(&kG9),
                         [](const auto& test) { return std::string(test.param->Name); });

TEST_P(G9Mutations, DoNotDependOnTheFormOfX4) {
    (void)m_Records.UseX4New(0);
    ReadCells({kE, kEm});
    EXPECT_EQ(Mutation(1), "0: EM 12.5 '' ''");
    EXPECT_EQ(Add("TM/LA/x"), 0);
    EXPECT_EQ(Count(), 2);
}

TEST_P(G9Mutations, OfKind7AreReadButNotAcceptedAsTheItemTakesKinds1To4) {
    SetMutations("EM/1/SM/7");
    ReadCells({kE, TextsCell("SM", "LA", "two layers")});
    EXPECT_EQ(Mutation(1), "0: SM -1 'LA' 'two layers'");
    EXPECT_EQ(Add("SM/1"), -55);
}

TEST_P(G9Mutations, AndThoseOfX4LeaveEachOtherAlone) {
    Read(
        CRecordBuilder().Add("X4").Put(0, CellLine("X40001 ", {kE, kIm})).Add("G9").Put(0, CellLine("G90001 ", {kLe})));
    EXPECT_EQ(Add("EM/1"), 0);
    EXPECT_EQ(Count(), 1);
    EXPECT_EQ(m_Records.GetX4MutationCount(), 1);
    EXPECT_EQ(ReadMutation(m_Records, kX4, 1), "0: IM 3 '' ''");
    EXPECT_EQ(m_Records.DeleteX4Mutations(), 1);
    EXPECT_EQ(Count(), 1);
}

} // namespace
