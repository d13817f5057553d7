#include "support/record_builder.h"

#include <stdexcept>

#include "support/temp_folder.h"

namespace {

constexpr int kFamilyOffset = 7;
constexpr int kX9NewMark = 122;
constexpr int kX2nMark = 127;

} // namespace

CRecordBuilder& CRecordBuilder::Add(std::string_view type, std::size_t length) {
    m_Lines.emplace_back(length, ' ');
    Put(0, type.substr(0, 2));
    if (type == "X2N") {
        return Put(kX2nMark, "1");
    }
    if (type == "X9_NEU") {
        return Put(kX9NewMark, "1");
    }
    return type.size() == 4 ? Put(kFamilyOffset, type.substr(2)) : *this;
}

CRecordBuilder& CRecordBuilder::Add(std::string_view type, std::string_view rest) {
    return Add(type).Put(2, rest);
}

CRecordBuilder& CRecordBuilder::Put(int offset, std::string_view text) {
    std::string& line = m_Lines.back();
    const auto begin = static_cast<std::size_t>(offset);
    if (begin + text.size() > line.size()) {
        throw std::out_of_range("text leaves the line: " + std::string(text));
    }
    line.replace(begin, text.size(), text);
    return *this;
}

std::string CRecordBuilder::Text(bool crlf) const {
    std::string text;
    for (const std::string& line : m_Lines) {
        text.append(line).append(crlf ? "\r\n" : "");
    }
    return text;
}

std::string CRecordBuilder::Save(const std::string& path, bool crlf) const {
    WriteFile(path, Text(crlf));
    return path;
}

std::string Padded(std::string_view text, std::size_t length) {
    std::string padded(text);
    padded.resize(length, ' ');
    return padded;
}
