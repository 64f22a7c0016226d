// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "screen/running_log.h"

#include <QAbstractTableModel>
#include <functional>

namespace soran {

/// The running log as a table of date, time and message, the newest row on top.
class LogModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  /// `speciColour` tells the colour of special reports at present. The log outlives the model's use.
  LogModel(const RunningLog& log, std::function<Colour()> speciColour, QObject* parent);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const RunningLog& log_;
  std::function<Colour()> speciColour_;
};

} // namespace soran
