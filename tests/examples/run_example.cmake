# Runs an example: `command` TABLE RECORDS OUTPUT. It must print the lines of the file `expected` and save, at `saved`,
# the bytes of `expected_saved`; told of records that do not exist, it must fail and say so.
file(REMOVE ${saved})
execute_process(COMMAND ${command} ${table} ${records} ${saved}
  OUTPUT_VARIABLE printed ERROR_VARIABLE errors RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "ended with ${result}: ${errors}")
endif()
file(READ ${expected} wanted)
if(NOT printed STREQUAL wanted)
  message(FATAL_ERROR "printed:\n${printed}\nexpected:\n${wanted}")
endif()
file(SHA256 ${saved} saved_sum)
file(SHA256 ${expected_saved} wanted_sum)
if(NOT saved_sum STREQUAL wanted_sum)
  message(FATAL_ERROR "${saved} is not ${expected_saved}, byte for byte")
endif()

execute_process(COMMAND ${command} ${table} ${saved}.missing ${saved}.unwritten
  OUTPUT_VARIABLE printed ERROR_VARIABLE errors RESULT_VARIABLE result)
if(NOT result EQUAL 1 OR NOT errors MATCHES "reading the records: failed with -8\n$")
  message(FATAL_ERROR "without records, ended with ${result}: ${errors}")
endif()
if(EXISTS ${saved}.unwritten)
  message(FATAL_ERROR "saved a file without records")
endif()
