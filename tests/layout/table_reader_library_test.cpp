#include "layout/table_reader_library.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "layout/table_file.h"
#include "platform/platform.h"
#include "support/table_builder.h"
#include "support/temp_folder.h"
#include "tabvex/result_codes.h"

namespace {

// Odd readers take a text in place of a file name and deliver its lines; see readers/.
std::string ReaderFile(const std::string& name) {
    return std::string(TABVEX_READERS_DIR) + "/" + name + ".reader";
}

CTableFile TableFileOf(const std::string& reader) {
    return CTableFile({ReaderFile(reader)});
}

std::string GoodTable() {
    return CTableBuilder().Section("X1").Item(1000, 2, 1, "C").Text();
}

int Open(CTableFile& table, const std::string& text) {
    return table.Open(text.c_str());
}

// A library that is kept loaded, so that what it has noted outlives the loads of a table.
class CReader {
public:
    explicit CReader(const std::string& name) { EXPECT_TRUE(m_Library.Load(ReaderFile(name).c_str())) << name; }

    /// N FileName2, F GetFirstLine, L GetNextLine, C FileClose.
    std::string Calls() const {
        using CCalls = const char* (*)();
        return reinterpret_cast<CCalls>(m_Library.Find("ReaderCalls"))(); // NOLINT(*-reinterpret-cast)
    }

private:
    tabvex::CSharedLibrary m_Library;
};

// Every line of the section "X1", each followed by "/".
std::string LinesOfX1(CTableFile& table) {
    std::string lines;
    std::string buffer(3001, '\0');
    int length = table.FindSection("X1", buffer.data(), 3000);
    for (; length >= 0; length = table.NextLine(buffer.data(), 3000)) {
        lines.append(buffer, 0, static_cast<std::size_t>(length)).append("/");
    }
    return lines;
}

// --- Finding and binding
// ------------------------------------------------------------------------------------------------

TEST(TableReaderLibrary, TheDefaultReaderIsFoundBesideTheOwnFile) {
    tabvex::CTableReaderLibrary reader;
    ASSERT_TRUE(reader.Bind());
    EXPECT_NE(reader.FileName2, nullptr);
    EXPECT_NE(reader.GetFirstLine, nullptr);
    EXPECT_NE(reader.GetNextLine, nullptr);
    EXPECT_NE(reader.FileClose, nullptr);
}

TEST(TableReaderLibrary, ReleasingForgetsTheEntryPointsAndBindingFindsThemAgain) {
    tabvex::CTableReaderLibrary reader;
    ASSERT_TRUE(reader.Bind());
    ASSERT_TRUE(reader.Bind());
    reader.Release();
    EXPECT_EQ(reader.FileName2, nullptr);
    EXPECT_EQ(reader.GetFirstLine, nullptr);
    EXPECT_EQ(reader.GetNextLine, nullptr);
    EXPECT_EQ(reader.FileClose, nullptr);
    reader.Release();
    EXPECT_TRUE(reader.Bind());
}

TEST(TableReaderLibrary, ALibraryThatIsNotThereCannotBeBound) {
    tabvex::CTableReaderLibrary none(std::vector<std::string>{});
    EXPECT_FALSE(none.Bind());
    tabvex::CTableReaderLibrary missing({ReaderFile("missing"), "no-such-library.reader"});
    EXPECT_FALSE(missing.Bind());
}

TEST(TableReaderLibrary, AFileThatIsNoLibraryCannotBeBound) {
    const CTempFolder folder;
    tabvex::CTableReaderLibrary reader({folder.Write("text.reader", "this is no library")});
    EXPECT_FALSE(reader.Bind());
}

TEST(TableReaderLibrary, TheNextNameIsTriedOnlyWhereThereIsNoLibrary) {
    tabvex::CTableReaderLibrary second({ReaderFile("missing"), ReaderFile("plain")});
    EXPECT_TRUE(second.Bind());
    tabvex::CTableReaderLibrary incomplete({ReaderFile("without_file_close"), ReaderFile("plain")});
    EXPECT_FALSE(incomplete.Bind());
}

TEST(TableReaderLibrary, EveryEntryPointMustBeThere) {
    for (const char* name : {"without_file_name", "without_first_line", "without_next_line", "without_file_close"}) {
        tabvex::CTableReaderLibrary reader({ReaderFile(name)});
        EXPECT_FALSE(reader.Bind()) << name;
        EXPECT_FALSE(reader.Bind()) << name;
        CTableFile table = TableFileOf(name);
        EXPECT_EQ(Open(table, GoodTable()), TABVEX_TABLE_NO_READER) << name;
        EXPECT_EQ(Open(table, GoodTable()), -2) << name;
    }
}

TEST(TableReaderLibrary, WithoutAReaderNoTableIsLoaded) {
    CTableFile table({ReaderFile("missing")});
    EXPECT_EQ(Open(table, GoodTable()), -2);
    EXPECT_EQ(LinesOfX1(table), "");
}

// --- What Open asks of a reader
// --------------------------------------------------------------------------------------------

TEST(TableReaderLibrary, TheNameIsToldTwiceAndTheFileClosedOnce) {
    const CReader reader("plain");
    CTableFile table = TableFileOf("plain");
    EXPECT_EQ(Open(table, "[HEADER]\nID=x\n"), 0);
    EXPECT_EQ(reader.Calls(), "NNFLLC"); // the last call tells that there is no further line
    EXPECT_EQ(Open(table, "[HEADER]"), 0);
    EXPECT_EQ(reader.Calls(), "NNFLLCNNFLC");
}

TEST(TableReaderLibrary, WorkingOnALoadedTableCallsTheReaderNoMore) {
    const CReader reader("plain");
    CTableFile table = TableFileOf("plain");
    EXPECT_EQ(Open(table, GoodTable()), 0);
    const std::string calls = reader.Calls();
    EXPECT_EQ(LinesOfX1(table), "1000|2|1|C/");
    EXPECT_EQ(reader.Calls(), calls);
}

TEST(TableReaderLibrary, AFailedOpenDoesNotCloseTheFile) {
    const CReader reader("plain");
    {
        CTableFile table = TableFileOf("plain");
        EXPECT_EQ(Open(table, "[DATA_X1]\nx\n"), TABVEX_TABLE_NO_HEADER);
        EXPECT_EQ(reader.Calls(), "NNFLL");
    }
    EXPECT_EQ(reader.Calls(), "NNFLL");
}

struct CAnswerRow {
    const char* Reader;
    int Result;
    const char* Calls;
};

TEST(TableReaderLibrary, AnswersOfTheEntryPointsDecideHowOpenFails) {
    const CAnswerRow rows[] = {
        {"first_name_answers_2", -1, "N"},          {"first_name_answers_3", 0, "NNFLLLLLLC"},
        {"second_name_answers_2", 0, "NNFLLLLLLC"}, {"second_name_answers_3", -3, "NN"},
        {"names_answer_minus_1", 0, "NNFLLLLLLC"},  {"first_line_answers_1", -3, "NNF"},
        {"first_line_answers_2", 0, "NNFLLLLLLC"},
    };
    for (const CAnswerRow& row : rows) {
        const CReader reader(row.Reader);
        CTableFile table = TableFileOf(row.Reader);
        EXPECT_EQ(Open(table, GoodTable()), row.Result) << row.Reader;
        EXPECT_EQ(reader.Calls(), row.Calls) << row.Reader;
        EXPECT_EQ(LinesOfX1(table), row.Result == 0 ? "1000|2|1|C/" : "") << row.Reader;
    }
}

TEST(TableReaderLibrary, AnOpenBehindAFailedOneGoesOnWithTheSameBinding) {
    // The reader's third and later calls answer 0; loaded anew it would count from one again.
    CTableFile table = TableFileOf("second_name_answers_3");
    EXPECT_EQ(Open(table, GoodTable()), -3);
    EXPECT_EQ(Open(table, GoodTable()), 0);
    EXPECT_EQ(LinesOfX1(table), "1000|2|1|C/");
}

TEST(TableReaderLibrary, ASuccessfulOpenReleasesTheReader) {
    CTableFile table = TableFileOf("second_name_answers_3");
    EXPECT_EQ(Open(table, GoodTable()), -3);
    EXPECT_EQ(Open(table, GoodTable()), 0);
    EXPECT_EQ(Open(table, GoodTable()), -3);
}

TEST(TableReaderLibrary, TheReaderIsReleasedWithTheTable) {
    for (int i = 0; i < 2; ++i) {
        CTableFile table = TableFileOf("second_name_answers_3");
        EXPECT_EQ(Open(table, GoodTable()), -3) << i;
    }
}

TEST(TableReaderLibrary, AFailedOpenKeepsTheTableLoadedBefore) {
    CTableFile table = TableFileOf("first_name_answers_2");
    EXPECT_EQ(Open(table, GoodTable()), -1);
    EXPECT_EQ(Open(table, GoodTable()), 0);
    EXPECT_EQ(Open(table, "[HEADER]\n[DATA_X1]\nother\n"), -1);
    EXPECT_EQ(LinesOfX1(table), "1000|2|1|C/");
}

// --- Lines
// ---------------------------------------------------------------------------------------------------------------------

TEST(TableReaderLibrary, ALineDeliveredWithTheLastAnswerIsTaken) {
    for (const char* name : {"last_line_answers_7", "last_line_answers_minus_1"}) {
        const CReader reader(name);
        CTableFile table = TableFileOf(name);
        EXPECT_EQ(Open(table, "[HEADER]\nID=x\n[DATA_X1]\none\nlast"), 0);
        EXPECT_EQ(reader.Calls(), "NNFLLLLC") << name;
        EXPECT_EQ(LinesOfX1(table), "one/last/") << name;
    }
}

TEST(TableReaderLibrary, ABlankLineDeliveredWithTheLastAnswerIsDropped) {
    CTableFile table = TableFileOf("last_line_answers_7");
    EXPECT_EQ(Open(table, "[HEADER]\nID=x\n[DATA_X1]\none\n\n"), 0);
    EXPECT_EQ(LinesOfX1(table), "one/");
}

TEST(TableReaderLibrary, LinesOfBytesAbove127OnlyAreBlank) {
    CTableFile table = TableFileOf("clearing");
    EXPECT_EQ(Open(table, "[HEADER]\nID=x\n[DATA_X1]\none\n\xE4\xF6\xFC\n\xFF\n\x80\nt\xFCwo\n"), 0);
    EXPECT_EQ(LinesOfX1(table), "one/t\xFCwo/");
}

TEST(TableReaderLibrary, CharactersFrom32To127MakeALineOthersDoNot) {
    struct {
        char Character;
        bool Kept;
    } const rows[] = {{'\x01', false}, {'\t', false},   {'\r', false},   {'\x1F', false}, {' ', true}, {'~', true},
                      {'\x7F', true},  {'\x80', false}, {'\xA0', false}, {'\xFF', false}, {'0', true}};
    for (const auto& row : rows) {
        CTableFile table = TableFileOf("clearing");
        EXPECT_EQ(Open(table, "[HEADER]\nID=x\n[DATA_X1]\none\n" + std::string(1, row.Character) + "\ntwo\n"), 0);
        const std::string line = std::string(1, row.Character) + "/";
        EXPECT_EQ(LinesOfX1(table), "one/" + (row.Kept ? line : "") + "two/") << static_cast<int>(row.Character);
    }
}

TEST(TableReaderLibrary, PrintableBytesLeftBehindALineOfBytesAbove127KeepItOnPurpose) {
    CTableFile table = TableFileOf("plain");
    EXPECT_EQ(Open(table, "[HEADER]\nID=x\n[DATA_X1]\none\n\xE4\xF6\ntwo\n"), 0);
    EXPECT_EQ(LinesOfX1(table), "one/\xE4\xF6/two/");
}

TEST(TableReaderLibrary, TheFirstLineIsKeptEvenWhenItIsBlank) {
    CTableFile table = TableFileOf("clearing");
    EXPECT_EQ(Open(table, "\xE4\n[HEADER]\nID=x\n[DATA_X1]\none\n"), 0);
    EXPECT_EQ(LinesOfX1(table), "one/");
    EXPECT_EQ(table.GetCurrentLine(), 4);
}

TEST(TableReaderLibrary, ALineThatFillsTheWholeBufferNeedsNoEnd) {
    CTableFile table = TableFileOf("plain");
    const std::string longest(2000, 'l');
    EXPECT_EQ(Open(table, "[HEADER]\nID=x\n[DATA_X1]\n" + longest + "xyz\ntwo\n"), 0);
    EXPECT_EQ(LinesOfX1(table), longest + "/two/");
}

TEST(TableReaderLibrary, AReaderNeedsNoFile) {
    CTableFile table = TableFileOf("plain");
    EXPECT_EQ(Open(table, GoodTable()), 0);
    EXPECT_EQ(table.GetHeader().VersionMajor, CTableBuilder::kVersionMajor);
    EXPECT_EQ(LinesOfX1(table), "1000|2|1|C/");
}

} // namespace
