// The entry groups of every record type: where entries lie, how one steps over them, and what writing them leaves in
// the lines and in the file. The expectations have a table of their own, which owes nothing to the library's.
#include <algorithm>
#include <cctype>
#include <fstream>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "core/record_types.h"
#include "support/guard_buffer.h"
#include "support/record_set_test.h"

namespace {

constexpr int kNoMore = -5;
constexpr int kNotTheKey = -6;
constexpr int kWrongParts = -7;
constexpr int kForeignItem = -22;
constexpr int kNoStepBack = -62;
constexpr int kWrongKey = -74;
constexpr int kEmptySpan = -75;

constexpr int kMarkerOffset = 6;
constexpr int kX2nMark = 127;
constexpr int kX9NewMark = 122;

/// What stepping on answers behind the last line.
enum class EStop {
    ThenNoMore, ///< 0; the next step finds no more
    NoMore,     ///< no more at once
    Park,       ///< no more; the cursor goes back to the last line, behind its entries
    Rewind,     ///< no more; the cursor goes back to the first entry
};

enum : unsigned {
    kPlain = 0,
    kBlankEnds = 1,    ///< a blank entry ends the group
    kForeignFails = 2, ///< items that are neither the header's nor the entry's answer -22
    kEmptyFails = 4,   ///< FirstEntry answers -75 when the entry has no length
    kTypeOnly = 8,     ///< continuation lines repeat the type only
    kListed = 16,      ///< the entry has so many items whatever the layout holds
};

/// End of a group that reaches as far as an entry fits into 127 characters and the one at offset 127 itself.
constexpr int kWholeEntries = 0;

/// One entry as a caller writes it and as its fields stand in the line.
struct CEntry {
    const char* Value;
    std::string Fields;
};

struct CGroup {
    const char* Type;
    int Key;
    int Highest; ///< the entry's items are those from the key to this one
    int First;   ///< offset of a line's first entry
    int End;     ///< first offset at which no entry begins any more
    EStop Stop;
    int StopOffset; ///< for EStop::Park
    unsigned Flags;
    int BackEnd; ///< stepping back over a line's start goes to this offset less the entry's length; 0: no stepping back
    std::vector<int> Header;
    std::vector<CEntry> Entries; ///< two, written in turn
    int WriteEnd = 0;            ///< first offset at which no entry is written any more, where that is not `End`
};

void PrintTo(const CGroup& group, std::ostream* out) {
    *out << group.Type << " by " << group.Key;
}

std::string Left(const std::string& text, std::size_t length) {
    return Padded(text, length);
}

// clang-format off
const std::vector<CGroup>& Groups() {
    static const std::vector<CGroup> groups = {
//   type,  key item, last item, first offset, end of the line, behind it, flags, back from, header items, entries
    {"FZ", 200195, 200205, 260, 501, EStop::Rewind, 0, kPlain, 0,
     {200000, 200005, 200010, 200020, 200030, 200040, 200050, 200060, 200070, 200080, 200090, 200100, 200110, 200120,
      200210, 200220, 200230, 200240},
     {{"rad1/Radio/129.5", "RAD1" + Left("Radio", 12) + "  129.50"},
      {"ACC/Child seat/0", "ACC " + Left("Child seat", 12) + "    0.00"}}},
    {"G0", 12325, 12330, 21, 119, EStop::ThenNoMore, 0, kListed, 119,
     {12300, 12305, 12310, 12315, 12320, 12345, 12350, 12355},
     {{"p1/-5.75", "P1       -5.75"}, {"K22x/1000000", "K22X1000000.00"}}},
    {"G1", 12015, 12020, 7, 127, EStop::ThenNoMore, 0, kListed, 0, {12000, 12005, 12010},
     {{"Labour/1234.5", Left("Labour", 30) + "  1234.50+"}, {"Discount/-99", Left("Discount", 30) + "    99.00-"}}, 89},
    {"G4", 14150, 14300, 7, 127, EStop::ThenNoMore, 0, kListed, 0, {14000, 14050, 14100},
     {{"M1/12.5/202506/98", "M1  12.52506   98.00"}, {"P1/0.1/20241105/12345.67", "P1   0.1241112345.67"}}},
    {"G5", 15150, 15150, 7, 127, EStop::ThenNoMore, 0, kListed, 0, {15000, 15050, 15100},
     {{"First piece of the text", Left("First piece of the text", 24)}, {"and more", Left("and more", 24)}}},
    {"G6", 17015, 17110, 7, 87, EStop::Park, 87, kBlankEnds, 0, {17000, 17005, 17010},
     {{"1/20240229/Left door/Scratches, deep/Y/350.75/82000/202403",
       "0129.02.2024" + Left("Left door", 24) + Left("Scratches, deep", 20) + "Y   350.75  8200003/2024"},
      {"12/19991230/Bonnet/Hail/N/0/7/199912",
       "1230.12.1999" + Left("Bonnet", 24) + Left("Hail", 20) + "N     0.00      712/1999"}}},
    {"G7", 18215, 18220, 7, 127, EStop::Park, 127, kPlain, 0, {18200, 18205},
     {{"20250630/12.5", "30062025+00000012.50"}, {"20250701/-1234567.89", "01072025-01234567.89"}}},
    {"G8", 12215, 12220, 7, 122, EStop::ThenNoMore, 0, kEmptyFails, 0, {12200, 12205, 12210},
     {{"FL/250", "FL 250"}, {"UB/0", "UB   0"}}},
    {"GD", 19315, 19500, 15, kWholeEntries, EStop::ThenNoMore, 0, kBlankEnds | kEmptyFails, 0, {19300, 19305, 19310},
     {{"old/12.5/310", "OLD 12.5  310.00"}, {"WEAR/0/0.75", "WEAR 0.0    0.75"}}},
    {"GE", 19615, 19635, 7, kWholeEntries, EStop::ThenNoMore, 0, kEmptyFails, 0, {19600, 19605, 19610},
     {{"1/Photo front/JPG/1/20250131", "001" + Left("Photo front", 16) + "JPG 1310125"},
      {"42/Estimate/PDF/12/20241224", "042" + Left("Estimate", 16) + "PDF12241224"}}},
    {"GI", 19704, 19721, 7, kWholeEntries, EStop::ThenNoMore, 0, kEmptyFails, 0, {19701, 19702, 19703},
     {{"r-77/Paint shop/20250102/119/100",
       Left("R-77", 14) + Left("Paint shop", 20) + "20250102   119.00   100.00"},
      {"INV2025/Glass and more/20241230/-5.5/0",
       Left("INV2025", 14) + Left("Glass and more", 20) + "20241230    -5.50     0.00"}}},
    {"V1", 21035, 21035, 27, 74, EStop::ThenNoMore, 0, kForeignFails | kTypeOnly | kListed, 0,
     {21005, 21010, 21015, 21020, 21025, 21030},
     {{"A stone hit the windscreen on the motorway", Left("A stone hit the windscreen on the motorway", 47)},
      {"Hail, at night", Left("Hail, at night", 47)}}},
    {"V2", 22020, 22020, 12, 71, EStop::ThenNoMore, 0, kForeignFails | kTypeOnly | kListed, 0, {22005, 22010, 22015},
     {{"Braked late on a wet road", Left("Braked late on a wet road", 59)}, {"and slid", Left("and slid", 59)}}},
    {"V3", 23030, 23030, 26, 74, EStop::ThenNoMore, 0, kForeignFails | kTypeOnly | kListed, 0,
     {23005, 23010, 23015, 23020, 23025},
     {{"Ms Miller", Left("Ms Miller", 24)}, {"Mr Smith, driver", Left("Mr Smith, driver", 24)}}},
    {"W2N", 2620, 2625, 7, 127, EStop::ThenNoMore, 0, kListed, 0, {2600, 2605, 2610},
     {{"Body/98.5", Left("Body", 14) + "     98.50"}, {"Paint/104", Left("Paint", 14) + "    104.00"}}},
    {"W2", 2520, 2525, 7, 127, EStop::ThenNoMore, 0, kListed, 0, {2500, 2505, 2510},
     {{"Body/98.5", Left("Body", 10) + "     98.50"}, {"Paint/104", Left("Paint", 10) + "    104.00"}}},
    {"W3", 3540, 3540, 63, 123, EStop::ThenNoMore, 0, kTypeOnly | kListed, 0,
     {3500, 3505, 3510, 3515, 3520, 3525, 3530, 3545},
     {{"Call before delivery", "Call before delivery"}, {"Wash", Left("Wash", 20)}}},
    {"W4", 4515, 4560, 7, 123, EStop::ThenNoMore, 0, kForeignFails, 0, {},
     {{"E/1401x/Fender/12/84.9/2/10/EM/250",
       "E  1401X   " + Left("Fender", 16) + "  12   84.902100EM       250.00"},
      {"LI1/0001/Lamp/0/0/P/5.5/WM/-3.25",
       "LI10001    " + Left("Lamp", 16) + "   0    0.00P055WM        -3.25"}}},
    {"W6", 6515, 6560, 7, kWholeEntries, EStop::ThenNoMore, 0, kEmptyFails, 0, {6500, 6505, 6510},
     {{"E/b100/Mirror/1/55.5/20250314/OK",
       "E  " + Left("B100", 14) + Left("Mirror", 20) + "  1     55.5020250314OK"},
      {"LO/c-2/Door/999/7/20241230/NA",
       "LO " + Left("C-2", 14) + Left("Door", 20) + "999      7.0020241230NA"}}},
    {"W7", 7515, 7515, 7, 83, EStop::ThenNoMore, 0, kListed, 0, {7500, 7505, 7510, 7545},
     {{"Remove bumper", Left("Remove bumper", 38)}, {"Paint", Left("Paint", 38)}}},
    {"W7", 7525, 7530, 83, 127, EStop::ThenNoMore, 0, kPlain, 0, {7500, 7505, 7510, 7545},
     {{"t1/2.5", "T1     2.50"}, {"AB12/10", "AB12  10.00"}}},
    {"W9", 9520, 9525, 10, 113, EStop::ThenNoMore, 0, kEmptyFails, 0, {9500, 9505, 9510, 9515, 9530, 9535},
     {{"clp/25", "CLP 25"}, {"NUT/120", "NUT120"}}},
    {"X0", 30020, 30025, 7, 122, EStop::ThenNoMore, 0, kPlain, 0, {},
     {{"paint/Two coats", Left("PAINT", 11) + Left("Two coats", 12)}, {"Mode/", Left("MODE", 11) + Left("", 12)}}},
    {"X2N", 2120, 2125, 7, 123, EStop::NoMore, 0, kListed, 121, {2100, 2105, 2110},
     {{"Sun roof/899", Left("Sun roof", 19) + "    899.00"}, {"Tow bar/450.25", Left("Tow bar", 19) + "    450.25"}}},
    {"X2", 2020, 2025, 7, 126, EStop::ThenNoMore, 0, kListed, 126, {2000, 2005, 2010},
     {{"aircon/1249.5", "AIRCON    1249.50"}, {"GPS/0", "GPS          0.00"}}},
    {"X3", 3040, 3040, 63, 123, EStop::ThenNoMore, 0, kTypeOnly | kListed, 0,
     {3000, 3005, 3010, 3015, 3020, 3025, 3030, 3045},
     {{"Clean inside", Left("Clean inside", 15)}, {"Dent at door", Left("Dent at door", 15)}}},
    {"X6", 6015, 6060, 7, kWholeEntries, EStop::ThenNoMore, 0, kBlankEnds | kEmptyFails, 0, {6000, 6005, 6010},
     {{"E/4711-b/Bumper/2/310.4/N", "E  " + Left("4711-B", 12) + Left("Bumper", 12) + "  2   310.40N"},
      {"LE1/99/Door, left/1/75/U", "LE1" + Left("99", 12) + Left("Door, left", 12) + "  1    75.00U"}}},
    {"X7", 7015, 7015, 7, 83, EStop::ThenNoMore, 0, kListed, 0, {7000, 7005, 7010, 7045},
     {{"Blend paint in", Left("Blend paint in", 19)}, {"Polish", Left("Polish", 19)}}},
    {"X7", 7025, 7030, 83, 127, EStop::ThenNoMore, 0, kPlain, 0, {7000, 7005, 7010, 7045},
     {{"Base coat/120.5", Left("Base coat", 12) + "    120.50"}, {"Lacquer/9", Left("Lacquer", 12) + "      9.00"}}},
    {"X9_NEU", 9420, 9425, 10, 114, EStop::ThenNoMore, 0, kEmptyFails, 0, {9400, 9405, 9410, 9430, 9435, 9440},
     {{"Discount/-80.5", Left("Discount", 16) + "    80.50-"}, {"Fee/12", Left("Fee", 16) + "    12.00+"}}},
    {"X9", 9020, 9025, 10, 120, EStop::ThenNoMore, 0, kEmptyFails, 0, {9000, 9005, 9010, 9015, 9035},
     {{"dis/-12.5", "DIS -12.50"}, {"SUR/5", "SUR  +5.00"}}},
    {"Z0", 16704, 16711, 8, 127, EStop::ThenNoMore, 0, kPlain, 0, {16700, 16701, 16702, 16712},
     {{"ST/20250311/905/ab", "ST202503110905AB "}, {"EN/20250401/2359/C", "EN202504012359C  "}}, 126},
    {"Z2", 16315, 16320, 7, 118, EStop::ThenNoMore, 0, kForeignFails | kEmptyFails, 0, {16300, 16305, 16310},
     {{"x4/12", "X4      12"}, {"T0/3", "T0       3"}}},
    {"Z4", 16603, 16616, 7, 106, EStop::ThenNoMore, 0, kEmptyFails, 0, {16600, 16601, 16602},
     {{"20250505/Auditor/OK/-3.5", "20250505" + Left("Auditor", 16) + "OK  -3.50"},
      {"20250606/Second auditor/CH/100", "20250606" + Left("Second auditor", 16) + "CH+100.00"}}},
    {"Z9", 18035, 18095, 11, 128, EStop::ThenNoMore, 0, kForeignFails | kEmptyFails, 0, {},
     {{"20250708/830/xy/Called the keeper", "202507080830XY " + Left("Called the keeper", 24)},
      {"20250709/0/Z/", "202507090000Z  " + Left("", 24)}}},
    };
    return groups;
}
// clang-format on

struct CTableItem {
    int Number;
    int Length;
    int Position;
    std::string Default;
};

/// The sample table's items by record type, in the file's order.
const std::map<std::string, std::vector<CTableItem>>& SampleTable() {
    static const std::map<std::string, std::vector<CTableItem>> table = [] {
        std::map<std::string, std::vector<CTableItem>> items;
        std::ifstream file(TABVEX_SAMPLES_DIR "/calculation.table");
        std::string type;
        for (std::string line; std::getline(file, line);) {
            if (line.rfind("[DATA_", 0) == 0) {
                type = line.substr(6, line.find(']') - 6);
            } else if (!type.empty() && !line.empty() && std::isdigit(static_cast<unsigned char>(line[0])) != 0) {
                const std::size_t length = line.find('|') + 1;
                const std::size_t position = line.find('|', length) + 1;
                const std::string descriptor = line.substr(line.find('|', position) + 1);
                const bool hasDefault = descriptor.substr(1, 2) == ",\"";
                items[type].push_back({std::stoi(line), std::stoi(line.substr(length)),
                                       std::stoi(line.substr(position)),
                                       hasDefault ? descriptor.substr(3, descriptor.find('"', 3) - 3) : ""});
            }
        }
        return items;
    }();
    return table;
}

/// Line and offset of an entry.
struct CPlace {
    int Line;
    int Offset;
    bool operator==(const CPlace& other) const { return Line == other.Line && Offset == other.Offset; }
};

void PrintTo(const CPlace& place, std::ostream* out) {
    *out << "line " << place.Line << " offset " << place.Offset;
}

class EntryGroup : public RecordSetTest, public ::testing::WithParamInterface<CGroup> {
protected:
    EntryGroup() {
        LoadSamples(m_Records);
        for (const CTableItem& item : SampleTable().at(Group().Type)) {
            if (item.Number >= Group().Key && item.Number <= Group().Highest) {
                m_Items.push_back(item);
                m_nEntry += item.Length;
            } else if (std::count(Group().Header.begin(), Group().Header.end(), item.Number) != 0) {
                m_Header.push_back(item);
            }
        }
        m_nEnd = Group().End == kWholeEntries ? 128 - m_nEntry : Group().End;
        m_nPerLine = (m_nEnd - Group().First + m_nEntry - 1) / m_nEntry;
    }

    static const CGroup& Group() { return GetParam(); }
    static bool Is(unsigned flag) { return (Group().Flags & flag) != 0; }
    static bool IsLong() { return std::string(Group().Type) == "FZ"; }
    static std::size_t LineLength() { return IsLong() ? 640 : 128; }

    static void LoadSamples(CAllRecordsEx& records) {
        records.SetCharacterSet("ANSI");
        ASSERT_EQ(records.LoadTable(TABVEX_SAMPLES_DIR "/calculation.table", 3, 2), TABVEX_OK);
    }

    /// A text of letters that differs between entries, items and characters.
    static std::string Letters(int entry, int item, int length) {
        std::string text;
        for (int i = 0; i < length; ++i) {
            text.push_back(static_cast<char>('A' + (entry * 11 + item * 5 + i) % 26));
        }
        return text;
    }

    std::string RawField(int entry, std::size_t item) const {
        return Letters(entry, static_cast<int>(item), m_Items[item].Length);
    }

    CPlace PlaceOf(int entry) const { return {entry / m_nPerLine, Group().First + entry % m_nPerLine * m_nEntry}; }

    static void PutText(std::string& line, int offset, const std::string& text) {
        line.replace(static_cast<std::size_t>(offset), text.size(), text);
    }

    /// A line that shows the type, with the newer form's mark.
    static std::string BareLine() {
        const std::string type = Group().Type;
        std::string line = Padded(type.substr(0, 2), LineLength());
        if (type == "X2N") {
            PutText(line, kX2nMark, "1");
        } else if (type == "X9_NEU") {
            PutText(line, kX9NewMark, "1");
        }
        return line;
    }

    /// The first line with letters in every header item but those of type and mark.
    std::string HeaderLine() const {
        std::string line = BareLine();
        for (std::size_t i = 0; i < m_Header.size(); ++i) {
            if (m_Header[i].Default.empty()) {
                PutText(line, m_Header[i].Position - 1, Letters(99, static_cast<int>(i), m_Header[i].Length));
            }
        }
        return line;
    }

    /// A line that continues the group whose first line is given. The header ends where a line's first entry begins;
    /// of two groups side by side, where the first one does.
    static std::string ContinuationLine(const std::string& first) {
        const int headerEnd = Group().First == 83 ? 7 : Group().First;
        std::string line = BareLine();
        PutText(line, 0, first.substr(0, Is(kTypeOnly) ? 2 : static_cast<std::size_t>(headerEnd)));
        return line;
    }

    std::vector<std::string> LinesFor(const std::string& first, int entries) const {
        std::vector<std::string> lines = {first};
        while (static_cast<int>(lines.size()) * m_nPerLine < entries) {
            lines.push_back(ContinuationLine(first));
        }
        return lines;
    }

    /// Lines with so many entries of letters.
    std::vector<std::string> RawLines(int entries) const {
        std::vector<std::string> lines = LinesFor(HeaderLine(), entries);
        for (int entry = 0; entry < entries; ++entry) {
            int offset = PlaceOf(entry).Offset;
            for (std::size_t i = 0; i < m_Items.size(); ++i) {
                PutText(lines[static_cast<std::size_t>(PlaceOf(entry).Line)], offset, RawField(entry, i));
                offset += m_Items[i].Length;
            }
        }
        return lines;
    }

    /// Lines as so many written entries leave them in a record that did not exist.
    std::vector<std::string> WrittenLines(int entries) const {
        std::string first(LineLength(), ' ');
        for (const CTableItem& item : SampleTable().at(Group().Type)) {
            PutText(first, item.Position - 1, item.Default);
        }
        std::vector<std::string> lines = LinesFor(first, entries);
        for (int entry = 0; entry < entries; ++entry) {
            const CPlace place = PlaceOf(entry);
            PutText(lines[static_cast<std::size_t>(place.Line)], place.Offset, EntryAt(entry).Fields);
        }
        return lines;
    }

    static const CEntry& EntryAt(int entry) { return Group().Entries[static_cast<std::size_t>(entry % 2)]; }

    static std::string Joined(const std::vector<std::string>& lines, const std::string& separator) {
        std::string text;
        for (const std::string& line : lines) {
            text.append(line).append(separator);
        }
        return text;
    }

    /// Puts the lines into the record set: from a file where a file can hold the type.
    void Hold(const std::vector<std::string>& lines) {
        if (IsLong()) {
            ReadLines(Joined(lines, "\n"));
            return;
        }
        if (std::string(Group().Type) != "W2N") {
            ASSERT_EQ(m_Records.ReadAllRecordsEx(m_Folder.Write("raw.rec", Joined(lines, "\r\n")).c_str()), TABVEX_OK);
            return;
        }
        for (std::string line : lines) { // its terminator makes the 129 characters
            ASSERT_EQ(m_Records.SetCompleteRecord("W2N", line.data(), 129), TABVEX_OK);
        }
    }

    CRecord& OfGroup() { return Record(Group().Type); }

    CPlace Cursor() { return {OfGroup().GetCurrentLine(), OfGroup().GetCurrentOffset()}; }

    void ExpectHeader(const std::string& firstLine) {
        for (const CTableItem& item : m_Header) {
            EXPECT_EQ(Item(item.Number), firstLine.substr(static_cast<std::size_t>(item.Position - 1),
                                                          static_cast<std::size_t>(item.Length)))
                << "header item " << item.Number;
        }
    }

    /// Expects the entry at the cursor to be so many characters of text, item by item.
    void ExpectEntry(const std::string& fields) {
        std::size_t offset = 0;
        for (const CTableItem& item : m_Items) {
            const auto length = static_cast<std::size_t>(item.Length);
            EXPECT_EQ(Item(item.Number), fields.substr(offset, length)) << "item " << item.Number;
            offset += length;
        }
    }

    std::string RawEntry(int entry) const {
        std::string fields;
        for (std::size_t i = 0; i < m_Items.size(); ++i) {
            fields += RawField(entry, i);
        }
        return fields;
    }

    std::string Blanks() const { return Padded("", static_cast<std::size_t>(m_nEntry)); }

    /// Steps over every place for an entry, of which the first ones are filled, and expects each to be there.
    template <typename Fields>
    void ExpectEntries(int filled, int lines, Fields fields) {
        ASSERT_EQ(m_Records.ReadFirst(Group().Key), TABVEX_OK);
        for (int entry = 0; entry < lines * m_nPerLine; ++entry) {
            if (entry > 0) {
                const bool ends = Is(kBlankEnds) && entry >= filled;
                ASSERT_EQ(m_Records.ReadNext(Group().Key), ends ? kNoMore : TABVEX_OK) << "to entry " << entry;
            }
            ASSERT_EQ(Cursor(), PlaceOf(entry)) << "entry " << entry;
            ExpectEntry(entry < filled ? fields(entry) : Blanks());
        }
    }

    /// Expects the answers to stepping on from the last place of the last line.
    void ExpectEnd(int lines) {
        switch (Group().Stop) {
        case EStop::ThenNoMore:
            EXPECT_EQ(m_Records.ReadNext(Group().Key), TABVEX_OK);
            ExpectBehind(lines);
            break;
        case EStop::NoMore:
            EXPECT_EQ(m_Records.ReadNext(Group().Key), kNoMore);
            ExpectBehind(lines);
            break;
        case EStop::Park:
            for (int i = 0; i < 2; ++i) {
                EXPECT_EQ(m_Records.ReadNext(Group().Key), kNoMore);
                EXPECT_EQ(Cursor(), (CPlace{lines - 1, Group().StopOffset}));
            }
            break;
        case EStop::Rewind:
            EXPECT_EQ(m_Records.ReadNext(Group().Key), kNoMore);
            EXPECT_EQ(Cursor(), PlaceOf(0));
            EXPECT_EQ(m_Records.ReadNext(Group().Key), TABVEX_OK);
            EXPECT_EQ(Cursor(), PlaceOf(1));
            break;
        }
    }

    /// The cursor stands behind the last line: there is nothing to read, and no way on.
    void ExpectBehind(int lines) {
        for (int i = 0; i < 2; ++i) {
            EXPECT_EQ(Cursor(), (CPlace{lines, Group().First}));
            for (const CTableItem& item : m_Items) {
                CGuardBuffer text(200);
                EXPECT_EQ(m_Records.ReadItem(item.Number, text.Data(), text.Size()), kNoMore);
                EXPECT_TRUE(text.IsUntouched());
            }
            EXPECT_EQ(m_Records.ReadNext(Group().Key), kNoMore);
        }
    }

    /// A layout with the key item alone, one character long.
    void LoadShortEntries() {
        Load(CTableBuilder().Section(Group().Type).Item(Group().Key, 1, Group().First + 1, "C"));
    }

    /// First offset at which no such entry begins.
    static int ShortEnd() { return Group().End == kWholeEntries ? 127 : Group().End; }

    std::vector<std::string> HeldLines() {
        std::vector<std::string> lines;
        for (const std::string& line : LinesOf(Group().Type)) {
            lines.push_back(line.substr(0, LineLength()));
        }
        return lines;
    }

    /// Writes so many entries, the first of them into a record that does not exist yet.
    void WriteEntries(int entries) {
        for (int entry = 0; entry < entries; ++entry) {
            ASSERT_EQ(m_Records.WriteItem(Group().Key, EntryAt(entry).Value), TABVEX_OK) << "entry " << entry;
            const CPlace place = PlaceOf(entry);
            ASSERT_EQ(Cursor(), (CPlace{place.Line, place.Offset + m_nEntry})) << "behind entry " << entry;
        }
    }

    /// Entries that fill three lines and begin a fourth, or the only line that there can be.
    int ManyEntries() const { return IsLong() ? m_nPerLine : 3 * m_nPerLine + 1; }

    std::vector<CTableItem> m_Items;
    std::vector<CTableItem> m_Header; // those of the header that the sample table has
    int m_nEntry = 0;                 // length of an entry
    int m_nEnd = 0;
    int m_nPerLine = 0;
};

TEST_P(EntryGroup, EveryEntryIsReachedAndReadWhereItLies) {
    for (const int entries : {0, 1, m_nPerLine - 1, m_nPerLine, m_nPerLine + 1, 3 * m_nPerLine - 1}) {
        SCOPED_TRACE(std::to_string(entries) + " entries");
        if (IsLong() && entries > m_nPerLine) {
            continue;
        }
        const std::vector<std::string> lines = RawLines(entries);
        Hold(lines);
        ASSERT_EQ(HeldLines(), lines);
        const int count = static_cast<int>(lines.size());
        ExpectHeader(lines[0]);
        ASSERT_NO_FATAL_FAILURE(ExpectEntries(entries, count, [this](int entry) { return RawEntry(entry); }));
        ExpectHeader(lines[0]);
        ExpectEnd(count);
        ExpectHeader(lines[0]);
        ASSERT_NO_FATAL_FAILURE(ExpectEntries(entries, count, [this](int entry) { return RawEntry(entry); }));
        EXPECT_EQ(HeldLines(), lines);
        m_Records.DestroyAllRecords();
    }
}

TEST_P(EntryGroup, SteppingBackLeadsFromBehindTheLastLineToTheFirst) {
    if (Group().BackEnd == 0) {
        Hold(RawLines(1));
        ASSERT_EQ(m_Records.ReadFirst(Group().Key), TABVEX_OK);
        EXPECT_EQ(m_Records.ReadPrev(Group().Key), kNoStepBack);
        EXPECT_EQ(Cursor(), PlaceOf(0));
        return;
    }
    Hold(RawLines(3 * m_nPerLine));
    ASSERT_EQ(m_Records.ReadFirst(Group().Key), TABVEX_OK);
    while (Cursor().Line < 3) {
        m_Records.ReadNext(Group().Key);
    }
    for (int line = 2; line >= 0; --line) {
        for (int offset = Group().BackEnd - m_nEntry; offset >= Group().First; offset -= m_nEntry) {
            ASSERT_EQ(m_Records.ReadPrev(Group().Key), TABVEX_OK);
            ASSERT_EQ(Cursor(), (CPlace{line, offset}));
            const std::string text = OfGroup().GetLine(line);
            ExpectEntry(text.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(m_nEntry)));
        }
    }
    const CPlace first = Cursor();
    EXPECT_EQ(m_Records.ReadPrev(Group().Key), kNoMore);
    EXPECT_EQ(Cursor(), first);
}

TEST_P(EntryGroup, EntriesAreWrittenOneBehindTheOtherIntoLinesThatGrow) {
    const int entries = ManyEntries();
    ASSERT_NO_FATAL_FAILURE(WriteEntries(entries));
    const std::vector<std::string> lines = WrittenLines(entries);
    ASSERT_EQ(lines.size(), IsLong() ? 1U : 4U);
    EXPECT_EQ(HeldLines(), lines);
    ASSERT_NO_FATAL_FAILURE(
        ExpectEntries(entries, static_cast<int>(lines.size()), [](int entry) { return EntryAt(entry).Fields; }));
    ExpectEnd(static_cast<int>(lines.size()));
}

TEST_P(EntryGroup, WrittenEntriesAreSavedByteForByteAndReadBack) {
    ASSERT_NO_FATAL_FAILURE(WriteEntries(ManyEntries()));
    ASSERT_EQ(m_Records.SetRecNums("*", 1), TABVEX_OK);
    std::vector<std::string> lines = WrittenLines(ManyEntries());
    if (!IsLong()) { // which is not numbered
        lines[0][kMarkerOffset] = '1';
        lines[1][kMarkerOffset] = '2';
        lines[2][kMarkerOffset] = '2';
        lines[3][kMarkerOffset] = '3';
    }
    for (const std::string separator : {"\r\n", ""}) {
        const std::string path = m_Folder.PathOf("saved.rec");
        ASSERT_EQ(m_Records.SaveAllRecords(path.c_str(), separator.empty() ? 0 : 1), 1);
        EXPECT_EQ(ReadFile(path), Joined(lines, separator));
        EXPECT_EQ(HeldLines(), lines);
    }
    const bool readsAsItself = std::string(Group().Type) != "W2N"; // whose lines in a file are those of W2
    Hold(lines);
    if (readsAsItself) {
        ASSERT_NO_FATAL_FAILURE(ExpectEntries(ManyEntries(), static_cast<int>(lines.size()),
                                              [](int entry) { return EntryAt(entry).Fields; }));
        ExpectHeader(lines[0]);
    }
}

TEST_P(EntryGroup, OnlyTheKeyItemStepsAndWrites) {
    Hold(RawLines(1));
    const std::vector<std::string> before = HeldLines();
    for (const CTableItem& item : SampleTable().at(Group().Type)) {
        const bool isKey = std::any_of(Groups().begin(), Groups().end(),
                                       [&item](const CGroup& group) { return group.Key == item.Number; });
        if (!isKey) {
            EXPECT_EQ(m_Records.ReadFirst(item.Number), kWrongKey) << item.Number;
            EXPECT_EQ(m_Records.ReadNext(item.Number), kWrongKey) << item.Number;
            EXPECT_EQ(m_Records.ReadPrev(item.Number), Group().BackEnd == 0 ? kNoStepBack : kWrongKey) << item.Number;
            EXPECT_EQ(m_Records.WriteItem(item.Number, EntryAt(0).Value), kNotTheKey) << item.Number;
        }
    }
    EXPECT_EQ(HeldLines(), before);
}

TEST_P(EntryGroup, AValueOfTooManyOrTooFewPartsWritesNothing) {
    Hold(RawLines(1));
    const std::vector<std::string> before = HeldLines();
    ASSERT_EQ(m_Records.ReadFirst(Group().Key), TABVEX_OK);
    const std::string value = EntryAt(0).Value;
    EXPECT_EQ(m_Records.WriteItem(Group().Key, (value + "/").c_str()), kWrongParts);
    EXPECT_EQ(m_Records.WriteItem(Group().Key, ("/" + value).c_str()), kWrongParts);
    if (m_Items.size() > 1) {
        EXPECT_EQ(m_Records.WriteItem(Group().Key, value.substr(value.find('/') + 1).c_str()), kWrongParts);
        EXPECT_EQ(m_Records.WriteItem(Group().Key, ""), kWrongParts);
    }
    EXPECT_EQ(HeldLines(), before);
    EXPECT_EQ(Cursor(), PlaceOf(0));
}

TEST_P(EntryGroup, ItemsOfNeitherHeaderNorEntryAreRefusedOrCutToTheEntry) {
    Hold(RawLines(1));
    ASSERT_EQ(m_Records.ReadFirst(Group().Key), TABVEX_OK);
    for (const CTableItem& item : SampleTable().at(Group().Type)) {
        const bool isExtra = item.Number == 16330;
        const bool isOfAGroup = std::any_of(Groups().begin(), Groups().end(), [&item](const CGroup& group) {
            return item.Number >= group.Key && item.Number <= group.Highest;
        });
        const auto isItem = [&item](int number) { return number == item.Number; };
        if (isExtra || isOfAGroup || std::any_of(Group().Header.begin(), Group().Header.end(), isItem)) {
            continue;
        }
        CGuardBuffer text(200);
        EXPECT_EQ(m_Records.ReadItem(item.Number, text.Data(), text.Size()),
                  Is(kForeignFails) ? kForeignItem : TABVEX_OK)
            << item.Number;
        EXPECT_TRUE(Is(kForeignFails) ? text.IsUntouched() : text.Text().empty()) << item.Number;
    }
}

// Entries of one character begin at every offset that may have one.
TEST_P(EntryGroup, EntriesBeginUpToTheEndOfTheLineAndNoFurther) {
    LoadShortEntries();
    std::string line = BareLine();
    std::replace(line.begin(), line.end(), ' ', 'x');
    Hold(IsLong() ? std::vector<std::string>{line} : std::vector<std::string>{line, line});
    ASSERT_EQ(m_Records.ReadFirst(Group().Key), TABVEX_OK);
    for (int offset = Group().First; offset < ShortEnd(); ++offset) {
        ASSERT_EQ(Cursor(), (CPlace{0, offset}));
        EXPECT_EQ(Item(Group().Key), "x");
        ASSERT_EQ(m_Records.ReadNext(Group().Key), IsLong() && offset + 1 == ShortEnd() ? kNoMore : TABVEX_OK);
    }
    EXPECT_EQ(Cursor(), (CPlace{IsLong() ? 0 : 1, Group().First}));
}

TEST_P(EntryGroup, EntriesAreWrittenUpToTheEndOfTheLineAndNoFurther) {
    LoadShortEntries();
    const std::string full = EntryAt(0).Value;
    const auto delimiters = static_cast<std::size_t>(std::count(full.begin(), full.end(), '/'));
    const std::string value = "x" + std::string(Is(kListed) ? delimiters : 0, '/');
    const int end = Group().WriteEnd == 0 ? ShortEnd() : Group().WriteEnd;
    for (int offset = Group().First; offset < end; ++offset) {
        ASSERT_EQ(m_Records.WriteItem(Group().Key, value.c_str()), TABVEX_OK);
        ASSERT_EQ(Cursor(), (CPlace{0, offset + 1}));
    }
    std::string line(LineLength(), ' ');
    const auto written = static_cast<std::size_t>(end - Group().First);
    PutText(line, Group().First, std::string(written, 'x'));
    EXPECT_EQ(HeldLines(), std::vector<std::string>{line});
    EXPECT_EQ(m_Records.WriteItem(Group().Key, value.c_str()), IsLong() ? kNoMore : TABVEX_OK);
    EXPECT_EQ(OfGroup().GetLineCount(), IsLong() ? 1 : 2);
    EXPECT_EQ(Cursor(), IsLong() ? (CPlace{0, end}) : (CPlace{1, Group().First + 1}));
}

TEST_P(EntryGroup, TheFirstEntryOfAnEntryWithoutLengthIsTold) {
    Load(CTableBuilder()); // no layout at all
    if (std::string(Group().Type) == "W2N") {
        std::string line = BareLine();
        ASSERT_EQ(m_Records.SetCompleteRecord("W2N", line.data(), 129), TABVEX_OK);
    } else {
        ReadLines(BareLine() + "\n");
        const std::string type = Group().Type;
        if (type == "X2N" || type == "X9_NEU") { // lines of any length show no newer form
            Hold({BareLine()});
        }
    }
    EXPECT_EQ(m_Records.ReadFirst(Group().Key), Is(kEmptyFails) ? kEmptySpan : TABVEX_OK);
}

std::string NameOf(const ::testing::TestParamInfo<CGroup>& info) {
    return std::string(info.param.Type) + "_" + std::to_string(info.param.Key);
}

INSTANTIATE_TEST_SUITE_P(AllTypes, EntryGroup, ::testing::ValuesIn(Groups()), NameOf);

// A new type has no entries before its groups are in the library's table, and no test before they are in this one.
TEST(EntryGroups, EveryTypeWithAClassOfItsOwnIsExpectedHere) {
    std::map<std::string, int> groupsOf;
    for (const CGroup& group : Groups()) {
        ++groupsOf[group.Type];
    }
    for (const tabvex::CRecordTypeRow& row : tabvex::kRecordTypes) {
        const std::string type(row.Key);
        const bool hasOtherEntries = type == "G3" || type == "G9" || type == "X4";
        if (row.Class == tabvex::ERecordClass::Own && !hasOtherEntries) {
            EXPECT_EQ(groupsOf[type], type == "W7" || type == "X7" ? 2 : 1) << type;
        }
    }
}

} // namespace
