#include "small_calculation.h"

#include <array>

#include "sample_table.h"
#include "tabvex/all_records.h"

namespace {

constexpr int kRounds = 5; // of 20 reads each
constexpr std::array<int, 12> kTextItems = {1020, 1040, 1050, 1090, 5020, 5090, 1520, 1550, 16080, 2020, 6020, 12015};
constexpr std::array<int, 2> kIntItems = {1060, 5040};
constexpr std::array<int, 4> kFloatItems = {1130, 2025, 6050, 12020};
constexpr std::array<int, 2> kDateItems = {1030, 5060};
constexpr std::array<int, 3> kGroupItems = {2020, 6015, 12015};

constexpr bool Delivered(int result) {
    return result == TABVEX_OK || result == TABVEX_VALUE_BLANK;
}

bool StepGroups(CAllRecordsEx& records, int (CAllRecords::*step)(int item)) {
    bool good = true;
    for (const int item : kGroupItems) {
        good = (records.*step)(item) == TABVEX_OK && good;
    }
    return good;
}

bool ReadRound(CAllRecordsEx& records) {
    std::array<char, 129> text;
    int number = 0;
    double amount = 0;
    bool good = true;
    const int size = static_cast<int>(text.size());
    for (const int item : kTextItems) {
        good = records.ReadItem(item, text.data(), size) == TABVEX_OK && good;
    }
    for (const int item : kIntItems) {
        good = Delivered(records.ReadIntItem(item, number)) && good;
    }
    for (const int item : kFloatItems) {
        good = Delivered(records.ReadFloatItem(item, amount)) && good;
    }
    for (const int item : kDateItems) {
        good = Delivered(records.ReadDateItem(item, "DD.MM.YYYY", text.data(), size)) && good;
    }
    return good;
}

bool ReadItems(CAllRecordsEx& records) {
    bool good = StepGroups(records, &CAllRecords::ReadFirst);
    for (int round = 0; round < kRounds; ++round) {
        good = ReadRound(records) && good;
        good = (round + 1 == kRounds || StepGroups(records, &CAllRecords::ReadNext)) && good;
    }
    return good;
}

bool WriteRound(CAllRecordsEx& records, int number) {
    bool good = records.WriteItem(1020, "CLAIM 4711") == TABVEX_OK;
    good = records.WriteItem(1090, "Keeper of the vehicle") == TABVEX_VALUE_TOO_LONG && good;
    good = records.WriteCharItem(1090, "Another keeper") == TABVEX_OK && good;
    good = records.WriteIntItem(1060, number) == TABVEX_OK && good;
    return records.WriteDateItem(1030, "DD.MM.YYYY", "24.03.2015") == TABVEX_OK && good;
}

bool WriteItems(CAllRecordsEx& records) {
    bool good = true;
    for (int round = 0; round < 4; ++round) {
        good = WriteRound(records, 10000 + round) && good;
    }
    return good;
}

} // namespace

bool RunSmallCalculation(const char* tableFile, const char* recordFile, const char* outFile) {
    CAllRecordsEx records;
    if (records.LoadTable(tableFile, kTableVersionMajor, kTableVersionMinor) != TABVEX_OK ||
        records.ReadAllRecordsEx(recordFile) != TABVEX_OK) {
        return false;
    }
    const bool worked = ReadItems(records) && WriteItems(records);
    return records.SaveAllRecords(outFile, 1) > 0 && records.GetSaveErrors() == 0 && worked;
}
