// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/sigmet_list.h"

#include "base/foreign_text.h"
#include "base/text.h"
#include "reports/sigmet.h"
#include "runs/program.h"
#include "sun/positions.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView fukuoka = u"RJJJ";

bool liesIn(const Sigmet& sigmet, const QString& code) {
  const FieldPosition* position = findCoded(code);
  return position && sigmet.covers(positionOf(position->latitude, position->longitude));
}

QStringList airportsIn(Program& program, const Sigmet& sigmet) {
  QStringList codes;
  for (const Airport& airport : program.tables.autoRows()) {
    if (liesIn(sigmet, airport.code))
      codes.append(airport.code);
  }
  return codes;
}

/// Nothing where they cannot be had.
std::optional<QList<Sigmet>> fetchSigmets(Program& program) {
  const QString& address = program.services.endpoints.sigmet;
  const Reply reply = address.isEmpty() ? Reply() : program.services.inet.open(QUrl(address));
  const bool saysNothing = reply.status == 204;
  if (!saysNothing && (!reply.ok || reply.body.startsWith('<')))
    return std::nullopt;
  return readSigmets(cleaned(reply.text()), fukuoka, program.services.clock.now().toUTC());
}

QString validity(const Sigmet& sigmet, const QDateTime& now) {
  const QString when = sigmet.from.toString(u"dd HHmm"_s) + u"Z - " + sigmet.to.toString(u"dd HHmm"_s) + u'Z';
  if (sigmet.from > now)
    return u"TO COME  " + when;
  const qint64 left = now.secsTo(sigmet.to) / 60;
  return u"IN FORCE " + when + u" / " + QString::number(left / 60) + u" h " + twoDigits(int(left % 60)) +
         u" min LEFT";
}

QString blockOf(Program& program, const Sigmet& sigmet, const QDateTime& now) {
  const QStringList airports = airportsIn(program, sigmet);
  const QString where = !sigmet.isPlaced()   ? u"AREA NOT READ"_s
                        : airports.isEmpty() ? u"OVER NO AIRPORT OF THE LIST"_s
                                             : u"OVER " + airports.join(u' ');
  return crlf + sigmet.heading + crlf + u"      " + validity(sigmet, now) + crlf + u"      " + sigmet.text +
         crlf + u"      " + where + crlf;
}

} // namespace

QString sigmetList(Program& program) {
  const QString title = u"*** SIGMET - FUKUOKA FIR ***" + crlf;
  const std::optional<QList<Sigmet>> sigmets = fetchSigmets(program);
  if (!sigmets)
    return title + crlf + u"SIGMET NOT AVAILABLE" + crlf;
  const QDateTime now = program.services.clock.now().toUTC();
  QString text = title;
  for (const Sigmet& sigmet : *sigmets)
    text += blockOf(program, sigmet, now);
  return sigmets->isEmpty() ? title + crlf + u"NO SIGMET" + crlf : text;
}

void refreshSigmets(Program& program) {
  constexpr qint64 freshSeconds = 600;
  KnownSigmets& known = program.desk.sigmets;
  const QDateTime now = program.services.clock.now().toUTC();
  if (known.asked.isValid() && std::abs(known.asked.secsTo(now)) < freshSeconds)
    return;
  known.asked = now;
  known.sigmets = fetchSigmets(program);
}

QStringList sigmetsOver(const Program& program, const QString& code) {
  QStringList names;
  const QDateTime now = program.services.clock.now().toUTC();
  for (const Sigmet& sigmet : program.desk.sigmets.sigmets.value_or(QList<Sigmet>())) {
    if (sigmet.from <= now && now < sigmet.to && liesIn(sigmet, code))
      names.append(sigmet.heading.section(u' ', -1));
  }
  return names;
}

} // namespace soran
