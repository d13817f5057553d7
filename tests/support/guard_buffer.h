// A caller's buffer whose surroundings are watched.
#pragma once

#include <cstddef>
#include <cstring>
#include <string>

#include <gtest/gtest.h>

/// `size` bytes for an operation to write into, between guard bytes; the test fails at the end of the scope when a
/// guard byte has changed.
class CGuardBuffer {
public:
    explicit CGuardBuffer(std::size_t size) : m_nSize(size), m_strBytes(kGuard + size + kGuard, kUntouched) {}
    ~CGuardBuffer() {
        const std::string guard(kGuard, kUntouched);
        EXPECT_EQ(m_strBytes.substr(0, kGuard), guard) << "written before a buffer of " << m_nSize << " bytes";
        EXPECT_EQ(m_strBytes.substr(kGuard + m_nSize), guard) << "written behind a buffer of " << m_nSize << " bytes";
    }
    CGuardBuffer(const CGuardBuffer&) = delete;
    CGuardBuffer& operator=(const CGuardBuffer&) = delete;

    char* Data() { return m_strBytes.data() + kGuard; }
    int Size() const { return static_cast<int>(m_nSize); }
    /// All bytes.
    std::string Bytes() const { return m_strBytes.substr(kGuard, m_nSize); }
    /// The bytes up to the first NUL.
    std::string Text() const { return Bytes().substr(0, Bytes().find('\0')); }
    /// True while nothing was written.
    bool IsUntouched() const { return Bytes() == std::string(m_nSize, kUntouched); }

private:
    static constexpr std::size_t kGuard = 32;
    static constexpr char kUntouched = '\x5A';

    std::size_t m_nSize;
    std::string m_strBytes;
};
