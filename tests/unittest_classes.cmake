# add_unittest_classes(FOLDER folder [PROPERTIES ...]) makes a test of each class that Python's unittest finds in
# the folder, with these properties beside the usual ones.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(list_unittest_classes ${CMAKE_CURRENT_LIST_DIR}/list_unittest_classes.py)

function(add_unittest_classes)
  cmake_parse_arguments(PARSE_ARGV 0 "" "" "FOLDER" "PROPERTIES")
  file(GLOB scripts CONFIGURE_DEPENDS ${_FOLDER}/*.py)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${scripts} ${list_unittest_classes})
  execute_process(
    COMMAND ${CMAKE_COMMAND} -E env QUORVALE_BUILD=${CMAKE_BINARY_DIR} ${Python3_EXECUTABLE} -B ${list_unittest_classes}
            ${_FOLDER}
    OUTPUT_VARIABLE classes
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  string(REPLACE "\n" ";" classes "${classes}")
  foreach(class ${classes})
    add_test(NAME ${class} COMMAND ${Python3_EXECUTABLE} -B -m unittest -v ${class} WORKING_DIRECTORY ${_FOLDER})
    # Its verdict, when all that has run has passed.
    set_tests_properties(
      ${class} PROPERTIES LABELS e2e TIMEOUT 300 ENVIRONMENT "QUORVALE_BUILD=${CMAKE_BINARY_DIR}"
                          SKIP_REGULAR_EXPRESSION "\nOK \\(skipped=" ${_PROPERTIES})
  endforeach()
endfunction()
