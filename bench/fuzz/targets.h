// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/files.h"
#include "store/settings_record.h"

#include <QString>
#include <QStringView>
#include <stdexcept>

/// The readers of foreign text and of JSON, each fed with any bytes whatever. They stand behind the libFuzzer
/// program, and behind the tests, which feed them with the files of tests/corpus.
namespace soran::fuzz {

/// What a reader promises and did not hold.
class Finding : public std::logic_error {
  using std::logic_error::logic_error;
};

inline void require(bool holds, const char* promise) {
  if (!holds)
    throw Finding(promise);
}

inline QString textOf(QByteArrayView bytes) {
  return QString::fromUtf8(bytes);
}

/// Takes the text up to `end` off `text`, and `end` with it; all of it where there is no `end`.
inline QStringView takeUntil(QStringView& text, QChar end) {
  const qsizetype at = text.indexOf(end);
  const QStringView part = at < 0 ? text : text.first(at);
  text = at < 0 ? QStringView() : text.sliced(at + 1);
  return part;
}

/// The standard settings in the zone, 時差, that the bytes choose; LOCAL使用 by the lowest bit.
inline SettingsRecord settingsIn(QStringView zone, uint8_t local) {
  SettingsRecord settings = SettingsRecord::standard(zone.toString());
  settings.set(key::LOCAL使用, (local & 1) == 0);
  return settings;
}

/// Each throws Finding.
using Target = void (*)(QByteArrayView);
void batch(QByteArrayView input);
void colour(QByteArrayView input);
void endpoints(QByteArrayView input);
void exchange(QByteArrayView input);
void explain(QByteArrayView input);
void forecast(QByteArrayView input);
void imagery(QByteArrayView input);
void layout(QByteArrayView input);
void manifest(QByteArrayView input);
void picture(QByteArrayView input);
void sequence(QByteArrayView input);
void session(QByteArrayView input);
void translate(QByteArrayView input);
void update(QByteArrayView input);

} // namespace soran::fuzz
