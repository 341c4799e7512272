# Part of an installation, which alone knows its final place: the programs on the PATH, and the links to the manuals.
cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_PREFIX OUTPUT_VARIABLE PREFIXE)
foreach(VARIABLE PRIVE MANUEL CMAKE_INSTALL_BINDIR)
    cmake_path(ABSOLUTE_PATH ${VARIABLE} BASE_DIRECTORY "${PREFIXE}")
endforeach()

# pose(FICHIER): tells of a file of the installation as CMake does of its own.
macro(pose FICHIER)
    list(APPEND CMAKE_INSTALL_MANIFEST_FILES "${FICHIER}")
    message(STATUS "Installing: $ENV{DESTDIR}${FICHIER}")
endmacro()

foreach(PROGRAMME ramelier ramelier-cli lyedithtml)
    # Between single quotes the shell takes all but a single quote as it stands.
    string(REPLACE "'" "'\\''" CHEMIN "${PRIVE}/${PROGRAMME}")
    set(LANCEUR "${CMAKE_INSTALL_BINDIR}/${PROGRAMME}")
    file(WRITE "$ENV{DESTDIR}${LANCEUR}" "#!/bin/sh\nexec '${CHEMIN}' \"$@\"\n")
    file(CHMOD "$ENV{DESTDIR}${LANCEUR}" PERMISSIONS
        OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
    pose("${LANCEUR}")
endforeach()

# The editor's manual is a part of the other one.
macro(pose_lien NOM CIBLE)
    file(CREATE_LINK "${CIBLE}" "$ENV{DESTDIR}${PRIVE}/${NOM}" SYMBOLIC)
    pose("${PRIVE}/${NOM}")
endmacro()
file(RELATIVE_PATH CHEMIN "${PRIVE}" "${MANUEL}")
pose_lien(AideRamelier "${CHEMIN}")
pose_lien(AideLyEditHtml "${CHEMIN}/editeur")
