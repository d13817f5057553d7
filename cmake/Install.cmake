# Everything that is installed and packaged, and where. Components: Runtime (the library and its table-line reader),
# Development (headers and what build systems look for), Tools, Java, Documentation.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
set(CMAKE_INSTALL_DOCDIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/tabvex32x)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/TabVex32X)

# --- Runtime ---
# The library carries no version, neither in its file's name nor in its SONAME: programs load it by one fixed name at run
# time (System.loadLibrary("TabVex32X"), dlopen), it is copied about together with its reader and packed into the jar,
# and a second name would make two libraries of it in one process, each with a shared record set of its own.
# So its binary interface only ever grows; scripts/check-abi watches over that.
set_target_properties(TabVex32X PROPERTIES EXPORT_NAME TabVex32X)
target_compile_features(TabVex32X INTERFACE cxx_std_17)
add_library(TabVex32X::TabVex32X ALIAS TabVex32X)
install(TARGETS TabVex32X EXPORT TabVex32XTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Runtime
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
# The library looks for its reader beside itself. Nobody links to it.
install(TARGETS TBLREAD
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Runtime)

# --- Development ---
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/tabvex DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  COMPONENT Development FILES_MATCHING PATTERN "*.h")
install(EXPORT TabVex32XTargets NAMESPACE TabVex32X:: DESTINATION ${package_dir} COMPONENT Development)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/TabVex32XConfig.cmake.in
  ${PROJECT_BINARY_DIR}/TabVex32XConfig.cmake INSTALL_DESTINATION ${package_dir}
  NO_SET_AND_CHECK_MACRO)
# While the major version is 0, a new minor version may ask callers for changes in their sources.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/TabVex32XConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/TabVex32XConfig.cmake ${PROJECT_BINARY_DIR}/TabVex32XConfigVersion.cmake
  DESTINATION ${package_dir} COMPONENT Development)
# Paths are told relative to the file, so that an installation may be moved; a folder given as an absolute path stays
# what it is.
set(libdir_in_pc "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
set(includedir_in_pc "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}")
foreach(folder IN ITEMS libdir includedir)
  string(TOUPPER ${folder} name)
  if(IS_ABSOLUTE "${CMAKE_INSTALL_${name}}")
    set(${folder}_in_pc "${CMAKE_INSTALL_${name}}")
  endif()
endforeach()
file(RELATIVE_PATH prefix_from_pc
  ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" prefix_from_pc "${prefix_from_pc}")
configure_file(${CMAKE_CURRENT_LIST_DIR}/tabvex32x.pc.in ${PROJECT_BINARY_DIR}/tabvex32x.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/tabvex32x.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT Development)

# --- Tools ---
if(TARGET tabvex)
  file(RELATIVE_PATH libraries_from_tools ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set_target_properties(tabvex PROPERTIES INSTALL_RPATH "$ORIGIN/${libraries_from_tools}")
  install(TARGETS tabvex RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Tools)
  find_program(TABVEX_GZIP gzip)
  if(TABVEX_GZIP)
    set(man_page ${PROJECT_SOURCE_DIR}/tools/tabvex/tabvex.1)
    add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/tabvex.1.gz
      COMMAND ${TABVEX_GZIP} -9nc ${man_page} > ${PROJECT_BINARY_DIR}/tabvex.1.gz
      DEPENDS ${man_page} VERBATIM)
    add_custom_target(tabvex_man ALL DEPENDS ${PROJECT_BINARY_DIR}/tabvex.1.gz)
    install(FILES ${PROJECT_BINARY_DIR}/tabvex.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT Tools)
  endif()
endif()

# --- Java ---
if(TARGET tabvex_java)
  get_target_property(jar tabvex_java JAR_FILE)
  install(FILES ${jar} DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/java COMPONENT Java)
endif()

# --- Documentation ---
# Guides, samples and examples keep their places to one another, so that their links hold.
file(GLOB guides CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/*.md)
list(FILTER guides EXCLUDE REGEX "/adding-[^/]*$")
install(FILES ${guides} DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs COMPONENT Documentation)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples ${PROJECT_SOURCE_DIR}/samples
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT Documentation PATTERN "__pycache__" EXCLUDE)
# The name that Debian asks for.
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} RENAME copyright
  COMPONENT Documentation)

# --- Debian package: cpack --config build/release/CPackConfig.cmake ---
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tabvex32x)
set(CPACK_PACKAGE_CONTACT "TabVex32X developers <tabvex@localhost.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "library and tool for calculation record files")
set(CPACK_PACKAGE_DESCRIPTION
  "Reads, queries, changes and writes the record files of repair-cost
calculations, whose layout a table file describes. Holds the shared library,
headers for C and C++, Java classes and the command-line tool tabvex.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
