// Reading a record file, held against a plain C program that copies each record into a slot of its own. Every read
// happens in a process of its own, so that both pay for the memory they touch.

#include <string>

#include <benchmark/benchmark.h>

#include "bench_files.h"
#include "comparison.h"

namespace {

constexpr std::int64_t kFewest = 10000;
constexpr std::int64_t kMost = 1000000;

void ReadFile(benchmark::State& state, EFileKind kind) {
    const std::int64_t records = state.range(0);
    const std::string file = RecordFile(kind, records);
    const auto library = [&file] { return MeasureLibrary({"read", file}); };
    const auto floor = [&file] { return MeasureFloor({"read", file}); };
    CompareWithFloor(state, library, floor, FileSize(file));
    constexpr double kNanosecondsInMillisecond = 1e6;
    state.counters["min_ns_per_record"] =
        state.counters["min_ms"] * kNanosecondsInMillisecond / static_cast<double>(records);
}

// Short runs need more of them.
void Sizes(benchmark::internal::Benchmark* bench) {
    bench->UseManualTime()->Unit(benchmark::kMillisecond)->RangeMultiplier(10)->Range(kFewest, kMost)->Iterations(15);
}

BENCHMARK_CAPTURE(ReadFile, known, EFileKind::Known)->Apply(Sizes);
BENCHMARK_CAPTURE(ReadFile, unseparated, EFileKind::KnownUnseparated)->Apply(Sizes);
BENCHMARK_CAPTURE(ReadFile, unknown, EFileKind::Unknown)->Apply(Sizes);

} // namespace

BENCHMARK_MAIN();
