// What happens when there is no memory: each allocation of each operation of a session is refused in turn.
#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "allocation/failing_allocations.h"
#include "support/both_interfaces.h"
#include "support/temp_folder.h"
#include "tabvex/all_records.h"
#include "tabvex/flat.h"
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

    // Refuses one allocation of a step; false when it has none of this number.
    bool Refuse(std::size_t number, const std::string& expected) {
        const CStep& step = kSession[GetParam()];
        CAllRecordsEx records;
        RunBefore(records, GetParam());
        const std::string before = StoreOf(records);
        CFailingAllocations failing(number);
        const int result = step.Run(records, m_Room);
        const bool failed = failing.Stop();
        if (failed) {
            EXPECT_EQ(result, step.Failure) << step.Name << ", allocation " << number;
            EXPECT_TRUE(step.Renumbers || StoreOf(records) == before) << step.Name << ", allocation " << number;
            EXPECT_EQ(RunFrom(records, GetParam()), expected) << step.Name << ", allocation " << number;
        }
        return failed;
    }

    CTempFolder m_Folder;
    CRoom m_Room;
};

TEST_P(AllocationFailure, GivesItsCodeAndLeavesTheStoreAsItWas) {
    std::string expected;
    {
        CAllRecordsEx undisturbed;
        RunBefore(undisturbed, GetParam());
        expected = RunFrom(undisturbed, GetParam());
    }
    bool failed = true;
    for (std::size_t number = 1; failed && !HasFailure(); ++number) {
        const std::size_t live = LiveAllocations();
        failed = Refuse(number, expected);
        ASSERT_EQ(LiveAllocations(), live) << kSession[GetParam()].Name << ", allocation " << number;
    }
}

std::string StepName(const ::testing::TestParamInfo<std::size_t>& info) {
    return kSession[info.param].Name;
}

INSTANTIATE_TEST_SUITE_P(OfEveryOperation, AllocationFailure, ::testing::Range(std::size_t{0}, kSession.size()),
                         StepName);

// --- A whole session, through handles and flat ----------------------------------------------------------------------

struct CCall {
    const char* Name;
    int (*Run)(int handle, CRoom& room);
    int Failure = TABVEX_INTERNAL_FAILURE;
};

// Without a handle's own counter of lines, so that a step may be repeated.
int FirstAndNextLine(int handle, CRoom& room) {
    const int first = Call(handle, GetFirstCompleteRecord, MifGetFirstCompleteRecord, "G9", room.Text.data(), 600);
    if (first != TABVEX_OK) {
        return first;
    }
    GetFirstCompleteRecord("none", nullptr, 0); // the flat counter tells the line for handles as well
    return Call(handle, GetNextCompleteRecord, MifGetNextCompleteRecord, "X2", room.More.data(), 600);
}

int AddLine(int handle, const char* type, std::string_view begin) {
    std::array<char, 129> line;
    line.fill(' ');
    line.back() = '\0';
    std::copy(begin.begin(), begin.end(), line.begin());
    return Call(handle, SetCompleteRecord, MifSetCompleteRecord, type, line.data(), 129);
}

int ReadNumbers(int handle, CRoom& room) {
    const int result = Call(handle, ReadIntItem, MifReadIntItem, 1060, &room.Number);
    return result == TABVEX_OK ? Call(handle, ReadFloatItem, MifReadFloatItem, 1130, &room.Amount) : result;
}

// clang-format off
const std::vector<CCall> kCalls = {
    {"LoadTable", [](int h, CRoom&) { return Call(h, LoadTable, MifLoadTable, kTable.c_str(), 3, 2); }},
    {"UseX4New", [](int h, CRoom&) { Call(h, UseX4New, MifUseX4New, 1); return Done(); }},
    {"ReadAllRecordsEx", [](int h, CRoom&) { return Call(h, ReadAllRecordsEx, MifReadAllRecordsEx, kRecords.c_str()); }},
    {"ReadFirst", [](int h, CRoom&) { return Call(h, ReadFirst, MifReadFirst, 4025); }},
    {"ReadItem", [](int h, CRoom& room) { return Call(h, ReadItem, MifReadItem, 4025, room.Text.data(), 600); }},
    {"ReadCharItem", [](int h, CRoom& room) { return Call(h, ReadCharItem, MifReadCharItem, 1020, room.Text.data(), 600); }},
    {"ReadNumbers", ReadNumbers},
    {"ReadDateItem", [](int h, CRoom& room) { return Call(h, ReadDateItem, MifReadDateItem, 1030, "YYYY-MM-DD", room.Text.data(), 600); }},
    {"HardReadDynItem", [](int h, CRoom& room) { return Call(h, HardReadDynItem, MifHardReadDynItem, 4025, room.Text.data(), 600); }},
    {"WriteItem", [](int h, CRoom&) { return Call(h, WriteItem, MifWriteItem, 1020, "CLAIM 4711"); }},
    {"WriteCharItem", [](int h, CRoom&) { return Call(h, WriteCharItem, MifWriteCharItem, 1090, "Another keeper"); }},
    {"WriteIntItem", [](int h, CRoom&) { return Call(h, WriteIntItem, MifWriteIntItem, 1060, 4711); }},
    {"WriteFloatItem", [](int h, CRoom&) { return Call(h, WriteFloatItem, MifWriteFloatItem, 1130, 8.1); }},
    {"WriteRoundFloatItem", [](int h, CRoom&) { return Call(h, WriteRoundFloatItem, MifWriteRoundFloatItem, 1130, 19.001); }},
    {"WriteDateItem", [](int h, CRoom&) { return Call(h, WriteDateItem, MifWriteDateItem, 1030, "DD.MM.YYYY", "24.03.2015"); }},
    {"AddX4Mutation", [](int h, CRoom&) { return Call(h, AddX4Mutation, MifAddX4Mutation, "TM/LA/two layers"); }},
    {"ReadX4Mutation", [](int h, CRoom& room) { return Call(h, ReadX4Mutation, MifReadX4Mutation, 1, room.Text.data(), 600, &room.Amount, room.More.data(), 600, room.Rest.data(), 600); }},
    {"ReadX4MutationChar", [](int h, CRoom& room) { return Call(h, ReadX4MutationChar, MifReadX4MutationChar, 1, room.Text.data(), 600, room.File.data(), 600, room.More.data(), 600, room.Rest.data(), 600); }},
    {"DeleteOneX4Mutation", [](int h, CRoom&) { return Call(h, DeleteOneX4Mutation, MifDeleteOneX4Mutation, "TM"); }},
    {"ReadFirstOfG9", [](int h, CRoom&) { return Call(h, ReadFirst, MifReadFirst, 19225); }},
    {"AddG9Mutation", [](int h, CRoom&) { return Call(h, AddG9Mutation, MifAddG9Mutation, "TM/LA/text"); }},
    {"ReadG9Mutation", [](int h, CRoom& room) { return Call(h, ReadG9Mutation, MifReadG9Mutation, 1, room.Text.data(), 600, &room.Amount, room.More.data(), 600, room.Rest.data(), 600); }},
    {"FindFirst", [](int h, CRoom&) { return Call(h, FindFirst, MifFindFirst, 4025, "I"); }},
    {"CompleteRecords", FirstAndNextLine},
    {"SetCompleteRecord", [](int h, CRoom&) { return AddLine(h, "X2", "X20001 2CODE1"); }},
    {"HardWriteDynItem", [](int h, CRoom&) { return Call(h, HardWriteDynItem, MifHardWriteDynItem, 2020, "CODE9/     47.11"); }},
    {"SaveAllRecords", [](int h, CRoom& room) { return Call(h, SaveAllRecords, MifSaveAllRecords, room.SaveName.c_str(), 1); }},
    {"DestroyKnownRecordsOnly", [](int h, CRoom&) { h == kFlat ? DestroyKnownRecordsOnly() : MifDestroyKnownRecordsOnly(h); return Done(); }},
    {"ReadAllRecords", [](int h, CRoom&) { return Call(h, ReadAllRecords, MifReadAllRecords, kRecords.c_str()); }, TABVEX_READ_FAILED},
    {"ReadAll_V_Records", [](int h, CRoom&) { return Call(h, ReadAll_V_Records, MifReadAll_V_Records, kLines.c_str()); }, TABVEX_READ_FAILED},
};
// clang-format on

// What a session answered and delivered; nothing of it allocates.
struct COutcome {
    int Result;
    std::size_t Delivered;
};
using COutcomes = std::array<COutcome, 64>;

std::size_t HashOf(const CRoom& room) {
    constexpr std::size_t kFactor = 1099511628211U;
    std::size_t hash = static_cast<std::size_t>(room.Number) + static_cast<std::size_t>(room.Amount * 100);
    const auto add = [&hash](const auto& text) {
        for (std::size_t i = 0; i < 700; ++i) {
            hash = hash * kFactor + static_cast<unsigned char>(text[i]);
        }
    };
    add(room.Text);
    add(room.More);
    add(room.Rest);
    add(room.File);
    return hash;
}

void Clear(CRoom& room) {
    room.Text.fill('\0');
    room.More.fill('\0');
    room.Rest.fill('\0');
    std::fill(room.File.begin(), room.File.end(), '\0');
    room.Number = 0;
    room.Amount = 0;
}

// Runs the session. Where a step's allocation fails (`failing` given), the step must answer its failure code; it is
// then run once more, when only one allocation fails, and has to go well. Gives the outcomes of the session as if
// nothing had failed.
std::size_t RunSession(int handle, CRoom& room, COutcomes& outcomes, CFailingAllocations* failing) {
    Clear(room);
    std::size_t failed = kCalls.size();
    for (std::size_t step = 0; step < kCalls.size(); ++step) {
        const bool before = failing != nullptr && failing->HasFailed();
        int result = kCalls[step].Run(handle, room);
        if (failing != nullptr && !before && failing->HasFailed() && failed == kCalls.size()) {
            failed = step;
            outcomes[step] = {result, 0};
            if (failing->Extent() == CFailingAllocations::EExtent::AllBehind) {
                continue;
            }
            EXPECT_EQ(result, kCalls[step].Failure) << kCalls[step].Name;
            result = kCalls[step].Run(handle, room);
        }
        outcomes[step] = {result, HashOf(room)};
    }
    return failed;
}

class SessionWithoutMemory : public ::testing::TestWithParam<bool> {
protected:
    SessionWithoutMemory() {
        m_Room.SaveName = m_Folder.PathOf("saved");
        Undisturbed(m_Expected); // what is allocated once for the process is there now
        m_strSaved = ReadFile(m_Room.SaveName);
    }

    static bool IsFlat() { return GetParam(); }
    static int Begin() { return IsFlat() ? kFlat : MifCreateInstance(); }
    static void End(int handle) { handle == kFlat ? DestroyAllRecords() : MifDestroyInstance(handle); }

    void Undisturbed(COutcomes& outcomes) {
        const int handle = Begin();
        RunSession(handle, m_Room, outcomes, nullptr);
        End(handle);
    }
    void ExpectAsUndisturbed(const COutcomes& outcomes, std::size_t count, std::size_t number) {
        for (std::size_t step = 0; step < count; ++step) {
            ASSERT_EQ(outcomes[step].Result, m_Expected[step].Result) << kCalls[step].Name << ", allocation " << number;
            ASSERT_EQ(outcomes[step].Delivered, m_Expected[step].Delivered)
                << kCalls[step].Name << ", allocation " << number;
        }
    }

    CTempFolder m_Folder;
    CRoom m_Room;
    COutcomes m_Expected = {};
    std::string m_strSaved;
};

INSTANTIATE_TEST_SUITE_P(Of, SessionWithoutMemory, ::testing::Bool(),
                         [](const auto& test) { return test.param ? "TheSharedRecordSet" : "AnInstance"; });

TEST_P(SessionWithoutMemory, IsTheSameWhenTheStepThatFailedIsRepeated) {
    bool failed = true;
    for (std::size_t number = 1; failed; ++number) {
        const std::size_t live = LiveAllocations();
        const int handle = Begin();
        COutcomes outcomes = {};
        CFailingAllocations failing(number);
        RunSession(handle, m_Room, outcomes, &failing);
        failed = failing.Stop();
        End(handle);
        ASSERT_TRUE(IsFlat() || LiveAllocations() == live) << "allocation " << number;
        ExpectAsUndisturbed(outcomes, kCalls.size(), number);
        ASSERT_EQ(ReadFile(m_Room.SaveName), m_strSaved) << "allocation " << number;
    }
}

// What follows the first failure works on what there is: a step that does not answer as ever answers one of the codes
// that tell so.
bool IsConsequence(int result) {
    constexpr std::array<int, 7> kCodes = {TABVEX_INTERNAL_FAILURE, TABVEX_NO_TABLE,       TABVEX_NO_RECORD,
                                           TABVEX_READ_FAILED,      TABVEX_FIND_NO_RECORD, TABVEX_MUTATION_NONE,
                                           TABVEX_MUTATION_NO_ENTRY};
    return std::find(kCodes.begin(), kCodes.end(), result) != kCodes.end();
}

TEST_P(SessionWithoutMemory, SaysSoAndLeavesNothingBehindWhenMemoryStaysShort) {
    bool failed = true;
    for (std::size_t number = 1; failed; ++number) {
        const std::size_t live = LiveAllocations();
        const int handle = Begin();
        COutcomes outcomes = {};
        CFailingAllocations failing(number, CFailingAllocations::EExtent::AllBehind);
        const std::size_t first = RunSession(handle, m_Room, outcomes, &failing);
        failed = failing.Stop();
        End(handle);
        ASSERT_TRUE(IsFlat() || LiveAllocations() == live) << "allocation " << number;
        ExpectAsUndisturbed(outcomes, first, number);
        for (std::size_t step = first; step < kCalls.size(); ++step) {
            const int result = outcomes[step].Result;
            ASSERT_TRUE(step == first ? result == kCalls[step].Failure
                                      : result == m_Expected[step].Result || IsConsequence(result))
                << kCalls[step].Name << " gave " << result << ", allocation " << number;
        }
        Undisturbed(outcomes);
        ExpectAsUndisturbed(outcomes, kCalls.size(), number);
        ASSERT_EQ(ReadFile(m_Room.SaveName), m_strSaved) << "allocation " << number;
    }
}

// LOADTABLE
// --- A table that cannot be loaded ----------------------------------------------------------------------------------

template <typename Array>
void AppendArray(std::string& text, const Array& array) {
    for (const auto& value : array) {
        if constexpr (std::is_same_v<Array, CStringArray>) {
            text.append(value).append(" ");
        } else {
            text.append(std::to_string(value)).append(" ");
        }
    }
    text.append("\n");
}

// What a caller can see of a table: whether there is one, its layouts, its lists. The caller holds the lists from then
// on.
std::string TableOf(CAllRecordsEx& records) {
    std::string text = records.IsTableLoaded() ? "loaded " : "none ";
    for (const char* type : {"X1", "X4", "G9", "ZZ"}) {
        text.append(std::to_string(records.SumItemLengths(type, 0, 100000))).append(" ");
    }
    for (CStringArray* list : {records.GetX4RepArtList(), records.GetW4RepArtList(), records.GetX6RepArtList(),
                               records.GetW6RepArtList(), records.GetX4MutationList(), records.GetW4MutationList(),
                               records.GetG9RepArtList(), records.GetG9MutationList()}) {
        AppendArray(text, *list);
    }
    for (CUIntArray* kinds :
         {records.GetX4MutationKinds(), records.GetW4MutationKinds(), records.GetG9MutationKinds()}) {
        AppendArray(text, *kinds);
    }
    return text;
}

// Loads a table with each allocation refused in turn, into a record set that `prepare` has made ready.
template <typename Prepare>
void SweepLoadTable(const std::string& table, Prepare prepare) {
    CAllRecordsEx fresh;
    ASSERT_EQ(fresh.LoadTable(table.c_str(), 3, 2), TABVEX_OK);
    const std::string loaded = TableOf(fresh);
    bool failed = true;
    for (std::size_t number = 1; failed; ++number) {
        CAllRecordsEx records;
        prepare(records);
        const std::string before = TableOf(records);
        ASSERT_NE(before, loaded);
        CFailingAllocations failing(number);
        const int result = records.LoadTable(table.c_str(), 3, 2);
        failed = failing.Stop();
        ASSERT_EQ(result, failed ? TABVEX_INTERNAL_FAILURE : TABVEX_OK) << "allocation " << number;
        ASSERT_EQ(TableOf(records), failed ? before : loaded) << "allocation " << number;
        ASSERT_EQ(records.LoadTable(table.c_str(), 3, 2), TABVEX_OK);
        ASSERT_EQ(TableOf(records), loaded) << "allocation " << number;
    }
}

class LoadTableWithoutMemory : public ::testing::Test {
protected:
    // Over a table with other lists and layouts.
    void SweepOverAnother(const std::string& table) {
        SweepLoadTable(table,
                       [this](CAllRecordsEx& r) { ASSERT_EQ(r.LoadTable(m_strOther.c_str(), 3, 2), TABVEX_OK); });
    }

    const CTempFolder m_Folder;
    const std::string m_strOther =
        m_Folder.Write("other.table", "[HEADER]\nVERSION=3.2\nDELIMITER=|\nNEWLINE=^\n"
                                      "[DATA_X4]\n4000|2|1|C\n4025|3|8|C,,,,,(\"QQ\";\"RR\")\n"
                                      "4055|3|8|C,,,,,(\"ZM\")\n"
                                      "[DATA_ZZ]\n1|7|1|C\n");
};

TEST_F(LoadTableWithoutMemory, LeavesTheEarlierTableItsListsAndItsLayouts) {
    SweepOverAnother(kTable);
}

TEST_F(LoadTableWithoutMemory, LeavesARecordSetWithoutATableAsItWas) {
    SweepLoadTable(kTable, [](CAllRecordsEx& /*records*/) {});
}

// The line that is current after loading is the header's last one, or what comments that were cut have moved there.
TEST_F(LoadTableWithoutMemory, LeavesTheEarlierTableWhateverLineIsCurrentAfterwards) {
    const std::string lines = "[DATA_ZZ]\n1|9|1|C|a text^with line breaks^and many characters\n";
    SweepOverAnother(
        m_Folder.Write("long.table", "[HEADER]\nVERSION=3.2\nDELIMITER=|\nNEWLINE       =             ^\n" + lines));
    SweepOverAnother(m_Folder.Write("cut.table", "[HEADER]\n#\n#\nVERSION=3.2\nDELIMITER=|\nCOMMENT=#\nNEWLINE=^\n" +
                                                     lines + "1|2|1|C\n1|2|1|C\n"));
}

TEST_F(LoadTableWithoutMemory, LeavesTheEarlierTableWhileALargerOneGrows) {
    std::string text = "[HEADER]\nVERSION=3.2\nDELIMITER=|\nNEWLINE=^\n[DATA_ZZ]\n";
    for (int i = 0; i < 8000; ++i) {
        text.append("1|1|1|C|an item of a table that is larger than most of them are\n");
    }
    SweepOverAnother(m_Folder.Write("large.table", text));
}

// --- What callers reach beside the record set -----------------------------------------------------------------------

TEST(WithoutMemory, ADescriptorGivesAnInternalFailure) {
    bool failed = true;
    for (std::size_t number = 1; failed; ++number) {
        CItemDef definition;
        definition.Length = 30;
        CFailingAllocations failing(number);
        const int result = definition.ParseFormat(R"(C,"a default of many letters",,,,("a default of many letters"))");
        failed = failing.Stop();
        EXPECT_EQ(result, failed ? TABVEX_INTERNAL_FAILURE : TABVEX_OK) << "allocation " << number;
        EXPECT_TRUE(failed || number > 2) << "at least the two texts need memory";
    }
}

TEST(WithoutMemory, AValueLaidOutGivesAnInternalFailureAndKeepsTheField) {
    CItemDef definition;
    definition.Length = 30;
    bool failed = true;
    for (std::size_t number = 1; failed; ++number) {
        std::string field = "kept";
        CFailingAllocations failing(number);
        const int result = definition.FormatValue("value", field);
        failed = failing.Stop();
        EXPECT_EQ(result, failed ? TABVEX_INTERNAL_FAILURE : TABVEX_OK) << "allocation " << number;
        EXPECT_EQ(field, failed ? "kept" : "value" + std::string(25, ' '));
        EXPECT_TRUE(failed || number > 1) << "a field of 30 characters needs memory";
    }
}

class RecordWithoutMemory : public ::testing::Test {
protected:
    // The layout of a record that was just read is not yet parsed.
    RecordWithoutMemory() {
        (void)m_Records.LoadTable(kTable.c_str(), 3, 2);
        (void)m_Records.ReadAllRecords(kRecords.c_str());
    }

    CAllRecordsEx m_Records;
};

TEST_F(RecordWithoutMemory, HasAnEmptyLayoutUntilThereIsMemory) {
    bool failed = true;
    for (std::size_t number = 1; failed; ++number) {
        CAllRecordsEx records;
        ASSERT_EQ(records.LoadTable(kTable.c_str(), 3, 2), TABVEX_OK);
        ASSERT_EQ(records.ReadAllRecords(kRecords.c_str()), TABVEX_READ_SUCCEEDED);
        const CRecord* record = records.ExistRecord("X1");
        CFailingAllocations failing(number);
        const std::size_t count = record->GetLayout().size();
        failed = failing.Stop();
        EXPECT_EQ(count, failed ? 0U : 15U) << "allocation " << number;
        EXPECT_EQ(record->GetLayout().size(), 15U);
    }
}

TEST_F(RecordWithoutMemory, FindsNoItemUntilThereIsMemory) {
    const CRecord* record = m_Records.ExistRecord("X1");
    CFailingAllocations failing(1);
    const CItemDef* item = record->FindItem(1020);
    EXPECT_TRUE(failing.Stop());
    EXPECT_EQ(item, nullptr);
    ASSERT_NE(record->FindItem(1020), nullptr);
    EXPECT_EQ(record->FindItem(1020)->Length, 16);
}

template <typename Array, typename Value>
void ExpectFullArrayStaysAsItIs(const Value& value) {
    Array array;
    EXPECT_EQ(array.Add(value), 0);
    CFailingAllocations failing(1);
    const int result = array.Add(value); // room for one only, so far
    EXPECT_TRUE(failing.Stop());
    EXPECT_EQ(result, TABVEX_INTERNAL_FAILURE);
    EXPECT_EQ(array.GetSize(), 1);
    EXPECT_EQ(array.Add(value), 1);
}

TEST(ArrayWithoutMemory, TakesNoMoreAndStaysAsItIs) {
    ExpectFullArrayStaysAsItIs<CStringArray>(std::string("short"));
    ExpectFullArrayStaysAsItIs<CUIntArray>(4711U);
}

TEST(HandleSessionWithoutMemory, CreatingAnInstanceGivesHandle0) {
    CFailingAllocations failing(1);
    EXPECT_EQ(MifCreateInstance(), 0);
    EXPECT_TRUE(failing.Stop());
}

} // namespace
