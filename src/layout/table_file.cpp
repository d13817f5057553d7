#include "layout/table_file.h"

#include <algorithm>
#include <array>

#include "tabvex/result_codes.h"

using tabvex::CSectionCursor;
using tabvex::CTableHeader;
using tabvex::CTableImage;

namespace {

constexpr int kReaderCannotOpen = 2;
constexpr int kReaderCannotRead = 3;
constexpr int kReaderNoFirstLine = 1;
constexpr std::size_t kHeaderLineSize = 500;

// A reader may fill the whole buffer without ending the text; the byte behind it always does.
static_assert(CTableImage::kLineSize >= tabvex::kReaderLineSize);
struct CReaderLine {
    alignas(tabvex::kBlockLength) std::array<char, CTableImage::kLineRoom> Text = {};
};

bool IsPrintable(char c) {
    return c >= ' ' && static_cast<unsigned char>(c) <= 127;
}

// The whole buffer counts, with what earlier lines have left behind this one's end; characters above 127 do not.
bool IsBlank(const CReaderLine& line) {
    const char* const text = line.Text.data();
    return *text == '\0' || (!IsPrintable(*text) && std::none_of(text, text + tabvex::kReaderLineSize, IsPrintable));
}

// False without a header. The heads are not indexed yet, as comments have not been cut. `last` is the last line read.
bool ParseHeader(CTableImage& image, int& last) {
    CTableHeader header = image.Header;
    CSectionCursor cursor(image);
    int result = cursor.EnterSection(image.ScanForHead("HEADER"));
    if (result == TABVEX_SECTION_MISSING) {
        return false;
    }
    while (result > 0) {
        image.TrimLineLeft(cursor.GetCurrentLine());
        // The header's own newline character already holds for the lines behind it.
        const std::string_view line = cursor.GetText();
        header.ParseLine(line.substr(0, kHeaderLineSize));
        image.Header = header;
        result = line.empty() ? 0 : cursor.NextLine();
    }
    last = cursor.GetCurrentLine();
    return true;
}

int Copy(std::string_view text, char* buffer, int size) {
    const std::size_t count = std::min(text.size(), static_cast<std::size_t>(size));
    text.copy(buffer, count);
    buffer[count] = '\0';
    return static_cast<int>(text.size());
}

} // namespace

CTableFile::CTableFile() : m_pImage(std::make_shared<CTableImage>()), m_Cursor(*m_pImage) {}

CTableFile::CTableFile(std::vector<std::string> readerFiles)
    : m_Reader(std::move(readerFiles)), m_pImage(std::make_shared<CTableImage>()), m_Cursor(*m_pImage) {}

int CTableFile::Open(const char* fileName) {
    if (fileName == nullptr) {
        return TABVEX_TABLE_CANNOT_OPEN;
    }
    if (!m_Reader.Bind()) {
        return TABVEX_TABLE_NO_READER;
    }
    auto image = std::make_shared<CTableImage>();
    image->Header = GetHeader();
    const int result = ReadLines(fileName, *image);
    if (result != TABVEX_OK) {
        return result;
    }
    int lastHeaderLine = CTableImage::kNone;
    if (!ParseHeader(*image, lastHeaderLine)) {
        return TABVEX_TABLE_NO_HEADER;
    }
    image->CutComments(image->Header.Comment);
    image->IndexHeads();
    image->GiveBackRoom();
    m_Reader.FileClose();
    m_Reader.Release();
    SetImage(std::move(image));
    m_Cursor.SetCurrentLine(lastHeaderLine);
    return TABVEX_OK;
}

void CTableFile::SetImage(std::shared_ptr<const CTableImage> image) noexcept {
    m_Cursor.SetImage(*image);
    m_pImage = std::move(image);
}

int CTableFile::ReadLines(const char* fileName, CTableImage& image) const {
    if (m_Reader.FileName2(fileName) == kReaderCannotOpen) {
        return TABVEX_TABLE_CANNOT_OPEN;
    }
    // Told twice on purpose: each call is asked for another failure.
    if (m_Reader.FileName2(fileName) == kReaderCannotRead) {
        return TABVEX_TABLE_CANNOT_READ;
    }
    CReaderLine line;
    if (m_Reader.GetFirstLine(line.Text.data()) == kReaderNoFirstLine) {
        return TABVEX_TABLE_CANNOT_READ;
    }
    image.Reserve();
    image.AddLine(line.Text.data()); // kept even when it is blank
    int result = 0;
    do {
        result = m_Reader.GetNextLine(line.Text.data());
        if (!IsBlank(line)) {
            image.AddLine(line.Text.data());
        }
        line.Text.front() = '\0';
    } while (result == 0);
    return TABVEX_OK;
}

int CTableFile::FindSection(const char* name, char* buffer, int size) {
    const int length = m_Cursor.FindSection(name == nullptr ? "" : name);
    if (length < 0) {
        return length;
    }
    return buffer == nullptr || size < 1 ? TABVEX_LINE_NO_BUFFER : Copy(m_Cursor.GetText(), buffer, size);
}

int CTableFile::NextLine(char* buffer, int size) {
    const int length = m_Cursor.NextLine();
    if (length < 0) {
        return length;
    }
    return buffer == nullptr || size < 1 ? TABVEX_LINE_NO_BUFFER : Copy(m_Cursor.GetText(), buffer, size);
}

int CTableFile::GetColumnCount() const {
    return m_Cursor.GetColumnCount();
}

int CTableFile::GetColumn(int index, char* buffer, int size) {
    if (buffer == nullptr || size < 1) {
        return TABVEX_COLUMN_NO_BUFFER;
    }
    std::string_view column;
    const int length = m_Cursor.GetColumn(index, column);
    return length < 0 ? length : Copy(column, buffer, size);
}

CTableFile::CHeaderField CTableFile::GetHeaderField(int number) const {
    const CTableHeader& header = GetHeader();
    const auto text = [](const std::optional<std::string>& value) {
        return value ? CHeaderField(*value) : CHeaderField();
    };
    switch (number) {
    case 0:
        return text(header.Id);
    case 1:
        return std::make_pair(header.VersionMajor, header.VersionMinor);
    case 2:
        return std::make_tuple(header.DateYear, header.DateMonth, header.DateDay);
    case 3:
        return text(header.Author);
    case 4:
        return header.Country;
    case 5:
        return header.Language;
    case 6:
        return header.Delimiter;
    case 7:
        return header.Comment;
    case 8:
        return header.Newline;
    default:
        return {};
    }
}

int CTableFile::SetNewlineMode(int mode) {
    const int before = static_cast<int>(m_Cursor.GetMode());
    if (mode >= static_cast<int>(tabvex::ENewlineMode::Cr) && mode <= static_cast<int>(tabvex::ENewlineMode::CrLf)) {
        m_Cursor.SetMode(static_cast<tabvex::ENewlineMode>(mode));
    }
    return before;
}
