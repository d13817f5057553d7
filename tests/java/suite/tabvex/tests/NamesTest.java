package tabvex.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;

import java.io.File;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Paths;
import java.util.List;
import java.util.SortedSet;
import java.util.TreeSet;
import java.util.stream.Collectors;
import java.util.stream.Stream;
import org.junit.jupiter.api.Test;

/** The native methods of the class, the list of exported functions and the library have the same names. */
class NamesTest {
    private static final String PREFIX = "Java_de_quorvil_application_tabvex_TabVexImpl_";

    private static SortedSet<String> methodsAmong(Stream<String> names) {
        return names.filter(n -> n.startsWith("Java_")).collect(Collectors.toCollection(TreeSet::new));
    }

    private static SortedSet<String> declared() {
        return methodsAmong(NativeMethods.all().map(m -> PREFIX + m.getName()));
    }

    @Test
    void theListOfExportedFunctionsHasEveryMethodAndNoOther() throws Exception {
        List<String> listed = Files.readAllLines(Paths.get(System.getProperty("tabvex.exports")));
        assertFalse(declared().isEmpty());
        assertEquals(declared(), methodsAmong(listed.stream()));
    }

    @Test
    void theLibraryExportsEveryMethodAndNoOther() throws Exception {
        File library = new File(System.getProperty("java.library.path"), System.mapLibraryName("TabVex32X"));
        Process nm = new ProcessBuilder("nm", "-D", "--defined-only", library.getPath())
                .redirectErrorStream(true).start();
        String symbols = new String(nm.getInputStream().readAllBytes(), StandardCharsets.UTF_8);
        assertEquals(0, nm.waitFor(), symbols);
        Stream<String> exported = symbols.lines().map(line -> line.substring(line.lastIndexOf(' ') + 1));
        assertEquals(declared(), methodsAmong(exported));
    }
}
