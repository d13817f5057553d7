// What the compiler's run time asks of POSIX threads, so that the library can be unloaded without a trace.
//
// The run time needs these few functions to hold the exceptions in flight of each thread and to build static objects
// once. The compiler's own thread library keeps a slot of every thread's storage, handles and memory when the library
// that holds it goes, and a process has about a thousand such slots. Anything more that is asked for one day fails to
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

DWORD g_nKey = FLS_OUT_OF_INDEXES; // the run time makes one key
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

// Runs behind every other destructor. Frees the values of all threads.
__attribute__((destructor(101))) void ReleaseRuntime() {
    if (g_nKey != FLS_OUT_OF_INDEXES) {
        ::FlsFree(g_nKey);
        g_nKey = FLS_OUT_OF_INDEXES;
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

int pthread_once(pthread_once_t* once, void (*function)()) {
    long before = kNotBegun;
    while ((before = ::InterlockedCompareExchange(once, kRunning, kNotBegun)) == kRunning) {
        ::Sleep(0); // another thread is at it
    }
    if (before == kNotBegun) {
        function();
        ::InterlockedExchange(once, kDone);
    }
    return 0;
}

int pthread_key_create(pthread_key_t* key, CDestructor destructor) {
    if (g_nKey != FLS_OUT_OF_INDEXES) {
        return EAGAIN;
    }
    g_pDestructor = destructor;
    g_nKey = ::FlsAlloc(DestroyValue);
    *key = g_nKey;
    return g_nKey == FLS_OUT_OF_INDEXES ? EAGAIN : 0;
}

void* pthread_getspecific(pthread_key_t key) {
    const DWORD error = ::GetLastError(); // callers of the system rely on it
    void* const value = ::FlsGetValue(key);
    ::SetLastError(error);
    return value;
}

int pthread_setspecific(pthread_key_t key, const void* value) {
    return ::FlsSetValue(key, const_cast<void*>(value)) != 0 ? 0 : EINVAL; // NOLINT(*-const-cast)
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
