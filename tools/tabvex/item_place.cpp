#include "item_place.h"

#include <algorithm>
#include <functional>

#include "entry_walk.h"
#include "exit_status.h"
#include "text_layout.h"

namespace tabvex::tool {

namespace {

struct CSpot {
    int Line = 0; // of the record, 0-based
    int Offset = 0;
};

using CSpotVisitor = std::function<void(const CSpot&)>;

[[noreturn]] void ThrowMissing(int item, const std::string& what) {
    throw CToolError("item " + std::to_string(item) + ": " + what, kFindings);
}

const CItemDef& FindDefinition(const CShowSource& source, int item, const std::string& type) {
    const CTableSection* section = source.GetTable().FindSection(type);
    if (type.empty() || section == nullptr) {
        ThrowMissing(item, "no record type of the table file has it");
    }
    const auto line = std::find_if(section->Items.begin(), section->Items.end(),
                                   [item](const CTableItem& i) { return i.Definition.Number == item; });
    if (line == section->Items.end()) {
        ThrowMissing(item, "the table file does not have it among the items of " + type);
    }
    if (line->BadComponent != 0 || !line->IsComplete() || line->Definition.Position < 1 ||
        line->Definition.Length < 1) {
        ThrowMissing(item, "its line in the table file is bad, see 'tabvex table'");
    }
    return line->Definition;
}

int FindRecord(CShowSource& source, int item, const std::string& type) {
    const CAllRecordsEx& records = source.GetRecords();
    for (int i = 0; i < records.GetRecordCount(); ++i) {
        if (!records.GetRecord(i)->IsGeneric() && records.GetRecord(i)->GetType() == type) {
            return i;
        }
    }
    ThrowMissing(item, "the file has no " + type + " record");
}

// Visits the places of an item of entries; these are described at their place in the first entry.
void VisitEntries(CShowSource& source, int index, const CEntryGroup& group, const CItemDef& item,
                  const CSpotVisitor& visit) {
    CAllRecordsEx& records = source.GetRecords();
    const CRecord& record = *records.GetRecord(index);
    if (records.ReadFirst(group.KeyItem) != TABVEX_OK) {
        return;
    }
    const int first = record.GetCurrentOffset();
    WalkEntries(records, record, group, [&](const CEntry& entry) {
        visit({entry.Line, entry.Offset + item.Position - 1 - first});
    });
}

void VisitCells(CShowSource& source, int index, const CItemDef& item, const CSpotVisitor& visit) {
    const CRecord& record = *source.GetRecords().GetRecord(index);
    const CCellLayout& cells = *source.GetCells(record.GetType());
    const std::vector<int>& offsets = CCellLayout::GetOffsets();
    for (int line = 0; line < record.GetLineCount(); ++line) {
        for (const int offset : offsets) {
            const CCellKind* kind = cells.FindKind(CCellLayout::CutCell(record.GetLine(line), offset));
            if (kind != nullptr && std::any_of(kind->Items.begin(), kind->Items.end(),
                                               [&item](const CItemDef* i) { return i->Number == item.Number; })) {
                visit({line, offset + item.Position - 1 - offsets.front()});
            }
        }
    }
}

// Every place of an item of entries; none for a header item.
void VisitPlaces(CShowSource& source, int index, const CItemDef& item, const CSpotVisitor& visit) {
    const std::string type = source.GetRecords().GetRecord(index)->GetType();
    if (const CEntryGroup* group = source.GetShape(type).FindGroup(item.Number)) {
        VisitEntries(source, index, *group, item, visit);
    } else if (CCellLayout::KindOfItem(type, item.Number) >= 0) {
        VisitCells(source, index, item, visit);
    }
}

} // namespace

CItemPlace FindItemPlace(CShowSource& source, int item, int entry) {
    const std::string type = CAllRecords::GetTypeOfItem(item);
    const CItemDef& definition = FindDefinition(source, item, type);
    const int index = FindRecord(source, item, type);
    CItemPlace place;
    place.Item = &definition;
    place.InCell = CCellLayout::KindOfItem(type, item) >= 0;
    CSpot spot = {0, definition.Position - 1};
    if (place.InCell || source.GetShape(type).FindGroup(item) != nullptr) {
        place.Entry = entry;
        int count = 0;
        VisitPlaces(source, index, definition, [&](const CSpot& found) { spot = ++count == entry ? found : spot; });
        if (count < entry) {
            ThrowMissing(item, "there is no entry " + std::to_string(entry) + ", the file has " +
                                   Counted(static_cast<std::size_t>(count), "entry"));
        }
    }
    place.Line = source.GetLineNumbers().Get(index, spot.Line);
    place.Offset = spot.Offset;
    if (place.Line == 0) {
        ThrowMissing(item, "its line in the file is not known");
    }
    return place;
}

int CountEntries(CShowSource& source, int item) {
    const std::string type = CAllRecords::GetTypeOfItem(item);
    const CItemDef& definition = FindDefinition(source, item, type);
    int count = 0;
    VisitPlaces(source, FindRecord(source, item, type), definition, [&count](const CSpot&) { ++count; });
    return count;
}

std::string_view FieldAt(const CShowSource& source, const CItemPlace& place) {
    const std::string_view line = source.GetFileLine(place.Line);
    const std::size_t begin = std::min(static_cast<std::size_t>(std::max(place.Offset, 0)), line.size());
    return line.substr(begin, static_cast<std::size_t>(place.Item->Length));
}

std::string NameOf(const CItemPlace& place) {
    std::string name = "item " + std::to_string(place.Item->Number);
    return place.Entry == 0 ? name : name.append(" of entry ").append(std::to_string(place.Entry));
}

} // namespace tabvex::tool
