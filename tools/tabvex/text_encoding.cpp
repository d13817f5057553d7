#include "text_encoding.h"

#include <algorithm>
#include <cstring>

#include "exit_status.h"
#include "tabvex/all_records.h"

namespace tabvex::tool {

namespace {

constexpr int kAnsiPage = 1252;
constexpr std::size_t kUpperHalf = 128; // characters above ASCII; as many as a record has

// clang-format off
// Code page 1252 where it is not Latin-1: characters 0x80 to 0x9F. 0x81, 0x8D, 0x8F, 0x90 and 0x9D are control characters.
constexpr std::array<char32_t, 32> kAnsiSpecials = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
// clang-format on

char32_t AnsiCodePoint(unsigned char c) {
    return c >= 0x80 && c < 0xA0 ? kAnsiSpecials[c - std::size_t{0x80}] : char32_t{c};
}

// Code page 1252 holds nothing above U+2122.
std::string EncodeUtf8(char32_t point) {
    const auto byte = [](char32_t value) { return static_cast<char>(static_cast<unsigned char>(value)); };
    if (point < 0x80) {
        return {byte(point)};
    }
    if (point < 0x800) {
        return {byte(0xC0 | (point >> 6)), byte(0x80 | (point & 0x3F))};
    }
    return {byte(0xE0 | (point >> 12)), byte(0x80 | ((point >> 6) & 0x3F)), byte(0x80 | (point & 0x3F))};
}

bool IsControl(char32_t point) {
    return point < 0x20 || (point >= 0x7F && point < 0xA0);
}

std::string Escaped(std::size_t byte) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    return {'\\', 'x', kDigits[byte >> 4], kDigits[byte & 0xF]};
}

std::string UpperHalf() {
    std::string text(kUpperHalf, '\0');
    for (std::size_t i = 0; i < kUpperHalf; ++i) {
        text[i] = static_cast<char>(static_cast<unsigned char>(i + kUpperHalf));
    }
    return text;
}

// What callers get for each of the characters above ASCII: the library converts them, in a line of a scratch record.
std::string AnsiUpperHalf(int codePage) {
    std::string line = UpperHalf();
    if (codePage == kAnsiPage) {
        return line;
    }
    constexpr const char* kScratchType = "T0";
    constexpr int kSize = static_cast<int>(kUpperHalf) + 1;
    CAllRecordsEx records;
    records.SetCharacterSet("ANSI");
    const bool stored = records.SetCodePages(codePage, kAnsiPage) == TABVEX_OK &&
                        records.SetCompleteRecord(kScratchType, line.data(), kSize) == TABVEX_OK;
    records.SetCharacterSet("OEM");
    line.resize(kSize);
    if (!stored || records.GetFirstCompleteRecord(kScratchType, line.data(), kSize) != TABVEX_OK) {
        throw CToolError("the library cannot convert code page " + std::to_string(codePage));
    }
    line.resize(kUpperHalf);
    return line;
}

bool IsContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// Bytes of the character that begins with `lead`; 0 for one that begins none.
std::size_t Utf8Length(unsigned char lead) {
    if (lead < 0x80) {
        return 1;
    }
    if (lead >= 0xC2 && lead < 0xE0) {
        return 2;
    }
    if (lead >= 0xE0 && lead < 0xF0) {
        return 3;
    }
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

// The second byte rules out overlong forms, surrogates and what lies above U+10FFFF.
bool MayFollow(unsigned char lead, unsigned char second) {
    switch (lead) {
    case 0xE0:
        return second >= 0xA0;
    case 0xED:
        return second < 0xA0;
    case 0xF0:
        return second >= 0x90;
    case 0xF4:
        return second < 0x90;
    default:
        return true;
    }
}

} // namespace

CTextDecoder::CTextDecoder(int codePage) {
    const std::string upper = AnsiUpperHalf(codePage);
    for (std::size_t byte = 0; byte < m_Characters.size(); ++byte) {
        const char ansi = byte < kUpperHalf ? static_cast<char>(byte) : upper[byte - kUpperHalf];
        const char32_t point = AnsiCodePoint(static_cast<unsigned char>(ansi));
        m_Characters[byte] = EncodeUtf8(point);
        m_Shown[byte] = IsControl(point) ? Escaped(byte) : m_Characters[byte];
    }
}

std::string CTextDecoder::ToUtf8(std::string_view text) const {
    std::string utf8;
    for (const char c : text) {
        utf8.append(m_Characters[static_cast<unsigned char>(c)]);
    }
    return utf8;
}

std::string CTextDecoder::ToShown(std::string_view text) const {
    std::string shown;
    for (const char c : text) {
        shown.append(m_Shown[static_cast<unsigned char>(c)]);
    }
    return shown;
}

// The control characters above ASCII are two bytes, of which the second tells them from Latin-1 letters.
std::string EscapeControls(std::string_view utf8) {
    std::string escaped;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        const auto next = i + 1 < utf8.size() ? static_cast<unsigned char>(utf8[i + 1]) : byte;
        if (byte == 0xC2 && next >= 0x80 && next < 0xA0) {
            escaped.append(Escaped(next));
            ++i;
            continue;
        }
        escaped.append(byte < kUpperHalf && IsControl(byte) ? Escaped(byte) : std::string(1, utf8[i]));
    }
    return escaped;
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        const auto lead = static_cast<unsigned char>(text.front());
        const std::size_t length = Utf8Length(lead);
        if (length == 0 || length > text.size()) {
            return false;
        }
        const std::string_view rest = text.substr(1, length - 1);
        if (!std::all_of(rest.begin(), rest.end(), IsContinuation) ||
            (length > 1 && !MayFollow(lead, static_cast<unsigned char>(rest.front())))) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

std::size_t CountCharacters(std::string_view utf8) {
    return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), [](char c) { return !IsContinuation(c); }));
}

} // namespace tabvex::tool
