// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/editor_grid.h"

#include <QHeaderView>

namespace soran {

namespace {

constexpr int shownRows = 14;
constexpr int shownCharacters = 56;

} // namespace

EditorModel::EditorModel(GridRows rows, const QStringList& headings, QObject* parent)
    : QAbstractTableModel(parent), rows_(std::move(rows)), headings_(headings), shownRows_(rows_.count()) {}

void EditorModel::refresh() {
  if (shownRows_ == rows_.count()) {
    if (shownRows_ > 0)
      emit dataChanged(index(0, 0), index(shownRows_ - 1, int(headings_.size()) - 1));
    return;
  }
  beginResetModel();
  shownRows_ = rows_.count();
  endResetModel();
}

int EditorModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : shownRows_;
}

int EditorModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : int(headings_.size());
}

QVariant EditorModel::data(const QModelIndex& index, int role) const {
  if ((role != Qt::DisplayRole && role != Qt::EditRole) || index.row() < 0 || index.row() >= rows_.count())
    return {};
  return rows_.text(index.row(), index.column());
}

QVariant EditorModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical)
    return {};
  if (role == Qt::TextAlignmentRole)
    return int(Qt::AlignLeft | Qt::AlignVCenter);
  return role == Qt::DisplayRole ? headings_.value(section) : QVariant();
}

Qt::ItemFlags EditorModel::flags(const QModelIndex& index) const {
  return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
}

EditorGrid::EditorGrid(QWidget* parent) : QTableView(parent) {
  setEditTriggers(NoEditTriggers);
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setWordWrap(false);
  setShowGrid(false);
  setTabKeyNavigation(false);
  setCornerButtonEnabled(false);
  setHorizontalScrollMode(ScrollPerPixel);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setStretchLastSection(true);
  horizontalHeader()->setHighlightSections(false);
  connect(this, &QTableView::pressed, this,
          [this](const QModelIndex& cell) { emit cellChosen(cell.row(), cell.column()); });
}

void EditorGrid::showList(const EditedList& list, const QStringList& headings, int firstColumn) {
  showRows({.count = [&list] { return list.count(); },
            .selected = [&list] { return list.selected(); },
            .text = [&list](int row,
                            int column) { return column == 0 ? list.at(row).first : list.at(row).second; }},
           headings, firstColumn);
}

void EditorGrid::showRows(GridRows rows, const QStringList& headings, int firstColumn) {
  selected_ = rows.selected;
  rows_ = new EditorModel(std::move(rows), headings, this);
  setModel(rows_);
  const QFontMetrics metrics = fontMetrics();
  const int height = metrics.height() * 3 / 2;
  verticalHeader()->setDefaultSectionSize(height);
  if (headings.size() > 1)
    setColumnWidth(0, metrics.horizontalAdvance(u'0') * firstColumn);
  setMinimumSize(metrics.horizontalAdvance(u'0') * (headings.size() > 1 ? shownCharacters : firstColumn),
                 height * shownRows);
}

void EditorGrid::mirror(int column) {
  mirroring_ = true;
  rows_->refresh();
  const int row = selected_();
  const QModelIndex cell = row >= 0 ? rows_->index(row, column) : QModelIndex();
  if (cell != currentIndex() || !selectionModel()->isSelected(cell))
    setCurrentIndex(cell);
  mirroring_ = false;
}

void EditorGrid::openCell() {
  scrollTo(currentIndex());
  if (state() != EditingState)
    edit(currentIndex());
}

QItemSelectionModel::SelectionFlags EditorGrid::selectionCommand(const QModelIndex& index,
                                                                 const QEvent* event) const {
  return index.isValid() ? QTableView::selectionCommand(index, event) : QItemSelectionModel::NoUpdate;
}

void EditorGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (!mirroring_ && current.isValid())
    emit cellChosen(current.row(), current.column());
}

} // namespace soran
