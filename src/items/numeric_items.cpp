#include <algorithm>

#include "items/item_target.h"
#include "items/number_fields.h"
#include "layout/number_text.h"

namespace {

constexpr int kSmallestNumberBuffer = 15;

} // namespace

// Every numeric item is read by one of two operations: by one those without decimals, by the other those with.
template <typename Parse>
int CAllRecords::ReadNumber(int item, bool decimals, Parse parse) {
    return WithItem(item, EMissing::Fails, [&](const CItemTarget& target) -> int {
        if (target.Definition->Format != 'N') {
            return TABVEX_ITEM_WRONG_FORMAT;
        }
        if ((target.Definition->Decimals != 0) != decimals) {
            return TABVEX_VALUE_WRONG_DECIMALS;
        }
        std::string_view field;
        const int result = target.Record->ReadEntryItem(item, *target.Definition, field);
        return result != TABVEX_OK ? result : parse(*target.Definition, field);
    });
}

int CAllRecords::ReadIntItem(int item, int& value) {
    return WithTable([&]() -> int {
        return ReadNumber(item, false, [&value](const CItemDef& definition, std::string_view field) {
            return tabvex::ParseIntField(definition, field, value);
        });
    });
}

int CAllRecords::ReadIntItem(int item, char* buffer, int size) {
    return WithTable([&]() -> int {
        if (buffer == nullptr) {
            return TABVEX_BAD_ARGUMENT;
        }
        if (size < kSmallestNumberBuffer) {
            return TABVEX_VALUE_BUFFER_TOO_SMALL;
        }
        return ReadNumber(item, false, [&](const CItemDef& definition, std::string_view field) -> int {
            int value = 0;
            const int result = tabvex::ParseIntField(definition, field, value);
            const bool blank = result == TABVEX_VALUE_BLANK;
            char number[tabvex::kNumberTextSize];
            tabvex::DeliverText(blank ? "" : tabvex::PrintNumber(value, number), buffer, size, nullptr);
            return blank ? TABVEX_OK : result;
        });
    });
}

int CAllRecords::ReadFloatItem(int item, double& value) {
    return WithTable([&]() -> int {
        return ReadNumber(item, true, [&value](const CItemDef& definition, std::string_view field) {
            return tabvex::ParseFloatField(definition, field, value);
        });
    });
}

int CAllRecords::ReadFloatItem(int item, char* buffer, int size) {
    return WithTable([&]() -> int {
        if (buffer == nullptr) {
            return TABVEX_BAD_ARGUMENT;
        }
        if (size < kSmallestNumberBuffer) {
            return TABVEX_VALUE_BUFFER_TOO_SMALL;
        }
        double value = 0.0;
        const int result = ReadFloatItem(item, value);
        if (result != TABVEX_OK && result != TABVEX_VALUE_BLANK) {
            return result;
        }
        char number[tabvex::kNumberTextSize];
        const bool blank = result == TABVEX_VALUE_BLANK;
        return tabvex::DeliverText(blank ? "" : tabvex::PrintNumber(value, number), buffer, size, nullptr);
    });
}

// `print` gives the text to write, or a code, once the definition is known.
template <typename Print>
int CAllRecords::WriteNumber(int item, Print print) {
    return WithItem(item, EMissing::IsCreated, [&](const CItemTarget& target) -> int {
        if (target.Definition->Format != 'N') {
            return TABVEX_ITEM_WRONG_FORMAT;
        }
        std::string_view number;
        const int result = print(*target.Definition, number);
        return result != TABVEX_OK ? result : target.Record->WriteEntry(item, *target.Definition, number);
    });
}

int CAllRecords::WriteIntItem(int item, const char* text) {
    return WithTable([&]() -> int {
        if (text == nullptr) {
            return TABVEX_BAD_ARGUMENT;
        }
        if (*text == '\0') {
            return TABVEX_VALUE_EMPTY;
        }
        return WriteNumber(item, [text](const CItemDef&, std::string_view& number) -> int {
            number = text;
            return tabvex::IsInteger(number) ? TABVEX_OK : TABVEX_VALUE_NOT_A_NUMBER;
        });
    });
}

int CAllRecords::WriteIntItem(int item, int value) {
    return WithTable([&]() -> int {
        char text[tabvex::kNumberTextSize];
        return WriteNumber(item, [&](const CItemDef&, std::string_view& number) -> int {
            number = tabvex::PrintNumber(value, text);
            return TABVEX_OK;
        });
    });
}

int CAllRecords::WriteFloatItem(int item, const char* text) {
    return WithTable([&]() -> int {
        if (text == nullptr) {
            return TABVEX_BAD_ARGUMENT;
        }
        if (*text == '\0') {
            return TABVEX_VALUE_EMPTY;
        }
        // Without a ".", the first "," is the decimal separator.
        std::string& value = m_pState->Context.ValueText;
        value = text;
        const std::size_t comma = value.find('.') == std::string::npos ? value.find(',') : std::string::npos;
        if (comma != std::string::npos) {
            value[comma] = '.';
        }
        return WriteNumber(item, [&value](const CItemDef&, std::string_view& number) -> int {
            number = value;
            return tabvex::IsDecimal(number) ? TABVEX_OK : TABVEX_VALUE_NOT_A_NUMBER;
        });
    });
}

int CAllRecords::WriteFloatItem(int item, double value) {
    return WithTable([&]() -> int {
        char text[tabvex::kNumberTextSize];
        return WriteNumber(item, [&](const CItemDef&, std::string_view& number) -> int {
            number = tabvex::PrintNumber(value, text);
            return TABVEX_OK;
        });
    });
}

int CAllRecords::WriteRoundFloatItem(int item, double value) {
    return WithTable([&]() -> int {
        char text[tabvex::kNumberTextSize];
        return WriteNumber(item, [&](const CItemDef& definition, std::string_view& number) -> int {
            number = tabvex::PrintNumber(tabvex::RoundToDecimals(value, definition.Decimals), text);
            return TABVEX_OK;
        });
    });
}
