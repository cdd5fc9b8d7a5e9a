# CPack settings for a Debian package and an archive. Both contain the bundle, the manual pages and
# the schemas. scripts/package makes them.

set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_NAME nimbra)
set(CPACK_PACKAGE_VENDOR "the authors of the Quillon launcher")
set(CPACK_PACKAGE_CONTACT "the authors of the Quillon launcher <launcher@quillon.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "browser launcher that prepares a profile's persona")
set(CPACK_PACKAGE_DESCRIPTION
"Started in the place of a browser, for one profile, it finds out where the
profile's SOCKS5 proxy exits, derives language, time zone, location and WebRTC
address from that, cleans the profile and starts the browser's engine.
.
The engine is not part of this package: it belongs into Nimbra.app, or is what
the environment variable QUILLON_ENGINE_BIN names.
.
Endpoints: ${QUILLON_PRIMARY_HOST}, ${QUILLON_FALLBACK_HOST}.")
string(JOIN _ CPACK_PACKAGE_FILE_NAME nimbra ${PROJECT_VERSION}
  ${QUILLON_PRIMARY_HOST} ${QUILLON_FALLBACK_HOST} ${CMAKE_SYSTEM_PROCESSOR})

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION web)
# packaging/options.cmake determines the packages that the bundle depends on.
set(CPACK_DEBIAN_PACKAGE_DEPENDS curl)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS fonts-symbola)

# These files are only in packages. An installation contains only the bundle.
install(FILES docs/man/nimbra.1 docs/man/nimbra-inspect.1 DESTINATION share/man/man1
  COMPONENT documents EXCLUDE_FROM_ALL)
install(DIRECTORY docs/schemas DESTINATION share/nimbra COMPONENT documents EXCLUDE_FROM_ALL)
install(FILES docs/profile-managers.md packaging/copyright DESTINATION share/doc/nimbra
  COMPONENT documents EXCLUDE_FROM_ALL)
install(FILES CHANGELOG.md DESTINATION share/doc/nimbra RENAME changelog
  COMPONENT documents EXCLUDE_FROM_ALL)

# Each component with the folder that its files are relative to. "Unspecified" is the bundle.
set(CPACK_INSTALL_CMAKE_PROJECTS
  "${PROJECT_BINARY_DIR};${PROJECT_NAME};Unspecified;/"
  "${PROJECT_BINARY_DIR};${PROJECT_NAME};documents;/")

# Links of the Debian package into the bundle's "Contents".
set(CPACK_NIMBRA_LINKS nimbra=MacOS/Nimbra nimbra-inspect=Helpers/nimbra-inspect)
set(CPACK_NIMBRA_BUNDLE ${PROJECT_BINARY_DIR}/${bundle})
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/packaging/options.cmake)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/layout.cmake)
include(CPack)
