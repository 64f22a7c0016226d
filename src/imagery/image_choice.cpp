// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "imagery/image_choice.h"

#include "imagery/sources.h"

#include <QSet>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

ImageRow::Kind kindOfChart(const QString& path) {
  if (path.endsWith(u".pdf"))
    return ImageRow::Kind::Pdf;
  const bool picture = path.endsWith(u".png") || path.endsWith(u".jpg") || path.endsWith(u".gif");
  return picture ? ImageRow::Kind::Picture : ImageRow::Kind::Page;
}

} // namespace

ImageRow imageRow(const Endpoints& endpoints, const QString& menu, int index, const QString& source,
                  const QString& path, ImageRow::Kind kind) {
  const ImageRow* told = endpoints.images->find(menu, index);
  const auto host = endpoints.others.constFind(source);
  ImageRow row =
      told ? *told : ImageRow{.key = menu, .reason = u"アドレスの表 imagery.ini に行がありません."_s};
  if (host == endpoints.others.cend())
    return row;
  ImageRow own{.key = row.key, .kind = kind, .period = row.period};
  if (host->isEmpty())
    own.reason = u"endpoints.ini の %1 が空になっています."_s.arg(source);
  else
    own.layers = {*host + path};
  return own;
}

ImageRow chartRow(const Endpoints& endpoints, const ChartItem& item, const QDateTime& now,
                  QStringView timeOffset) {
  const QString path = chartView(item, now, timeOffset).address;
  return imageRow(endpoints, item.menu, item.index, item.source, path, kindOfChart(path));
}

ImageRow cameraRow(const Endpoints& endpoints, const Camera& camera) {
  return imageRow(endpoints, camera.menu.toString(), -1, camera.source.toString(), camera.path.toString(),
                  camera.refresh ? ImageRow::Kind::Picture : ImageRow::Kind::Page);
}

ImageRow yahooRow(const Endpoints& endpoints) {
  return imageRow(endpoints, u"menu_yahoo"_s, -1, u"yahoo"_s, findImagerySource(u"yahoo")->path.toString(),
                  ImageRow::Kind::Page);
}

ImageRow aisRow(const Endpoints& endpoints) {
  // A host of the endpoints file is asked as it stands, without a path.
  return imageRow(endpoints, u"ais"_s, -1, u"ais"_s, QString(), ImageRow::Kind::Page);
}

std::vector<ItemRow> itemRows(const Endpoints& endpoints, const QDateTime& now, QStringView timeOffset) {
  std::vector<ItemRow> rows;
  QSet<QString> known{u"ais"_s};
  for (const ChartItem& item : chartItems()) {
    known += {item.menu, item.key()};
    if (!item.isSeparator())
      rows.push_back({item.key(), chartRow(endpoints, item, now, timeOffset)});
  }
  for (const Camera& camera : cameras()) {
    known += camera.menu.toString();
    rows.push_back({camera.menu.toString(), cameraRow(endpoints, camera)});
  }
  rows.push_back({u"ais"_s, aisRow(endpoints)});
  for (const ImageRow& row : endpoints.images->rows) {
    if (!known.contains(row.key))
      rows.push_back({row.key, row});
  }
  return rows;
}

} // namespace soran
