// Loading a table file of 2,500 lines, held against a plain C program that splits it into lines; and what the first
// and a later record object of a type cost.

#include <array>
#include <cstring>
#include <string>

#include <benchmark/benchmark.h>

#include "allocation_count.h"
#include "bench_files.h"
#include "comparison.h"
#include "floors.h"
#include "measured.h"
#include "sample_table.h"
#include "tabvex/all_records.h"

namespace {

constexpr int kLoadsInBatch = 50;

bool Load(CAllRecordsEx& records, const std::string& table) {
    return records.LoadTable(table.c_str(), kTableVersionMajor, kTableVersionMinor) == TABVEX_OK;
}

template <typename Work>
CMeasured MeasureBatch(Work work) {
    const double start = Now();
    for (int i = 0; i < kLoadsInBatch; ++i) {
        if (!work()) {
            Die("a load failed");
        }
    }
    return {(Now() - start) / kLoadsInBatch, 0};
}

bool SplitOnce(const std::string& file) {
    FloorTable table;
    const bool good = FloorReadLines(file.c_str(), &table) == 0;
    FloorFreeTable(&table);
    return good;
}

// Loads one after the other in one process, each into a record set of its own.
void LoadTable(benchmark::State& state) {
    const CFileInMemory table = CFileInMemory::CopyOf(LongTable());
    const auto library = [&table] {
        return MeasureBatch([&table] {
            CAllRecordsEx records;
            return Load(records, table.Name());
        });
    };
    const auto floor = [&table] { return MeasureBatch([&table] { return SplitOnce(table.Name()); }); };
    CompareWithFloor(state, library, floor);
}
BENCHMARK(LoadTable)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(60);

// The first load of a process: the table-line reader and much of the library is seen for the first time.
void LoadTableInNewProcess(benchmark::State& state) {
    const CFileInMemory table = CFileInMemory::CopyOf(LongTable());
    CompareWithFloor(
        state,
        [&table] {
            return MeasureLibrary({"load", table.Name()});
        },
        [&table] {
            return MeasureFloor({"load", table.Name()});
        });
}
BENCHMARK(LoadTableInNewProcess)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(60);

bool AddLine(CAllRecordsEx& records, const char* type) {
    std::array<char, 129> line = {};
    std::memcpy(line.data(), type, 2);
    return records.SetCompleteRecord(type, line.data(), static_cast<int>(line.size())) == TABVEX_OK;
}

// The layout is parsed with the first record object of a type that needs it...
void CreateFirstRecordOfType(benchmark::State& state) {
    const CFileInMemory table = CFileInMemory::CopyOf(LongTable());
    CAllRecordsEx records;
    for ([[maybe_unused]] auto iteration : state) {
        records.DestroyAllRecords();
        if (!Load(records, table.Name())) {
            Die("a load failed");
        }
        const double start = Now();
        AddLine(records, "X1");
        state.SetIterationTime(Now() - start);
    }
}
BENCHMARK(CreateFirstRecordOfType)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(2000);

// ... and not again with a later one.
void CreateLaterRecordOfType(benchmark::State& state) {
    CAllRecordsEx records;
    if (!Load(records, LongTable()) || !AddLine(records, "X1")) {
        Die("no record");
    }
    const auto createAgain = [&records] {
        records.DestroyRecords("X1");
        AddLine(records, "X1");
    };
    const std::size_t before = AllocationCount();
    createAgain();
    state.counters["allocations"] = static_cast<double>(AllocationCount() - before);
    for ([[maybe_unused]] auto iteration : state) {
        createAgain();
    }
}
BENCHMARK(CreateLaterRecordOfType)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
