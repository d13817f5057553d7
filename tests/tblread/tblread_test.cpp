// The table-line reader through its four entry points, as a program that loads it sees it.
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "platform/platform.h"
#include "support/guard_buffer.h"
#include "support/temp_folder.h"

namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

constexpr std::size_t kLineSize = 2000;
constexpr int kOpened = 0;
constexpr int kCannotOpen = 2;
constexpr int kLine = 0;
constexpr int kNoLine = 1;
constexpr std::size_t kBlock = 65536; // the reader takes files in blocks of this size

class TableLineReader : public ::testing::Test {
protected:
    TableLineReader() {
        const std::string path = std::string(TABVEX_BUILD_DIR) + "/" + tabvex::kTableReaderFile;
        EXPECT_TRUE(m_Library.Load(path.c_str())) << path;
        Bind("FileName2", FileName2);
        Bind("GetFirstLine", GetFirstLine);
        Bind("GetNextLine", GetNextLine);
        Bind("FileClose", FileClose);
    }

    int Tell(std::string_view bytes) const { return FileName2(m_Folder.Write("file", bytes).c_str()); }

    // Every line of a file of these bytes.
    std::vector<std::string> LinesOf(std::string_view bytes) const {
        EXPECT_EQ(Tell(bytes), kOpened);
        std::vector<std::string> lines;
        CGuardBuffer line(kLineSize);
        for (int result = GetFirstLine(line.Data()); result == kLine; result = GetNextLine(line.Data())) {
            lines.push_back(line.Text());
        }
        EXPECT_EQ(line.Text(), ""); // the end of the file leaves an empty text
        FileClose();
        return lines;
    }

    CTempFolder m_Folder;
    int (*FileName2)(const char* fileName) = nullptr;
    int (*GetFirstLine)(char* line) = nullptr;
    int (*GetNextLine)(char* line) = nullptr;
    void (*FileClose)() = nullptr;

private:
    template <typename Function>
    void Bind(const char* name, Function& entry) {
        entry = reinterpret_cast<Function>(m_Library.Find(name)); // NOLINT(*-reinterpret-cast)
        EXPECT_NE(entry, nullptr) << name;
    }

    tabvex::CSharedLibrary m_Library;
};

TEST_F(TableLineReader, LineEndsOfEveryKindAreRemoved) {
    EXPECT_THAT(LinesOf("one\ntwo\n"), ElementsAre("one", "two"));
    EXPECT_THAT(LinesOf("one\r\ntwo\r\n"), ElementsAre("one", "two"));
    EXPECT_THAT(LinesOf("one\rtwo\r"), ElementsAre("one", "two"));
}

TEST_F(TableLineReader, LineEndsMayBeMixed) {
    EXPECT_THAT(LinesOf("1\n2\r\n3\r4\n\r5\r\r6\r\n\n7"), ElementsAre("1", "2", "3", "4", "", "5", "", "6", "", "7"));
}

TEST_F(TableLineReader, TheLastLineNeedsNoLineEnd) {
    EXPECT_THAT(LinesOf("one\ntwo"), ElementsAre("one", "two"));
    EXPECT_THAT(LinesOf("one"), ElementsAre("one"));
}

TEST_F(TableLineReader, EmptyLinesAreDelivered) {
    EXPECT_THAT(LinesOf("\n"), ElementsAre(""));
    EXPECT_THAT(LinesOf("\r\n"), ElementsAre(""));
    EXPECT_THAT(LinesOf("\r"), ElementsAre(""));
    EXPECT_THAT(LinesOf("\n\none\n\n"), ElementsAre("", "", "one", ""));
}

TEST_F(TableLineReader, AnEmptyFileHasNoLine) {
    EXPECT_EQ(Tell(""), kOpened);
    CGuardBuffer line(kLineSize);
    EXPECT_EQ(GetFirstLine(line.Data()), kNoLine);
    EXPECT_EQ(line.Text(), "");
    EXPECT_EQ(GetNextLine(line.Data()), kNoLine);
}

TEST_F(TableLineReader, BeyondTheEndThereIsNoLineHoweverOftenOneIsAskedFor) {
    EXPECT_EQ(Tell("one"), kOpened);
    CGuardBuffer line(kLineSize);
    EXPECT_EQ(GetFirstLine(line.Data()), kLine);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(GetNextLine(line.Data()), kNoLine);
        EXPECT_EQ(line.Text(), "");
    }
}

TEST_F(TableLineReader, ALineIsCutAt1999Characters) {
    for (const std::size_t length :
         {std::size_t{1998}, std::size_t{1999}, std::size_t{2000}, std::size_t{2001}, std::size_t{5000}, 3 * kBlock}) {
        for (const std::string end : {"\n", "\r\n", "\r"}) {
            const std::string kept(length < 1999 ? length : 1999, 'l');
            std::string text(length, 'l');
            text.append(end).append("next").append(end);
            EXPECT_THAT(LinesOf(text), ElementsAre(kept, "next")) << length;
        }
    }
}

TEST_F(TableLineReader, ALongLastLineIsCutAsWell) {
    EXPECT_THAT(LinesOf(std::string(5000, 'l')), ElementsAre(std::string(1999, 'l')));
}

TEST_F(TableLineReader, LinesGoOnAcrossBlocks) {
    for (std::size_t before = kBlock - 6; before <= kBlock + 2; ++before) {
        // Lines of 63 characters and a last one that ends around the block's end.
        std::string text;
        std::vector<std::string> expected;
        while (text.size() + 64 < before) {
            expected.emplace_back(63, 'b');
            text += expected.back() + "\n";
        }
        expected.emplace_back(before - text.size(), 'e');
        text += expected.back();
        expected.emplace_back("next");
        expected.emplace_back("last");
        for (const std::string end : {"\n", "\r\n", "\r"}) {
            std::string whole = text;
            whole.append(end).append("next").append(end).append("last");
            EXPECT_EQ(LinesOf(whole), expected) << before << " line end " << end.size();
        }
    }
}

TEST_F(TableLineReader, ACrAtTheEndOfABlockAndTheLfBehindItAreOneLineEnd) {
    const std::string block(kBlock - 1, 'b');
    EXPECT_THAT(LinesOf(block + "\r" + "\n" + "next"), ElementsAre(std::string(1999, 'b'), "next"));
    EXPECT_THAT(LinesOf(block + "\r" + "\n"), ElementsAre(std::string(1999, 'b')));
    EXPECT_THAT(LinesOf(block + "\r"), ElementsAre(std::string(1999, 'b')));
    EXPECT_THAT(LinesOf(block + "\r" + "\n\n"), ElementsAre(std::string(1999, 'b'), ""));
    EXPECT_THAT(LinesOf(block + "\r" + "next"), ElementsAre(std::string(1999, 'b'), "next"));
}

TEST_F(TableLineReader, AFileOfExactlyOneBlockIsReadWhole) {
    EXPECT_THAT(LinesOf(std::string(kBlock - 1, 'b') + "\n"), ElementsAre(std::string(1999, 'b')));
    EXPECT_THAT(LinesOf(std::string(kBlock, 'b')), ElementsAre(std::string(1999, 'b')));
}

TEST_F(TableLineReader, ManyLinesAreAllDelivered) {
    std::string text;
    std::vector<std::string> expected;
    for (int i = 0; i < 50000; ++i) {
        expected.push_back("line " + std::to_string(i));
        text += expected.back() + "\r\n";
    }
    EXPECT_EQ(LinesOf(text), expected);
}

TEST_F(TableLineReader, BytesAreDeliveredAsTheyAre) {
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) {
        if (byte != '\n' && byte != '\r') {
            bytes.push_back(static_cast<char>(byte));
        }
    }
    EXPECT_THAT(LinesOf(bytes + "\n\t one \n"), ElementsAre(bytes, "\t one "));
}

TEST_F(TableLineReader, AFileThatCannotBeOpenedIsToldByItsName) {
    EXPECT_EQ(FileName2(m_Folder.PathOf("none").c_str()), kCannotOpen);
    EXPECT_EQ(FileName2(m_Folder.Path().c_str()), kCannotOpen);
    EXPECT_EQ(FileName2(""), kCannotOpen);
    EXPECT_EQ(FileName2(nullptr), kCannotOpen);
}

TEST_F(TableLineReader, AfterAFailureThereAreNoLines) {
    EXPECT_EQ(Tell("one\ntwo\n"), kOpened);
    EXPECT_EQ(FileName2(m_Folder.PathOf("none").c_str()), kCannotOpen);
    CGuardBuffer line(kLineSize);
    EXPECT_EQ(GetFirstLine(line.Data()), kNoLine);
    EXPECT_EQ(line.Text(), "");
    EXPECT_EQ(FileName2(m_Folder.Path().c_str()), kCannotOpen);
    EXPECT_EQ(GetFirstLine(line.Data()), kNoLine);
}

TEST_F(TableLineReader, ANameToldAgainStartsOver) {
    const std::string path = m_Folder.Write("again", "one\ntwo\nthree\n");
    CGuardBuffer line(kLineSize);
    EXPECT_EQ(FileName2(path.c_str()), kOpened);
    EXPECT_EQ(FileName2(path.c_str()), kOpened);
    EXPECT_EQ(GetFirstLine(line.Data()), kLine);
    EXPECT_EQ(GetNextLine(line.Data()), kLine);
    EXPECT_EQ(line.Text(), "two");
    EXPECT_EQ(FileName2(path.c_str()), kOpened);
    EXPECT_EQ(GetFirstLine(line.Data()), kLine);
    EXPECT_EQ(line.Text(), "one");
}

TEST_F(TableLineReader, ANameToldAgainStandsForWhatTheFileIsNow) {
    const std::string path = m_Folder.Write("again", "old\n");
    CGuardBuffer line(kLineSize);
    EXPECT_EQ(FileName2(path.c_str()), kOpened);
    m_Folder.Write("again", "new\n");
    EXPECT_EQ(FileName2(path.c_str()), kOpened);
    EXPECT_EQ(GetFirstLine(line.Data()), kLine);
    EXPECT_EQ(line.Text(), "new");
    EXPECT_EQ(FileName2(m_Folder.Write("again", "").c_str()), kOpened);
    EXPECT_EQ(GetFirstLine(line.Data()), kNoLine);
    fs::remove(m_Folder.Write("gone", "one\n"));
    EXPECT_EQ(FileName2(m_Folder.PathOf("gone").c_str()), kCannotOpen);
}

TEST_F(TableLineReader, ANameToldAgainForgetsAHalfLineEnd) {
    CGuardBuffer line(kLineSize);
    EXPECT_EQ(Tell("one\r"), kOpened);
    EXPECT_EQ(GetFirstLine(line.Data()), kLine);
    EXPECT_EQ(Tell("\ntwo"), kOpened); // its LF belongs to no CR
    EXPECT_EQ(GetFirstLine(line.Data()), kLine);
    EXPECT_EQ(line.Text(), "");
    EXPECT_EQ(GetNextLine(line.Data()), kLine);
    EXPECT_EQ(line.Text(), "two");
}

TEST_F(TableLineReader, AnotherNameReplacesTheFile) {
    CGuardBuffer line(kLineSize);
    EXPECT_EQ(Tell("one\n"), kOpened);
    EXPECT_EQ(FileName2(m_Folder.Write("other", "other\n").c_str()), kOpened);
    EXPECT_EQ(GetFirstLine(line.Data()), kLine);
    EXPECT_EQ(line.Text(), "other");
    EXPECT_EQ(GetNextLine(line.Data()), kNoLine);
}

TEST_F(TableLineReader, ClosingEndsTheLines) {
    CGuardBuffer line(kLineSize);
    EXPECT_EQ(Tell("one\ntwo\n"), kOpened);
    EXPECT_EQ(GetFirstLine(line.Data()), kLine);
    FileClose();
    EXPECT_EQ(GetNextLine(line.Data()), kNoLine);
    EXPECT_EQ(line.Text(), "");
}

TEST_F(TableLineReader, ClosingWithoutAnOpenFileDoesNothing) {
    FileClose();
    FileClose();
    CGuardBuffer line(kLineSize);
    EXPECT_EQ(GetFirstLine(line.Data()), kNoLine);
    EXPECT_EQ(GetNextLine(line.Data()), kNoLine);
    EXPECT_THAT(LinesOf("one\n"), ElementsAre("one"));
}

TEST_F(TableLineReader, ANullBufferIsNoLine) {
    EXPECT_EQ(Tell("one\ntwo\n"), kOpened);
    EXPECT_EQ(GetFirstLine(nullptr), kNoLine);
    EXPECT_EQ(GetNextLine(nullptr), kNoLine);
    CGuardBuffer line(kLineSize);
    EXPECT_EQ(GetNextLine(line.Data()), kLine);
    EXPECT_EQ(line.Text(), "one");
}

} // namespace
