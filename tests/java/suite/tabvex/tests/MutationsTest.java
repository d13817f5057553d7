package tabvex.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertTrue;

import de.quorvil.application.tabvex.G9Mutation;
import de.quorvil.application.tabvex.X4Mutation;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;

class MutationsTest extends RecordSetTest {
    // Kind 1: an amount; 3: two texts; 7: a split value.
    private static final String KINDS = "EM/1/LM/1/QM/1/TM/3/SM/7";

    @BeforeEach
    void loadTheTable() {
        loadTable();
        assertFalse(records.useX4New(handle, true));
        assertReported(0);
    }

    private void addX4() {
        records.setMutationList(handle, "X4", KINDS);
        addCells("X4", "E  0283  241000", "EM       412.50", "TM LAtwo layers", "N  0301   62000");
        records.readFirst(handle, 4025);
        assertReported(0);
    }

    private void addG9() {
        records.setMutationList(handle, "g9", KINDS);
        addCells("G9", "E  0283  241000", "EM       398.00", "TM LAone layer", "N  0301   62000");
        records.readFirst(handle, 19225);
        assertReported(0);
    }

    @Test
    void aMutationWithAnAmountIsRead() {
        addX4();
        assertEquals(x4("EM", 412.5f, "", ""), records.readX4Mutation(handle, 1));
        assertReported(0);
        addG9();
        assertEquals(g9("EM", 398f, "", ""), records.readG9Mutation(handle, 1));
        assertReported(0);
    }

    @Test
    void aMutationWithTwoTextsIsRead() {
        addX4();
        assertEquals(x4("TM", -1f, "LA", "two layers"), records.readX4Mutation(handle, 2));
        assertReported(0);
        addG9();
        assertEquals(g9("TM", -1f, "LA", "one layer "), records.readG9Mutation(handle, 2));
        assertReported(0);
    }

    @Test
    void aMutationWithASplitValueIsRead() {
        records.setMutationList(handle, "X4", KINDS);
        addCells("X4", "E  0283  241000", "SM AB0123456789");
        records.readFirst(handle, 4025);
        assertEquals(x4("SM", -1f, "AB", "0123456789"), records.readX4Mutation(handle, 1));
        assertReported(0, 0);
    }

    @Test
    void anAmountIsNarrowedToAFloat() {
        records.setMutationList(handle, "X4", KINDS);
        addCells("X4", "E  0283  241000", "EM   1234567.89");
        records.readFirst(handle, 4025);
        assertEquals((float) 1234567.89, records.readX4Mutation(handle, 1).getValue());
        assertReported(0, 0);
    }

    @Test
    void aMutationThatIsNotThereIsNullAndReportsSuccessOnPurpose() {
        addX4();
        assertNull(records.readX4Mutation(handle, 3));
        assertNull(records.readX4Mutation(handle, 0));
        assertNull(records.readX4Mutation(handle, 4));
        assertNull(records.readG9Mutation(handle, 1)); // no record
        assertReported(0, 0, 0, 0);
    }

    @Test
    void theOlderFormReadsTheCellsOfTheLine() {
        assertTrue(records.useX4New(handle, false));
        assertReported(1);
        addCells("X4", "E  0283  241000", "EM       412.50", "TM LAtwo layers");
        records.readFirst(handle, 4025);
        assertEquals(x4("EM", 412.5f, "", ""), records.readX4Mutation(handle, 1));
        assertEquals(x4("TM", -1f, "LA", "two layers"), records.readX4Mutation(handle, 2));
        assertNull(records.readX4Mutation(handle, 3));
        assertReported(0, 0, 0, 0);
        records.addX4Mutation(handle, "EM/1");
        assertEquals(-1, records.getX4MutationsCount(handle));
        assertEquals(-1, records.deleteX4Mutations(handle));
        assertEquals(-1, records.deleteX4Mutation(handle, "EM"));
        assertReported(-1, -1, -1, -1);
    }

    @Test
    void mutationsAreCounted() {
        addX4();
        addG9();
        assertEquals(2, records.getX4MutationsCount(handle));
        assertEquals(2, records.getG9MutationsCount(handle));
        assertReported(2, 2);
    }

    @Test
    void withoutARecordThereIsNothingToCountOrDelete() {
        assertEquals(-1, records.getX4MutationsCount(handle));
        assertEquals(-1, records.getG9MutationsCount(handle));
        assertEquals(-1, records.deleteX4Mutations(handle));
        assertEquals(-1, records.deleteG9Mutations(handle));
        assertEquals(-2, records.deleteX4Mutation(handle, "EM"));
        assertEquals(-2, records.deleteG9Mutation(handle, "EM"));
        records.addX4Mutation(handle, "EM/1");
        records.addG9Mutation(handle, "EM/1");
        assertReported(-1, -1, -1, -1, -2, -2, -2, -2);
    }

    @Test
    void mutationsAreAdded() {
        addX4();
        records.readNext(handle, 4025);
        records.addX4Mutation(handle, "LM/85.00");
        records.addX4Mutation(handle, "TM/LA/thin");
        records.addX4Mutation(handle, "LM/86.00"); // takes the place of the other
        assertReported(0, 0, 0, 0);
        assertEquals(x4("LM", 86f, "", ""), records.readX4Mutation(handle, 1));
        assertEquals(2, records.getX4MutationsCount(handle));
        assertReported(0, 2);
        addG9();
        records.readNext(handle, 19225);
        records.addG9Mutation(handle, "LM/85.00");
        assertReported(0, 0);
        assertEquals(g9("LM", 85f, "", ""), records.readG9Mutation(handle, 1));
        assertReported(0);
    }

    @Test
    void aMutationThatCannotBeAddedTellsWhy() {
        addX4();
        addG9();
        records.addX4Mutation(handle, "LM");
        records.addG9Mutation(handle, "LM");
        records.addX4Mutation(handle, "LM/1");
        records.addX4Mutation(handle, "QM/1"); // the fourth
        assertReported(-7, -7, 0, -5);
    }

    @Test
    void oneMutationIsDeleted() {
        addX4();
        addG9();
        assertEquals(0, records.deleteX4Mutation(handle, "EM"));
        assertEquals(0, records.deleteG9Mutation(handle, "EM"));
        assertEquals(-90, records.deleteX4Mutation(handle, "QM"));
        assertEquals(-1, records.deleteG9Mutation(handle, "E"));
        assertReported(0, 0, -90, -1);
        assertEquals("TM", records.readX4Mutation(handle, 1).getCode());
        assertEquals("TM", records.readG9Mutation(handle, 1).getCode());
        assertReported(0, 0);
    }

    @Test
    void allMutationsAreDeleted() {
        addX4();
        addG9();
        assertEquals(2, records.deleteX4Mutations(handle));
        assertEquals(2, records.deleteG9Mutations(handle));
        assertEquals(0, records.getX4MutationsCount(handle));
        assertEquals(0, records.getG9MutationsCount(handle));
        assertReported(2, 2, 0, 0);
    }

    @Test
    void theFormBeforeIsGivenBack() {
        assertTrue(records.useX4New(handle, true));
        assertTrue(records.useX4New(handle, false));
        assertFalse(records.useX4New(handle, false));
        assertReported(1, 1, 0);
    }

    @Test
    void replacingListsReportsNothing() {
        records.setMutationList(handle, "X4", KINDS);
        records.setMutationList(handle, "w4", KINDS);
        records.setMutationList(handle, "none", KINDS);
        records.setRepairMethodList(handle, "X4", "E/I");
        records.setRepairMethodList(handle, "none", "E/I");
        assertReported();
    }

    @Test
    void repairMethodsTellTheRepairPositions() {
        records.setRepairMethodList(handle, "x4", "ZZ/N");
        addCells("X4", "E  0283  241000", "ZZ 0284   11000", "N  0301   62000");
        records.readFirst(handle, 4025);
        assertReported(0);
        assertEquals("ZZ ", records.readItem(handle, 4025));
        assertReported(0);
    }

    private static X4Mutation x4(String code, float value, String subtype, String subtypeAV) {
        X4Mutation mutation = new X4Mutation();
        mutation.setCode(code);
        mutation.setValue(value);
        mutation.setSubtype(subtype);
        mutation.setSubtypeAV(subtypeAV);
        return mutation;
    }

    private static G9Mutation g9(String code, float value, String subtype, String subtypeAV) {
        G9Mutation mutation = new G9Mutation();
        mutation.setCode(code);
        mutation.setValue(value);
        mutation.setSubtype(subtype);
        mutation.setSubtypeAV(subtypeAV);
        return mutation;
    }

    @Test
    void aMutationShowsWhatItHas() {
        X4Mutation mutation = x4("EM", 412.5f, "", "");
        assertEquals("X4Mutation[code=EM, value=412.5, subtype=, subtypeAV=]", mutation.toString());
        assertEquals("EM", mutation.getCode());
        assertEquals(412.5f, mutation.getValue());
        assertEquals("LA", x4("TM", -1f, "LA", "x").getSubtype());
        assertEquals("x", x4("TM", -1f, "LA", "x").getSubtypeAV());
    }

    @Test
    void mutationsThatDifferInAnythingAreNotEqual() {
        X4Mutation mutation = x4("TM", -1f, "LA", "x");
        assertEquals(mutation, x4("TM", -1f, "LA", "x"));
        assertEquals(mutation.hashCode(), x4("TM", -1f, "LA", "x").hashCode());
        for (Object other : new Object[] {x4("EM", -1f, "LA", "x"), x4("TM", 1f, "LA", "x"), x4("TM", -1f, "", "x"),
                x4("TM", -1f, "LA", ""), g9("TM", -1f, "LA", "x"), x4(null, -1f, "LA", "x"), "TM", null}) {
            assertFalse(mutation.equals(other), String.valueOf(other));
        }
        assertNotNull(new X4Mutation().toString());
        assertEquals(new X4Mutation(), new X4Mutation());
    }
}
