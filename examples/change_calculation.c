/*
 * Reads a calculation, changes it and saves it under another name, through the handle functions.
 *
 *     change_calculation TABLE RECORDS OUTPUT
 */
#include <stdio.h>
#include <string.h>

#include "tabvex/mif.h"

enum {
    kClaimNumber = 1020,
    kDate = 1030,
    kMileage = 1060,
    kOption = 2120, /* the key item of the options: with it, callers step over them */
    kOptionPrice = 2125,
    kGuideNumber = 4030 /* the part that a repair position is about */
};

/* Tells what failed, and with which code of tabvex/result_codes.h. 0 or more is success. */
static int Failed(const char* what, int code) {
    if (code >= 0) {
        return 0;
    }
    (void)fprintf(stderr, "change_calculation: %s: failed with %d\n", what, code);
    return 1;
}

/* Items come in their full length, padded with blanks. */
static char* Trimmed(char* text) {
    size_t length = strlen(text);
    while (length > 0 && text[length - 1] == ' ') {
        length -= 1;
    }
    text[length] = '\0';
    return text;
}

static int PrintHead(int handle) {
    char claim[17]; /* the length of the item in the table, and one more for the terminator */
    char date[11];
    int mileage = 0;
    if (Failed("reading the claim number", MifReadItem(handle, kClaimNumber, claim, sizeof claim)) ||
        Failed("reading the date", MifReadDateItem(handle, kDate, "YYYY-MM-DD", date, sizeof date)) ||
        Failed("reading the mileage", MifReadIntItem(handle, kMileage, &mileage))) {
        return 1;
    }
    printf("claim %s\ndate %s\nmileage %d km\n", Trimmed(claim), date, mileage);
    return 0;
}

static int PrintOptions(int handle) {
    char option[20];
    double price = 0;
    double sum = 0;
    int count = 0;
    int step = 0;
    int code = 0;
    for (step = MifReadFirst(handle, kOption); step == TABVEX_OK; step = MifReadNext(handle, kOption)) {
        code = MifReadFloatItem(handle, kOptionPrice, &price);
        if (code == TABVEX_VALUE_BLANK) {
            continue; /* places at the end of the last line may be free */
        }
        if (Failed("reading a price", code) ||
            Failed("reading an option", MifReadItem(handle, kOption, option, sizeof option))) {
            return 1;
        }
        printf("option %-19s %8.2f\n", Trimmed(option), price);
        sum += price;
        count += 1;
    }
    if (step != TABVEX_ENTRY_NO_MORE) {
        return Failed("stepping over the options", step);
    }
    printf("%d options, %.2f in all\n", count, sum);
    return 0;
}

static int ChangeMileage(int handle, int mileage) {
    if (Failed("changing the mileage", MifWriteIntItem(handle, kMileage, mileage))) {
        return 1;
    }
    printf("mileage changed to %d km\n", mileage);
    return 0;
}

/* Makes the repair position of a part the current one: mutations are added to it and read from it. */
static int FindPart(int handle, const char* part) {
    int found = MifFindFirst(handle, kGuideNumber, part);
    if (found == TABVEX_FIND_NOTHING) {
        (void)fprintf(stderr, "change_calculation: no repair position for part %s\n", part);
        return 1;
    }
    return Failed("finding a part", found);
}

static int PrintMutations(int handle, const char* part) {
    char code[4]; /* one more than the size told: a text of exactly its size fits */
    char text1[17];
    char text2[17];
    double value = 0;
    int index = 0;
    int count = 0;
    if (FindPart(handle, part)) {
        return 1;
    }
    count = MifGetX4MutationsCount(handle);
    if (Failed("counting mutations", count)) {
        return 1;
    }
    printf("mutations of part %s: %d\n", part, count);
    for (index = 1; index <= count; ++index) {
        if (Failed("reading a mutation", MifReadX4Mutation(handle, index, code, 3, &value, text1, 16, text2, 16))) {
            return 1;
        }
        printf("mutation %.2s %.2f\n", code, value);
    }
    return 0;
}

static int AddMutation(int handle, const char* part, const char* mutation) {
    if (FindPart(handle, part) || Failed("adding a mutation", MifAddX4Mutation(handle, mutation))) {
        return 1;
    }
    printf("mutation %s added to part %s\n", mutation, part);
    return 0;
}

static int Load(int handle, const char* table, const char* records) {
    MifUseX4New(handle, 1); /* repair positions with mutations that can be added and deleted */
    return Failed("loading the table", MifLoadTable(handle, table, 3, 2)) ||
           Failed("reading the records", MifReadAllRecordsEx(handle, records));
}

/* The result is the number of record objects written, to which each that could not be written adds -8: a failure can
   hide in it. Programs that must be sure read the saved file again. */
static int Save(int handle, const char* output) {
    int saved = MifSaveAllRecords(handle, output, 1);
    if (Failed("saving", saved)) {
        return 1;
    }
    printf("%d record objects saved\n", saved);
    return 0;
}

static int Change(int handle, const char* table, const char* records, const char* output) {
    /* TM is the one code of the sample table that can be added as it is; the others need their kinds to be told by
       SetMutationList, which C++ and Java have, after the table is loaded and before the records are read. */
    return Load(handle, table, records) || PrintHead(handle) || PrintOptions(handle) || ChangeMileage(handle, 48350) ||
           AddMutation(handle, "0301", "TM/99.50") || PrintMutations(handle, "0301") || Save(handle, output);
}

int main(int argc, char** argv) {
    int handle = 0;
    int failed = 0;
    if (argc != 4) {
        (void)fprintf(stderr, "usage: change_calculation TABLE RECORDS OUTPUT\n");
        return 2;
    }
    handle = MifCreateInstance(); /* one calculation file in memory */
    if (handle == 0) {
        (void)fprintf(stderr, "change_calculation: out of memory\n");
        return 1;
    }
    failed = Change(handle, argv[1], argv[2], argv[3]);
    MifDestroyInstance(handle);
    return failed;
}
