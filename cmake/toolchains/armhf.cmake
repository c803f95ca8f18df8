# 32-bit hard-float ARM Linux, as on the televisions, built with Debian's cross compiler
# against the folder that scripts/arm-sysroot unpacks. Programs run here under qemu.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)

# CMake's own checks of the compiler are small projects that read this file anew: they must
# hear of the folder too.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VKB_ARM_SYSROOT)
if(NOT VKB_ARM_SYSROOT)
  set(VKB_ARM_SYSROOT "${CMAKE_SOURCE_DIR}/build/arm-sysroot")
endif()
set(VKB_ARM_SYSROOT "${VKB_ARM_SYSROOT}" CACHE PATH "Folder unpacked by scripts/arm-sysroot")
if(NOT EXISTS "${VKB_ARM_SYSROOT}/usr/include/directfb")
  message(FATAL_ERROR
    "${VKB_ARM_SYSROOT}: no DirectFB headers found in the ARM sysroot; run scripts/arm-sysroot")
endif()

set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_SYSROOT "${VKB_ARM_SYSROOT}")
set(CMAKE_FIND_ROOT_PATH "${VKB_ARM_SYSROOT}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The linker looks here for the libraries that the libraries need.
set(library_folders)
foreach(folder IN ITEMS lib usr/lib)
  string(APPEND library_folders
    " -Wl,-rpath-link,${VKB_ARM_SYSROOT}/${folder}/${CMAKE_LIBRARY_ARCHITECTURE}")
endforeach()
foreach(kind IN ITEMS EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "${library_folders}")
endforeach()

# Everything is built by this one compiler: that an old one passed some arguments differently is
# no news here.
set(CMAKE_CXX_FLAGS_INIT "-Wno-psabi")

# pkg-config must not see this machine's own packages.
set(ENV{PKG_CONFIG_PATH} "")
set(ENV{PKG_CONFIG_DIR} "")
set(ENV{PKG_CONFIG_SYSROOT_DIR} "${VKB_ARM_SYSROOT}")
set(ENV{PKG_CONFIG_LIBDIR}
  "${VKB_ARM_SYSROOT}/usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}/pkgconfig:${VKB_ARM_SYSROOT}/usr/share/pkgconfig")

# The static build of qemu: what a test puts into LD_PRELOAD then reaches the program alone.
set(CMAKE_CROSSCOMPILING_EMULATOR "qemu-arm-static;-L;${VKB_ARM_SYSROOT}")
