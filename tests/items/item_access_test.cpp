// Items as texts: reading, writing, overwriting and blanking them by item number.
#include <climits>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "support/guard_buffer.h"
#include "support/item_test.h"

namespace {

using namespace item_codes;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kCheckFailed = -2;
constexpr int kWrongLength = -2;
constexpr int kNoMore = -5;
constexpr int kNotTheKey = -6;
constexpr int kWrongParts = -7;
constexpr int kForeignItem = -22;
constexpr int kTooLong = -45;
constexpr int kNotListed = -55;
constexpr int kDoesNotFit = -65;
constexpr int kNotANumber = -66;
constexpr int kNoDefinition = -100;
constexpr int kNoGroup = -999;

// Items of "X1".
constexpr int kType = 1000;
constexpr int kText = 1005;
constexpr int kNumber = 1010;
constexpr int kDate = 1015;
constexpr int kUpper = 1020;
constexpr int kListed = 1025;
constexpr int kRight = 1030;
constexpr int kUnaligned = 1035;
constexpr int kBeforeLine = 1040;
constexpr int kFarBeforeLine = 1045;
constexpr int kOverEnd = 1050;
constexpr int kBehindLine = 1055;
constexpr int kNoLength = 1060;
constexpr int kShortDefault = 1065;
constexpr int kWholeLine = 1070;
constexpr int kTwice = 1075;
constexpr int kLongDefault = 1080;
constexpr int kNotInLayout = 1341;

CTableBuilder Table() {
    CTableBuilder table;
    table.Section("X1")
        .Item(kType, 2, 1, "C,\"X1\"")
        .Item(kText, 4, 8, "C")
        .Item(kNumber, 8, 12, "N,,,R 5.2")
        .Item(kDate, 10, 20, "D,,,,,,DD.MM.YYYY")
        .Item(kUpper, 5, 30, "U")
        .Item(kListed, 3, 35, R"(C,,,,,("A";"BB";" "))")
        .Item(kRight, 6, 40, "C,,,R,,")
        .Item(kUnaligned, 6, 46, "C,,,S,,")
        .Item(kBeforeLine, 4, 0, "C")
        .Item(kFarBeforeLine, 8, -3, "C")
        .Item(kOverEnd, 10, 125, "C")
        .Item(kBehindLine, 4, 129, "C")
        .Item(kNoLength, 0, 60, "C")
        .Item(kShortDefault, 4, 62, "C,\"AB\"")
        .Item(kWholeLine, 128, 1, "C")
        .Item(kTwice, 3, 70, "C")
        .Item(kTwice, 5, 80, "C")
        .Item(kLongDefault, 3, 92, "C,\"ABCDE\"");
    table.Section("G1")
        .Item(12000, 2, 1, "C")
        .Item(12005, 4, 3, "C")
        .Item(12010, 1, 7, "C")
        .Item(12015, 4, 8, "C")
        .Item(12020, 6, 12, "C");
    for (const int first : {2100, 2600}) {
        table.Section(first == 2100 ? "X2N" : "W2N")
            .Item(first, 2, 1, "C")
            .Item(first + 5, 4, 3, "C")
            .Item(first + 20, 5, 8, "C")
            .Item(first + 25, 6, 13, "C");
    }
    table.Section("X2").Item(2000, 2, 1, "C").Item(2020, 5, 8, "C").Item(2025, 6, 13, "C");
    table.Section("G3").Item(13000, 4, 3, "C");
    table.Section("G9").Item(19200, 4, 3, "C");
    table.Section("V1").Item(21005, 4, 3, "C").Item(21031, 4, 20, "C").Item(21035, 4, 28, "C");
    return table;
}

template <typename RecordSet>
class ItemAccess : public CItemTest<RecordSet> {
protected:
    using Operation = CItemOperation<RecordSet>;

    void LoadAll() { this->Load(Table()); }
    /// "X1" with a second line, "G1" with entries 1111/aaaaaa and 2222/bbbbbb in its first line.
    void ReadSome() {
        this->Read(CRecordBuilder()
                       .Add("X1")
                       .Put(7, "abcd  -12.3401.02.2003hello")
                       .Add("X1")
                       .Put(7, "ABCD")
                       .Add("G1")
                       .Put(2, "hd1 ")
                       .Put(7, "1111aaaaaa2222bbbbbb")
                       .Add("G1")
                       .Put(2, "hd2 ")
                       .Put(7, "3333cccccc"));
    }

    static std::vector<Operation> Reads() {
        return {
            {"ReadItem", [](RecordSet& r, int item) { return r.ReadItem(item, Scratch(), kScratch); }},
            {"HardReadItem", [](RecordSet& r, int item) { return r.HardReadItem(item, Scratch(), kScratch); }},
            {"ReadCharItem", [](RecordSet& r, int item) { return r.ReadCharItem(item, Scratch(), kScratch); }},
            {"HardReadDynItem", [](RecordSet& r, int item) { return r.HardReadDynItem(item, Scratch(), kScratch); }}};
    }
    static std::vector<Operation> CreatingWrites() {
        return {{"WriteItem", [](RecordSet& r, int item) { return r.WriteItem(item, "abcd"); }},
                {"WriteCharItem", [](RecordSet& r, int item) { return r.WriteCharItem(item, "abcd"); }},
                {"HardWriteDynItem", [](RecordSet& r, int item) { return r.HardWriteDynItem(item, "abcd"); }}};
    }
    static std::vector<Operation> WritesToExisting() {
        return {{"HardWriteItem", [](RecordSet& r, int item) { return r.HardWriteItem(item, "abcd"); }},
                {"ClearItem", [](RecordSet& r, int item) { return r.ClearItem(item); }}};
    }
    static std::vector<Operation> All() {
        std::vector<Operation> all = Reads();
        for (const auto& more : {CreatingWrites(), WritesToExisting()}) {
            all.insert(all.end(), more.begin(), more.end());
        }
        return all;
    }
    static std::vector<Operation> AllWithNull() {
        return {{"ReadItem", [](RecordSet& r, int item) { return r.ReadItem(item, nullptr, kScratch); }},
                {"HardReadItem", [](RecordSet& r, int item) { return r.HardReadItem(item, nullptr, kScratch); }},
                {"ReadCharItem", [](RecordSet& r, int item) { return r.ReadCharItem(item, nullptr, kScratch); }},
                {"HardReadDynItem", [](RecordSet& r, int item) { return r.HardReadDynItem(item, nullptr, kScratch); }},
                {"WriteItem", [](RecordSet& r, int item) { return r.WriteItem(item, nullptr); }},
                {"WriteCharItem", [](RecordSet& r, int item) { return r.WriteCharItem(item, nullptr); }},
                {"HardWriteItem", [](RecordSet& r, int item) { return r.HardWriteItem(item, nullptr); }},
                {"HardWriteDynItem", [](RecordSet& r, int item) { return r.HardWriteDynItem(item, nullptr); }}};
    }

    /// Steps over the entries of "G1", of which there are twelve in a line.
    void StepG1(int times) {
        for (int i = 0; i < times; ++i) {
            ASSERT_EQ(this->m_Records.ReadNext(12015), kOk);
        }
    }

private:
    static constexpr int kScratch = 256;
    static char* Scratch() {
        static std::string scratch(kScratch, '\0');
        return scratch.data();
    }
};

TYPED_TEST_SUITE(ItemAccess, RecordSetClasses, CRecordSetClassName);

// --- What is answered before anything is looked at ------------------------------------------------------------------

TYPED_TEST(ItemAccess, WithoutATableEverythingIsRefused) {
    for (const int item : {kText, 500, 0, -1}) {
        for (const auto& operation : this->All()) {
            EXPECT_EQ(operation.Call(this->m_Records, item), kNoTable) << operation.Name << ' ' << item;
        }
        for (const auto& operation : this->AllWithNull()) {
            EXPECT_EQ(operation.Call(this->m_Records, item), kNoTable) << operation.Name << " null " << item;
        }
    }
    EXPECT_THAT(this->Types(), IsEmpty());
}

TYPED_TEST(ItemAccess, ATableOfAnotherVersionGivesNoAccess) {
    const std::string path = Table().Write(this->m_Folder.PathOf("other.table"));
    ASSERT_EQ(this->m_Records.LoadTable(path.c_str(), CTableBuilder::kVersionMajor, CTableBuilder::kVersionMinor + 1),
              TABVEX_TABLE_WRONG_VERSION);
    for (const auto& operation : this->All()) {
        EXPECT_EQ(operation.Call(this->m_Records, kText), kNoTable) << operation.Name;
    }
    EXPECT_THAT(this->Types(), IsEmpty());
}

TYPED_TEST(ItemAccess, NullArgumentsAreRefusedAndCreateNothing) {
    this->LoadAll();
    for (const int item : {kText, kNumber, 2120, 500, INT_MIN}) {
        for (const auto& operation : this->AllWithNull()) {
            EXPECT_EQ(operation.Call(this->m_Records, item), kMissing) << operation.Name << ' ' << item;
        }
    }
    EXPECT_THAT(this->Types(), IsEmpty());
}

TYPED_TEST(ItemAccess, NullArgumentsOfExistingItemsChangeNothing) {
    this->LoadAll();
    this->ReadSome();
    const auto before = this->Stored();
    for (const auto& operation : this->AllWithNull()) {
        EXPECT_EQ(operation.Call(this->m_Records, kText), kMissing) << operation.Name;
    }
    EXPECT_EQ(this->Stored(), before);
}

TYPED_TEST(ItemAccess, NumbersThatNoTypeOwnsAndTypesWithoutClassNameNothing) {
    this->LoadAll();
    // 8000 is the plain type "X8", 100500 and 112520 are calculation records.
    for (const int item : {0, 1, 500, 999, 1342, 8000, 100500, 112520, 200331, -1, -2, INT_MIN, INT_MAX}) {
        for (const auto& operation : this->All()) {
            EXPECT_EQ(operation.Call(this->m_Records, item), kMissing) << operation.Name << ' ' << item;
        }
    }
    EXPECT_THAT(this->Types(), IsEmpty());
}

TYPED_TEST(ItemAccess, LinesOfUnknownTypesHaveNoItems) {
    this->LoadAll();
    this->Read(CRecordBuilder().Add("QQ").Add("X8"));
    const auto before = this->Stored();
    for (const auto& operation : this->All()) {
        EXPECT_EQ(operation.Call(this->m_Records, 8000), kMissing) << operation.Name;
    }
    EXPECT_EQ(this->Stored(), before);
}

TYPED_TEST(ItemAccess, OnlyTheDerivedRecordSetCreatesG9) {
    constexpr bool isDerived = std::is_same_v<TypeParam, CAllRecordsEx>;
    this->LoadAll();
    EXPECT_EQ(this->m_Records.WriteItem(19200, "ab"), isDerived ? kNotTheKey : kMissing);
    EXPECT_EQ(this->Types(), isDerived ? std::vector<std::string>{"G9"} : std::vector<std::string>{});
}

// --- The record -----------------------------------------------------------------------------------------------------

TYPED_TEST(ItemAccess, ReadingOverwritingAndBlankingNeedTheRecord) {
    this->LoadAll();
    for (const auto& operations : {this->Reads(), this->WritesToExisting()}) {
        for (const auto& operation : operations) {
            EXPECT_EQ(operation.Call(this->m_Records, kText), kMissing) << operation.Name;
            EXPECT_EQ(operation.Call(this->m_Records, 2120), kMissing) << operation.Name;
        }
    }
    EXPECT_THAT(this->Types(), IsEmpty());
}

TYPED_TEST(ItemAccess, WritingCreatesTheRecordWithItsDefaults) {
    this->LoadAll();
    EXPECT_EQ(this->m_Records.WriteItem(kText, "ab"), kOk);
    EXPECT_THAT(this->Types(), ElementsAre("X1"));
    std::string line = Padded("X1     ab");
    line.replace(61, 4, std::string("AB\0\0", 4)); // a short default leaves NULs: kept on purpose
    line.replace(91, 3, "ABC");                    // a long one is cut
    EXPECT_EQ(this->Line("X1"), line);
    EXPECT_EQ(this->Text(kType), "X1");
    EXPECT_EQ(this->Text(kShortDefault), "AB");
    EXPECT_EQ(this->Text(kLongDefault), "ABC");
}

TYPED_TEST(ItemAccess, WritingIntoAnExistingRecordCreatesNoOther) {
    this->LoadAll();
    this->ReadSome();
    EXPECT_EQ(this->m_Records.WriteItem(kText, "new"), kOk);
    EXPECT_EQ(this->m_Records.WriteCharItem(kText, "new"), kOk);
    EXPECT_THAT(this->Types(), ElementsAre("X1", "G1"));
    EXPECT_EQ(this->m_Records.ExistRecord("X1")->GetLineCount(), 2);
}

TYPED_TEST(ItemAccess, TheRecordIsCreatedBeforeTheItemIsLookedFor) {
    this->LoadAll();
    EXPECT_EQ(this->m_Records.WriteItem(kNotInLayout, "ab"), kMissing);
    EXPECT_EQ(this->m_Records.WriteCharItem(12001, "ab"), kMissing);
    EXPECT_THAT(this->Types(), ElementsAre("X1", "G1"));
    EXPECT_EQ(this->m_Records.ExistRecord("X1")->GetLineCount(), 1);
}

TYPED_TEST(ItemAccess, TheRecordIsCreatedBeforeTheFormatAndTheValueAreLookedAt) {
    this->LoadAll();
    EXPECT_EQ(this->m_Records.WriteCharItem(kNumber, "12"), kWrongFormat);
    EXPECT_THAT(this->Types(), ElementsAre("X1"));
    EXPECT_EQ(this->m_Records.WriteItem(12005, "ab"), kNotTheKey);
    EXPECT_EQ(this->m_Records.HardWriteDynItem(2100, "a/b"), kNotTheKey);
    EXPECT_THAT(this->Types(), ElementsAre("X1", "G1", "X2N"));
}

TYPED_TEST(ItemAccess, ATypeWithoutALayoutHasNoItemsButGetsItsRecord) {
    this->LoadAll();
    EXPECT_EQ(this->m_Records.WriteItem(16000, "ab"), kMissing);
    EXPECT_THAT(this->Types(), ElementsAre("Z1"));
    EXPECT_EQ(this->Line("Z1"), Padded(""));
    for (const auto& operation : this->All()) {
        EXPECT_EQ(operation.Call(this->m_Records, 16000), kMissing) << operation.Name;
    }
    EXPECT_EQ(this->Line("Z1"), Padded(""));
}

TYPED_TEST(ItemAccess, DestroyedRecordsAreCreatedAnew) {
    this->LoadAll();
    this->ReadSome();
    this->m_Records.DestroyAllRecords();
    EXPECT_EQ(this->Text(kText), std::to_string(kMissing));
    EXPECT_EQ(this->m_Records.ClearItem(kText), kMissing);
    EXPECT_EQ(this->m_Records.WriteItem(kText, "ab"), kOk);
    EXPECT_EQ(this->Text(kText), "ab  ");
}

// --- The item -------------------------------------------------------------------------------------------------------

TYPED_TEST(ItemAccess, AnItemThatTheLayoutLacksIsMissing) {
    this->LoadAll();
    this->ReadSome();
    const auto before = this->Stored();
    for (const int item : {kNotInLayout, 1001, 12001}) {
        for (const auto& operation : this->All()) {
            EXPECT_EQ(operation.Call(this->m_Records, item), kMissing) << operation.Name << ' ' << item;
        }
    }
    EXPECT_EQ(this->Stored(), before);
}

TYPED_TEST(ItemAccess, OfTwoItemsWithOneNumberTheFirstCounts) {
    this->LoadAll();
    EXPECT_EQ(this->m_Records.WriteItem(kTwice, "abcd"), kTooLong);
    EXPECT_EQ(this->m_Records.WriteItem(kTwice, "abc"), kOk);
    EXPECT_EQ(this->Field("X1", 70, 3), "abc");
    EXPECT_EQ(this->Field("X1", 80, 5), "     ");
    EXPECT_EQ(this->Text(kTwice), "abc");
}

TYPED_TEST(ItemAccess, CharacterOperationsTakeItemsOfCharactersOnly) {
    this->LoadAll();
    this->ReadSome();
    const auto before = this->Stored();
    CGuardBuffer buffer(20);
    for (const int item : {kNumber, kDate}) {
        EXPECT_EQ(this->m_Records.ReadCharItem(item, buffer.Data(), buffer.Size()), kWrongFormat);
        EXPECT_EQ(this->m_Records.ReadCharItem(item, buffer.Data(), 0), kWrongFormat);
        EXPECT_TRUE(buffer.IsUntouched());
        EXPECT_EQ(this->m_Records.WriteCharItem(item, "12"), kWrongFormat);
        EXPECT_EQ(this->m_Records.WriteCharItem(item, ""), kWrongFormat);
    }
    EXPECT_EQ(this->Stored(), before);
    EXPECT_EQ(this->m_Records.ReadCharItem(kText, buffer.Data(), buffer.Size()), kOk);
    EXPECT_EQ(buffer.Text(), "abcd");
    EXPECT_EQ(this->m_Records.ReadCharItem(kUpper, buffer.Data(), buffer.Size()), kOk);
    EXPECT_EQ(buffer.Text(), "hello");
}

TYPED_TEST(ItemAccess, NumbersAndDatesAreReadAsTextToo) {
    this->LoadAll();
    this->ReadSome();
    EXPECT_EQ(this->Text(kNumber), "  -12.34");
    EXPECT_EQ(this->Text(kDate), "01.02.2003");
}

// --- Reading --------------------------------------------------------------------------------------------------------

struct CBufferRow {
    int Size;
    int Code;
    const char* Text;
};

// clang-format off
const CBufferRow kBuffers[] = {
    // size    code   text, of four characters
    {INT_MIN, kCut,  nullptr},
    {-1,      kCut,  nullptr},
    {0,       kCut,  nullptr},
    {1,       kCut,  ""},
    {2,       kCut,  "a"},
    {4,       kCut,  "abc"},
    {5,       kOk,   "abcd"},
    {6,       kOk,   "abcd"},
};
// clang-format on

TYPED_TEST(ItemAccess, ATextIsCutToTheBuffer) {
    this->LoadAll();
    this->ReadSome();
    using Call = int (TypeParam::*)(int, char*, int);
    for (const Call call :
         {Call(&TypeParam::ReadItem), Call(&TypeParam::HardReadItem), Call(&TypeParam::ReadCharItem)}) {
        for (const CBufferRow& row : kBuffers) {
            CGuardBuffer buffer(row.Size > 0 ? static_cast<std::size_t>(row.Size) : 0);
            EXPECT_EQ((this->m_Records.*call)(kText, buffer.Data(), row.Size), row.Code) << row.Size;
            if (row.Text != nullptr) {
                EXPECT_EQ(buffer.Text(), row.Text) << row.Size;
            }
        }
    }
}

TYPED_TEST(ItemAccess, NothingIsWrittenBehindTheTerminator) {
    this->LoadAll();
    this->ReadSome();
    CGuardBuffer buffer(40);
    EXPECT_EQ(this->m_Records.ReadItem(kText, buffer.Data(), buffer.Size()), kOk);
    EXPECT_EQ(buffer.Bytes(), std::string("abcd\0", 5) + std::string(35, 'Z'));
}

TYPED_TEST(ItemAccess, ARefusedReadLeavesTheBuffer) {
    this->LoadAll();
    CGuardBuffer buffer(10);
    EXPECT_EQ(this->m_Records.ReadItem(kText, buffer.Data(), buffer.Size()), kMissing);
    this->ReadSome();
    EXPECT_EQ(this->m_Records.ReadItem(kNotInLayout, buffer.Data(), buffer.Size()), kMissing);
    EXPECT_EQ(this->m_Records.HardReadDynItem(kText, buffer.Data(), buffer.Size()), kMissing);
    EXPECT_TRUE(buffer.IsUntouched());
}

TYPED_TEST(ItemAccess, TextsKeepTheirBlanks) {
    this->LoadAll();
    this->Read(CRecordBuilder().Add("X1").Put(7, " b  ").Put(29, "x"));
    EXPECT_EQ(this->Text(kText), " b  ");
    EXPECT_EQ(this->Text(kUpper), "x    ");
    EXPECT_EQ(this->Text(kDate), Padded("", 10));
}

TYPED_TEST(ItemAccess, AReadChangesNothing) {
    this->LoadAll();
    this->ReadSome();
    this->StepG1(1);
    const auto before = this->Stored();
    for (const int item : {kText, kNumber, kDate, kBeforeLine, kOverEnd, 12000, 12015, 12020}) {
        for (const auto& operation : this->Reads()) {
            operation.Call(this->m_Records, item);
        }
    }
    EXPECT_EQ(this->Stored(), before);
}

TYPED_TEST(ItemAccess, WhatLiesOutsideTheLineReadsAsNothing) {
    this->LoadAll();
    this->Read(CRecordBuilder().Add("X1").Put(2, std::string(126, 'x')));
    EXPECT_EQ(this->Text(kBeforeLine), "");
    EXPECT_EQ(this->Text(kFarBeforeLine), "");
    EXPECT_EQ(this->Text(kOverEnd), "xxxx");
    EXPECT_EQ(this->Text(kBehindLine), "");
    EXPECT_EQ(this->Text(kNoLength), "");
    EXPECT_EQ(this->Text(kWholeLine), "X1" + std::string(126, 'x'));
}

TYPED_TEST(ItemAccess, LineEndsOfASavedFileAreNoText) {
    this->LoadAll();
    this->Read(CRecordBuilder().Add("X1").Put(124, "tail"));
    ASSERT_EQ(this->m_Records.SaveAllRecords(this->m_Folder.PathOf("saved.rec").c_str(), 1), 1);
    EXPECT_EQ(this->Text(kOverEnd), "tail");
    EXPECT_EQ(this->Text(kBehindLine), "");
}

TYPED_TEST(ItemAccess, ACreatedLineIsNoLongerThanAnyOther) {
    this->LoadAll();
    EXPECT_EQ(this->m_Records.WriteItem(kText, "ab"), kOk); // the line's buffer has two more blanks
    EXPECT_EQ(this->Text(kOverEnd), "    ");
    EXPECT_EQ(this->Text(kBehindLine), "");
}

TYPED_TEST(ItemAccess, ATextEndsAtItsFirstNul) {
    this->LoadAll();
    this->ReadLines("X1     ab\n"); // a line kept with NULs behind it
    EXPECT_EQ(this->Text(kText), "ab");
    EXPECT_EQ(this->Text(kUpper), "");
    EXPECT_EQ(this->Text(kWholeLine), "X1     ab");
}

TYPED_TEST(ItemAccess, AnItemBehindNulsIsReadForItself) {
    this->LoadAll();
    this->ReadLines("X1     ab\n");
    EXPECT_EQ(this->m_Records.WriteItem(kUpper, "hello"), kOk);
    EXPECT_EQ(this->Text(kUpper), "HELLO");
    EXPECT_EQ(this->Text(kWholeLine), "X1     ab");
    EXPECT_EQ(this->Line("X1"), "X1     ab" + std::string(20, '\0') + "HELLO" + std::string(94, '\0'));
}

TYPED_TEST(ItemAccess, ATextEndedByANulFitsABufferOfItsSize) {
    this->LoadAll();
    this->ReadLines("X1     ab\n");
    CGuardBuffer buffer(3);
    EXPECT_EQ(this->m_Records.ReadItem(kText, buffer.Data(), buffer.Size()), kOk);
    EXPECT_EQ(this->m_Records.ReadItem(kText, buffer.Data(), 2), kCut);
    EXPECT_EQ(buffer.Text(), "a");
}

TYPED_TEST(ItemAccess, FurtherLinesOfAListAreOutOfReach) {
    this->LoadAll();
    this->ReadSome();
    EXPECT_EQ(this->m_Records.ReadFirst(kType), kOk);
    EXPECT_EQ(this->m_Records.ReadNext(kType), kOk);
    EXPECT_EQ(this->Text(kText), "abcd");
    const std::string second = this->Line("X1", 1);
    EXPECT_EQ(this->m_Records.WriteItem(kText, "w"), kOk);
    EXPECT_EQ(this->m_Records.HardWriteItem(kUpper, "hards"), kOk);
    EXPECT_EQ(this->m_Records.ClearItem(kNumber), kOk);
    EXPECT_EQ(this->Field("X1", 8, 27), "w           01.02.2003hards");
    EXPECT_EQ(this->Line("X1", 1), second);
}

TYPED_TEST(ItemAccess, HeaderItemsComeFromTheFirstLineAndOthersFromTheEntry) {
    this->LoadAll();
    this->ReadSome();
    this->StepG1(1);
    EXPECT_EQ(this->Text(12005), "hd1 ");
    EXPECT_EQ(this->Text(12015), "2222");
    EXPECT_EQ(this->Text(12020), "bbbbbb");
    this->StepG1(11);
    EXPECT_EQ(this->Text(12005), "hd1 ");
    EXPECT_EQ(this->Text(12020), "cccccc");
}

TYPED_TEST(ItemAccess, BehindTheLastEntryThereIsNothingToRead) {
    this->LoadAll();
    this->ReadSome();
    this->StepG1(24);
    CGuardBuffer buffer(20);
    EXPECT_EQ(this->m_Records.ReadItem(12015, buffer.Data(), buffer.Size()), kNoMore);
    EXPECT_EQ(this->m_Records.HardReadItem(12015, buffer.Data(), buffer.Size()), kNoMore);
    EXPECT_EQ(this->m_Records.ReadCharItem(12020, buffer.Data(), buffer.Size()), kNoMore);
    EXPECT_EQ(this->m_Records.ReadItem(12015, buffer.Data(), 0), kNoMore);
    EXPECT_TRUE(buffer.IsUntouched());
    EXPECT_EQ(this->Text(12005), "hd1 ");
}

TYPED_TEST(ItemAccess, CodesOfTheRecordTypeArePassedOn) {
    this->LoadAll();
    this->Read(CRecordBuilder().Add("G3").Add("V1"));
    const auto before = this->Stored();
    EXPECT_EQ(this->Text(13000), std::to_string(kNoGroup));
    EXPECT_EQ(this->m_Records.WriteItem(13000, "ab"), kNoGroup);
    EXPECT_EQ(this->m_Records.WriteCharItem(13000, "ab"), kNoGroup);
    EXPECT_EQ(this->Text(21031), std::to_string(kForeignItem));
    EXPECT_EQ(this->m_Records.WriteItem(21031, "ab"), kNotTheKey);
    EXPECT_EQ(this->m_Records.WriteItem(21035, "a/b"), kWrongParts);
    EXPECT_EQ(this->Stored(), before);
}

// --- Writing --------------------------------------------------------------------------------------------------------

struct CWriteRow {
    int Item;
    const char* Value;
    int Code;
    const char* Field; ///< nullptr: as it was
};

// clang-format off
const CWriteRow kWrites[] = {
    // item       value          code          field
    {kText,      "abc",         kOk,          "abc "},
    {kText,      "abcd",        kOk,          "abcd"},
    {kText,      "abcde",       kTooLong,     nullptr},
    {kText,      "abc  ",       kTooLong,     nullptr},
    {kText,      "",            kOk,          "    "},
    {kText,      " ",           kOk,          "    "},
    {kText,      " b",          kOk,          " b  "},
    {kText,      "b  ",         kOk,          "b   "},
    {kNumber,    "-12.5",       kOk,          "  -12.50"},
    {kNumber,    "12,5",        kOk,          "   12.50"},
    {kNumber,    "123456",      kDoesNotFit,  nullptr},
    {kNumber,    "12x",         kNotANumber,  nullptr},
    {kNumber,    "",            kNotANumber,  nullptr},
    {kDate,      "20150228",    kOk,          "28.02.2015"},
    {kDate,      "20150831",    kOk,          "31.08.2015"}, // a text is rewritten unchecked
    {kUpper,     "aBc\xE4",     kOk,          nullptr}, // for its code only, its bytes depend on the mode
    {kUpper,     "az{@",        kOk,          "AZ{@ "},
    {kUpper,     "abcdef",      kTooLong,     nullptr},
    {kListed,    "A",           kOk,          "A  "},
    {kListed,    "BB",          kOk,          "BB "},
    {kListed,    " ",           kOk,          "   "},
    {kListed,    "a",           kNotListed,   nullptr},
    {kListed,    "A ",          kNotListed,   nullptr},
    {kListed,    "",            kNotListed,   nullptr},
    {kListed,    "ABCDE",       kNotListed,   nullptr},
    {kRight,     "ab",          kOk,          "    ab"},
    {kRight,     "ab ",         kOk,          "   ab "},
    {kRight,     "abcdefg",     kTooLong,     nullptr},
    {kNoLength,  "",            kOk,          ""},
    {kNoLength,  "a",           kTooLong,     nullptr},
};
// clang-format on

TYPED_TEST(ItemAccess, AWrittenTextPassesTheItemsChecksAndLayout) {
    this->LoadAll();
    for (const CWriteRow& row : kWrites) {
        this->ReadSome();
        const auto before = this->Stored();
        EXPECT_EQ(this->m_Records.WriteItem(row.Item, row.Value), row.Code) << row.Item << " \"" << row.Value << '"';
        if (row.Code != kOk) {
            EXPECT_EQ(this->Stored(), before) << row.Item << " \"" << row.Value << '"';
        } else if (row.Field != nullptr) {
            EXPECT_EQ(this->Text(row.Item), row.Field) << row.Item << " \"" << row.Value << '"';
        }
    }
}

// clang-format off
const CWriteRow kCharacterWrites[] = {
    // item       value          code          field
    {kText,      "abc   ",      kOk,          "abc "},
    {kText,      "abcd      ",  kOk,          "abcd"},
    {kText,      "abcde   ",    kTooLong,     nullptr},
    {kText,      "",            kOk,          "    "},
    {kText,      " ",           kOk,          "    "},
    {kText,      "        ",    kOk,          "    "},
    {kText,      " b  ",        kOk,          " b  "},
    {kText,      "b\t ",        kOk,          "b\t  "},
    {kUpper,     "ab    ",      kOk,          "AB   "},
    {kListed,    "A ",          kOk,          "A  "},
    {kListed,    " ",           kOk,          "   "},
    {kListed,    "  ",          kNotListed,   nullptr}, // is empty without its blanks
    {kListed,    "",            kNotListed,   nullptr},
    {kListed,    " A",          kNotListed,   nullptr},
    {kRight,     "ab   ",       kOk,          "    ab"},
    {kRight,     " ",           kOk,          "      "},
};
// clang-format on

TYPED_TEST(ItemAccess, ACharacterTextLosesBlanksAtItsEndUnlessItIsOneBlank) {
    this->LoadAll();
    for (const CWriteRow& row : kCharacterWrites) {
        this->ReadSome();
        const auto before = this->Stored();
        EXPECT_EQ(this->m_Records.WriteCharItem(row.Item, row.Value), row.Code)
            << row.Item << " \"" << row.Value << '"';
        if (row.Code != kOk) {
            EXPECT_EQ(this->Stored(), before) << row.Item << " \"" << row.Value << '"';
        } else {
            EXPECT_EQ(this->Text(row.Item), row.Field) << row.Item << " \"" << row.Value << '"';
        }
    }
}

TYPED_TEST(ItemAccess, ATextThatNoModifierAlignsLeavesTheRestOfItsFieldOnPurpose) {
    this->LoadAll();
    this->Read(CRecordBuilder().Add("X1").Put(45, "uvwxyz"));
    EXPECT_EQ(this->m_Records.WriteItem(kUnaligned, "AB"), kOk);
    EXPECT_EQ(this->Text(kUnaligned), "ABwxyz");
    EXPECT_EQ(this->m_Records.WriteCharItem(kUnaligned, "C   "), kOk);
    EXPECT_EQ(this->Text(kUnaligned), "CBwxyz");
    EXPECT_EQ(this->m_Records.WriteItem(kUnaligned, ""), kOk);
    EXPECT_EQ(this->Text(kUnaligned), "CBwxyz");
}

TYPED_TEST(ItemAccess, WhatLiesOutsideTheLineIsNotWritten) {
    this->LoadAll();
    this->Read(CRecordBuilder().Add("X1").Add("X1"));
    const auto blank = this->Stored();
    for (const int item : {kBeforeLine, kBehindLine}) {
        EXPECT_EQ(this->m_Records.WriteItem(item, "abcd"), kOk) << item;
        EXPECT_EQ(this->m_Records.WriteCharItem(item, "abcd"), kOk) << item;
        EXPECT_EQ(this->m_Records.HardWriteItem(item, "abcd"), kOk) << item;
        EXPECT_EQ(this->m_Records.ClearItem(item), kOk) << item;
        EXPECT_EQ(this->m_Records.WriteItem(item, "abcde"), kTooLong) << item;
        EXPECT_EQ(this->m_Records.HardWriteItem(item, "abc"), kWrongLength) << item;
    }
    EXPECT_EQ(this->m_Records.WriteItem(kFarBeforeLine, "abcdefgh"), kOk);
    EXPECT_EQ(this->m_Records.HardWriteItem(kFarBeforeLine, "abcdefgh"), kOk);
    EXPECT_EQ(this->m_Records.HardWriteItem(kNoLength, ""), kOk);
    EXPECT_EQ(this->m_Records.ClearItem(kNoLength), kOk);
    EXPECT_EQ(this->Stored(), blank);
}

TYPED_TEST(ItemAccess, AnItemOverTheEndOfTheLineIsWrittenUpToIt) {
    this->LoadAll();
    this->Read(CRecordBuilder().Add("X1").Add("X1").Put(2, "next"));
    const auto before = this->Stored();
    EXPECT_EQ(this->m_Records.WriteItem(kOverEnd, "0123456789"), kOk);
    EXPECT_EQ(this->Text(kOverEnd), "0123");
    EXPECT_EQ(this->m_Records.HardWriteItem(kOverEnd, "abcdefghij"), kOk);
    EXPECT_EQ(this->Text(kOverEnd), "abcd");
    EXPECT_EQ(this->m_Records.ClearItem(kOverEnd), kOk);
    EXPECT_EQ(this->Stored(), before);
}

TYPED_TEST(ItemAccess, TextsLongerThanAnyItemAreRefused) {
    this->LoadAll();
    this->ReadSome();
    const auto before = this->Stored();
    for (const std::size_t length : {139, 140, 141, 5000}) {
        const std::string text(length, 'a');
        for (const int item : {kText, kWholeLine, kUpper}) {
            EXPECT_EQ(this->m_Records.WriteItem(item, text.c_str()), kTooLong) << length;
            EXPECT_EQ(this->m_Records.WriteCharItem(item, text.c_str()), kTooLong) << length;
            EXPECT_EQ(this->m_Records.HardWriteItem(item, text.c_str()), kWrongLength) << length;
        }
        EXPECT_EQ(this->m_Records.WriteItem(kListed, text.c_str()), kNotListed) << length;
        EXPECT_EQ(this->m_Records.WriteItem(kNumber, text.c_str()), kNotANumber) << length;
        EXPECT_EQ(this->m_Records.WriteItem(kNumber, std::string(length, '1').c_str()),
                  length < 300 ? kDoesNotFit : kNotANumber)
            << length; // a double holds no number of 5000 digits
        EXPECT_EQ(this->m_Records.WriteItem(12015, text.c_str()), kWrongParts) << length;
        EXPECT_EQ(this->Stored(), before) << length;
    }
}

TYPED_TEST(ItemAccess, ATextOf139CharactersIsTakenWhenItsBlanksDoNotCount) {
    this->LoadAll();
    const std::string text(128, 'a');
    EXPECT_EQ(this->m_Records.WriteItem(kWholeLine, (text + std::string(11, ' ')).c_str()), kTooLong);
    EXPECT_EQ(this->m_Records.WriteCharItem(kWholeLine, (text + std::string(11, ' ')).c_str()), kOk);
    EXPECT_EQ(this->Line("X1"), text);
}

TYPED_TEST(ItemAccess, TheKeyItemOfAGroupTakesAWholeEntry) {
    this->LoadAll();
    this->ReadSome();
    EXPECT_EQ(this->m_Records.WriteItem(12015, "ab/cdef"), kOk);
    EXPECT_EQ(this->Field("G1", 8, 20), "ab  cdef  2222bbbbbb");
    EXPECT_EQ(this->m_Records.WriteCharItem(12015, "gh/   "), kOk); // a part of blanks leaves its item
    EXPECT_EQ(this->Field("G1", 8, 20), "ab  cdef  gh  bbbbbb");
    const auto before = this->Stored();
    EXPECT_EQ(this->m_Records.WriteItem(12020, "abc"), kNotTheKey);
    EXPECT_EQ(this->m_Records.WriteItem(12015, "abc"), kWrongParts);
    EXPECT_EQ(this->m_Records.WriteItem(12015, "a/b/c"), kWrongParts);
    EXPECT_EQ(this->Stored(), before);
}

// --- Overwriting and blanking ---------------------------------------------------------------------------------------

// clang-format off
const CWriteRow kOverwrites[] = {
    // item       value          code          field
    {kText,      "",            kWrongLength, nullptr},
    {kText,      "abc",         kWrongLength, nullptr},
    {kText,      "wxyz",        kOk,          "wxyz"},
    {kText,      "wxyz ",       kWrongLength, nullptr},
    {kText,      "    ",        kOk,          "    "},
    {kNumber,    "no digit",    kOk,          "no digit"},
    {kNumber,    "12",          kWrongLength, nullptr},
    {kDate,      "31.02.0000",  kOk,          "31.02.0000"},
    {kUpper,     "lower",       kOk,          "lower"},
    {kListed,    "zzz",         kOk,          "zzz"},
    {kRight,     "ab    ",      kOk,          "ab    "},
    {kUnaligned, "abcdef",      kOk,          "abcdef"},
    {kNoLength,  "",            kOk,          ""},
    {kNoLength,  " ",           kWrongLength, nullptr},
};
// clang-format on

TYPED_TEST(ItemAccess, OverwritingTakesATextOfExactlyTheItemsLengthUnchecked) {
    this->LoadAll();
    for (const CWriteRow& row : kOverwrites) {
        this->ReadSome();
        const auto before = this->Stored();
        EXPECT_EQ(this->m_Records.HardWriteItem(row.Item, row.Value), row.Code)
            << row.Item << " \"" << row.Value << '"';
        if (row.Code == kOk) {
            EXPECT_EQ(this->Text(row.Item), row.Field);
        } else {
            EXPECT_EQ(this->Stored(), before) << row.Item << " \"" << row.Value << '"';
        }
    }
}

TYPED_TEST(ItemAccess, BlankingAnItemBlanksItsCharactersOnly) {
    this->LoadAll();
    this->Read(CRecordBuilder().Add("X1").Put(2, std::string(126, 'x')));
    for (const int item : {kText, kNumber, kDate, kUpper, kListed, kUnaligned, kOverEnd}) {
        EXPECT_EQ(this->m_Records.ClearItem(item), kOk) << item;
    }
    EXPECT_EQ(this->Line("X1"), "X1xxxxx" + Padded("", 4 + 8 + 10 + 5 + 3).substr(0, 12) + Padded("", 10) +
                                    Padded("", 5) + Padded("", 3) + "xx" + std::string(6, 'x') + Padded("", 6) +
                                    std::string(73, 'x') + Padded("", 4));
    EXPECT_EQ(this->m_Records.ClearItem(kWholeLine), kOk);
    EXPECT_EQ(this->Line("X1"), Padded(""));
}

TYPED_TEST(ItemAccess, OverwritingAndBlankingWorkOnTheLineAtTheCursorAndAtTheItemsOwnPlace) {
    this->LoadAll();
    this->ReadSome();
    this->StepG1(1);
    EXPECT_EQ(this->m_Records.HardWriteItem(12015, "WXYZ"), kOk); // not at the second entry
    EXPECT_EQ(this->Field("G1", 1, 27), "G1hd1  WXYZaaaaaa2222bbbbbb");
    this->StepG1(11);
    const std::string first = this->Line("G1", 0);
    EXPECT_EQ(this->m_Records.HardWriteItem(12005, "HEAD"), kOk);
    EXPECT_EQ(this->m_Records.ClearItem(12020), kOk);
    EXPECT_EQ(this->Line("G1", 0), first);
    EXPECT_EQ(this->Field("G1", 1, 17, 1), "G1HEAD 3333      ");
    EXPECT_EQ(this->Text(12005), "hd1 ");
}

TYPED_TEST(ItemAccess, WithTheCursorBehindTheLinesTheLastOneIsOverwritten) {
    this->LoadAll();
    this->ReadSome();
    this->StepG1(24);
    ASSERT_EQ(this->m_Records.ReadNext(12015), kNoMore);
    const std::string first = this->Line("G1", 0);
    EXPECT_EQ(this->m_Records.HardWriteItem(12005, "HEAD"), kOk);
    EXPECT_EQ(this->m_Records.ClearItem(12015), kOk);
    EXPECT_EQ(this->Line("G1", 0), first);
    EXPECT_EQ(this->Field("G1", 1, 17, 1), "G1HEAD     cccccc");
    EXPECT_EQ(this->m_Records.ExistRecord("G1")->GetCurrentLine(), 2); // the cursor stays
}

TYPED_TEST(ItemAccess, OverwritingReachesTypesThatAnswerNothingElse) {
    this->LoadAll();
    this->Read(CRecordBuilder().Add("G3").Add("V1"));
    EXPECT_EQ(this->m_Records.HardWriteItem(13000, "abcd"), kOk);
    EXPECT_EQ(this->Field("G3", 1, 7), "G3abcd ");
    EXPECT_EQ(this->m_Records.HardWriteItem(21031, "efgh"), kOk);
    EXPECT_EQ(this->Field("V1", 20, 4), "efgh");
    EXPECT_EQ(this->m_Records.ClearItem(13000), kOk);
    EXPECT_EQ(this->Line("G3"), Padded("G3"));
}

// --- "X2N" and "W2N" ------------------------------------------------------------------------------------------------

TYPED_TEST(ItemAccess, TwoRangesOfNumbersNameTheNewerTypes) {
    this->LoadAll();
    EXPECT_EQ(this->m_Records.WriteItem(2120, "abc/def"), kOk);
    EXPECT_THAT(this->Types(), ElementsAre("X2N"));
    EXPECT_EQ(this->m_Records.WriteItem(2620, "ghi/jkl"), kOk);
    EXPECT_EQ(this->m_Records.WriteItem(2020, "mno/pqr"), kOk);
    EXPECT_THAT(this->Types(), ElementsAre("X2N", "W2N", "X2"));
    EXPECT_EQ(this->Field("X2N", 8, 11), "abc  def   ");
    EXPECT_EQ(this->Field("W2N", 8, 11), "ghi  jkl   ");
    EXPECT_EQ(this->Field("X2", 8, 11), "mno  pqr   ");
}

TYPED_TEST(ItemAccess, TheNewerTypesOwnExactlyTheirNumbers) {
    this->LoadAll();
    this->Read(CRecordBuilder().Add("X2N").Put(2, "head").Put(7, "aaaaabbbbbb").Add("X2").Put(7, "cccccdddddd"));
    EXPECT_THAT(this->Types(), ElementsAre("X2N", "X2"));
    EXPECT_EQ(this->Text(2105), "head");
    EXPECT_EQ(this->Text(2120), "aaaaa");
    EXPECT_EQ(this->Text(2125), "bbbbbb");
    EXPECT_EQ(this->Text(2020), "ccccc");
    for (const int item : {2099, 2136, 2599, 2636}) {
        EXPECT_EQ(this->Text(item), std::to_string(kMissing)) << item;
        EXPECT_EQ(this->m_Records.WriteItem(item, "a/b"), kMissing) << item;
    }
    EXPECT_EQ(this->m_Records.WriteItem(2600, "x"), kNotTheKey);
    EXPECT_EQ(this->m_Records.WriteItem(2635, "x"), kMissing);
    EXPECT_THAT(this->Types(), ElementsAre("X2N", "X2", "W2N"));
}

// --- Texts made of several items ------------------------------------------------------------------------------------

TYPED_TEST(ItemAccess, ADynamicTextJoinsTheEntrysItems) {
    this->LoadAll();
    this->Read(CRecordBuilder().Add("X2N").Put(7, "ab   cdef  ghijkl"));
    CGuardBuffer buffer(13);
    EXPECT_EQ(this->m_Records.HardReadDynItem(2120, buffer.Data(), buffer.Size()), kOk);
    EXPECT_EQ(buffer.Text(), "ab   /cdef  ");
    this->m_Records.SetDelimiter('|');
    EXPECT_EQ(this->m_Records.HardReadDynItem(2120, buffer.Data(), buffer.Size()), kOk);
    EXPECT_EQ(buffer.Text(), "ab   |cdef  ");
    EXPECT_EQ(this->m_Records.ReadNext(2120), kOk);
    EXPECT_EQ(this->m_Records.HardReadDynItem(2120, buffer.Data(), buffer.Size()), kOk);
    EXPECT_EQ(buffer.Text(), "ghijk|l     ");
}

TYPED_TEST(ItemAccess, ADynamicTextIsReadByAnyItemOfItsType) {
    this->LoadAll();
    this->Read(CRecordBuilder().Add("X2N").Put(7, "aaaaabbbbbb"));
    CGuardBuffer buffer(13);
    for (const int item : {2100, 2125, 2135}) { // the layout has no item 2135
        EXPECT_EQ(this->m_Records.HardReadDynItem(item, buffer.Data(), buffer.Size()), kOk) << item;
        EXPECT_EQ(buffer.Text(), "aaaaa/bbbbbb") << item;
    }
}

TYPED_TEST(ItemAccess, ADynamicTextIsCutToTheBuffer) {
    this->LoadAll();
    this->Read(CRecordBuilder().Add("X2N").Put(7, "abcdefghijk"));
    const std::string text = "abcde/fghijk";
    for (const int size : {INT_MIN, -1, 0, 1, 7, 12, 13, 14}) {
        CGuardBuffer buffer(size > 0 ? static_cast<std::size_t>(size) : 0);
        EXPECT_EQ(this->m_Records.HardReadDynItem(2120, buffer.Data(), size), size > 12 ? kOk : kCut) << size;
        if (size > 0) {
            EXPECT_EQ(buffer.Text(), text.substr(0, static_cast<std::size_t>(size - 1))) << size;
        }
    }
}

TYPED_TEST(ItemAccess, ADynamicTextNeedsBothItemsOfItsEntry) {
    CTableBuilder table;
    this->Load(table.Section("X2N").Item(2100, 2, 1, "C").Item(2120, 5, 8, "C"));
    this->Read(CRecordBuilder().Add("X2N"));
    CGuardBuffer buffer(20);
    EXPECT_EQ(this->m_Records.HardReadDynItem(2120, buffer.Data(), buffer.Size()), kNoDefinition);
    EXPECT_TRUE(buffer.IsUntouched());
}

TYPED_TEST(ItemAccess, TypesWithoutDynamicTextsAnswerMinus1) {
    this->LoadAll();
    this->ReadSome();
    const auto before = this->Stored();
    CGuardBuffer buffer(20);
    for (const int item : {kText, 12015}) {
        EXPECT_EQ(this->m_Records.HardReadDynItem(item, buffer.Data(), buffer.Size()), kMissing);
        EXPECT_EQ(this->m_Records.HardWriteDynItem(item, "ab/cd"), kMissing);
    }
    EXPECT_TRUE(buffer.IsUntouched());
    EXPECT_EQ(this->Stored(), before);
}

TYPED_TEST(ItemAccess, ADynamicWriteCreatesTheRecordWhateverTheTypeAnswers) {
    this->LoadAll();
    EXPECT_EQ(this->m_Records.HardWriteDynItem(kText, "ab"), kMissing);
    EXPECT_EQ(this->m_Records.HardWriteDynItem(2120, "ab"), kWrongParts);
    EXPECT_THAT(this->Types(), ElementsAre("X1", "X2N"));
    EXPECT_EQ(this->Line("X2N"), Padded(""));
}

TYPED_TEST(ItemAccess, ADynamicTextIsTakenApartAndChecked) {
    this->LoadAll();
    this->Read(CRecordBuilder().Add("X2N").Put(7, "aaaaabbbbbb"));
    const auto before = this->Stored();
    EXPECT_EQ(this->m_Records.HardWriteDynItem(2125, "ab/cd"), kNotTheKey);
    EXPECT_EQ(this->m_Records.HardWriteDynItem(2120, "ab"), kWrongParts);
    EXPECT_EQ(this->m_Records.HardWriteDynItem(2120, "ab/cd/"), kWrongParts);
    EXPECT_EQ(this->Stored(), before);
    EXPECT_EQ(this->m_Records.HardWriteDynItem(2120, "ab/"), kOk);
    EXPECT_EQ(this->Field("X2N", 8, 22), "ab   bbbbbb" + Padded("", 11));
    // One item fails, the other one is written.
    EXPECT_EQ(this->m_Records.HardWriteDynItem(2120, "toolong/cd"), kCheckFailed);
    EXPECT_EQ(this->Field("X2N", 8, 22), "ab   bbbbbb     cd    ");
    EXPECT_EQ(this->m_Records.HardWriteDynItem(2120, ("ef/" + std::string(5000, 'x')).c_str()), kCheckFailed);
    EXPECT_EQ(this->Field("X2N", 30, 11), "ef         ");
}

} // namespace
