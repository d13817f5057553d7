/*
 * Floors: the least that a plain C program does to get the same files in and out. The library is held against them.
 *
 * Every function returns 0, or -1 when a file cannot be read or written or memory runs out.
 */
#ifndef TABVEX_BENCH_FLOORS_H
#define TABVEX_BENCH_FLOORS_H

#include <stddef.h> /* NOLINT(modernize-deprecated-headers): C reads it too */

#ifdef __cplusplus
extern "C" {
#endif

/* A record file in memory: every record in a slot of 131 bytes, the slots in blocks. */
struct FloorRecords {
    char** blocks;
    size_t blockCount;
    size_t recordCount;
};

/* Reads a record file in large blocks and copies each record into a slot of its own. */
int FloorReadRecords(const char* fileName, struct FloorRecords* records);
/* Writes all records with CR LF behind each. */
int FloorWriteRecords(const char* fileName, const struct FloorRecords* records);
/* Changes one character of every record. */
void FloorChangeRecords(struct FloorRecords* records);
void FloorFreeRecords(struct FloorRecords* records);

struct FloorText {
    const char* begin;
    size_t length;
};

/* A text file in memory, with its lines and the columns of these. */
struct FloorTable {
    char* text;
    struct FloorText* lines;
    size_t lineCount;
    struct FloorText* columns;
    size_t columnCount;
};

/* Reads a text file and splits it into lines. */
int FloorReadLines(const char* fileName, struct FloorTable* table);
/* Splits the lines into columns. */
int FloorSplitColumns(struct FloorTable* table, char delimiter);
void FloorFreeTable(struct FloorTable* table);

#ifdef __cplusplus
}
#endif

#endif
