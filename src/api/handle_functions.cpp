// Each function is one operation of the record set; what it does is told there.

#include "tabvex/mif.h"

#include "api/application.h"

using tabvex::Application;
using tabvex::CMifInstance;
using tabvex::ReadMutationValue;
using tabvex::ReadValue;
using tabvex::WithInstance;
using tabvex::WithRecords;

int MifCreateInstance() {
    return tabvex::Guarded([] { return Application().Registry.Create(); }, 0);
}

void MifDestroyInstance(int handle) {
    Application().Registry.Destroy(handle);
}

int MifLoadTable(int handle, const char* fileName, int versionMajor, int versionMinor) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.LoadTable(fileName, versionMajor, versionMinor); });
}

int MifReadAllRecords(int handle, const char* fileName) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.ReadAllRecords(fileName); });
}

int MifReadAllRecordsEx(int handle, const char* fileName) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.ReadAllRecordsEx(fileName); });
}

int MifReadAll_V_Records(int handle, const char* fileName) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.ReadAll_V_Records(fileName); });
}

int MifSaveAllRecords(int handle, const char* fileName, int crlf) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.SaveAllRecords(fileName, crlf); });
}

void MifDestroyAllRecords(int handle) {
    WithRecords(handle, [&](CAllRecordsEx& r) { r.DestroyAllRecords(); });
}

void MifDestroyRecords(int handle, const char* type) {
    WithRecords(handle, [&](CAllRecordsEx& r) { r.DestroyRecords(type); });
}

void MifDestroyKnownRecordsOnly(int handle) {
    WithRecords(handle, [&](CAllRecordsEx& r) { r.DestroyKnownRecordsOnly(); });
}

int MifReadItem(int handle, int item, char* buffer, int size) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.ReadItem(item, buffer, size); });
}

int MifReadCharItem(int handle, int item, char* buffer, int size) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.ReadCharItem(item, buffer, size); });
}

int MifReadIntItem(int handle, int item, int* value) {
    return WithRecords(handle, [&](CAllRecordsEx& r) {
        return ReadValue(r, value, [&](int& to) { return r.ReadIntItem(item, to); });
    });
}

int MifReadFloatItem(int handle, int item, double* value) {
    return WithRecords(handle, [&](CAllRecordsEx& r) {
        return ReadValue(r, value, [&](double& to) { return r.ReadFloatItem(item, to); });
    });
}

int MifReadDateItem(int handle, int item, const char* format, char* buffer, int size) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.ReadDateItem(item, format, buffer, size); });
}

int MifHardReadDynItem(int handle, int item, char* buffer, int size) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.HardReadDynItem(item, buffer, size); });
}

int MifWriteItem(int handle, int item, const char* text) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.WriteItem(item, text); });
}

int MifWriteCharItem(int handle, int item, const char* text) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.WriteCharItem(item, text); });
}

int MifWriteIntItem(int handle, int item, int value) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.WriteIntItem(item, value); });
}

int MifWriteFloatItem(int handle, int item, double value) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.WriteFloatItem(item, value); });
}

int MifWriteRoundFloatItem(int handle, int item, double value) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.WriteRoundFloatItem(item, value); });
}

int MifWriteDateItem(int handle, int item, const char* format, const char* date) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.WriteDateItem(item, format, date); });
}

int MifHardWriteItem(int handle, int item, const char* text) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.HardWriteItem(item, text); });
}

int MifHardWriteDynItem(int handle, int item, const char* text) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.HardWriteDynItem(item, text); });
}

int MifClearItem(int handle, int item) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.ClearItem(item); });
}

int MifReadFirst(int handle, int item) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.ReadFirst(item); });
}

int MifReadNext(int handle, int item) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.ReadNext(item); });
}

int MifReadPrev(int handle, int item) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.ReadPrev(item); });
}

int MifFindFirst(int handle, int item, const char* text) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.FindFirst(item, text); });
}

int MifFindNext(int handle) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.FindNext(); });
}

int MifGetFirstCompleteRecord(int handle, const char* type, char* buffer, int size) {
    return WithInstance(handle, [&](CMifInstance& instance) {
        instance.nCompleteLine = 1;
        return instance.Records.GetFirstCompleteRecord(type, buffer, size);
    });
}

// The instance counts its own lines, but the counter of the flat functions tells the line: kept on purpose.
int MifGetNextCompleteRecord(int handle, const char* type, char* buffer, int size) {
    return WithInstance(handle, [&](CMifInstance& instance) {
        ++instance.nCompleteLine;
        return instance.Records.GetNextCompleteRecord(type, buffer, size, Application().nCompleteLine);
    });
}

int MifSetCompleteRecord(int handle, const char* type, char* line, int lineSize) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.SetCompleteRecord(type, line, lineSize); });
}

char MifSetDelimiter(int handle, char delimiter) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.SetDelimiter(delimiter); });
}

int MifReadX4Mutation(int handle, int index, char* code, int codeSize, double* value, char* text1, int text1Size,
                      char* text2, int text2Size) {
    return WithRecords(handle, [&](CAllRecordsEx& r) {
        return ReadMutationValue(code, value, [&](char* to, double& number) {
            return r.ReadX4Mutation(index, to, codeSize, number, text1, text1Size, text2, text2Size);
        });
    });
}

int MifReadX4MutationChar(int handle, int index, char* code, int codeSize, char* value, int valueSize, char* text1,
                          int text1Size, char* text2, int text2Size) {
    return WithRecords(handle, [&](CAllRecordsEx& r) {
        return r.ReadX4Mutation(index, code, codeSize, value, valueSize, text1, text1Size, text2, text2Size);
    });
}

int MifAddX4Mutation(int handle, const char* mutation) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.AddX4Mutation(mutation); });
}

int MifDeleteOneX4Mutation(int handle, const char* code) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.DeleteOneX4Mutation(code); });
}

int MifDeleteX4Mutations(int handle) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.DeleteX4Mutations(); });
}

int MifGetX4MutationsCount(int handle) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.GetX4MutationCount(); });
}

int MifUseX4New(int handle, int on) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.UseX4New(on); });
}

int MifReadG9Mutation(int handle, int index, char* code, int codeSize, double* value, char* text1, int text1Size,
                      char* text2, int text2Size) {
    return WithRecords(handle, [&](CAllRecordsEx& r) {
        return ReadMutationValue(code, value, [&](char* to, double& number) {
            return r.ReadG9Mutation(index, to, codeSize, number, text1, text1Size, text2, text2Size);
        });
    });
}

int MifReadG9MutationChar(int handle, int index, char* code, int codeSize, char* value, int valueSize, char* text1,
                          int text1Size, char* text2, int text2Size) {
    return WithRecords(handle, [&](CAllRecordsEx& r) {
        return r.ReadG9Mutation(index, code, codeSize, value, valueSize, text1, text1Size, text2, text2Size);
    });
}

int MifAddG9Mutation(int handle, const char* mutation) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.AddG9Mutation(mutation); });
}

int MifDeleteOneG9Mutation(int handle, const char* code) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.DeleteOneG9Mutation(code); });
}

int MifDeleteG9Mutations(int handle) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.DeleteG9Mutations(); });
}

int MifGetG9MutationsCount(int handle) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.GetG9MutationCount(); });
}

void MifK_SetOptCode(int handle, char code) {
    WithRecords(handle, [&](CAllRecordsEx& r) { r.SetOptimierungsCode(code); });
}

void MifK_SetKalkArt(int handle, char kind) {
    WithRecords(handle, [&](CAllRecordsEx& r) { r.SetKalkArt(kind); });
}

int MifCreateNewKRecord(int handle, char* type) {
    return WithRecords(handle, [&](CAllRecordsEx& r) { return r.CreateNewKRecord(type); });
}

void MifSetCalcNr_K_Records(int handle, char* number) {
    WithRecords(handle, [&](CAllRecordsEx& r) { r.SetCalcNr_K_Records(number); });
}
