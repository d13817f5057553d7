#include "core/collating_table.h"

#include <algorithm>

#include "layout/number_text.h"
#include "tabvex/result_codes.h"

namespace tabvex {
namespace {

constexpr std::string_view kDefaultSequence = "+$*0123456789?>ABCDEFGHIJKLMNOPQRSTUVWXYZ ";
constexpr std::size_t kLongestSequence = 128;
constexpr int kUnlistedRank = 100;

enum EComparison { kBehind = 0, kBefore = 1, kEqual = 2, kLengthsDiffer = 3 };

constexpr int kFirstColumn = 1;
constexpr int kLastColumn = 128;

/// A line shorter than this has no sequence number and sorts before those that have one.
constexpr std::size_t kShortestNumberedLine = 7;
constexpr int kNoSequenceNumber = -1;

std::string_view Cut(std::string_view line, std::size_t at, std::size_t width) {
    return at < line.size() ? line.substr(at, width) : std::string_view();
}

/// A key ends at its first NUL, like every text cut from a line.
std::string_view CutKey(std::string_view line, int start, int width) {
    const std::string_view key = Cut(line, static_cast<std::size_t>(start - 1), static_cast<std::size_t>(width));
    return key.substr(0, key.find('\0'));
}

int SequenceNumber(std::string_view line) {
    if (line.size() < kShortestNumberedLine) {
        return kNoSequenceNumber;
    }
    const std::string_view head = Cut(line, 8, 3);
    const std::string_view tail = Cut(line, 14, 2);
    char digits[5] = {};
    auto* const end = std::copy(tail.begin(), tail.end(), std::copy(head.begin(), head.end(), std::begin(digits)));
    return LeadingInteger({digits, static_cast<std::size_t>(end - digits)});
}

bool IsColumn(int number) {
    return number >= kFirstColumn && number <= kLastColumn;
}

} // namespace

CCollatingTable::CCollatingTable() : m_strSequence(kDefaultSequence) {}

int CCollatingTable::SetSequence(std::string_view sequence) {
    if (sequence.empty() || sequence.size() > kLongestSequence) {
        return TABVEX_BAD_ARGUMENT;
    }
    m_strSequence = sequence;
    return TABVEX_OK;
}

int CCollatingTable::Rank(char character) const {
    const std::size_t index = m_strSequence.find(character);
    return index == std::string::npos ? kUnlistedRank : static_cast<int>(index);
}

int CCollatingTable::Compare(std::string_view a, std::string_view b) const {
    if (a.size() != b.size()) {
        return kLengthsDiffer;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        const int rankA = Rank(a[i]);
        const int rankB = Rank(b[i]);
        if (rankA != rankB) {
            return rankA < rankB ? kBefore : kBehind;
        }
    }
    return kEqual;
}

void CCollatingTable::OrderPair(std::string& a, std::string& b, int start, int width) const {
    if (!IsColumn(start) || !IsColumn(width)) {
        return;
    }
    const int order = Compare(CutKey(b, start, width), CutKey(a, start, width));
    if (order == kBefore || (order == kEqual && SequenceNumber(a) > SequenceNumber(b))) {
        std::swap(a, b);
    }
}

} // namespace tabvex
