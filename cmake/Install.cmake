# What `cmake --install` puts where: components runtime, dev and tools.

if(VORN_BUILD_PLATFORM)
  set_target_properties(mediandk android PROPERTIES INSTALL_RPATH "$ORIGIN")
  install(TARGETS mediandk android EXPORT vornrenderer
    LIBRARY DESTINATION ${VORN_PLATFORM_DIR} COMPONENT runtime
    INCLUDES DESTINATION ${VORN_INCLUDE_DIR})
  install(FILES $<TARGET_PROPERTY:android_jar,JAR_FILE> DESTINATION ${VORN_PLATFORM_DIR}
    COMPONENT runtime)
  install(FILES platform/linux/include/linux_platform/Host.h
    DESTINATION ${VORN_INCLUDE_DIR}/linux_platform COMPONENT dev)
endif()

install(TARGETS vornrenderer EXPORT vornrenderer
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev
  INCLUDES DESTINATION ${VORN_INCLUDE_DIR})

foreach(header IN LISTS VORN_PUBLIC_HEADERS)
  cmake_path(GET header PARENT_PATH folder)
  string(REGEX REPLACE "^include/" "" folder ${folder})
  install(FILES ${header} DESTINATION ${VORN_INCLUDE_DIR}/${folder} COMPONENT dev)
endforeach()

install(FILES docs/examples/example/Scene.h DESTINATION ${VORN_INCLUDE_DIR}/example COMPONENT dev)
if(VORN_BUILD_PLATFORM)
  install(FILES docs/examples/example/Clip.h DESTINATION ${VORN_INCLUDE_DIR}/example COMPONENT dev)
endif()

include(CMakePackageConfigHelpers)
set(GENERATED ${PROJECT_BINARY_DIR}/package)
configure_package_config_file(packaging/vornrendererConfig.cmake.in
  ${GENERATED}/vornrendererConfig.cmake INSTALL_DESTINATION ${VORN_CMAKE_DIR})
write_basic_package_version_file(${GENERATED}/vornrendererConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(EXPORT vornrenderer NAMESPACE vornrenderer:: FILE vornrendererTargets.cmake
  DESTINATION ${VORN_CMAKE_DIR} COMPONENT dev)

set(PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
cmake_path(RELATIVE_PATH VORN_INCLUDE_DIR BASE_DIRECTORY ${PKGCONFIG_DIR} OUTPUT_VARIABLE PC_INCLUDE)
configure_file(packaging/vornrenderer.pc.in ${GENERATED}/vornrenderer.pc @ONLY)
install(FILES ${GENERATED}/vornrendererConfig.cmake ${GENERATED}/vornrendererConfigVersion.cmake
  DESTINATION ${VORN_CMAKE_DIR} COMPONENT dev)
install(FILES ${GENERATED}/vornrenderer.pc DESTINATION ${PKGCONFIG_DIR} COMPONENT dev)

if(TARGET vornplay)
  include(CommandPage)
  set_target_properties(vornplay motionmask PROPERTIES INSTALL_RPATH "${VORN_PROGRAM_RPATH}")
  install(TARGETS vornplay motionmask RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tools)
  install_command_page(vornplay)
  install_command_page(motionmask)
  install(FILES packaging/vornplay.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications
    COMPONENT tools)
  install(FILES packaging/vornplay.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT tools)
endif()

foreach(package runtime:libvornrenderer0 dev:libvornrenderer-dev tools:vornrenderer-tools)
  string(REPLACE ":" ";" package ${package})
  list(POP_FRONT package component)
  install(FILES packaging/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package}
    COMPONENT ${component})
endforeach()
