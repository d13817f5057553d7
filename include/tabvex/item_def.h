// Item definitions: what one line of a table file's layout section says about an item (a field of a record type).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tabvex/export.h"

/// One allowed range of an item. Bounds are texts as the descriptor has them.
struct TABVEX_API CItemRange {
    char LowerKind = '=';   ///< '=': the lower bound is included, '>': it is excluded
    char UpperKind = '=';   ///< '=': the upper bound is included, '<': it is excluded
    std::string LowerBound; ///< "-inf" when open
    std::string UpperBound; ///< "+inf" when open
};

/// One item of a record type's layout.
///
/// A format descriptor is a format letter followed by up to six components, each begun by a comma:
/// `letter,"default","fill",modifiers digits.decimals,ranges,(values),date pattern`. A component may be left empty and
/// the descriptor may end behind any component; an N item with modifiers needs its digits, a D item its date pattern.
class TABVEX_API CItemDef {
public:
    int HasRanges = 0;               ///< 1: the descriptor has ranges
    int HasValues = 0;               ///< 1: the descriptor has a value list
    int HasModifiers = 0;            ///< 1: the descriptor has modifiers; values are then laid out by them
    int HasFill = 0;                 ///< 1: the descriptor has a fill character
    int HasDefault = 0;              ///< 1: the descriptor has a non-empty default text
    char Format = 'C';               ///< 'C' character, 'U' character in upper case, 'N' number, 'D' date
    std::string Default;             ///< text of the item in a record that is created
    char Fill = ' ';                 ///< what fills a number's field instead of blanks
    std::string Modifiers = "L";     ///< letters of L R S E P B; "L" only until a descriptor's modifiers are reached
    int IntDigits = 0;               ///< most digits before the decimal point
    int Decimals = 0;                ///< digits behind the decimal point
    std::string DatePattern;         ///< as the descriptor has it, e.g. "DD.MM.YYYY"
    int HasDatePattern = 0;          ///< 1 once the year of a date pattern has been read
    std::vector<std::string> Values; ///< the value list
    std::vector<CItemRange> Ranges;  ///< of which a value has to lie in one
    int Length = 0;                  ///< in characters
    int Position = 0;                ///< of the item's first character in the record line, 1-based
    int Number = 0;                  ///< unique over all record types

    /// Parses a format descriptor into this definition. `Length` must be set before, as digit counts are held against
    /// it. Returns 0, or the number of the first component that is wrong: TABVEX_DESCRIPTOR_BAD_FORMAT (1) to
    /// TABVEX_DESCRIPTOR_BAD_DATE_PATTERN (7); a null descriptor is a bad format letter. What an earlier descriptor has
    /// set for a component is reset when the component is reached, given or not. What components before the failure
    /// have set stays set. Text behind the date pattern is ignored. TABVEX_INTERNAL_FAILURE (-98) without
    /// memory.
    int ParseFormat(const char* descriptor);

    /// Lays a value out as this item's field, as every write of an item does: a field of `Length` characters, of which
    /// at most 4096 are made. `value` is a text, a number with a point or a comma, or a date as YYYYMMDD, and is not
    /// converted. Texts and numbers are held against the value list, numbers against the ranges as well; a date is laid
    /// out unchecked, and cut where the item is too short for it. Modifiers that name no alignment leave a text without
    /// padding, and the digits of a number out: kept on purpose. Returns TABVEX_OK; TABVEX_VALUE_NOT_LISTED,
    /// TABVEX_VALUE_TOO_LONG for a text; TABVEX_VALUE_NOT_A_NUMBER, TABVEX_VALUE_NUMBER_NOT_LISTED,
    /// TABVEX_VALUE_OUT_OF_RANGE, TABVEX_VALUE_DOES_NOT_FIT for a number; TABVEX_DATE_ITEM_NO_PATTERN,
    /// TABVEX_DATE_DOES_NOT_FIT for a date; TABVEX_INTERNAL_FAILURE without memory. `field` is replaced only on
    /// success.
    int FormatValue(std::string_view value, std::string& field) const;
};
