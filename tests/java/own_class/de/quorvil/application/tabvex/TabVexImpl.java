package de.quorvil.application.tabvex;

import java.util.ArrayList;
import java.util.List;

/** A class as programs have it that declare the methods themselves, in their own way, and do without the jar. */
public class TabVexImpl {
    static {
        System.loadLibrary("TabVex32X");
    }

    public final List<Integer> codes = new ArrayList<>();
    public RuntimeException thrown;

    private void setError(int code) {
        codes.add(code);
        if (thrown != null) {
            throw thrown;
        }
    }

    // Declared static: these work, but there is no object to report to.
    public static native int createInstance();

    public static native void destroyInstance(int handle);

    public static native String readItem(int handle, int item);

    public static native void clearItem(int handle, int item);

    // Declared as other programs have them.
    protected native void loadTable(int handle, String file, int versionMajor, int versionMinor);

    native void saveAllRecords(int handle, String file, int crlf);

    final native synchronized void setCompleteRecord(int handle, String type, String line);

    public native byte setDelimiter(int handle, byte delimiter);

    public native boolean useX4New(int handle, int flag);

    public native void readFirst(int handle, int item);

    public native Object readX4Mutation(int handle, int index);

    public native Object readG9Mutation(int handle, int index);

    public native void setMutationList(int handle, String kind, String list);

    public void load(int handle, String file) {
        loadTable(handle, file, 3, 2);
    }

    public void save(int handle, String file, int crlf) {
        saveAllRecords(handle, file, crlf);
    }

    public void add(int handle, String type, String line) {
        setCompleteRecord(handle, type, line);
    }
}
