import de.quorvil.application.tabvex.TabVexImpl;
import de.quorvil.application.tabvex.X4Mutation;
import java.util.Locale;

/**
 * Reads a calculation, changes it and saves it under another name, through the native methods.
 *
 * <pre>java -cp TabVex32X.jar:. ChangeCalculation TABLE RECORDS OUTPUT</pre>
 */
public class ChangeCalculation {
    private static final int CLAIM_NUMBER = 1020;
    private static final int DATE = 1030;
    private static final int MILEAGE = 1060;
    private static final int OPTION = 2120; // the key item of the options: with it, callers step over them
    private static final int OPTION_PRICE = 2125;
    private static final int GUIDE_NUMBER = 4030; // the part that a repair position is about

    // 0 or more is success.
    private static final int OK = 0;
    private static final int FIND_NOTHING = 0;
    private static final int ENTRY_NO_MORE = -5;
    private static final int VALUE_BLANK = -101;

    /** What could not be done, and the library's code for why. */
    private static class Failure extends Exception {
        private static final long serialVersionUID = 1;

        Failure(String message) {
            super(message);
        }
    }

    private final TabVexImpl records = new TabVexImpl();
    private final int handle = records.createInstance(); // one calculation file in memory

    public static void main(String[] arguments) {
        if (arguments.length != 3) {
            System.err.println("usage: ChangeCalculation TABLE RECORDS OUTPUT");
            System.exit(2);
        }
        try {
            new ChangeCalculation().run(arguments[0], arguments[1], arguments[2]);
        } catch (Failure failure) {
            System.err.println("ChangeCalculation: " + failure.getMessage());
            System.exit(1);
        }
    }

    private void run(String table, String input, String output) throws Failure {
        if (handle == 0) {
            throw new Failure("out of memory");
        }
        try {
            change(table, input, output);
        } finally {
            records.destroyInstance(handle);
        }
    }

    private void change(String table, String input, String output) throws Failure {
        load(table, input);
        printHead();
        printOptions();
        changeMileage(48350);
        // TM is the one code of the sample table that can be added as it is; the others need their kinds to be told by
        // setMutationList, after the table is loaded and before the records are read.
        addMutation("0301", "TM/99.50");
        printMutations("0301");
        save(output);
    }

    /** The native methods tell their result code to setError of the object; getError gives the last one. */
    private int checked(String what) throws Failure {
        int code = records.getError();
        if (code < 0) {
            throw new Failure(what + ": failed with " + code);
        }
        return code;
    }

    private static void print(String format, Object... values) {
        System.out.printf(Locale.ROOT, format + "%n", values);
    }

    private void load(String table, String input) throws Failure {
        records.useX4New(handle, true); // repair positions with mutations that can be added and deleted
        records.loadTable(handle, table, 3, 2);
        checked("loading the table");
        records.readAllRecordsEx(handle, input);
        checked("reading the records");
    }

    /** Items come in their full length, padded with blanks. */
    private String trimmed(int item) throws Failure {
        String text = records.readText(handle, item);
        checked("reading an item");
        int length = text.length();
        while (length > 0 && text.charAt(length - 1) == ' ') {
            length -= 1;
        }
        return text.substring(0, length);
    }

    private void printHead() throws Failure {
        String date = records.readDateItem(handle, DATE, "YYYY-MM-DD");
        checked("reading the date");
        int mileage = records.readIntItem(handle, MILEAGE);
        checked("reading the mileage");
        print("claim %s", trimmed(CLAIM_NUMBER));
        print("date %s", date);
        print("mileage %d km", mileage);
    }

    private void printOptions() throws Failure {
        double sum = 0;
        int count = 0;
        records.readFirst(handle, OPTION);
        while (records.getError() == OK) {
            double price = records.readFloatItem(handle, OPTION_PRICE);
            if (records.getError() != VALUE_BLANK) { // places at the end of the last line may be free
                checked("reading a price");
                print("option %-19s %8.2f", trimmed(OPTION), price);
                sum += price;
                count += 1;
            }
            records.readNext(handle, OPTION);
        }
        if (records.getError() != ENTRY_NO_MORE) {
            checked("stepping over the options");
        }
        print("%d options, %.2f in all", count, sum);
    }

    private void changeMileage(int mileage) throws Failure {
        records.writeIntItem(handle, MILEAGE, mileage);
        checked("changing the mileage");
        print("mileage changed to %d km", mileage);
    }

    /** Makes the repair position of a part the current one: mutations are added to it and read from it. */
    private void findPart(String part) throws Failure {
        records.findFirst(handle, GUIDE_NUMBER, part);
        if (checked("finding a part") == FIND_NOTHING) {
            throw new Failure("no repair position for part " + part);
        }
    }

    private void addMutation(String part, String mutation) throws Failure {
        findPart(part);
        records.addX4Mutation(handle, mutation);
        checked("adding a mutation");
        print("mutation %s added to part %s", mutation, part);
    }

    private void printMutations(String part) throws Failure {
        findPart(part);
        int count = records.getX4MutationsCount(handle);
        checked("counting mutations");
        print("mutations of part %s: %d", part, count);
        for (int index = 1; index <= count; ++index) {
            X4Mutation mutation = records.readX4Mutation(handle, index);
            if (mutation == null) { // the method tells no code
                throw new Failure("reading a mutation: there is none, or it cannot be read");
            }
            print("mutation %s %.2f", mutation.getCode().trim(), mutation.getValue());
        }
    }

    /**
     * The result is the number of record objects written, to which each that could not be written adds -8: a failure can
     * hide in it. Programs that must be sure read the saved file again.
     */
    private void save(String output) throws Failure {
        records.saveAllRecords(handle, output, true);
        print("%d record objects saved", checked("saving"));
    }
}
