#include "code_page_table.h"

#include "exit_status.h"
#include "tabvex/all_records.h"

namespace tabvex::tool {

namespace {

constexpr int kAnsiPage = 1252;
constexpr std::size_t kUpperHalf = 128; // characters above ASCII; as many as a record has
constexpr int kLineSize = static_cast<int>(kUpperHalf) + 1;
constexpr const char* kScratchType = "T0";
constexpr const char* kOem = "OEM";
constexpr const char* kAnsi = "ANSI";

// The characters go into a line of a scratch record in one mode and come out of it in the other.
std::string ThroughScratchLine(std::string upper, int oemPage, const char* modeIn, const char* modeOut) {
    CAllRecordsEx records;
    records.SetCharacterSet(modeIn);
    upper.resize(kLineSize);
    const bool stored = records.SetCodePages(oemPage, kAnsiPage) == TABVEX_OK &&
                        records.SetCompleteRecord(kScratchType, upper.data(), kLineSize) == TABVEX_OK;
    records.SetCharacterSet(modeOut);
    if (!stored || records.GetFirstCompleteRecord(kScratchType, upper.data(), kLineSize) != TABVEX_OK) {
        throw CToolError("the library cannot convert code page " + std::to_string(oemPage));
    }
    upper.resize(kUpperHalf);
    return upper;
}

// The library takes only pairs of an OEM page and 1252, which therefore lies between two OEM pages.
std::string ConvertUpperHalf(std::string upper, int from, int to) {
    if (from == to) {
        return upper;
    }
    if (from != kAnsiPage) {
        upper = ThroughScratchLine(upper, from, kAnsi, kOem);
    }
    return to == kAnsiPage ? upper : ThroughScratchLine(upper, to, kOem, kAnsi);
}

} // namespace

// ASCII is the same in all of them.
CCodePageTable::CCodePageTable(int from, int to) {
    std::string upper;
    for (std::size_t byte = 0; byte < m_To.size(); ++byte) {
        m_To[byte] = static_cast<char>(static_cast<unsigned char>(byte));
        m_Kept[byte] = true;
        if (byte >= kUpperHalf) {
            upper.push_back(m_To[byte]);
        }
    }
    const std::string there = ConvertUpperHalf(upper, from, to);
    const std::string back = ConvertUpperHalf(there, to, from);
    for (std::size_t i = 0; i < upper.size(); ++i) {
        m_To[i + kUpperHalf] = there[i];
        m_Kept[i + kUpperHalf] = back[i] == upper[i];
    }
}

} // namespace tabvex::tool
