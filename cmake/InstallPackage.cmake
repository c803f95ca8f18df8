# What an embedder's build finds: a CMake package and a pkg-config file.
include(CMakePackageConfigHelpers)

set(VKB_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/velmora_vkb")

install(EXPORT velmora_vkb-targets
  NAMESPACE velmora_vkb::
  DESTINATION "${VKB_CMAKE_DIR}" COMPONENT development)

configure_package_config_file(cmake/velmora_vkb-config.cmake.in
  "${CMAKE_CURRENT_BINARY_DIR}/velmora_vkb-config.cmake"
  INSTALL_DESTINATION "${VKB_CMAKE_DIR}")
write_basic_package_version_file("${CMAKE_CURRENT_BINARY_DIR}/velmora_vkb-config-version.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES
  "${CMAKE_CURRENT_BINARY_DIR}/velmora_vkb-config.cmake"
  "${CMAKE_CURRENT_BINARY_DIR}/velmora_vkb-config-version.cmake"
  DESTINATION "${VKB_CMAKE_DIR}" COMPONENT development)

# The file finds its prefix from where it lies, so that an unpacked tree works as well.
file(RELATIVE_PATH VKB_PC_TO_PREFIX
  "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
# The loader looks below /usr by itself; elsewhere a program has to say where its libraries are.
if(NOT CMAKE_INSTALL_PREFIX STREQUAL "/usr")
  set(VKB_PC_RPATH "-Wl,-rpath,\${libdir} ")
endif()
configure_file(cmake/velmora_vkb.pc.in "${CMAKE_CURRENT_BINARY_DIR}/velmora_vkb.pc" @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/velmora_vkb.pc"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)

# The layouts that there are, and what the layouts command works with.
set(VKB_DATA_DIR "${CMAKE_INSTALL_DATADIR}/velmora_vkb")
# Where the keyboard looks for the layouts that somebody chose, wherever the rest is installed.
set(VKB_CHOSEN_LAYOUTS /usr/local/opt/nerovista/resources/oskeyboard_config)
configure_file(cmake/InstallPackageLayouts.cmake.in
  "${CMAKE_CURRENT_BINARY_DIR}/InstallPackageLayouts.cmake" @ONLY)
# First, as it compares with what an earlier installation left.
install(SCRIPT "${CMAKE_CURRENT_BINARY_DIR}/InstallPackageLayouts.cmake"
  COMPONENT chosen_layouts)
install(DIRECTORY resources/oskeyboard_config DESTINATION "${VKB_DATA_DIR}" COMPONENT layouts
  FILES_MATCHING PATTERN "Language_*.json")
if(VKB_BUILD_TOOLS)
  install(FILES resources/languages.tsv resources/exceptions.tsv resources/left_out.tsv
    DESTINATION "${VKB_DATA_DIR}" COMPONENT tools)
  install(DIRECTORY resources/xkb DESTINATION "${VKB_DATA_DIR}" COMPONENT tools)
  install(DIRECTORY resources/schema DESTINATION "${VKB_DATA_DIR}" COMPONENT tools
    FILES_MATCHING PATTERN "*.json")
endif()
