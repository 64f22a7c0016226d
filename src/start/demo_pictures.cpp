// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "start/demo_pictures.h"

#include "imagery/cameras.h"
#include "imagery/chart_catalogue.h"
#include "imagery/sources.h"

#include <QLocale>
#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr int width = 800;
constexpr int height = 600;

/// Closed curves around two centres, as isobars lie around a low and a high.
QString isobars(uint seed) {
  QString curves;
  const int shift = static_cast<int>(seed % 160);
  for (int ring = 1; ring <= 5; ++ring) {
    const int radius = ring * 34;
    curves += u"<ellipse cx='%1' cy='%2' rx='%3' ry='%4'/>"_s.arg(225 + shift / 2)
                  .arg(360 - shift / 3)
                  .arg(radius + ring * 8)
                  .arg(radius * 3 / 4);
    curves += u"<ellipse cx='%1' cy='%2' rx='%3' ry='%4'/>"_s.arg(620 - shift / 2)
                  .arg(270 + shift / 4)
                  .arg(radius)
                  .arg(radius * 2 / 3);
  }
  return u"<g fill='none' stroke='#5b8fa8' stroke-width='1.5'>"_s + curves + u"</g>"_s;
}

QString graticule() {
  QString lines;
  for (int x = 100; x < width; x += 100)
    lines += u"<line x1='%1' y1='0' x2='%1' y2='%2'/>"_s.arg(x).arg(height);
  for (int y = 100; y < height; y += 100)
    lines += u"<line x1='0' y1='%1' x2='%2' y2='%1'/>"_s.arg(y).arg(width);
  return u"<g stroke='#24323b' stroke-width='1'>"_s + lines + u"</g>"_s;
}

QString label(int y, int size, QStringView colour, const QString& text) {
  // A name that is long for its size is set smaller, so that none runs out of the picture.
  const int fitting = std::min(size, (width - 60) / std::max(1, static_cast<int>(text.size())));
  return u"<text x='%1' y='%2' font-size='%3' fill='%4' text-anchor='middle' font-family='sans-serif'>%5</text>"_s
      .arg(width / 2)
      .arg(y)
      .arg(fitting)
      .arg(colour, text.toHtmlEscaped());
}

/// The name of what a source serves under a path; empty where it serves nothing there.
QString nameOf(const ImagerySource& source, const QString& path) {
  for (const ChartItem& item : chartItems()) {
    const bool fits = item.cycle == IssueCycle::None ? path == item.path : path.startsWith(item.path);
    if (item.source == source.key && !item.isSeparator() && fits)
      return item.caption;
  }
  for (const Camera& camera : cameras()) {
    if (camera.source == source.key && QUrl(camera.path.toString()).path() == path)
      return camera.caption.toString();
  }
  return path == source.path ? source.name.toString() : QString();
}

constexpr QStringView imageFolder = u"/demo/image/";
constexpr QStringView madeBy = u"SORAN (DEMONSTRATION DATA)";

std::optional<ChartItem> itemOf(const QString& key) {
  const QList<ChartItem> items = chartItems();
  const auto item = std::ranges::find(items, key, &ChartItem::key);
  return item == items.end() ? std::nullopt : std::optional(*item);
}

/// The form of an address of `key` on the demonstration's server; a name from a list is kept as it is.
QString demoForm(const QString& base, const QString& key, qsizetype layer, const QString& form) {
  const qsizetype path = form.indexOf(u'/', form.indexOf(u"://"_s) + 3);
  return form.startsWith(u"{name}")
             ? form
             : base + imageFolder + key + u'/' + QString::number(layer) + form.mid(path);
}

/// The row as it is, but asked of the demonstration's server.
ImageRow servedAlike(ImageRow row, const QString& base) {
  for (qsizetype i = 0; i < row.layers.size(); ++i)
    row.layers[i] = demoForm(base, row.key, i, row.layers[i]);
  if (!row.list.isEmpty())
    row.list = demoForm(base, row.key, 0, row.list);
  row.from = madeBy.toString();
  if (!row.pattern.isEmpty())
    row.pattern = imageFolder + row.key + u"/0/*.png";
  return row;
}

/// A stand-in for what is asked of nobody, or of pages that lead on.
ImageRow standIn(const ImageRow& row, const QString& address) {
  const bool page = row.kind == ImageRow::Kind::Page && row.isAvailable();
  return {.key = row.key,
          .kind = page ? ImageRow::Kind::Page : ImageRow::Kind::Picture,
          .layers = {address},
          .from = madeBy.toString()};
}

ImageRow demoRow(const QString& base, const QString& key, const ImageRow* told, const QString& source,
                 const QString& path) {
  ImageRow row = told ? *told : ImageRow{.reason = u"-"_s};
  row.key = key;
  return row.isAvailable() && row.kind != ImageRow::Kind::Page
             ? servedAlike(std::move(row), base)
             : standIn(row, base + demoSourcePath(source) + path);
}

QByteArray httpDateOf(const QDateTime& time) {
  return QLocale::c().toString(time.toUTC(), u"ddd, dd MMM yyyy HH:mm:ss 'GMT'").toLatin1();
}

/// What stands at `path`, the rest of an address of demoTable().
std::optional<Answer> demoImage(const QString& path, const QDateTime& now,
                                const std::function<QByteArray(const QString&)>& delivered) {
  const QString key = path.section(u'/', 0, 0);
  const std::optional<ChartItem> item = itemOf(key);
  if (!item)
    return std::nullopt;
  if (path.endsWith(u".json"))
    return Answer{.body = R"({"near":{"now":["a.png","b.png"],"ft24":["c.png"]}})",
                  .contentType = "application/json"};
  if (path.endsWith(u"/sounding"))
    return Answer{.body = "<html><img src=\"" + (imageFolder + key).toUtf8() + "/0/demo.png\"></html>",
                  .contentType = "text/html"};
  Answer answer{.headers = {{"Last-Modified", httpDateOf(now)}}};
  const QString layer = path.section(u'/', 1, 1);
  if (path.endsWith(u".pdf")) {
    answer.body = demoDocument(key, now);
    answer.contentType = "application/pdf";
  } else if (layer != u"0") {
    answer.body = delivered(layer == u"1" ? u"demo/rain.png"_s : u"demo/border.png"_s);
    answer.contentType = "image/png";
  } else if (key == u"menu_chart_himawari.4") {
    answer.body = delivered(u"demo/colour.jpg"_s);
    answer.contentType = "image/jpeg";
  } else {
    answer.body = demoPicture(item->caption, findImagerySource(item->source)->name.toString(), now,
                              uint(qHash(key, size_t{0})));
    answer.contentType = "image/svg+xml";
  }
  return answer;
}

} // namespace

QString demoSourcePath(QStringView source) {
  return u"/demo/"_s + source;
}

QByteArray demoPicture(const QString& name, const QString& source, const QDateTime& time, uint seed) {
  const QString svg =
      u"<svg xmlns='http://www.w3.org/2000/svg' width='%1' height='%2' viewBox='0 0 %1 %2'>"_s.arg(width).arg(
          height) +
      u"<rect width='%1' height='%2' fill='#10181d'/>"_s.arg(width).arg(height) + graticule() +
      isobars(seed) + label(80, 40, u"#e6eaed", name) + label(130, 22, u"#a9b6be", source) +
      label(500, 34, u"#67dcff", time.toString(u"yyyy/MM/dd HH:mm:ss"_s)) +
      label(560, 34, u"#ffff00", u"DEMONSTRATION DATA"_s) + u"</svg>\n"_s;
  return svg.toUtf8();
}

QByteArray demoDocument(const QString& name, const QDateTime& time) {
  const QByteArray text = "0.4 0.6 0.7 RG 2 w 60 60 480 700 re S 80 300 440 200 re S 120 340 360 120 re S\n"
                          "BT /F 26 Tf 80 700 Td (" +
                          name.toLatin1() + ") Tj 0 -60 Td (" +
                          time.toString(u"yyyy/MM/dd HH:mm:ss"_s).toLatin1() +
                          ") Tj 0 -60 Td (DEMONSTRATION DATA) Tj ET\n";
  const QByteArray objects[] = {
      "<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Kids[3 0 R]/Count 1>>",
      "<</Type/Page/Parent 2 0 R/MediaBox[0 0 600 820]/Contents 4 0 R/Resources<</Font<</F 5 0 R>>>>>>",
      "<</Length " + QByteArray::number(text.size()) + ">>\nstream\n" + text + "endstream",
      "<</Type/Font/Subtype/Type1/BaseFont/Helvetica>>"};
  QByteArray pdf = "%PDF-1.4\n";
  QByteArray places = "xref\n0 6\n0000000000 65535 f \n";
  int number = 0;
  for (const QByteArray& object : objects) {
    places += QByteArray::number(pdf.size()).rightJustified(10, '0') + " 00000 n \n";
    pdf += QByteArray::number(++number) + " 0 obj\n" + object + "\nendobj\n";
  }
  const QByteArray start = QByteArray::number(pdf.size());
  return pdf + places + "trailer\n<</Size 6/Root 1 0 R>>\nstartxref\n" + start + "\n%%EOF\n";
}

ImageTable demoTable(const ImageTable& table, const QString& base) {
  ImageTable demo;
  const auto add = [&](const QString& key, const ImageRow* told, const QString& source, const QString& path) {
    demo.rows.push_back(demoRow(base, key, told, source, path));
  };
  for (const ChartItem& item : chartItems()) {
    if (!item.isSeparator())
      add(item.key(), table.find(item.menu, item.index), item.source, item.path);
  }
  for (const Camera& camera : cameras())
    add(camera.menu.toString(), table.find(camera.menu.toString(), -1), camera.source.toString(),
        camera.path.toString());
  add(u"ais"_s, table.find(u"ais"_s, -1), u"ais"_s, u"/"_s);
  return demo;
}

void serveDemoPictures(Endpoint& server, const Clock& clock,
                       const std::function<QByteArray(const QString&)>& delivered) {
  server.setHandler(imageFolder.toString(), [&clock, &delivered](const QUrl& url) {
    return demoImage(url.path(QUrl::FullyDecoded).mid(imageFolder.size()), clock.now(), delivered);
  });
  for (const ImagerySource& source : imagerySources()) {
    const QString folder = demoSourcePath(source.key);
    server.setHandler(folder, [&source, &clock, folder](const QUrl& url) -> std::optional<Answer> {
      const QString path = url.path(QUrl::FullyDecoded).mid(folder.size());
      const QString name = nameOf(source, path.isEmpty() ? u"/"_s : path);
      if (name.isEmpty())
        return std::nullopt;
      const auto seed = static_cast<uint>(qHash(path, size_t{0}));
      return Answer{.body = demoPicture(name, source.name.toString(), clock.now(), seed),
                    .contentType = "image/svg+xml",
                    .headers = {{"Last-Modified", httpDateOf(clock.now())}}};
    });
  }
}

} // namespace soran
