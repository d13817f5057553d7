// Items as dates: reading and writing them by item number, in the caller's format and in the item's own.
#include <climits>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "support/guard_buffer.h"
#include "support/item_test.h"

namespace {

using namespace item_codes;
using ::testing::IsEmpty;

constexpr int kNoMore = -5;
constexpr int kNotTheKey = -6;
constexpr int kWrongLength = -70;
constexpr int kWrongSeparator = -71;
constexpr int kNotDigits = -72;
constexpr int kNoSuchDay = -73;
constexpr int kNoPattern = -74;
constexpr int kIsError = -75;
constexpr int kUnusableFormat = -76;

// Items of "X1", all at one place.
constexpr int kText = 1005;
constexpr int kNumber = 1010;
constexpr int kDate = 1015;
constexpr int kWhole = 1020; // YYYYMMDD
constexpr int kNoDay = 1025; // YYYYMM
constexpr int kShortYear = 1030;
constexpr int kYearMonth = 1035; // YYMM
constexpr int kYearOnly = 1040;  // the pattern has kept the year only
constexpr int kWide = 1045;
constexpr int kRight = 1050;
constexpr int kNarrow = 1055;
constexpr int kOddSeparator = 1060;
constexpr int kUnaligned = 1065;
constexpr int kLimited = 1070;
constexpr int kBeforeLine = 1075;
constexpr int kWithoutPattern = 1300;
constexpr int kNotInLayout = 1341;
constexpr int kEntry = 15150; // the only item of an entry of "G5"
constexpr int kNoType = 500;

constexpr int kPlace = 20;
constexpr const char* kDotted = "DD.MM.YYYY";

CTableBuilder Table() {
    CTableBuilder table;
    table.Section("G5")
        .Item(15000, 2, 1, "C")
        .Item(15050, 10, 100, "D,,,,,,YYYYMMDD")
        .Item(kEntry, 10, 8, "D,,,,,,DD.MM.YYYY");
    table.Section("X1")
        .Item(kText, 4, kPlace, "C")
        .Item(kNumber, 8, kPlace, "N,,,R 8.0")
        .Item(kDate, 10, kPlace, "D,,,,,,DD.MM.YYYY")
        .Item(kWhole, 8, kPlace, "D,,,,,,YYYYMMDD")
        .Item(kNoDay, 6, kPlace, "D,,,,,,YYYYMM")
        .Item(kShortYear, 8, kPlace, "D,,,,,,DD.MM.YY")
        .Item(kYearMonth, 4, kPlace, "D,,,,,,YYMM")
        .Item(kYearOnly, 10, kPlace, "D,,,,,,YYYY.MM.DD")
        .Item(kWide, 14, kPlace, "D,,,,,,DD.MM.YYYY")
        .Item(kRight, 14, kPlace, "D,,,R,,,DD.MM.YYYY")
        .Item(kNarrow, 8, kPlace, "D,,,,,,DD.MM.YYYY")
        .Item(kOddSeparator, 5, kPlace, "D,,,,,,MMrYY")
        .Item(kUnaligned, 14, kPlace, "D,,,S,,,DD.MM.YYYY")
        .Item(kLimited, 10, kPlace, "D,,,,<2015-01-01;2015-12-30>,(2015-05-05),DD.MM.YYYY")
        .Item(kBeforeLine, 10, 0, "D,,,,,,DD.MM.YYYY")
        .Item(kWithoutPattern, 10, kPlace, "D"); // a bad descriptor: the layout ends with this item
    return table;
}

template <typename RecordSet>
class DateItems : public CItemTest<RecordSet> {
protected:
    void LoadAll() { this->Load(Table()); }
    void LoadWithRecord() {
        LoadAll();
        Blank();
    }
    void Blank() { this->KeepOneBlankLine("X1"); }
    /// The text in the item's field, blanks behind it.
    void Put(int item, const std::string& text) {
        const CItemDef* definition = this->m_Records.ExistRecord("X1")->FindItem(item);
        ASSERT_NE(definition, nullptr) << item;
        const std::string field = Padded(text, static_cast<std::size_t>(definition->Length));
        ASSERT_EQ(this->m_Records.HardWriteItem(item, field.c_str()), kOk) << item << " \"" << text << '"';
    }
    /// The code of a read and its text.
    std::pair<int, std::string> Read(int item, const char* format) {
        CGuardBuffer buffer(40);
        const int result = this->m_Records.ReadDateItem(item, format, buffer.Data(), buffer.Size());
        return {result, buffer.IsUntouched() ? "untouched" : buffer.Text()};
    }
    using CItemTest<RecordSet>::Read;
};

std::pair<int, std::string> Answer(int code, const std::string& text) {
    return {code, text};
}

TYPED_TEST_SUITE(DateItems, RecordSetClasses, CRecordSetClassName);

// --- What is answered first -----------------------------------------------------------------------------------------

TYPED_TEST(DateItems, WithoutATableEverythingIsRefused) {
    char buffer[20];
    EXPECT_EQ(this->m_Records.ReadDateItem(kDate, kDotted, buffer, sizeof buffer), kNoTable);
    EXPECT_EQ(this->m_Records.ReadDateItem(kDate, nullptr, nullptr, 0), kNoTable);
    EXPECT_EQ(this->m_Records.WriteDateItem(kDate, kDotted, "01.02.2003"), kNoTable);
    EXPECT_EQ(this->m_Records.WriteDateItem(kDate, "nonsense", "01.02.2003"), kNoTable);
    EXPECT_EQ(this->m_Records.WriteDateItem(kNoType, nullptr, nullptr), kNoTable);
    EXPECT_THAT(this->Types(), IsEmpty());
}

TYPED_TEST(DateItems, NullArgumentsAreRefusedBeforeAllElse) {
    this->LoadAll();
    CGuardBuffer buffer(20);
    for (const int item : {kDate, kText, kNoType}) {
        EXPECT_EQ(this->m_Records.ReadDateItem(item, nullptr, buffer.Data(), buffer.Size()), kMissing);
        EXPECT_EQ(this->m_Records.ReadDateItem(item, kDotted, nullptr, 20), kMissing);
        EXPECT_EQ(this->m_Records.WriteDateItem(item, nullptr, "01.02.2003"), kMissing);
        EXPECT_EQ(this->m_Records.WriteDateItem(item, kDotted, nullptr), kMissing);
        EXPECT_EQ(this->m_Records.WriteDateItem(item, "nonsense", nullptr), kMissing);
    }
    EXPECT_TRUE(buffer.IsUntouched());
    EXPECT_THAT(this->Types(), IsEmpty());
}

TYPED_TEST(DateItems, ReadingNeedsTheRecordTheItemAndADateInThisOrder) {
    this->LoadAll();
    EXPECT_EQ(this->Read(kDate, kDotted), Answer(kMissing, "untouched"));
    EXPECT_EQ(this->Read(kText, "nonsense"), Answer(kMissing, "untouched"));
    EXPECT_EQ(this->Read(kNoType, kDotted), Answer(kMissing, "untouched"));
    EXPECT_THAT(this->Types(), IsEmpty());
    this->Blank();
    EXPECT_EQ(this->Read(kNotInLayout, "nonsense"), Answer(kMissing, "untouched"));
    EXPECT_EQ(this->Read(kText, "nonsense"), Answer(kWrongFormat, "untouched"));
    EXPECT_EQ(this->Read(kNumber, kDotted), Answer(kWrongFormat, "untouched"));
}

TYPED_TEST(DateItems, ABadDateIsRefusedBeforeTheRecordIsLookedForAndCreatesNone) {
    this->LoadAll();
    for (const int item : {kDate, kText, kNotInLayout, kNoType, kEntry, -1}) {
        EXPECT_EQ(this->m_Records.WriteDateItem(item, "nonsense", "01.02.2003"), kUnusableFormat) << item;
        EXPECT_EQ(this->m_Records.WriteDateItem(item, kDotted, "1.1.2001"), kWrongLength) << item;
        EXPECT_EQ(this->m_Records.WriteDateItem(item, kDotted, "01-02-2003"), kWrongSeparator) << item;
        EXPECT_EQ(this->m_Records.WriteDateItem(item, kDotted, "0x.02.2003"), kNotDigits) << item;
        EXPECT_EQ(this->m_Records.WriteDateItem(item, kDotted, "30.02.2003"), kNoSuchDay) << item;
    }
    EXPECT_THAT(this->Types(), IsEmpty());
}

TYPED_TEST(DateItems, AGoodDateCreatesTheRecordBeforeTheItemAndItsFormatAreLookedAt) {
    for (const auto& [item, code] :
         {std::pair{kDate, kOk}, {kNotInLayout, kMissing}, {kText, kWrongFormat}, {kNumber, kWrongFormat}}) {
        TypeParam records;
        ASSERT_EQ(this->LoadInto(records, Table(), this->m_Folder.PathOf("layouts.table")), kOk);
        EXPECT_EQ(records.WriteDateItem(item, kDotted, "01.02.2003"), code) << item;
        EXPECT_NE(records.ExistRecord("X1"), nullptr) << item;
    }
    this->LoadAll();
    EXPECT_EQ(this->m_Records.WriteDateItem(kNoType, kDotted, "01.02.2003"), kMissing);
    EXPECT_EQ(this->m_Records.WriteDateItem(100500, kDotted, "01.02.2003"), kMissing);
    EXPECT_THAT(this->Types(), IsEmpty());
}

// --- Writing: the caller's format -----------------------------------------------------------------------------------

struct CLayoutRow {
    const char* Format;
    const char* Text; ///< the 28th of February 2015
    bool HasDay;
    bool IsItemFormat; ///< an item can have it: a short year must come last unless it comes first, and the month
                       ///< follows a day that comes first
};

// clang-format off
const CLayoutRow kLayouts[] = {
    // format        text          day    item's
    {"DDMMYY",       "280215",     true,  true},
    {"DDYYMM",       "281502",     true,  false},
    {"MMYYDD",       "021528",     true,  false},
    {"MMDDYY",       "022815",     true,  true},
    {"YYDDMM",       "152802",     true,  true},
    {"YYMMDD",       "150228",     true,  true},
    {"MMYY",         "0215",       false, true},
    {"YYMM",         "1502",       false, true},
    {"DDMMYYYY",     "28022015",   true,  true},
    {"DDYYYYMM",     "28201502",   true,  false},
    {"MMYYYYDD",     "02201528",   true,  true},
    {"MMDDYYYY",     "02282015",   true,  true},
    {"YYYYDDMM",     "20152802",   true,  true},
    {"YYYYMMDD",     "20150228",   true,  true},
    {"MMYYYY",       "022015",     false, true},
    {"YYYYMM",       "201502",     false, true},
    // with separators
    {"DD.MM.YYYY",   "28.02.2015", true,  true},
    {"DD.MM.YY",     "28.02.15",   true,  true},
    {"MM/DD/YYYY",   "02/28/2015", true,  true},
    {"MM/DD/YY",     "02/28/15",   true,  true},
    {"YYYY-MM-DD",   "2015-02-28", true,  false}, // a separator behind a leading year ends an item's pattern
    {"DD MM/YYYY",   "28 02/2015", true,  true},
    {"MM.YYYY",      "02.2015",    false, true},
    {"MM-YY",        "02-15",      false, true},
    {"YY MM",        "15 02",      false, false},
};
// clang-format on

TYPED_TEST(DateItems, EveryLayoutIsWrittenAndReadInEveryOther) {
    this->LoadWithRecord();
    for (const CLayoutRow& written : kLayouts) {
        this->Blank();
        const int item = written.HasDay ? kWhole : kNoDay;
        EXPECT_EQ(this->m_Records.WriteDateItem(item, written.Format, written.Text), kOk) << written.Format;
        EXPECT_EQ(this->Text(item), written.HasDay ? "20150228" : "201502") << written.Format;
        for (const CLayoutRow& read : kLayouts) {
            if (written.HasDay || !read.HasDay) {
                EXPECT_EQ(this->Read(item, read.Format), Answer(kOk, read.Text))
                    << written.Format << ' ' << read.Format;
            }
        }
    }
}

TYPED_TEST(DateItems, EveryLayoutThatAnItemCanHaveIsStoredAndReadBack) {
    for (const CLayoutRow& row : kLayouts) {
        if (!row.IsItemFormat) {
            continue;
        }
        CTableBuilder table;
        this->Load(table.Section("X1").Item(kDate, 10, kPlace, std::string("D,,,,,,") + row.Format));
        this->Blank();
        EXPECT_EQ(this->m_Records.WriteDateItem(kDate, kDotted, "28.02.2015"), kOk) << row.Format;
        EXPECT_EQ(this->Text(kDate), Padded(row.Text, 10)) << row.Format;
        EXPECT_EQ(this->Read(kDate, "YYYYMM"), Answer(kOk, "201502")) << row.Format;
        EXPECT_EQ(this->Read(kDate, row.Format), Answer(kOk, row.Text)) << row.Format;
    }
}

TYPED_TEST(DateItems, ASeparatorIsWrittenBehindTheFirstComponentWhereverTheFormatHasItOnPurpose) {
    this->LoadWithRecord();
    EXPECT_EQ(this->m_Records.WriteDateItem(kWhole, "YYYYMM-DD", "201502-28"), kOk);
    EXPECT_EQ(this->Text(kWhole), "20150228");
    EXPECT_EQ(this->Read(kWhole, "YYYYMM-DD"), Answer(kOk, "2015-0228"));
    EXPECT_EQ(this->Read(kWhole, "DDMM.YYYY"), Answer(kOk, "28.022015"));
}

struct CDateRow {
    const char* Format;
    const char* Text;
    int Code;
    const char* Field; ///< of an item YYYYMMDD; nullptr: nothing is written
};

// clang-format off
const CDateRow kWrites[] = {
    // format         text             code              field
    {kDotted,        "28.02.2015",     kOk,              "20150228"},
    {kDotted,        "  28.02.2015 ",  kOk,              "20150228"},
    // a short year below 51 is of this century
    {"DD.MM.YY",     "30.12.50",       kOk,              "20501230"},
    {"DD.MM.YY",     "01.01.51",       kOk,              "19510101"},
    {"DD.MM.YY",     "01.01.00",       kOk,              "20000101"},
    {"DD.MM.YY",     "31.01.99",       kOk,              "19990131"},
    {"YYMMDD",       "491130",         kOk,              "20491130"},
    {"YYMMDD",       "520229",         kOk,              "19520229"},
    {"YYMMDD",       "510229",         kNoSuchDay,       nullptr},
    {"DD.MM.YYYY",   "01.01.0050",     kOk,              "00500101"}, // four digits are taken as they are
    // the 31st is refused in every even month, and taken in every odd one: kept on purpose
    {kDotted,        "31.01.2015",     kOk,              "20150131"},
    {kDotted,        "31.02.2015",     kNoSuchDay,       nullptr},
    {kDotted,        "31.03.2015",     kOk,              "20150331"},
    {kDotted,        "31.04.2015",     kNoSuchDay,       nullptr},
    {kDotted,        "31.05.2015",     kOk,              "20150531"},
    {kDotted,        "31.06.2015",     kNoSuchDay,       nullptr},
    {kDotted,        "31.07.2015",     kOk,              "20150731"},
    {kDotted,        "31.08.2015",     kNoSuchDay,       nullptr},
    {kDotted,        "31.09.2015",     kOk,              "20150931"},
    {kDotted,        "31.10.2015",     kNoSuchDay,       nullptr},
    {kDotted,        "31.11.2015",     kOk,              "20151131"},
    {kDotted,        "31.12.2015",     kNoSuchDay,       nullptr},
    {kDotted,        "30.08.2015",     kOk,              "20150830"},
    {kDotted,        "30.12.2015",     kOk,              "20151230"},
    // February
    {kDotted,        "28.02.2015",     kOk,              "20150228"},
    {kDotted,        "29.02.2015",     kNoSuchDay,       nullptr},
    {kDotted,        "29.02.2016",     kOk,              "20160229"},
    {kDotted,        "29.02.1900",     kNoSuchDay,       nullptr},
    {kDotted,        "29.02.2000",     kOk,              "20000229"},
    {kDotted,        "30.02.2000",     kNoSuchDay,       nullptr},
    {kDotted,        "00.01.2015",     kNoSuchDay,       nullptr},
    {kDotted,        "32.01.2015",     kNoSuchDay,       nullptr},
    {kDotted,        "01.00.2015",     kNoSuchDay,       nullptr},
    {kDotted,        "01.13.2015",     kNoSuchDay,       nullptr},
    // without a day
    {"MM.YYYY",      "02.2015",        kOk,              "201502  "},
    {"MM.YYYY",      "00.2015",        kNoSuchDay,       nullptr},
    {"MM.YYYY",      "13.2015",        kNoSuchDay,       nullptr},
    // the length comes before the separators, the separators before the digits, the digits before the day
    {kDotted,        "",               kWrongLength,     nullptr},
    {kDotted,        "   ",            kWrongLength,     nullptr},
    {kDotted,        "1.1.2001",       kWrongLength,     nullptr},
    {kDotted,        "1-1-20xx",       kWrongLength,     nullptr},
    {kDotted,        "01.01.20010",    kWrongLength,     nullptr},
    {kDotted,        "01-01.20xx",     kWrongSeparator,  nullptr},
    {kDotted,        "01.01,2001",     kWrongSeparator,  nullptr},
    {kDotted,        "99.99.20xx",     kNotDigits,       nullptr},
    {kDotted,        "01. 1.2001",     kNotDigits,       nullptr},
    {kDotted,        "+1.01.2001",     kNotDigits,       nullptr},
    {kDotted,        "-1.01.2001",     kNotDigits,       nullptr},
    {kDotted,        "01.01.20 1",     kNotDigits,       nullptr},
    // the format comes before the text
    {"",             "",               kUnusableFormat,  nullptr},
    {"",             "01.02.2003",     kUnusableFormat,  nullptr},
    {"dd.mm.yyyy",   "01.02.2003",     kUnusableFormat,  nullptr},
    {"DD.MM",        "01.02",          kUnusableFormat,  nullptr},
    {"YYYY",         "2003",           kUnusableFormat,  nullptr},
    {"DD.MM.YYY",    "01.02.003",      kUnusableFormat,  nullptr},
    {"DDDMMYYYY",    "x",              kUnusableFormat,  nullptr},
    {"MMDDYYYYDD",   "",               kUnusableFormat,  nullptr},
    {" DD.MM.YYYY",  "01.02.2003",     kWrongLength,     nullptr}, // a blank is a separator, and the text loses its own
};
// clang-format on

TYPED_TEST(DateItems, AWrittenDateIsCheckedAndStoredInTheItemsFormat) {
    this->LoadWithRecord();
    for (const CDateRow& row : kWrites) {
        this->Blank();
        const auto before = this->Stored();
        EXPECT_EQ(this->m_Records.WriteDateItem(kWhole, row.Format, row.Text), row.Code)
            << row.Format << " \"" << row.Text << '"';
        if (row.Field == nullptr) {
            EXPECT_EQ(this->Stored(), before) << row.Format << " \"" << row.Text << '"';
        } else {
            EXPECT_EQ(this->Text(kWhole), row.Field) << row.Format << " \"" << row.Text << '"';
        }
    }
}

TYPED_TEST(DateItems, TextsAndFormatsOfAnyLengthAreRefused) {
    this->LoadWithRecord();
    const auto before = this->Stored();
    const std::string digits(5000, '1');
    const std::string letters(5000, 'Y');
    EXPECT_EQ(this->m_Records.WriteDateItem(kWhole, kDotted, digits.c_str()), kWrongLength);
    EXPECT_EQ(this->m_Records.WriteDateItem(kWhole, letters.c_str(), digits.c_str()), kUnusableFormat);
    EXPECT_EQ(this->m_Records.WriteDateItem(kWhole, digits.c_str(), digits.c_str()), kUnusableFormat);
    EXPECT_EQ(this->Stored(), before);
}

// --- Writing: the item's format -------------------------------------------------------------------------------------

struct CFieldRow {
    int Item;
    const char* Field; ///< after 28.02.1915 was written over "x" everywhere
};

// clang-format off
const CFieldRow kFields[] = {
    {kDate,      "28.02.1915"},
    {kWhole,     "19150228"},
    {kNoDay,     "191502"},
    {kShortYear, "28.02.15"}, // the century is dropped unchecked
    {kYearMonth, "1502"},
    {kYearOnly,  "          "}, // of no known layout: nothing is left
    {kWide,      "28.02.1915    "},
    {kRight,     "    28.02.1915"},
    {kNarrow,    "28.02.19"}, // cut to the item
    {kOddSeparator, "02r15"},
    {kUnaligned, "28.02.1915xxxx"}, // nothing pads it: kept on purpose
    {kLimited,   "28.02.1915"},     // neither list nor ranges count for dates
};
// clang-format on

TYPED_TEST(DateItems, ADateIsStoredInTheItemsFormatAndPadded) {
    this->LoadAll();
    for (const CFieldRow& row : kFields) {
        this->Read(CRecordBuilder().Add("X1").Put(2, std::string(126, 'x')));
        EXPECT_EQ(this->m_Records.WriteDateItem(row.Item, kDotted, "28.02.1915"), kOk) << row.Item;
        EXPECT_EQ(this->Text(row.Item), row.Field) << row.Item;
        std::string line = "X1" + std::string(126, 'x');
        line.replace(kPlace - 1, std::string(row.Field).size(), row.Field);
        EXPECT_EQ(this->Line("X1"), line) << row.Item;
    }
}

TYPED_TEST(DateItems, ADayThatTheDateLacksIsLeftOut) {
    this->LoadWithRecord();
    EXPECT_EQ(this->m_Records.WriteDateItem(kDate, "MM.YYYY", "02.2015"), kOk);
    EXPECT_EQ(this->Text(kDate), ".02.2015  ");
    EXPECT_EQ(this->Read(kDate, kDotted), Answer(kWrongLength, ""));
}

TYPED_TEST(DateItems, AnItemWithoutAPatternCannotBeWritten) {
    this->LoadWithRecord();
    const auto before = this->Stored();
    EXPECT_EQ(this->m_Records.WriteDateItem(kWithoutPattern, kDotted, "28.02.2015"), kNoPattern);
    EXPECT_EQ(this->m_Records.WriteItem(kWithoutPattern, "20150228"), kNoPattern);
    EXPECT_EQ(this->Stored(), before);
}

TYPED_TEST(DateItems, ARewrittenDateThatReadsErrorIsRefusedOnPurpose) {
    this->LoadWithRecord();
    const auto before = this->Stored();
    EXPECT_EQ(this->m_Records.WriteItem(kOddSeparator, "..orEr"), kIsError);
    EXPECT_EQ(this->Stored(), before);
    EXPECT_EQ(this->m_Records.WriteItem(kOddSeparator, "..oxEr"), kOk);
    EXPECT_EQ(this->Text(kOddSeparator), "Errox");
}

TYPED_TEST(DateItems, AnItemOutsideTheLineKeepsNothing) {
    this->LoadWithRecord();
    const auto before = this->Stored();
    EXPECT_EQ(this->m_Records.WriteDateItem(kBeforeLine, kDotted, "28.02.2015"), kOk);
    EXPECT_EQ(this->Stored(), before);
    EXPECT_EQ(this->Read(kBeforeLine, kDotted), Answer(kBlank, ""));
}

TYPED_TEST(DateItems, ADateCanBeAWholeEntry) {
    this->LoadAll();
    EXPECT_EQ(this->m_Records.WriteDateItem(kEntry, "YYYYMMDD", "20150228"), kOk);
    EXPECT_EQ(this->m_Records.WriteDateItem(kEntry, "YYYYMMDD", "20160229"), kOk);
    EXPECT_EQ(this->Field("G5", 8, 20), "28.02.201529.02.2016");
    EXPECT_EQ(this->m_Records.WriteDateItem(15050, "YYYYMMDD", "20150228"), kNotTheKey);
    ASSERT_EQ(this->m_Records.ReadFirst(kEntry), kOk);
    EXPECT_EQ(this->Read(kEntry, "YYMMDD"), Answer(kOk, "150228"));
    for (int i = 0; i < 12; ++i) { // an entry of ten characters fits twelve times
        ASSERT_EQ(this->m_Records.ReadNext(kEntry), kOk);
    }
    EXPECT_EQ(this->Read(kEntry, "YYMMDD"), Answer(kNoMore, "untouched"));
}

// --- Reading --------------------------------------------------------------------------------------------------------

struct CReadRow {
    int Item;
    const char* Field;
    const char* Format;
    int Code;
    const char* Text;
};

// clang-format off
const CReadRow kReads[] = {
    // item           field             format         code             text
    {kDate,          "28.02.2015",     "YYYYMMDD",    kOk,             "20150228"},
    {kDate,          "28.02.2015",     "DD.MM.YY",    kOk,             "28.02.15"},
    {kDate,          "28.02.2015",     "MM.YYYY",     kOk,             "02.2015"},
    {kDate,          "31.09.2015",     "YYYYMMDD",    kOk,             "20150931"},
    {kWide,          "28.02.2015",     "YYYYMMDD",    kOk,             "20150228"},
    {kWide,          "  28.02.2015",   "YYYYMMDD",    kOk,             "20150228"},
    {kShortYear,     "30.12.50",       "YYYYMMDD",    kOk,             "20501230"},
    {kShortYear,     "01.01.51",       "YYYYMMDD",    kOk,             "19510101"},
    {kYearMonth,     "5012",           "MM/YYYY",     kOk,             "12/2050"},
    {kYearMonth,     "5101",           "MM/YYYY",     kOk,             "01/1951"},
    {kYearMonth,     "1502",           kDotted,       kOk,             ".02.2015"}, // no day to put there
    // a blank field comes first
    {kDate,          "",               kDotted,       kBlank,          ""},
    {kDate,          "",               "nonsense",    kBlank,          ""},
    {kYearOnly,      "",               "nonsense",    kBlank,          ""},
    {kWithoutPattern, "",              kDotted,       kBlank,          ""},
    // then the item's own pattern
    {kYearOnly,      "2015",           kDotted,       kUnusableFormat, ""},
    {kYearOnly,      "2015.02.28",     kDotted,       kUnusableFormat, ""},
    {kWithoutPattern, "28.02.2015",    kDotted,       kUnusableFormat, ""},
    // then its text, in its own order
    {kDate,          "1.1.2001",       kDotted,       kWrongLength,    ""},
    {kDate,          " 8.02.2015",     kDotted,       kWrongLength,    ""}, // blanks at both ends do not count
    {kDate,          "1.1.2001",       "nonsense",    kWrongLength,    ""},
    {kDate,          "28-02-20xx",     "nonsense",    kWrongSeparator, ""},
    {kDate,          "99.99.20xx",     "nonsense",    kNotDigits,      ""},
    {kDate,          "31.08.2015",     "nonsense",    kNoSuchDay,      ""},
    {kDate,          "31.08.2015",     kDotted,       kNoSuchDay,      ""},
    {kDate,          "00.00.0000",     kDotted,       kNoSuchDay,      ""},
    {kNarrow,        "28.02.20",       kDotted,       kWrongLength,    ""},
    // and then the caller's format
    {kDate,          "28.02.2015",     "nonsense",    kUnusableFormat, ""},
    {kDate,          "28.02.2015",     "",            kUnusableFormat, ""},
    {kDate,          "28.02.2015",     "dd.mm.yyyy",  kUnusableFormat, ""},
    {kDate,          "28.02.2015",     "YYYY",        kUnusableFormat, ""},
};
// clang-format on

TYPED_TEST(DateItems, ADateIsReadInTheCallersFormatOrItsFirstFaultIsTold) {
    this->LoadWithRecord();
    for (const CReadRow& row : kReads) {
        this->Blank();
        this->Put(row.Item, row.Field);
        const auto before = this->Stored();
        EXPECT_EQ(this->Read(row.Item, row.Format), Answer(row.Code, row.Text))
            << row.Item << " \"" << row.Field << "\" " << row.Format;
        EXPECT_EQ(this->Stored(), before);
    }
}

TYPED_TEST(DateItems, ADateIsCutToTheBuffer) {
    this->LoadWithRecord();
    this->Put(kDate, "28.02.2015");
    const std::string text = "2015-02-28";
    for (const int size : {INT_MIN, -1, 0, 1, 2, 10, 11, 12}) {
        CGuardBuffer buffer(size > 0 ? static_cast<std::size_t>(size) : 0);
        const int code = size > 10 ? kOk : kCut;
        EXPECT_EQ(this->m_Records.ReadDateItem(kDate, "YYYY-MM-DD", buffer.Data(), size), code) << size;
        if (size > 0) {
            EXPECT_EQ(buffer.Text(), text.substr(0, static_cast<std::size_t>(size - 1))) << size;
        }
    }
}

TYPED_TEST(DateItems, AnEmptyTextFitsABufferOfOneCharacterButNotOfNone) {
    this->LoadWithRecord();
    CGuardBuffer buffer(1);
    EXPECT_EQ(this->m_Records.ReadDateItem(kDate, kDotted, buffer.Data(), 0), kCut);
    EXPECT_TRUE(buffer.IsUntouched());
    EXPECT_EQ(this->m_Records.ReadDateItem(kDate, kDotted, buffer.Data(), 1), kBlank);
    EXPECT_EQ(buffer.Bytes(), std::string(1, '\0'));
}

TYPED_TEST(DateItems, TheTextOfADateItemIsCanonicalAndUncheckedWhenItIsWrittenAsText) {
    this->LoadWithRecord();
    EXPECT_EQ(this->m_Records.WriteItem(kDate, "20150831"), kOk);
    EXPECT_EQ(this->Text(kDate), "31.08.2015");
    EXPECT_EQ(this->Read(kDate, kDotted), Answer(kNoSuchDay, ""));
}

} // namespace
