# Debian packages of what is installed: `cpack` in the build folder.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vornrenderer)
set(CPACK_PACKAGE_VENDOR "libvornrenderer")
set(CPACK_PACKAGE_CONTACT "The libvornrenderer authors <maintainers@vornrenderer.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/packaging/quiet.cmake)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime dev tools)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Names of the platform's libraries are resolved within the packages.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
  ${PROJECT_BINARY_DIR}/src ${PROJECT_BINARY_DIR}/platform/linux)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libvornrenderer0)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/triggers)
# The machine is loaded when compressed video is played, and not before.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS "default-jre-headless, libgl1-mesa-dri")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
  "The shared library: draws raw frames, H.264 and Motion-JPEG into a texture of the application's.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libvornrenderer-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "libgles-dev")
set(CPACK_DEBIAN_DEV_PACKAGE_SUGGESTS "default-jdk-headless")
set(CPACK_COMPONENT_DEV_DESCRIPTION
  "Headers, and what CMake and pkg-config need to find them.")
set(CPACK_COMPONENT_DEV_DEPENDS runtime)

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME vornrenderer-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION video)
# For the texts of the player's window, and what it loads by itself.
string(REGEX MATCH "^[0-9]+" LIBAVFILTER_MAJOR "${LIBAVFILTER_VERSION}")
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "fonts-dejavu-core, libavfilter${LIBAVFILTER_MAJOR}")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION
  "vornplay renders clips and pictures; motionmask makes masks of what moves in them.")
set(CPACK_COMPONENT_TOOLS_DEPENDS runtime)

include(CPack)
