#include "layout/layout.h"

#include <climits>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "layout/table_file.h"
#include "support/record_builder.h"
#include "support/table_builder.h"
#include "support/temp_folder.h"
#include "tabvex/result_codes.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string Nuls(std::size_t count) {
    std::string nuls;
    nuls.resize(count);
    return nuls;
}

class Layout : public ::testing::Test {
protected:
    tabvex::CLayout Make(const CTableBuilder& table, std::string_view type = "X1", tabvex::CLayoutCodes codes = {}) {
        CTableFile file;
        EXPECT_EQ(file.Open(table.Write(m_Folder.PathOf("table")).c_str()), TABVEX_OK);
        return {file.GetImage(), type, std::move(codes)};
    }

    // The layout of a section of these lines.
    tabvex::CLayout OfLines(const std::vector<std::string>& lines) {
        CTableBuilder table = CTableBuilder().Section("X1");
        for (const std::string& line : lines) {
            table.Line(line);
        }
        return Make(table);
    }

private:
    CTempFolder m_Folder;
};

std::vector<int> Numbers(const tabvex::CLayout& layout) {
    std::vector<int> numbers;
    for (const CItemDef& item : layout.GetItems()) {
        numbers.push_back(item.Number);
    }
    return numbers;
}

// --- Reading a section
// ----------------------------------------------------------------------------------------------------

TEST_F(Layout, ItemsStandInTheOrderOfTheFile) {
    const tabvex::CLayout layout =
        Make(CTableBuilder().Section("X1").Item(1010, 4, 8, "C").Item(1000, 2, 1, "U").Item(1005, 5, 20, "N"));
    EXPECT_EQ(layout.GetResult(), TABVEX_OK);
    EXPECT_THAT(Numbers(layout), ElementsAre(1010, 1000, 1005));
    const CItemDef& item = layout.GetItems()[1];
    EXPECT_EQ(item.Length, 2);
    EXPECT_EQ(item.Position, 1);
    EXPECT_EQ(item.Format, 'U');
}

TEST_F(Layout, OnlyTheSectionOfTheTypeCounts) {
    const CTableBuilder table = CTableBuilder()
                                    .Section("W1")
                                    .Item(1500, 2, 1, "C")
                                    .Section("X1")
                                    .Item(1000, 2, 1, "C")
                                    .Section("X2")
                                    .Item(2000, 2, 1, "C");
    EXPECT_THAT(Numbers(Make(table, "X1")), ElementsAre(1000));
    EXPECT_THAT(Numbers(Make(table, "X2")), ElementsAre(2000));
}

TEST_F(Layout, WithoutTypeSectionOrLinesThereIsNoLayout) {
    const CTableBuilder table = CTableBuilder().Section("X1").Section("W1").Item(1500, 2, 1, "C").Section("X2");
    for (const char* type : {"", "X1", "X2", "X3", "X"}) {
        const tabvex::CLayout layout = Make(table, type);
        EXPECT_EQ(layout.GetResult(), -1) << type;
        EXPECT_THAT(Numbers(layout), IsEmpty()) << type;
        EXPECT_EQ(layout.Find(1500), nullptr) << type;
    }
}

TEST_F(Layout, ABadDescriptorOnTheFirstLineAnswersOtherwiseOnPurpose) {
    const tabvex::CLayout first = OfLines({"1000|2|1|Q", "1005|2|3|C"});
    EXPECT_EQ(first.GetResult(), TABVEX_LAYOUT_BAD_FIRST);
    EXPECT_THAT(Numbers(first), ElementsAre(1000));
    const tabvex::CLayout second = OfLines({"1000|2|1|C", "1005|2|3|Q", "1010|2|5|C"});
    EXPECT_EQ(second.GetResult(), TABVEX_LAYOUT_BAD);
    EXPECT_THAT(Numbers(second), ElementsAre(1000, 1005));
    EXPECT_EQ(TABVEX_LAYOUT_BAD_FIRST, -100);
}

TEST_F(Layout, TheFirstLineMayHaveAnEmptyLengthOrPositionOnPurpose) {
    const tabvex::CLayout layout = OfLines({"1000|||C", "1005|2|3|C"});
    EXPECT_EQ(layout.GetResult(), 0);
    EXPECT_EQ(layout.GetItems()[0].Length, 0);
    EXPECT_EQ(layout.GetItems()[0].Position, 0);
    EXPECT_THAT(Numbers(layout), ElementsAre(1000, 1005));
}

TEST_F(Layout, LaterLinesNeedALengthAndAPosition) {
    for (const char* line : {"1005||3|C", "1005|2||C", "1005|||C"}) {
        const tabvex::CLayout layout = OfLines({"1000|2|1|C", line, "1010|2|5|C"});
        EXPECT_EQ(layout.GetResult(), -1) << line;
        EXPECT_THAT(Numbers(layout), ElementsAre(1000, 1005)) << line;
    }
}

TEST_F(Layout, EveryLineNeedsFourColumns) {
    for (const char* line : {"1005", "1005|2", "1005|2|3"}) {
        const tabvex::CLayout first = OfLines({line, "1010|2|5|C"});
        EXPECT_EQ(first.GetResult(), -1) << line;
        EXPECT_THAT(Numbers(first), ElementsAre(1005)) << line;
        const tabvex::CLayout second = OfLines({"1000|2|1|C", line, "1010|2|5|C"});
        EXPECT_EQ(second.GetResult(), -1) << line;
        EXPECT_THAT(Numbers(second), ElementsAre(1000, 1005)) << line;
    }
}

TEST_F(Layout, AnEmptyDescriptorIsABadOne) {
    EXPECT_EQ(OfLines({"1000|2|1|"}).GetResult(), -100);
    EXPECT_EQ(OfLines({"1000|2|1|C", "1005|2|3|"}).GetResult(), -1);
}

TEST_F(Layout, ALineOfBlanksIsALineWithoutColumns) {
    const tabvex::CLayout layout = OfLines({"1000|2|1|C", "   ", "1005|2|3|C"});
    EXPECT_EQ(layout.GetResult(), -1);
    EXPECT_THAT(Numbers(layout), ElementsAre(1000, 0));
}

TEST_F(Layout, ColumnsBehindTheFourthAreNotLookedAt) {
    EXPECT_EQ(OfLines({"1000|2|1|C|comment|", "1005|2|3|C|x"}).GetResult(), 0);
}

TEST_F(Layout, NumbersAreReadAsFarAsThereAreDigits) {
    const tabvex::CLayout layout = OfLines({" 1000x| 2 |1a|C", "abc|4|x|C", "|5|6|C", "-7|+8|-9|C"});
    EXPECT_EQ(layout.GetResult(), 0);
    EXPECT_THAT(Numbers(layout), ElementsAre(1000, 0, 0, -7));
    EXPECT_EQ(layout.GetItems()[0].Length, 2);
    EXPECT_EQ(layout.GetItems()[0].Position, 1);
    EXPECT_EQ(layout.GetItems()[1].Position, 0);
    EXPECT_EQ(layout.GetItems()[3].Length, 8);
    EXPECT_EQ(layout.GetItems()[3].Position, -9);
}

TEST_F(Layout, WithoutANewlineCharacterNoColumnIsReadable) {
    const tabvex::CLayout layout = Make(CTableBuilder().Header("NEWLINE", "").Section("X1").Item(1000, 2, 1, "C"));
    EXPECT_EQ(layout.GetResult(), -1);
    EXPECT_THAT(Numbers(layout), ElementsAre(0));
}

TEST_F(Layout, WithoutADelimiterNoColumnIsReadable) {
    const tabvex::CLayout layout = Make(CTableBuilder().Header("DELIMITER", "").Section("X1").Item(1000, 2, 1, "C"));
    EXPECT_EQ(layout.GetResult(), -1);
    EXPECT_THAT(Numbers(layout), ElementsAre(0));
}

TEST_F(Layout, ADescriptorIsReadUpTo500Characters) {
    const auto line = [](std::size_t length) {
        return "1000|2|1|C,,,,,(\"" + std::string(length - 10, 'v') + "\")"; // ten characters are not the value
    };
    const tabvex::CLayout longest = OfLines({line(500)});
    EXPECT_EQ(longest.GetResult(), 0);
    EXPECT_EQ(longest.GetItems()[0].Values.front().size(), 490U);
    EXPECT_EQ(OfLines({line(501)}).GetResult(), -100);
    EXPECT_EQ(OfLines({"1005|2|1|C", line(501)}).GetResult(), -1);
    EXPECT_EQ(OfLines({"1000|10|1|D,,,,,,DD.MM.YYYY" + std::string(600, 'x')}).GetResult(), 0);
}

TEST_F(Layout, TheLengthIsKnownWhenTheDescriptorIsParsed) {
    EXPECT_EQ(OfLines({"1000|9|1|N,,,R 7.2"}).GetResult(), 0);
    EXPECT_EQ(OfLines({"1000|8|1|N,,,R 7.2"}).GetResult(), -100);
}

TEST_F(Layout, LineBreaksInADescriptorAreInPlace) {
    const tabvex::CLayout layout = OfLines({"1000|9|1|C,\"a^b\""});
    EXPECT_EQ(layout.GetItems()[0].Default, "a\r\nb");
}

TEST_F(Layout, AHeadThatIsNoDataHeadIsALineOfTheSection) {
    EXPECT_EQ(OfLines({"1000|2|1|C", "[OTHER]", "1005|2|3|C"}).GetResult(), -1);
}

TEST_F(Layout, AnItemThatOccursTwiceIsThereTwiceAndTheFirstIsFound) {
    const tabvex::CLayout layout = OfLines({"1000|2|1|C", "1005|4|3|C", "1005|5|9|C", "1000|6|20|C"});
    EXPECT_EQ(layout.GetResult(), 0);
    EXPECT_THAT(Numbers(layout), ElementsAre(1000, 1005, 1005, 1000));
    EXPECT_EQ(layout.Find(1005), &layout.GetItems()[1]);
    EXPECT_EQ(layout.Find(1000), layout.GetItems().data());
}

TEST_F(Layout, ItemsAreFoundByAnyNumberTheyHave) {
    const tabvex::CLayout layout =
        OfLines({"1000|2|1|C", "1341|2|1|C", "5|2|1|C", "-5|2|1|C", "2147483647|2|1|C", "5|3|1|C"});
    EXPECT_EQ(layout.GetResult(), 0);
    EXPECT_EQ(layout.Find(1000), layout.GetItems().data());
    EXPECT_EQ(layout.Find(1341), &layout.GetItems()[1]);
    EXPECT_EQ(layout.Find(5), &layout.GetItems()[2]);
    EXPECT_EQ(layout.Find(-5), &layout.GetItems()[3]);
    EXPECT_EQ(layout.Find(INT_MAX), &layout.GetItems()[4]);
    for (const int number : {0, 1, 999, 1001, 1340, 1342, INT_MIN}) {
        EXPECT_EQ(layout.Find(number), nullptr) << number;
    }
}

TEST_F(Layout, ItemsBeforeAFailureAreInTheLayoutAndFound) {
    const tabvex::CLayout layout = OfLines({"1000|2|1|C", "1005|2|3|C", "1010|2|5|Q", "1015|2|7|C"});
    EXPECT_NE(layout.Find(1005), nullptr);
    EXPECT_NE(layout.Find(1010), nullptr);
    EXPECT_EQ(layout.Find(1015), nullptr);
}

// --- Value lists that come from code lists
// ------------------------------------------------------------------------------------

class GeneratedValues : public Layout {
protected:
    // Mutation codes K0 to K9 of kinds 0 to 9, the repair methods R1 and R2.
    static tabvex::CLayoutCodes Codes() {
        tabvex::CLayoutCodes codes;
        for (unsigned kind = 0; kind <= 9; ++kind) {
            AddCode(codes, "K" + std::to_string(kind), kind);
        }
        codes.All.Add("R1");
        codes.All.Add("R2");
        return codes;
    }

    static void AddCode(tabvex::CLayoutCodes& codes, const std::string& code, unsigned kind) {
        codes.Codes.Add(code);
        codes.Kinds.Add(kind);
    }

    // The item as the second line of its section, with this descriptor in the table.
    CItemDef Item(int number, const tabvex::CLayoutCodes& codes, const char* descriptor = "C,,,,,(\"own\")") {
        const tabvex::CLayout layout =
            Make(CTableBuilder().Section("X4").Item(4000, 2, 1, "C").Item(number, 3, 8, descriptor), "X4", codes);
        EXPECT_EQ(layout.GetResult(), 0) << number;
        return *layout.Find(number);
    }
};

TEST_F(GeneratedValues, ElevenItemsTakeTheirValuesFromTheCodeLists) {
    struct {
        int Number;
        std::vector<std::string> Values;
    } const rows[] = {
        {4055, {"K1", "K2", "K3", "K4", "K5", "K6", "K7", "K8"}},
        {4070, {"K3"}},
        {4085, {"K7"}},
        {19255, {"K1", "K2", "K3", "K4"}},
        {19270, {"K3"}},
        {4555, {"K1", "K2", "K3", "K4", "K5", "K6", "K7", "K8"}},
        {4515, {"R1", "R2"}},
        {4025, {"R1", "R2"}},
        {19225, {"R1", "R2"}},
        {6015, {"R1", "R2"}},
        {6515, {"R1", "R2"}},
    };
    for (const auto& row : rows) {
        const CItemDef item = Item(row.Number, Codes());
        EXPECT_EQ(item.Values, row.Values) << row.Number;
        EXPECT_EQ(item.HasValues, 1) << row.Number;
        EXPECT_EQ(item.Format, 'C') << row.Number;
    }
}

TEST_F(GeneratedValues, EveryOtherItemKeepsItsOwn) {
    for (const int number : {4005, 4054, 4056, 4060, 4075, 4090, 19230, 19260, 4520, 4560, 6020, 6520, 0}) {
        EXPECT_THAT(Item(number, Codes()).Values, ElementsAre("own")) << number;
    }
}

TEST_F(GeneratedValues, ReplaceTheWholeDescriptor) {
    const CItemDef item = Item(4025, Codes(), R"(N,"1","0",R 2.1,<1;5>,(1;2))");
    EXPECT_EQ(item.Format, 'C');
    EXPECT_EQ(item.HasDefault, 0);
    EXPECT_EQ(item.HasFill, 0);
    EXPECT_EQ(item.HasModifiers, 0);
    EXPECT_EQ(item.HasRanges, 0);
    EXPECT_EQ(item.Modifiers, "");
    EXPECT_THAT(item.Values, ElementsAre("R1", "R2"));
}

TEST_F(GeneratedValues, ReplaceEvenABadDescriptor) {
    EXPECT_THAT(Item(4025, Codes(), "Q").Values.size(), 2U);
}

TEST_F(GeneratedValues, AreNotMadeForTheFirstLineOnPurpose) {
    const tabvex::CLayout layout =
        Make(CTableBuilder().Section("X4").Item(4025, 3, 8, "C,,,,,(\"own\")").Item(4055, 3, 8, "C"), "X4", Codes());
    EXPECT_THAT(layout.Find(4025)->Values, ElementsAre("own"));
    EXPECT_EQ(layout.Find(4055)->Values.size(), 8U);
}

TEST_F(GeneratedValues, WithoutListsTheTablesOwnDescriptorStays) {
    for (const int number : {4055, 4070, 4085, 19255, 19270, 4555, 4515, 4025, 19225, 6015, 6515}) {
        EXPECT_THAT(Item(number, {}).Values, ElementsAre("own")) << number;
    }
}

TEST_F(GeneratedValues, WithoutACodeOfTheItemsKindsTheTablesOwnDescriptorStays) {
    tabvex::CLayoutCodes codes;
    AddCode(codes, "K0", 0);
    AddCode(codes, "K9", 9);
    for (const int number : {4055, 4070, 4085, 19255, 19270, 4555}) {
        EXPECT_THAT(Item(number, codes).Values, ElementsAre("own")) << number;
    }
    AddCode(codes, "K5", 5);
    EXPECT_THAT(Item(4055, codes).Values, ElementsAre("K5"));
    EXPECT_THAT(Item(19255, codes).Values, ElementsAre("own"));
}

TEST_F(GeneratedValues, ABadDescriptorThatIsNotReplacedFails) {
    const tabvex::CLayout layout =
        Make(CTableBuilder().Section("X4").Item(4000, 2, 1, "C").Item(4025, 3, 8, "Q"), "X4");
    EXPECT_EQ(layout.GetResult(), -1);
}

TEST_F(GeneratedValues, TheDescriptorColumnMustBeThereToBeReplaced) {
    const tabvex::CLayout layout =
        Make(CTableBuilder().Section("X4").Item(4000, 2, 1, "C").Line("4025|3|8"), "X4", Codes());
    EXPECT_EQ(layout.GetResult(), -1);
}

TEST_F(GeneratedValues, StandInListOrderWithRepeatedCodesAndBlanks) {
    tabvex::CLayoutCodes codes;
    AddCode(codes, "ZZ", 3);
    AddCode(codes, "no", 0);
    AddCode(codes, "AA", 3);
    AddCode(codes, "ZZ", 3);
    codes.All.Add("E G");
    codes.All.Add("A");
    EXPECT_THAT(Item(4070, codes).Values, ElementsAre("ZZ", "AA", "ZZ"));
    EXPECT_THAT(Item(4025, codes).Values, ElementsAre("E G", "A"));
}

// --- Defaults
// ------------------------------------------------------------------------------------------------------------------

class Defaults : public Layout {
protected:
    // Fills a line of blanks; the line behind the count.
    struct CFilled {
        int Result;
        std::string Line;
    };

    static CFilled Fill(const tabvex::CLayout& layout, std::size_t length = 128) {
        std::string line(length + 3, ' ');
        const int result = layout.FillDefaults(line.data(), static_cast<int>(length));
        EXPECT_EQ(line.substr(length), "   ") << "written behind the line";
        return {result, line.substr(0, length)};
    }

    // What a single item of five characters at position 3 puts into the line; "none" without a default.
    std::string Put(const std::string& descriptor) {
        const CFilled filled = Fill(OfLines({"1000|5|3|" + descriptor}));
        EXPECT_EQ(filled.Line.substr(0, 2) + filled.Line.substr(7), std::string(123, ' ')) << descriptor;
        if (filled.Result == 0) {
            EXPECT_EQ(filled.Line, std::string(128, ' ')) << descriptor;
            return "none";
        }
        EXPECT_EQ(filled.Result, 1) << descriptor;
        return filled.Line.substr(2, 5);
    }
};

TEST_F(Defaults, AreTakenByPositionAndNotByTheGrammar) {
    struct {
        const char* Descriptor;
        const char* Expected;
    } const rows[] = {
        {R"(C,"abcde")", "abcde"},
        {R"(N,"12345")", "12345"},
        {R"(U,"abcde","x",L)", "abcde"},
        {R"(C,"abcdefgh")", "abcde"},
        {R"(C," a b ")", " a b "},
        {R"(Q,"abcde")", "abcde"}, // no format letter
        {R"(CC"abcde")", "abcde"}, // no comma
        {R"(C,"abcde)", "abcde"},  // no closing quote
        {"C", "none"},
        {"", "none"},
        {R"(C,"a)", "none"}, // shorter than five characters
        {R"(C,"")", "none"},
        {R"(C,"","x")", "none"},   // empty
        {R"(C, "abcde")", "none"}, // the quote is the fourth character
        {R"(C"abcde")", "none"},   // the quote is the second character
        {R"(C,,"abcde")", "none"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Put(row.Descriptor), row.Expected) << row.Descriptor;
    }
}

TEST_F(Defaults, AShortDefaultIsFollowedByNulsAndNotByBlanksOnPurpose) {
    EXPECT_EQ(Put("C,\"ab\""), "ab" + Nuls(3));
    EXPECT_EQ(Put("C,\" \","), " " + Nuls(4));
    EXPECT_EQ(Put("C,\"a\""), "a" + Nuls(4)); // five characters with the closing quote
}

TEST_F(Defaults, AreCountedAndPutForEveryItem) {
    const CFilled filled =
        Fill(OfLines({"1000|2|1|C,\"X1\"", "1005|4|3|C", "1010|3|7|C,\"abc\"", "1015|1|128|C,\"z\""}));
    EXPECT_EQ(filled.Result, 3);
    EXPECT_EQ(filled.Line, Padded("X1    abc", 127) + "z");
}

TEST_F(Defaults, OfLaterLinesOverwriteThoseOfEarlierOnes) {
    const CFilled filled = Fill(OfLines({"1000|4|1|C,\"abcd\"", "1005|3|3|C,\"x\""}));
    EXPECT_EQ(filled.Result, 2);
    EXPECT_EQ(filled.Line, "abx" + Nuls(2) + std::string(123, ' '));
}

TEST_F(Defaults, OutsideTheLineAreCountedAndNotPut) {
    struct {
        const char* Line;
        std::string Expected;
    } const rows[] = {
        {"1000|3|0|C,\"abc\"", Padded("")},
        {"1000|3|-5|C,\"abc\"", Padded("")},
        {"1000|3|129|C,\"abc\"", Padded("")},
        {"1000|3|2147483647|C,\"abc\"", Padded("")},
        {"1000|3|127|C,\"abc\"", Padded("", 126) + "ab"},
        {"1000|9|126|C,\"a\"", Padded("", 125) + "a" + Nuls(2)},
        {"1000|2147483647|127|C,\"abc\"", Padded("", 126) + "ab"},
        {"1000|2147483647|128|C,\"a\"", Padded("", 127) + "a"},
    };
    for (const auto& row : rows) {
        const CFilled filled = Fill(OfLines({row.Line}));
        EXPECT_EQ(filled.Result, 1) << row.Line;
        EXPECT_EQ(filled.Line, row.Expected) << row.Line;
    }
}

TEST_F(Defaults, OfItemsWithoutALengthAreNone) {
    for (const char* line : {"1000|0|1|C,\"abc\"", "1000||1|C,\"abc\"", "1000|-3|1|C,\"abc\""}) {
        const CFilled filled = Fill(OfLines({line}));
        EXPECT_EQ(filled.Result, 0) << line;
        EXPECT_EQ(filled.Line, Padded("")) << line;
    }
}

TEST_F(Defaults, GoUpToALengthOrPositionThatCannotBeRead) {
    for (const char* line : {"1005", "1005|2"}) {
        const CFilled filled = Fill(OfLines({"1000|2|1|C,\"ab\"", line, "1010|2|5|C,\"ef\""}));
        EXPECT_EQ(filled.Result, TABVEX_COLUMN_BEYOND_LINE) << line;
        EXPECT_EQ(filled.Line, Padded("ab")) << line;
    }
}

TEST_F(Defaults, GoUpToADescriptorThatIsNotThereAndAreNotCountedThen) {
    const CFilled filled = Fill(OfLines({"1000|2|1|C,\"ab\"", "1005|2|3", "1010|2|5|C,\"ef\""}));
    EXPECT_EQ(filled.Result, 0);
    EXPECT_EQ(filled.Line, Padded("ab"));
}

TEST_F(Defaults, FailWithTheCodeOfTheColumnThatCannotBeRead) {
    const CTableBuilder table = CTableBuilder().Section("X1").Item(1000, 2, 1, "C,\"ab\"");
    EXPECT_EQ(Fill(Make(CTableBuilder(table).Header("NEWLINE", ""))).Result, TABVEX_COLUMN_NO_NEWLINE);
    EXPECT_EQ(Fill(Make(CTableBuilder(table).Header("DELIMITER", ""))).Result, TABVEX_COLUMN_NO_DELIMITER);
}

TEST_F(Defaults, DoNotNeedAGoodLayout) {
    const tabvex::CLayout layout = OfLines({"1000|2|1|Q,\"ab\"", "1005|2|3|Q,\"cd\""});
    EXPECT_EQ(layout.GetResult(), -100);
    EXPECT_EQ(Fill(layout).Result, 2);
    EXPECT_EQ(Fill(layout).Line, Padded("abcd"));
}

TEST_F(Defaults, AreThoseOfTheTableWhereValuesComeFromCodeLists) {
    tabvex::CLayoutCodes codes;
    codes.All.Add("R1");
    const tabvex::CLayout layout =
        Make(CTableBuilder().Section("X6").Item(6000, 2, 1, "C").Item(6015, 2, 8, "C,\"E \""), "X6", codes);
    EXPECT_EQ(Fill(layout).Line, Padded("       E "));
    EXPECT_EQ(layout.Find(6015)->HasDefault, 0);
}

TEST_F(Defaults, WithoutASectionOrATypeAreNone) {
    EXPECT_EQ(Fill(Make(CTableBuilder(), "X1")).Result, 0);
    EXPECT_EQ(Fill(Make(CTableBuilder().Section("X1").Item(1000, 2, 1, "C,\"ab\""), "")).Result, 0);
}

TEST_F(Defaults, OfLongLinesGoUpToTheirEnd) {
    const tabvex::CLayout layout =
        Make(CTableBuilder().Section("FZ").Item(200000, 3, 638, "C,\"abc\"").Item(200005, 3, 640, "C,\"xyz\""), "FZ");
    EXPECT_EQ(Fill(layout, 640).Result, 2);
    EXPECT_EQ(Fill(layout, 640).Line, Padded("", 637) + "abx");
}

// Nine empty counters, each of two blanks, nine zeros and a plus.
constexpr const char* kCounters = "  000000000+  000000000+  000000000+  000000000+  000000000+  000000000+  000000000+"
                                  "  000000000+  000000000+";

TEST_F(Defaults, OfTwoCalculationTypesEndWithEmptyCounters) {
    const std::string counters = std::string(18, ' ') + kCounters + "  ";
    for (const char* type : {"K110_01", "K110_02"}) {
        const CFilled without = Fill(Make(CTableBuilder(), type));
        EXPECT_EQ(without.Result, 0) << type;
        EXPECT_EQ(without.Line, counters) << type;
        const CFilled with = Fill(Make(CTableBuilder().Section(type).Item(101000, 4, 17, "C,\"abcd\""), type));
        EXPECT_EQ(with.Result, 1) << type;
        EXPECT_EQ(with.Line, std::string(16, ' ') + "ab" + kCounters + "  ") << type;
    }
}

TEST_F(Defaults, OfOtherTypesHaveNoCounters) {
    for (const char* type : {"K110_03", "K101_01", "X1", "K110"}) {
        EXPECT_EQ(Fill(Make(CTableBuilder(), type)).Line, Padded("")) << type;
    }
}

TEST_F(Defaults, ThatEndEarlyHaveNoCounters) {
    for (const char* line : {"101005", "101005|2", "101005|2|3"}) {
        const tabvex::CLayout layout = Make(CTableBuilder().Section("K110_01").Line(line), "K110_01");
        EXPECT_EQ(Fill(layout).Line, Padded("")) << line;
    }
}

// --- Sums
// -------------------------------------------------------------------------------------------------------------------------

class LengthSums : public Layout {};

TEST_F(LengthSums, CountEveryItemBetweenTheTwoNumbers) {
    const tabvex::CLayout layout =
        OfLines({"1000|1|1|C", "1005|20|2|C", "1010|300|9|C", "1005|4000|9|C", "1015|50000|9|C"});
    struct {
        int Lowest;
        int Highest;
        int Sum;
    } const rows[] = {
        {1000, 1015, 54321}, {1005, 1010, 4320}, {1005, 1005, 4020}, {1001, 1004, 0},
        {1004, 1006, 4020},  {1015, 1000, 0},    {0, 999, 0},        {INT_MIN, INT_MAX, 54321},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(layout.SumLengths(row.Lowest, row.Highest), row.Sum) << row.Lowest << " " << row.Highest;
    }
}

TEST_F(LengthSums, AreZeroWithoutASection) {
    EXPECT_EQ(Make(CTableBuilder(), "X1").SumLengths(INT_MIN, INT_MAX), 0);
    EXPECT_EQ(Make(CTableBuilder().Section("X1").Section("W1").Line("1|2|3|C"), "X1").SumLengths(0, INT_MAX), 0);
}

TEST_F(LengthSums, TakeALineWithoutANumberAsItemZero) {
    const tabvex::CLayout layout = OfLines({"1000|1|1|C", "|20|1|C", "abc|300|1|C"});
    EXPECT_EQ(layout.SumLengths(0, 0), 320);
    EXPECT_EQ(layout.SumLengths(0, 1000), 321);
    EXPECT_EQ(layout.SumLengths(1, 1000), 1);
}

TEST_F(LengthSums, TakeALengthThatIsNotThereAsZero) {
    EXPECT_EQ(OfLines({"1000|1|1|C", "1005||1|C", "1010", "1015|2x|1|C"}).SumLengths(1000, 1015), 3);
}

TEST_F(LengthSums, DoNotNeedAGoodLayout) {
    const tabvex::CLayout layout = OfLines({"1000|1|1|Q", "1005|20|", "1010|300"});
    EXPECT_EQ(layout.GetResult(), -100);
    EXPECT_EQ(layout.SumLengths(1000, 1010), 321);
}

TEST_F(LengthSums, AreZeroWhereNoColumnIsReadable) {
    const CTableBuilder table = CTableBuilder().Section("X1").Item(1000, 2, 1, "C");
    EXPECT_EQ(Make(CTableBuilder(table).Header("NEWLINE", "")).SumLengths(INT_MIN, INT_MAX), 0);
}

TEST_F(LengthSums, ThatLeaveTheRangeOfNumbersStayAtItsEnd) {
    const tabvex::CLayout layout = OfLines({"1000|2147483647|1|C", "1005|2147483647|1|C", "1010|99999999999|1|C"});
    EXPECT_EQ(layout.SumLengths(1000, 1000), INT_MAX);
    EXPECT_EQ(layout.SumLengths(1000, 1010), INT_MAX);
}

} // namespace
