#include "floors.h"

#include <fcntl.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

enum {
    kLineLength = 128,
    kSlotSize = 131,
    kSlotsInBlock = 1 << 14,
    kReadBlock = 130 * 1024, /* a whole number of records, of 128 and of 130 bytes */
    kWriteBlock = 1 << 18
};

/* --- Records --- */

static char* NextSlot(struct FloorRecords* records) {
    const size_t used = records->recordCount % kSlotsInBlock;
    if (used == 0) {
        char** blocks = (char**)realloc((void*)records->blocks, (records->blockCount + 1) * sizeof(char*));
        if (blocks == NULL) {
            return NULL;
        }
        records->blocks = blocks;
        blocks[records->blockCount] = (char*)malloc((size_t)kSlotSize * kSlotsInBlock);
        if (blocks[records->blockCount] == NULL) {
            return NULL;
        }
        ++records->blockCount;
    }
    ++records->recordCount;
    return records->blocks[records->blockCount - 1] + used * kSlotSize;
}

static int CopyRecords(struct FloorRecords* records, const char* block, size_t size, size_t recordSize) {
    for (size_t at = 0; at + recordSize <= size; at += recordSize) {
        char* slot = NextSlot(records);
        if (slot == NULL) {
            return -1;
        }
        memcpy(slot, block + at, kLineLength);
        slot[kLineLength] = '\0';
    }
    return 0;
}

static ssize_t ReadFully(int file, char* buffer, size_t size) {
    size_t have = 0;
    while (have < size) {
        const ssize_t count = read(file, buffer + have, size - have);
        if (count < 0) {
            return -1;
        }
        if (count == 0) {
            break;
        }
        have += (size_t)count;
    }
    return (ssize_t)have;
}

int FloorReadRecords(const char* fileName, struct FloorRecords* records) {
    static char block[kReadBlock];
    size_t recordSize = 0;
    memset(records, 0, sizeof *records);
    const int file = open(fileName, O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        return -1;
    }
    ssize_t size = 0;
    int result = 0;
    while (result == 0 && (size = ReadFully(file, block, kReadBlock)) > 0) {
        if (recordSize == 0) {
            const int crlf = size >= kLineLength + 2 && memcmp(block + kLineLength, "\r\n", 2) == 0;
            recordSize = crlf ? kLineLength + 2 : kLineLength;
        }
        result = CopyRecords(records, block, (size_t)size, recordSize);
    }
    close(file);
    return size < 0 ? -1 : result;
}

static int WriteFully(int file, const char* data, size_t size) {
    while (size > 0) {
        const ssize_t count = write(file, data, size);
        if (count <= 0) {
            return -1;
        }
        data += count;
        size -= (size_t)count;
    }
    return 0;
}

int FloorWriteRecords(const char* fileName, const struct FloorRecords* records) {
    static char block[kWriteBlock];
    const size_t recordSize = kLineLength + 2;
    const int file = open(fileName, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (file < 0) {
        return -1;
    }
    size_t used = 0;
    int result = 0;
    for (size_t i = 0; result == 0 && i < records->recordCount; ++i) {
        if (used + recordSize > kWriteBlock) {
            result = WriteFully(file, block, used);
            used = 0;
        }
        memcpy(block + used, records->blocks[i / kSlotsInBlock] + i % kSlotsInBlock * kSlotSize, kLineLength);
        memcpy(block + used + kLineLength, "\r\n", 2); /* NOLINT(bugprone-not-null-terminated-result) */
        used += recordSize;
    }
    if (result == 0) {
        result = WriteFully(file, block, used);
    }
    return close(file) != 0 ? -1 : result;
}

void FloorChangeRecords(struct FloorRecords* records) {
    for (size_t i = 0; i < records->recordCount; ++i) {
        records->blocks[i / kSlotsInBlock][i % kSlotsInBlock * kSlotSize + kLineLength / 2] = '#';
    }
}

void FloorFreeRecords(struct FloorRecords* records) {
    for (size_t i = 0; i < records->blockCount; ++i) {
        free(records->blocks[i]);
    }
    free((void*)records->blocks);
    memset(records, 0, sizeof *records);
}

/* --- Tables --- */

static int ReadWhole(const char* fileName, char** text, size_t* length) {
    struct stat status;
    const int file = open(fileName, O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        return -1;
    }
    ssize_t size = -1;
    if (fstat(file, &status) == 0) {
        *text = (char*)malloc((size_t)status.st_size + 1);
        size = *text == NULL ? -1 : ReadFully(file, *text, (size_t)status.st_size);
    }
    close(file);
    *length = size < 0 ? 0 : (size_t)size;
    return size < 0 ? -1 : 0;
}

/* Room for one more text, of `capacity` so far. */
static int Grow(struct FloorText** texts, size_t count, size_t* capacity) {
    if (count < *capacity) {
        return 0;
    }
    *capacity = *capacity == 0 ? 1024 : 2 * *capacity;
    struct FloorText* larger = (struct FloorText*)realloc(*texts, *capacity * sizeof **texts);
    if (larger == NULL) {
        return -1;
    }
    *texts = larger;
    return 0;
}

/* Appends the pieces of a text between separators; what lies behind the last one counts when it is not empty or when
 * `lastCounts`. */
static int Split(struct FloorText text, char separator, int lastCounts, struct FloorText** pieces, size_t* count,
                 size_t* capacity) {
    const char* end = text.begin + text.length;
    const char* next = text.begin;
    for (;;) {
        const char* stop = (const char*)memchr(next, separator, (size_t)(end - next));
        if (stop == NULL && next == end && !lastCounts) {
            return 0;
        }
        if (Grow(pieces, *count, capacity) != 0) {
            return -1;
        }
        (*pieces)[*count].begin = next;
        (*pieces)[*count].length = (size_t)((stop == NULL ? end : stop) - next);
        ++*count;
        if (stop == NULL) {
            return 0;
        }
        next = stop + 1;
    }
}

int FloorReadLines(const char* fileName, struct FloorTable* table) {
    struct FloorText whole = {NULL, 0};
    size_t capacity = 0;
    memset(table, 0, sizeof *table);
    if (ReadWhole(fileName, &table->text, &whole.length) != 0) {
        return -1;
    }
    whole.begin = table->text;
    return Split(whole, '\n', 0, &table->lines, &table->lineCount, &capacity);
}

int FloorSplitColumns(struct FloorTable* table, char delimiter) {
    size_t capacity = 0;
    for (size_t i = 0; i < table->lineCount; ++i) {
        if (Split(table->lines[i], delimiter, 1, &table->columns, &table->columnCount, &capacity) != 0) {
            return -1;
        }
    }
    return 0;
}

void FloorFreeTable(struct FloorTable* table) {
    free(table->text);
    free(table->lines);
    free(table->columns);
    memset(table, 0, sizeof *table);
}
