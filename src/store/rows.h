// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

/// Plain rows of the list tables, for those who read them without a database.
namespace soran {

/// A row of 飛行場情報 or 自動デコード.
struct Airport {
  QString code; ///< ICAOコード, four letters
  QString name; ///< 飛行場名
  bool operator==(const Airport&) const = default;
};

/// A row of 気象略語 or 日本語解析.
struct DictionaryEntry {
  QString abbreviation; ///< 略語
  QString meaning;      ///< 意味
  bool operator==(const DictionaryEntry&) const = default;
};

/// A row of カンパニー.
struct Group {
  QString id;    ///< what is typed and shown
  QString route; ///< the code list
  bool operator==(const Group&) const = default;
};

} // namespace soran
