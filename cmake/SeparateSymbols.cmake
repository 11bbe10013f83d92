# vorn_separate_symbols(library): strips the library and leaves its symbols beside it, in
# <library>.debug, which debuggers find through the link that stays in it.
option(VORN_SEPARATE_SYMBOLS "Strip libraries and keep their symbols in files of their own" OFF)

function(vorn_separate_symbols library)
  if(NOT VORN_SEPARATE_SYMBOLS)
    return()
  endif()
  target_compile_options(${library} PRIVATE -g)
  set(file $<TARGET_FILE:${library}>)
  add_custom_command(TARGET ${library} POST_BUILD
    COMMAND ${CMAKE_OBJCOPY} --only-keep-debug ${file} ${file}.debug
    COMMAND ${CMAKE_STRIP} --strip-unneeded ${file}
    COMMAND ${CMAKE_OBJCOPY} --add-gnu-debuglink=${file}.debug ${file}
    VERBATIM)
endfunction()
