package tabvex.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;

import org.junit.jupiter.api.Test;

class ReadItemsTest extends RecordSetTest {
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

    @Test
    void sixtyThreeCharactersAreReadAndOneMoreIsRefusedOnPurpose() {
        // T0 has one item of 121 characters, XT02 one of 40.
        readSample("all-types.rec");
        assertNull(records.readItem(handle, 34005));
        assertNull(records.readCharItem(handle, 34005));
        assertReported(-1000, -1000);
        assertEquals(40, records.readItem(handle, 2370).length());
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
