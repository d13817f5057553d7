// Items as numbers: every way to read and to write them by item number.
#include <climits>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "support/decimal_comma_locale.h"
#include "support/guard_buffer.h"
#include "support/item_test.h"

namespace {

using namespace item_codes;
using ::testing::IsEmpty;

constexpr int kNoMore = -5;
constexpr int kNotTheKey = -6;
constexpr int kWrongParts = -7;
constexpr int kEmpty = -14;
constexpr int kBufferTooSmall = -17;
constexpr int kWrongDecimals = -55;
constexpr int kNotListed = -61;
constexpr int kOutOfRange = -62;
constexpr int kDoesNotFit = -65;
constexpr int kNotANumber = -66;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// Items of "X1", all at one place but for the two before the line.
constexpr int kText = 1005;
constexpr int kDate = 1015;
constexpr int kInt = 1100;
constexpr int kFloat = 1105;
constexpr int kAmount = 1110;
constexpr int kUnformatted = 1115;
constexpr int kIntSignAtEnd = 1120;
constexpr int kIntSignAtBegin = 1125;
constexpr int kImpliedPoint = 1130;
constexpr int kSigned = 1135;
constexpr int kRanges = 1140;
constexpr int kListed = 1145;
constexpr int kOpenBelow = 1150;
constexpr int kOpenAbove = 1155;
constexpr int kFilled = 1160;
constexpr int kFloatSignAtEnd = 1165;
constexpr int kFloatSignAtBegin = 1170;
constexpr int kLong = 1175;
constexpr int kLeft = 1180;
constexpr int kUnplaced = 1185;
constexpr int kListedAndRanges = 1190;
constexpr int kIntBeforeLine = 1195;
constexpr int kFloatBeforeLine = 1200;
constexpr int kWide = 1205;
constexpr int kNotInLayout = 1341;
constexpr int kEntry = 15150; // the only item of an entry of "G5"
constexpr int kNoType = 500;

constexpr int kPlace = 10;

CTableBuilder Table() {
    CTableBuilder table;
    table.Section("X1")
        .Item(kText, 4, kPlace, "C")
        .Item(kDate, 10, kPlace, "D,,,,,,DD.MM.YYYY")
        .Item(kInt, 6, kPlace, "N,,,R 6.0")
        .Item(kFloat, 8, kPlace, "N,,,R 5.2")
        .Item(kAmount, 8, kPlace, "N,,\"0\",PRE 5.2")
        .Item(kUnformatted, 6, kPlace, "N")
        .Item(kIntSignAtEnd, 6, kPlace, "N,,,EL 5.0")
        .Item(kIntSignAtBegin, 6, kPlace, "N,,,BR 5.0")
        .Item(kImpliedPoint, 7, kPlace, "N,,\"0\",PR 5.2")
        .Item(kSigned, 6, kPlace, "N,,,SR 5.0")
        .Item(kRanges, 6, kPlace, "N,,,R 4.1,<1;10>;(20;30)")
        .Item(kListed, 6, kPlace, "N,,,R 4.1,,(1;2.5;3,5)")
        .Item(kOpenBelow, 6, kPlace, "N,,,R 4.1,(;10>")
        .Item(kOpenAbove, 6, kPlace, "N,,,R 4.1,<-5;)")
        .Item(kFilled, 6, kPlace, "N,,\"*\",R 6.0")
        .Item(kFloatSignAtEnd, 8, kPlace, "N,,,ER 5.2")
        .Item(kFloatSignAtBegin, 8, kPlace, "N,,,BL 5.2")
        .Item(kLong, 16, kPlace, "N,,,R 12.3")
        .Item(kLeft, 6, kPlace, "N,,,L 3.2")
        .Item(kUnplaced, 6, kPlace, "N,,,P 4.2")
        .Item(kListedAndRanges, 8, kPlace, "N,,,R 5.2,<0;100>,(5;50;500;0.123)")
        .Item(kIntBeforeLine, 6, 0, "N,,,R 6.0")
        .Item(kFloatBeforeLine, 6, 0, "N,,,R 3.2")
        .Item(kWide, 20, kPlace, "N,,,R 11.0");
    table.Section("G5").Item(15000, 2, 1, "C").Item(15050, 4, 3, "N,,,R 4.0").Item(kEntry, 8, 8, "N,,,R 5.2");
    return table;
}

template <typename Value>
struct CWriteRow {
    int Item;
    Value Number;
    int Code;
    const char* Field; ///< nullptr: as it was
};

template <typename RecordSet>
class NumericItems : public CItemTest<RecordSet> {
protected:
    using Operation = CItemOperation<RecordSet>;

    void LoadAll() { this->Load(Table()); }
    /// One blank line of "X1".
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

    /// Writes each number into a blank line and looks at its field.
    template <typename Value, std::size_t Count, typename Write>
    void CheckWrites(const CWriteRow<Value> (&rows)[Count], Write write) {
        for (const CWriteRow<Value>& row : rows) {
            Blank();
            const std::string before = this->Text(row.Item);
            EXPECT_EQ(write(row.Item, row.Number), row.Code) << row.Item << ' ' << row.Number;
            EXPECT_EQ(this->Text(row.Item), row.Field == nullptr ? before : row.Field) << row.Item << ' ' << row.Number;
        }
    }

    static std::vector<Operation> Reads() {
        return {
            {"ReadIntItem text", [](RecordSet& r, int item) { return r.ReadIntItem(item, Scratch(), kScratch); }},
            {"ReadIntItem", [](RecordSet& r, int item) { return r.ReadIntItem(item, ScratchInt()); }},
            {"ReadFloatItem text", [](RecordSet& r, int item) { return r.ReadFloatItem(item, Scratch(), kScratch); }},
            {"ReadFloatItem", [](RecordSet& r, int item) { return r.ReadFloatItem(item, ScratchDouble()); }}};
    }
    static std::vector<Operation> Writes() {
        return {{"WriteIntItem text", [](RecordSet& r, int item) { return r.WriteIntItem(item, "12"); }},
                {"WriteIntItem", [](RecordSet& r, int item) { return r.WriteIntItem(item, 12); }},
                {"WriteFloatItem text", [](RecordSet& r, int item) { return r.WriteFloatItem(item, "12"); }},
                {"WriteFloatItem", [](RecordSet& r, int item) { return r.WriteFloatItem(item, 12.0); }},
                {"WriteRoundFloatItem", [](RecordSet& r, int item) { return r.WriteRoundFloatItem(item, 12.0); }}};
    }
    static std::vector<Operation> WritesOfNoNumber() {
        return {{"WriteIntItem text", [](RecordSet& r, int item) { return r.WriteIntItem(item, "1x"); }},
                {"WriteFloatItem text", [](RecordSet& r, int item) { return r.WriteFloatItem(item, "1x"); }}};
    }
    static std::vector<Operation> SmallReads() {
        return {{"ReadIntItem text", [](RecordSet& r, int item) { return r.ReadIntItem(item, Scratch(), 14); }},
                {"ReadFloatItem text", [](RecordSet& r, int item) { return r.ReadFloatItem(item, Scratch(), 14); }}};
    }
    static std::vector<Operation> EmptyWrites() {
        return {{"WriteIntItem text", [](RecordSet& r, int item) { return r.WriteIntItem(item, ""); }},
                {"WriteFloatItem text", [](RecordSet& r, int item) { return r.WriteFloatItem(item, ""); }}};
    }
    static std::vector<Operation> WithNull() {
        return {{"ReadIntItem text", [](RecordSet& r, int item) { return r.ReadIntItem(item, nullptr, kScratch); }},
                {"ReadIntItem small", [](RecordSet& r, int item) { return r.ReadIntItem(item, nullptr, 14); }},
                {"ReadFloatItem text", [](RecordSet& r, int item) { return r.ReadFloatItem(item, nullptr, kScratch); }},
                {"ReadFloatItem small", [](RecordSet& r, int item) { return r.ReadFloatItem(item, nullptr, 14); }},
                {"WriteIntItem text", [](RecordSet& r, int item) { return r.WriteIntItem(item, nullptr); }},
                {"WriteFloatItem text", [](RecordSet& r, int item) { return r.WriteFloatItem(item, nullptr); }}};
    }

private:
    static constexpr int kScratch = 15;
    static char* Scratch() {
        static std::string scratch(kScratch, '\0');
        return scratch.data();
    }
    static int& ScratchInt() {
        static int value = 0;
        return value;
    }
    static double& ScratchDouble() {
        static double value = 0.0;
        return value;
    }
};

TYPED_TEST_SUITE(NumericItems, RecordSetClasses, CRecordSetClassName);

// --- What is answered first -----------------------------------------------------------------------------------------

TYPED_TEST(NumericItems, WithoutATableEverythingIsRefused) {
    for (const auto& operations :
         {this->Reads(), this->Writes(), this->SmallReads(), this->EmptyWrites(), this->WithNull()}) {
        for (const auto& operation : operations) {
            EXPECT_EQ(operation.Call(this->m_Records, kInt), kNoTable) << operation.Name;
            EXPECT_EQ(operation.Call(this->m_Records, kNoType), kNoTable) << operation.Name;
        }
    }
    EXPECT_THAT(this->Types(), IsEmpty());
}

TYPED_TEST(NumericItems, NullArgumentsAreRefusedBeforeAllElse) {
    this->LoadAll();
    for (const auto& operation : this->WithNull()) {
        EXPECT_EQ(operation.Call(this->m_Records, kInt), kMissing) << operation.Name;
        EXPECT_EQ(operation.Call(this->m_Records, kNoType), kMissing) << operation.Name;
    }
    EXPECT_THAT(this->Types(), IsEmpty());
    this->Blank();
    const auto before = this->Stored();
    for (const auto& operation : this->WithNull()) {
        EXPECT_EQ(operation.Call(this->m_Records, kText), kMissing) << operation.Name;
    }
    EXPECT_EQ(this->Stored(), before);
}

TYPED_TEST(NumericItems, ABufferBelow15CharactersIsRefusedBeforeTheRecordIsLookedFor) {
    this->LoadAll();
    for (const int item : {kInt, kFloat, kText, kNoType, kNotInLayout, -1}) {
        for (const auto& operation : this->SmallReads()) {
            EXPECT_EQ(operation.Call(this->m_Records, item), kBufferTooSmall) << operation.Name << ' ' << item;
        }
    }
    this->Blank();
    for (const auto& operation : this->SmallReads()) {
        EXPECT_EQ(operation.Call(this->m_Records, kInt), kBufferTooSmall) << operation.Name; // a blank field
        EXPECT_EQ(operation.Call(this->m_Records, kText), kBufferTooSmall) << operation.Name;
    }
}

TYPED_TEST(NumericItems, EverySizeBelow15LeavesTheBuffer) {
    this->LoadWithRecord();
    this->Put(kInt, "12");
    for (const int size : {INT_MIN, -1, 0, 1, 2, 14}) {
        CGuardBuffer buffer(15);
        EXPECT_EQ(this->m_Records.ReadIntItem(kInt, buffer.Data(), size), kBufferTooSmall) << size;
        EXPECT_EQ(this->m_Records.ReadFloatItem(kFloat, buffer.Data(), size), kBufferTooSmall) << size;
        EXPECT_TRUE(buffer.IsUntouched()) << size;
    }
    CGuardBuffer buffer(15);
    EXPECT_EQ(this->m_Records.ReadIntItem(kInt, buffer.Data(), buffer.Size()), kOk);
    EXPECT_EQ(buffer.Text(), "12");
    EXPECT_EQ(this->m_Records.ReadFloatItem(kFloat, buffer.Data(), buffer.Size()), kOk);
    EXPECT_EQ(buffer.Text(), "12");
}

TYPED_TEST(NumericItems, AnEmptyTextIsRefusedBeforeTheRecordIsLookedFor) {
    this->LoadAll();
    for (const int item : {kInt, kText, kNoType, kNotInLayout, kEntry}) {
        for (const auto& operation : this->EmptyWrites()) {
            EXPECT_EQ(operation.Call(this->m_Records, item), kEmpty) << operation.Name << ' ' << item;
        }
    }
    EXPECT_THAT(this->Types(), IsEmpty());
}

TYPED_TEST(NumericItems, NumbersThatNoTypeOwnsNameNothing) {
    this->LoadAll();
    for (const int item : {kNoType, 0, 999, 1342, 8000, 100500, -1, INT_MIN, INT_MAX}) {
        for (const auto& operations : {this->Reads(), this->Writes(), this->WritesOfNoNumber()}) {
            for (const auto& operation : operations) {
                EXPECT_EQ(operation.Call(this->m_Records, item), kMissing) << operation.Name << ' ' << item;
            }
        }
    }
    EXPECT_THAT(this->Types(), IsEmpty());
}

TYPED_TEST(NumericItems, ReadingNeedsTheRecordAndCreatesNone) {
    this->LoadAll();
    for (const auto& operation : this->Reads()) {
        EXPECT_EQ(operation.Call(this->m_Records, kInt), kMissing) << operation.Name;
        EXPECT_EQ(operation.Call(this->m_Records, kText), kMissing) << operation.Name;
    }
    EXPECT_THAT(this->Types(), IsEmpty());
}

TYPED_TEST(NumericItems, AnItemThatTheLayoutLacksIsMissing) {
    this->LoadWithRecord();
    for (const auto& operations : {this->Reads(), this->Writes(), this->WritesOfNoNumber()}) {
        for (const auto& operation : operations) {
            EXPECT_EQ(operation.Call(this->m_Records, kNotInLayout), kMissing) << operation.Name;
        }
    }
}

TYPED_TEST(NumericItems, ItemsOfOtherFormatsAreRefusedBeforeTheirDecimalsAndTheValueAreLookedAt) {
    this->LoadWithRecord();
    const auto before = this->Stored();
    for (const int item : {kText, kDate}) {
        for (const auto& operations : {this->Reads(), this->Writes(), this->WritesOfNoNumber()}) {
            for (const auto& operation : operations) {
                EXPECT_EQ(operation.Call(this->m_Records, item), kWrongFormat) << operation.Name << ' ' << item;
            }
        }
    }
    EXPECT_EQ(this->Stored(), before);
}

TYPED_TEST(NumericItems, EveryWriteCreatesTheRecord) {
    for (const auto& operation : this->Writes()) {
        TypeParam records;
        ASSERT_EQ(this->LoadInto(records, Table(), this->m_Folder.PathOf("layouts.table")), kOk);
        EXPECT_EQ(operation.Call(records, kInt), kOk) << operation.Name;
        ASSERT_NE(records.ExistRecord("X1"), nullptr) << operation.Name;
        EXPECT_EQ(std::string(records.ExistRecord("X1")->GetLine(0)).substr(0, 128), Padded("             12"));
    }
}

TYPED_TEST(NumericItems, TheRecordIsCreatedBeforeTheItemItsFormatAndTheNumberAreLookedAt) {
    const std::vector<std::pair<int, int>> items = {
        {kNotInLayout, kMissing}, {kText, kWrongFormat}, {kInt, kNotANumber}};
    for (const auto& [item, code] : items) {
        for (const auto& operation : this->WritesOfNoNumber()) {
            TypeParam records;
            ASSERT_EQ(this->LoadInto(records, Table(), this->m_Folder.PathOf("layouts.table")), kOk);
            EXPECT_EQ(operation.Call(records, item), code) << operation.Name << ' ' << item;
            ASSERT_NE(records.ExistRecord("X1"), nullptr) << operation.Name << ' ' << item;
            EXPECT_EQ(records.ExistRecord("X1")->GetLine(0), Padded("", 130)) << operation.Name << ' ' << item;
        }
    }
}

TYPED_TEST(NumericItems, EveryNumericItemIsReadByOneOfTheTwoOperationsOnly) {
    this->LoadWithRecord();
    for (const int item : {kInt, kUnformatted, kIntSignAtEnd, kWide}) {
        double value = 7.0;
        EXPECT_EQ(this->m_Records.ReadFloatItem(item, value), kWrongDecimals) << item;
        CGuardBuffer buffer(15);
        EXPECT_EQ(this->m_Records.ReadFloatItem(item, buffer.Data(), buffer.Size()), kWrongDecimals) << item;
        EXPECT_TRUE(buffer.IsUntouched());
    }
    for (const int item : {kFloat, kAmount, kRanges, kUnplaced}) {
        int value = 7;
        EXPECT_EQ(this->m_Records.ReadIntItem(item, value), kWrongDecimals) << item;
        CGuardBuffer buffer(15);
        EXPECT_EQ(this->m_Records.ReadIntItem(item, buffer.Data(), buffer.Size()), kWrongDecimals) << item;
        EXPECT_TRUE(buffer.IsUntouched());
    }
}

// --- Reading integers -----------------------------------------------------------------------------------------------

struct CIntRow {
    int Item;
    const char* Field;
    int Value;
    int Code; ///< by reference; as a text, a blank field is "" with 0
};

// clang-format off
const CIntRow kIntFields[] = {
    // item            field          value       code
    {kInt,            "    12",       12,         kOk},
    {kInt,            "12",           12,         kOk},
    {kInt,            "+12",          12,         kOk},
    {kInt,            " -12 ",        -12,        kOk},
    {kInt,            "000007",       7,          kOk},
    {kInt,            "0",            0,          kOk},
    {kInt,            "",             0,          kBlank},
    {kInt,            "12a",          12,         kNotANumber},
    {kInt,            "1 2",          1,          kNotANumber},
    {kInt,            "1.5",          1,          kNotANumber},
    {kInt,            "1,5",          1,          kNotANumber},
    {kInt,            "1e3",          1,          kNotANumber},
    {kInt,            "0x1F",         0,          kNotANumber},
    {kInt,            "abc",          0,          kNotANumber},
    {kInt,            "-",            0,          kNotANumber},
    {kInt,            "- 12",         0,          kNotANumber},
    {kInt,            "12-",          12,         kNotANumber},
    {kUnformatted,    " 42",          42,         kOk},
    {kWide,           "2147483647",   INT_MAX,    kOk},
    {kWide,           "-2147483648",  INT_MIN,    kOk},
    // A sign at the end is understood, but leaves a blank that makes the field no number: kept on purpose.
    {kIntSignAtEnd,   "12   -",       -12,        kNotANumber},
    {kIntSignAtEnd,   "12-",          -12,        kNotANumber},
    {kIntSignAtEnd,   "12+",          12,         kNotANumber},
    {kIntSignAtEnd,   "-12-",         12,         kNotANumber},
    {kIntSignAtEnd,   "1x-",          -1,         kNotANumber},
    {kIntSignAtEnd,   "12",           12,         kOk},
    {kIntSignAtEnd,   "-12",          -12,        kOk},
    {kIntSignAtEnd,   "     -",       0,          kBlank},
    {kIntSignAtEnd,   "+",            0,          kBlank},
    {kIntSignAtEnd,   "",             0,          kBlank},
    {kIntSignAtBegin, "-   12",       -12,        kOk},
    {kIntSignAtBegin, "+   12",       12,         kOk},
    {kIntSignAtBegin, "-12",          -12,        kOk},
    {kIntSignAtBegin, "12",           12,         kOk},
    {kIntSignAtBegin, "--12",         12,         kOk},
    {kIntSignAtBegin, "+-12",         -12,        kOk},
    {kIntSignAtBegin, "-+12",         -12,        kOk},
    {kIntSignAtBegin, "12-",          12,         kNotANumber},
    {kIntSignAtBegin, "-",            0,          kBlank},
    {kIntSignAtBegin, "",             0,          kBlank},
};
// clang-format on

TYPED_TEST(NumericItems, AnIntegerIsReadByReference) {
    this->LoadWithRecord();
    for (const CIntRow& row : kIntFields) {
        this->Blank();
        this->Put(row.Item, row.Field);
        int value = 4711;
        EXPECT_EQ(this->m_Records.ReadIntItem(row.Item, value), row.Code) << row.Item << " \"" << row.Field << '"';
        EXPECT_EQ(value, row.Value) << row.Item << " \"" << row.Field << '"';
    }
}

TYPED_TEST(NumericItems, AnIntegerIsReadAsTextAndABlankFieldAsNoText) {
    this->LoadWithRecord();
    for (const CIntRow& row : kIntFields) {
        this->Blank();
        this->Put(row.Item, row.Field);
        CGuardBuffer buffer(15);
        const bool isBlank = row.Code == kBlank;
        EXPECT_EQ(this->m_Records.ReadIntItem(row.Item, buffer.Data(), buffer.Size()), isBlank ? kOk : row.Code)
            << row.Item << " \"" << row.Field << '"';
        EXPECT_EQ(buffer.Text(), isBlank ? "" : std::to_string(row.Value)) << row.Item << " \"" << row.Field << '"';
    }
}

TYPED_TEST(NumericItems, AnIntegerOutsideTheRangeOfIntIsNoNumber) {
    this->LoadWithRecord();
    for (const char* field : {"2147483648", "-2147483649", "99999999999999999999"}) {
        this->Put(kWide, field);
        int value = 0;
        EXPECT_EQ(this->m_Records.ReadIntItem(kWide, value), kNotANumber) << field;
        CGuardBuffer buffer(15);
        EXPECT_EQ(this->m_Records.ReadIntItem(kWide, buffer.Data(), buffer.Size()), kNotANumber) << field;
    }
}

// --- Reading floating-point numbers ---------------------------------------------------------------------------------

struct CFloatRow {
    int Item;
    const char* Field;
    double Value;
    int Code; ///< by reference; as a text, a blank field is "" with 0
    const char* Text;
};

// clang-format off
const CFloatRow kFloatFields[] = {
    // item              field               value        code         text
    {kFloat,            "   12.50",          12.5,        kOk,         "12.5"},
    {kFloat,            "12,50",             12.5,        kOk,         "12.5"},
    {kFloat,            "  -12.50",          -12.5,       kOk,         "-12.5"},
    {kFloat,            "+12.5",             12.5,        kOk,         "12.5"},
    {kFloat,            "12",                12.0,        kOk,         "12"},
    {kFloat,            "-.5",               -0.5,        kOk,         "-0.5"},
    {kFloat,            "5.",                5.0,         kOk,         "5"},
    {kFloat,            "1e2",               100.0,       kOk,         "100"},
    {kFloat,            "0",                 0.0,         kOk,         "0"},
    {kFloat,            "",                  0.0,         kBlank,      ""},
    {kFloat,            "12x",               12.0,        kNotANumber, nullptr},
    {kFloat,            "abc",               0.0,         kNotANumber, nullptr},
    {kFloat,            "1.5 5",             1.5,         kNotANumber, nullptr},
    {kFloat,            "1.5,5",             1.5,         kNotANumber, nullptr},
    {kFloat,            "12-",               12.0,        kNotANumber, nullptr},
    {kFloat,            ".",                 0.0,         kNotANumber, nullptr},
    {kAmount,           "0001250-",          -12.5,       kOk,         "-12.5"},
    {kAmount,           "0001250+",          12.5,        kOk,         "12.5"},
    {kAmount,           "1250 -",            -12.5,       kOk,         "-12.5"},
    {kAmount,           "1250",              12.5,        kOk,         "12.5"},
    {kAmount,           "12.5-",             -0.125,      kOk,         "-0.125"}, // divided although it has a point
    {kAmount,           "-",                 0.0,         kBlank,      ""},
    {kAmount,           "",                  0.0,         kBlank,      ""},
    {kImpliedPoint,     "0001250",           12.5,        kOk,         "12.5"},
    {kImpliedPoint,     "-1250",             -12.5,       kOk,         "-12.5"},
    {kImpliedPoint,     "12x",               12.0,        kNotANumber, nullptr}, // unscaled
    {kFloatSignAtEnd,   "   12.5-",          -12.5,       kOk,         "-12.5"},
    {kFloatSignAtEnd,   "-12.5-",            12.5,        kOk,         "12.5"},
    {kFloatSignAtEnd,   "      +",           0.0,         kBlank,      ""},
    {kFloatSignAtBegin, "-12.50",            -12.5,       kOk,         "-12.5"},
    {kFloatSignAtBegin, "-  12.5",           -12.5,       kOk,         "-12.5"},
    {kFloatSignAtBegin, "+-12.5",            -12.5,       kOk,         "-12.5"},
    {kFloatSignAtBegin, "-",                 0.0,         kBlank,      ""},
    // six significant digits
    {kLong,             "1234567.5",         1234567.5,   kOk,         "1.23457e+06"},
    {kLong,             "123456.7",          123456.7,    kOk,         "123457"},
    {kLong,             "100000",            100000.0,    kOk,         "100000"},
    {kLong,             "1000000",           1e6,         kOk,         "1e+06"},
    {kLong,             "999999.5",          999999.5,    kOk,         "1e+06"},
    {kLong,             "0.0001",            0.0001,      kOk,         "0.0001"},
    {kLong,             "0.00001",           0.00001,     kOk,         "1e-05"},
    {kLong,             "0.1234567",         0.1234567,   kOk,         "0.123457"},
    {kLong,             "-1234567890.125",   -1234567890.125, kOk,     "-1.23457e+09"},
    {kLong,             "1e300",             1e300,       kOk,         "1e+300"},
    {kLong,             "-1.23456789e-300",  -1.23456789e-300, kOk,    "-1.23457e-300"},
};
// clang-format on

TYPED_TEST(NumericItems, AFloatingPointNumberIsReadByReference) {
    this->LoadWithRecord();
    for (const CFloatRow& row : kFloatFields) {
        this->Blank();
        this->Put(row.Item, row.Field);
        double value = 4711.0;
        EXPECT_EQ(this->m_Records.ReadFloatItem(row.Item, value), row.Code) << row.Item << " \"" << row.Field << '"';
        EXPECT_EQ(value, row.Value) << row.Item << " \"" << row.Field << '"';
    }
}

TYPED_TEST(NumericItems, AFloatingPointNumberIsReadAsTextOfSixDigitsAndABlankFieldAsNoText) {
    this->LoadWithRecord();
    for (const CFloatRow& row : kFloatFields) {
        this->Blank();
        this->Put(row.Item, row.Field);
        CGuardBuffer buffer(15);
        const int code = row.Code == kBlank ? kOk : row.Code;
        EXPECT_EQ(this->m_Records.ReadFloatItem(row.Item, buffer.Data(), buffer.Size()), code)
            << row.Item << " \"" << row.Field << '"';
        if (row.Text != nullptr) {
            EXPECT_EQ(buffer.Text(), row.Text) << row.Item << " \"" << row.Field << '"';
        }
    }
}

TYPED_TEST(NumericItems, OtherSpellingsOfNumbersAreNone) {
    this->LoadWithRecord();
    for (const char* field : {"inf", "-INF", "nan", "0x10", "1e999", "infinity"}) {
        this->Put(kFloat, field);
        double value = 0.0;
        EXPECT_EQ(this->m_Records.ReadFloatItem(kFloat, value), kNotANumber) << field;
        EXPECT_EQ(this->m_Records.WriteFloatItem(kFloat, field), kNotANumber) << field;
    }
}

TYPED_TEST(NumericItems, AnItemOutsideTheLineIsBlankAndKeepsNothing) {
    this->LoadWithRecord();
    const auto before = this->Stored();
    int integer = 7;
    double number = 7.0;
    EXPECT_EQ(this->m_Records.WriteIntItem(kIntBeforeLine, 12), kOk);
    EXPECT_EQ(this->m_Records.WriteFloatItem(kFloatBeforeLine, 1.5), kOk);
    EXPECT_EQ(this->Stored(), before);
    EXPECT_EQ(this->m_Records.ReadIntItem(kIntBeforeLine, integer), kBlank);
    EXPECT_EQ(integer, 0);
    EXPECT_EQ(this->m_Records.ReadFloatItem(kFloatBeforeLine, number), kBlank);
    EXPECT_EQ(number, 0.0);
}

TYPED_TEST(NumericItems, AReadChangesNothing) {
    this->LoadWithRecord();
    this->Put(kAmount, "0001250-");
    const auto before = this->Stored();
    for (const int item : {kInt, kFloat, kAmount, kText, kNotInLayout}) {
        for (const auto& operation : this->Reads()) {
            operation.Call(this->m_Records, item);
        }
    }
    EXPECT_EQ(this->Stored(), before);
}

// --- Writing --------------------------------------------------------------------------------------------------------

// clang-format off
const CWriteRow<const char*> kIntTexts[] = {
    // item            text           code          field
    {kInt,            "12",           kOk,          "    12"},
    {kInt,            "-12",          kOk,          "   -12"},
    {kInt,            "+12",          kOk,          "   +12"}, // the caller's own text
    {kInt,            " 12",          kOk,          "    12"},
    {kInt,            "007",          kOk,          "   007"},
    {kInt,            "0",            kOk,          "     0"},
    {kInt,            "123456",       kOk,          "123456"},
    {kInt,            "1234567",      kDoesNotFit,  nullptr},
    {kInt,            "-12345",       kOk,          "-12345"},
    {kInt,            "-123456",      kDoesNotFit,  nullptr},
    {kInt,            "",             kEmpty,       nullptr},
    {kInt,            " ",            kNotANumber,  nullptr},
    {kInt,            "12 ",          kNotANumber,  nullptr},
    {kInt,            "1.5",          kNotANumber,  nullptr},
    {kInt,            "12.0",         kNotANumber,  nullptr},
    {kInt,            "abc",          kNotANumber,  nullptr},
    {kInt,            "-",            kNotANumber,  nullptr},
    {kInt,            "0x1F",         kNotANumber,  nullptr},
    {kWide,           "2147483647",   kOk,          "          2147483647"},
    {kWide,           "2147483648",   kNotANumber,  nullptr},
    {kFloat,          "12",           kOk,          "   12.00"},
    {kFloat,          "123456",       kDoesNotFit,  nullptr},
    {kUnformatted,    "12",           kOk,          "12    "},
    {kUnformatted,    "+7",           kOk,          "+7    "},
    {kUnformatted,    " 5",           kOk,          " 5    "},
    {kUnformatted,    "-12345",       kOk,          "-12345"},
    {kUnformatted,    "1234567",      kDoesNotFit,  nullptr},
    {kIntSignAtEnd,   "12",           kOk,          "12   +"},
    {kIntSignAtEnd,   "-12",          kOk,          "12   -"},
    {kIntSignAtEnd,   "12345",        kOk,          "12345+"},
    {kIntSignAtEnd,   "123456",       kDoesNotFit,  nullptr},
    {kIntSignAtBegin, "12",           kOk,          "+   12"},
    {kIntSignAtBegin, "-7",           kOk,          "-    7"},
    {kSigned,         "12",           kOk,          "   +12"},
    {kSigned,         "-12",          kOk,          "   -12"},
    {kSigned,         "+5",           kOk,          "   ++5"}, // a written plus is taken for a digit: kept on purpose
    {kImpliedPoint,   "12",           kOk,          "0001200"},
    {kImpliedPoint,   "99999",        kOk,          "9999900"},
    {kImpliedPoint,   "-99999",       kDoesNotFit,  nullptr},
    {kAmount,         "-12",          kOk,          "0001200-"},
    {kUnplaced,       "12",           kOk,          "      "}, // no digits without R or L: kept on purpose
    {kFilled,         "12",           kOk,          "****12"},
    {kFilled,         "-12",          kOk,          "***-12"}, // the sign stands behind the fill: kept on purpose
    {kLeft,           "12",           kOk,          "12.00 "},
    {kLeft,           "-12",          kOk,          "-12.00"},
};
// clang-format on

TYPED_TEST(NumericItems, AnIntegerIsWrittenFromText) {
    this->LoadWithRecord();
    this->CheckWrites(kIntTexts,
                      [this](int item, const char* text) { return this->m_Records.WriteIntItem(item, text); });
}

// clang-format off
const CWriteRow<int> kInts[] = {
    // item            value          code          field
    {kInt,            12,             kOk,          "    12"},
    {kInt,            -12,            kOk,          "   -12"},
    {kInt,            0,              kOk,          "     0"},
    {kInt,            123456,         kOk,          "123456"},
    {kInt,            1234567,        kDoesNotFit,  nullptr},
    {kInt,            -12345,         kOk,          "-12345"},
    {kInt,            -123456,        kDoesNotFit,  nullptr},
    {kWide,           INT_MAX,        kOk,          "          2147483647"},
    {kWide,           INT_MIN,        kOk,          "         -2147483648"},
    {kFloat,          12,             kOk,          "   12.00"},
    {kFloat,          -9999,          kOk,          "-9999.00"},
    {kFloat,          -99999,         kDoesNotFit,  nullptr},
    {kUnformatted,    -12,            kOk,          "-12   "},
    {kUnformatted,    1234567,        kDoesNotFit,  nullptr},
    {kAmount,         -12,            kOk,          "0001200-"},
    {kFilled,         7,              kOk,          "*****7"},
};
// clang-format on

TYPED_TEST(NumericItems, AnIntegerIsWrittenFromItsValue) {
    this->LoadWithRecord();
    this->CheckWrites(kInts, [this](int item, int value) { return this->m_Records.WriteIntItem(item, value); });
}

// clang-format off
const CWriteRow<const char*> kFloatTexts[] = {
    // item            text           code          field
    {kFloat,          "3.75",         kOk,          "    3.75"},
    {kFloat,          "3,75",         kOk,          "    3.75"},
    {kFloat,          "-3,75",        kOk,          "   -3.75"},
    {kFloat,          "3",            kOk,          "    3.00"},
    {kFloat,          ".5",           kOk,          "     .50"},
    {kFloat,          "-0,5",         kOk,          "   -0.50"},
    {kFloat,          "5.",           kOk,          "    5.00"},
    {kFloat,          "5,",           kOk,          "    5.00"},
    {kFloat,          "12.3400",      kOk,          "   12.34"},
    {kFloat,          "12.345",       kDoesNotFit,  nullptr},
    {kFloat,          "99999.99",     kOk,          "99999.99"},
    {kFloat,          "-99999.99",    kDoesNotFit,  nullptr}, // fills the field without its sign
    {kFloat,          "100000",       kDoesNotFit,  nullptr},
    {kFloat,          "-9999.99",     kOk,          "-9999.99"},
    {kFloat,          "1e2",          kOk,          "  1e2.00"}, // an exponent is taken for digits: kept on purpose
    {kFloat,          "1.5e1",        kDoesNotFit,  nullptr},
    {kFloat,          "",             kEmpty,       nullptr},
    {kFloat,          " ",            kNotANumber,  nullptr},
    {kFloat,          "12 ",          kNotANumber,  nullptr},
    {kFloat,          "1,2.5",        kNotANumber,  nullptr},
    {kFloat,          "1.2,5",        kNotANumber,  nullptr},
    {kFloat,          "1,2,5",        kNotANumber,  nullptr},
    {kFloat,          ",",            kNotANumber,  nullptr},
    {kFloat,          "abc",          kNotANumber,  nullptr},
    {kInt,            "12.000",       kOk,          "    12"}, // the point goes with its zeros
    {kInt,            "12,",          kOk,          "    12"},
    {kInt,            "12.5",         kDoesNotFit,  nullptr},
    {kUnformatted,    "3,75",         kOk,          "3.75  "},
    {kUnformatted,    "1e2",          kOk,          "1e2   "},
    {kUnformatted,    "3.14159",      kDoesNotFit,  nullptr},
    {kAmount,         "-12,5",        kOk,          "0001250-"},
    {kAmount,         "99999.99",     kOk,          "9999999+"},
    {kAmount,         "-99999.99",    kDoesNotFit,  nullptr}, // the point counts before it goes: kept on purpose
    {kAmount,         "9999.99",      kOk,          "0999999+"},
    {kImpliedPoint,   "12.5",         kOk,          "0001250"},
    {kImpliedPoint,   "-1234.5",      kDoesNotFit,  nullptr},
    {kFloatSignAtEnd, "12.5",         kOk,          "  12.50+"},
    {kFloatSignAtEnd, "-12.5",        kOk,          "  12.50-"},
    {kFloatSignAtBegin, "12.5",       kOk,          "+12.50  "},
    {kFloatSignAtBegin, "-12.5",      kOk,          "-12.50  "},
    {kLeft,           "1,5",          kOk,          "1.50  "},
    {kUnplaced,       "1.5",          kOk,          "      "},
};
// clang-format on

TYPED_TEST(NumericItems, AFloatingPointNumberIsWrittenFromText) {
    this->LoadWithRecord();
    this->CheckWrites(kFloatTexts,
                      [this](int item, const char* text) { return this->m_Records.WriteFloatItem(item, text); });
}

// clang-format off
const CWriteRow<double> kFloats[] = {
    // item            value          code          field
    {kFloat,          2.5,            kOk,          "    2.50"},
    {kFloat,          -12.5,          kOk,          "  -12.50"},
    {kFloat,          0.0,            kOk,          "    0.00"},
    {kFloat,          -0.0,           kOk,          "   -0.00"},
    {kFloat,          0.125,          kDoesNotFit,  nullptr},
    {kFloat,          1234.567,       kOk,          " 1234.57"}, // six significant digits
    {kFloat,          12345.67,       kOk,          "12345.70"},
    {kFloat,          99999.96,       kDoesNotFit,  nullptr},    // is printed as 100000
    {kFloat,          123456.0,       kDoesNotFit,  nullptr},
    {kFloat,          1e6,            kOk,          "1e+06.00"}, // an exponent is taken for digits: kept on purpose
    {kFloat,          1e-5,           kOk,          "1e-05.00"},
    {kFloat,          1234567.5,      kDoesNotFit,  nullptr},
    {kFloat,          kInfinity,      kNotANumber,  nullptr},
    {kFloat,          -kInfinity,     kNotANumber,  nullptr},
    {kFloat,          std::nan(""),   kNotANumber,  nullptr},
    {kLong,           123456.7,       kOk,          "      123457.000"},
    {kLong,           1234567.5,      kDoesNotFit,  nullptr},
    {kInt,            3.0,            kOk,          "     3"},
    {kInt,            3.5,            kDoesNotFit,  nullptr},
    {kUnformatted,    2.5,            kOk,          "2.5   "},
    {kUnformatted,    1e6,            kOk,          "1e+06 "},
    {kUnformatted,    1234567.5,      kDoesNotFit,  nullptr},
    {kAmount,         -12.5,          kOk,          "0001250-"},
};

const CWriteRow<double> kRoundedFloats[] = {
    // item            value          code          field
    {kFloat,          2.125,          kOk,          "    2.13"},
    // One half is added to negative numbers as well, and the rest cut off: kept on purpose.
    {kFloat,          -2.125,         kOk,          "   -2.12"},
    {kFloat,          -2.5,           kOk,          "   -2.49"},
    {kFloat,          -0.0078125,     kOk,          "   -0.00"},
    {kFloat,          2.5,            kOk,          "    2.50"},
    {kFloat,          0.00390625,     kOk,          "    0.00"},
    {kFloat,          -0.00390625,    kOk,          "    0.00"},
    {kFloat,          0.0078125,      kOk,          "    0.01"},
    {kFloat,          12345.678,      kOk,          "12345.70"}, // printed with six digits after rounding
    {kFloat,          99999.999,      kDoesNotFit,  nullptr},
    {kFloat,          1e6,            kOk,          "1e+06.00"},
    {kFloat,          kInfinity,      kNotANumber,  nullptr},
    {kFloat,          std::nan(""),   kNotANumber,  nullptr},
    {kInt,            2.5,            kOk,          "     3"},
    {kInt,            2.4,            kOk,          "     2"},
    {kInt,            -2.5,           kOk,          "    -2"},
    {kInt,            -2.7,           kOk,          "    -2"},
    {kInt,            -2.4,           kOk,          "    -1"},
    {kInt,            -0.25,          kOk,          "     0"},
    {kInt,            -0.75,          kOk,          "    -0"},
    {kUnformatted,    2.5,            kOk,          "3     "},
    {kAmount,         -12.5,          kOk,          "0001249-"},
    {kAmount,         12.5,           kOk,          "0001250+"},
};
// clang-format on

TYPED_TEST(NumericItems, AFloatingPointNumberIsWrittenWithSixSignificantDigits) {
    this->LoadWithRecord();
    this->CheckWrites(kFloats, [this](int item, double value) { return this->m_Records.WriteFloatItem(item, value); });
}

TYPED_TEST(NumericItems, AFloatingPointNumberIsRoundedToTheItemsDecimals) {
    this->LoadWithRecord();
    this->CheckWrites(kRoundedFloats,
                      [this](int item, double value) { return this->m_Records.WriteRoundFloatItem(item, value); });
}

TYPED_TEST(NumericItems, AnExponentInAFieldWithDecimalsReadsBackAsNoNumber) {
    this->LoadWithRecord();
    ASSERT_EQ(this->m_Records.WriteFloatItem(kFloat, 1e6), kOk);
    double value = 0.0;
    EXPECT_EQ(this->m_Records.ReadFloatItem(kFloat, value), kNotANumber);
    EXPECT_EQ(value, 1e6);
}

TYPED_TEST(NumericItems, TheAmountOfANegativeDozenAndAHalf) {
    this->LoadWithRecord();
    using Write = CItemOperation<TypeParam>;
    for (const Write& write : {Write{"double", [](TypeParam&r, int item) { return r.WriteFloatItem(item, -12.5); }},
                               Write{"point", [](TypeParam&r, int item) { return r.WriteFloatItem(item, "-12.5"); }},
                               Write{"comma", [](TypeParam&r, int item) { return r.WriteFloatItem(item, "-12,50"); }},
                               Write{"text", [](TypeParam&r, int item) { return r.WriteItem(item, "-12.5"); }}}) {
        this->Blank();
        EXPECT_EQ(write.Call(this->m_Records, kAmount), kOk) << write.Name;
        EXPECT_EQ(this->Field("X1", kPlace - 1, 10), " 0001250- ") << write.Name;
        double value = 0.0;
        EXPECT_EQ(this->m_Records.ReadFloatItem(kAmount, value), kOk) << write.Name;
        EXPECT_EQ(value, -12.5) << write.Name;
    }
}

TYPED_TEST(NumericItems, AFailedWriteChangesNothing) {
    this->LoadWithRecord();
    this->Put(kFloat, "12.50");
    const auto before = this->Stored();
    EXPECT_EQ(this->m_Records.WriteFloatItem(kFloat, 123456.0), kDoesNotFit);
    EXPECT_EQ(this->m_Records.WriteFloatItem(kFloat, "x"), kNotANumber);
    EXPECT_EQ(this->m_Records.WriteIntItem(kListed, 7), kNotListed);
    EXPECT_EQ(this->m_Records.WriteIntItem(kRanges, 70), kOutOfRange);
    EXPECT_EQ(this->m_Records.WriteRoundFloatItem(kFloat, 1e5), kDoesNotFit);
    EXPECT_EQ(this->Stored(), before);
}

TYPED_TEST(NumericItems, TextsOfAnyLengthAreTakenOrRefused) {
    this->LoadWithRecord();
    const auto before = this->Stored();
    for (const std::size_t length : {139, 140, 141, 5000}) {
        const std::string ones(length, '1');
        EXPECT_EQ(this->m_Records.WriteFloatItem(kFloat, ("x" + ones).c_str()), kNotANumber);
        EXPECT_EQ(this->m_Records.WriteFloatItem(kFloat, ("." + ones).c_str()), kDoesNotFit);
        EXPECT_EQ(this->m_Records.WriteIntItem(kInt, ones.c_str()), kNotANumber);
        EXPECT_EQ(this->m_Records.WriteIntItem(kInt, std::string(length, '0').c_str()), kDoesNotFit);
    }
    EXPECT_EQ(this->Stored(), before);
    const std::string zeros(130, '0');
    EXPECT_EQ(this->m_Records.WriteFloatItem(kFloat, ("2.5" + zeros).c_str()), kOk);
    EXPECT_EQ(this->Text(kFloat), "    2.50");
}

// --- Value lists and ranges -----------------------------------------------------------------------------------------

struct CCheckRow {
    int Item;
    const char* Number;
    int Code;
};

// clang-format off
const CCheckRow kChecks[] = {
    // item            number    code; the ranges are <1;10>;(20;30)
    {kRanges,          "0.9",    kOutOfRange},
    {kRanges,          "1",      kOk},
    {kRanges,          "1.0",    kOk},
    {kRanges,          "10",     kOk},
    {kRanges,          "10,1",   kOutOfRange},
    {kRanges,          "15",     kOutOfRange},
    {kRanges,          "20",     kOutOfRange},
    {kRanges,          "20.1",   kOk},
    {kRanges,          "29,9",   kOk},
    {kRanges,          "30",     kOutOfRange},
    {kRanges,          "-5",     kOutOfRange},
    // (;10>
    {kOpenBelow,       "10",     kOk},
    {kOpenBelow,       "10.1",   kOutOfRange},
    {kOpenBelow,       "-999.9", kOk},
    {kOpenBelow,       "-1e27",  kOutOfRange}, // an open bound has a number, and excludes it
    {kOpenBelow,       "-9e26",  kDoesNotFit},
    // <-5;)
    {kOpenAbove,       "-5",     kOk},
    {kOpenAbove,       "-5,1",   kOutOfRange},
    {kOpenAbove,       "9999.9", kOk},
    {kOpenAbove,       "1e27",   kOutOfRange},
    {kOpenAbove,       "9.9e26", kDoesNotFit},
    // (1;2.5;3,5)
    {kListed,          "1",      kOk},
    {kListed,          "1.0",    kOk},
    {kListed,          "01",     kOk},
    {kListed,          "2,5",    kOk},
    {kListed,          "3.5",    kOk},
    {kListed,          "3,50",   kOk},
    {kListed,          "2",      kNotListed},
    {kListed,          "-1",     kNotListed},
    {kListed,          "2.51",   kNotListed},
    // the list comes before the ranges, and both before the field
    {kListedAndRanges, "5",      kOk},
    {kListedAndRanges, "7",      kNotListed},
    {kListedAndRanges, "700",    kNotListed},
    {kListedAndRanges, "500",    kOutOfRange},
    {kListedAndRanges, "0.123",  kDoesNotFit},
    {kListedAndRanges, "1x",     kNotANumber},
};
// clang-format on

TYPED_TEST(NumericItems, ANumberIsHeldAgainstTheValueListThenTheRangesThenTheField) {
    this->LoadWithRecord();
    for (const CCheckRow& row : kChecks) {
        this->Blank();
        EXPECT_EQ(this->m_Records.WriteFloatItem(row.Item, row.Number), row.Code) << row.Item << ' ' << row.Number;
        EXPECT_EQ(this->m_Records.WriteItem(row.Item, row.Number), row.Code) << row.Item << ' ' << row.Number;
    }
}

TYPED_TEST(NumericItems, EveryFormOfWritingChecks) {
    this->LoadWithRecord();
    EXPECT_EQ(this->m_Records.WriteIntItem(kRanges, 15), kOutOfRange);
    EXPECT_EQ(this->m_Records.WriteIntItem(kRanges, "15"), kOutOfRange);
    EXPECT_EQ(this->m_Records.WriteFloatItem(kRanges, 10.1), kOutOfRange);
    EXPECT_EQ(this->m_Records.WriteRoundFloatItem(kRanges, 10.1), kOutOfRange);
    EXPECT_EQ(this->m_Records.WriteRoundFloatItem(kRanges, 10.03125), kOk); // rounded to 10 before it is checked
    EXPECT_EQ(this->m_Records.WriteIntItem(kListed, 2), kNotListed);
    EXPECT_EQ(this->m_Records.WriteFloatItem(kListed, 2.0), kNotListed);
    EXPECT_EQ(this->m_Records.WriteFloatItem(kListed, 2.5), kOk);
}

// --- Entry groups ---------------------------------------------------------------------------------------------------

TYPED_TEST(NumericItems, ANumberCanBeAWholeEntry) {
    this->LoadAll();
    EXPECT_EQ(this->m_Records.WriteIntItem(kEntry, 12), kOk);
    EXPECT_EQ(this->m_Records.WriteFloatItem(kEntry, "3,75"), kOk);
    EXPECT_EQ(this->m_Records.WriteRoundFloatItem(kEntry, 2.125), kOk);
    EXPECT_EQ(this->m_Records.WriteFloatItem(kEntry, 1.5), kOk);
    EXPECT_EQ(this->Field("G5", 8, 32), "   12.00    3.75    2.13    1.50");
    ASSERT_EQ(this->m_Records.ReadFirst(kEntry), kOk);
    double value = 0.0;
    EXPECT_EQ(this->m_Records.ReadFloatItem(kEntry, value), kOk);
    EXPECT_EQ(value, 12.0);
    ASSERT_EQ(this->m_Records.ReadNext(kEntry), kOk);
    EXPECT_EQ(this->m_Records.ReadFloatItem(kEntry, value), kOk);
    EXPECT_EQ(value, 3.75);
}

TYPED_TEST(NumericItems, CodesOfTheRecordTypeArePassedOn) {
    this->LoadAll();
    this->Read(CRecordBuilder().Add("G5"));
    EXPECT_EQ(this->m_Records.WriteIntItem(15050, 12), kNotTheKey);
    EXPECT_EQ(this->m_Records.WriteFloatItem(kEntry, 123456.0), kDoesNotFit);
    ASSERT_EQ(this->m_Records.ReadFirst(kEntry), kOk); // the write has moved on all the same
    for (int i = 0; i < 15; ++i) {                     // an entry of eight characters fits 15 times
        ASSERT_EQ(this->m_Records.ReadNext(kEntry), kOk);
    }
    double value = 7.0;
    EXPECT_EQ(this->m_Records.ReadFloatItem(kEntry, value), kNoMore);
    CGuardBuffer buffer(15);
    EXPECT_EQ(this->m_Records.ReadFloatItem(kEntry, buffer.Data(), buffer.Size()), kNoMore);
    EXPECT_TRUE(buffer.IsUntouched());
}

TYPED_TEST(NumericItems, TheTextThatIsPassedOnHasAPointAndIsTakenApartLikeAnyOther) {
    this->LoadAll();
    this->m_Records.SetDelimiter('.');
    EXPECT_EQ(this->m_Records.WriteFloatItem(kEntry, "3,75"), kWrongParts);
    EXPECT_EQ(this->m_Records.WriteFloatItem(kEntry, 3.75), kWrongParts);
    EXPECT_EQ(this->m_Records.WriteFloatItem(kEntry, "3"), kOk);
    this->m_Records.SetDelimiter(',');
    EXPECT_EQ(this->m_Records.WriteFloatItem(kEntry, "3,75"), kOk);
    EXPECT_EQ(this->Field("G5", 8, 16), "    3.00    3.75");
}

// --- The process locale ---------------------------------------------------------------------------------------------

TYPED_TEST(NumericItems, ADecimalCommaLocaleChangesNothing) {
    const CDecimalCommaLocale locale;
    if (!locale.IsSet()) {
        GTEST_SKIP() << "the system has no locale with a decimal comma";
    }
    this->LoadWithRecord();
    this->CheckWrites(kFloats, [this](int item, double value) { return this->m_Records.WriteFloatItem(item, value); });
    this->CheckWrites(kFloatTexts,
                      [this](int item, const char* text) { return this->m_Records.WriteFloatItem(item, text); });
    for (const CFloatRow& row : kFloatFields) {
        this->Blank();
        this->Put(row.Item, row.Field);
        double value = 0.0;
        EXPECT_EQ(this->m_Records.ReadFloatItem(row.Item, value), row.Code) << row.Field;
        EXPECT_EQ(value, row.Value) << row.Field;
        CGuardBuffer buffer(15);
        this->m_Records.ReadFloatItem(row.Item, buffer.Data(), buffer.Size());
        if (row.Text != nullptr) {
            EXPECT_EQ(buffer.Text(), row.Text) << row.Field;
        }
    }
}

} // namespace
