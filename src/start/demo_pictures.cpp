// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "start/demo_pictures.h"

#include "imagery/cameras.h"
#include "imagery/chart_catalogue.h"
#include "imagery/sources.h"

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

void serveDemoPictures(EndpointServer& server, const Clock& clock) {
  for (const ImagerySource& source : imagerySources()) {
    const QString folder = demoSourcePath(source.key);
    server.setHandler(folder, [&source, &clock, folder](const QUrl& url) -> std::optional<Answer> {
      const QString path = url.path(QUrl::FullyDecoded).mid(folder.size());
      const QString name = nameOf(source, path.isEmpty() ? u"/"_s : path);
      if (name.isEmpty())
        return std::nullopt;
      const auto seed = static_cast<uint>(qHash(path, size_t{0}));
      return Answer{.body = demoPicture(name, source.name.toString(), clock.now(), seed),
                    .contentType = "image/svg+xml"};
    });
  }
}

} // namespace soran
