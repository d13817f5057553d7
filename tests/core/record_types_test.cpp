#include "core/record_types.h"

#include <initializer_list>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "support/record_builder.h"
#include "tabvex/result_codes.h"

namespace {

using tabvex::RecordTypeOf;

// clang-format off
constexpr std::initializer_list<const char*> kPlainKeys = {
    "X0", "X1", "X2", "X3", "X4", "X5", "X6", "X7", "X8", "X9", "G0", "G1", "G2", "G3", "G4", "G5", "G6", "G7", "G9",
    "GD", "GE", "GI", "Z1", "Z2", "Z3", "Z4", "Z9", "W1", "W2", "W3", "W4", "W6", "W7", "W9", "V1", "V2", "V3", "X$",
    "MS", "M2", "T0", "G8", "FZ", "Z5", "ZT", "Z0"};
constexpr std::initializer_list<const char*> kFamilyKeys = {
    "WT02", "WT03", "WT04", "WT05", "WT06", "WT07", "WT08", "XT02", "XT03", "XT04", "XT05", "XT06", "XT07", "XT08",
    "XT15", "XT16", "XT19", "XT22"};
constexpr std::initializer_list<const char*> kListKeys = {
    "X1", "W1", "X5", "XT02", "XT03", "XT04", "XT05", "XT06", "XT07", "XT08", "XT15", "XT16", "XT19", "XT22", "WT02",
    "WT03", "WT04", "WT05", "WT06", "WT07", "WT08", "Z1", "Z5", "ZT", "G2", "Z3", "M2", "MS", "X$", "T0"};
// clang-format on

struct CKey {
    int Result;
    std::string Text;
};

bool operator==(const CKey& a, const CKey& b) {
    return a.Result == b.Result && a.Text == b.Text;
}

std::ostream& operator<<(std::ostream& stream, const CKey& key) {
    return stream << key.Result << " " << key.Text;
}

CKey KeyOf(std::string_view line) {
    char key[tabvex::kKeySize];
    const int result = tabvex::GetRecordTypeKey(Padded(line).c_str(), key);
    return {result, key};
}

// The key of a line's type after the marks were looked at; "" for an unknown type.
std::string TypeOf(const CRecordBuilder& line) {
    const char* text = line.Lines().back().c_str();
    const int type = tabvex::WidenRecordType(tabvex::RecordTypeOfLine(text), text);
    return type == tabvex::kNoRecordType ? "" : std::string(tabvex::RecordTypeRow(type).Key);
}

TEST(RecordTypes, PlainTypesAreTheFirstTwoCharacters) {
    EXPECT_EQ(kPlainKeys.size(), 46U);
    for (const char* key : kPlainKeys) {
        EXPECT_EQ(KeyOf(std::string(key) + "12345XY89"), (CKey{TABVEX_OK, key}));
        EXPECT_EQ(TypeOf(CRecordBuilder().Add(key)), key);
    }
}

TEST(RecordTypes, FamiliesAreToldByCharactersSevenAndEight) {
    EXPECT_EQ(kFamilyKeys.size(), 18U);
    for (const std::string key : kFamilyKeys) {
        EXPECT_EQ(KeyOf(key.substr(0, 2) + "abcde" + key.substr(2) + "9"), (CKey{TABVEX_OK, key}));
        EXPECT_EQ(TypeOf(CRecordBuilder().Add(key)), key);
    }
}

TEST(RecordTypes, AnUnknownKeyKeepsItsFourCharacters) {
    struct {
        std::string_view Line;
        std::string_view Key;
    } const rows[] = {
        {"XTabcde99", "XT99"},
        {"XTabcde01", "XT01"},
        {"XTabcde09", "XT09"},
        {"XTabcde14", "XT14"},
        {"XTabcde17", "XT17"},
        {"WTabcde15", "WT15"},
        {"WTabcde01", "WT01"},
        {"WTabcde09", "WT09"},
        {"WTabcde 2", "WT 2"},
        {"XT15     ", "XT  "},
        {"QQabcdefg", "QQfg"},
        {"x1abcdefg", "x1fg"},
        {"1Xabcdefg", "1Xfg"},
        {"         ", "    "},
        {"XA     15", "XA15"},
        {"G      02", "G 02"},
        {"K1abcde01", "K101"},
        {"W5     02", "W502"},
        {"W8     02", "W802"},
        {"GT     02", "GT02"},
        {"X\xC4     15", "X\xC4"
                         "15"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(KeyOf(row.Line), (CKey{TABVEX_KEY_UNKNOWN, std::string(row.Key)})) << row.Line;
        EXPECT_EQ(TypeOf(CRecordBuilder().Add("").Put(0, row.Line)), "") << row.Line;
    }
    EXPECT_EQ(TABVEX_KEY_UNKNOWN, -18);
}

TEST(RecordTypes, AKeyNeverEndsInsideItsCharacters) {
    char key[tabvex::kKeySize];
    EXPECT_EQ(tabvex::GetRecordTypeKey("\0\0\0\0\0\0\0\0\0", key), -18);
    EXPECT_EQ(std::string(key, 5), std::string(5, '\0'));
}

TEST(RecordTypes, X2BecomesX2nByAOneAtCharacter127) {
    EXPECT_EQ(TypeOf(CRecordBuilder().Add("X2").Put(127, "1")), "X2N");
    for (const char* mark : {" ", "0", "2", "x"}) {
        EXPECT_EQ(TypeOf(CRecordBuilder().Add("X2").Put(127, mark)), "X2") << mark;
    }
    EXPECT_EQ(TypeOf(CRecordBuilder().Add("X2").Put(126, "1").Put(122, "1")), "X2");
}

TEST(RecordTypes, X9BecomesX9NeuByAOneAtCharacter122) {
    EXPECT_EQ(TypeOf(CRecordBuilder().Add("X9").Put(122, "1")), "X9_NEU");
    for (const char* mark : {" ", "0", "2", "x"}) {
        EXPECT_EQ(TypeOf(CRecordBuilder().Add("X9").Put(122, mark)), "X9") << mark;
    }
    EXPECT_EQ(TypeOf(CRecordBuilder().Add("X9").Put(123, "1").Put(127, "1")), "X9");
}

TEST(RecordTypes, NoOtherTypeIsWidened) {
    for (const char* key : kPlainKeys) {
        if (std::string(key) != "X2" && std::string(key) != "X9") {
            EXPECT_EQ(TypeOf(CRecordBuilder().Add(key).Put(122, "1").Put(127, "1")), key);
        }
    }
    EXPECT_EQ(TypeOf(CRecordBuilder().Add("XT15").Put(122, "1").Put(127, "1")), "XT15");
    EXPECT_EQ(TypeOf(CRecordBuilder().Add("QQ").Put(122, "1").Put(127, "1")), "");
}

TEST(RecordTypes, ListTypesAreTheTypesWithoutEntries) {
    const std::set<std::string> keys(kListKeys.begin(), kListKeys.end());
    EXPECT_EQ(keys.size(), 30U);
    for (int type = 0; type < tabvex::kRecordTypeCount; ++type) {
        const std::string key(tabvex::RecordTypeRow(type).Key);
        EXPECT_EQ(tabvex::IsListType(type), keys.count(key) == 1) << key;
    }
    EXPECT_FALSE(tabvex::IsListType(tabvex::kNoRecordType));
}

TEST(RecordTypes, EveryKeyFindsItsTypeAndNoOtherTextDoes) {
    for (int type = 0; type < tabvex::kRecordTypeCount; ++type) {
        EXPECT_EQ(tabvex::FindRecordType(tabvex::RecordTypeRow(type).Key), type);
    }
    for (const char* key : {"", "x1", "X", "X1 ", "XT", "XT99", "QQ", "UNKNOWN", "K101_01", "X9_NE", "X2n"}) {
        EXPECT_EQ(tabvex::FindRecordType(key), tabvex::kNoRecordType) << key;
    }
}

TEST(RecordTypes, W2NeuIsAnotherNameOfW2n) {
    EXPECT_EQ(tabvex::FindRecordType("W2_NEU"), RecordTypeOf("W2N"));
}

TEST(RecordTypes, ItemsBelongToTheTypeOfTheirRange) {
    struct {
        int Item;
        std::string_view Key;
    } const rows[] = {
        {1000, "X1"},  {2030, "X2"},     {2100, "X2N"}, {2135, "X2N"}, {2500, "W2"},   {2600, "W2N"},
        {2635, "W2N"}, {9400, "X9_NEU"}, {16700, "Z0"}, {19701, "GI"}, {200000, "FZ"}, {22240, "XT22"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(tabvex::RecordTypeOfItem(row.Item), RecordTypeOf(row.Key)) << row.Item;
    }
}

TEST(RecordTypes, ItemsOfTypesWithoutAClassBelongToNone) {
    for (const int item : {8000, 8025, 100500, 112485, 999, 0, -1}) {
        EXPECT_EQ(tabvex::RecordTypeOfItem(item), tabvex::kNoRecordType) << item;
    }
}

} // namespace
