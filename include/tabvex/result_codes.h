/**
 * @file
 * Result codes of all operations, for C and C++.
 *
 * Zero or a positive number is success (a count, a length, or "found"), a negative number a failure. The same number
 * means different things in different operations. Below each code stand the operations that give it, by their flat
 * names; a code without is one of the parts inside. docs/result-codes.md, which scripts/make-result-codes makes from
 * here, has a table for each operation.
 */
/* Groups of operations in these lists. "as text" is the form of C++ with the number as text; "numbers" are those that
   answer with a count, a length or a setting; of these, "lengths" answer with minus the length when the buffer is too
   small; "no codes" are those that answer with nothing or a character.
   group item reads: ReadItem, HardReadItem, ReadCharItem, number reads, ReadDateItem.
   group number reads: ReadIntItem, ReadFloatItem, ReadIntItem as text, ReadFloatItem as text.
   group number writes: WriteIntItem, WriteFloatItem, WriteRoundFloatItem, WriteIntItem as text, WriteFloatItem as text.
   group item writes: WriteItem, WriteCharItem, number writes, WriteDateItem.
   group overwrites: HardWriteItem, ClearItem.
   group steps: ReadFirst, ReadNext, ReadPrev.
   group line reads: GetFirstCompleteRecord, GetNextCompleteRecord.
   group single records: GetX1Record, GetXDollarRecord, GetX7Record.
   group mutation reads: ReadX4Mutation, ReadX4MutationChar, ReadG9Mutation, ReadG9MutationChar.
   group mutation adds: AddX4Mutation, AddG9Mutation.
   group mutation deletes: DeleteOneX4Mutation, DeleteOneG9Mutation.
   group X4 counts: DeleteX4Mutations, GetX4MutationsCount.
   group mutation counts: X4 counts, DeleteG9Mutations, GetG9MutationsCount.
   group numbers: mutation counts, SaveAllRecords, WriteAllRecords, single records, SumItemLengths, GetSaveErrors,
      UseX4New, CreateInstance.
   group lengths: WriteAllRecords, single records.
   group no codes: DestroyAllRecords, DestroyRecords, DestroyKnownRecordsOnly, SetDelimiter, SetRepairMethodList,
      SetMutationList, K_SetOptCode, K_SetKalkArt, SetCalcNr_K_Records, DestroyInstance.
 */
#ifndef TABVEX_RESULT_CODES_H
#define TABVEX_RESULT_CODES_H

enum {
    /* --- Codes that recur in every family --- */

    TABVEX_OK = 0, /**< success */
    /* operations: LoadTable, ReadAllRecordsEx, item reads, item writes, overwrites, HardReadDynItem, HardWriteDynItem,
       steps, line reads, SetCompleteRecord, mutation reads, mutation adds, mutation deletes, SetRecNums,
       SetNewCharacterTable, SetCodePages, single records, ParseFormat, FormatValue */
    TABVEX_NO_RECORD = -1, /**< no record object of the type */
    /* operations: item reads, item writes, overwrites, HardReadDynItem, HardWriteDynItem, steps, ReadLast, line reads,
       mutation reads, mutation counts, single records */
    TABVEX_BAD_ARGUMENT = -1, /**< a null pointer or a value outside what the operation takes */
    /* operations: ReadAllRecords, ReadAllRecordsEx, ReadAll_V_Records, SaveAllRecords, item reads, WriteItem,
       WriteCharItem, WriteIntItem as text, WriteFloatItem as text, WriteDateItem, HardWriteItem, HardReadDynItem,
       HardWriteDynItem, line reads, SetCompleteRecord, mutation reads, mutation adds, mutation deletes, SetRecNums,
       SetNewCharacterTable, SetCodePages, SumItemLengths */
    TABVEX_NOT_SUPPORTED = -1, /**< the record type does not implement the operation */
    /* operations: HardReadDynItem, HardWriteDynItem, ReadLast, AddX4Mutation, DeleteOneX4Mutation, X4 counts,
       CreateNewKRecord */
    TABVEX_NO_TABLE = -40, /**< no table file has been loaded with the version asked for */
    /* operations: item reads, item writes, overwrites, HardReadDynItem, HardWriteDynItem, steps, ReadLast, mutation
       reads, mutation adds, mutation deletes, mutation counts */
    TABVEX_INTERNAL_FAILURE = -98, /**< out of memory, or anything else that was thrown inside */
    /* operations: LoadTable, ReadAllRecordsEx, SaveAllRecords, WriteAllRecords, item reads, item writes, overwrites,
       HardReadDynItem, HardWriteDynItem, steps, ReadLast, FindFirst, FindNext, line reads, SetCompleteRecord, mutation
       reads, mutation adds, mutation deletes, mutation counts, single records, SumItemLengths, SetNewCharacterTable */
    TABVEX_TEXT_CUT = -1000, /**< the text did not fit the caller's buffer */
    /* operations: ReadItem, HardReadItem, ReadCharItem, ReadDateItem, HardReadDynItem, mutation reads */

    /* --- Line files and record-type keys --- */

    TABVEX_FILE_NOT_OPEN = -1,      /**< no file is open */
    TABVEX_FILE_ALREADY_OPEN = -1,  /**< a file is open already */
    TABVEX_FILE_CANNOT_OPEN = -2,   /**< opening for reading failed */
    TABVEX_FILE_CANNOT_CREATE = -3, /**< opening for writing failed */
    /* operations: SaveAllRecords */
    TABVEX_FILE_IS_FOR_WRITING = -4, /**< reading from a file opened for writing */
    TABVEX_FILE_END = -5,            /**< nothing more to read; an empty variable-length line reads the same */
    TABVEX_FILE_READ_FAILED = -6,    /**< the system could not read */
    /* operations: ReadAllRecordsEx */
    TABVEX_FILE_IS_FOR_READING = -7, /**< writing to a file opened for reading */
    /** the system could not write; SaveAllRecords adds it for each record object not written */
    TABVEX_FILE_WRITE_FAILED = -8,
    /* operations: SaveAllRecords */
    TABVEX_KEY_UNKNOWN = -18, /**< the line's first characters name no known record type */

    /* --- Reading a record file --- */

    TABVEX_READ_SUCCEEDED = 1, /**< the records are read */
    /* operations: ReadAllRecords, ReadAll_V_Records */
    TABVEX_READ_FAILED = 0, /**< the file cannot be opened or read, or a record is short */
    /* operations: ReadAllRecords, ReadAll_V_Records */
    TABVEX_READ_SHORT_RECORD = -6, /**< a record has fewer than 128 characters */
    /* operations: ReadAllRecordsEx */
    TABVEX_READ_CANNOT_OPEN = -8, /**< the file cannot be opened */
    /* operations: ReadAllRecordsEx */

    /* --- Loading a table file --- */

    TABVEX_TABLE_CANNOT_OPEN = -1, /**< the file cannot be opened */
    /* operations: LoadTable */
    TABVEX_TABLE_NO_READER = -2, /**< the table-line reader cannot be loaded or lacks an entry point */
    /* operations: LoadTable */
    TABVEX_TABLE_CANNOT_READ = -3, /**< the file cannot be read or is empty */
    /* operations: LoadTable */
    TABVEX_TABLE_NO_HEADER = -4, /**< the file has no usable [HEADER] section */
    /* operations: LoadTable */
    TABVEX_TABLE_WRONG_VERSION = -15, /**< the file has another version than the one asked for */
    /* operations: LoadTable */

    /* --- Sections, lines and columns of a loaded table file --- */

    TABVEX_SECTION_MISSING = -1,      /**< there is no such section */
    TABVEX_SECTION_EMPTY = -2,        /**< the section has no lines */
    TABVEX_SECTION_ENDS = -1,         /**< the next line begins another section */
    TABVEX_LINES_END = -2,            /**< the file has no further line */
    TABVEX_LINE_NO_BUFFER = -3,       /**< no buffer for the line */
    TABVEX_COLUMNS_NO_DELIMITER = -1, /**< the header names no delimiter */
    TABVEX_COLUMN_BAD_INDEX = -1,     /**< the number of the column makes no sense */
    TABVEX_COLUMN_BEYOND_LINE = -2,   /**< the line has fewer columns */
    TABVEX_COLUMN_NO_DELIMITER = -4,  /**< the header names no delimiter */
    TABVEX_COLUMN_NO_BUFFER = -5,     /**< no buffer for the column */
    TABVEX_COLUMN_NO_NEWLINE = -6,    /**< the header names no newline character */

    /* --- Layouts and format descriptors --- */

    TABVEX_LAYOUT_BAD = -1,           /**< no section, an unreadable column, a bad descriptor behind the first line */
    TABVEX_LAYOUT_BAD_FIRST = -100,   /**< a bad descriptor on the section's first line */
    TABVEX_DESCRIPTOR_BAD_FORMAT = 1, /**< format letter */
    /* operations: ParseFormat */
    TABVEX_DESCRIPTOR_BAD_DEFAULT = 2, /**< default text */
    /* operations: ParseFormat */
    TABVEX_DESCRIPTOR_BAD_FILL = 3, /**< fill character */
    /* operations: ParseFormat */
    TABVEX_DESCRIPTOR_BAD_MODIFIERS = 4, /**< modifiers and digits */
    /* operations: ParseFormat */
    TABVEX_DESCRIPTOR_BAD_RANGES = 5, /**< ranges */
    /* operations: ParseFormat */
    TABVEX_DESCRIPTOR_BAD_VALUES = 6, /**< value list */
    /* operations: ParseFormat */
    TABVEX_DESCRIPTOR_BAD_DATE_PATTERN = 7, /**< date pattern */
    /* operations: ParseFormat */

    /* --- Item access --- */

    TABVEX_ITEM_UNKNOWN = -1, /**< the record's layout has no such item */
    /* operations: item reads, item writes, overwrites, mutation reads, mutation adds */
    TABVEX_ITEM_WRONG_LENGTH = -2, /**< HardWriteItem: the text is not exactly as long as the item */
    /* operations: HardWriteItem */
    TABVEX_ITEM_NO_LINE = -5, /**< the record has no current line or entry */
    /* operations: item reads, item writes, overwrites */
    TABVEX_ITEM_WRONG_FORMAT = -50, /**< the item's format letter is not the one the operation takes */
    /* operations: ReadCharItem, number reads, ReadDateItem, WriteCharItem, number writes, WriteDateItem */
    TABVEX_ITEM_NO_ACCESS = -62, /**< the record is of an unknown type; no item number leads to one */

    /* --- Values on their way into and out of a field --- */

    TABVEX_VALUE_EMPTY = -14, /**< write of an empty number text */
    /* operations: WriteIntItem as text, WriteFloatItem as text */
    TABVEX_VALUE_BUFFER_TOO_SMALL = -17, /**< number texts need a buffer of 15 characters */
    /* operations: ReadIntItem as text, ReadFloatItem as text */
    TABVEX_VALUE_TOO_LONG = -45, /**< character text longer than its item */
    /* operations: WriteItem, WriteCharItem, mutation adds, FormatValue */
    TABVEX_VALUE_WRONG_DECIMALS = -55, /**< ReadIntItem on an item with decimals, ReadFloatItem on one without */
    /* operations: number reads */
    TABVEX_VALUE_NOT_LISTED = -55, /**< character text outside the value list */
    /* operations: WriteItem, WriteCharItem, mutation adds, FormatValue */
    TABVEX_VALUE_NUMBER_NOT_LISTED = -61, /**< number outside the value list */
    /* operations: WriteItem, number writes, mutation adds, FormatValue */
    TABVEX_VALUE_OUT_OF_RANGE = -62, /**< number outside every range */
    /* operations: WriteItem, number writes, mutation adds, FormatValue */
    TABVEX_VALUE_DOES_NOT_FIT = -65, /**< number does not fit its field */
    /* operations: WriteItem, number writes, mutation adds, FormatValue */
    TABVEX_VALUE_NOT_A_NUMBER = -66, /**< the text is no number */
    /* operations: number reads, WriteItem, WriteFloatItem, WriteRoundFloatItem, WriteIntItem as text, WriteFloatItem as
       text, mutation reads, mutation adds, FormatValue */
    TABVEX_VALUE_BLANK = -101, /**< the field is blank */
    /* operations: ReadIntItem, ReadFloatItem, ReadDateItem, mutation reads */

    /* --- Dates --- */

    TABVEX_DATE_WRONG_LENGTH = -70, /**< text and format differ in length */
    /* operations: ReadDateItem, WriteDateItem */
    TABVEX_DATE_WRONG_SEPARATOR = -71, /**< a separator is missing at its place */
    /* operations: ReadDateItem, WriteDateItem */
    TABVEX_DATE_NOT_DIGITS = -72, /**< a component is not all digits */
    /* operations: ReadDateItem, WriteDateItem */
    /** day or month out of range; the 31st of August, October and December too, kept on purpose */
    TABVEX_DATE_NO_SUCH_DAY = -73,
    /* operations: ReadDateItem, WriteDateItem */
    TABVEX_DATE_ITEM_NO_PATTERN = -74, /**< the date item has no date pattern */
    /* operations: WriteItem, WriteDateItem, FormatValue */
    TABVEX_DATE_DOES_NOT_FIT = -75, /**< the rewritten date is invalid */
    /* operations: WriteItem, WriteDateItem, FormatValue */
    TABVEX_DATE_UNUSABLE_FORMAT = -76, /**< the date format is none of the sixteen layouts */
    /* operations: ReadDateItem, WriteDateItem */

    /* --- Entry groups: stepping, reading and writing entries --- */

    TABVEX_ENTRY_CHECK_FAILED = -2, /**< WriteDynEntry: an item's text fails its check */
    /* operations: HardWriteDynItem */
    TABVEX_ENTRY_NO_MORE = -5, /**< end or start of the group */
    /* operations: steps, item reads, HardReadDynItem, item writes, HardWriteDynItem */
    TABVEX_ENTRY_NOT_THE_KEY = -6, /**< WriteEntry: the item is not the group key item */
    /* operations: item writes, HardWriteDynItem */
    TABVEX_ENTRY_WRONG_PARTS = -7, /**< the value does not split into as many parts as an entry has items */
    /* operations: item writes, HardWriteDynItem */
    TABVEX_ENTRY_FOREIGN_ITEM = -22, /**< the item is neither a header item nor an item of the entry */
    /* operations: item reads */
    TABVEX_ENTRY_NO_LAYOUT = -62,    /**< the record is of an unknown type; no item number leads to one */
    TABVEX_ENTRY_NO_STEP_BACK = -62, /**< the record type cannot step backwards */
    /* operations: ReadPrev */
    TABVEX_ENTRY_WRONG_KEY = -74, /**< stepping: the item is not the group key item */
    /* operations: steps */
    TABVEX_ENTRY_EMPTY_SPAN = -75, /**< the layout gives the entry no length */
    /* operations: steps */
    TABVEX_ENTRY_NO_LINES = -78, /**< the record has no lines */
    /* operations: steps */
    TABVEX_ENTRY_NO_DEFINITION = -100, /**< an item of the entry has no definition */
    /* operations: HardReadDynItem */
    TABVEX_ENTRY_NO_GROUP = -999, /**< the type has no entry group */
    /* operations: ReadFirst, ReadNext, item reads, item writes */

    /* --- Mutations --- */

    TABVEX_MUTATION_BAD_LINES = -1, /**< fix-up after reading: a line is not 128 characters long, or there is none */
    TABVEX_MUTATION_BAD_CODE = -1,  /**< a code to delete that is not 2 or 3 characters long */
    /* operations: mutation deletes */
    TABVEX_MUTATION_NO_RECORD = -2, /**< adding or deleting one: no record of the type */
    /* operations: mutation adds, mutation deletes */
    TABVEX_MUTATION_NO_ENTRY = -5, /**< there is no current entry */
    /* operations: ReadX4Mutation, ReadX4MutationChar, mutation adds */
    TABVEX_MUTATION_FULL = -5, /**< the entry holds three mutations already */
    /* operations: mutation adds */
    TABVEX_MUTATION_BAD_INDEX = -6, /**< the index is not 1, 2 or 3 */
    /* operations: mutation reads */
    TABVEX_MUTATION_WRONG_PARTS = -7, /**< the text does not split into the parts of a mutation */
    /* operations: mutation adds */
    TABVEX_MUTATION_NONE = -90, /**< there is no such mutation, or its code is in none of the lists */
    /* operations: mutation reads, mutation deletes */
    /** the record's lines cannot be parsed into entries, or it is of the old form */
    TABVEX_MUTATION_NOT_PARSED = -100,
    /* operations: ReadFirst, ReadNext, item reads, item writes, overwrites, FindFirst, mutation reads, mutation adds,
       mutation deletes, mutation counts */

    /* --- Searches --- */

    TABVEX_FIND_FOUND = 1, /**< the entry found is the current one */
    /* operations: FindFirst, FindNext */
    TABVEX_FIND_NOTHING = 0, /**< no entry has the text */
    /* operations: FindFirst, FindNext */
    TABVEX_FIND_NO_TYPE = -1, /**< no record type owns the item, the type has no search, or no table is loaded */
    /* operations: FindFirst */
    TABVEX_FIND_NO_RECORD = -2, /**< no record of the type */
    /* operations: FindFirst */
    TABVEX_FIND_LIST_TYPE = -3, /**< the type has no entries */
    /* operations: FindFirst */
    TABVEX_FIND_NOT_STARTED = -4, /**< FindNext: no search in progress */
    /* operations: FindNext */
    TABVEX_FIND_WRONG_ITEM = -11, /**< the type is not searched by this item */
    /* operations: FindFirst */
    TABVEX_FIND_NO_LINES = -12, /**< the record has no lines */
    /* operations: FindFirst */
    TABVEX_FIND_NO_DEFINITION = -13, /**< the item has no definition */
    /* operations: FindFirst */

    /* --- Complete records --- */

    TABVEX_COMPLETE_NO_LINES = -2, /**< the record has no lines */
    /* operations: line reads */
    TABVEX_COMPLETE_CANNOT_CREATE = -2, /**< kept, but not given any more */
    /* operations: SetCompleteRecord */
    TABVEX_COMPLETE_BUFFER_TOO_SMALL = -3, /**< the buffer holds fewer than 128 characters */
    /* operations: line reads */
    TABVEX_COMPLETE_NO_SUCH_LINE = -4 /**< the record has no line of this number */
    /* operations: GetNextCompleteRecord */
};

#endif
