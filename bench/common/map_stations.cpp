// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/map_stations.h"

#include "base/utc.h"
#include "desk/verdict.h"

#include <random>

namespace soran::bench {

using namespace Qt::StringLiterals;

namespace {

const QString weathers[] = {
    u"34012G24KT 9999 FEW030 24/18 Q1008"_s,
    u"VRB02KT 4000 -SHRA BR FEW005 BKN012 18/17 Q1002"_s,
    u"00000KT 0300 FG VV001 08/08 Q1020"_s,
    u"26035G50KT 2000 +TSRA BKN010CB 26/24 Q0996"_s,
    u"CAVOK 30/10 Q1015"_s,
};

} // namespace

std::vector<MapStation> stationsOfTheWorld(int count) {
  const QDateTime now = inUtc(QDate(2026, 11, 24), QTime(5, 12));
  const QDateTime time = now.addSecs(-720);
  const Limits limits = Limits::of(SettingsRecord::standard(u"+9"_s));
  std::mt19937 random(2026);
  std::uniform_real_distribution<double> share(0, 1);
  std::vector<MapStation> stations;
  for (int i = 0; i < count; ++i) {
    const QString code =
        u"R"_s + QChar(u'A' + i / 676 % 26) + QChar(u'A' + i / 26 % 26) + QChar(u'A' + i % 26);
    const BoardReports reports{.metar = code + u" 240500Z " + weathers[size_t(i) % std::size(weathers)],
                               .time = time,
                               .times = {time}};
    const bool isNear = i % 4 == 0;
    const EarthPosition position = isNear
                                       ? EarthPosition{26 + 18 * share(random), 127 + 18 * share(random)}
                                       : EarthPosition{-50 + 120 * share(random), -180 + 360 * share(random)};
    stations.push_back({boardRow(StationCode(code), reports, limits, now), position});
  }
  return stations;
}

} // namespace soran::bench
