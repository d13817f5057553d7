// A record file as it lies on the disk: the library files lines by type, this keeps them by number.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "finding.h"

class CAllRecords;
class CRecord;

namespace tabvex::tool {

enum class EFileForm {
    Auto,  ///< Lines when the file begins like one of V records that end in a line break of their own, else Fixed
    Fixed, ///< records of 128 characters
    Lines, ///< lines of any length
};

/// The lines of a record file, numbered from 1.
class CRecordFile {
public:
    /// Reads the file; throws CToolError when that fails.
    CRecordFile(std::string fileName, EFileForm form);

    const std::string& GetName() const { return m_strName; }
    bool IsFixed() const { return m_bFixed; }
    /// Fixed records have CR LF behind each.
    bool HasCrLf() const { return m_bFixed && m_bCrLf; }
    /// The whole file; the lines are parts of it.
    const std::string& GetBytes() const { return m_strBytes; }
    /// Lines that the library reads: not a record that is cut off, nor what follows an empty line.
    int GetLineCount() const { return static_cast<int>(m_nLinesRead); }
    /// Line `number` without its line break; "" for 0, the number of a line that is not known.
    std::string_view GetLine(int number) const;
    /// What is wrong in how the lines lie in the file.
    CFindings Check() const;

private:
    void SplitRecords();
    void SplitLines();
    void CheckSeparators(CFindings& findings) const;

    std::string m_strName;
    std::string m_strBytes;
    bool m_bFixed = true;
    bool m_bCrLf = false;
    std::vector<std::string_view> m_Lines;
    std::size_t m_nLinesRead = 0;
};

/// Which line of the file each line of each record object is.
class CLineNumbers {
public:
    CLineNumbers(const CRecordFile& file, const CAllRecords& records);

    /// For the record object at `index` of the store: the file's line of its line `line` (0-based); 0: not known.
    int Get(int index, int line) const;
    /// All lines of the record object.
    const std::vector<int>& GetAll(int index) const { return m_Lines[static_cast<std::size_t>(index)]; }
    /// Lines of the file that no record object holds.
    const std::vector<int>& GetForeign() const { return m_Foreign; }

private:
    bool TakeNext(int index, std::string_view line, int number);
    bool TakeKnown(std::string_view line, int number);
    bool TakeGeneric(std::string_view line, int number);

    const CAllRecords& m_Records;
    std::vector<std::vector<int>> m_Lines; // by record object
    std::vector<int> m_Known;              // indexes of the record objects of known types
    std::vector<int> m_Generic;            // of those that hold one line each
    std::size_t m_nNextGeneric = 0;
    std::vector<int> m_Foreign;
};

} // namespace tabvex::tool
