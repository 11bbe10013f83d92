# The web: what the library takes from the browser instead of Android.

set(VORN_PLATFORM_LIBRARIES web_android_log)
set(VORN_PLATFORM_SOURCES
  GlEntries.cpp
  NoDecoder.cpp
  ThreadAffinity.cpp)
list(TRANSFORM VORN_PLATFORM_SOURCES PREPEND ${CMAKE_CURRENT_LIST_DIR}/)

add_library(web_android_log STATIC ${CMAKE_CURRENT_LIST_DIR}/AndroidLog.cpp)
target_include_directories(web_android_log PUBLIC ${CMAKE_CURRENT_LIST_DIR}/include)
target_link_libraries(web_android_log PRIVATE vorn_options)

# For programs of C++. The library looks GL functions up by name, the emulated ones included.
set(VORN_WEB_LINK_OPTIONS
  -sFULL_ES3=1 -sMAX_WEBGL_VERSION=2 -sMIN_WEBGL_VERSION=2 -sALLOW_MEMORY_GROWTH=1
  -sMODULARIZE=1 -sEXPORT_ES6=1 -sENVIRONMENT=web,worker -sDYNAMIC_EXECUTION=0)
