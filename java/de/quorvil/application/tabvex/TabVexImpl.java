package de.quorvil.application.tabvex;

import java.nio.ByteBuffer;
import java.nio.CharBuffer;
import java.nio.charset.CharacterCodingException;
import java.nio.charset.Charset;

/**
 * Calculation record files by item number: the native methods of the TabVex32X library.
 *
 * <p>A record set is created with {@link #createInstance} and named by its handle in every other call:
 * {@link #loadTable}, {@link #readAllRecordsEx}, then position with {@link #readFirst}, {@link #readNext} or
 * {@link #findFirst}, read and write items, and {@link #saveAllRecords}. A handle that is not known stands for the
 * record set created last; while there is none, the result is -1.
 *
 * <p><b>Results.</b> A native method tells its result code by calling {@link #setError} on the object that it was
 * called on; {@link #getError} gives the last one. 0 or more is success, a negative number a failure:
 *
 * <table>
 * <caption>Codes that all methods share</caption>
 * <tr><td>-1</td><td>no record of the item's type, no such item, or an argument that is null</td></tr>
 * <tr><td>-5</td><td>no current entry; no further one</td></tr>
 * <tr><td>-40</td><td>no table of the version asked for has been loaded</td></tr>
 * <tr><td>-98</td><td>out of memory, or another failure inside</td></tr>
 * <tr><td>-101</td><td>the field is blank (numbers and dates)</td></tr>
 * <tr><td>-1000</td><td>the text is longer than the method delivers</td></tr>
 * </table>
 *
 * <p>The same number means different things in different methods; their own codes stand with them. A method that is
 * given null for a text does nothing but report -1, and gives null, 0 or false. No method throws, unless
 * {@code setError} does: what it throws reaches the caller of the native method.
 *
 * <p><b>Texts.</b> The library works with bytes: a string is given to it as the bytes of its modified UTF-8, and bytes
 * come back as the string that they are the modified UTF-8 of; no character set is converted on the way. For plain
 * ASCII that is all there is to it. A byte that belongs to no character of modified UTF-8, as the umlauts of
 * windows-1252 mostly do not, comes back as the character of the same number (0xFC as U+00FC), but the string does not
 * go back into the record as that byte: U+00FC is written as two bytes. So texts that may hold anything but ASCII
 * should travel through {@link #readText} and {@link #writeText}, or as bytes. Those are in windows-1252, which the
 * library converts to and from the code page of the records, 850. What both have, umlauts and all, comes back as it
 * was. A character that one of the two lacks becomes a similar one or "?" there, and the result is 0 all the same:
 * the euro sign is written as "?", U+0160 as "S".
 *
 * <p><b>Threads.</b> Nothing is locked. All record sets together are to be used by one thread at a time.
 *
 * <p>The library is the one that {@code java.library.path} leads to, or else the one in the jar, which is unpacked into
 * a temporary folder. When there is neither, the first use of this class throws {@link UnsatisfiedLinkError}.
 */
public class TabVexImpl {
    private static final Charset ANSI = Charset.forName("windows-1252");

    static {
        NativeLibrary.load();
    }

    private int error;

    /** An object that keeps the last result code. Record sets belong to their handles, not to it. */
    public TabVexImpl() {}

    /** Takes the result code of a call; the native methods call it. Override it to learn of every code. */
    public void setError(int code) {
        error = code;
    }

    /** The result code told last; 0 before any call. */
    public int getError() {
        return error;
    }

    // --- Record sets -------------------------------------------------------------------------------------------------

    /**
     * Creates a record set. Reports nothing.
     *
     * @return its handle (4, 8, 12, ... in the order of creation), or 0 when there is no memory for it
     */
    public native int createInstance();

    /** Destroys a record set with all its records. Reports nothing. An unknown handle destroys the one created last. */
    public native void destroyInstance(int handle);

    // --- Files -------------------------------------------------------------------------------------------------------

    /**
     * Loads the table file that tells which items the records have, and holds its version against the one required.
     * Reports 0; -1: it cannot be opened; -2: no table-line reader beside the library; -3: it cannot be read; -4: it
     * has no header; -15: another version.
     *
     * @param file the path, as everywhere: in ASCII where the system's file names are not UTF-8, and with characters up
     *        to U+FFFF where they are, as modified UTF-8 writes those beyond in another way
     */
    public native void loadTable(int handle, String file, int versionMajor, int versionMinor);

    /**
     * Writes every record, 128 characters a line, over the file if there is one. Reports the number of record objects
     * written, to which every one that could not be written adds -8; -3: the file cannot be created.
     *
     * @param crlf true to end every line with CR LF, false to write the lines back to back
     */
    public native void saveAllRecords(int handle, String file, boolean crlf);

    /**
     * Reads a record file; the records held before are destroyed once it is open. Reports 0; -8: it cannot be opened;
     * -6: it cannot be read, or a record is short. What was read before a failure stays.
     */
    public native void readAllRecordsEx(int handle, String file);

    /**
     * Reads a file of lines of any length up to the first empty line. Reports 0, also when the file cannot be opened;
     * -1 for null.
     *
     * @return false when the file cannot be opened
     */
    public native boolean readVRecords(int handle, String file);

    // --- Reading items -----------------------------------------------------------------------------------------------

    /**
     * Reads an item of characters from the current entry. Reports 0; -50: the item is not of characters; -1000: it is
     * longer than 63 bytes, see {@link #readCharItemBytes}.
     *
     * @return the text in the item's full length, padded as the record holds it, or null unless 0 is reported
     */
    public native String readCharItem(int handle, int item);

    /** The same for items of every format. */
    public native String readItem(int handle, int item);

    /**
     * Reads a number without decimals. Reports 0; -50: the item is no number; -55: it has decimals; -66: the field holds
     * no number, or one with its sign at the end; -101: it is blank.
     *
     * @return the value; with -66 the number that the field begins with, as far as there is one; otherwise 0
     */
    public native int readIntItem(int handle, int item);

    /**
     * Reads a number with decimals. Reports 0; -50: the item is no number; -55: it has no decimals; -66: the field holds
     * no number; -101: it is blank.
     *
     * @return the value; with -66 the number that the field begins with, as far as there is one, as it stands there:
     *         implied decimals are not taken off; otherwise 0.0
     */
    public native double readFloatItem(int handle, int item);

    /**
     * Reads a date. Reports 0; -50: the item is no date; -70 to -75: the field holds no date of the item's own format;
     * -76: the format is none of those known; -101: the field is blank; -1000: the text is longer than 15 bytes.
     *
     * @param format DD, MM, YY or YYYY in one of the known orders, with up to two separators, such as "DD.MM.YYYY"
     * @return the date in that format, or null unless 0 is reported
     */
    public native String readDateItem(int handle, int item, String format);

    /**
     * Reads a text that the record type assembles from several items, joined by the delimiter. Reports 0; -1000: it was
     * cut to 255 bytes; other codes of the record type.
     *
     * @return the text, also when it was cut; "" when there is none
     */
    public native String readHardDynItem(int handle, int item);

    // --- Stepping ----------------------------------------------------------------------------------------------------

    /**
     * Makes the first entry of the record that owns an item the current one.
     * Reports 0; -5: there is none; -74: the item does not begin an entry; -78: the record has no lines.
     */
    public native void readFirst(int handle, int item);

    /** Goes to the next entry: -5 behind the last one. */
    public native void readNext(int handle, int item);

    /** Goes to the entry before: -5 before the first one, -62 for a record type that cannot step back. */
    public native void readPrev(int handle, int item);

    // --- Writing items -----------------------------------------------------------------------------------------------

    /**
     * Writes a text through the checks of an item of characters; blanks at its end are removed. A missing record is
     * created. Reports 0; -45: the text is longer than the item; -50: the item is not of characters; -55: the text is
     * none of the item's values.
     */
    public native void writeCharItem(int handle, int item, String text);

    /** The same for items of every format; also reports the codes of numbers and dates. */
    public native void writeItem(int handle, int item, String text);

    /** Overwrites an item of an existing record, unchecked. Reports 0; -2: the text is not exactly as long as it. */
    public native void writeHardItem(int handle, int item, String text);

    /** Writes a text that the record type takes apart at the delimiter. Reports 0 or a code of the record type. */
    public native void writeHardDynItem(int handle, int item, String text);

    /**
     * Writes a number. Reports 0; -50: the item is no number; -61: it is none of the item's values; -62: it is outside
     * the item's ranges; -65: it does not fit the field.
     */
    public native void writeIntItem(int handle, int item, int value);

    /** The same for a number with decimals, with six significant digits. */
    public native void writeFloatItem(int handle, int item, double value);

    /** The same, rounded to the item's decimals first. */
    public native void writeRoundFloatItem(int handle, int item, double value);

    /**
     * Writes a date. Reports 0; -50: the item is no date; -70: date and format differ in length; -71, -72, -73: the
     * date has a wrong separator, other things than digits, no such day; -74, -75: the item takes no such date; -76: the
     * format is none of those known.
     *
     * @param date the date in the format given, such as "24.12.2025"
     * @param format as of {@link #readDateItem}
     */
    public native void writeDateItem(int handle, int item, String date, String format);

    /** Blanks an item of an existing record. Reports 0. */
    public native void clearItem(int handle, int item);

    // --- Records and searches ----------------------------------------------------------------------------------------

    /** Destroys the records of a type ("X2": of "X2N" as well; "X9": of "X9_NEU"). Reports 0. */
    public native void destroyRecords(int handle, String type);

    /** Destroys all records. Reports 0. */
    public native void destroyAllRecords(int handle);

    /** Destroys all records of known types. Reports 0. */
    public native void destroyKnownRecords(int handle);

    /**
     * Adds a whole line to the record of a type, which is created when missing. Reports 0; -1: the line is not exactly
     * 128 bytes long; -2: the record cannot be created.
     */
    public native void setCompleteRecord(int handle, String type, String line);

    /**
     * Goes to the first entry whose item has this text, blanks at both ends aside. Reports what it gives.
     *
     * @return 1: found; 0: not found, or null given; -1: no record type owns the item, or its type has no search; -2:
     *         no record; -3: the type has no entries; -11: another item than those searched for; -12: no lines; -13:
     *         the item has no definition
     */
    public native int findFirst(int handle, int item, String text);

    /**
     * Goes on behind the entry found. Reports what it gives.
     *
     * @return 1: found; 0: not found, which ends the search; -4: no search is in progress
     */
    public native int findNext(int handle);

    /**
     * Sets the character that separates the values of an entry and of a list, at first "/". Reports 0.
     *
     * @param delimiter a character up to U+00FF; of others the low byte is taken
     * @return the one before
     */
    public native char setDelimiter(int handle, char delimiter);

    // --- Mutations ---------------------------------------------------------------------------------------------------

    /**
     * Reads a mutation of the current repair position. Reports 0, also when there is none.
     *
     * @param index 1 to 3
     * @return the mutation, or null when there is none or it cannot be read
     */
    public native X4Mutation readX4Mutation(int handle, int index);

    /** The same for the current repair position of the second opinion. */
    public native G9Mutation readG9Mutation(int handle, int index);

    /**
     * Adds a mutation, given as code and value ("TM/99.50"), code and two texts ("TM/LA/two layers"), or all four; one
     * with the same code is replaced. Reports 0; -2: no record; -5: there are three already, or no current entry; -7:
     * another number of parts; what the items' checks give; -1: the record is of the old form.
     */
    public native void addX4Mutation(int handle, String text);

    /** The same for the second opinion. */
    public native void addG9Mutation(int handle, String text);

    /**
     * Counts the mutations of the current repair position. Reports what it gives.
     *
     * @return 0 to 3, or a negative code: -1 without a record or for one of the old form
     */
    public native int getX4MutationsCount(int handle);

    /** The same for the second opinion. */
    public native int getG9MutationsCount(int handle);

    /**
     * Deletes all mutations of the current repair position. Reports what it gives.
     *
     * @return the number there was, or a negative code
     */
    public native int deleteX4Mutations(int handle);

    /** The same for the second opinion. */
    public native int deleteG9Mutations(int handle);

    /**
     * Deletes the first mutation with a code. Reports what it gives.
     *
     * @return 0, also when there are no mutations; -1: the code is not 2 or 3 characters long, or the record is of the
     *         old form; -2: no record; -90: there are others, but none with that code. 0 for null, which reports -1
     */
    public native int deleteX4Mutation(int handle, String code);

    /** The same for the second opinion. */
    public native int deleteG9Mutation(int handle, String code);

    /**
     * Sets the form in which X4 records are created from now on, and mutations are read. Reports the setting before.
     *
     * @param flag true for the newer form
     * @return the setting before
     */
    public native boolean useX4New(int handle, boolean flag);

    /**
     * Replaces the mutation codes of a type. Reports nothing, but -1 for null.
     *
     * @param kind "X4", "W4" or "G9", in upper or lower case; others are ignored
     * @param list code, kind, code, kind ... between delimiters, such as "EM/1/TM/3": kind 3 has two texts, kind 7 a
     *         split value, every other an amount. Mutations of kind 0 and 4, which the table gives, can be read only
     */
    public native void setMutationList(int handle, String kind, String list);

    /**
     * Replaces the repair methods of a type. Reports nothing, but -1 for null.
     *
     * @param kind "X4", "W4", "X6" or "W6", in upper or lower case; others are ignored
     * @param list the codes between delimiters, such as "E/ET/I"
     */
    public native void setRepairMethodList(int handle, String kind, String list);

    // --- Items as bytes ----------------------------------------------------------------------------------------------

    /**
     * {@link #readCharItem} with the bytes of the text, in windows-1252, of which there may be up to 640, as in the
     * longest record. It is the library's ReadCharItem and reports what that gives.
     *
     * @return the bytes, or null unless 0 is reported
     */
    public native byte[] readCharItemBytes(int handle, int item);

    /** {@link #readItem} likewise; it is the library's ReadItem. */
    public native byte[] readItemBytes(int handle, int item);

    /**
     * {@link #writeCharItem} with the bytes of the text, in windows-1252; it ends before a byte of 0. It is the
     * library's WriteCharItem and reports what that gives.
     */
    public native void writeCharItemBytes(int handle, int item, byte[] text);

    /** {@link #writeItem} likewise; it is the library's WriteItem. */
    public native void writeItemBytes(int handle, int item, byte[] text);

    /**
     * Reads the text of an item of any format, umlauts and all, through {@link #readItemBytes}.
     *
     * @return the text in the item's full length, or null unless 0 is reported
     */
    public String readText(int handle, int item) {
        byte[] bytes = readItemBytes(handle, item);
        return bytes == null ? null : new String(bytes, ANSI);
    }

    /**
     * Writes the text of an item of any format, umlauts and all, through {@link #writeItemBytes}. Reports what that
     * does; -1, with nothing written, for a text with U+0000 or with characters that windows-1252 does not have. Those
     * that windows-1252 has and the records' code page does not are written as similar ones, or as "?".
     */
    public void writeText(int handle, int item, String text) {
        writeItemBytes(handle, item, ansi(text)); // which reports -1 for null
    }

    /** The text in windows-1252; null when it cannot be written in it, or not whole: the library stops at U+0000. */
    private static byte[] ansi(String text) {
        if (text == null || text.indexOf('\0') >= 0) {
            return null;
        }
        try {
            ByteBuffer encoded = ANSI.newEncoder().encode(CharBuffer.wrap(text));
            byte[] bytes = new byte[encoded.remaining()];
            encoded.get(bytes);
            return bytes;
        } catch (CharacterCodingException unmappable) {
            return null;
        }
    }
}
