// What holds for every layout and every value: a write changes its item's characters and nothing else, a failed write
// and a read change nothing at all.
#include <algorithm>
#include <functional>
#include <iterator>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "support/guard_buffer.h"
#include "support/item_test.h"

namespace {

constexpr unsigned kFirstSeed = 20150228;
constexpr int kLayouts = 40;
constexpr int kCallsPerLayout = 250;
constexpr int kItemsOfAType = 15;

/// What chance decides, the same on every machine: distributions of the library differ between them.
class CChance {
public:
    explicit CChance(unsigned seed) : m_Engine(seed) {}

    /// `lowest` to `highest`, both included.
    int Between(int lowest, int highest) {
        return lowest + static_cast<int>(m_Engine() % static_cast<unsigned>(highest - lowest + 1));
    }
    bool OneIn(int count) { return Between(1, count) == 1; }
    template <typename List>
    const auto& Of(const List& list) {
        return list[static_cast<std::size_t>(Between(0, static_cast<int>(std::size(list)) - 1))];
    }
    std::string Bytes(int length, int lowest = 1, int highest = 255) {
        std::string bytes;
        for (int i = 0; i < length; ++i) {
            bytes += static_cast<char>(Between(lowest, highest));
        }
        return bytes;
    }

private:
    std::mt19937 m_Engine;
};

// --- Layouts --------------------------------------------------------------------------------------------------------

std::string Modifiers(CChance& chance) {
    static const char* const kAlignments[] = {"", "R", "L"};
    static const char* const kSigns[] = {"", "E", "B", "S", "SE", "SB"};
    static const char* const kPoints[] = {"", "P"};
    return std::string(chance.Of(kPoints)) + chance.Of(kSigns) + chance.Of(kAlignments);
}

std::string NumberDescriptor(CChance& chance, int length) {
    static const char* const kFills[] = {"", "\"0\"", "\"*\"", "\" \""};
    static const char* const kChecks[] = {"", "", "", ",<-100;100>", ",(0;50>;<60;)", ",,(1;12;2.5;-7)"};
    const std::string modifiers = Modifiers(chance);
    if (length < 1 || modifiers.empty()) {
        return "N";
    }
    const int decimals = chance.Between(0, std::min(3, length));
    const int integers = chance.Between(0, std::min(99, length - decimals));
    return std::string("N,,") + chance.Of(kFills) + "," + modifiers + " " + std::to_string(integers) + "." +
           std::to_string(decimals) + chance.Of(kChecks);
}

std::string Descriptor(CChance& chance, int length) {
    static const char* const kTexts[] = {"C",       "U",         "C,,,R,,", "C,,,S,,",
                                         "U,,,L,,", "C,\"abc\"", "C",       R"(C,,,,,("A";"BB";"";" "))"};
    static const char* const kPatterns[] = {"DD.MM.YYYY", "YYYYMMDD",   "MM/YY", "YYMM",
                                            "DDMMYY",     "YYYY.MM.DD", "MMrYY", "MMYYYYDD"};
    switch (chance.Between(0, 3)) {
    case 0:
        return std::string("D,,,") + (chance.OneIn(3) ? "R" : "") + ",,," + chance.Of(kPatterns);
    case 1:
        return chance.Of(kTexts);
    default:
        return NumberDescriptor(chance, length);
    }
}

int Length(CChance& chance) {
    return chance.OneIn(10) ? chance.Between(100, 200) : chance.Between(0, 20);
}

/// List types with the first item number of each.
const std::pair<const char*, int> kTypes[] = {{"X1", 1000}, {"W1", 1500}, {"XT15", 15200}};

CTableBuilder Table(CChance& chance) {
    CTableBuilder table;
    for (const auto& [type, first] : kTypes) {
        table.Section(type);
        for (int i = 0; i < kItemsOfAType; ++i) {
            const int length = Length(chance);
            table.Item(first + i, length, chance.Between(-5, 135), Descriptor(chance, length));
        }
    }
    table.Section("G1").Item(12000, 2, 1, "C").Item(12015, 4, 8, "C").Item(12020, 6, 12, "C");
    return table;
}

// --- Values ---------------------------------------------------------------------------------------------------------

std::string NumberText(CChance& chance) {
    static const char* const kOdd[] = {"0",   "-0",    "1e3",   "1.5e2", "-.5", "5.",   ",5", "+7",
                                       " 12", "12 ",   "1,2.3", "0x1",   "inf", "nan",  "-",  "",
                                       "2.5", "00012", "1e400", "12a",   "-7",  "1e-9", "12", "2147483648"};
    if (chance.OneIn(3)) {
        return chance.Of(kOdd);
    }
    std::string number = std::to_string(chance.Between(-99999, 99999));
    if (chance.OneIn(2)) {
        number.insert(number.size() - static_cast<std::size_t>(chance.Between(0, 1)), chance.OneIn(2) ? "." : ",");
    }
    return number;
}

std::string DateText(CChance& chance) {
    std::string digits = std::to_string(chance.Between(1800, 2100));
    for (const int highest : {13, 32}) {
        const std::string part = std::to_string(100 + chance.Between(0, highest));
        digits += part.substr(1);
    }
    return digits;
}

std::string Text(CChance& chance) {
    switch (chance.Between(0, 5)) {
    case 0:
        return chance.Bytes(chance.Between(0, 20));
    case 1:
        return chance.Bytes(chance.Between(0, 6), 'A', 'B');
    case 2:
        return chance.Bytes(chance.Between(0, 12), ' ', ' ');
    case 3:
        return DateText(chance);
    case 4:
        return chance.Bytes(chance.Between(100, 200), ' ', '~');
    default:
        return NumberText(chance);
    }
}

double Number(CChance& chance) {
    static const double kOdd[] = {0.0, -0.0, 1e6, 1e-6, 1e300, -1e300, 2.125, -2.125, 99999.995};
    return chance.OneIn(3) ? chance.Of(kOdd) : chance.Between(-1000000, 1000000) / 128.0;
}

// --- Operations -----------------------------------------------------------------------------------------------------

template <typename RecordSet>
struct CRandomOperation {
    const char* Name;
    int (*Call)(RecordSet& records, int item, int length, CChance& chance);
};

int WithBuffer(CChance& chance, const std::function<int(char* buffer, int size)>& read) {
    CGuardBuffer buffer(static_cast<std::size_t>(chance.Between(0, 150)));
    return read(buffer.Data(), buffer.Size());
}

template <typename RecordSet>
class ItemProperty : public CItemTest<RecordSet> {
protected:
    using Random = CRandomOperation<RecordSet>;

    static std::vector<Random> Writes() {
        using R = RecordSet;
        return {
            {"WriteItem", [](R& r, int item, int, CChance& c) { return r.WriteItem(item, Text(c).c_str()); }},
            {"WriteCharItem", [](R& r, int item, int, CChance& c) { return r.WriteCharItem(item, Text(c).c_str()); }},
            {"HardWriteItem", [](R& r, int item, int, CChance& c) { return r.HardWriteItem(item, Text(c).c_str()); }},
            {"HardWriteItem of the length",
             [](R& r, int item, int length, CChance& c) { return r.HardWriteItem(item, c.Bytes(length).c_str()); }},
            {"HardWriteDynItem",
             [](R& r, int item, int, CChance& c) { return r.HardWriteDynItem(item, Text(c).c_str()); }},
            {"ClearItem", [](R& r, int item, int, CChance&) { return r.ClearItem(item); }},
            {"WriteIntItem text",
             [](R& r, int item, int, CChance& c) { return r.WriteIntItem(item, NumberText(c).c_str()); }},
            {"WriteIntItem",
             [](R& r, int item, int, CChance& c) { return r.WriteIntItem(item, c.Between(-200, 99999)); }},
            {"WriteFloatItem text",
             [](R& r, int item, int, CChance& c) { return r.WriteFloatItem(item, NumberText(c).c_str()); }},
            {"WriteFloatItem", [](R& r, int item, int, CChance& c) { return r.WriteFloatItem(item, Number(c)); }},
            {"WriteRoundFloatItem",
             [](R& r, int item, int, CChance& c) { return r.WriteRoundFloatItem(item, Number(c)); }},
            {"WriteDateItem",
             [](R& r, int item, int, CChance& c) { return r.WriteDateItem(item, "YYYYMMDD", DateText(c).c_str()); }},
        };
    }

    static std::vector<Random> Reads() {
        using R = RecordSet;
        return {
            {"ReadItem",
             [](R& r, int item, int, CChance& c) {
                 return WithBuffer(c, [&](char* b, int size) { return r.ReadItem(item, b, size); });
             }},
            {"ReadCharItem",
             [](R& r, int item, int, CChance& c) {
                 return WithBuffer(c, [&](char* b, int size) { return r.ReadCharItem(item, b, size); });
             }},
            {"HardReadDynItem",
             [](R& r, int item, int, CChance& c) {
                 return WithBuffer(c, [&](char* b, int size) { return r.HardReadDynItem(item, b, size); });
             }},
            {"ReadIntItem",
             [](R& r, int item, int, CChance& c) {
                 return WithBuffer(c, [&](char* b, int size) { return r.ReadIntItem(item, b, size); });
             }},
            {"ReadFloatItem",
             [](R& r, int item, int, CChance& c) {
                 return WithBuffer(c, [&](char* b, int size) { return r.ReadFloatItem(item, b, size); });
             }},
            {"ReadDateItem",
             [](R& r, int item, int, CChance& c) {
                 return WithBuffer(c, [&](char* b, int size) { return r.ReadDateItem(item, "DD.MM.YY", b, size); });
             }},
        };
    }

    /// Three lines of each list type, all of random bytes, and one of a group type.
    void Fill(CChance& chance) {
        CRecordBuilder records;
        for (int i = 0; i < 3; ++i) {
            for (const auto& [type, first] : kTypes) {
                records.Add(type).Put(9, chance.Bytes(119));
            }
        }
        this->Read(records.Add("G1").Put(7, chance.Bytes(121)));
    }

    /// Nothing may have changed but, by a write that succeeded, the item's characters in the first line of its type.
    void CheckWrite(const CItemDef& definition, const char* type, int result, const std::vector<std::string>& before) {
        std::vector<std::string> after = this->Stored();
        if (result == TABVEX_OK) {
            const std::size_t line = FirstLineOf(type, before);
            TakeItemFrom(before.at(line), definition, after.at(line));
        }
        EXPECT_EQ(after, before);
    }

    template <typename Check>
    void CallAtRandom(unsigned seed, const std::vector<Random>& operations, Check check) {
        CChance chance(seed);
        this->Load(Table(chance));
        for (int i = 0; i < kCallsPerLayout && !this->HasFailure(); ++i) {
            if (i % 50 == 0) {
                Fill(chance);
            }
            const auto& [type, first] = chance.Of(kTypes);
            const std::vector<CItemDef>& layout = this->m_Records.ExistRecord(type)->GetLayout();
            ASSERT_EQ(layout.size(), kItemsOfAType) << "seed " << seed;
            const CItemDef& definition = chance.Of(layout);
            const Random& operation = chance.Of(operations);
            SCOPED_TRACE(std::string(operation.Name) + ", seed " + std::to_string(seed) + ", call " +
                         std::to_string(i) + ", item " + std::to_string(definition.Number));
            const std::vector<std::string> before = this->Stored();
            const int result = operation.Call(this->m_Records, definition.Number, definition.Length, chance);
            check(definition, type, result, before);
        }
    }

private:
    static std::size_t FirstLineOf(const char* type, const std::vector<std::string>& stored) {
        const std::string head = type + std::string(" at line");
        const auto found = std::find_if(stored.begin(), stored.end(), [&head](const std::string& entry) {
            return entry.compare(0, head.size(), head) == 0;
        });
        return static_cast<std::size_t>(found - stored.begin()) + 1;
    }

    static void TakeItemFrom(const std::string& before, const CItemDef& definition, std::string& after) {
        const int begin = definition.Position - 1;
        const int end = std::min(begin + definition.Length, 128);
        for (int at = begin; begin >= 0 && at < end; ++at) {
            after[static_cast<std::size_t>(at)] = before[static_cast<std::size_t>(at)];
        }
    }
};

TYPED_TEST_SUITE(ItemProperty, RecordSetClasses, CRecordSetClassName);

TYPED_TEST(ItemProperty, AWriteChangesItsItemOnlyAndAFailedOneNothing) {
    int written = 0;
    int failed = 0;
    for (unsigned seed = kFirstSeed; seed < kFirstSeed + kLayouts && !this->HasFailure(); ++seed) {
        this->CallAtRandom(seed, this->Writes(),
                           [&](const CItemDef& definition, const char* type, int result, const auto& before) {
                               ++(result == TABVEX_OK ? written : failed);
                               this->CheckWrite(definition, type, result, before);
                           });
    }
    // Both happen often enough to tell something.
    EXPECT_GT(written, kLayouts * kCallsPerLayout / 10);
    EXPECT_GT(failed, kLayouts * kCallsPerLayout / 10);
}

TYPED_TEST(ItemProperty, AReadChangesNothing) {
    for (unsigned seed = kFirstSeed; seed < kFirstSeed + kLayouts / 4 && !this->HasFailure(); ++seed) {
        this->CallAtRandom(seed, this->Reads(), [this](const CItemDef&, const char*, int, const auto& before) {
            EXPECT_EQ(this->Stored(), before);
        });
    }
}

TYPED_TEST(ItemProperty, WhatIsOverwrittenReadsBack) {
    const std::vector<CRandomOperation<TypeParam>> overwrite = {
        {"HardWriteItem", [](TypeParam& r, int item, int length, CChance& c) {
             return r.HardWriteItem(item, c.Bytes(length, ' ', '~').c_str());
         }}};
    for (unsigned seed = kFirstSeed; seed < kFirstSeed + kLayouts / 4 && !this->HasFailure(); ++seed) {
        this->CallAtRandom(seed, overwrite,
                           [this](const CItemDef& definition, const char* type, int result, const auto&) {
                               EXPECT_EQ(result, TABVEX_OK);
                               const std::string line = this->Line(type);
                               const int begin = definition.Position - 1;
                               const bool isInside = begin >= 0 && begin < 128;
                               const auto length = static_cast<std::size_t>(definition.Length);
                               EXPECT_EQ(this->Text(definition.Number),
                                         isInside ? line.substr(static_cast<std::size_t>(begin), length) : "");
                           });
    }
}

} // namespace
