# What programs and libraries for Windows need beside their own sources.

# Windows looks for libraries beside the program: all of them land in one folder.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
# With the compiler's run time inside, a library needs nothing but what every Windows has.
target_link_options(tabvex_settings INTERFACE -static)

# The libraries of tools and tests are headers and sources that serve every system; Debian has them in its own folders.
function(tabvex_host_headers target folder)
  find_path(host_headers ${folder} PATHS /usr/include NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH NO_CACHE REQUIRED)
  # That folder alone, as the ones beside it are those of the building system.
  set(include ${PROJECT_BINARY_DIR}/host-headers/${folder})
  file(MAKE_DIRECTORY ${include})
  file(CREATE_LINK ${host_headers}/${folder} ${include}/${folder} SYMBOLIC)
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${target} SYSTEM INTERFACE ${include})
endfunction()

if(TABVEX_BUILD_TOOLS)
  tabvex_host_headers(CLI11::CLI11 CLI)
  tabvex_host_headers(nlohmann_json::nlohmann_json nlohmann)
endif()
if(TABVEX_BUILD_TESTS)
  set(INSTALL_GTEST OFF)
  set(BUILD_SHARED_LIBS OFF)
  add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
endif()
