#include "child_process.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::string ReadToEnd(int file) {
    std::string text;
    std::array<char, 4096> block;
    for (ssize_t count = ::read(file, block.data(), block.size()); count > 0;
         count = ::read(file, block.data(), block.size())) {
        text.append(block.data(), static_cast<std::size_t>(count));
    }
    return text;
}

// Starts the program with its standard output going to `output`.
bool Start(const std::vector<std::string>& arguments, int output, pid_t& child) {
    std::vector<char*> names;
    names.reserve(arguments.size() + 1);
    for (const std::string& argument : arguments) {
        names.push_back(const_cast<char*>(argument.c_str())); // NOLINT(cppcoreguidelines-pro-type-const-cast)
    }
    names.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    const int result = posix_spawn(&child, names[0], &actions, nullptr, names.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    return result == 0;
}

CMeasured Measure(const char* program, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), program);
    const std::string printed = RunProgram(arguments);
    CMeasured measured;
    char* next = nullptr;
    measured.Seconds = std::strtod(printed.c_str(), &next);
    measured.PeakBytes = std::strtod(next, nullptr);
    return measured;
}

} // namespace

std::string RunProgram(const std::vector<std::string>& arguments) {
    std::array<int, 2> ends = {};
    if (::pipe(ends.data()) != 0) {
        Die("no pipe");
    }
    pid_t child = 0;
    const bool started = Start(arguments, ends[1], child);
    ::close(ends[1]);
    std::string printed = ReadToEnd(ends[0]);
    ::close(ends[0]);
    int status = 1;
    if (!started || ::waitpid(child, &status, 0) != child || status != 0) {
        Die(arguments.front() + " failed");
    }
    return printed;
}

CMeasured MeasureLibrary(std::vector<std::string> arguments) {
    return Measure(TABVEX_MEASURE_LIBRARY, std::move(arguments));
}

CMeasured MeasureFloor(std::vector<std::string> arguments) {
    return Measure(TABVEX_MEASURE_FLOOR, std::move(arguments));
}

void Die(const std::string& message) {
    static_cast<void>(std::fprintf(stderr, "%s\n", message.c_str()));
    std::exit(1); // NOLINT(concurrency-mt-unsafe)
}
