#include "allocation/failing_allocations.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t g_nLive = 0;
std::size_t g_nUntilFailure = 0; // 0: none fails
bool g_bAllBehind = false;
bool g_bFailed = false;

bool IsRefused() {
    if (g_nUntilFailure == 0 || --g_nUntilFailure > 0) {
        return false;
    }
    g_nUntilFailure = g_bAllBehind ? 1 : 0;
    g_bFailed = true;
    return true;
}

void* Counted(void* memory) {
    if (memory != nullptr) {
        ++g_nLive;
    }
    return memory;
}

// Alignments are powers of two; a size must be a multiple of its own.
void* Allocate(std::size_t size, std::size_t alignment) {
    const std::size_t whole = (size + alignment) / alignment * alignment;
    return IsRefused() ? nullptr : Counted(std::aligned_alloc(alignment, whole));
}

void* Thrown(void* memory) {
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void Free(void* memory) {
    if (memory != nullptr) {
        --g_nLive;
        std::free(memory);
    }
}

constexpr std::size_t kUsual = alignof(std::max_align_t);

} // namespace

CFailingAllocations::CFailingAllocations(std::size_t number, EExtent extent) : m_Extent(extent) {
    g_bFailed = false;
    g_bAllBehind = extent == EExtent::AllBehind;
    g_nUntilFailure = number;
}

CFailingAllocations::~CFailingAllocations() {
    Stop();
}

bool CFailingAllocations::HasFailed() const {
    return g_bFailed;
}

bool CFailingAllocations::Stop() {
    g_nUntilFailure = 0;
    return g_bFailed;
}

std::size_t LiveAllocations() {
    return g_nLive;
}

void* operator new(std::size_t size) {
    return Thrown(Allocate(size, kUsual));
}

void* operator new[](std::size_t size) {
    return Thrown(Allocate(size, kUsual));
}

void* operator new(std::size_t size, std::align_val_t alignment) {
    return Thrown(Allocate(size, static_cast<std::size_t>(alignment)));
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return Allocate(size, kUsual);
}

void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return Allocate(size, kUsual);
}

void operator delete(void* memory) noexcept {
    Free(memory);
}

void operator delete[](void* memory) noexcept {
    Free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    Free(memory);
}

void operator delete[](void* memory, std::size_t /*size*/) noexcept {
    Free(memory);
}

void operator delete(void* memory, std::align_val_t /*alignment*/) noexcept {
    Free(memory);
}

void operator delete(void* memory, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
    Free(memory);
}
