#include "layout/table_header.h"

#include <algorithm>
#include <array>

#include "layout/ascii.h"
#include "layout/calendar.h"
#include "layout/number_text.h"

namespace tabvex {

namespace {

std::string WithoutControlsAndBlanks(std::string_view text) {
    std::string kept(text);
    kept.erase(std::remove_if(kept.begin(), kept.end(), [](char c) { return static_cast<unsigned char>(c) <= ' '; }),
               kept.end());
    return kept;
}

int VersionPart(std::string_view text) {
    int number = 0;
    return ParseInteger(text, number) && number >= 0 ? number : 0;
}

// Without a "." the whole value is the major number.
void SetVersion(CTableHeader& header, std::string_view value) {
    const std::size_t point = value.find('.');
    header.VersionMajor = VersionPart(value.substr(0, point));
    header.VersionMinor = point == std::string_view::npos ? 0 : VersionPart(value.substr(point + 1));
}

// Year, any separator, month, any separator, day; all three are 0 when one of them is wrong.
void SetDate(CTableHeader& header, std::string_view value) {
    const std::string text = WithoutControlsAndBlanks(value);
    const std::string_view date = text;
    int year = 0;
    int month = 0;
    int day = 0;
    const bool valid = date.size() >= 10 && ParseDigits(date.substr(0, 4), year) &&
                       ParseDigits(date.substr(5, 2), month) && ParseDigits(date.substr(8, 2), day) &&
                       IsCalendarDate(year, month, day);
    header.DateYear = valid ? year : 0;
    header.DateMonth = valid ? month : 0;
    header.DateDay = valid ? day : 0;
}

void SetDelimiter(CTableHeader& header, std::string_view value) {
    const std::string name = UpperCase(value);
    if (name == "TAB") {
        header.Delimiter = '\t';
    } else if (name == "SPC") {
        header.Delimiter = ' ';
    } else {
        header.Delimiter = name.front();
    }
}

struct CHeaderKey {
    std::string_view Key;
    void (*Set)(CTableHeader& header, std::string_view value); // the value is never empty
};

constexpr std::array<CHeaderKey, 9> kHeaderKeys = {{
    {"ID", [](CTableHeader& header, std::string_view value) { header.Id = value; }},
    {"AUTHOR", [](CTableHeader& header, std::string_view value) { header.Author = value; }},
    {"COUNTRY", [](CTableHeader& header, std::string_view value) { header.Country = value.front(); }},
    {"LANGUAGE", [](CTableHeader& header, std::string_view value) { header.Language = value.front(); }},
    {"COMMENT", [](CTableHeader& header, std::string_view value) { header.Comment = value.front(); }},
    {"NEWLINE", [](CTableHeader& header, std::string_view value) { header.Newline = value.front(); }},
    {"DATE", SetDate},
    {"VERSION", SetVersion},
    {"DELIMITER", SetDelimiter},
}};

} // namespace

void CTableHeader::ParseLine(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || equals == 0) {
        return;
    }
    const std::string key = UpperCase(WithoutControlsAndBlanks(line.substr(0, equals)));
    const std::string_view value = TrimSpace(line.substr(equals + 1));
    const auto* const row =
        std::find_if(kHeaderKeys.begin(), kHeaderKeys.end(), [&key](const CHeaderKey& k) { return k.Key == key; });
    if (!value.empty() && row != kHeaderKeys.end()) {
        row->Set(*this, value);
    }
}

} // namespace tabvex
