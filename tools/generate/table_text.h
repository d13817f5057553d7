#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "descriptor.h"

namespace tabvex::generate {

// One item of a record type; the position counts from 1.
struct Item {
    int number = 0;
    int length = 0;
    int position = 0;
    Descriptor format;

    std::size_t Offset() const { return static_cast<std::size_t>(position) - 1; }
    std::size_t Width() const { return static_cast<std::size_t>(length); }
};

// The items of one record type, in the order of the table file.
struct Section {
    std::string key;
    std::vector<Item> items;

    // The item of that number, or null.
    const Item* Find(int number) const;
    // The two characters a line of the type begins with.
    std::string LineType() const { return key.substr(0, 2); }
};

struct Table {
    std::vector<Section> sections;

    // The section of that record type, or null.
    const Section* Find(std::string_view key) const;
};

// Reads a table file. Throws std::runtime_error, naming file and line, when it cannot be read or
// a line of it is not valid.
Table ReadTable(const std::string& fileName);

} // namespace tabvex::generate
