# vkb_list_tests_anew(target folder): the list of a program's tests, which gtest_discover_tests with
# PRE_TEST makes once, is made anew when the folder has got or lost a file since. To be called before.
function(vkb_list_tests_anew target folder)
  set(list "${CMAKE_CURRENT_BINARY_DIR}/${target}[1]_tests.cmake")
  set(script "${CMAKE_CURRENT_BINARY_DIR}/${target}_list_anew.cmake")
  file(CONFIGURE OUTPUT "${script}" @ONLY CONTENT
    "if(\"@folder@\" IS_NEWER_THAN \"@list@\")\n  file(REMOVE \"@list@\")\nendif()\n")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${script}")
endfunction()
