// Record types: their keys, and which key a line of a record file has.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "layout/item_ranges.h"

namespace tabvex {

/// How a line shows its type.
enum class EKeyForm : std::uint8_t {
    Plain,  ///< by characters 0-1
    Family, ///< by characters 0-1 and 7-8
    Marked, ///< by characters 0-1 and a mark further on, or not by its line at all
};

/// What holds the lines of a type.
enum class ERecordClass : std::uint8_t {
    Own,    ///< a class that knows the type's entries
    List,   ///< the list-record class
    Generic ///< a generic record a line
};

struct CRecordTypeRow {
    std::string_view Key;
    EKeyForm Form;
    ERecordClass Class;
};

// clang-format off
inline constexpr std::array<CRecordTypeRow, 67> kRecordTypes = {{
//   key, form, class
    {"X0", EKeyForm::Plain, ERecordClass::Own},      {"X1", EKeyForm::Plain, ERecordClass::List},
    {"X2", EKeyForm::Plain, ERecordClass::Own},      {"X3", EKeyForm::Plain, ERecordClass::Own},
    {"X4", EKeyForm::Plain, ERecordClass::Own},      {"X5", EKeyForm::Plain, ERecordClass::List},
    {"X6", EKeyForm::Plain, ERecordClass::Own},      {"X7", EKeyForm::Plain, ERecordClass::Own},
    {"X8", EKeyForm::Plain, ERecordClass::Generic},  {"X9", EKeyForm::Plain, ERecordClass::Own},
    {"G0", EKeyForm::Plain, ERecordClass::Own},      {"G1", EKeyForm::Plain, ERecordClass::Own},
    {"G2", EKeyForm::Plain, ERecordClass::List},     {"G3", EKeyForm::Plain, ERecordClass::Own},
    {"G4", EKeyForm::Plain, ERecordClass::Own},      {"G5", EKeyForm::Plain, ERecordClass::Own},
    {"G6", EKeyForm::Plain, ERecordClass::Own},      {"G7", EKeyForm::Plain, ERecordClass::Own},
    {"G9", EKeyForm::Plain, ERecordClass::Own},      {"GD", EKeyForm::Plain, ERecordClass::Own},
    {"GE", EKeyForm::Plain, ERecordClass::Own},      {"GI", EKeyForm::Plain, ERecordClass::Own},
    {"Z1", EKeyForm::Plain, ERecordClass::List},     {"Z2", EKeyForm::Plain, ERecordClass::Own},
    {"Z3", EKeyForm::Plain, ERecordClass::List},     {"Z4", EKeyForm::Plain, ERecordClass::Own},
    {"Z9", EKeyForm::Plain, ERecordClass::Own},      {"W1", EKeyForm::Plain, ERecordClass::List},
    {"W2", EKeyForm::Plain, ERecordClass::Own},      {"W3", EKeyForm::Plain, ERecordClass::Own},
    {"W4", EKeyForm::Plain, ERecordClass::Own},      {"W6", EKeyForm::Plain, ERecordClass::Own},
    {"W7", EKeyForm::Plain, ERecordClass::Own},      {"W9", EKeyForm::Plain, ERecordClass::Own},
    {"V1", EKeyForm::Plain, ERecordClass::Own},      {"V2", EKeyForm::Plain, ERecordClass::Own},
    {"V3", EKeyForm::Plain, ERecordClass::Own},      {"X$", EKeyForm::Plain, ERecordClass::List},
    {"MS", EKeyForm::Plain, ERecordClass::List},     {"M2", EKeyForm::Plain, ERecordClass::List},
    {"T0", EKeyForm::Plain, ERecordClass::List},     {"G8", EKeyForm::Plain, ERecordClass::Own},
    {"FZ", EKeyForm::Plain, ERecordClass::Own},      {"Z5", EKeyForm::Plain, ERecordClass::List},
    {"ZT", EKeyForm::Plain, ERecordClass::List},     {"Z0", EKeyForm::Plain, ERecordClass::Own},
    {"WT02", EKeyForm::Family, ERecordClass::List},  {"WT03", EKeyForm::Family, ERecordClass::List},
    {"WT04", EKeyForm::Family, ERecordClass::List},  {"WT05", EKeyForm::Family, ERecordClass::List},
    {"WT06", EKeyForm::Family, ERecordClass::List},  {"WT07", EKeyForm::Family, ERecordClass::List},
    {"WT08", EKeyForm::Family, ERecordClass::List},  {"XT02", EKeyForm::Family, ERecordClass::List},
    {"XT03", EKeyForm::Family, ERecordClass::List},  {"XT04", EKeyForm::Family, ERecordClass::List},
    {"XT05", EKeyForm::Family, ERecordClass::List},  {"XT06", EKeyForm::Family, ERecordClass::List},
    {"XT07", EKeyForm::Family, ERecordClass::List},  {"XT08", EKeyForm::Family, ERecordClass::List},
    {"XT15", EKeyForm::Family, ERecordClass::List},  {"XT16", EKeyForm::Family, ERecordClass::List},
    {"XT19", EKeyForm::Family, ERecordClass::List},  {"XT22", EKeyForm::Family, ERecordClass::List},
    {"X2N", EKeyForm::Marked, ERecordClass::Own},    {"X9_NEU", EKeyForm::Marked, ERecordClass::Own},
    {"W2N", EKeyForm::Marked, ERecordClass::Own},
}};
// clang-format on

/// Index of a type in kRecordTypes; kNoRecordType for every other key.
inline constexpr int kNoRecordType = -1;
inline constexpr int kRecordTypeCount = static_cast<int>(kRecordTypes.size());

constexpr int RecordTypeOf(std::string_view key) {
    for (int type = 0; type < kRecordTypeCount; ++type) {
        if (kRecordTypes[static_cast<std::size_t>(type)].Key == key) {
            return type;
        }
    }
    return kNoRecordType;
}

constexpr const CRecordTypeRow& RecordTypeRow(int type) {
    return kRecordTypes[static_cast<std::size_t>(type)];
}

/// Type of a key that a caller or an item range names; "W2_NEU" is another name of "W2N".
int FindRecordType(std::string_view key);
/// Type that owns an item number; kNoRecordType when none does or it has no class of its own and is no list type.
int RecordTypeOfItem(int item);
/// True for the list types.
bool IsListType(int type);

/// Characters that a key can have, and the buffer that holds one.
inline constexpr int kKeySize = 8;

/// The key of a line that begins at `line` and has at least 9 characters in its buffer. TABVEX_OK, or
/// TABVEX_KEY_UNKNOWN with characters 0-1 and 7-8 in `key`.
int GetRecordTypeKey(const char* line, char (&key)[kKeySize]);

/// The type of a line, kNoRecordType when it is not known. The line has at least 9 characters in its buffer.
int RecordTypeOfLine(const char* line);
/// Widens "X2" and "X9" to their newer forms when a line of 128 characters carries the mark of these.
int WidenRecordType(int type, const char* line);

/// Offsets of the marks of the newer forms; the mark is a "1".
inline constexpr int kX2nMarkOffset = 127;
inline constexpr int kX9NewMarkOffset = 122;
inline constexpr char kNewFormMark = '1';

inline constexpr std::string_view kUnknownType = "UNKNOWN";

} // namespace tabvex
