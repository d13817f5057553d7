// The input is a table file: it is loaded, records of all types get their layouts from it, and items are read, written
// and searched by these.

#include <cstddef>
#include <cstdint>

#include "exercise.h"
#include "layout/table_file.h"
#include "memory_file.h"
#include "tabvex/all_records.h"

using tabvex::fuzz::CChoices;

namespace {

// Long tables say nothing that short ones do not.
constexpr std::size_t kLongestTable = std::size_t{1} << 16;

bool LoadWithItsOwnVersion(CAllRecordsEx& records, const char* fileName) {
    CTableFile table;
    const int opened = table.Open(fileName);
    const int major = table.GetHeader().VersionMajor;
    const int minor = table.GetHeader().VersionMinor;
    tabvex::fuzz::Require(records.LoadTable(fileName, major, minor) == opened);
    return opened == TABVEX_OK;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    tabvex::fuzz::PinLibrary(TABVEX_READER);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > kLongestTable) {
        return 0;
    }
    const tabvex::fuzz::CMemoryFile file(data, size);
    CAllRecordsEx records;
    if (!LoadWithItsOwnVersion(records, file.Name())) {
        return 0;
    }
    CChoices choices(data[size - 1]); // a file that was loaded is not empty
    records.UseX4New(static_cast<int>(choices.Below(2)));
    tabvex::fuzz::CreateEveryRecord(records);
    tabvex::fuzz::WriteEverything(records, choices);
    tabvex::fuzz::ReadEverything(records, choices);
    tabvex::fuzz::SaveEverything(records);
    return 0;
}
