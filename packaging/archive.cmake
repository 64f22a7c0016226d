# SPDX-FileCopyrightText: 2026 The SORAN developers
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Read for each kind of package. All files in it carry the time of the last entry in Debian's change log, or the
# one that SOURCE_DATE_EPOCH tells.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  set(ENV{SOURCE_DATE_EPOCH} ${CPACK_SORAN_RELEASE_TIME})
endif()

# The archive has no /usr inside: bin and share lie under one folder.
if(CPACK_GENERATOR STREQUAL "TGZ")
  set(CPACK_PACKAGING_INSTALL_PREFIX /)
  set(CPACK_POST_BUILD_SCRIPTS ${CPACK_SORAN_PACKAGING}/sort_archive.cmake)
endif()
