// Runs every test, in the process locale that the environment asks for.
#include <clocale>
#include <cstdio>
#include <cstdlib>

#include <gmock/gmock.h>

namespace {

// Nothing the library does may depend on the locale, so the same tests pass in every one.
bool SetLocaleOfEnvironment() {
    const char* name = std::getenv("TABVEX_TEST_LOCALE");
    if (name == nullptr || std::setlocale(LC_ALL, name) != nullptr) {
        return true;
    }
    (void)std::fprintf(stderr, "the locale %s of TABVEX_TEST_LOCALE is not there\n", name);
    return false;
}

} // namespace

int main(int argc, char** argv) {
    ::testing::InitGoogleMock(&argc, argv);
    return SetLocaleOfEnvironment() ? RUN_ALL_TESTS() : EXIT_FAILURE;
}
