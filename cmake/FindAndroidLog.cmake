# The Android log: part of the NDK on Android, Debian's android-liblog elsewhere.
# Gives the target AndroidLog::log.

find_library(AndroidLog_LIBRARY NAMES log PATH_SUFFIXES android)
find_path(AndroidLog_INCLUDE_DIR NAMES android/log.h PATH_SUFFIXES android)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(AndroidLog REQUIRED_VARS AndroidLog_LIBRARY AndroidLog_INCLUDE_DIR)
mark_as_advanced(AndroidLog_LIBRARY AndroidLog_INCLUDE_DIR)

if(AndroidLog_FOUND AND NOT TARGET AndroidLog::log)
  add_library(AndroidLog::log UNKNOWN IMPORTED)
  set_target_properties(AndroidLog::log PROPERTIES
    IMPORTED_LOCATION "${AndroidLog_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${AndroidLog_INCLUDE_DIR}")
endif()
