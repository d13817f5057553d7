package tabvex.tests;

import de.quorvil.application.tabvex.TabVexImpl;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.nio.file.attribute.PosixFilePermissions;
import java.util.List;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/** A program of its own: uses the library, then shows what is in the temporary folder. */
final class ShowLibrary {
    private ShowLibrary() {}

    public static void main(String[] arguments) throws IOException {
        Path temporary = Paths.get(System.getProperty("java.io.tmpdir"));
        try {
            TabVexImpl records = new TabVexImpl();
            records.loadTable(records.createInstance(), arguments[0], 3, 2);
            System.out.println("table " + records.getError());
        } catch (UnsatisfiedLinkError none) {
            System.out.println("none: " + none.getMessage());
        }
        for (Path folder : list(temporary)) {
            System.out.println("folder " + PosixFilePermissions.toString(Files.getPosixFilePermissions(folder)));
            list(folder).forEach(file -> System.out.println("file " + file.getFileName()));
        }
    }

    private static List<Path> list(Path folder) throws IOException {
        try (Stream<Path> files = Files.list(folder)) {
            return files.sorted().collect(Collectors.toList());
        }
    }
}
