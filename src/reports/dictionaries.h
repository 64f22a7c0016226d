// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/rows.h"

#include <QHash>
#include <QStringView>
#include <optional>

namespace soran {

/// The look-up tables of translation and explanation, built once from the rows in their stored order and then
/// shared by any number of calls. Of rows with equal keys the first counts; keys are compared exactly, case
/// included. A view that is returned lives as long as the tables do.
class Dictionaries {
 public:
  /// `abbreviations` are the rows of 気象略語, `phrases` those of 日本語解析, `stations` the lines of
  /// stations elsewhere: code, tab, name, in UTF-8, each ended by LF.
  Dictionaries(const QList<Airport>& airports, const QList<DictionaryEntry>& abbreviations,
               const QList<DictionaryEntry>& phrases, QByteArray stations = {});

  /// The name of the station of a code, without blanks (U+0020 and U+3000); nothing for an unknown code.
  std::optional<QStringView> airportName(QStringView code) const;

  /// As airportName, and for a code without a row the name in `stations`.
  std::optional<QString> stationName(QStringView code) const;

  /// The meaning of a weather code up to its first "(", without the blanks around it; nothing where the code
  /// has no row.
  std::optional<QStringView> shortMeaning(QStringView code) const;

  /// The ready phrase of a whole group; nothing where the group has no row.
  std::optional<QStringView> phrase(QStringView group) const;

  /// The whole meaning of a word, which is trimmed and made upper case first; empty where there is none.
  QStringView LookUpAbbreviation(QStringView word) const;

  /// As LookUpAbbreviation, in the phrases.
  QStringView LookUpPhrase(QStringView word) const;

 private:
  using Table = QHash<QString, QString>;

  Table airports_;
  QByteArray stations_;
  Table meanings_;
  Table shortMeanings_;
  Table phrases_;
};

} // namespace soran
