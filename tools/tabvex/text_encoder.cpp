#include "text_encoder.h"

#include "exit_status.h"
#include "tabvex/all_records.h"
#include "text_encoding.h"

namespace tabvex::tool {

namespace {

constexpr int kAnsiPage = 1252;
constexpr unsigned char kFirstUpper = 128;
constexpr int kLineSize = 129;
constexpr unsigned char kFirstPrinted = 0x20;
constexpr unsigned char kDelete = 0x7F;

// The characters above ASCII of the callers' code page, in that of a record file: the library converts them on their
// way into a scratch record.
std::string ToRecordPage(std::string upper, int codePage) {
    if (codePage == kAnsiPage) {
        return upper;
    }
    CAllRecordsEx records;
    upper.resize(kLineSize);
    if (records.SetCodePages(codePage, kAnsiPage) != TABVEX_OK ||
        records.SetCompleteRecord("T0", upper.data(), kLineSize) != TABVEX_OK) {
        throw CToolError("the library cannot convert to code page " + std::to_string(codePage));
    }
    return upper;
}

std::size_t LengthOfFirst(std::string_view utf8) {
    std::size_t length = 1;
    while (length < utf8.size() && (static_cast<unsigned char>(utf8[length]) & 0xC0) == 0x80) {
        ++length;
    }
    return length;
}

} // namespace

// A conversion that ends at another character is none: it was only the nearest one.
CTextEncoder::CTextEncoder(int codePage) {
    for (unsigned char byte = kFirstPrinted; byte < kDelete; ++byte) {
        m_Bytes.emplace(std::string(1, static_cast<char>(byte)), static_cast<char>(byte));
    }
    std::string upper;
    for (int byte = kFirstUpper; byte < 256; ++byte) {
        upper.push_back(static_cast<char>(byte));
    }
    const std::string converted = ToRecordPage(upper, codePage);
    const CTextDecoder ansi(kAnsiPage);
    const CTextDecoder record(codePage);
    for (std::size_t i = 0; i < upper.size(); ++i) {
        const std::string character = ansi.ToUtf8(upper.substr(i, 1));
        const std::string_view shown = std::string_view(converted).substr(i, 1);
        if (record.ToUtf8(shown) == character && record.ToShown(shown) == character) {
            m_Bytes.emplace(character, converted[i]);
        }
    }
}

std::string CTextEncoder::Encode(std::string_view utf8) const {
    if (!IsUtf8(utf8)) {
        throw CToolError("is not UTF-8", kFindings);
    }
    std::string text;
    while (!utf8.empty()) {
        const std::string character(utf8.substr(0, LengthOfFirst(utf8)));
        const auto byte = m_Bytes.find(character);
        if (byte == m_Bytes.end()) {
            throw CToolError("the code page has no \"" + EscapeControls(character) + "\"", kFindings);
        }
        text.push_back(byte->second);
        utf8.remove_prefix(character.size());
    }
    return text;
}

} // namespace tabvex::tool
