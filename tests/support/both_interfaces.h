// Calls a function in its flat form or in its form with a handle.
#pragma once

/// In place of a handle: the flat form.
constexpr int kFlat = -1;

template <typename Result, typename... Parameters, typename... Arguments>
Result Call(int handle, Result (*flat)(Parameters...), Result (*withHandle)(int, Parameters...),
            Arguments... arguments) {
    return handle == kFlat ? flat(arguments...) : withHandle(handle, arguments...);
}
