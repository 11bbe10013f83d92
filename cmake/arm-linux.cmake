# Builds for 32-bit ARM Linux (Debian armhf) with Debian's cross compiler, against the sysroot that
# scripts/sysroot lays out, and runs what was built in QEMU's user-mode emulator.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi)  # No ABI older than GCC 7 is of interest.

cmake_path(GET CMAKE_CURRENT_LIST_DIR PARENT_PATH PROJECT_ROOT)
set(CMAKE_SYSROOT ${PROJECT_ROOT}/.cache/sysroot-armhf)
if(NOT EXISTS ${CMAKE_SYSROOT}/usr/include)
  message(FATAL_ERROR "No ARM system in ${CMAKE_SYSROOT}: run scripts/sysroot")
endif()
# The emulator looks for most paths in the sysroot first, but not when the dynamic linker asks whether a
# folder exists: the one that is not among the linker's own is therefore named in full.
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm-static -L ${CMAKE_SYSROOT}
  -E LD_LIBRARY_PATH=${CMAKE_SYSROOT}/usr/lib/arm-linux-gnueabihf/android)
set(VORN_SYSROOT_JAVA ${CMAKE_SYSROOT}/usr/lib/jvm/java-17-openjdk-armhf/bin/java)

# Programs from this machine, everything else from the sysroot.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${CMAKE_SYSROOT})
set(ENV{PKG_CONFIG_LIBDIR}
  ${CMAKE_SYSROOT}/usr/lib/arm-linux-gnueabihf/pkgconfig:${CMAKE_SYSROOT}/usr/share/pkgconfig)
