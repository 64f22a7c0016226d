# SPDX-FileCopyrightText: 2026 The SORAN developers
# SPDX-License-Identifier: GPL-3.0-or-later
#
# The archive has no /usr inside: bin and share lie under one folder.
if(CPACK_GENERATOR STREQUAL "TGZ")
  set(CPACK_PACKAGING_INSTALL_PREFIX /)
endif()
