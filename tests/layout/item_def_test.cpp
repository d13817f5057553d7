#include "tabvex/item_def.h"

#include <climits>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/decimal_comma_locale.h"
#include "tabvex/result_codes.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kLength = 10;

CItemDef ItemOfLength(int length) {
    CItemDef item;
    item.Length = length;
    return item;
}

CItemDef Parsed(const std::string& descriptor) {
    CItemDef item = ItemOfLength(kLength);
    EXPECT_EQ(item.ParseFormat(descriptor.c_str()), TABVEX_OK) << "descriptor: " << descriptor;
    return item;
}

int ResultOf(const std::string& descriptor, int length = kLength) {
    CItemDef item = ItemOfLength(length);
    return item.ParseFormat(descriptor.c_str());
}

struct CResultRow {
    const char* Descriptor;
    int Result;
};

void ExpectResults(std::initializer_list<CResultRow> rows) {
    for (const CResultRow& row : rows) {
        EXPECT_EQ(ResultOf(row.Descriptor), row.Result) << "descriptor: " << row.Descriptor;
    }
}

bool Holds(std::string_view letters, char letter) {
    return letters.find(letter) != std::string_view::npos;
}

bool IsRefusedCombination(std::string_view letters) {
    return (Holds(letters, 'R') && Holds(letters, 'L')) || (Holds(letters, 'E') && Holds(letters, 'B'));
}

// The subset of the six modifier letters that the bits of `bits` choose, in the order of `order`.
std::string Subset(unsigned bits, std::string_view order) {
    std::string letters;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if ((bits >> i & 1U) != 0) {
            letters += order[i];
        }
    }
    return letters;
}

std::string Text(const CItemRange& range) {
    return range.LowerKind + range.LowerBound + ' ' + range.UpperKind + range.UpperBound;
}

std::vector<std::string> RangesOf(const std::string& descriptor) {
    std::vector<std::string> ranges;
    for (const CItemRange& range : Parsed(descriptor).Ranges) {
        ranges.push_back(Text(range));
    }
    return ranges;
}

TEST(ItemDef, ANewDefinitionIsALeftAlignedCharacterItem) {
    const CItemDef item;
    EXPECT_EQ(item.Format, 'C');
    EXPECT_EQ(item.Default, "");
    EXPECT_EQ(item.Fill, ' ');
    EXPECT_EQ(item.Modifiers, "L");
    EXPECT_EQ(item.IntDigits, 0);
    EXPECT_EQ(item.Decimals, 0);
    EXPECT_EQ(item.DatePattern, "");
    EXPECT_THAT(item.Values, IsEmpty());
    EXPECT_THAT(item.Ranges, IsEmpty());
    EXPECT_EQ(item.HasDefault + item.HasFill + item.HasModifiers + item.HasRanges + item.HasValues, 0);
    EXPECT_EQ(item.HasDatePattern, 0);
    EXPECT_EQ(item.Length + item.Position + item.Number, 0);
}

TEST(ItemDef, TheLetterCAloneIsAnItemWithoutAnything) {
    const CItemDef item = Parsed("C");
    EXPECT_EQ(item.Format, 'C');
    EXPECT_EQ(item.Default, "");
    EXPECT_EQ(item.Fill, ' ');
    EXPECT_EQ(item.Modifiers, "");
    EXPECT_EQ(item.HasDefault + item.HasFill + item.HasModifiers + item.HasRanges + item.HasValues, 0);
    EXPECT_EQ(item.HasDatePattern, 0);
}

TEST(ItemDef, ParsingLeavesLengthPositionAndNumberAlone) {
    CItemDef item = ItemOfLength(9);
    item.Position = 17;
    item.Number = 4040;
    EXPECT_EQ(item.ParseFormat("N,,,R 7.2"), TABVEX_OK);
    EXPECT_EQ(item.Length, 9);
    EXPECT_EQ(item.Position, 17);
    EXPECT_EQ(item.Number, 4040);
}

TEST(ItemDef, EveryComponentIsTaken) {
    const CItemDef item = Parsed(R"(N,"1,5","0",RSP 7.2,<-5;10,5),(1;2.5;-3),YYYYMM)");
    EXPECT_EQ(item.Format, 'N');
    EXPECT_EQ(item.Default, "1,5");
    EXPECT_EQ(item.HasDefault, 1);
    EXPECT_EQ(item.Fill, '0');
    EXPECT_EQ(item.HasFill, 1);
    EXPECT_EQ(item.Modifiers, "RSP");
    EXPECT_EQ(item.HasModifiers, 1);
    EXPECT_EQ(item.IntDigits, 7);
    EXPECT_EQ(item.Decimals, 2);
    ASSERT_EQ(item.Ranges.size(), 1U);
    EXPECT_EQ(Text(item.Ranges[0]), "=-5 <10,5");
    EXPECT_EQ(item.HasRanges, 1);
    EXPECT_THAT(item.Values, ElementsAre("1", "2.5", "-3"));
    EXPECT_EQ(item.HasValues, 1);
    EXPECT_EQ(item.DatePattern, "YYYYMM");
    EXPECT_EQ(item.HasDatePattern, 1);
}

TEST(ItemDef, ADescriptorMayEndBehindAnyComponent) {
    ExpectResults({
        {"C,\"x\"", 0},
        {R"(C,"x","0")", 0},
        {R"(C,"x","0",R 5.2)", 0},
        {R"(C,"x","0",R 5.2,<a;b>)", 0},
        {R"(C,"x","0",R 5.2,<a;b>,("a"))", 0},
        {R"(C,"x","0",R 5.2,<a;b>,("a"),YYYY)", 0},
    });
}

TEST(ItemDef, ComponentsMayBeLeftEmpty) {
    ExpectResults({
        {"C,", 0},
        {"C,,", 0},
        {"C,,,", 0},
        {"C,,,,", 0},
        {"C,,,,,", 0},
        {"C,,,,,,", 0},
        {"C,,,,,,,", 0},
        {"U,,,,,,", 0},
        {"N,,,,,,", 0},
        {"D,,,,,,DD.MM.YYYY", 0},
        {"C,,\"0\"", 0},
        {"C,\"x\",,R,", 0},
        {"C,,,,<a;b>", 0},
        {"C,,,,,(\"a\")", 0},
        {"C,,,,,,YYYY", 0},
    });
}

TEST(ItemDef, EachComponentFailsWithItsNumberWhereAnotherCharacterThanACommaStands) {
    ExpectResults({
        {"Cx", 2},
        {"CC", 2},
        {"C \"x\"", 2},
        {"C;", 2},
        {"C,\"x\"x", 3},
        {R"(C,"x""y")", 3},
        {"C,,\"0\"x", 4},
        {"C,,\"0\" ,", 4},
        {"C,,,R 5.2x", 5},
        {"C,,,R 5.2 ", 5},
        {"C,,,R 5.23", 5},
        {"C,,,,<a;b>x", 5},
        {"C,,,,,(\"a\")x", 7},
        {R"(C,,,,,("a")("b"))", 7},
    });
}

// Format letter

TEST(ItemDef, TheFormatLetterIsOneOfFour) {
    for (const char* descriptor : {"C", "U", "N", "D,,,,,,DD.MM.YYYY"}) {
        EXPECT_EQ(Parsed(descriptor).Format, descriptor[0]);
    }
}

TEST(ItemDef, AnythingButAFormatLetterFailsWith1) {
    ExpectResults({{"", 1}, {" ", 1}, {" C", 1}, {"c", 1}, {"n", 1}, {"X", 1}, {",", 1}, {"\"C\"", 1}, {"\xC3", 1}});
    for (int c = 1; c < 256; ++c) {
        const std::string descriptor(1, static_cast<char>(c));
        const int expected = c == 'C' || c == 'U' || c == 'N' ? 0 : c == 'D' ? 7 : 1;
        EXPECT_EQ(ResultOf(descriptor), expected) << "character " << c;
    }
}

TEST(ItemDef, ANullDescriptorIsABadFormatLetter) {
    CItemDef item;
    EXPECT_EQ(item.ParseFormat(nullptr), TABVEX_DESCRIPTOR_BAD_FORMAT);
    EXPECT_EQ(item.Modifiers, "L");
}

// Default text

TEST(ItemDef, TheDefaultRunsToTheNextQuote) {
    EXPECT_EQ(Parsed("C,\"abc\"").Default, "abc");
    EXPECT_EQ(Parsed("C,\" a,b;c \",\"0\"").Default, " a,b;c ");
    EXPECT_EQ(Parsed("C,\"\\\"").Default, "\\");
    EXPECT_EQ(Parsed("N,\"not a number\"").Default, "not a number");
    EXPECT_EQ(Parsed("C,\"" + std::string(400, 'x') + "\"").Default, std::string(400, 'x'));
}

TEST(ItemDef, AnEmptyQuotedDefaultDoesNotCountAsOne) {
    const CItemDef item = Parsed("C,\"\"");
    EXPECT_EQ(item.Default, "");
    EXPECT_EQ(item.HasDefault, 0);
}

TEST(ItemDef, ADefaultWithoutBothQuotesFailsWith2) {
    ExpectResults(
        {{"C,x", 2}, {"C,x\"", 2}, {"C, \"x\"", 2}, {"C,\"", 2}, {"C,\"x", 2}, {"C,\"x,,R,", 2}, {"C,'x'", 2}});
}

TEST(ItemDef, AFailedDefaultIsReset) {
    CItemDef item = Parsed("C,\"abc\"");
    EXPECT_EQ(item.ParseFormat("C,\"x"), TABVEX_DESCRIPTOR_BAD_DEFAULT);
    EXPECT_EQ(item.Default, "");
    EXPECT_EQ(item.HasDefault, 0);
}

// Fill

TEST(ItemDef, TheFillIsOneQuotedCharacter) {
    for (const char fill : {'0', ' ', ',', ';', '*', '\xE4'}) {
        const CItemDef item = Parsed(std::string("C,,\"") + fill + '"');
        EXPECT_EQ(item.Fill, fill);
        EXPECT_EQ(item.HasFill, 1);
    }
}

TEST(ItemDef, AQuoteMayBeTheFill) {
    EXPECT_EQ(Parsed("C,,\"\"\"").Fill, '"');
    EXPECT_EQ(Parsed("C,,\"\"\",R,").Fill, '"');
}

TEST(ItemDef, AnyOtherFillFailsWith3) {
    ExpectResults({{"C,,\"", 3},
                   {"C,,\"\"", 3},
                   {"C,,\"\",", 3},
                   {"C,,\"0", 3},
                   {"C,,\"00\"", 3},
                   {"C,,0", 3},
                   {"C,,0\"", 3},
                   {"C,, \"0\"", 3},
                   {"C,,'0'", 3},
                   {"C,,\"0'", 3}});
}

// Modifiers and digits

TEST(ItemDef, OfThe64ModifierCombinationsThoseWithRAndLOrEAndBAreRefused) {
    int accepted = 0;
    for (unsigned bits = 0; bits < 64; ++bits) {
        for (const char* order : {"LRSEPB", "BPESRL", "PLEBRS"}) {
            const std::string letters = Subset(bits, order);
            SCOPED_TRACE("modifiers " + letters);
            const int expected = IsRefusedCombination(letters) ? TABVEX_DESCRIPTOR_BAD_MODIFIERS : TABVEX_OK;
            CItemDef item = ItemOfLength(kLength);
            EXPECT_EQ(item.ParseFormat(("C,,," + letters + ",").c_str()), expected);
            EXPECT_EQ(item.HasModifiers, expected == TABVEX_OK && !letters.empty());
            EXPECT_EQ(item.Modifiers, letters);
            const bool isGood = expected == TABVEX_OK && !letters.empty();
            EXPECT_EQ(ResultOf("N,,," + letters + " 8.2"), isGood ? TABVEX_OK : TABVEX_DESCRIPTOR_BAD_MODIFIERS);
        }
        accepted += IsRefusedCombination(Subset(bits, "LRSEPB")) ? 0 : 1;
    }
    EXPECT_EQ(accepted, 36); // 3 of L and R, times 3 of E and B, times 4 of S and P
}

TEST(ItemDef, ModifiersAreOneToSixLettersEndedByABlankOrAComma) {
    ExpectResults({
        {"C,,,R,", 0},      {"C,,,RRRRRR,", 0}, {"C,,,RSEPSE,", 0}, {"C,,,RRRRRRR,", 4}, {"C,,,RSEPSES 5.2", 4},
        {"C,,,R", 4},       {"C,,,RSEP", 4},    {"C,,,RL", 4},      {"C,,,EB", 4},       {"C,,,LRSEPB", 4},
        {"C,,,LRSEPB,", 4}, {"C,,, 5.2", 4},    {"C,,, ,", 4},      {"C,,,X,", 4},       {"C,,,RX,", 4},
        {"C,,,r,", 4},      {"C,,,R;", 4},      {"C,,,R\t5.2", 4},  {"C,,,5.2", 4},      {"C,,,\"R\",", 4},
    });
}

TEST(ItemDef, NumbersWithModifiersMustStateTheirDigits) {
    ExpectResults({
        {"N", 0},
        {"N,,,", 0},
        {"N,,,,<1;2>", 0},
        {"N,,,R,", 4},
        {"N,,,R,<1;2>", 4},
        {"N,,,R", 4},
        {"N,,,R ", 4},
        {"N,,,R 7.2", 0},
        {"C,,,R,", 0},
        {"U,,,R,", 0},
        {"D,,,R,,,DD.MM.YYYY", 0},
    });
}

TEST(ItemDef, ModifiersWithoutDigitsLeaveTheCountsAtZero) {
    const CItemDef item = Parsed("C,,,RS,<a;b>");
    EXPECT_EQ(item.Modifiers, "RS");
    EXPECT_EQ(item.HasModifiers, 1);
    EXPECT_EQ(item.IntDigits, 0);
    EXPECT_EQ(item.Decimals, 0);
}

TEST(ItemDef, DigitCountsAreOneOrTwoDigitsAPointAndOneDigit) {
    ExpectResults({
        {"N,,,R 0.0", 0},  {"N,,,R 1.0", 0},  {"N,,,R 1.9", 0},   {"N,,,R 10.0", 0}, {"N,,,R 07.2", 0},
        {"N,,,R 7.2,", 0}, {"N,,,R .2", 4},   {"N,,,R 7", 4},     {"N,,,R 7,", 4},   {"N,,,R 7.", 4},
        {"N,,,R 7.,", 4},  {"N,,,R 7,2", 4},  {"N,,,R 007.2", 4}, {"N,,,R  7.2", 4}, {"N,,,R +7.2", 4},
        {"N,,,R -7.2", 4}, {"N,,,R 7 .2", 4}, {"N,,,R 7. 2", 4},  {"N,,,R 7.-", 4},  {"N,,,R x.2", 4},
        {"N,,,R 7x.2", 4}, {"N,,,R 7.x", 4},  {"N,,,R ,1.5", 4},
    });
}

TEST(ItemDef, DigitCountsMustFitTheLength) {
    EXPECT_EQ(ResultOf("N,,,R 7.2", 9), 0);
    EXPECT_EQ(ResultOf("N,,,R 7.2", 8), 4);
    EXPECT_EQ(ResultOf("N,,,R 99.9", 108), 0);
    EXPECT_EQ(ResultOf("N,,,R 99.9", 107), 4);
    EXPECT_EQ(ResultOf("N,,,R 0.0", 0), 0);
    EXPECT_EQ(ResultOf("N,,,R 0.1", 0), 4);
    EXPECT_EQ(ResultOf("N,,,R 0.0", -1), 4);
    EXPECT_EQ(ResultOf("N,,,R 0.0", INT_MIN), 4);
    EXPECT_EQ(ResultOf("N,,,R 99.9", INT_MAX), 0);
    EXPECT_EQ(ResultOf("C,,,R 7.2", 8), 4);
    EXPECT_EQ(ResultOf("C,,,R,", 0), 0);
}

TEST(ItemDef, DigitCountsAreTaken) {
    CItemDef item = ItemOfLength(200);
    EXPECT_EQ(item.ParseFormat("N,,,LSP 99.9,,"), TABVEX_OK);
    EXPECT_EQ(item.IntDigits, 99);
    EXPECT_EQ(item.Decimals, 9);
    EXPECT_EQ(item.Modifiers, "LSP");
}

// Ranges

TEST(ItemDef, BracketsTellWhetherABoundIsIncluded) {
    EXPECT_THAT(RangesOf("N,,,,<1;2>"), ElementsAre("=1 =2"));
    EXPECT_THAT(RangesOf("N,,,,(1;2)"), ElementsAre(">1 <2"));
    EXPECT_THAT(RangesOf("N,,,,<1;2)"), ElementsAre("=1 <2"));
    EXPECT_THAT(RangesOf("N,,,,(1;2>"), ElementsAre(">1 =2"));
}

TEST(ItemDef, AnEmptyBoundIsOpen) {
    EXPECT_THAT(RangesOf("N,,,,(;10>"), ElementsAre(">-inf =10"));
    EXPECT_THAT(RangesOf("N,,,,<5;)"), ElementsAre("=5 <+inf"));
    EXPECT_THAT(RangesOf("N,,,,<;>"), ElementsAre("=-inf =+inf"));
    EXPECT_THAT(RangesOf("C,,,,(;b>"), ElementsAre(">-inf =b"));
}

TEST(ItemDef, OpenBoundsOfDateRangesAreAccepted) {
    EXPECT_THAT(RangesOf("D,,,,<;2015-03-24>,,DD.MM.YYYY"), ElementsAre("=-inf =2015-03-24"));
    EXPECT_THAT(RangesOf("D,,,,(2015-03-24;),,DD.MM.YYYY"), ElementsAre(">2015-03-24 <+inf"));
    EXPECT_THAT(RangesOf("D,,,,(;),,DD.MM.YYYY"), ElementsAre(">-inf <+inf"));
}

TEST(ItemDef, SeveralRangesAreKeptInOrder) {
    EXPECT_THAT(RangesOf("N,,,,<1;2>;(3;4);<-9;-8.5>,(1)"), ElementsAre("=1 =2", ">3 <4", "=-9 =-8.5"));
}

TEST(ItemDef, TheLowerNumberMustBeLessThanTheUpper) {
    ExpectResults({
        {"N,,,,<5;10>", 0},
        {"N,,,,<-1;0>", 0},
        {"N,,,,<1,5;1.6>", 0},
        {"N,,,,<9;10>", 0},
        {"N,,,,<2147483648;1e30>", 0},
        {"N,,,,<10;5>", 5},
        {"N,,,,<5;5>", 5},
        {"N,,,,(5;5)", 5},
        {"N,,,,<5;5.0>", 5},
        {"N,,,,<0;-1>", 5},
        {"N,,,,<1,6;1.5>", 5},
    });
}

TEST(ItemDef, BoundsOfNumbersMustBeNumbers) {
    ExpectResults({
        {"N,,,,<x;10>", 5},
        {"N,,,,<1;x>", 5},
        {"N,,,,<1x;10>", 5},
        {"N,,,,<1;10 >", 5},
        {"N,,,,< ;10>", 5},
        {"N,,,,<-;10>", 5},
        {"N,,,,<;x>", 5},
        {"N,,,,<-inf;10>", 5},
        {"N,,,,<1;+inf>", 5},
        {"N,,,,<nan;10>", 5},
        {"N,,,,<0x1;10>", 5},
        {"N,,,,<1;1e400>", 5},
        {"N,,,,<1;2;3>", 5},
    });
}

TEST(ItemDef, BoundsOfDatesMustBeDatesInOrder) {
    ExpectResults({
        {"D,,,,<2015-03-24;2015-03-25>,,DDMMYY", 0},
        {"D,,,,<2014-12-30;2015-01-01>,,DDMMYY", 0},
        {"D,,,,<2016-02-29;2016-03-01>,,DDMMYY", 0},
        {"D,,,,<2015-03-24;2015-03-24>,,DDMMYY", 5},
        {"D,,,,<2015-03-25;2015-03-24>,,DDMMYY", 5},
        {"D,,,,<2015-03-24;2015-03-24x>,,DDMMYY", 5},
        {"D,,,,<2015-02-29;2015-03-24>,,DDMMYY", 5},
        {"D,,,,<2015-08-31;2015-09-01>,,DDMMYY", 5},
        {"D,,,,<;2015-08-31>,,DDMMYY", 5},
        {"D,,,,<1;2>,,DDMMYY", 5},
        {"D,,,,<20150324;20150325>,,DDMMYY", 5},
    });
}

TEST(ItemDef, BoundsOfCharactersAreAnyText) {
    EXPECT_THAT(RangesOf("C,,,,<z;a>"), ElementsAre("=z =a"));
    EXPECT_THAT(RangesOf("U,,,,( , ;\"\")"), ElementsAre("> ,  <\"\""));
}

TEST(ItemDef, RangesOutOfFormFailWith5) {
    ExpectResults({
        {"N,,,,1;2", 5},    {"N,,,,[1;2]", 5},   {"N,,,, <1;2>", 5},    {"N,,,,;<1;2>", 5},     {"N,,,,<", 5},
        {"N,,,,<1", 5},     {"N,,,,<1;", 5},     {"N,,,,<1;2", 5},      {"N,,,,<1;2,,", 5},     {"N,,,,<1>", 5},
        {"N,,,,<>", 5},     {"C,,,,<a>", 5},     {"C,,,,<a>;<b;c>", 5}, {"N,,,,<1;2>x", 5},     {"N,,,,<1;2> ", 5},
        {"N,,,,<1;2>;", 5}, {"N,,,,<1;2>;,", 5}, {"N,,,,<1;2>;x", 5},   {"N,,,,<1;2><3;4>", 5}, {"N,,,,<1;2>;<4;3>", 5},
    });
}

// Values

TEST(ItemDef, ValuesOfCharactersAreStoredWithoutTheirQuotes) {
    EXPECT_THAT(Parsed("C,,,,,(\"A\";\"B\")").Values, ElementsAre("A", "B"));
    EXPECT_THAT(Parsed("U,,,,,(\"a b\")").Values, ElementsAre("a b"));
    EXPECT_THAT(Parsed("C,,,,,(\"\")").Values, ElementsAre(""));
    EXPECT_THAT(Parsed("C,,,,,(\"a\"b\";\",\";\"(\")").Values, ElementsAre("a\"b", ",", "("));
}

TEST(ItemDef, ValuesOfNumbersAndDatesAreStoredAsWritten) {
    EXPECT_THAT(Parsed("N,,,,,(1;2.5;2,5;-7;+1)").Values, ElementsAre("1", "2.5", "2,5", "-7", "+1"));
    EXPECT_THAT(Parsed("D,,,,,(2016-02-29;2015-01-01),DDMMYY").Values, ElementsAre("2016-02-29", "2015-01-01"));
}

TEST(ItemDef, AllTheCodesOfAListBecomeValues) {
    std::string descriptor = "C,,,,,(\"code0\"";
    for (int i = 1; i < 1000; ++i) {
        descriptor += ";\"code" + std::to_string(i) + '"';
    }
    const CItemDef item = Parsed(descriptor + ')');
    ASSERT_EQ(item.Values.size(), 1000U);
    EXPECT_EQ(item.Values.front(), "code0");
    EXPECT_EQ(item.Values.back(), "code999");
}

TEST(ItemDef, ValuesOutOfFormFailWith6) {
    ExpectResults({
        {"C,,,,,(A;B)", 6},
        {"C,,,,,(\"A\";B)", 6},
        {R"(C,,,,,("A;"B"))", 6},
        {"C,,,,,(\"A;B\")", 6},
        {"C,,,,,(\"A)\")", 6},
        {"C,,,,,(\")", 6},
        {"C,,,,,()", 6},
        {"C,,,,,(;)", 6},
        {"C,,,,,(\"A\";)", 6},
        {"C,,,,,( \"A\")", 6},
        {"C,,,,,(\"A\" )", 6},
        {"C,,,,,(", 6},
        {"C,,,,,(\"A\"", 6},
        {R"(C,,,,,("A";"B")", 6},
        {"C,,,,,\"A\"", 6},
        {"C,,,,, (\"A\")", 6},
        {"C,,,,,<\"A\">", 6},
        {"C,,,,,A", 6},
        {"U,,,,,(A)", 6},
        {"N,,,,,(\"1\")", 6},
        {"N,,,,,(1;x)", 6},
        {"N,,,,,(1;)", 6},
        {"N,,,,,(1 )", 6},
        {"N,,,,,(inf)", 6},
        {"N,,,,,(1e400)", 6},
        {"N,,,,,()", 6},
        {"D,,,,,(2015-08-31),DDMMYY", 6},
        {"D,,,,,(24.03.2015),DDMMYY", 6},
        {"D,,,,,(\"2015-03-24\"),DDMMYY", 6},
    });
}

// Date pattern

TEST(ItemDef, ADateItemNeedsADatePattern) {
    ExpectResults({
        {"D", 7},
        {"D,", 7},
        {"D,\"x\"", 7},
        {"D,,\"0\"", 7},
        {"D,,,R,", 7},
        {"D,,,,<2015-03-24;>", 7},
        {"D,,,,,(2015-03-24)", 7},
        {"D,,,,,", 7},
        {"D,,,,,,", 7},
        {"D,,,,,,,DD.MM.YYYY", 7},
        {"D,,,,,,DD.MM.YYYY", 0},
    });
}

TEST(ItemDef, OtherItemsMayHaveADatePattern) {
    for (const char* descriptor : {"C,,,,,,DD.MM.YYYY", "U,,,,,,DD.MM.YYYY", "N,,,,,,DD.MM.YYYY"}) {
        const CItemDef item = Parsed(descriptor);
        EXPECT_EQ(item.DatePattern, "DD.MM.YYYY");
        EXPECT_EQ(item.HasDatePattern, 1);
    }
    ExpectResults({{"C,,,,,,X", 7}, {"C,,,,,, ", 7}, {"N,,,,,,dd", 7}, {"U,,,,,,DD.MM", 7}});
}

TEST(ItemDef, TheDatePatternIsKeptWithItsSeparators) {
    struct {
        const char* Written;
        const char* Kept;
    } const rows[] = {
        {"DD.MM.YYYY", "DD.MM.YYYY"},
        {"DDMMYY", "DDMMYY"},
        {"DD/MMYY", "DD/MMYY"},
        {"DD.MM.YYYY and more", "DD.MM.YYYY"},
        {"YYYYMMDD", "YYYYMMDD"},
        {"YYYY-MM-DD", "YYYY"},
        {"YYMM", "YYMM"},
        {"MM.YYYY", "MM.YYYY"},
        {"DDMMYYYY,", "DDMMYYYY"},
        {"YYYYMM,\"x\"", "YYYYMM"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Parsed(std::string("D,,,,,,") + row.Written).DatePattern, row.Kept) << "pattern: " << row.Written;
    }
}

TEST(ItemDef, OtherDatePatternsFailWith7) {
    ExpectResults({
        {"D,,,,,,X", 7},
        {"D,,,,,, DD.MM.YYYY", 7},
        {"D,,,,,,\"DD.MM.YYYY\"", 7},
        {"D,,,,,,dd.mm.yyyy", 7},
        {"D,,,,,,DD", 7},
        {"D,,,,,,DD.MM", 7},
        {"D,,,,,,DD.YYYY.MM", 7},
        {"D,,,,,,DD..MM.YYYY", 7},
        {"D,,,,,,DD.MM.YY,", 7},
        {"D,,,,,,MMYYDD", 7},
        {"D,,,,,,MM", 7},
        {"D,,,,,,YYY", 7},
    });
}

// Failures and parsing again

TEST(ItemDef, WhatComponentsBeforeTheFailureHaveSetStaysSet) {
    CItemDef item = ItemOfLength(kLength);
    EXPECT_EQ(item.ParseFormat("N,\"5\",\"0\",RS 7.2,<1;2>,(1),X"), TABVEX_DESCRIPTOR_BAD_DATE_PATTERN);
    EXPECT_EQ(item.Format, 'N');
    EXPECT_EQ(item.Default, "5");
    EXPECT_EQ(item.HasDefault, 1);
    EXPECT_EQ(item.Fill, '0');
    EXPECT_EQ(item.HasFill, 1);
    EXPECT_EQ(item.Modifiers, "RS");
    EXPECT_EQ(item.HasModifiers, 1);
    EXPECT_EQ(item.IntDigits, 7);
    EXPECT_EQ(item.Decimals, 2);
    EXPECT_EQ(item.Ranges.size(), 1U);
    EXPECT_EQ(item.HasRanges, 1);
    EXPECT_THAT(item.Values, ElementsAre("1"));
    EXPECT_EQ(item.HasValues, 1);
    EXPECT_EQ(item.HasDatePattern, 0);
}

TEST(ItemDef, TheModifierLSurvivesOnlyAFailureBeforeTheModifiers) {
    struct {
        const char* Descriptor;
        int Result;
        const char* Modifiers;
    } const rows[] = {
        {"X", 1, "L"},        {"C,x", 2, "L"},   {"C,,x", 3, "L"}, {"C,,,x", 4, ""},
        {"C,,\"0\"x", 4, ""}, {"C,,,,x", 5, ""}, {"C", 0, ""},     {"D", 7, ""},
    };
    for (const auto& row : rows) {
        CItemDef item = ItemOfLength(kLength);
        EXPECT_EQ(item.ParseFormat(row.Descriptor), row.Result) << "descriptor: " << row.Descriptor;
        EXPECT_EQ(item.Modifiers, row.Modifiers) << "descriptor: " << row.Descriptor;
    }
}

TEST(ItemDef, AFailedComponentIsNotMarkedAsGiven) {
    CItemDef item = ItemOfLength(kLength);
    EXPECT_EQ(item.ParseFormat("C,,\"00\""), 3);
    EXPECT_EQ(item.HasFill, 0);
    EXPECT_EQ(item.Fill, ' ');
    EXPECT_EQ(item.ParseFormat("N,,,R 7.9"), 4);
    EXPECT_EQ(item.HasModifiers, 0);
    EXPECT_EQ(item.ParseFormat("N,,,,<1;2>;<2;1>"), 5);
    EXPECT_EQ(item.HasRanges, 0);
    EXPECT_EQ(item.ParseFormat("N,,,,,(x)"), 6);
    EXPECT_EQ(item.HasValues, 0);
    EXPECT_EQ(item.ParseFormat("D,,,,,,DD.MM"), 7);
    EXPECT_EQ(item.HasDatePattern, 0);
    EXPECT_EQ(item.DatePattern, "");
}

TEST(ItemDef, ValuesCountAsGivenOnceTheFirstIsStored) {
    CItemDef item = ItemOfLength(kLength);
    EXPECT_EQ(item.ParseFormat("N,,,,,(1;x)"), TABVEX_DESCRIPTOR_BAD_VALUES);
    EXPECT_EQ(item.HasValues, 1);
    EXPECT_THAT(item.Values, ElementsAre("1"));
}

TEST(ItemDef, ParsingAgainReplacesTheLists) {
    CItemDef item = Parsed("N,,,,<1;2>;<3;4>,(1;2)");
    EXPECT_EQ(item.ParseFormat("N,,,,<5;6>,(7)"), TABVEX_OK);
    ASSERT_EQ(item.Ranges.size(), 1U);
    EXPECT_EQ(Text(item.Ranges[0]), "=5 =6");
    EXPECT_THAT(item.Values, ElementsAre("7"));
}

TEST(ItemDef, ParsingAgainResetsWhatTheNewDescriptorLacks) {
    CItemDef item = Parsed(R"(N,"5","0",RS 7.2,<1;2>,(1),YYYYMM)");
    EXPECT_EQ(item.ParseFormat("C"), TABVEX_OK);
    EXPECT_EQ(item.Format, 'C');
    EXPECT_EQ(item.Default, "");
    EXPECT_EQ(item.Fill, ' ');
    EXPECT_EQ(item.Modifiers, "");
    EXPECT_EQ(item.IntDigits, 0);
    EXPECT_EQ(item.Decimals, 0);
    EXPECT_THAT(item.Ranges, IsEmpty());
    EXPECT_THAT(item.Values, IsEmpty());
    EXPECT_EQ(item.DatePattern, "");
    EXPECT_EQ(item.HasDefault + item.HasFill + item.HasModifiers + item.HasRanges + item.HasValues, 0);
    EXPECT_EQ(item.HasDatePattern, 0);
}

TEST(ItemDef, ParsingAgainKeepsWhatLiesBehindAFailure) {
    CItemDef item = Parsed(R"(N,"5","0",RS 7.2,<1;2>,(1),YYYYMM)");
    EXPECT_EQ(item.ParseFormat("C,,x"), TABVEX_DESCRIPTOR_BAD_FILL);
    EXPECT_EQ(item.Format, 'C');
    EXPECT_EQ(item.HasDefault, 0);
    EXPECT_EQ(item.Modifiers, "RS");
    EXPECT_EQ(item.Ranges.size(), 1U);
    EXPECT_THAT(item.Values, ElementsAre("1"));
    EXPECT_EQ(item.DatePattern, "YYYYMM");
    EXPECT_EQ(item.ParseFormat("X"), TABVEX_DESCRIPTOR_BAD_FORMAT);
    EXPECT_EQ(item.Format, 'C');
}

// Anything a table file may hold

TEST(ItemDef, EveryCutOfADescriptorIsTakenOrFailsInTheComponentItEndsIn) {
    const std::string whole = R"(D,"x","0",RS 7.2,<2015-03-24;2015-03-25>,(2015-03-24),DD.MM.YYYY)";
    EXPECT_EQ(ResultOf(whole), TABVEX_OK);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const int result = ResultOf(whole.substr(0, size));
        const auto fits = [&](int component, std::size_t end) { return result != component || size <= end; };
        const bool endsWithYY = size == whole.size() - 2;
        EXPECT_EQ(result == TABVEX_OK, endsWithYY) << "characters " << size;
        EXPECT_TRUE(fits(1, 0) && fits(2, 4) && fits(3, 8) && fits(4, 15) && fits(5, 40) && fits(6, 53))
            << "characters " << size << ", result " << result;
    }
}

TEST(ItemDef, AnyByteAnywhereGivesAResult) {
    const std::string whole = R"(N,"x","0",RS 7.2,<1;2>;(3;4),(1;2.5),DD.MM.YYYY)";
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (int c = 0; c < 256; ++c) {
            std::string changed = whole;
            changed[at] = static_cast<char>(c);
            const int result = ResultOf(changed);
            EXPECT_TRUE(result >= 0 && result <= 7) << "byte " << c << " at " << at;
        }
    }
}

TEST(ItemDef, LongRunsOfOneCharacterGiveAResult) {
    for (const char c : {',', ';', '"', '(', '<', '>', ')', 'C', 'D', 'M', 'Y', 'R', '9', '.', ' ', '\xFF'}) {
        for (const char* begin : {"C", "N,", "C,,", "C,,,", "N,,,R ", "N,,,,<", "N,,,,,(", "D,,,,,,", "D,,,,,,DD"}) {
            const int result = ResultOf(begin + std::string(5000, c), INT_MAX);
            EXPECT_TRUE(result >= 0 && result <= 7) << begin << " and many " << c;
        }
    }
}

TEST(ItemDef, DescriptorsReadTheSameUnderADecimalCommaLocale) {
    const CDecimalCommaLocale locale;
    if (!locale.IsSet()) {
        GTEST_SKIP() << "no locale with a decimal comma is installed";
    }
    ExpectResults({
        {"N,,,R 7.2", 0},
        {"N,,,,<1.5;1.6>", 0},
        {"N,,,,<1,5;1,6>", 0},
        {"N,,,,<1.6;1.5>", 5},
        {"N,,,,<1,6;1,5>", 5},
        {"N,,,,,(1;2.5;2,5)", 0},
        {"N,,,,,(1.2.3)", 6},
    });
    EXPECT_THAT(Parsed("N,,,,,(2.5;2,5)").Values, ElementsAre("2.5", "2,5"));
}

} // namespace
