// Random calls on records of repair positions and mutations, held against a plain list of entries kept beside them.
#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "support/mutation_cells.h"
#include "support/record_set_test.h"

namespace {

constexpr std::size_t kHeader = 7;
constexpr std::size_t kCell = 15;
constexpr std::size_t kCells = 8;
constexpr std::size_t kMarker = 6;

const std::vector<std::string> kMethods = {"E", "ET", "LE", "LE1", "I"};
const std::vector<std::string> kAmountCodes = {"EM", "IM", "BM"};
const std::vector<std::string> kTextCodes = {"TM", "UM"};

bool IsOneOf(const std::string& code, const std::vector<std::string>& codes) {
    return std::find(codes.begin(), codes.end(), code) != codes.end();
}

/// What an amount's field of 12 characters is read as.
const std::map<std::string, std::string> kAmountsRead = {
    {"       12.50", "0: 12.5"}, {"       -3.00", "0: -3"},   {"        0.00", "0: 0"},    {"999999999.99", "0: 1e+09"},
    {"        -4,5", "0: -4.5"}, {"        abc ", "-66: -1"}, {"            ", "-101: -1"}};

/// Their fields.
const std::vector<std::string> kAmountFields = [] {
    std::vector<std::string> fields;
    for (const auto& [field, read] : kAmountsRead) {
        fields.push_back(field);
    }
    return fields;
}();

const std::string kBlankCell(kCell, ' ');

/// The record as a list of entries, by the rules of the format alone.
class CModel {
public:
    struct CEntry {
        std::string Cell;
        std::vector<std::string> Mutations;
        std::size_t Index; // cell of the position, counted over all lines
    };

    std::vector<std::string> Lines;
    std::vector<CEntry> Entries;
    std::size_t Current = 0;
    std::size_t WriteAt = 0;

    CEntry* Entry() { return Current < Entries.size() ? &Entries[Current] : nullptr; }
    void Select(std::size_t entry) { Current = WriteAt = std::min(entry, Entries.size()); }

    /// Takes the entries from the lines; the entry whose cell is `current`, else the first, is current.
    void Parse(std::size_t current = 0) {
        Entries.clear();
        m_Skipped.clear();
        m_bChanged = false;
        for (std::size_t index = 0; index < Lines.size() * kCells; ++index) {
            Take(Lines[index / kCells].substr(kHeader + index % kCells * kCell, kCell), index);
        }
        Select(0);
        for (std::size_t entry = 0; entry < Entries.size(); ++entry) {
            if (Entries[entry].Index == current) {
                Select(entry);
            }
        }
    }

    void Change() { m_bChanged = true; }

    /// Puts changed entries into the lines.
    void Flush() {
        if (!m_bChanged) {
            return;
        }
        m_bChanged = false;
        const std::vector<std::string> cells = AllCells();
        while (Lines.size() * kCells < cells.size()) {
            Lines.emplace_back(128, ' ');
        }
        const std::string header = Lines[0].substr(0, kHeader);
        for (std::size_t index = 0; index < Lines.size() * kCells; ++index) {
            std::string& line = Lines[index / kCells];
            line.replace(0, kHeader, header);
            line.replace(kHeader + index % kCells * kCell, kCell, index < cells.size() ? cells[index] : kBlankCell);
        }
    }

    /// The lines as they are saved.
    std::string Save(const std::string& lineEnd) {
        Flush();
        std::string text;
        for (std::size_t line = 0; line < Lines.size(); ++line) {
            Lines[line][kMarker] = line == 0 ? '1' : '2';
            Lines[line][kMarker] = line + 1 == Lines.size() ? '3' : Lines[line][kMarker];
            text += Lines[line] + lineEnd;
        }
        return text;
    }

private:
    static std::string CodeOf(const std::string& cell) { return cell.substr(0, std::min<std::size_t>(3, Blank(cell))); }
    static std::size_t Blank(const std::string& cell) { return cell.find(' ', 1); }

    void Take(const std::string& cell, std::size_t index) {
        const std::string code = CodeOf(cell);
        const bool isMutation = IsOneOf(code, kAmountCodes) || IsOneOf(code, kTextCodes);
        if (IsOneOf(code, kMethods)) {
            Entries.push_back({cell, {}, index});
        } else if (isMutation && !Entries.empty() && Entries.back().Mutations.size() < 3) {
            Entries.back().Mutations.push_back(cell);
        } else if (cell != kBlankCell) {
            m_Skipped.emplace_back(Entries.size(), cell);
        }
    }

    std::vector<std::string> AllCells() {
        std::vector<std::string> cells;
        for (std::size_t count = 0; count <= Entries.size(); ++count) {
            if (count > 0) {
                CEntry& entry = Entries[count - 1];
                entry.Index = cells.size();
                cells.push_back(entry.Cell);
                cells.insert(cells.end(), entry.Mutations.begin(), entry.Mutations.end());
            }
            for (const auto& [behind, cell] : m_Skipped) {
                if (behind == count) {
                    cells.push_back(cell);
                }
            }
        }
        return cells;
    }

    std::vector<std::pair<std::size_t, std::string>> m_Skipped; // behind how many entries
    bool m_bChanged = false;
};

class MutationModel : public RecordSetTest, public ::testing::WithParamInterface<const CMutationType*> {
protected:
    MutationModel() {
        Load(MutationTable());
        (void)m_Records.UseX4New(1);
        m_Records.SetMutationList(Type().Name, "EM/1/IM/1/BM/2/TM/3/UM/3");
    }

    static const CMutationType& Type() { return *GetParam(); }
    static int Key() { return Type().Key(); }

    // --- Chance ---

    std::size_t Below(std::size_t end) { return static_cast<std::size_t>(m_Random()) % end; }
    bool OneIn(std::size_t times) { return Below(times) == 0; }
    const std::string& Any(const std::vector<std::string>& texts) { return texts[Below(texts.size())]; }

    std::string AnyCell() {
        const std::string text = std::to_string(Below(10000));
        switch (Below(8)) {
        case 0:
        case 1:
            return PositionCell(Any(kMethods), text, "  10", "1", text.substr(0, 3));
        case 2:
        case 3:
            return Padded(Any(kAmountCodes), 3) + Any(kAmountFields);
        case 4:
            return TextsCell(Any(kTextCodes), text.substr(0, 2), text);
        case 5:
            return TextsCell(Any({"QQ", "e", " E", "EMX", "\xC4M", ""}), "", text);
        default:
            return kBlankCell;
        }
    }

    std::string AnyLine() {
        std::vector<std::string> cells(Below(kCells + 1));
        std::generate(cells.begin(), cells.end(), [this] { return AnyCell(); });
        const std::string number = std::to_string(1000 + Below(9000));
        return CellLine(Type().Name + number + " ", cells, OneIn(2) ? 'z' : ' ');
    }

    // --- Calls on both ---

    void ReadAnew() {
        CRecordBuilder records;
        m_Model.Lines.clear();
        for (std::size_t count = 1 + Below(4); count > 0; --count) {
            m_Model.Lines.push_back(AnyLine());
            records.Add(Type().Name).Put(0, m_Model.Lines.back());
        }
        m_Model.Parse();
        const std::string path = records.Save(m_Folder.PathOf("model.rec"), OneIn(2));
        if (OneIn(2)) {
            ASSERT_EQ(m_Records.ReadAllRecords(path.c_str()), 1);
        } else {
            ASSERT_EQ(m_Records.ReadAllRecordsEx(path.c_str()), 0);
        }
    }

    void CreateAnew() {
        m_Records.DestroyAllRecords();
        m_Model.Lines = {Padded(Type().Name)};
        m_Model.Parse();
        ASSERT_EQ(m_Records.WriteItem(Key(), "creates the record only"), -7);
    }

    void First() {
        m_Model.Select(0);
        ASSERT_EQ(m_Records.ReadFirst(Key()), m_Model.Entries.empty() ? -5 : 0);
    }

    void Next() {
        m_Model.Select(m_Model.Current + 1);
        ASSERT_EQ(m_Records.ReadNext(Key()), m_Model.Entry() == nullptr ? -5 : 0);
    }

    void AddOk(const std::string& call, const std::string& cell) {
        CModel::CEntry* entry = m_Model.Entry();
        const bool isFull = entry != nullptr && entry->Mutations.size() == 3;
        ASSERT_EQ((m_Records.*Type().Add)(call.c_str()), entry == nullptr || isFull ? -5 : 0) << call;
        if (entry == nullptr || isFull) {
            return;
        }
        const auto same = std::find_if(entry->Mutations.begin(), entry->Mutations.end(), [&](const std::string& other) {
            return other.substr(0, 3) == cell.substr(0, 3);
        });
        if (same == entry->Mutations.end()) {
            entry->Mutations.push_back(cell);
        } else {
            *same = cell;
        }
        m_Model.Change();
    }

    void Add() {
        if (OneIn(3)) {
            const std::string& code = Any(kTextCodes);
            const std::string text = std::to_string(Below(1000));
            AddOk(code + (OneIn(2) ? "/A/" : "//A/") + text, TextsCell(code, "A", text));
            return;
        }
        static const std::vector<std::pair<std::string, std::string>> kAmounts = {
            {"12,5", "12.50"}, {"-3", "-3.00"}, {"0", "0.00"}, {"999999999.99", "999999999.99"}};
        const auto& [amount, field] = kAmounts[Below(kAmounts.size())];
        const std::string& code = Any(kAmountCodes);
        AddOk(code + "/" + amount + (OneIn(2) ? "" : "//"), AmountCell(code, field));
    }

    void AddWrong() {
        static const std::vector<std::pair<const char*, int>> kCalls = {
            {"", -7}, {"EM/1/2/3/4", -7}, {"QQ/1", -55}, {"EM/x", -66}, {"EM/1.234", -65}, {"TM/ABC/x", -45}};
        const auto& [call, code] = kCalls[Below(kCalls.size())];
        const CModel::CEntry* entry = m_Model.Entry();
        ASSERT_EQ((m_Records.*Type().Add)(call), entry == nullptr || entry->Mutations.size() == 3 ? -5 : code) << call;
    }

    void DeleteOne() {
        const std::string code = OneIn(3) ? Any(kTextCodes) : Any(kAmountCodes);
        CModel::CEntry* entry = m_Model.Entry();
        int expected = 0;
        if (entry != nullptr && !entry->Mutations.empty()) {
            const auto found = std::find_if(entry->Mutations.begin(), entry->Mutations.end(),
                                            [&](const std::string& cell) { return cell.substr(0, 2) == code; });
            expected = found == entry->Mutations.end() ? -90 : 0;
            if (found != entry->Mutations.end()) {
                entry->Mutations.erase(found);
                m_Model.Change();
            }
        }
        ASSERT_EQ((m_Records.*Type().DeleteOne)(code.c_str()), expected) << code;
    }

    void DeleteAll() {
        CModel::CEntry* entry = m_Model.Entry();
        const std::size_t count = entry == nullptr ? 0 : entry->Mutations.size();
        ASSERT_EQ((m_Records.*Type().DeleteAll)(), static_cast<int>(count));
        if (count > 0) {
            entry->Mutations.clear();
            m_Model.Change();
        }
    }

    /// A part of an entry, what it leaves in its field ("": nothing) and the code of its check.
    struct CPart {
        std::string Text;
        std::string Field;
        int Result;
    };

    std::vector<CPart> AnyParts() {
        const std::string& method = Any(kMethods);
        const std::string name = std::to_string(Below(10000));
        const auto choose = [this](const CPart& good, const CPart& bad) {
            return OneIn(8) ? bad : OneIn(5) ? CPart{OneIn(2) ? "" : "  ", "", 0} : good;
        };
        return {choose({method, Padded(method, 3), 0}, {"QQ", "", -55}),
                {name, Padded(name, 4), 0},
                choose({"7", "   7", 0}, {"x", "", -66}),
                choose({"2", "2", 0}, {"9", "", -55}),
                choose({"ab", "ab ", 0}, {"abcd", "", -45})};
    }

    void WriteEntry() {
        const std::vector<CPart> parts = AnyParts();
        static const std::vector<std::size_t> kOffsets = {0, 3, 7, 11, 12};
        const bool isNew = m_Model.WriteAt >= m_Model.Entries.size();
        std::string cell = isNew ? kBlankCell : m_Model.Entries[m_Model.WriteAt].Cell;
        std::string call;
        int expected = 0;
        for (std::size_t part = 0; part < parts.size(); ++part) {
            call += (part == 0 ? "" : "/") + parts[part].Text;
            cell.replace(kOffsets[part], parts[part].Field.size(), parts[part].Field);
            expected = parts[part].Result == 0 ? expected : parts[part].Result;
        }
        const bool isRefused = isNew && parts[0].Field.empty();
        ASSERT_EQ(m_Records.WriteItem(Key(), call.c_str()), isRefused ? -55 : expected) << call;
        if (isRefused) {
            return;
        }
        if (isNew) {
            m_Model.Entries.push_back({cell, {}, 0});
        }
        m_Model.Entries[m_Model.WriteAt].Cell = cell;
        m_Model.Current = m_Model.WriteAt++;
        m_Model.Change();
    }

    void HardWrite() {
        if (m_Model.Entry() == nullptr) {
            return;
        }
        m_Model.Flush();
        const std::size_t current = m_Model.Entry()->Index;
        static const std::vector<std::pair<int, std::size_t>> kItems = {{5, 2}, {25, 7}, {30, 10}};
        const auto& [number, offset] = kItems[Below(kItems.size())];
        const std::string text =
            number == 25 ? Padded(Any({"E", "EM", "TM", "QQ", "", "LE1"}), 3) : std::to_string(1000 + Below(9000));
        m_Model.Lines[current / kCells].replace(offset, text.size(), text);
        m_Model.Parse(current);
        ASSERT_EQ(m_Records.HardWriteItem(Type().Item(number), text.c_str()), 0);
    }

    void AddLine() {
        m_Model.Flush();
        m_Model.Lines.push_back(AnyLine());
        std::string line = m_Model.Lines.back() + " ";
        ASSERT_EQ(m_Records.SetCompleteRecord(Type().Name, line.data(), 129), 0);
        m_Model.Parse();
        First();
    }

    void Save() {
        const bool crlf = OneIn(2);
        const std::string path = m_Folder.PathOf("saved.rec");
        ASSERT_EQ(m_Records.SaveAllRecords(path.c_str(), crlf ? 1 : 0), 1);
        ASSERT_EQ(ReadFile(path), m_Model.Save(crlf ? "\r\n" : ""));
        ASSERT_EQ(Written(), m_Model.Save(""));
        if (OneIn(3)) {
            ASSERT_EQ(m_Records.ReadAllRecordsEx(path.c_str()), 0);
            m_Model.Parse();
        }
    }

    void LookAtLines() {
        m_Model.Flush();
        std::string line(128, '\0');
        ASSERT_EQ(m_Records.GetFirstCompleteRecord(Type().Name, line.data(), 128), 0);
        ASSERT_EQ(line, m_Model.Lines[0]);
    }

    // --- Comparing ---

    /// What reading a mutation gives, as ReadMutation shows it; only its code when a raw write spoiled an amount.
    static std::string Shown(const std::string& cell) {
        const std::string code = cell.substr(0, 2);
        if (IsOneOf(code, kTextCodes)) {
            return "0: " + code + " -1 '" + cell.substr(3, 2) + "' '" + cell.substr(5) + "'";
        }
        const auto known = kAmountsRead.find(cell.substr(3));
        if (known == kAmountsRead.end()) {
            return ": " + code + " ";
        }
        const std::string& read = known->second;
        return std::string(read).insert(read.find(' '), " " + code) + " '' ''";
    }

    void Compare() {
        const CModel::CEntry* entry = m_Model.Entry();
        const std::size_t count = entry == nullptr ? 0 : entry->Mutations.size();
        ASSERT_EQ((m_Records.*Type().Count)(), static_cast<int>(count));
        for (std::size_t index = 0; index < 3; ++index) {
            const std::string expected = index < count ? Shown(entry->Mutations[index]) : "-90:  -1 '' ''";
            const std::string read = ReadMutation(m_Records, Type(), static_cast<int>(index) + 1);
            ASSERT_NE(read.find(expected), std::string::npos) << read << " instead of " << expected;
        }
        std::string name(5, '\0');
        ASSERT_EQ(m_Records.ReadItem(Type().Item(30), name.data(), 5), entry == nullptr ? -5 : 0);
        ASSERT_TRUE(entry == nullptr || name.substr(0, 4) == entry->Cell.substr(3, 4)) << name;
    }

    /// One call, the same on the record and on the model.
    void Step() {
        using CCall = void (MutationModel::*)();
        static const std::vector<std::pair<const char*, CCall>> kCalls = {{"First ", &MutationModel::First},
                                                                          {"Next ", &MutationModel::Next},
                                                                          {"Next ", &MutationModel::Next},
                                                                          {"Next ", &MutationModel::Next},
                                                                          {"Add ", &MutationModel::Add},
                                                                          {"Add ", &MutationModel::Add},
                                                                          {"Add ", &MutationModel::Add},
                                                                          {"AddWrong ", &MutationModel::AddWrong},
                                                                          {"DeleteOne ", &MutationModel::DeleteOne},
                                                                          {"DeleteOne ", &MutationModel::DeleteOne},
                                                                          {"DeleteAll ", &MutationModel::DeleteAll},
                                                                          {"WriteEntry ", &MutationModel::WriteEntry},
                                                                          {"WriteEntry ", &MutationModel::WriteEntry},
                                                                          {"HardWrite ", &MutationModel::HardWrite},
                                                                          {"AddLine ", &MutationModel::AddLine},
                                                                          {"LookAtLines ", &MutationModel::LookAtLines},
                                                                          {"Save ", &MutationModel::Save}};
        const auto& [name, call] = kCalls[Below(kCalls.size())];
        m_strTrail += name;
        (this->*call)();
    }

    void RunSequence(unsigned seed) {
        m_Random.seed(seed);
        m_strTrail = "seed " + std::to_string(seed) + ": ";
        ASSERT_EQ(m_Records.SetRecNums("*", 1), 0);
        if (OneIn(5)) {
            CreateAnew();
        } else {
            ReadAnew();
        }
        for (int step = 0; step < 50 && !HasFailure(); ++step) {
            Step();
            Compare();
        }
        Save();
    }

    CModel m_Model;
    std::mt19937 m_Random;
    std::string m_strTrail;
};

INSTANTIATE_TEST_SUITE_P(Types, MutationModel, ::testing::Values(&kX4, &kG9),
                         [](const auto& test) { return std::string(test.param->Name); });

TEST_P(MutationModel, RandomCallsLeaveTheLinesThatTheModelTells) {
    for (unsigned seed = 1; seed <= 120 && !HasFailure(); ++seed) {
        RunSequence(seed);
        ASSERT_FALSE(HasFailure()) << m_strTrail;
    }
}

} // namespace
