// Builds record files for tests.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// The lines of a record file, in order.
///
///     CRecordBuilder().Add("X1").Put(12, "x").Add("XT15").Add("X2N").Save(path);
class CRecordBuilder {
public:
    /// Adds a line of blanks that shows the type: at characters 0-1 and, for "XT15" and its like, 7-8; "X2N" and
    /// "X9_NEU" with the mark of the newer form.
    CRecordBuilder& Add(std::string_view type, std::size_t length = 128);
    /// Adds a line of a type, with what stands behind the type's two characters.
    CRecordBuilder& Add(std::string_view type, std::string_view rest);
    /// Overwrites the line added last from the 0-based `offset` on; throws when the text leaves the line.
    CRecordBuilder& Put(int offset, std::string_view text);

    const std::vector<std::string>& Lines() const { return m_Lines; }
    /// The file, CR LF behind each line when `crlf`.
    std::string Text(bool crlf = true) const;
    /// Writes the file; its path.
    std::string Save(const std::string& path, bool crlf = true) const;

private:
    std::vector<std::string> m_Lines;
};

/// `text` with blanks behind it, up to a record's 128 characters.
std::string Padded(std::string_view text, std::size_t length = 128);
