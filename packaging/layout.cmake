# Run by CPack after the files to package are installed in its temporary folder.

set(root ${CPACK_TEMPORARY_INSTALL_DIRECTORY})

file(GLOB_RECURSE programs ${root}/*)
list(FILTER programs INCLUDE REGEX "/Contents/(MacOS|Helpers|Frameworks)/")
execute_process(
  COMMAND strip --strip-unneeded --remove-section=.comment --remove-section=.note ${programs}
  COMMAND_ERROR_IS_FATAL ANY)

# The rest applies only to the Debian package.
if(NOT CPACK_GENERATOR STREQUAL DEB)
  return()
endif()

set(documents ${root}/usr/share/doc/nimbra)

file(MAKE_DIRECTORY ${root}/usr/bin)
foreach(link IN LISTS CPACK_NIMBRA_LINKS)
  string(REPLACE "=" ";" link "${link}")
  list(GET link 0 name)
  list(GET link 1 target)
  file(CREATE_LINK /opt/nimbra/Nimbra.app/Contents/${target} ${root}/usr/bin/${name} SYMBOLIC)
endforeach()

file(COPY_FILE ${CMAKE_CURRENT_LIST_DIR}/lintian-overrides ${root}/nimbra)
file(COPY ${root}/nimbra DESTINATION ${root}/usr/share/lintian/overrides)
file(REMOVE ${root}/nimbra)

string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(REMOVE ${documents}/changelog)
file(WRITE ${documents}/changelog
"nimbra (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium

  * Release ${CPACK_PACKAGE_VERSION}.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
file(GLOB pages ${root}/usr/share/man/man1/*)
execute_process(COMMAND gzip -9n ${documents}/changelog ${pages} COMMAND_ERROR_IS_FATAL ANY)
