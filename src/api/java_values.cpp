#include "api/java_values.h"

#include <climits>
#include <cstring>
#include <limits>
#include <new>
#include <string>

#include "platform/guard.h"

namespace tabvex {

namespace {

using Byte = unsigned char;

// Bytes of modified UTF-8: those that begin a character of two and of three bytes, and those that continue one. A mask
// leaves of a byte what tells which it is.
constexpr Byte kLead2 = 0xC0;
constexpr Byte kLead2Mask = 0xE0;
constexpr Byte kLead3 = 0xE0;
constexpr Byte kLead3Mask = 0xF0;
constexpr Byte kContinuation = 0x80;
constexpr Byte kContinuedBits = 0x3F;
constexpr int kBitsContinued = 6;

// Up to these a character is longer than it needs to be: the first byte of two, the second of three behind kLead3.
constexpr Byte kLastTooLongLead2 = 0xC1;
constexpr Byte kLastTooLongSecond = 0x9F;

constexpr std::size_t kLongestText = INT_MAX - 1; // the terminator is counted, too

static_assert(std::numeric_limits<jfloat>::is_iec559, "a double beyond a float's range becomes an infinity");

bool Continues(char c) {
    return (static_cast<Byte>(c) & ~kContinuedBits) == kContinuation;
}

/// Length of the modified UTF-8 character at `text`; 0 when there is none. Only the NUL may be longer than it needs to
/// be, and there are no characters of four bytes: they are written as two surrogates of three each.
std::size_t CharacterLength(const char* text) {
    const Byte lead = static_cast<Byte>(text[0]);
    if (lead < kContinuation) {
        return 1;
    }
    if ((lead & kLead2Mask) == kLead2 && Continues(text[1])) {
        const bool isNul = lead == kLead2 && static_cast<Byte>(text[1]) == kContinuation;
        return isNul || lead > kLastTooLongLead2 ? 2 : 0;
    }
    if ((lead & kLead3Mask) == kLead3 && Continues(text[1]) && Continues(text[2])) {
        return lead > kLead3 || static_cast<Byte>(text[1]) > kLastTooLongSecond ? 3 : 0;
    }
    return 0;
}

/// The text with every byte that belongs to no modified UTF-8 character turned into the character of its number: the
/// virtual machine must be given nothing else, and may end the process when it is.
std::string ToModifiedUtf8(const char* text) {
    std::string valid;
    while (*text != '\0') {
        const std::size_t length = CharacterLength(text);
        if (length > 0) {
            valid.append(text, length);
        } else {
            const Byte number = static_cast<Byte>(*text);
            valid.push_back(static_cast<char>(kLead2 | (number >> kBitsContinued)));
            valid.push_back(static_cast<char>(kContinuation | (number & kContinuedBits)));
        }
        text += length > 0 ? length : 1;
    }
    return valid;
}

jstring NewText(JNIEnv* env, const char* text) {
    jstring made = nullptr;
    Guarded([&] {
        made = env->NewStringUTF(ToModifiedUtf8(text).c_str());
        return TABVEX_OK;
    });
    if (made == nullptr) {
        env->ExceptionClear();
    }
    return made;
}

jbyteArray NewBytes(JNIEnv* env, const char* text) {
    const auto length = static_cast<jsize>(std::strlen(text));
    jbyteArray made = env->NewByteArray(length);
    if (made == nullptr) {
        env->ExceptionClear();
        return nullptr;
    }
    env->SetByteArrayRegion(made, 0, length, reinterpret_cast<const jbyte*>(text));
    return made;
}

jmethodID FindMethod(JNIEnv* env, jobject object, const char* name, const char* signature) {
    jclass type = env->GetObjectClass(object);
    jmethodID method = env->GetMethodID(type, name, signature);
    if (method == nullptr) {
        env->ExceptionClear();
    }
    env->DeleteLocalRef(type);
    return method;
}

/// Calls a method if the object's class has it; false when it threw.
bool CallIfThere(JNIEnv* env, jobject object, const char* name, const char* signature, jvalue argument) {
    jmethodID method = FindMethod(env, object, name, signature);
    if (method == nullptr) {
        return true;
    }
    env->CallVoidMethodA(object, method, &argument);
    return env->ExceptionCheck() == JNI_FALSE;
}

/// False when the setter threw or there is no memory for the text.
bool SetText(JNIEnv* env, jobject object, const char* setter, const char* text) {
    jvalue argument;
    argument.l = NewText(env, text);
    return argument.l != nullptr && CallIfThere(env, object, setter, "(Ljava/lang/String;)V", argument);
}

bool SetValue(JNIEnv* env, jobject object, double value) {
    jvalue argument;
    argument.f = static_cast<jfloat>(value);
    return CallIfThere(env, object, "setValue", "(F)V", argument);
}

bool FillMutation(JNIEnv* env, jobject object, const CMutationTexts& mutation) {
    return SetText(env, object, "setCode", mutation.szCode) && SetValue(env, object, mutation.fValue) &&
           SetText(env, object, "setSubtype", mutation.szText1) &&
           SetText(env, object, "setSubtypeAV", mutation.szText2);
}

/// An object of the class, made without a constructor; null when the class is missing or takes no objects.
jobject NewObject(JNIEnv* env, const char* className) {
    jclass type = env->FindClass(className);
    jobject made = type == nullptr ? nullptr : env->AllocObject(type);
    if (made == nullptr) {
        env->ExceptionClear();
    }
    return made;
}

template <typename Value>
Value Report(JNIEnv* env, jobject object, int result, const char* text, Value (*make)(JNIEnv*, const char*)) {
    Value made = text == nullptr ? nullptr : make(env, text);
    SetError(env, object, text != nullptr && made == nullptr ? TABVEX_INTERNAL_FAILURE : result);
    return made;
}

} // namespace

CJavaBytes::CJavaBytes(JNIEnv* env, jstring text) {
    if (text == nullptr) {
        m_nCode = TABVEX_BAD_ARGUMENT;
        return;
    }
    const char* chars = env->GetStringUTFChars(text, nullptr);
    if (chars == nullptr) {
        env->ExceptionClear();
        return;
    }
    if (Allocate(std::strlen(chars))) { // modified UTF-8 has no byte of 0 in it
        std::memcpy(Get(), chars, static_cast<std::size_t>(m_nLength));
    }
    env->ReleaseStringUTFChars(text, chars);
}

CJavaBytes::CJavaBytes(JNIEnv* env, jbyteArray bytes) {
    if (bytes == nullptr) {
        m_nCode = TABVEX_BAD_ARGUMENT;
        return;
    }
    if (Allocate(static_cast<std::size_t>(env->GetArrayLength(bytes)))) {
        env->GetByteArrayRegion(bytes, 0, m_nLength, reinterpret_cast<jbyte*>(Get()));
    }
}

bool CJavaBytes::Allocate(std::size_t length) {
    if (length > kLongestText) {
        return false;
    }
    m_pBytes.reset(new (std::nothrow) char[length + 1]);
    if (m_pBytes == nullptr) {
        return false;
    }
    m_pBytes[length] = '\0';
    m_nLength = static_cast<int>(length);
    m_nCode = TABVEX_OK;
    return true;
}

void SetError(JNIEnv* env, jobject object, int code) {
    jvalue argument;
    argument.i = code;
    CallIfThere(env, object, "setError", "(I)V", argument);
}

jstring ReportText(JNIEnv* env, jobject object, int result, const char* text) {
    return Report(env, object, result, text, NewText);
}

jbyteArray ReportBytes(JNIEnv* env, jobject object, int result, const char* text) {
    return Report(env, object, result, text, NewBytes);
}

jobject ReportMutation(JNIEnv* env, jobject object, const char* className, const CMutationTexts* mutation) {
    jobject made = mutation == nullptr ? nullptr : NewObject(env, className);
    const bool failed = made != nullptr && !FillMutation(env, made, *mutation);
    if (failed && env->ExceptionCheck() != JNI_FALSE) {
        return nullptr; // a setter threw
    }
    SetError(env, object, failed ? TABVEX_INTERNAL_FAILURE : TABVEX_OK);
    return failed ? nullptr : made;
}

} // namespace tabvex
