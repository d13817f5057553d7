// Does one piece of work with the library, in a process of its own, and prints the time and the memory it took.
// measure_floor does the same without the library.

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "measured.h"
#include "sample_table.h"
#include "small_calculation.h"
#include "tabvex/all_records.h"

namespace {

// What is changed before saving: an item in every line of this type.
constexpr int kChangedGroupItem = 2020;
constexpr int kChangedItem = 2025;
constexpr const char* kChangedText = "    47.11";

bool LoadSampleTable(CAllRecordsEx& records) {
    return records.LoadTable(kSampleTable, kTableVersionMajor, kTableVersionMinor) == TABVEX_OK;
}

bool Read(char** names, double& seconds) {
    CAllRecordsEx records;
    if (!LoadSampleTable(records)) {
        return false;
    }
    const double start = Now();
    const int result = records.ReadAllRecordsEx(names[0]);
    seconds = Now() - start;
    return result == TABVEX_OK;
}

bool Load(char** names, double& seconds) {
    CAllRecordsEx records;
    const double start = Now();
    const int result = records.LoadTable(names[0], kTableVersionMajor, kTableVersionMinor);
    seconds = Now() - start;
    return result == TABVEX_OK;
}

// HardWriteItem overwrites the item in the cursor's line, so that stepping past the line's entries reaches every line.
bool ChangeEveryLine(CAllRecordsEx& records) {
    const CRecord* record = records.ExistRecord(CAllRecords::GetTypeOfItem(kChangedItem));
    if (record == nullptr || records.ReadFirst(kChangedGroupItem) != TABVEX_OK) {
        return false;
    }
    int changed = -1;
    do {
        if (record->GetCurrentLine() != changed && record->GetCurrentLine() < record->GetLineCount()) {
            changed = record->GetCurrentLine();
            if (records.HardWriteItem(kChangedItem, kChangedText) != TABVEX_OK) {
                return false;
            }
        }
    } while (records.ReadNext(kChangedGroupItem) == TABVEX_OK);
    return changed == record->GetLineCount() - 1;
}

bool Save(char** names, double& seconds) {
    CAllRecordsEx records;
    if (!LoadSampleTable(records)) {
        return false;
    }
    const double start = Now();
    const bool saved = records.ReadAllRecordsEx(names[0]) == TABVEX_OK && ChangeEveryLine(records) &&
                       records.SaveAllRecords(names[1], 1) > 0 && records.GetSaveErrors() == 0;
    seconds = Now() - start;
    return saved;
}

bool Calculate(char** names, double& seconds) {
    const long count = std::strtol(names[3], nullptr, 10);
    bool good = true;
    const double start = Now();
    for (long i = 0; i < count; ++i) {
        good = RunSmallCalculation(names[0], names[1], names[2]) && good;
    }
    seconds = (Now() - start) / static_cast<double>(count > 0 ? count : 1);
    return good;
}

struct CWork {
    const char* Name;
    int NameCount;
    bool (*Run)(char** names, double& seconds);
};

constexpr std::array<CWork, 4> kWorks = {
    {{"read", 1, Read}, {"load", 1, Load}, {"save", 2, Save}, {"calculate", 4, Calculate}}};

} // namespace

int main(int argc, char** argv) {
    for (const CWork& work : kWorks) {
        if (argc == work.NameCount + 2 && std::strcmp(argv[1], work.Name) == 0) {
            double seconds = 0;
            if (!work.Run(argv + 2, seconds)) {
                static_cast<void>(std::fprintf(stderr, "measure_library: %s failed\n", work.Name));
                return 1;
            }
            PrintMeasured(seconds);
            return 0;
        }
    }
    static_cast<void>(std::fputs(
        "usage: measure_library read FILE | load TABLE | save FILE OUT | calculate TABLE FILE OUT COUNT\n", stderr));
    return 2;
}
