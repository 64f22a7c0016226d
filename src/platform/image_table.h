// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <functional>
#include <utility>
#include <vector>

namespace soran {

/// Where one picture, document or page is had: a section of a table file. An address form is an address in
/// which {yyyy}, {MM}, {dd}, {HH} and {mm} stand for a time and {name} for a name that a list tells.
struct ImageRow {
  enum class Kind { Picture, Pdf, Page };

  QString key = {}; ///< name of the menu item, with "." and its index where this is for one of several
  Kind kind = Kind::Picture;
  QStringList layers = {}; ///< address forms; several pictures are drawn over one another in this order
  QString list = {};       ///< address of a JSON or a page that tells {name}; empty where none is needed
  QString path = {};       ///< where a JSON has the name: near.now[0], or near.now[max] for the greatest text
  QString pattern = {};    ///< what the name in a page looks like, * standing for characters of an address
  bool japanTime = false;  ///< times are those of Japan, else UTC
  int step = 0;            ///< minutes from one picture to the next, from midnight; 0 for no time
  int offset = 0;          ///< minutes behind its time at which a picture can be asked for
  int back = 0;            ///< steps to walk back at most until there is a picture
  int period = 0;          ///< minutes between two issues; 0 for unknown
  QString from = {};       ///< who serves it
  bool account = false;    ///< it asks for an account
  QString reason = {};     ///< why there is nothing to ask; empty where there is

  bool operator==(const ImageRow&) const = default;

  bool isAvailable() const { return reason.isEmpty(); }
  /// The addresses tell the day of a picture, and so its whole time.
  bool tellsDay() const;
};

/// The rows of table files.
struct ImageTable {
  std::vector<ImageRow> rows = {}; ///< in the order in which they were first told
  QStringList faults = {};         ///< file, line and fault of each row that cannot be used, in words

  /// The row of an item, or the one for all items of its name; null where there is none. `index` is negative
  /// for an item alone.
  const ImageRow* find(const QString& menu, int index) const;

  /// Rows of `other` go before those of the same key.
  void overrideBy(const ImageTable& other);
};

/// A table of which the parts are read when it is first asked for: a run that shows no picture needs none.
class LateImageTable {
 public:
  LateImageTable() = default;
  LateImageTable(ImageTable table) : table_(std::move(table)) {} // NOLINT(google-explicit-constructor)

  /// Rows of what `read` gives go before those of the same key.
  void overrideBy(std::function<ImageTable()> read) { unread_.push_back(std::move(read)); }

  const ImageTable& operator*() const;
  const ImageTable* operator->() const { return &**this; }

 private:
  mutable ImageTable table_;
  mutable std::vector<std::function<ImageTable()>> unread_;
};

/// Reads a table: sections [key] with lines name=value, comments behind ";" at the begin of a line. A row
/// with a fault is there with the fault for its reason, so that nothing else is asked in its place.
ImageTable readImageTable(const QByteArray& bytes, const QString& file);

/// The times whose pictures are to be asked for, the newest first, in UTC; one that says nothing where the
/// row has no step.
std::vector<QDateTime> imageTimes(const ImageRow& row, const QDateTime& now);

/// An address form of the row, filled; an invalid address where the name leads to another server than the
/// form or its list, as a list decides only about names.
QUrl imageAddress(const ImageRow& row, const QString& form, const QDateTime& time, const QString& name = {});

} // namespace soran
