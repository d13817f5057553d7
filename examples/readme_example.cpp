#include <cstdio>

#include "tabvex/all_records.h"

int main() {
    CAllRecordsEx records; // one calculation file in memory
    if (records.LoadTable("samples/calculation.table", 3, 2) != TABVEX_OK ||
        records.ReadAllRecordsEx("samples/all-types.rec") != TABVEX_OK) {
        return 1;
    }
    char option[20]; // item 2120: the name of an option of the vehicle, 19 characters; item 2125: its price
    double price = 0;
    for (int step = records.ReadFirst(2120); step == TABVEX_OK; step = records.ReadNext(2120)) {
        if (records.ReadItem(2120, option, sizeof option) == TABVEX_OK &&
            records.ReadFloatItem(2125, price) == TABVEX_OK) {
            std::printf("%s %10.2f\n", option, price);
        }
    }
    return 0;
}
