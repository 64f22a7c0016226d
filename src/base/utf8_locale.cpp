// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/utf8_locale.h"

#include <clocale>
#include <cstdlib>
#include <langinfo.h>
#include <string>
#include <strings.h>

namespace soran {

void useUtf8() {
  std::setlocale(LC_ALL, "");
  if (::strcasecmp(::nl_langinfo(CODESET), "UTF-8") == 0)
    return;
  // The name that stands over all others gives way to the two that it stood for.
  if (const char* set = std::getenv("LC_ALL"); set && *set) {
    const std::string all = set;
    ::unsetenv("LC_ALL");
    ::setenv("LANG", all.c_str(), 1);
  }
  ::setenv("LC_CTYPE", "C.UTF-8", 1);
}

} // namespace soran
