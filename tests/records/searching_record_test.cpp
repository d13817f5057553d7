// Searches over entries, and entries that are read and written as one text.
#include <ostream>
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

constexpr int kFound = 1;
constexpr int kNothing = 0;
constexpr int kNoType = -1;
constexpr int kNotSupported = -1;
constexpr int kCheckFailed = -2;
constexpr int kNoSearchedRecord = -2;
constexpr int kListType = -3;
constexpr int kNotStarted = -4;
constexpr int kNoMore = -5;
constexpr int kNotTheKey = -6;
constexpr int kWrongParts = -7;
constexpr int kWrongItem = -11;
constexpr int kNoLines = -12;
constexpr int kNoItemDefinition = -13;
constexpr int kNoDefinition = -100;
constexpr int kTextCut = -1000;

using CPlace = std::tuple<int, int>;

/// A type whose entry is a text of four and a number of six characters.
struct CSearched {
    const char* Type;
    int Key;
    int Second;
    int First;   // offset
    int Limit;   // of dynamic writes
    int PerLine; // entries of 10 characters
};

void PrintTo(const CSearched& type, std::ostream* out) {
    *out << type.Type;
}

const std::vector<CSearched>& SearchedTypes() {
    static const std::vector<CSearched> types = {
        {"G0", 12325, 12330, 21, 119, 10}, {"X2", 2020, 2025, 7, 126, 12}, {"X2N", 2120, 2125, 7, 123, 12}};
    return types;
}

CTableBuilder TableOf(const CSearched& type) {
    CTableBuilder table;
    table.Section(type.Type)
        .Item(type.Key, 4, type.First + 1, "C")
        .Item(type.Second, 6, type.First + 5, "N,,,R 3.2")
        .Item(type.Key - 10, 2, 1, "C");
    return table;
}

class Searching : public RecordSetTest, public ::testing::WithParamInterface<CSearched> {
protected:
    Searching() { Load(TableOf(Type())); }

    static const CSearched& Type() { return GetParam(); }

    /// Reads lines with these entries, so many a line.
    void ReadEntries(const std::vector<std::string>& entries) {
        CRecordBuilder builder;
        for (std::size_t i = 0; i < entries.size(); ++i) {
            const auto perLine = static_cast<std::size_t>(Type().PerLine);
            if (i % perLine == 0) {
                builder.Add(Type().Type);
            }
            builder.Put(Type().First + 10 * static_cast<int>(i % perLine), entries[i]);
        }
        Read(builder);
    }

    CPlace Cursor() {
        const CRecord& record = Record(Type().Type);
        return {record.GetCurrentLine(), record.GetCurrentOffset()};
    }

    CPlace PlaceOf(int entry) const { return {entry / Type().PerLine, Type().First + 10 * (entry % Type().PerLine)}; }

    /// An entry with a text and an amount.
    static std::string Entry(const std::string& text, const std::string& amount) {
        return Padded(text, 4) + std::string(6 - amount.size(), ' ') + amount;
    }

    std::string Line(int index) { return std::string(Record(Type().Type).GetLine(index)).substr(0, 128); }
};

INSTANTIATE_TEST_SUITE_P(AllTypes, Searching, ::testing::ValuesIn(SearchedTypes()),
                         [](const auto& row) { return std::string(row.param.Type); });

TEST_P(Searching, FindsEveryEntryWithTheTextInTheirOrder) {
    std::vector<std::string> entries(static_cast<std::size_t>(2 * Type().PerLine), Entry("that", "1.00"));
    for (std::size_t i = 2; i < entries.size(); i += 5) {
        entries[i] = Entry("this", "1.00");
    }
    ReadEntries(entries);
    int result = m_Records.FindFirst(Type().Key, "this");
    for (int i = 2; i < 2 * Type().PerLine; i += 5) {
        ASSERT_EQ(result, kFound) << "entry " << i;
        EXPECT_EQ(Cursor(), PlaceOf(i));
        result = m_Records.FindNext();
    }
    EXPECT_EQ(result, kNothing);
    EXPECT_EQ(m_Records.FindNext(), kNotStarted);
    EXPECT_EQ(m_Records.FindNext(), kNotStarted);
}

TEST_P(Searching, AnyItemOfTheEntryCanBeSearched) {
    ReadEntries({Entry("a", "1.00"), Entry("b", "2.00"), Entry("c", "2.00")});
    EXPECT_EQ(m_Records.FindFirst(Type().Second, "2.00"), kFound);
    EXPECT_EQ(Cursor(), PlaceOf(1));
    EXPECT_EQ(m_Records.FindNext(), kFound);
    EXPECT_EQ(Cursor(), PlaceOf(2));
    EXPECT_EQ(m_Records.FindNext(), kNothing);
    EXPECT_EQ(m_Records.FindFirst(Type().Second, "2"), kNothing); // texts are compared, not numbers
}

TEST_P(Searching, BlanksAtBothEndsDoNotCount) {
    ReadEntries({Entry(" ab", "1.00"), Entry("a b", "1.00"), Entry("ab", "1.00")});
    EXPECT_EQ(m_Records.FindFirst(Type().Key, "  ab   "), kFound);
    EXPECT_EQ(Cursor(), PlaceOf(0));
    EXPECT_EQ(m_Records.FindNext(), kFound);
    EXPECT_EQ(Cursor(), PlaceOf(2));
    EXPECT_EQ(m_Records.FindFirst(Type().Key, "a b"), kFound);
    EXPECT_EQ(Cursor(), PlaceOf(1));
    EXPECT_EQ(m_Records.FindNext(), kNothing);
}

TEST_P(Searching, TheWholeTextMustBeEqual) {
    ReadEntries({Entry("abc", "1.00"), Entry("ABCD", "1.00")});
    for (const char* text : {"ab", "abcd", "bc", "ABC", "ABCDE", "abc 1"}) {
        EXPECT_EQ(m_Records.FindFirst(Type().Key, text), kNothing) << text;
    }
}

TEST_P(Searching, ABlankTextFindsABlankItem) {
    ReadEntries({Entry("a", "1.00"), Entry("", "2.00"), Entry("c", "1.00")});
    for (const char* text : {"", " ", "      "}) {
        EXPECT_EQ(m_Records.FindFirst(Type().Key, text), kFound);
        EXPECT_EQ(Cursor(), PlaceOf(1));
    }
}

TEST_P(Searching, WithoutAMatchTheCursorStaysWhereItWas) {
    ReadEntries({Entry("a", "1.00"), Entry("b", "2.00"), Entry("c", "1.00")});
    ASSERT_EQ(m_Records.ReadFirst(Type().Key), 0);
    ASSERT_EQ(m_Records.ReadNext(Type().Key), 0);
    EXPECT_EQ(m_Records.FindFirst(Type().Key, "nope"), kNothing);
    EXPECT_EQ(Cursor(), PlaceOf(1));
    EXPECT_EQ(m_Records.FindNext(), kNotStarted);
    EXPECT_EQ(m_Records.FindFirst(Type().Key, "c"), kFound);
    EXPECT_EQ(m_Records.FindNext(), kNothing);
    EXPECT_EQ(Cursor(), PlaceOf(2));
}

TEST_P(Searching, WithoutAMatchTheCursorStaysInItsLineAndBehindTheLastOne) {
    std::vector<std::string> entries(static_cast<std::size_t>(Type().PerLine + 2), Entry("a", "1.00"));
    ReadEntries(entries);
    ASSERT_EQ(m_Records.ReadFirst(Type().Key), 0);
    while (Cursor() != PlaceOf(Type().PerLine + 1)) {
        ASSERT_EQ(m_Records.ReadNext(Type().Key), 0);
    }
    EXPECT_EQ(m_Records.FindFirst(Type().Key, "nope"), kNothing);
    EXPECT_EQ(Cursor(), PlaceOf(Type().PerLine + 1));
    while (m_Records.ReadNext(Type().Key) == 0) {
    }
    EXPECT_EQ(m_Records.FindFirst(Type().Key, "nope"), kNothing);
    EXPECT_EQ(Cursor(), CPlace(2, Type().First));
}

TEST_P(Searching, ASearchBeginsAtTheFirstEntryWhereverTheCursorIs) {
    ReadEntries({Entry("a", "1.00"), Entry("b", "2.00"), Entry("a", "3.00")});
    while (m_Records.ReadNext(Type().Key) == 0) {
    }
    EXPECT_EQ(m_Records.FindFirst(Type().Key, "a"), kFound);
    EXPECT_EQ(Cursor(), PlaceOf(0));
}

TEST_P(Searching, ASearchGoesOnBehindTheEntryFoundWhereverTheCursorIs) {
    ReadEntries({Entry("a", "1.00"), Entry("b", "2.00"), Entry("a", "3.00"), Entry("a", "4.00")});
    ASSERT_EQ(m_Records.FindFirst(Type().Key, "a"), kFound);
    ASSERT_EQ(m_Records.FindNext(), kFound);
    ASSERT_EQ(Cursor(), PlaceOf(2));
    ASSERT_EQ(m_Records.ReadFirst(Type().Key), 0);
    EXPECT_EQ(m_Records.FindNext(), kFound);
    EXPECT_EQ(Cursor(), PlaceOf(3));
}

TEST_P(Searching, TheTextIsRememberedForTheSearch) {
    ReadEntries({Entry("a", "1.00"), Entry("b", "2.00"), Entry("a", "3.00")});
    std::string text = "a";
    ASSERT_EQ(m_Records.FindFirst(Type().Key, text.c_str()), kFound);
    text = "b";
    EXPECT_EQ(m_Records.FindNext(), kFound);
    EXPECT_EQ(Cursor(), PlaceOf(2));
}

TEST_P(Searching, TheEntryFoundCanBeReadAndOverwritten) {
    ReadEntries({Entry("a", "1.00"), Entry("b", "2.00"), Entry("c", "3.00")});
    ASSERT_EQ(m_Records.FindFirst(Type().Key, "b"), kFound);
    EXPECT_EQ(Item(Type().Second), "  2.00");
    ASSERT_EQ(m_Records.WriteItem(Type().Key, "B/20"), 0);
    EXPECT_EQ(Cursor(), PlaceOf(2));
    EXPECT_EQ(Line(0).substr(static_cast<std::size_t>(Type().First), 30),
              Entry("a", "1.00") + Entry("B", "20.00") + Entry("c", "3.00"));
}

TEST_P(Searching, ItemsOutsideTheEntryCannotBeSearched) {
    ReadEntries({Entry("a", "1.00")});
    for (const int item : {Type().Key - 10, Type().Key - 20, Type().Key + 1}) {
        EXPECT_EQ(m_Records.FindFirst(item, "a"), kWrongItem) << item;
        EXPECT_EQ(m_Records.FindNext(), kNotStarted);
    }
}

TEST_P(Searching, AnItemWithoutADefinitionIsTold) {
    CTableBuilder table;
    table.Section(Type().Type).Item(Type().Key, 4, Type().First + 1, "C");
    Load(table);
    ReadEntries({Entry("a", "1.00")});
    EXPECT_EQ(m_Records.FindFirst(Type().Second, "1.00"), kNoItemDefinition);
    EXPECT_EQ(m_Records.FindFirst(Type().Key, "a"), kFound);
}

TEST_P(Searching, WithoutALayoutTheSearchEnds) {
    Load(CTableBuilder());
    ReadEntries({Entry("a", "1.00")});
    EXPECT_EQ(m_Records.FindFirst(Type().Key, "a"), kNoItemDefinition);
    CTableBuilder table;
    table.Section(Type().Type).Item(Type().Key, 0, Type().First + 1, "C");
    Load(table);
    ReadEntries({Entry("a", "1.00")});
    EXPECT_EQ(m_Records.FindFirst(Type().Key, "a"), kNothing); // no entry has a length
}

TEST_P(Searching, ItemThenLinesThenDefinitionAreLookedAt) {
    tabvex::CRecordContext context;
    COpenRecord<tabvex::CDynamicRecord> record(*tabvex::GroupRowsOf(Type().Type).Begin, context);
    EXPECT_EQ(record.FindFirst(Type().Key, "a"), kNoLines);
    EXPECT_EQ(record.FindNext(Type().Second, "a"), kNoLines);
    EXPECT_EQ(record.FindFirst(Type().Key - 10, "a"), kWrongItem);
    record.ParseLine(nullptr);
    EXPECT_EQ(record.FindFirst(Type().Key - 10, "a"), kWrongItem);
    EXPECT_EQ(record.FindFirst(Type().Key, "a"), kNoItemDefinition);
    EXPECT_EQ(record.FindNext(Type().Second, "a"), kNoItemDefinition);
}

TEST_P(Searching, InOemModeTheTextIsSoughtAsTheRecordHoldsIt) {
    ReadEntries({Entry("M\x81ll", "1.00"), Entry("M\xFCll", "2.00")}); // 0x81 is the small u umlaut in the file
    EXPECT_EQ(m_Records.FindFirst(Type().Key, "M\xFCll"), kFound);     // which callers write as 0xFC
    EXPECT_EQ(Cursor(), PlaceOf(1));
    m_Records.SetCharacterSet("OEM");
    EXPECT_EQ(m_Records.FindFirst(Type().Key, "M\xFCll"), kFound);
    EXPECT_EQ(Cursor(), PlaceOf(0));
    EXPECT_EQ(m_Records.FindNext(), kNothing);
}

TEST_P(Searching, DestroyingRecordsEndsTheSearch) {
    const std::vector<std::string> entries = {Entry("a", "1.00"), Entry("a", "2.00")};
    ReadEntries(entries);
    ASSERT_EQ(m_Records.FindFirst(Type().Key, "a"), kFound);
    m_Records.DestroyRecords("X1"); // of which there is none
    EXPECT_EQ(m_Records.FindNext(), kNotStarted);
    ASSERT_EQ(m_Records.FindFirst(Type().Key, "a"), kFound);
    m_Records.DestroyRecords(Type().Type);
    EXPECT_EQ(m_Records.FindNext(), kNotStarted);
    ReadEntries(entries);
    ASSERT_EQ(m_Records.FindFirst(Type().Key, "a"), kFound);
    m_Records.DestroyAllRecords();
    EXPECT_EQ(m_Records.FindNext(), kNotStarted);
    ReadEntries(entries);
    ASSERT_EQ(m_Records.FindFirst(Type().Key, "a"), kFound);
    m_Records.DestroyKnownRecordsOnly();
    EXPECT_EQ(m_Records.FindNext(), kNotStarted);
    ReadEntries(entries);
    ASSERT_EQ(m_Records.FindFirst(Type().Key, "a"), kFound);
    ReadEntries(entries);
    EXPECT_EQ(m_Records.FindNext(), kNotStarted);
}

TEST_P(Searching, ASearchThatNamesNothingToSearchLeavesTheOneInProgress) {
    ReadEntries({Entry("a", "1.00"), Entry("a", "2.00"), Entry("a", "3.00"), Entry("a", "4.00")});
    ASSERT_EQ(m_Records.FindFirst(Type().Key, "a"), kFound);
    EXPECT_EQ(m_Records.FindFirst(999999, "a"), kNoType);
    EXPECT_EQ(m_Records.FindNext(), kFound);
    EXPECT_EQ(m_Records.FindFirst(3040, "a"), kNoSearchedRecord);
    EXPECT_EQ(m_Records.FindNext(), kFound);
    EXPECT_EQ(m_Records.FindFirst(Type().Key, nullptr), kNoType);
    EXPECT_EQ(m_Records.FindNext(), kFound);
    EXPECT_EQ(Cursor(), PlaceOf(3));
    EXPECT_EQ(m_Records.FindFirst(Type().Key - 10, "a"), kWrongItem); // which is asked of the record
    EXPECT_EQ(m_Records.FindNext(), kNotStarted);
}

TEST_P(Searching, ALineAddedInBetweenIsSearchedToo) {
    ReadEntries({Entry("a", "1.00"), Entry("b", "2.00")});
    ASSERT_EQ(m_Records.FindFirst(Type().Key, "a"), kFound);
    std::string line = CRecordBuilder().Add(Type().Type).Put(Type().First, "a").Lines()[0];
    ASSERT_EQ(m_Records.SetCompleteRecord(Type().Type, line.data(), 129), 0);
    EXPECT_EQ(m_Records.FindNext(), kFound);
    EXPECT_EQ(Cursor(), CPlace(1, Type().First));
}

// --- Whole entries as one text ---

TEST_P(Searching, AnEntryIsReadAsItsItemsJoinedByTheDelimiter) {
    ReadEntries({Entry("ab", "1.00"), Entry("", "2.50")});
    ASSERT_EQ(m_Records.ReadFirst(Type().Key), 0);
    CGuardBuffer text(12);
    EXPECT_EQ(m_Records.HardReadDynItem(Type().Key, text.Data(), text.Size()), 0);
    EXPECT_EQ(text.Text(), "ab  /  1.00"); // blanks are kept
    ASSERT_EQ(m_Records.ReadNext(Type().Key), 0);
    EXPECT_EQ(m_Records.SetDelimiter(';'), '/');
    EXPECT_EQ(m_Records.HardReadDynItem(Type().Key, text.Data(), text.Size()), 0);
    EXPECT_EQ(text.Text(), "    ;  2.50");
    EXPECT_EQ(m_Records.HardReadDynItem(Type().Second, text.Data(), text.Size()), 0); // of the same record
    EXPECT_EQ(text.Text(), "    ;  2.50");
}

TEST_P(Searching, AnEntryTextIsCutToTheBuffer) {
    ReadEntries({Entry("ab", "1.00")});
    CGuardBuffer exact(11);
    EXPECT_EQ(m_Records.HardReadDynItem(Type().Key, exact.Data(), exact.Size()), kTextCut);
    EXPECT_EQ(exact.Text(), "ab  /  1.0");
    CGuardBuffer small(1);
    EXPECT_EQ(m_Records.HardReadDynItem(Type().Key, small.Data(), small.Size()), kTextCut);
    EXPECT_EQ(small.Text(), "");
    CGuardBuffer none(8);
    for (const int size : {0, -1}) {
        EXPECT_EQ(m_Records.HardReadDynItem(Type().Key, none.Data(), size), kTextCut);
        EXPECT_TRUE(none.IsUntouched());
    }
    EXPECT_EQ(m_Records.HardReadDynItem(Type().Key, nullptr, 20), -1);
}

TEST_P(Searching, AnEntryPastTheEndHasNoText) {
    ReadEntries({Entry("ab", "1.00")});
    while (m_Records.ReadNext(Type().Key) == 0) {
    }
    CGuardBuffer text(20);
    EXPECT_EQ(m_Records.HardReadDynItem(Type().Key, text.Data(), text.Size()), kNoMore);
    EXPECT_TRUE(text.IsUntouched());
}

TEST_P(Searching, AnEntryTextNeedsTheDefinitionsOfBothItems) {
    for (const int missing : {Type().Key, Type().Second}) {
        CTableBuilder table;
        table.Section(Type().Type).Item(missing == Type().Key ? Type().Second : Type().Key, 4, Type().First + 1, "C");
        Load(table);
        ReadEntries({Entry("ab", "1.00")});
        CGuardBuffer text(20);
        EXPECT_EQ(m_Records.HardReadDynItem(Type().Key, text.Data(), text.Size()), kNoDefinition);
        EXPECT_TRUE(text.IsUntouched());
    }
}

TEST_P(Searching, InOemModeAnEntryTextIsConvertedForTheCaller) {
    ReadEntries({Entry("M\x81ll", "1.00")});
    m_Records.SetCharacterSet("OEM");
    CGuardBuffer text(12);
    EXPECT_EQ(m_Records.HardReadDynItem(Type().Key, text.Data(), text.Size()), 0);
    EXPECT_EQ(text.Text(), "M\xFCll/  1.00");
}

TEST_P(Searching, ADynamicWriteChecksItemAndPartsLikeTheOther) {
    ReadEntries({Entry("ab", "1.00")});
    const std::string before = Line(0);
    EXPECT_EQ(m_Records.HardWriteDynItem(Type().Second, "a/b/c"), kNotTheKey);
    EXPECT_EQ(m_Records.HardWriteDynItem(Type().Key, "a/b/c"), kWrongParts);
    EXPECT_EQ(m_Records.HardWriteDynItem(Type().Key, "a"), kWrongParts);
    EXPECT_EQ(m_Records.HardWriteDynItem(Type().Key, ""), kWrongParts);
    EXPECT_EQ(m_Records.HardWriteDynItem(Type().Key, nullptr), -1);
    EXPECT_EQ(Line(0), before);
    EXPECT_EQ(Cursor(), PlaceOf(0));
}

TEST_P(Searching, ADynamicWriteWritesAWholeEntryAndMovesBehindIt) {
    EXPECT_EQ(m_Records.HardWriteDynItem(Type().Key, "ab/1"), 0); // creates the record
    EXPECT_EQ(Cursor(), PlaceOf(1));
    EXPECT_EQ(m_Records.HardWriteDynItem(Type().Key, "cd/"), 0);
    EXPECT_EQ(Cursor(), PlaceOf(2));
    EXPECT_EQ(Line(0).substr(static_cast<std::size_t>(Type().First), 20), Entry("ab", "1.00") + Entry("cd", ""));
}

TEST_P(Searching, ADynamicWriteAnswersMinus2ForAnyPartThatFailsAndWritesTheOther) {
    ReadEntries({Entry("ab", "1.00")});
    EXPECT_EQ(m_Records.HardWriteDynItem(Type().Key, "cd/abc"), kCheckFailed);
    EXPECT_EQ(Line(0).substr(static_cast<std::size_t>(Type().First), 10), Entry("cd", "1.00"));
    EXPECT_EQ(Cursor(), PlaceOf(1));
    ASSERT_EQ(m_Records.ReadFirst(Type().Key), 0);
    EXPECT_EQ(m_Records.HardWriteDynItem(Type().Key, "too long/3"), kCheckFailed);
    EXPECT_EQ(Line(0).substr(static_cast<std::size_t>(Type().First), 10), Entry("cd", "3.00"));
}

TEST_P(Searching, InOemModeADynamicWriteConvertsTheTextForTheRecord) {
    m_Records.SetCharacterSet("OEM");
    EXPECT_EQ(m_Records.HardWriteDynItem(Type().Key, "M\xFCll/1"), 0);
    EXPECT_EQ(Line(0).substr(static_cast<std::size_t>(Type().First), 10), Entry("M\x81ll", "1.00"));
    m_Records.DestroyAllRecords();
    m_Records.SetCharacterSet("ANSI");
    EXPECT_EQ(m_Records.HardWriteDynItem(Type().Key, "M\xFCll/1"), 0);
    EXPECT_EQ(Line(0).substr(static_cast<std::size_t>(Type().First), 10), Entry("M\xFCll", "1.00"));
}

TEST_P(Searching, ADynamicWriteGoesUpToTheLimitOfItsType) {
    CTableBuilder table; // entries of one character begin at every offset
    table.Section(Type().Type).Item(Type().Key, 1, Type().First + 1, "C").Item(Type().Second, 0, Type().First + 2, "C");
    Load(table);
    for (int offset = Type().First; offset < Type().Limit; ++offset) {
        ASSERT_EQ(m_Records.HardWriteDynItem(Type().Key, "x/"), 0);
        ASSERT_EQ(Cursor(), CPlace(0, offset + 1));
    }
    ASSERT_EQ(m_Records.HardWriteDynItem(Type().Key, "y/"), 0);
    EXPECT_EQ(Cursor(), CPlace(1, Type().First + 1));
    EXPECT_EQ(Line(1)[static_cast<std::size_t>(Type().First)], 'y');
}

TEST_P(Searching, ADynamicWriteBelowTheLimitIsWrittenAsFarAsTheLineGoes) {
    const int length = Type().Limit - 1 - Type().First; // the second entry begins right before the limit
    CTableBuilder table;
    table.Section(Type().Type)
        .Item(Type().Key, length, Type().First + 1, "C")
        .Item(Type().Second, 0, Type().First + 1 + length, "C");
    Load(table);
    ASSERT_EQ(m_Records.HardWriteDynItem(Type().Key, "x/"), 0);
    ASSERT_EQ(Cursor(), CPlace(0, Type().Limit - 1));
    const std::string text(static_cast<std::size_t>(length), 'y');
    ASSERT_EQ(m_Records.HardWriteDynItem(Type().Key, (text + "/").c_str()), 0);
    EXPECT_EQ(Record(Type().Type).GetLineCount(), 1);
    const auto begin = static_cast<std::size_t>(Type().Limit - 1);
    EXPECT_EQ(Line(0).substr(begin), std::string(128 - begin, 'y'));
}

TEST_P(Searching, SteppingBackFromBehindTheLastLineLeadsToItsLastEntry) {
    ReadEntries({Entry("a", "1.00")});
    while (Cursor() != CPlace(1, Type().First)) {
        m_Records.ReadNext(Type().Key);
    }
    const int back = Type().Key == 12325 ? 119 : Type().Key == 2020 ? 126 : 121;
    EXPECT_EQ(m_Records.ReadPrev(Type().Key), 0);
    EXPECT_EQ(Cursor(), CPlace(0, back - 10));
    EXPECT_EQ(m_Records.ReadPrev(Type().Key), 0);
    EXPECT_EQ(Cursor(), CPlace(0, back - 20));
    ASSERT_EQ(m_Records.ReadFirst(Type().Key), 0);
    EXPECT_EQ(m_Records.ReadPrev(Type().Key), kNoMore);
    EXPECT_EQ(Cursor(), PlaceOf(0));
}

TEST_P(Searching, SteppingBackUndoesOneStep) {
    ReadEntries({Entry("a", "1.00"), Entry("b", "2.00"), Entry("c", "3.00")});
    ASSERT_EQ(m_Records.ReadFirst(Type().Key), 0);
    ASSERT_EQ(m_Records.ReadNext(Type().Key), 0);
    ASSERT_EQ(m_Records.ReadNext(Type().Key), 0);
    EXPECT_EQ(m_Records.ReadPrev(Type().Key), 0);
    EXPECT_EQ(Item(Type().Key), "b   ");
    EXPECT_EQ(m_Records.ReadPrev(Type().Key), 0);
    EXPECT_EQ(Item(Type().Key), "a   ");
    EXPECT_EQ(m_Records.ReadPrev(Type().Key), kNoMore);
    EXPECT_EQ(Item(Type().Key), "a   ");
}

// --- W4 ---

class SearchingW4 : public RecordSetTest {
protected:
    SearchingW4() {
        CTableBuilder table;
        table.Section("W4")
            .Item(4500, 2, 1, "C")
            .Item(4515, 3, 8, "C")
            .Item(4520, 8, 11, "C")
            .Item(4555, 3, 19, R"(C,,,,,("EM";"XM"))")
            .Item(4560, 6, 22, "N,,,R 3.2");
        Load(table);
        Read(CRecordBuilder()
                 .Add("W4")
                 .Put(7, "E  guide1  EM   1.00")
                 .Put(27, "I  guide2  XM   2.00")
                 .Add("W4")
                 .Put(7, "E  guide3        1.00")
                 .Put(27, "E  guide1  EM   3.00"));
    }

    CPlace Cursor() { return {Record("W4").GetCurrentLine(), Record("W4").GetCurrentOffset()}; }
};

TEST_F(SearchingW4, AnyItemOfTheEntryCanBeSearched) {
    EXPECT_EQ(m_Records.FindFirst(4515, "I"), kFound);
    EXPECT_EQ(Cursor(), CPlace(0, 27));
    EXPECT_EQ(m_Records.FindNext(), kNothing);
    EXPECT_EQ(m_Records.FindFirst(4520, "guide1"), kFound);
    EXPECT_EQ(Cursor(), CPlace(0, 7));
    EXPECT_EQ(m_Records.FindNext(), kFound);
    EXPECT_EQ(Cursor(), CPlace(1, 27));
    EXPECT_EQ(m_Records.FindFirst(4560, "2.00"), kFound);
    EXPECT_EQ(Cursor(), CPlace(0, 27));
    EXPECT_EQ(m_Records.FindFirst(4500, "W4"), kWrongItem);
    EXPECT_EQ(m_Records.FindFirst(4530, "x"), kNoItemDefinition);
    EXPECT_EQ(m_Records.FindFirst(4565, "x"), kWrongItem);
}

TEST_F(SearchingW4, Item9035FindsEntriesByTheirMutationCode) {
    EXPECT_EQ(m_Records.FindFirst(9035, " EM "), kFound);
    EXPECT_EQ(Cursor(), CPlace(0, 7));
    EXPECT_EQ(m_Records.FindNext(), kFound);
    EXPECT_EQ(Cursor(), CPlace(1, 27));
    EXPECT_EQ(m_Records.FindNext(), kNothing);
    EXPECT_EQ(m_Records.FindNext(), kNotStarted);
    EXPECT_EQ(m_Records.FindFirst(9035, "ZZ"), kNothing);
}

TEST_F(SearchingW4, Item9035SearchesW4ThoughItsNumberIsOfX9) {
    m_Records.DestroyAllRecords();
    Read(CRecordBuilder().Add("X9").Put(123, "EM"));
    EXPECT_EQ(m_Records.FindFirst(9035, "EM"), kNoSearchedRecord);
}

TEST_F(SearchingW4, Item9035NeedsTheDefinitionOfTheMutationCode) {
    CTableBuilder table;
    table.Section("W4").Item(4515, 3, 8, "C").Item(4520, 8, 11, "C");
    Load(table);
    Read(CRecordBuilder().Add("W4").Put(7, "E"));
    EXPECT_EQ(m_Records.FindFirst(9035, "EM"), kNoItemDefinition);
}

TEST_F(SearchingW4, ItHasNoEntryTextsAndDoesNotStepBack) {
    CGuardBuffer text(40);
    EXPECT_EQ(m_Records.HardReadDynItem(4515, text.Data(), text.Size()), kNotSupported);
    EXPECT_EQ(m_Records.HardWriteDynItem(4515, "a/b/c/d"), kNotSupported);
    EXPECT_EQ(m_Records.ReadPrev(4515), -62);
    EXPECT_TRUE(text.IsUntouched());
}

// --- What cannot be searched ---

class FindOperations : public RecordSetTest {};

TEST_F(FindOperations, AnItemNumberOfNoTypeIsTold) {
    Read(CRecordBuilder().Add("G1"));
    for (const int item : {500, 0, -1, 2031, 7055, 999999}) {
        EXPECT_EQ(m_Records.FindFirst(item, "x"), kNoType) << item;
    }
    EXPECT_EQ(m_Records.FindNext(), kNotStarted);
}

TEST_F(FindOperations, ATypeWithoutARecordIsToldBeforeThatItIsAListType) {
    EXPECT_EQ(m_Records.FindFirst(1000, "x"), kNoSearchedRecord);
    EXPECT_EQ(m_Records.FindFirst(2020, "x"), kNoSearchedRecord);
    Read(CRecordBuilder().Add("X1").Add("Z1").Add("T0"));
    EXPECT_EQ(m_Records.FindFirst(1000, "x"), kListType);
    EXPECT_EQ(m_Records.FindFirst(1341, "x"), kListType);
    EXPECT_EQ(m_Records.FindFirst(16000, "x"), kListType);
    EXPECT_EQ(m_Records.FindFirst(34000, "x"), kListType);
}

TEST_F(FindOperations, ATypeWhoseRecordsAreGenericHasNone) {
    Read(CRecordBuilder().Add("X8").Put(7, "x"));
    EXPECT_EQ(m_Records.FindFirst(8000, "x"), kNoSearchedRecord);
    EXPECT_EQ(m_Records.FindFirst(100500, "x"), kNoSearchedRecord);
}

TEST_F(FindOperations, TypesWithoutASearchAnswerMinus1) {
    Read(CRecordBuilder().Add("G1").Put(7, "name").Add("G3").Add("W2").Add("X6").Add("FZ").Add("W7"));
    for (const int item : {12015, 13000, 2520, 6015, 200195, 7515}) {
        EXPECT_EQ(m_Records.FindFirst(item, "name"), kNotSupported) << item;
        EXPECT_EQ(m_Records.FindNext(), kNotStarted);
    }
}

TEST_F(FindOperations, FixedItemNumbersSearchTheirTypeWhateverOwnsThem) {
    Read(CRecordBuilder().Add("X8").Put(7, "EM"));
    EXPECT_EQ(m_Records.FindFirst(8055, "EM"), kNoSearchedRecord);  // X4
    EXPECT_EQ(m_Records.FindFirst(9035, "EM"), kNoSearchedRecord);  // W4
    EXPECT_EQ(m_Records.FindFirst(38455, "EM"), kNoSearchedRecord); // G9
}

TEST_F(FindOperations, WithoutATableNoItemBelongsToAType) {
    CAllRecordsEx records;
    const std::string path = CRecordBuilder().Add("X2").Add("W4").Save(m_Folder.PathOf("some.rec"));
    ASSERT_EQ(records.ReadAllRecordsEx(path.c_str()), 0);
    EXPECT_EQ(records.FindFirst(2020, "x"), kNoType);
    EXPECT_EQ(records.FindFirst(1000, "x"), kNoType);
    EXPECT_EQ(records.FindFirst(9035, "x"), kNoItemDefinition); // which is of W4 all the same
    EXPECT_EQ(records.FindNext(), kNotStarted);
}

TEST_F(FindOperations, FindNextWithoutASearchIsTold) {
    EXPECT_EQ(m_Records.FindNext(), kNotStarted);
}

} // namespace
