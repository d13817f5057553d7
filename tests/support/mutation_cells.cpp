#include "support/mutation_cells.h"

#include <sstream>
#include <stdexcept>

#include "support/guard_buffer.h"
#include "support/record_builder.h"

namespace {

constexpr std::size_t kHeader = 7;
constexpr std::size_t kCell = 15;
constexpr std::size_t kCells = 8;

std::string Quoted(CGuardBuffer& buffer) {
    return " '" + (buffer.IsUntouched() ? "?" : buffer.Text()) + "'";
}

void AddItems(CTableBuilder& table, const CMutationType& type) {
    table.Section(type.Name)
        .Item(type.Item(0), 2, 1, std::string("C,\"") + type.Name + "\"")
        .Item(type.Item(5), 4, 3, "C")
        .Item(type.Item(10), 1, 7, "C")
        .Item(type.Item(25), 3, 8, R"(C,,,,,("E";"ET";"LE";"LE1";"I"))")
        .Item(type.Item(30), 4, 11, "C")
        .Item(type.Item(35), 4, 15, "N,,,R 4.0")
        .Item(type.Item(40), 1, 19, R"(C,,,,,("1";"2"))")
        .Item(type.Item(45), 3, 20, "C")
        .Item(type.Item(55), 3, 8, R"(C,,,,,("EM";"IM";"BM"))")
        .Item(type.Item(60), 12, 11, "N,,,R 9.2")
        .Item(type.Item(70), 3, 8, R"(C,,,,,("TM"))")
        .Item(type.Item(75), 2, 11, "C")
        .Item(type.Item(80), 10, 13, "C");
}

} // namespace

void PrintTo(const CMutationType* type, std::ostream* out) {
    *out << type->Name;
}

const CMutationType kX4 = {"X4",
                           4000,
                           8055,
                           &CAllRecordsEx::ReadX4Mutation,
                           &CAllRecordsEx::ReadX4Mutation,
                           &CAllRecordsEx::AddX4Mutation,
                           &CAllRecordsEx::DeleteOneX4Mutation,
                           &CAllRecordsEx::DeleteX4Mutations,
                           &CAllRecordsEx::GetX4MutationCount};
const CMutationType kG9 = {"G9",
                           19200,
                           38455,
                           &CAllRecordsEx::ReadG9Mutation,
                           &CAllRecordsEx::ReadG9Mutation,
                           &CAllRecordsEx::AddG9Mutation,
                           &CAllRecordsEx::DeleteOneG9Mutation,
                           &CAllRecordsEx::DeleteG9Mutations,
                           &CAllRecordsEx::GetG9MutationCount};

std::string PositionCell(std::string_view code, std::string_view field2, std::string_view field3,
                         std::string_view field4, std::string_view field5) {
    return Padded(code, 3) + Padded(field2, 4) + Padded(field3, 4) + Padded(field4, 1) + Padded(field5, 3);
}

std::string AmountCell(std::string_view code, std::string_view amount) {
    return Padded(code, 3) + std::string(12 - amount.size(), ' ') + std::string(amount);
}

std::string TextsCell(std::string_view code, std::string_view text1, std::string_view text2) {
    return Padded(code, 3) + Padded(text1, 2) + Padded(text2, 10);
}

std::string CellLine(std::string_view header, const std::vector<std::string>& cells, char last) {
    if (header.size() != kHeader || cells.size() > kCells) {
        throw std::invalid_argument("a line has a header of seven characters and eight cells");
    }
    std::string line(header);
    for (const std::string& cell : cells) {
        if (cell.size() != kCell) {
            throw std::invalid_argument("a cell has 15 characters: " + cell);
        }
        line += cell;
    }
    return Padded(line, kHeader + kCells * kCell) + last;
}

CTableBuilder MutationTable() {
    CTableBuilder table;
    AddItems(table, kX4);
    table.Item(4085, 3, 8, R"(C,,,,,("SM"))").Item(4090, 12, 11, "C");
    AddItems(table, kG9);
    return table;
}

std::string ReadMutation(CAllRecordsEx& records, const CMutationType& type, int index) {
    CGuardBuffer code(4);
    CGuardBuffer text1(3);
    CGuardBuffer text2(11);
    double value = -77.0;
    const int result = (records.*type.ReadValue)(index, code.Data(), 3, value, text1.Data(), 2, text2.Data(), 10);
    std::ostringstream number; // unlike printf not in the process locale
    number << ' ' << value;
    return std::to_string(result) + ": " + (code.IsUntouched() ? "?" : code.Text()) + number.str() + Quoted(text1) +
           Quoted(text2);
}

std::string ReadMutationTexts(CAllRecordsEx& records, const CMutationType& type, int index) {
    CGuardBuffer code(4);
    CGuardBuffer value(16);
    CGuardBuffer text1(3);
    CGuardBuffer text2(11);
    const int result =
        (records.*type.ReadTexts)(index, code.Data(), 3, value.Data(), 15, text1.Data(), 2, text2.Data(), 10);
    return std::to_string(result) + ": " + (code.IsUntouched() ? "?" : code.Text()) + Quoted(value) + Quoted(text1) +
           Quoted(text2);
}
