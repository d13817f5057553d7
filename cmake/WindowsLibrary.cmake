# tabvex_windows_exports(TARGET NAME...): the library exports these functions under exactly these names, and of the rest
# only what is marked as exported. Its name has no prefix.
function(tabvex_windows_exports target)
  list(JOIN ARGN "\n    " names)
  set(def ${CMAKE_CURRENT_BINARY_DIR}/${target}.def)
  file(CONFIGURE OUTPUT ${def} CONTENT "EXPORTS\n    @names@\n" @ONLY)
  target_sources(${target} PRIVATE ${def})
  # On x86, natives for Java are functions <name>@<bytes of arguments> in here, and <name> for those who look them up.
  target_link_options(${target} PRIVATE -Wl,--kill-at -Wl,--enable-stdcall-fixup)
  set_target_properties(${target} PROPERTIES PREFIX "" LINK_DEPENDS ${def})
endfunction()
