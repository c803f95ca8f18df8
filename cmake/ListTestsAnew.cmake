# vkb_list_tests_anew(target path...): the list of a program's tests, which gtest_discover_tests with
# PRE_TEST makes once, is made anew when a path is newer: a folder that has got or lost a file, or a
# file that was changed. To be called before.
function(vkb_list_tests_anew target)
  set(list "${CMAKE_CURRENT_BINARY_DIR}/${target}[1]_tests.cmake")
  set(script "${CMAKE_CURRENT_BINARY_DIR}/${target}_list_anew.cmake")
  set(lines "")
  foreach(path IN LISTS ARGN)
    string(APPEND lines "if(\"${path}\" IS_NEWER_THAN \"${list}\")\n  file(REMOVE \"${list}\")\nendif()\n")
  endforeach()
  file(WRITE "${script}" "${lines}")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${script}")
endfunction()
