#include "tabvex/record.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "core/line_file.h"
#include "core/record_context.h"
#include "records/list_record.h"
#include "records/unknown_record.h"
#include "support/record_access.h"
#include "support/record_builder.h"
#include "support/table_builder.h"
#include "support/temp_folder.h"
#include "tabvex/result_codes.h"

namespace {

constexpr int kBufferSize = 131;

using COpenList = COpenRecord<tabvex::CListRecord>;

// A record type that overrides nothing it need not, and lets a test look at its lines' whole buffers.
class CPlainRecord : public COpenRecord<CRecord> {
public:
    CPlainRecord(const char* type, tabvex::CRecordContext& context, const std::vector<std::string>& lines)
        : COpenRecord(type, context) {
        for (const std::string& line : lines) {
            ParseLine(Padded(line).c_str());
        }
    }

    int FirstEntry(int /*item*/) override { return TABVEX_OK; }
    int NextEntry(int /*item*/) override { return TABVEX_OK; }
    int ReadEntryItem(int /*item*/, const CItemDef& /*definition*/, std::string_view& /*text*/) override {
        return TABVEX_OK;
    }
    int WriteEntry(int /*item*/, const CItemDef& /*definition*/, std::string_view /*value*/) override {
        return TABVEX_OK;
    }

    std::string Buffer(int index) const { return {LineAt(index), kBufferSize}; }
    void MoveTo(int line) { m_nCurLine = line; }
    int GetWriteLine() const { return m_nWriteLine; }
    int GetWriteOffset() const { return m_nWriteOffset; }

    using CRecord::CutFromLine;
    using CRecord::CutText;
    using CRecord::PutField;
    using CRecord::PutIntoLine;
};

std::string Nuls(std::size_t count) {
    std::string nuls;
    nuls.resize(count);
    return nuls;
}

class Record : public ::testing::Test {
protected:
    // A record with these lines, each padded with blanks.
    CPlainRecord Make(const char* type, const std::vector<std::string>& lines = {}) { return {type, m_Context, lines}; }

    std::string Saved(CPlainRecord& record, bool crlf) {
        const std::string path = m_Folder.PathOf("saved");
        CLineFile file;
        EXPECT_EQ(file.Open(path.c_str(), false, 130), TABVEX_OK);
        EXPECT_EQ(record.WriteLines(file, crlf), 1);
        EXPECT_EQ(file.Close(), TABVEX_OK);
        return ReadFile(path);
    }

    CTempFolder m_Folder;
    tabvex::CRecordContext m_Context;
};

TEST_F(Record, StartsWithoutLinesAndWithTheCursorAtTheStart) {
    const CPlainRecord record = Make("X9_NEU");
    EXPECT_STREQ(record.GetType(), "X9_NEU");
    EXPECT_FALSE(record.IsGeneric());
    EXPECT_EQ(record.GetLineCount(), 0);
    EXPECT_EQ(record.GetLineLength(), 128);
    EXPECT_EQ(record.GetCurrentLine(), 0);
    EXPECT_EQ(record.GetCurrentOffset(), 0);
    EXPECT_TRUE(record.GetLayout().empty());
    EXPECT_EQ(record.FindItem(1005), nullptr);
    EXPECT_STREQ(record.GetLine(0), "");
    EXPECT_STREQ(record.GetLine(-1), "");
}

TEST_F(Record, ATypeThatOverridesNothingRefusesWhatItCannotDo) {
    CPlainRecord record = Make("X1", {"X1"});
    std::string entry = "kept";
    EXPECT_EQ(record.PrevEntry(1005), -62);
    EXPECT_EQ(record.ReadLast(1005), -1);
    EXPECT_EQ(record.FindFirst(1005, "x"), -1);
    EXPECT_EQ(record.FindNext(1005, "x"), -1);
    EXPECT_EQ(record.ReadEntry(1005, entry), -1);
    EXPECT_EQ(entry, "kept");
    EXPECT_EQ(record.WriteDynEntry(1005, "x"), -1);
    EXPECT_EQ(record.PostRead(), -2);
    EXPECT_EQ(record.PrepareWrite(), 0);
}

TEST_F(Record, ParseLineAddsLinesAndTellsTheirIndexes) {
    CPlainRecord record = Make("X1");
    EXPECT_EQ(record.ParseLine("X1a"), 0);
    EXPECT_EQ(record.ParseLine("X1b"), 1);
    EXPECT_EQ(record.ParseLine(nullptr), 2);
    EXPECT_EQ(record.GetLineCount(), 3);
    EXPECT_STREQ(record.GetLine(0), "X1a");
    EXPECT_STREQ(record.GetLine(1), "X1b");
    EXPECT_STREQ(record.GetLine(3), "");
}

TEST_F(Record, ParseLineLeavesTheCursorWhereItIs) {
    CPlainRecord record = Make("X1", {"X1", "X1", "X1"});
    EXPECT_EQ(record.GetCurrentLine(), 0);
    EXPECT_EQ(record.GetCurrentOffset(), 0);
}

TEST_F(Record, AShortTextIsFollowedByNulsAndNotByBlanks) {
    CPlainRecord record = Make("X1");
    record.ParseLine("X123456789");
    EXPECT_EQ(record.Buffer(0), "X123456789" + Nuls(121));
}

TEST_F(Record, ALongTextIsCutAt130Characters) {
    CPlainRecord record = Make("X1");
    record.ParseLine(std::string(200, 'l').c_str());
    EXPECT_EQ(record.Buffer(0), std::string(130, 'l') + Nuls(1));
}

TEST_F(Record, ParseLineKeepsEveryLengthUpTo130Characters) {
    for (const std::size_t length : {0U, 1U, 127U, 128U, 129U, 130U, 131U, 132U}) {
        CPlainRecord record = Make("X1");
        record.ParseLine(std::string(length, 'l').c_str());
        const std::size_t kept = length < 130 ? length : 130;
        EXPECT_EQ(record.Buffer(0), std::string(kept, 'l') + Nuls(131 - kept)) << length;
    }
}

TEST_F(Record, ATextMayLackItsNulWhenItIsLongEnough) {
    const std::vector<char> text(131, 'l'); // a read behind it is what the sanitizers would see
    CPlainRecord record = Make("X1");
    record.ParseLine(text.data());
    EXPECT_EQ(record.Buffer(0), std::string(130, 'l') + Nuls(1));
}

TEST_F(Record, WithoutATextALineOf130BlanksIsAdded) {
    CPlainRecord record = Make("X1");
    record.ParseLine(nullptr);
    EXPECT_EQ(record.Buffer(0), std::string(130, ' ') + Nuls(1));
}

TEST_F(Record, AddLineStopsAtANulInTheText) {
    CPlainRecord record = Make("X1");
    EXPECT_EQ(record.AddLine(std::string_view("X1\0abc", 6)), 0);
    EXPECT_EQ(record.Buffer(0), "X1" + Nuls(129));
}

TEST_F(Record, LinesStayWhereTheyAreWhileMoreAreAdded) {
    CPlainRecord record = Make("X1", {"X1 first"});
    const char* first = record.GetLine(0);
    for (int i = 1; i < 5000; ++i) {
        record.ParseLine(("X1 " + std::to_string(i)).c_str());
    }
    EXPECT_EQ(record.GetLine(0), first);
    EXPECT_EQ(record.GetLine(0), Padded("X1 first"));
    EXPECT_STREQ(record.GetLine(4999), "X1 4999");
}

TEST_F(Record, AContinuationLineRepeatsTheHeaderOfTheLineAtTheCursor) {
    CPlainRecord record = Make("G1", {"G1abcd1 first entry", "G1efgh2 second entry"});
    record.MoveTo(0);
    EXPECT_EQ(record.AppendContinuationLine(8), TABVEX_OK);
    EXPECT_EQ(record.GetLineCount(), 3);
    EXPECT_EQ(record.Buffer(2), Padded("G1abcd1", 130) + Nuls(1));
}

TEST_F(Record, AContinuationLineMovesTheCursorToTheNextLineBehindTheHeader) {
    CPlainRecord record = Make("G1", {"G1abcd1", "G1efgh2"});
    record.MoveTo(1);
    record.AppendContinuationLine(8);
    EXPECT_EQ(record.GetCurrentLine(), 2);
    EXPECT_EQ(record.GetCurrentOffset(), 7);
    EXPECT_EQ(record.GetWriteLine(), 2);
    EXPECT_EQ(record.GetWriteOffset(), 7);
}

TEST_F(Record, AContinuationLineAddedBeforeTheLastLineGoesToTheEndAndTheCursorToTheNextLine) {
    CPlainRecord record = Make("G1", {"G1 one", "G1 two", "G1 three"});
    record.MoveTo(0);
    record.AppendContinuationLine(4);
    EXPECT_EQ(record.GetLine(3), Padded("G1 ", 130));
    EXPECT_EQ(record.GetCurrentLine(), 1);
    EXPECT_EQ(record.GetCurrentOffset(), 3);
}

TEST_F(Record, WithTheCursorPastTheLastLineAContinuationLineRepeatsThatLine) {
    CPlainRecord record = Make("G1", {"G1abcd1", "G1efgh2 entry"});
    record.MoveTo(2);
    record.AppendContinuationLine(8);
    EXPECT_EQ(record.GetLine(2), Padded("G1efgh2", 130));
    EXPECT_EQ(record.GetCurrentLine(), 2);
}

TEST_F(Record, SomeTypesRepeatOnlyTheirTypeInContinuationLines) {
    for (const std::string type : {"W3", "X3", "V1", "V2", "V3"}) {
        CPlainRecord record = Make(type.c_str(), {type + "header entry"});
        record.AppendContinuationLine(28);
        EXPECT_EQ(record.GetLine(1), Padded(type, 130)) << type;
        EXPECT_EQ(record.GetCurrentOffset(), 27) << type;
    }
    for (const std::string type : {"W4", "X4", "X2", "W2", "G0", "Z2", "X9", "X0"}) {
        CPlainRecord record = Make(type.c_str(), {type + "header entry"});
        record.AppendContinuationLine(9);
        EXPECT_EQ(record.GetLine(1), Padded(type + "header", 130)) << type;
    }
}

TEST_F(Record, ContinuationLinesOfTheNewerFormsCarryTheirMarks) {
    CPlainRecord x2n = Make("X2N", {"X2abcde entry"});
    x2n.AppendContinuationLine(8);
    EXPECT_EQ(x2n.GetLine(1), Padded("X2abcde", 127) + "1  ");
    CPlainRecord x9New = Make("X9_NEU", {"X9abcde entry"});
    x9New.AppendContinuationLine(8);
    EXPECT_EQ(x9New.GetLine(1), Padded("X9abcde", 122) + "1" + std::string(7, ' '));
}

TEST_F(Record, AHeaderLengthOutsideTheLineCopiesNoMoreThanTheLine) {
    CPlainRecord record = Make("G1", {std::string(128, 'h')});
    record.AppendContinuationLine(129);
    EXPECT_EQ(record.GetLine(1), Padded(std::string(128, 'h'), 130));
    record.AppendContinuationLine(1);
    EXPECT_EQ(record.GetLine(2), std::string(130, ' '));
}

TEST_F(Record, LinesAreWrittenInOrderWithoutCrLf) {
    CPlainRecord record = Make("X1", {"X1 one", "X1 two"});
    EXPECT_EQ(Saved(record, false), Padded("X1 one") + Padded("X1 two"));
}

TEST_F(Record, LinesAreWrittenInOrderWithCrLfBehindEach) {
    CPlainRecord record = Make("X1", {"X1 one", "X1 two"});
    EXPECT_EQ(Saved(record, true), Padded("X1 one") + "\r\n" + Padded("X1 two") + "\r\n");
}

TEST_F(Record, ALineShorterThan128CharactersIsWrittenWithBlanks) {
    CPlainRecord record = Make("V1");
    record.ParseLine("V1 short");
    EXPECT_EQ(Saved(record, false), Padded("V1 short"));
    EXPECT_EQ(Saved(record, true), Padded("V1 short") + "\r\n");
}

TEST_F(Record, WhatStandsBehindCharacter128IsNotWritten) {
    CPlainRecord record = Make("V1");
    record.ParseLine(std::string(130, 'l').c_str());
    EXPECT_EQ(Saved(record, false), std::string(128, 'l'));
    EXPECT_EQ(Saved(record, true), std::string(128, 'l') + "\r\n");
}

TEST_F(Record, WritingEndsTheLinesInMemoryBehindTheirCharacters) {
    CPlainRecord record = Make("X1");
    record.ParseLine(nullptr);
    Saved(record, false);
    EXPECT_EQ(record.GetLine(0), std::string(128, ' '));
    Saved(record, true);
    EXPECT_EQ(record.GetLine(0), std::string(128, ' ') + "\r\n");
    Saved(record, false);
    EXPECT_EQ(record.GetLine(0), std::string(128, ' '));
}

TEST_F(Record, ARecordWithoutLinesWritesNothing) {
    CPlainRecord record = Make("X1");
    EXPECT_EQ(Saved(record, true), "");
}

TEST_F(Record, TheFirstWriteThatFailsIsReturned) {
    CPlainRecord record = Make("X1", {"X1"});
    CLineFile closed;
    EXPECT_EQ(record.WriteLines(closed, true), TABVEX_FILE_NOT_OPEN);
    CLineFile reading;
    ASSERT_EQ(reading.Open(m_Folder.Write("in", "abc").c_str(), true, 128), TABVEX_OK);
    EXPECT_EQ(record.WriteLines(reading, false), TABVEX_FILE_IS_FOR_READING);
}

TEST_F(Record, LinesAreAppendedToATextWithBlanksAndLf) {
    CPlainRecord record = Make("V1");
    record.ParseLine("V1 short");
    record.ParseLine(std::string(130, 'l').c_str());
    std::string text = ">";
    record.AppendLines(text, true);
    EXPECT_EQ(text, ">" + Padded("V1 short") + "\n" + std::string(128, 'l') + "\n");
    text.clear();
    record.AppendLines(text, false);
    EXPECT_EQ(text, Padded("V1 short") + std::string(128, 'l'));
}

TEST_F(Record, WhatIsCutFromALineEndsWhereTheLineEnds) {
    const CPlainRecord record = Make("X1", {std::string(128, 'x')});
    struct {
        int Line;
        int Offset;
        int Length;
        std::size_t Expected;
    } const rows[] = {
        {0, 0, 128, 128},        {0, 0, 129, 128},       {0, 127, 1, 1}, {0, 127, 5, 1},
        {0, 128, 1, 0},          {0, 200, 1, 0},         {0, -1, 5, 0},  {0, 5, 0, 0},
        {0, 5, -1, 0},           {1, 0, 5, 0},           {-1, 0, 5, 0},  {0, 10, 20, 20},
        {0, 1, 0x7FFFFFFF, 127}, {0, -0x7FFFFFFF, 5, 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(record.CutText(row.Line, row.Offset, row.Length), std::string(row.Expected, 'x'))
            << row.Line << " " << row.Offset << " " << row.Length;
    }
}

TEST_F(Record, ATextCutFromALineEndsAtItsFirstNulAndAnEntryDoesNot) {
    CPlainRecord record = Make("X1");
    record.ParseLine("X1abc");
    EXPECT_EQ(record.CutText(0, 2, 6), "abc");
    EXPECT_EQ(record.CutText(0, 5, 6), "");
    EXPECT_EQ(record.CutFromLine(0, 2, 6), "abc" + Nuls(3));
}

TEST_F(Record, WhatIsPutIntoALineStaysInsideIt) {
    CPlainRecord record = Make("X1", {""});
    record.PutIntoLine(0, 126, "abcdef");
    record.PutIntoLine(0, 128, "x");
    record.PutIntoLine(0, -1, "x");
    record.PutIntoLine(1, 0, "x");
    record.PutIntoLine(-1, 0, "x");
    EXPECT_EQ(record.Buffer(0), std::string(126, ' ') + "ab" + Nuls(3));
}

TEST_F(Record, AFieldIsPutWithAtMostTheItemsLength) {
    CPlainRecord record = Make("X1", {""});
    record.PutField(0, 2, 3, "abcdef");
    record.PutField(0, 10, -1, "abcdef");
    record.PutField(0, 20, 5, "ab");
    EXPECT_EQ(record.GetLine(0), Padded("  abc               ab"));
}

TEST_F(Record, ReplacingTheLastLineEndsItAt128Characters) {
    CPlainRecord record = Make("X1", {"X1 one"});
    record.ParseLine(nullptr);
    record.ReplaceLastLine(Padded("X1 two").c_str());
    EXPECT_EQ(record.Buffer(0), Padded("X1 one") + Nuls(3));
    EXPECT_EQ(record.Buffer(1), Padded("X1 two") + Nuls(3));
}

TEST_F(Record, HardWritingGoesToTheLineAtTheCursor) {
    CItemDef item;
    item.Position = 4;
    item.Length = 2;
    CPlainRecord record = Make("X1", {"X1", "X1"});
    record.MoveTo(1);
    EXPECT_EQ(record.HardWrite(item, "ab"), TABVEX_OK);
    EXPECT_EQ(record.GetLine(0), Padded("X1"));
    EXPECT_EQ(record.GetLine(1), Padded("X1 ab"));
    record.MoveTo(2); // behind the last line: the last one takes it
    EXPECT_EQ(record.HardWrite(item, "cd"), TABVEX_OK);
    EXPECT_EQ(record.GetLine(1), Padded("X1 cd"));
    EXPECT_EQ(Make("X1").HardWrite(item, "ab"), TABVEX_ITEM_NO_LINE);
}

// --- Records that are flat lists ------------------------------------------------------------------------------------

class ListRecord : public ::testing::Test {
protected:
    ListRecord() {
        const std::string path = CTableBuilder()
                                     .Section("X1")
                                     .Item(1000, 2, 1, "C")
                                     .Item(1005, 4, 8, "C")
                                     .Item(1010, 5, 126, "C")
                                     .Item(1015, 6, 20, "N,,,R 3.2")
                                     .Item(1020, 3, 40, "C,\"abc\"")
                                     .Write(m_Folder.PathOf("table"));
        EXPECT_EQ(m_Context.Table.Open(path.c_str()), TABVEX_OK);
    }

    COpenList Make() { return {tabvex::RecordTypeOf("X1"), m_Context}; }

    static std::string Read(COpenList& record, int item) {
        std::string_view text;
        EXPECT_EQ(record.ReadEntryItem(item, *record.FindItem(item), text), TABVEX_OK);
        return std::string(text);
    }

    static int Write(COpenList& record, int item, std::string_view value) {
        return record.WriteEntry(item, *record.FindItem(item), value);
    }

    CTempFolder m_Folder;
    tabvex::CRecordContext m_Context;
};

TEST_F(ListRecord, HasTheLayoutOfItsType) {
    const COpenList record = Make();
    EXPECT_STREQ(record.GetType(), "X1");
    EXPECT_FALSE(record.IsGeneric());
    EXPECT_EQ(record.GetLayout().size(), 5U);
    ASSERT_NE(record.FindItem(1005), nullptr);
    EXPECT_EQ(record.FindItem(1005)->Position, 8);
    EXPECT_EQ(record.FindItem(1006), nullptr);
}

TEST_F(ListRecord, SteppingDoesNothingAndSucceeds) {
    COpenList record = Make();
    EXPECT_EQ(record.FirstEntry(1005), 0);
    EXPECT_EQ(record.NextEntry(9999), 0);
    EXPECT_EQ(record.PrevEntry(1005), -62);
    EXPECT_EQ(record.GetCurrentLine(), 0);
}

TEST_F(ListRecord, ItemsAreReadFromTheFirstLineWhereverTheCursorIs) {
    COpenList record = Make();
    record.ParseLine(Padded("X1     one").c_str());
    record.ParseLine(Padded("X1     two").c_str());
    record.AppendContinuationLine(3);
    EXPECT_EQ(record.GetCurrentLine(), 1);
    EXPECT_EQ(Read(record, 1005), "one ");
}

TEST_F(ListRecord, ItemsAreWrittenToTheFirstLineOnly) {
    COpenList record = Make();
    record.ParseLine(Padded("X1     one").c_str());
    record.ParseLine(Padded("X1     two").c_str());
    EXPECT_EQ(Write(record, 1005, "new"), 0);
    EXPECT_EQ(record.GetLine(0), Padded("X1     new"));
    EXPECT_EQ(record.GetLine(1), Padded("X1     two"));
}

TEST_F(ListRecord, ATextThatFailsItsCheckLeavesTheLineAlone) {
    COpenList record = Make();
    record.ParseLine(Padded("X1     one").c_str());
    EXPECT_EQ(Write(record, 1015, "abc"), TABVEX_VALUE_NOT_A_NUMBER);
    EXPECT_EQ(Write(record, 1005, "too long"), TABVEX_VALUE_TOO_LONG);
    EXPECT_EQ(record.GetLine(0), Padded("X1     one"));
}

TEST_F(ListRecord, AnItemThatLeavesTheLineIsReadAndWrittenUpToItsEnd) {
    COpenList record = Make();
    record.ParseLine((std::string(125, ' ') + "abc").c_str());
    EXPECT_EQ(Read(record, 1010), "abc");
    EXPECT_EQ(Write(record, 1010, "vwxyz"), 0);
    EXPECT_EQ(record.GetLine(0), std::string(125, ' ') + "vwx");
}

TEST_F(ListRecord, WithoutLinesThereIsNothingToReadOrWrite) {
    COpenList record = Make();
    std::string_view text;
    EXPECT_EQ(record.ReadEntryItem(1005, *record.FindItem(1005), text), TABVEX_ITEM_NO_LINE);
    EXPECT_EQ(Write(record, 1005, "new"), TABVEX_ITEM_NO_LINE);
    EXPECT_EQ(record.FillDefaults(), 0);
}

TEST_F(ListRecord, DefaultsGoIntoTheLineAddedLast) {
    COpenList record = Make();
    record.ParseLine(nullptr);
    record.ParseLine(nullptr);
    EXPECT_EQ(record.FillDefaults(), 1);
    EXPECT_EQ(record.GetLine(0), std::string(130, ' '));
    EXPECT_EQ(record.GetLine(1), Padded(Padded("", 39) + "abc", 130));
}

// --- Records of unknown types ---------------------------------------------------------------------------------------

TEST(UnknownRecord, KeepsItsLinesAndRefusesEveryItemAndEntryOperation) {
    tabvex::CRecordContext context;
    COpenRecord<tabvex::CUnknownRecord> record(context);
    record.ParseLine(Padded("QQ line").c_str());
    EXPECT_STREQ(record.GetType(), "UNKNOWN");
    EXPECT_TRUE(record.IsGeneric());
    EXPECT_TRUE(record.GetLayout().empty());
    std::string_view text = "kept";
    EXPECT_EQ(record.FirstEntry(1005), -62);
    EXPECT_EQ(record.NextEntry(1005), -62);
    EXPECT_EQ(record.PrevEntry(1005), -62);
    EXPECT_EQ(record.ReadEntryItem(1005, CItemDef(), text), -62);
    EXPECT_EQ(record.WriteEntry(1005, CItemDef(), "x"), -62);
    EXPECT_EQ(text, "kept");
    EXPECT_EQ(record.FillDefaults(), 0);
    EXPECT_EQ(record.GetLine(0), Padded("QQ line"));
}

} // namespace
