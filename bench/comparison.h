// Holds the library against a floor: both are measured in turn, so that both meet the same disturbances.
#pragma once

#include <functional>

#include <benchmark/benchmark.h>

#include "child_process.h"

using CMeasure = std::function<CMeasured()>;

/// Measures both once in every iteration, which counts with the library's time (use UseManualTime and a fixed number of
/// Iterations). Counters: the smallest and the median time of both in milliseconds, and the ratios of these.
/// With `bytes`, also the most memory of the library and the floor, per byte.
void CompareWithFloor(benchmark::State& state, const CMeasure& library, const CMeasure& floor, double bytes = 0);
