#include "random_values.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "field_text.h"

namespace tabvex::generate {
namespace {

constexpr std::string_view kWords[] = {"door",   "wing",   "bumper", "front", "rear", "left",   "right",   "panel",
                                       "lamp",   "paint",  "primer", "seal",  "bolt", "mirror", "screen",  "check",
                                       "labour", "remove", "fit",    "test",  "part", "hinge",  "bracket", "cover"};
constexpr std::string_view kCapitals = "ABCDEFGHJKLMNPRSTUVWXYZ0123456789";
constexpr int kMaxDigits = 15;
constexpr double kRoundingSlack = 1e-6; // 8.1 times ten need not be exactly 81
constexpr int kDaysInMonth = 28;        // every month has them, so no date needs a calendar
constexpr int kMonths = 12;
constexpr Date kFirstDate = {1990, 1, 1};
constexpr Date kLastDate = {2039, 12, kDaysInMonth};

std::int64_t DayNumber(const Date& date) {
    return (static_cast<std::int64_t>(date.year) * kMonths + date.month - 1) * kDaysInMonth + date.day - 1;
}

Date DateOf(std::int64_t number) {
    const std::int64_t months = number / kDaysInMonth;
    return {static_cast<int>(months / kMonths), static_cast<int>(months % kMonths) + 1,
            static_cast<int>(number % kDaysInMonth) + 1};
}

std::int64_t LowestDay(const Bound& bound) {
    if (bound.IsOpen()) {
        return DayNumber(kFirstDate);
    }
    const Date date = *ParseDate(bound.text);
    return std::max(DayNumber(date) + (bound.included ? 0 : 1), DayNumber(kFirstDate));
}

std::int64_t HighestDay(const Bound& bound) {
    if (bound.IsOpen()) {
        return DayNumber(kLastDate);
    }
    Date date = *ParseDate(bound.text);
    const bool beyond = date.day > kDaysInMonth;
    date.day = std::min(date.day, kDaysInMonth);
    return std::min(DayNumber(date) - (bound.included || beyond ? 0 : 1), DayNumber(kLastDate));
}

std::int64_t LowestUnits(const Item& item, const Bound& bound, std::int64_t open) {
    if (bound.IsOpen()) {
        return open;
    }
    const double exact = *ParseNumber(bound.text) * static_cast<double>(UnitsPerOne(item));
    const std::int64_t units = std::llround(std::ceil(exact - kRoundingSlack));
    return units + (!bound.included && std::abs(static_cast<double>(units) - exact) < kRoundingSlack ? 1 : 0);
}

std::int64_t HighestUnits(const Item& item, const Bound& bound, std::int64_t open) {
    if (bound.IsOpen()) {
        return open;
    }
    const double exact = *ParseNumber(bound.text) * static_cast<double>(UnitsPerOne(item));
    const std::int64_t units = std::llround(std::floor(exact + kRoundingSlack));
    return units - (!bound.included && std::abs(static_cast<double>(units) - exact) < kRoundingSlack ? 1 : 0);
}

} // namespace

std::int64_t CRandom::Between(std::int64_t lowest, std::int64_t highest) {
    return lowest + static_cast<std::int64_t>(Below(static_cast<std::uint64_t>(highest - lowest) + 1));
}

CValueMaker::CValueMaker(const Item& item) : m_pItem(&item) {
    if (item.format.format == 'N') {
        ListNumbers();
    } else if (item.format.format == 'D') {
        ListDates();
    } else {
        m_Texts.assign(item.format.values.begin(), item.format.values.end());
    }
}

// Numbers that need no sign unless the item has a place for one or its ranges are below zero.
CValueMaker::Span CValueMaker::LimitsOfDigits() const {
    const int digits = std::clamp(MaxIntDigits(*m_pItem) + m_pItem->format.decimals, 1, kMaxDigits);
    std::int64_t limit = 1;
    for (int i = 0; i < digits; ++i) {
        limit *= 10;
    }
    return {m_pItem->format.IsSigned() ? 1 - limit : 0, limit - 1};
}

void CValueMaker::ListNumbers() {
    const Span digits = LimitsOfDigits();
    for (const Range& range : m_pItem->format.ranges) {
        AddSpan({std::max(digits.lowest, LowestUnits(*m_pItem, range.lower, digits.lowest)),
                 std::min(digits.highest, HighestUnits(*m_pItem, range.upper, digits.highest))});
    }
    if (m_pItem->format.ranges.empty()) {
        AddSpan(digits);
    }
    for (const std::string& value : m_pItem->format.values) {
        AddListed(std::llround(*ParseNumber(value) * static_cast<double>(UnitsPerOne(*m_pItem))));
    }
    CheckNotEmpty();
}

void CValueMaker::ListDates() {
    for (const Range& range : m_pItem->format.ranges) {
        AddSpan({LowestDay(range.lower), HighestDay(range.upper)});
    }
    if (m_pItem->format.ranges.empty()) {
        AddSpan({DayNumber(kFirstDate), DayNumber(kLastDate)});
    }
    for (const std::string& value : m_pItem->format.values) {
        const Date date = *ParseDate(value);
        if (date.day <= kDaysInMonth) {
            AddListed(DayNumber(date));
        }
    }
    CheckNotEmpty();
}

void CValueMaker::AddSpan(const Span& span) {
    if (span.lowest <= span.highest) {
        m_Spans.push_back(span);
    }
}

// A listed value outside the ranges is none that the item allows.
void CValueMaker::AddListed(std::int64_t value) {
    if (std::any_of(m_Spans.begin(), m_Spans.end(),
                    [&](const Span& span) { return value >= span.lowest && value <= span.highest; })) {
        m_Listed.push_back(value);
    }
}

void CValueMaker::CheckNotEmpty() const {
    if (m_Spans.empty() || (m_Listed.empty() && !m_pItem->format.values.empty())) {
        throw std::invalid_argument("item " + std::to_string(m_pItem->number) + " allows no value");
    }
}

void CValueMaker::Put(CRandom& random, char* field) const {
    if (m_Spans.empty()) {
        return PutText(random, field);
    }
    const Span& span = m_Spans[random.Below(m_Spans.size())];
    const std::int64_t value =
        m_Listed.empty() ? random.Between(span.lowest, span.highest) : m_Listed[random.Below(m_Listed.size())];
    if (m_pItem->format.format == 'N') {
        return PlaceNumber(*m_pItem, value, field);
    }
    PlaceDate(*m_pItem, DateOf(value), field);
}

void CValueMaker::PutText(CRandom& random, char* field) const {
    if (!m_Texts.empty()) {
        return PlaceText(*m_pItem, m_Texts[random.Below(m_Texts.size())], field);
    }
    PlaceText(*m_pItem, RandomText(random, m_pItem->Width(), m_pItem->format.format == 'U'), field);
}

std::string RandomText(CRandom& random, std::size_t longest, bool capitals) {
    std::string text;
    if (capitals) {
        text.resize(1 + random.Below(std::min<std::size_t>(longest, 17)));
        std::generate(text.begin(), text.end(), [&] { return kCapitals[random.Below(kCapitals.size())]; });
        return text;
    }
    const std::size_t wanted = 1 + random.Below(longest);
    while (text.size() < wanted) {
        text += kWords[random.Below(std::size(kWords))];
        text += ' ';
    }
    text.resize(std::min(text.find_last_not_of(' ') + 1, longest));
    return text;
}

} // namespace tabvex::generate
