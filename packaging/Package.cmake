# SPDX-FileCopyrightText: 2026 The SORAN developers
# SPDX-License-Identifier: GPL-3.0-or-later
#
# A Debian package, and an archive that runs from wherever it is unpacked.

set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_NAME soran)
set(CPACK_PACKAGE_VENDOR "The SORAN developers")
set(CPACK_PACKAGE_CONTACT "The SORAN developers <soran@soran.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "aviation weather terminal for Japanese airfields")
set(CPACK_PACKAGE_DESCRIPTION
"SORAN fetches METAR and TAF reports of the airfields that are typed, colours
what matters to a flight, translates and explains abbreviations in Japanese,
and watches for new reports. Charts, cameras, sunrise and sunset times and the
record of the last hours are at hand.
.
The terminal runs in a window, and without one over a remote line or in
scheduled jobs.")
set(CPACK_PACKAGE_HOMEPAGE_URL ${SORAN_HOMEPAGE})
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})

set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What no program links: libcurl is loaded at the first transfer, libreadline on a terminal, and the icons are drawn by a plugin, which lay with the
# library before Qt 6.7.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libcurl4t64 | libcurl4 (>= 7.87), libreadline8t64 | libreadline8, qt6-svg-plugins | libqt6svg6 (<< 6.7)")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "ca-certificates, fonts-ipafont-gothic | fonts-noto-cjk, qt6-translations-l10n, qt6-wayland")

execute_process(COMMAND sh -c "date -d \"$(sed -n 's/^ -- .*>  //p;T;q' changelog)\" +%s"
  WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}/debian OUTPUT_VARIABLE CPACK_SORAN_RELEASE_TIME
  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set(CPACK_SORAN_PACKAGING ${CMAKE_CURRENT_SOURCE_DIR})
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_SOURCE_DIR}/archive.cmake)
include(CPack)
