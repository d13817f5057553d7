/*
 * Result codes of all operations, for C and C++.
 *
 * Zero or a positive number is success (a count, a length, or "found"), a negative number a failure. The same number
 * means different things in different operations, so the names are grouped by operation family and every operation
 * tells which of them it returns.
 */
#ifndef TABVEX_RESULT_CODES_H
#define TABVEX_RESULT_CODES_H

enum {
    /* --- Codes that recur in every family --- */

    TABVEX_OK = 0,                 /* success */
    TABVEX_NO_RECORD = -1,         /* no record object of the type */
    TABVEX_BAD_ARGUMENT = -1,      /* a null pointer or a value outside what the operation takes */
    TABVEX_NOT_SUPPORTED = -1,     /* the record type does not implement the operation */
    TABVEX_NO_TABLE = -40,         /* no table file has been loaded with the version asked for */
    TABVEX_INTERNAL_FAILURE = -98, /* out of memory, or anything else that was thrown inside */
    TABVEX_TEXT_CUT = -1000,       /* the text did not fit the caller's buffer */

    /* --- Line files and record-type keys --- */

    TABVEX_FILE_NOT_OPEN = -1,       /* no file is open */
    TABVEX_FILE_ALREADY_OPEN = -1,   /* a file is open already */
    TABVEX_FILE_CANNOT_OPEN = -2,    /* opening for reading failed */
    TABVEX_FILE_CANNOT_CREATE = -3,  /* opening for writing failed */
    TABVEX_FILE_IS_FOR_WRITING = -4, /* reading from a file opened for writing */
    TABVEX_FILE_END = -5,            /* nothing more to read; an empty variable-length line reads the same */
    TABVEX_FILE_READ_FAILED = -6,    /* the system could not read */
    TABVEX_FILE_IS_FOR_READING = -7, /* writing to a file opened for reading */
    TABVEX_FILE_WRITE_FAILED = -8,   /* the system could not write */
    TABVEX_KEY_UNKNOWN = -18,        /* the line's first characters name no known record type */

    /* --- Reading a record file --- */

    TABVEX_READ_SUCCEEDED = 1,     /* ReadAllRecords, ReadAll_V_Records */
    TABVEX_READ_FAILED = 0,        /* ReadAllRecords, ReadAll_V_Records */
    TABVEX_READ_SHORT_RECORD = -6, /* a record has fewer than 128 characters */
    TABVEX_READ_CANNOT_OPEN = -8,  /* the file cannot be opened */

    /* --- Loading a table file --- */

    TABVEX_TABLE_CANNOT_OPEN = -1,    /* the file cannot be opened */
    TABVEX_TABLE_NO_READER = -2,      /* the table-line reader cannot be loaded or lacks an entry point */
    TABVEX_TABLE_CANNOT_READ = -3,    /* the file cannot be read */
    TABVEX_TABLE_NO_HEADER = -4,      /* the file has no usable [HEADER] section */
    TABVEX_TABLE_WRONG_VERSION = -15, /* the file has another version than the one asked for */

    /* --- Sections, lines and columns of a loaded table file --- */

    TABVEX_SECTION_MISSING = -1,      /* there is no such section */
    TABVEX_SECTION_EMPTY = -2,        /* the section has no lines */
    TABVEX_SECTION_ENDS = -1,         /* the next line begins another section */
    TABVEX_LINES_END = -2,            /* the file has no further line */
    TABVEX_LINE_NO_BUFFER = -3,       /* no buffer for the line */
    TABVEX_COLUMNS_NO_DELIMITER = -1, /* the header names no delimiter */
    TABVEX_COLUMN_BAD_INDEX = -1,     /* the number of the column makes no sense */
    TABVEX_COLUMN_BEYOND_LINE = -2,   /* the line has fewer columns */
    TABVEX_COLUMN_NO_DELIMITER = -4,  /* the header names no delimiter */
    TABVEX_COLUMN_NO_BUFFER = -5,     /* no buffer for the column */
    TABVEX_COLUMN_NO_NEWLINE = -6,    /* the header names no newline character */

    /* --- Layouts and format descriptors --- */

    TABVEX_LAYOUT_BAD = -1,              /* no section, an unreadable column, a bad descriptor behind the first line */
    TABVEX_LAYOUT_BAD_FIRST = -100,      /* a bad descriptor on the section's first line */
    TABVEX_DESCRIPTOR_BAD_FORMAT = 1,    /* format letter */
    TABVEX_DESCRIPTOR_BAD_DEFAULT = 2,   /* default text */
    TABVEX_DESCRIPTOR_BAD_FILL = 3,      /* fill character */
    TABVEX_DESCRIPTOR_BAD_MODIFIERS = 4, /* modifiers and digits */
    TABVEX_DESCRIPTOR_BAD_RANGES = 5,    /* ranges */
    TABVEX_DESCRIPTOR_BAD_VALUES = 6,    /* value list */
    TABVEX_DESCRIPTOR_BAD_DATE_PATTERN = 7, /* date pattern */

    /* --- Item access --- */

    TABVEX_ITEM_UNKNOWN = -1,       /* the record's layout has no such item */
    TABVEX_ITEM_WRONG_LENGTH = -2,  /* HardWriteItem: the text is not exactly as long as the item */
    TABVEX_ITEM_NO_LINE = -5,       /* the record has no current line or entry */
    TABVEX_ITEM_WRONG_FORMAT = -50, /* the item's format letter is not the one the operation takes */
    TABVEX_ITEM_NO_ACCESS = -62,    /* the record type has no item access */

    /* --- Values on their way into and out of a field --- */

    TABVEX_VALUE_EMPTY = -14,             /* write of an empty number text */
    TABVEX_VALUE_BUFFER_TOO_SMALL = -17,  /* number texts need a buffer of 15 characters */
    TABVEX_VALUE_TOO_LONG = -45,          /* character text longer than its item */
    TABVEX_VALUE_WRONG_DECIMALS = -55,    /* ReadIntItem on an item with decimals, ReadFloatItem on one without */
    TABVEX_VALUE_NOT_LISTED = -55,        /* character text outside the value list */
    TABVEX_VALUE_NUMBER_NOT_LISTED = -61, /* number outside the value list */
    TABVEX_VALUE_OUT_OF_RANGE = -62,      /* number outside every range */
    TABVEX_VALUE_DOES_NOT_FIT = -65,      /* number does not fit its field */
    TABVEX_VALUE_NOT_A_NUMBER = -66,      /* the text is no number */
    TABVEX_VALUE_BLANK = -101,            /* the field is blank */

    /* --- Dates --- */

    TABVEX_DATE_WRONG_LENGTH = -70,    /* text and format differ in length */
    TABVEX_DATE_WRONG_SEPARATOR = -71, /* a separator is missing at its place */
    TABVEX_DATE_NOT_DIGITS = -72,      /* a component is not all digits */
    TABVEX_DATE_NO_SUCH_DAY = -73,     /* day or month out of range */
    TABVEX_DATE_ITEM_NO_PATTERN = -74, /* the date item has no date pattern */
    TABVEX_DATE_DOES_NOT_FIT = -75,    /* the rewritten date is invalid */
    TABVEX_DATE_UNUSABLE_FORMAT = -76, /* the date format is none of the sixteen layouts */

    /* --- Entry groups: stepping, reading and writing entries --- */

    TABVEX_ENTRY_CHECK_FAILED = -2,    /* WriteDynEntry: an item's text fails its check */
    TABVEX_ENTRY_NO_MORE = -5,         /* end or start of the group */
    TABVEX_ENTRY_NOT_THE_KEY = -6,     /* WriteEntry: the item is not the group key item */
    TABVEX_ENTRY_WRONG_PARTS = -7,     /* the value does not split into as many parts as an entry has items */
    TABVEX_ENTRY_FOREIGN_ITEM = -22,   /* the item is neither a header item nor an item of the entry */
    TABVEX_ENTRY_NO_LAYOUT = -62,      /* the record is of an unknown type */
    TABVEX_ENTRY_NO_STEP_BACK = -62,   /* the record type cannot step backwards */
    TABVEX_ENTRY_WRONG_KEY = -74,      /* stepping: the item is not the group key item */
    TABVEX_ENTRY_EMPTY_SPAN = -75,     /* the layout gives the entry no length */
    TABVEX_ENTRY_NO_LINES = -78,       /* the record has no lines */
    TABVEX_ENTRY_NO_DEFINITION = -100, /* an item of the entry has no definition */
    TABVEX_ENTRY_NO_GROUP = -999,      /* the type has no entry group */

    /* --- Mutations --- */

    TABVEX_MUTATION_BAD_LINES = -1,    /* fix-up after reading: a line is not 128 characters long, or there is none */
    TABVEX_MUTATION_BAD_CODE = -1,     /* a code to delete that is not 2 or 3 characters long */
    TABVEX_MUTATION_NO_RECORD = -2,    /* adding or deleting one: no record of the type */
    TABVEX_MUTATION_NO_ENTRY = -5,     /* there is no current entry */
    TABVEX_MUTATION_FULL = -5,         /* the entry holds three mutations already */
    TABVEX_MUTATION_BAD_INDEX = -6,    /* the index is not 1, 2 or 3 */
    TABVEX_MUTATION_WRONG_PARTS = -7,  /* the text does not split into the parts of a mutation */
    TABVEX_MUTATION_NONE = -90,        /* there is no such mutation, or its code is in none of the lists */
    TABVEX_MUTATION_NOT_PARSED = -100, /* the record's lines cannot be parsed into entries, or it is of the old form */

    /* --- Searches --- */

    TABVEX_FIND_FOUND = 1,           /* the entry found is the current one */
    TABVEX_FIND_NOTHING = 0,         /* no entry has the text */
    TABVEX_FIND_NO_TYPE = -1,        /* no record type owns the item number, or the type has no search */
    TABVEX_FIND_NO_RECORD = -2,      /* no record of the type */
    TABVEX_FIND_LIST_TYPE = -3,      /* the type has no entries */
    TABVEX_FIND_NOT_STARTED = -4,    /* FindNext: no search in progress */
    TABVEX_FIND_WRONG_ITEM = -11,    /* the type is not searched by this item */
    TABVEX_FIND_NO_LINES = -12,      /* the record has no lines */
    TABVEX_FIND_NO_DEFINITION = -13, /* the item has no definition */

    /* --- Complete records --- */

    TABVEX_COMPLETE_NO_LINES = -2,         /* the record has no lines */
    TABVEX_COMPLETE_CANNOT_CREATE = -2,    /* SetCompleteRecord */
    TABVEX_COMPLETE_BUFFER_TOO_SMALL = -3, /* the buffer holds fewer than 128 characters */
    TABVEX_COMPLETE_NO_SUCH_LINE = -4      /* the record has no line of this number */
};

#endif
