// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/report_source.h"

#include "base/text.h"

#include <QStringList>
#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

QString encoded(const StationCode& code) {
  const QString& text = code.text();
  return std::all_of(text.begin(), text.end(), isAsciiLetter)
             ? text
             : QString::fromLatin1(QUrl::toPercentEncoding(text));
}

} // namespace

bool ReportSource::takesLists(ReportKind kind) const {
  return addressForm(kind).contains(u"{codes}");
}

QUrl ReportSource::address(ReportKind kind, std::span<const StationCode> codes) const {
  QStringList texts;
  for (const StationCode& code : codes)
    texts.append(encoded(code));
  QString address = addressForm(kind);
  address.replace(u"{codes}"_s, texts.join(u','));
  return QUrl(address.replace(u"{code}"_s, texts.value(0)));
}

} // namespace soran
