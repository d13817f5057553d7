#include "mutation_file.h"

#include <algorithm>
#include <array>

#include "exit_status.h"
#include "item_text.h"
#include "record_shape.h"
#include "text_encoder.h"
#include "text_layout.h"
#include "tool_system.h"

namespace tabvex::tool {

/// What differs between the two record types.
struct CMutationType {
    const char* Name;
    std::array<int, 5> Position; ///< items of a repair position; ReadFirst and ReadNext step with the first
    int Amount;                  ///< items of the three kinds of mutation: their codes
    int Texts;
    int Split; ///< 0: none of its own
    int (CAllRecordsEx::*Add)(const char* mutation);
    int (CAllRecordsEx::*DeleteOne)(const char* code);
    int (CAllRecordsEx::*DeleteAll)();
    int (CAllRecordsEx::*Count)();
};

namespace {

constexpr char kDelimiter = '\x1F'; // no text that is typed has it
constexpr std::string_view kKindsOfTable = "table";
constexpr std::size_t kRecordLength = 128;
constexpr std::size_t kLongestCode = 3;
constexpr std::size_t kSplitText1Length = 2;
constexpr int kTextSize = 128; // no text of a cell is longer

constexpr int kAmountKind = 1;
constexpr int kTextsKind = 3;
constexpr int kSplitKind = 7;
constexpr int kHighestKind = 8;

// clang-format off
constexpr std::array<CMutationType, 2> kTypes = {{
//   type, position,                            amount, texts, split
    {"X4", { 4025,  4030,  4035,  4040,  4045},  4055,  4070, 4085,
     &CAllRecordsEx::AddX4Mutation, &CAllRecordsEx::DeleteOneX4Mutation,
     &CAllRecordsEx::DeleteX4Mutations, &CAllRecordsEx::GetX4MutationCount},
    {"G9", {19225, 19230, 19235, 19240, 19245}, 19255, 19270,    0,
     &CAllRecordsEx::AddG9Mutation, &CAllRecordsEx::DeleteOneG9Mutation,
     &CAllRecordsEx::DeleteG9Mutations, &CAllRecordsEx::GetG9MutationCount},
}};
// clang-format on

const CMutationType& FindType(const std::string& name) {
    return name == kTypes[1].Name ? kTypes[1] : kTypes[0];
}

std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == separator) {
            parts.emplace_back();
        } else {
            parts.back().push_back(c);
        }
    }
    return parts;
}

std::vector<std::pair<std::string, int>> ParseKinds(const std::string& text) {
    std::vector<std::pair<std::string, int>> kinds;
    for (const std::string& part : Split(text, ',')) {
        const std::size_t colon = std::min(part.find(':'), part.size());
        const std::string code = part.substr(0, colon);
        int kind = 0;
        if (code.empty() || code.size() > kLongestCode || colon == part.size() ||
            !ReadWholeNumber(std::string_view(part).substr(colon + 1), kind) || kind > kHighestKind) {
            throw CToolError(
                "--kinds: \"" + part + "\" is no code of 1 to 3 characters, a colon and a kind from 0 to 8", kUsage);
        }
        kinds.emplace_back(code, kind);
    }
    return kinds;
}

std::string ExplainAdd(int result, const CMutationType& type, const std::string& code, unsigned kind) {
    switch (result) {
    case TABVEX_VALUE_NOT_LISTED:
        return "the value lists of " + std::to_string(type.Amount) + " and " + std::to_string(type.Texts) +
               " do not have \"" + code + "\" for such data: its kind is " + std::to_string(kind) + ", see --kinds";
    case TABVEX_MUTATION_FULL:
        return "it holds three mutations already";
    case TABVEX_VALUE_NOT_A_NUMBER:
    case TABVEX_VALUE_EMPTY:
        return "the value is no number";
    case TABVEX_VALUE_DOES_NOT_FIT:
        return "the value does not fit its field";
    case TABVEX_VALUE_OUT_OF_RANGE:
    case TABVEX_VALUE_NUMBER_NOT_LISTED:
        return "the value is outside what its item allows";
    case TABVEX_VALUE_TOO_LONG:
        return "a text is too long for its item";
    case TABVEX_ITEM_UNKNOWN:
        return "the table file lacks its items";
    default:
        return "the library refuses it";
    }
}

void ThrowRefused(const std::string& what, const std::string& why, int result) {
    throw CToolError(what + ": " + why + " (result " + std::to_string(result) + ")", kFindings);
}

} // namespace

CMutationFile::CMutationFile(const CMutationOptions& options)
    : m_Type(FindType(options.Type)), m_nCodePage(options.CodePage), m_Decoder(options.CodePage),
      m_Table(options.Table), m_File(options.File, EFileForm::Fixed) {
    m_Records.SetCharacterSet("ANSI"); // texts are taken as the file has them
    m_Records.SetDelimiter(kDelimiter);
    m_Records.UseX4New(1);
    LoadTable(m_Records, options.Table, m_Table);
    SetKinds(options.Kinds);
    ReadRecords();
}

CStringArray& CMutationFile::GetCodes() {
    return m_Type.Split == 0 ? *m_Records.GetG9MutationList() : *m_Records.GetX4MutationList();
}

CUIntArray& CMutationFile::GetCodeKinds() {
    return m_Type.Split == 0 ? *m_Records.GetG9MutationKinds() : *m_Records.GetX4MutationKinds();
}

// The list from the table file, with other kinds and further codes.
void CMutationFile::SetKinds(const std::string& kinds) {
    if (kinds.empty()) {
        return;
    }
    std::vector<std::pair<std::string, int>> list;
    list.reserve(static_cast<std::size_t>(GetCodes().GetSize()));
    for (int i = 0; i < GetCodes().GetSize(); ++i) {
        list.emplace_back(GetCodes().GetAt(i), static_cast<int>(GetCodeKinds().GetAt(i)));
    }
    std::vector<std::pair<std::string, int>> wanted;
    if (kinds == kKindsOfTable) {
        SetKindsOfTable(wanted);
    } else {
        wanted = ParseKinds(kinds);
    }
    for (const auto& [code, kind] : wanted) {
        const auto same =
            std::find_if(list.begin(), list.end(), [&code = code](const auto& c) { return c.first == code; });
        if (same == list.end()) {
            list.emplace_back(code, kind);
        } else {
            same->second = kind;
        }
    }
    std::string text;
    for (const auto& [code, kind] : list) {
        text.append(text.empty() ? "" : std::string(1, kDelimiter)).append(code);
        text.append(1, kDelimiter).append(std::to_string(kind));
    }
    m_Records.SetMutationList(m_Type.Name, text.c_str());
}

void CMutationFile::SetKindsOfTable(std::vector<std::pair<std::string, int>>& kinds) const {
    const CTableSection* section = m_Table.FindSection(m_Type.Name);
    if (section == nullptr) {
        return;
    }
    for (const CTableItem& item : section->Items) {
        const int number = item.Definition.Number;
        const int kind = number == m_Type.Amount                       ? kAmountKind
                         : number == m_Type.Texts                      ? kTextsKind
                         : number == m_Type.Split && m_Type.Split != 0 ? kSplitKind
                                                                       : 0;
        for (std::size_t i = 0; kind != 0 && i < item.Definition.Values.size(); ++i) {
            kinds.emplace_back(item.Definition.Values[i], kind);
        }
    }
}

void CMutationFile::ReadRecords() {
    const CFindings findings = m_File.Check();
    if (!findings.empty()) {
        throw CToolError(m_File.GetName() + ":" + std::to_string(findings.front().Line) + ": " + findings.front().Text,
                         kFindings);
    }
    if (m_Records.ReadAllRecordsEx(SystemFileName(m_File.GetName()).c_str()) != TABVEX_OK) {
        throw CToolError(m_File.GetName() + ": the library cannot read it");
    }
}

std::vector<int> CMutationFile::GetPositionItems() const {
    return {m_Type.Position.begin(), m_Type.Position.end()};
}

std::vector<CRepairPosition> CMutationFile::ReadAll() {
    std::vector<CRepairPosition> positions;
    int result = m_Records.ReadFirst(m_Type.Position.front());
    while (result == TABVEX_OK) {
        positions.push_back(ReadSelected());
        result = m_Records.ReadNext(m_Type.Position.front());
    }
    if (result == TABVEX_MUTATION_NOT_PARSED) {
        throw CToolError(m_File.GetName() + ": the " + m_Type.Name + " lines cannot be taken apart", kFindings);
    }
    return positions;
}

void CMutationFile::Select(int entry) {
    int result = m_Records.ReadFirst(m_Type.Position.front());
    for (int i = 1; i < entry && result == TABVEX_OK; ++i) {
        result = m_Records.ReadNext(m_Type.Position.front());
    }
    if (result != TABVEX_OK) {
        throw CToolError(m_File.GetName() + ": there is no " + m_Type.Name + " entry " + std::to_string(entry),
                         kFindings);
    }
}

CRepairPosition CMutationFile::ReadSelected() {
    CRepairPosition position;
    for (const int item : m_Type.Position) {
        position.Values.push_back(m_Decoder.ToUtf8(TrimRight(ReadItemText(m_Records, item))));
    }
    const int count = (m_Records.*m_Type.Count)();
    for (int index = 1; index <= count; ++index) {
        std::array<std::array<char, kTextSize + 1>, 4> texts = {};
        const auto read = [&](auto operation) {
            return (m_Records.*operation)(index, texts[0].data(), kTextSize, texts[1].data(), kTextSize,
                                          texts[2].data(), kTextSize, texts[3].data(), kTextSize);
        };
        using CRead = int (CAllRecordsEx::*)(int, char*, int, char*, int, char*, int, char*, int);
        CMutationTexts mutation;
        mutation.Result = read(m_Type.Split == 0 ? static_cast<CRead>(&CAllRecordsEx::ReadG9Mutation)
                                                 : static_cast<CRead>(&CAllRecordsEx::ReadX4Mutation));
        mutation.Code = m_Decoder.ToUtf8(texts[0].data());
        mutation.Value = texts[1].data();
        mutation.Text1 = m_Decoder.ToUtf8(TrimRight(texts[2].data()));
        mutation.Text2 = m_Decoder.ToUtf8(TrimRight(texts[3].data()));
        position.Mutations.push_back(mutation);
    }
    return position;
}

unsigned CMutationFile::KindOf(const std::string& code) {
    for (int i = 0; i < GetCodes().GetSize(); ++i) {
        if (GetCodes().GetAt(i) == code) {
            return GetCodeKinds().GetAt(i);
        }
    }
    return 0;
}

std::string CMutationFile::Encode(const std::string& text) const {
    try {
        return CTextEncoder(m_nCodePage).Encode(text);
    } catch (const CToolError& error) {
        throw CToolError("\"" + EscapeControls(text) + "\" " + error.what(), kFindings);
    }
}

// Only the kind of the code tells a decimal comma from the one between two texts.
std::string CMutationFile::ToParts(const std::string& code, const std::string& data) {
    const unsigned kind = KindOf(code);
    const std::size_t comma = std::min(data.find(','), data.size());
    if (kind == kTextsKind) {
        const std::string second = comma < data.size() ? data.substr(comma + 1) : std::string();
        return code + kDelimiter + data.substr(0, comma) + kDelimiter + second;
    }
    if (kind == kSplitKind && comma < data.size()) {
        return code + kDelimiter + PadRight(data.substr(0, comma), kSplitText1Length) + data.substr(comma + 1);
    }
    return code + kDelimiter + data;
}

void CMutationFile::Add(const std::string& mutation) {
    const std::size_t sign = mutation.find('=');
    if (sign == std::string::npos || sign == 0) {
        throw CToolError("\"" + mutation + "\" is neither CODE=VALUE nor CODE=TEXT1,TEXT2", kUsage);
    }
    const std::string code = Encode(mutation.substr(0, sign));
    const std::string parts = ToParts(code, Encode(mutation.substr(sign + 1)));
    const int result = (m_Records.*m_Type.Add)(parts.c_str());
    if (result != TABVEX_OK) {
        ThrowRefused(mutation, ExplainAdd(result, m_Type, mutation.substr(0, sign), KindOf(code)), result);
    }
}

void CMutationFile::Delete(const std::string& code) {
    const std::vector<CMutationTexts> mutations = ReadSelected().Mutations;
    if (std::none_of(mutations.begin(), mutations.end(), [&](const CMutationTexts& m) { return m.Code == code; })) {
        ThrowRefused(code, "there is no such mutation", TABVEX_MUTATION_NONE);
    }
    const int result = (m_Records.*m_Type.DeleteOne)(Encode(code).c_str());
    if (result != TABVEX_OK) {
        const bool badCode = result == TABVEX_MUTATION_BAD_CODE;
        ThrowRefused(code,
                     badCode ? "only codes of 2 or 3 characters can be deleted one by one" : "the library refuses it",
                     result);
    }
}

void CMutationFile::DeleteAll() {
    const int result = (m_Records.*m_Type.DeleteAll)();
    if (result < 0) {
        ThrowRefused("--all", "the library refuses it", result);
    }
}

std::string CMutationFile::GetBytes() {
    const int length = m_Records.WriteAllRecords(nullptr, 0, 0);
    std::string text(static_cast<std::size_t>(std::max(length, 0)) + 1, '\0');
    if (length < 0 || (length > 0 && m_Records.WriteAllRecords(text.data(), length, 0) != length)) {
        throw CToolError(m_File.GetName() + ": the library cannot write it out");
    }
    text.pop_back();
    if (!m_File.HasCrLf()) {
        return text;
    }
    std::string separated;
    separated.reserve(text.size() + text.size() / kRecordLength * 2);
    for (std::size_t i = 0; i < text.size(); i += kRecordLength) {
        separated.append(text, i, kRecordLength).append("\r\n");
    }
    return separated;
}

} // namespace tabvex::tool
