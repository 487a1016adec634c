# Run by ctest before the tests: registers each suite of a test program. One process per suite, since
# thousands of starts, one per test, would take most of the time.
#
# program: the test program
execute_process(COMMAND ${program} --gtest_list_tests
                OUTPUT_VARIABLE list RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${program} does not list its tests: ${result}")
endif()
string(REGEX MATCHALL "(^|\n)[^ \n][^ \n]*\\.( |\n)" suites "${list}")
foreach(suite IN LISTS suites)
  string(STRIP "${suite}" suite)
  string(REGEX REPLACE "\\.$" "" suite "${suite}")
  add_test("${suite}" "${program}" "--gtest_filter=${suite}.*")
endforeach()
