# The televisions have DirectFB 1.4 and this machine a later one. Each source of the keyboard is
# compiled with every name of the installed DirectFB poisoned, except those that are known to be
# in 1.4.
set(names_file "${CMAKE_CURRENT_SOURCE_DIR}/directfb_1.4_names.txt")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${names_file}")
file(STRINGS "${names_file}" names_in_1_4 REGEX "^[^#]")

find_file(directfb_header directfb.h PATHS ${directfb_INCLUDE_DIRS} REQUIRED
  NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
get_filename_component(directfb_folder "${directfb_header}" DIRECTORY)
file(READ "${directfb_header}" directfb_text)
file(READ "${directfb_folder}/dfb_types.h" types_text)

# 1.4 has GetSurface in two other interfaces, so the token cannot be poisoned: in the copy of
# the header that these compilations see, the one that is missing in 1.4 has another name.
string(FIND "${directfb_text}" "D_DEFINE_INTERFACE(   IDirectFB," start)
string(FIND "${directfb_text}" "D_DEFINE_INTERFACE(   IDirectFBScreen," end)
if(start LESS 0 OR end LESS start)
  message(FATAL_ERROR "${directfb_header}: the interface IDirectFB was not found where expected")
endif()
string(SUBSTRING "${directfb_text}" 0 ${start} before)
math(EXPR length "${end} - ${start}")
string(SUBSTRING "${directfb_text}" ${start} ${length} interface)
string(SUBSTRING "${directfb_text}" ${end} -1 after)
string(REPLACE "(*GetSurface)" "(*GetSurface_is_not_in_1_4)" interface "${interface}")
set(poison_folder "${CMAKE_CURRENT_BINARY_DIR}/poisoned")
file(CONFIGURE OUTPUT "${poison_folder}/directfb.h" CONTENT "@before@@interface@@after@" @ONLY)

string(REGEX MATCHALL "D[A-Z]+_[A-Z0-9_]+|I?DirectFB[A-Za-z0-9]+|DFB[A-Z][A-Za-z0-9]+"
  names "${directfb_text}${types_text}")
string(REGEX MATCHALL "[(][*][A-Za-z0-9]+[)] " members "${directfb_text}")
string(REGEX REPLACE "[(*) ]" "" members "${members}")
list(APPEND names ${members})
list(REMOVE_DUPLICATES names)
list(LENGTH names names_found)
if(names_found LESS 1000)
  message(FATAL_ERROR "${directfb_header}: only ${names_found} names found, expected over 1000")
endif()
list(REMOVE_ITEM names ${names_in_1_4})
list(SORT names)
list(JOIN names "\n#pragma GCC poison " poisoned_names)
file(CONFIGURE OUTPUT "${poison_folder}/poisoned_names.h" @ONLY CONTENT
"// Headers first: poison holds from its line on.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>
#include <json/json.h>
#include <time.h>
#include <unistd.h>
#include <directfb.h>
#pragma GCC poison @poisoned_names@
")

set(compile "${CMAKE_CXX_COMPILER}" -std=c++11 -fsyntax-only -w
  -isystem "${poison_folder}" -include poisoned_names.h)
foreach(folder IN LISTS directfb_INCLUDE_DIRS jsoncpp_INCLUDE_DIRS)
  list(APPEND compile -isystem "${folder}")
endforeach()
if(CMAKE_SYSROOT)
  list(APPEND compile "--sysroot=${CMAKE_SYSROOT}")
endif()

file(GLOB sources "${PROJECT_SOURCE_DIR}/src/os_keyboard/*.cpp")
foreach(source IN LISTS sources)
  get_filename_component(name "${source}" NAME_WE)
  vkb_add_test(DirectFB14.KnowsEachNameOf.${name} COMMAND ${compile} "${source}")
endforeach()

# The poison works: a name of 1.4 compiles, a later one does not and the compiler says which.
function(add_poison_test name expression outcome)
  set(file "${poison_folder}/uses_${name}.cpp")
  file(CONFIGURE OUTPUT "${file}" @ONLY CONTENT "const auto used = sizeof(@expression@);\n")
  set(test "DirectFB14.Poison${outcome}.${name}")
  vkb_add_test(${test} COMMAND ${compile} "${file}")
  if(outcome STREQUAL "Finds")
    set_tests_properties(${test} PROPERTIES
      PASS_REGULAR_EXPRESSION "poisoned .${name}|has no member named [^ ]*${name}")
  endif()
endfunction()
add_poison_test(SetOpacity "static_cast<IDirectFBWindow*>(nullptr)->SetOpacity" Leaves)
add_poison_test(SetGeometry "static_cast<IDirectFBWindow*>(nullptr)->SetGeometry" Finds)
add_poison_test(SendEvent "static_cast<IDirectFBWindow*>(nullptr)->SendEvent" Finds)
add_poison_test(GetSurface "static_cast<IDirectFB*>(nullptr)->GetSurface" Finds)
add_poison_test(DSTF_BLEND_FUNCS "DSTF_BLEND_FUNCS" Finds)
add_poison_test(DSFLIP_SWAP "DSFLIP_SWAP" Finds)
