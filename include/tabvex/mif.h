/**
 * @file
 * Handle functions: the flat functions (tabvex/flat.h) over as many record sets as are asked for. The first argument is
 * the handle of the record set; everything else, and the result, is as there, with every code.
 *
 * A handle that is not known stands for the record set created last: kept on purpose, as callers live with it. While no
 * record set is alive every function returns TABVEX_NO_RECORD (char: 0; void: nothing).
 */
#ifndef TABVEX_MIF_H
#define TABVEX_MIF_H

#include "tabvex/export.h"
#include "tabvex/result_codes.h"

#ifdef __cplusplus
extern "C" {
#endif

/** Creates a record set: its handle (4, 8, 12, ... in the order of creation), or 0 when there is no memory for it. */
TABVEX_API int MifCreateInstance(void);
/** Destroys a record set with all its records; for a handle that is not known, the record set created last. */
TABVEX_API void MifDestroyInstance(int handle);

/* --- Files and records --- */

/** Loads the table file and holds its version against the one required. See LoadTable(). */
TABVEX_API int MifLoadTable(int handle, const char* fileName, int versionMajor, int versionMinor);
/** Reads a file of records of 128 characters, in place of the records held. See ReadAllRecords(). */
TABVEX_API int MifReadAllRecords(int handle, const char* fileName);
/** Reads a file of records of 128 characters, with codes, and the fix-up after reading. See ReadAllRecordsEx(). */
TABVEX_API int MifReadAllRecordsEx(int handle, const char* fileName);
/** Reads a file of lines of any length up to the first empty one. See ReadAll_V_Records(). */
TABVEX_API int MifReadAll_V_Records(int handle, const char* fileName);
/** Writes every record. See SaveAllRecords(). */
TABVEX_API int MifSaveAllRecords(int handle, const char* fileName, int crlf);
/** Destroys every record. See DestroyAllRecords(). */
TABVEX_API void MifDestroyAllRecords(int handle);
/** Destroys the records of one type. See DestroyRecords(). */
TABVEX_API void MifDestroyRecords(int handle, const char* type);
/** Destroys every record but those of unknown types. See DestroyKnownRecordsOnly(). */
TABVEX_API void MifDestroyKnownRecordsOnly(int handle);

/* --- Reading items of the current entry --- */

/** Copies an item's text in its full length. See ReadItem(). */
TABVEX_API int MifReadItem(int handle, int item, char* buffer, int size);
/** Copies a character item's text in its full length. See ReadCharItem(). */
TABVEX_API int MifReadCharItem(int handle, int item, char* buffer, int size);
/** Reads a number without decimals. See ReadIntItem(). */
TABVEX_API int MifReadIntItem(int handle, int item, int* value);
/** Reads a number with decimals. See ReadFloatItem(). */
TABVEX_API int MifReadFloatItem(int handle, int item, double* value);
/** Copies a date in the caller's format. See ReadDateItem(). */
TABVEX_API int MifReadDateItem(int handle, int item, const char* format, char* buffer, int size);
/** Copies a text that the record type assembles from several items. See HardReadDynItem(). */
TABVEX_API int MifHardReadDynItem(int handle, int item, char* buffer, int size);

/* --- Writing items --- */

/** Writes a text through the item's checks and layout, a date as YYYYMMDD, unchecked. See WriteItem(). */
TABVEX_API int MifWriteItem(int handle, int item, const char* text);
/** Writes a text through the checks of a character item. See WriteCharItem(). */
TABVEX_API int MifWriteCharItem(int handle, int item, const char* text);
/** Writes a number. See WriteIntItem(). */
TABVEX_API int MifWriteIntItem(int handle, int item, int value);
/** Writes a number with six significant digits. See WriteFloatItem(). */
TABVEX_API int MifWriteFloatItem(int handle, int item, double value);
/** Writes a number rounded to the item's decimals. See WriteRoundFloatItem(). */
TABVEX_API int MifWriteRoundFloatItem(int handle, int item, double value);
/** Writes a date given in the caller's format. See WriteDateItem(). */
TABVEX_API int MifWriteDateItem(int handle, int item, const char* format, const char* date);
/** Overwrites an item of an existing record, unchecked. See HardWriteItem(). */
TABVEX_API int MifHardWriteItem(int handle, int item, const char* text);
/** Writes a text that the record type takes apart at the delimiter. See HardWriteDynItem(). */
TABVEX_API int MifHardWriteDynItem(int handle, int item, const char* text);
/** Blanks an item of an existing record. See ClearItem(). */
TABVEX_API int MifClearItem(int handle, int item);

/* --- Stepping and searching --- */

/** Makes the first entry of the type that owns `item` the current one. See ReadFirst(). */
TABVEX_API int MifReadFirst(int handle, int item);
/** Goes on to the next entry. See ReadNext(). */
TABVEX_API int MifReadNext(int handle, int item);
/** Goes back to the entry before. See ReadPrev(). */
TABVEX_API int MifReadPrev(int handle, int item);
/** Goes to the first entry whose `item` has this text. See FindFirst(). */
TABVEX_API int MifFindFirst(int handle, int item, const char* text);
/** Goes on behind the entry found. See FindNext(). */
TABVEX_API int MifFindNext(int handle);

/* --- Whole lines --- */

/** Copies the first line of a type. See GetFirstCompleteRecord(). */
TABVEX_API int MifGetFirstCompleteRecord(int handle, const char* type, char* buffer, int size);
/** Copies the line that the counter of the flat functions tells, not one of this record set: kept on purpose.
    See GetNextCompleteRecord(). */
TABVEX_API int MifGetNextCompleteRecord(int handle, const char* type, char* buffer, int size);
/** Adds a whole line to the record of a type, which is created when missing. See SetCompleteRecord(). */
TABVEX_API int MifSetCompleteRecord(int handle, const char* type, char* line, int lineSize);
/** Sets the character that separates the values of an entry and of a list. See SetDelimiter(). */
TABVEX_API char MifSetDelimiter(int handle, char delimiter);

/* --- Mutations of the current repair position, "X4". Texts of exactly their size fit: every buffer has one byte more
   than its size says. All give TABVEX_NO_TABLE, and TABVEX_MUTATION_NOT_PARSED when the record's lines are not all 128
   characters long. --- */

/** Reads mutation `index`, 1 to 3. See ReadX4Mutation(). */
TABVEX_API int MifReadX4Mutation(int handle, int index, char* code, int codeSize, double* value, char* text1,
                                 int text1Size, char* text2, int text2Size);
/** Reads mutation `index` with the value as text. See ReadX4MutationChar(). */
TABVEX_API int MifReadX4MutationChar(int handle, int index, char* code, int codeSize, char* value, int valueSize,
                                     char* text1, int text1Size, char* text2, int text2Size);
/** Adds a mutation, such as "TM/99.50"; one with the same code is replaced. See AddX4Mutation(), which tells why not
    every code can be added. */
TABVEX_API int MifAddX4Mutation(int handle, const char* mutation);
/** Deletes the first mutation with a code. See DeleteOneX4Mutation(). */
TABVEX_API int MifDeleteOneX4Mutation(int handle, const char* code);
/** Deletes all mutations. See DeleteX4Mutations(). */
TABVEX_API int MifDeleteX4Mutations(int handle);
/** Counts the mutations. See GetX4MutationsCount(). */
TABVEX_API int MifGetX4MutationsCount(int handle);
/** Sets the form in which "X4" records are created from now on, and mutations are read. See UseX4New(). */
TABVEX_API int MifUseX4New(int handle, int on);

/* --- Mutations of the current repair position of the second opinion, "G9"; buffers as those of "X4" --- */

/** Reads mutation `index`, 1 to 3. See ReadG9Mutation(). */
TABVEX_API int MifReadG9Mutation(int handle, int index, char* code, int codeSize, double* value, char* text1,
                                 int text1Size, char* text2, int text2Size);
/** Reads mutation `index` with the value as text. See ReadG9MutationChar(). */
TABVEX_API int MifReadG9MutationChar(int handle, int index, char* code, int codeSize, char* value, int valueSize,
                                     char* text1, int text1Size, char* text2, int text2Size);
/** Adds a mutation; one with the same code is replaced. See AddG9Mutation(). */
TABVEX_API int MifAddG9Mutation(int handle, const char* mutation);
/** Deletes the first mutation with a code. See DeleteOneG9Mutation(). */
TABVEX_API int MifDeleteOneG9Mutation(int handle, const char* code);
/** Deletes all mutations. See DeleteG9Mutations(). */
TABVEX_API int MifDeleteG9Mutations(int handle);
/** Counts the mutations. See GetG9MutationsCount(). */
TABVEX_API int MifGetG9MutationsCount(int handle);

/* --- Kept for callers that still make these calls --- */

/** Does nothing. See K_SetOptCode(). */
TABVEX_API void MifK_SetOptCode(int handle, char code);
/** Does nothing. See K_SetKalkArt(). */
TABVEX_API void MifK_SetKalkArt(int handle, char kind);
/** Does nothing. See CreateNewKRecord(). */
TABVEX_API int MifCreateNewKRecord(int handle, char* type);
/** Does nothing. See SetCalcNr_K_Records(). */
TABVEX_API void MifSetCalcNr_K_Records(int handle, char* number);

#ifdef __cplusplus
}
#endif

#endif
