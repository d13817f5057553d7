#include <algorithm>
#include <cstring>

#include "items/item_target.h"
#include "layout/number_text.h"

namespace tabvex {

int DeliverText(std::string_view text, char* buffer, int size, const CCodePages* codePages) {
    if (size < 1) {
        return TABVEX_TEXT_CUT;
    }
    const std::size_t count = std::min(text.size(), static_cast<std::size_t>(size) - 1);
    text.copy(buffer, count);
    buffer[count] = '\0';
    if (codePages != nullptr) {
        codePages->OemToAnsi(buffer, count);
    }
    return count == text.size() ? TABVEX_OK : TABVEX_TEXT_CUT;
}

namespace {

const CCodePages* OemPages(const CRecordContext& context) {
    return context.IsOem ? &context.CodePages : nullptr;
}

// The text in the record's character set; valid until the next write.
std::string_view PreparedText(CRecordContext& context, const char* text) {
    context.ValueText = text;
    if (context.IsOem) {
        context.CodePages.AnsiToOem(context.ValueText.data(), context.ValueText.size());
    }
    return context.ValueText;
}

} // namespace

} // namespace tabvex

// An item whose type has no class creates nothing.
CRecord* CAllRecords::GetOrCreateRecordOfItem(int item) {
    const int type = tabvex::RecordTypeOfItem(item);
    return type == tabvex::kNoRecordType || !KnowsType(type) ? nullptr : GetOrCreateRecord(type, true);
}

int CAllRecords::ReadItem(int item, char* buffer, int size) {
    return ReadText(item, false, buffer, size);
}

int CAllRecords::HardReadItem(int item, char* buffer, int size) {
    return ReadItem(item, buffer, size);
}

int CAllRecords::ReadCharItem(int item, char* buffer, int size) {
    return ReadText(item, true, buffer, size);
}

int CAllRecords::ReadText(int item, bool charactersOnly, char* buffer, int size) {
    return WithTable([&]() -> int {
        if (buffer == nullptr) {
            return TABVEX_BAD_ARGUMENT;
        }
        return WithItem(item, EMissing::Fails, [&](const CItemTarget& target) -> int {
            if (charactersOnly && !tabvex::IsCharacterItem(*target.Definition)) {
                return TABVEX_ITEM_WRONG_FORMAT;
            }
            std::string_view text;
            const int result = target.Record->ReadEntryItem(item, *target.Definition, text);
            return result != TABVEX_OK ? result
                                       : tabvex::DeliverText(text, buffer, size, tabvex::OemPages(m_pState->Context));
        });
    });
}

int CAllRecords::HardReadDynItem(int item, char* buffer, int size) {
    return WithTable([&]() -> int {
        CRecord* record = buffer == nullptr ? nullptr : RecordOfItem(item);
        if (record == nullptr) {
            return TABVEX_NO_RECORD;
        }
        std::string& text = m_pState->Context.EntryText;
        const int result = record->ReadEntry(item, text);
        return result != TABVEX_OK ? result
                                   : tabvex::DeliverText(text, buffer, size, tabvex::OemPages(m_pState->Context));
    });
}

int CAllRecords::WriteItem(int item, const char* text) {
    return WithTable([&]() -> int {
        if (text == nullptr) {
            return TABVEX_BAD_ARGUMENT;
        }
        return WithItem(item, EMissing::IsCreated, [&](const CItemTarget& target) {
            return target.Record->WriteEntry(item, *target.Definition, tabvex::PreparedText(m_pState->Context, text));
        });
    });
}

int CAllRecords::WriteCharItem(int item, const char* text) {
    return WithTable([&]() -> int {
        if (text == nullptr) {
            return TABVEX_BAD_ARGUMENT;
        }
        return WithItem(item, EMissing::IsCreated, [&](const CItemTarget& target) -> int {
            if (!tabvex::IsCharacterItem(*target.Definition)) {
                return TABVEX_ITEM_WRONG_FORMAT;
            }
            // One blank is how a caller writes a blank item on purpose.
            std::string_view value = tabvex::PreparedText(m_pState->Context, text);
            value = value == " " ? value : tabvex::TrimBlanksRight(value);
            return target.Record->WriteEntry(item, *target.Definition, value);
        });
    });
}

int CAllRecords::HardWriteItem(int item, const char* text) {
    return WithTable([&]() -> int {
        if (text == nullptr) {
            return TABVEX_BAD_ARGUMENT;
        }
        return WithItem(item, EMissing::Fails, [&](const CItemTarget& target) -> int {
            const std::string_view value = tabvex::PreparedText(m_pState->Context, text);
            if (static_cast<long long>(value.size()) != target.Definition->Length) {
                return TABVEX_ITEM_WRONG_LENGTH;
            }
            return target.Record->HardWrite(*target.Definition, value);
        });
    });
}

int CAllRecords::HardWriteDynItem(int item, const char* text) {
    return WithTable([&]() -> int {
        CRecord* record = text == nullptr ? nullptr : GetOrCreateRecordOfItem(item);
        return record == nullptr ? TABVEX_NO_RECORD : record->WriteDynEntry(item, text);
    });
}

int CAllRecords::ClearItem(int item) {
    return WithTable([&]() -> int {
        return WithItem(item, EMissing::Fails, [&](const CItemTarget& target) {
            const int length = std::clamp(target.Definition->Length, 0, target.Record->GetLineLength());
            m_pState->Context.FieldText.assign(static_cast<std::size_t>(length), ' ');
            return target.Record->HardWrite(*target.Definition, m_pState->Context.FieldText);
        });
    });
}
