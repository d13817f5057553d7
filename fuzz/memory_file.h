// A file that exists in memory only, for input that the library reads by file name.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tabvex::fuzz {

class CMemoryFile {
public:
    CMemoryFile(const std::uint8_t* data, std::size_t size);
    ~CMemoryFile();
    CMemoryFile(const CMemoryFile&) = delete;
    CMemoryFile& operator=(const CMemoryFile&) = delete;

    /// A name under which it can be opened while this object lives.
    const char* Name() const { return m_strName.c_str(); }

private:
    int m_nHandle;
    std::string m_strName;
};

/// Loads a library and never lets go of it: libFuzzer cannot do without a library whose coverage it has seen.
void PinLibrary(const char* fileName);

/// Ends the program, as a crash, when something that always holds does not.
void Require(bool holds);

} // namespace tabvex::fuzz
