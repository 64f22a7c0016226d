// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/sigmet.h"

#include "base/report_rules.h"
#include "base/text.h"
#include "reports/raw_lines.h"

#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr double degree = std::numbers::pi / 180;

/// "N3340" or "N33" with "E13450" or "E134".
constexpr QStringView corner = u"([NS])(\\d{2})(\\d{2})?\\s*([EW])(\\d{3})(\\d{2})?";

EarthPosition positionOf(const QRegularExpressionMatch& match, int first) {
  const auto angle = [&](int sign, QStringView negative) {
    const double value =
        match.capturedView(sign + 1).toDouble() + match.capturedView(sign + 2).toDouble() / 60;
    return match.capturedView(sign) == negative ? -value : value;
  };
  return {angle(first, u"S"), angle(first + 3, u"W")};
}

QList<EarthPosition> circle(const EarthPosition& centre, double nauticalMiles) {
  constexpr int corners = 36;
  QList<EarthPosition> area;
  for (int i = 0; i < corners; ++i) {
    const double turn = 2 * std::numbers::pi * i / corners;
    area.append(
        {centre.latitude + nauticalMiles / 60 * std::cos(turn),
         centre.longitude + nauticalMiles / 60 * std::sin(turn) / std::cos(centre.latitude * degree)});
  }
  return area;
}

QList<EarthPosition> areaIn(const QString& text) {
  static const QRegularExpression round(u"WI (\\d+)(NM|KM) OF (?:TC CENTRE |TC CENTER )?" + corner);
  static const QRegularExpression centre(u"PSN " + corner);
  static const QRegularExpression ofCentre(u"WI (\\d+)(NM|KM) OF TC CENT"_s);
  static const QRegularExpression polygon(u"WI ((?:" + corner + u"\\s*-?\\s*){3,})");
  static const QRegularExpression one(corner.toString());
  const auto miles = [](const QRegularExpressionMatch& match) {
    constexpr double kilometresAMile = 1.852;
    return match.capturedView(1).toDouble() / (match.capturedView(2) == u"KM" ? kilometresAMile : 1);
  };
  if (const auto found = round.match(text); found.hasMatch())
    return circle(positionOf(found, 3), miles(found));
  if (const auto found = ofCentre.match(text), at = centre.match(text); found.hasMatch() && at.hasMatch())
    return circle(positionOf(at, 1), miles(found));
  QList<EarthPosition> area;
  const auto found = polygon.match(text);
  const QString corners = found.captured(1);
  for (auto it = one.globalMatch(corners); it.hasNext();)
    area.append(positionOf(it.next(), 1));
  return area;
}

struct Message {
  QString region;
  QString sequence;
  QString validity; ///< ddhhmm/ddhhmm
  QString text;
};

QList<Message> messagesIn(QStringView body, QStringView region) {
  static const QRegularExpression form(
      u"\\b([A-Z]{4}) (?:[A-Z]+ )?SIGMET (\\w+) VALID (\\d{6}/\\d{6}) [A-Z]{4}-\\s*([^=]*)="_s);
  QList<Message> messages;
  const QString text = body.toString().simplified();
  for (auto it = form.globalMatch(text); it.hasNext();) {
    const auto match = it.next();
    if (match.capturedView(1) == region)
      messages.append({match.captured(1), match.captured(2), match.captured(3), match.captured(4).trimmed()});
  }
  return messages;
}

/// The sequence number that a message cancels; empty where it cancels none.
QString cancelledBy(const Message& message) {
  static const QRegularExpression form(u"CNL (?:[A-Z]+ )?SIGMET (\\w+)"_s);
  return form.match(message.text).captured(1);
}

/// Whether the point at latitude 0 and that longitude is inside of the corners, or one of them.
bool holds(const QList<EarthPosition>& corners, double longitude) {
  bool inside = false;
  for (qsizetype i = 0, j = corners.size() - 1; i < corners.size(); j = i++) {
    const EarthPosition& one = corners[i];
    const EarthPosition& other = corners[j];
    if (one.latitude == 0 && one.longitude == longitude)
      return true;
    if ((one.latitude > 0) != (other.latitude > 0) &&
        longitude < (other.longitude - one.longitude) * -one.latitude / (other.latitude - one.latitude) +
                        one.longitude)
      inside = !inside;
  }
  return inside;
}

} // namespace

bool Sigmet::covers(const EarthPosition& position) const {
  if (isWholeRegion)
    return true;
  // Each corner from the one before it, the short way round, and from the position: an area may lie across
  // the date line.
  QList<EarthPosition> unrolled;
  double before = position.longitude;
  double east = 0;
  for (const EarthPosition& corner : area) {
    east += std::remainder(corner.longitude - before, 360);
    before = corner.longitude;
    unrolled.append({corner.latitude - position.latitude, east});
  }
  return std::ranges::any_of(std::array{-360, 0, 360}, [&](int turn) { return holds(unrolled, turn); });
}

QList<Sigmet> readSigmets(QStringView body, QStringView region, const QDateTime& now) {
  const QList<Message> messages = messagesIn(body, region);
  QStringList cancelled;
  for (const Message& message : messages)
    cancelled.append(cancelledBy(message));
  QList<Sigmet> sigmets;
  for (const Message& message : messages) {
    Sigmet sigmet{message.region + u" SIGMET " + message.sequence, message.text,
                  timeNear(QString(message.validity.first(6) + u'Z'), now),
                  timeNear(QString(message.validity.last(6) + u'Z'), now)};
    const bool isKnown = std::ranges::any_of(sigmets, [&](const Sigmet& other) {
      return other.heading == sigmet.heading && other.from == sigmet.from;
    });
    if (isKnown || cancelled.contains(message.sequence) || !cancelledBy(message).isEmpty() ||
        !sigmet.to.isValid() || sigmet.to <= now)
      continue;
    sigmet.isWholeRegion = message.text.contains(u"ENTIRE ");
    sigmet.area = areaIn(message.text);
    sigmets.append(std::move(sigmet));
  }
  std::ranges::stable_sort(sigmets, {}, &Sigmet::from);
  return sigmets;
}

EarthPosition positionOf(QStringView latitude, QStringView longitude) {
  const auto angle = [](QStringView digits) {
    const qsizetype degrees = digits.size() - 4;
    return digits.first(degrees).toDouble() + digits.sliced(degrees, 2).toDouble() / 60 +
           digits.sliced(degrees + 2).toDouble() / 3600;
  };
  return {angle(latitude), angle(longitude)};
}

} // namespace soran
