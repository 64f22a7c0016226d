// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/loopback.h"

#include "base/files.h"
#include "delivered.h"

#include <QFile>
#include <unistd.h>

namespace soran::bench {

using namespace Qt::StringLiterals;

namespace {

QByteArray procFile(qint64 pid, QStringView name) {
  QFile file(u"/proc/"_s + QString::number(pid) + u'/' + name);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

double megabytesOf(const QByteArray& status, const QByteArray& name) {
  const qsizetype at = status.indexOf(QByteArray('\n' + name + ':'));
  return at < 0 ? 0 : status.mid(at + name.size() + 2).trimmed().split(' ').constFirst().toDouble() / 1024;
}

} // namespace

Loopback::Loopback(bool withModule) {
  server.start();
  for (const QString& name : {u"version.dat"_s, u"soran.mdb"_s, u"error.wav"_s, u"ring.wav"_s})
    server.setFile(u"/data/" + name, delivered::file(u"update/data/" + name));
  if (withModule)
    server.setFile(u"/data/update.exe"_s, "module");
}

void Loopback::writeEndpoints(const QString& path) const {
  const QString base = server.baseAddress();
  writeWhole(path,
             QString(u"[endpoints]\nupdate="_s + base + u"\nhome=" + base + u"\nmetar=" + base + metarFolder +
                     u"\ntaf=" + base + tafFolder + u"\ncycles=" + base + cycleFolder + u"\nprobe=\n")
                 .toUtf8());
}

ProcessFigures figuresOf(qint64 pid) {
  const QByteArray status = procFile(pid, u"status");
  // Behind the name in brackets, which may hold blanks: times are the 12th and 13th field.
  const QByteArray stat = procFile(pid, u"stat");
  const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
  const double ticks = fields.size() > 12 ? fields[11].toDouble() + fields[12].toDouble() : 0;
  return {ticks / static_cast<double>(sysconf(_SC_CLK_TCK)), megabytesOf(status, "VmRSS"),
          megabytesOf(status, "VmHWM")};
}

} // namespace soran::bench
