# Replaces the NDK's toolchain file, with this machine's clang, libc++,
# headers and libraries. STUB_LIBRARIES and STUB_HEADERS, in the environment, are folders of what Android has.
set(CMAKE_SYSTEM_NAME Android)
set(CMAKE_SYSTEM_VERSION 1)  # As the NDK's does: CMake's own knowledge of the NDK stays out of it.
set(CMAKE_SYSTEM_PROCESSOR ${ANDROID_ABI})
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)

string(REPLACE ":" " -L" LIBRARY_OPTIONS "-stdlib=libc++ -L$ENV{STUB_LIBRARIES}")
string(REPLACE ":" " -isystem " HEADER_OPTIONS "-stdlib=libc++ -isystem $ENV{STUB_HEADERS}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${LIBRARY_OPTIONS}")
set(CMAKE_CXX_FLAGS_INIT "${HEADER_OPTIONS}")
string(REPLACE ":" ";" CMAKE_LIBRARY_PATH "$ENV{STUB_LIBRARIES}")
