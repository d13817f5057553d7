#pragma once

#include <cstddef>
#include <vector>

namespace tabvex::generate {

struct SampleValue {
    int item;
    const char* value; // UTF-8; dates as YYYY-MM-DD
};

// The entries of one group: the texts, begun again from the first one until there are count of them.
struct SampleEntries {
    std::size_t count;
    std::vector<const char*> texts;
};

// One record of one type: the values of its header items, then the entries of each of its groups.
struct SampleRecord {
    const char* key;
    std::vector<SampleValue> values;
    std::vector<SampleEntries> groups;
};

// A calculation with every record type, in the order in which its file holds them.
const std::vector<SampleRecord>& CalculationContents();

// Damage report, course of events and witnesses: what a V-record file holds.
const std::vector<SampleRecord>& DamageReportContents();

// A small calculation with German names, streets and texts.
const std::vector<SampleRecord>& UmlautContents();

// A few records to stand between lines of unknown types.
const std::vector<SampleRecord>& MixedContents();

} // namespace tabvex::generate
