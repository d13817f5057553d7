// The record set's side of mutations: finding the record, converting and handing out texts.

#include <array>
#include <cstring>

#include "core/all_records.h"
#include "items/number_fields.h"

/// Where a mutation is delivered; a text of exactly its size fits, its terminator comes behind it.
struct CAllRecords::CMutationBuffers {
    struct CText {
        char* Buffer;
        int Size;
    };

    CText Code;
    double* Value; // one of these two is given
    CText ValueText;
    CText Text1;
    CText Text2;
};

int CAllRecords::UseX4New(int on) {
    tabvex::CRecordContext& context = m_pState->Context;
    const int before = context.X4NewForm ? 1 : 0;
    context.X4NewForm = on != 0;
    return before;
}

int CAllRecords::ReadX4Mutation(int index, char* code, int codeSize, double& value, char* text1, int text1Size,
                                char* text2, int text2Size) {
    return ReadMutation("X4", m_pState->Context.X4NewForm, index,
                        {{code, codeSize}, &value, {}, {text1, text1Size}, {text2, text2Size}});
}

int CAllRecords::ReadX4Mutation(int index, char* code, int codeSize, char* value, int valueSize, char* text1,
                                int text1Size, char* text2, int text2Size) {
    return ReadMutation("X4", m_pState->Context.X4NewForm, index,
                        {{code, codeSize}, nullptr, {value, valueSize}, {text1, text1Size}, {text2, text2Size}});
}

int CAllRecordsEx::ReadG9Mutation(int index, char* code, int codeSize, double& value, char* text1, int text1Size,
                                  char* text2, int text2Size) {
    return ReadMutation("G9", true, index, {{code, codeSize}, &value, {}, {text1, text1Size}, {text2, text2Size}});
}

int CAllRecordsEx::ReadG9Mutation(int index, char* code, int codeSize, char* value, int valueSize, char* text1,
                                  int text1Size, char* text2, int text2Size) {
    return ReadMutation("G9", true, index,
                        {{code, codeSize}, nullptr, {value, valueSize}, {text1, text1Size}, {text2, text2Size}});
}

int CAllRecords::ReadMutation(const char* type, bool newForm, int index, const CMutationBuffers& buffers) {
    using CText = CMutationBuffers::CText;
    if (index < 1 || index > 3) {
        return TABVEX_MUTATION_BAD_INDEX;
    }
    return WithTable([&]() -> int {
        const bool isNumber = buffers.Value != nullptr;
        std::array<std::pair<std::string, CText>, 4> texts = {
            {{{}, buffers.Code}, {{}, buffers.Text1}, {{}, buffers.Text2}, {{}, buffers.ValueText}}};
        const std::size_t count = isNumber ? 3 : 4;
        for (std::size_t i = 0; i < count; ++i) {
            if (texts[i].second.Buffer == nullptr) {
                return TABVEX_BAD_ARGUMENT;
            }
        }
        CRecord* record = ExistRecord(type);
        if (record == nullptr) {
            return TABVEX_NO_RECORD;
        }
        tabvex::CMutation mutation;
        const int result = record->ReadMutation(index, newForm, mutation);
        texts[0].first = mutation.Code;
        texts[1].first = mutation.Text1;
        texts[2].first = mutation.Text2;
        tabvex::CRecordContext& context = m_pState->Context;
        for (auto& text : texts) {
            if (context.IsOem) {
                context.CodePages.OemToAnsi(text.first.data(), text.first.size());
            }
        }
        if (mutation.HasValue) {
            char number[tabvex::kNumberTextSize];
            texts[3].first = tabvex::PrintNumber(mutation.Value, number);
        }
        for (std::size_t i = 0; i < count; ++i) {
            if (static_cast<long long>(texts[i].first.size()) > texts[i].second.Size) {
                return TABVEX_TEXT_CUT;
            }
        }
        for (std::size_t i = 0; i < count; ++i) {
            std::memcpy(texts[i].second.Buffer, texts[i].first.c_str(), texts[i].first.size() + 1);
        }
        if (isNumber) {
            *buffers.Value = mutation.Value;
        }
        return result;
    });
}

int CAllRecords::AddX4Mutation(const char* mutation) {
    return AddMutation("X4", mutation);
}

int CAllRecordsEx::AddG9Mutation(const char* mutation) {
    return AddMutation("G9", mutation);
}

int CAllRecords::AddMutation(const char* type, const char* mutation) {
    return WithTable([&]() -> int {
        if (mutation == nullptr) {
            return TABVEX_BAD_ARGUMENT;
        }
        CRecord* record = ExistRecord(type);
        return record == nullptr ? TABVEX_MUTATION_NO_RECORD : record->AddMutation(mutation);
    });
}

int CAllRecords::DeleteOneX4Mutation(const char* code) {
    return DeleteOneMutation("X4", code);
}

int CAllRecordsEx::DeleteOneG9Mutation(const char* code) {
    return DeleteOneMutation("G9", code);
}

int CAllRecords::DeleteOneMutation(const char* type, const char* code) {
    return WithTable([&]() -> int {
        if (code == nullptr) {
            return TABVEX_BAD_ARGUMENT;
        }
        CRecord* record = ExistRecord(type);
        return record == nullptr ? TABVEX_MUTATION_NO_RECORD : record->DeleteOneMutation(code);
    });
}

int CAllRecords::DeleteX4Mutations() {
    return CountMutations("X4", &CRecord::DeleteMutations);
}

int CAllRecordsEx::DeleteG9Mutations() {
    return CountMutations("G9", &CRecord::DeleteMutations);
}

int CAllRecords::GetX4MutationCount() {
    return CountMutations("X4", &CRecord::GetMutationCount);
}

int CAllRecordsEx::GetG9MutationCount() {
    return CountMutations("G9", &CRecord::GetMutationCount);
}

int CAllRecords::CountMutations(const char* type, int (CRecord::*operation)()) {
    return WithTable([&]() -> int {
        CRecord* record = ExistRecord(type);
        return record == nullptr ? TABVEX_NO_RECORD : (record->*operation)();
    });
}
