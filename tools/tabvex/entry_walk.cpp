#include "entry_walk.h"

#include <algorithm>

#include "item_text.h"

namespace tabvex::tool {

namespace {

bool IsBlank(const std::string& text) {
    return text.find_first_not_of(' ') == std::string::npos;
}

void ReadEntry(CAllRecords& records, const CEntryGroup& group, CEntry& entry) {
    entry.Values.clear();
    for (const int item : group.Items) {
        entry.Values.push_back(ReadItemText(records, item));
    }
}

} // namespace

// The last step of most types answers that all is well and leaves the cursor behind the last line.
int WalkEntries(CAllRecords& records, const CRecord& record, const CEntryGroup& group,
                const std::function<void(const CEntry&)>& visit) {
    const long long most = static_cast<long long>(record.GetLineCount()) * record.GetLineLength();
    int reached = 0;
    CEntry entry;
    int result = records.ReadFirst(group.KeyItem);
    for (long long step = 0; result == TABVEX_OK && step < most; ++step) {
        entry.Line = record.GetCurrentLine();
        entry.Offset = record.GetCurrentOffset();
        if (entry.Line >= record.GetLineCount()) {
            break;
        }
        reached = std::max(reached, entry.Line + 1);
        ReadEntry(records, group, entry);
        if (!std::all_of(entry.Values.begin(), entry.Values.end(), IsBlank)) {
            visit(entry);
        }
        result = records.ReadNext(group.KeyItem);
    }
    return reached;
}

} // namespace tabvex::tool
