#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "table_text.h"

namespace tabvex::generate {

// Random numbers that are the same on every platform for the same seed.
class CRandom {
public:
    explicit CRandom(std::uint64_t seed) : m_Engine(seed) {}

    // A number from 0 to limit - 1; limit is at least 1.
    template <typename Number>
    Number Below(Number limit) {
        return static_cast<Number>(m_Engine() % static_cast<std::uint64_t>(limit));
    }
    std::int64_t Between(std::int64_t lowest, std::int64_t highest);
    bool InPercent(unsigned percent) { return Below(100U) < percent; }

private:
    std::mt19937_64 m_Engine;
};

// Writes random values that suit one item. What its descriptor allows is worked out once.
class CValueMaker {
public:
    // Throws std::invalid_argument when the descriptor allows no value.
    explicit CValueMaker(const Item& item);

    // Writes exactly the item's length.
    void Put(CRandom& random, char* field) const;

    const Item& GetItem() const { return *m_pItem; }

private:
    struct Span {
        std::int64_t lowest;
        std::int64_t highest;
    };

    void ListNumbers();
    void ListDates();
    void AddSpan(const Span& span);
    void AddListed(std::int64_t value);
    void CheckNotEmpty() const;
    void PutText(CRandom& random, char* field) const;
    Span LimitsOfDigits() const;

    const Item* m_pItem;
    std::vector<Span> m_Spans;             // of numbers or dates
    std::vector<std::int64_t> m_Listed;    // numbers or dates of a value list
    std::vector<std::string_view> m_Texts; // texts of a value list
};

// A text of ordinary words, in capitals where wanted, at most that long.
std::string RandomText(CRandom& random, std::size_t longest, bool capitals);

} // namespace tabvex::generate
