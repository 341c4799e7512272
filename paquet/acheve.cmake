# Part of the making of a Debian package: what its policy asks beyond an installation.
set(RACINE ${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX})
set(DEBIAN ${CMAKE_CURRENT_LIST_DIR}/debian)

file(COPY_FILE ${DEBIAN}/changelog ${RACINE}/share/doc/ramelier/changelog.Debian)
file(MAKE_DIRECTORY ${RACINE}/share/lintian/overrides)
file(COPY_FILE ${DEBIAN}/lintian-overrides ${RACINE}/share/lintian/overrides/ramelier)

file(GLOB_RECURSE DOCUMENTS ${RACINE}/share/man/*.1)
list(APPEND DOCUMENTS ${RACINE}/share/doc/ramelier/changelog ${RACINE}/share/doc/ramelier/changelog.Debian)
execute_process(COMMAND gzip -9n ${DOCUMENTS} COMMAND_ERROR_IS_FATAL ANY)

file(GLOB PROGRAMMES LIST_DIRECTORIES false ${RACINE}/lib/ramelier/*)
execute_process(COMMAND strip --remove-section=.comment --remove-section=.note ${PROGRAMMES} COMMAND_ERROR_IS_FATAL ANY)
