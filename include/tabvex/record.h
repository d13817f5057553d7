// Record objects: all lines of one record type of a record file, with a cursor over their entries.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tabvex/export.h"
#include "tabvex/item_def.h"

class CLineFile;
namespace tabvex {
class CLayout;
struct CRecordContext;

/// One mutation as it is read: a number, or two texts. What it does not have is -1.0 and "".
struct CMutation {
    std::string Code;      ///< 2 or 3 characters
    double Value = -1.0;   ///< -1.0 without one
    bool HasValue = false; ///< the mutation carries a number
    std::string Text1;     ///< "" without one
    std::string Text2;     ///< "" without one
};
} // namespace tabvex

/// Base of all record objects. A record set creates, owns and destroys them; callers look at them through
/// CAllRecords::ExistRecord and change them through the record set's operations.
///
/// Lines are numbered from 0 and hold 128 characters ("FZ" records 640). Offsets in a line are 0-based, item positions
/// 1-based. Texts that a record hands out are valid until the record changes.
class TABVEX_API CRecord {
public:
    CRecord(const CRecord&) = delete;
    CRecord& operator=(const CRecord&) = delete;
    virtual ~CRecord();

    /// Key of the record type, e.g. "X1", "XT15", "X9_NEU"; "UNKNOWN" for a line of a type that is not known.
    const char* GetType() const;
    /// True for a line of a type that is not known or has no class.
    bool IsGeneric() const;
    /// Number of lines.
    int GetLineCount() const;
    /// Line `index` (0-based), NUL-terminated; the empty text when there is no such line. Entries and mutations that
    /// were changed in a record of the newer form show in its lines once these were saved or asked for as a whole.
    const char* GetLine(int index) const;
    /// Characters in a line of this type: 128, for "FZ" 640.
    int GetLineLength() const;
    /// The items of the type, in the table file's order. Empty when the table had no section for the type, or without
    /// the memory to parse it.
    const std::vector<CItemDef>& GetLayout() const;
    /// The first item of the layout with this number, or null; null without memory, too.
    const CItemDef* FindItem(int number) const;
    /// Line of the current entry, 0-based; equal to the number of lines when the entries were run through.
    int GetCurrentLine() const;
    /// Offset of the current entry in its line, 0-based.
    int GetCurrentOffset() const;

protected:
    /// A record without lines, with the layout of its type.
    CRecord(const char* type, tabvex::CRecordContext& context);

    /// Called before lines are added or overwritten other than by writing entries.
    virtual void BeforeLinesChange();
    /// Called when a caller has created the record, with one line of blanks and defaults.
    virtual void AfterCreation();

    // What the record set asks of its records. All of it may throw without memory, which ends the whole operation of
    // the record set; callers reach it through that only.

    /// Moves to the first entry of the group whose key item is `item`.
    virtual int FirstEntry(int item) = 0;
    /// Moves to the next entry.
    virtual int NextEntry(int item) = 0;
    /// Moves to the entry before. TABVEX_ENTRY_NO_STEP_BACK for a type that cannot.
    virtual int PrevEntry(int item);
    /// Moves to the last entry. No type does: TABVEX_NOT_SUPPORTED.
    virtual int ReadLast(int item);

    /// The text of `item` in the current entry (header items: in the first line), as the line holds it.
    virtual int ReadEntryItem(int item, const CItemDef& definition, std::string_view& text) = 0;
    /// The whole current entry, its items joined by the delimiter. TABVEX_NOT_SUPPORTED for types without it.
    virtual int ReadEntry(int item, std::string& text);
    /// Writes `value`: into the item of a list type, else as a whole entry, its items joined by the delimiter.
    virtual int WriteEntry(int item, const CItemDef& definition, std::string_view value) = 0;
    /// Writes a whole entry with its texts in the caller's character set. TABVEX_NOT_SUPPORTED for types without it.
    virtual int WriteDynEntry(int item, std::string_view value);

    /// Moves to the first entry whose `item` has this text: TABVEX_FIND_FOUND or TABVEX_FIND_NOTHING.
    /// TABVEX_NOT_SUPPORTED for types without a search.
    virtual int FindFirst(int item, std::string_view text);
    /// Moves to the next such entry behind the current one.
    virtual int FindNext(int item, std::string_view text);

    // Mutations of the current entry, for the types that have them; TABVEX_NOT_SUPPORTED for all others.

    /// Reads mutation `index`, 1 to 3, by the rules of the newer or the older form of the record.
    virtual int ReadMutation(int index, bool newForm, tabvex::CMutation& mutation);
    /// Adds a mutation, or replaces the one with its code; parts are joined by the delimiter.
    virtual int AddMutation(std::string_view text);
    /// Deletes the first mutation with the code.
    virtual int DeleteOneMutation(std::string_view code);
    /// Deletes all mutations of the entry; their number.
    virtual int DeleteMutations();
    /// Number of mutations of the entry.
    virtual int GetMutationCount();

    /// Adds a line: `text` up to its NUL, at most GetLineLength() + 2 characters, NULs behind it; a null text adds
    /// blanks. Returns the new line's index; the cursor stays.
    int ParseLine(const char* text);
    /// The same for a text that need not be terminated.
    int AddLine(std::string_view text);
    /// Adds a line that repeats the first `headerLength` - 1 characters of the line at the cursor, or the type only,
    /// and moves the cursor to the next line, offset `headerLength` - 1.
    virtual int AppendContinuationLine(int headerLength);
    /// Overwrites the first 128 characters of the line last added.
    void ReplaceLastLine(const char* text);
    /// Overwrites the item in the line at the cursor (in the last one when the cursor is behind it). TABVEX_OK, or
    /// TABVEX_ITEM_NO_LINE.
    virtual int HardWrite(const CItemDef& definition, std::string_view text);
    /// Writes the default texts of the type's items into the line last added; the number of items with a default.
    int FillDefaults();
    /// Fix-up after a file was read. TABVEX_ENTRY_CHECK_FAILED (-2) for types that need none.
    virtual int PostRead();
    /// Fix-up before the lines are looked at or saved.
    virtual int PrepareWrite();
    /// Writes every line, each padded to its length, with CR LF behind it when `crlf`; in memory the line then ends
    /// there, with CR LF or without. 1, or the failed write's code.
    int WriteLines(CLineFile& file, bool crlf);
    /// Appends every line to a text, cut or padded with blanks to 128 characters, with LF behind it when `lf`.
    void AppendLines(std::string& text, bool lf) const;

    /// GetLayout, which throws as well.
    const std::vector<CItemDef>& Items() const;
    /// FindItem, which throws as well.
    const CItemDef* Definition(int number) const;

    /// Offset of an item's position in a line, 0-based; -1, which lies outside every line, for positions below 1.
    static int OffsetOf(const CItemDef& definition);
    /// The line at `index`, for reading and writing; its buffer is 3 characters longer than GetLineLength().
    char* LineAt(int index) const;
    /// The text of an item or entry cut from a line: clipped to the line, NULs included.
    std::string_view CutFromLine(int line, int offset, int length) const;
    /// The same, ended at the first NUL.
    std::string_view CutText(int line, int offset, int length) const;
    /// Overwrites what lies inside the line; anything outside it is dropped.
    void PutIntoLine(int line, int offset, std::string_view text);
    /// The same for the text of a field, of which at most the item's length is taken.
    void PutField(int line, int offset, int length, std::string_view field);
    /// Adds a line behind the others; AddLine without BeforeLinesChange.
    void AppendLine(std::string_view text);

    char m_szType[8] = {};                            ///< key of the record type
    int m_bGeneric = 0;                               ///< 1: of a type that is not known or has no class
    int m_nLineLength = 128;                          ///< characters in a line
    std::vector<std::uint32_t> m_Lines;               ///< numbers of the buffers in the record set's pool of lines
    char* m_pCurLine = nullptr;                       ///< the line last added
    int m_nCurLine = 0;                               ///< line of the current entry
    int m_nCurOffset = 0;                             ///< offset of the current entry in its line
    int m_nWriteLine = 0;                             ///< line in which the next entry is written
    int m_nWriteOffset = 0;                           ///< offset at which it is written
    std::shared_ptr<const tabvex::CLayout> m_pLayout; ///< shared by all records of the type
    tabvex::CRecordContext& m_Context;                ///< what records share with their record set

private:
    std::size_t BufferSize() const;
    char* NewLine();

    friend class CAllRecords;
    friend class CAllRecordsEx;
};
