// The rules that an item's layout sets its field, and fields laid out by them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tabvex/item_def.h"

namespace tabvex::tool {

// Names of the rules.
inline constexpr const char* kNumberRule = "number";
inline constexpr const char* kDigitsRule = "digits";
inline constexpr const char* kDecimalsRule = "decimals";
inline constexpr const char* kRangeRule = "range";
inline constexpr const char* kValueListRule = "value-list";
inline constexpr const char* kDateRule = "date";
inline constexpr const char* kUpperCaseRule = "upper-case";
inline constexpr const char* kLengthRule = "length";
inline constexpr const char* kLayoutRule = "layout"; ///< sign, fill, alignment, point

/// A rule that is broken.
struct CBrokenRule {
    const char* Rule = "";
    std::string Expected; ///< in the record file's code page
};

/// What is wrong with a field, the first thing only; a blank field is fine. Values are laid out by the library itself,
/// so that its checks and layout hold here as well.
std::optional<CBrokenRule> JudgeField(const CItemDef& item, std::string_view field);

/// Lays out a value as people write it: a text, a number like -12.5, a date like 2025-11-14 or in the item's own
/// pattern. A blank value gives a blank field. What is wrong with it, with `field` as it was.
std::optional<CBrokenRule> LayOutField(const CItemDef& item, std::string_view value, std::string& field);

/// A range as descriptors write it, "<0;9999>"; an open bound is left out.
std::string RangeText(const CItemRange& range);

} // namespace tabvex::tool
