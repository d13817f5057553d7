// What happens when there is no memory: each allocation of each operation of a session is refused in turn.
#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "allocation/failing_allocations.h"
#include "support/temp_folder.h"
#include "tabvex/all_records.h"
#include "tabvex/mif.h"

namespace {

const std::string kTable = std::string(TABVEX_SAMPLES_DIR) + "/calculation.table";
const std::string kRecords = std::string(TABVEX_SAMPLES_DIR) + "/all-types.rec";
const std::string kLines = std::string(TABVEX_SAMPLES_DIR) + "/v-records.txt";

// Room for what the operations deliver, so that the tests themselves allocate nothing while memory is failing.
struct CRoom {
    std::array<char, 700> Text = {};
    std::array<char, 700> More = {};
    std::array<char, 700> Rest = {};
    std::vector<char> File = std::vector<char>(100000);
    std::string SaveName;
    double Amount = 0;
    int Number = 0;
};

struct CStep {
    const char* Name;
    int (*Run)(CAllRecordsEx& records, CRoom& room);
    int Failure = TABVEX_INTERNAL_FAILURE; // result without memory; 0 where there is no result
    bool Renumbers = false;                // lines may have got their markers, and entries their lines, by then
};

int Size(const std::array<char, 700>& text) {
    return static_cast<int>(text.size()) - 1;
}

// What an operation without a result answers when it had the memory it needed.
int Done() {
    return 0;
}

int SetLine(CAllRecordsEx& records, const char* type, std::string_view begin) {
    std::array<char, 129> line;
    line.fill(' ');
    line.back() = '\0';
    std::copy(begin.begin(), begin.end(), line.begin());
    return records.SetCompleteRecord(type, line.data(), static_cast<int>(line.size()));
}

// clang-format off
const std::vector<CStep> kSession = {
    {"LoadTable", [](CAllRecordsEx& r, CRoom&) { return r.LoadTable(kTable.c_str(), 3, 2); }},
    {"UseX4New", [](CAllRecordsEx& r, CRoom&) { return r.UseX4New(1); }},
    {"ReadAll_V_Records", [](CAllRecordsEx& r, CRoom&) { return r.ReadAll_V_Records(kLines.c_str()); }, TABVEX_READ_FAILED},
    {"ReadAllRecordsEx", [](CAllRecordsEx& r, CRoom&) { return r.ReadAllRecordsEx(kRecords.c_str()); }},
    {"SetCompleteRecordOfANewType", [](CAllRecordsEx& r, CRoom&) { return SetLine(r, "Q7", "Q7"); }},
    {"SetCompleteRecord", [](CAllRecordsEx& r, CRoom&) { return SetLine(r, "X2", "X20001 2CODE1"); }},
    {"ReadFirst", [](CAllRecordsEx& r, CRoom&) { return r.ReadFirst(4025); }},
    {"ReadItem", [](CAllRecordsEx& r, CRoom& room) { return r.ReadItem(4025, room.Text.data(), Size(room.Text)); }},
    {"ReadCharItem", [](CAllRecordsEx& r, CRoom& room) { return r.ReadCharItem(1020, room.Text.data(), Size(room.Text)); }},
    {"ReadIntItem", [](CAllRecordsEx& r, CRoom& room) { return r.ReadIntItem(1060, room.Number); }},
    {"ReadIntItemAsText", [](CAllRecordsEx& r, CRoom& room) { return r.ReadIntItem(1060, room.Text.data(), Size(room.Text)); }},
    {"ReadFloatItem", [](CAllRecordsEx& r, CRoom& room) { return r.ReadFloatItem(1130, room.Amount); }},
    {"ReadFloatItemAsText", [](CAllRecordsEx& r, CRoom& room) { return r.ReadFloatItem(1130, room.Text.data(), Size(room.Text)); }},
    {"ReadDateItem", [](CAllRecordsEx& r, CRoom& room) { return r.ReadDateItem(1030, "YYYY-MM-DD", room.Text.data(), Size(room.Text)); }},
    {"WriteItem", [](CAllRecordsEx& r, CRoom&) { return r.WriteItem(1020, "CLAIM 4711 of a keeper"); }},
    {"WriteCharItem", [](CAllRecordsEx& r, CRoom&) { return r.WriteCharItem(1090, "Another keeper"); }},
    {"WriteIntItem", [](CAllRecordsEx& r, CRoom&) { return r.WriteIntItem(1060, 4711); }},
    {"WriteFloatItem", [](CAllRecordsEx& r, CRoom&) { return r.WriteFloatItem(1130, 12.5); }},
    {"WriteRoundFloatItem", [](CAllRecordsEx& r, CRoom&) { return r.WriteRoundFloatItem(1130, 12.3456); }},
    {"WriteDateItem", [](CAllRecordsEx& r, CRoom&) { return r.WriteDateItem(1030, "DD.MM.YYYY", "24.03.2015"); }},
    {"DestroyRecords", [](CAllRecordsEx& r, CRoom&) { r.DestroyRecords("X5"); return Done(); }},
    {"WriteItemOfAMissingRecord", [](CAllRecordsEx& r, CRoom&) { return r.WriteItem(5020, "5"); }},
    {"HardWriteItem", [](CAllRecordsEx& r, CRoom&) { return r.HardWriteItem(4000, "X4"); }},
    {"ClearItem", [](CAllRecordsEx& r, CRoom&) { return r.ClearItem(1090); }},
    {"HardWriteDynItem", [](CAllRecordsEx& r, CRoom&) { return r.HardWriteDynItem(2020, "CODE9/     47.11"); }},
    {"HardReadDynItem", [](CAllRecordsEx& r, CRoom& room) { return r.HardReadDynItem(2020, room.Text.data(), Size(room.Text)); }},
    {"AddX4Mutation", [](CAllRecordsEx& r, CRoom&) { return r.AddX4Mutation("TM/LA/two layers"); }},
    {"AddX4MutationAgain", [](CAllRecordsEx& r, CRoom&) { r.ReadFirst(4025); r.ReadNext(4025); return r.AddX4Mutation("TM/LA/other"); }},
    {"ReadX4Mutation", [](CAllRecordsEx& r, CRoom& room) { return r.ReadX4Mutation(1, room.Text.data(), 600, room.Amount, room.More.data(), 600, room.Rest.data(), 600); }},
    {"GetX4MutationCount", [](CAllRecordsEx& r, CRoom&) { return r.GetX4MutationCount(); }},
    {"WriteItemOfANewEntry", [](CAllRecordsEx& r, CRoom&) { return r.HardWriteDynItem(4025, "E/0299001/ /12.5/00"); }},
    {"DeleteOneX4Mutation", [](CAllRecordsEx& r, CRoom&) { return r.DeleteOneX4Mutation("TM"); }},
    {"ReadNext", [](CAllRecordsEx& r, CRoom&) { return r.ReadNext(4025); }},
    {"DeleteX4Mutations", [](CAllRecordsEx& r, CRoom&) { return r.DeleteX4Mutations(); }},
    {"ReadPrev", [](CAllRecordsEx& r, CRoom&) { return r.ReadPrev(12015); }},
    {"ReadFirstOfG9", [](CAllRecordsEx& r, CRoom&) { return r.ReadFirst(19225); }},
    {"AddG9Mutation", [](CAllRecordsEx& r, CRoom&) { return r.AddG9Mutation("TM/LA/text"); }},
    {"DeleteG9Mutations", [](CAllRecordsEx& r, CRoom&) { return r.DeleteG9Mutations(); }},
    {"SetMutationList", [](CAllRecordsEx& r, CRoom&) { r.SetMutationList("X4", "TM/3/EM/1/a long code of a caller/2"); return Done(); }, 0},
    {"SetRepairMethodList", [](CAllRecordsEx& r, CRoom&) { std::array<char, 3> type = {"W4"}; r.SetRepairMethodList(type.data(), "E/I/a long code of a caller"); return Done(); }, 0},
    {"GetX6RepArtList", [](CAllRecordsEx& r, CRoom&) { const int size = r.GetX6RepArtList()->GetSize(); return size == 0 ? TABVEX_INTERNAL_FAILURE : size; }},
    {"ReadG9RepArtList", [](CAllRecordsEx& r, CRoom&) { r.ReadG9RepArtList(); return Done(); }, 0},
    {"FindFirst", [](CAllRecordsEx& r, CRoom&) { return r.FindFirst(4025, "I"); }},
    {"FindNext", [](CAllRecordsEx& r, CRoom&) { return r.FindNext(); }},
    {"GetFirstCompleteRecord", [](CAllRecordsEx& r, CRoom& room) { return r.GetFirstCompleteRecord("X4", room.Text.data(), Size(room.Text)); }},
    {"GetNextCompleteRecord", [](CAllRecordsEx& r, CRoom& room) { return r.GetNextCompleteRecord("X4", room.Text.data(), Size(room.Text), 2); }},
    {"SetRecNums", [](CAllRecordsEx& r, CRoom&) { return r.SetRecNums("W", 0); }},
    {"SetNewCharacterTable", [](CAllRecordsEx& r, CRoom&) { return r.SetNewCharacterTable("ABCDEFGHIJKLMNOPQRSTUVWXYZ"); }},
    {"SetCodePages", [](CAllRecordsEx& r, CRoom&) { return r.SetCodePages(437, 1252); }},
    {"WriteAllRecords", [](CAllRecordsEx& r, CRoom& room) { return r.WriteAllRecords(room.File.data(), static_cast<int>(room.File.size()) - 1, 1); }, TABVEX_INTERNAL_FAILURE, true},
    {"GetX1Record", [](CAllRecordsEx& r, CRoom& room) { return r.GetX1Record(room.Text.data(), Size(room.Text)); }, TABVEX_INTERNAL_FAILURE, true},
    {"GetX7Record", [](CAllRecordsEx& r, CRoom& room) { return r.GetX7Record(room.File.data(), static_cast<int>(room.File.size()) - 1); }, TABVEX_INTERNAL_FAILURE, true},
    {"SaveAllRecords", [](CAllRecordsEx& r, CRoom& room) { return r.SaveAllRecords(room.SaveName.c_str(), 1); }, TABVEX_INTERNAL_FAILURE, true},
    {"DestroyKnownRecordsOnly", [](CAllRecordsEx& r, CRoom&) { r.DestroyKnownRecordsOnly(); return Done(); }},
    {"ReadAllRecords", [](CAllRecordsEx& r, CRoom&) { return r.ReadAllRecords(kRecords.c_str()); }, TABVEX_READ_FAILED},
    {"LoadTableAgain", [](CAllRecordsEx& r, CRoom&) { return r.LoadTable(kTable.c_str(), 3, 2); }},
};
// clang-format on

// What a caller can see of the store: types, lines, cursors.
std::string StoreOf(const CAllRecordsEx& records) {
    std::string store;
    for (int i = 0; i < records.GetRecordCount(); ++i) {
        const CRecord& record = *records.GetRecord(i);
        store.append("[").append(record.GetType()).append("] at ").append(std::to_string(record.GetCurrentLine()));
        for (int line = 0; line < record.GetLineCount(); ++line) {
            store.append("\n").append(record.GetLine(line));
        }
    }
    return store;
}

class AllocationFailure : public ::testing::TestWithParam<std::size_t> {
protected:
    AllocationFailure() { m_Room.SaveName = m_Folder.PathOf("saved"); }

    // The session up to a step, not included.
    void RunBefore(CAllRecordsEx& records, std::size_t end) {
        for (std::size_t step = 0; step < end; ++step) {
            kSession[step].Run(records, m_Room);
        }
    }

    // The results of the steps from `begin` on, and what was saved.
    std::string RunFrom(CAllRecordsEx& records, std::size_t begin) {
        std::string results;
        for (std::size_t step = begin; step < kSession.size(); ++step) {
            results.append(kSession[step].Name).append(" ").append(std::to_string(kSession[step].Run(records, m_Room)));
            results.append("\n");
        }
        return results.append(ReadFile(m_Room.SaveName)).append(StoreOf(records));
    }

    CTempFolder m_Folder;
    CRoom m_Room;
};

TEST_P(AllocationFailure, GivesItsCodeAndLeavesTheStoreAsItWas) {
    const CStep& step = kSession[GetParam()];
    CAllRecordsEx undisturbed;
    RunBefore(undisturbed, GetParam());
    const std::string expected = RunFrom(undisturbed, GetParam());
    bool failed = true;
    for (std::size_t number = 1; failed; ++number) {
        CAllRecordsEx records;
        RunBefore(records, GetParam());
        const std::string before = StoreOf(records);
        CFailingAllocations failing(number);
        const int result = step.Run(records, m_Room);
        failed = failing.Stop();
        if (failed) {
            EXPECT_EQ(result, step.Failure) << step.Name << ", allocation " << number;
            ASSERT_TRUE(step.Renumbers || StoreOf(records) == before) << step.Name << ", allocation " << number;
            ASSERT_EQ(RunFrom(records, GetParam()), expected) << step.Name << ", allocation " << number;
        }
    }
}

std::string StepName(const ::testing::TestParamInfo<std::size_t>& info) {
    return kSession[info.param].Name;
}

INSTANTIATE_TEST_SUITE_P(OfEveryOperation, AllocationFailure, ::testing::Range(std::size_t{0}, kSession.size()),
                         StepName);

// A caller's session through handles, as far as it comes. The handle, 0 without memory.
int RunHandleSession(CRoom& room) {
    const int handle = MifCreateInstance();
    MifUseX4New(handle, 1);
    if (MifLoadTable(handle, kTable.c_str(), 3, 2) == TABVEX_OK) {
        MifReadAllRecordsEx(handle, kRecords.c_str());
        MifReadFirst(handle, 4025);
        MifReadItem(handle, 4025, room.Text.data(), Size(room.Text));
        MifWriteItem(handle, 1020, "CLAIM 4711");
        MifAddX4Mutation(handle, "TM/LA/two layers");
        MifFindFirst(handle, 4025, "I");
        MifSaveAllRecords(handle, room.SaveName.c_str(), 1);
    }
    return handle;
}

// Sweeps a whole session; nothing may be left behind, and the next session must go well.
void SweepHandleSession(CRoom& room, CFailingAllocations::EExtent extent) {
    bool failed = true;
    for (std::size_t number = 1; failed; ++number) {
        const std::size_t live = LiveAllocations();
        CFailingAllocations failing(number, extent);
        const int handle = RunHandleSession(room);
        failed = failing.Stop();
        if (handle != 0) {
            MifDestroyInstance(handle);
        }
        ASSERT_EQ(LiveAllocations(), live) << "allocation " << number;
    }
}

TEST(HandleSessionWithoutMemory, LeavesNothingBehindWhicheverAllocationFails) {
    const CTempFolder folder;
    CRoom room;
    room.SaveName = folder.PathOf("saved");
    MifDestroyInstance(RunHandleSession(room)); // what is allocated once for the process is there now
    SweepHandleSession(room, CFailingAllocations::EExtent::One);
}

TEST(HandleSessionWithoutMemory, LeavesNothingBehindWhenMemoryStaysShort) {
    const CTempFolder folder;
    CRoom room;
    room.SaveName = folder.PathOf("saved");
    MifDestroyInstance(RunHandleSession(room));
    SweepHandleSession(room, CFailingAllocations::EExtent::AllBehind);
}

TEST(HandleSessionWithoutMemory, CreatingAnInstanceGivesHandle0) {
    CFailingAllocations failing(1);
    EXPECT_EQ(MifCreateInstance(), 0);
    EXPECT_TRUE(failing.Stop());
}

} // namespace
