# SPDX-FileCopyrightText: 2026 The SORAN developers
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Packs the archive anew, with its files in order and of no one in particular: as packed first it tells who
# built it, and the order in which the disk had them.
foreach(archive ${CPACK_PACKAGE_FILES})
  execute_process(
    COMMAND sh -ec "
      mkdir \"$1.d\"
      tar -xzf \"$1\" -C \"$1.d\"
      cd \"$1.d\"
      tar -cf \"$1.tar\" --sort=name --format=ustar --mtime=@$SOURCE_DATE_EPOCH --owner=0 --group=0 --numeric-owner \
        --mode=go=rX *
      gzip -9n < \"$1.tar\" > \"$1\"
      rm -rf \"$1.d\" \"$1.tar\"" sh ${archive}
    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
