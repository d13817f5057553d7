# tabvex_windows_exports(TARGET NAME...): the library exports these functions under exactly these names, and of the rest
# only what is marked as exported. Its name has no prefix; a suffix other than .dll is set before.
function(tabvex_windows_exports target)
  get_target_property(suffix ${target} SUFFIX)
  if(NOT suffix)
    set(suffix .dll)
  endif()
  list(JOIN ARGN "\n    " names)
  set(def ${CMAKE_CURRENT_BINARY_DIR}/${target}.def)
  file(CONFIGURE OUTPUT ${def} CONTENT "LIBRARY @target@@suffix@\nEXPORTS\n    @names@\n" @ONLY)
  target_sources(${target} PRIVATE ${def})
  # On x86, natives for Java are functions <name>@<bytes of arguments> in here, and <name> for those who look them up.
  target_link_options(${target} PRIVATE -Wl,--kill-at -Wl,--enable-stdcall-fixup)
  set_target_properties(${target} PROPERTIES PREFIX "" LINK_DEPENDS ${def})
endfunction()
