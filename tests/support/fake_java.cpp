#include "support/fake_java.h"

#include <gtest/gtest.h>

#include <cstring>

namespace tabvex_test {

namespace {

CFakeJava* g_pJava = nullptr; // the functions of the table are told the JNIEnv only

struct CSetter {
    const char* Name;
    const char* Signature;
};
constexpr CSetter kSetters[] = {{"setError", "(I)V"},
                                {"setCode", "(Ljava/lang/String;)V"},
                                {"setValue", "(F)V"},
                                {"setSubtype", "(Ljava/lang/String;)V"},
                                {"setSubtypeAV", "(Ljava/lang/String;)V"}};

} // namespace

struct CFakeJava::CFunctions {
    static CFakeJava& Java() {
        EXPECT_FALSE(g_pJava->m_bPending) << "called while an exception is pending";
        return *g_pJava;
    }
    template <typename Type>
    static std::string& Text(Type object) {
        return static_cast<CObject*>(static_cast<jobject>(object))->strText;
    }

    static const char* JNICALL GetStringUTFChars(JNIEnv*, jstring text, jboolean*) {
        if (!Java().Allocate()) {
            return nullptr;
        }
        ++g_pJava->m_nCopiesOut;
        return Text(text).c_str();
    }
    static void JNICALL ReleaseStringUTFChars(JNIEnv*, jstring, const char*) { --Java().m_nCopiesOut; }
    static jstring JNICALL NewStringUTF(JNIEnv*, const char* text) {
        return Java().Allocate() ? static_cast<jstring>(static_cast<jobject>(g_pJava->Make(text))) : nullptr;
    }

    static jsize JNICALL GetArrayLength(JNIEnv*, jarray array) {
        return Java().m_nClaimedLength >= 0 ? g_pJava->m_nClaimedLength : static_cast<jsize>(Text(array).size());
    }
    static void JNICALL GetByteArrayRegion(JNIEnv*, jbyteArray array, jsize start, jsize length, jbyte* buffer) {
        Java();
        std::memcpy(buffer, Text(array).data() + start, static_cast<std::size_t>(length));
    }
    static jbyteArray JNICALL NewByteArray(JNIEnv*, jsize length) {
        const std::string blank(static_cast<std::size_t>(length), '?');
        return Java().Allocate() ? static_cast<jbyteArray>(static_cast<jobject>(g_pJava->Make(blank))) : nullptr;
    }
    static void JNICALL SetByteArrayRegion(JNIEnv*, jbyteArray array, jsize start, jsize length, const jbyte* buffer) {
        Java();
        std::memcpy(&Text(array)[static_cast<std::size_t>(start)], buffer, static_cast<std::size_t>(length));
    }

    static jclass JNICALL FindClass(JNIEnv*, const char* name) {
        return Java().Allocate() ? static_cast<jclass>(static_cast<jobject>(g_pJava->Make(name))) : nullptr;
    }
    static jclass JNICALL GetObjectClass(JNIEnv*, jobject object) {
        Java();
        return static_cast<jclass>(object);
    }
    static jobject JNICALL AllocObject(JNIEnv*, jclass type) {
        return Java().Allocate() ? g_pJava->Make("object of " + Text(type)) : nullptr;
    }
    static jmethodID JNICALL GetMethodID(JNIEnv*, jclass, const char* name, const char* signature) {
        Java();
        for (const CSetter& setter : kSetters) {
            if (std::strcmp(setter.Name, name) == 0 && std::strcmp(setter.Signature, signature) == 0) {
                return reinterpret_cast<jmethodID>(const_cast<CSetter*>(&setter));
            }
        }
        g_pJava->m_bPending = true;
        return nullptr;
    }
    static void JNICALL CallVoidMethodA(JNIEnv*, jobject object, jmethodID method, const jvalue* arguments) {
        Java();
        const std::string setter = reinterpret_cast<const CSetter*>(method)->Name;
        if (setter == "setError") {
            g_pJava->m_Codes.push_back(arguments[0].i);
        } else if (setter == "setValue") {
            Text(object) += ", " + std::to_string(static_cast<int>(arguments[0].f));
        } else {
            Text(object) += ", " + Text(arguments[0].l);
        }
    }

    static void JNICALL DeleteLocalRef(JNIEnv*, jobject) { Java(); }
    static jboolean JNICALL ExceptionCheck(JNIEnv*) { return static_cast<jboolean>(g_pJava->m_bPending); }
    static void JNICALL ExceptionClear(JNIEnv*) { g_pJava->m_bPending = false; }
};

CFakeJava::CFakeJava() {
    g_pJava = this;
    m_Env.functions = &m_Functions;
    m_Functions.GetStringUTFChars = CFunctions::GetStringUTFChars;
    m_Functions.ReleaseStringUTFChars = CFunctions::ReleaseStringUTFChars;
    m_Functions.NewStringUTF = CFunctions::NewStringUTF;
    m_Functions.GetArrayLength = CFunctions::GetArrayLength;
    m_Functions.GetByteArrayRegion = CFunctions::GetByteArrayRegion;
    m_Functions.NewByteArray = CFunctions::NewByteArray;
    m_Functions.SetByteArrayRegion = CFunctions::SetByteArrayRegion;
    m_Functions.FindClass = CFunctions::FindClass;
    m_Functions.GetObjectClass = CFunctions::GetObjectClass;
    m_Functions.AllocObject = CFunctions::AllocObject;
    m_Functions.GetMethodID = CFunctions::GetMethodID;
    m_Functions.CallVoidMethodA = CFunctions::CallVoidMethodA;
    m_Functions.DeleteLocalRef = CFunctions::DeleteLocalRef;
    m_Functions.ExceptionCheck = CFunctions::ExceptionCheck;
    m_Functions.ExceptionClear = CFunctions::ExceptionClear;
}

CFakeJava::~CFakeJava() {
    g_pJava = nullptr;
}

bool CFakeJava::Allocate() {
    m_bPending = m_nAllocationsLeft-- <= 0;
    return !m_bPending;
}

CFakeJava::CObject* CFakeJava::Make(const std::string& text) {
    m_Objects.push_back(std::make_unique<CObject>());
    m_Objects.back()->strText = text;
    return m_Objects.back().get();
}

jstring CFakeJava::String(const std::string& modifiedUtf8) {
    return static_cast<jstring>(static_cast<jobject>(Make(modifiedUtf8)));
}

jbyteArray CFakeJava::Bytes(const std::string& bytes) {
    return static_cast<jbyteArray>(static_cast<jobject>(Make(bytes)));
}

std::string CFakeJava::TextOf(jobject made) {
    return made == nullptr ? "null" : CFunctions::Text(made);
}

std::vector<int> CFakeJava::TakeCodes() {
    std::vector<int> taken;
    taken.swap(m_Codes);
    return taken;
}

} // namespace tabvex_test
