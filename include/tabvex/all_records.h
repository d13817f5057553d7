// The record set: one record file in memory, worked on by item number.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "tabvex/arrays.h"
#include "tabvex/export.h"
#include "tabvex/record.h"
#include "tabvex/result_codes.h"

namespace tabvex {
struct CRecordSetState;
} // namespace tabvex

/// One record file in memory: a store of record objects, one per record type in the order in which the types were met,
/// and the table file that tells what items the records hold.
///
/// Use: construct, LoadTable, ReadAllRecords(Ex), position with ReadFirst/ReadNext/FindFirst, read and write items,
/// SaveAllRecords. Every int operation returns a code of result_codes.h; operations by item number return
/// TABVEX_NO_TABLE until a table has been loaded, FindFirst TABVEX_FIND_NO_TYPE. A failed operation leaves the lines as
/// they were, unless it says otherwise. Null pointer arguments give TABVEX_BAD_ARGUMENT. Nothing is thrown; what goes
/// wrong inside, out of memory included, gives TABVEX_INTERNAL_FAILURE. A record set must be used by one thread at a
/// time.
class TABVEX_API CAllRecords {
public:
    CAllRecords();
    virtual ~CAllRecords();
    CAllRecords(const CAllRecords&) = delete;
    CAllRecords& operator=(const CAllRecords&) = delete;

    // --- Table file -------------------------------------------------------------------------------------------------

    /// Loads the table file and holds its version against the one required. The table is kept in memory; records
    /// created from now on get their layout from it, records that exist keep theirs.
    /// TABVEX_OK; TABVEX_TABLE_WRONG_VERSION: the table is in memory, but items stay refused if no earlier load
    /// succeeded; TABVEX_TABLE_CANNOT_OPEN, _NO_READER, _CANNOT_READ, _NO_HEADER: nothing changed.
    int LoadTable(const char* fileName, int versionMajor, int versionMinor);
    /// True once a table of the version asked for has been loaded: item operations are refused until then.
    bool IsTableLoaded() const;
    /// Sum of the lengths of the type's items numbered `lowest` to `highest` (inclusive); 0 without such a type.
    int SumItemLengths(const char* type, int lowest, int highest);

    // --- Reading and destroying records -----------------------------------------------------------------------------

    /// Reads a file of 128-character records, with CR LF behind each (when the first has it) or without. Records held
    /// before stay until the new ones are read, so that both are in memory meanwhile, and they are still there when the
    /// file cannot be opened or memory runs out. Record numbering is switched on for all types.
    /// TABVEX_READ_SUCCEEDED (1); TABVEX_READ_FAILED (0): the file cannot be opened or read, or a record is short, and
    /// what was read before that takes the place of the records held.
    int ReadAllRecords(const char* fileName);
    /// The same, with TABVEX_OK on success, and TABVEX_READ_CANNOT_OPEN, TABVEX_READ_SHORT_RECORD or
    /// TABVEX_FILE_READ_FAILED on failure; afterwards every record object runs its fix-up after reading.
    int ReadAllRecordsEx(const char* fileName);
    /// Reads a file of lines of any length up to the first empty line; lines of unknown types are passed over, a
    /// record keeps a line's first 130 characters. Records held before stay as with ReadAllRecords.
    /// TABVEX_READ_SUCCEEDED, also for an empty file, or TABVEX_READ_FAILED when the file cannot be opened.
    int ReadAll_V_Records(const char* fileName);
    /// Destroys every record object. A search in progress ends.
    void DestroyAllRecords();
    /// Destroys the record objects of one type. "X2" stands for "X2N" as well, "X9" for "X9_NEU".
    void DestroyRecords(const char* type);
    /// Destroys every record object but those of unknown types.
    void DestroyKnownRecordsOnly();

    // --- Looking at records -----------------------------------------------------------------------------------------

    /// The first record object of exactly this type, or null. Types that begin with "K" are never found.
    CRecord* ExistRecord(const char* type);
    /// Key of the record type that owns an item number, "" when none does; the table file has no part in it.
    static const char* GetTypeOfItem(int item);
    /// Number of record objects in the store. Types that are not known have one object a line, all others one object a
    /// type.
    int GetRecordCount() const;
    /// The record object at `index`, 0-based, in store order; null outside.
    CRecord* GetRecord(int index) const;

    // --- Navigation and search --------------------------------------------------------------------------------------

    /// Moves the cursor of the record that owns `item` to its first entry; `item` is the group key item of the type.
    /// TABVEX_OK; TABVEX_NO_TABLE; TABVEX_NO_RECORD; TABVEX_ENTRY_NO_MORE, TABVEX_ENTRY_WRONG_KEY,
    /// TABVEX_ENTRY_NO_LINES, TABVEX_ENTRY_EMPTY_SPAN and what else the type answers.
    int ReadFirst(int item);
    /// Moves to the next entry. Codes as ReadFirst: TABVEX_ENTRY_NO_MORE behind the last one.
    int ReadNext(int item);
    /// Moves to the entry before. Codes as ReadFirst, and TABVEX_ENTRY_NO_STEP_BACK for types that cannot.
    int ReadPrev(int item);
    /// No type moves to its last entry: TABVEX_NOT_SUPPORTED once table and record are there.
    int ReadLast(int item);
    /// Moves to the first entry whose `item` has this text, blanks at both ends aside. TABVEX_FIND_FOUND (1);
    /// TABVEX_FIND_NOTHING (0); TABVEX_FIND_NO_TYPE, also while no table is loaded; TABVEX_FIND_NO_RECORD,
    /// TABVEX_FIND_LIST_TYPE, TABVEX_FIND_WRONG_ITEM, TABVEX_FIND_NO_LINES, TABVEX_FIND_NO_DEFINITION; the cursor stays
    /// unless found.
    int FindFirst(int item, const char* text);
    /// Goes on behind the entry found. TABVEX_FIND_FOUND; TABVEX_FIND_NOTHING, which ends the search;
    /// TABVEX_FIND_NOT_STARTED.
    int FindNext();

    // --- Whole lines ------------------------------------------------------------------------------------------------

    /// Copies the type's first line: at most `bufferSize` characters and the NUL when it fits. In OEM mode the copy is
    /// converted to ANSI. TABVEX_OK; TABVEX_NO_RECORD; TABVEX_COMPLETE_NO_LINES; TABVEX_COMPLETE_BUFFER_TOO_SMALL:
    /// below 128.
    int GetFirstCompleteRecord(const char* type, char* buffer, int bufferSize);
    /// The same with the type's line `lineNumber`, 1-based: TABVEX_COMPLETE_NO_SUCH_LINE.
    int GetNextCompleteRecord(const char* type, char* buffer, int bufferSize, int lineNumber);
    /// Adds a whole line to the record object of a type, which is created when missing. `line` has 129 bytes; it is
    /// padded with blanks and, in OEM mode, converted from ANSI to OEM in place. An unknown type gets a record object
    /// of its own. TABVEX_OK; TABVEX_BAD_ARGUMENT: `lineSize` is not 129. TABVEX_COMPLETE_CANNOT_CREATE is kept but not
    /// given any more.
    int SetCompleteRecord(const char* type, char* line, int lineSize);

    // --- Code lists -------------------------------------------------------------------------------------------------
    //
    // Filled by LoadTable from the table file, or with defaults. Layouts take the value lists of their repair-method
    // and mutation items from them when a record object is created.

    /// Replaces the repair methods of "X4", "W4", "X6" or "W6" by the parts of `list` between the delimiters; empty
    /// parts are dropped. `type` is turned to upper case in place; any other type is ignored.
    void SetRepairMethodList(char* type, const char* list);
    /// Replaces the mutation codes and kinds of "X4" or "W4" (CAllRecordsEx: "G9" too) by the pairs code, kind, code,
    /// kind ... of `list`, such as "EM/1/TM/3". An empty code is dropped, its kind is not: kept on purpose. Its place
    /// is behind LoadTable, which fills the lists anew, and before the records are read, whose layouts take them then.
    void SetMutationList(char* type, const char* list);

    // The lists handed out are the record set's own and stay owned by it. Null only when there is no memory to fill
    // them.

    CStringArray* GetX4RepArtList();   ///< Repair methods of "X4".
    CStringArray* GetW4RepArtList();   ///< Repair methods of "W4".
    CStringArray* GetX6RepArtList();   ///< Repair methods of "X6".
    CStringArray* GetW6RepArtList();   ///< Repair methods of "W6".
    CStringArray* GetX4MutationList(); ///< Mutation codes of "X4".
    CStringArray* GetW4MutationList(); ///< Mutation codes of "W4".
    CUIntArray* GetX4MutationKinds();  ///< Kinds of the mutation codes of "X4", in the same order.
    CUIntArray* GetW4MutationKinds();  ///< Kinds of the mutation codes of "W4", in the same order.

    // --- Settings ---------------------------------------------------------------------------------------------------

    /// Sets the character that separates the values of an entry and of a list (at first "/"); the one before.
    char SetDelimiter(char delimiter);
    /// Switches record numbering on (`mode` 1) or off (0) for the types that begin with `letter`, "A" to "Z", or "*"
    /// for all; -1 changes nothing. TABVEX_OK or TABVEX_BAD_ARGUMENT.
    int SetRecNums(const char* letter, int mode);
    /// Replaces the collating sequence by 1 to 128 characters. 0, or -1 with the sequence kept.
    int SetNewCharacterTable(const char* sequence);

    // --- Items as text ----------------------------------------------------------------------------------------------
    //
    // Operations by item number return TABVEX_NO_TABLE, TABVEX_NO_RECORD (no record object of the item's type; for
    // writes: the type has no class) and TABVEX_ITEM_UNKNOWN before anything else. Reads work on the existing record;
    // writes create the record, with a blank line and its defaults, when it is missing. All codes of the record type's
    // entry operations are passed on: TABVEX_ITEM_NO_LINE, TABVEX_ENTRY_... and so on.

    /// Copies the item's text, padded to its full length as the record holds it, into `buffer` of `size` characters,
    /// terminator included. In OEM mode the text is converted to ANSI. TABVEX_OK; TABVEX_TEXT_CUT: `size` - 1
    /// characters were copied (none when `size` is below 1). Any other code leaves the buffer alone.
    int ReadItem(int item, char* buffer, int size);
    /// The same as ReadItem.
    int HardReadItem(int item, char* buffer, int size);
    /// The same for character items only: TABVEX_ITEM_WRONG_FORMAT for others.
    int ReadCharItem(int item, char* buffer, int size);
    /// Copies a text that the record type assembles from several items, joined by the delimiter.
    int HardReadDynItem(int item, char* buffer, int size);

    /// Writes a text through the item's checks and layout (TABVEX_VALUE_..., TABVEX_DATE_...). In OEM mode the text is
    /// converted from ANSI. A date is given as YYYYMMDD, whatever its pattern, and is not checked; use WriteDateItem.
    int WriteItem(int item, const char* text);
    /// The same for character items only; blanks at the text's end are removed, unless it is one blank.
    int WriteCharItem(int item, const char* text);
    /// Overwrites the item's characters in the line at the cursor, unchecked, in an existing record. The text must be
    /// exactly as long as the item: TABVEX_ITEM_WRONG_LENGTH.
    int HardWriteItem(int item, const char* text);
    /// Writes a text that the record type takes apart at the delimiter; it is not converted.
    int HardWriteDynItem(int item, const char* text);
    /// Blanks the item in the line at the cursor of an existing record.
    int ClearItem(int item);

    // --- Items as numbers -------------------------------------------------------------------------------------------
    //
    // All return TABVEX_ITEM_WRONG_FORMAT for items that are not numbers. Numbers are not converted between character
    // sets, and are read and written with "." whatever the process locale is ("," is read as well).

    /// The value in decimal, "" for a blank field (TABVEX_OK). `size` at least 15: TABVEX_VALUE_BUFFER_TOO_SMALL.
    /// TABVEX_VALUE_WRONG_DECIMALS for an item with decimals; TABVEX_VALUE_NOT_A_NUMBER with what was read so far.
    int ReadIntItem(int item, char* buffer, int size);
    /// The value; TABVEX_VALUE_BLANK with 0 for a blank field.
    int ReadIntItem(int item, int& value);
    /// The value with six significant digits, "" for a blank field. `size` at least 15. TABVEX_VALUE_WRONG_DECIMALS for
    /// an item without decimals; TABVEX_VALUE_NOT_A_NUMBER.
    int ReadFloatItem(int item, char* buffer, int size);
    /// The value; TABVEX_VALUE_BLANK with 0.0 for a blank field.
    int ReadFloatItem(int item, double& value);
    /// Writes a number given as text: TABVEX_VALUE_EMPTY, TABVEX_VALUE_NOT_A_NUMBER.
    int WriteIntItem(int item, const char* text);
    /// Writes the value: TABVEX_VALUE_NUMBER_NOT_LISTED, TABVEX_VALUE_OUT_OF_RANGE, TABVEX_VALUE_DOES_NOT_FIT.
    int WriteIntItem(int item, int value);
    /// Writes a number given as text: TABVEX_VALUE_EMPTY, TABVEX_VALUE_NOT_A_NUMBER.
    int WriteFloatItem(int item, const char* text);
    /// Writes the value with six significant digits.
    int WriteFloatItem(int item, double value);
    /// The same, rounded to the item's decimals first.
    int WriteRoundFloatItem(int item, double value);

    // --- Items as dates ---------------------------------------------------------------------------------------------
    //
    // Both return TABVEX_ITEM_WRONG_FORMAT for items that are not dates. `format` is made of DD, MM, YY or YYYY in one
    // of the sixteen known orders, with up to two separators: TABVEX_DATE_UNUSABLE_FORMAT. The 31st of August, October
    // and December is refused, TABVEX_DATE_NO_SUCH_DAY, in fields and in texts to be written: kept on purpose.

    /// Copies the date in the caller's format, or "" with TABVEX_VALUE_BLANK for a blank field or TABVEX_DATE_... for
    /// one that holds no date of the item's own format, the 31st of August, October and December among them.
    int ReadDateItem(int item, const char* format, char* buffer, int size);
    /// Writes a date given in the caller's format: TABVEX_DATE_... before any record is created, also for the 31st of
    /// August, October and December.
    int WriteDateItem(int item, const char* format, const char* date);

    // --- Mutations of "X4" ------------------------------------------------------------------------------------------
    //
    // They act on the current entry of the "X4" record. All return TABVEX_NO_TABLE; TABVEX_MUTATION_NOT_PARSED when the
    // record's lines are not all 128 characters long.

    /// Sets the form in which "X4" records are created from now on, and mutations are read: the newer one when `on` is
    /// not 0. The setting before.
    int UseX4New(int on);
    /// Reads mutation `index`, 1 to 3. A text of exactly its size fits, so that every buffer has one byte more than its
    /// size says. In OEM mode texts are converted to ANSI. What the mutation does not have is -1.0 and "".
    /// TABVEX_OK; TABVEX_MUTATION_BAD_INDEX, before anything else; TABVEX_NO_RECORD; TABVEX_MUTATION_NONE;
    /// TABVEX_MUTATION_NO_ENTRY (old form); TABVEX_VALUE_NOT_A_NUMBER, TABVEX_VALUE_BLANK with value -1.0;
    /// TABVEX_TEXT_CUT: nothing is copied.
    int ReadX4Mutation(int index, char* code, int codeSize, double& value, char* text1, int text1Size, char* text2,
                       int text2Size);
    /// The same with the value as text: six significant digits, "" where there is none.
    int ReadX4Mutation(int index, char* code, int codeSize, char* value, int valueSize, char* text1, int text1Size,
                       char* text2, int text2Size);
    /// Adds a mutation given as code and value, code and two texts, or code, value and two texts of which the kind of
    /// the code picks; a mutation with the same code is replaced. TABVEX_OK; TABVEX_MUTATION_NO_RECORD;
    /// TABVEX_MUTATION_FULL; TABVEX_MUTATION_NO_ENTRY; TABVEX_MUTATION_WRONG_PARTS; TABVEX_VALUE_...;
    /// TABVEX_NOT_SUPPORTED in the old form.
    int AddX4Mutation(const char* mutation);
    /// Deletes the first mutation with the code. TABVEX_OK, also when there are none; TABVEX_MUTATION_NO_RECORD;
    /// TABVEX_MUTATION_BAD_CODE; TABVEX_MUTATION_NONE; TABVEX_NOT_SUPPORTED in the old form.
    int DeleteOneX4Mutation(const char* code);
    /// Deletes all; the number there was, or TABVEX_NO_RECORD, TABVEX_NOT_SUPPORTED in the old form.
    int DeleteX4Mutations();
    /// Their number, or TABVEX_NO_RECORD, TABVEX_NOT_SUPPORTED in the old form.
    int GetX4MutationCount();

    // --- Saving -----------------------------------------------------------------------------------------------------

    /// Numbers the lines and writes every record in store order, in place over an existing file: 128 characters a line,
    /// followed by CR LF when `crlf` is not 0. The number of record objects written, to which every one that could not
    /// be written adds TABVEX_FILE_WRITE_FAILED; TABVEX_FILE_CANNOT_CREATE.
    int SaveAllRecords(const char* fileName, int crlf);
    /// Record objects that the last SaveAllRecords could not write whole; 0 when all is in the file.
    int GetSaveErrors() const;
    /// The whole file as text, 128 characters a line, each followed by LF when `lf` is not 0. The text's length when
    /// `buffer` is null or `bufferSize` 0; the negative length when `bufferSize` is below it, with the buffer
    /// untouched; otherwise `bufferSize` + 1 bytes are set and the length is returned.
    int WriteAllRecords(char* buffer, int bufferSize, int lf);
    /// The lines of the "X1" record, of which 128 characters and a NUL are copied: TABVEX_OK. Without a buffer the
    /// length of all lines, its negative when `bufferSize` is below it; TABVEX_NO_RECORD. The buffer has 129 bytes, one
    /// more than `bufferSize` may say.
    int GetX1Record(char* buffer, int bufferSize);
    /// The same of the "X$" record, with a buffer of 129 bytes likewise.
    int GetXDollarRecord(char* buffer, int bufferSize);
    /// All lines of the "X7" record and a NUL; `bufferSize` must be the length + 1 at least.
    int GetX7Record(char* buffer, int bufferSize);

    // --- Kept for callers that still make these calls ---------------------------------------------------------------

    void SetOptimierungsCode(char code);    ///< Does nothing.
    void SetKalkArt(char kind);             ///< Does nothing.
    void SetCalcNr_K_Records(char* number); ///< Does nothing.
    void DoNotSortKRecords(char* type);     ///< Does nothing.
    /// Does nothing. TABVEX_NOT_SUPPORTED.
    int CreateNewKRecord(char* type);

protected:
    /// True for a type, an index of the record types, that gets a record object of its own class.
    virtual bool KnowsType(int type) const;
    /// Fills the code lists from the table file, or with the defaults.
    virtual void FillCodeLists();
    /// True for a type whose mutation list SetMutationList serves.
    virtual bool HasMutationList(std::string_view type) const;

    struct CMutationBuffers;

    /// ReadX4Mutation, for the record of any type that has mutations.
    int ReadMutation(const char* type, bool newForm, int index, const CMutationBuffers& buffers);
    /// AddX4Mutation likewise.
    int AddMutation(const char* type, const char* mutation);
    /// DeleteOneX4Mutation likewise.
    int DeleteOneMutation(const char* type, const char* code);
    /// DeleteX4Mutations and GetX4MutationCount likewise.
    int CountMutations(const char* type, int (CRecord::*operation)());

    std::unique_ptr<tabvex::CRecordSetState> m_pState; ///< What the record set holds.

private:
    struct CItemTarget;

    enum class EMissing { Fails, IsCreated }; // what becomes of a record object that does not exist

    template <typename Operation>
    int WithTable(Operation operation);
    template <typename Operation>
    int WithItem(int item, EMissing missing, Operation operation);
    std::unique_ptr<CRecord> NewRecord(int type);
    CRecord* GetOrCreateRecord(int type, bool blankLine);
    CRecord* CreateRecord(int type, bool blankLine);
    CRecord* ExistingRecordForKey(const char* key);
    CRecord* RecordOfItem(int item) const;
    CRecord* GetOrCreateRecordOfItem(int item);
    void RefreshNumbering(const CRecord& record);
    void RemoveRecords(bool (*condemned)(const CRecord& record, const char* type), const char* type);
    void RemoveRecordsFrom(std::size_t count);
    void ReleaseLines(const CRecord& record);
    int ReadFixedRecords(const char* fileName, bool parse);
    int AddFixedRecords(CLineFile& file);
    int ReadVariableLines(const char* fileName);
    int AddVariableLines(CLineFile& file);
    int StepTo(int item, int (CRecord::*step)(int item));
    int ReadText(int item, bool charactersOnly, char* buffer, int size);
    template <typename Parse>
    int ReadNumber(int item, bool decimals, Parse parse);
    template <typename Print>
    int WriteNumber(int item, Print print);
    void ReplaceMutationList(const std::string& type, const char* list);
    void PrepareSave();
    int GetSingleRecord(const char* type, bool whole, char* buffer, int bufferSize);
};

/// A record set that also knows the mutation records of type "G9" and lets callers choose character sets. All other
/// interfaces of the library work on this class.
class TABVEX_API CAllRecordsEx : public CAllRecords {
public:
    CAllRecordsEx();
    ~CAllRecordsEx() override;

    // The mutation operations of the "G9" record answer like those of "X4" in its newer form.

    /// Reads mutation `index`, 1 to 3; buffers and codes as ReadX4Mutation.
    int ReadG9Mutation(int index, char* code, int codeSize, double& value, char* text1, int text1Size, char* text2,
                       int text2Size);
    /// The same with the value as text.
    int ReadG9Mutation(int index, char* code, int codeSize, char* value, int valueSize, char* text1, int text1Size,
                       char* text2, int text2Size);
    /// Adds a mutation; codes as AddX4Mutation.
    int AddG9Mutation(const char* mutation);
    /// Deletes the first mutation with the code; codes as DeleteOneX4Mutation.
    int DeleteOneG9Mutation(const char* code);
    /// Deletes all; the number there was, or TABVEX_NO_RECORD.
    int DeleteG9Mutations();
    /// Their number, or TABVEX_NO_RECORD.
    int GetG9MutationCount();

    using CAllRecords::SetMutationList;
    /// The same, with the type text left alone.
    void SetMutationList(const char* type, const char* list);
    CStringArray* GetG9RepArtList();   ///< Repair methods of "G9"; owned by the record set, as the following.
    CStringArray* GetG9MutationList(); ///< Mutation codes of "G9".
    CUIntArray* GetG9MutationKinds();  ///< Kinds of the mutation codes of "G9", in the same order.
    void ReadRepArtAndMutList();       ///< Fills all lists from the table file again.
    void ReadG9RepArtList();           ///< Fills the repair methods of "G9" from the table file again.
    void ReadG9MutList();              ///< Fills the mutation codes and kinds of "G9" from the table file again.

    /// Sets the character-set mode: with "OEM", the mode at first, item texts are converted between the OEM code page
    /// of the records and the ANSI code page of the caller; with any other text they are not.
    void SetCharacterSet(const char* mode);
    /// Chooses the code pages of the conversion: OEM 850 (at first) or 437, ANSI 1252. 0, or -1 with no change.
    int SetCodePages(int oem, int ansi);

protected:
    bool KnowsType(int type) const override;
    void FillCodeLists() override;
    bool HasMutationList(std::string_view type) const override;
};
