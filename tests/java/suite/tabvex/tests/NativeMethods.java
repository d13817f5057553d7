package tabvex.tests;

import de.quorvil.application.tabvex.TabVexImpl;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.nio.file.Path;
import java.util.Arrays;
import java.util.Comparator;
import java.util.Map;
import java.util.Set;
import java.util.stream.Stream;

/** The native methods that the class declares, called with made-up arguments. */
final class NativeMethods {
    /** Those that report nothing when their arguments are there. */
    static final Set<String> SILENT =
            Set.of("createInstance", "destroyInstance", "setMutationList", "setRepairMethodList");

    private static final Set<String> WITH_FILE =
            Set.of("loadTable", "saveAllRecords", "readAllRecordsEx", "readVRecords");

    private static final Map<Class<?>, Object> ARGUMENTS = Map.of(int.class, 1, boolean.class, true, char.class, '/',
            double.class, 1.0, String.class, "X1", byte[].class, new byte[] {'x'});

    private NativeMethods() {}

    static Stream<Method> all() {
        return Arrays.stream(TabVexImpl.class.getDeclaredMethods())
                .filter(m -> Modifier.isNative(m.getModifiers()))
                .sorted(Comparator.comparing(Method::getName));
    }

    /** The arguments for a method; a file is one in the folder. */
    static Object[] arguments(Method method, int handle, Path folder) {
        Object[] arguments = Arrays.stream(method.getParameterTypes()).map(ARGUMENTS::get).toArray();
        if (arguments.length > 0) {
            arguments[0] = handle;
        }
        if (WITH_FILE.contains(method.getName())) {
            arguments[1] = folder.resolve("file").toString();
        }
        return arguments;
    }

    /** Calls a method; what it throws comes out as it is. */
    static Object call(Method method, Object object, Object... arguments) throws Throwable {
        try {
            return method.invoke(object, arguments);
        } catch (InvocationTargetException thrown) {
            throw thrown.getCause();
        }
    }

    /** True for what a method gives that gives nothing: null, 0 or false. */
    static boolean isNothing(Object result) {
        return result == null || result.equals(false) || result.equals('\0')
                || result instanceof Number && ((Number) result).doubleValue() == 0;
    }
}
