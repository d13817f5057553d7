// Character sets: at which points texts are converted between the records' code page and the caller's, and at which
// they are not.
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>

#include "platform/code_pages.h"
#include "support/guard_buffer.h"
#include "support/item_test.h"

namespace {

using namespace item_codes;

constexpr int kWrongParts = -7;
constexpr int kNotListed = -55;
constexpr int kNotANumber = -66;
constexpr int kWrongSeparator = -71;

// The same four letters in the records' code page, which is alike in 850 and 437, and in the caller's.
constexpr const char* kOem = "\x84\x94\x81\xE1";
constexpr const char* kAnsi = "\xE4\xF6\xFC\xDF";

// A line of the records' code page that becomes a minus in the caller's, and a dash of the caller's that becomes one in
// the records'. Only where texts are converted does a number begin with them.
constexpr const char* kOemMinus = "\xC4";
constexpr const char* kAnsiMinus = "\x96";

constexpr int kText = 1005;
constexpr int kDate = 1015;
constexpr int kOther = 1020;
constexpr int kListed = 1025;
constexpr int kInt = 1030;
constexpr int kFloat = 1035;
constexpr int kForeignDate = 1040;
constexpr int kUpper = 1045;
constexpr int kCharacter = 1050;
constexpr int kEntry = 2120;

CTableBuilder Table() {
    CTableBuilder table;
    table.Section("X1")
        .Item(kText, 4, 8, "C")
        .Item(kDate, 10, 20, "D,,,,,,DD.MM.YYYY")
        .Item(kOther, 4, 30, "C")
        .Item(kListed, 1, 35, "C,,,,,(\"\x84\")")
        .Item(kInt, 6, 40, "N,,,R 6.0")
        .Item(kFloat, 8, 50, "N,,,R 5.2")
        .Item(kForeignDate, 10, 60, "D,,,,,,DD\x84MM\x84YYYY")
        .Item(kUpper, 4, 70, "U")
        .Item(kCharacter, 1, 80, "C");
    table.Section("X2N").Item(2100, 2, 1, "C").Item(kEntry, 4, 8, "C").Item(2125, 4, 12, "C");
    return table;
}

/// Operations on a record set that holds one line of "X1" and one of "X2N".
template <typename RecordSet>
class CCharacterSetTest : public CItemTest<RecordSet> {
protected:
    void LoadAll() {
        this->Load(Table());
        this->Read(CRecordBuilder().Add("X1").Add("X2N"));
    }
    /// Stores bytes in a line as they are, whatever the mode.
    void PutRaw(const char* type, int offset, std::string_view bytes) {
        CRecordBuilder records;
        for (const char* each : {"X1", "X2N"}) {
            records.Add(each);
            if (each == std::string_view(type)) {
                records.Put(offset, bytes);
            }
        }
        this->Read(records);
    }
    using Reader = int (*)(RecordSet& records, char* buffer, int size);
    std::string ReadBy(Reader reader) {
        CGuardBuffer buffer(140);
        EXPECT_EQ(reader(this->m_Records, buffer.Data(), buffer.Size()), kOk);
        return buffer.Text();
    }

    struct CReaderRow {
        const char* Name;
        const char* Type;
        int Offset;
        int ShownAt; ///< where the text read shows what stands at the offset
        Reader Read;
    };
    /// Everything that hands a text out and converts it.
    static std::vector<CReaderRow> ConvertingReaders() {
        return {
            {"ReadItem", "X1", 7, 0, [](RecordSet& r, char* b, int s) { return r.ReadItem(kText, b, s); }},
            {"HardReadItem", "X1", 7, 0, [](RecordSet& r, char* b, int s) { return r.HardReadItem(kText, b, s); }},
            {"ReadCharItem", "X1", 7, 0, [](RecordSet& r, char* b, int s) { return r.ReadCharItem(kText, b, s); }},
            {"ReadCharItem U", "X1", 69, 0, [](RecordSet& r, char* b, int s) { return r.ReadCharItem(kUpper, b, s); }},
            {"HardReadDynItem", "X2N", 11, 5,
             [](RecordSet& r, char* b, int s) { return r.HardReadDynItem(kEntry, b, s); }},
            {"GetFirstCompleteRecord", "X1", 100, 100,
             [](RecordSet& r, char* b, int s) { return r.GetFirstCompleteRecord("X1", b, s); }},
            {"GetNextCompleteRecord", "X1", 100, 100,
             [](RecordSet& r, char* b, int s) { return r.GetNextCompleteRecord("X1", b, s, 1); }},
        };
    }
    /// Those that hand out lines as they are.
    static std::vector<CReaderRow> PlainReaders() {
        return {{"GetX1Record", "X1", 100, 100, [](RecordSet& r, char* b, int) { return r.GetX1Record(b, 128); }},
                {"WriteAllRecords", "X1", 100, 100, [](RecordSet& r, char* b, int) {
                     std::string whole(257, '\0');
                     const int length = r.WriteAllRecords(whole.data(), 256, 0);
                     whole.copy(b, 128);
                     b[128] = '\0';
                     return length == 256 ? 0 : -1;
                 }}};
    }
    void ExpectReads(const std::vector<CReaderRow>& readers, const char* expected) {
        for (const CReaderRow& row : readers) {
            PutRaw(row.Type, row.Offset, kOem);
            const std::string text = ReadBy(row.Read).substr(static_cast<std::size_t>(row.ShownAt), 4);
            EXPECT_EQ(text, expected) << row.Name;
        }
    }

    struct CWriterRow {
        const char* Name;
        const char* Type;
        int Position; ///< 1-based
        int (*Write)(RecordSet& records, const char* text);
    };
    /// Everything that takes a text and converts it. HardWriteDynItem takes it as it is; what it stores is converted.
    static std::vector<CWriterRow> ConvertingWriters() {
        return {
            {"WriteItem", "X1", 8, [](RecordSet& r, const char* text) { return r.WriteItem(kText, text); }},
            {"WriteCharItem", "X1", 8, [](RecordSet& r, const char* text) { return r.WriteCharItem(kText, text); }},
            {"HardWriteItem", "X1", 8, [](RecordSet& r, const char* text) { return r.HardWriteItem(kText, text); }},
            {"WriteItem of an entry", "X2N", 8,
             [](RecordSet& r, const char* text) { return r.WriteItem(kEntry, (std::string(text) + "/x").c_str()); }},
            {"HardWriteDynItem", "X2N", 8, [](RecordSet& r, const char* text) {
                 return r.HardWriteDynItem(kEntry, (std::string(text) + "/x").c_str());
             }}};
    }
    void ExpectWrites(const char* expected) {
        for (const CWriterRow& row : ConvertingWriters()) {
            this->Read(CRecordBuilder().Add("X1").Add("X2N"));
            EXPECT_EQ(row.Write(this->m_Records, kAnsi), kOk) << row.Name;
            EXPECT_EQ(this->Field(row.Type, row.Position, 4), expected) << row.Name;
        }
    }
};

template <typename RecordSet>
class CharacterSet : public CCharacterSetTest<RecordSet> {};
TYPED_TEST_SUITE(CharacterSet, RecordSetClasses, CRecordSetClassName);

/// Tests of what only the derived record set lets a caller choose.
class CharacterSetChoice : public CCharacterSetTest<CAllRecordsEx> {
protected:
    CharacterSetChoice() { EXPECT_EQ(m_Records.SetCodePages(850, 1252), 0); }
};

struct CModeRow {
    const char* Mode;
    bool Converts;
};

// clang-format off
const CModeRow kModes[] = {
    {"OEM",  true},
    {"ANSI", false},
    {"oem",  false},
    {"Oem",  false},
    {"OEM ", false},
    {" OEM", false},
    {"OEMX", false},
    {"OE",   false},
    {"",     false},
    {"850",  false},
};
// clang-format on

// --- The mode -------------------------------------------------------------------------------------------------------

TYPED_TEST(CharacterSet, ANewRecordSetConverts) {
    this->LoadAll();
    this->ExpectReads(this->ConvertingReaders(), kAnsi);
    this->ExpectWrites(kOem);
}

TEST_F(CharacterSetChoice, OnlyTheModeOemExactlyConverts) {
    LoadAll();
    for (const CModeRow& row : kModes) {
        SCOPED_TRACE(row.Mode);
        m_Records.SetCharacterSet(row.Mode);
        ExpectReads(ConvertingReaders(), row.Converts ? kAnsi : kOem);
        ExpectWrites(row.Converts ? kOem : kAnsi);
    }
}

TEST_F(CharacterSetChoice, TheModeCanBeSwitchedOnAgainAndConvertsNoLine) {
    LoadAll();
    PutRaw("X1", 7, kOem);
    m_Records.SetCharacterSet("ANSI");
    EXPECT_EQ(Text(kText), kOem);
    m_Records.SetCharacterSet("OEM");
    EXPECT_EQ(Text(kText), kAnsi);
    EXPECT_EQ(Field("X1", 8, 4), kOem);
}

TEST_F(CharacterSetChoice, NoModeAtAllChangesNothing) {
    LoadAll();
    m_Records.SetCharacterSet(nullptr);
    ExpectWrites(kOem);
    m_Records.SetCharacterSet("ANSI");
    m_Records.SetCharacterSet(nullptr);
    ExpectWrites(kAnsi);
}

TEST_F(CharacterSetChoice, TheModeNeedsNoTableAndStays) {
    m_Records.SetCharacterSet("ANSI");
    LoadAll();
    ExpectWrites(kAnsi);
    m_Records.DestroyAllRecords();
    ExpectWrites(kAnsi);
}

// --- Where nothing is converted -------------------------------------------------------------------------------------

TYPED_TEST(CharacterSet, LinesThatAreSavedOrHandedOutWholeAreAsTheyAre) {
    this->LoadAll();
    this->ExpectReads(this->PlainReaders(), kOem);
    this->PutRaw("X1", 100, kOem);
    const std::string path = this->m_Folder.PathOf("saved.rec");
    ASSERT_EQ(this->m_Records.SaveAllRecords(path.c_str(), 0), 2);
    EXPECT_EQ(ReadFile(path).substr(100, 4), kOem);
}

TYPED_TEST(CharacterSet, NumbersAreReadUnconverted) {
    this->LoadAll();
    this->PutRaw("X1", 39, std::string("    ") + kOemMinus + "5    " + kOemMinus + "1.5");
    EXPECT_EQ(this->Text(kInt), "    -5"); // the text is converted
    int integer = 7;
    double number = 7.0;
    EXPECT_EQ(this->m_Records.ReadIntItem(kInt, integer), kNotANumber);
    EXPECT_EQ(integer, 0);
    CGuardBuffer buffer(15);
    EXPECT_EQ(this->m_Records.ReadIntItem(kInt, buffer.Data(), buffer.Size()), kNotANumber);
    EXPECT_EQ(buffer.Text(), "0");
    this->PutRaw("X1", 49, std::string(kOemMinus) + "1.5");
    EXPECT_EQ(this->Text(kFloat), "-1.5    ");
    EXPECT_EQ(this->m_Records.ReadFloatItem(kFloat, number), kNotANumber);
    EXPECT_EQ(this->m_Records.ReadFloatItem(kFloat, buffer.Data(), buffer.Size()), kNotANumber);
}

TYPED_TEST(CharacterSet, NumbersAreWrittenUnconverted) {
    this->LoadAll();
    const std::string text = kAnsiMinus + std::string("5");
    const auto before = this->Stored();
    EXPECT_EQ(this->m_Records.WriteIntItem(kInt, text.c_str()), kNotANumber);
    EXPECT_EQ(this->m_Records.WriteFloatItem(kFloat, text.c_str()), kNotANumber);
    EXPECT_EQ(this->Stored(), before);
    EXPECT_EQ(this->m_Records.WriteItem(kInt, text.c_str()), kOk); // a text is converted, whatever its item is
    EXPECT_EQ(this->Field("X1", 40, 6), "    -5");
}

TYPED_TEST(CharacterSet, DatesAreWrittenUnconverted) {
    this->LoadAll();
    const std::string text = std::string("28") + kAnsiMinus + "02" + kAnsiMinus + "2015";
    EXPECT_EQ(this->m_Records.WriteDateItem(kDate, "DD-MM-YYYY", text.c_str()), kWrongSeparator);
    const std::string format = std::string("DD") + kAnsiMinus + "MM" + kAnsiMinus + "YYYY";
    EXPECT_EQ(this->m_Records.WriteDateItem(kForeignDate, format.c_str(), text.c_str()), kOk);
    EXPECT_EQ(this->Field("X1", 60, 10), "28\x84"
                                         "02\x84"
                                         "2015"); // the table's separators as they are
}

TYPED_TEST(CharacterSet, ADateThatIsReadIsConvertedWholeWithTheCallersSeparators) {
    this->LoadAll();
    ASSERT_EQ(this->m_Records.WriteDateItem(kDate, "YYYYMMDD", "20150228"), kOk);
    CGuardBuffer buffer(11);
    EXPECT_EQ(this->m_Records.ReadDateItem(kDate, "DD\x84MM\xC4YYYY", buffer.Data(), buffer.Size()), kOk);
    EXPECT_EQ(buffer.Text(), "28\xE4"
                             "02-2015");
}

TEST_F(CharacterSetChoice, ADateThatIsReadInAnotherModeIsNotConverted) {
    LoadAll();
    m_Records.SetCharacterSet("ANSI");
    ASSERT_EQ(m_Records.WriteDateItem(kDate, "YYYYMMDD", "20150228"), kOk);
    CGuardBuffer buffer(11);
    EXPECT_EQ(m_Records.ReadDateItem(kDate, "DD\x84MM\xC4YYYY", buffer.Data(), buffer.Size()), kOk);
    EXPECT_EQ(buffer.Text(), "28\x84"
                             "02\xC4"
                             "2015");
    EXPECT_EQ(m_Records.WriteItem(kInt, "\x96"
                                        "5"),
              kNotANumber);
}

// --- Values and entries ---------------------------------------------------------------------------------------------

TYPED_TEST(CharacterSet, ATextIsConvertedBeforeItIsHeldAgainstTheTablesList) {
    this->LoadAll();
    EXPECT_EQ(this->m_Records.WriteItem(kListed, "\xE4"), kOk);
    EXPECT_EQ(this->m_Records.WriteCharItem(kListed, "\xE4 "), kOk);
    EXPECT_EQ(this->Field("X1", 35, 1), "\x84");
    EXPECT_EQ(this->m_Records.WriteItem(kListed, "\x84"), kNotListed);
    EXPECT_EQ(this->m_Records.HardWriteItem(kListed, "\xF6"), kOk);
    EXPECT_EQ(this->Field("X1", 35, 1), "\x94");
}

TYPED_TEST(CharacterSet, ADynamicTextIsTakenApartBeforeItsPartsAreConverted) {
    this->LoadAll();
    this->m_Records.SetDelimiter('-');
    // Converted, the dash is a delimiter; a dynamic text keeps it in its part.
    EXPECT_EQ(this->m_Records.WriteItem(kEntry, "a\x96"
                                                "b-c"),
              kWrongParts);
    EXPECT_EQ(this->m_Records.HardWriteDynItem(kEntry, "a\x96"
                                                       "b-c"),
              kOk);
    EXPECT_EQ(this->Field("X2N", 8, 8), "a-b c   ");
    this->m_Records.SetDelimiter('\x96');
    EXPECT_EQ(this->m_Records.HardWriteDynItem(kEntry, "\xE4\x96\xF6"), kOk);
    EXPECT_EQ(this->Field("X2N", 16, 8), "\x84   \x94   ");
}

TYPED_TEST(CharacterSet, ADynamicTextThatIsReadIsConvertedWithItsDelimiter) {
    this->LoadAll();
    this->PutRaw("X2N", 7, "\x84   \x94   ");
    this->m_Records.SetDelimiter('\x81');
    CGuardBuffer buffer(10);
    EXPECT_EQ(this->m_Records.HardReadDynItem(kEntry, buffer.Data(), buffer.Size()), kOk);
    EXPECT_EQ(buffer.Text(), "\xE4   \xFC\xF6   ");
}

TEST_F(CharacterSetChoice, InAnotherModeDynamicTextsStayAsTheyAre) {
    LoadAll();
    m_Records.SetCharacterSet("ANSI");
    m_Records.SetDelimiter('-');
    EXPECT_EQ(m_Records.HardWriteDynItem(kEntry, "a\x96"
                                                 "b-\xE4"),
              kOk);
    EXPECT_EQ(m_Records.WriteItem(kEntry, "a\x96"
                                          "b-\xE4"),
              kOk);
    EXPECT_EQ(Field("X2N", 8, 16), "a\x96"
                                   "b \xE4   a\x96"
                                   "b \xE4   ");
}

TYPED_TEST(CharacterSet, ASearchTextIsConverted) {
    this->LoadAll();
    this->PutRaw("X2N", 7, "\x84   x   ");
    EXPECT_EQ(this->m_Records.FindFirst(kEntry, "\xE4"), TABVEX_FIND_FOUND);
    EXPECT_EQ(this->m_Records.FindFirst(kEntry, "\x84"), TABVEX_FIND_NOTHING);
}

TYPED_TEST(CharacterSet, ACutTextIsConvertedToo) {
    this->LoadAll();
    this->PutRaw("X1", 7, kOem);
    CGuardBuffer buffer(3);
    EXPECT_EQ(this->m_Records.ReadItem(kText, buffer.Data(), buffer.Size()), kCut);
    EXPECT_EQ(buffer.Text(), "\xE4\xF6");
}

TYPED_TEST(CharacterSet, AWholeLineIsConvertedInTheCallersBufferToo) {
    this->LoadAll();
    this->m_Records.DestroyAllRecords();
    CGuardBuffer line(129);
    Padded(std::string("X1     ") + kAnsi).copy(line.Data(), 128);
    line.Data()[128] = '\0';
    EXPECT_EQ(this->m_Records.SetCompleteRecord("X1", line.Data(), 129), kOk);
    EXPECT_EQ(this->Field("X1", 8, 4), kOem);
    EXPECT_EQ(line.Text(), Padded(std::string("X1     ") + kOem));
    EXPECT_EQ(this->Text(kText), kAnsi);
}

TEST_F(CharacterSetChoice, InAnotherModeAWholeLineStaysAsItIs) {
    LoadAll();
    m_Records.DestroyAllRecords();
    m_Records.SetCharacterSet("ANSI");
    std::string line = Padded(std::string("X1     ") + kAnsi);
    EXPECT_EQ(m_Records.SetCompleteRecord("X1", line.data(), 129), kOk);
    EXPECT_EQ(Field("X1", 8, 4), kAnsi);
    EXPECT_EQ(line, Padded(std::string("X1     ") + kAnsi));
}

// --- Code pages -----------------------------------------------------------------------------------------------------

TEST_F(CharacterSetChoice, PagesThatAreNotThereAreRefusedAndChangeNothing) {
    LoadAll();
    ASSERT_EQ(m_Records.SetCodePages(437, 1252), 0);
    PutRaw("X1", 7, "\x9B");
    for (const auto& [oem, ansi] :
         {std::pair{0, 0}, {-1, -1}, {850, 0}, {0, 1252}, {851, 1252}, {850, 1253}, {4370, 1252}}) {
        EXPECT_EQ(m_Records.SetCodePages(oem, ansi), -1) << oem << ' ' << ansi;
        EXPECT_EQ(Text(kText), "\xA2   ") << oem << ' ' << ansi;
    }
}

TEST_F(CharacterSetChoice, PagesChosenCountFromThenOnAndWithoutATable) {
    LoadAll();
    PutRaw("X1", 7, "\x9B");
    EXPECT_EQ(Text(kText), "\xF8   "); // 850
    EXPECT_EQ(m_Records.SetCodePages(437, 1252), 0);
    EXPECT_EQ(Text(kText), "\xA2   ");
    EXPECT_EQ(m_Records.WriteItem(kOther, "\xA2\xF8"), kOk);
    EXPECT_EQ(Field("X1", 30, 4), "\x9Bo  ");
    EXPECT_EQ(m_Records.SetCodePages(850, 1252), 0);
    EXPECT_EQ(m_Records.WriteItem(kOther, "\xA2\xF8"), kOk);
    EXPECT_EQ(Field("X1", 30, 4), "\xBD\x9B  ");
}

TEST_F(CharacterSetChoice, PagesOfOneRecordSetAreNotThoseOfAnother) {
    LoadAll();
    CAllRecordsEx other;
    ASSERT_EQ(other.SetCodePages(437, 1252), 0);
    PutRaw("X1", 7, "\x9B");
    EXPECT_EQ(Text(kText), "\xF8   ");
}

struct CPageRow {
    int Oem;
    /// Characters that both pages have, and so survive the way into a record and out again.
    std::string_view AnsiBytes;
    std::string_view OemBytes;
};

// clang-format off
const CPageRow kPages[] = {
    {850,
     "\x83"
     "\xA0\xA1\xA2\xA3\xA4\xA5\xA6\xA7\xA8\xA9\xAA\xAB\xAC\xAD\xAE\xAF"
     "\xB0\xB1\xB2\xB3\xB4\xB5\xB6\xB7\xB8\xB9\xBA\xBB\xBC\xBD\xBE\xBF"
     "\xC0\xC1\xC2\xC3\xC4\xC5\xC6\xC7\xC8\xC9\xCA\xCB\xCC\xCD\xCE\xCF"
     "\xD0\xD1\xD2\xD3\xD4\xD5\xD6\xD7\xD8\xD9\xDA\xDB\xDC\xDD\xDE\xDF"
     "\xE0\xE1\xE2\xE3\xE4\xE5\xE6\xE7\xE8\xE9\xEA\xEB\xEC\xED\xEE\xEF"
     "\xF0\xF1\xF2\xF3\xF4\xF5\xF6\xF7\xF8\xF9\xFA\xFB\xFC\xFD\xFE\xFF",
     "\x9F"
     "\xFF\xAD\xBD\x9C\xCF\xBE\xDD\xF5\xF9\xB8\xA6\xAE\xAA\xF0\xA9\xEE"
     "\xF8\xF1\xFD\xFC\xEF\xE6\xF4\xFA\xF7\xFB\xA7\xAF\xAC\xAB\xF3\xA8"
     "\xB7\xB5\xB6\xC7\x8E\x8F\x92\x80\xD4\x90\xD2\xD3\xDE\xD6\xD7\xD8"
     "\xD1\xA5\xE3\xE0\xE2\xE5\x99\x9E\x9D\xEB\xE9\xEA\x9A\xED\xE8\xE1"
     "\x85\xA0\x83\xC6\x84\x86\x91\x87\x8A\x82\x88\x89\x8D\xA1\x8C\x8B"
     "\xD0\xA4\x95\xA2\x93\xE4\x94\xF6\x9B\x97\xA3\x96\x81\xEC\xE7\x98"},
    {437,
     "\x83"
     "\xA0\xA1\xA2\xA3\xA5\xA6\xAA\xAB\xAC"
     "\xB0\xB1\xB2\xB5\xB7\xBA\xBB\xBC\xBD\xBF"
     "\xC4\xC5\xC6\xC7\xC9"
     "\xD1\xD6\xDC\xDF"
     "\xE0\xE1\xE2\xE4\xE5\xE6\xE7\xE8\xE9\xEA\xEB\xEC\xED\xEE\xEF"
     "\xF1\xF2\xF3\xF4\xF6\xF7\xF9\xFA\xFB\xFC\xFF",
     "\x9F"
     "\xFF\xAD\x9B\x9C\x9D\xDD\xA6\xAE\xAA"
     "\xF8\xF1\xFD\xE6\xFA\xA7\xAF\xAC\xAB\xA8"
     "\x8E\x8F\x92\x80\x90"
     "\xA5\x99\x9A\xE1"
     "\x85\xA0\x83\x84\x86\x91\x87\x8A\x82\x88\x89\x8D\xA1\x8C\x8B"
     "\xA4\x95\xA2\x93\x94\xF6\x97\xA3\x96\x81\x98"},
};
// clang-format on

TEST_F(CharacterSetChoice, EveryCharacterThatBothPagesHaveSurvivesAndNoOtherDoes) {
    LoadAll();
    for (const CPageRow& row : kPages) {
        ASSERT_EQ(row.AnsiBytes.size(), row.OemBytes.size());
        ASSERT_EQ(m_Records.SetCodePages(row.Oem, 1252), 0);
        for (int byte = 128; byte < 256; ++byte) {
            const std::string text(1, static_cast<char>(byte));
            ASSERT_EQ(m_Records.WriteItem(kCharacter, text.c_str()), kOk) << row.Oem << ' ' << byte;
            const std::size_t at = row.AnsiBytes.find(text);
            if (at != std::string_view::npos) {
                EXPECT_EQ(Field("X1", 80, 1), row.OemBytes.substr(at, 1)) << row.Oem << ' ' << byte;
            }
            EXPECT_EQ(Text(kCharacter) == text, at != std::string_view::npos) << row.Oem << ' ' << byte;
        }
    }
}

TEST_F(CharacterSetChoice, EveryByteOfALineIsReadAsThePagesTell) {
    LoadAll();
    for (const CPageRow& row : kPages) {
        ASSERT_EQ(m_Records.SetCodePages(row.Oem, 1252), 0);
        tabvex::CCodePages pages;
        ASSERT_EQ(pages.Select(row.Oem, 1252), 0);
        for (int byte = 1; byte < 256; ++byte) {
            std::string text(1, static_cast<char>(byte));
            m_Records.SetCharacterSet("ANSI");
            ASSERT_EQ(m_Records.HardWriteItem(kCharacter, text.c_str()), kOk);
            m_Records.SetCharacterSet("OEM");
            pages.OemToAnsi(text.data(), text.size());
            EXPECT_EQ(Text(kCharacter), text) << row.Oem << ' ' << byte;
        }
        for (std::size_t at = 0; at < row.OemBytes.size(); ++at) {
            PutRaw("X1", 79, row.OemBytes.substr(at, 1));
            EXPECT_EQ(Text(kCharacter), row.AnsiBytes.substr(at, 1)) << row.Oem << ' ' << at;
        }
    }
}

TEST_F(CharacterSetChoice, EveryWrittenByteIsStoredAsThePagesTell) {
    LoadAll();
    for (const CPageRow& row : kPages) {
        ASSERT_EQ(m_Records.SetCodePages(row.Oem, 1252), 0);
        tabvex::CCodePages pages;
        ASSERT_EQ(pages.Select(row.Oem, 1252), 0);
        for (int byte = 1; byte < 256; ++byte) {
            std::string text(1, static_cast<char>(byte));
            ASSERT_EQ(m_Records.HardWriteItem(kCharacter, text.c_str()), kOk);
            pages.AnsiToOem(text.data(), text.size());
            EXPECT_EQ(Field("X1", 80, 1), text) << row.Oem << ' ' << byte;
            if (byte < 128) {
                EXPECT_EQ(Field("X1", 80, 1), std::string(1, static_cast<char>(byte))) << row.Oem;
            }
        }
    }
}

// --- The collating sequence -----------------------------------------------------------------------------------------

TYPED_TEST(CharacterSet, ACollatingSequenceHas1To128Characters) {
    EXPECT_EQ(this->m_Records.SetNewCharacterTable(""), -1);
    EXPECT_EQ(this->m_Records.SetNewCharacterTable(nullptr), -1);
    EXPECT_EQ(this->m_Records.SetNewCharacterTable("A"), 0);
    EXPECT_EQ(this->m_Records.SetNewCharacterTable("+$*0123456789?>ABCDEFGHIJKLMNOPQRSTUVWXYZ "), 0);
    EXPECT_EQ(this->m_Records.SetNewCharacterTable("AAAA"), 0);
    EXPECT_EQ(this->m_Records.SetNewCharacterTable(std::string(127, 'x').c_str()), 0);
    EXPECT_EQ(this->m_Records.SetNewCharacterTable(std::string(128, 'x').c_str()), 0);
    EXPECT_EQ(this->m_Records.SetNewCharacterTable(std::string(129, 'x').c_str()), -1);
    EXPECT_EQ(this->m_Records.SetNewCharacterTable(std::string(5000, 'x').c_str()), -1);
}

TYPED_TEST(CharacterSet, ACollatingSequenceLeavesItemsAlone) {
    this->LoadAll();
    this->PutRaw("X1", 7, kOem);
    const auto before = this->Stored();
    EXPECT_EQ(this->m_Records.SetNewCharacterTable("ZYX"), 0);
    EXPECT_EQ(this->Stored(), before);
    EXPECT_EQ(this->Text(kText), kAnsi);
}

} // namespace
