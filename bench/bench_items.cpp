// Item reads and writes and steps from entry to entry. Each counts what it allocates in a call.

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "allocation_count.h"
#include "bench_files.h"
#include "child_process.h"
#include "sample_table.h"
#include "tabvex/all_records.h"
#include "tabvex/mif.h"

namespace {

// Items of the sample table: those of X1 and X5 are items of a plain list, those of X2 stand in entries.
constexpr int kTextItem = 1090;
constexpr int kNumberItem = 1060;
constexpr int kAmountItem = 1130;
constexpr int kDateItem = 1030;
constexpr int kEntryTextItem = 2020;
constexpr int kEntryAmountItem = 2025;
constexpr const char* kDateFormat = "DD.MM.YYYY";
constexpr int kFewRecords = 1000;
constexpr int kTextSize = 129;

std::unique_ptr<CAllRecordsEx> ReadRecords(EFileKind kind, std::int64_t count) {
    auto records = std::make_unique<CAllRecordsEx>();
    if (records->LoadTable(kSampleTable, kTableVersionMajor, kTableVersionMinor) != TABVEX_OK ||
        records->ReadAllRecordsEx(RecordFile(kind, count).c_str()) != TABVEX_OK) {
        Die("cannot read the records");
    }
    return records;
}

// A record set with every item of the measurements filled.
std::unique_ptr<CAllRecordsEx> Prepared(const char* mode) {
    auto records = ReadRecords(EFileKind::Known, kFewRecords);
    records->SetCharacterSet(mode);
    const bool filled = records->WriteItem(kTextItem, "Maier, Josef") == TABVEX_OK &&
                        records->WriteIntItem(kNumberItem, 123456) == TABVEX_OK &&
                        records->WriteFloatItem(kAmountItem, 8.1) == TABVEX_OK &&
                        records->WriteDateItem(kDateItem, kDateFormat, "24.03.2015") == TABVEX_OK &&
                        records->ReadFirst(kEntryTextItem) == TABVEX_OK;
    if (!filled) {
        Die("cannot fill the items");
    }
    return records;
}

// What a call allocates, in the mean.
template <typename Operation>
double AllocationsInCall(Operation operation) {
    constexpr int kCalls = 1000;
    const std::size_t before = AllocationCount();
    for (int i = 0; i < kCalls; ++i) {
        operation(i);
    }
    return static_cast<double>(AllocationCount() - before) / kCalls;
}

// Calls `operation(i)`, i = 0, 1, 2 ..., which must return TABVEX_OK.
template <typename Operation>
void Measure(benchmark::State& state, Operation operation) {
    if (operation(0) != TABVEX_OK) {
        Die("an item operation failed");
    }
    int i = 0;
    for ([[maybe_unused]] auto iteration : state) {
        benchmark::DoNotOptimize(operation(++i));
    }
    state.SetItemsProcessed(state.iterations());
    state.counters["allocations"] = AllocationsInCall(operation);
}

using CText = std::array<char, kTextSize>;

void ReadItem(benchmark::State& state, int item, const char* mode) {
    const auto records = Prepared(mode);
    CText text = {};
    Measure(state, [&](int /*i*/) { return records->ReadItem(item, text.data(), kTextSize); });
}
BENCHMARK_CAPTURE(ReadItem, list_item, kTextItem, "OEM");
BENCHMARK_CAPTURE(ReadItem, list_item_ansi, kTextItem, "ANSI");
BENCHMARK_CAPTURE(ReadItem, entry_item, kEntryTextItem, "OEM");
BENCHMARK_CAPTURE(ReadItem, entry_item_ansi, kEntryTextItem, "ANSI");

void ReadCharItem(benchmark::State& state) {
    const auto records = Prepared("OEM");
    CText text = {};
    Measure(state, [&](int /*i*/) { return records->ReadCharItem(kTextItem, text.data(), kTextSize); });
}
BENCHMARK(ReadCharItem);

void ReadIntItem(benchmark::State& state) {
    const auto records = Prepared("OEM");
    int value = 0;
    Measure(state, [&](int /*i*/) { return records->ReadIntItem(kNumberItem, value); });
}
BENCHMARK(ReadIntItem);

void ReadIntItemAsText(benchmark::State& state) {
    const auto records = Prepared("OEM");
    CText text = {};
    Measure(state, [&](int /*i*/) { return records->ReadIntItem(kNumberItem, text.data(), kTextSize); });
}
BENCHMARK(ReadIntItemAsText);

void ReadFloatItem(benchmark::State& state, int item) {
    const auto records = Prepared("OEM");
    double value = 0;
    Measure(state, [&](int /*i*/) { return records->ReadFloatItem(item, value); });
}
BENCHMARK_CAPTURE(ReadFloatItem, list_item, kAmountItem);
BENCHMARK_CAPTURE(ReadFloatItem, entry_item, kEntryAmountItem);

void ReadFloatItemAsText(benchmark::State& state) {
    const auto records = Prepared("OEM");
    CText text = {};
    Measure(state, [&](int /*i*/) { return records->ReadFloatItem(kAmountItem, text.data(), kTextSize); });
}
BENCHMARK(ReadFloatItemAsText);

void ReadDateItem(benchmark::State& state) {
    const auto records = Prepared("OEM");
    CText text = {};
    Measure(state, [&](int /*i*/) { return records->ReadDateItem(kDateItem, kDateFormat, text.data(), kTextSize); });
}
BENCHMARK(ReadDateItem);

void WriteItem(benchmark::State& state, const char* mode) {
    const auto records = Prepared(mode);
    const std::array<const char*, 2> texts = {"Maier, Josef", "Huber, Maria"};
    Measure(state, [&](int i) { return records->WriteItem(kTextItem, texts[static_cast<std::size_t>(i & 1)]); });
}
BENCHMARK_CAPTURE(WriteItem, list_item, "OEM");
BENCHMARK_CAPTURE(WriteItem, list_item_ansi, "ANSI");

void WriteIntItem(benchmark::State& state) {
    const auto records = Prepared("OEM");
    constexpr int kLargest = 1000000;
    Measure(state, [&](int i) { return records->WriteIntItem(kNumberItem, i % kLargest); });
}
BENCHMARK(WriteIntItem);

void WriteFloatItem(benchmark::State& state) {
    const auto records = Prepared("OEM");
    Measure(state, [&](int i) { return records->WriteFloatItem(kAmountItem, i % 2 == 0 ? 8.1 : 19.0); });
}
BENCHMARK(WriteFloatItem);

void WriteDateItem(benchmark::State& state) {
    const auto records = Prepared("OEM");
    const std::array<const char*, 2> dates = {"24.03.2015", "29.02.2016"};
    Measure(state, [&](int i) {
        return records->WriteDateItem(kDateItem, kDateFormat, dates[static_cast<std::size_t>(i & 1)]);
    });
}
BENCHMARK(WriteDateItem);

// Writes an entry at the cursor, which then stands behind it; each goes back to the first entry.
void WriteEntry(benchmark::State& state) {
    const auto records = Prepared("OEM");
    Measure(state, [&](int /*i*/) {
        records->ReadFirst(kEntryTextItem);
        return records->WriteItem(kEntryTextItem, "A12/47.11");
    });
}
BENCHMARK(WriteEntry);

// Calls `visit` at every entry; the number of entries.
template <typename Visit>
std::int64_t VisitEntries(CAllRecordsEx& records, const CRecord& record, Visit visit) {
    std::int64_t entries = 0;
    int result = records.ReadFirst(kEntryTextItem);
    while (result == TABVEX_OK && record.GetCurrentLine() < record.GetLineCount()) {
        visit(records);
        ++entries;
        result = records.ReadNext(kEntryTextItem);
    }
    return entries;
}

// Steps through all entries of so many lines. Items are entries; allocations are those of all steps together.
template <typename Visit>
void StepThrough(benchmark::State& state, Visit visit) {
    const auto records = ReadRecords(EFileKind::Options, state.range(0));
    const CRecord& record = *records->ExistRecord("X2");
    VisitEntries(*records, record, visit); // the first time parses the layout
    const std::size_t before = AllocationCount();
    const std::int64_t entries = VisitEntries(*records, record, visit);
    state.counters["allocations"] = static_cast<double>(AllocationCount() - before);
    state.counters["entries"] = static_cast<double>(entries);
    for ([[maybe_unused]] auto iteration : state) {
        benchmark::DoNotOptimize(VisitEntries(*records, record, visit));
    }
    state.SetItemsProcessed(state.iterations() * entries);
}

void ReadNext(benchmark::State& state) {
    StepThrough(state, [](CAllRecordsEx& /*records*/) {});
}

void ReadNextAndItem(benchmark::State& state) {
    CText text = {};
    StepThrough(state, [&text](CAllRecordsEx& records) {
        benchmark::DoNotOptimize(records.ReadItem(kEntryTextItem, text.data(), kTextSize));
    });
}

// 10,003, 100,002 and 1,000,006 entries.
void Lines(benchmark::internal::Benchmark* bench) {
    bench->Unit(benchmark::kMillisecond)->Arg(1429)->Arg(14286)->Arg(142858);
}
// One call by handle, of so many instances, each in turn.
void CallByHandle(benchmark::State& state) {
    std::vector<int> handles(static_cast<std::size_t>(state.range(0)));
    std::generate(handles.begin(), handles.end(), MifCreateInstance);
    std::size_t next = 0;
    for ([[maybe_unused]] auto iteration : state) {
        benchmark::DoNotOptimize(MifSetDelimiter(handles[next], '/'));
        next = next + 1 == handles.size() ? 0 : next + 1;
    }
    std::for_each(handles.begin(), handles.end(), MifDestroyInstance);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(CallByHandle)->Arg(1)->Arg(100)->Arg(10000);

BENCHMARK(ReadNext)->Apply(Lines);
BENCHMARK(ReadNextAndItem)->Apply(Lines);

} // namespace

BENCHMARK_MAIN();
