#include <algorithm>
#include <string>

#include <gtest/gtest.h>

#include "platform/code_pages.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#undef OemToAnsi // names that are macros there
#undef AnsiToOem

namespace tabvex {
namespace {

std::string EveryCharacter() {
    std::string bytes;
    for (int c = 1; c < 256; ++c) {
        bytes += static_cast<char>(c);
    }
    return bytes;
}

std::string ToAnsi(const CCodePages& pages, std::string text) {
    pages.OemToAnsi(text.data(), text.size());
    return text;
}

std::string ToOem(const CCodePages& pages, std::string text) {
    pages.AnsiToOem(text.data(), text.size());
    return text;
}

bool HasPages(unsigned oem, unsigned ansi) {
    return ::GetOEMCP() == oem && ::GetACP() == ansi;
}

TEST(SystemCodePages, AreTheDefault) {
    const CCodePages pages;
    std::string ansi = EveryCharacter();
    ASSERT_NE(::OemToCharA(EveryCharacter().c_str(), ansi.data()), 0);
    EXPECT_EQ(ToAnsi(pages, EveryCharacter()), ansi);
    std::string oem = EveryCharacter();
    ASSERT_NE(::CharToOemA(EveryCharacter().c_str(), oem.data()), 0);
    EXPECT_EQ(ToOem(pages, EveryCharacter()), oem);
}

TEST(SystemCodePages, ConvertLikeTheTablesOfTheSamePages) {
    for (const int page : {850, 437}) {
        if (HasPages(static_cast<unsigned>(page), 1252)) {
            CCodePages own;
            ASSERT_EQ(own.Select(page, 1252), 0);
            EXPECT_EQ(ToAnsi(CCodePages(), EveryCharacter()), ToAnsi(own, EveryCharacter()));
            EXPECT_EQ(ToOem(CCodePages(), EveryCharacter()), ToOem(own, EveryCharacter()));
            return;
        }
    }
    GTEST_SKIP() << "the system's pages are " << ::GetOEMCP() << " and " << ::GetACP();
}

TEST(SystemCodePages, NulsStay) {
    EXPECT_EQ(ToAnsi(CCodePages(), std::string("a\0b", 3)), std::string("a\0b", 3));
    EXPECT_EQ(ToOem(CCodePages(), std::string("a\0b", 3)), std::string("a\0b", 3));
}

} // namespace
} // namespace tabvex
