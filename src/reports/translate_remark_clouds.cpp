// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/code_walk.h"
#include "reports/group_shapes.h"

#include <algorithm>

namespace soran {

namespace {

struct CloudType {
  QStringView code;
  QStringView name;
};

constexpr std::array<CloudType, 11> cloudTypes{{
    {u"CB", u"積乱雲 (Cumulonimbus)"},
    {u"TCU", u"塔状積雲 (Towering Cumulus)"},
    {u"ST", u"層雲 (Stratus)"},
    {u"SC", u"層積雲 (Stratocumulus)"},
    {u"NS", u"乱層雲 (Nimbostratus)"},
    {u"CU", u"積雲 (Cumulus)"},
    {u"AS", u"高層雲 (Altostratus)"},
    {u"CI", u"巻雲 (Cirrus)"},
    {u"CC", u"巻積雲 (Cirrocumulus)"},
    {u"CS", u"巻層雲 (Cirrostratus)"},
    {u"AC", u"高積雲 (Altocumulus)"},
}};

/// The word for an amount in eighths of the sky; for any other number the word told last stays.
QStringView amountWord(int oktas, QStringView last) {
  constexpr std::array<QStringView, 9> words{
      u"", u"少量の", u"少量の", u"散在した", u"散在した", u"多量の", u"多量の", u"多量の", u"全天を覆う",
  };
  return oktas >= 1 && oktas <= 8 ? words[static_cast<size_t>(oktas)] : last;
}

/// Names the cloud type in the lines that tell of the same height and amount, or else in a line of its own.
void MergeCloud(ReportWalk& walk, QStringView amount, QStringView type) {
  QString layer;
  writeAll(layer, Plain{heightAt(walk.groups.token(), 4)}, u"フィートに", amount);
  if (!walk.out.text.contains(layer)) {
    walk.line(layer, type);
    return;
  }
  walk.out.replace(layer, layer + type.toString());
  for (const QStringView word : {u")雲", u")積乱雲", u")塔状積雲"})
    walk.out.replace(word.toString(), QStringLiteral(")"));
}

/// Names the cloud type in the line of this very layer, where one was observed that is of no other type.
bool nameLayer(CodeWalk& code, const QString& layer, const CloudType& type) {
  TranslationText& out = code.walk.out;
  const QString lineEnd = cloudWord(type.code) + crlf;
  // A layer stands behind a title: 3000 feet are no part of 13000.
  for (const QChar ahead : {u' ', u'\u3000'}) {
    for (const QString& cloud : {QString(u'雲' + crlf), lineEnd}) {
      const QString line = ahead + layer;
      // The remarks told so far, which may be many, have no such line.
      const QStringView observed =
          QStringView(out.text).first(std::min(code.observedEnd + crlf.size(), out.text.size()));
      if (!observed.contains(QString(line + cloud)))
        continue;
      const qsizetype before = out.text.size();
      out.replace(line + cloud, line + type.name + crlf);
      code.observedEnd += out.text.size() - before;
      return true;
    }
  }
  return false;
}

} // namespace

void tellCloudRemark(ReportWalk& walk, bool& cloudsOver, QStringView& amount) {
  const QStringView group = walk.groups.token();
  if (cloudsOver || leadingNumber(mid1(group, 1, 1)) == 0) {
    cloudsOver = true;
    return;
  }
  amount = amountWord(leadingInteger(group), amount);
  for (const CloudType& type : cloudTypes) {
    if (group.contains(type.code))
      MergeCloud(walk, amount, type.name);
  }
}

bool tellCloudTypeByCode(CodeWalk& code) {
  const QStringView group = code.peek();
  const auto* const type = std::ranges::find_if(cloudTypes, [group](const CloudType& known) {
    return group.size() == known.code.size() + 4 && group.sliced(1).startsWith(known.code);
  });
  if (type == cloudTypes.end() || !hasShape(group.last(3), {u"###"}) ||
      amountWord(leadingInteger(group), {}).isEmpty())
    return false;
  QString layer;
  writeAll(layer, Plain{heightAt(group.last(3), 1)}, u"フィートに", amountWord(leadingInteger(group), {}));
  if (!nameLayer(code, layer, *type))
    code.walk.line(layer, type->name);
  code.take();
  return true;
}

} // namespace soran
