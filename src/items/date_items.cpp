#include "items/date_texts.h"
#include "items/item_target.h"
#include "layout/date_format.h"
#include "layout/number_text.h"

namespace {

// From a field in the item's own format to a text in the caller's.
int ConvertDate(std::string_view field, std::string_view ownFormat, std::string_view format, std::string& text) {
    text.clear();
    const std::string_view trimmed = tabvex::TrimBlanks(field);
    if (trimmed.empty()) {
        return TABVEX_VALUE_BLANK;
    }
    tabvex::CCanonicalDate date;
    const int result = tabvex::ParseDateText(trimmed, ownFormat, date);
    if (result != TABVEX_OK) {
        return result;
    }
    if (!tabvex::AnalyseDateFormat(format).IsKnown()) {
        return TABVEX_DATE_UNUSABLE_FORMAT;
    }
    tabvex::RewriteDate(date.View(), format, text);
    return TABVEX_OK;
}

} // namespace

int CAllRecords::ReadDateItem(int item, const char* format, char* buffer, int size) {
    return WithTable([&]() -> int {
        if (format == nullptr || buffer == nullptr) {
            return TABVEX_BAD_ARGUMENT;
        }
        return WithItem(item, EMissing::Fails, [&](const CItemTarget& target) -> int {
            if (target.Definition->Format != 'D') {
                return TABVEX_ITEM_WRONG_FORMAT;
            }
            std::string_view field;
            int result = target.Record->ReadEntryItem(item, *target.Definition, field);
            if (result != TABVEX_OK) {
                return result;
            }
            const tabvex::CRecordContext& context = m_pState->Context;
            std::string& text = m_pState->Context.ValueText;
            result = ConvertDate(field, target.Definition->DatePattern, format, text);
            const int delivered = tabvex::DeliverText(text, buffer, size, context.IsOem ? &context.CodePages : nullptr);
            return delivered == TABVEX_OK ? result : delivered;
        });
    });
}

int CAllRecords::WriteDateItem(int item, const char* format, const char* date) {
    return WithTable([&]() -> int {
        if (format == nullptr || date == nullptr) {
            return TABVEX_BAD_ARGUMENT;
        }
        // Before the record is looked for, so that a bad date never creates one.
        tabvex::CCanonicalDate canonical;
        const int result = tabvex::ParseDateText(tabvex::TrimBlanks(date), format, canonical);
        if (result != TABVEX_OK) {
            return result;
        }
        return WithItem(item, EMissing::IsCreated, [&](const CItemTarget& target) -> int {
            return target.Definition->Format != 'D'
                       ? TABVEX_ITEM_WRONG_FORMAT
                       : target.Record->WriteEntry(item, *target.Definition, canonical.View());
        });
    });
}
