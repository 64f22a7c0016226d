// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/picture_lookup.h"

#include "base/files.h"

#include <QFile>

namespace soran {

using namespace Qt::StringLiterals;

namespace {
QString figure(const Services& services) {
  return services.path(u"data/figure.dat");
}
} // namespace

void showPictureOf(Program& program, QStringView name) {
  const QByteArray picture = program.tables.picture(name);
  if (!picture.isEmpty() && writeWhole(figure(program.services), picture))
    program.services.forms.show(form::Picture{});
}

QByteArray takePicture(const Services& services) {
  QFile file(figure(services));
  if (!file.open(QIODevice::ReadOnly))
    return {};
  QByteArray bytes = file.readAll();
  file.close();
  file.remove();
  return bytes;
}

} // namespace soran
