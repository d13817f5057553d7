package tabvex.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import de.quorvil.application.tabvex.TabVexImpl;
import de.quorvil.application.tabvex.X4Mutation;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

class OwnClassTest {
    @TempDir
    Path folder;
    private final TabVexImpl records = new TabVexImpl();
    private int handle;

    @BeforeEach
    void loadTable() {
        handle = TabVexImpl.createInstance();
        records.load(handle, System.getProperty("tabvex.samples") + "/calculation.table");
        assertReported(0);
    }

    @AfterEach
    void destroy() {
        X4Mutation.thrown = null;
        TabVexImpl.destroyInstance(handle);
    }

    private void assertReported(Integer... codes) {
        assertEquals(List.of(codes), records.codes);
        records.codes.clear();
    }

    private void add(String type, String beginning) {
        records.add(handle, type, beginning + " ".repeat(128 - beginning.length()));
        assertReported(0);
    }

    @Test
    void aMethodDeclaredStaticWorksButReportsNothing() {
        add("X1", "X10001");
        assertEquals("0001", TabVexImpl.readItem(handle, 1005));
        TabVexImpl.clearItem(handle, 1005);
        assertEquals("    ", TabVexImpl.readItem(handle, 1005));
        assertNull(TabVexImpl.readItem(handle, 999999));
        assertReported();
    }

    @Test
    void aFlagDeclaredAsAnIntIsCutToOneByteOnPurpose() throws Exception {
        add("X1", "X10001");
        Path saved = folder.resolve("saved");
        int[][] rows = {{0, 128}, {1, 130}, {2, 130}, {-1, 130}, {256, 128}, {257, 130}};
        for (int[] row : rows) {
            records.save(handle, saved.toString(), row[0]);
            assertReported(1);
            assertEquals(row[1], Files.size(saved), "flag " + row[0]);
        }
        assertFalse(records.useX4New(handle, 1));
        assertTrue(records.useX4New(handle, 256));
        assertFalse(records.useX4New(handle, 0x101));
        assertTrue(records.useX4New(handle, 0));
        assertReported(0, 1, 0, 1);
    }

    @Test
    void aDelimiterDeclaredAsAByteComesBack() {
        assertEquals((byte) '/', records.setDelimiter(handle, (byte) 0xE4));
        assertEquals((byte) 0xE4, records.setDelimiter(handle, (byte) '/'));
        assertReported(0, 0);
    }

    private void addMutation() {
        records.useX4New(handle, 1);
        assertReported(0);
        records.setMutationList(handle, "X4", "TM/3");
        add("X4", "X400012E  0283  241000TM LAtwo layers");
        records.readFirst(handle, 4025);
        assertReported(0);
    }

    @Test
    void onlySettersThatAMutationHasAreCalledAndNoConstructor() {
        addMutation();
        X4Mutation mutation = (X4Mutation) records.readX4Mutation(handle, 1);
        assertReported(0);
        assertEquals("TM", mutation.code);
        assertEquals(0f, mutation.value, "its setter takes a double");
        assertEquals("two layers", mutation.subtypeAV);
    }

    @Test
    void whatASetterThrowsReachesTheCallerAndNothingIsReported() {
        addMutation();
        X4Mutation.thrown = new IllegalStateException("own");
        assertSame(X4Mutation.thrown,
                assertThrows(IllegalStateException.class, () -> records.readX4Mutation(handle, 1)));
        assertReported();
    }

    @Test
    void withoutTheClassOfAMutationThereIsNone() {
        records.setMutationList(handle, "G9", "TM/3");
        add("G9", "G900012E  0283  241000TM LAtwo layers");
        records.readFirst(handle, 19225);
        assertNull(records.readG9Mutation(handle, 1));
        assertReported(0, 0);
    }

    @Test
    void whatAPrivateSetErrorThrowsReachesTheCaller() {
        records.thrown = new IllegalStateException("own");
        assertSame(records.thrown,
                assertThrows(IllegalStateException.class, () -> records.readFirst(handle, 4025)));
        records.thrown = null;
        assertReported(-1);
    }
}
