package tabvex.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;

import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;

class WriteItemsTest extends RecordSetTest {
    @BeforeEach
    void loadTheTable() {
        loadTable();
    }

    private void assertItem(int item, String text) {
        assertEquals(text, records.readItem(handle, item));
        assertReported(0);
    }

    @Test
    void aTextIsWrittenIntoARecordThatIsCreated() {
        records.writeCharItem(handle, 1090, "Ben Adler   ");
        records.writeItem(handle, 1100, "Bonn");
        assertReported(0, 0);
        assertItem(1090, "Ben Adler           ");
        assertItem(1100, "Bonn                ");
        assertItem(1000, "X1");
    }

    @Test
    void aTextThatDoesNotSuitItsItemIsRefused() {
        records.writeItem(handle, 1120, "CHF");
        records.writeItem(handle, 1120, "XYZ");
        records.writeCharItem(handle, 1090, "one more than twenty.");
        records.writeCharItem(handle, 1060, "12");
        assertReported(0, -55, -45, -50);
        assertItem(1120, "CHF");
    }

    @Test
    void aWholeNumberIsWritten() {
        records.writeIntItem(handle, 1060, 48210);
        assertReported(0);
        assertItem(1060, "  48210");
        assertEquals(48210, records.readIntItem(handle, 1060));
        assertReported(0);
    }

    @Test
    void aNumberThatDoesNotSuitItsItemIsRefused() {
        records.writeIntItem(handle, 1060, -1);
        records.writeIntItem(handle, 1090, 1);
        records.writeFloatItem(handle, 1130, 55.0);
        records.writeFloatItem(handle, 1090, 1.0);
        records.writeRoundFloatItem(handle, 1090, 1.0);
        assertReported(-62, -50, -61, -50, -50);
    }

    @Test
    void aNumberWithDecimalsIsWritten() {
        records.writeFloatItem(handle, 1130, 8.1);
        assertReported(0);
        assertItem(1130, "  810"); // two implied decimals
        assertEquals(8.1, records.readFloatItem(handle, 1130));
        assertReported(0);
    }

    @Test
    void aNumberIsRoundedToTheDecimalsOfItsItem() {
        records.writeRoundFloatItem(handle, 1130, 18.996);
        assertReported(0);
        assertItem(1130, " 1900");
    }

    @Test
    void aDateIsWrittenFromTheFormatGiven() {
        records.writeDateItem(handle, 1030, "24.12.2025", "DD.MM.YYYY");
        assertReported(0);
        assertItem(1030, "24.12.2025");
        records.writeDateItem(handle, 1030, "20310507", "YYYYMMDD");
        assertReported(0);
        assertItem(1030, "07.05.2031");
    }

    @Test
    void aDateThatDoesNotSuitIsRefused() {
        records.writeDateItem(handle, 1030, "24.12.25", "DD.MM.YYYY");
        records.writeDateItem(handle, 1030, "24-12-2025", "DD.MM.YYYY");
        records.writeDateItem(handle, 1030, "xx.12.2025", "DD.MM.YYYY");
        records.writeDateItem(handle, 1030, "24.13.2025", "DD.MM.YYYY");
        records.writeDateItem(handle, 1030, "24.12.2025", "today");
        assertReported(-70, -71, -72, -73, -76);
        records.writeItem(handle, 1120, "EUR");
        records.writeDateItem(handle, 1120, "24.12.2025", "DD.MM.YYYY");
        assertReported(0, -50);
    }

    @Test
    void aHardWriteTakesTextsOfExactlyTheItemsLength() {
        records.writeHardItem(handle, 1120, "XYZ");
        assertReported(-1); // it creates no record
        addLine("X1", "X10001");
        records.writeHardItem(handle, 1120, "XYZ");
        records.writeHardItem(handle, 1120, "XY");
        records.writeHardItem(handle, 1120, "WXYZ");
        assertReported(0, -2, -2);
        assertItem(1120, "XYZ");
    }

    @Test
    void aWholeEntryIsWrittenAsOneText() {
        records.writeHardDynItem(handle, 2120, "Spoiler/99.50");
        records.writeHardDynItem(handle, 2120, "Spoiler");
        records.writeHardDynItem(handle, 1120, "EUR");
        assertReported(0, -7, -1);
        records.readFirst(handle, 2120);
        assertReported(0);
        assertItem(2120, "Spoiler            ");
        assertItem(2125, "     99.50");
    }

    @Test
    void anItemIsBlanked() {
        records.writeItem(handle, 1120, "CHF");
        records.clearItem(handle, 1120);
        assertReported(0, 0);
        assertItem(1120, "   ");
        records.clearItem(handle, 2370);
        assertReported(-1); // no record
    }

    @Test
    void withoutATableEveryWriteIsRefused() {
        int bare = records.createInstance();
        records.writeItem(bare, 1090, "x");
        records.writeCharItem(bare, 1090, "x");
        records.writeHardItem(bare, 1090, "x");
        records.writeHardDynItem(bare, 2120, "x");
        records.writeIntItem(bare, 1060, 1);
        records.writeFloatItem(bare, 1130, 1);
        records.writeRoundFloatItem(bare, 1130, 1);
        records.writeDateItem(bare, 1030, "24.12.2025", "DD.MM.YYYY");
        records.writeItemBytes(bare, 1090, new byte[] {'x'});
        records.writeCharItemBytes(bare, 1090, new byte[] {'x'});
        assertReported(-40, -40, -40, -40, -40, -40, -40, -40, -40, -40);
        assertNull(records.readItemBytes(bare, 1090));
        assertNull(records.readCharItemBytes(bare, 1090));
        assertReported(-40, -40);
        records.destroyInstance(bare);
    }
}
