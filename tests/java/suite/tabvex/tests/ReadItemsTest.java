package tabvex.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;

import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

class ReadItemsTest extends RecordSetTest {
    @TempDir
    Path folder;

    @Test
    void aCharacterItemComesInItsFullLength() {
        readSample("all-types.rec");
        assertEquals("Anna Lindner        ", records.readCharItem(handle, 1090));
        assertEquals("CLM-2025-004711 ", records.readCharItem(handle, 1020));
        assertReported(0, 0);
    }

    @Test
    void anItemThatDoesNotExistIsNullWithItsCode() {
        readSample("all-types.rec");
        assertNull(records.readCharItem(handle, 1021));
        assertNull(records.readItem(handle, 999999));
        assertReported(-1, -1);
    }

    @Test
    void onlyReadItemReadsWhatIsNotOfCharacters() {
        readSample("all-types.rec");
        assertNull(records.readCharItem(handle, 1060));
        assertReported(-50);
        assertEquals("  48210", records.readItem(handle, 1060));
        assertReported(0);
    }

    @Test
    void withoutATableEveryItemIsRefused() {
        assertNull(records.readCharItem(handle, 1090));
        assertNull(records.readItem(handle, 1090));
        assertEquals(0, records.readIntItem(handle, 1060));
        assertEquals(0.0, records.readFloatItem(handle, 1130));
        assertNull(records.readDateItem(handle, 1030, "DD.MM.YYYY"));
        assertEquals("", records.readHardDynItem(handle, 2120));
        records.readFirst(handle, 2120);
        records.readNext(handle, 2120);
        records.readPrev(handle, 2120);
        records.clearItem(handle, 1090);
        assertReported(-40, -40, -40, -40, -40, -40, -40, -40, -40, -40);
    }

    private void loadTable(String... sections) throws Exception {
        List<String> lines = new ArrayList<>(List.of("[HEADER]", "VERSION = 1.0", "DELIMITER = |", "NEWLINE = ^"));
        lines.addAll(List.of(sections));
        Path table = Files.write(folder.resolve("small.table"), lines);
        records.loadTable(handle, table.toString(), 1, 0);
        assertReported(0);
    }

    @Test
    void sixtyThreeCharactersAreReadAndOneMoreIsRefusedOnPurpose() throws Exception {
        loadTable("[DATA_X1]", "1090|63|1|C|", "1100|64|65|C|");
        String line = "63 characters" + ".".repeat(50) + "-" + "64 characters" + ".".repeat(51);
        addLine("X1", line);
        assertEquals(line.substring(0, 63), records.readItem(handle, 1090));
        assertEquals(line.substring(0, 63), records.readCharItem(handle, 1090));
        assertNull(records.readItem(handle, 1100));
        assertNull(records.readCharItem(handle, 1100));
        assertReported(0, 0, -1000, -1000);
        assertEquals(line.substring(64), records.readText(handle, 1100));
        assertReported(0);
    }

    @Test
    void aWholeNumberIsRead() {
        readSample("all-types.rec");
        assertEquals(48210, records.readIntItem(handle, 1060));
        assertReported(0);
    }

    @Test
    void aBlankNumberIsZeroWithItsCode() {
        loadTable();
        addLine("X1", "X10001");
        assertEquals(0, records.readIntItem(handle, 1060));
        assertEquals(0.0, records.readFloatItem(handle, 1130));
        assertReported(-101, -101);
    }

    @Test
    void ofWhatIsNoNumberTheBeginningIsReadWithItsCode() {
        loadTable();
        addLine("X1", padded(padded("X10001", 60) + "12x", 123) + "81x");
        assertEquals(12, records.readIntItem(handle, 1060));
        assertEquals(81.0, records.readFloatItem(handle, 1130), "two implied decimals are not taken off");
        assertReported(-66, -66);
        records.destroyAllRecords(handle);
        assertReported(0);
        addLine("X1", padded(padded("X10001", 60) + "x12", 123) + "x81");
        assertEquals(0, records.readIntItem(handle, 1060));
        assertEquals(0.0, records.readFloatItem(handle, 1130));
        assertReported(-66, -66);
    }

    @Test
    void aNumberOfTheOtherKindIsZeroWithItsCode() {
        readSample("all-types.rec");
        assertEquals(0, records.readIntItem(handle, 1130));
        assertEquals(0.0, records.readFloatItem(handle, 1060));
        assertEquals(0, records.readIntItem(handle, 1090));
        assertReported(-55, -55, -50);
    }

    @Test
    void aNumberWithDecimalsIsRead() {
        readSample("all-types.rec");
        records.readFirst(handle, 2120);
        assertEquals(1250.0, records.readFloatItem(handle, 2125));
        records.readNext(handle, 2120);
        assertEquals(890.5, records.readFloatItem(handle, 2125));
        assertReported(0, 0, 0, 0);
    }

    @Test
    void aDateComesInTheFormatAskedFor() {
        readSample("all-types.rec");
        assertEquals("14.11.2025", records.readDateItem(handle, 1030, "DD.MM.YYYY"));
        assertEquals("20251114", records.readDateItem(handle, 1030, "YYYYMMDD"));
        assertReported(0, 0);
    }

    @Test
    void aDateThatCannotBeReadIsNullWithItsCode() {
        readSample("all-types.rec");
        assertNull(records.readDateItem(handle, 1030, "MONDAY"));
        assertNull(records.readDateItem(handle, 1090, "DD.MM.YYYY"));
        assertReported(-76, -50);
        records.clearItem(handle, 1030);
        assertNull(records.readDateItem(handle, 1030, "DD.MM.YYYY"));
        assertReported(0, -101);
    }

    @Test
    void theTextOfAWholeEntryIsAssembled() {
        readSample("all-types.rec");
        records.readFirst(handle, 2120);
        assertReported(0);
        assertEquals("Air conditioning   /   1250.00", records.readHardDynItem(handle, 2120));
        assertReported(0);
    }

    /** Items that lie over each other, as no real table has them: that is how a line gives more than it has. */
    @Test
    void anAssembledTextIsCutTo255CharactersAndDeliveredOnPurpose() throws Exception {
        String line = "X20001 " + "0123456789".repeat(12) + "1"; // a line from its eighth character on has 121
        String entry = line.substring(7);
        loadTable("[DATA_X2N]", "2120|127|8|C|", "2125|127|8|C|");
        addLine("X2N", line);
        assertEquals(padded(entry, 127) + "/" + padded(entry, 127), records.readHardDynItem(handle, 2120));
        assertReported(0);
        records.destroyAllRecords(handle);
        assertReported(0);
        loadTable("[DATA_X2N]", "2120|134|8|C|", "2125|121|8|C|");
        addLine("X2N", line);
        assertEquals(padded(entry, 134) + "/" + entry.substring(0, 120), records.readHardDynItem(handle, 2120));
        assertReported(-1000);
    }

    @Test
    void whereNothingIsAssembledTheTextIsEmpty() {
        readSample("all-types.rec");
        assertEquals("", records.readHardDynItem(handle, 1020));
        assertReported(-1);
    }

    @Test
    void entriesAreSteppedThrough() {
        readSample("all-types.rec");
        records.readFirst(handle, 2120);
        records.readNext(handle, 2120);
        assertReported(0, 0);
        assertEquals("Navigation         ", records.readItem(handle, 2120));
        records.readPrev(handle, 2120);
        assertEquals("Air conditioning   ", records.readItem(handle, 2120));
        assertReported(0, 0, 0);
        records.readPrev(handle, 2120);
        assertReported(-5);
    }

    @Test
    void steppingReportsWhyItFails() {
        readSample("all-types.rec");
        records.readFirst(handle, 2125); // not the item that begins an entry
        records.readPrev(handle, 4025); // X4 does not step back
        assertReported(-74, -62);
        int steps = 0;
        for (records.readFirst(handle, 2120); records.getError() == 0; records.readNext(handle, 2120)) {
            ++steps;
        }
        assertEquals(-5, records.getError());
        assertEquals(16, steps, "four lines of four places each");
        assertEquals(steps + 1, records.takeCodes().size());
    }
}
