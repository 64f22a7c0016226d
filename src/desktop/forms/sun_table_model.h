// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sun/sun_time_model.h"

#include <QAbstractTableModel>

namespace soran {

/// The grid of the form `suntime` for a view: days are rows, months two columns and a gap; the grid's own
/// first row and column are the headers.
class SunTableModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  /// `model` outlives the object.
  SunTableModel(const SunTimeModel& model, QObject* parent) : QAbstractTableModel(parent), model_(model) {}

  /// The table has changed.
  void renew();
  /// Today's cell in the view's count.
  QModelIndex today() const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const SunTimeModel& model_;
};

} // namespace soran
