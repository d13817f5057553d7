// What the compiler's run time asks of POSIX threads, so that the library can be unloaded without a trace.
//
// The run time needs these few functions to hold the exceptions in flight of each thread and to build static objects
// once. The compiler's own thread library keeps a slot of every thread's storage, handles and memory when the library
// that holds it goes, and a process has no more than 1,088 such slots. Anything more that is asked for one day fails to
// link, as the names below would then be there twice.
#include <cerrno>
#include <cstdint>
#include <pthread.h>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace __gnu_cxx {
void __freeres(); // gives back the memory that is set aside for exceptions when there is no other
}

namespace {

enum EOnce : long { kNotBegun = 0, kRunning = 1, kDone = 2 };

using CDestructor = void (*)(void*);

// The run time makes one key. Its slot is one whose values the system frees with their threads and with the slot; older
// versions of the system have 128 of them, and when they are used up it is one of the other kind.
constexpr DWORD kNoSlot = FLS_OUT_OF_INDEXES;
static_assert(kNoSlot == TLS_OUT_OF_INDEXES, "the same for both kinds");
DWORD g_nKey = kNoSlot;
bool g_bPlainSlot = false;
CDestructor g_pDestructor = nullptr;

void WINAPI DestroyValue(void* value) {
    if (value != nullptr && g_pDestructor != nullptr) {
        g_pDestructor(value);
    }
}

// Objects made by an initializer hold a number from -3 to -1, one for each kind; the system's own begin with null.
template <typename SystemObject>
SystemObject* SystemObjectIn(std::intptr_t* object) {
    static_assert(sizeof(SystemObject) == sizeof(std::intptr_t), "it is kept in place");
    auto* const place = reinterpret_cast<void* volatile*>(object); // NOLINT(*-reinterpret-cast)
    for (std::intptr_t kind = -3; kind < 0; ++kind) {
        // NOLINTNEXTLINE(*-reinterpret-cast,performance-no-int-to-ptr)
        ::InterlockedCompareExchangePointer(place, nullptr, reinterpret_cast<void*>(kind));
    }
    return reinterpret_cast<SystemObject*>(object); // NOLINT(*-reinterpret-cast)
}

// What the system does not do for a slot of the other kind.
void DestroyPlainValue() {
    if (g_bPlainSlot && g_nKey != kNoSlot) {
        void* const value = ::TlsGetValue(g_nKey);
        ::TlsSetValue(g_nKey, nullptr);
        DestroyValue(value);
    }
}

// Runs behind every other destructor. Frees the values of all threads; those in a plain slot are out of reach, but for
// this thread's.
__attribute__((destructor(101))) void ReleaseRuntime() {
    DestroyPlainValue();
    if (g_nKey != kNoSlot) {
        static_cast<void>(g_bPlainSlot ? ::TlsFree(g_nKey) : ::FlsFree(g_nKey));
        g_nKey = kNoSlot;
    }
    __gnu_cxx::__freeres();
}

} // namespace

#ifdef __i386__
// The compiler's start file would hand the tables for exceptions to a shared run time that the caller may have
// loaded; this library throws with its own.
namespace {
HMODULE WINAPI NoModule(LPCSTR /*name*/) {
    return nullptr;
}
} // namespace

extern "C" {
// What an import of the function would define.
extern HMODULE(WINAPI* const g_pNoModule)(LPCSTR) __asm__("__imp__GetModuleHandleA@4");
HMODULE(WINAPI* const g_pNoModule)(LPCSTR) = NoModule;
}
#endif

extern "C" {

// The start file calls it when the library has come and before it goes, and for every thread that ends between.
BOOL WINAPI DllMain(HINSTANCE /*library*/, DWORD reason, LPVOID /*reserved*/) {
    if (reason == DLL_THREAD_DETACH) {
        DestroyPlainValue();
    }
    return TRUE;
}

int pthread_once(pthread_once_t* once, void (*function)()) {
    long before = kNotBegun;
    while ((before = ::InterlockedCompareExchange(once, kRunning, kNotBegun)) == kRunning) {
        ::Sleep(1); // another thread is at it, maybe one of lower priority
    }
    if (before != kNotBegun) {
        return 0;
    }
    try {
        function();
    } catch (...) {
        ::InterlockedExchange(once, kNotBegun); // the next one tries again
        throw;
    }
    ::InterlockedExchange(once, kDone);
    return 0;
}

int pthread_key_create(pthread_key_t* key, CDestructor destructor) {
    if (g_nKey != kNoSlot) {
        return EAGAIN;
    }
    g_pDestructor = destructor;
    g_nKey = ::FlsAlloc(DestroyValue);
    g_bPlainSlot = g_nKey == kNoSlot;
    if (g_bPlainSlot) {
        g_nKey = ::TlsAlloc();
    }
    *key = g_nKey;
    return g_nKey == kNoSlot ? EAGAIN : 0;
}

void* pthread_getspecific(pthread_key_t key) {
    const DWORD error = ::GetLastError(); // callers of the system rely on it
    void* const value = g_bPlainSlot ? ::TlsGetValue(key) : ::FlsGetValue(key);
    ::SetLastError(error);
    return value;
}

int pthread_setspecific(pthread_key_t key, const void* value) {
    void* const stored = const_cast<void*>(value); // NOLINT(*-const-cast)
    return (g_bPlainSlot ? ::TlsSetValue(key, stored) : ::FlsSetValue(key, stored)) != 0 ? 0 : EINVAL;
}

int pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t* /*attributes*/) {
    *mutex = 0;
    return 0;
}

int pthread_mutex_destroy(pthread_mutex_t* /*mutex*/) {
    return 0;
}

int pthread_mutex_lock(pthread_mutex_t* mutex) {
    ::AcquireSRWLockExclusive(SystemObjectIn<SRWLOCK>(mutex));
    return 0;
}

int pthread_mutex_unlock(pthread_mutex_t* mutex) {
    ::ReleaseSRWLockExclusive(SystemObjectIn<SRWLOCK>(mutex));
    return 0;
}

int pthread_cond_wait(pthread_cond_t* condition, pthread_mutex_t* mutex) {
    ::SleepConditionVariableSRW(SystemObjectIn<CONDITION_VARIABLE>(condition), SystemObjectIn<SRWLOCK>(mutex), INFINITE,
                                0);
    return 0;
}

int pthread_cond_broadcast(pthread_cond_t* condition) {
    ::WakeAllConditionVariable(SystemObjectIn<CONDITION_VARIABLE>(condition));
    return 0;
}

} // extern "C"
