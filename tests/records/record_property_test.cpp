// Random calls on random records with hostile layouts. Whatever a layout says, nothing is read or written outside lines
// and buffers, only writes change lines, and a write changes only what it is told to.
#include <algorithm>
#include <array>
#include <functional>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/guard_buffer.h"
#include "support/record_set_test.h"

namespace {

constexpr int kLowest = -2147483647 - 1;
constexpr int kHighest = 2147483647;
constexpr std::size_t kMarker = 6;
constexpr std::size_t kRoom = 3; // CR LF and a NUL

struct CRange {
    const char* Type;
    int Lowest;
    int Highest;
    int Key;
    int Second; // another item of the entry, or another key
};

// clang-format off
constexpr std::array<CRange, 39> kTypes = {{
//   type,     items,           key item, second item
    {"X0",     30000,  30030,   30020,  30025},  {"X1",     1000,   1341,    1000,   1005},
    {"X2",     2000,   2030,    2020,   2025},   {"X2N",    2100,   2135,    2120,   2125},
    {"X3",     3000,   3050,    3040,   3045},   {"X6",     6000,   6065,    6015,   6060},
    {"X7",     7000,   7045,    7015,   7025},   {"X9",     9000,   9035,    9020,   9025},
    {"X9_NEU", 9400,   9440,    9420,   9425},   {"XT15",   15200,  15300,   15220,  15230},
    {"W1",     1500,   1730,    1500,   1505},   {"W2",     2500,   2530,    2520,   2525},
    {"W2N",    2600,   2635,    2620,   2625},   {"W3",     3500,   3550,    3540,   3545},
    {"W4",     4500,   4565,    4515,   4555},   {"W6",     6500,   6565,    6515,   6560},
    {"W7",     7500,   7540,    7515,   7525},   {"W9",     9500,   9535,    9520,   9525},
    {"G0",     12300,  12355,   12325,  12330},  {"G1",     12000,  12020,   12015,  12020},
    {"G3",     13000,  13500,   13000,  13500},  {"G4",     14000,  14300,   14150,  14200},
    {"G5",     15000,  15150,   15150,  15100},  {"G6",     17000,  17110,   17015,  17110},
    {"G7",     18200,  18220,   18215,  18220},  {"G8",     12200,  12220,   12215,  12220},
    {"GD",     19300,  19500,   19315,  19320},  {"GE",     19600,  19700,   19615,  19635},
    {"GI",     19701,  19799,   19704,  19721},  {"V1",     21005,  21035,   21035,  21030},
    {"V2",     22005,  22020,   22020,  22015},  {"V3",     23005,  23030,   23030,  23025},
    {"Z0",     16700,  16712,   16704,  16711},  {"Z1",     16000,  16230,   16000,  16005},
    {"Z2",     16300,  16330,   16315,  16320},  {"Z4",     16600,  16619,   16603,  16616},
    {"Z9",     18000,  18100,   18035,  18095},  {"T0",     34000,  34005,   34000,  34005},
    {"FZ",     200000, 200330,  200195, 200205},
}};
constexpr std::array<int, 24> kNumbers = {
    0, 1, 2, 3, 4, 7, 8, 10, 22, 40, 76, 80, 100, 121, 127, 128, 129, 131, 640, 643, -1, -100, kHighest, kLowest};
constexpr std::array<const char*, 16> kDescriptors = {
    "C", "C", "C", "U", "N", "N,,,R 3.2", R"(N,,"0",RPE 2.1)", "N,,,LB 1.0,<1;5>", "D,,,,,,DD.MM.YYYY", "D,,,,,,YYMM",
    R"(C,,,,,("A";"B"))", R"(C,"default")", R"(N,"7","0",R 4.0,,(1;7))", "C,,,R", "C,,,RL", ""};
constexpr std::array<const char*, 16> kParts = {
    "", " ", "   ", "A", "B", "a longer text of a name", "7", "-3.5", "1,5", "12345678901234", "20250131", "202501",
    "\xFC\xE4", "+", "xyz ", "0000000000000000000000000000000000000000000000000000000000000000000000000000000000000"};
// clang-format on

/// Where a write may leave traces.
struct CScope {
    std::string Type;     ///< in records of this type only
    int AddedLines = 0;   ///< with so many lines added at most
    bool Existing = true; ///< lines that are there may change
};

/// The lines of one record object, each with the room behind it that no item write may touch.
struct CHeld {
    const CRecord* Record;
    std::string Type;
    std::vector<std::string> Lines;
};

class RecordProperties : public RecordSetTest, public ::testing::WithParamInterface<unsigned> {
protected:
    RecordProperties() : m_Random(GetParam()) {}

    int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_Random); }
    bool OneIn(int count) { return Below(count) == 0; }

    template <typename Array>
    auto Any(const Array& array) {
        return array[static_cast<std::size_t>(Below(static_cast<int>(std::size(array))))];
    }

    int ItemOf(const CRange& range) {
        switch (Below(5)) {
        case 0:
        case 1:
            return range.Key;
        case 2:
            return range.Second;
        case 3:
            return std::min(range.Highest, range.Lowest + 5 * Below(8));
        default:
            return range.Lowest + Below(range.Highest - range.Lowest + 1);
        }
    }

    /// An item number: of any type, of a search, or of nothing.
    int AnyItem() {
        return OneIn(40) ? Any(std::array<int, 6>{9035, 0, -1, 500, kHighest, kLowest}) : ItemOf(Any(kTypes));
    }

    /// A table in which many types have sections of a few items, most of them odd.
    CTableBuilder AnyTable() {
        CTableBuilder table;
        for (const CRange& range : kTypes) {
            if (OneIn(8)) {
                continue;
            }
            table.Section(range.Type);
            const bool isTame = OneIn(2);
            for (int count = Below(8); count >= 0; --count) {
                const int length = isTame ? 1 + Below(20) : Any(kNumbers);
                const int position = isTame ? 1 + Below(128) : Any(kNumbers);
                table.Item(ItemOf(range), length, position, isTame ? "C" : Any(kDescriptors));
            }
        }
        return table;
    }

    std::string AnyText(int longest) {
        std::string text;
        for (int length = Below(longest + 1); length > 0; --length) {
            text.push_back(OneIn(30) ? static_cast<char>(Below(256)) : Any(std::string(" aB1.-/")));
        }
        return text;
    }

    std::string AnyValue() {
        std::string value = Any(kParts);
        for (int count = Below(9); count > 0; --count) {
            value.append(1, m_cDelimiter).append(Any(kParts));
        }
        return value;
    }

    void ReadAnyRecords() {
        CRecordBuilder builder;
        for (int count = Below(40); count >= 0; --count) {
            const CRange range = Any(kTypes);
            std::string text = AnyText(120);
            std::replace(text.begin(), text.end(), '\0', ' ');
            builder.Add(range.Type);
            builder.Put(std::string(range.Type).size() == 4 ? 9 : 2, text.substr(0, 118));
        }
        if (OneIn(3)) { // lines of any length leave NULs behind them
            std::string text;
            for (const std::string& line : builder.Lines()) {
                const int length = 9 + Below(120);
                text += line.substr(0, static_cast<std::size_t>(length)) + "\n";
            }
            std::replace(text.begin(), text.end(), '\r', ' ');
            ReadLines(text);
        } else {
            Read(builder);
        }
    }

    std::vector<CHeld> Held() {
        std::vector<CHeld> held;
        for (int index = 0; index < m_Records.GetRecordCount(); ++index) {
            const CRecord& record = *m_Records.GetRecord(index);
            held.push_back({&record, record.GetType(), {}});
            for (int line = 0; line < record.GetLineCount(); ++line) {
                const auto length = static_cast<std::size_t>(record.GetLineLength());
                held.back().Lines.emplace_back(record.GetLine(line), length + kRoom);
            }
        }
        return held;
    }

    static void ExpectCursorsInside(const std::vector<CHeld>& held) {
        for (const CHeld& record : held) {
            ASSERT_GE(record.Record->GetCurrentLine(), 0) << record.Type;
            ASSERT_LE(record.Record->GetCurrentLine(), record.Record->GetLineCount()) << record.Type;
            ASSERT_GE(record.Record->GetCurrentOffset(), 0) << record.Type;
        }
    }

    /// Expects the call to have left everything as it was.
    void ExpectUnchanged(const std::vector<CHeld>& before, const char* call) {
        ExpectChanged(before, call, {"", 0, false});
    }

    /// Expects the call to have changed nothing outside the scope: records stay in their order, new ones and new lines
    /// come last, and of the lines that were there one at most is another.
    void ExpectChanged(const std::vector<CHeld>& before, const char* call, const CScope& scope) {
        const std::vector<CHeld> after = Held();
        ASSERT_NO_FATAL_FAILURE(ExpectCursorsInside(after)) << call;
        ASSERT_GE(after.size(), before.size()) << call;
        int added = 0;
        for (std::size_t i = 0; i < after.size(); ++i) {
            const bool isNew = i >= before.size();
            const std::size_t lines = isNew ? 0 : before[i].Lines.size();
            ASSERT_GE(after[i].Lines.size(), lines) << call;
            const int more = static_cast<int>(after[i].Lines.size() - lines);
            added += more;
            const bool inScope = after[i].Type == scope.Type;
            ASSERT_TRUE((more == 0 && !isNew) || inScope) << call << " added to " << after[i].Type;
            if (!isNew) {
                ASSERT_EQ(after[i].Record, before[i].Record) << call;
                ASSERT_TRUE(HasSameRoom(before[i], after[i])) << call << " wrote behind a line of " << after[i].Type;
                const int changed = ChangedLines(before[i], after[i]);
                ASSERT_LE(changed, inScope && scope.Existing ? 1 : 0) << call << " changed " << after[i].Type;
            }
        }
        ASSERT_LE(added, scope.AddedLines) << call;
    }

    static bool HasSameRoom(const CHeld& before, const CHeld& after) {
        return std::equal(before.Lines.begin(), before.Lines.end(), after.Lines.begin(),
                          [](const std::string& line, const std::string& now) {
                              return line.substr(line.size() - kRoom) == now.substr(now.size() - kRoom);
                          });
    }

    static int ChangedLines(const CHeld& before, const CHeld& after) {
        int changed = 0;
        for (std::size_t line = 0; line < before.Lines.size(); ++line) {
            changed += before.Lines[line] != after.Lines[line] ? 1 : 0;
        }
        return changed;
    }

    void Step() {
        const std::vector<CHeld> before = Held();
        const int item = AnyItem();
        for (int count = Below(6); count >= 0; --count) {
            switch (Below(6)) {
            case 0:
                m_Records.ReadFirst(item);
                break;
            case 1:
                m_Records.ReadPrev(item);
                break;
            case 2:
                m_Records.ReadLast(item);
                break;
            default:
                m_Records.ReadNext(item);
                break;
            }
        }
        ExpectUnchanged(before, "a step");
    }

    void Find() {
        const std::vector<CHeld> before = Held();
        m_Records.FindFirst(AnyItem(), OneIn(3) ? "" : AnyText(4).c_str());
        for (int count = Below(300); count > 0 && m_Records.FindNext() > 0; --count) {
        }
        ExpectUnchanged(before, "a search");
    }

    void ReadText() {
        using Operation = int (CAllRecords::*)(int, char*, int);
        constexpr std::array<Operation, 4> operations = {&CAllRecords::ReadItem, &CAllRecords::HardReadItem,
                                                         &CAllRecords::ReadCharItem, &CAllRecords::HardReadDynItem};
        const std::vector<CHeld> before = Held();
        const Operation read = Any(operations);
        const int item = AnyItem();
        CGuardBuffer first(static_cast<std::size_t>(OneIn(2) ? 700 : Below(20)));
        CGuardBuffer second(700);
        const int result = (m_Records.*read)(item, first.Data(), first.Size());
        const int again = (m_Records.*read)(item, second.Data(), second.Size());
        if (result == TABVEX_OK) {
            EXPECT_EQ(again, TABVEX_OK) << item;
            EXPECT_EQ(first.Text(), second.Text()) << item;
        } else if (result == TABVEX_TEXT_CUT) {
            const auto copied = static_cast<std::size_t>(std::max(first.Size() - 1, 0));
            EXPECT_TRUE(first.Size() == 0 || first.Text().size() <= copied) << item;
        } else {
            EXPECT_TRUE(first.IsUntouched()) << item << ": " << result;
            EXPECT_EQ(again, result) << item;
        }
        ExpectUnchanged(before, "a read");
    }

    void ReadValue() {
        const std::vector<CHeld> before = Held();
        const int item = AnyItem();
        CGuardBuffer text(static_cast<std::size_t>(Below(40)));
        int whole = 0;
        double value = 0;
        m_Records.ReadIntItem(item, text.Data(), text.Size());
        m_Records.ReadIntItem(item, whole);
        m_Records.ReadFloatItem(item, text.Data(), text.Size());
        m_Records.ReadFloatItem(item, value);
        m_Records.ReadDateItem(item, Any(std::array<const char*, 4>{"DD.MM.YYYY", "YYMM", "YYYYMMDD", "bad"}),
                               text.Data(), text.Size());
        ExpectUnchanged(before, "a typed read");
    }

    /// What a write with this result may have changed: a refused one nothing, one with a part that failed its check the
    /// entry all the same; the record is created in any case.
    CScope ScopeOfWrite(int item, int result) {
        const std::string type = CAllRecords::GetTypeOfItem(item);
        const CRecord* record = m_Records.ExistRecord(type.c_str());
        const bool isList = type == "X1" || type == "W1" || type == "Z1" || type == "T0" || type == "XT15";
        constexpr std::array<int, 6> refusals = {TABVEX_NO_TABLE,          TABVEX_ENTRY_NO_MORE,
                                                 TABVEX_ENTRY_NOT_THE_KEY, TABVEX_ENTRY_WRONG_PARTS,
                                                 TABVEX_ITEM_WRONG_FORMAT, TABVEX_ENTRY_NO_GROUP};
        const bool isRefused = std::find(refusals.begin(), refusals.end(), result) != refusals.end();
        const bool keepsLines = record == nullptr || isRefused || (isList && result < 0);
        return {type, keepsLines || isList ? 0 : 1, !keepsLines};
    }

    void Write() {
        const std::vector<CHeld> before = Held();
        const int item = AnyItem();
        const bool isThere = m_Records.ExistRecord(CAllRecords::GetTypeOfItem(item)) != nullptr;
        int result = 0;
        switch (Below(8)) {
        case 0:
            result = m_Records.WriteCharItem(item, AnyValue().c_str());
            break;
        case 1:
            result = m_Records.WriteIntItem(item, Any(kNumbers));
            break;
        case 2:
            result = m_Records.WriteFloatItem(item, Below(2000) / 8.0 - 100);
            break;
        case 3:
            result = m_Records.WriteRoundFloatItem(item, Below(2000) / 8.0 - 100);
            break;
        case 4:
            result = m_Records.WriteDateItem(item, "DD.MM.YYYY", "28.02.2025");
            break;
        case 5:
            result = m_Records.HardWriteDynItem(item, AnyValue().c_str());
            break;
        default:
            result = m_Records.WriteItem(item, AnyValue().c_str());
            break;
        }
        CScope scope = ScopeOfWrite(item, result);
        scope.AddedLines += isThere ? 0 : 1;
        ExpectChanged(before, "a write", scope);
    }

    /// A hard write changes the item's own characters of one line, or nothing.
    void HardWrite() {
        const std::vector<CHeld> before = Held();
        const int item = AnyItem();
        const std::string type = CAllRecords::GetTypeOfItem(item);
        const CRecord* record = m_Records.ExistRecord(type.c_str());
        const CItemDef* definition = record == nullptr ? nullptr : record->FindItem(item);
        const bool clear = OneIn(2);
        const int length = definition == nullptr ? 3 : std::clamp(definition->Length, 0, 700);
        const std::string text(static_cast<std::size_t>(length), 'H');
        const int result = clear ? m_Records.ClearItem(item) : m_Records.HardWriteItem(item, text.c_str());
        ASSERT_NO_FATAL_FAILURE(ExpectChanged(before, "a hard write", {type, 0, result == TABVEX_OK}));
        if (result != TABVEX_OK) {
            return;
        }
        const std::vector<CHeld> after = Held();
        for (std::size_t i = 0; i < before.size(); ++i) {
            for (std::size_t line = 0; line < before[i].Lines.size(); ++line) {
                ExpectSameOutside(before[i].Lines[line], after[i].Lines[line], *definition, clear ? ' ' : 'H');
            }
        }
    }

    static void ExpectSameOutside(const std::string& before, const std::string& after, const CItemDef& item,
                                  char fill) {
        for (std::size_t i = 0; i < before.size(); ++i) {
            const auto place = static_cast<long long>(i) + 1;
            const bool inside = item.Position >= 1 && place >= item.Position &&
                                place < static_cast<long long>(item.Position) + item.Length;
            ASSERT_TRUE(before[i] == after[i] || (inside && after[i] == fill)) << "character " << i;
        }
    }

    void CompleteLines() {
        std::vector<CHeld> before = Held();
        const std::string type = Any(kTypes).Type;
        CGuardBuffer buffer(static_cast<std::size_t>(100 + Below(60)));
        const int result = m_Records.GetNextCompleteRecord(type.c_str(), buffer.Data(), buffer.Size(), Below(4));
        EXPECT_TRUE(result == TABVEX_OK || buffer.IsUntouched()) << type;
        ASSERT_NO_FATAL_FAILURE(ExpectUnchanged(before, "a complete line"));
        CGuardBuffer line(129);
        AnyText(129).copy(line.Data(), 129);
        EXPECT_EQ(m_Records.SetCompleteRecord(type.c_str(), line.Data(), line.Size()), TABVEX_OK);
        ExpectChanged(before, "an added line", {type, 1, false});
    }

    /// Saving numbers the lines and changes nothing else.
    void Save() {
        const auto withoutMarkers = [](std::vector<CHeld> held) {
            for (CHeld& record : held) {
                for (std::string& line : record.Lines) {
                    line[kMarker] = ' ';
                    line.resize(line.size() - kRoom); // where a save ends the line
                }
            }
            return held;
        };
        const std::vector<CHeld> before = withoutMarkers(Held());
        const int size = m_Records.WriteAllRecords(nullptr, 0, 1);
        CGuardBuffer text(static_cast<std::size_t>(size) + 1);
        EXPECT_EQ(m_Records.WriteAllRecords(text.Data(), size, 1), size);
        CGuardBuffer line(129);
        m_Records.GetX1Record(line.Data(), 128);
        CGuardBuffer lines(4000);
        m_Records.GetX7Record(lines.Data(), lines.Size());
        const std::string path = m_Folder.PathOf("saved.rec");
        EXPECT_EQ(m_Records.SaveAllRecords(path.c_str(), Below(2)), m_Records.GetRecordCount());
        const std::vector<CHeld> after = withoutMarkers(Held());
        ASSERT_EQ(after.size(), before.size());
        for (std::size_t i = 0; i < after.size(); ++i) {
            EXPECT_EQ(after[i].Lines, before[i].Lines) << after[i].Type;
        }
    }

    void ChangeSettings() {
        switch (Below(6)) {
        case 0:
            m_cDelimiter = Any(std::string("/;| \xFE"));
            m_Records.SetDelimiter(m_cDelimiter);
            break;
        case 1:
            m_Records.SetCharacterSet(OneIn(2) ? "OEM" : "ANSI");
            break;
        case 2:
            m_Records.SetRecNums(OneIn(2) ? "*" : "G", Below(2));
            break;
        case 3:
            m_Records.DestroyRecords(Any(kTypes).Type);
            break;
        case 4:
            if (OneIn(4)) {
                Load(AnyTable()); // records that are there keep their layouts
            }
            break;
        default:
            m_Records.SumItemLengths(Any(kTypes).Type, Any(kNumbers), Any(kNumbers));
            break;
        }
        ExpectCursorsInside(Held());
    }

    void CallAnything() {
        const int kind = Below(100);
        if (kind < 25) {
            Step();
        } else if (kind < 50) {
            ReadText();
        } else if (kind < 75) {
            Write();
        } else if (kind < 80) {
            Find();
        } else if (kind < 85) {
            ReadValue();
        } else if (kind < 92) {
            HardWrite();
        } else if (kind < 95) {
            CompleteLines();
        } else if (kind < 96) {
            Save();
        } else {
            ChangeSettings();
        }
    }

    std::mt19937 m_Random;
    char m_cDelimiter = '/';
};

TEST_P(RecordProperties, NothingButWritesChangesLinesAndNothingLeavesThem) {
    Load(AnyTable());
    ReadAnyRecords();
    for (int call = 0; call < 600; ++call) {
        SCOPED_TRACE("call " + std::to_string(call));
        ASSERT_NO_FATAL_FAILURE(CallAnything());
        if (HasFailure()) {
            return;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RecordProperties, ::testing::Range(1U, 33U));

} // namespace
