package tabvex.tests;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.nio.charset.Charset;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Arrays;
import java.util.stream.Stream;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;

/** Texts with other characters than ASCII. The records hold them in code page 850, the library gives windows-1252. */
class TextsTest extends RecordSetTest {
    private static final Charset ANSI = Charset.forName("windows-1252");

    @TempDir
    Path folder;

    @BeforeEach
    void readUmlauts() {
        readSample("umlauts-cp850.rec");
    }

    @Test
    void bytesComeInWindows1252() {
        byte[] name = padded("J\u00FCrgen K\u00F6hler", 20).getBytes(ANSI);
        assertArrayEquals(name, records.readItemBytes(handle, 1090));
        assertArrayEquals(name, records.readCharItemBytes(handle, 1090));
        assertReported(0, 0);
    }

    @Test
    void aTextIsReadWithItsUmlauts() {
        assertEquals(padded("J\u00FCrgen K\u00F6hler", 20), records.readText(handle, 1090));
        assertReported(0);
    }

    @Test
    void bytesAndTextsAreReadInAnyLength() {
        String title = padded("Kalkulation f\u00FCr J\u00FCrgen K\u00F6hler, T\u00FCbingen", 121);
        assertEquals(title, records.readText(handle, 34005));
        assertArrayEquals(title.getBytes(ANSI), records.readCharItemBytes(handle, 34005));
        assertReported(0, 0);
    }

    @Test
    void aTextWrittenComesBack() {
        records.writeText(handle, 1090, "Zo\u00EB \u00D6zg\u00FCr-\u00C6r\u00F8");
        assertReported(0);
        assertEquals(padded("Zo\u00EB \u00D6zg\u00FCr-\u00C6r\u00F8", 20), records.readText(handle, 1090));
        assertReported(0);
    }

    @Test
    void aTextIsSavedInCodePage850() throws Exception {
        records.destroyAllRecords(handle);
        records.writeText(handle, 1090, "J\u00FC");
        Path saved = folder.resolve("saved");
        records.saveAllRecords(handle, saved.toString(), false);
        assertReported(0, 0, 1);
        assertArrayEquals(new byte[] {'J', (byte) 0x81, ' '}, Arrays.copyOfRange(Files.readAllBytes(saved), 75, 78));
    }

    @Test
    void bytesAreWrittenThroughTheChecksOfTheItem() {
        records.writeCharItemBytes(handle, 1090, "\u00C4hre  ".getBytes(ANSI));
        assertReported(0);
        assertEquals(padded("\u00C4hre", 20), records.readText(handle, 1090));
        assertReported(0);
        records.writeCharItemBytes(handle, 1060, "12".getBytes(ANSI));
        records.writeItemBytes(handle, 1060, "12".getBytes(ANSI));
        records.writeItemBytes(handle, 1120, "XYZ".getBytes(ANSI));
        records.writeItemBytes(handle, 1090, "one more than twenty.".getBytes(ANSI));
        assertReported(-50, 0, -55, -45);
    }

    @Test
    void writtenBytesEndBeforeAZero() {
        records.writeItemBytes(handle, 1090, new byte[] {'a', 'b', 0, 'c'});
        assertEquals(padded("ab", 20), records.readText(handle, 1090));
        assertReported(0, 0);
    }

    @Test
    void emptyBytesAreAnEmptyText() {
        records.writeItemBytes(handle, 1090, new byte[0]);
        records.writeText(handle, 1100, "");
        assertEquals(padded("", 20), records.readText(handle, 1090));
        assertEquals(padded("", 20), records.readText(handle, 1100));
        assertReported(0, 0, 0, 0);
    }

    @Test
    void aTextWithCharactersThatWindows1252DoesNotHaveIsRefused() {
        records.writeText(handle, 1090, "\u0141\u00F3d\u017A");
        assertReported(-1);
        assertEquals(padded("J\u00FCrgen K\u00F6hler", 20), records.readText(handle, 1090));
        assertReported(0);
    }

    @ParameterizedTest
    @CsvSource({"20AC, ?", "0160, S", "2013, -", "2026, .", "2122, T", "2020, +"})
    void aCharacterThatCodePage850DoesNotHaveIsWrittenAsASimilarOneOnPurpose(String character, String written) {
        records.writeText(handle, 1090, "a" + (char) Integer.parseInt(character, 16) + "b");
        assertReported(0);
        assertEquals(padded("a" + written + "b", 20), records.readText(handle, 1090));
        assertReported(0);
    }

    @Test
    void aTextThatWouldEndEarlyIsRefused() {
        records.writeText(handle, 1090, "ab\0c");
        records.writeText(handle, 1090, "\0");
        assertReported(-1, -1);
        assertEquals(padded("J\u00FCrgen K\u00F6hler", 20), records.readText(handle, 1090));
        assertReported(0);
    }

    @Test
    void whatCannotBeReadIsNull() {
        assertNull(records.readText(handle, 1021));
        assertNull(records.readItemBytes(handle, 1021));
        assertNull(records.readCharItemBytes(handle, 1060));
        assertReported(-1, -1, -50);
    }

    @Test
    void aNullTextIsRefused() {
        records.writeText(handle, 1090, null);
        records.writeItemBytes(handle, 1090, null);
        records.writeCharItemBytes(handle, 1090, null);
        assertReported(-1, -1, -1);
    }

    @Test
    void aByteThatIsNoModifiedUtf8ComesBackAsTheCharacterOfItsNumber() {
        assertEquals(padded("J\u00FCrgen K\u00F6hler", 20), records.readItem(handle, 1090));
        assertEquals(padded("J\u00FCrgen K\u00F6hler", 20), records.readCharItem(handle, 1090));
        assertReported(0, 0);
    }

    @Test
    void aStringIsWrittenAsItsModifiedUtf8OnPurpose() {
        records.writeItem(handle, 1090, "J\u00FC");
        assertReported(0);
        assertEquals(padded("J\u00C3\u00BC", 20), records.readText(handle, 1090));
        assertEquals(padded("J\u00FC", 19), records.readItem(handle, 1090)); // two bytes are one character again
        assertReported(0, 0);
    }

    /** Bytes in hexadecimal, and the characters that they come back as. */
    @ParameterizedTest
    @CsvSource({
        // whole characters of modified UTF-8
        "C3BC, 00FC", "C2A0, 00A0", "E0A0A0, 0820", "E4ABBB, 4AFB", "EFBFBF, FFFF", "EDA0A0, D820",
        // bytes that continue nothing, characters that break off
        "A4, 00A4", "BFBF, 00BF 00BF", "E4, 00E4", "C3, 00C3", "E4AB, 00E4 00AB", "C3C3BC, 00C3 00FC",
        "E441, 00E4 0041", "E4AB41, 00E4 00AB 0041", "F641, 00F6 0041", "E4E4ABBB, 00E4 4AFB",
        // characters that are longer than they need to be, or of more than three bytes
        "C0AF, 00C0 00AF", "C1BF, 00C1 00BF", "F0A0A0A0, 00F0 00A0 00A0 00A0", "FFFE, 00FF 00FE",
    })
    void everyByteComesBackOneWayOrTheOther(String bytes, String characters) {
        byte[] written = new java.math.BigInteger("01" + bytes + "2E", 16).toByteArray();
        records.writeItemBytes(handle, 1090, Arrays.copyOfRange(written, 1, written.length)); // a "." ends each
        assertReported(0);
        StringBuilder expected = new StringBuilder();
        for (String character : characters.split(" ")) {
            expected.append((char) Integer.parseInt(character, 16));
        }
        assertEquals(expected + ".", records.readItem(handle, 1090).trim());
        assertReported(0);
    }

    @Test
    void aTextThatBreaksOffInTheMiddleOfACharacterIsRead() {
        byte[] bytes = new byte[20];
        Arrays.fill(bytes, (byte) 'x');
        bytes[19] = (byte) 0xE4;
        records.writeItemBytes(handle, 1090, bytes);
        assertReported(0);
        assertEquals("xxxxxxxxxxxxxxxxxxx\u00E4", records.readItem(handle, 1090));
        assertReported(0);
    }

    @Test
    void theTextsOfAMutationComeLikewise() {
        records.useX4New(handle, true);
        records.setMutationList(handle, "X4", "TM/3");
        records.destroyAllRecords(handle);
        assertReported(0, 0);
        records.setCompleteRecord(handle, "X4", padded("X400012E  0283  241000TM LAd\u00FCnn", 127));
        records.readFirst(handle, 4025);
        assertEquals("d\u00FCnn     ", records.readX4Mutation(handle, 1).getSubtypeAV());
        assertReported(0, 0, 0);
    }

    /** The last one is beyond U+FFFF, for which UTF-8 is F0 9F 98 80. */
    @ParameterizedTest
    @CsvSource({"gr\u00F6\u00DFer, gr%C3%B6%C3%9Fer", "\uFFE6, %EF%BF%A6", "\uD83D\uDE00, %ED%A0%BD%ED%B8%80"})
    void fileNamesTravelAsModifiedUtf8OnPurpose(String name, String bytes) throws Exception {
        records.saveAllRecords(handle, folder + "/" + name, true);
        assertReported(records.getError());
        assertTrue(records.getError() > 0);
        try (Stream<Path> files = Files.list(folder)) {
            String saved = files.findAny().get().toUri().toString(); // shows the bytes of the name in any locale
            assertTrue(saved.endsWith("/" + bytes), saved);
        }
    }
}
