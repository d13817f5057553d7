// Every flat function and its form with a handle, called on the same small record set: each row has arguments of its
// own, so that none of them can be swapped, and results worked out by hand.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/both_interfaces.h"
#include "support/mutation_cells.h"
#include "support/record_builder.h"
#include "support/temp_folder.h"
#include "tabvex/flat.h"
#include "tabvex/mif.h"

namespace {

// A text that a function delivers; "?" until it does.
struct CText {
    std::array<char, 200> Buffer = {'?'};
    char* Data() { return Buffer.data(); }
};

std::string Shown(const CText& text) {
    return text.Buffer.data();
}

std::string Shown(int number) {
    return std::to_string(number);
}

std::string Shown(double number) {
    return std::to_string(std::lround(number * 100));
}

// What a call gives: its result, and behind it what it delivered; amounts in hundredths.
template <typename... Outputs>
std::string Given(int result, const Outputs&... outputs) {
    std::string text = std::to_string(result);
    ((text += " " + Shown(outputs)), ...);
    return text;
}

struct CFiles {
    CFiles();

    CTempFolder Folder;
    std::string Table;
    std::string Records;
    std::string Lines;
    std::string Saved;
};

// "X1": two lines whose item 1005 is "AAAA" and "BBBB". "X2": three entries. "X4" and "G9": an entry with the mutation
// EM of 12.5, and one with TM.
CFiles::CFiles() {
    CTableBuilder table;
    for (const int base : {4000, 19200}) { // the codes of mutations are the defaults: EM has an amount, TM two texts
        table.Section(base == 4000 ? "X4" : "G9")
            .Item(base, 2, 1, "C")
            .Item(base + 5, 4, 3, "C")
            .Item(base + 10, 1, 7, "C");
        table.Item(base + 25, 3, 8, "C")
            .Item(base + 30, 4, 11, "C")
            .Item(base + 35, 4, 15, "N,,,R 4.0")
            .Item(base + 40, 1, 19, "C");
        table.Item(base + 45, 3, 20, "C").Item(base + 55, 3, 8, "C").Item(base + 60, 12, 11, "N,,,R 9.2");
        table.Item(base + 70, 3, 8, "C").Item(base + 75, 2, 11, "C").Item(base + 80, 10, 13, "C");
    }
    table.Section("X1")
        .Item(1000, 2, 1, "C")
        .Item(1005, 4, 8, "C")
        .Item(1010, 8, 12, "N,,,R 5.2")
        .Item(1012, 4, 30, "N,,,R 4.0")
        .Item(1015, 10, 20, "D,,,,,,DD.MM.YYYY");
    table.Section("X2")
        .Item(2000, 2, 1, "C")
        .Item(2005, 4, 3, "C")
        .Item(2010, 1, 7, "C")
        .Item(2020, 8, 8, "C")
        .Item(2025, 9, 16, "N,,,R 6.2");
    Table = table.Write(Folder.PathOf("layouts.table"));
    const auto positions = [](const std::string& type) {
        return CellLine(type + "0001 ", {PositionCell("E", "aaaa"), AmountCell("EM", "12.50"),
                                         PositionCell("I", "bbbb"), TextsCell("TM", "LA", "two layers")});
    };
    CRecordBuilder lines;
    lines.Add("X1", "").Put(0, "X10001 AAAA  123.4524.03.2015  47");
    lines.Add("X1", "").Put(0, "X10001 BBBB");
    lines.Add("X2", "").Put(0, "X20001 OPTION1     10.00OPTION2     20.00OPTION3     30.00");
    lines.Add("X4").Put(0, positions("X4"));
    lines.Add("G9").Put(0, positions("G9"));
    lines.Add("ZZ", "a type that is not known");
    Records = lines.Save(Folder.PathOf("records.rec"));
    Lines = Folder.Write("lines.txt", "X1 one line\nX2 another\n");
    Saved = Folder.PathOf("saved");
}

struct CRow {
    const char* Name;
    std::string (*Run)(int handle, CFiles& files);
    const char* Expected;
    const char* WithoutInstance; ///< what the function with a handle gives without an instance
    std::string (*Look)(int handle, CFiles& files) = nullptr; ///< what the call has brought about
    const char* Seen = "";
};

std::string Line(int h, const char* type) {
    CText line;
    const int result = Call(h, GetFirstCompleteRecord, MifGetFirstCompleteRecord, type, line.Data(), 129);
    std::string text = Given(result, line);
    return text.erase(text.find_last_not_of(' ') + 1);
}

std::string Item(int h, int item) {
    CText text;
    const int result = Call(h, ReadItem, MifReadItem, item, text.Data(), 150);
    return Given(result, text);
}

// The mutation of the current position of "X4" or "G9".
std::string X4Mutation(int h, int index) {
    CText code;
    CText text1;
    CText text2;
    double value = 77;
    const int result =
        Call(h, ReadX4Mutation, MifReadX4Mutation, index, code.Data(), 3, &value, text1.Data(), 2, text2.Data(), 10);
    return Given(result, code, value, text1, text2);
}

std::string G9Mutation(int h, int index) {
    CText code;
    CText text1;
    CText text2;
    double value = 77;
    const int result =
        Call(h, ReadG9Mutation, MifReadG9Mutation, index, code.Data(), 3, &value, text1.Data(), 2, text2.Data(), 10);
    return Given(result, code, value, text1, text2);
}

std::string NextLine(int h, CFiles& /*files*/) {
    CText line;
    GetFirstCompleteRecord("none", nullptr, 0); // the flat counter, which tells the line, is 1
    if (h != kFlat) {
        GetNextCompleteRecord("none", nullptr, 0); // and 2: a handle's function does not count it on
    }
    const int result = Call(h, GetNextCompleteRecord, MifGetNextCompleteRecord, "X1", line.Data(), 129);
    return Given(result, line).substr(0, 13);
}

std::string SetLine(int h, CFiles& /*files*/) {
    CText line;
    (void)std::snprintf(line.Data(), 129, "%s", "X2 new");
    return Given(Call(h, SetCompleteRecord, MifSetCompleteRecord, "X5", line.Data(), 129));
}

std::string X4Texts(int h, CFiles& /*files*/) {
    CText code;
    CText value;
    CText text1;
    CText text2;
    const int result = Call(h, ReadX4MutationChar, MifReadX4MutationChar, 1, code.Data(), 2, value.Data(), 15,
                            text1.Data(), 2, text2.Data(), 10);
    return Given(result, code, value, text1, text2);
}

std::string G9Texts(int h, CFiles& /*files*/) {
    CText code;
    CText value;
    CText text1;
    CText text2;
    const int result = Call(h, ReadG9MutationChar, MifReadG9MutationChar, 1, code.Data(), 2, value.Data(), 15,
                            text1.Data(), 2, text2.Data(), 10);
    return Given(result, code, value, text1, text2);
}

std::string Void() {
    return "void";
}

// clang-format off
const std::vector<CRow> kRows = {
    {"LoadTable", [](int h, CFiles& f) { return Given(Call(h, LoadTable, MifLoadTable, f.Table.c_str(), 3, 2)); }, "0", "-1"},
    {"LoadTableOfAnotherVersion", [](int h, CFiles& f) { return Given(Call(h, LoadTable, MifLoadTable, f.Table.c_str(), 2, 3)); }, "-15", "-1"},
    {"ReadAllRecords", [](int h, CFiles& f) { return Given(Call(h, ReadAllRecords, MifReadAllRecords, f.Records.c_str())); }, "1", "-1"},
    {"ReadAllRecordsEx", [](int h, CFiles& f) { return Given(Call(h, ReadAllRecordsEx, MifReadAllRecordsEx, f.Records.c_str())); }, "0", "-1"},
    {"ReadAll_V_Records", [](int h, CFiles& f) { return Given(Call(h, ReadAll_V_Records, MifReadAll_V_Records, f.Lines.c_str())); }, "1", "-1",
     [](int h, CFiles&) { return Line(h, "X1"); }, "0 X1 one line"},
    {"SaveAllRecords", [](int h, CFiles& f) { return Given(Call(h, SaveAllRecords, MifSaveAllRecords, f.Saved.c_str(), 1)); }, "5", "-1",
     [](int, CFiles& f) { const std::string saved = ReadFile(f.Saved); return Given(static_cast<int>(saved.size())) + saved.substr(128, 4); }, "780\r\nX1"},
    {"SaveAllRecordsWithoutLineEnds", [](int h, CFiles& f) { return Given(Call(h, SaveAllRecords, MifSaveAllRecords, f.Saved.c_str(), 0)); }, "5", "-1",
     [](int, CFiles& f) { return Given(static_cast<int>(ReadFile(f.Saved).size())); }, "768"},
    {"DestroyAllRecords", [](int h, CFiles&) { h == kFlat ? DestroyAllRecords() : MifDestroyAllRecords(h); return Void(); }, "void", "void",
     [](int h, CFiles&) { return Line(h, "X1") + Line(h, "UNKNOWN"); }, "-1 ?-1 ?"},
    {"DestroyRecords", [](int h, CFiles&) { h == kFlat ? DestroyRecords("X2") : MifDestroyRecords(h, "X2"); return Void(); }, "void", "void",
     [](int h, CFiles&) { return Line(h, "X2") + Line(h, "X1").substr(0, 4); }, "-1 ?0 X1"},
    {"DestroyKnownRecordsOnly", [](int h, CFiles&) { h == kFlat ? DestroyKnownRecordsOnly() : MifDestroyKnownRecordsOnly(h); return Void(); }, "void", "void",
     [](int h, CFiles&) { return Line(h, "X1") + Line(h, "UNKNOWN"); }, "-1 ?0 ZZa type that is not known"},
    {"ReadItem", [](int h, CFiles&) { CText t; const int r = Call(h, ReadItem, MifReadItem, 1015, t.Data(), 9); return Given(r, t); }, "-1000 24.03.20", "-1 ?"},
    {"ReadCharItem", [](int h, CFiles&) { CText t; const int r = Call(h, ReadCharItem, MifReadCharItem, 1005, t.Data(), 4); return Given(r, t); }, "-1000 AAA", "-1 ?"},
    {"ReadIntItem", [](int h, CFiles&) { int v = 7; const int r = Call(h, ReadIntItem, MifReadIntItem, 1012, &v); return Given(r, v); }, "0 47", "-1 7"},
    {"ReadFloatItem", [](int h, CFiles&) { double v = 7; const int r = Call(h, ReadFloatItem, MifReadFloatItem, 1010, &v); return Given(r, v); }, "0 12345", "-1 700"},
    {"ReadDateItem", [](int h, CFiles&) { CText t; const int r = Call(h, ReadDateItem, MifReadDateItem, 1015, "YYYYMMDD", t.Data(), 9); return Given(r, t); }, "0 20150324", "-1 ?"},
    {"HardReadDynItem", [](int h, CFiles&) { CText t; const int r = Call(h, HardReadDynItem, MifHardReadDynItem, 2020, t.Data(), 9); return Given(r, t); }, "-1000 OPTION1 ", "-1 ?"},
    {"WriteItem", [](int h, CFiles&) { return Given(Call(h, WriteItem, MifWriteItem, 1005, "abc")); }, "0", "-1", [](int h, CFiles&) { return Item(h, 1005); }, "0 abc "},
    {"WriteCharItem", [](int h, CFiles&) { return Given(Call(h, WriteCharItem, MifWriteCharItem, 1005, "d   ")); }, "0", "-1", [](int h, CFiles&) { return Item(h, 1005); }, "0 d   "},
    {"WriteIntItem", [](int h, CFiles&) { return Given(Call(h, WriteIntItem, MifWriteIntItem, 1012, 815)); }, "0", "-1", [](int h, CFiles&) { return Item(h, 1012); }, "0  815"},
    {"WriteFloatItem", [](int h, CFiles&) { return Given(Call(h, WriteFloatItem, MifWriteFloatItem, 1010, 2.5)); }, "0", "-1", [](int h, CFiles&) { return Item(h, 1010); }, "0     2.50"},
    {"WriteRoundFloatItem", [](int h, CFiles&) { return Given(Call(h, WriteRoundFloatItem, MifWriteRoundFloatItem, 1010, 2.346)); }, "0", "-1", [](int h, CFiles&) { return Item(h, 1010); }, "0     2.35"},
    {"WriteDateItem", [](int h, CFiles&) { return Given(Call(h, WriteDateItem, MifWriteDateItem, 1015, "YYYYMMDD", "20251124")); }, "0", "-1", [](int h, CFiles&) { return Item(h, 1015); }, "0 24.11.2025"},
    {"HardWriteItem", [](int h, CFiles&) { return Given(Call(h, HardWriteItem, MifHardWriteItem, 1005, "hard")); }, "0", "-1", [](int h, CFiles&) { return Item(h, 1005); }, "0 hard"},
    {"HardWriteDynItem", [](int h, CFiles&) { return Given(Call(h, HardWriteDynItem, MifHardWriteDynItem, 2020, "OPTION4 /    40.00")); }, "0", "-1",
     [](int h, CFiles&) { return Line(h, "X2").substr(9, 17); }, "OPTION4     40.00"},
    {"ClearItem", [](int h, CFiles&) { return Given(Call(h, ClearItem, MifClearItem, 1005)); }, "0", "-1", [](int h, CFiles&) { return Item(h, 1005); }, "0     "},
    {"ReadFirst", [](int h, CFiles&) { return Given(Call(h, ReadFirst, MifReadFirst, 2020)); }, "0", "-1", [](int h, CFiles&) { return Item(h, 2020); }, "0 OPTION1 "},
    {"ReadNext", [](int h, CFiles&) { return Given(Call(h, ReadNext, MifReadNext, 2020)); }, "0", "-1", [](int h, CFiles&) { return Item(h, 2020); }, "0 OPTION2 "},
    {"ReadPrev", [](int h, CFiles&) { Call(h, ReadNext, MifReadNext, 2020); Call(h, ReadNext, MifReadNext, 2020); return Given(Call(h, ReadPrev, MifReadPrev, 2020)); }, "0", "-1",
     [](int h, CFiles&) { return Item(h, 2020); }, "0 OPTION2 "},
    {"FindFirst", [](int h, CFiles&) { return Given(Call(h, FindFirst, MifFindFirst, 2020, "OPTION3")); }, "1", "-1", [](int h, CFiles&) { return Item(h, 2020); }, "0 OPTION3 "},
    {"FindNext", [](int h, CFiles&) { return Given(h == kFlat ? FindNext() : MifFindNext(h)); }, "-4", "-1"},
    {"GetFirstCompleteRecord", [](int h, CFiles&) { CText t; const int r = Call(h, GetFirstCompleteRecord, MifGetFirstCompleteRecord, "X1", t.Data(), 128); return Given(r, t).substr(0, 13); }, "0 X10001 AAAA", "-1 ?"},
    {"GetFirstCompleteRecordIntoTooSmallABuffer", [](int h, CFiles&) { CText t; const int r = Call(h, GetFirstCompleteRecord, MifGetFirstCompleteRecord, "X1", t.Data(), 127); return Given(r, t); }, "-3 ?", "-1 ?"},
    {"GetNextCompleteRecord", NextLine, "0 X10001 BBBB", "-1 ?"},
    {"SetCompleteRecord", SetLine, "0", "-1", [](int h, CFiles&) { return Line(h, "X5"); }, "0 X2 new"},
    {"SetDelimiter", [](int h, CFiles&) { const char before = Call(h, SetDelimiter, MifSetDelimiter, '|'); return Given(before); }, "47", "0",
     [](int h, CFiles&) { return Given(Call(h, SetDelimiter, MifSetDelimiter, '/')); }, "124"},
    {"ReadX4Mutation", [](int h, CFiles&) { return X4Mutation(h, 1); }, "0 EM 1250  ", "-1 ? 7700 ? ?"},
    {"ReadX4MutationOfABadIndex", [](int h, CFiles&) { return X4Mutation(h, 4); }, "-6 ? 7700 ? ?", "-1 ? 7700 ? ?"},
    {"ReadX4MutationWithTexts", [](int h, CFiles&) { Call(h, ReadNext, MifReadNext, 4025); return X4Mutation(h, 1); }, "0 TM -100 LA two layers", "-1 ? 7700 ? ?"},
    {"ReadX4MutationCharWithTexts", [](int h, CFiles& f) { Call(h, ReadNext, MifReadNext, 4025); return X4Texts(h, f); }, "0 TM  LA two layers", "-1 ? ? ? ?"},
    {"ReadX4MutationWithoutAPlaceForTheValue", [](int h, CFiles&) { CText a; CText b; CText c; const int r = Call(h, ReadX4Mutation, MifReadX4Mutation, 1, a.Data(), 3, static_cast<double*>(nullptr), b.Data(), 2, c.Data(), 10); return Given(r, a, b, c); }, "-1 ? ? ?", "-1 ? ? ?"},
    {"ReadX4MutationOfABadIndexWithoutAPlaceForTheValue", [](int h, CFiles&) { CText a; CText b; CText c; const int r = Call(h, ReadX4Mutation, MifReadX4Mutation, 0, a.Data(), 3, static_cast<double*>(nullptr), b.Data(), 2, c.Data(), 10); return Given(r, a, b, c); }, "-6 ? ? ?", "-1 ? ? ?"},
    {"ReadG9MutationOfABadIndexWithoutAPlaceForTheValue", [](int h, CFiles&) { CText a; CText b; CText c; const int r = Call(h, ReadG9Mutation, MifReadG9Mutation, 4, a.Data(), 3, static_cast<double*>(nullptr), b.Data(), 2, c.Data(), 10); return Given(r, a, b, c); }, "-6 ? ? ?", "-1 ? ? ?"},
    {"ReadG9MutationOfAnAmount", [](int h, CFiles&) { return G9Mutation(h, 1); }, "0 EM 1250  ", "-1 ? 7700 ? ?"},
    {"ReadG9MutationCharOfAnAmount", G9Texts, "0 EM 12.5  ", "-1 ? ? ? ?"},
    {"ReadX4MutationChar", X4Texts, "0 EM 12.5  ", "-1 ? ? ? ?"},
    {"AddX4Mutation", [](int h, CFiles&) { return Given(Call(h, AddX4Mutation, MifAddX4Mutation, "TM/LB/new layers")); }, "0", "-1", [](int h, CFiles&) { return X4Mutation(h, 2); }, "0 TM -100 LB new layers"},
    {"DeleteOneX4Mutation", [](int h, CFiles&) { return Given(Call(h, DeleteOneX4Mutation, MifDeleteOneX4Mutation, "EM")); }, "0", "-1", [](int h, CFiles&) { return X4Mutation(h, 1); }, "-90  -100  "},
    {"DeleteX4Mutations", [](int h, CFiles&) { return Given(h == kFlat ? DeleteX4Mutations() : MifDeleteX4Mutations(h)); }, "1", "-1", [](int h, CFiles&) { return X4Mutation(h, 1) + G9Mutation(h, 1); }, "-90  -100  0 EM 1250  "},
    {"GetX4MutationsCount", [](int h, CFiles&) { Call(h, AddX4Mutation, MifAddX4Mutation, "TM/LB/new layers"); return Given(h == kFlat ? GetX4MutationsCount() : MifGetX4MutationsCount(h)); }, "2", "-1"},
    {"UseX4New", [](int h, CFiles&) { return Given(Call(h, UseX4New, MifUseX4New, 0)); }, "1", "-1", [](int h, CFiles&) { return Given(Call(h, UseX4New, MifUseX4New, 1)); }, "0"},
    {"ReadG9Mutation", [](int h, CFiles&) { Call(h, ReadNext, MifReadNext, 19225); return G9Mutation(h, 1); }, "0 TM -100 LA two layers", "-1 ? 7700 ? ?"},
    {"ReadG9MutationChar", [](int h, CFiles& f) { Call(h, ReadNext, MifReadNext, 19225); return G9Texts(h, f); }, "0 TM  LA two layers", "-1 ? ? ? ?"},
    {"AddG9Mutation", [](int h, CFiles&) { return Given(Call(h, AddG9Mutation, MifAddG9Mutation, "TM/LC/red layers")); }, "0", "-1", [](int h, CFiles&) { return G9Mutation(h, 2) + X4Mutation(h, 2); }, "0 TM -100 LC red layers-90  -100  "},
    {"DeleteOneG9Mutation", [](int h, CFiles&) { return Given(Call(h, DeleteOneG9Mutation, MifDeleteOneG9Mutation, "EM")); }, "0", "-1", [](int h, CFiles&) { return G9Mutation(h, 1); }, "-90  -100  "},
    {"DeleteG9Mutations", [](int h, CFiles&) { return Given(h == kFlat ? DeleteG9Mutations() : MifDeleteG9Mutations(h)); }, "1", "-1", [](int h, CFiles&) { return G9Mutation(h, 1) + X4Mutation(h, 1); }, "-90  -100  0 EM 1250  "},
    {"GetG9MutationsCount", [](int h, CFiles&) { Call(h, AddG9Mutation, MifAddG9Mutation, "TM/LC/red layers"); return Given(h == kFlat ? GetG9MutationsCount() : MifGetG9MutationsCount(h)); }, "2", "-1"},
    {"K_SetOptCode", [](int h, CFiles&) { h == kFlat ? K_SetOptCode('1') : MifK_SetOptCode(h, '1'); return Void(); }, "void", "void"},
    {"K_SetKalkArt", [](int h, CFiles&) { h == kFlat ? K_SetKalkArt('2') : MifK_SetKalkArt(h, '2'); return Void(); }, "void", "void"},
    {"CreateNewKRecord", [](int h, CFiles&) { char type[] = "K1"; return Given(Call(h, CreateNewKRecord, MifCreateNewKRecord, static_cast<char*>(type))); }, "-1", "-1"},
    {"SetCalcNr_K_Records", [](int h, CFiles&) { char number[] = "0002"; h == kFlat ? SetCalcNr_K_Records(number) : MifSetCalcNr_K_Records(h, number); return Void(); }, "void", "void",
     [](int h, CFiles&) { return Line(h, "X2").substr(0, 8); }, "0 X20001"},
};
// clang-format on

class BothInterfaces : public ::testing::TestWithParam<CRow> {
protected:
    // The small record set, each record with its first entry the current one.
    void Prepare(int h) const {
        ASSERT_EQ(Call(h, LoadTable, MifLoadTable, m_Files.Table.c_str(), 3, 2), 0);
        Call(h, UseX4New, MifUseX4New, 1);
        Call(h, SetDelimiter, MifSetDelimiter, '/');
        ASSERT_EQ(Call(h, ReadAllRecordsEx, MifReadAllRecordsEx, m_Files.Records.c_str()), 0);
        for (const int key : {2020, 4025, 19225}) {
            ASSERT_EQ(Call(h, ReadFirst, MifReadFirst, key), 0);
        }
    }

    void Expect(int h) {
        const CRow& row = GetParam();
        Prepare(h);
        EXPECT_EQ(row.Run(h, m_Files), row.Expected);
        EXPECT_EQ(row.Look == nullptr ? "" : row.Look(h, m_Files), row.Seen);
    }

    CFiles m_Files;
};

void PrintTo(const CRow& row, std::ostream* out) {
    *out << row.Name;
}

INSTANTIATE_TEST_SUITE_P(Function, BothInterfaces, ::testing::ValuesIn(kRows),
                         [](const auto& test) { return std::string(test.param.Name); });

TEST_P(BothInterfaces, TheFlatFunctionWorksOnTheSharedRecordSet) {
    Expect(kFlat);
    UseX4New(0); // as other tests expect to find it
    DestroyAllRecords();
}

// With another instance behind it, which an unknown handle would stand for.
TEST_P(BothInterfaces, TheFunctionWithAHandleWorksOnItsRecordSetOnly) {
    const int handle = MifCreateInstance();
    const int other = MifCreateInstance();
    Expect(handle);
    CText line;
    EXPECT_EQ(MifGetFirstCompleteRecord(other, "X1", line.Data(), 129), -1);
    MifDestroyInstance(other);
    MifDestroyInstance(handle);
}

TEST_P(BothInterfaces, WithoutAnInstanceTheFunctionWithAHandleDoesNothing) {
    EXPECT_EQ(GetParam().Run(4, m_Files), GetParam().WithoutInstance);
}

TEST(BothInterfacesTable, HasARowForEveryFunction) {
    std::vector<std::string> names;
    const std::string exported = ReadFile(TABVEX_SAMPLES_DIR "/../src/api/exported_functions.txt");
    for (std::size_t begin = 0; begin < exported.size();) {
        const std::size_t end = std::min(exported.find('\n', begin), exported.size());
        names.push_back(exported.substr(begin, end - begin));
        begin = end + 1;
    }
    ASSERT_GT(names.size(), 90U);
    for (const std::string& name : names) {
        const bool withHandle = name.rfind("Mif", 0) == 0;
        const bool instance = name == "MifCreateInstance" || name == "MifDestroyInstance";
        const std::string flat = withHandle ? name.substr(3) : name;
        const bool known = std::any_of(kRows.begin(), kRows.end(), [&](const CRow& row) { return row.Name == flat; });
        EXPECT_TRUE(known || instance || name.rfind("Java_", 0) == 0) << name;
    }
}

} // namespace
