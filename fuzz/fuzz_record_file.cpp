// The input is a record file: it is read in every way with the sample table loaded, looked through, changed and saved.

#include <cstddef>
#include <cstdint>
#include <memory>

#include "exercise.h"
#include "memory_file.h"
#include "tabvex/all_records.h"

using tabvex::fuzz::CChoices;

namespace {

constexpr std::size_t kLongestFile = std::size_t{1} << 16;
constexpr int kVersionMajor = 3;
constexpr int kVersionMinor = 2;

// Loaded once, as loading takes far longer than a small file.
CAllRecordsEx& RecordsWithTable() {
    static const std::unique_ptr<CAllRecordsEx> records = [] {
        tabvex::fuzz::PinLibrary(TABVEX_READER);
        auto loaded = std::make_unique<CAllRecordsEx>();
        const int result = loaded->LoadTable(TABVEX_SAMPLES_DIR "/calculation.table", kVersionMajor, kVersionMinor);
        tabvex::fuzz::Require(result == TABVEX_OK);
        return loaded;
    }();
    return *records;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > kLongestFile) {
        return 0;
    }
    const tabvex::fuzz::CMemoryFile file(data, size);
    CAllRecordsEx& records = RecordsWithTable();
    CChoices choices(size == 0 ? 0 : data[size - 1]);
    records.UseX4New(static_cast<int>(choices.Below(2)));
    records.SetCharacterSet(choices.Below(2) == 0 ? "ANSI" : "OEM");

    records.ReadAllRecords(file.Name());
    tabvex::fuzz::ReadEverything(records, choices);
    tabvex::fuzz::SaveEverything(records);

    records.ReadAll_V_Records(file.Name());
    tabvex::fuzz::ReadEverything(records, choices);
    tabvex::fuzz::SaveEverything(records);

    records.ReadAllRecordsEx(file.Name());
    tabvex::fuzz::WriteEverything(records, choices);
    tabvex::fuzz::SaveEverything(records);
    records.DestroyAllRecords();
    return 0;
}
