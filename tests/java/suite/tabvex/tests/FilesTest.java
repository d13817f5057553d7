package tabvex.tests;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.nio.file.Files;
import java.nio.file.Path;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

class FilesTest extends RecordSetTest {
    @TempDir
    Path folder;

    @Test
    void handlesGrowByFour() {
        int next = records.createInstance();
        assertEquals(handle + 4, next);
        records.destroyInstance(next);
        assertReported();
    }

    @Test
    void recordSetsDoNotShareRecords() {
        loadTable();
        addLine("T0", "T0     the first one's");
        int other = records.createInstance();
        records.loadTable(other, sample("calculation.table"), 3, 2);
        assertReported(0);
        records.readItem(handle, 34000);
        records.readItem(other, 34000);
        assertReported(0, -1);
        records.destroyInstance(other);
    }

    @Test
    void aTableOfAnotherVersionIsReported() {
        records.loadTable(handle, sample("calculation.table"), 4, 0);
        assertReported(-15);
    }

    @Test
    void aMissingTableIsReported() {
        records.loadTable(handle, folder.resolve("none").toString(), 3, 2);
        assertReported(-1);
    }

    @Test
    void aMissingRecordFileIsReported() {
        records.readAllRecordsEx(handle, folder.resolve("none").toString());
        assertReported(-8);
    }

    @Test
    void aShortRecordIsReported() {
        loadTable();
        records.readAllRecordsEx(handle, sample("damaged.rec"));
        assertReported(-6);
    }

    @Test
    void aFileSavedWithLineEndsIsTheFileRead() throws Exception {
        readSample("all-types.rec");
        Path saved = folder.resolve("with");
        records.saveAllRecords(handle, saved.toString(), true);
        assertTrue(records.getError() > 0, "the number of record objects");
        byte[] original = Files.readAllBytes(SAMPLES.resolve("all-types.rec"));
        byte[] copy = Files.readAllBytes(saved);
        int before = original.length - 130; // the last line is FZ, which is saved in its whole length of 640
        assertEquals(before + 642, copy.length);
        assertArrayEquals(java.util.Arrays.copyOf(original, before), java.util.Arrays.copyOf(copy, before));
        assertReported(records.getError());
    }

    @Test
    void aFileSavedWithoutLineEndsHasNone() throws Exception {
        loadTable();
        addLine("X1", "X10001");
        addLine("X5", "X50001");
        Path saved = folder.resolve("without");
        records.saveAllRecords(handle, saved.toString(), false);
        assertReported(2);
        assertEquals(256, Files.size(saved));
        records.saveAllRecords(handle, saved.toString(), true);
        assertReported(2);
        assertEquals(260, Files.size(saved));
    }

    @Test
    void aFileThatCannotBeCreatedIsReported() {
        records.saveAllRecords(handle, folder.resolve("none/file").toString(), true);
        assertReported(-3);
    }

    @Test
    void linesOfAnyLengthAreRead() {
        loadTable();
        assertTrue(records.readVRecords(handle, sample("v-records.txt")));
        assertReported(0);
        records.readFirst(handle, 21035);
        assertReported(0);
    }

    @Test
    void aMissingFileOfLinesIsToldByTheResultAloneOnPurpose() {
        assertFalse(records.readVRecords(handle, folder.resolve("none").toString()));
        assertReported(0);
    }

    @Test
    void recordsOfATypeAreDestroyed() {
        readSample("all-types.rec");
        records.destroyRecords(handle, "X1");
        assertReported(0);
        records.readItem(handle, 1020);
        records.readItem(handle, 34000);
        assertReported(-1, 0);
    }

    @Test
    void destroyingRecordsThatAreNotThereReportsSuccess() {
        records.destroyRecords(handle, "X1");
        records.destroyAllRecords(handle);
        records.destroyKnownRecords(handle);
        assertReported(0, 0, 0);
    }

    @Test
    void allRecordsAreDestroyed() throws Exception {
        readSample("unknown-types.rec");
        records.destroyAllRecords(handle);
        assertReported(0);
        assertEquals(0, savedSize());
    }

    @Test
    void unknownRecordsOutliveTheKnownOnes() throws Exception {
        loadTable();
        addLine("X1", "X10001");
        addLine("QQ", "QQ");
        records.destroyKnownRecords(handle);
        assertReported(0);
        assertEquals(128, savedSize());
    }

    private long savedSize() throws Exception {
        Path saved = folder.resolve("saved");
        records.saveAllRecords(handle, saved.toString(), false);
        assertReported(records.getError());
        return Files.size(saved);
    }
}
