# One set of warnings and sanitizers for every target: link against tabvex_settings.
add_library(tabvex_settings INTERFACE)
target_compile_options(tabvex_settings INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wno-sign-conversion
  $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor -Woverloaded-virtual>)
if(TABVEX_SANITIZE)
  target_compile_options(tabvex_settings INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(tabvex_settings INTERFACE -fsanitize=address,undefined)
endif()
if(TABVEX_BUILD_FUZZ)
  target_compile_options(tabvex_settings INTERFACE -fsanitize=fuzzer-no-link)
endif()
