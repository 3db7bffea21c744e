# The Debian package, which `cpack` makes. A static tool needs nothing but the zone database.
set(ORVANE_MAINTAINER "Orvane CLI maintainers <maintainers@orvane.example>"
  CACHE STRING "Who maintains the Debian package, with an address for mail")

set(changelog "${CMAKE_CURRENT_BINARY_DIR}/changelog")
add_custom_command(
  OUTPUT "${changelog}" "${changelog}.gz"
  COMMAND "${CMAKE_CURRENT_SOURCE_DIR}/debian/changelog" "${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${ORVANE_MAINTAINER}"
    > "${changelog}"
  COMMAND gzip --best --no-name --stdout "${changelog}" > "${changelog}.gz"
  DEPENDS debian/changelog "${PROJECT_SOURCE_DIR}/CHANGELOG.md"
  VERBATIM)
add_custom_target(debian_changelog ALL DEPENDS "${changelog}.gz")

install(FILES debian/copyright "${changelog}.gz"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/orvane-cli" COMPONENT debian EXCLUDE_FROM_ALL)
install(FILES debian/lintian-overrides RENAME orvane-cli
  DESTINATION "${CMAKE_INSTALL_DATADIR}/lintian/overrides" COMPONENT debian EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvane-cli)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_CMAKE_PROJECTS
  "${CMAKE_BINARY_DIR}" orvane-cli tool /
  "${CMAKE_BINARY_DIR}" orvane-cli debian /)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${ORVANE_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_DEPENDS tzdata)
if(NOT ORVANE_STATIC)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
endif()
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "command-line client of Orvane, a personal context library")
set(CPACK_PACKAGE_DESCRIPTION "\
People and coding agents reach the library that Orvane keeps on this machine:
contexts and folders, transcripts of AI conversations, notes, e-mail, meetings,
a structured profile, an ontology and skills. The library is listed, searched,
read and edited like a file system, or as the JSON that the application serves.
.
Orvane itself must run on the same machine.")
include(CPack)
