// Passing over the lines of one record.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/line_pool.h"
#include "platform/platform.h"

namespace tabvex {

/// Calls `visit` with each line's index and characters, in turn, until it returns false. The lines of one type lie far
/// apart in memory, so that those ahead are fetched meanwhile.
template <typename Visit>
void VisitLines(const CLinePool& pool, const std::vector<std::uint32_t>& lines, std::size_t lineLength, Visit visit) {
    constexpr std::size_t kLinesAhead = 8;
    for (std::size_t index = 0; index < lines.size(); ++index) {
        if (index + kLinesAhead < lines.size()) {
            FetchIntoCache(pool.At(lines[index + kLinesAhead]), lineLength);
        }
        if (!visit(index, pool.At(lines[index]))) {
            return;
        }
    }
}

} // namespace tabvex
