// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/curl_library.h"

namespace soran {

template <typename Function>
bool CurlLibrary::find(const char* name, Function& function) {
  function = reinterpret_cast<Function>(library_.resolve(name));
  return function != nullptr;
}

CurlLibrary::CurlLibrary() : library_(QStringLiteral("curl"), 4) {
  loaded_ = find("curl_global_init", globalInit_) && find("curl_global_cleanup", globalCleanup_) &&
            find("curl_easy_init", easyInit) && find("curl_easy_cleanup", easyCleanup) &&
            find("curl_easy_setopt", easySetopt) && find("curl_easy_getinfo", easyGetinfo) &&
            find("curl_easy_send", easySend) && find("curl_easy_recv", easyRecv) &&
            find("curl_multi_init", multiInit) && find("curl_multi_cleanup", multiCleanup) &&
            find("curl_multi_setopt", multiSetopt) && find("curl_multi_add_handle", multiAddHandle) &&
            find("curl_multi_remove_handle", multiRemoveHandle) &&
            find("curl_multi_socket_action", multiSocketAction) &&
            find("curl_multi_info_read", multiInfoRead) && globalInit_(CURL_GLOBAL_DEFAULT) == CURLE_OK;
}

CurlLibrary::~CurlLibrary() {
  if (loaded_)
    globalCleanup_();
}

} // namespace soran
