# The man page and the completions of a program, which prints them itself.

function(install_command_page program)
  set(folder ${PROJECT_BINARY_DIR}/package/${program})
  file(MAKE_DIRECTORY ${folder})
  set(man ${folder}/${program}.1)
  set(bash ${folder}/${program})
  set(zsh ${folder}/_${program})
  add_custom_command(OUTPUT ${man} ${man}.gz ${bash} ${zsh}
    COMMAND ${program} --generate man > ${man}
    COMMAND gzip -9nc ${man} > ${man}.gz
    COMMAND ${program} --generate bash > ${bash}
    COMMAND ${program} --generate zsh > ${zsh}
    DEPENDS ${program} VERBATIM)
  add_custom_target(${program}_page ALL DEPENDS ${man} ${bash} ${zsh})

  install(FILES ${man}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tools)
  install(FILES ${bash} DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    COMPONENT tools)
  install(FILES ${zsh} DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions
    COMPONENT tools)
endfunction()
