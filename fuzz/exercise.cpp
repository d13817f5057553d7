#include "exercise.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "core/record_types.h"
#include "memory_file.h"

namespace tabvex::fuzz {

namespace {

// Some operations answer 0 for ever (list types stand still), so that every loop is bounded.
constexpr int kMostSteps = 16;
constexpr int kMostItems = 40;
constexpr int kMostRecords = 80;
constexpr std::size_t kMostVisits = 100;
constexpr int kCompleteLine = 129;
constexpr int kLineLength = 128;

constexpr std::array<const char*, 13> kTexts = {"",          " ",          "1",        "-12,5", "1e3",
                                                "AB",        "24.03.2015", "20160229", "a/1/2", "1/2/3/4",
                                                "E/1/2/3/4", "///////",    "LM/12/x/y"};
constexpr std::array<const char*, 6> kDateFormats = {"DD.MM.YYYY", "YYYYMMDD", "MM/YY", "YYYY", "DDMMYY", "Y"};
constexpr std::array<const char*, 7> kMutations = {"LM/12", "TM/a/b", "PM/1/2/3", "LM/1//", "SM/0.5", "/", "x"};
constexpr std::array<const char*, 4> kMutationCodes = {"LM", "TM", "", "zzzz"};
constexpr std::array<double, 5> kAmounts = {0.0, -0.5, 12.345, 1e9, -1e300};
constexpr std::array<int, 4> kNumbers = {0, -7, 42, 2147483647};
constexpr std::array<int, 4> kMutationSizes = {0, 3, 10, 20};
constexpr std::array<int, 5> kSizes = {0, 1, 14, 20, 200};

// A buffer on the heap, where a write behind its end is noticed.
class CBuffer {
public:
    explicit CBuffer(int size) : m_Bytes(static_cast<std::size_t>(size), '\x7f') {}
    char* Data() { return m_Bytes.data(); }
    int Size() const { return static_cast<int>(m_Bytes.size()); }

    void RequireText(int result) const {
        const bool delivered = result == TABVEX_OK || result == TABVEX_TEXT_CUT;
        Require(!delivered || m_Bytes.empty() || std::memchr(m_Bytes.data(), '\0', m_Bytes.size()) != nullptr);
    }

private:
    std::vector<char> m_Bytes;
};

void ReadText(CAllRecordsEx& records, int item, CChoices& choices) {
    const int size = choices.OneOf(kSizes);
    CBuffer text(size);
    switch (choices.Below(6)) {
    case 0:
        return text.RequireText(records.ReadCharItem(item, text.Data(), size));
    case 1:
        return text.RequireText(records.ReadIntItem(item, text.Data(), size));
    case 2:
        return text.RequireText(records.ReadFloatItem(item, text.Data(), size));
    case 3:
        return text.RequireText(records.HardReadDynItem(item, text.Data(), size));
    case 4:
        return text.RequireText(records.ReadDateItem(item, choices.OneOf(kDateFormats), text.Data(), size));
    default:
        return text.RequireText(records.ReadItem(item, text.Data(), size));
    }
}

void ReadValue(CAllRecordsEx& records, int item, CChoices& choices) {
    int number = 0;
    double amount = 0;
    records.ReadIntItem(item, number);
    records.ReadFloatItem(item, amount);
    ReadText(records, item, choices);
    ReadText(records, item, choices);
}

// Half of the texts suit the item better than any that are made up.
std::string TextFor(const CItemDef& definition, CChoices& choices) {
    const auto length = static_cast<std::size_t>(std::clamp(definition.Length, 0, kLineLength));
    std::string made = choices.OneOf(kTexts);
    switch (choices.Below(8)) {
    case 0:
        return definition.Default;
    case 1:
        return made.substr(0, 1).append(length, '9');
    case 2:
        return definition.Values.empty() ? made : choices.OneOf(definition.Values);
    case 3:
        return definition.Ranges.empty() ? made : choices.OneOf(definition.Ranges).LowerBound;
    default:
        return made;
    }
}

void WriteNumber(CAllRecordsEx& records, int item, CChoices& choices) {
    records.WriteFloatItem(item, choices.OneOf(kAmounts));
    records.WriteRoundFloatItem(item, choices.OneOf(kAmounts));
    records.WriteIntItem(item, choices.OneOf(kNumbers));
}

void WriteText(CAllRecordsEx& records, int item, const std::string& text, CChoices& choices) {
    records.WriteItem(item, text.c_str());
    switch (choices.Below(7)) {
    case 0:
        records.WriteCharItem(item, text.c_str());
        break;
    case 1:
        records.WriteIntItem(item, text.c_str());
        break;
    case 2:
        records.WriteFloatItem(item, text.c_str());
        break;
    case 3:
        records.HardWriteItem(item, text.c_str());
        break;
    case 4:
        records.HardWriteDynItem(item, text.c_str());
        break;
    case 5:
        records.WriteDateItem(item, choices.OneOf(kDateFormats), text.c_str());
        break;
    default:
        WriteNumber(records, item, choices);
    }
}

void Search(CAllRecordsEx& records, int item, const std::string& text) {
    int result = records.FindFirst(item, text.c_str());
    for (int step = 0; step < kMostSteps && result > 0; ++step) {
        result = records.FindNext();
    }
}

void WriteAndSearch(CAllRecordsEx& records, const CItemDef& definition, CChoices& choices) {
    const int item = definition.Number;
    records.ReadFirst(item);
    WriteText(records, item, TextFor(definition, choices), choices);
    WriteText(records, item, TextFor(definition, choices), choices);
    records.ReadPrev(item);
    ReadValue(records, item, choices);
    Search(records, item, TextFor(definition, choices));
    if (choices.Below(4) == 0) {
        records.ClearItem(item);
    }
}

// The layout as it is now: record objects, and the layout with them, may come and go while items are written.
std::vector<CItemDef> ItemsOf(const CRecord& record) {
    const std::vector<CItemDef>& items = record.GetLayout();
    const std::size_t count = std::min<std::size_t>(kMostItems, items.size());
    return {items.begin(), items.begin() + static_cast<std::ptrdiff_t>(count)};
}

void ReadMutations(CAllRecordsEx& records, CChoices& choices) {
    // A text of exactly its size fits, so that every buffer has one byte more.
    const int size = choices.OneOf(kMutationSizes);
    CBuffer code(size + 1);
    CBuffer value(size + 1);
    CBuffer text1(size + 1);
    CBuffer text2(size + 1);
    double amount = 0;
    const int index = static_cast<int>(choices.Below(5));
    records.ReadX4Mutation(index, code.Data(), size, amount, text1.Data(), size, text2.Data(), size);
    records.ReadX4Mutation(index, code.Data(), size, value.Data(), size, text1.Data(), size, text2.Data(), size);
    records.ReadG9Mutation(index, code.Data(), size, amount, text1.Data(), size, text2.Data(), size);
    records.ReadG9Mutation(index, code.Data(), size, value.Data(), size, text1.Data(), size, text2.Data(), size);
}

void WriteMutations(CAllRecordsEx& records, CChoices& choices) {
    for (std::size_t count = choices.Below(8); count > 0; --count) {
        records.AddX4Mutation(choices.OneOf(kMutations));
        records.AddG9Mutation(choices.OneOf(kMutations));
        ReadMutations(records, choices);
    }
    records.DeleteOneX4Mutation(choices.OneOf(kMutationCodes));
    records.DeleteOneG9Mutation(choices.OneOf(kMutationCodes));
    if (choices.Below(4) == 0) {
        records.DeleteX4Mutations();
        records.DeleteG9Mutations();
    }
}

void StepThrough(CAllRecordsEx& records, int item, CChoices& choices) {
    int result = records.ReadFirst(item);
    for (int step = 0; step < kMostSteps && result == TABVEX_OK; ++step) {
        ReadText(records, item, choices);
        if (records.GetX4MutationCount() > 0 || records.GetG9MutationCount() > 0) {
            ReadMutations(records, choices);
        }
        result = records.ReadNext(item);
    }
    for (int step = 0; step < kMostSteps && records.ReadPrev(item) == TABVEX_OK; ++step) {
    }
}

std::size_t CountItems(const CAllRecordsEx& records) {
    std::size_t count = 0;
    for (int index = 0; index < records.GetRecordCount(); ++index) {
        count += records.GetRecord(index)->GetLayout().size();
    }
    return count;
}

// Visits every item of a small layout; of many items some.
template <typename Visit>
void VisitItems(CAllRecordsEx& records, CChoices& choices, Visit visit) {
    const std::size_t count = std::max(CountItems(records), kMostVisits);
    for (int index = 0; index < std::min(records.GetRecordCount(), kMostRecords); ++index) {
        for (const CItemDef& definition : ItemsOf(*records.GetRecord(index))) {
            if (choices.Below(count) < kMostVisits) {
                visit(definition);
            }
        }
    }
}

void CopyLines(CAllRecordsEx& records, const char* type) {
    CBuffer line(kCompleteLine);
    records.GetFirstCompleteRecord(type, line.Data(), line.Size());
    for (int number = 1; number < kMostSteps; ++number) {
        if (records.GetNextCompleteRecord(type, line.Data(), line.Size(), number) != TABVEX_OK) {
            return;
        }
    }
}

// A size that is told must be the size that is filled, the NUL of the text included.
void WriteIntoMemory(CAllRecordsEx& records, int lf) {
    const int length = records.WriteAllRecords(nullptr, 0, lf);
    Require(length % (lf == 0 ? kLineLength : kLineLength + 1) == 0);
    if (length == 0) {
        return; // a size of 0 asks for the length
    }
    CBuffer text(length + 1);
    Require(records.WriteAllRecords(text.Data(), length, lf) == length);
    Require(text.Data()[length] == '\0');
}

template <typename Copy>
void CopyWhole(Copy copy) {
    const int length = copy(nullptr, 0);
    if (length > 0) {
        CBuffer text(length + 1);
        Require(copy(text.Data(), length + 1) == TABVEX_OK);
    }
}

} // namespace

void CreateEveryRecord(CAllRecordsEx& records) {
    for (const CRecordTypeRow& row : kRecordTypes) {
        std::array<char, kCompleteLine> line = {};
        std::memcpy(line.data(), row.Key.data(), row.Key.size());
        records.SetCompleteRecord(row.Key.data(), line.data(), kCompleteLine);
    }
}

void ReadEverything(CAllRecordsEx& records, CChoices& choices) {
    VisitItems(records, choices, [&](const CItemDef& definition) {
        ReadValue(records, definition.Number, choices);
        if (choices.Below(2) == 0) {
            StepThrough(records, definition.Number, choices);
        }
    });
}

void WriteEverything(CAllRecordsEx& records, CChoices& choices) {
    VisitItems(records, choices, [&](const CItemDef& definition) { WriteAndSearch(records, definition, choices); });
    WriteMutations(records, choices);
}

void SaveEverything(CAllRecordsEx& records) {
    records.SaveAllRecords("/dev/null", 1);
    Require(records.GetSaveErrors() == 0);
    WriteIntoMemory(records, 0);
    WriteIntoMemory(records, 1);
    for (int index = 0; index < std::min(records.GetRecordCount(), kMostRecords); ++index) {
        CopyLines(records, records.GetRecord(index)->GetType());
    }
    CopyWhole([&records](char* buffer, int size) { return records.GetX1Record(buffer, size); });
    CopyWhole([&records](char* buffer, int size) { return records.GetXDollarRecord(buffer, size); });
    CopyWhole([&records](char* buffer, int size) { return records.GetX7Record(buffer, size); });
}

} // namespace tabvex::fuzz
