// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/checked_text.h"
#include "reports/cloud_amount.h"
#include "reports/code_phrases.h"
#include "reports/selected_group.h"

namespace soran {

namespace {

// Cloud amounts of ICAO Annex 3 with their eighths of the sky.
constexpr std::array<CloudAmount, 4> cloudAmounts{{
    {u"FEW", u"フィートに小量 (1/8～2/8) の", u"雲底高度不明な小量 (1/8～2/8) の"},
    {u"SCT", u"フィートに散在 (3/8～4/8) した", u"雲底高度不明な散在 (3/8～4/8) した"},
    {u"BKN", u"フィートに多量 (5/8～7/8) の", u"雲底高度不明な多量 (5/8～7/8) の"},
    {u"OVC", u"フィートに全天を覆う", u"雲底高度不明な全天を覆う"},
}};

struct CloudType {
  QStringView code;
  QStringView name;
};

constexpr std::array<CloudType, 9> cloudTypes{{
    {u"ST", u"層雲"},
    {u"SC", u"層積雲"},
    {u"NS", u"乱層雲"},
    {u"CU", u"積雲"},
    {u"AS", u"高層雲"},
    {u"CI", u"巻雲"},
    {u"CC", u"巻積雲"},
    {u"CS", u"巻層雲"},
    {u"AC", u"高積雲"},
}};

QStringView cloudWord(QStringView group) {
  if (group.endsWith(u"CB"))
    return u"積乱雲";
  return group.endsWith(u"TCU") ? QStringView(u"塔状積雲") : QStringView(u"雲");
}

QStringView amountWord(double oktas) {
  if (oktas == 1 || oktas == 2)
    return u"少量";
  if (oktas == 3 || oktas == 4)
    return u"散在";
  if (oktas == 5 || oktas == 6 || oktas == 7)
    return u"多量";
  return oktas == 8 ? QStringView(u"全天") : QStringView();
}

} // namespace

bool explainCloud(const SelectedGroup& selected, QString& tip) {
  const QStringView group = selected.group;
  for (const CloudAmount& amount : cloudAmounts) {
    if (!group.contains(amount.word))
      continue;
    writeAll(tip, group, u" ： ");
    if (group.endsWith(u"///") || (readsByCode(selected.settings) && mid1(group, 4, 3) == u"///"))
      write(tip, amount.unknownHeight);
    else
      writeAll(tip, Plain{heightAt(group, 4)}, amount.atHeight);
    write(tip, cloudWord(group));
    return true;
  }
  return false;
}

bool explainCloudType(const SelectedGroup& selected, QString& tip) {
  const QStringView group = selected.group;
  if (group.size() != 6)
    return false;
  for (const CloudType& type : cloudTypes) {
    if (!group.contains(type.code))
      continue;
    const double oktas = leadingNumber(group);
    const QStringView amount = amountWord(oktas);
    writeAll(tip, group, u" ： ", Plain{heightAt(group, 4)}, u"フィートに", amount, u" (", Plain{oktas},
             u"/8) の", type.name);
    if (amount == u"散在")
      tip.replace(u'の', QStringLiteral("した"));
    else if (amount == u"全天")
      tip.replace(u'の', QStringLiteral("を覆う"));
    return true;
  }
  return false;
}

} // namespace soran
