// Reading a record file, changing it and saving it, and whole small calculations, both held against plain C programs.

#include <string>

#include <benchmark/benchmark.h>

#include "bench_files.h"
#include "comparison.h"
#include "small_calculation.h"

namespace {

constexpr std::int64_t kSaved = 1000000;
constexpr const char* kCalculations = "2000";

// One item of every line of a type is changed; the floor changes a character of every record.
void ReadChangeAndSave(benchmark::State& state) {
    const std::string file = RecordFile(EFileKind::Known, kSaved);
    const CFileInMemory libraryOut("library.rec");
    const CFileInMemory floorOut("floor.rec");
    CompareWithFloor(
        state,
        [&] {
            return MeasureLibrary({"save", file, libraryOut.Name()});
        },
        [&] {
            return MeasureFloor({"save", file, floorOut.Name()});
        },
        FileSize(file));
}
BENCHMARK(ReadChangeAndSave)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(11);

// 200 records and a table of 2,500 lines: build a record set, load, read, 100 item reads, 20 item writes, save,
// destroy.
void SmallCalculation(benchmark::State& state) {
    const CFileInMemory table = CFileInMemory::CopyOf(LongTable());
    const CFileInMemory file = CFileInMemory::CopyOf(RecordFile(EFileKind::Small, kSmallCalculationRecords));
    const CFileInMemory out("small-out.rec");
    CompareWithFloor(
        state,
        [&] {
            return MeasureLibrary({"calculate", table.Name(), file.Name(), out.Name(), kCalculations});
        },
        [&] {
            return MeasureFloor({"calculate", table.Name(), file.Name(), out.Name(), kCalculations});
        });
    constexpr double kMillisecondsInSecond = 1e3;
    state.counters["most_per_second"] = kMillisecondsInSecond / state.counters["min_ms"];
}
BENCHMARK(SmallCalculation)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(30);

} // namespace

BENCHMARK_MAIN();
