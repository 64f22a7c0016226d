// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/weather_words.h"

#include <gtest/gtest.h>

using namespace soran;

namespace {

TEST(WeatherWords, AGroupHoldsThePairsOfAWord) {
  const struct {
    QStringView word;
    std::initializer_list<QStringView> held, others;
  } cases[] = {
      {u"TS", {u"TS", u"+TSRA", u"-TSRAGR", u"VCTS"}, {u"SHRA", u"RETS", u"+", u""}},
      {u"RA", {u"RA", u"-SHRA", u"+TSRA", u"SNRA", u"FZRA"}, {u"GR", u"BR", u"SHRAX"}},
      {u"FZRA", {u"FZRA", u"-FZRASN", u"FZDZRA"}, {u"FZDZ", u"RA", u"FZFG"}},
      {u"+RA", {u"+RA", u"+TSRA"}, {u"RA", u"-RA"}},
      {u"-SN", {u"-SN", u"-SHSN"}, {u"SN", u"+SN"}},
      {u"VCSH", {u"VCSH"}, {u"SHRA", u"VCTS"}},
      {u"FG", {u"FG", u"BCFG", u"VCFG"}, {u"GF", u"F", u"FGF"}},
      {u"", {}, {u"RA"}},
      {u"XX", {}, {u"XX"}},
  };
  for (const auto& c : cases) {
    for (const QStringView group : c.held)
      EXPECT_TRUE(holdsWeather(group, c.word))
          << group.toUtf8().toStdString() << c.word.toUtf8().toStdString();
    for (const QStringView group : c.others)
      EXPECT_FALSE(holdsWeather(group, c.word))
          << group.toUtf8().toStdString() << c.word.toUtf8().toStdString();
  }
}

} // namespace
