# The Debian package of an installation: what cpack reads. outils/paquet says how it is built.
set(CPACK_GENERATOR DEB)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_VENDOR Ramelier)
set(CPACK_PACKAGE_CONTACT "The maintainers of Ramelier <maintainers@ramelier.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "ascending family tree, drawn and printed at its true size")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Ramelier draws the ancestors of one person, generation by generation,
numbered by Sosa-Stradonitz: framed boxes with photos, dates and places,
joined by lines. It prints the chart on as many sheets as it takes, or into a
PDF; imports and exports GEDCOM; and gives every person a sheet, written in an
editor that knows HTML.
.
The program and its manual are in French.")
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
# Older than any revision of Debian's own.
set(CPACK_DEBIAN_PACKAGE_RELEASE 0upstream1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)

# The libraries are counted by dpkg-shlibdeps, libqt6svg6 with its plugins for SVG pictures among them. What is only looked
# for at run time it does not see: the toolkit's own texts in French, a family with Helvetica's measures, the icons' theme.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-translations-l10n, fonts-liberation, hicolor-icon-theme")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-image-formats-plugins, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS cups)

set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/acheve.cmake)
include(CPack)
