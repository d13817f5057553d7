// Counts what the program and the libraries in it allocate: linking this replaces operator new.
#pragma once

#include <cstddef>

/// Calls of operator new so far.
std::size_t AllocationCount();
