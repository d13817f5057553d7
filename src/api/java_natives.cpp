// The native methods of the Java class: each is one handle function; what it does is told there. A null for a text
// reports TABVEX_BAD_ARGUMENT and gives null, 0 or false; nothing is called.

#include "api/application.h"
#include "api/java_values.h"
#include "core/record_context.h"
#include "tabvex/mif.h"

using tabvex::CJavaBytes;
using tabvex::CMutationTexts;
using tabvex::ReportBytes;
using tabvex::ReportMutation;
using tabvex::ReportText;
using tabvex::SetError;
using tabvex::WithRecords;

namespace {

// Buffers of the texts that go to Java, terminator included.
constexpr int kItemText = 64; // longer texts are refused: kept on purpose
constexpr int kDateText = 16;
constexpr int kAssembledText = 256;
constexpr int kLongestItem = tabvex::kLongLineLength + 1;

const char* const kX4Mutation = "de/quorvil/application/tabvex/X4Mutation";
const char* const kG9Mutation = "de/quorvil/application/tabvex/G9Mutation";

using CReadText = decltype(MifReadItem);
using CReadMutation = decltype(MifReadX4Mutation);

jint Reported(JNIEnv* env, jobject self, int result) {
    SetError(env, self, result);
    return result;
}

/// What `call` gives for the text, or why there is none.
template <typename Text, typename Call>
int CallWith(JNIEnv* env, Text text, Call call) {
    const CJavaBytes bytes(env, text);
    return bytes.IsHere() ? call(bytes.Get()) : bytes.Code();
}

/// The same for two texts, which `call` is given as copies.
template <typename Call>
int CallWithBoth(JNIEnv* env, jstring first, jstring second, Call call) {
    const CJavaBytes one(env, first);
    const CJavaBytes other(env, second);
    if (!one.IsHere()) {
        return one.Code();
    }
    return other.IsHere() ? call(one, other) : other.Code();
}

jstring ReadText(JNIEnv* env, jobject self, CReadText* read, jint handle, jint item) {
    char text[kItemText] = "";
    const int result = read(handle, item, text, sizeof text);
    return ReportText(env, self, result, result == TABVEX_OK ? text : nullptr);
}

jbyteArray ReadBytes(JNIEnv* env, jobject self, CReadText* read, jint handle, jint item) {
    char text[kLongestItem] = "";
    const int result = read(handle, item, text, sizeof text);
    return ReportBytes(env, self, result, result == TABVEX_OK ? text : nullptr);
}

jobject ReadMutation(JNIEnv* env, jobject self, const char* className, CReadMutation* read, jint handle, jint index) {
    CMutationTexts texts;
    const int result = read(handle, index, texts.szCode, CMutationTexts::kSize, &texts.fValue, texts.szText1,
                            CMutationTexts::kSize, texts.szText2, CMutationTexts::kSize);
    // Why a read failed is not told: kept on purpose.
    return ReportMutation(env, self, className, result == TABVEX_OK ? &texts : nullptr);
}

/// Reports only why a text is not there: kept on purpose.
template <typename Set>
void SetCodeList(JNIEnv* env, jobject self, jint handle, jstring kind, jstring list, Set set) {
    const int code = CallWithBoth(env, kind, list, [&](const CJavaBytes& type, const CJavaBytes& codes) -> int {
        WithRecords(handle, [&](CAllRecordsEx& records) { set(records, type.Get(), codes.Get()); });
        return TABVEX_OK;
    });
    if (code != TABVEX_OK) {
        SetError(env, self, code);
    }
}

} // namespace

extern "C" {

JNIEXPORT jint JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_createInstance(JNIEnv* /*env*/, jobject /*self*/) {
    return MifCreateInstance();
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_destroyInstance(JNIEnv* /*env*/, jobject /*self*/,
                                                                                     jint handle) {
    MifDestroyInstance(handle);
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_loadTable(JNIEnv* env, jobject self, jint handle,
                                                                               jstring file, jint versionMajor,
                                                                               jint versionMinor) {
    SetError(env, self, CallWith(env, file, [&](const char* name) {
                 return MifLoadTable(handle, name, versionMajor, versionMinor);
             }));
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_saveAllRecords(JNIEnv* env, jobject self,
                                                                                    jint handle, jstring file,
                                                                                    jint crlf) {
    // One byte of the flag counts, whatever type a caller's own class declares: kept on purpose.
    const auto flag = static_cast<jboolean>(crlf);
    SetError(env, self, CallWith(env, file, [&](const char* name) { return MifSaveAllRecords(handle, name, flag); }));
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readAllRecordsEx(JNIEnv* env, jobject self,
                                                                                      jint handle, jstring file) {
    SetError(env, self, CallWith(env, file, [&](const char* name) { return MifReadAllRecordsEx(handle, name); }));
}

JNIEXPORT jboolean JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readVRecords(JNIEnv* env, jobject self,
                                                                                      jint handle, jstring file) {
    const CJavaBytes name(env, file);
    // A file that cannot be read is told by the result alone: kept on purpose.
    const bool read = name.IsHere() && MifReadAll_V_Records(handle, name.Get()) == TABVEX_READ_SUCCEEDED;
    SetError(env, self, name.Code());
    return static_cast<jboolean>(read);
}

JNIEXPORT jstring JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readCharItem(JNIEnv* env, jobject self,
                                                                                     jint handle, jint item) {
    return ReadText(env, self, MifReadCharItem, handle, item);
}

JNIEXPORT jstring JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readItem(JNIEnv* env, jobject self, jint handle,
                                                                                 jint item) {
    return ReadText(env, self, MifReadItem, handle, item);
}

JNIEXPORT jint JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readIntItem(JNIEnv* env, jobject self, jint handle,
                                                                                 jint item) {
    int value = 0;
    SetError(env, self, MifReadIntItem(handle, item, &value));
    return value;
}

JNIEXPORT jdouble JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readFloatItem(JNIEnv* env, jobject self,
                                                                                      jint handle, jint item) {
    double value = 0;
    SetError(env, self, MifReadFloatItem(handle, item, &value));
    return value;
}

JNIEXPORT jstring JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readDateItem(JNIEnv* env, jobject self,
                                                                                     jint handle, jint item,
                                                                                     jstring format) {
    char date[kDateText] = "";
    const int result = CallWith(
        env, format, [&](const char* layout) { return MifReadDateItem(handle, item, layout, date, sizeof date); });
    return ReportText(env, self, result, result == TABVEX_OK ? date : nullptr);
}

JNIEXPORT jstring JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readHardDynItem(JNIEnv* env, jobject self,
                                                                                        jint handle, jint item) {
    char text[kAssembledText] = "";
    const int result = MifHardReadDynItem(handle, item, text, sizeof text);
    return ReportText(env, self, result, text);
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readFirst(JNIEnv* env, jobject self, jint handle,
                                                                               jint item) {
    SetError(env, self, MifReadFirst(handle, item));
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readNext(JNIEnv* env, jobject self, jint handle,
                                                                              jint item) {
    SetError(env, self, MifReadNext(handle, item));
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readPrev(JNIEnv* env, jobject self, jint handle,
                                                                              jint item) {
    SetError(env, self, MifReadPrev(handle, item));
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_writeCharItem(JNIEnv* env, jobject self,
                                                                                   jint handle, jint item,
                                                                                   jstring text) {
    SetError(env, self, CallWith(env, text, [&](const char* value) { return MifWriteCharItem(handle, item, value); }));
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_writeItem(JNIEnv* env, jobject self, jint handle,
                                                                               jint item, jstring text) {
    SetError(env, self, CallWith(env, text, [&](const char* value) { return MifWriteItem(handle, item, value); }));
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_writeHardItem(JNIEnv* env, jobject self,
                                                                                   jint handle, jint item,
                                                                                   jstring text) {
    SetError(env, self, CallWith(env, text, [&](const char* value) { return MifHardWriteItem(handle, item, value); }));
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_writeHardDynItem(JNIEnv* env, jobject self,
                                                                                      jint handle, jint item,
                                                                                      jstring text) {
    SetError(env, self,
             CallWith(env, text, [&](const char* value) { return MifHardWriteDynItem(handle, item, value); }));
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_writeIntItem(JNIEnv* env, jobject self,
                                                                                  jint handle, jint item, jint value) {
    SetError(env, self, MifWriteIntItem(handle, item, value));
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_writeFloatItem(JNIEnv* env, jobject self,
                                                                                    jint handle, jint item,
                                                                                    jdouble value) {
    SetError(env, self, MifWriteFloatItem(handle, item, value));
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_writeRoundFloatItem(JNIEnv* env, jobject self,
                                                                                         jint handle, jint item,
                                                                                         jdouble value) {
    SetError(env, self, MifWriteRoundFloatItem(handle, item, value));
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_writeDateItem(JNIEnv* env, jobject self,
                                                                                   jint handle, jint item, jstring date,
                                                                                   jstring format) {
    const int result = CallWithBoth(env, date, format, [&](const CJavaBytes& value, const CJavaBytes& layout) {
        return MifWriteDateItem(handle, item, layout.Get(), value.Get());
    });
    SetError(env, self, result);
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_clearItem(JNIEnv* env, jobject self, jint handle,
                                                                               jint item) {
    SetError(env, self, MifClearItem(handle, item));
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_destroyRecords(JNIEnv* env, jobject self,
                                                                                    jint handle, jstring type) {
    const int result = CallWith(env, type, [&](const char* key) -> int {
        MifDestroyRecords(handle, key);
        return TABVEX_OK;
    });
    SetError(env, self, result);
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_destroyAllRecords(JNIEnv* env, jobject self,
                                                                                       jint handle) {
    MifDestroyAllRecords(handle);
    SetError(env, self, TABVEX_OK);
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_destroyKnownRecords(JNIEnv* env, jobject self,
                                                                                         jint handle) {
    MifDestroyKnownRecordsOnly(handle);
    SetError(env, self, TABVEX_OK);
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_setCompleteRecord(JNIEnv* env, jobject self,
                                                                                       jint handle, jstring type,
                                                                                       jstring line) {
    const int result = CallWithBoth(env, type, line, [&](const CJavaBytes& key, const CJavaBytes& text) {
        return MifSetCompleteRecord(handle, key.Get(), text.Get(), text.Size());
    });
    SetError(env, self, result);
}

JNIEXPORT jint JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_findFirst(JNIEnv* env, jobject self, jint handle,
                                                                               jint item, jstring text) {
    const int result = CallWith(env, text, [&](const char* sought) { return MifFindFirst(handle, item, sought); });
    SetError(env, self, result);
    return text == nullptr ? 0 : result;
}

JNIEXPORT jint JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_findNext(JNIEnv* env, jobject self, jint handle) {
    return Reported(env, self, MifFindNext(handle));
}

JNIEXPORT jchar JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_setDelimiter(JNIEnv* env, jobject self,
                                                                                   jint handle, jchar delimiter) {
    const char previous = MifSetDelimiter(handle, static_cast<char>(delimiter));
    SetError(env, self, TABVEX_OK);
    return static_cast<unsigned char>(previous);
}

JNIEXPORT jobject JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readX4Mutation(JNIEnv* env, jobject self,
                                                                                       jint handle, jint index) {
    return ReadMutation(env, self, kX4Mutation, MifReadX4Mutation, handle, index);
}

JNIEXPORT jobject JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readG9Mutation(JNIEnv* env, jobject self,
                                                                                       jint handle, jint index) {
    return ReadMutation(env, self, kG9Mutation, MifReadG9Mutation, handle, index);
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_addX4Mutation(JNIEnv* env, jobject self,
                                                                                   jint handle, jstring text) {
    SetError(env, self, CallWith(env, text, [&](const char* mutation) { return MifAddX4Mutation(handle, mutation); }));
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_addG9Mutation(JNIEnv* env, jobject self,
                                                                                   jint handle, jstring text) {
    SetError(env, self, CallWith(env, text, [&](const char* mutation) { return MifAddG9Mutation(handle, mutation); }));
}

JNIEXPORT jint JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_getX4MutationsCount(JNIEnv* env, jobject self,
                                                                                         jint handle) {
    return Reported(env, self, MifGetX4MutationsCount(handle));
}

JNIEXPORT jint JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_getG9MutationsCount(JNIEnv* env, jobject self,
                                                                                         jint handle) {
    return Reported(env, self, MifGetG9MutationsCount(handle));
}

JNIEXPORT jint JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_deleteX4Mutations(JNIEnv* env, jobject self,
                                                                                       jint handle) {
    return Reported(env, self, MifDeleteX4Mutations(handle));
}

JNIEXPORT jint JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_deleteG9Mutations(JNIEnv* env, jobject self,
                                                                                       jint handle) {
    return Reported(env, self, MifDeleteG9Mutations(handle));
}

JNIEXPORT jint JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_deleteX4Mutation(JNIEnv* env, jobject self,
                                                                                      jint handle, jstring code) {
    const int result = CallWith(env, code, [&](const char* text) { return MifDeleteOneX4Mutation(handle, text); });
    SetError(env, self, result);
    return code == nullptr ? 0 : result;
}

JNIEXPORT jint JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_deleteG9Mutation(JNIEnv* env, jobject self,
                                                                                      jint handle, jstring code) {
    const int result = CallWith(env, code, [&](const char* text) { return MifDeleteOneG9Mutation(handle, text); });
    SetError(env, self, result);
    return code == nullptr ? 0 : result;
}

JNIEXPORT jboolean JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_useX4New(JNIEnv* env, jobject self,
                                                                                  jint handle, jint flag) {
    const int before = MifUseX4New(handle, static_cast<jboolean>(flag)); // one byte: kept on purpose
    return static_cast<jboolean>(Reported(env, self, before) > 0);
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_setMutationList(JNIEnv* env, jobject self,
                                                                                     jint handle, jstring kind,
                                                                                     jstring list) {
    SetCodeList(env, self, handle, kind, list,
                [](CAllRecordsEx& records, char* type, const char* codes) { records.SetMutationList(type, codes); });
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_setRepairMethodList(JNIEnv* env, jobject self,
                                                                                         jint handle, jstring kind,
                                                                                         jstring list) {
    SetCodeList(env, self, handle, kind, list, [](CAllRecordsEx& records, char* type, const char* codes) {
        records.SetRepairMethodList(type, codes);
    });
}

JNIEXPORT jbyteArray JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readCharItemBytes(JNIEnv* env, jobject self,
                                                                                             jint handle, jint item) {
    return ReadBytes(env, self, MifReadCharItem, handle, item);
}

JNIEXPORT jbyteArray JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readItemBytes(JNIEnv* env, jobject self,
                                                                                         jint handle, jint item) {
    return ReadBytes(env, self, MifReadItem, handle, item);
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_writeCharItemBytes(JNIEnv* env, jobject self,
                                                                                        jint handle, jint item,
                                                                                        jbyteArray text) {
    SetError(env, self, CallWith(env, text, [&](const char* value) { return MifWriteCharItem(handle, item, value); }));
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_writeItemBytes(JNIEnv* env, jobject self,
                                                                                    jint handle, jint item,
                                                                                    jbyteArray text) {
    SetError(env, self, CallWith(env, text, [&](const char* value) { return MifWriteItem(handle, item, value); }));
}

} // extern "C"
