#include "support/record_set_test.h"

#include <stdexcept>

#include "support/guard_buffer.h"

RecordSetTest::RecordSetTest() {
    m_Records.SetCharacterSet("ANSI");
    Load(SmallTable());
}

CTableBuilder RecordSetTest::SmallTable() {
    CTableBuilder table;
    table.Section("X1")
        .Item(1000, 2, 1, "C")
        .Item(1005, 4, 8, "C")
        .Item(1010, 8, 12, "N,,,R 5.2")
        .Item(1015, 10, 20, "D,,,,,,DD.MM.YYYY");
    table.Section("G1")
        .Item(12000, 2, 1, "C")
        .Item(12005, 4, 3, "C")
        .Item(12010, 1, 7, "C")
        .Item(12015, 4, 8, "C")
        .Item(12020, 6, 12, "C");
    return table;
}

void RecordSetTest::Load(const CTableBuilder& table) {
    const std::string path = table.Write(m_Folder.PathOf("layouts.table"));
    ASSERT_EQ(m_Records.LoadTable(path.c_str(), CTableBuilder::kVersionMajor, CTableBuilder::kVersionMinor), TABVEX_OK);
}

void RecordSetTest::Read(const CRecordBuilder& records) {
    ASSERT_EQ(m_Records.ReadAllRecordsEx(records.Save(m_Folder.PathOf("records.rec")).c_str()), TABVEX_OK);
}

void RecordSetTest::ReadUnnumbered(const char* type, const std::vector<std::string>& lines) {
    CRecordBuilder records;
    for (const std::string& line : lines) {
        records.Add(type).Put(0, line);
    }
    Read(records);
    ASSERT_EQ(m_Records.SetRecNums("*", 0), TABVEX_OK);
}

void RecordSetTest::ReadLines(std::string_view text) {
    ASSERT_EQ(m_Records.ReadAll_V_Records(m_Folder.Write("lines.txt", text).c_str()), TABVEX_READ_SUCCEEDED);
}

std::vector<std::string> RecordSetTest::Types() const {
    std::vector<std::string> types;
    types.reserve(static_cast<std::size_t>(m_Records.GetRecordCount()));
    for (int index = 0; index < m_Records.GetRecordCount(); ++index) {
        types.emplace_back(m_Records.GetRecord(index)->GetType());
    }
    return types;
}

CRecord& RecordSetTest::Record(const char* type) {
    CRecord* record = m_Records.ExistRecord(type);
    if (record == nullptr) {
        throw std::runtime_error(std::string("there is no record of type ") + type);
    }
    return *record;
}

std::vector<std::string> RecordSetTest::LinesOf(const char* type) {
    std::vector<std::string> lines;
    const CRecord& record = Record(type);
    lines.reserve(static_cast<std::size_t>(record.GetLineCount()));
    for (int index = 0; index < record.GetLineCount(); ++index) {
        lines.emplace_back(record.GetLine(index));
    }
    return lines;
}

std::string RecordSetTest::Item(int item) {
    std::string text(1024, '\0');
    EXPECT_EQ(m_Records.ReadItem(item, text.data(), static_cast<int>(text.size())), TABVEX_OK) << "item " << item;
    text.resize(text.find('\0'));
    return text;
}

int RecordSetTest::ReadResult(int item) {
    CGuardBuffer text(700);
    return m_Records.ReadItem(item, text.Data(), text.Size());
}

std::string RecordSetTest::Written() {
    std::string text(static_cast<std::size_t>(m_Records.WriteAllRecords(nullptr, 0, 0)), '\0');
    m_Records.WriteAllRecords(text.data(), static_cast<int>(text.size()), 0);
    return text;
}

std::vector<std::string> RecordSetTest::WrittenLines() {
    const std::string text = Written();
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < text.size(); begin += 128) {
        lines.push_back(text.substr(begin, 128));
    }
    return lines;
}
