// Numbers of a five-character field under every set of modifiers, written and read back by item number. What is
// expected is worked out from texts, one step after the other, and shares nothing with the library.
#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/item_test.h"

namespace {

constexpr int kDoesNotFit = -65;
constexpr int kNotANumber = -66;
constexpr int kBlankField = -101;

constexpr int kFirstItem = 1000;
constexpr int kPlace = 20;
constexpr std::size_t kWidth = 5;
constexpr int kLargest = 99999;
constexpr int kStep = 211; // a prime, so that every last digit and every number of digits comes up
constexpr char kNoFill = 0;

struct CLayoutCase {
    std::string Modifiers;
    int Decimals;
    char Fill;

    bool Has(char modifier) const { return Modifiers.find(modifier) != std::string::npos; }
    bool HasSign() const { return Has('S') || Has('E') || Has('B'); }
    std::string Descriptor() const {
        const std::string fill = Fill == kNoFill ? "" : std::string("\"") + Fill + '"';
        return "N,," + fill + "," + Modifiers + " " + std::to_string(static_cast<int>(kWidth) - Decimals) + "." +
               std::to_string(Decimals);
    }
};

/// Every set of modifiers but the empty one, with the fills and decimals that make a difference.
std::vector<CLayoutCase> EveryLayout() {
    std::vector<CLayoutCase> layouts;
    for (int set = 1; set < 3 * 3 * 2 * 2; ++set) {
        const char* const alignments[] = {"", "R", "L"};
        const char* const signPlaces[] = {"", "E", "B"};
        const std::string modifiers = std::string(set % 2 != 0 ? "P" : "") + (set / 2 % 2 != 0 ? "S" : "") +
                                      signPlaces[set / 4 % 3] + alignments[set / 12];
        for (const int decimals : {0, 1, 2}) {
            layouts.push_back({modifiers, decimals, kNoFill});
            layouts.push_back({modifiers, decimals, '0'});
        }
        layouts.push_back({modifiers, 0, '*'});
    }
    return layouts;
}

// --- The field ------------------------------------------------------------------------------------------------------

/// Removes the zeros at the end of the fraction and gives it as many as the item has decimals.
std::string WithDecimals(std::string number, std::size_t decimals) {
    if (number.find('.') == std::string::npos) {
        number += '.';
    }
    while (number.back() == '0') {
        number.pop_back();
    }
    while (number.size() - number.find('.') - 1 < decimals) {
        number += '0';
    }
    if (number.back() == '.') {
        number.pop_back();
    }
    return number;
}

void Overlay(std::string& field, std::size_t at, const std::string& text) {
    field.replace(at, text.size(), text);
}

/// Puts the text to the right or to the left between two places, or nowhere.
void Align(const CLayoutCase& layout, std::string& field, std::size_t begin, std::size_t end, const std::string& text) {
    if (layout.Has('R')) {
        Overlay(field, end - text.size(), text);
    } else if (layout.Has('L')) {
        Overlay(field, begin, text);
    }
}

/// The field of a number that is written with a point or without one; nothing when it does not fit.
std::optional<std::string> ExpectedField(const CLayoutCase& layout, std::string number) {
    std::string field(kWidth, layout.Fill == kNoFill ? ' ' : layout.Fill);
    const bool isNegative = number.front() == '-';
    if (isNegative) {
        number.erase(0, 1);
    }
    const auto decimals = static_cast<std::size_t>(layout.Decimals);
    number = WithDecimals(number, decimals);
    const std::size_t point = std::min(number.find('.'), number.size());
    const std::size_t fraction = point == number.size() ? 0 : number.size() - point - 1;
    if (point > kWidth - decimals || fraction > decimals || (isNegative && number.size() == kWidth)) {
        return std::nullopt;
    }
    if (layout.Has('P') && point < number.size()) {
        number.erase(point, 1);
    }
    if (layout.HasSign() && number.size() >= kWidth) {
        return std::nullopt;
    }
    const std::string sign = isNegative ? "-" : "+";
    if (!layout.Has('E') && !layout.Has('B') && (isNegative || layout.Has('S'))) {
        number.insert(0, sign);
    }
    if (number.size() > kWidth) {
        return std::nullopt;
    }
    const std::size_t begin = layout.Has('B') ? 1 : 0;
    const std::size_t end = layout.Has('E') ? kWidth - 1 : kWidth;
    if (layout.Has('E') || layout.Has('B')) {
        Overlay(field, layout.Has('B') ? 0 : kWidth - 1, sign);
    }
    Align(layout, field, begin, end, number);
    return field;
}

// --- The number that it reads as ------------------------------------------------------------------------------------

struct CReading {
    int Result;
    double Value;

    bool operator==(const CReading& other) const { return Result == other.Result && Value == other.Value; }
};

std::string Trimmed(const std::string& text) {
    const std::size_t begin = text.find_first_not_of(' ');
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

/// Replaces a sign by a blank; -1 for a minus.
int TakeSign(char& character) {
    const int sign = character == '-' ? -1 : 1;
    if (character == '-' || character == '+') {
        character = ' ';
    }
    return sign;
}

/// The field without blanks at its ends and, where the item has a place for it, without its sign.
std::string TakeSigns(const CLayoutCase& layout, const std::string& field, int& sign) {
    std::string text = Trimmed(field);
    if (!text.empty() && layout.Has('E')) {
        sign = TakeSign(text.back());
    }
    if (!text.empty() && layout.Has('B')) {
        sign = std::min(sign, TakeSign(text.front()));
    }
    return text;
}

CReading ReadAsInt(const CLayoutCase& layout, const std::string& field) {
    int sign = 1;
    const std::string text = TakeSigns(layout, field, sign); // a sign at the end stays as a blank
    if (Trimmed(text).empty()) {
        return {kBlankField, 0.0};
    }
    char* end = nullptr;
    const long value = std::strtol(text.c_str(), &end, 10);
    return {*end == '\0' ? 0 : kNotANumber, static_cast<double>(sign * value)};
}

CReading ReadAsFloat(const CLayoutCase& layout, const std::string& field) {
    int sign = 1;
    std::string text = Trimmed(TakeSigns(layout, field, sign));
    if (text.empty()) {
        return {kBlankField, 0.0};
    }
    const std::size_t point = text.find('.');
    if (point != std::string::npos) {
        text.replace(point, 1, std::localeconv()->decimal_point);
    }
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    if (*end != '\0') {
        return {kNotANumber, value};
    }
    double divisor = 1.0;
    for (int i = 0; layout.Has('P') && i < layout.Decimals; ++i) {
        divisor *= 10.0;
    }
    return {0, sign * value / divisor};
}

// --- What gets lost -------------------------------------------------------------------------------------------------

/// True when digits, point and sign leave no place to the fill.
bool IsFull(CLayoutCase layout, const std::string& number) {
    layout.Fill = '*';
    return ExpectedField(layout, number)->find('*') == std::string::npos;
}

/// How a layout loses a number that it takes; nullptr when it does not.
const char* HowItIsLost(const CLayoutCase& layout, int units, const std::string& number) {
    const bool hasSignPlace = layout.Has('E') || layout.Has('B');
    if (layout.Decimals == 0 && layout.Has('E')) {
        return "an integer with its sign at the end reads as no number";
    }
    if (!layout.Has('R') && !layout.Has('L')) {
        return units == 0 && layout.Fill == '0' ? nullptr : "without alignment no digits are placed";
    }
    if (layout.Fill == kNoFill || IsFull(layout, number)) {
        return nullptr;
    }
    if (layout.Fill == '*') {
        return "a fill that is no digit makes the field no number";
    }
    if (layout.Has('R')) {
        return !hasSignPlace && (units < 0 || layout.Has('S')) ? "zeros stand before the sign" : nullptr;
    }
    const bool hasPoint = layout.Decimals > 0 && !layout.Has('P');
    return units != 0 && !hasPoint ? "zeros behind the digits are digits" : nullptr;
}

/// units / 10^decimals as people write it.
std::string Written(int units, std::size_t decimals) {
    std::string digits = std::to_string(std::abs(units));
    while (digits.size() <= decimals) {
        digits.insert(0, "0");
    }
    if (decimals > 0) {
        digits.insert(digits.size() - decimals, ".");
    }
    return (units < 0 ? "-" : "") + digits;
}

double PowerOfTen(std::size_t exponent) {
    return exponent == 0 ? 1.0 : 10.0 * PowerOfTen(exponent - 1);
}

std::vector<int> Numbers() {
    std::vector<int> numbers = {0,   1,    -1,  9,    -9,   10,    -10,  99,    -99,
                                100, -100, 999, -999, 1000, -1000, 9999, -9999, 10000};
    for (int units = -kLargest; units <= kLargest; units += kStep) {
        numbers.push_back(units);
    }
    return numbers;
}

template <typename RecordSet>
class EveryField : public CItemTest<RecordSet> {
protected:
    void SetUp() override {
        CTableBuilder table;
        table.Section("X1");
        int item = kFirstItem;
        for (const CLayoutCase& layout : m_Layouts) {
            table.Item(item++, static_cast<int>(kWidth), kPlace, layout.Descriptor());
        }
        this->Load(table);
        this->Read(CRecordBuilder().Add("X1"));
        ASSERT_EQ(this->m_Records.ExistRecord("X1")->GetLayout().size(), m_Layouts.size());
    }

    int Write(int item, std::string number) {
        const std::size_t point = number.find('.');
        if (point == std::string::npos) {
            return this->m_Records.WriteIntItem(item, number.c_str());
        }
        if (number.back() % 2 != 0) {
            number[point] = ',';
        }
        return this->m_Records.WriteFloatItem(item, number.c_str());
    }

    std::string FieldNow() const { return {this->m_Records.GetRecord(0)->GetLine(0) + kPlace - 1, kWidth}; }

    CReading ReadBack(int item, const CLayoutCase& layout) {
        CReading reading = {0, 0.0};
        if (layout.Decimals > 0) {
            reading.Result = this->m_Records.ReadFloatItem(item, reading.Value);
            return reading;
        }
        int value = 0;
        reading.Result = this->m_Records.ReadIntItem(item, value);
        reading.Value = value;
        return reading;
    }

    void Check(int item, const CLayoutCase& layout, int units, std::size_t decimals) {
        const std::string number = Written(units, decimals);
        const std::string before = FieldNow();
        const std::optional<std::string> field = ExpectedField(layout, number);
        ASSERT_EQ(Write(item, number), field.has_value() ? 0 : kDoesNotFit) << number;
        ASSERT_EQ(FieldNow(), field.value_or(before)) << number;
        if (!field.has_value()) {
            return;
        }
        const CReading reading = ReadBack(item, layout);
        const CReading expected = layout.Decimals > 0 ? ReadAsFloat(layout, *field) : ReadAsInt(layout, *field);
        ASSERT_EQ(reading.Result, expected.Result) << number << " as \"" << *field << '"';
        ASSERT_EQ(reading.Value, expected.Value) << number << " as \"" << *field << '"';
        const char* const lost = HowItIsLost(layout, units, number);
        const bool isKept = reading == CReading{0, units / PowerOfTen(decimals)};
        ASSERT_EQ(isKept, lost == nullptr) << number << " as \"" << *field << "\": " << (lost == nullptr ? "" : lost);
    }

    const std::vector<CLayoutCase> m_Layouts = EveryLayout();
};

TYPED_TEST_SUITE(EveryField, RecordSetClasses, CRecordSetClassName);

TYPED_TEST(EveryField, ANumberReadsBackUnlessItsLayoutLosesIt) {
    const std::vector<int> numbers = Numbers();
    int item = kFirstItem;
    for (const CLayoutCase& layout : this->m_Layouts) {
        SCOPED_TRACE(layout.Descriptor());
        for (const int units : numbers) {
            for (const std::size_t decimals : {0, 1, 2, 3}) {
                this->Check(item, layout, units, decimals);
                if (this->HasFatalFailure()) {
                    return;
                }
            }
        }
        ++item;
    }
}

} // namespace
