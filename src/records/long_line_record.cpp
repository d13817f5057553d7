#include "records/long_line_record.h"

#include "tabvex/result_codes.h"

namespace tabvex {

int CLongLineRecord::AppendContinuationLine(int /*headerLength*/) {
    return TABVEX_OK;
}

} // namespace tabvex
