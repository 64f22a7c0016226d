// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/sequence_record.h"

#include "base/plain_file.h"
#include "base/text.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// Takes the next line off `text`. A line ends with CR LF, LF or CR.
QStringView takeLine(QStringView& text) {
  qsizetype end = 0;
  while (end < text.size() && text[end] != u'\r' && text[end] != u'\n')
    ++end;
  const QStringView line = text.first(end);
  qsizetype next = end;
  if (next < text.size())
    next += text.sliced(next).startsWith(crlf) ? 2 : 1;
  text = text.sliced(next);
  return line;
}

QStringView counted(QStringView line) {
  while (line.startsWith(u' '))
    line = line.sliced(1);
  const qsizetype comma = line.indexOf(u',');
  return comma < 0 ? line : line.first(comma);
}

} // namespace

bool appendSequenceRecord(const QString& path, const QString& record) {
  return appendToPlainFile(path, (record + crlf).toUtf8()) == FileFault::None;
}

QString sequenceRecordBlock(QStringView text, const StationCode& code) {
  QString block;
  while (!text.isEmpty()) {
    const QStringView heading = counted(takeLine(text));
    const bool isHeading =
        heading.contains(code.text()) && (heading.contains(u"METAR") || heading.contains(u"SPECI"));
    if (!isHeading || block.contains(heading))
      continue;
    block += crlf;
    block += heading;
    while (!text.isEmpty()) {
      const QStringView line = counted(takeLine(text));
      block += crlf;
      block += line;
      if (line.isEmpty())
        break;
    }
  }
  return block;
}

} // namespace soran
