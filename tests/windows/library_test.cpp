#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/temp_folder.h"
#include "tabvex/result_codes.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>
// Behind windows.h, which it needs.
#include <psapi.h>

namespace {

namespace fs = std::filesystem;

constexpr const char* kLibrary = "TabVex32X.dll";
constexpr const char* kReader = "TBLREAD.DLL";
constexpr const char* kTable = TABVEX_SAMPLES_DIR "/calculation.table";

std::string Built(const char* name) {
    return (fs::path(TABVEX_BUILD_DIR) / name).make_preferred().string();
}

template <typename Function>
Function Find(HMODULE library, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(library, name)));
}

// --- Where the table-line reader is looked for ----------------------------------------------------------------------

/// A caller and the library, each in a folder of its own.
class TableReaderPlace : public testing::Test {
protected:
    TableReaderPlace() {
        Put(TABVEX_LIBRARY_HOST, "program", "host.exe");
        Put(Built(kLibrary), "library", kLibrary);
    }

    void Put(const fs::path& file, const std::string& folder, const std::string& name) const {
        fs::create_directories(m_Folder.PathOf(folder));
        fs::copy_file(file, fs::path(m_Folder.PathOf(folder)) / name);
    }
    void PutReader(const std::string& folder) const { Put(Built(kReader), folder, kReader); }
    void PutOddReader(const std::string& folder, const std::string& name) const {
        Put(fs::path(TABVEX_READERS_DIR) / (name + ".reader"), folder, kReader);
    }
    std::string LibraryPath(const std::string& folder = "library") const {
        return m_Folder.PathOf(folder) + "\\" + kLibrary;
    }

    /// What the library answers to the caller that loads the sample table.
    int LoadTable(const std::string& library) const {
        std::string command = "host.exe \"" + library + "\" \"" + kTable + "\"";
        const std::string program = m_Folder.PathOf("program") + "\\host.exe";
        STARTUPINFOA start = {};
        start.cb = sizeof start;
        PROCESS_INFORMATION process = {};
        if (::CreateProcessA(program.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                             m_Folder.Path().c_str(), &start, &process) == 0) {
            ADD_FAILURE() << "cannot start " << program;
            return 1;
        }
        DWORD status = 0;
        ::WaitForSingleObject(process.hProcess, INFINITE);
        ::GetExitCodeProcess(process.hProcess, &status);
        ::CloseHandle(process.hThread);
        ::CloseHandle(process.hProcess);
        return 100 - static_cast<int>(status);
    }
    int LoadTable() const { return LoadTable(LibraryPath()); }

private:
    CTempFolder m_Folder;
};

TEST_F(TableReaderPlace, BesideTheLibraryServesACallerElsewhere) {
    PutReader("library");
    EXPECT_EQ(LoadTable(), TABVEX_OK);
}

TEST_F(TableReaderPlace, BesideTheCallerServesWhenThereIsNoneBesideTheLibrary) {
    PutReader("program");
    EXPECT_EQ(LoadTable(), TABVEX_OK);
}

TEST_F(TableReaderPlace, NowhereMeansThatNoTableIsLoaded) {
    EXPECT_EQ(LoadTable(), TABVEX_TABLE_NO_READER);
}

TEST_F(TableReaderPlace, AReaderThatLacksAnEntryPointIsNotLookedForElsewhere) {
    PutReader("program");
    PutOddReader("library", "without_file_close");
    EXPECT_EQ(LoadTable(), -2);
}

TEST_F(TableReaderPlace, TheOneBesideTheLibraryIsTakenBeforeTheOneBesideTheCaller) {
    PutOddReader("program", "without_file_close");
    PutReader("library");
    EXPECT_EQ(LoadTable(), TABVEX_OK);
}

TEST_F(TableReaderPlace, WhatIsNoLibraryIsPassedOver) {
    Put(kTable, "library", kReader);
    EXPECT_EQ(LoadTable(), -2);
    PutReader("program");
    EXPECT_EQ(LoadTable(), TABVEX_OK);
}

TEST_F(TableReaderPlace, ALibraryWhosePathIsLongerThan259CharactersFindsNone) {
    // Parts of at most 200 characters; under "\\?\" paths may be longer.
    const std::string folder = "library" + std::string(90, 'l') + "\\" + std::string(200, 'm');
    const fs::path place = fs::path(R"(\\?\)" + LibraryPath(folder));
    std::error_code error;
    fs::create_directories(place.parent_path(), error);
    fs::copy_file(Built(kLibrary), place, error);
    if (error) {
        GTEST_SKIP() << "this disk has no such path: " << error.message();
    }
    PutReader("program");
    EXPECT_EQ(LoadTable(place.string()), -2);
}

// --- Loading and unloading ------------------------------------------------------------------------------------------

// Handles are given out lowest first, so that one that is not closed raises the next.
std::size_t NextHandle() {
    const HANDLE event = ::CreateEventA(nullptr, TRUE, FALSE, nullptr);
    ::CloseHandle(event);
    return reinterpret_cast<std::size_t>(event);
}

DWORD OpenHandles() {
    DWORD count = 0;
    EXPECT_NE(::GetProcessHandleCount(::GetCurrentProcess(), &count), 0);
    return count;
}

std::size_t PrivateBytes() {
    PROCESS_MEMORY_COUNTERS counters = {};
    EXPECT_NE(::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters), 0);
    return counters.PagefileUsage;
}

// Uses what takes memory: the shared record set, an instance that nobody destroys, the table-line reader.
void LoadUseAndUnload() {
    const HMODULE library = ::LoadLibraryA(Built(kLibrary).c_str());
    ASSERT_NE(library, nullptr);
    const auto loadTable = Find<int (*)(const char*, int, int)>(library, "LoadTable");
    const auto read = Find<int (*)(const char*)>(library, "ReadAllRecordsEx");
    const auto create = Find<int (*)()>(library, "MifCreateInstance");
    const auto loadInto = Find<int (*)(int, const char*, int, int)>(library, "MifLoadTable");
    ASSERT_EQ(loadTable(kTable, 3, 2), TABVEX_OK);
    ASSERT_EQ(read(TABVEX_SAMPLES_DIR "/all-types.rec"), TABVEX_OK);
    ASSERT_EQ(loadInto(create(), kTable, 3, 2), TABVEX_OK);
    ASSERT_NE(::FreeLibrary(library), 0);
    ASSERT_EQ(::GetModuleHandleA(kLibrary), nullptr);
    ASSERT_EQ(::GetModuleHandleA(kReader), nullptr);
}

// Wine counts no handles, so that the next one has to tell.
TEST(Library, WhatLeaksWouldBeSeen) {
    const std::size_t nextHandle = NextHandle();
    const HANDLE event = ::CreateEventA(nullptr, TRUE, FALSE, nullptr);
    EXPECT_GT(NextHandle(), nextHandle);
    ::CloseHandle(event);
    const std::size_t bytes = PrivateBytes();
    std::vector<std::string> memory(1000, std::string(1000, 'x'));
    EXPECT_GE(PrivateBytes(), bytes + 500 * memory.size());
}

TEST(Library, LoadingItAThousandTimesLeaksNothing) {
    for (int i = 0; i < 100; ++i) {
        ASSERT_NO_FATAL_FAILURE(LoadUseAndUnload());
    }
    const DWORD handles = OpenHandles();
    const std::size_t nextHandle = NextHandle();
    const std::size_t bytes = PrivateBytes();
    for (int i = 0; i < 1000; ++i) {
        ASSERT_NO_FATAL_FAILURE(LoadUseAndUnload());
    }
    EXPECT_LE(OpenHandles(), handles);
    EXPECT_LE(NextHandle(), nextHandle);
    constexpr std::size_t kPerLoad = 64; // what the system itself may keep of a load
    EXPECT_LE(PrivateBytes(), bytes + 1000 * kPerLoad);
}

// --- Names for Java -------------------------------------------------------------------------------------------------

// Those of the two without a Java environment to look at.
TEST(LibraryForJava, NativesAreFoundUnderTheirPlainNamesAndCalledAsJavaDoes) {
    const HMODULE library = ::LoadLibraryA(Built(kLibrary).c_str());
    ASSERT_NE(library, nullptr);
    const auto create =
        Find<long(__stdcall*)(void*, void*)>(library, "Java_de_quorvil_application_tabvex_TabVexImpl_createInstance");
    const auto destroy = Find<void(__stdcall*)(void*, void*, long)>(
        library, "Java_de_quorvil_application_tabvex_TabVexImpl_destroyInstance");
    ASSERT_NE(create, nullptr);
    ASSERT_NE(destroy, nullptr);
    EXPECT_EQ(create(nullptr, nullptr), 4);
    destroy(nullptr, nullptr, 4);
    EXPECT_EQ(create(nullptr, nullptr), 8);
    ::FreeLibrary(library);
}

} // namespace
