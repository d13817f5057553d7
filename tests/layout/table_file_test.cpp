#include "layout/table_file.h"

#include <algorithm>
#include <climits>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "support/guard_buffer.h"
#include "support/table_builder.h"
#include "support/temp_folder.h"
#include "tabvex/result_codes.h"

namespace {

using ::testing::ElementsAre;

// A line or column that was copied, with the operation's result.
struct CCopy {
    int Result;
    std::string Text;
};

bool operator==(const CCopy& a, const CCopy& b) {
    return a.Result == b.Result && a.Text == b.Text;
}

std::ostream& operator<<(std::ostream& stream, const CCopy& copy) {
    return stream << copy.Result << " \"" << copy.Text << "\"";
}

// What an operation copied in full.
CCopy Full(std::string_view text) {
    return {static_cast<int>(text.size()), std::string(text)};
}

// What an operation answered that copies nothing.
CCopy Nothing(int result) {
    return {result, "untouched"};
}

class TableFile : public ::testing::Test {
protected:
    int Open(std::string_view text) { return m_Table.Open(m_Folder.Write("table", text).c_str()); }

    // Loads a text that must be a good table file.
    void Load(std::string_view text) { ASSERT_EQ(Open(text), TABVEX_OK) << text; }
    void Load(const CTableBuilder& table) { Load(table.Text()); }

    // Loads a table with this header value only, besides the section head.
    void LoadHeader(std::string_view lines) { Load("[HEADER]\n" + std::string(lines) + "\n"); }

    template <typename Operation>
    static CCopy Copied(Operation operation, int size) {
        CGuardBuffer buffer(static_cast<std::size_t>(std::max(size, 0)) + 1);
        const int result = operation(buffer.Data(), size);
        return {result, buffer.IsUntouched() ? "untouched" : buffer.Text()};
    }

    CCopy Find(const char* name, int size = 300) {
        return Copied([&](char* buffer, int room) { return m_Table.FindSection(name, buffer, room); }, size);
    }

    CCopy Next(int size = 300) {
        return Copied([&](char* buffer, int room) { return m_Table.NextLine(buffer, room); }, size);
    }

    CCopy Column(int index, int size = 300) {
        return Copied([&](char* buffer, int room) { return m_Table.GetColumn(index, buffer, room); }, size);
    }

    // Every line of a section, and what ends it.
    std::vector<std::string> Section(const char* name) {
        std::vector<std::string> lines;
        CCopy line = Find(name);
        for (; line.Result >= 0; line = Next()) {
            lines.push_back(line.Text);
        }
        lines.push_back(std::to_string(line.Result));
        return lines;
    }

    // The first column of a line that is the only one of its section.
    std::string FirstColumn(std::string_view header, std::string_view line) {
        Load("[HEADER]\n" + std::string(header) + "\n[DATA_X1]\n" + std::string(line) + "\n");
        EXPECT_GE(Find("X1").Result, 0);
        const CCopy column = Column(0);
        return column.Result < 0 ? std::to_string(column.Result) : column.Text;
    }

    CTempFolder m_Folder;
    CTableFile m_Table;
};

// --- Opening
// ----------------------------------------------------------------------------------------------------------

TEST_F(TableFile, ANewReaderHoldsNothing) {
    EXPECT_EQ(m_Table.GetCurrentLine(), -1);
    EXPECT_EQ(Find("HEADER"), Nothing(TABVEX_SECTION_MISSING));
    EXPECT_EQ(Next(), Nothing(TABVEX_LINES_END));
    EXPECT_EQ(m_Table.GetColumnCount(), TABVEX_COLUMNS_NO_DELIMITER);
    EXPECT_EQ(Column(0), Nothing(TABVEX_COLUMN_NO_DELIMITER));
    EXPECT_EQ(m_Table.GetHeader().Id, std::nullopt);
    EXPECT_EQ(m_Table.GetHeader().VersionMajor, 0);
    EXPECT_EQ(m_Table.GetHeader().Delimiter, 0);
}

TEST_F(TableFile, AMissingFileCannotBeOpened) {
    EXPECT_EQ(m_Table.Open(m_Folder.PathOf("none").c_str()), -1);
    EXPECT_EQ(m_Table.Open(m_Folder.Path().c_str()), -1);
    EXPECT_EQ(m_Table.Open(""), -1);
    EXPECT_EQ(m_Table.Open(nullptr), -1);
}

TEST_F(TableFile, AnEmptyFileCannotBeRead) {
    EXPECT_EQ(Open(""), TABVEX_TABLE_CANNOT_READ);
}

TEST_F(TableFile, AFileWithoutAHeaderIsRefused) {
    EXPECT_EQ(Open("\n"), -4);
    EXPECT_EQ(Open("[DATA_X1]\n1000|2|1|C\n"), -4);
    EXPECT_EQ(Open("HEADER\nVERSION=3.2\n"), -4);
    EXPECT_EQ(Open("]HEADER[\nVERSION=3.2\n"), -4);
    EXPECT_EQ(Open("[HEADERS]\nVERSION=3.2\n"), -4);
}

TEST_F(TableFile, AHeaderWithoutLinesIsGoodEnough) {
    EXPECT_EQ(Open("[HEADER]"), 0);
    EXPECT_EQ(Find("HEADER"), Nothing(TABVEX_SECTION_EMPTY));
    EXPECT_EQ(Open("[HEADER]\n[DATA_X1]\nx\n"), 0);
    EXPECT_EQ(Find("HEADER"), Nothing(-2));
}

TEST_F(TableFile, ASectionDataHeaderServesAsTheHeader) {
    Load("[DATA_HEADER]\nVERSION=3.2\n");
    EXPECT_EQ(m_Table.GetHeader().VersionMajor, 3);
}

TEST_F(TableFile, AFailedOpenKeepsTheTableLoadedBefore) {
    Load(CTableBuilder().Section("X1").Item(1000, 2, 1, "C"));
    EXPECT_EQ(Open("[DATA_W1]\nx\n"), -4);
    EXPECT_EQ(Open(""), -3);
    EXPECT_EQ(m_Table.Open(m_Folder.PathOf("none").c_str()), -1);
    EXPECT_EQ(Find("X1"), Full("1000|2|1|C"));
    EXPECT_EQ(m_Table.GetHeader().VersionMajor, 3);
    EXPECT_EQ(Find("W1"), Nothing(-1));
}

TEST_F(TableFile, AnotherLoadReplacesTheLines) {
    Load(CTableBuilder().Section("X1").Item(1000, 2, 1, "C"));
    Load(CTableBuilder().Section("W1").Item(1500, 2, 1, "C"));
    EXPECT_EQ(Find("X1"), Nothing(-1));
    EXPECT_EQ(Find("W1"), Full("1500|2|1|C"));
}

TEST_F(TableFile, HeaderKeysThatANewFileLacksKeepTheirValues) {
    LoadHeader("ID=first\nVERSION=3.2\nDATE=2015-03-24\nAUTHOR=a\nCOUNTRY=D\nLANGUAGE=E\nDELIMITER=|\nCOMMENT=;\n"
               "NEWLINE=^");
    LoadHeader("ID=second\nVERSION=4.5");
    const tabvex::CTableHeader& header = m_Table.GetHeader();
    EXPECT_EQ(header.Id, "second");
    EXPECT_EQ(header.VersionMajor, 4);
    EXPECT_EQ(header.VersionMinor, 5);
    EXPECT_EQ(header.DateYear, 2015);
    EXPECT_EQ(header.Author, "a");
    EXPECT_EQ(header.Country, 'D');
    EXPECT_EQ(header.Language, 'E');
    EXPECT_EQ(header.Delimiter, '|');
    EXPECT_EQ(header.Comment, ';');
    EXPECT_EQ(header.Newline, '^');
}

TEST_F(TableFile, ACommentCharacterKeptFromAnEarlierFileCutsTheLinesOfANewOne) {
    Load(CTableBuilder().Header("COMMENT", ";"));
    Load("[HEADER]\nID=x\n[DATA_X1]\nab;cd\n;ef\n");
    EXPECT_THAT(Section("X1"), ElementsAre("ab", "-2"));
}

TEST_F(TableFile, ANewlineCharacterKeptFromAnEarlierFileReplacesInTheHeaderOfANewOne) {
    LoadHeader("NEWLINE=^");
    LoadHeader("ID=a^b");
    EXPECT_EQ(m_Table.GetHeader().Id, "a\r\nb");
}

TEST_F(TableFile, LoadingTwiceGivesTheSameTable) {
    const CTableBuilder table = CTableBuilder().Header("COMMENT", ";").Section("X1").Line("1;one").Line("2");
    Load(table);
    Load(table);
    EXPECT_THAT(Section("X1"), ElementsAre("1", "2", "-2"));
}

TEST_F(TableFile, OpenLeavesTheLastHeaderLineCurrent) {
    Load("[HEADER]\nVERSION=3.2\nDELIMITER=|\n[DATA_X1]\nx\n");
    EXPECT_EQ(m_Table.GetCurrentLine(), 2);
}

// --- Header keys
// ------------------------------------------------------------------------------------------------------

TEST_F(TableFile, HeaderLinesAreKeyAndValue) {
    LoadHeader("ID= The table \nAUTHOR=Some body\nCOUNTRY=De\nLANGUAGE=en\nCOMMENT=#!\nNEWLINE=^~");
    const tabvex::CTableHeader& header = m_Table.GetHeader();
    EXPECT_EQ(header.Id, "The table");
    EXPECT_EQ(header.Author, "Some body");
    EXPECT_EQ(header.Country, 'D');
    EXPECT_EQ(header.Language, 'e');
    EXPECT_EQ(header.Comment, '#');
    EXPECT_EQ(header.Newline, '^');
}

TEST_F(TableFile, KeysAreReadInAnyCaseAndWithBlanksInThem) {
    LoadHeader("  i D = x\n\tAu tHor\t=y\nver\tsion=3.2\n d e l i m i t e r =;");
    EXPECT_EQ(m_Table.GetHeader().Id, "x");
    EXPECT_EQ(m_Table.GetHeader().Author, "y");
    EXPECT_EQ(m_Table.GetHeader().VersionMajor, 3);
    EXPECT_EQ(m_Table.GetHeader().Delimiter, ';');
}

TEST_F(TableFile, LinesThatAreNoKeyAndValueAreIgnored) {
    LoadHeader("ID\n=x\nID=\nAUTHOR=   \nNAME=x\nTAB=x\nSPC=x\n \x01=x\nVERSION 3.2");
    const tabvex::CTableHeader& header = m_Table.GetHeader();
    EXPECT_EQ(header.Id, std::nullopt);
    EXPECT_EQ(header.Author, std::nullopt);
    EXPECT_EQ(header.VersionMajor, 0);
    EXPECT_EQ(header.Delimiter, 0);
}

TEST_F(TableFile, ALineIsSplitAtItsFirstEqualsSign) {
    LoadHeader("ID=a=b\nDELIMITER==");
    EXPECT_EQ(m_Table.GetHeader().Id, "a=b");
    EXPECT_EQ(m_Table.GetHeader().Delimiter, '=');
}

TEST_F(TableFile, ARepeatedKeyOverwritesTheEarlierValueUnlessItIsEmpty) {
    LoadHeader("ID=a\nVERSION=3.2\nID=b\nID=\nVERSION=x.y");
    EXPECT_EQ(m_Table.GetHeader().Id, "b");
    EXPECT_EQ(m_Table.GetHeader().VersionMajor, 0);
    EXPECT_EQ(m_Table.GetHeader().VersionMinor, 0);
}

TEST_F(TableFile, ReadsTheDelimiter) {
    struct {
        const char* Value;
        char Delimiter;
    } const rows[] = {
        {"|", '|'},   {";", ';'},   {"Xyz", 'X'},  {"xyz", 'X'}, {"TAB", '\t'},     {"tab", '\t'}, {"Tab", '\t'},
        {"SPC", ' '}, {"spc", ' '}, {"TABS", 'T'}, {"SP", 'S'},  {"  TAB  ", '\t'}, {"a", 'A'},
    };
    for (const auto& row : rows) {
        LoadHeader("DELIMITER=" + std::string(row.Value));
        EXPECT_EQ(m_Table.GetHeader().Delimiter, row.Delimiter) << row.Value;
    }
}

TEST_F(TableFile, ReadsTheVersion) {
    struct {
        const char* Value;
        int Major;
        int Minor;
    } const rows[] = {
        {"3.2", 3, 2},   {"0.0", 0, 0},  {"12.345", 12, 345}, {"2147483647.1", INT_MAX, 1},
        {" 3.2 ", 3, 2}, {"3", 3, 0},    {"3.", 3, 0},        {".2", 0, 2},
        {".", 0, 0},     {"x.2", 0, 2},  {"3.x", 3, 0},       {"3a.2", 0, 2},
        {"3.2b", 3, 0},  {"-3.2", 0, 2}, {"3.-2", 3, 0},      {"3.2.1", 3, 0},
        {"3,2", 0, 0},
    };
    for (const auto& row : rows) {
        LoadHeader("VERSION=" + std::string(row.Value));
        EXPECT_EQ(m_Table.GetHeader().VersionMajor, row.Major) << row.Value;
        EXPECT_EQ(m_Table.GetHeader().VersionMinor, row.Minor) << row.Value;
    }
}

struct CDateRow {
    const char* Value;
    int Year;
    int Month;
    int Day;
};

class TableFileDate : public TableFile {
protected:
    void Expect(std::initializer_list<CDateRow> rows) {
        for (const CDateRow& row : rows) {
            LoadHeader("DATE=1999-01-01\nDATE=" + std::string(row.Value)); // a failure must overwrite as well
            const tabvex::CTableHeader& header = m_Table.GetHeader();
            EXPECT_EQ(header.DateYear, row.Year) << row.Value;
            EXPECT_EQ(header.DateMonth, row.Month) << row.Value;
            EXPECT_EQ(header.DateDay, row.Day) << row.Value;
        }
    }
};

TEST_F(TableFileDate, PartsStandAtFixedPlacesWithAnySeparatorBetween) {
    Expect({{"2015-03-24", 2015, 3, 24},
            {"2015.03.24", 2015, 3, 24},
            {"2015/03x24", 2015, 3, 24},
            {"2015103224", 2015, 3, 24},
            {"2015-03-24 noon", 2015, 3, 24},
            {"0001-01-01", 1, 1, 1},
            {"9999-12-30", 9999, 12, 30}});
}

TEST_F(TableFileDate, BlanksAreRemovedBeforePlacesAreCounted) {
    Expect({{"2015 - 03 - 24", 2015, 3, 24}, {"2 0 1 5-0\t3-24", 2015, 3, 24}, {"2015 03 24", 0, 0, 0}});
}

TEST_F(TableFileDate, AnyPartThatDoesNotReadClearsAllThree) {
    Expect({{"x", 0, 0, 0},
            {"2015-03-2", 0, 0, 0},
            {"2015-3-24", 0, 0, 0},
            {"15-03-24", 0, 0, 0},
            {"201x-03-24", 0, 0, 0},
            {"2015-0x-24", 0, 0, 0},
            {"2015-03-2x", 0, 0, 0},
            {"2015-00-24", 0, 0, 0},
            {"2015-13-24", 0, 0, 0},
            {"2015-03-00", 0, 0, 0},
            {"2015-03-32", 0, 0, 0}});
}

TEST_F(TableFileDate, EveryEvenMonthEndsWithThe30thOnPurpose) {
    Expect({{"2015-08-31", 0, 0, 0},
            {"2015-10-31", 0, 0, 0},
            {"2015-12-31", 0, 0, 0},
            {"2015-04-31", 0, 0, 0},
            {"2015-06-31", 0, 0, 0},
            {"2015-08-30", 2015, 8, 30},
            {"2015-12-30", 2015, 12, 30},
            {"2015-01-31", 2015, 1, 31},
            {"2015-07-31", 2015, 7, 31},
            {"2015-09-31", 2015, 9, 31},
            {"2015-11-31", 2015, 11, 31}});
}

TEST_F(TableFileDate, FebruaryHas29DaysInLeapYears) {
    Expect({{"2016-02-29", 2016, 2, 29},
            {"2015-02-29", 0, 0, 0},
            {"2015-02-28", 2015, 2, 28},
            {"2000-02-29", 2000, 2, 29},
            {"1900-02-29", 0, 0, 0},
            {"2016-02-30", 0, 0, 0}});
}

TEST_F(TableFile, HeaderFieldsAreHandedOutByNumber) {
    LoadHeader(
        "ID=i\nVERSION=3.2\nDATE=2015-03-24\nAUTHOR=a\nCOUNTRY=D\nLANGUAGE=E\nDELIMITER=|\nCOMMENT=;\nNEWLINE=^");
    using CField = CTableFile::CHeaderField;
    EXPECT_EQ(m_Table.GetHeaderField(0), CField(std::string("i")));
    EXPECT_EQ(m_Table.GetHeaderField(1), CField(std::make_pair(3, 2)));
    EXPECT_EQ(m_Table.GetHeaderField(2), CField(std::make_tuple(2015, 3, 24)));
    EXPECT_EQ(m_Table.GetHeaderField(3), CField(std::string("a")));
    EXPECT_EQ(m_Table.GetHeaderField(4), CField('D'));
    EXPECT_EQ(m_Table.GetHeaderField(5), CField('E'));
    EXPECT_EQ(m_Table.GetHeaderField(6), CField('|'));
    EXPECT_EQ(m_Table.GetHeaderField(7), CField(';'));
    EXPECT_EQ(m_Table.GetHeaderField(8), CField('^'));
    for (const int number : {-1, 9, INT_MIN, INT_MAX}) {
        EXPECT_EQ(m_Table.GetHeaderField(number), CField()) << number;
    }
}

TEST_F(TableFile, HeaderFieldsThatAreNotSetAreNothingZeroOrNul) {
    LoadHeader("X=Y");
    using CField = CTableFile::CHeaderField;
    EXPECT_EQ(m_Table.GetHeaderField(0), CField());
    EXPECT_EQ(m_Table.GetHeaderField(1), CField(std::make_pair(0, 0)));
    EXPECT_EQ(m_Table.GetHeaderField(2), CField(std::make_tuple(0, 0, 0)));
    EXPECT_EQ(m_Table.GetHeaderField(3), CField());
    EXPECT_EQ(m_Table.GetHeaderField(6), CField('\0'));
}

TEST_F(TableFile, TheHeaderEndsAtALineOfBlanks) {
    LoadHeader("ID=a\n   \nAUTHOR=b");
    EXPECT_EQ(m_Table.GetHeader().Id, "a");
    EXPECT_EQ(m_Table.GetHeader().Author, std::nullopt);
}

TEST_F(TableFile, EmptyLinesInTheHeaderArePassedOver) {
    LoadHeader("ID=a\n\n\nAUTHOR=b");
    EXPECT_EQ(m_Table.GetHeader().Author, "b");
}

TEST_F(TableFile, HeaderLinesAreReadUpTo500Characters) {
    LoadHeader("ID=" + std::string(600, 'i'));
    EXPECT_EQ(m_Table.GetHeader().Id, std::string(497, 'i'));
}

TEST_F(TableFile, HeaderLinesAreReadBeforeCommentsAreCut) {
    LoadHeader("COMMENT=;\nID=a;b\nDELIMITER=;");
    EXPECT_EQ(m_Table.GetHeader().Id, "a;b");
    EXPECT_EQ(m_Table.GetHeader().Delimiter, ';');
    EXPECT_THAT(Section("HEADER"), ElementsAre("COMMENT=", "ID=a", "DELIMITER=", "-2"));
}

TEST_F(TableFile, TheNewlineCharacterHoldsForHeaderLinesBehindIt) {
    LoadHeader("ID=a^b\nNEWLINE=^\nAUTHOR=a^b");
    EXPECT_EQ(m_Table.GetHeader().Id, "a^b");
    EXPECT_EQ(m_Table.GetHeader().Author, "a\r\nb");
}

// --- Section heads
// ----------------------------------------------------------------------------------------------------

TEST_F(TableFile, ASectionIsFoundByItsNameWithAndWithoutDataInAnyCase) {
    Load("[header]\nDELIMITER=|\n[data_x1]\nfirst\n");
    for (const char* name : {"X1", "x1", "DATA_X1", "data_X1"}) {
        EXPECT_EQ(Find(name), Full("first")) << name;
    }
    EXPECT_EQ(Find("HEADER"), Full("DELIMITER=|"));
    EXPECT_EQ(Find("Header"), Full("DELIMITER=|"));
}

TEST_F(TableFile, NoOtherNameFindsASection) {
    Load(CTableBuilder().Section("X1").Line("first"));
    for (const char* name : {"X", "X11", "1", "ATA_X1", "[X1]", " X1", "X1 ", "DATA_DATA_X1", "HEADE"}) {
        EXPECT_EQ(Find(name), Nothing(-1)) << name;
        EXPECT_EQ(m_Table.GetCurrentLine(), -1) << name;
    }
}

TEST_F(TableFile, AHeadIsWhatStandsBetweenBracketsWhateverStandsAround) {
    for (const char* head : {"[X1]", "  [X1]  ", "text [ X1 ] more", "[DATA_X1]x", "1|[DATA_X1]|2", "[X1]]",
                             "[X1] [X2]", "[ DATA_X1 ]", "[x1]"}) {
        Load("[HEADER]\nID=x\n" + std::string(head) + "\nfirst\n");
        EXPECT_EQ(Find("X1"), Full("first")) << head;
    }
}

TEST_F(TableFile, ALineWithoutTheNameInItsFirstBracketsIsNoHead) {
    for (const char* line : {"[X1", "X1]", "]X1[", "] [X1]", "[] [X1]", "[[X1]", "[DATA_ X1]", "[X 1]", "{X1}", "X1"}) {
        Load("[HEADER]\nID=x\n" + std::string(line) + "\nfirst\n");
        EXPECT_EQ(Find("X1"), Nothing(-1)) << line;
    }
}

TEST_F(TableFile, TheFirstOfSeveralHeadsWins) {
    Load(CTableBuilder().Section("X1").Line("one").Section("W1").Line("two").Section("X1").Line("three"));
    EXPECT_THAT(Section("X1"), ElementsAre("one", "-1"));
    Load(CTableBuilder().Line("[X1]").Line("plain").Section("X1").Line("data"));
    EXPECT_THAT(Section("X1"), ElementsAre("plain", "-1"));
    EXPECT_THAT(Section("DATA_X1"), ElementsAre("data", "-2"));
}

TEST_F(TableFile, TheNameDataAloneFindsTheFirstDataSection) {
    Load(CTableBuilder().Line("[OTHER]").Line("no").Line("x [A] of data_").Line("yes").Section("X1").Line("later"));
    EXPECT_EQ(Find("DATA_"), Full("yes"));
}

TEST_F(TableFile, TheEmptyNameFindsEmptyBrackets) {
    Load(CTableBuilder().Section("X1").Line("x").Line("[  ]").Line("in it"));
    EXPECT_EQ(Find(""), Full("in it"));
    Load(CTableBuilder().Section("X1").Line("x"));
    EXPECT_EQ(Find(""), Nothing(-1));
}

TEST_F(TableFile, OnlyDataHeadsEndASection) {
    Load(CTableBuilder()
             .Section("X1")
             .Line("one")
             .Line("[OTHER]")
             .Line("two")
             .Line("[HEADER]")
             .Line("ID=x")
             .Section("W1"));
    EXPECT_THAT(Section("X1"), ElementsAre("one", "[OTHER]", "two", "[HEADER]", "ID=x", "-1"));
}

TEST_F(TableFile, ALineWithBracketsThatSpeaksOfDataEndsASection) {
    Load(CTableBuilder().Section("X1").Line("one").Line("[any] data_").Line("two"));
    EXPECT_THAT(Section("X1"), ElementsAre("one", "-1"));
    Load(CTableBuilder().Section("X1").Line("one").Line("]data_[").Line("DATA_").Line("[DATA_"));
    EXPECT_THAT(Section("X1"), ElementsAre("one", "]data_[", "DATA_", "[DATA_", "-2"));
}

TEST_F(TableFile, AHeaderBehindADataSectionIsPartOfIt) {
    Load("[DATA_X1]\none\n[HEADER]\nDELIMITER=|\nNEWLINE=^\n[DATA_W1]\ntwo\n");
    EXPECT_EQ(m_Table.GetHeader().Delimiter, '|');
    EXPECT_THAT(Section("X1"), ElementsAre("one", "[HEADER]", "DELIMITER=|", "NEWLINE=\r\n", "-1"));
    EXPECT_THAT(Section("HEADER"), ElementsAre("DELIMITER=|", "NEWLINE=\r\n", "-1"));
}

TEST_F(TableFile, TheHeaderGoesOnThroughSectionsThatAreNoDataSections) {
    Load("[HEADER]\nID=a\n[OTHER]\nAUTHOR=b\n[DATA_X1]\nCOUNTRY=c\n");
    EXPECT_EQ(m_Table.GetHeader().Author, "b");
    EXPECT_EQ(m_Table.GetHeader().Country, 0);
}

// --- Lines
// ------------------------------------------------------------------------------------------------------------

TEST_F(TableFile, LinesAreServedUpToTheEndOfTheSection) {
    Load(CTableBuilder().Section("X1").Line("one").Line(" two ").Section("W1").Line("three"));
    EXPECT_EQ(Find("X1"), Full("one"));
    EXPECT_EQ(Next(), Full(" two "));
    EXPECT_EQ(Next(), Nothing(TABVEX_SECTION_ENDS));
    EXPECT_EQ(Next(), Nothing(-1)); // the current line stays
    EXPECT_EQ(Find("W1"), Full("three"));
    EXPECT_EQ(Next(), Nothing(TABVEX_LINES_END));
    EXPECT_EQ(Next(), Nothing(-2));
}

TEST_F(TableFile, SectionsMayBeSearchedInAnyOrder) {
    Load(CTableBuilder().Section("X1").Line("one").Section("W1").Line("two"));
    EXPECT_EQ(Find("W1"), Full("two"));
    EXPECT_EQ(Find("X1"), Full("one"));
    EXPECT_EQ(Find("QQ"), Nothing(-1));
    EXPECT_EQ(Find("X1"), Full("one"));
}

TEST_F(TableFile, ASectionWhoseHeadIsTheLastLineIsEmptyAndItsHeadCurrent) {
    Load("[HEADER]\nID=x\n[DATA_X1]\n");
    EXPECT_EQ(Find("X1"), Nothing(TABVEX_SECTION_EMPTY));
    EXPECT_EQ(m_Table.GetCurrentLine(), 2);
    EXPECT_EQ(Next(), Nothing(-2));
}

TEST_F(TableFile, ASectionWhoseHeadIsFollowedByADataHeadIsEmptyAndThatHeadCurrent) {
    Load("[HEADER]\nID=x\n[DATA_X1]\n[DATA_W1]\nx\n");
    EXPECT_EQ(Find("X1"), Nothing(-2));
    EXPECT_EQ(m_Table.GetCurrentLine(), 3);
}

TEST_F(TableFile, ASearchThatFindsNothingLeavesNoLineCurrent) {
    Load(CTableBuilder().Section("X1").Line("one"));
    EXPECT_EQ(Find("X1"), Full("one"));
    EXPECT_EQ(Find("QQ"), Nothing(-1));
    EXPECT_EQ(m_Table.GetCurrentLine(), -1);
    EXPECT_EQ(m_Table.GetColumnCount(), 0);
}

TEST_F(TableFile, WithoutACurrentLineTheNextIsTheFileFirstLine) {
    Load(CTableBuilder().Section("X1").Line("one"));
    EXPECT_EQ(Find("QQ"), Nothing(-1));
    EXPECT_EQ(Next(), Full("[HEADER]"));
}

TEST_F(TableFile, ALineIsMadeCurrentEvenWithoutABufferForIt) {
    Load(CTableBuilder().Section("X1").Line("one").Line("two").Line("three"));
    EXPECT_EQ(m_Table.FindSection("X1", nullptr, 10), TABVEX_LINE_NO_BUFFER);
    EXPECT_EQ(Column(0), Full("one"));
    EXPECT_EQ(m_Table.NextLine(nullptr, 10), -3);
    EXPECT_EQ(Column(0), Full("two"));
    EXPECT_EQ(Next(0), Nothing(-3));
    EXPECT_EQ(Column(0), Full("three"));
    EXPECT_EQ(Find("X1", 0), Nothing(-3));
    EXPECT_EQ(Find("X1", -5), Nothing(-3));
    EXPECT_EQ(Column(0), Full("one"));
}

TEST_F(TableFile, WhereThereIsNoLineTheMissingBufferIsNotLookedAt) {
    Load(CTableBuilder().Section("X1").Line("one"));
    EXPECT_EQ(m_Table.FindSection("QQ", nullptr, 0), TABVEX_SECTION_MISSING);
    EXPECT_EQ(m_Table.FindSection("X1", nullptr, 0), -3);
    EXPECT_EQ(m_Table.NextLine(nullptr, 0), TABVEX_LINES_END);
}

TEST_F(TableFile, CopiedTextsAreCutToTheSizeWithANulBehind) {
    Load(CTableBuilder().Section("X1").Line("abcdef|ghijkl").Line("mnopqr"));
    // The buffer of size + 1 bytes is guarded: the NUL of a cut text is its last byte.
    EXPECT_EQ(Find("X1", 5), (CCopy{13, "abcde"}));
    EXPECT_EQ(Find("X1", 13), Full("abcdef|ghijkl"));
    EXPECT_EQ(Find("X1", 12), (CCopy{13, "abcdef|ghijk"}));
    EXPECT_EQ(Column(0, 1), (CCopy{6, "a"}));
    EXPECT_EQ(Column(1, 5), (CCopy{6, "ghijk"}));
    EXPECT_EQ(Column(1, 6), Full("ghijkl"));
    EXPECT_EQ(Next(3), (CCopy{6, "mno"}));
}

TEST_F(TableFile, AShortTextWritesNoByteBehindItsNul) {
    Load(CTableBuilder().Section("X1").Line("ab"));
    CGuardBuffer buffer(10);
    EXPECT_EQ(m_Table.FindSection("X1", buffer.Data(), 9), 2);
    EXPECT_EQ(buffer.Bytes(), std::string("ab\0\x5A\x5A\x5A\x5A\x5A\x5A\x5A", 10));
}

TEST_F(TableFile, LeadingBlanksAreTrimmedInTheHeaderOnly) {
    Load("[HEADER]\n  ID=x \n\t DELIMITER=| \n[DATA_X1]\n  one \n");
    EXPECT_THAT(Section("HEADER"), ElementsAre("ID=x ", "DELIMITER=| ", "-1"));
    EXPECT_THAT(Section("X1"), ElementsAre("  one ", "-2"));
}

TEST_F(TableFile, HeaderLinesStayTrimmedOnceTheyWereRead) {
    Load("[DATA_X1]\none\n[HEADER]\n  DELIMITER=|\n  NEWLINE=^\n");
    EXPECT_THAT(Section("X1"), ElementsAre("one", "[HEADER]", "DELIMITER=|", "NEWLINE=\r\n", "-2"));
}

TEST_F(TableFile, ALineMadeCurrentByItsIndexIsNotTrimmedAsAHeaderLine) {
    Load("[HEADER]\nDELIMITER=|\nNEWLINE=^\n[DATA_X1]\n  one|two\n");
    EXPECT_EQ(Find("HEADER"), Full("DELIMITER=|"));
    m_Table.SetCurrentLine(4);
    EXPECT_EQ(Column(0), Full("  one"));
}

TEST_F(TableFile, TheCurrentLineCanBeSetToALineThatExists) {
    Load("[HEADER]\nDELIMITER=|\nNEWLINE=^\n[DATA_X1]\none|two\n");
    for (const int index : {-1, 5, 6, INT_MIN, INT_MAX}) {
        m_Table.SetCurrentLine(2);
        m_Table.SetCurrentLine(index);
        EXPECT_EQ(m_Table.GetCurrentLine(), 2) << index;
    }
    m_Table.SetCurrentLine(4);
    EXPECT_EQ(m_Table.GetCurrentLine(), 4);
    EXPECT_EQ(Column(1), Full("two"));
    m_Table.SetCurrentLine(0);
    EXPECT_EQ(Column(0), Full("[HEADER]"));
    EXPECT_EQ(Next(), Full("DELIMITER=|"));
}

TEST_F(TableFile, ALineMadeCurrentByItsIndexHasItsOwnSectionAndLineBreaks) {
    Load("[HEADER]\nDELIMITER=|\nNEWLINE=^\n[DATA_X1]\none|1\ntwo|2^b\n[DATA_X2]\nthree|3\n");
    EXPECT_EQ(Find("X2"), Full("three|3"));
    EXPECT_EQ(Next(), Nothing(TABVEX_LINES_END));
    m_Table.SetCurrentLine(4);
    EXPECT_EQ(Next(), Full("two|2\r\nb"));
    EXPECT_EQ(Next(), Nothing(TABVEX_SECTION_ENDS));
    m_Table.SetCurrentLine(6);
    EXPECT_EQ(Next(), Full("three|3"));
    EXPECT_EQ(Next(), Nothing(TABVEX_LINES_END));
    m_Table.SetCurrentLine(5);
    EXPECT_EQ(Column(1), Full("2\r\nb"));
    EXPECT_EQ(Next(), Nothing(TABVEX_SECTION_ENDS));
}

TEST_F(TableFile, HeadsThatAreNearlyTheSameAreToldApart) {
    Load("[HEADER]\nID=x\n[A@BCD]\none\n[A`BCD]\ntwo\n[A BCD]\nthree\n[DATA_BCD]\nfour\n[abcd]\nfive\n");
    EXPECT_EQ(Find("A@BCD"), Full("one"));
    EXPECT_EQ(Find("A`BCD"), Full("two"));
    EXPECT_EQ(Find("A BCD"), Full("three"));
    EXPECT_EQ(Find("BCD"), Full("four"));
    EXPECT_EQ(Find("ABCD"), Full("five"));
    EXPECT_EQ(Find("B@CD"), Nothing(TABVEX_SECTION_MISSING));
}

TEST_F(TableFile, ALargeTableKeepsEveryLine) {
    for (const auto& [count, length] : {std::pair(200, 1999), std::pair(20000, 1), std::pair(9000, 63)}) {
        std::string text = "[HEADER]\nDELIMITER=|\n[DATA_X1]\n";
        for (int i = 0; i < count; ++i) {
            text.append(static_cast<std::size_t>(length), static_cast<char>('a' + i % 26)).append("\n");
        }
        Load(text);
        CCopy line = Find("X1", 2100);
        for (int i = 0; i < count; ++i, line = Next(2100)) {
            ASSERT_EQ(line, Full(std::string(static_cast<std::size_t>(length), static_cast<char>('a' + i % 26)))) << i;
        }
        EXPECT_EQ(line, Nothing(TABVEX_LINES_END));
    }
}

// --- Blank lines and comments
// -----------------------------------------------------------------------------------------

TEST_F(TableFile, EmptyLinesAreDroppedAndLinesOfBlanksStay) {
    Load("[HEADER]\nID=x\n[DATA_X1]\n\none\n\n\n   \ntwo\n\n");
    EXPECT_THAT(Section("X1"), ElementsAre("one", "   ", "two", "-2"));
}

TEST_F(TableFile, ABlankFirstLineIsKept) {
    for (const std::string_view first : {"", "   ", "\x01", "\xE4"}) {
        Load(std::string(first) + "\n\n[HEADER]\nID=x\n");
        EXPECT_EQ(Find("HEADER"), Full("ID=x"));
        EXPECT_EQ(m_Table.GetCurrentLine(), 2) << "first line: " << first;
    }
}

TEST_F(TableFile, LinesOfControlCharactersOnlyAreDropped) {
    // No line before has left printable characters behind them.
    Load("\x01\n\x01\n\x1F\n\t\n[HEADER]\nID=x\n");
    EXPECT_EQ(Find("HEADER"), Full("ID=x"));
    EXPECT_EQ(m_Table.GetCurrentLine(), 2); // the first line, the head, the line
}

TEST_F(TableFile, WhatLongerLinesLeftBehindMakesALineCountAsNotBlankOnPurpose) {
    Load("[HEADER]\nID=x\n[DATA_X1]\n\x01\n\xE4\xF6\none\n");
    EXPECT_THAT(Section("X1"), ElementsAre("\x01", "\xE4\xF6", "one", "-2"));
}

TEST_F(TableFile, LinesAreCutAtTheCommentCharacterAndDroppedWhenNothingIsLeft) {
    Load(CTableBuilder()
             .Header("COMMENT", ";")
             .Section("X1")
             .Line("12;note")
             .Line(";only a note")
             .Line(" ;blank")
             .Line("34;a;b"));
    EXPECT_THAT(Section("X1"), ElementsAre("12", " ", "34", "-2"));
}

TEST_F(TableFile, DroppedCommentLinesShiftTheIndexesOfLaterLines) {
    Load("[HEADER]\nCOMMENT=;\n;one\n;two\n[DATA_X1]\n;three\nx\n");
    EXPECT_EQ(Find("X1"), Full("x"));
    EXPECT_EQ(m_Table.GetCurrentLine(), 3);
}

TEST_F(TableFile, CommentLinesBeforeTheHeaderAreNotInItsWay) {
    Load("; [HEADER] of a file\n;x\n[HEADER]\nCOMMENT=;\nID=x\n");
    // The first line that names the section is its head, also inside what is cut as a comment later.
    EXPECT_EQ(m_Table.GetHeader().Comment, ';');
    EXPECT_EQ(Find("HEADER"), Full("COMMENT="));
}

TEST_F(TableFile, AHeadInsideACommentIsNoHead) {
    Load(
        CTableBuilder().Header("COMMENT", ";").Section("X1").Line("one;[DATA_W1]").Line("two").Section("W1").Line("w"));
    EXPECT_THAT(Section("X1"), ElementsAre("one", "two", "-1"));
    EXPECT_THAT(Section("W1"), ElementsAre("w", "-2"));
}

TEST_F(TableFile, ASectionOfCommentsOnlyIsEmpty) {
    Load(CTableBuilder().Header("COMMENT", ";").Section("X1").Line(";one").Section("W1").Line(";two"));
    EXPECT_EQ(Find("X1"), Nothing(-2));
    EXPECT_EQ(Find("W1"), Nothing(-2));
}

TEST_F(TableFile, AnIndentedCommentInTheHeaderIsDroppedAsHeaderLinesAreTrimmed) {
    Load("[HEADER]\nCOMMENT=;\n   ;note\nID=x\n");
    EXPECT_THAT(Section("HEADER"), ElementsAre("COMMENT=", "ID=x", "-2"));
}

TEST_F(TableFile, TheCommentCharacterMayBeAnyByte) {
    Load(CTableBuilder()
             .Header("COMMENT", "\xA7")
             .Section("X1")
             .Line("a;b\xA7"
                   "c"));
    EXPECT_THAT(Section("X1"), ElementsAre("a;b", "-2"));
}

// --- Columns and line breaks
// --------------------------------------------------------------------------------------------

TEST_F(TableFile, ColumnsAreWhatStandsBetweenDelimiters) {
    Load(CTableBuilder().Section("X1").Line("1000| 2 ||C,\"x\"|"));
    Find("X1");
    EXPECT_EQ(m_Table.GetColumnCount(), 5);
    EXPECT_EQ(Column(0), Full("1000"));
    EXPECT_EQ(Column(1), Full(" 2 "));
    EXPECT_EQ(Column(2), Full(""));
    EXPECT_EQ(Column(3), Full("C,\"x\""));
    EXPECT_EQ(Column(4), Full(""));
    EXPECT_EQ(Column(5), Nothing(TABVEX_COLUMN_BEYOND_LINE));
}

TEST_F(TableFile, ALineWithoutADelimiterIsOneColumn) {
    Load(CTableBuilder().Section("X1").Line("abc"));
    Find("X1");
    EXPECT_EQ(m_Table.GetColumnCount(), 1);
    EXPECT_EQ(Column(0), Full("abc"));
    EXPECT_EQ(Column(1), Nothing(-2));
}

TEST_F(TableFile, ColumnsAreSplitAtEveryKindOfDelimiter) {
    EXPECT_EQ(FirstColumn("DELIMITER=TAB\nNEWLINE=^", "a b\tc"), "a b");
    EXPECT_EQ(FirstColumn("DELIMITER=spc\nNEWLINE=^", "ab c\td"), "ab");
    EXPECT_EQ(FirstColumn("DELIMITER=x\nNEWLINE=^", "axbXc"), "axb"); // the delimiter is "X"
    EXPECT_EQ(FirstColumn("DELIMITER=\xA7\nNEWLINE=^", "a\xA7"
                                                       "b"),
              "a");
}

TEST_F(TableFile, ColumnChecksAreMadeInTheirOrder) {
    struct {
        const char* Header;
        bool HasLine;
        bool HasBuffer;
        int Index;
        int Expected;
    } const rows[] = {
        {"ID=x", true, false, -1, TABVEX_COLUMN_NO_BUFFER},
        {"ID=x", true, true, -1, TABVEX_COLUMN_BAD_INDEX},
        {"ID=x", true, true, 0, TABVEX_COLUMN_NO_DELIMITER},
        {"ID=x", true, true, 9, TABVEX_COLUMN_NO_DELIMITER},
        {"ID=x", false, true, 0, TABVEX_COLUMN_NO_DELIMITER},
        {"DELIMITER=|", true, true, 9, TABVEX_COLUMN_BEYOND_LINE},
        {"DELIMITER=|", false, true, 0, TABVEX_COLUMN_BEYOND_LINE}, // no line has no columns
        {"DELIMITER=|", true, true, 0, TABVEX_COLUMN_NO_NEWLINE},
        {"DELIMITER=|", true, true, 1, TABVEX_COLUMN_NO_NEWLINE},
        {"DELIMITER=|", true, true, INT_MIN, TABVEX_COLUMN_BAD_INDEX},
        {"DELIMITER=|", true, true, INT_MAX, TABVEX_COLUMN_BEYOND_LINE},
    };
    for (const auto& row : rows) {
        CTableFile table;
        const std::string text = "[HEADER]\n" + std::string(row.Header) + "\n[DATA_X1]\na|b\n";
        ASSERT_EQ(table.Open(m_Folder.Write("table", text).c_str()), 0);
        CGuardBuffer buffer(11);
        EXPECT_EQ(table.FindSection(row.HasLine ? "X1" : "QQ", nullptr, 0), row.HasLine ? -3 : -1);
        EXPECT_EQ(table.GetColumn(row.Index, row.HasBuffer ? buffer.Data() : nullptr, 10), row.Expected)
            << row.Header << " " << row.Index;
        EXPECT_TRUE(buffer.IsUntouched());
    }
}

TEST_F(TableFile, AColumnNeedsRoomForOneCharacter) {
    Load(CTableBuilder().Section("X1").Line("a|b"));
    Find("X1");
    EXPECT_EQ(Column(0, 0), Nothing(TABVEX_COLUMN_NO_BUFFER));
    EXPECT_EQ(Column(-1, -1), Nothing(-5));
}

TEST_F(TableFile, NoColumnIsReadableWithoutANewlineCharacter) {
    EXPECT_EQ(FirstColumn("DELIMITER=|", "a|b"), "-6");
    EXPECT_EQ(m_Table.GetColumnCount(), 2);
}

TEST_F(TableFile, WithoutADelimiterThereAreNoColumns) {
    EXPECT_EQ(FirstColumn("NEWLINE=^", "a|b"), "-4");
    EXPECT_EQ(m_Table.GetColumnCount(), -1);
}

TEST_F(TableFile, TheNewlineCharacterBecomesCrLfUnlessToldOtherwise) {
    Load(CTableBuilder().Section("X1").Line("a^b^|^c"));
    EXPECT_EQ(Find("X1"), Full("a\r\nb\r\n|\r\nc"));
    EXPECT_EQ(Column(0), Full("a\r\nb\r\n"));
    EXPECT_EQ(Column(1), Full("\r\nc"));
}

TEST_F(TableFile, TheNewlineModeChoosesTheLineBreak) {
    struct {
        int Mode;
        const char* Expected;
    } const rows[] = {{0, "a\rb"}, {1, "a\nb"}, {2, "a\r\nb"}};
    Load(CTableBuilder().Section("X1").Line("a^b"));
    for (const auto& row : rows) {
        m_Table.SetNewlineMode(row.Mode);
        EXPECT_EQ(Find("X1"), Full(row.Expected)) << row.Mode;
        EXPECT_EQ(Column(0), Full(row.Expected)) << row.Mode;
    }
}

TEST_F(TableFile, SettingTheNewlineModeTellsTheOneBefore) {
    EXPECT_EQ(m_Table.SetNewlineMode(0), 2);
    EXPECT_EQ(m_Table.SetNewlineMode(1), 0);
    EXPECT_EQ(m_Table.SetNewlineMode(2), 1);
    EXPECT_EQ(m_Table.SetNewlineMode(2), 2);
}

TEST_F(TableFile, TheNewlineModeOutlivesALoad) {
    m_Table.SetNewlineMode(1);
    Load(CTableBuilder().Section("X1").Line("a^b"));
    EXPECT_EQ(Find("X1"), Full("a\nb"));
    Load(CTableBuilder().Section("X1").Line("c^d"));
    EXPECT_EQ(Find("X1"), Full("c\nd"));
}

TEST_F(TableFile, LineBreaksCountInTheLengthAndAreCutLikeOtherText) {
    Load(CTableBuilder().Section("X1").Line("ab^cd"));
    EXPECT_EQ(Find("X1", 3), (CCopy{6, "ab\r"}));
    EXPECT_EQ(Column(0, 4), (CCopy{6, "ab\r\n"}));
}

TEST_F(TableFile, ADelimiterThatIsTheNewlineCharacterSplitsFirst) {
    EXPECT_EQ(FirstColumn("DELIMITER=|\nNEWLINE=|", "a|b"), "a");
    EXPECT_EQ(m_Table.GetColumnCount(), 2);
}

// --- Line ends and hostile files
// ------------------------------------------------------------------------------------------

TEST_F(TableFile, EveryKindOfLineEndIsRead) {
    for (const std::string_view end : {"\n", "\r\n", "\r"}) {
        std::string text = CTableBuilder().Section("X1").Line("one").Line("two").Text();
        for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + end.size())) {
            text.replace(at, 1, end);
        }
        Load(text);
        EXPECT_THAT(Section("X1"), ElementsAre("one", "two", "-2"));
    }
}

TEST_F(TableFile, TheLastLineNeedsNoLineEnd) {
    Load("[HEADER]\nID=x\n[DATA_X1]\nlast");
    EXPECT_THAT(Section("X1"), ElementsAre("last", "-2"));
}

TEST_F(TableFile, AHugeLineIsCutAt1999Characters) {
    Load(CTableBuilder().Section("X1").Line(std::string(1 << 20, 'h')).Line("next"));
    EXPECT_EQ(Find("X1", 3000), Full(std::string(1999, 'h')));
    EXPECT_EQ(Next(), Full("next"));
}

TEST_F(TableFile, AHugeFirstLineIsNoHeader) {
    EXPECT_EQ(Open(std::string(1 << 20, '[')), -4);
    EXPECT_EQ(Open("[HEADER" + std::string(1 << 20, ' ') + "]"), -4);
}

TEST_F(TableFile, ALineOfNewlineCharactersGrows) {
    Load(CTableBuilder().Section("X1").Line(std::string(1999, '^')));
    EXPECT_EQ(Find("X1", 1).Result, 3998);
    EXPECT_EQ(Column(0, 10).Result, 3998);
}

TEST_F(TableFile, NulsEndALine) {
    Load(std::string("[HEADER]\nID=x\n[DATA_X1]\none\0more\n\0two\nthree\n", 44));
    EXPECT_THAT(Section("X1"), ElementsAre("one", "three", "-2"));
}

TEST_F(TableFile, ABinaryFileIsRefusedOrRead) {
    std::string bytes(200000, '\0');
    unsigned state = 4711;
    std::generate(bytes.begin(), bytes.end(), [&state] {
        state = state * 1103515245U + 12345U;
        return static_cast<char>(state >> 16U);
    });
    EXPECT_EQ(Open(bytes), TABVEX_TABLE_NO_HEADER);
    Load("[HEADER]\nDELIMITER=|\nNEWLINE=^\nCOMMENT=;\n" + bytes + "\n[DATA_X1]\nend\n");
    int lines = 0;
    for (CCopy line = Find("HEADER"); line.Result >= 0; line = Next()) {
        ++lines;
    }
    EXPECT_GT(lines, 3);
    EXPECT_EQ(Find("X1"), Full("end"));
}

TEST_F(TableFile, ThousandsOfSectionsAreAllFound) {
    CTableBuilder table;
    const int count = 20000;
    for (int i = 0; i < count; ++i) {
        table.Section("S" + std::to_string(i)).Line("line " + std::to_string(i));
    }
    Load(table);
    for (int i = 0; i < count; ++i) {
        ASSERT_EQ(Find(("s" + std::to_string(i)).c_str()), Full("line " + std::to_string(i)));
    }
    EXPECT_EQ(Find("S20000"), Nothing(-1));
}

TEST_F(TableFile, ThousandsOfHeadsOfOneNameFindTheFirst) {
    CTableBuilder table;
    for (int i = 0; i < 20000; ++i) {
        table.Section("X1").Line("line " + std::to_string(i));
    }
    Load(table);
    EXPECT_EQ(Find("X1"), Full("line 0"));
}

TEST_F(TableFile, ACallersNullNameIsTheEmptyName) {
    EXPECT_EQ(Find(nullptr), Nothing(-1));
}

TEST_F(TableFile, TheImageHandedOutStaysWhenAnotherFileIsLoaded) {
    Load(CTableBuilder().Section("X1").Line("one"));
    const std::shared_ptr<const tabvex::CTableImage> image = m_Table.GetImage();
    Load(CTableBuilder().Section("W1").Line("two"));
    EXPECT_NE(m_Table.GetImage(), image);
    EXPECT_GE(image->FindHead("X1"), 0);
    EXPECT_EQ(image->FindHead("W1"), tabvex::CTableImage::kNone);
}

} // namespace
