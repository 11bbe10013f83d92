# How CTest sees programs of GoogleTest.
include(GoogleTest)

option(VORN_TEST_BY_PROGRAM "Run each test program once, for where programs are slow to start" OFF)

# vorn_discover_tests(program [options of gtest_discover_tests]): each test a process of its own, or
# the program with all of its tests as one.
function(vorn_discover_tests program)
  if(NOT VORN_TEST_BY_PROGRAM)
    # Printed values of parameters have addresses in them.
    gtest_discover_tests(${program} NO_PRETTY_VALUES ${ARGN})
    return()
  endif()
  cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "PROPERTIES")
  add_test(NAME ${program} COMMAND ${program})
  if(ARG_PROPERTIES)
    set_tests_properties(${program} PROPERTIES ${ARG_PROPERTIES})
  endif()
endfunction()
