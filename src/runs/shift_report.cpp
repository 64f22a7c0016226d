// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/shift_report.h"

#include "base/files.h"
#include "base/text.h"
#include "runs/desk_record.h"

#include <QDir>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// What was asked for.
struct ShiftRequest {
  int hours = 12;
  QString form = {}; ///< "PRINT", "CSV", "JSON", or empty
};

std::optional<ShiftRequest> requestOf(const QString& words) {
  static const QStringList forms = {u"PRINT"_s, u"CSV"_s, u"JSON"_s};
  QStringList parts = words.split(u' ', Qt::SkipEmptyParts);
  ShiftRequest request;
  if (!parts.isEmpty() && forms.contains(parts.last()))
    request.form = parts.takeLast();
  bool isNumber = parts.isEmpty();
  if (!isNumber)
    request.hours = parts.takeFirst().toInt(&isNumber);
  if (!isNumber || !parts.isEmpty() || request.hours < 1 || request.hours > keptDays * 24)
    return std::nullopt;
  return request;
}

QString linesOf(const std::vector<AlarmEvent>& events) {
  QStringList lines;
  for (const AlarmEvent& event : events)
    lines.append(eventLine(event));
  return lines.isEmpty() ? u"NO ENTRY"_s : lines.join(crlf.toString());
}

QByteArray fileOf(const std::vector<AlarmEvent>& events, const QString& form) {
  if (form == u"CSV")
    return shiftCsv(events).toUtf8();
  QByteArray lines;
  for (const AlarmEvent& event : events)
    lines += jsonLine(event) + '\n';
  return lines;
}

QString save(Program& program, const std::vector<AlarmEvent>& events, const QString& form) {
  const QString suggestion = u"shift-"_s + program.services.clock.now().toUTC().toString(u"yyyyMMdd-HHmm"_s) +
                             u'.' + (form == u"CSV" ? u"csv" : u"jsonl");
  const std::optional<QString> path = program.services.dialogs.saveFile(u" 当直記録の保存"_s, suggestion);
  program.services.shutdown.check();
  if (!path)
    return u"CANCELED"_s;
  const bool isMeant = mayWriteOver(program.services.dialogs, *path);
  program.services.shutdown.check();
  if (!isMeant)
    return u"CANCELED"_s;
  const FileFault fault = replaceWhole(*path, fileOf(events, form), true, Links::Followed);
  if (fault != FileFault::None)
    return u"NOT SAVED: "_s + faultLine(fault).toUpper();
  return QString::number(events.size()) + u" ENTRIES SAVED TO " + QDir::toNativeSeparators(*path);
}

QString print(Program& program, const QString& text) {
  const QStringList installed = program.services.printers.installed();
  if (installed.isEmpty())
    return u"NO PRINTER"_s;
  const QString stored = program.settings()[key::プリンター].value_or(QString());
  const std::optional<QString> printer = installed.size() == 1
                                             ? std::optional(installed.first())
                                             : program.services.dialogs.choosePrinter(installed, stored);
  program.services.shutdown.check();
  if (!printer)
    return u"CANCEL PRINT"_s;
  const SettingsRecord settings = program.record();
  const PrintJob job{.printer = *printer,
                     .text = text,
                     .font = settings[key::印刷文字のフォント].value_or(QString()),
                     .size = settings[key::印刷文字のサイズ].value_or(11)};
  return program.services.printers.print(job) ? u"PRINT COMPLETED"_s : u"NOT PRINTED"_s;
}

} // namespace

std::optional<QString> shiftText(Program& program, const QString& words) {
  const std::optional<ShiftRequest> request = requestOf(words);
  if (!request)
    return std::nullopt;
  ShiftLog::Content content = allEvents(program);
  const QDateTime now = program.services.clock.now().toUTC();
  const QDateTime from = now.addSecs(-qint64(request->hours) * 3600);
  std::erase_if(content.events, [&](const AlarmEvent& event) { return event.time < from; });
  QString text = u"*** SHIFT LOG - LAST " + QString::number(request->hours) + u" h ***" + crlf + crlf;
  if (content.fault != FileFault::None)
    text += u"NOT READ: " + faultLine(content.fault, largestListFile).toUpper() + crlf;
  text += linesOf(content.events);
  if (content.unreadable > 0)
    text += crlf + crlf + QString::number(content.unreadable) + u" LINES NOT READ";
  if (request->form == u"PRINT")
    return print(program, u"SORAN  "_s + now.toString(u"yyyy/MM/dd HH:mm"_s) + u"Z" + crlf + text + crlf);
  if (!request->form.isEmpty())
    return save(program, content.events, request->form);
  const QString note = recordNote(program);
  return text + (note.isEmpty() ? QString() : crlf + note) + crlf;
}

} // namespace soran
