// Nothing thrown leaves the library.
#pragma once

#include <type_traits>

#include "tabvex/result_codes.h"

namespace tabvex {

/// What an operation gives that cannot do its work: a code, the NUL character, or nothing.
template <typename Result>
constexpr Result Failure(int code) {
    if constexpr (!std::is_void_v<Result>) {
        return static_cast<Result>(std::is_same_v<Result, char> ? 0 : code);
    }
}

/// Runs `operation` and returns its result; what `failed` gives when it throws.
template <typename Operation, typename Failed>
auto GuardedOr(Operation operation, Failed failed) noexcept -> decltype(operation()) {
    try {
        return operation();
    } catch (...) {
        return failed();
    }
}

/// Runs `operation` and returns its result; `failure` when it throws.
template <typename Operation>
auto Guarded(Operation operation, decltype(operation()) failure) noexcept {
    return GuardedOr(operation, [failure] { return failure; });
}

/// Runs `operation` and returns its result; TABVEX_INTERNAL_FAILURE (char: 0; void: nothing) when it throws.
template <typename Operation>
auto Guarded(Operation operation) noexcept {
    return GuardedOr(operation, [] { return Failure<decltype(operation())>(TABVEX_INTERNAL_FAILURE); });
}

} // namespace tabvex
