// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/picture_file.h"

#include <QFile>
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
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    return std::nullopt;
  QByteArray bytes = file.read(largestPicture + 1);
  if (!isPicture(bytes))
    return std::nullopt;
  return bytes;
}

} // namespace soran
