// A table-line reader that needs no file: the file name it is told is the text whose lines it delivers. Compile
// definitions, which CMakeLists.txt gives, make it answer oddly or rename an entry point.
#include <cstring>

#include "tabvex/export.h"

#ifndef FIRST_FILE_NAME_ANSWER
#define FIRST_FILE_NAME_ANSWER 0
#endif
#ifndef SECOND_FILE_NAME_ANSWER
#define SECOND_FILE_NAME_ANSWER 0
#endif
#ifndef FIRST_LINE_ANSWER
#define FIRST_LINE_ANSWER 0
#endif
#ifndef LAST_LINE_ANSWER
#define LAST_LINE_ANSWER 0
#endif
#ifndef CLEARS_BUFFER
#define CLEARS_BUFFER false
#endif

namespace {

constexpr int kFirstNameAnswer = FIRST_FILE_NAME_ANSWER;
constexpr int kSecondNameAnswer = SECOND_FILE_NAME_ANSWER;
constexpr int kLaterNamesAnswer = 0;
constexpr int kFirstLineAnswer = FIRST_LINE_ANSWER;
constexpr int kLineAnswer = 0;
constexpr int kLastLineAnswer = LAST_LINE_ANSWER;
constexpr int kNoLineAnswer = 1;
constexpr bool kClearsBuffer = CLEARS_BUFFER;

constexpr std::size_t kLineSize = 2000;
constexpr std::size_t kMostCalls = 255;

char g_Calls[kMostCalls + 1] = {}; // one letter a call
std::size_t g_nCalls = 0;
int g_nNames = 0;
const char* g_pNext = nullptr; // in the caller's text, which lasts as long as the load

void Note(char call) {
    if (g_nCalls < kMostCalls) {
        g_Calls[g_nCalls++] = call;
    }
}

void Clear(char* line) {
    if (kClearsBuffer) {
        std::memset(line, 0, kLineSize);
    }
    line[0] = '\0';
}

// A line of 2000 characters or more fills the buffer and is not ended.
int Deliver(char* line) {
    Clear(line);
    if (g_pNext == nullptr || *g_pNext == '\0') {
        return kNoLineAnswer;
    }
    const std::size_t length = std::strcspn(g_pNext, "\n");
    const std::size_t used = length < kLineSize ? length : kLineSize;
    std::memcpy(line, g_pNext, used);
    if (used < kLineSize) {
        line[used] = '\0';
    }
    g_pNext += length + (g_pNext[length] == '\n' ? 1 : 0);
    return *g_pNext == '\0' ? kLastLineAnswer : kLineAnswer;
}

} // namespace

extern "C" {

TABVEX_API int FileName2(const char* fileName) {
    Note('N');
    g_pNext = fileName;
    ++g_nNames;
    if (g_nNames == 1) {
        return kFirstNameAnswer;
    }
    return g_nNames == 2 ? kSecondNameAnswer : kLaterNamesAnswer;
}

TABVEX_API int GetFirstLine(char* line) {
    Note('F');
    (void)Deliver(line);
    return kFirstLineAnswer;
}

TABVEX_API int GetNextLine(char* line) {
    Note('L');
    return Deliver(line);
}

TABVEX_API void FileClose() {
    Note('C');
}

/// The calls since the library was loaded: N FileName2, F GetFirstLine, L GetNextLine, C FileClose.
TABVEX_API const char* ReaderCalls() {
    return g_Calls;
}

} // extern "C"
