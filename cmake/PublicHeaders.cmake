# The headers that applications include. Private headers lie in folders named "private".

file(GLOB VORN_PUBLIC_HEADERS CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}
  include/render/*.h gl/GLES3.h gl/GLES3Entries.inc kernel/*.h kernel/geometry/*.h)
