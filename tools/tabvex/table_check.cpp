#include "table_check.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "cell_records.h"
#include "tabvex/all_records.h"
#include "text_layout.h"

namespace tabvex::tool {

namespace {

constexpr std::array<const char*, 9> kHeaderKeys = {"ID",      "AUTHOR",    "COUNTRY", "LANGUAGE", "DATE",
                                                    "VERSION", "DELIMITER", "COMMENT", "NEWLINE"};
constexpr std::array<const char*, 8> kComponentNames = {"",          "format letter", "default text", "fill character",
                                                        "modifiers", "ranges",        "value list",   "date pattern"};
constexpr std::size_t kNumberColumn = 0;
constexpr std::size_t kLengthColumn = 1;
constexpr std::size_t kPositionColumn = 2;
constexpr std::size_t kDescriptorColumn = 3;
constexpr std::size_t kColumnCount = 4;
constexpr std::size_t kLongestDescriptor = 500;
constexpr int kHighestItem = 999999; // item numbers have six digits at most

// The record types that own items are the ones that a section can describe.
const std::set<std::string>& RecordTypes() {
    static const std::set<std::string> types = [] {
        std::set<std::string> result;
        std::string last;
        for (int item = 0; item <= kHighestItem; ++item) {
            const char* type = CAllRecords::GetTypeOfItem(item);
            if (last != type) {
                last = type;
                result.insert(last);
            }
        }
        result.erase("");
        return result;
    }();
    return types;
}

std::string ItemName(const CItemDef& item) {
    return "item " + std::to_string(item.Number);
}

std::string Characters(int first, int last) {
    return first == last ? "character " + std::to_string(first)
                         : "characters " + std::to_string(first) + " to " + std::to_string(last);
}

// Checks the places of the items of one section.
class CPlaces {
public:
    CPlaces(const CRecordShape& shape, const std::string& type, CTableFindings& result)
        : m_Shape(shape), m_strType(type), m_Result(result) {}

    void Check(const std::vector<CTableItem>& items) {
        // Header items first, so that an entry item is told that it lies over one of them, wherever that stands.
        for (const CTableItem& item : items) {
            if (IsPlaced(item) && LayerOf(item) == kHeader) {
                Place(item, {kHeader});
            }
        }
        for (const CTableItem& item : items) {
            if (IsPlaced(item) && LayerOf(item) != kHeader) {
                Place(item, {kHeader, LayerOf(item)});
            }
        }
    }

private:
    using CLayer = std::vector<const CItemDef*>; // by character of the line: the item first placed there
    static constexpr int kHeader = 0;

    static bool IsPlaced(const CTableItem& item) {
        return item.IsComplete() && item.Definition.Position > 0 && item.Definition.Length > 0;
    }

    // Items of different entry groups, or of different kinds of cells, cannot be in each other's way.
    int LayerOf(const CTableItem& item) const {
        const int kind = CCellLayout::KindOfItem(m_strType, item.Definition.Number);
        const CEntryGroup* group = m_Shape.FindGroup(item.Definition.Number);
        if (kind >= 0) {
            return kind + 1;
        }
        return group == nullptr ? kHeader : static_cast<int>(group - m_Shape.Groups.data()) + 1;
    }

    void Place(const CTableItem& item, const std::vector<int>& layers) {
        const int length = m_Shape.LineLength;
        const int first = item.Definition.Position - 1;
        const int last = static_cast<int>(std::min<long long>(length, 0LL + first + item.Definition.Length));
        for (const int number : layers) {
            CLayer& layer = m_Layers[number];
            layer.resize(static_cast<std::size_t>(length), nullptr);
            for (int i = first; i < last; ++i) {
                if (layer[static_cast<std::size_t>(i)] != nullptr) {
                    Report(item, *layer[static_cast<std::size_t>(i)], number);
                    break;
                }
            }
        }
        CLayer& own = m_Layers[layers.back()];
        for (int i = first; i < last; ++i) {
            const CItemDef*& owner = own[static_cast<std::size_t>(i)];
            owner = owner == nullptr ? &item.Definition : owner;
        }
    }

    // Within an entry, an item over others is another way to read them.
    void Report(const CTableItem& item, const CItemDef& other, int layer) {
        const bool withinEntry = layer != kHeader && !CCellLayout::IsCellType(m_strType);
        const int first = std::max(item.Definition.Position, other.Position);
        const int last = std::min(item.Definition.Position + item.Definition.Length, other.Position + other.Length) - 1;
        CFinding finding = {item.Line, ItemName(item.Definition) + ": overlaps " + ItemName(other) + " (" +
                                           Characters(first, last) + ")"};
        (withinEntry ? m_Result.Notes : m_Result.Findings).push_back(std::move(finding));
    }

    const CRecordShape& m_Shape;
    const std::string& m_strType;
    CTableFindings& m_Result;
    std::map<int, CLayer> m_Layers;
};

class CTableCheck {
public:
    CTableCheck(const CTableText& table, CShapeFinder* shapes) : m_Table(table), m_pShapes(shapes) {}

    CTableFindings Run(const std::string& type) {
        CheckHeader();
        for (const int line : m_Table.GetCutLines()) {
            Report(line, "the line has more than 1999 characters; the rest of it is not read");
        }
        bool found = type.empty();
        for (const CTableSection& section : m_Table.GetSections()) {
            if (type.empty() || section.Type == type) {
                CheckSection(section);
                found = true;
            }
        }
        if (!found) {
            Report(0, "no section [DATA_" + type + "]");
        }
        SortByLine(m_Result.Findings);
        SortByLine(m_Result.Notes);
        return std::move(m_Result);
    }

private:
    void Report(int line, std::string text) { m_Result.Findings.push_back({line, std::move(text)}); }

    static void SortByLine(CFindings& findings) {
        std::stable_sort(findings.begin(), findings.end(),
                         [](const CFinding& a, const CFinding& b) { return a.Line < b.Line; });
    }

    void CheckHeader() {
        if (m_Table.GetHeaderLine() == 0) {
            Report(0, "no [HEADER] section");
            return;
        }
        for (const char* name : kHeaderKeys) {
            if (m_Table.FindKey(name) == nullptr) {
                Report(m_Table.GetHeaderLine(), std::string("header: no ") + name);
            }
        }
        for (const CTableKey& key : m_Table.GetLostKeys()) {
            if (std::find(kHeaderKeys.begin(), kHeaderKeys.end(), key.Name) != kHeaderKeys.end()) {
                Report(key.Line, "header: " + key.Name + " is not read: the line of blanks at line " +
                                     std::to_string(m_Table.GetHeaderEnd()) + " ends the header");
            }
        }
        CheckVersion();
    }

    void CheckVersion() {
        const CTableKey* key = m_Table.FindKey("VERSION");
        if (key == nullptr) {
            return;
        }
        const std::string_view value = key->Value;
        const std::size_t point = std::min(value.find('.'), value.size());
        int number = 0;
        if (!ReadWholeNumber(value.substr(0, point), number) ||
            (point < value.size() && !ReadWholeNumber(value.substr(point + 1), number))) {
            Report(key->Line, "header: VERSION is not of the form 3.2");
        }
    }

    void CheckSection(const CTableSection& section) {
        const std::string name = "section [" + section.HeadName + "]";
        if (RecordTypes().count(section.Type) == 0) {
            Report(section.Line, name + ": no such record type");
        }
        const CTableSection* first = m_Table.FindSection(section.Type);
        if (first != nullptr && first != &section) {
            Report(section.Line, name + ": given at line " + std::to_string(first->Line) + " already; not read");
        }
        if (section.Items.empty()) {
            Report(section.Line, name + ": no items");
        }
        // Without a delimiter and a newline character there are no columns.
        if (m_Table.FindKey("DELIMITER") == nullptr || m_Table.FindKey("NEWLINE") == nullptr) {
            return;
        }
        CheckItems(section);
    }

    void CheckItems(const CTableSection& section) {
        const CRecordShape shape = m_pShapes == nullptr ? CRecordShape() : m_pShapes->Find(section.Type);
        std::map<int, int> lines; // of the items seen
        for (const CTableItem& item : section.Items) {
            if (!CheckColumns(item)) {
                continue;
            }
            CheckItem(section, shape, item);
            const auto [known, added] = lines.emplace(item.Definition.Number, item.Line);
            if (!added) {
                Report(item.Line,
                       ItemName(item.Definition) + ": given at line " + std::to_string(known->second) + " already");
            }
        }
        if (m_pShapes != nullptr) {
            CPlaces(shape, section.Type, m_Result).Check(section.Items);
        }
    }

    bool CheckColumns(const CTableItem& item) {
        if (!item.IsComplete()) {
            Report(item.Line, Counted(item.Columns.size(), "column") + ", " + std::to_string(kColumnCount) + " needed");
            return false;
        }
        int number = 0;
        if (!ReadWholeNumber(Trim(item.Columns[kNumberColumn]), number)) {
            Report(item.Line, "the item number is no number");
            return false;
        }
        return true;
    }

    void CheckItem(const CTableSection& section, const CRecordShape& shape, const CTableItem& item) {
        const std::string name = ItemName(item.Definition);
        if (item.BadComponent != 0) {
            Report(item.Line, name + ": bad " + kComponentNames[static_cast<std::size_t>(item.BadComponent)] +
                                  " (component " + std::to_string(item.BadComponent) + ")");
        }
        if (item.Columns[kDescriptorColumn].size() > kLongestDescriptor) {
            Report(item.Line, name + ": the format has more than 500 characters; the rest of it is not read");
        }
        const std::string owner = CAllRecords::GetTypeOfItem(item.Definition.Number);
        if (owner != section.Type) {
            Report(item.Line,
                   name + (owner.empty() ? ": no record type has this item number" : ": a number of type " + owner));
        }
        CheckPlace(shape, item);
        CheckDefault(item);
    }

    void CheckPlace(const CRecordShape& shape, const CTableItem& item) {
        const std::string name = ItemName(item.Definition);
        if (!IsPositive(item.Columns[kLengthColumn])) {
            Report(item.Line, name + ": the length is no positive number");
            return;
        }
        if (!IsPositive(item.Columns[kPositionColumn])) {
            Report(item.Line, name + ": the position is no positive number");
            return;
        }
        const long long last = 0LL + item.Definition.Position + item.Definition.Length - 1;
        if (last > shape.LineLength) {
            Report(item.Line, name + ": ends at character " + std::to_string(last) + " of a line of " +
                                  std::to_string(shape.LineLength));
        }
    }

    static bool IsPositive(std::string_view column) {
        int number = 0;
        return ReadWholeNumber(Trim(column), number) && number > 0;
    }

    // A shorter one leaves NULs behind it in a new record, a longer one is cut.
    void CheckDefault(const CTableItem& item) {
        const CItemDef& definition = item.Definition;
        if (definition.HasDefault != 0 && static_cast<long long>(definition.Default.size()) != definition.Length) {
            Report(item.Line, ItemName(definition) + ": the default text has " +
                                  Counted(definition.Default.size(), "character") + ", the item " +
                                  std::to_string(definition.Length));
        }
    }

    const CTableText& m_Table;
    CShapeFinder* m_pShapes;
    CTableFindings m_Result;
};

} // namespace

CTableFindings CheckTable(const CTableText& table, const std::string& type, CShapeFinder* shapes) {
    return CTableCheck(table, shapes).Run(type);
}

} // namespace tabvex::tool
