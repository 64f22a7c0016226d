// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/picture_file.h"

#include "base/plain_file.h"

#include <algorithm>
#include <array>

namespace soran {

bool isPicture(const QByteArray& bytes) {
  using namespace std::string_view_literals;
  constexpr std::array beginnings = {"\x89PNG\r\n\x1A\n"sv, "\xFF\xD8\xFF"sv, "GIF87a"sv, "GIF89a"sv, "BM"sv};
  return bytes.size() <= largestPicture && std::ranges::any_of(beginnings, [&](std::string_view beginning) {
           return bytes.size() > qsizetype(beginning.size()) &&
                  bytes.startsWith(QByteArrayView(beginning.data(), qsizetype(beginning.size())));
         });
}

std::optional<QByteArray> readPicture(const QString& path) {
  FileBytes file = readPlainFile(path, largestPicture, Links::Followed);
  if (!file.ok() || !isPicture(file.bytes))
    return std::nullopt;
  return std::move(file.bytes);
}

} // namespace soran
