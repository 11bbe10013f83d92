# Options for all of the project's own code.

option(VORN_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" ON)
set(VORN_SANITIZE "" CACHE STRING "Sanitizers to build with, as -fsanitize takes them")

add_library(vorn_options INTERFACE)
target_compile_features(vorn_options INTERFACE cxx_std_17)
target_compile_options(vorn_options INTERFACE
  -Wall -Wextra -Wpedantic
  $<$<BOOL:${VORN_WARNINGS_AS_ERRORS}>:-Werror>
  # Meshes and matrices are the same bit for bit on every processor.
  -ffp-contract=off)

if(VORN_SANITIZE)
  target_compile_options(vorn_options INTERFACE
    -fsanitize=${VORN_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer
    # GCC warns of the standard library's own code when the address sanitizer is on.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_link_options(vorn_options INTERFACE -fsanitize=${VORN_SANITIZE})
endif()

if(VORN_SANITIZE MATCHES address)
  # Shared, also by clang: libraries then have no loose ends, and Java can load it beforehand.
  if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
    set(VORN_ASAN_NAME libclang_rt.asan-${CMAKE_SYSTEM_PROCESSOR}.so)
  else()
    set(VORN_ASAN_NAME libasan.so)
  endif()
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${VORN_ASAN_NAME}
    OUTPUT_VARIABLE VORN_ASAN_RUNTIME OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
    get_filename_component(VORN_ASAN_FOLDER ${VORN_ASAN_RUNTIME} DIRECTORY)
    target_link_options(vorn_options INTERFACE -shared-libasan -Wl,-rpath,${VORN_ASAN_FOLDER})
  endif()
endif()
