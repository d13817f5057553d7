package tabvex.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.File;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.jar.JarFile;
import java.util.stream.Collectors;
import java.util.stream.Stream;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

/** Where the library comes from. Each test runs a program of its own, as a library is loaded once only. */
class LoadingTest {
    private static final String LIBRARIES = System.getProperty("java.library.path");
    private static final String JAR = System.getProperty("tabvex.jar");
    private static final List<String> UNPACKED =
            List.of("table 0", "folder rwx------", "file libTBLREAD.so", "file libTabVex32X.so");

    @TempDir
    Path folder;
    private Path temporary;

    @BeforeEach
    void createFolder() throws IOException {
        temporary = Files.createDirectory(folder.resolve("temporary"));
    }

    @Test
    void theLibraryOfThePathIsTaken() throws Exception {
        assertEquals(List.of("table 0"), run(LIBRARIES, JAR));
    }

    @Test
    void withoutOneItIsUnpackedForThisUserAloneAndDeletedAtTheEnd() throws Exception {
        assertEquals(UNPACKED, run(folder.toString(), JAR));
        assertNothingIsLeft();
    }

    @Test
    void aLibraryOfThePathThatCannotBeLoadedIsPassedOver() throws Exception {
        Files.createDirectory(folder.resolve(System.mapLibraryName("TabVex32X")));
        List<String> output = run(folder.toString(), JAR); // the virtual machine says something about it first
        assertEquals(UNPACKED, output.subList(output.size() - UNPACKED.size(), output.size()));
        assertNothingIsLeft();
    }

    @Test
    void whereThereIsNeitherTheErrorTellsBothPlaces() throws Exception {
        List<String> output = run(folder.toString(), System.getProperty("tabvex.classes"));
        assertEquals(1, output.size(), output.toString());
        assertTrue(output.get(0).matches("none: libTabVex32X.so is neither in java.library.path .* nor can it be loaded "
                + "from linux/.* of the jar .*"), output.get(0));
        assertNothingIsLeft();
    }

    @Test
    void aTemporaryFolderThatCannotBeUsedIsToldToo() throws Exception {
        temporary = folder.resolve("none");
        List<String> output = runProgram(folder.toString(), JAR);
        assertTrue(output.stream().anyMatch(line -> line.startsWith("none: ")), output.toString());
    }

    @Test
    void theJarTellsItsNameAndVersionAndThatItIsNative() throws Exception {
        try (JarFile jar = new JarFile(JAR)) {
            java.util.jar.Attributes manifest = jar.getManifest().getMainAttributes();
            assertEquals("ALL-UNNAMED", manifest.getValue("Enable-Native-Access"));
            assertEquals("de.quorvil.application.tabvex", manifest.getValue("Automatic-Module-Name"));
            assertEquals(System.getProperty("tabvex.version"), manifest.getValue("Implementation-Version"));
        }
    }

    private void assertNothingIsLeft() throws IOException {
        try (Stream<Path> files = Files.list(temporary)) {
            assertEquals(List.of(), files.collect(Collectors.toList()));
        }
    }

    /** The output of a program that went well. */
    private List<String> run(String libraryPath, String jar) throws Exception {
        List<String> output = runProgram(libraryPath, jar);
        assertEquals("exit 0", output.remove(output.size() - 1), output.toString());
        return output;
    }

    private List<String> runProgram(String libraryPath, String jar) throws Exception {
        String classPath = String.join(File.pathSeparator, jar, System.getProperty("tabvex.tests"));
        List<String> command = new ArrayList<>(List.of(
                Paths.get(System.getProperty("java.home"), "bin", "java").toString(), "-Xcheck:jni"));
        command.addAll(Arrays.asList(System.getProperty("tabvex.options").split(" ")));
        command.addAll(List.of("-Djava.library.path=" + libraryPath, "-Djava.io.tmpdir=" + temporary, "-cp", classPath,
                "tabvex.tests.ShowLibrary", RecordSetTest.sample("calculation.table")));
        command.removeIf(String::isEmpty);
        Process process = new ProcessBuilder(command).redirectErrorStream(true).start();
        String output = new String(process.getInputStream().readAllBytes(), StandardCharsets.UTF_8);
        List<String> lines = output.lines().collect(Collectors.toCollection(ArrayList::new));
        lines.add("exit " + process.waitFor());
        return lines;
    }
}
