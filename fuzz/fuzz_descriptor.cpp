// The input is the length of an item, a format descriptor, and values to lay out by it, a line each.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "items/value_format.h"
#include "memory_file.h"
#include "tabvex/item_def.h"
#include "tabvex/result_codes.h"

namespace {

constexpr int kLengths = 40;

// The next line, which goes from the text.
std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

// A descriptor on the heap with nothing behind its NUL, where a read too far is noticed.
int Parse(CItemDef& definition, std::string_view descriptor) {
    const std::unique_ptr<char[]> exact(new char[descriptor.size() + 1]);
    std::memcpy(exact.get(), descriptor.data(), descriptor.size());
    exact[descriptor.size()] = '\0';
    return definition.ParseFormat(exact.get());
}

void Format(const CItemDef& definition, std::string_view value, bool check) {
    const std::string copy(value);
    std::string field;
    if (tabvex::FormatValue(definition, copy, check, field) == TABVEX_OK) {
        tabvex::fuzz::Require(static_cast<int>(field.size()) <= definition.Length);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    CItemDef definition;
    definition.Length = data[0] % kLengths;
    std::string_view text(reinterpret_cast<const char*>(data + 1), size - 1); // NOLINT(*-reinterpret-cast)
    const std::string_view descriptor = TakeLine(text);
    const int result = Parse(definition, descriptor);
    tabvex::fuzz::Require(result >= TABVEX_OK && result <= TABVEX_DESCRIPTOR_BAD_DATE_PATTERN);
    tabvex::fuzz::Require(Parse(definition, descriptor) == result);
    while (!text.empty()) {
        const std::string_view value = TakeLine(text);
        Format(definition, value, true);
        Format(definition, value, false);
    }
    return 0;
}
