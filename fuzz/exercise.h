// Does with a record set what callers do, with buffers of exactly the size they are said to have.
#pragma once

#include <cstddef>
#include <cstdint>

#include "tabvex/all_records.h"

namespace tabvex::fuzz {

/// Picks, from what the input says, one of several things to do: doing them all would take far too long.
class CChoices {
public:
    explicit CChoices(std::uint32_t seed) : m_nState(seed * 2654435761U + 1) {}

    std::size_t Below(std::size_t count) {
        m_nState = m_nState * 1664525U + 1013904223U;
        return (m_nState >> 8U) % count;
    }
    template <typename List>
    const auto& OneOf(const List& list) {
        return list[Below(list.size())];
    }

private:
    std::uint32_t m_nState;
};

/// Adds a line to the record object of every type, and so creates it.
void CreateEveryRecord(CAllRecordsEx& records);
/// Steps through the entries of every record object, and reads every item of its layout.
void ReadEverything(CAllRecordsEx& records, CChoices& choices);
/// Writes, clears and searches every item of every record object's layout.
void WriteEverything(CAllRecordsEx& records, CChoices& choices);
/// Saves, writes into memory and copies lines out; what was written must be whole.
void SaveEverything(CAllRecordsEx& records);

} // namespace tabvex::fuzz
