#include "core/record_types.h"

#include <algorithm>
#include <cstring>

#include "tabvex/result_codes.h"

namespace tabvex {

namespace {

constexpr bool KeysAreUnique() {
    for (int type = 0; type < kRecordTypeCount; ++type) {
        if (RecordTypeOf(RecordTypeRow(type).Key) != type) {
            return false;
        }
    }
    return true;
}

static_assert(KeysAreUnique());

constexpr std::int8_t kNone = kNoRecordType;
static_assert(kRecordTypeCount <= INT8_MAX);

constexpr std::size_t Index(char character) {
    return static_cast<unsigned char>(character);
}

// Plain types by their two characters: the few first characters get a row each, so that the whole table stays small.
class CPlainTypes {
public:
    constexpr CPlainTypes() {
        for (auto& row : m_Types) {
            for (std::int8_t& type : row) {
                type = kNone;
            }
        }
        for (int type = 0; type < kRecordTypeCount; ++type) {
            if (RecordTypeRow(type).Form == EKeyForm::Plain) {
                Add(RecordTypeRow(type).Key, type);
            }
        }
    }

    constexpr int Find(char first, char second) const { return m_Types[m_Rows[Index(first)]][Index(second)]; }

private:
    constexpr void Add(std::string_view key, int type) {
        std::uint8_t& row = m_Rows[Index(key[0])];
        if (row == 0) {
            row = ++m_nRows;
        }
        m_Types[row][Index(key[1])] = static_cast<std::int8_t>(type);
    }

    std::array<std::uint8_t, 256> m_Rows = {}; // row 0: no type begins so
    std::array<std::array<std::int8_t, 256>, 9> m_Types = {};
    std::uint8_t m_nRows = 0;
};

constexpr CPlainTypes kPlainTypes;

// Types of the two families by their first character and the number in their last two.
class CFamilyTypes {
public:
    constexpr CFamilyTypes() {
        for (auto& row : m_Types) {
            for (std::int8_t& type : row) {
                type = kNone;
            }
        }
        for (int type = 0; type < kRecordTypeCount; ++type) {
            const std::string_view key = RecordTypeRow(type).Key;
            if (RecordTypeRow(type).Form == EKeyForm::Family) {
                m_Types[RowOf(key[0])][NumberOf(key[2], key[3])] = static_cast<std::int8_t>(type);
            }
        }
    }

    constexpr int Find(const char* key) const {
        const bool family = (key[0] == 'W' || key[0] == 'X') && key[1] == 'T';
        return family && IsDigit(key[2]) && IsDigit(key[3]) ? m_Types[RowOf(key[0])][NumberOf(key[2], key[3])]
                                                            : kNoRecordType;
    }

private:
    static constexpr bool IsDigit(char character) { return character >= '0' && character <= '9'; }
    static constexpr std::size_t RowOf(char first) { return first == 'W' ? 0 : 1; }
    static constexpr std::size_t NumberOf(char tens, char ones) {
        return static_cast<std::size_t>(tens - '0') * 10 + static_cast<std::size_t>(ones - '0');
    }

    std::array<std::array<std::int8_t, 100>, 2> m_Types = {};
};

constexpr CFamilyTypes kFamilyTypes;

constexpr std::array<std::int8_t, kItemNumberRanges.size()> TypesOfRanges() {
    std::array<std::int8_t, kItemNumberRanges.size()> types = {};
    for (std::size_t i = 0; i < types.size(); ++i) {
        const int type = RecordTypeOf(TypeKeyOf(kItemNumberRanges[i]));
        const bool hasClass = type != kNoRecordType && RecordTypeRow(type).Class != ERecordClass::Generic;
        types[i] = hasClass ? static_cast<std::int8_t>(type) : kNone;
    }
    return types;
}

constexpr auto kTypesOfRanges = TypesOfRanges();

constexpr int kTypeX2 = RecordTypeOf("X2");
constexpr int kTypeX2N = RecordTypeOf("X2N");
constexpr int kTypeX9 = RecordTypeOf("X9");
constexpr int kTypeX9New = RecordTypeOf("X9_NEU");
constexpr int kTypeW2N = RecordTypeOf("W2N");

} // namespace

int FindRecordType(std::string_view key) {
    return key == "W2_NEU" ? kTypeW2N : RecordTypeOf(key);
}

int RecordTypeOfItem(int item) {
    const int range = FindItemNumberRange(item);
    return range < 0 ? kNoRecordType : kTypesOfRanges[static_cast<std::size_t>(range)];
}

bool IsListType(int type) {
    return type != kNoRecordType && RecordTypeRow(type).Class == ERecordClass::List;
}

int GetRecordTypeKey(const char* line, char (&key)[kKeySize]) {
    const char family[] = {line[0], line[1], line[7], line[8], '\0'};
    std::memset(key, 0, sizeof key);
    if (kPlainTypes.Find(line[0], line[1]) != kNoRecordType) {
        std::memcpy(key, family, 2);
        return TABVEX_OK;
    }
    std::memcpy(key, family, sizeof family);
    return kFamilyTypes.Find(family) == kNoRecordType ? TABVEX_KEY_UNKNOWN : TABVEX_OK;
}

int RecordTypeOfLine(const char* line) {
    const int type = kPlainTypes.Find(line[0], line[1]);
    if (type != kNoRecordType || line[1] != 'T') {
        return type;
    }
    const char family[] = {line[0], line[1], line[7], line[8]};
    return kFamilyTypes.Find(family);
}

int WidenRecordType(int type, const char* line) {
    if (type == kTypeX2 && line[kX2nMarkOffset] == kNewFormMark) {
        return kTypeX2N;
    }
    if (type == kTypeX9 && line[kX9NewMarkOffset] == kNewFormMark) {
        return kTypeX9New;
    }
    return type;
}

} // namespace tabvex
