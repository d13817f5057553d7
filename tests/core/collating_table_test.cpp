#include "core/collating_table.h"

#include <string>

#include <gtest/gtest.h>

namespace tabvex {
namespace {

constexpr int kRefused = -1;
constexpr int kDiffer = 3;
constexpr int kEqual = 2;
constexpr int kBefore = 1;
constexpr int kBehind = 0;

/// A line with a key in columns 1-4 and a sequence number in columns 9-11 and 15-16.
std::string Line(const std::string& key, const std::string& number) {
    return key + "    " + number.substr(0, 3) + "xyz" + number.substr(3) + " rest of " + key + number;
}

TEST(CollatingTable, TheDefaultSequenceRanksSignsDigitsCapitalsAndTheBlankLast) {
    const CCollatingTable table;
    const std::string sequence = "+$*0123456789?>ABCDEFGHIJKLMNOPQRSTUVWXYZ ";
    for (int c = 0; c < 256; ++c) {
        const char character = static_cast<char>(c);
        const std::size_t index = sequence.find(character);
        const int rank = index == std::string::npos ? 100 : static_cast<int>(index);
        EXPECT_EQ(table.Rank(character), rank) << "character " << c;
    }
    EXPECT_EQ(table.Rank('+'), 0);
    EXPECT_EQ(table.Rank('0'), 3);
    EXPECT_EQ(table.Rank('A'), 15);
    EXPECT_EQ(table.Rank('Z'), 40);
    EXPECT_EQ(table.Rank(' '), 41);
    EXPECT_EQ(table.Rank('a'), 100);
}

TEST(CollatingTable, ANewSequenceReplacesTheOldOne) {
    CCollatingTable table;
    EXPECT_EQ(table.SetSequence("ba"), 0);
    EXPECT_EQ(table.Rank('b'), 0);
    EXPECT_EQ(table.Rank('a'), 1);
    EXPECT_EQ(table.Rank('+'), 100);
}

TEST(CollatingTable, TheFirstOfTwoEqualCharactersGivesTheRank) {
    CCollatingTable table;
    EXPECT_EQ(table.SetSequence("xyxz"), 0);
    EXPECT_EQ(table.Rank('x'), 0);
    EXPECT_EQ(table.Rank('z'), 3);
}

TEST(CollatingTable, OneTo128CharactersAreASequenceAndOthersKeepTheOldOne) {
    CCollatingTable table;
    EXPECT_EQ(table.SetSequence(""), kRefused);
    EXPECT_EQ(table.SetSequence(std::string(129, 'x')), kRefused);
    EXPECT_EQ(table.Rank('+'), 0);
    EXPECT_EQ(table.Rank('x'), 100);
    EXPECT_EQ(table.SetSequence(std::string(127, 'x') + "y"), 0);
    EXPECT_EQ(table.Rank('y'), 127);
    EXPECT_EQ(table.SetSequence("q"), 0);
    EXPECT_EQ(table.Rank('q'), 0);
}

TEST(CollatingTable, ACharacterBehindRank100SortsBehindUnlistedOnes) {
    CCollatingTable table;
    ASSERT_EQ(table.SetSequence(std::string(127, 'x') + "y"), 0);
    EXPECT_EQ(table.Compare("?", "y"), kBefore);
}

TEST(CollatingTable, ACharacterOf128OrMoreCanBeListed) {
    CCollatingTable table;
    ASSERT_EQ(table.SetSequence("a\xE4"), 0);
    EXPECT_EQ(table.Rank('\xE4'), 1);
    EXPECT_EQ(table.Rank('\x84'), 100);
}

TEST(CollatingTable, ComparesByTheFirstDifferentRank) {
    struct CRow {
        const char* A;
        const char* B;
        int Result;
    };
    const CRow rows[] = {
        {"A", " ", kBefore},     {" ", "A", kBehind},    {"9", "A", kBefore},   {"+", "0", kBefore},
        {" ", "a", kBefore},     {"a", "b", kEqual},     {"", "", kEqual},      {"", "A", kDiffer},
        {"AB", "A", kDiffer},    {"AB", "AB", kEqual},   {"AB", "AC", kBefore}, {"B+", "AZ", kBehind},
        {"A1B", "A1A", kBehind}, {"Aab", "Aba", kEqual}, {"?", ">", kBefore},   {"*", "$", kBehind},
        {"AB", "ZZZ", kDiffer},
    };
    const CCollatingTable table;
    for (const CRow& row : rows) {
        EXPECT_EQ(table.Compare(row.A, row.B), row.Result) << '"' << row.A << "\" and \"" << row.B << '"';
    }
}

TEST(CollatingTable, LinesOutOfOrderAreSwappedWhole) {
    const CCollatingTable table;
    std::string a = Line("X2  ", "00001");
    std::string b = Line("X1  ", "00009");
    table.OrderPair(a, b, 1, 4);
    EXPECT_EQ(a, Line("X1  ", "00009"));
    EXPECT_EQ(b, Line("X2  ", "00001"));
}

TEST(CollatingTable, LinesInOrderStay) {
    const CCollatingTable table;
    std::string a = Line("X1  ", "00009");
    std::string b = Line("X2  ", "00001");
    table.OrderPair(a, b, 1, 4);
    EXPECT_EQ(a, Line("X1  ", "00009"));
    EXPECT_EQ(b, Line("X2  ", "00001"));
}

TEST(CollatingTable, EqualKeysAreOrderedByTheSequenceNumber) {
    struct CRow {
        const char* NumberA;
        const char* NumberB;
        bool IsSwapped;
    };
    const CRow rows[] = {
        {"00012", "00003", true}, {"00003", "00012", false}, {"00012", "00012", false}, {"99999", "00000", true},
        {"  2 9", "  1 9", true}, {"00100", "00099", true},  {"00199", "00200", false}, {"  x 9", "  1 9", false},
        {"  1 9", "  x 9", true}, {"   12", "    9", true},  {"-1 00", "00000", false}, {"00000", "-1 00", true},
    };
    const CCollatingTable table;
    for (const CRow& row : rows) {
        std::string a = Line("X1+ ", row.NumberA);
        std::string b = Line("X1+ ", row.NumberB);
        table.OrderPair(a, b, 1, 4);
        EXPECT_EQ(a, Line("X1+ ", row.IsSwapped ? row.NumberB : row.NumberA)) << row.NumberA << ' ' << row.NumberB;
        EXPECT_EQ(b, Line("X1+ ", row.IsSwapped ? row.NumberA : row.NumberB)) << row.NumberA << ' ' << row.NumberB;
    }
}

TEST(CollatingTable, ALineShorterThanSevenCharactersSortsBeforeNumberedOnes) {
    const CCollatingTable table;
    std::string a = "KEY1567"; // seven characters: its number is 0
    std::string b = "KEY156";  // six characters: -1
    table.OrderPair(a, b, 1, 4);
    EXPECT_EQ(a, "KEY156");
    EXPECT_EQ(b, "KEY1567");
    table.OrderPair(a, b, 1, 4);
    EXPECT_EQ(a, "KEY156");
}

TEST(CollatingTable, ASequenceNumberIsReadAsFarAsTheLineGoes) {
    const CCollatingTable table;
    std::string a = "KEY1    12"; // 12
    std::string b = "KEY1    009xyz";
    table.OrderPair(a, b, 1, 4);
    EXPECT_EQ(a, "KEY1    009xyz");
    EXPECT_EQ(b, "KEY1    12");
}

TEST(CollatingTable, TheKeyLiesInTheColumnsAskedFor) {
    const CCollatingTable table;
    std::string a = "ZBB 1";
    std::string b = "ZAA 2";
    table.OrderPair(a, b, 1, 1); // equal keys, no sequence numbers
    EXPECT_EQ(a, "ZBB 1");
    table.OrderPair(a, b, 5, 1); // "1" and "2"
    EXPECT_EQ(a, "ZBB 1");
    table.OrderPair(a, b, 2, 2); // "BB" and "AA"
    EXPECT_EQ(a, "ZAA 2");
    EXPECT_EQ(b, "ZBB 1");
}

TEST(CollatingTable, KeysOfDifferentLengthLeaveThePair) {
    const CCollatingTable table;
    std::string a = "ZZZ";
    std::string b = "AA";
    table.OrderPair(a, b, 1, 3);
    EXPECT_EQ(a, "ZZZ");
    table.OrderPair(a, b, 1, 2);
    EXPECT_EQ(a, "AA");
}

TEST(CollatingTable, AKeyEndsAtItsFirstNul) {
    const CCollatingTable table;
    std::string a("B\0B", 3);
    std::string b("A\0CC", 4);
    table.OrderPair(a, b, 1, 4);
    EXPECT_EQ(a, std::string("A\0CC", 4));
    EXPECT_EQ(b, std::string("B\0B", 3));
}

TEST(CollatingTable, StartAndWidthOutside1To128DoNothing) {
    const CCollatingTable table;
    const int columns[][2] = {{0, 1}, {1, 0}, {-1, 1}, {1, -1}, {129, 1}, {1, 129}, {2147483647, 1}, {1, 2147483647}};
    for (const auto& [start, width] : columns) {
        std::string a(200, 'B');
        std::string b(200, 'A');
        table.OrderPair(a, b, start, width);
        EXPECT_EQ(a, std::string(200, 'B')) << start << ' ' << width;
        EXPECT_EQ(b, std::string(200, 'A')) << start << ' ' << width;
    }
}

TEST(CollatingTable, TheLastColumnAndTheWholeWidthAreKeys) {
    const CCollatingTable table;
    std::string a = std::string(127, 'A') + "B";
    std::string b = std::string(128, 'A');
    table.OrderPair(a, b, 128, 128);
    EXPECT_EQ(a, std::string(128, 'A'));
    table.OrderPair(b, a, 1, 128);
    EXPECT_EQ(b, std::string(128, 'A'));
}

TEST(CollatingTable, AKeyBehindBothLinesIsEqual) {
    const CCollatingTable table;
    std::string a = Line("X1  ", "00002");
    std::string b = Line("X1  ", "00001");
    table.OrderPair(a, b, 120, 4);
    EXPECT_EQ(a, Line("X1  ", "00001"));
}

} // namespace
} // namespace tabvex
