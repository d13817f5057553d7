// Memory that runs out when a test wants it to: this program's operator new counts allocations and can refuse them.
#pragma once

#include <cstddef>

/// From construction to Stop, or the end of the scope, the `number`-th allocation (1-based) throws std::bad_alloc, or
/// all from there on do.
class CFailingAllocations {
public:
    enum class EExtent { One, AllBehind };

    explicit CFailingAllocations(std::size_t number, EExtent extent = EExtent::One);
    ~CFailingAllocations();
    CFailingAllocations(const CFailingAllocations&) = delete;
    CFailingAllocations& operator=(const CFailingAllocations&) = delete;

    EExtent Extent() const { return m_Extent; }
    /// True once an allocation was refused.
    bool HasFailed() const;
    /// Ends the failing; true when an allocation was refused.
    bool Stop();

private:
    EExtent m_Extent;
};

/// Allocations of this program that have not been freed.
std::size_t LiveAllocations();
