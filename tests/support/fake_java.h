// A Java virtual machine as far as native methods see one: it keeps strings, byte arrays and what setError is told,
// runs out of memory when asked to, and fails the test on any call that is made while an exception is pending.
#pragma once

#include <jni.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tabvex_test {

class CFakeJava {
public:
    CFakeJava();
    ~CFakeJava();
    CFakeJava(const CFakeJava&) = delete;
    CFakeJava& operator=(const CFakeJava&) = delete;

    JNIEnv* Env() { return &m_Env; }
    /// The object that the native methods are called on; its class has setError.
    jobject Self() { return &m_Self; }
    jstring String(const std::string& modifiedUtf8);
    jbyteArray Bytes(const std::string& bytes);
    static std::string TextOf(jobject made);
    /// Byte arrays tell this length from now on, whatever they hold.
    void ClaimLength(int length) { m_nClaimedLength = length; }

    /// The codes that setError was told since the last time this was asked.
    std::vector<int> TakeCodes();
    /// Allocations by the virtual machine go well this many times, then fail with an exception.
    void FailAfter(int allocations) { m_nAllocationsLeft = allocations; }
    bool IsExceptionPending() const { return m_bPending; }
    /// Copies of strings that were handed out and not given back.
    int CopiesOut() const { return m_nCopiesOut; }

private:
    struct CObject : _jobject {
        std::string strText;
    };
    struct CFunctions; // the entries of the function table

    bool Allocate();
    CObject* Make(const std::string& text);

    JNINativeInterface_ m_Functions{};
    JNIEnv_ m_Env{};
    CObject m_Self;
    std::vector<std::unique_ptr<CObject>> m_Objects;
    std::vector<int> m_Codes;
    int m_nAllocationsLeft = 1000;
    int m_nClaimedLength = -1;
    int m_nCopiesOut = 0;
    bool m_bPending = false;
};

} // namespace tabvex_test
