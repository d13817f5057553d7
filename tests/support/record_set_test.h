// Fixture for tests of what a record set does.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "support/record_builder.h"
#include "support/table_builder.h"
#include "support/temp_folder.h"
#include "tabvex/all_records.h"

/// A record set without character-set conversion and with a small table loaded: "X1" (1000 type, 1005 four characters,
/// 1010 a number of five and two digits, 1015 a date) and "G1" (entries of 12015 and 12020, four and six characters).
class RecordSetTest : public ::testing::Test {
protected:
    RecordSetTest();

    /// The table that the fixture loads.
    static CTableBuilder SmallTable();
    /// Loads another table; the test fails when that fails.
    void Load(const CTableBuilder& table);
    /// Reads the records with ReadAllRecordsEx; the test fails when that fails.
    void Read(const CRecordBuilder& records);
    /// Reads a file of these lines of one type; none of them gets a marker in a save.
    void ReadUnnumbered(const char* type, const std::vector<std::string>& lines);
    /// Reads a file of lines of any length.
    void ReadLines(std::string_view text);

    /// Types of the record objects, in store order.
    std::vector<std::string> Types() const;
    /// The record object of a type, which must exist.
    CRecord& Record(const char* type);
    /// The lines of the record object of a type, each up to its NUL.
    std::vector<std::string> LinesOf(const char* type);
    /// The item's text; the test fails when it cannot be read.
    std::string Item(int item);
    /// What reading the item answers.
    int ReadResult(int item);
    /// The whole record set as text, 128 characters a line, as a save would write it.
    std::string Written();
    /// The same, line by line.
    std::vector<std::string> WrittenLines();

    CTempFolder m_Folder;
    CAllRecordsEx m_Records;
};
