// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/log_form.h"

#include "desktop/widgets/look.h"
#include "ui_log_form.h"

#include <QHeaderView>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

// Reports stand in black in the log, so its ground is a light one, dimmed for the night.
constexpr Colour logGround = colourOf(0xE4, 0xE8, 0xE6);

} // namespace

LogForm::LogForm(QWidget* parent, const RunningLog& log, std::function<Colour()> speciColour)
    : QDialog(parent), ui_(std::make_unique<Ui::LogForm>()) {
  ui_->setupUi(this);
  QTableView& grid = *ui_->grid;
  paintLikeScreen(grid, logGround, black);
  grid.setModel(new LogModel(log, std::move(speciColour), &grid));
  const QFontMetrics metrics = grid.fontMetrics();
  grid.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  grid.verticalHeader()->setDefaultSectionSize(metrics.height() * 3 / 2);
  grid.horizontalHeader()->setHighlightSections(false);
  const int padding = metrics.averageCharWidth() * 3;
  grid.setColumnWidth(0, metrics.horizontalAdvance(u"0000/00/00"_s) + padding);
  grid.setColumnWidth(1, metrics.horizontalAdvance(u"00:00:00"_s) + padding);
  connect(grid.model(), &QAbstractItemModel::modelReset, &grid, &QTableView::scrollToTop);
}

LogForm::~LogForm() = default;

} // namespace soran
