// The sample table file that every measurement works with.
#pragma once

inline constexpr const char* kSampleTable = TABVEX_SAMPLES_DIR "/calculation.table";
inline constexpr int kTableVersionMajor = 3;
inline constexpr int kTableVersionMinor = 2;
