#include "tabvex/record.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "core/line_file.h"
#include "core/record_context.h"
#include "core/record_lines.h"
#include "platform/guard.h"
#include "tabvex/result_codes.h"

using tabvex::kLineRoom;

namespace {

constexpr int kTypeLength = 2;
constexpr int kNoMark = -1;
constexpr std::size_t kFirstLines = 6; // so many numbers fit into the smallest piece of memory

// What a continuation line of a type has other than the header of the line before.
struct CContinuationRule {
    std::string_view Type;
    bool TypeOnly;
    int MarkOffset;
};

// clang-format off
constexpr std::array<CContinuationRule, 7> kContinuationRules = {{
//   type,     type only, mark offset
    {"W3",     true,      kNoMark},
    {"X3",     true,      kNoMark},
    {"V1",     true,      kNoMark},
    {"V2",     true,      kNoMark},
    {"V3",     true,      kNoMark},
    {"X2N",    false,     tabvex::kX2nMarkOffset},
    {"X9_NEU", false,     tabvex::kX9NewMarkOffset},
}};
// clang-format on

CContinuationRule ContinuationRuleOf(std::string_view type) {
    const auto* const rule = std::find_if(kContinuationRules.begin(), kContinuationRules.end(),
                                          [type](const CContinuationRule& row) { return row.Type == type; });
    return rule == kContinuationRules.end() ? CContinuationRule{type, false, kNoMark} : *rule;
}

const std::vector<CItemDef>& NoItems() {
    static const std::vector<CItemDef> none;
    return none;
}

} // namespace

CRecord::CRecord(const char* type, tabvex::CRecordContext& context) : m_Context(context) {
    std::strncpy(m_szType, type, sizeof m_szType - 1);
}

// The lines go back to the pool, or are freed with it, by the record set: destroying all records touches no line.
CRecord::~CRecord() = default;

const char* CRecord::GetType() const {
    return m_szType;
}

bool CRecord::IsGeneric() const {
    return m_bGeneric != 0;
}

int CRecord::GetLineCount() const {
    return static_cast<int>(m_Lines.size());
}

const char* CRecord::GetLine(int index) const {
    return index >= 0 && index < GetLineCount() ? LineAt(index) : "";
}

int CRecord::GetLineLength() const {
    return m_nLineLength;
}

const std::vector<CItemDef>& CRecord::GetLayout() const {
    return *tabvex::Guarded([this] { return &Items(); }, &NoItems());
}

const CItemDef* CRecord::FindItem(int number) const {
    return tabvex::Guarded([&] { return Definition(number); }, nullptr);
}

int CRecord::GetCurrentLine() const {
    return m_nCurLine;
}

int CRecord::GetCurrentOffset() const {
    return m_nCurOffset;
}

int CRecord::PrevEntry(int /*item*/) {
    return TABVEX_ENTRY_NO_STEP_BACK;
}

int CRecord::ReadLast(int /*item*/) {
    return TABVEX_NOT_SUPPORTED;
}

int CRecord::ReadEntry(int /*item*/, std::string& /*text*/) {
    return TABVEX_NOT_SUPPORTED;
}

int CRecord::WriteDynEntry(int /*item*/, std::string_view /*value*/) {
    return TABVEX_NOT_SUPPORTED;
}

int CRecord::FindFirst(int /*item*/, std::string_view /*text*/) {
    return TABVEX_NOT_SUPPORTED;
}

int CRecord::FindNext(int /*item*/, std::string_view /*text*/) {
    return TABVEX_NOT_SUPPORTED;
}

int CRecord::ReadMutation(int /*index*/, bool /*newForm*/, tabvex::CMutation& /*mutation*/) {
    return TABVEX_NOT_SUPPORTED;
}

int CRecord::AddMutation(std::string_view /*text*/) {
    return TABVEX_NOT_SUPPORTED;
}

int CRecord::DeleteOneMutation(std::string_view /*code*/) {
    return TABVEX_NOT_SUPPORTED;
}

int CRecord::DeleteMutations() {
    return TABVEX_NOT_SUPPORTED;
}

int CRecord::GetMutationCount() {
    return TABVEX_NOT_SUPPORTED;
}

int CRecord::PostRead() {
    return TABVEX_ENTRY_CHECK_FAILED;
}

int CRecord::PrepareWrite() {
    return TABVEX_OK;
}

std::size_t CRecord::BufferSize() const {
    return static_cast<std::size_t>(m_nLineLength) + kLineRoom;
}

const std::vector<CItemDef>& CRecord::Items() const {
    return m_pLayout == nullptr ? NoItems() : m_pLayout->GetItems();
}

const CItemDef* CRecord::Definition(int number) const {
    return m_pLayout == nullptr ? nullptr : m_pLayout->Find(number);
}

int CRecord::ParseLine(const char* text) {
    const std::size_t size = BufferSize() - 1;
    if (text != nullptr) {
        return AddLine({text, strnlen(text, size)});
    }
    BeforeLinesChange();
    char* line = NewLine();
    std::memset(line, ' ', size);
    line[size] = '\0';
    return GetLineCount() - 1;
}

int CRecord::AddLine(std::string_view text) {
    BeforeLinesChange();
    AppendLine(text);
    return GetLineCount() - 1;
}

void CRecord::AppendLine(std::string_view text) {
    const std::size_t size = BufferSize();
    char* line = NewLine();
    const std::string_view kept = text.substr(0, std::min(text.find('\0'), size - 1));
    kept.copy(line, kept.size());
    std::memset(line + kept.size(), 0, size - kept.size());
}

int CRecord::AppendContinuationLine(int headerLength) {
    const bool first = m_Lines.empty();
    m_nCurLine = first ? -1 : std::min(m_nCurLine, GetLineCount() - 1);
    const char* model = first ? m_szType : LineAt(m_nCurLine);
    const CContinuationRule rule = ContinuationRuleOf(m_szType);
    const int repeated = rule.TypeOnly || first ? kTypeLength : std::clamp(headerLength - 1, 0, m_nLineLength);
    ParseLine(nullptr);
    std::memcpy(m_pCurLine, model, static_cast<std::size_t>(repeated));
    if (rule.MarkOffset != kNoMark) {
        m_pCurLine[rule.MarkOffset] = tabvex::kNewFormMark;
    }
    ++m_nCurLine;
    m_nCurOffset = headerLength - 1;
    m_nWriteLine = m_nCurLine;
    m_nWriteOffset = m_nCurOffset;
    return TABVEX_OK;
}

void CRecord::ReplaceLastLine(const char* text) {
    BeforeLinesChange();
    std::memcpy(m_pCurLine, text, tabvex::kRecordLength);
    std::memset(m_pCurLine + tabvex::kRecordLength, 0, kLineRoom);
}

int CRecord::HardWrite(const CItemDef& definition, std::string_view text) {
    if (m_Lines.empty()) {
        return TABVEX_ITEM_NO_LINE;
    }
    BeforeLinesChange();
    PutIntoLine(std::min(m_nCurLine, GetLineCount() - 1), OffsetOf(definition), text);
    return TABVEX_OK;
}

int CRecord::FillDefaults() {
    return m_pLayout == nullptr || m_pCurLine == nullptr ? 0 : m_pLayout->FillDefaults(m_pCurLine, m_nLineLength);
}

int CRecord::WriteLines(CLineFile& file, bool crlf) {
    int result = 1;
    const auto write = [&](std::size_t /*index*/, char* line) {
        const int written = file.WriteLine(line, m_nLineLength, crlf);
        std::memcpy(line + m_nLineLength, crlf ? "\r\n" : "\0\0", kLineRoom);
        result = written < 0 ? written : 1;
        return written >= 0;
    };
    tabvex::VisitLines(m_Context.PoolOf(m_nLineLength), m_Lines, static_cast<std::size_t>(m_nLineLength), write);
    return result;
}

void CRecord::AppendLines(std::string& text, bool lf) const {
    for (int index = 0; index < GetLineCount(); ++index) {
        const std::string_view line = CutText(index, 0, tabvex::kRecordLength);
        text.append(line).append(tabvex::kRecordLength - line.size(), ' ');
        if (lf) {
            text.push_back('\n');
        }
    }
}

void CRecord::BeforeLinesChange() {}

void CRecord::AfterCreation() {}

int CRecord::OffsetOf(const CItemDef& definition) {
    return definition.Position < 1 ? -1 : definition.Position - 1;
}

char* CRecord::LineAt(int index) const {
    return m_Context.PoolOf(m_nLineLength).At(m_Lines[static_cast<std::size_t>(index)]);
}

std::string_view CRecord::CutFromLine(int line, int offset, int length) const {
    if (line < 0 || line >= GetLineCount() || offset < 0 || offset >= m_nLineLength || length <= 0) {
        return {};
    }
    return {LineAt(line) + offset, static_cast<std::size_t>(std::min(length, m_nLineLength - offset))};
}

std::string_view CRecord::CutText(int line, int offset, int length) const {
    const std::string_view text = CutFromLine(line, offset, length);
    return text.substr(0, text.find('\0'));
}

void CRecord::PutIntoLine(int line, int offset, std::string_view text) {
    if (line >= 0 && line < GetLineCount() && offset >= 0 && offset < m_nLineLength) {
        text.copy(LineAt(line) + offset, static_cast<std::size_t>(m_nLineLength - offset));
    }
}

void CRecord::PutField(int line, int offset, int length, std::string_view field) {
    PutIntoLine(line, offset, field.substr(0, static_cast<std::size_t>(std::max(length, 0))));
}

char* CRecord::NewLine() {
    if (m_Lines.size() == m_Lines.capacity()) {
        m_Lines.reserve(std::max(kFirstLines, 2 * m_Lines.size()));
    }
    tabvex::CLinePool& pool = m_Context.PoolOf(m_nLineLength);
    m_Lines.push_back(pool.Take());
    m_pCurLine = pool.At(m_Lines.back());
    return m_pCurLine;
}
