// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The source of random bytes of make-database alone: the same ones at each run, so that the delivered
// database has the same bytes wherever it is made. Its content is public, and the key that locks it is in
// every copy.

#include <algorithm>
#include <random>

/// Goes before the cryptographic library's function of that name.
extern "C" __attribute__((visibility("default"))) int RAND_bytes(unsigned char* bytes, int count) {
  static std::mt19937 source;
  std::generate_n(bytes, count, [] { return static_cast<unsigned char>(source()); });
  return 1;
}
