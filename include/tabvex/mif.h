/*
 * Handle functions: the flat functions (tabvex/flat.h) over as many record sets as are asked for. The first argument is
 * the handle of the record set; everything else, and the result, is as there.
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

/* Creates a record set: its handle (4, 8, 12, ... in the order of creation), or 0 when there is no memory for it. */
TABVEX_API int MifCreateInstance(void);
/* Destroys a record set with all its records. */
TABVEX_API void MifDestroyInstance(int handle);

TABVEX_API int MifLoadTable(int handle, const char* fileName, int versionMajor, int versionMinor);
TABVEX_API int MifReadAllRecords(int handle, const char* fileName);
TABVEX_API int MifReadAllRecordsEx(int handle, const char* fileName);
TABVEX_API int MifReadAll_V_Records(int handle, const char* fileName);
TABVEX_API int MifSaveAllRecords(int handle, const char* fileName, int crlf);
TABVEX_API void MifDestroyAllRecords(int handle);
TABVEX_API void MifDestroyRecords(int handle, const char* type);
TABVEX_API void MifDestroyKnownRecordsOnly(int handle);

TABVEX_API int MifReadItem(int handle, int item, char* buffer, int size);
TABVEX_API int MifReadCharItem(int handle, int item, char* buffer, int size);
TABVEX_API int MifReadIntItem(int handle, int item, int* value);
TABVEX_API int MifReadFloatItem(int handle, int item, double* value);
TABVEX_API int MifReadDateItem(int handle, int item, const char* format, char* buffer, int size);
TABVEX_API int MifHardReadDynItem(int handle, int item, char* buffer, int size);
TABVEX_API int MifWriteItem(int handle, int item, const char* text);
TABVEX_API int MifWriteCharItem(int handle, int item, const char* text);
TABVEX_API int MifWriteIntItem(int handle, int item, int value);
TABVEX_API int MifWriteFloatItem(int handle, int item, double value);
TABVEX_API int MifWriteRoundFloatItem(int handle, int item, double value);
TABVEX_API int MifWriteDateItem(int handle, int item, const char* format, const char* date);
TABVEX_API int MifHardWriteItem(int handle, int item, const char* text);
TABVEX_API int MifHardWriteDynItem(int handle, int item, const char* text);
TABVEX_API int MifClearItem(int handle, int item);

TABVEX_API int MifReadFirst(int handle, int item);
TABVEX_API int MifReadNext(int handle, int item);
TABVEX_API int MifReadPrev(int handle, int item);
TABVEX_API int MifFindFirst(int handle, int item, const char* text);
TABVEX_API int MifFindNext(int handle);
/* Copies the type's first line; MifGetNextCompleteRecord copies the line that the
   counter of the flat functions tells, not one of this record set: kept on purpose. */
TABVEX_API int MifGetFirstCompleteRecord(int handle, const char* type, char* buffer, int size);
TABVEX_API int MifGetNextCompleteRecord(int handle, const char* type, char* buffer, int size);
TABVEX_API int MifSetCompleteRecord(int handle, const char* type, char* line, int lineSize);
TABVEX_API char MifSetDelimiter(int handle, char delimiter);

/* Texts of exactly their size fit: every buffer has one byte more than its size says. */
TABVEX_API int MifReadX4Mutation(int handle, int index, char* code, int codeSize, double* value, char* text1,
                                 int text1Size, char* text2, int text2Size);
TABVEX_API int MifReadX4MutationChar(int handle, int index, char* code, int codeSize, char* value, int valueSize,
                                     char* text1, int text1Size, char* text2, int text2Size);
TABVEX_API int MifAddX4Mutation(int handle, const char* mutation);
TABVEX_API int MifDeleteOneX4Mutation(int handle, const char* code);
TABVEX_API int MifDeleteX4Mutations(int handle);
TABVEX_API int MifGetX4MutationsCount(int handle);
TABVEX_API int MifUseX4New(int handle, int on);
TABVEX_API int MifReadG9Mutation(int handle, int index, char* code, int codeSize, double* value, char* text1,
                                 int text1Size, char* text2, int text2Size);
TABVEX_API int MifReadG9MutationChar(int handle, int index, char* code, int codeSize, char* value, int valueSize,
                                     char* text1, int text1Size, char* text2, int text2Size);
TABVEX_API int MifAddG9Mutation(int handle, const char* mutation);
TABVEX_API int MifDeleteOneG9Mutation(int handle, const char* code);
TABVEX_API int MifDeleteG9Mutations(int handle);
TABVEX_API int MifGetG9MutationsCount(int handle);

/* Kept for callers that still make these calls; they do nothing, MifCreateNewKRecord returns TABVEX_NOT_SUPPORTED. */
TABVEX_API void MifK_SetOptCode(int handle, char code);
TABVEX_API void MifK_SetKalkArt(int handle, char kind);
TABVEX_API int MifCreateNewKRecord(int handle, char* type);
TABVEX_API void MifSetCalcNr_K_Records(int handle, char* number);

#ifdef __cplusplus
}
#endif

#endif
