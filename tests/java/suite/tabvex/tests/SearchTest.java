package tabvex.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import org.junit.jupiter.api.Test;

class SearchTest extends RecordSetTest {
    @Test
    void aCompleteRecordHas128Characters() {
        loadTable();
        records.setCompleteRecord(handle, "T0", padded("T0     whole", 128));
        assertReported(0);
        assertEquals("T0", records.readItem(handle, 34000));
        assertReported(0);
    }

    @Test
    void aCompleteRecordOfAnotherLengthIsRefused() {
        records.setCompleteRecord(handle, "T0", padded("T0", 127));
        records.setCompleteRecord(handle, "T0", padded("T0", 129));
        records.setCompleteRecord(handle, "T0", "");
        assertReported(-1, -1, -1);
    }

    @Test
    void theLengthOfACompleteRecordIsCountedInBytesOnPurpose() {
        records.setCompleteRecord(handle, "T0", padded("T0 \u00FC", 128)); // 129 bytes
        records.setCompleteRecord(handle, "T0", padded("T0 \u00FC", 127));
        assertReported(-1, 0);
    }

    @Test
    void entriesAreFoundByAnItem() {
        readSample("all-types.rec");
        int found = 0;
        for (int step = records.findFirst(handle, 2120, "Navigation"); step == 1; step = records.findNext(handle)) {
            assertReported(1);
            assertEquals("Navigation         ", records.readItem(handle, 2120));
            assertReported(0);
            ++found;
        }
        assertEquals(2, found);
        assertReported(0);
        assertEquals(-4, records.findNext(handle));
        assertReported(-4);
    }

    @Test
    void aSearchTellsWhyItFails() {
        readSample("all-types.rec");
        assertEquals(0, records.findFirst(handle, 2120, "Nothing like it"));
        assertEquals(-1, records.findFirst(handle, 999999, "x"));
        assertEquals(-3, records.findFirst(handle, 1090, "x"));
        records.destroyRecords(handle, "X2N");
        assertEquals(-2, records.findFirst(handle, 2120, "x"));
        assertReported(0, -1, -3, 0, -2);
    }

    @Test
    void theDelimiterBeforeIsGivenBack() {
        assertEquals('/', records.setDelimiter(handle, '|'));
        assertEquals('|', records.setDelimiter(handle, '\u00E4'));
        assertEquals('\u00E4', records.setDelimiter(handle, '/'));
        assertReported(0, 0, 0);
    }

    @Test
    void theLowByteOfADelimiterAboveU00FFCountsOnPurpose() {
        loadTable();
        records.setDelimiter(handle, '\u013B'); // its low byte is that of ";"
        records.writeHardDynItem(handle, 2120, "Spoiler;99.50");
        assertEquals(';', records.setDelimiter(handle, '\uFFE4'));
        assertEquals('\u00E4', records.setDelimiter(handle, '\u0100'));
        assertEquals('\0', records.setDelimiter(handle, '/'));
        assertReported(0, 0, 0, 0, 0);
    }

    @Test
    void theDelimiterSeparatesTheValuesOfAnEntry() {
        loadTable();
        records.setDelimiter(handle, ';');
        records.writeHardDynItem(handle, 2120, "Spoiler/wing;99.50");
        records.readFirst(handle, 2120);
        assertReported(0, 0, 0);
        assertEquals("Spoiler/wing       ;     99.50", records.readHardDynItem(handle, 2120));
        assertReported(0);
    }
}
