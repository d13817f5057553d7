// What a record set holds. Only the members of CAllRecords look at it, wherever they are defined.
#pragma once

#include <memory>
#include <string>
#include <utility>

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

/// The records and what depends on them.
struct CHeldRecords {
    CLinePool Lines{kLineLength + kLineRoom, kLinesShift};
    CLinePool LongLines{kLongLineLength + kLineRoom, kLongLinesShift};
    CRecordStore Store;
    CFindState Find;
    CNumberedLetters NumberedLetters;
};

struct CRecordSetState {
    CRecordContext Context; // before the store: records refer to it
    CRecordStore Store;
    bool RangesKnown = false; ///< a table of any version was loaded once: items have their types from then on
    bool TableLoaded = false; ///< a table of the version asked for was loaded once
    CNumberedLetters NumberedLetters;
    CFindState Find;
    CCollatingTable CollatingTable;
    int SaveErrors = 0;

    /// Runs an operation that fills the store anew. The records there were go when it is done; they are back when it
    /// throws, and then `numbered` is as well.
    template <typename Operation>
    auto Refill(const CNumberedLetters& numbered, Operation operation) {
        CHeldRecords before;
        before.NumberedLetters = NumberedLetters;
        Swap(before);
        before.NumberedLetters = numbered;
        try {
            return operation();
        } catch (...) {
            Swap(before);
            throw;
        }
    }

private:
    void Swap(CHeldRecords& other) noexcept {
        Context.Lines.Swap(other.Lines);
        Context.LongLines.Swap(other.LongLines);
        Store.Swap(other.Store);
        std::swap(Find, other.Find);
        std::swap(NumberedLetters, other.NumberedLetters);
    }
};

} // namespace tabvex
