#include "platform/code_pages.h"

#include <map>
#include <string>

#include <gtest/gtest.h>

namespace tabvex {
namespace {

// The characters of the code pages from 80 on, as Unicode has them.
// clang-format off
// 850
constexpr char32_t kPage850[] =
    U"ÇüéâäàåçêëèïîìÄÅ"  // 8x
    U"ÉæÆôöòûùÿÖÜø£Ø×ƒ"  // 9x
    U"áíóúñÑªº¿®¬½¼¡«»"  // Ax
    U"░▒▓│┤ÁÂÀ©╣║╗╝¢¥┐"  // Bx
    U"└┴┬├─┼ãÃ╚╔╩╦╠═╬¤"  // Cx
    U"ðÐÊËÈıÍÎÏ┘┌█▄¦Ì▀"  // Dx
    U"ÓßÔÒõÕµþÞÚÛÙýÝ¯´"  // Ex
    U"\u00AD±‗¾¶§÷¸°¨·¹³²■\u00A0"; // Fx

// 437
constexpr char32_t kPage437[] =
    U"ÇüéâäàåçêëèïîìÄÅ"  // 8x
    U"ÉæÆôöòûùÿÖÜ¢£¥₧ƒ"  // 9x
    U"áíóúñÑªº¿⌐¬½¼¡«»"  // Ax
    U"░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"  // Bx
    U"└┴┬├─┼╞╟╚╔╩╦╠═╬╧"  // Cx
    U"╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀"  // Dx
    U"αßΓπΣσµτΦΘΩδ∞φε∩"  // Ex
    U"≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0"; // Fx

// 1252; the five places that have no character show "?"
constexpr char32_t kPage1252[] =
    U"€?‚ƒ„…†‡ˆ‰Š‹Œ?Ž?"  // 8x
    U"?‘’“”•–—˜™š›œ?žŸ"  // 9x
    U"\u00A0¡¢£¤¥¦§¨©ª«¬\u00AD®¯"  // Ax
    U"°±²³´µ¶·¸¹º»¼½¾¿"  // Bx
    U"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏ"  // Cx
    U"ÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞß"  // Dx
    U"àáâãäåæçèéêëìíîï"  // Ex
    U"ðñòóôõö÷øùúûüýþÿ"; // Fx

/// Bytes of 1252 that are no character.
const std::string kNoCharacter = "\x81\x8D\x8F\x90\x9D";

/// Characters that the other page lacks, each with what it becomes: a character of that page.
using CBestFit = std::map<char32_t, char32_t>;

const CBestFit kDrawnTo1252 = {
    // shades, blocks, and uprights, with a branch or without
    {U'░', U'¦'}, {U'▒', U'¦'}, {U'▓', U'¦'}, {U'█', U'¦'}, {U'■', U'¦'}, {U'▌', U'¦'}, {U'▐', U'¦'},
    {U'│', U'¦'}, {U'║', U'¦'}, {U'┤', U'¦'}, {U'╡', U'¦'}, {U'╢', U'¦'}, {U'╣', U'¦'},
    {U'╞', U'¦'}, {U'╟', U'¦'}, {U'╠', U'¦'},
    {U'▄', U'_'}, {U'▀', U'¯'},
    // corners, crossings, and of the branches ├ alone
    {U'┐', U'+'}, {U'╖', U'+'}, {U'╕', U'+'}, {U'╗', U'+'}, {U'└', U'+'}, {U'╙', U'+'}, {U'╘', U'+'}, {U'╚', U'+'},
    {U'┘', U'+'}, {U'╜', U'+'}, {U'╛', U'+'}, {U'╝', U'+'}, {U'┌', U'+'}, {U'╓', U'+'}, {U'╒', U'+'}, {U'╔', U'+'},
    {U'┼', U'+'}, {U'╫', U'+'}, {U'╪', U'+'}, {U'╬', U'+'}, {U'├', U'+'},
    // lines across, with or without a branch
    {U'─', U'-'}, {U'═', U'-'}, {U'┴', U'-'}, {U'╧', U'-'}, {U'╨', U'-'}, {U'╩', U'-'},
    {U'┬', U'-'}, {U'╤', U'-'}, {U'╥', U'-'}, {U'╦', U'-'},
};

const CBestFit kLettersTo1252 = {
    // 850
    {U'ı', U'i'}, {U'‗', U'='},
    // 437: Greek by sound, signs by look
    {U'₧', U'P'}, {U'α', U'a'}, {U'Γ', U'G'}, {U'π', U'p'}, {U'Σ', U'S'}, {U'σ', U's'}, {U'τ', U't'}, {U'Φ', U'F'},
    {U'Θ', U'T'}, {U'Ω', U'O'}, {U'δ', U'd'}, {U'φ', U'f'}, {U'ε', U'e'}, {U'∞', U'8'}, {U'∩', U'n'}, {U'ⁿ', U'n'},
    {U'≡', U'='}, {U'≥', U'='}, {U'≤', U'='}, {U'⌠', U'('}, {U'⌡', U')'}, {U'≈', U'˜'}, {U'∙', U'·'}, {U'√', U'v'},
    {U'⌐', U'¬'},
};

/// Characters of 1252 that both OEM pages lack.
const CBestFit kFrom1252 = {
    {U'€', U'?'}, {U'…', U'.'}, {U'ˆ', U'^'}, {U'‰', U'%'}, {U'Š', U'S'}, {U'‹', U'<'}, {U'Œ', U'O'}, {U'Ž', U'Z'},
    {U'’', U'\''}, {U'“', U'"'}, {U'”', U'"'}, {U'•', U'\u0007'}, {U'–', U'-'}, {U'—', U'-'}, {U'˜', U'~'},
    {U'™', U'T'}, {U'š', U's'}, {U'›', U'>'}, {U'œ', U'o'}, {U'ž', U'z'}, {U'Ÿ', U'Y'},
};

const CBestFit kFrom1252To850 = {
    {U'‚', U'\''}, {U'„', U'"'}, {U'‘', U'\''}, {U'†', U'┼'}, {U'‡', U'╬'},
};

const CBestFit kFrom1252To437 = {
    {U'‚', U','}, {U'„', U','}, {U'‘', U'`'}, {U'†', U'+'}, {U'‡', U'╪'},
    // signs; three of them become control characters that are drawn alike
    {U'¤', U'\u000F'}, {U'§', U'\u0015'}, {U'¶', U'\u0014'}, {U'¦', U'▌'}, {U'¨', U'"'}, {U'©', U'c'}, {U'®', U'r'},
    {U'\u00AD', U'-'}, {U'¯', U'_'}, {U'´', U'\''}, {U'¸', U','}, {U'¹', U'1'}, {U'³', U'3'},
    {U'¾', U'_'}, {U'×', U'x'},
    // letters
    {U'À', U'A'}, {U'Á', U'A'}, {U'Â', U'A'}, {U'Ã', U'A'}, {U'È', U'E'}, {U'Ê', U'E'}, {U'Ë', U'E'}, {U'Ì', U'I'},
    {U'Í', U'I'}, {U'Î', U'I'}, {U'Ï', U'I'}, {U'Ð', U'D'}, {U'Ò', U'O'}, {U'Ó', U'O'}, {U'Ô', U'O'}, {U'Õ', U'O'},
    {U'Ø', U'O'}, {U'Ù', U'U'}, {U'Ú', U'U'}, {U'Û', U'U'}, {U'Ý', U'Y'}, {U'Þ', U'_'}, {U'ã', U'a'}, {U'ð', U'd'},
    {U'õ', U'o'}, {U'ø', U'o'}, {U'ý', U'y'}, {U'þ', U'_'},
};
// clang-format on

CBestFit Joined(CBestFit fits, const CBestFit& more) {
    fits.insert(more.begin(), more.end());
    return fits;
}

/// The byte of a character in a page, -1 when the page does not have it.
int ByteOf(const char32_t* page, char32_t character) {
    if (character < 128) {
        return static_cast<int>(character);
    }
    for (int i = 0; i < 128; ++i) {
        if (page[i] == character) {
            return i + 128;
        }
    }
    return -1;
}

/// What each byte from 80 on of one page is in another.
std::string UpperHalf(const char32_t* from, const char32_t* to, const CBestFit& bestFit) {
    std::string bytes;
    for (int i = 0; i < 128; ++i) {
        int byte = ByteOf(to, from[i]);
        if (byte < 0) {
            const auto fit = bestFit.find(from[i]);
            EXPECT_NE(fit, bestFit.end()) << "nothing fits " << i + 128;
            byte = fit == bestFit.end() ? 0 : ByteOf(to, fit->second);
        }
        EXPECT_GE(byte, 0) << "not in the page: what fits " << i + 128;
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

std::string Range(int from, int to) {
    std::string bytes;
    for (int c = from; c < to; ++c) {
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

TEST(CodePages, CharactersBelow128StayInEveryPage) {
    CCodePages pages;
    const std::string ascii = Range(0, 128);
    for (const int oem : {850, 437}) {
        ASSERT_EQ(pages.Select(oem, 1252), 0);
        EXPECT_EQ(ToAnsi(pages, ascii), ascii);
        EXPECT_EQ(ToOem(pages, ascii), ascii);
    }
}

TEST(CodePages, EveryCharacterOf850Becomes1252) {
    CCodePages pages;
    ASSERT_EQ(pages.Select(850, 1252), 0);
    EXPECT_EQ(ToAnsi(pages, Range(128, 256)), UpperHalf(kPage850, kPage1252, Joined(kDrawnTo1252, kLettersTo1252)));
}

TEST(CodePages, EveryCharacterOf1252Becomes850) {
    CCodePages pages;
    ASSERT_EQ(pages.Select(850, 1252), 0);
    EXPECT_EQ(ToOem(pages, Range(128, 256)), UpperHalf(kPage1252, kPage850, Joined(kFrom1252, kFrom1252To850)));
}

TEST(CodePages, EveryCharacterOf437Becomes1252) {
    CCodePages pages;
    ASSERT_EQ(pages.Select(437, 1252), 0);
    EXPECT_EQ(ToAnsi(pages, Range(128, 256)), UpperHalf(kPage437, kPage1252, Joined(kDrawnTo1252, kLettersTo1252)));
}

TEST(CodePages, EveryCharacterOf1252Becomes437) {
    CCodePages pages;
    ASSERT_EQ(pages.Select(437, 1252), 0);
    EXPECT_EQ(ToOem(pages, Range(128, 256)), UpperHalf(kPage1252, kPage437, Joined(kFrom1252, kFrom1252To437)));
}

TEST(CodePages, APlaceOf1252WithoutCharacterBecomesAQuestionMark) {
    CCodePages pages;
    ASSERT_EQ(pages.Select(850, 1252), 0);
    EXPECT_EQ(ToOem(pages, kNoCharacter), "?????");
    ASSERT_EQ(pages.Select(437, 1252), 0);
    EXPECT_EQ(ToOem(pages, kNoCharacter), "?????");
}

TEST(CodePages, GermanLettersSurviveBothWays) {
    const std::string oem = "\x84\x94\x81\x8E\x99\x9A\xE1";
    const std::string ansi = "\xE4\xF6\xFC\xC4\xD6\xDC\xDF";
    CCodePages pages;
    for (const int page : {850, 437}) {
        ASSERT_EQ(pages.Select(page, 1252), 0);
        EXPECT_EQ(ToAnsi(pages, oem), ansi);
        EXPECT_EQ(ToOem(pages, ansi), oem);
    }
}

TEST(CodePages, PagesItDoesNotHaveChangeNothing) {
    CCodePages pages;
    ASSERT_EQ(pages.Select(437, 1252), 0);
    const int others[][2] = {{1252, 850}, {850, 850}, {1252, 1252}, {850, 437}, {850, 1250},
                             {852, 1252}, {0, 0},     {-1, -1},     {850, 0},   {0, 1252}};
    for (const auto& [oem, ansi] : others) {
        EXPECT_EQ(pages.Select(oem, ansi), -1) << oem << ' ' << ansi;
    }
    EXPECT_EQ(ToAnsi(pages, "\x9B"), "\xA2"); // the cent sign of 437, in 850 the o with a stroke
    ASSERT_EQ(pages.Select(850, 1252), 0);
    EXPECT_EQ(ToAnsi(pages, "\x9B"), "\xF8");
}

TEST(CodePages, OnlyTheCharactersAskedForAreConverted) {
    CCodePages pages;
    ASSERT_EQ(pages.Select(850, 1252), 0);
    std::string text = std::string("\x84\0\x84\x84", 4);
    pages.OemToAnsi(text.data(), 3);
    EXPECT_EQ(text, std::string("\xE4\0\xE4\x84", 4));
    pages.AnsiToOem(text.data(), 1);
    EXPECT_EQ(text, std::string("\x84\0\xE4\x84", 4));
    pages.OemToAnsi(nullptr, 0);
    pages.AnsiToOem(nullptr, 0);
}

} // namespace
} // namespace tabvex
