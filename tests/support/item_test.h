// Fixture for tests of what the operations by item number do, on both classes of record sets.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "support/record_builder.h"
#include "support/table_builder.h"
#include "support/temp_folder.h"
#include "tabvex/all_records.h"

/// The codes as callers have them: by number.
namespace item_codes {

constexpr int kOk = 0;
constexpr int kMissing = -1; ///< no record, no such item, nothing the record type can do, a null argument
constexpr int kNoTable = -40;
constexpr int kWrongFormat = -50;
constexpr int kBlank = -101;
constexpr int kCut = -1000;

} // namespace item_codes

using RecordSetClasses = ::testing::Types<CAllRecords, CAllRecordsEx>;

/// Names a test's class in the test's name.
struct CRecordSetClassName {
    template <typename RecordSet>
    static std::string GetName(int /*index*/) {
        return std::is_same_v<RecordSet, CAllRecords> ? "CAllRecords" : "CAllRecordsEx";
    }
};

/// An operation by item number, with arguments that fit.
template <typename RecordSet>
struct CItemOperation {
    const char* Name;
    int (*Call)(RecordSet& records, int item);
};

/// A record set of one of the classes, still in OEM mode and without a table.
template <typename RecordSet>
class CItemTest : public ::testing::Test {
protected:
    using Operation = CItemOperation<RecordSet>;

    static int LoadInto(RecordSet& records, const CTableBuilder& table, const std::string& path) {
        return records.LoadTable(table.Write(path).c_str(), CTableBuilder::kVersionMajor, CTableBuilder::kVersionMinor);
    }
    void Load(const CTableBuilder& table) {
        ASSERT_EQ(LoadInto(m_Records, table, m_Folder.PathOf("layouts.table")), TABVEX_OK);
    }
    void Read(const CRecordBuilder& records) {
        ASSERT_EQ(m_Records.ReadAllRecordsEx(records.Save(m_Folder.PathOf("records.rec")).c_str()), TABVEX_OK);
    }
    void ReadLines(std::string_view text) {
        ASSERT_EQ(m_Records.ReadAll_V_Records(m_Folder.Write("lines.txt", text).c_str()), TABVEX_READ_SUCCEEDED);
    }

    /// Leaves one blank line of a type and nothing else.
    void KeepOneBlankLine(const char* type) {
        std::string line = Padded(type);
        m_Records.DestroyAllRecords();
        ASSERT_EQ(m_Records.SetCompleteRecord(type, line.data(), static_cast<int>(line.size()) + 1), TABVEX_OK);
    }

    std::vector<std::string> Types() const {
        std::vector<std::string> types;
        types.reserve(static_cast<std::size_t>(m_Records.GetRecordCount()));
        for (int index = 0; index < m_Records.GetRecordCount(); ++index) {
            types.emplace_back(m_Records.GetRecord(index)->GetType());
        }
        return types;
    }

    /// A line's 128 characters, NULs included.
    std::string Line(const char* type, int index = 0) {
        const CRecord* record = m_Records.ExistRecord(type);
        return record == nullptr || index >= record->GetLineCount() ? "" : std::string(record->GetLine(index), 128);
    }
    /// `length` characters of a line from the 1-based `position` on.
    std::string Field(const char* type, int position, int length, int index = 0) {
        return Line(type, index).substr(static_cast<std::size_t>(position - 1), static_cast<std::size_t>(length));
    }

    /// All there is to change: the record objects in order, their cursors, and every byte of their lines' buffers.
    std::vector<std::string> Stored() const {
        std::vector<std::string> stored;
        for (int index = 0; index < m_Records.GetRecordCount(); ++index) {
            const CRecord& record = *m_Records.GetRecord(index);
            stored.push_back(record.GetType() + (" at line " + std::to_string(record.GetCurrentLine())) + ", offset " +
                             std::to_string(record.GetCurrentOffset()));
            for (int line = 0; line < record.GetLineCount(); ++line) {
                // The buffers have room for CR LF and a NUL.
                stored.emplace_back(record.GetLine(line), static_cast<std::size_t>(record.GetLineLength()) + 3);
            }
        }
        return stored;
    }

    /// The item's text, or the code when it cannot be read.
    std::string Text(int item) {
        std::string text(1024, '\0');
        const int result = m_Records.ReadItem(item, text.data(), static_cast<int>(text.size()));
        return result == TABVEX_OK ? text.substr(0, text.find('\0')) : std::to_string(result);
    }

    CTempFolder m_Folder;
    RecordSet m_Records;
};
