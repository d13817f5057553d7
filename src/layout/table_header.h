// The parsed header of a table file.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tabvex {

struct CTableHeader {
    std::optional<std::string> Id;
    int VersionMajor = 0;
    int VersionMinor = 0;
    int DateYear = 0;
    int DateMonth = 0;
    int DateDay = 0;
    std::optional<std::string> Author;
    char Country = 0; ///< this and the next four: 0 when not set
    char Language = 0;
    char Delimiter = 0;
    char Comment = 0;
    char Newline = 0;

    /// Takes one line "key = value" over; lines of any other form and unknown keys are ignored.
    void ParseLine(std::string_view line);
};

} // namespace tabvex
