// How the table command shows a table file.
#pragma once

#include <string>

#include "table_check.h"
#include "table_text.h"
#include "text_encoding.h"

namespace tabvex::tool {

class COutput;

struct CTableSource {
    std::string File;
    std::string Type; ///< the only type to show; "" for all
    const CTableText& Table;
    const CTextDecoder& Decoder;
    const CTableFindings& Result;

    bool IsShown(const CTableSection& section) const { return Type.empty() || section.Type == Type; }
    /// A text of the table file as UTF-8, which table files may be in as well.
    std::string Text(const std::string& text) const { return IsUtf8(text) ? text : Decoder.ToUtf8(text); }
};

void ShowTableAsText(const CTableSource& source, COutput& out);
void ShowTableAsJson(const CTableSource& source, COutput& out);

} // namespace tabvex::tool
