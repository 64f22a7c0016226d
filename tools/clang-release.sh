# SPDX-FileCopyrightText: 2026 The SORAN developers
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Read by tools/format and tools/lint. Releases of clang-format and clang-tidy judge differently; this one is asked.
clang_release=14

# Sets `found` to the program of that release, by its own name or by the plain one. Where neither is installed,
# says so and returns false.
find_clang() {
  for found in "$1-$clang_release" "$1"; do
    case "$("$found" --version 2>/dev/null)" in *"version $clang_release."*) return 0 ;; esac
  done
  echo "$1 $clang_release is not installed, another release judges differently: nothing done."
  return 1
}
