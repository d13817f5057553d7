#include "tool_runner.h"

#include <gmock/gmock.h>

namespace tool_tests {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class TableCommand : public CToolTest {
protected:
    CToolResult Check(const std::string& text) const { return Run({"table", Write("x.table", text)}); }
    std::string At(int line, const std::string& text) const {
        return GetFolder() + "/x.table:" + std::to_string(line) + ": " + text + "\n";
    }
    /// The header, and a section of the type with these lines; the first of them is line 12.
    static std::string Table(const std::string& type, const std::string& lines) {
        return std::string(kHeader) + "[DATA_" + type + "]\n" + lines;
    }
};

TEST_F(TableCommand, TheSampleTableHasNoFindings) {
    const CToolResult result = Run({"table", Sample("calculation.table")});
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Errors, IsEmpty());
    EXPECT_THAT(result.Out, HasSubstr("Vehicle identification number"));
}

TEST_F(TableCommand, ShowsEveryPartOfALayoutLine) {
    const CToolResult result = Check(Table("X1", "1000|2|1|C,\"X1\"|Record type\n"
                                                 "1060|7|61|N,,\"0\",R 4.2,<0;50);(60;>,(1;2.5)|Mileage\n"
                                                 "1070|7|68|D,,,,,,MM/YYYY\n"));
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Errors, IsEmpty());
    EXPECT_EQ(result.Out, "ID          test\n"
                          "AUTHOR      tests\n"
                          "COUNTRY     D\n"
                          "LANGUAGE    E\n"
                          "DATE        2025-01-31\n"
                          "VERSION     4.7\n"
                          "DELIMITER   |\n"
                          "COMMENT     #\n"
                          "NEWLINE     ^\n"
                          "\n"
                          "X1  3 items, line 11\n"
                          "    item   pos   len  format\n"
                          "    1000     1     2  C  Record type\n"
                          "                         default \"X1\"\n"
                          "    1060    61     7  N  Mileage\n"
                          "                         fill \"0\", modifiers R, digits 4.2, range <0;50), range (60;>, "
                          "values 1; 2.5\n"
                          "    1070    68     7  D\n"
                          "                         date MM/YYYY\n");
}

TEST_F(TableCommand, TypeSelectsASectionAndItsFindings) {
    const std::string file = Write("x.table", std::string(kHeader) + "[DATA_X1]\n1000|2|1|Q\n[DATA_W1]\n1500|2|1|C\n");
    const CToolResult all = Run({"table", file});
    EXPECT_EQ(all.Status, 1);
    const CToolResult one = Run({"table", file, "--type", "W1"});
    EXPECT_EQ(one.Status, 0);
    EXPECT_EQ(one.Out, "W1  1 item, line 13\n    item   pos   len  format\n    1500     1     2  C\n");
    const CToolResult none = Run({"table", file, "--type", "X5"});
    EXPECT_EQ(none.Status, 1);
    EXPECT_EQ(none.Errors, file + ": no section [DATA_X5]\n");
}

TEST_F(TableCommand, JsonHoldsHeaderSectionsAndFindings) {
    const std::string file = Write("x.table", Table("X1", "1000|2|1|C,\"X1\"|Record type\n"
                                                          "1120|3|121|C,\"EUR\",,L,,(\"EUR\";\"CHF\")|Currency\n"
                                                          "1130|5|124|N,,,RP 3.2,(0;100>\n"
                                                          "1140|4|10|N,,,R\n"));
    const CToolResult result = Run({"table", file, "--json"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors, At(15, "item 1140: bad modifiers (component 4)"));
    const nlohmann::ordered_json json = result.Json();
    EXPECT_EQ(json["header"]["VERSION"], "4.7");
    ASSERT_EQ(json["sections"].size(), 1U);
    EXPECT_EQ(json["sections"][0]["type"], "X1");
    EXPECT_EQ(json["sections"][0]["line"], 11);
    const auto& items = json["sections"][0]["items"];
    ASSERT_EQ(items.size(), 4U);
    EXPECT_EQ(items[1]["line"], 13);
    EXPECT_EQ(items[1]["number"], 1120);
    EXPECT_EQ(items[1]["length"], 3);
    EXPECT_EQ(items[1]["position"], 121);
    EXPECT_EQ(items[1]["format"], "C");
    EXPECT_EQ(items[1]["default"], "EUR");
    EXPECT_EQ(items[1]["modifiers"], "L");
    EXPECT_EQ(items[1]["values"], (nlohmann::ordered_json{"EUR", "CHF"}));
    EXPECT_EQ(items[1]["description"], "Currency");
    EXPECT_EQ(items[2]["int_digits"], 3);
    EXPECT_EQ(items[2]["decimals"], 2);
    EXPECT_EQ(items[2]["ranges"], (nlohmann::ordered_json{"(0;100>"}));
    EXPECT_EQ(items[3]["bad_component"], 4);
    ASSERT_EQ(json["findings"].size(), 1U);
    EXPECT_EQ(json["findings"][0]["line"], 15);
    EXPECT_EQ(json["findings"][0]["text"], "item 1140: bad modifiers (component 4)");
}

TEST_F(TableCommand, TellsWhichKeysALineOfBlanksInTheHeaderCutsOff) {
    const char* const keys = "[HEADER]\nID=test\nAUTHOR=tests\nCOUNTRY=D\nLANGUAGE=E\nDATE=2025-01-31\nVERSION=4.7\n"
                             "COMMENT=#\nNEWLINE=^\n \nDELIMITER=|\n# x=y\n[DATA_X1]\n1000|2|1|C\n";
    const CToolResult result = Check(keys);
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors,
              At(1, "header: no DELIMITER") +
                  At(11, "header: DELIMITER is not read: the line of blanks at line 10 ends the header"));
    // What is shown is what the library has.
    EXPECT_THAT(result.Out, Not(HasSubstr("DELIMITER")));
    EXPECT_THAT(result.Out, Not(HasSubstr("1000")));
}

TEST_F(TableCommand, ALineOfBlanksBehindTheLastKeyCutsNothingOff) {
    const CToolResult result = Check(std::string(kHeader) + " \n# x=y\n[DATA_X1]\n1000|2|1|C\n");
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Errors, IsEmpty());
    EXPECT_THAT(result.Out, HasSubstr("    1000     1     2  C"));
}

TEST_F(TableCommand, AnEmptyLineInTheHeaderCutsNothingOff) {
    const CToolResult result = Check("[HEADER]\nID=test\n\nAUTHOR=tests\nCOUNTRY=D\nLANGUAGE=E\nDATE=2025-01-31\n"
                                     "VERSION=4.7\nDELIMITER=|\nCOMMENT=#\nNEWLINE=^\n[DATA_X1]\n1000|2|1|C\n");
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Errors, IsEmpty());
}

TEST_F(TableCommand, WithoutANewlineCharacterThereAreNoColumns) {
    const CToolResult result = Check("[HEADER]\nID=test\nAUTHOR=tests\nCOUNTRY=D\nLANGUAGE=E\nDATE=2025-01-31\n"
                                     "VERSION=4.7\nDELIMITER=|\nCOMMENT=#\n\t\nNEWLINE=^\n[DATA_X1]\n1000|2|1|C\n");
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors, At(1, "header: no NEWLINE") +
                                 At(11, "header: NEWLINE is not read: the line of blanks at line 10 ends the header"));
    EXPECT_THAT(result.Out, Not(HasSubstr("1000")));
}

TEST_F(TableCommand, NamesTheComponentOfABadDescriptor) {
    struct {
        const char* Descriptor;
        const char* Text;
    } const rows[] = {
        {"Q", "bad format letter (component 1)"},
        {"", "bad format letter (component 1)"},
        {"C,X1", "bad default text (component 2)"},
        {"C,,0", "bad fill character (component 3)"},
        {"C,,,RL,", "bad modifiers (component 4)"},
        {"N,,,R 4.1", "bad modifiers (component 4)"}, // five digits for four characters
        {"N,,,,<10;5>", "bad ranges (component 5)"},
        {"C,,,,,(A;B)", "bad value list (component 6)"},
        {"D", "bad date pattern (component 7)"},
        {"D,,,,,,XX", "bad date pattern (component 7)"},
    };
    for (const auto& row : rows) {
        const CToolResult result = Check(Table("X1", "1000|2|1|C\n1005|4|3|" + std::string(row.Descriptor) + "\n"));
        EXPECT_EQ(result.Status, 1) << row.Descriptor;
        EXPECT_EQ(result.Errors, At(13, std::string("item 1005: ") + row.Text)) << row.Descriptor;
    }
}

TEST_F(TableCommand, FindsWhatIsWrongWithALine) {
    struct {
        const char* Line;
        const char* Text;
    } const rows[] = {
        {"1005|4|3", "3 columns, 4 needed"},
        {"1005", "1 column, 4 needed"},
        {" ", "1 column, 4 needed"},
        {"|4|3|C", "the item number is no number"},
        {"10x5|4|3|C", "the item number is no number"},
        {"1005||3|C", "item 1005: the length is no positive number"},
        {"1005|0|3|C", "item 1005: the length is no positive number"},
        {"1005|-4|3|C", "item 1005: the length is no positive number"},
        {"1005|4|0|C", "item 1005: the position is no positive number"},
        {"1005|4|x|C", "item 1005: the position is no positive number"},
        {"1005|4|126|C", "item 1005: ends at character 129 of a line of 128"},
        {"1005|4|3|C,\"12\"", "item 1005: the default text has 2 characters, the item 4"},
        {"1005|4|3|C,\"12345\"", "item 1005: the default text has 5 characters, the item 4"},
        {"1000|4|3|C", "item 1000: given at line 12 already"},
        {"1500|4|3|C", "item 1500: a number of type W1"},
        {"1342|4|3|C", "item 1342: no record type has this item number"},
        {"1005|4|2|C", "item 1005: overlaps item 1000 (character 2)"},
        {"1005|4|1|C", "item 1005: overlaps item 1000 (characters 1 to 2)"},
    };
    for (const auto& row : rows) {
        const CToolResult result = Check(Table("X1", "1000|2|1|C,\"X1\"\n" + std::string(row.Line) + "\n"));
        EXPECT_EQ(result.Status, 1) << row.Line;
        EXPECT_EQ(result.Errors, At(13, row.Text)) << row.Line;
    }
}

TEST_F(TableCommand, TheLastCharacterOfALineIsFine) {
    EXPECT_EQ(Check(Table("X1", "1000|2|1|C\n1005|4|125|C\n")).Errors, "");
}

TEST_F(TableCommand, AnFzLineHas640Characters) {
    EXPECT_EQ(Check(Table("FZ", "200000|2|1|C\n200240|4|637|C\n")).Errors, "");
    EXPECT_EQ(Check(Table("FZ", "200000|2|1|C\n200240|4|638|C\n")).Errors,
              At(13, "item 200240: ends at character 641 of a line of 640"));
}

TEST_F(TableCommand, FindsWhatIsWrongWithTheHeader) {
    const std::string section = "[DATA_X1]\n1000|2|1|C\n";
    for (const char* key :
         {"ID", "AUTHOR", "COUNTRY", "LANGUAGE", "DATE", "VERSION", "DELIMITER", "COMMENT", "NEWLINE"}) {
        std::string header(kHeader);
        const std::size_t at = header.find("\n" + std::string(key) + "=") + 1;
        header.insert(at, "OLD");
        const CToolResult result = Check(header + section);
        EXPECT_EQ(result.Status, 1) << key;
        EXPECT_EQ(result.Errors, At(1, std::string("header: no ") + key)) << key;
    }
}

TEST_F(TableCommand, AVersionNeedsNumbers) {
    for (const char* version : {"x", "3.", ".2", "3.x", "-3.2", "3.2.1", "3.2 # comment"}) {
        std::string text = Table("X1", "1000|2|1|C\n");
        text.replace(text.find("4.7"), 3, version);
        const CToolResult result = Check(text);
        EXPECT_EQ(result.Status, 1) << version;
        EXPECT_EQ(result.Errors, At(7, "header: VERSION is not of the form 3.2")) << version;
    }
}

TEST_F(TableCommand, AFileWithoutAHeaderIsCheckedAllTheSame) {
    const CToolResult result = Check("[DATA_X1]\n1000|2|1|C\n");
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors, GetFolder() + "/x.table: no [HEADER] section\n");
}

TEST_F(TableCommand, AnEmptyFileHasNoHeader) {
    const CToolResult result = Check("");
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors, GetFolder() + "/x.table: no [HEADER] section\n");
}

TEST_F(TableCommand, FindsWhatIsWrongWithASection) {
    const std::string begin = Table("X1", "1000|2|1|C\n"); // 12 lines
    struct {
        const char* Section;
        int Line;
        const char* Text;
    } const rows[] = {
        {"[DATA_QQ]\n1005|4|3|C\n", 13, "section [DATA_QQ]: no such record type"},
        {"[OLD DATA_X2]\n2000|2|1|C\n", 13, "section [OLD DATA_X2]: no such record type"},
        {"[data_x1]\n1005|4|3|C\n", 13, "section [DATA_X1]: given at line 11 already; not read"},
        {"[DATA_X2]\n", 13, "section [DATA_X2]: no items"},
        {"[DATA_X2]\n[DATA_X3]\n3000|2|1|C\n", 13, "section [DATA_X2]: no items"},
        {"[NOTES]\n", 13, "1 column, 4 needed"},
    };
    for (const auto& row : rows) {
        const CToolResult result = Check(begin + row.Section);
        EXPECT_EQ(result.Status, 1) << row.Section;
        EXPECT_THAT(result.Errors, HasSubstr(At(row.Line, row.Text))) << row.Section;
    }
}

TEST_F(TableCommand, EveryRecordTypeMayHaveASection) {
    struct {
        const char* Type;
        int Item;
    } const rows[] = {{"X2N", 2100},   {"W2N", 2600}, {"X9_NEU", 9400},
                      {"XT15", 15200}, {"X8", 8000},  {"K101_01", 100500}};
    for (const auto& row : rows) {
        const CToolResult result = Check(Table(row.Type, std::to_string(row.Item) + "|2|1|C\n"));
        EXPECT_EQ(result.Errors, "") << row.Type;
    }
}

TEST_F(TableCommand, LineNumbersCountCommentsBlankLinesAndEveryLineEnd) {
    const CToolResult result =
        Check(std::string(kHeader) + "# a comment\n\r\n\r[DATA_X1]\r\n# another\r\n1000|2|1|Q\r\n");
    EXPECT_EQ(result.Errors, At(16, "item 1000: bad format letter (component 1)"));
}

TEST_F(TableCommand, ACommentEndsALine) {
    EXPECT_EQ(Check(Table("X1", "1000|2|1|C# a comment | with columns\n")).Errors, "");
    EXPECT_EQ(Check(Table("X1", "1000|2|1#|C\n")).Errors, At(12, "3 columns, 4 needed"));
}

TEST_F(TableCommand, AnEntryItemMustNotLieOverTheHeader) {
    const CToolResult result = Check(Table("G1", "12000|2|1|C\n12015|30|8|C\n12010|2|7|C\n12020|10|38|C\n"));
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors, At(13, "item 12015: overlaps item 12010 (character 8)"));
}

TEST_F(TableCommand, ItemsOverOneAnotherInAnEntryAreANoteOnly) {
    const CToolResult result = Check(Table("Z2", "16300|2|1|C\n16315|2|8|C\n16320|8|10|C\n16330|10|8|C\n"));
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Errors, IsEmpty());
    EXPECT_THAT(result.Out, HasSubstr("note: item 16330: overlaps item 16315 (characters 8 to 9)\n"));
}

TEST_F(TableCommand, OnlyItemsOfTheSameKindOfCellOverlap) {
    const std::string header = "4000|2|1|C\n4005|4|3|C\n4010|1|7|C\n"; // lines 12 to 14
    EXPECT_EQ(Check(Table("X4", header + "4025|3|8|C\n4030|4|11|C\n4055|3|8|C\n4060|12|11|C\n4070|3|8|C\n")).Errors,
              "");
    EXPECT_EQ(Check(Table("X4", header + "4025|3|8|C\n4030|4|10|C\n")).Errors,
              At(16, "item 4030: overlaps item 4025 (character 10)"));
    EXPECT_EQ(Check(Table("X4", header + "4025|3|7|C\n")).Errors,
              At(15, "item 4025: overlaps item 4010 (character 7)"));
}

TEST_F(TableCommand, TextsOfACodePageAreShownInUtf8) {
    // "Schlüssel" in code page 850, then in UTF-8.
    const std::string file = Write("x.table", Table("X1", "1000|2|1|C|Schl\x81ssel\n1005|4|3|C|Schl\xC3\xBCssel\n"));
    const CToolResult result = Run({"table", file});
    EXPECT_THAT(result.Out, HasSubstr("1000     1     2  C  Schl\xC3\xBCssel\n"));
    EXPECT_THAT(result.Out, HasSubstr("1005     3     4  C  Schl\xC3\xBCssel\n"));
    // In code page 1252 the same byte is a control character.
    const CToolResult ansi = Run({"table", file, "--json", "--code-page", "1252"});
    EXPECT_EQ(ansi.Json()["sections"][0]["items"][0]["description"], "Schl\xC2\x81ssel");
}

TEST_F(TableCommand, ControlCharactersAreEscaped) {
    const CToolResult result = Check(Table("X1", "1000|2|1|C,\"\x1B]\"\n") + "[DATA_\x1B[2J]\n1005|4|3|C\n");
    EXPECT_THAT(result.Out, HasSubstr("default \"\\x1B]\"\n"));
    EXPECT_THAT(result.Errors, HasSubstr("section [DATA_\\x1B[2J]: no such record type\n"));
    EXPECT_THAT(result.Out + result.Errors, testing::Not(HasSubstr("\x1B")));
}

TEST_F(TableCommand, ALineThatTheLibraryCutsIsAFinding) {
    const std::string longLine = "1000|2|1|C|" + std::string(1989, 'x'); // 2000 characters
    EXPECT_EQ(Check(Table("X1", longLine + "\n")).Errors,
              At(12, "the line has more than 1999 characters; the rest of it is not read"));
    EXPECT_EQ(Check(Table("X1", longLine.substr(0, 1999) + "\n")).Errors, "");
}

} // namespace
} // namespace tool_tests
