// What the tests of repair positions and their mutations build lines, tables and calls from.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "support/table_builder.h"
#include "tabvex/all_records.h"

/// A cell of 15 characters with a repair position: code, four characters, four characters, one, three.
std::string PositionCell(std::string_view code, std::string_view field2 = "", std::string_view field3 = "",
                         std::string_view field4 = "", std::string_view field5 = "");
/// A cell with a mutation that has an amount, which is put to the right of its 12 characters.
std::string AmountCell(std::string_view code, std::string_view amount);
/// A cell with a mutation that has two texts, of two and ten characters.
std::string TextsCell(std::string_view code, std::string_view text1, std::string_view text2);

/// A line of 128 characters: a header of seven, then cells; `last` is the character behind the eight cells.
std::string CellLine(std::string_view header, const std::vector<std::string>& cells, char last = ' ');

/// The record types with mutations, and what the operations on them are called. Items are numbered alike from
/// different bases.
struct CMutationType {
    const char* Name;
    int Base;
    int Search; ///< the item number with which FindFirst looks for the code of a mutation
    int (CAllRecordsEx::*ReadValue)(int index, char* code, int codeSize, double& value, char* text1, int text1Size,
                                    char* text2, int text2Size);
    int (CAllRecordsEx::*ReadTexts)(int index, char* code, int codeSize, char* value, int valueSize, char* text1,
                                    int text1Size, char* text2, int text2Size);
    int (CAllRecordsEx::*Add)(const char* mutation);
    int (CAllRecordsEx::*DeleteOne)(const char* code);
    int (CAllRecordsEx::*DeleteAll)();
    int (CAllRecordsEx::*Count)();

    /// The item that is number `number` of the type: 25 is 4025 of "X4" and 19225 of "G9".
    int Item(int number) const { return Base + number; }
    int Key() const { return Item(25); }
};

/// Shows a type by its name where a test has it as its parameter.
void PrintTo(const CMutationType* type, std::ostream* out);

extern const CMutationType kX4;
extern const CMutationType kG9;

/// A table with "X4" and "G9" alike. Repair methods: E, ET, LE, LE1, I. Fields of a position: C, N of four digits, one
/// of "1" and "2", C. Codes with an amount (nine and two digits): EM, IM, BM; with two texts: TM; with a split value
/// ("X4" only): SM.
CTableBuilder MutationTable();

/// A mutation as it is read, with buffers one byte longer than the size passed: "0: EM 12.5 '' ''" is result, code,
/// value and the texts.
std::string ReadMutation(CAllRecordsEx& records, const CMutationType& type, int index);
/// The same with the value as text: "0: EM '12.5' '' ''".
std::string ReadMutationTexts(CAllRecordsEx& records, const CMutationType& type, int index);
