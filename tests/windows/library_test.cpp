#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <future>
#include <string>
#include <thread>
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

// Handles count by four, and the system opens some when it likes; one a load would be four thousand more.
constexpr std::size_t kSpareHandles = 16 * 4;

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
    EXPECT_LE(NextHandle(), nextHandle + kSpareHandles);
    constexpr std::size_t kPerLoad = 64; // what the system itself may keep of a load
    EXPECT_LE(PrivateBytes(), bytes + 1000 * kPerLoad);
}

// --- Exceptions inside the library ----------------------------------------------------------------------------------

std::atomic<bool> g_bNoMemoryOnce = false;

void* MallocThatFailsOnce(std::size_t size) {
    return g_bNoMemoryOnce.exchange(false) ? nullptr : std::malloc(size);
}

/// Where the library keeps the address of a function that it imports; null when it imports none of that name.
void** ImportOf(HMODULE library, const std::string& name) {
    auto* const base = reinterpret_cast<char*>(library);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const DWORD place = nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    for (auto* from = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + place); from->Name != 0; ++from) {
        const auto* names = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + from->OriginalFirstThunk);
        auto* const addresses = reinterpret_cast<void**>(base + from->FirstThunk);
        for (std::size_t i = 0; names[i].u1.AddressOfData != 0; ++i) {
            const auto* import = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + names[i].u1.AddressOfData);
            if (!IMAGE_SNAP_BY_ORDINAL(names[i].u1.Ordinal) && name == reinterpret_cast<const char*>(import->Name)) {
                return &addresses[i];
            }
        }
    }
    return nullptr;
}

/// The library, of which the next call for memory can be made to fail.
class CLibraryShortOfMemory {
public:
    CLibraryShortOfMemory() : m_hLibrary(::LoadLibraryA(Built(kLibrary).c_str())) {
        void** const import = m_hLibrary == nullptr ? nullptr : ImportOf(m_hLibrary, "malloc");
        DWORD before = 0;
        if (import == nullptr || ::VirtualProtect(import, sizeof *import, PAGE_READWRITE, &before) == 0) {
            ADD_FAILURE() << "no malloc to put another in place of";
            return;
        }
        *import = reinterpret_cast<void*>(&MallocThatFailsOnce);
        m_pLoadTable = Find<int (*)(const char*, int, int)>(m_hLibrary, "LoadTable");
    }
    ~CLibraryShortOfMemory() {
        EXPECT_NE(::FreeLibrary(m_hLibrary), 0);
        EXPECT_EQ(::GetModuleHandleA(kLibrary), nullptr);
    }
    CLibraryShortOfMemory(const CLibraryShortOfMemory&) = delete;
    CLibraryShortOfMemory& operator=(const CLibraryShortOfMemory&) = delete;

    /// The answer to a call for which the memory does not suffice.
    int Throw() const {
        g_bNoMemoryOnce = true;
        const int result = m_pLoadTable == nullptr ? 1 : m_pLoadTable(kTable, 3, 2);
        EXPECT_FALSE(g_bNoMemoryOnce.exchange(false)) << "it asked for none";
        return result;
    }
    int LoadTable() const { return m_pLoadTable == nullptr ? 1 : m_pLoadTable(kTable, 3, 2); }

private:
    HMODULE m_hLibrary;
    int (*m_pLoadTable)(const char*, int, int) = nullptr;
};

/// Throws in this thread and in one that lives on until the library has gone.
void ThrowInTwoThreads() {
    std::promise<void> thrown;
    std::promise<void> gone;
    std::thread other;
    {
        const CLibraryShortOfMemory library;
        EXPECT_EQ(library.Throw(), TABVEX_INTERNAL_FAILURE);
        other = std::thread([&] {
            EXPECT_EQ(library.Throw(), TABVEX_INTERNAL_FAILURE);
            thrown.set_value();
            gone.get_future().wait();
        });
        thrown.get_future().wait();
        EXPECT_EQ(library.LoadTable(), TABVEX_OK);
    }
    gone.set_value();
    other.join();
}

/// Takes all the slots whose values the system frees, as a process full of libraries does.
class CNoSlots {
public:
    CNoSlots() {
        DWORD slot = 0;
        while ((slot = ::FlsAlloc(nullptr)) != FLS_OUT_OF_INDEXES) {
            m_Slots.push_back(slot);
        }
    }
    ~CNoSlots() {
        for (const DWORD slot : m_Slots) {
            ::FlsFree(slot);
        }
    }
    CNoSlots(const CNoSlots&) = delete;
    CNoSlots& operator=(const CNoSlots&) = delete;

private:
    std::vector<DWORD> m_Slots;
};

TEST(Library, WhatIsThrownInsideEndsAsAResultInEveryThread) {
    ThrowInTwoThreads();
}

TEST(Library, WhatIsThrownInsideEndsAsAResultWhenTheProcessHasNoSlotLeft) {
    const CNoSlots noSlots;
    ThrowInTwoThreads();
}

TEST(Library, ThreadsThatEndInAProcessWithoutSlotsLeaveNothing) {
    const CNoSlots noSlots;
    const CLibraryShortOfMemory library;
    const auto throwInThreads = [&](int count) {
        for (int i = 0; i < count; ++i) {
            std::thread([&] { EXPECT_EQ(library.Throw(), TABVEX_INTERNAL_FAILURE); }).join();
        }
    };
    throwInThreads(100);
    const std::size_t bytes = PrivateBytes();
    throwInThreads(1000);
    EXPECT_LE(PrivateBytes(), bytes + std::size_t{1000} * 32);
}

TEST(Library, LoadingItAThousandTimesAndThrowingInsideLeaksNothing) {
    for (int i = 0; i < 100; ++i) {
        ThrowInTwoThreads();
    }
    const DWORD handles = OpenHandles();
    const std::size_t nextHandle = NextHandle();
    const std::size_t bytes = PrivateBytes();
    for (int i = 0; i < 1000 && !testing::Test::HasFailure(); ++i) {
        ThrowInTwoThreads();
    }
    EXPECT_LE(OpenHandles(), handles);
    EXPECT_LE(NextHandle(), nextHandle + kSpareHandles);
    EXPECT_LE(PrivateBytes(), bytes + std::size_t{1000} * 64);
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
