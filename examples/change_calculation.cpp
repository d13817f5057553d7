// Reads a calculation, changes it and saves it under another name, through the class CAllRecordsEx.
//
//     change_calculation TABLE RECORDS OUTPUT
#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <string>

#include "tabvex/all_records.h"

namespace {

constexpr int kClaimNumber = 1020;
constexpr int kDate = 1030;
constexpr int kMileage = 1060;
constexpr int kOption = 2120; // the key item of the options: with it, callers step over them
constexpr int kOptionPrice = 2125;
constexpr int kGuideNumber = 4030; // the part that a repair position is about

// The library throws nothing; here its codes become exceptions. 0 or more is success.
int Checked(const char* what, int code) {
    if (code < 0) {
        throw std::runtime_error(std::string(what) + ": failed with " + std::to_string(code));
    }
    return code;
}

// Items come in their full length, padded with blanks.
std::string ReadTrimmed(CAllRecordsEx& records, int item) {
    char buffer[129]; // no item is longer than a line
    Checked("reading an item", records.ReadItem(item, buffer, sizeof buffer));
    const std::string text = buffer;
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

void PrintHead(CAllRecordsEx& records) {
    char date[11];
    int mileage = 0;
    Checked("reading the date", records.ReadDateItem(kDate, "YYYY-MM-DD", date, sizeof date));
    Checked("reading the mileage", records.ReadIntItem(kMileage, mileage));
    std::printf("claim %s\ndate %s\nmileage %d km\n", ReadTrimmed(records, kClaimNumber).c_str(), date, mileage);
}

void PrintOptions(CAllRecordsEx& records) {
    double sum = 0;
    int count = 0;
    int step = records.ReadFirst(kOption);
    for (; step == TABVEX_OK; step = records.ReadNext(kOption)) {
        double price = 0;
        const int code = records.ReadFloatItem(kOptionPrice, price);
        if (code == TABVEX_VALUE_BLANK) {
            continue; // places at the end of the last line may be free
        }
        Checked("reading a price", code);
        std::printf("option %-19s %8.2f\n", ReadTrimmed(records, kOption).c_str(), price);
        sum += price;
        count += 1;
    }
    if (step != TABVEX_ENTRY_NO_MORE) {
        Checked("stepping over the options", step);
    }
    std::printf("%d options, %.2f in all\n", count, sum);
}

void ChangeMileage(CAllRecordsEx& records, int mileage) {
    Checked("changing the mileage", records.WriteIntItem(kMileage, mileage));
    std::printf("mileage changed to %d km\n", mileage);
}

// Makes the repair position of a part the current one: mutations are added to it and read from it.
void FindPart(CAllRecordsEx& records, const char* part) {
    if (Checked("finding a part", records.FindFirst(kGuideNumber, part)) == TABVEX_FIND_NOTHING) {
        throw std::runtime_error(std::string("no repair position for part ") + part);
    }
}

void AddMutation(CAllRecordsEx& records, const char* part, const char* mutation) {
    FindPart(records, part);
    Checked("adding a mutation", records.AddX4Mutation(mutation));
    std::printf("mutation %s added to part %s\n", mutation, part);
}

void PrintMutations(CAllRecordsEx& records, const char* part) {
    FindPart(records, part);
    const int count = Checked("counting mutations", records.GetX4MutationCount());
    std::printf("mutations of part %s: %d\n", part, count);
    for (int index = 1; index <= count; ++index) {
        char code[4]; // one more than the size told: a text of exactly its size fits
        char text1[17];
        char text2[17];
        double value = 0;
        Checked("reading a mutation", records.ReadX4Mutation(index, code, 3, value, text1, 16, text2, 16));
        std::printf("mutation %.2s %.2f\n", code, value);
    }
}

// The result of saving is a sum that a failure can hide in; GetSaveErrors tells.
void Save(CAllRecordsEx& records, const char* output) {
    const int saved = Checked("saving", records.SaveAllRecords(output, 1));
    if (records.GetSaveErrors() != 0) {
        throw std::runtime_error("saving: not everything could be written");
    }
    std::printf("%d record objects saved\n", saved);
}

void Change(const char* table, const char* input, const char* output) {
    CAllRecordsEx records; // one calculation file in memory
    records.UseX4New(1);   // repair positions with mutations that can be added and deleted
    Checked("loading the table", records.LoadTable(table, 3, 2));
    Checked("reading the records", records.ReadAllRecordsEx(input));
    PrintHead(records);
    PrintOptions(records);
    ChangeMileage(records, 48350);
    // TM is the one code of the sample table that can be added as it is; the others need their kinds to be told by
    // SetMutationList, after the table is loaded and before the records are read.
    AddMutation(records, "0301", "TM/99.50");
    PrintMutations(records, "0301");
    Save(records, output);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: change_calculation TABLE RECORDS OUTPUT\n";
        return 2;
    }
    try {
        Change(argv[1], argv[2], argv[3]);
    } catch (const std::exception& failure) {
        std::cerr << "change_calculation: " << failure.what() << '\n';
        return 1;
    }
    return 0;
}
