#include "comparison.h"

#include <algorithm>
#include <vector>

namespace {

constexpr double kMilliseconds = 1e3;

struct CSeries {
    std::vector<double> Seconds;
    double PeakBytes = 0;

    void Add(const CMeasured& measured) {
        Seconds.insert(std::upper_bound(Seconds.begin(), Seconds.end(), measured.Seconds), measured.Seconds);
        PeakBytes = std::max(PeakBytes, measured.PeakBytes);
    }

    double Least() const { return Seconds.front(); }
    double Median() const { return Seconds[Seconds.size() / 2]; }
};

} // namespace

void CompareWithFloor(benchmark::State& state, const CMeasure& library, const CMeasure& floor, double bytes) {
    CSeries libraryRuns;
    CSeries floorRuns;
    for ([[maybe_unused]] auto iteration : state) {
        const CMeasured floorRun = floor();
        const CMeasured libraryRun = library();
        floorRuns.Add(floorRun);
        libraryRuns.Add(libraryRun);
        state.SetIterationTime(libraryRun.Seconds);
    }
    state.counters["min_ms"] = libraryRuns.Least() * kMilliseconds;
    state.counters["median_ms"] = libraryRuns.Median() * kMilliseconds;
    state.counters["floor_min_ms"] = floorRuns.Least() * kMilliseconds;
    state.counters["floor_median_ms"] = floorRuns.Median() * kMilliseconds;
    state.counters["ratio_of_min"] = libraryRuns.Least() / floorRuns.Least();
    state.counters["ratio_of_median"] = libraryRuns.Median() / floorRuns.Median();
    if (bytes > 0) {
        state.counters["peak_per_byte"] = libraryRuns.PeakBytes / bytes;
        state.counters["floor_peak_per_byte"] = floorRuns.PeakBytes / bytes;
    }
}
