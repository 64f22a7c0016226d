// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLibrary>
#include <curl/curl.h>
#include <memory>

namespace soran {

/// libcurl, which opens the connections: names, proxies, TLS with the system's certificates. It is loaded
/// when the first transfer over the network begins, because the twenty libraries behind it would cost every
/// start of a program more than the rest of its loading.
class CurlLibrary {
 public:
  CurlLibrary();
  ~CurlLibrary();
  CurlLibrary(const CurlLibrary&) = delete;
  CurlLibrary& operator=(const CurlLibrary&) = delete;

  /// False where the system has none that can be used; nothing may be called then.
  bool isLoaded() const { return loaded_; }

  decltype(&curl_easy_init) easyInit = nullptr;
  decltype(&curl_easy_cleanup) easyCleanup = nullptr;
  decltype(&curl_easy_setopt) easySetopt = nullptr;
  decltype(&curl_easy_getinfo) easyGetinfo = nullptr;
  decltype(&curl_easy_send) easySend = nullptr;
  decltype(&curl_easy_recv) easyRecv = nullptr;
  decltype(&curl_multi_init) multiInit = nullptr;
  decltype(&curl_multi_cleanup) multiCleanup = nullptr;
  decltype(&curl_multi_setopt) multiSetopt = nullptr;
  decltype(&curl_multi_add_handle) multiAddHandle = nullptr;
  decltype(&curl_multi_remove_handle) multiRemoveHandle = nullptr;
  decltype(&curl_multi_socket_action) multiSocketAction = nullptr;
  decltype(&curl_multi_info_read) multiInfoRead = nullptr;

 private:
  template <typename Function>
  bool find(const char* name, Function& function);

  QLibrary library_;
  decltype(&curl_global_init) globalInit_ = nullptr;
  decltype(&curl_global_cleanup) globalCleanup_ = nullptr;
  bool loaded_ = false;
};

} // namespace soran
