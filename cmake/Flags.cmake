# SPDX-FileCopyrightText: 2026 The SORAN developers
# SPDX-License-Identifier: GPL-3.0-or-later
#
# One interface library carries the language level, the warnings and the hardening of every target.

add_library(soran-flags INTERFACE)
target_compile_features(soran-flags INTERFACE cxx_std_20)
target_compile_definitions(soran-flags INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_FOREACH
  QT_STRICT_ITERATORS QT_USE_QSTRINGBUILDER)
target_compile_options(soran-flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
  -Wnull-dereference -Wduplicated-cond -Wimplicit-fallthrough -Wextra-semi -Werror
  -fstack-protector-strong -fvisibility=hidden)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  target_compile_options(soran-flags INTERFACE -Wno-unknown-warning-option)
  # A name of one file is no name of the next one; GCC, which sees each change first, tells where it matters.
  if(CMAKE_UNITY_BUILD)
    target_compile_options(soran-flags INTERFACE -Wno-shadow)
  endif()
else()
  target_compile_options(soran-flags INTERFACE -fstack-clash-protection)
  # Where files are compiled together, what has no name outside of one seems to stand in a header.
  if(CMAKE_UNITY_BUILD)
    target_compile_options(soran-flags INTERFACE -Wno-subobject-linkage)
  endif()
  # GCC 12 reports null dereferences, bounds and uninitialised members that cannot be reached inside the standard library's and Qt's inlined containers.
  target_compile_options(soran-flags INTERFACE -Wno-null-dereference -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread
    -Wno-maybe-uninitialized)
endif()
target_compile_options(soran-flags INTERFACE $<$<CONFIG:Release,RelWithDebInfo>:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>)
target_link_options(soran-flags INTERFACE -Wl,-z,relro,-z,now,-z,noexecstack)
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
# No folder of the building machine goes into the programs: two builds in two folders give the same bytes.
target_compile_options(soran-flags INTERFACE -ffile-prefix-map=${CMAKE_SOURCE_DIR}=. -ffile-prefix-map=${CMAKE_BINARY_DIR}=./build)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

find_program(CCACHE ccache)
if(CCACHE)
  # Paths relative to the tree, so that a second checkout finds what the first one compiled. Precompiled headers are
  # taken only when told so.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
    CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
endif()

if(SORAN_SANITIZE)
  target_compile_options(soran-flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(soran-flags INTERFACE -fsanitize=address,undefined)
endif()

if(SORAN_FUZZ)
  target_compile_options(soran-flags INTERFACE -fsanitize=fuzzer-no-link,address,undefined,float-cast-overflow -fno-sanitize-recover=undefined,float-cast-overflow -fno-omit-frame-pointer)
  target_link_options(soran-flags INTERFACE -fsanitize=address,undefined,float-cast-overflow)
endif()

if(SORAN_COVERAGE)
  target_compile_options(soran-flags INTERFACE --coverage -fprofile-update=atomic)
  target_link_options(soran-flags INTERFACE --coverage)
endif()
