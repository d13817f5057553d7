package tabvex.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import de.quorvil.application.tabvex.TabVexImpl;
import java.lang.reflect.Method;
import java.nio.file.Path;
import java.util.stream.Stream;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.MethodSource;

class ErrorReportingTest extends RecordSetTest {
    @TempDir
    Path folder;

    static Stream<Method> nativeMethods() {
        return NativeMethods.all();
    }

    static Stream<Method> reportingMethods() {
        return NativeMethods.all().filter(m -> !NativeMethods.SILENT.contains(m.getName()));
    }

    @ParameterizedTest
    @MethodSource("nativeMethods")
    void aNullForAnyTextIsReportedAndGivesNothing(Method method) throws Throwable {
        loadTable();
        for (int i = 0; i < method.getParameterCount(); ++i) {
            if (!method.getParameterTypes()[i].isPrimitive()) {
                Object[] arguments = NativeMethods.arguments(method, handle, folder);
                arguments[i] = null;
                assertTrue(NativeMethods.isNothing(NativeMethods.call(method, records, arguments)));
                assertReported(-1);
            }
        }
    }

    @Test
    void aNullIsReportedBeforeAMissingTable() {
        records.writeItem(handle, 1090, null);
        records.findFirst(handle, 1090, null);
        assertNull(records.readDateItem(handle, 1030, null));
        assertReported(-1, -1, -1);
    }

    @ParameterizedTest
    @MethodSource("reportingMethods")
    void everyMethodReportsExactlyOnce(Method method) throws Throwable {
        loadTable();
        NativeMethods.call(method, records, NativeMethods.arguments(method, handle, folder));
        assertEquals(1, records.takeCodes().size());
    }

    @ParameterizedTest
    @MethodSource("reportingMethods")
    void whatSetErrorThrowsReachesTheCaller(Method method) {
        readSample("all-types.rec");
        RuntimeException own = new IllegalStateException("own");
        TabVexImpl throwing = new TabVexImpl() {
            @Override
            public void setError(int code) {
                throw own;
            }
        };
        Object[] arguments = NativeMethods.arguments(method, handle, folder);
        assertSame(own, assertThrows(RuntimeException.class, () -> NativeMethods.call(method, throwing, arguments)));
    }

    @Test
    void whatSetErrorThrowsReachesTheCallerWhenThereIsAValueToo() {
        readSample("all-types.rec");
        addCells("X4", "E  0283  241000", "EM       412.50");
        records.readFirst(handle, 4025);
        assertReported(0);
        TabVexImpl throwing = new TabVexImpl() {
            @Override
            public void setError(int code) {
                throw new IllegalStateException("own " + code);
            }
        };
        assertThrows(IllegalStateException.class, () -> throwing.readItem(handle, 1090));
        assertThrows(IllegalStateException.class, () -> throwing.readItemBytes(handle, 1090));
        assertThrows(IllegalStateException.class, () -> throwing.readX4Mutation(handle, 1));
    }

    @Test
    void setErrorMayCallTheLibraryItself() {
        readSample("all-types.rec");
        String[] read = new String[1];
        TabVexImpl nested = new TabVexImpl() {
            @Override
            public void setError(int code) {
                super.setError(code);
                if (code == -50) {
                    read[0] = readItem(handle, 1060);
                }
            }
        };
        assertNull(nested.readCharItem(handle, 1060));
        assertEquals("  48210", read[0]);
        assertEquals(0, nested.getError());
    }

    @Test
    void theLastCodeIsKept() {
        TabVexImpl plain = new TabVexImpl();
        assertEquals(0, plain.getError());
        plain.readItem(handle, 1090);
        assertEquals(-40, plain.getError());
        plain.loadTable(handle, sample("calculation.table"), 3, 2);
        assertEquals(0, plain.getError());
        plain.setError(7);
        assertEquals(7, plain.getError());
    }
}
