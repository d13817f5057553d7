/*
 * Does once, in a process of its own, what measure_library does with the library, and prints the time and the memory it
 * took.
 */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "floors.h"
#include "measured.h"

static int Read(char** names, double* seconds) {
    struct FloorRecords records;
    const double start = Now();
    const int result = FloorReadRecords(names[0], &records);
    *seconds = Now() - start;
    return result;
}

static int Load(char** names, double* seconds) {
    struct FloorTable table;
    const double start = Now();
    const int result = FloorReadLines(names[0], &table);
    *seconds = Now() - start;
    return result;
}

static int Save(char** names, double* seconds) {
    struct FloorRecords records;
    const double start = Now();
    int result = FloorReadRecords(names[0], &records);
    if (result == 0) {
        FloorChangeRecords(&records);
        result = FloorWriteRecords(names[1], &records);
    }
    *seconds = Now() - start;
    return result;
}

static int CalculateOnce(char** names) {
    struct FloorTable table;
    struct FloorRecords records;
    int result = FloorReadLines(names[0], &table) | FloorSplitColumns(&table, '|');
    result |= FloorReadRecords(names[1], &records);
    result |= FloorWriteRecords(names[2], &records);
    FloorFreeRecords(&records);
    FloorFreeTable(&table);
    return result;
}

static int Calculate(char** names, double* seconds) {
    const long count = strtol(names[3], NULL, 10);
    int result = 0;
    const double start = Now();
    for (long i = 0; i < count; ++i) {
        result |= CalculateOnce(names);
    }
    *seconds = (Now() - start) / (double)(count > 0 ? count : 1);
    return result;
}

struct Work {
    const char* name;
    int nameCount;
    int (*run)(char** names, double* seconds);
};

static const struct Work kWorks[] = {
    {"read", 1, Read}, {"load", 1, Load}, {"save", 2, Save}, {"calculate", 4, Calculate}};

int main(int argc, char** argv) {
    for (size_t i = 0; i < sizeof kWorks / sizeof kWorks[0]; ++i) {
        const struct Work* work = &kWorks[i];
        if (argc == work->nameCount + 2 && strcmp(argv[1], work->name) == 0) {
            double seconds = 0;
            if (work->run(argv + 2, &seconds) != 0) {
                (void)fprintf(stderr, "measure_floor: %s failed\n", work->name);
                return 1;
            }
            PrintMeasured(seconds);
            return 0;
        }
    }
    (void)fprintf(stderr,
                  "usage: measure_floor read FILE | load TABLE | save FILE OUT | calculate TABLE FILE OUT COUNT\n");
    return 2;
}
