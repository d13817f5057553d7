#include "tabvex/flat.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>

#include "support/temp_folder.h"

namespace {

const char* const kTable = TABVEX_SAMPLES_DIR "/calculation.table";

// One record file with five "X1" lines that differ in their last character.
class FlatFunctions : public testing::Test {
protected:
    void SetUp() override {
        DestroyAllRecords();
        ASSERT_EQ(LoadTable(kTable, 3, 2), 0);
        std::ofstream file(m_strFile, std::ios::binary);
        for (char mark = 'A'; mark <= 'E'; ++mark) {
            file << "X1" << std::string(125, ' ') << mark;
        }
        file.close();
        ASSERT_EQ(ReadAllRecords(m_strFile.c_str()), 1);
    }
    void TearDown() override { DestroyAllRecords(); }

    CTempFolder m_Folder;
    std::string m_strFile = m_Folder.PathOf("five.rec");
};

char LastCharacter(const char* line) {
    return line[127];
}

TEST_F(FlatFunctions, CompleteRecordsAreHandedOutLineAfterLine) {
    char line[129];
    ASSERT_EQ(GetFirstCompleteRecord("X1", line, sizeof line), 0);
    EXPECT_EQ(LastCharacter(line), 'A');
    for (const char expected : {'B', 'C', 'D'}) {
        ASSERT_EQ(GetNextCompleteRecord("X1", line, sizeof line), 0);
        EXPECT_EQ(LastCharacter(line), expected);
    }
}

TEST_F(FlatFunctions, AFailedNextCompleteRecordStillCountsOn) {
    char line[129];
    ASSERT_EQ(GetFirstCompleteRecord("X1", line, sizeof line), 0);
    EXPECT_EQ(GetNextCompleteRecord("X1", line, 127), -3);
    ASSERT_EQ(GetNextCompleteRecord("X1", line, sizeof line), 0);
    EXPECT_EQ(LastCharacter(line), 'C');
}

TEST_F(FlatFunctions, G9RecordsKnowMutations) {
    char line[129];
    std::snprintf(line, sizeof line, "%-128s", "G9");
    ASSERT_EQ(SetCompleteRecord("G9", line, 129), 0);
    EXPECT_EQ(GetG9MutationsCount(), 0);
    EXPECT_EQ(AddG9Mutation("EM/1"), -5);
}

TEST_F(FlatFunctions, NullValuesGiveBadArgument) {
    EXPECT_EQ(ReadIntItem(1005, nullptr), -1);
    EXPECT_EQ(ReadFloatItem(1005, nullptr), -1);
    EXPECT_EQ(LoadTable(nullptr, 3, 2), -1);
    EXPECT_EQ(ReadAllRecords(nullptr), -1);
    EXPECT_EQ(ReadItem(1005, nullptr, 10), -1);
}

TEST_F(FlatFunctions, SetDelimiterGivesTheOneBefore) {
    EXPECT_EQ(SetDelimiter('|'), '/');
    EXPECT_EQ(SetDelimiter('/'), '|');
}

TEST_F(FlatFunctions, CallsThatAreKeptForOldCallersDoNothing) {
    char type[] = "K1";
    K_SetOptCode('1');
    K_SetKalkArt('2');
    SetCalcNr_K_Records(type);
    EXPECT_EQ(CreateNewKRecord(type), -1);
}

} // namespace
