// What lives as long as the library is loaded: the shared record set of the flat functions and the instances of the
// handle functions.
#pragma once

#include <list>
#include <unordered_map>

#include "core/guard.h"
#include "tabvex/all_records.h"

namespace tabvex {

/// A record set that a handle stands for.
struct CMifInstance {
    explicit CMifInstance(int handle) : nHandle(handle) {}

    int nHandle;
    CAllRecordsEx Records;
    int nCompleteLine = 0;
};

class CMifRegistry {
public:
    /// Creates an instance; its handle, 4 more than that of the one before, which is never used again. Throws when
    /// there is no memory or no handle left.
    int Create();
    /// Destroys the instance that Find gives.
    void Destroy(int handle);
    /// The instance of a handle; the one created last for a handle that is not known (kept on purpose); null when there
    /// is none at all.
    CMifInstance* Find(int handle);

private:
    std::list<CMifInstance> m_Instances; // in the order of creation
    std::unordered_map<int, std::list<CMifInstance>::iterator> m_ByHandle;
    int m_nLastHandle = 0;
};

struct CApplication {
    CAllRecordsEx Records;
    int nCompleteLine = 0; ///< line that the complete-record functions have reached, 1-based
    CMifRegistry Registry;
};

CApplication& Application();

/// The answer of a typed read that has no place for its value.
inline int NoPlaceForValue(const CAllRecordsEx& records) {
    return records.IsTableLoaded() ? TABVEX_BAD_ARGUMENT : TABVEX_NO_TABLE;
}

/// What a function gives that cannot do its work: a code, the NUL character, or nothing.
template <typename Result>
constexpr Result Failure(int code) {
    return static_cast<Result>(sizeof(Result) == sizeof(char) ? 0 : code);
}
template <>
constexpr void Failure<void>(int /*code*/) {}

/// Runs an operation on the instance of a handle; nothing thrown leaves it.
template <typename Operation>
auto WithInstance(int handle, Operation operation) noexcept {
    using Result = decltype(operation(std::declval<CMifInstance&>()));
    try {
        CMifInstance* instance = Application().Registry.Find(handle);
        return instance == nullptr ? Failure<Result>(TABVEX_NO_RECORD) : operation(*instance);
    } catch (...) {
        return Failure<Result>(TABVEX_INTERNAL_FAILURE);
    }
}

/// Runs an operation on the record set of a handle.
template <typename Operation>
auto WithRecords(int handle, Operation operation) noexcept {
    return WithInstance(handle, [&](CMifInstance& instance) { return operation(instance.Records); });
}

/// Runs an operation on the shared record set.
template <typename Operation>
auto WithSharedRecords(Operation operation) noexcept {
    using Result = decltype(operation(std::declval<CAllRecordsEx&>()));
    try {
        return operation(Application().Records);
    } catch (...) {
        return Failure<Result>(TABVEX_INTERNAL_FAILURE);
    }
}

} // namespace tabvex
