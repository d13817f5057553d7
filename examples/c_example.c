/*
 * c_example TABLE FILE OUT: changes a calculation through the C functions and saves it under another name.
 * Prints what each call answers.
 */
#include <stdio.h>

#include "tabvex/flat.h"
#include "tabvex/mif.h"

static int g_nFailed = 0;

static void Tell(const char* call, int result) {
    printf("%s: %d\n", call, result);
    g_nFailed += result < TABVEX_OK;
}

/* The item is read back as text: what stands in the record, in the caller's code page. */
static void TellItem(int item) {
    char text[80] = "";
    const int result = ReadItem(item, text, (int)sizeof text);
    printf("%d: %d \"%s\"\n", item, result, text);
}

static void Change(void) {
    int step = 0;
    int number = 0;
    Tell("WriteItem 1020", WriteItem(1020, "CLM-2025-7"));
    Tell("WriteItem 1100", WriteItem(1100, "M\xFCller & S\xF6hne"));
    Tell("WriteIntItem 1060", WriteIntItem(1060, 84000));
    Tell("WriteDateItem 1030", WriteDateItem(1030, "DDMMYYYY", "24122025"));
    for (step = ReadFirst(2120); step == TABVEX_OK; step = ReadNext(2120)) {
        double price = 0;
        if (ReadFloatItem(2125, &price) == TABVEX_OK) {
            printf("%.2f\n", price * 1.19);
            TellItem(2125);
        }
        ++number;
    }
    printf("%d options\n", number);
    TellItem(1020);
    TellItem(1100);
    TellItem(1030);
}

int main(int argc, char** argv) {
    int handle = 0;
    if (argc != 4) {
        (void)fprintf(stderr, "usage: c_example TABLE FILE OUT\n");
        return 2;
    }
    Tell("LoadTable", LoadTable(argv[1], 3, 2));
    Tell("ReadAllRecordsEx", ReadAllRecordsEx(argv[2]));
    Change();
    Tell("SaveAllRecords", SaveAllRecords(argv[3], 1));

    /* The file as it was, in a record set of its own. */
    handle = MifCreateInstance();
    Tell("MifLoadTable", MifLoadTable(handle, argv[1], 3, 2));
    Tell("MifReadAllRecordsEx", MifReadAllRecordsEx(handle, argv[2]));
    printf("MifReadFirst 1020: %d\n", MifReadFirst(handle, 1020));
    MifDestroyInstance(handle);
    return g_nFailed == 0 ? 0 : 1;
}
