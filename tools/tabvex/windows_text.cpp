#include "windows_text.h"

#include <system_error>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace tabvex::tool {

std::wstring ToUtf16(std::string_view text) {
    const auto size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0'); // never longer than the bytes
    const int length = text.empty() ? 0
                                    : ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), size,
                                                            wide.data(), static_cast<int>(wide.size()));
    wide.resize(static_cast<std::size_t>(length));
    return wide;
}

std::string ToUtf8(std::wstring_view text) {
    constexpr std::size_t kMostBytes = 3; // of one unit of UTF-16
    std::string bytes(text.size() * kMostBytes, '\0');
    const int length = text.empty()
                           ? 0
                           : ::WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                                                   static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(length));
    return bytes;
}

std::string ErrorText(unsigned long error) {
    const std::error_condition meaning = std::system_category().default_error_condition(static_cast<int>(error));
    return meaning.category() == std::generic_category() ? meaning.message() : "system error " + std::to_string(error);
}

} // namespace tabvex::tool
