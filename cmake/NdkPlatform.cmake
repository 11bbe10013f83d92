# Android, and Linux with the libraries of the same names: what the library takes from there.

find_package(Threads REQUIRED)
find_package(AndroidLog REQUIRED)
find_library(EGL_LIBRARY EGL REQUIRED)
find_library(GLES2_LIBRARY GLESv2 REQUIRED)
if(ANDROID)  # Mesa has version 3 in its GLESv2.
  find_library(GLES3_LIBRARY GLESv3 REQUIRED)
endif()

set(VORN_PLATFORM_LIBRARIES mediandk android AndroidLog::log Threads::Threads ${CMAKE_DL_LIBS})
set(VORN_PLATFORM_SOURCES
  common/ThreadAffinity.cpp
  Render/Guarded/Decoder/DecoderStatus.cpp
  Render/Guarded/Decoder/JavaScope.cpp
  Render/Guarded/Decoder/JavaSurface.cpp
  Render/Guarded/Decoder/PictureLoop.cpp
  Render/Guarded/Decoder/PlatformDecoder.cpp
  Render/OESRenderer/SharedCodec.cpp
  Render/OESRenderer/VEAndroidCodec.cpp
  Render/OESRenderer/VEOESRenderer.cpp
  Render/OESRenderer/VEOESSurfaceTexture.cpp)
list(TRANSFORM VORN_PLATFORM_SOURCES PREPEND ${PROJECT_SOURCE_DIR}/src/)
