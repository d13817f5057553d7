#include "allocation_count.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t g_nAllocations = 0;

void* Allocate(std::size_t size) {
    ++g_nAllocations;
    return std::malloc(size == 0 ? 1 : size); // NOLINT(cppcoreguidelines-no-malloc,hicpp-no-malloc)
}

} // namespace

std::size_t AllocationCount() {
    return g_nAllocations;
}

void* operator new(std::size_t size) {
    void* memory = Allocate(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void* operator new[](std::size_t size) {
    return operator new(size);
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return Allocate(size);
}

void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return Allocate(size);
}

void operator delete(void* memory) noexcept {
    std::free(memory); // NOLINT(cppcoreguidelines-no-malloc,hicpp-no-malloc)
}

void operator delete[](void* memory) noexcept {
    operator delete(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    operator delete(memory);
}

void operator delete[](void* memory, std::size_t /*size*/) noexcept {
    operator delete(memory);
}
