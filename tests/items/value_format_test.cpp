#include "items/value_format.h"

#include <climits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "items/number_fields.h"
#include "support/decimal_comma_locale.h"

namespace tabvex {
namespace {

constexpr int kTooLong = -45;
constexpr int kNotListed = -55;
constexpr int kNumberNotListed = -61;
constexpr int kOutOfRange = -62;
constexpr int kDoesNotFit = -65;
constexpr int kNotANumber = -66;
constexpr int kNoDatePattern = -74;
constexpr int kBadDate = -75;
constexpr int kBlank = -101;

constexpr char kNoFill = 0;
constexpr int kWidestField = 4096;

CItemDef Item(char format, int length) {
    CItemDef definition;
    definition.Format = format;
    definition.Length = length;
    definition.Modifiers = "";
    return definition;
}

CItemDef WithModifiers(CItemDef definition, const std::string& modifiers) {
    definition.HasModifiers = 1;
    definition.Modifiers = modifiers;
    return definition;
}

CItemDef Number(int length, int intDigits, int decimals, const std::string& modifiers, char fill = kNoFill) {
    CItemDef definition = WithModifiers(Item('N', length), modifiers);
    definition.IntDigits = intDigits;
    definition.Decimals = decimals;
    definition.HasFill = fill != kNoFill ? 1 : 0;
    definition.Fill = fill != kNoFill ? fill : 'x'; // a fill that is switched off shows nowhere
    return definition;
}

CItemDef Date(int length, const std::string& pattern) {
    CItemDef definition = Item('D', length);
    definition.HasDatePattern = 1;
    definition.DatePattern = pattern;
    return definition;
}

/// The field of a value, or the result code as a text when it is refused.
std::string Formatted(const CItemDef& definition, std::string_view value, bool check = true) {
    std::string field = "what was there before";
    const int result = FormatValue(definition, value, check, field);
    if (check) { // what callers are offered does the same
        std::string offered = "what was there before";
        EXPECT_EQ(definition.FormatValue(value, offered), result) << value;
        EXPECT_EQ(offered, field) << value;
    }
    if (result == 0) {
        return field;
    }
    EXPECT_EQ(field, "what was there before") << value;
    return std::to_string(result);
}

std::string Code(int result) {
    return std::to_string(result);
}

// Character items

TEST(ValueFormat, AShortTextIsPaddedWithBlanksBehindIt) {
    EXPECT_EQ(Formatted(Item('C', 5), ""), "     ");
    EXPECT_EQ(Formatted(Item('C', 5), "ab"), "ab   ");
    EXPECT_EQ(Formatted(Item('C', 5), " b"), " b   ");
    EXPECT_EQ(Formatted(Item('C', 5), "abcde"), "abcde");
    EXPECT_EQ(Formatted(Item('U', 5), "AB"), "AB   ");
}

TEST(ValueFormat, ATextLongerThanItsItemIsRefused) {
    EXPECT_EQ(Formatted(Item('C', 5), "abcdef"), Code(kTooLong));
    EXPECT_EQ(Formatted(Item('C', 5), "abcde "), Code(kTooLong));
    EXPECT_EQ(Formatted(Item('U', 5), "abcdef"), Code(kTooLong));
    EXPECT_EQ(Formatted(WithModifiers(Item('C', 5), "R"), "abcdef"), Code(kTooLong));
    EXPECT_EQ(Formatted(Item('C', 5), "abcdef", false), Code(kTooLong));
}

TEST(ValueFormat, ModifiersAlignAText) {
    EXPECT_EQ(Formatted(WithModifiers(Item('C', 5), "R"), "ab"), "   ab");
    EXPECT_EQ(Formatted(WithModifiers(Item('C', 5), "L"), "ab"), "ab   ");
    EXPECT_EQ(Formatted(WithModifiers(Item('C', 5), "RSP"), "ab"), "   ab");
    EXPECT_EQ(Formatted(WithModifiers(Item('C', 5), "R"), "abcde"), "abcde");
    EXPECT_EQ(Formatted(WithModifiers(Item('C', 5), "R"), ""), "     ");
}

TEST(ValueFormat, ModifiersOfNoAlignmentLeaveATextUnpaddedOnPurpose) {
    EXPECT_EQ(Formatted(WithModifiers(Item('C', 5), "S"), "ab"), "ab");
    EXPECT_EQ(Formatted(WithModifiers(Item('U', 5), "P"), "ab"), "AB");
    EXPECT_EQ(Formatted(WithModifiers(Item('C', 5), "S"), ""), "");
}

TEST(ValueFormat, ModifiersThatTheDescriptorDoesNotHaveAlignNothing) {
    CItemDef definition = Item('C', 5);
    definition.Modifiers = "R";
    EXPECT_EQ(Formatted(definition, "ab"), "ab   ");
}

TEST(ValueFormat, AFillCharacterPadsNoText) {
    CItemDef definition = WithModifiers(Item('C', 5), "R");
    definition.HasFill = 1;
    definition.Fill = '0';
    EXPECT_EQ(Formatted(definition, "ab"), "   ab");
}

TEST(ValueFormat, AnUpperCaseItemChangesAsciiLettersOnly) {
    EXPECT_EQ(Formatted(Item('U', 9), "aBz{`@1"), "ABZ{`@1  ");
    EXPECT_EQ(Formatted(Item('U', 3), "\x84\xE4\xFC"), "\x84\xE4\xFC");
    EXPECT_EQ(Formatted(Item('C', 3), "aBc"), "aBc");
    const CDecimalCommaLocale locale;
    EXPECT_EQ(Formatted(Item('U', 3), "\x84\xE4\xFC"), "\x84\xE4\xFC");
}

CItemDef Listed(CItemDef definition, std::vector<std::string> values) {
    definition.Values = std::move(values);
    return definition;
}

TEST(ValueFormat, ATextMustEqualAListedOneExactly) {
    const CItemDef definition = Listed(Item('C', 3), {"A", "BC", "long one"});
    EXPECT_EQ(Formatted(definition, "A"), "A  ");
    EXPECT_EQ(Formatted(definition, "BC"), "BC ");
    EXPECT_EQ(Formatted(definition, "long one"), Code(kTooLong));
    for (const char* value : {"", "a", "A ", " A", "B", "BCD", "ABC", "too long"}) {
        EXPECT_EQ(Formatted(definition, value), Code(kNotListed)) << value;
    }
}

TEST(ValueFormat, WithoutTheCheckTextsNeedNotBeListed) {
    EXPECT_EQ(Formatted(Listed(Item('C', 3), {"A"}), "x", false), "x  ");
    EXPECT_EQ(Formatted(Listed(Item('C', 3), {"A"}), "long", false), Code(kTooLong));
}

TEST(ValueFormat, ATextIsListedAsItIsBeforeItBecomesUpperCase) {
    EXPECT_EQ(Formatted(Listed(Item('U', 3), {"A"}), "a"), Code(kNotListed));
    EXPECT_EQ(Formatted(Listed(Item('U', 3), {"a"}), "a"), "A  ");
}

TEST(ValueFormat, AListCountsWhenItIsNotEmptyWhateverTheDescriptorHad) {
    CItemDef definition = Item('C', 3);
    definition.HasValues = 1;
    EXPECT_EQ(Formatted(definition, "x"), "x  ");
    definition = Listed(Item('C', 3), {"A"});
    ASSERT_EQ(definition.HasValues, 0);
    EXPECT_EQ(Formatted(definition, "x"), Code(kNotListed));
}

// Date items

TEST(ValueFormat, ADateIsRewrittenIntoThePatternAndPadded) {
    EXPECT_EQ(Formatted(Date(10, "DD.MM.YYYY"), "20150228"), "28.02.2015");
    EXPECT_EQ(Formatted(Date(8, "YYYYMMDD"), "20150228"), "20150228");
    EXPECT_EQ(Formatted(Date(4, "YYMM"), "20150228"), "1502");
    EXPECT_EQ(Formatted(Date(6, "DDMMYY"), "20501230"), "301250");
    EXPECT_EQ(Formatted(Date(12, "DD.MM.YYYY"), "20150228"), "28.02.2015  ");
    EXPECT_EQ(Formatted(WithModifiers(Date(12, "DD.MM.YYYY"), "R"), "20150228"), "  28.02.2015");
    EXPECT_EQ(Formatted(WithModifiers(Date(12, "DD.MM.YYYY"), "L"), "20150228"), "28.02.2015  ");
    EXPECT_EQ(Formatted(WithModifiers(Date(12, "DD.MM.YYYY"), "S"), "20150228"), "28.02.2015");
}

TEST(ValueFormat, ADateItemWithoutPatternTakesNothing) {
    CItemDef definition = Date(8, "YYYYMMDD");
    definition.HasDatePattern = 0;
    EXPECT_EQ(Formatted(definition, "20150228"), Code(kNoDatePattern));
    EXPECT_EQ(Formatted(definition, "Error"), Code(kNoDatePattern));
}

TEST(ValueFormat, ARewrittenDateThatReadsErrorIsRefusedOnPurpose) {
    EXPECT_EQ(Formatted(Date(8, "YYYYMMDD"), "Error"), Code(kBadDate));
    EXPECT_EQ(Formatted(Date(8, "YYYYMM"), "Error"), Code(kBadDate));
    EXPECT_EQ(Formatted(Date(6, "MMYYYY"), "rrorEr"), "Errror");
    EXPECT_EQ(Formatted(Date(8, "YYYYMMDD"), "error"), "error   ");
}

TEST(ValueFormat, ADateItemOfUnknownPatternIsBlank) {
    EXPECT_EQ(Formatted(Date(4, "TTMM"), "20150228"), "    ");
}

TEST(ValueFormat, ADateLongerThanItsItemIsCut) {
    EXPECT_EQ(Formatted(Date(8, "DD.MM.YYYY"), "20150228"), "28.02.20");
    EXPECT_EQ(Formatted(WithModifiers(Date(8, "DD.MM.YYYY"), "R"), "20150228"), "28.02.20");
}

TEST(ValueFormat, DatesAreHeldAgainstNoList) {
    EXPECT_EQ(Formatted(Listed(Date(8, "YYYYMMDD"), {"2015-01-01"}), "20150228"), "20150228");
}

// Numbers

struct CLayoutRow {
    CItemDef Definition;
    const char* Value;
    std::string Field;
};

void ExpectLaidOut(const std::vector<CLayoutRow>& rows) {
    for (const CLayoutRow& row : rows) {
        EXPECT_EQ(Formatted(row.Definition, row.Value), row.Field)
            << row.Value << " by " << row.Definition.Modifiers << ' ' << row.Definition.IntDigits << '.'
            << row.Definition.Decimals << " in " << row.Definition.Length;
    }
}

const std::string kError = Code(kDoesNotFit);

TEST(ValueFormat, ANegativeAmountWithImpliedPointAndSignAtTheEnd) {
    ExpectLaidOut({{Number(8, 5, 2, "PRE", '0'), "-12.5", "0001250-"}});
}

TEST(ValueFormat, NumbersAreAlignedRightOrLeft) {
    ExpectLaidOut({{Number(5, 5, 0, "R"), "0", "    0"},
                   {Number(5, 5, 0, "R"), "12", "   12"},
                   {Number(5, 5, 0, "R"), "12345", "12345"},
                   {Number(5, 5, 0, "R"), "-12", "  -12"},
                   {Number(5, 5, 0, "R"), "-1234", "-1234"},
                   {Number(5, 5, 0, "R"), "-0", "   -0"},
                   {Number(5, 5, 0, "R"), "007", "  007"},
                   {Number(5, 5, 0, "L"), "12", "12   "},
                   {Number(5, 5, 0, "L"), "12345", "12345"},
                   {Number(5, 5, 0, "L"), "-12", "-12  "}});
}

TEST(ValueFormat, TheFillStandsWhereNoDigitDoes) {
    ExpectLaidOut({{Number(5, 5, 0, "R", '0'), "12", "00012"},
                   {Number(5, 5, 0, "R", '*'), "12", "***12"},
                   {Number(5, 5, 0, "L", '0'), "12", "12000"},
                   {Number(5, 5, 0, "R", ' '), "12", "   12"}});
}

TEST(ValueFormat, AMinusWithoutAPlaceStandsBehindTheFillOnPurpose) {
    ExpectLaidOut({{Number(5, 5, 0, "R", '0'), "-12", "00-12"}, {Number(5, 5, 0, "RS", '0'), "-12", "00-12"}});
}

TEST(ValueFormat, ASignAtTheEndHasTheLastPlace) {
    ExpectLaidOut({{Number(5, 5, 0, "ER"), "12", "  12+"},
                   {Number(5, 5, 0, "ER", '0'), "-12", "0012-"},
                   {Number(5, 5, 0, "EL"), "12", "12  +"},
                   {Number(5, 5, 0, "EL"), "-1234", "1234-"},
                   {Number(5, 5, 0, "ER"), "1234", "1234+"},
                   {Number(5, 5, 0, "ER"), "12345", kError},
                   {Number(5, 5, 0, "EL"), "-12345", kError}});
}

TEST(ValueFormat, ASignAtTheBeginningHasTheFirstPlace) {
    ExpectLaidOut({{Number(5, 5, 0, "BR"), "12", "+  12"},
                   {Number(5, 5, 0, "BR", '0'), "-12", "-0012"},
                   {Number(5, 5, 0, "BL"), "12", "+12  "},
                   {Number(5, 5, 0, "BL"), "-1234", "-1234"},
                   {Number(5, 5, 0, "BR"), "12345", kError},
                   {Number(5, 5, 0, "BL"), "-12345", kError}});
}

TEST(ValueFormat, ASignBeforeTheDigitsIsWrittenForPositiveNumbersToo) {
    ExpectLaidOut({{Number(5, 5, 0, "SR"), "12", "  +12"},
                   {Number(5, 5, 0, "SR"), "-12", "  -12"},
                   {Number(5, 5, 0, "SL"), "12", "+12  "},
                   {Number(5, 5, 0, "SL"), "-12", "-12  "},
                   {Number(5, 5, 0, "SR"), "1234", "+1234"},
                   {Number(5, 5, 0, "SR"), "0", "   +0"},
                   {Number(5, 5, 0, "SR"), "12345", kError}});
}

TEST(ValueFormat, ASignPlaceOutranksTheSignBeforeTheDigits) {
    ExpectLaidOut({{Number(5, 5, 0, "SER"), "-12", "  12-"},
                   {Number(5, 5, 0, "SEL"), "12", "12  +"},
                   {Number(5, 5, 0, "SBR"), "-12", "-  12"},
                   {Number(5, 5, 0, "SBL"), "12", "+12  "}});
}

TEST(ValueFormat, WithoutAlignmentNoDigitsArePlacedOnPurpose) {
    ExpectLaidOut({{Number(5, 5, 0, "P"), "12", "     "},
                   {Number(5, 5, 0, "P"), "-12", "     "},
                   {Number(5, 5, 0, "S"), "-12", "     "},
                   {Number(5, 5, 0, "E"), "12", "    +"},
                   {Number(5, 5, 0, "E", '0'), "-12", "0000-"},
                   {Number(5, 5, 0, "B"), "-12", "-    "},
                   {Number(5, 5, 0, "B", '0'), "12", "+0000"},
                   {Number(5, 5, 0, "P"), "-12345", kError}});
}

TEST(ValueFormat, AFractionGetsTheDecimalsOfItsItem) {
    ExpectLaidOut({{Number(6, 3, 2, "R"), "1", "  1.00"},
                   {Number(6, 3, 2, "R"), "1.", "  1.00"},
                   {Number(6, 3, 2, "R"), "1.5", "  1.50"},
                   {Number(6, 3, 2, "R"), "1,5", "  1.50"},
                   {Number(6, 3, 2, "R"), "1.25", "  1.25"},
                   {Number(6, 3, 2, "R"), "1.2500000", "  1.25"},
                   {Number(6, 3, 2, "R"), "1.255", kError},
                   {Number(6, 3, 2, "R"), "100", "100.00"},
                   {Number(6, 3, 2, "R"), "100.00", "100.00"},
                   {Number(6, 3, 2, "R"), ".5", "   .50"},
                   {Number(6, 3, 2, "R"), "-.5", "  -.50"},
                   {Number(6, 3, 2, "R"), "0.00", "  0.00"},
                   {Number(6, 3, 2, "R"), "1.05", "  1.05"},
                   {Number(6, 3, 2, "R"), "-1.5", " -1.50"},
                   {Number(6, 3, 2, "R"), "999.99", "999.99"},
                   {Number(6, 3, 2, "L"), "1.5", "1.50  "},
                   {Number(6, 3, 2, "LE"), "-1.5", "1.50 -"},
                   {Number(8, 5, 1, "RB"), "-1.5", "-    1.5"}});
}

TEST(ValueFormat, APointWithNothingBehindItIsDropped) {
    ExpectLaidOut({{Number(5, 5, 0, "R"), "12.", "   12"},
                   {Number(5, 5, 0, "R"), "12.0", "   12"},
                   {Number(5, 5, 0, "R"), "12,000", "   12"},
                   {Number(5, 5, 0, "R"), "12345.0", "12345"},
                   {Number(5, 5, 0, "R"), "-1234.", "-1234"},
                   {Number(5, 5, 0, "R"), "100.", "  100"},
                   {Number(5, 5, 0, "R"), "12.5", kError}});
}

TEST(ValueFormat, ZeroWithoutADigitBeforeThePointLeavesNothingOfAnInteger) {
    ExpectLaidOut({{Number(5, 5, 0, "R"), ".0", "     "}, {Number(5, 5, 0, "RE", '0'), ".0", "0000+"}});
}

TEST(ValueFormat, AnImpliedPointIsNotStored) {
    ExpectLaidOut({{Number(5, 3, 2, "PR"), "123.45", "12345"},
                   {Number(5, 3, 2, "PR"), "1.5", "  150"},
                   {Number(5, 3, 2, "PR"), "1", "  100"},
                   {Number(5, 3, 2, "PR", '0'), "1.5", "00150"},
                   {Number(5, 3, 2, "PL"), "1.5", "150  "},
                   {Number(5, 3, 2, "PL", '0'), "1.5", "15000"},
                   {Number(5, 3, 2, "PR"), ".05", "   05"},
                   {Number(5, 3, 2, "PR"), "-1.5", " -150"},
                   {Number(6, 3, 2, "PRE"), "123.45", "12345+"},
                   {Number(5, 5, 0, "PR"), "12", "   12"}});
}

TEST(ValueFormat, ANegativeNumberThatFillsItsFieldIsRefused) {
    ExpectLaidOut({{Number(5, 5, 0, "R"), "-12345", kError},
                   {Number(5, 5, 0, "L"), "-12345", kError},
                   {Number(6, 3, 2, "R"), "-123.45", kError},
                   {Number(1, 1, 0, "R"), "-1", kError},
                   {Number(2, 1, 0, "R"), "-1", "-1"}});
}

TEST(ValueFormat, ThePointCountsForANegativeNumberEvenWhenItIsImpliedOnPurpose) {
    ExpectLaidOut({{Number(5, 3, 2, "PR"), "-12.34", kError}, // "-1234" would have had room
                   {Number(5, 3, 2, "PR"), "12.34", " 1234"},
                   {Number(6, 3, 2, "PRE"), "-123.45", kError}, // so would "12345-"
                   {Number(6, 3, 2, "PRE"), "-12.34", " 1234-"},
                   {Number(5, 3, 2, "PR"), "-123.45", kError}});
}

TEST(ValueFormat, ANumberWithMoreIntegerDigitsThanItsItemIsRefused) {
    ExpectLaidOut({{Number(8, 5, 0, "R"), "99999", "   99999"},
                   {Number(8, 5, 0, "R"), "123456", kError},
                   {Number(8, 5, 0, "R"), "000001", kError},
                   {Number(8, 5, 0, "R"), "-123456", kError},
                   {Number(8, 3, 2, "R"), "1234", kError},
                   {Number(8, 3, 2, "R"), "1234.5", kError},
                   {Number(8, 0, 2, "R"), ".5", "     .50"},
                   {Number(8, 0, 2, "R"), "0.5", kError}});
}

TEST(ValueFormat, ANumberLongerThanItsFieldIsRefused) {
    ExpectLaidOut({{Number(5, 3, 2, "R"), "123.45", kError},
                   {Number(5, 3, 2, "L"), "123.45", kError},
                   {Number(5, 3, 2, "R"), "123", kError},
                   {Number(5, 3, 2, "R"), "12.34", "12.34"},
                   {Number(0, 5, 0, "R"), "1", kError}});
}

TEST(ValueFormat, AWrittenPlusOrBlankCountsAsADigitOnPurpose) {
    ExpectLaidOut({{Number(5, 3, 0, "R"), "+12", "  +12"},
                   {Number(5, 3, 0, "R"), "+123", kError},
                   {Number(5, 3, 0, "RS"), "+12", " ++12"},
                   {Number(5, 3, 0, "L"), " 12", " 12  "},
                   {Number(5, 3, 0, "RS"), " -1", " + -1"}});
}

TEST(ValueFormat, AnExponentCountsAsDigitsOnPurpose) {
    ExpectLaidOut({{Number(8, 5, 0, "R"), "1e+06", "   1e+06"},
                   {Number(8, 5, 2, "R"), "1e+06", "1e+06.00"},
                   {Number(8, 5, 2, "R"), "1.5e+06", kError},
                   {Number(9, 4, 5, "R"), "1.5e+10", "  1.5e+10"},
                   {Number(9, 5, 4, "R"), "1.5e+10", "   1.5e+1"}}); // its 0 is a trailing zero of the fraction
}

TEST(ValueFormat, OnlyNumbersAreTakenByANumericItem) {
    for (const char* value : {"",      " ",     "     ",   "x",       "1x",  "1 ",   "1 2", "-",   "+",     ".",
                              "1.2.3", "1,2,3", "1.234,5", "1,234.5", "--1", "0x10", "inf", "nan", "1e999", "Error"}) {
        EXPECT_EQ(Formatted(Number(8, 5, 2, "R"), value), Code(kNotANumber)) << value;
        EXPECT_EQ(Formatted(Number(8, 5, 2, "R"), value, false), Code(kNotANumber)) << value;
        EXPECT_EQ(Formatted(Item('N', 8), value), Code(kNotANumber)) << value;
    }
}

TEST(ValueFormat, WithoutModifiersANumberIsStoredAsItIsWritten) {
    ExpectLaidOut({{Item('N', 5), "12", "12   "},
                   {Item('N', 5), "-1", "-1   "},
                   {Item('N', 5), "+1", "+1   "},
                   {Item('N', 5), "007", "007  "},
                   {Item('N', 5), " 1", " 1   "},
                   {Item('N', 5), "1,5", "1.5  "},
                   {Item('N', 5), "1.50", "1.50 "},
                   {Item('N', 5), "1e3", "1e3  "},
                   {Item('N', 5), "12345", "12345"},
                   {Item('N', 5), "-1234", "-1234"},
                   {Item('N', 5), "123456", kError},
                   {Item('N', 5), "1234,5", kError}});
}

TEST(ValueFormat, WithoutModifiersNeitherFillNorDigitsCount) {
    CItemDef definition = Number(5, 1, 0, "R", '0');
    definition.HasModifiers = 0;
    EXPECT_EQ(Formatted(definition, "12.5"), "12.5 ");
}

TEST(ValueFormat, ANumberMustEqualAListedOneInValue) {
    const CItemDef definition = Listed(Number(6, 3, 2, "R"), {"1", "2,5", "-3.00", "x"});
    EXPECT_EQ(Formatted(definition, "1"), "  1.00");
    EXPECT_EQ(Formatted(definition, "1.000"), "  1.00");
    EXPECT_EQ(Formatted(definition, "2,50"), "  2.50");
    EXPECT_EQ(Formatted(definition, "-3"), " -3.00");
    for (const char* value : {"0", "1.01", "2", "3", "-1"}) {
        EXPECT_EQ(Formatted(definition, value), Code(kNumberNotListed)) << value;
    }
    EXPECT_EQ(Formatted(definition, "3", false), "  3.00");
}

CItemDef Ranged(CItemDef definition, std::vector<CItemRange> ranges) {
    definition.Ranges = std::move(ranges);
    return definition;
}

TEST(ValueFormat, ANumberMustLieInOneOfTheRanges) {
    const CItemDef definition = Ranged(Number(6, 3, 2, "R"), {{'=', '<', "1", "2"}, {'>', '=', "10", "20,5"}});
    for (const char* value : {"1", "1.99", "10.01", "20", "20.50"}) {
        EXPECT_NE(Formatted(definition, value), Code(kOutOfRange)) << value;
    }
    for (const char* value : {"0.99", "2", "5", "10", "20.51", "-1", "-15"}) {
        EXPECT_EQ(Formatted(definition, value), Code(kOutOfRange)) << value;
    }
    EXPECT_EQ(Formatted(definition, "5", false), "  5.00");
}

TEST(ValueFormat, ARangeIncludesOrExcludesItsBounds) {
    struct CRow {
        CItemRange Range;
        double Number;
        bool IsIn;
    };
    const CRow rows[] = {
        {{'=', '=', "1", "2"}, 1.0, true},        {{'=', '=', "1", "2"}, 2.0, true},
        {{'=', '=', "1", "2"}, 1.5, true},        {{'=', '=', "1", "2"}, 0.999, false},
        {{'=', '=', "1", "2"}, 2.001, false},     {{'>', '<', "1", "2"}, 1.0, false},
        {{'>', '<', "1", "2"}, 2.0, false},       {{'>', '<', "1", "2"}, 1.001, true},
        {{'>', '<', "1", "2"}, 1.999, true},      {{'>', '=', "1", "2"}, 2.0, true},
        {{'=', '<', "1", "2"}, 1.0, true},        {{'=', '=', "-2.5", "-1,5"}, -2.5, true},
        {{'=', '=', "-2.5", "-1,5"}, -1.5, true}, {{'=', '=', "-2.5", "-1,5"}, -1.4, false},
        {{'=', '=', "-inf", "2"}, -1e26, true},   {{'=', '=', "-inf", "2"}, 2.0, true},
        {{'=', '=', "-inf", "2"}, 2.1, false},    {{'=', '=', "1", "+inf"}, 1e26, true},
        {{'=', '=', "1", "+inf"}, 0.9, false},    {{'>', '<', "-inf", "+inf"}, 0.0, true},
    };
    for (const CRow& row : rows) {
        EXPECT_EQ(IsInRanges(Ranged(Item('N', 5), {row.Range}), row.Number), row.IsIn)
            << row.Range.LowerKind << row.Range.LowerBound << ' ' << row.Range.UpperKind << row.Range.UpperBound << ' '
            << row.Number;
    }
}

TEST(ValueFormat, AnOpenBoundStandsFor1e27AndIsAlwaysExcluded) {
    for (const char kind : {'=', '>'}) {
        const CItemDef definition = Ranged(Item('N', 5), {{kind, '=', "-inf", "+inf"}});
        EXPECT_TRUE(IsInRanges(definition, -9.99e26));
        EXPECT_FALSE(IsInRanges(definition, -1e27));
        EXPECT_TRUE(IsInRanges(definition, 9.99e26));
        EXPECT_FALSE(IsInRanges(definition, 1e27));
    }
}

TEST(ValueFormat, WithoutRangesNoNumberLiesInOne) {
    EXPECT_FALSE(IsInRanges(Item('N', 5), 0.0));
}

TEST(ValueFormat, NumbersAreHeldAgainstTheListThenTheRangesThenTheField) {
    CItemDef definition = Listed(Number(3, 1, 0, "R"), {"1", "5", "12"});
    definition = Ranged(definition, {{'=', '=', "2", "20"}});
    EXPECT_EQ(Formatted(definition, "x"), Code(kNotANumber));
    EXPECT_EQ(Formatted(definition, "99"), Code(kNumberNotListed));
    EXPECT_EQ(Formatted(definition, "1"), Code(kOutOfRange));
    EXPECT_EQ(Formatted(definition, "12"), Code(kDoesNotFit));
    EXPECT_EQ(Formatted(definition, "5"), "  5");
}

TEST(ValueFormat, ADecimalCommaLocaleChangesNothing) {
    const CDecimalCommaLocale locale;
    ExpectLaidOut({{Number(6, 3, 2, "R"), "1.5", "  1.50"},
                   {Number(6, 3, 2, "R"), "1,5", "  1.50"},
                   {Item('N', 5), "1,5", "1.5  "},
                   {Ranged(Number(6, 3, 2, "R"), {{'=', '=', "1.25", "1.75"}}), "1.5", "  1.50"},
                   {Listed(Number(6, 3, 2, "R"), {"1.5"}), "1,5", "  1.50"}});
}

// Layout as such

TEST(ValueFormat, NoNumberAtAllIsLaidOutAsFill) {
    std::string field;
    for (const char* number : {"", " "}) {
        EXPECT_TRUE(LayOutNumber(Number(5, 5, 0, "ER", '0'), number, field));
        EXPECT_EQ(field, "00000");
        EXPECT_TRUE(LayOutNumber(Number(5, 5, 0, "ER"), number, field));
        EXPECT_EQ(field, "     ");
    }
}

TEST(ValueFormat, ALayoutWithBothSignPlacesFillsBoth) {
    ExpectLaidOut({{Number(6, 5, 0, "EBL"), "-12", "-12  -"}, {Number(6, 5, 0, "EB"), "12", "+    +"}});
}

TEST(ValueFormat, SenselessLengthsAndDigitsAreHarmless) {
    EXPECT_EQ(Formatted(Item('C', -5), ""), "");
    EXPECT_EQ(Formatted(Item('C', -5), "x"), Code(kTooLong));
    EXPECT_EQ(Formatted(Item('C', INT_MIN), "x"), Code(kTooLong));
    EXPECT_EQ(Formatted(Item('C', INT_MAX), "x").size(), kWidestField);
    EXPECT_EQ(Formatted(WithModifiers(Item('C', INT_MAX), "R"), "x"), std::string(kWidestField - 1, ' ') + "x");
    EXPECT_EQ(Formatted(Item('C', INT_MAX), std::string(kWidestField + 1, 'x')), Code(kTooLong));
    EXPECT_EQ(Formatted(Date(-1, "YYYYMMDD"), "20150228"), "");
    EXPECT_EQ(Formatted(Date(INT_MAX, "YYYYMMDD"), "20150228").size(), kWidestField);
    EXPECT_EQ(Formatted(Item('N', -1), "1"), kError);
    EXPECT_EQ(Formatted(Item('N', INT_MAX), "1").size(), kWidestField);
    ExpectLaidOut({{Number(-1, 5, 0, "R"), "1", kError},
                   {Number(INT_MIN, 5, 0, "E"), "1", kError},
                   {Number(5, -1, 0, "R"), "1", kError},
                   {Number(5, INT_MAX, 0, "R"), "1", "    1"},
                   {Number(5, 5, -1, "R"), "1", "    1"},
                   {Number(5, 5, -1, "R"), "1.5", kError},
                   {Number(5, 5, INT_MAX, "R"), "1", kError},
                   {Number(INT_MAX, INT_MAX, INT_MAX, "RSEBP"), "-1.5", kError},
                   {Number(INT_MAX, 5, 0, "R", '0'), "12", std::string(kWidestField - 2, '0') + "12"}});
}

TEST(ValueFormat, AFieldCanBeTheValueThatACallerLaysOut) {
    std::string text = "value";
    EXPECT_EQ(Item('U', 8).FormatValue(text, text), 0);
    EXPECT_EQ(text, "VALUE   ");
}

TEST(ValueFormat, AFieldWithRoomIsNotAllocatedAnew) {
    std::string field;
    field.reserve(64);
    const char* const place = field.data();
    ASSERT_EQ(FormatValue(Item('C', 60), "text", true, field), 0);
    ASSERT_EQ(FormatValue(WithModifiers(Item('U', 60), "R"), "text", true, field), 0);
    ASSERT_EQ(FormatValue(Number(60, 40, 5, "ER", '0'), "-12,5", true, field), 0);
    ASSERT_EQ(FormatValue(Item('N', 60), "-12,5", true, field), 0);
    ASSERT_EQ(FormatValue(Date(60, "DD.MM.YYYY"), "20150228", true, field), 0);
    EXPECT_EQ(field.data(), place);
}

// Every number of a field of five characters, laid out by every set of modifiers that a descriptor can have, and read
// back. What is expected is worked out from the number, not from texts.

constexpr int kFieldWidth = 5;

struct CLayoutCase {
    std::string Modifiers;
    int Decimals;
    char Fill;

    bool Has(char modifier) const { return Modifiers.find(modifier) != std::string::npos; }
    bool HasSignPlace() const { return Has('E') || Has('B'); }
    bool HasAlignment() const { return Has('R') || Has('L'); }
    char FillShown() const { return Fill != kNoFill ? Fill : ' '; }
};

int PowerOfTen(int exponent) {
    return exponent == 0 ? 1 : 10 * PowerOfTen(exponent - 1);
}

/// The number units / 10^decimals as people write it.
std::string Written(int units, int decimals) {
    std::string digits = std::to_string(units < 0 ? -units : units);
    while (static_cast<int>(digits.size()) <= decimals) {
        digits.insert(0, "0");
    }
    if (decimals > 0) {
        digits.insert(digits.size() - static_cast<std::size_t>(decimals), ".");
    }
    return digits;
}

/// What stands together in the field: digits, point, and a sign that has no place of its own.
std::string Placed(const CLayoutCase& layout, bool isNegative, const std::string& written) {
    std::string text;
    if (!layout.HasSignPlace() && (isNegative || layout.Has('S'))) {
        text = isNegative ? "-" : "+";
    }
    for (const char c : written) {
        if (c != '.' || !layout.Has('P')) {
            text += c;
        }
    }
    return text;
}

int FreePlaces(const CLayoutCase& layout, const std::string& placed) {
    return kFieldWidth - static_cast<int>(placed.size()) - (layout.HasSignPlace() ? 1 : 0);
}

std::string ExpectedField(const CLayoutCase& layout, bool isNegative, const std::string& placed) {
    std::string middle(static_cast<std::size_t>(FreePlaces(layout, placed)), layout.FillShown());
    if (layout.Has('R')) {
        middle += placed;
    } else if (layout.Has('L')) {
        middle.insert(0, placed);
    } else {
        middle.append(placed.size(), layout.FillShown());
    }
    if (layout.HasSignPlace()) {
        middle.insert(layout.Has('B') ? 0 : middle.size(), isNegative ? "-" : "+");
    }
    return middle;
}

struct CReadBack {
    int Result;
    double Value;
};

/// Reading what was laid out: the number again, unless its layout has lost it in one of the ways named here.
CReadBack ExpectedReading(const CLayoutCase& layout, int units, int freePlaces) {
    const bool isInteger = layout.Decimals == 0;
    const double number = static_cast<double>(units) / PowerOfTen(layout.Decimals);
    // An integer with its sign at the end is read and is no number.
    const int resultOfSign = isInteger && layout.Has('E') ? kNotANumber : 0;
    if (!layout.HasAlignment()) {
        // No digits are placed: a blank field, or one of fill only.
        if (layout.FillShown() == ' ') {
            return {kBlank, 0.0};
        }
        return layout.Fill == '0' ? CReadBack{resultOfSign, 0.0} : CReadBack{kNotANumber, 0.0};
    }
    if (freePlaces == 0 || layout.FillShown() == ' ') {
        return {resultOfSign, number};
    }
    if (layout.Fill == '*') {
        // A fill that is no digit ends the number, or comes before it.
        return {kNotANumber, layout.Has('R') ? 0.0 : number};
    }
    if (layout.Has('R')) {
        // Zeros before the digits are harmless, before a sign they are the number.
        const bool isSignBehindFill = !layout.HasSignPlace() && (units < 0 || layout.Has('S'));
        return isSignBehindFill ? CReadBack{kNotANumber, 0.0} : CReadBack{resultOfSign, number};
    }
    // Zeros behind the digits are digits, unless there is a point before them.
    const bool hasPoint = layout.Decimals > 0 && !layout.Has('P');
    return {resultOfSign,
            hasPoint ? number : static_cast<double>(units) * PowerOfTen(freePlaces) / PowerOfTen(layout.Decimals)};
}

CReadBack Read(const CItemDef& definition, const std::string& field) {
    CReadBack reading = {0, 0.0};
    if (definition.Decimals > 0) {
        reading.Result = ParseFloatField(definition, field, reading.Value);
        return reading;
    }
    int value = 0;
    reading.Result = ParseIntField(definition, field, value);
    reading.Value = value;
    return reading;
}

class ValueFormatOfModifiers : public testing::TestWithParam<std::string> {};

/// Checks one number; tells whether it was as expected.
testing::AssertionResult CheckNumber(const CLayoutCase& layout, const CItemDef& definition, int units,
                                     std::string& field) {
    const bool isNegative = units < 0;
    const std::string written = Written(units, layout.Decimals);
    const std::string placed = Placed(layout, isNegative, written);
    const int freePlaces = FreePlaces(layout, placed);
    const std::string value = (isNegative ? "-" : "") + written;
    const int result = FormatValue(definition, value, true, field);
    if (freePlaces < 0 || (isNegative && written.size() == kFieldWidth)) {
        return result == kDoesNotFit ? testing::AssertionSuccess()
                                     : testing::AssertionFailure() << value << " gave " << result;
    }
    if (result != 0 || field != ExpectedField(layout, isNegative, placed)) {
        return testing::AssertionFailure() << value << " gave " << result << " and \"" << field << '"';
    }
    const CReadBack expected = ExpectedReading(layout, units, freePlaces);
    const CReadBack reading = Read(definition, field);
    if (reading.Result != expected.Result || reading.Value != expected.Value) {
        return testing::AssertionFailure()
               << '"' << field << "\" read as " << reading.Value << " with " << reading.Result;
    }
    return testing::AssertionSuccess();
}

TEST_P(ValueFormatOfModifiers, EveryNumberReadsBackUnlessItsLayoutLosesIt) {
    for (const CLayoutCase& layout :
         {CLayoutCase{GetParam(), 0, kNoFill}, CLayoutCase{GetParam(), 0, '0'}, CLayoutCase{GetParam(), 0, '*'},
          CLayoutCase{GetParam(), 1, kNoFill}, CLayoutCase{GetParam(), 1, '0'}, CLayoutCase{GetParam(), 2, kNoFill},
          CLayoutCase{GetParam(), 2, '0'}}) {
        const CItemDef definition =
            Number(kFieldWidth, kFieldWidth - layout.Decimals, layout.Decimals, layout.Modifiers, layout.Fill);
        std::string field;
        for (int units = -99999; units <= 99999; ++units) {
            const testing::AssertionResult check = CheckNumber(layout, definition, units, field);
            ASSERT_TRUE(check) << " by " << layout.Modifiers << " with " << layout.Decimals << " decimals, fill '"
                               << layout.FillShown() << "'";
        }
    }
}

/// All but the empty one.
std::vector<std::string> EveryModifierSet() {
    std::vector<std::string> sets;
    for (const char* alignment : {"", "R", "L"}) {
        for (const char* signPlace : {"", "E", "B"}) {
            for (const char* sign : {"", "S"}) {
                for (const char* point : {"", "P"}) {
                    sets.push_back(std::string(alignment) + signPlace + sign + point);
                }
            }
        }
    }
    sets.erase(sets.begin());
    return sets;
}

INSTANTIATE_TEST_SUITE_P(, ValueFormatOfModifiers, testing::ValuesIn(EveryModifierSet()),
                         [](const auto& modifiers) { return modifiers.param; });

} // namespace
} // namespace tabvex
