# The headers that applications include.

file(GLOB VORN_PUBLIC_HEADERS CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}
  include/render/*.h gl/GLES3.h gl/GLES3Entries.inc kernel/*.h kernel/geometry/*.h)
# The builders' and the program builder's own.
list(FILTER VORN_PUBLIC_HEADERS EXCLUDE REGEX
  "kernel/Shader(Compiler|Prefix)\\.h|kernel/geometry/(Grid|Mesh|Sphere)\\.h")
