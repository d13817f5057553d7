// What a program does with a small calculation, through the library.
#pragma once

/// Record types of the small calculation, as tabvex-generate takes them.
inline constexpr const char* kSmallCalculationTypes = "X0,X1,X2,X3,X4,X5,X6,X7,X9,W1,W2,W4,G1,Z1,Z2";
inline constexpr int kSmallCalculationRecords = 200;

/// Builds a record set, loads the table, reads the file, reads 100 items, writes 20, saves and destroys the record set.
/// False when any step fails.
bool RunSmallCalculation(const char* tableFile, const char* recordFile, const char* outFile);
