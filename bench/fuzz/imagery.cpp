// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The table of charts of a user, up to the first NUL, and behind it the list that its rows ask for a name.
#include "base/utc.h"
#include "imagery/image_fetch.h"
#include "platform/network.h"
#include "targets.h"

#include <algorithm>

namespace soran::fuzz {

namespace {

void nameFrom(const ImageRow& row, QByteArrayView list, const QDateTime& time) {
  const bool page = row.path.isEmpty();
  const QString name =
      page ? nameInPage(textOf(list), row.pattern) : nameInJson(list.toByteArray(), row.path);
  require(!page || textOf(list).contains(name), "a name stands in the page that tells it");
  for (const QString& layer : row.layers) {
    const QUrl address = imageAddress(row, layer, time, name);
    const QUrl place = imageAddress(row, layer, time);
    require(address.isEmpty() || serverOf(address) == serverOf(place), "a list does not decide whom to ask");
  }
}

} // namespace

void imagery(QByteArrayView input) {
  const qsizetype mark = std::max<qsizetype>(0, input.indexOf('\0'));
  const ImageTable table = readImageTable(input.first(mark).toByteArray(), QStringLiteral("t"));
  const QDateTime now = inUtc(QDate(2026, 11, 24), QTime(5, 20));
  for (const ImageRow& row : table.rows) {
    if (!row.isAvailable())
      continue;
    require(!row.layers.isEmpty(), "a row that is asked has an address");
    for (const QDateTime& time : imageTimes(row, now)) {
      require(!time.isValid() || time <= now, "no picture is asked for ahead of its time");
      nameFrom(row, input.sliced(mark), time);
    }
  }
  bodyKind(input.toByteArray());
}

} // namespace soran::fuzz
