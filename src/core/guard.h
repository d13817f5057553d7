// Nothing thrown leaves the library.
#pragma once

#include "tabvex/result_codes.h"

namespace tabvex {

/// Runs `operation` and returns its result; TABVEX_INTERNAL_FAILURE, or `failure`, when it throws.
template <typename Operation>
auto Guarded(Operation operation, decltype(operation()) failure = TABVEX_INTERNAL_FAILURE) noexcept {
    try {
        return operation();
    } catch (...) {
        return failure;
    }
}

} // namespace tabvex
