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
configure_file(cmake/velmora_vkb.pc.in "${CMAKE_CURRENT_BINARY_DIR}/velmora_vkb.pc" @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/velmora_vkb.pc"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)

# The keyboard reads its layouts from here, wherever the rest is installed.
install(DIRECTORY resources/oskeyboard_config/
  DESTINATION /usr/local/opt/nerovista/resources/oskeyboard_config COMPONENT layouts
  FILES_MATCHING PATTERN "Language_*.json")

# What the layouts command works with; the layouts themselves are there but once.
if(VKB_BUILD_TOOLS)
  set(VKB_DATA_DIR "${CMAKE_INSTALL_DATADIR}/velmora_vkb")
  file(CREATE_LINK /usr/local/opt/nerovista/resources/oskeyboard_config
    "${CMAKE_CURRENT_BINARY_DIR}/oskeyboard_config" SYMBOLIC)
  install(FILES resources/languages.tsv resources/left_out.tsv "${CMAKE_CURRENT_BINARY_DIR}/oskeyboard_config"
    DESTINATION "${VKB_DATA_DIR}" COMPONENT tools)
  install(DIRECTORY resources/schema DESTINATION "${VKB_DATA_DIR}" COMPONENT tools)
endif()
