#include "tool_system.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <io.h>
#include <iterator>

#include "exit_status.h"
#include "windows_text.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>
// Behind windows.h, which it needs.
#include <shellapi.h>

namespace tabvex::tool {

namespace {

// Empty where a character of the name is not in the page.
std::string ToAnsi(const std::wstring& wide) {
    std::string name(wide.size() * 2, '\0'); // two bytes are the most that a character takes
    BOOL lost = FALSE;
    const bool isUtf8 = ::GetACP() == CP_UTF8; // its characters take more, and none is lost
    if (isUtf8) {
        return ToUtf8(wide);
    }
    const int length = ::WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide.data(), static_cast<int>(wide.size()),
                                             name.data(), static_cast<int>(name.size()), nullptr, &lost);
    name.resize(lost != FALSE ? 0 : static_cast<std::size_t>(length));
    return name;
}

std::wstring ShortName(const std::wstring& name) {
    std::wstring shortName(MAX_PATH, L'\0');
    const DWORD length = ::GetShortPathNameW(name.c_str(), shortName.data(), MAX_PATH);
    shortName.resize(length < MAX_PATH ? length : 0);
    return shortName;
}

} // namespace

void PrepareStreams() {
    for (std::FILE* stream : {stdin, stdout, stderr}) {
        static_cast<void>(_setmode(_fileno(stream), _O_BINARY));
    }
    static const UINT before = ::GetConsoleOutputCP();
    if (::SetConsoleOutputCP(CP_UTF8) == 0) {
        return; // there is no console
    }
    // It outlives the tool.
    static_cast<void>(std::atexit([] {
        static_cast<void>(std::fflush(nullptr)); // what is still to be shown is UTF-8
        static_cast<void>(::SetConsoleOutputCP(before));
    }));
}

bool IsClosedPipe(int error) {
    const unsigned long systemError = _doserrno;
    return error == EPIPE || systemError == ERROR_BROKEN_PIPE || systemError == ERROR_NO_DATA ||
           systemError == ERROR_PIPE_NOT_CONNECTED;
}

// `argv` has lost the characters that the ANSI page lacks.
std::vector<std::string> ArgumentsOf(int /*argc*/, char** /*argv*/) {
    int count = 0;
    wchar_t** wide = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) {
        arguments.push_back(ToUtf8(wide[i]));
    }
    ::LocalFree(wide);
    return arguments;
}

// A file with characters that the ANSI page lacks is reached under its short name, where the disk keeps one.
std::string SystemFileName(const std::string& name) {
    const std::wstring wide = ToUtf16(name);
    std::string ansi = ToAnsi(wide);
    if (ansi.empty()) {
        ansi = ToAnsi(ShortName(wide));
    }
    if (ansi.empty() && !name.empty()) {
        throw CToolError(name + ": its name cannot be expressed in the system's code page");
    }
    return ansi;
}

} // namespace tabvex::tool
