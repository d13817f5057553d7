// Appending to the public arrays inside the library.
#pragma once

#include <new>
#include <utility>

namespace tabvex {

/// Appends a value; throws where Add() answers with a code, so that a failure ends the whole operation.
template <typename Array, typename Value>
void AddTo(Array& array, Value&& value) {
    if (array.Add(std::forward<Value>(value)) < 0) {
        throw std::bad_alloc();
    }
}

} // namespace tabvex
