// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A file dropped as a picture.
#include "forms/picture_file.h"

#include "support/own_folder.h"
#include "targets.h"

namespace soran::fuzz {

void picture(QByteArrayView input) {
  static const OwnFolder directory;
  const QString path = directory.filePath(QStringLiteral("picture"));
  const QByteArray bytes = input.toByteArray();
  writeWhole(path, bytes);
  const std::optional<QByteArray> read = readPicture(path);
  require(read.has_value() == isPicture(bytes), "a file is a picture by its bytes");
  require(!read || *read == bytes, "a picture is read as it stands");
}

} // namespace soran::fuzz
