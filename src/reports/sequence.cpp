// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/sequence.h"

#include "base/files.h"
#include "base/foreign_text.h"
#include "base/report_rules.h"
#include "base/text.h"
#include "reports/layout.h"

#include <algorithm>
#include <bitset>
#include <cstring>
#include <unordered_map>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

int wrappedHour(int hour) {
  if (hour < 0)
    return hour + 24;
  return hour > 23 ? hour - 24 : hour;
}

quint32 keyAt(const char* p) {
  quint32 key = 0;
  std::memcpy(&key, p, 4);
  return key;
}

constexpr size_t filterBits = 1 << 14;
size_t filterSlot(quint32 key) {
  return (key * 2654435761U) >> 18;
}

/// The keys of the lines so far, one behind the other with a blank in front of each; a key is found wherever
/// it stands in them. Each place is taken into a hash table once for each length of key that is asked for.
class SeenKeys {
 public:
  static constexpr qsizetype longest = 12;

  void add(QStringView key) {
    text_ += u' ';
    text_ += key;
  }
  bool contains(QStringView key) {
    Places& places = places_.at(static_cast<size_t>(key.size()));
    for (; places.next + key.size() <= text_.size(); ++places.next)
      take(places, key.size());
    return places.table[slotOf(places, key)] >= 0;
  }

 private:
  static constexpr qsizetype none = -1;
  struct Places {
    qsizetype next = 0; ///< the first place that is not taken in yet
    size_t used = 0;
    std::vector<qsizetype> table = std::vector<qsizetype>(64, none);
  };

  QStringView at(qsizetype place, qsizetype size) const { return QStringView(text_).sliced(place, size); }

  /// The slot that holds a place of `key`, or a free one.
  size_t slotOf(const Places& places, QStringView key) const {
    const size_t mask = places.table.size() - 1;
    size_t slot = qHash(key, QHashSeed::globalSeed()) & mask;
    while (places.table[slot] != none && at(places.table[slot], key.size()) != key)
      slot = (slot + 1) & mask;
    return slot;
  }
  void take(Places& places, qsizetype size) {
    const size_t slot = slotOf(places, at(places.next, size));
    if (places.table[slot] != none)
      return;
    places.table[slot] = places.next;
    if (++places.used * 2 < places.table.size())
      return;
    const std::vector<qsizetype> former =
        std::exchange(places.table, std::vector<qsizetype>(places.table.size() * 4, none));
    for (const qsizetype place : former) {
      if (place != none)
        places.table[slotOf(places, at(place, size))] = place;
    }
  }

  QString text_;
  std::array<Places, longest + 1> places_;
};

QString blockLine(const StationCode& code, QStringView line, const SettingsRecord& settings, bool latest) {
  QString text = lineHeading(code, line, settings).text;
  if (latest)
    text += u" (LATEST ISSUED)"_s;
  return text + crlf + u"      " + mid1(line, 6).toString();
}

} // namespace

std::vector<UtcHour> sequenceHours(QTime now, const SettingsRecord& settings, ZoneOffset systemZoneOffset) {
  const ZoneOffset offset = settings[key::LOCAL使用] == true ? settings.zoneOffset() : systemZoneOffset;
  // A day has no more files, and the present hour is always among them.
  const int span = std::clamp(settings[key::シーケンス時間].value_or(0), 0, 23);
  const int utcHour = wrappedHour(now.hour() - offset.hours);
  const int firstHour = wrappedHour(utcHour - span);
  std::vector<UtcHour> hours;
  for (int i = 0; i <= span; ++i)
    hours.push_back({wrappedHour(firstHour + i)});
  return hours;
}

QString sequenceHourLabel(UtcHour hour, const SettingsRecord& settings) {
  if (settings[key::LOCAL使用] != true)
    return twoDigits(hour.value) + u"00Z";
  const int shown = shiftedHour(hour.value, settings.zoneOffset(), HourWrap::Above);
  const QString label = QString::number(shown) + u"00" + ZoneLetter(settings.zoneOffset());
  return shown < 10 ? u'0' + label : label;
}

CycleFile::CycleFile(QByteArray text, const std::vector<StationCode>& codes)
    : text_(std::move(text)), found_(codes.size()) {
  findFourLetterCodes(codes);
  for (size_t i = 0; i < codes.size(); ++i) {
    if (codes[i].text().toUtf8().size() != 4)
      findOther(i, codes[i]);
  }
}

void CycleFile::findFourLetterCodes(const std::vector<StationCode>& codes) {
  // The text is some hundred kilobytes of the whole world's reports and the codes are few: a small filter of
  // the four bytes at each place sends nearly all of them on at once.
  std::bitset<filterBits> filter;
  std::unordered_map<quint32, std::vector<size_t>> wanted;
  for (size_t i = 0; i < codes.size(); ++i) {
    const QByteArray code = codes[i].text().toUtf8();
    if (code.size() != 4)
      continue;
    const quint32 key = keyAt(code.constData());
    wanted[key].push_back(i);
    filter.set(filterSlot(key));
  }
  if (wanted.empty() || text_.size() < 4)
    return;
  const char* const data = text_.constData();
  const qsizetype last = text_.size() - 4;
  qsizetype end = 0; // of the line of the last hit
  for (qsizetype i = 0; i <= last; ++i) {
    const quint32 key = keyAt(data + i);
    if (!filter.test(filterSlot(key)))
      continue;
    const auto hit = wanted.find(key);
    if (hit == wanted.end())
      continue;
    // Behind the code, which may hold a line end where it is no station's.
    if (end < i + 4) {
      const qsizetype lf = text_.indexOf('\n', i + 4);
      end = lf < 0 ? text_.size() : lf;
    }
    for (const size_t index : hit->second) {
      // The search goes on behind the line that was taken.
      if (found_[index].empty() || found_[index].back().end <= i)
        found_[index].push_back({i, end});
    }
  }
}

void CycleFile::findOther(size_t index, const StationCode& code) {
  const QByteArray word = code.text().toUtf8();
  if (word.isEmpty())
    return;
  for (qsizetype i = text_.indexOf(word); i >= 0;) {
    // Behind the code, which may itself be a line end where it is no station's.
    const qsizetype lf = text_.indexOf('\n', i + word.size());
    const qsizetype end = lf < 0 ? text_.size() : lf;
    found_[index].push_back({i, end});
    i = lf < 0 ? -1 : text_.indexOf(word, lf);
  }
}

std::vector<QString> CycleFile::lines(size_t index) const {
  std::vector<QString> lines;
  for (const Stretch& stretch : found_[index])
    lines.push_back(cleaned(textOfBytes(text_.mid(stretch.begin, stretch.end - stretch.begin))));
  return lines;
}

SequenceBlock sequenceBlock(const StationCode& code, size_t index, const std::optional<QString>& latestText,
                            const std::vector<UtcHour>& hours, const CycleFiles& files,
                            const SettingsRecord& settings, bool& latestShown) {
  SequenceBlock block;
  if (!latestText) {
    block.text = crlf + code.text() + u"  NOT FOUND" + crlf;
    return block;
  }
  SeenKeys seenKeys;
  for (size_t h = 0; h < hours.size(); ++h) {
    const QString label = sequenceHourLabel(hours[h], settings);
    const CycleFile* file = files(hours[h]);
    if (!file) {
      block.text += crlf + code.text() + u"  LOADING SEQUENCE DATA AT " + label + crlf;
      block.missingFile = true;
      continue;
    }
    bool gaveSomething = false;
    for (const QString& line : file->lines(index)) {
      const QStringView key = QStringView(line).left(SeenKeys::longest);
      if (seenKeys.contains(key))
        continue;
      seenKeys.add(key);
      block.text += blockLine(code, line, settings, latestShown) + crlf;
      gaveSomething = true;
    }
    if (!gaveSomething && h + 1 < hours.size())
      block.text += crlf + code.text() + u"  NO DATA AT " + label + crlf;
  }
  const QStringView report = mid1(*latestText, 18);
  if (!report.isEmpty() && !seenKeys.contains(report.left(SeenKeys::longest))) {
    latestShown = true;
    block.text += blockLine(code, report, settings, true);
  }
  return block;
}

} // namespace soran
