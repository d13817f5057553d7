// Runs other programs: measuring programs, each in a process of its own, and the record generator.
#pragma once

#include <string>
#include <vector>

/// What a measuring program prints about itself.
struct CMeasured {
    double Seconds = 0;
    double PeakBytes = 0;
};

/// Runs a program and waits for its end. `arguments` begins with the program's file. What it prints; a program that
/// fails ends this one with a message.
std::string RunProgram(const std::vector<std::string>& arguments);

/// Runs `measure_library`, `measure_floor` with arguments.
CMeasured MeasureLibrary(std::vector<std::string> arguments);
CMeasured MeasureFloor(std::vector<std::string> arguments);

/// Ends this program with a message.
[[noreturn]] void Die(const std::string& message);
