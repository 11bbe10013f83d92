# Where things go when installed. Included before any target, so that they find each other there.

# Debian's linker, CMake and pkg-config look below the architecture's name.
if(EXISTS /etc/debian_version AND CMAKE_LIBRARY_ARCHITECTURE AND NOT DEFINED CMAKE_INSTALL_LIBDIR)
  set(CMAKE_INSTALL_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE} CACHE PATH "Libraries")
endif()
include(GNUInstallDirs)

set(VORN_INCLUDE_DIR ${CMAKE_INSTALL_INCLUDEDIR}/vornrenderer)
set(VORN_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/vornrenderer)
# Android's platform for Linux has Android's names: kept out of every other program's way.
set(VORN_PLATFORM_DIR ${CMAKE_INSTALL_LIBDIR}/vornrenderer)

cmake_path(RELATIVE_PATH CMAKE_INSTALL_LIBDIR BASE_DIRECTORY ${CMAKE_INSTALL_BINDIR}
  OUTPUT_VARIABLE LIBRARIES_FROM_PROGRAMS)
set(VORN_LIBRARY_RPATH "$ORIGIN/vornrenderer")
set(VORN_PROGRAM_RPATH
  "$ORIGIN/${LIBRARIES_FROM_PROGRAMS}" "$ORIGIN/${LIBRARIES_FROM_PROGRAMS}/vornrenderer")
set(CMAKE_INSTALL_RPATH_USE_LINK_PATH ON)  # Debian's Android log lies in a folder of its own, too.
