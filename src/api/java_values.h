// What goes between Java and the library: texts and byte arrays in and out, value objects, codes for setError.
//
// No call into Java is made while an exception is pending. One that such a call causes here (no such method, out of
// memory) is taken back; one that a method of the caller's throws is the caller's own and stays pending.
#pragma once

#include <jni.h>

#include <cstddef>
#include <memory>

#include "tabvex/result_codes.h"

namespace tabvex {

/// The copy of a text or byte array that a native method was given, NUL-terminated.
class CJavaBytes {
public:
    /// Takes the modified UTF-8 of a string, as it is.
    CJavaBytes(JNIEnv* env, jstring text);
    CJavaBytes(JNIEnv* env, jbyteArray bytes);

    /// True when there is a copy; otherwise Code tells why not.
    bool IsHere() const { return m_nCode == TABVEX_OK; }
    /// TABVEX_OK; TABVEX_BAD_ARGUMENT for null; TABVEX_INTERNAL_FAILURE without memory, or when Size would pass
    /// INT_MAX.
    int Code() const { return m_nCode; }
    char* Get() const { return m_pBytes.get(); }
    /// Length of the copy with its terminator.
    int Size() const { return m_nLength + 1; }

private:
    bool Allocate(std::size_t length);

    std::unique_ptr<char[]> m_pBytes;
    int m_nLength = 0;
    int m_nCode = TABVEX_INTERNAL_FAILURE;
};

/// Calls setError(code) of an object; does nothing when its class has no such method.
void SetError(JNIEnv* env, jobject object, int code);

/// Makes the Java value of a text, then reports the result: the value, or null when there is no text (null), or no
/// memory for it, which is reported as TABVEX_INTERNAL_FAILURE.
jstring ReportText(JNIEnv* env, jobject object, int result, const char* text);
jbyteArray ReportBytes(JNIEnv* env, jobject object, int result, const char* text);

/// A mutation, as the reading function fills it in.
struct CMutationTexts {
    static constexpr int kSize = 16; // a text of exactly this size fits

    char szCode[kSize + 1] = "";
    double fValue = 0;
    char szText1[kSize + 1] = "";
    char szText2[kSize + 1] = "";
};

/// Makes an object of a mutation class and reports TABVEX_OK: null when there is no mutation (null) or no such class.
/// Nothing is reported when one of the object's setters throws.
jobject ReportMutation(JNIEnv* env, jobject object, const char* className, const CMutationTexts* mutation);

} // namespace tabvex
