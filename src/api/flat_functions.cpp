// Each function is one operation of the record set; what it does is told there.

#include "tabvex/flat.h"

#include "api/application.h"

using tabvex::Application;
using tabvex::ReadMutationValue;
using tabvex::ReadValue;
using tabvex::WithSharedRecords;

int LoadTable(const char* fileName, int versionMajor, int versionMinor) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.LoadTable(fileName, versionMajor, versionMinor); });
}

int ReadAllRecords(const char* fileName) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.ReadAllRecords(fileName); });
}

int ReadAllRecordsEx(const char* fileName) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.ReadAllRecordsEx(fileName); });
}

int ReadAll_V_Records(const char* fileName) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.ReadAll_V_Records(fileName); });
}

int SaveAllRecords(const char* fileName, int crlf) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.SaveAllRecords(fileName, crlf); });
}

void DestroyAllRecords() {
    WithSharedRecords([&](CAllRecordsEx& r) { r.DestroyAllRecords(); });
}

void DestroyRecords(const char* type) {
    WithSharedRecords([&](CAllRecordsEx& r) { r.DestroyRecords(type); });
}

void DestroyKnownRecordsOnly() {
    WithSharedRecords([&](CAllRecordsEx& r) { r.DestroyKnownRecordsOnly(); });
}

int ReadItem(int item, char* buffer, int size) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.ReadItem(item, buffer, size); });
}

int ReadCharItem(int item, char* buffer, int size) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.ReadCharItem(item, buffer, size); });
}

int ReadIntItem(int item, int* value) {
    return WithSharedRecords(
        [&](CAllRecordsEx& r) { return ReadValue(r, value, [&](int& to) { return r.ReadIntItem(item, to); }); });
}

int ReadFloatItem(int item, double* value) {
    return WithSharedRecords(
        [&](CAllRecordsEx& r) { return ReadValue(r, value, [&](double& to) { return r.ReadFloatItem(item, to); }); });
}

int ReadDateItem(int item, const char* format, char* buffer, int size) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.ReadDateItem(item, format, buffer, size); });
}

int HardReadDynItem(int item, char* buffer, int size) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.HardReadDynItem(item, buffer, size); });
}

int WriteItem(int item, const char* text) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.WriteItem(item, text); });
}

int WriteCharItem(int item, const char* text) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.WriteCharItem(item, text); });
}

int WriteIntItem(int item, int value) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.WriteIntItem(item, value); });
}

int WriteFloatItem(int item, double value) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.WriteFloatItem(item, value); });
}

int WriteRoundFloatItem(int item, double value) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.WriteRoundFloatItem(item, value); });
}

int WriteDateItem(int item, const char* format, const char* date) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.WriteDateItem(item, format, date); });
}

int HardWriteItem(int item, const char* text) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.HardWriteItem(item, text); });
}

int HardWriteDynItem(int item, const char* text) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.HardWriteDynItem(item, text); });
}

int ClearItem(int item) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.ClearItem(item); });
}

int ReadFirst(int item) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.ReadFirst(item); });
}

int ReadNext(int item) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.ReadNext(item); });
}

int ReadPrev(int item) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.ReadPrev(item); });
}

int FindFirst(int item, const char* text) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.FindFirst(item, text); });
}

int FindNext() {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.FindNext(); });
}

int GetFirstCompleteRecord(const char* type, char* buffer, int size) {
    return WithSharedRecords([&](CAllRecordsEx& r) {
        Application().nCompleteLine = 1;
        return r.GetFirstCompleteRecord(type, buffer, size);
    });
}

int GetNextCompleteRecord(const char* type, char* buffer, int size) {
    return WithSharedRecords(
        [&](CAllRecordsEx& r) { return r.GetNextCompleteRecord(type, buffer, size, ++Application().nCompleteLine); });
}

int SetCompleteRecord(const char* type, char* line, int lineSize) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.SetCompleteRecord(type, line, lineSize); });
}

char SetDelimiter(char delimiter) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.SetDelimiter(delimiter); });
}

int ReadX4Mutation(int index, char* code, int codeSize, double* value, char* text1, int text1Size, char* text2,
                   int text2Size) {
    return WithSharedRecords([&](CAllRecordsEx& r) {
        return ReadMutationValue(code, value, [&](char* to, double& number) {
            return r.ReadX4Mutation(index, to, codeSize, number, text1, text1Size, text2, text2Size);
        });
    });
}

int ReadX4MutationChar(int index, char* code, int codeSize, char* value, int valueSize, char* text1, int text1Size,
                       char* text2, int text2Size) {
    return WithSharedRecords([&](CAllRecordsEx& r) {
        return r.ReadX4Mutation(index, code, codeSize, value, valueSize, text1, text1Size, text2, text2Size);
    });
}

int AddX4Mutation(const char* mutation) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.AddX4Mutation(mutation); });
}

int DeleteOneX4Mutation(const char* code) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.DeleteOneX4Mutation(code); });
}

int DeleteX4Mutations() {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.DeleteX4Mutations(); });
}

int GetX4MutationsCount() {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.GetX4MutationCount(); });
}

int UseX4New(int on) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.UseX4New(on); });
}

int ReadG9Mutation(int index, char* code, int codeSize, double* value, char* text1, int text1Size, char* text2,
                   int text2Size) {
    return WithSharedRecords([&](CAllRecordsEx& r) {
        return ReadMutationValue(code, value, [&](char* to, double& number) {
            return r.ReadG9Mutation(index, to, codeSize, number, text1, text1Size, text2, text2Size);
        });
    });
}

int ReadG9MutationChar(int index, char* code, int codeSize, char* value, int valueSize, char* text1, int text1Size,
                       char* text2, int text2Size) {
    return WithSharedRecords([&](CAllRecordsEx& r) {
        return r.ReadG9Mutation(index, code, codeSize, value, valueSize, text1, text1Size, text2, text2Size);
    });
}

int AddG9Mutation(const char* mutation) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.AddG9Mutation(mutation); });
}

int DeleteOneG9Mutation(const char* code) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.DeleteOneG9Mutation(code); });
}

int DeleteG9Mutations() {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.DeleteG9Mutations(); });
}

int GetG9MutationsCount() {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.GetG9MutationCount(); });
}

void K_SetOptCode(char code) {
    WithSharedRecords([&](CAllRecordsEx& r) { r.SetOptimierungsCode(code); });
}

void K_SetKalkArt(char kind) {
    WithSharedRecords([&](CAllRecordsEx& r) { r.SetKalkArt(kind); });
}

int CreateNewKRecord(char* type) {
    return WithSharedRecords([&](CAllRecordsEx& r) { return r.CreateNewKRecord(type); });
}

void SetCalcNr_K_Records(char* number) {
    WithSharedRecords([&](CAllRecordsEx& r) { r.SetCalcNr_K_Records(number); });
}
