// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/image_table.h"

#include "platform/network.h"

#include <QMap>
#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace soran {

namespace {

constexpr QStringView timeFields[] = {u"yyyy", u"MM", u"dd", u"HH", u"mm"};
constexpr QStringView nameField = u"name";
constexpr int minutesOfDay = 24 * 60;

/// The words in braces of an address form.
QStringList fieldsOf(const QString& form) {
  QStringList fields;
  for (qsizetype open = form.indexOf(u'{'); open >= 0; open = form.indexOf(u'{', open + 1))
    fields.append(form.mid(open + 1, form.indexOf(u'}', open) - open - 1));
  return fields;
}

bool isTimeField(const QString& field) {
  return std::ranges::find(timeFields, field) != std::end(timeFields);
}

bool hasTime(const QString& form) {
  const QStringList fields = fieldsOf(form);
  return std::any_of(fields.begin(), fields.end(), isTimeField);
}

bool leadsSomewhere(const QString& form) {
  const QUrl url(QString(form).remove(u'{').remove(u'}'));
  const bool network = url.scheme() == u"http" || url.scheme() == u"https";
  return url.isValid() && ((network && !url.host().isEmpty()) || url.isLocalFile());
}

QString formFault(const ImageRow& row, const QString& form) {
  for (const QString& field : fieldsOf(form)) {
    if (field != nameField && !isTimeField(field))
      return u"{%1} は使えません"_s.arg(field);
    if (field == nameField && row.list.isEmpty())
      return u"{name} を教える list がありません"_s;
  }
  if (hasTime(form) && row.step == 0)
    return u"時刻を入れるための step がありません"_s;
  if (row.step != 0 && minutesOfDay % row.step != 0)
    return u"step は1日 (1440 分) を割り切る数です"_s;
  // What a list names may be a whole address, or one from the list's own place.
  return form.startsWith(u"{name}") || leadsSomewhere(form) ? QString()
                                                            : u"アドレスではありません: "_s + form;
}

/// Why the row cannot be used; empty where it can.
QString rowFault(const ImageRow& row) {
  if (!row.isAvailable())
    return QString();
  if (row.layers.isEmpty())
    return u"address も reason もありません"_s;
  if (row.list.isEmpty() != (row.path.isEmpty() && row.pattern.isEmpty()))
    return u"list には path か pattern が1つ要ります"_s;
  if (!row.list.isEmpty() && (!row.path.isEmpty() && !row.pattern.isEmpty()))
    return u"path と pattern は同時に使えません"_s;
  if (row.pattern.startsWith(u'*'))
    return u"pattern は * 以外で始まります"_s;
  QStringList forms = row.layers;
  if (!row.list.isEmpty())
    forms.append(row.list);
  for (const QString& form : std::as_const(forms)) {
    if (QString fault = formFault(row, form); !fault.isEmpty())
      return fault;
  }
  return QString();
}

/// A row while its lines are read.
struct Draft {
  ImageRow row;
  int line = 0; // of its section, from 1
  std::optional<ImageRow::Kind> kind;
  QMap<int, QString> layers;
  QString fault;
  int faultLine = 0;

  void refuse(int at, const QString& why) {
    if (fault.isEmpty()) {
      fault = why;
      faultLine = at;
    }
  }
};

bool takeNumber(Draft& draft, QStringView name, const QString& value) {
  const struct {
    QStringView name;
    int& field;
    int most;
  } numbers[] = {{u"step", draft.row.step, minutesOfDay},
                 {u"offset", draft.row.offset, 7 * minutesOfDay},
                 {u"back", draft.row.back, 48},
                 {u"period", draft.row.period, 31 * minutesOfDay}};
  const auto* number = std::ranges::find(numbers, name, [](const auto& each) { return each.name; });
  if (number == std::end(numbers))
    return false;
  bool isNumber = false;
  number->field = value.toInt(&isNumber);
  if (!isNumber || number->field < 0 || number->field > number->most)
    draft.refuse(0, u"%1 は 0 から %2 までの数です: %3"_s.arg(name).arg(number->most).arg(value));
  return true;
}

bool takeText(Draft& draft, QStringView name, const QString& value) {
  ImageRow& row = draft.row;
  const struct {
    QStringView name;
    QString& field;
  } texts[] = {{u"list", row.list}, {u"path", row.path},     {u"pattern", row.pattern},
               {u"from", row.from}, {u"reason", row.reason}, {u"address", draft.layers[1]}};
  const auto* text = std::ranges::find(texts, name, [](const auto& each) { return each.name; });
  if (text == std::end(texts))
    return false;
  text->field = value;
  return true;
}

bool takeWord(Draft& draft, QStringView name, const QString& value) {
  const struct {
    QStringView name, word;
    std::function<void()> take;
  } words[] = {{u"kind", u"picture", [&] { draft.kind = ImageRow::Kind::Picture; }},
               {u"kind", u"pdf", [&] { draft.kind = ImageRow::Kind::Pdf; }},
               {u"kind", u"page", [&] { draft.kind = ImageRow::Kind::Page; }},
               {u"zone", u"UTC", [&] { draft.row.japanTime = false; }},
               {u"zone", u"JST", [&] { draft.row.japanTime = true; }},
               {u"account", u"yes", [&] { draft.row.account = true; }},
               {u"account", u"no", [&] { draft.row.account = false; }}};
  bool known = false;
  for (const auto& each : words) {
    known = known || each.name == name;
    if (each.name == name && each.word == value) {
      each.take();
      return true;
    }
  }
  if (known)
    draft.refuse(0, u"%1 に使えない言葉です: %2"_s.arg(name, value));
  return known;
}

bool takeLayer(Draft& draft, QStringView name, const QString& value) {
  bool isNumber = false;
  const int number = name.startsWith(u"layer.") ? name.mid(6).toInt(&isNumber) : 0;
  if (!isNumber || number < 2)
    return false;
  draft.layers[number] = value;
  return true;
}

void takeLine(Draft& draft, const QString& line, int at) {
  const qsizetype mark = line.indexOf(u'=');
  const QStringView name = QStringView(line).left(std::max<qsizetype>(mark, 0)).trimmed();
  const QString value = line.mid(mark + 1).trimmed();
  const bool had = !draft.fault.isEmpty();
  if (mark < 0 || !(takeNumber(draft, name, value) || takeText(draft, name, value) ||
                    takeWord(draft, name, value) || takeLayer(draft, name, value)))
    draft.refuse(at, u"読めない行です: "_s + line);
  if (!had)
    draft.faultLine = at;
}

ImageRow::Kind kindOf(const QStringList& layers) {
  return !layers.isEmpty() && layers.first().endsWith(u".pdf", Qt::CaseInsensitive) ? ImageRow::Kind::Pdf
                                                                                    : ImageRow::Kind::Picture;
}

void finish(Draft draft, const QString& file, ImageTable& table) {
  ImageRow& row = draft.row;
  for (const QString& layer : std::as_const(draft.layers)) {
    if (!layer.isEmpty())
      row.layers.append(layer);
  }
  if (row.layers.isEmpty() && !row.list.isEmpty())
    row.layers = {u"{name}"_s};
  row.kind = draft.kind.value_or(kindOf(row.layers));
  if (std::ranges::find(table.rows, row.key, &ImageRow::key) != table.rows.end())
    draft.refuse(draft.line, u"同じ行が前にあります"_s);
  if (draft.fault.isEmpty()) {
    draft.faultLine = draft.line;
    draft.fault = rowFault(row);
  }
  if (!draft.fault.isEmpty()) {
    row.reason = u"%1 の %2 行目 [%3]: %4"_s.arg(file).arg(draft.faultLine).arg(row.key, draft.fault);
    table.faults.append(row.reason);
  }
  ImageTable one;
  one.rows.push_back(std::move(row));
  table.overrideBy(one);
}

QString filled(const QString& form, const QDateTime& time, const QString& name) {
  QString address = form;
  for (const QStringView field : timeFields)
    address.replace(u'{' + field.toString() + u'}', time.toString(field));
  return address.replace(u"{name}"_s, name);
}

} // namespace

bool ImageRow::tellsDay() const {
  return std::ranges::any_of(layers, [](const QString& form) { return fieldsOf(form).contains(u"dd"); });
}

const ImageRow* ImageTable::find(const QString& menu, int index) const {
  const auto named = [this](const QString& key) {
    const auto row = std::ranges::find(rows, key, &ImageRow::key);
    return row == rows.end() ? nullptr : &*row;
  };
  const ImageRow* own = index < 0 ? nullptr : named(menu + u'.' + QString::number(index));
  return own ? own : named(menu);
}

void ImageTable::overrideBy(const ImageTable& other) {
  for (const ImageRow& row : other.rows) {
    const auto mine = std::ranges::find(rows, row.key, &ImageRow::key);
    if (mine == rows.end())
      rows.push_back(row);
    else
      *mine = row;
  }
  faults += other.faults;
}

const ImageTable& LateImageTable::operator*() const {
  for (const auto& read : std::exchange(unread_, {}))
    table_.overrideBy(read());
  return table_;
}

ImageTable readImageTable(const QByteArray& bytes, const QString& file) {
  ImageTable table;
  std::optional<Draft> draft;
  int at = 0;
  for (const QString& each : QString::fromUtf8(bytes).split(u'\n')) {
    ++at;
    const QString line = each.trimmed();
    if (line.isEmpty() || line.startsWith(u';'))
      continue;
    if (line.startsWith(u'[') && line.endsWith(u']')) {
      if (draft)
        finish(*std::exchange(draft, std::nullopt), file, table);
      draft.emplace().line = at;
      draft->row.key = line.mid(1, line.size() - 2).trimmed();
    } else if (draft) {
      takeLine(*draft, line, at);
    } else {
      table.faults.append(u"%1 の %2 行目: 見出し [ ] の前にあります"_s.arg(file).arg(at));
    }
  }
  if (draft)
    finish(*std::move(draft), file, table);
  return table;
}

std::vector<QDateTime> imageTimes(const ImageRow& row, const QDateTime& now) {
  if (row.step == 0)
    return {QDateTime()};
  constexpr qint64 japan = 9LL * 3600;
  const qint64 ahead = row.japanTime ? japan : 0;
  const qint64 step = qint64(row.step) * 60;
  const qint64 local = now.toSecsSinceEpoch() + ahead - qint64(row.offset) * 60;
  const qint64 newest = local - local % step - ahead;
  std::vector<QDateTime> times;
  for (int n = 0; n <= row.back; ++n)
    times.push_back(QDateTime::fromSecsSinceEpoch(newest - n * step).toUTC());
  return times;
}

QUrl imageAddress(const ImageRow& row, const QString& form, const QDateTime& time, const QString& name) {
  constexpr int japan = 9 * 3600;
  const QDateTime told = time.isValid() && row.japanTime ? time.toOffsetFromUtc(japan) : time;
  const QUrl list(filled(row.list, told, {}));
  const auto place = [&](const QString& with) {
    const QUrl own(filled(form, told, with));
    return row.list.isEmpty() || !own.isRelative() ? own : list.resolved(own);
  };
  const QUrl named = place(name);
  return serverOf(named) == serverOf(place({})) ? named : QUrl();
}

} // namespace soran
