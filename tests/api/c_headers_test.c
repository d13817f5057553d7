/* The C headers compile as C99 and their functions can be called from C. */
#include "tabvex/flat.h"
#include "tabvex/mif.h"

int CallFromC(const char* table);

int CallFromC(const char* table) {
    const int handle = MifCreateInstance();
    const int loaded = MifLoadTable(handle, table, 3, 2);
    MifDestroyInstance(handle);
    return loaded == TABVEX_OK ? LoadTable(table, 3, 2) : loaded;
}
