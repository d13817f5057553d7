#include <string>

#include <gtest/gtest.h>

#include "platform/code_pages.h"
#include "platform/platform.h"

namespace tabvex {
namespace {

TEST(DefaultCodePages, ThisSystemHasNoneOfItsOwn) {
    CCodePageTable oemToAnsi = {};
    CCodePageTable ansiToOem = {};
    EXPECT_FALSE(FindSystemCodePages(oemToAnsi, ansiToOem));
}

TEST(DefaultCodePages, Are850And1252) {
    const CCodePages pages;
    std::string text = "\x9B\xD5\x84"; // in 437 the first is a cent sign, the second a corner
    pages.OemToAnsi(text.data(), text.size());
    EXPECT_EQ(text, "\xF8\x69\xE4");
    text = "\xF8\xE3\xE4"; // the first two are not in 437
    pages.AnsiToOem(text.data(), text.size());
    EXPECT_EQ(text, "\x9B\xC6\x84");
}

} // namespace
} // namespace tabvex
