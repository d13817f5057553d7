/*
 * Flat functions: every operation of the record set as a plain C function, over one record set that all callers in the
 * process share. It is there from the library's loading to its unloading.
 *
 * Each function does what the operation of the same name does (tabvex/all_records.h tells it, with every result code of
 * tabvex/result_codes.h): 0 or more is success, a negative number a failure. Null pointers give TABVEX_BAD_ARGUMENT.
 * Item numbers select record type and field; buffers are given with their size in characters, terminator included,
 * where nothing else is said. Nothing is locked: one thread at a time.
 */
#ifndef TABVEX_FLAT_H
#define TABVEX_FLAT_H

#include "tabvex/export.h"
#include "tabvex/result_codes.h"

#ifdef __cplusplus
extern "C" {
#endif

TABVEX_API int LoadTable(const char* fileName, int versionMajor, int versionMinor);
TABVEX_API int ReadAllRecords(const char* fileName);
TABVEX_API int ReadAllRecordsEx(const char* fileName);
TABVEX_API int ReadAll_V_Records(const char* fileName);
TABVEX_API int SaveAllRecords(const char* fileName, int crlf);
TABVEX_API void DestroyAllRecords(void);
TABVEX_API void DestroyRecords(const char* type);
TABVEX_API void DestroyKnownRecordsOnly(void);

TABVEX_API int ReadItem(int item, char* buffer, int size);
TABVEX_API int ReadCharItem(int item, char* buffer, int size);
TABVEX_API int ReadIntItem(int item, int* value);
TABVEX_API int ReadFloatItem(int item, double* value);
TABVEX_API int ReadDateItem(int item, const char* format, char* buffer, int size);
TABVEX_API int HardReadDynItem(int item, char* buffer, int size);
TABVEX_API int WriteItem(int item, const char* text);
TABVEX_API int WriteCharItem(int item, const char* text);
TABVEX_API int WriteIntItem(int item, int value);
TABVEX_API int WriteFloatItem(int item, double value);
TABVEX_API int WriteRoundFloatItem(int item, double value);
TABVEX_API int WriteDateItem(int item, const char* format, const char* date);
TABVEX_API int HardWriteItem(int item, const char* text);
TABVEX_API int HardWriteDynItem(int item, const char* text);
TABVEX_API int ClearItem(int item);

TABVEX_API int ReadFirst(int item);
TABVEX_API int ReadNext(int item);
TABVEX_API int ReadPrev(int item);
TABVEX_API int FindFirst(int item, const char* text);
TABVEX_API int FindNext(void);
/* Copies the type's first line; GetNextCompleteRecord goes on from there, and counts on even when it fails. */
TABVEX_API int GetFirstCompleteRecord(const char* type, char* buffer, int size);
TABVEX_API int GetNextCompleteRecord(const char* type, char* buffer, int size);
TABVEX_API int SetCompleteRecord(const char* type, char* line, int lineSize);
TABVEX_API char SetDelimiter(char delimiter);

/* Texts of exactly their size fit: every buffer has one byte more than its size says. */
TABVEX_API int ReadX4Mutation(int index, char* code, int codeSize, double* value, char* text1, int text1Size,
                              char* text2, int text2Size);
TABVEX_API int ReadX4MutationChar(int index, char* code, int codeSize, char* value, int valueSize, char* text1,
                                  int text1Size, char* text2, int text2Size);
TABVEX_API int AddX4Mutation(const char* mutation);
TABVEX_API int DeleteOneX4Mutation(const char* code);
TABVEX_API int DeleteX4Mutations(void);
TABVEX_API int GetX4MutationsCount(void);
TABVEX_API int UseX4New(int on);
TABVEX_API int ReadG9Mutation(int index, char* code, int codeSize, double* value, char* text1, int text1Size,
                              char* text2, int text2Size);
TABVEX_API int ReadG9MutationChar(int index, char* code, int codeSize, char* value, int valueSize, char* text1,
                                  int text1Size, char* text2, int text2Size);
TABVEX_API int AddG9Mutation(const char* mutation);
TABVEX_API int DeleteOneG9Mutation(const char* code);
TABVEX_API int DeleteG9Mutations(void);
TABVEX_API int GetG9MutationsCount(void);

/* Kept for callers that still make these calls; they do nothing, CreateNewKRecord returns TABVEX_NOT_SUPPORTED. */
TABVEX_API void K_SetOptCode(char code);
TABVEX_API void K_SetKalkArt(char kind);
TABVEX_API int CreateNewKRecord(char* type);
TABVEX_API void SetCalcNr_K_Records(char* number);

#ifdef __cplusplus
}
#endif

#endif
