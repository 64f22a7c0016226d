// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/inet.h"

#include <QStringDecoder>

namespace soran {

QString Reply::text() const {
  if (!body.isValidUtf8())
    return QString::fromLatin1(body);
  // QString::fromUtf8 would drop a byte order mark, which counts as a character of the answer.
  QStringDecoder decoder(QStringDecoder::Utf8,
                         QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
  return decoder(body);
}

} // namespace soran
