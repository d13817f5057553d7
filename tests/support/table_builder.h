// Builds table files for tests.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The text of a table file: a header, then what the verbs add, in order. Lines end in LF.
///
///     CTableBuilder().Section("X1").Item(1005, 4, 3, "C").Item(1010, 7, 8, "N,,,R 5.2").Write(path);
class CTableBuilder {
public:
    /// The version that the header says unless told otherwise.
    static constexpr int kVersionMajor = 3;
    static constexpr int kVersionMinor = 2;

    /// The header says VERSION=3.2, DELIMITER=| and NEWLINE=^.
    CTableBuilder();

    /// Sets a header key; an empty value leaves the key out.
    CTableBuilder& Header(std::string_view key, std::string_view value);
    /// Begins the section [DATA_`type`].
    CTableBuilder& Section(std::string_view type);
    /// Adds an item to the section; `position` is 1-based, the delimiter is "|" whatever the header says.
    CTableBuilder& Item(int number, int length, int position, std::string_view descriptor);
    /// Adds a line as it stands.
    CTableBuilder& Line(std::string_view text);

    std::string Text() const;
    /// Writes the file; its path.
    std::string Write(const std::string& path) const;

private:
    std::vector<std::pair<std::string, std::string>> m_Header;
    std::string m_strSections;
};
