#include "record_file.h"

#include <algorithm>

#include "file_bytes.h"
#include "tabvex/all_records.h"
#include "text_layout.h"

namespace tabvex::tool {

namespace {

constexpr std::size_t kRecordLength = 128;
constexpr std::string_view kCrLf = "\r\n";

bool BeginsWithCrLf(std::string_view bytes) {
    return bytes.size() >= kRecordLength + kCrLf.size() && bytes.substr(kRecordLength, kCrLf.size()) == kCrLf;
}

// V records are the ones that are passed on in lines of their own length.
bool LooksLikeLines(std::string_view bytes) {
    const std::size_t lf = bytes.substr(0, kRecordLength + 1).find('\n');
    return !bytes.empty() && bytes.front() == 'V' && lf != std::string_view::npos;
}

// A record keeps a line up to its first NUL and never more than it has room for.
bool IsSameLine(std::string_view stored, std::string_view line) {
    const std::size_t length = std::min(line.find('\0'), line.size());
    return stored == line.substr(0, std::min(stored.size(), length)) &&
           (stored.size() == length || stored.size() >= kRecordLength);
}

} // namespace

CRecordFile::CRecordFile(std::string fileName, EFileForm form)
    : m_strName(std::move(fileName)), m_strBytes(ReadFileBytes(m_strName)), m_bCrLf(BeginsWithCrLf(m_strBytes)) {
    m_bFixed = form == EFileForm::Fixed || (form == EFileForm::Auto && (m_bCrLf || !LooksLikeLines(m_strBytes)));
    if (m_bFixed) {
        SplitRecords();
    } else {
        SplitLines();
    }
}

void CRecordFile::SplitRecords() {
    const std::size_t step = m_bCrLf ? kRecordLength + kCrLf.size() : kRecordLength;
    std::string_view rest = m_strBytes;
    while (!rest.empty()) {
        m_Lines.push_back(rest.substr(0, kRecordLength));
        rest.remove_prefix(std::min(step, rest.size()));
    }
    const bool whole = m_Lines.empty() || m_Lines.back().size() == kRecordLength;
    m_nLinesRead = m_Lines.size() - (whole ? 0 : 1);
}

void CRecordFile::SplitLines() {
    std::string_view rest = m_strBytes;
    while (!rest.empty()) {
        const std::size_t lf = std::min(rest.find('\n'), rest.size());
        std::string_view line = rest.substr(0, lf);
        if (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        m_Lines.push_back(line);
        rest.remove_prefix(std::min(lf + 1, rest.size()));
    }
    const auto end = std::find_if(m_Lines.begin(), m_Lines.end(),
                                  [](std::string_view line) { return line.empty() || line.front() == '\r'; });
    m_nLinesRead = static_cast<std::size_t>(end - m_Lines.begin());
}

std::string_view CRecordFile::GetLine(int number) const {
    return number < 1 || number > GetLineCount() ? std::string_view() : m_Lines[static_cast<std::size_t>(number) - 1];
}

CFindings CRecordFile::Check() const {
    CFindings findings;
    if (m_bFixed && m_bCrLf) {
        CheckSeparators(findings);
    }
    if (m_bFixed && m_nLinesRead < m_Lines.size()) {
        findings.push_back({GetLineCount() + 1, "the record is cut off: it has " +
                                                    std::to_string(m_Lines.back().size()) +
                                                    " of 128 characters, and is left out"});
    }
    if (!m_bFixed && m_nLinesRead < m_Lines.size()) {
        findings.push_back({GetLineCount() + 1, "reading ends at this empty line; " +
                                                    Counted(m_Lines.size() - m_nLinesRead - 1, "line") +
                                                    " behind it left out"});
    }
    return findings;
}

// The last record may do without a separator.
void CRecordFile::CheckSeparators(CFindings& findings) const {
    for (std::size_t i = 0; i + 1 < m_Lines.size(); ++i) {
        const std::string_view line = m_Lines[i];
        if (std::string_view(line.data() + line.size(), kCrLf.size()) != kCrLf) {
            findings.push_back({static_cast<int>(i) + 1, "no CR LF behind the record; what follows is read misplaced"});
            return;
        }
    }
}

CLineNumbers::CLineNumbers(const CRecordFile& file, const CAllRecords& records)
    : m_Records(records), m_Lines(static_cast<std::size_t>(records.GetRecordCount())) {
    for (int i = 0; i < records.GetRecordCount(); ++i) {
        (records.GetRecord(i)->IsGeneric() ? m_Generic : m_Known).push_back(i);
    }
    for (int number = 1; number <= file.GetLineCount(); ++number) {
        const std::string_view line = file.GetLine(number);
        if (!TakeKnown(line, number) && !TakeGeneric(line, number)) {
            m_Foreign.push_back(number);
        }
    }
}

int CLineNumbers::Get(int index, int line) const {
    const std::vector<int>& lines = GetAll(index);
    return line >= 0 && line < static_cast<int>(lines.size()) ? lines[static_cast<std::size_t>(line)] : 0;
}

// The lines of a record object come in the file's order, so that only the next one of each need be looked at.
bool CLineNumbers::TakeNext(int index, std::string_view line, int number) {
    std::vector<int>& lines = m_Lines[static_cast<std::size_t>(index)];
    const CRecord& record = *m_Records.GetRecord(index);
    const auto next = static_cast<int>(lines.size());
    if (next >= record.GetLineCount() || !IsSameLine(record.GetLine(next), line)) {
        return false;
    }
    lines.push_back(number);
    return true;
}

bool CLineNumbers::TakeKnown(std::string_view line, int number) {
    return std::any_of(m_Known.begin(), m_Known.end(), [&](int index) { return TakeNext(index, line, number); });
}

bool CLineNumbers::TakeGeneric(std::string_view line, int number) {
    if (m_nNextGeneric == m_Generic.size() || !TakeNext(m_Generic[m_nNextGeneric], line, number)) {
        return false;
    }
    ++m_nNextGeneric;
    return true;
}

} // namespace tabvex::tool
