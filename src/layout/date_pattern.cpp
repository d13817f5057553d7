#include "layout/date_pattern.h"

#include "layout/date_format.h"

namespace tabvex {

namespace {

constexpr std::string_view kDay = "DD";
constexpr std::string_view kMonth = "MM";
constexpr std::string_view kYear = "YYYY";
constexpr std::string_view kShortYear = "YY";
constexpr std::string_view kLetters = "DMY";
constexpr int kMostParts = 3;

bool BeginsWith(std::string_view text, std::string_view part) {
    return text.substr(0, part.size()) == part;
}

std::string_view LeadingPart(std::string_view text) {
    for (const std::string_view part : {kYear, kShortYear, kMonth, kDay}) {
        if (BeginsWith(text, part)) {
            return part;
        }
    }
    return {};
}

bool BeginsWithSeparator(std::string_view text) {
    return !text.empty() && kLetters.find(text.front()) == std::string_view::npos;
}

void SkipSeparatorBefore(char letter, std::string_view& text) {
    if (!text.empty() && text.front() != letter) {
        text.remove_prefix(1);
    }
}

// `text` begins with the day.
std::string_view DayFirstPattern(std::string_view text) {
    std::string_view rest = text.substr(kDay.size());
    SkipSeparatorBefore('M', rest);
    if (!BeginsWith(rest, kMonth)) {
        return {};
    }
    rest.remove_prefix(kMonth.size());
    SkipSeparatorBefore('Y', rest);
    if (rest == kShortYear) {
        return text;
    }
    if (!BeginsWith(rest, kYear)) {
        return {};
    }
    return text.substr(0, text.size() - rest.size() + kYear.size());
}

// Goes on behind the first part of `text`; `pattern` is what counts as one when no known date format follows.
std::string_view LongestKnownPattern(std::string_view text, std::string_view first, std::string_view pattern) {
    const bool yearFirst = first.front() == 'Y';
    std::size_t end = first.size();
    for (int parts = 1; parts < kMostParts; ++parts) {
        // Kept on purpose: behind a year that comes first no separator is taken.
        const bool mayHaveSeparator = parts > 1 || !yearFirst;
        if (mayHaveSeparator && BeginsWithSeparator(text.substr(end))) {
            ++end;
        }
        const std::string_view part = LeadingPart(text.substr(end));
        end += part.size();
        if (part.empty() || (part == kShortYear && end != text.size())) {
            break;
        }
        if (AnalyseDateFormat(text.substr(0, end)).IsKnown()) {
            pattern = text.substr(0, end);
        }
    }
    return pattern;
}

std::string_view YearFirstPattern(std::string_view text, std::string_view year) {
    const std::string_view rest = text.substr(year.size());
    const bool mayStandAlone = year == kYear || rest.empty() || BeginsWithSeparator(rest);
    return LongestKnownPattern(text, year, mayStandAlone ? year : std::string_view());
}

} // namespace

std::string_view LeadingDatePattern(std::string_view text) {
    const std::string_view first = LeadingPart(text);
    if (first == kDay) {
        return DayFirstPattern(text);
    }
    if (first == kMonth) {
        return LongestKnownPattern(text, first, {});
    }
    if (first.empty()) {
        return {};
    }
    return YearFirstPattern(text, first);
}

} // namespace tabvex
