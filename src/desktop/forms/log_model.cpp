// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/log_model.h"

#include "desktop/widgets/look.h"

#include <array>

namespace soran {

namespace {

constexpr std::array<QStringView, 3> headings = {u"日付", u"時刻", u"通信内容"};

} // namespace

LogModel::LogModel(const RunningLog& log, std::function<Colour()> speciColour, QObject* parent)
    : QAbstractTableModel(parent), log_(log), speciColour_(std::move(speciColour)) {
  // A new entry moves all rows and may drop the last.
  connect(&log, &RunningLog::changed, this, [this] {
    beginResetModel();
    endResetModel();
  });
}

int LogModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(log_.rows().size());
}

int LogModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(headings.size());
}

QVariant LogModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid())
    return {};
  const LogRow& row = log_.rows()[static_cast<size_t>(index.row())];
  if (role == Qt::ForegroundRole)
    return toQColor(RunningLog::colourOf(row, speciColour_()));
  if (role != Qt::DisplayRole)
    return {};
  const std::array<const QString*, headings.size()> cells = {&row.date, &row.time, &row.message};
  return *cells[static_cast<size_t>(index.column())];
}

QVariant LogModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical)
    return {};
  if (role == Qt::TextAlignmentRole)
    return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
  if (role != Qt::DisplayRole)
    return {};
  return headings[static_cast<size_t>(section)].toString();
}

} // namespace soran
