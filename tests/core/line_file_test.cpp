#include "core/line_file.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "support/guard_buffer.h"
#include "support/odd_files.h"
#include "support/record_builder.h"
#include "support/temp_folder.h"
#include "tabvex/result_codes.h"

namespace {

using ::testing::ElementsAre;

constexpr bool kReading = true;
constexpr bool kWriting = false;

// The file that is being tested, whatever mode it was opened in.
class LineFile : public ::testing::Test {
protected:
    // Opens a file of these bytes for reading.
    void OpenFor(std::string_view bytes, int recordLength) {
        ASSERT_EQ(m_File.Open(m_Folder.Write("in", bytes).c_str(), kReading, recordLength), TABVEX_OK);
    }

    // Opens a file that is to be written.
    void Create() { ASSERT_EQ(m_File.Open(m_Folder.PathOf("out").c_str(), kWriting, 130), TABVEX_OK); }

    std::string Written() {
        EXPECT_EQ(m_File.Close(), TABVEX_OK);
        return ReadFile(m_Folder.PathOf("out"));
    }

    bool DetectsCrLf(std::string_view bytes) {
        CLineFile file;
        EXPECT_EQ(file.Open(m_Folder.Write("in", bytes).c_str(), kReading, 128), TABVEX_OK);
        return file.DetectCrLf();
    }

    // Every line up to the first answer that is none; that answer is the last element.
    std::vector<std::string> LinesOf(std::string_view bytes) {
        OpenFor(bytes, 1);
        std::vector<std::string> lines;
        std::string line;
        int result = m_File.ReadLine(line);
        for (; result > 0; result = m_File.ReadLine(line)) {
            EXPECT_EQ(result, static_cast<int>(line.size()));
            lines.push_back(line);
        }
        EXPECT_EQ(line, "");
        lines.push_back(std::to_string(result));
        return lines;
    }

    CTempFolder m_Folder;
    CLineFile m_File;
};

TEST_F(LineFile, OpeningTwiceIsRefusedAndKeepsTheFirstFile) {
    OpenFor("abcd", 2);
    EXPECT_EQ(m_File.Open(m_Folder.PathOf("in").c_str(), kReading, 2), TABVEX_FILE_ALREADY_OPEN);
    EXPECT_EQ(m_File.Open(m_Folder.PathOf("out").c_str(), kWriting, 2), -1);
    CGuardBuffer buffer(3);
    EXPECT_EQ(m_File.ReadRecord(buffer.Data()), 2);
    EXPECT_EQ(buffer.Text(), "ab");
}

TEST_F(LineFile, AMissingFileCannotBeOpenedForReading) {
    EXPECT_EQ(m_File.Open(m_Folder.PathOf("none").c_str(), kReading, 128), -2);
    EXPECT_EQ(m_File.Open("", kReading, 128), -2);
}

TEST_F(LineFile, AFolderCannotBeOpenedForReading) {
    EXPECT_EQ(m_File.Open(m_Folder.Path().c_str(), kReading, 128), -2);
}

TEST_F(LineFile, AFileCannotBeCreatedWhereThereIsNoFolder) {
    EXPECT_EQ(m_File.Open(m_Folder.PathOf("none/out").c_str(), kWriting, 128), -3);
    EXPECT_EQ(m_File.Open(m_Folder.Path().c_str(), kWriting, 128), -3);
}

TEST_F(LineFile, AFailedOpenLeavesTheObjectUsable) {
    EXPECT_EQ(m_File.Open(m_Folder.PathOf("none").c_str(), kReading, 128), -2);
    OpenFor("ab", 2);
}

TEST_F(LineFile, NothingIsReadOrWrittenWhileNoFileIsOpen) {
    CGuardBuffer buffer(4);
    std::string line = "x";
    EXPECT_EQ(m_File.ReadRecord(buffer.Data()), TABVEX_FILE_NOT_OPEN);
    EXPECT_EQ(m_File.ReadLine(line), -1);
    EXPECT_EQ(m_File.WriteRecord("X1", 128), -1);
    EXPECT_EQ(m_File.Close(), TABVEX_OK);
}

TEST_F(LineFile, AFileForWritingCannotBeRead) {
    Create();
    CGuardBuffer buffer(131);
    std::string line;
    EXPECT_EQ(m_File.ReadRecord(buffer.Data()), TABVEX_FILE_IS_FOR_WRITING);
    EXPECT_EQ(m_File.ReadLine(line), -4);
}

TEST_F(LineFile, AFileForReadingCannotBeWritten) {
    OpenFor("abc", 1);
    EXPECT_EQ(m_File.WriteRecord("X1", 128), TABVEX_FILE_IS_FOR_READING);
    EXPECT_EQ(m_File.Close(), TABVEX_OK);
    EXPECT_EQ(ReadFile(m_Folder.PathOf("in")), "abc");
}

TEST_F(LineFile, ReadsRecordAfterRecordAndEndsEachWithANul) {
    OpenFor("abcdef", 3);
    CGuardBuffer buffer(4);
    EXPECT_EQ(m_File.ReadRecord(buffer.Data()), 3);
    EXPECT_EQ(buffer.Bytes(), std::string("abc\0", 4));
    EXPECT_EQ(m_File.ReadRecord(buffer.Data()), 3);
    EXPECT_EQ(buffer.Bytes(), std::string("def\0", 4));
}

TEST_F(LineFile, TheLastRecordMayBeShort) {
    OpenFor("abcde", 3);
    CGuardBuffer buffer(4);
    EXPECT_EQ(m_File.ReadRecord(buffer.Data()), 3);
    EXPECT_EQ(m_File.ReadRecord(buffer.Data()), 2);
    EXPECT_EQ(buffer.Text(), "de");
}

TEST_F(LineFile, TheEndOfTheFileGivesTheEmptyTextEveryTime) {
    OpenFor("abc", 3);
    CGuardBuffer buffer(4);
    EXPECT_EQ(m_File.ReadRecord(buffer.Data()), 3);
    EXPECT_EQ(m_File.ReadRecord(buffer.Data()), TABVEX_FILE_END);
    EXPECT_EQ(buffer.Text(), "");
    EXPECT_EQ(m_File.ReadRecord(buffer.Data()), -5);
}

TEST_F(LineFile, AnEmptyFileEndsAtOnce) {
    OpenFor("", 128);
    CGuardBuffer buffer(129);
    EXPECT_EQ(m_File.ReadRecord(buffer.Data()), -5);
    EXPECT_EQ(buffer.Text(), "");
}

TEST_F(LineFile, RecordsAreReadAcrossEveryBlockOfALargeFile) {
    CRecordBuilder records;
    for (int i = 0; i < 2000; ++i) { // 260,000 bytes
        records.Add("X1", std::to_string(i));
    }
    OpenFor(records.Text(true), 130);
    CGuardBuffer buffer(131);
    for (const std::string& line : records.Lines()) {
        ASSERT_EQ(m_File.ReadRecord(buffer.Data()), 130);
        ASSERT_EQ(buffer.Text(), line + "\r\n");
    }
    EXPECT_EQ(m_File.ReadRecord(buffer.Data()), -5);
}

TEST_F(LineFile, RecordsMayHoldAnyByte) {
    const std::string bytes("a\0\xFF\r\n\x1A", 6);
    OpenFor(bytes, 6);
    CGuardBuffer buffer(7);
    EXPECT_EQ(m_File.ReadRecord(buffer.Data()), 6);
    EXPECT_EQ(buffer.Bytes(), bytes + std::string(1, '\0'));
}

TEST_F(LineFile, AReadThatFailsIsToldFromTheEnd) {
    const CUnreadableFile unreadable;
    ASSERT_EQ(m_File.Open(unreadable.Name(), kReading, 128), TABVEX_OK);
    CGuardBuffer buffer(129);
    std::string line;
    EXPECT_EQ(m_File.ReadRecord(buffer.Data()), TABVEX_FILE_READ_FAILED);
    EXPECT_EQ(m_File.ReadLine(line), -6);
}

TEST_F(LineFile, AWriteThatFailsIsToldByTheTimeTheFileIsClosed) {
    const CFullFile full;
    ASSERT_EQ(m_File.Open(full.Name(), kWriting, 128), TABVEX_OK);
    const int written = m_File.WriteRecord("X1", 128);
    EXPECT_TRUE(written == 128 || written == TABVEX_FILE_WRITE_FAILED) << written;
    EXPECT_EQ(m_File.Close(), TABVEX_FILE_WRITE_FAILED);
}

TEST_F(LineFile, EveryWriteBehindOneThatFailedFails) {
    const CFullFile full;
    ASSERT_EQ(m_File.Open(full.Name(), kWriting, 128), TABVEX_OK);
    const int enough = 1 << 16; // 8 MB: no buffer holds that
    int index = 0;
    while (index < enough && m_File.WriteRecord("X1", 128) == 128) {
        ++index;
    }
    ASSERT_LT(index, enough);
    EXPECT_EQ(m_File.WriteRecord("X1", 128), -8);
    EXPECT_EQ(m_File.GetBytesStored(), 0U);
}

TEST_F(LineFile, CrLfIsToldByTheTwoBytesBehindTheFirstRecord) {
    const std::string record(128, 'x');
    EXPECT_TRUE(DetectsCrLf(record + "\r\n"));
    EXPECT_TRUE(DetectsCrLf(record + "\r\n" + record));
    EXPECT_FALSE(DetectsCrLf(record + "\n\r"));
    EXPECT_FALSE(DetectsCrLf(record + "\n\n"));
    EXPECT_FALSE(DetectsCrLf(record + "\r\r"));
    EXPECT_FALSE(DetectsCrLf(record + record));
}

TEST_F(LineFile, AFileShorterThan130BytesHasNoCrLf) {
    EXPECT_FALSE(DetectsCrLf(""));
    EXPECT_FALSE(DetectsCrLf(std::string(127, 'x') + "\r\n"));
    EXPECT_FALSE(DetectsCrLf(std::string(128, 'x') + "\r"));
}

TEST_F(LineFile, OnlyTheFirstRecordIsTestedForCrLf) {
    const std::string record(128, 'x');
    EXPECT_TRUE(DetectsCrLf(record + "\r\n" + record + record));
    EXPECT_FALSE(DetectsCrLf(record + record + "\r\n" + record + "\r\n"));
}

TEST_F(LineFile, DetectingCrLfLosesNothingAndSetsTheRecordLength) {
    OpenFor(Padded("X1") + "\r\n" + Padded("X2") + "\r\n", 1);
    EXPECT_TRUE(m_File.DetectCrLf());
    CGuardBuffer buffer(131);
    EXPECT_EQ(m_File.ReadRecord(buffer.Data()), 130);
    EXPECT_EQ(buffer.Text(), Padded("X1") + "\r\n");
    EXPECT_EQ(m_File.ReadRecord(buffer.Data()), 130);
    EXPECT_EQ(buffer.Text(), Padded("X2") + "\r\n");
}

TEST_F(LineFile, WithoutCrLfTheRecordLengthIs128) {
    OpenFor(Padded("X1") + Padded("X2"), 1);
    EXPECT_FALSE(m_File.DetectCrLf());
    CGuardBuffer buffer(129);
    EXPECT_EQ(m_File.ReadRecord(buffer.Data()), 128);
    EXPECT_EQ(m_File.ReadRecord(buffer.Data()), 128);
    EXPECT_EQ(buffer.Text(), Padded("X2"));
}

TEST_F(LineFile, AShortTextIsPaddedWithBlanks) {
    Create();
    EXPECT_EQ(m_File.WriteRecord("X1", 128), 128);
    EXPECT_EQ(Written(), "X1" + std::string(126, ' '));
}

TEST_F(LineFile, ALongTextIsCut) {
    Create();
    EXPECT_EQ(m_File.WriteRecord(std::string(140, 'y').c_str(), 128), 128);
    EXPECT_EQ(Written(), std::string(128, 'y'));
}

TEST_F(LineFile, ATextIsWrittenUpToItsNul) {
    Create();
    EXPECT_EQ(m_File.WriteRecord("X1\0abc", 6), 6);
    EXPECT_EQ(m_File.WriteRecord("", 3), 3);
    EXPECT_EQ(Written(), "X1       ");
}

TEST_F(LineFile, EveryWriteHasALengthOfItsOwn) {
    Create();
    EXPECT_EQ(m_File.WriteRecord("ab", 2), 2);
    EXPECT_EQ(m_File.WriteRecord("cd", 4), 4);
    EXPECT_EQ(m_File.WriteRecord("", 0), 0);
    EXPECT_EQ(m_File.WriteRecord("ef", 1), 1);
    EXPECT_EQ(Written(), "abcd  e");
}

TEST_F(LineFile, WritingReplacesAnExistingFile) {
    m_Folder.Write("out", std::string(1000, 'o'));
    Create();
    EXPECT_EQ(m_File.WriteRecord("n", 1), 1);
    EXPECT_EQ(Written(), "n");
}

TEST_F(LineFile, AFileThatIsCreatedAndClosedIsEmpty) {
    Create();
    EXPECT_EQ(Written(), "");
}

TEST_F(LineFile, ALargeFileIsWrittenWhole) {
    CRecordBuilder records;
    Create();
    for (int i = 0; i < 20000; ++i) { // 2.6 MB
        records.Add("X1", std::to_string(i));
        ASSERT_EQ(m_File.WriteRecord((records.Lines().back() + "\r\n").c_str(), 130), 130);
    }
    EXPECT_EQ(m_File.GetBytesAccepted(), 2600000U);
    EXPECT_EQ(Written(), records.Text(true));
    EXPECT_EQ(m_File.GetBytesStored(), 2600000U);
}

TEST_F(LineFile, AClosedObjectOpensAnotherFile) {
    OpenFor("ab", 2);
    EXPECT_EQ(m_File.Close(), TABVEX_OK);
    Create();
    EXPECT_EQ(m_File.WriteRecord("cd", 2), 2);
    EXPECT_EQ(Written(), "cd");
    OpenFor("ef", 2);
    CGuardBuffer buffer(3);
    EXPECT_EQ(m_File.ReadRecord(buffer.Data()), 2);
    EXPECT_EQ(buffer.Text(), "ef");
}

TEST_F(LineFile, TheDestructorWritesAndClosesTheFile) {
    {
        CLineFile file;
        ASSERT_EQ(file.Open(m_Folder.PathOf("out").c_str(), kWriting, 2), TABVEX_OK);
        EXPECT_EQ(file.WriteRecord("ab", 2), 2);
    }
    EXPECT_EQ(ReadFile(m_Folder.PathOf("out")), "ab");
}

TEST_F(LineFile, LinesEndAtLfOrAtTheEndOfTheFile) {
    EXPECT_THAT(LinesOf("a\nbc\nd"), ElementsAre("a", "bc", "d", "-5"));
}

TEST_F(LineFile, ALastLfBeginsNoFurtherLine) {
    EXPECT_THAT(LinesOf("a\n"), ElementsAre("a", "-5"));
}

TEST_F(LineFile, CrsInsideALineAreDropped) {
    EXPECT_THAT(LinesOf("a\r\nb\rc\r\r\nd\r"), ElementsAre("a", "bc", "d", "-5"));
}

TEST_F(LineFile, AnEmptyLineReadsLikeTheEndOfTheFile) {
    EXPECT_THAT(LinesOf("a\n\nb\n"), ElementsAre("a", "-5"));
    std::string line;
    EXPECT_EQ(m_File.ReadLine(line), 1); // and yet the file goes on
    EXPECT_EQ(line, "b");
}

TEST_F(LineFile, ALineThatBeginsWithCrReadsLikeTheEndOfTheFile) {
    EXPECT_THAT(LinesOf("a\n\r\nb\n"), ElementsAre("a", "-5"));
}

TEST_F(LineFile, AnEmptyFileHasNoLine) {
    EXPECT_THAT(LinesOf(""), ElementsAre("-5"));
}

TEST_F(LineFile, LinesMayHoldAnyOtherByte) {
    EXPECT_THAT(LinesOf(std::string("a\0b\x1A\xFF\n", 6)), ElementsAre(std::string("a\0b\x1A\xFF", 5), "-5"));
}

TEST_F(LineFile, ALineHasNoLengthLimit) {
    const std::string longest(300000, 'l');
    EXPECT_THAT(LinesOf("a\n" + longest + "\r\nb"), ElementsAre("a", longest, "b", "-5"));
}

TEST_F(LineFile, ACrAtTheEndOfABlockIsDroppedAsWell) {
    const std::string most(65535, 'm'); // the CR is byte 65536
    EXPECT_THAT(LinesOf(most + "\r\nb\r\n"), ElementsAre(most, "b", "-5"));
    EXPECT_EQ(m_File.Close(), TABVEX_OK);
    EXPECT_THAT(LinesOf(most + "y\r\nb\r\n"), ElementsAre(most + "y", "b", "-5"));
}

} // namespace
