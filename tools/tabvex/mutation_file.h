// The repair positions of a record file and their mutations, as the library reads and changes them.
#pragma once

#include <string>
#include <vector>

#include "record_file.h"
#include "table_text.h"
#include "tabvex/all_records.h"
#include "text_encoding.h"

namespace tabvex::tool {

struct CMutationOptions {
    std::string File;
    std::string Table;
    std::string Type = "X4"; ///< or "G9"
    std::string Kinds;       ///< "EM:1,TM:3", or "table" for those that the items of the table file tell
    int CodePage = 850;
};

/// One mutation, its texts as UTF-8. Those with two texts have no value.
struct CMutationTexts {
    std::string Code;
    std::string Value;
    std::string Text1;
    std::string Text2;
    int Result = TABVEX_OK; ///< what the library answered: that the value is blank or no number

    bool operator==(const CMutationTexts& other) const {
        return Code == other.Code && Value == other.Value && Text1 == other.Text1 && Text2 == other.Text2 &&
               Result == other.Result;
    }
};

/// One repair position: its items, as UTF-8, and its mutations.
struct CRepairPosition {
    std::vector<std::string> Values;
    std::vector<CMutationTexts> Mutations;
};

struct CMutationType;

/// Positions are numbered from 1. What goes wrong is thrown as CToolError.
class CMutationFile {
public:
    /// Reads both files; "X4" records are created in their newer form.
    explicit CMutationFile(const CMutationOptions& options);

    /// The items of a position, in the order of its values.
    std::vector<int> GetPositionItems() const;
    std::vector<CRepairPosition> ReadAll();
    /// Goes to a position, which the following operations work on.
    void Select(int entry);
    CRepairPosition ReadSelected();
    /// Adds "CODE=VALUE" or "CODE=TEXT1,TEXT2"; replaces the mutation with that code.
    void Add(const std::string& mutation);
    void Delete(const std::string& code);
    void DeleteAll();

    /// The whole file as a save writes it, but for FZ records, which keep the length that they have in the file.
    std::string GetBytes();

private:
    void SetKinds(const std::string& kinds);
    void SetKindsOfTable(std::vector<std::pair<std::string, int>>& kinds) const;
    void ReadRecords();
    unsigned KindOf(const std::string& code);
    CStringArray& GetCodes();
    CUIntArray& GetCodeKinds();
    std::string ToParts(const std::string& code, const std::string& data);
    std::string Encode(const std::string& text) const;

    const CMutationType& m_Type;
    int m_nCodePage;
    CTextDecoder m_Decoder;
    CTableText m_Table;
    CRecordFile m_File;
    CAllRecordsEx m_Records;
};

} // namespace tabvex::tool
