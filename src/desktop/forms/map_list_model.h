// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/widgets/drawing_painter.h"
#include "pictures/map_drawing.h"

#include <QAbstractListModel>

namespace soran {

/// The airports of a map, a line each: state, code, name, alarm, and that the position is not known.
class MapListModel : public QAbstractListModel {
  Q_OBJECT
 public:
  using QAbstractListModel::QAbstractListModel;

  /// Shows these, in their order and in the colours of the limits. Lines that stay the same stay as they are.
  void show(const std::vector<MapStation>& stations, const Ground& ground);

  QString codeAt(int row) const { return lines_[size_t(row)].code; }
  /// -1 where it is not shown.
  int rowOf(const QString& code) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  struct Line {
    QString code;
    QString text;
    QString spoken;
    QColor colour;

    bool operator==(const Line&) const = default;
  };
  std::vector<Line> lines_;
};

} // namespace soran
