# Read by CPack before it makes the package of each generator.

if(NOT CPACK_GENERATOR STREQUAL DEB)
  return()
endif()

set(CPACK_PACKAGING_INSTALL_PREFIX /)
list(TRANSFORM CPACK_INSTALL_CMAKE_PROJECTS REPLACE "/$" /opt/nimbra AT 3)
list(TRANSFORM CPACK_INSTALL_CMAKE_PROJECTS REPLACE "/$" /usr AT 7)

# The executables' dependencies are required. Those of the module are optional: without its toolkit
# the launcher runs without a window.
file(GLOB executables ${CPACK_NIMBRA_BUNDLE}/Contents/MacOS/* ${CPACK_NIMBRA_BUNDLE}/Contents/Helpers/*)
file(GLOB modules ${CPACK_NIMBRA_BUNDLE}/Contents/Frameworks/*.so)
list(TRANSFORM executables PREPEND -e)
list(TRANSFORM modules PREPEND -e)
# The tool reads the package's control file in its current folder.
file(WRITE ${CPACK_TOPLEVEL_DIRECTORY}/shlibdeps/debian/control "Source: nimbra\nPackage: nimbra\n")
execute_process(
  COMMAND dpkg-shlibdeps -O -dDepends ${executables} -dRecommends ${modules}
  WORKING_DIRECTORY ${CPACK_TOPLEVEL_DIRECTORY}/shlibdeps
  OUTPUT_VARIABLE found
  COMMAND_ERROR_IS_FATAL ANY)
foreach(kind Depends Recommends)
  string(TOUPPER CPACK_DEBIAN_PACKAGE_${kind} field)
  if(found MATCHES "shlibs:${kind}=([^\n]*)")
    string(APPEND ${field} ", ${CMAKE_MATCH_1}")
  endif()
endforeach()
