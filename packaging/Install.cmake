# SPDX-FileCopyrightText: 2026 The SORAN developers
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Where each file goes. The programs find share/soran beside the folder that they lie in, so the whole can be
# moved.

include(GNUInstallDirs)

set(SORAN_HOMEPAGE "https://soran.example" CACHE STRING "Public address of the project, for the package's metadata")
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(SHARE ${CMAKE_INSTALL_DATADIR}/soran)
set(DELIVERED ${PROJECT_SOURCE_DIR}/delivered)

# What people wrote for one version tells that version.
foreach(told "CHANGELOG.md:\n## ${PROJECT_VERSION}\n" "packaging/debian/changelog:soran (${PROJECT_VERSION}-"
  "delivered/help/help.html:Version ${PROJECT_VERSION}<" "docs/handbook.md:Version ${PROJECT_VERSION}\n")
  string(FIND "${told}" ":" colon)
  string(SUBSTRING "${told}" 0 ${colon} file)
  math(EXPR behind "${colon} + 1")
  string(SUBSTRING "${told}" ${behind} -1 text)
  file(READ ${PROJECT_SOURCE_DIR}/${file} contents)
  string(FIND "${contents}" "${text}" place)
  if(place EQUAL -1)
    message(FATAL_ERROR "${file} does not tell version ${PROJECT_VERSION}")
  endif()
endforeach()

install(TARGETS soran-cli soran-update RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
# The programs look for their modules there, one folder deeper than the libraries of the system.
install(TARGETS soran-http LIBRARY DESTINATION lib/soran/plugins)
set(MANUALS soran-cli soran-update)
if(TARGET soran)
  install(TARGETS soran RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(TARGETS soran-web soran-pdf LIBRARY DESTINATION lib/soran/plugins)
  list(APPEND MANUALS soran)
  install(FILES soran.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${DELIVERED}/icons/soran.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
  configure_file(org.soran.terminal.metainfo.xml.in org.soran.terminal.metainfo.xml @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/org.soran.terminal.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
endif()

install(FILES endpoints.ini ${DELIVERED}/imagery.ini DESTINATION ${SHARE})
install(FILES ${PROJECT_BINARY_DIR}/delivered/version.dat ${PROJECT_BINARY_DIR}/delivered/soran.mdb
  ${DELIVERED}/sound/error.wav ${DELIVERED}/sound/ring.wav DESTINATION ${SHARE}/update/data)
install(DIRECTORY ${DELIVERED}/help DESTINATION ${SHARE}/home)
install(FILES ${DELIVERED}/help/index2.htm DESTINATION ${SHARE}/update)
install(FILES ${DELIVERED}/index.html DESTINATION ${SHARE}/home)

# Debian wants manual pages and change logs compressed, without a name or a time inside.
function(install_compressed source name destination)
  set(compressed ${CMAKE_CURRENT_BINARY_DIR}/compressed/${destination}/${name}.gz)
  add_custom_command(OUTPUT ${compressed}
    COMMAND sh -c "mkdir -p \"$(dirname \"$2\")\" && gzip -9nc \"$1\" > \"$2\"" sh ${source} ${compressed}
    DEPENDS ${source} VERBATIM)
  install(FILES ${compressed} DESTINATION ${destination})
  set_property(GLOBAL APPEND PROPERTY SORAN_COMPRESSED ${compressed})
endfunction()

foreach(program ${MANUALS})
  foreach(page ${program}.1 ${program}.ja.1)
    configure_file(man/${page}.in man/${page} @ONLY)
  endforeach()
  install_compressed(${CMAKE_CURRENT_BINARY_DIR}/man/${program}.1 ${program}.1 ${CMAKE_INSTALL_MANDIR}/man1)
  install_compressed(${CMAKE_CURRENT_BINARY_DIR}/man/${program}.ja.1 ${program}.1 ${CMAKE_INSTALL_MANDIR}/ja/man1)
endforeach()
install_compressed(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog ${CMAKE_INSTALL_DOCDIR})
install_compressed(${CMAKE_CURRENT_SOURCE_DIR}/debian/changelog changelog.Debian ${CMAKE_INSTALL_DOCDIR})
install(FILES relay/soran-relay.conf relay/endpoints.ini ${PROJECT_SOURCE_DIR}/docs/relay.md
  DESTINATION ${CMAKE_INSTALL_DOCDIR}/relay)
install(FILES debian/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES debian/lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME soran)
install(FILES soran-watch.service DESTINATION lib/systemd/user)
install(FILES completion/soran-cli DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)

get_property(compressed GLOBAL PROPERTY SORAN_COMPRESSED)
add_custom_target(soran-manuals ALL DEPENDS ${compressed})
