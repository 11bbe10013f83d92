# The example in a comment, without the marks of the comment, in the folder that is built.
set(EXAMPLE ${CMAKE_CURRENT_BINARY_DIR}/GlProgramExample.inc)
add_custom_command(OUTPUT ${EXAMPLE} VERBATIM
  COMMAND awk "/ .endcode/ {code = 0} code {sub(/^...[ ]?/, \"\"); print} / .code/ {code = 1}"
    ${PROJECT_SOURCE_DIR}/kernel/GlProgram.h > ${EXAMPLE}
  DEPENDS ${PROJECT_SOURCE_DIR}/kernel/GlProgram.h)
