// What lives as long as the library is loaded: the shared record set of the flat functions and the instances of the
// handle functions.
#pragma once

#include <list>
#include <unordered_map>
#include <utility>

#include "platform/guard.h"
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

/// Runs a typed read, which needs a place for its value.
template <typename Value, typename Read>
int ReadValue(const CAllRecordsEx& records, Value* value, Read read) {
    if (value == nullptr) {
        return records.IsTableLoaded() ? TABVEX_BAD_ARGUMENT : TABVEX_NO_TABLE;
    }
    return read(*value);
}

/// Runs the reading of a mutation with its value as a number; a null value is answered like a null code.
template <typename Read>
int ReadMutationValue(char* code, double* value, Read read) { // NOLINT(readability-non-const-parameter)
    double none = 0;
    return value == nullptr ? read(nullptr, none) : read(code, *value);
}

/// Runs an operation on the instance of a handle; nothing thrown leaves it.
template <typename Operation>
auto WithInstance(int handle, Operation operation) noexcept {
    using Result = decltype(operation(std::declval<CMifInstance&>()));
    return Guarded([&] {
        CMifInstance* instance = Application().Registry.Find(handle);
        return instance == nullptr ? Failure<Result>(TABVEX_NO_RECORD) : operation(*instance);
    });
}

/// Runs an operation on the record set of a handle.
template <typename Operation>
auto WithRecords(int handle, Operation operation) noexcept {
    return WithInstance(handle, [&](CMifInstance& instance) { return operation(instance.Records); });
}

/// Runs an operation on the shared record set.
template <typename Operation>
auto WithSharedRecords(Operation operation) noexcept {
    return Guarded([&] { return operation(Application().Records); });
}

} // namespace tabvex
