package tabvex.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.lang.reflect.Method;
import java.nio.file.Path;
import java.util.List;
import java.util.Set;
import java.util.stream.Stream;
import org.junit.jupiter.api.io.TempDir;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.MethodSource;

/** What the methods answer while there is no record set at all. */
class NoRecordSetTest {
    private static final Set<String> REPORTING_ZERO = Set.of("readVRecords", "destroyRecords", "destroyAllRecords",
            "destroyKnownRecords", "setDelimiter", "readX4Mutation", "readG9Mutation");

    @TempDir
    Path folder;

    static Stream<Method> methods() {
        return NativeMethods.all().filter(m -> !m.getName().equals("createInstance"));
    }

    @ParameterizedTest
    @MethodSource("methods")
    void everyMethodFails(Method method) throws Throwable {
        RecordSetTest.Noting records = new RecordSetTest.Noting();
        Object result = NativeMethods.call(method, records, NativeMethods.arguments(method, 4, folder));
        List<Integer> codes = records.takeCodes();
        if (NativeMethods.SILENT.contains(method.getName())) {
            assertEquals(List.of(), codes);
            return;
        }
        assertEquals(List.of(REPORTING_ZERO.contains(method.getName()) ? 0 : -1), codes);
        boolean givesItsCode = method.getReturnType() == int.class && !method.getName().startsWith("read");
        assertTrue(givesItsCode ? result.equals(-1) : NativeMethods.isNothing(result) || result.equals(""));
    }
}
