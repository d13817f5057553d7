#include "output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "exit_status.h"
#include "text_encoding.h"
#include "tool_system.h"

namespace tabvex::tool {

namespace {

constexpr std::size_t kPieceSize = std::size_t{1} << 16;

void PrintToStandardError(std::string_view text) noexcept {
    static_cast<void>(std::fwrite(text.data(), 1, text.size(), stderr));
}

} // namespace

COutput::COutput() {
    m_strPending.reserve(2 * kPieceSize);
}

void COutput::Write(std::string_view text) {
    m_strPending.append(text);
    if (m_strPending.size() >= kPieceSize) {
        Flush();
    }
}

void COutput::WriteLine(std::string_view text) {
    m_strPending.append(text);
    Write("\n");
}

void COutput::Flush() {
    errno = 0;
    // The first failure tells why; flushing behind it would tell of another one.
    const bool written = std::fwrite(m_strPending.data(), 1, m_strPending.size(), stdout) == m_strPending.size() &&
                         std::fflush(stdout) == 0;
    const int error = errno;
    const bool closed = !written && IsClosedPipe(error);
    m_strPending.clear();
    if (written) {
        return;
    }
    if (closed) {
        throw CClosedPipe();
    }
    throw CToolError(std::string("cannot write the output: ") + std::strerror(error)); // NOLINT(concurrency-mt-unsafe)
}

void PrintMessage(std::string_view message) noexcept {
    PrintToStandardError("tabvex: ");
    PrintToStandardError(message);
    PrintToStandardError("\n");
}

void PrintFindings(std::string_view fileName, const CFindings& findings) {
    for (const CFinding& finding : findings) {
        std::string text(fileName);
        text.append(":");
        if (finding.Line > 0) {
            text.append(std::to_string(finding.Line)).append(":");
        }
        PrintToStandardError(text.append(" ").append(EscapeControls(finding.Text)).append("\n"));
    }
}

} // namespace tabvex::tool
