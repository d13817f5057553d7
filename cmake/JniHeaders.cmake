# tabvex_jni_headers: where jni.h and jni_md.h are, for the library's Java native methods. They are compiled against
# these headers only; nothing of a Java virtual machine is linked. jni_md.h differs between systems: that of Linux would
# let the native methods vanish from a DLL, so that builds for Windows take one of their own with the JDK's jni.h.
set(TABVEX_JNI_INCLUDE_DIRS "" CACHE STRING "Folders of jni.h and jni_md.h; empty: those of the JDK that is found")
set(folders ${TABVEX_JNI_INCLUDE_DIRS})
if(CMAKE_CROSSCOMPILING AND NOT WIN32 AND NOT folders)
  message(FATAL_ERROR "built for ${CMAKE_SYSTEM_NAME}: set TABVEX_JNI_INCLUDE_DIRS to the folders of jni.h and of that "
    "system's jni_md.h; those of this computer's JDK do not fit")
endif()
if(NOT folders AND NOT JAVA_HOME AND NOT DEFINED ENV{JAVA_HOME})
  # The JDK that the shell would use; CMake by itself looks into few folders.
  find_program(TABVEX_JAVAC javac)
  mark_as_advanced(TABVEX_JAVAC)
  if(TABVEX_JAVAC)
    file(REAL_PATH ${TABVEX_JAVAC} JAVA_HOME)
    cmake_path(GET JAVA_HOME PARENT_PATH JAVA_HOME)
    cmake_path(GET JAVA_HOME PARENT_PATH JAVA_HOME)
  endif()
endif()
if(NOT folders AND WIN32)
  find_path(TABVEX_JDK_INCLUDE jni.h PATHS ${JAVA_HOME}/include $ENV{JAVA_HOME}/include
    NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  mark_as_advanced(TABVEX_JDK_INCLUDE)
  set(folders ${PROJECT_SOURCE_DIR}/src/platform/windows ${TABVEX_JDK_INCLUDE})
elseif(NOT folders)
  # Not REQUIRED: a JDK without its desktop libraries has the headers all the same.
  find_package(JNI QUIET)
  set(folders ${JAVA_INCLUDE_PATH} ${JAVA_INCLUDE_PATH2})
  if("${folders}" MATCHES NOTFOUND OR NOT folders)
    message(FATAL_ERROR "jni.h not found: install a JDK, or set JAVA_HOME or TABVEX_JNI_INCLUDE_DIRS")
  endif()
endif()
add_library(tabvex_jni_headers INTERFACE)
target_include_directories(tabvex_jni_headers SYSTEM INTERFACE ${folders})
