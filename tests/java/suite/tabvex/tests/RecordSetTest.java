package tabvex.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import de.quorvil.application.tabvex.TabVexImpl;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.stream.Collectors;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;

/** What most tests begin with: a record set, an object that notes every code it is told, and the sample files. */
abstract class RecordSetTest {
    static final Path SAMPLES = Paths.get(System.getProperty("tabvex.samples"));

    /** Keeps every code told since it was last asked. */
    static final class Noting extends TabVexImpl {
        private final List<Integer> codes = new ArrayList<>();

        @Override
        public void setError(int code) {
            super.setError(code);
            codes.add(code);
        }

        List<Integer> takeCodes() {
            List<Integer> taken = new ArrayList<>(codes);
            codes.clear();
            return taken;
        }
    }

    final Noting records = new Noting();
    int handle;

    @BeforeEach
    void createRecordSet() {
        handle = records.createInstance();
        assertReported();
    }

    @AfterEach
    void destroyRecordSet() {
        records.destroyInstance(handle);
        assertReported();
    }

    /** Exactly these codes were told since the last time this was asked. */
    void assertReported(Integer... codes) {
        assertEquals(Arrays.asList(codes), records.takeCodes(), "the codes that setError was told");
    }

    void loadTable() {
        records.loadTable(handle, sample("calculation.table"), 3, 2);
        assertReported(0);
    }

    void readSample(String name) {
        loadTable();
        records.readAllRecordsEx(handle, sample(name));
        assertReported(0);
    }

    static String sample(String name) {
        return SAMPLES.resolve(name).toString();
    }

    /** Adds a line of 128 characters to the record of a type. */
    void addLine(String type, String beginning) {
        records.setCompleteRecord(handle, type, padded(beginning, 128));
        assertReported(0);
    }

    /** Adds an X4 or G9 line of cells of 15 characters. */
    void addCells(String type, String... cells) {
        addLine(type, type + "00012" + Arrays.stream(cells).map(c -> padded(c, 15)).collect(Collectors.joining()));
    }

    static String padded(String text, int length) {
        return text + " ".repeat(length - text.length());
    }
}
