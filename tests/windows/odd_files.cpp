#include "support/odd_files.h"

#include <atomic>
#include <stdexcept>
#include <thread>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

// Here nothing can be opened that fails on its own: this is a pipe whose other end goes away as soon as it is opened.
class CFailingPipe {
public:
    CFailingPipe(std::string name, DWORD direction)
        : m_strName(std::move(name)), m_nDirection(direction), m_Next(NewEnd()), m_Server([this] { Serve(); }) {}
    ~CFailingPipe() {
        m_bEnding = true;
        const DWORD access = m_nDirection == PIPE_ACCESS_INBOUND ? GENERIC_WRITE : GENERIC_READ;
        const HANDLE last = ::CreateFileA(m_strName.c_str(), access, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        m_Server.join();
        ::CloseHandle(last);
        ::CloseHandle(m_Next);
    }
    CFailingPipe(const CFailingPipe&) = delete;
    CFailingPipe& operator=(const CFailingPipe&) = delete;

private:
    HANDLE NewEnd() const {
        const HANDLE end = ::CreateNamedPipeA(m_strName.c_str(), m_nDirection, PIPE_TYPE_BYTE | PIPE_WAIT,
                                              PIPE_UNLIMITED_INSTANCES, 0, 0, 0, nullptr);
        if (end == INVALID_HANDLE_VALUE) {
            throw std::runtime_error("no pipe " + m_strName);
        }
        return end;
    }

    // There is an end to open at any time.
    void Serve() {
        while (!m_bEnding) {
            const HANDLE end = m_Next;
            ::ConnectNamedPipe(end, nullptr);
            m_Next = NewEnd();
            ::DisconnectNamedPipe(end);
            ::CloseHandle(end);
        }
    }

    std::string m_strName;
    DWORD m_nDirection;
    HANDLE m_Next;
    std::atomic<bool> m_bEnding = false;
    std::thread m_Server; // last, as it uses the others
};

namespace {

std::string NewPipeName() {
    static std::atomic<int> number = 0;
    return R"(\\.\pipe\tabvex-test-)" + std::to_string(::GetCurrentProcessId()) + "-" + std::to_string(++number);
}

} // namespace

CUnreadableFile::CUnreadableFile()
    : m_strName(NewPipeName()), m_pPipe(std::make_unique<CFailingPipe>(m_strName, PIPE_ACCESS_OUTBOUND)) {}
CUnreadableFile::~CUnreadableFile() = default;

CFullFile::CFullFile()
    : m_strName(NewPipeName()), m_pPipe(std::make_unique<CFailingPipe>(m_strName, PIPE_ACCESS_INBOUND)) {}
CFullFile::~CFullFile() = default;
