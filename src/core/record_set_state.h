// What a record set holds. Only the members of CAllRecords look at it, wherever they are defined.
#pragma once

#include <memory>
#include <string>

#include "core/collating_table.h"
#include "core/record_context.h"
#include "core/record_numbering.h"
#include "core/record_store.h"

namespace tabvex {

/// A search that FindFirst has begun and FindNext goes on with.
struct CFindState {
    bool InProgress = false;
    int Item = -1;
    CRecord* Record = nullptr;
    std::string Text;
};

struct CRecordSetState {
    CRecordContext Context; // before the store: records refer to it
    CRecordStore Store;
    bool TableLoaded = false; ///< a table of the version asked for was loaded once
    CNumberedLetters NumberedLetters;
    CFindState Find;
    CCollatingTable CollatingTable;
    int SaveErrors = 0;
};

} // namespace tabvex
