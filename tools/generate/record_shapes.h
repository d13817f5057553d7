#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "table_text.h"

namespace tabvex::generate {

// The equal entries that fill a record's lines, as one record type lays them out.
struct EntryGroup {
    // The items of one entry. Cells that can hold different things have several alternatives, told
    // apart by how many items they have; the first one begins a group.
    std::vector<std::vector<const Item*>> alternatives;
    // The 0-based offsets in a line at which an entry begins.
    std::vector<std::size_t> offsets;
    std::size_t entryLength = 0;

    std::size_t FirstOffset() const { return offsets.front(); }
};

// How the lines of one record type are built; a flat list of items has no groups.
struct RecordShape {
    const Section* section = nullptr;
    std::vector<const Item*> headerItems;
    std::vector<EntryGroup> groups;
    // How many characters of the first line a continuation line repeats.
    std::size_t headerLength = 0;
    // Item that marks the new form of a type in every line, or null.
    const Item* mark = nullptr;
};

// Throws std::runtime_error when the section lacks an item that the type's entries need.
RecordShape ShapeOf(const Section& section);

// Whether a save numbers the lines of that type (character 6 of the line).
bool IsNumbered(std::string_view key);

} // namespace tabvex::generate
