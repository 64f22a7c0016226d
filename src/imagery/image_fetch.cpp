// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "imagery/image_fetch.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <utility>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

QJsonValue elementOf(const QJsonArray& list, QStringView index) {
  if (index != u"max") {
    bool isNumber = false;
    const int place = index.toInt(&isNumber);
    return isNumber ? list.at(place) : QJsonValue();
  }
  QString greatest;
  for (const auto& each : list)
    greatest = std::max(greatest, each.toString());
  return greatest;
}

/// A step of a path: a field, then perhaps places in lists.
QJsonValue stepInto(const QJsonValue& from, const QString& step) {
  const QStringList parts = step.split(u'[');
  QJsonValue value = parts.first().isEmpty() ? from : from.toObject().value(parts.first());
  for (qsizetype i = 1; i < parts.size(); ++i)
    value = elementOf(value.toArray(), QStringView(parts[i]).chopped(parts[i].endsWith(u']') ? 1 : 0));
  return value;
}

/// A mark that ends an address where it stands in a page.
bool endsAddress(QChar c) {
  return c.isSpace() || c == u'"' || c == u'\'' || c == u'<' || c == u'>';
}

/// The end of the match of `parts`, with anything of an address between them, that begins at `from`; -1 where
/// there is none. No name is longer than a line of a page, which bounds the search in a hostile one.
qsizetype matchEnd(QStringView page, const QStringList& parts, qsizetype from) {
  constexpr qsizetype longest = 512;
  const QStringView near = page.sliced(from).left(longest);
  const auto* const mark = std::find_if(near.begin(), near.end(), endsAddress);
  const QStringView address = near.first(mark - near.begin());
  if (!address.startsWith(parts.first()))
    return -1;
  qsizetype end = parts.first().size();
  for (qsizetype i = 1; i < parts.size(); ++i) {
    const qsizetype next = address.indexOf(parts[i], end);
    if (next < 0)
      return -1;
    end = next + parts[i].size();
  }
  return from + end;
}

bool isThere(const Reply& reply) {
  return reply.ok && (reply.status == 200 || reply.status == 0);
}

/// Nobody answers, so that another time's picture would bring no more.
bool isSilence(const Reply& reply) {
  return !reply.ok && reply.failure != NetFailure::Status && reply.failure != NetFailure::NoFile;
}

/// One row while it is fetched.
class ImageWalk {
 public:
  ImageWalk(Inet& inet, const ImageRow& row) : inet_(inet), row_(row) {}

  FetchedImage run(const QDateTime& now) {
    FetchedImage earlier;
    for (const QDateTime& time : imageTimes(row_, now)) {
      FetchedImage found = at(time);
      if (found.ok() && !isEarlierDay(found, time))
        return found;
      if (isSilence(found.reply))
        return earlier.ok() ? earlier : found;
      if (found.ok() && !earlier.ok())
        earlier = std::move(found);
      else if (!earlier.ok() && !last_.address.isValid())
        last_ = std::move(found);
    }
    return earlier.ok() ? earlier : last_;
  }

 private:
  /// An address that tells the hour alone leads to the picture of the day before until today's is there.
  bool isEarlierDay(const FetchedImage& found, const QDateTime& time) const {
    return time.isValid() && !row_.tellsDay() && found.time.isValid() && found.time < time;
  }

  FetchedImage at(const QDateTime& time) {
    FetchedImage found;
    const std::optional<QString> name = nameFor(time, found);
    if (!name)
      return found;
    std::vector<QByteArray> layers(size_t(row_.layers.size()));
    // What changes with the time comes first: the map below it need not be asked for in vain.
    for (const bool ofItsTime : {true, false}) {
      for (qsizetype i = 0; i < row_.layers.size(); ++i) {
        const QUrl url = imageAddress(row_, row_.layers[i], time, *name);
        if (isOfItsTime(i, time) == ofItsTime && !take(url, layers[size_t(i)], found))
          return found;
      }
    }
    if (row_.tellsDay())
      found.time = time;
    found.layers = std::move(layers);
    return found;
  }

  bool isOfItsTime(qsizetype layer, const QDateTime& time) const {
    if (row_.layers.size() == 1 || !time.isValid())
      return layer == 0;
    return row_.layers[layer].contains(u'{');
  }

  std::optional<QString> nameFor(const QDateTime& time, FetchedImage& found) {
    if (row_.list.isEmpty())
      return QString();
    found.address = imageAddress(row_, row_.list, time);
    found.isList = true;
    const QByteArray body = keep(inet_.open(found.address), found);
    const QString name =
        row_.path.isEmpty() ? nameInPage(QString::fromUtf8(body), row_.pattern) : nameInJson(body, row_.path);
    return isThere(found.reply) && !name.isEmpty() ? std::optional(name) : std::nullopt;
  }

  /// Takes a layer over; false where it is not there.
  bool take(const QUrl& url, QByteArray& layer, FetchedImage& found) {
    const bool first = found.isList || found.address.isEmpty();
    if (first)
      found.address = url;
    found.isList = false;
    layer = keep(inet_.open(url), found);
    if (first)
      found.time = found.reply.modified;
    const bool there = isThere(found.reply) && fits(found.kind, row_.kind);
    if (!there)
      found.address = url;
    return there;
  }

  static QByteArray keep(Reply reply, FetchedImage& found) {
    QByteArray body = std::exchange(reply.body, {});
    found.kind = bodyKind(body);
    found.reply = std::move(reply);
    return body;
  }

  Inet& inet_;
  const ImageRow& row_;
  FetchedImage last_; // of the newest time
};

} // namespace

BodyKind bodyKind(const QByteArray& body) {
  constexpr qsizetype enough = 512;
  const QByteArray head = body.first(std::min(enough, body.size())).trimmed();
  const QByteArray lower = head.toLower();
  const struct {
    QByteArrayView mark;
    BodyKind kind;
  } marks[] = {{"\x89PNG", BodyKind::Png},    {"\xff\xd8\xff", BodyKind::Jpeg}, {"GIF8", BodyKind::Gif},
               {"%PDF-", BodyKind::Pdf},      {"<svg", BodyKind::Svg},          {"{", BodyKind::Json},
               {"<!doctype", BodyKind::Html}, {"<html", BodyKind::Html}};
  if (head.isEmpty())
    return BodyKind::Empty;
  for (const auto& each : marks) {
    if (head.startsWith(each.mark) || lower.startsWith(each.mark))
      return each.kind;
  }
  if (head.startsWith('['))
    return QJsonDocument::fromJson(body).isNull() ? BodyKind::Other : BodyKind::Json;
  if (head.startsWith('<'))
    return lower.contains("<svg") ? BodyKind::Svg : BodyKind::Html;
  return BodyKind::Other;
}

bool fits(BodyKind body, ImageRow::Kind kind) {
  switch (kind) {
  case ImageRow::Kind::Picture:
    return body == BodyKind::Png || body == BodyKind::Jpeg || body == BodyKind::Gif || body == BodyKind::Svg;
  case ImageRow::Kind::Pdf:
    return body == BodyKind::Pdf;
  case ImageRow::Kind::Page:
    return body != BodyKind::Empty;
  }
  return false;
}

FetchedImage fetchImage(Inet& inet, const ImageRow& row, const QDateTime& now) {
  return ImageWalk(inet, row).run(now);
}

std::optional<qint64> imageAge(const QDateTime& time, const QDateTime& now) {
  if (!time.isValid())
    return std::nullopt;
  return std::max<qint64>(0, time.secsTo(now) / 60);
}

bool isOld(const QDateTime& time, int period, const QDateTime& now) {
  return period > 0 && imageAge(time, now).value_or(0) > 2 * qint64(period);
}

QString imageNote(const ImageRow& row, const QDateTime& time, const QDateTime& now) {
  QStringList parts;
  if (const std::optional<qint64> age = imageAge(time, now)) {
    constexpr int japan = 9 * 3600;
    parts.append(time.toUTC().toString(u"yyyy/MM/dd HH:mm 'UTC'") +
                 time.toOffsetFromUtc(japan).toString(u" (dd日 HH:mm 'JST')"));
    const qint64 hours = *age / 60;
    parts.append(hours >= 48  ? u"%1日前"_s.arg(hours / 24)
                 : hours >= 1 ? u"%1時間%2分前"_s.arg(hours).arg(*age % 60)
                              : u"%1分前"_s.arg(*age));
  } else {
    parts.append(u"時刻不明"_s);
  }
  if (isOld(time, row.period, now))
    parts.append(u"古い画像です"_s);
  if (!row.from.isEmpty())
    parts.append(u"出典: "_s + row.from);
  return parts.join(u"   ");
}

QString nameInJson(const QByteArray& json, const QString& path) {
  const QJsonDocument document = QJsonDocument::fromJson(json);
  QJsonValue value = document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
  for (const QString& step : path.split(u'.'))
    value = stepInto(value, step);
  return value.toString();
}

QString nameInPage(const QString& whole, const QString& pattern) {
  constexpr qsizetype largest = qsizetype(512) * 1024;
  const QStringView page = QStringView(whole).left(largest);
  const QStringList parts = pattern.split(u'*');
  for (qsizetype from = page.indexOf(parts.first()); from >= 0;
       from = page.indexOf(parts.first(), from + 1)) {
    if (const qsizetype end = matchEnd(page, parts, from); end > from)
      return page.sliced(from, end - from).toString();
  }
  return QString();
}

} // namespace soran
