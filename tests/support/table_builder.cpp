#include "support/table_builder.h"

#include <algorithm>

#include "support/temp_folder.h"

CTableBuilder::CTableBuilder()
    : m_Header{{"VERSION", std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor)},
               {"DELIMITER", "|"},
               {"NEWLINE", "^"}} {}

CTableBuilder& CTableBuilder::Header(std::string_view key, std::string_view value) {
    const auto known =
        std::find_if(m_Header.begin(), m_Header.end(), [key](const auto& line) { return line.first == key; });
    if (known == m_Header.end()) {
        m_Header.emplace_back(key, value);
    } else {
        known->second = value;
    }
    return *this;
}

CTableBuilder& CTableBuilder::Section(std::string_view type) {
    return Line("[DATA_" + std::string(type) + "]");
}

CTableBuilder& CTableBuilder::Item(int number, int length, int position, std::string_view descriptor) {
    return Line(std::to_string(number) + "|" + std::to_string(length) + "|" + std::to_string(position) + "|" +
                std::string(descriptor));
}

CTableBuilder& CTableBuilder::Line(std::string_view text) {
    m_strSections.append(text).append("\n");
    return *this;
}

std::string CTableBuilder::Text() const {
    std::string text = "[HEADER]\n";
    for (const auto& [key, value] : m_Header) {
        if (!value.empty()) {
            text.append(key).append("=").append(value).append("\n");
        }
    }
    return text + m_strSections;
}

std::string CTableBuilder::Write(const std::string& path) const {
    WriteFile(path, Text());
    return path;
}
