# Every target of ours is built with the same warnings; the packages' headers
# come in as system headers and are not subject to them.
option(VKB_WARNINGS_AS_ERRORS "Stop at the first compiler warning" OFF)

function(vkb_enable_warnings target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    $<$<BOOL:${VKB_WARNINGS_AS_ERRORS}>:-Werror>)
  if(CMAKE_VERIFY_INTERFACE_HEADER_SETS)
    vkb_check_headers(${target})
  endif()
endfunction()

# Compiles headers alone, as the target's sources are compiled: those of its sources, and those
# beside them that belong to no source.
function(vkb_check_headers target)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources EXCLUDE REGEX "^[/$]")
  if(NOT sources)
    return()
  endif()
  list(TRANSFORM sources REPLACE "[^/]+$" "*.h" OUTPUT_VARIABLE patterns)
  list(REMOVE_DUPLICATES patterns)
  file(GLOB headers RELATIVE "${CMAKE_CURRENT_SOURCE_DIR}" ${patterns})
  foreach(header IN LISTS headers)
    string(REGEX REPLACE "h$" "cpp" source "${header}")
    if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${source}" AND NOT source IN_LIST sources)
      list(REMOVE_ITEM headers "${header}")
    endif()
  endforeach()
  if(headers)
    add_library(${target}_headers INTERFACE)
    target_sources(${target}_headers INTERFACE FILE_SET HEADERS
      BASE_DIRS "${CMAKE_CURRENT_SOURCE_DIR}" FILES ${headers})
    target_include_directories(${target}_headers SYSTEM INTERFACE
      "$<TARGET_PROPERTY:${target},INCLUDE_DIRECTORIES>")
    target_compile_definitions(${target}_headers INTERFACE
      "$<TARGET_PROPERTY:${target},COMPILE_DEFINITIONS>")
  endif()
endfunction()
