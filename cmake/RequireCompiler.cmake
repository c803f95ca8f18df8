# A compiler without C++17's library would stop somewhere in the middle with words that help
# nobody.
set(VKB_OLDEST_GNU 9)
set(VKB_OLDEST_Clang 10)

if(DEFINED VKB_OLDEST_${CMAKE_CXX_COMPILER_ID}
   AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS VKB_OLDEST_${CMAKE_CXX_COMPILER_ID})
  message(FATAL_ERROR
    "The C++ compiler ${CMAKE_CXX_COMPILER} is ${CMAKE_CXX_COMPILER_ID} ${CMAKE_CXX_COMPILER_VERSION}, "
    "and the build needs ${VKB_OLDEST_${CMAKE_CXX_COMPILER_ID}} or newer. Debian 12 and newer have "
    "one in the package g++. To choose another: CXX=/path/to/g++ in the environment, after make clean.")
endif()
