/**
 * @file
 * Flat functions: every operation of the record set as a plain C function, over one record set that all callers in the
 * process share. It is there from the library's loading to its unloading.
 *
 * Each function does what the operation of CAllRecords (or CAllRecordsEx) of the same name does; where a name differs,
 * the function tells. What holds for all of them:
 *
 * - 0 or more is success, a negative number a failure. The codes are named in tabvex/result_codes.h; those listed with
 *   a function are its own.
 * - Functions by item number select record type and field by it. Beside their own codes they give TABVEX_NO_TABLE
 *   before a table was loaded (FindFirst() TABVEX_FIND_NO_TYPE), TABVEX_NO_RECORD without a record of the type,
 *   TABVEX_ITEM_UNKNOWN for an item that the table does not have, and what else the type's entry operations answer:
 *   TABVEX_ITEM_NO_LINE, TABVEX_ENTRY_... .
 * - Null pointers give TABVEX_BAD_ARGUMENT. TABVEX_INTERNAL_FAILURE: out of memory.
 * - Texts end with a NUL. Buffers are given with their size in characters, NUL included, where nothing else is said.
 *   TABVEX_TEXT_CUT: the text is longer; as much as fits was copied.
 * - Texts are in windows-1252; the library converts them from and to the code page of the records.
 * - Nothing is locked: one thread at a time.
 */
#ifndef TABVEX_FLAT_H
#define TABVEX_FLAT_H

#include "tabvex/export.h"
#include "tabvex/result_codes.h"

#ifdef __cplusplus
extern "C" {
#endif

/* --- Files and records --- */

/** Loads the table file and holds its version against the one required. TABVEX_OK; TABVEX_TABLE_CANNOT_OPEN,
    TABVEX_TABLE_NO_READER, TABVEX_TABLE_CANNOT_READ, TABVEX_TABLE_NO_HEADER, TABVEX_TABLE_WRONG_VERSION. */
TABVEX_API int LoadTable(const char* fileName, int versionMajor, int versionMinor);
/** Reads a file of records of 128 characters, in place of the records held, which stay until the new ones are read, and
    when memory runs out. TABVEX_READ_SUCCEEDED (1); TABVEX_READ_FAILED (0): it cannot be opened or read, or a record is
    short. */
TABVEX_API int ReadAllRecords(const char* fileName);
/** The same with codes, and the fix-up after reading. TABVEX_OK; TABVEX_READ_CANNOT_OPEN, TABVEX_READ_SHORT_RECORD,
    TABVEX_FILE_READ_FAILED. */
TABVEX_API int ReadAllRecordsEx(const char* fileName);
/** Reads a file of lines of any length up to the first empty one. TABVEX_READ_SUCCEEDED (1); TABVEX_READ_FAILED (0): it
    cannot be opened. */
TABVEX_API int ReadAll_V_Records(const char* fileName);
/** Writes every record, 128 characters a line, with CR LF behind it when `crlf` is not 0. The number of record objects
    written, to which every one that could not be written adds TABVEX_FILE_WRITE_FAILED; TABVEX_FILE_CANNOT_CREATE. */
TABVEX_API int SaveAllRecords(const char* fileName, int crlf);
/** Destroys every record. */
TABVEX_API void DestroyAllRecords(void);
/** Destroys the records of one type; "X2" stands for "X2N" as well, "X9" for "X9_NEU". */
TABVEX_API void DestroyRecords(const char* type);
/** Destroys every record but those of unknown types. */
TABVEX_API void DestroyKnownRecordsOnly(void);

/* --- Reading items of the current entry --- */

/** Copies an item's text in its full length, padded with blanks. TABVEX_OK; TABVEX_TEXT_CUT. */
TABVEX_API int ReadItem(int item, char* buffer, int size);
/** The same for character items only. TABVEX_OK; TABVEX_TEXT_CUT; TABVEX_ITEM_WRONG_FORMAT for others. */
TABVEX_API int ReadCharItem(int item, char* buffer, int size);
/** Reads a number without decimals. TABVEX_OK; TABVEX_VALUE_BLANK with 0; TABVEX_VALUE_NOT_A_NUMBER;
    TABVEX_ITEM_WRONG_FORMAT; TABVEX_VALUE_WRONG_DECIMALS: the item has decimals. */
TABVEX_API int ReadIntItem(int item, int* value);
/** Reads a number with decimals. TABVEX_OK; TABVEX_VALUE_BLANK with 0.0; TABVEX_VALUE_NOT_A_NUMBER;
    TABVEX_ITEM_WRONG_FORMAT; TABVEX_VALUE_WRONG_DECIMALS: the item has none. */
TABVEX_API int ReadFloatItem(int item, double* value);
/** Copies a date in the caller's format, such as "DD.MM.YYYY". TABVEX_OK; TABVEX_VALUE_BLANK with ""; TABVEX_TEXT_CUT;
    TABVEX_ITEM_WRONG_FORMAT; TABVEX_DATE_UNUSABLE_FORMAT; TABVEX_DATE_...: the field holds no date.
    TABVEX_DATE_NO_SUCH_DAY for the 31st of August, October and December as well: kept on purpose. */
TABVEX_API int ReadDateItem(int item, const char* format, char* buffer, int size);
/** Copies a text that the record type assembles from several items, joined by the delimiter. TABVEX_OK;
    TABVEX_TEXT_CUT; TABVEX_NOT_SUPPORTED for types without it. */
TABVEX_API int HardReadDynItem(int item, char* buffer, int size);

/* --- Writing items; a missing record is created first, where nothing else is said --- */

/** Writes a text through the item's checks and layout. A date is given as YYYYMMDD, whatever its pattern, and is not
    checked; use WriteDateItem(). TABVEX_OK; TABVEX_VALUE_...; TABVEX_DATE_... . */
TABVEX_API int WriteItem(int item, const char* text);
/** The same for character items only; blanks at the end are removed. TABVEX_OK; TABVEX_ITEM_WRONG_FORMAT;
    TABVEX_VALUE_TOO_LONG; TABVEX_VALUE_NOT_LISTED. */
TABVEX_API int WriteCharItem(int item, const char* text);
/** Writes a number. TABVEX_OK; TABVEX_ITEM_WRONG_FORMAT; TABVEX_VALUE_NUMBER_NOT_LISTED; TABVEX_VALUE_OUT_OF_RANGE;
    TABVEX_VALUE_DOES_NOT_FIT. */
TABVEX_API int WriteIntItem(int item, int value);
/** Writes a number with six significant digits; codes as WriteIntItem(). */
TABVEX_API int WriteFloatItem(int item, double value);
/** Writes a number rounded to the item's decimals; codes as WriteIntItem(). */
TABVEX_API int WriteRoundFloatItem(int item, double value);
/** Writes a date given in the caller's format. TABVEX_OK; TABVEX_ITEM_WRONG_FORMAT; TABVEX_DATE_...;
    TABVEX_DATE_NO_SUCH_DAY for the 31st of August, October and December as well: kept on purpose. */
TABVEX_API int WriteDateItem(int item, const char* format, const char* date);
/** Overwrites an item of an existing record, unchecked. TABVEX_OK; TABVEX_ITEM_WRONG_LENGTH: the text is not exactly as
    long as the item. */
TABVEX_API int HardWriteItem(int item, const char* text);
/** Writes a text that the record type takes apart at the delimiter; it is not converted. TABVEX_OK;
    TABVEX_ENTRY_WRONG_PARTS and what else the type answers. */
TABVEX_API int HardWriteDynItem(int item, const char* text);
/** Blanks an item of an existing record. TABVEX_OK. */
TABVEX_API int ClearItem(int item);

/* --- Stepping and searching --- */

/** Makes the first entry of the type that owns `item` the current one; `item` is the type's key item. TABVEX_OK;
    TABVEX_ENTRY_NO_MORE; TABVEX_ENTRY_WRONG_KEY; TABVEX_ENTRY_NO_LINES; TABVEX_ENTRY_EMPTY_SPAN. */
TABVEX_API int ReadFirst(int item);
/** Goes on to the next entry; codes as ReadFirst(). TABVEX_ENTRY_NO_MORE behind the last one. */
TABVEX_API int ReadNext(int item);
/** Goes back to the entry before; codes as ReadFirst(), and TABVEX_ENTRY_NO_STEP_BACK for types that cannot. */
TABVEX_API int ReadPrev(int item);
/** Goes to the first entry whose `item` has this text, blanks at both ends aside. TABVEX_FIND_FOUND (1);
    TABVEX_FIND_NOTHING (0); TABVEX_FIND_NO_TYPE, also while no table is loaded; TABVEX_FIND_NO_RECORD,
    TABVEX_FIND_LIST_TYPE, TABVEX_FIND_WRONG_ITEM, TABVEX_FIND_NO_LINES, TABVEX_FIND_NO_DEFINITION. */
TABVEX_API int FindFirst(int item, const char* text);
/** Goes on behind the entry found. TABVEX_FIND_FOUND (1); TABVEX_FIND_NOTHING (0), which ends the search;
    TABVEX_FIND_NOT_STARTED. */
TABVEX_API int FindNext(void);

/* --- Whole lines --- */

/** Copies the first line of a type: at most `size` characters and the NUL when it fits. TABVEX_OK; TABVEX_NO_RECORD;
    TABVEX_COMPLETE_NO_LINES; TABVEX_COMPLETE_BUFFER_TOO_SMALL: `size` is below 128. */
TABVEX_API int GetFirstCompleteRecord(const char* type, char* buffer, int size);
/** Copies the next line; it counts on even when it fails. Codes as GetFirstCompleteRecord(), and
    TABVEX_COMPLETE_NO_SUCH_LINE behind the last one. */
TABVEX_API int GetNextCompleteRecord(const char* type, char* buffer, int size);
/** Adds a whole line to the record of a type, which is created when missing. `line` has 129 bytes, and is padded with
    blanks and converted in place. An unknown type gets a record object of its own. TABVEX_OK; TABVEX_BAD_ARGUMENT:
    `lineSize` is not 129. TABVEX_COMPLETE_CANNOT_CREATE is kept but not given any more. */
TABVEX_API int SetCompleteRecord(const char* type, char* line, int lineSize);
/** Sets the character that separates the values of an entry and of a list (at first "/"). The one before. */
TABVEX_API char SetDelimiter(char delimiter);

/* --- Mutations of the current repair position, "X4". Texts of exactly their size fit: every buffer has one byte more
   than its size says. All give TABVEX_NO_TABLE, and TABVEX_MUTATION_NOT_PARSED when the record's lines are not all 128
   characters long. --- */

/** Reads mutation `index`, 1 to 3. What it does not have is -1.0 and "". TABVEX_OK; TABVEX_MUTATION_BAD_INDEX;
    TABVEX_NO_TABLE; TABVEX_NO_RECORD; TABVEX_MUTATION_NONE; TABVEX_MUTATION_NO_ENTRY; TABVEX_MUTATION_NOT_PARSED;
    TABVEX_VALUE_NOT_A_NUMBER, TABVEX_VALUE_BLANK with -1.0; TABVEX_TEXT_CUT: nothing is copied. */
TABVEX_API int ReadX4Mutation(int index, char* code, int codeSize, double* value, char* text1, int text1Size,
                              char* text2, int text2Size);
/** The same with the value as text, with six significant digits, "" where there is none; the other form of
    CAllRecords::ReadX4Mutation. Codes as ReadX4Mutation(). */
TABVEX_API int ReadX4MutationChar(int index, char* code, int codeSize, char* value, int valueSize, char* text1,
                                  int text1Size, char* text2, int text2Size);
/** Adds a mutation, such as "TM/99.50", or "TM/LA/two layers" where TM has kind 3; one with the same code is replaced.
    Item 4055 takes codes of the kinds 1 to 8 only, and a table file gives its own codes the kind 0, but those of item
    4070, such as TM, the kind 4: "EM/99.50" gives TABVEX_VALUE_NOT_LISTED with the sample table, until SetMutationList
    of C++ and Java has told the kind of EM, after LoadTable() and before the records are read. TABVEX_OK;
    TABVEX_MUTATION_NO_RECORD; TABVEX_MUTATION_FULL; TABVEX_MUTATION_NO_ENTRY; TABVEX_MUTATION_WRONG_PARTS;
    TABVEX_VALUE_...; TABVEX_NOT_SUPPORTED: the record is of the old form. */
TABVEX_API int AddX4Mutation(const char* mutation);
/** Deletes the first mutation with a code. TABVEX_OK, also when there are no mutations; TABVEX_MUTATION_NO_RECORD;
    TABVEX_MUTATION_BAD_CODE; TABVEX_MUTATION_NONE; TABVEX_NOT_SUPPORTED. */
TABVEX_API int DeleteOneX4Mutation(const char* code);
/** Deletes all mutations. The number there was; TABVEX_NO_RECORD; TABVEX_NOT_SUPPORTED. */
TABVEX_API int DeleteX4Mutations(void);
/** Counts the mutations; CAllRecords::GetX4MutationCount. Their number; TABVEX_NO_RECORD; TABVEX_NOT_SUPPORTED. */
TABVEX_API int GetX4MutationsCount(void);
/** Sets the form in which "X4" records are created from now on, and mutations are read: the newer one when `on` is not
    0. The setting before. */
TABVEX_API int UseX4New(int on);

/* --- Mutations of the current repair position of the second opinion, "G9"; buffers as those of "X4". All give
   TABVEX_NO_TABLE, and TABVEX_MUTATION_NOT_PARSED when the record's lines are not all 128 characters long. --- */

/** Reads mutation `index`, 1 to 3; codes as ReadX4Mutation(). */
TABVEX_API int ReadG9Mutation(int index, char* code, int codeSize, double* value, char* text1, int text1Size,
                              char* text2, int text2Size);
/** The same with the value as text; the other form of CAllRecordsEx::ReadG9Mutation. Codes as ReadX4Mutation(). */
TABVEX_API int ReadG9MutationChar(int index, char* code, int codeSize, char* value, int valueSize, char* text1,
                                  int text1Size, char* text2, int text2Size);
/** Adds a mutation; one with the same code is replaced. Codes as AddX4Mutation(). */
TABVEX_API int AddG9Mutation(const char* mutation);
/** Deletes the first mutation with a code. Codes as DeleteOneX4Mutation(). */
TABVEX_API int DeleteOneG9Mutation(const char* code);
/** Deletes all mutations. The number there was; TABVEX_NO_RECORD. */
TABVEX_API int DeleteG9Mutations(void);
/** Counts the mutations; CAllRecordsEx::GetG9MutationCount. Their number; TABVEX_NO_RECORD. */
TABVEX_API int GetG9MutationsCount(void);

/* --- Kept for callers that still make these calls --- */

/** Does nothing; CAllRecords::SetOptimierungsCode. */
TABVEX_API void K_SetOptCode(char code);
/** Does nothing; CAllRecords::SetKalkArt. */
TABVEX_API void K_SetKalkArt(char kind);
/** Does nothing. TABVEX_NOT_SUPPORTED. */
TABVEX_API int CreateNewKRecord(char* type);
/** Does nothing. */
TABVEX_API void SetCalcNr_K_Records(char* number);

#ifdef __cplusplus
}
#endif

#endif
