/*
 * Loads a library and has it load a table file: library_host LIBRARY TABLE. Exits with 100 less the result, with 99
 * when there is no library and with 98 when it lacks the function.
 */
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

typedef int (*CLoadTable)(const char* fileName, int versionMajor, int versionMinor);

enum { kBase = 100, kNoLibrary = 99, kNoFunction = 98, kArguments = 3, kMajor = 3, kMinor = 2, kLongestPath = 1000 };

int main(int argc, char** argv) {
    wchar_t path[kLongestPath] = {0}; /* the other kind of texts has no long paths */
    HMODULE library = NULL;
    if (argc == kArguments && MultiByteToWideChar(CP_ACP, 0, argv[1], -1, path, kLongestPath) > 0) {
        library = LoadLibraryW(path);
    }
    if (library == NULL) {
        return kNoLibrary;
    }
    /* A detour, as the types of functions do not convert into one another. */
    void* const address = (void*)(SIZE_T)GetProcAddress(library, "LoadTable");
    const CLoadTable loadTable = (CLoadTable)(SIZE_T)address;
    return loadTable == NULL ? kNoFunction : kBase - loadTable(argv[2], kMajor, kMinor);
}
