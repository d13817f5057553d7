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

// Buffers of the texts that go to Java, terminator included. Longer item texts are refused: kept on purpose.
constexpr int kItemText = 64;
constexpr int kDateText = 16;
constexpr int kAssembledText = 256;
constexpr int kLongestItem = tabvex::kLongLineLength + 1;

const char* const kX4Mutation = "de/quorvil/application/tabvex/X4Mutation";
const char* const kG9Mutation = "de/quorvil/application/tabvex/G9Mutation";

int FirstFailure(const CJavaBytes& first, const CJavaBytes& second) {
    return first.IsHere() ? second.Code() : first.Code();
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
    const CJavaBytes name(env, file);
    SetError(env, self, name.IsHere() ? MifLoadTable(handle, name.Get(), versionMajor, versionMinor) : name.Code());
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_saveAllRecords(JNIEnv* env, jobject self,
                                                                                    jint handle, jstring file,
                                                                                    jboolean crlf) {
    const CJavaBytes name(env, file);
    SetError(env, self, name.IsHere() ? MifSaveAllRecords(handle, name.Get(), crlf) : name.Code());
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readAllRecordsEx(JNIEnv* env, jobject self,
                                                                                      jint handle, jstring file) {
    const CJavaBytes name(env, file);
    SetError(env, self, name.IsHere() ? MifReadAllRecordsEx(handle, name.Get()) : name.Code());
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
    char text[kItemText] = "";
    const int result = MifReadCharItem(handle, item, text, sizeof text);
    return ReportText(env, self, result, result == TABVEX_OK ? text : nullptr);
}

JNIEXPORT jstring JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readItem(JNIEnv* env, jobject self, jint handle,
                                                                                 jint item) {
    char text[kItemText] = "";
    const int result = MifReadItem(handle, item, text, sizeof text);
    return ReportText(env, self, result, result == TABVEX_OK ? text : nullptr);
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
    const CJavaBytes layout(env, format);
    char date[kDateText] = "";
    const int result = layout.IsHere() ? MifReadDateItem(handle, item, layout.Get(), date, sizeof date) : layout.Code();
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
    const CJavaBytes value(env, text);
    SetError(env, self, value.IsHere() ? MifWriteCharItem(handle, item, value.Get()) : value.Code());
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_writeItem(JNIEnv* env, jobject self, jint handle,
                                                                               jint item, jstring text) {
    const CJavaBytes value(env, text);
    SetError(env, self, value.IsHere() ? MifWriteItem(handle, item, value.Get()) : value.Code());
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_writeHardItem(JNIEnv* env, jobject self,
                                                                                   jint handle, jint item,
                                                                                   jstring text) {
    const CJavaBytes value(env, text);
    SetError(env, self, value.IsHere() ? MifHardWriteItem(handle, item, value.Get()) : value.Code());
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_writeHardDynItem(JNIEnv* env, jobject self,
                                                                                      jint handle, jint item,
                                                                                      jstring text) {
    const CJavaBytes value(env, text);
    SetError(env, self, value.IsHere() ? MifHardWriteDynItem(handle, item, value.Get()) : value.Code());
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
    const CJavaBytes value(env, date);
    const CJavaBytes layout(env, format);
    const int code = FirstFailure(value, layout);
    SetError(env, self, code == TABVEX_OK ? MifWriteDateItem(handle, item, layout.Get(), value.Get()) : code);
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_clearItem(JNIEnv* env, jobject self, jint handle,
                                                                               jint item) {
    SetError(env, self, MifClearItem(handle, item));
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_destroyRecords(JNIEnv* env, jobject self,
                                                                                    jint handle, jstring type) {
    const CJavaBytes key(env, type);
    if (key.IsHere()) {
        MifDestroyRecords(handle, key.Get());
    }
    SetError(env, self, key.Code());
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
    const CJavaBytes key(env, type);
    const CJavaBytes text(env, line);
    const int code = FirstFailure(key, text);
    SetError(env, self, code == TABVEX_OK ? MifSetCompleteRecord(handle, key.Get(), text.Get(), text.Size()) : code);
}

JNIEXPORT jint JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_findFirst(JNIEnv* env, jobject self, jint handle,
                                                                               jint item, jstring text) {
    const CJavaBytes sought(env, text);
    const int result = sought.IsHere() ? MifFindFirst(handle, item, sought.Get()) : sought.Code();
    SetError(env, self, result);
    return sought.IsNull() ? 0 : result;
}

JNIEXPORT jint JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_findNext(JNIEnv* env, jobject self, jint handle) {
    const int result = MifFindNext(handle);
    SetError(env, self, result);
    return result;
}

JNIEXPORT jchar JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_setDelimiter(JNIEnv* env, jobject self,
                                                                                   jint handle, jchar delimiter) {
    const char previous = MifSetDelimiter(handle, static_cast<char>(delimiter));
    SetError(env, self, TABVEX_OK);
    return static_cast<unsigned char>(previous);
}

JNIEXPORT jobject JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readX4Mutation(JNIEnv* env, jobject self,
                                                                                       jint handle, jint index) {
    CMutationTexts texts;
    const int result = MifReadX4Mutation(handle, index, texts.szCode, CMutationTexts::kSize, &texts.fValue,
                                         texts.szText1, CMutationTexts::kSize, texts.szText2, CMutationTexts::kSize);
    // Why a read failed is not told: kept on purpose.
    return ReportMutation(env, self, kX4Mutation, result == TABVEX_OK ? &texts : nullptr);
}

JNIEXPORT jobject JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readG9Mutation(JNIEnv* env, jobject self,
                                                                                       jint handle, jint index) {
    CMutationTexts texts;
    const int result = MifReadG9Mutation(handle, index, texts.szCode, CMutationTexts::kSize, &texts.fValue,
                                         texts.szText1, CMutationTexts::kSize, texts.szText2, CMutationTexts::kSize);
    // Why a read failed is not told: kept on purpose.
    return ReportMutation(env, self, kG9Mutation, result == TABVEX_OK ? &texts : nullptr);
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_addX4Mutation(JNIEnv* env, jobject self,
                                                                                   jint handle, jstring text) {
    const CJavaBytes mutation(env, text);
    SetError(env, self, mutation.IsHere() ? MifAddX4Mutation(handle, mutation.Get()) : mutation.Code());
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_addG9Mutation(JNIEnv* env, jobject self,
                                                                                   jint handle, jstring text) {
    const CJavaBytes mutation(env, text);
    SetError(env, self, mutation.IsHere() ? MifAddG9Mutation(handle, mutation.Get()) : mutation.Code());
}

JNIEXPORT jint JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_getX4MutationsCount(JNIEnv* env, jobject self,
                                                                                         jint handle) {
    const int result = MifGetX4MutationsCount(handle);
    SetError(env, self, result);
    return result;
}

JNIEXPORT jint JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_getG9MutationsCount(JNIEnv* env, jobject self,
                                                                                         jint handle) {
    const int result = MifGetG9MutationsCount(handle);
    SetError(env, self, result);
    return result;
}

JNIEXPORT jint JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_deleteX4Mutations(JNIEnv* env, jobject self,
                                                                                       jint handle) {
    const int result = MifDeleteX4Mutations(handle);
    SetError(env, self, result);
    return result;
}

JNIEXPORT jint JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_deleteG9Mutations(JNIEnv* env, jobject self,
                                                                                       jint handle) {
    const int result = MifDeleteG9Mutations(handle);
    SetError(env, self, result);
    return result;
}

JNIEXPORT jint JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_deleteX4Mutation(JNIEnv* env, jobject self,
                                                                                      jint handle, jstring code) {
    const CJavaBytes text(env, code);
    const int result = text.IsHere() ? MifDeleteOneX4Mutation(handle, text.Get()) : text.Code();
    SetError(env, self, result);
    return text.IsNull() ? 0 : result;
}

JNIEXPORT jint JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_deleteG9Mutation(JNIEnv* env, jobject self,
                                                                                      jint handle, jstring code) {
    const CJavaBytes text(env, code);
    const int result = text.IsHere() ? MifDeleteOneG9Mutation(handle, text.Get()) : text.Code();
    SetError(env, self, result);
    return text.IsNull() ? 0 : result;
}

JNIEXPORT jboolean JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_useX4New(JNIEnv* env, jobject self,
                                                                                  jint handle, jboolean flag) {
    const int result = MifUseX4New(handle, flag);
    SetError(env, self, result);
    return static_cast<jboolean>(result > 0);
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_setMutationList(JNIEnv* env, jobject self,
                                                                                     jint handle, jstring kind,
                                                                                     jstring list) {
    const CJavaBytes type(env, kind);
    const CJavaBytes codes(env, list);
    const int code = FirstFailure(type, codes);
    if (code != TABVEX_OK) {
        SetError(env, self, code);
        return;
    }
    WithRecords(handle, [&](CAllRecordsEx& r) { r.SetMutationList(type.Get(), codes.Get()); });
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_setRepairMethodList(JNIEnv* env, jobject self,
                                                                                         jint handle, jstring kind,
                                                                                         jstring list) {
    const CJavaBytes type(env, kind);
    const CJavaBytes codes(env, list);
    const int code = FirstFailure(type, codes);
    if (code != TABVEX_OK) {
        SetError(env, self, code);
        return;
    }
    WithRecords(handle, [&](CAllRecordsEx& r) { r.SetRepairMethodList(type.Get(), codes.Get()); });
}

JNIEXPORT jbyteArray JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readCharItemBytes(JNIEnv* env, jobject self,
                                                                                             jint handle, jint item) {
    char text[kLongestItem] = "";
    const int result = MifReadCharItem(handle, item, text, sizeof text);
    return ReportBytes(env, self, result, result == TABVEX_OK ? text : nullptr);
}

JNIEXPORT jbyteArray JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_readItemBytes(JNIEnv* env, jobject self,
                                                                                         jint handle, jint item) {
    char text[kLongestItem] = "";
    const int result = MifReadItem(handle, item, text, sizeof text);
    return ReportBytes(env, self, result, result == TABVEX_OK ? text : nullptr);
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_writeCharItemBytes(JNIEnv* env, jobject self,
                                                                                        jint handle, jint item,
                                                                                        jbyteArray text) {
    const CJavaBytes value(env, text);
    SetError(env, self, value.IsHere() ? MifWriteCharItem(handle, item, value.Get()) : value.Code());
}

JNIEXPORT void JNICALL Java_de_quorvil_application_tabvex_TabVexImpl_writeItemBytes(JNIEnv* env, jobject self,
                                                                                    jint handle, jint item,
                                                                                    jbyteArray text) {
    const CJavaBytes value(env, text);
    SetError(env, self, value.IsHere() ? MifWriteItem(handle, item, value.Get()) : value.Code());
}

} // extern "C"
