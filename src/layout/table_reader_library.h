// The table-line reader, a library of its own that is bound for the duration of one load.
#pragma once

#include <string>
#include <vector>

#include "platform/platform.h"

namespace tabvex {

/// Bytes of the buffer that the reader's line calls fill.
constexpr std::size_t kReaderLineSize = 2000;

class CTableReaderLibrary {
public:
    /// Looks for the reader beside this library's own file, then where the system looks for libraries.
    CTableReaderLibrary();
    /// Looks for the reader under these file names, in order.
    explicit CTableReaderLibrary(std::vector<std::string> fileNames);

    /// Loads the reader and looks up its four entry points; a library that is loaded already is kept. False when there
    /// is none or it lacks an entry point; it stays loaded then.
    bool Bind();
    /// Forgets the entry points and unloads the reader.
    void Release();

    int (*FileName2)(const char* fileName) = nullptr; ///< 2, 3: failures
    int (*GetFirstLine)(char* line) = nullptr;        ///< 1: failure
    int (*GetNextLine)(char* line) = nullptr;         ///< 0: more lines may follow
    void (*FileClose)() = nullptr;

private:
    bool Load();

    bool m_bDefaultPlaces = false;
    std::vector<std::string> m_FileNames;
    CSharedLibrary m_Library;
};

} // namespace tabvex
