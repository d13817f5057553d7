#include "layout/table_reader_library.h"

#include <algorithm>
#include <utility>

namespace tabvex {

namespace {

template <typename Function>
bool FindEntry(const CSharedLibrary& library, const char* name, Function& entry) {
    entry = reinterpret_cast<Function>(library.Find(name)); // NOLINT(*-reinterpret-cast)
    return entry != nullptr;
}

} // namespace

CTableReaderLibrary::CTableReaderLibrary() : m_bDefaultPlaces(true) {}

CTableReaderLibrary::CTableReaderLibrary(std::vector<std::string> fileNames) : m_FileNames(std::move(fileNames)) {}

bool CTableReaderLibrary::Bind() {
    if (!m_Library.IsLoaded() && !Load()) {
        return false;
    }
    return FindEntry(m_Library, "FileName2", FileName2) && FindEntry(m_Library, "GetFirstLine", GetFirstLine) &&
           FindEntry(m_Library, "GetNextLine", GetNextLine) && FindEntry(m_Library, "FileClose", FileClose);
}

bool CTableReaderLibrary::Load() {
    if (m_bDefaultPlaces && m_FileNames.empty()) {
        std::string folder;
        if (!FindOwnFolder(folder)) {
            return false;
        }
        m_FileNames = {folder + kTableReaderFile, kTableReaderFile};
    }
    return std::any_of(m_FileNames.begin(), m_FileNames.end(),
                       [this](const std::string& name) { return m_Library.Load(name.c_str()); });
}

void CTableReaderLibrary::Release() {
    FileName2 = nullptr;
    GetFirstLine = nullptr;
    GetNextLine = nullptr;
    FileClose = nullptr;
    m_Library.Release();
}

} // namespace tabvex
