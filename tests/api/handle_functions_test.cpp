#include "tabvex/mif.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "tabvex/flat.h"

namespace {

const char* const kTable = TABVEX_SAMPLES_DIR "/calculation.table";

void AddLine(int handle, char mark) {
    char line[129];
    std::snprintf(line, sizeof line, "%-127s%c", "X1", mark);
    ASSERT_EQ(MifSetCompleteRecord(handle, "X1", line, 129), 0);
}

class HandleFunctions : public testing::Test {
protected:
    int Create() {
        m_Handles.push_back(MifCreateInstance());
        return m_Handles.back();
    }
    void Destroy(int handle) {
        MifDestroyInstance(handle);
        m_Handles.erase(std::find(m_Handles.begin(), m_Handles.end(), handle));
    }
    void TearDown() override {
        for (const int handle : m_Handles) {
            MifDestroyInstance(handle);
        }
    }

    std::vector<int> m_Handles;
};

TEST_F(HandleFunctions, HandlesGrowByFourAndAreNeverUsedAgain) {
    const int first = Create();
    EXPECT_EQ(first % 4, 0);
    const int second = Create();
    EXPECT_EQ(second, first + 4);
    EXPECT_EQ(Create(), first + 8);
    Destroy(second);
    EXPECT_EQ(Create(), first + 12);
}

TEST_F(HandleFunctions, InstancesDoNotShareRecords) {
    const int a = Create();
    const int b = Create();
    AddLine(a, 'a');
    char line[129];
    EXPECT_EQ(MifGetFirstCompleteRecord(a, "X1", line, sizeof line), 0);
    EXPECT_EQ(MifGetFirstCompleteRecord(b, "X1", line, sizeof line), -1);
}

TEST_F(HandleFunctions, AnUnknownHandleStandsForTheInstanceCreatedLast) {
    Create();
    const int middle = Create();
    const int last = Create();
    AddLine(middle, 'm');
    EXPECT_EQ(MifReadFirst(999999, 1005), -40);
    ASSERT_EQ(MifLoadTable(last, kTable, 3, 2), 0);
    EXPECT_EQ(MifReadFirst(999999, 1005), -1) << "no record in the last instance";
    AddLine(999999, 'l');
    EXPECT_EQ(MifReadFirst(last, 1005), 0);
    Destroy(last);
    char line[129];
    ASSERT_EQ(MifGetFirstCompleteRecord(last, "X1", line, sizeof line), 0);
    EXPECT_EQ(line[127], 'm') << "now the middle one is the last";
}

TEST_F(HandleFunctions, DestroyingAnUnknownHandleDestroysTheLastInstance) {
    const int first = Create();
    const int last = Create();
    AddLine(first, 'f');
    AddLine(last, 'l');
    MifDestroyInstance(999999);
    m_Handles.pop_back();
    char line[129];
    ASSERT_EQ(MifGetFirstCompleteRecord(first, "X1", line, sizeof line), 0);
    EXPECT_EQ(line[127], 'f');
}

TEST_F(HandleFunctions, WithoutAnInstanceThereIsNothingToDestroy) {
    MifDestroyInstance(4);
    MifDestroyInstance(0);
    EXPECT_EQ(MifReadFirst(4, 1005), -1);
}

// True in a process in which no instance was created before.
bool FirstHandlesAre4And8And12AndBehindThem16() {
    const bool three = MifCreateInstance() == 4 && MifCreateInstance() == 8 && MifCreateInstance() == 12;
    MifDestroyInstance(8);
    return three && MifCreateInstance() == 16;
}

TEST(HandleFunctionsDeathTest, TheFirstHandlesOfAProcessAre4And8And12AndThen16WhicheverIsDestroyed) {
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // in a process of its own
    EXPECT_EXIT(std::_Exit(FirstHandlesAre4And8And12AndBehindThem16() ? 0 : 1), testing::ExitedWithCode(0), "");
}

TEST_F(HandleFunctions, TheCounterOfTheFlatFunctionsTellsTheNextCompleteRecord) {
    const int handle = Create();
    for (const char mark : {'1', '2', '3'}) {
        AddLine(handle, mark);
    }
    char line[129];
    EXPECT_EQ(GetFirstCompleteRecord("none", line, sizeof line), -1); // the flat counter is 1 now
    EXPECT_EQ(GetNextCompleteRecord("none", line, sizeof line), -1);  // and 2
    ASSERT_EQ(MifGetFirstCompleteRecord(handle, "X1", line, sizeof line), 0);
    EXPECT_EQ(line[127], '1');
    for (int i = 0; i < 2; ++i) {
        ASSERT_EQ(MifGetNextCompleteRecord(handle, "X1", line, sizeof line), 0);
        EXPECT_EQ(line[127], '2');
    }
}

TEST_F(HandleFunctions, ManyInstancesAreCreatedUsedAndDestroyedInAnyOrder) {
    std::map<int, char> marks;
    std::vector<int> handles;
    for (int i = 0; i < 10000; ++i) {
        handles.push_back(MifCreateInstance());
        marks[handles.back()] = static_cast<char>('A' + i % 26);
        AddLine(handles.back(), marks[handles.back()]);
    }
    std::shuffle(handles.begin(), handles.end(), std::mt19937(20150324));
    for (const int handle : handles) {
        char line[129];
        ASSERT_EQ(MifGetFirstCompleteRecord(handle, "X1", line, sizeof line), 0);
        ASSERT_EQ(line[127], marks[handle]);
        MifDestroyInstance(handle);
    }
    EXPECT_EQ(MifReadFirst(handles.front(), 1005), -1);
}

} // namespace
