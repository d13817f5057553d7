package de.quorvil.application.tabvex;

import java.io.File;
import java.io.IOException;
import java.io.InputStream;
import java.nio.file.FileSystems;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.attribute.PosixFilePermissions;
import java.util.Locale;

/**
 * Loads the native library: the one that java.library.path leads to, or else the one in the jar, which is unpacked
 * into a folder of its own together with the table-line reader that it looks for beside itself.
 */
final class NativeLibrary {
    private static final String LIBRARY = "TabVex32X";
    private static final String READER = "TBLREAD";

    private NativeLibrary() {}

    static void load() {
        try {
            System.loadLibrary(LIBRARY);
        } catch (UnsatisfiedLinkError notOnPath) {
            loadFromJar(notOnPath);
        }
    }

    /** The folder in the jar, below this package, that holds the libraries for this system, as "linux/x86_64". */
    static String folderInJar() {
        return folderInJar(System.getProperty("os.name"), System.getProperty("os.arch"));
    }

    static String folderInJar(String systemName, String architecture) {
        String system = systemName.toLowerCase(Locale.ROOT);
        return (system.startsWith("windows") ? "windows" : system.replaceAll("[^a-z0-9]", "")) + "/"
                + processor(architecture.toLowerCase(Locale.ROOT));
    }

    private static String processor(String architecture) {
        if (architecture.equals("amd64") || architecture.equals("x86_64")) {
            return "x86_64";
        }
        return architecture.matches("x86|i[3-6]86") ? "x86" : architecture;
    }

    private static void loadFromJar(UnsatisfiedLinkError notOnPath) {
        Path folder = null;
        try {
            folder = newPrivateFolder();
            unpack(READER, folder);
            System.load(unpack(LIBRARY, folder).toString());
        } catch (IOException | RuntimeException | UnsatisfiedLinkError cause) {
            delete(folder);
            UnsatisfiedLinkError failure = new UnsatisfiedLinkError(System.mapLibraryName(LIBRARY)
                    + " is neither in java.library.path (" + notOnPath.getMessage() + ") nor can it be loaded from "
                    + folderInJar() + " of the jar (" + cause.getMessage() + ")");
            failure.initCause(cause);
            throw failure;
        }
    }

    /** A folder that only this user can look into, as libraries are loaded from it. It is deleted at the end. */
    private static Path newPrivateFolder() throws IOException {
        boolean posix = FileSystems.getDefault().supportedFileAttributeViews().contains("posix");
        Path folder = posix
                ? Files.createTempDirectory("tabvex",
                        PosixFilePermissions.asFileAttribute(PosixFilePermissions.fromString("rwx------")))
                : Files.createTempDirectory("tabvex");
        folder.toFile().deleteOnExit();
        return folder;
    }

    /** Files are deleted at the end in the opposite order: the folder, which was told first, is empty by then. */
    private static Path unpack(String library, Path folder) throws IOException {
        String name = System.mapLibraryName(library);
        Path file = folder.resolve(name);
        file.toFile().deleteOnExit();
        try (InputStream packed = NativeLibrary.class.getResourceAsStream(folderInJar() + "/" + name)) {
            if (packed == null) {
                throw new IOException("no " + name + " there");
            }
            Files.copy(packed, file);
        }
        return file;
    }

    private static void delete(Path folder) {
        File[] files = folder == null ? null : folder.toFile().listFiles();
        if (files == null) {
            return;
        }
        for (File file : files) {
            file.delete();
        }
        folder.toFile().delete();
    }
}
