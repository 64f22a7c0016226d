// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/suntime_form.h"

#include "desktop/forms/sun_table_model.h"
#include "desktop/services/print_page.h"
#include "desktop/widgets/sun_graph_view.h"
#include "sun/sun_grid.h"
#include "ui_suntime_form.h"

#include <QHeaderView>
#include <QPainter>
#include <QPointer>
#include <QPrinter>
#include <QScreen>
#include <QTabBar>
#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr int twipsPerPixel = 15;
constexpr double twipsPerInch = 1440;
constexpr double screenDots = 96;

/// Draws one text of the page, smaller where it would run over the right edge.
void drawFitting(QPainter& painter, const SunPrintText& text, const QRectF& page, double scale) {
  QFont font(proportionalFamily(), text.pointSize);
  font.setBold(text.bold);
  const double room = page.width() - text.x * scale;
  const double needed = QFontMetricsF(font, painter.device()).horizontalAdvance(text.text);
  const bool isRule = text.text.startsWith(u"--");
  if (needed > room && !isRule)
    font.setPointSizeF(text.pointSize * room / needed * 0.98);
  // Times stand close; where the font's figures are wide they would run into one another.
  constexpr double timeWidth = 380;
  constexpr qsizetype timeLength = 4;
  constexpr int percent = 100;
  if (text.text.size() == timeLength && needed > timeWidth * scale)
    font.setStretch(static_cast<int>(timeWidth * scale / needed * percent));
  painter.setFont(font);
  painter.drawText(QPointF(text.x * scale, text.y * scale + painter.fontMetrics().ascent()), text.text);
}

} // namespace

SunTimeForm::SunTimeForm(QWidget* parent, Terminal& terminal)
    : QDialog(parent), terminal_(terminal),
      model_(terminal.program().tables.airportRows(), terminal.program().services.clock.now().date()),
      ui_(std::make_unique<Ui::SunTimeForm>()) {
  ui_->setupUi(this);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  table_ = new SunTableModel(model_, ui_->grid);
  ui_->grid->setModel(table_);
  ui_->cmb0->addItems(model_.fields());
  for (const int year : model_.years())
    ui_->cmb1->addItem(QString::number(year));
  ui_->cmb1->setCurrentIndex(sunCurrentYearIndex);
  fitColumns();
  const auto guardedSelect = [this] { terminal_.guarded([this] { select(); }); };
  connect(ui_->cmb0, &QComboBox::currentIndexChanged, this, guardedSelect);
  connect(ui_->cmb1, &QComboBox::currentIndexChanged, this, guardedSelect);
  connect(ui_->SSTab, &QTabWidget::currentChanged, this, &SunTimeForm::showTab);
  connect(ui_->cmd0, &QPushButton::clicked, this, [this] { terminal_.guarded([this] { printByButton(); }); });
  connect(ui_->cmd1, &QPushButton::clicked, this, &QDialog::close);
  model_.select(ui_->cmb0->currentText(), ui_->cmb1->currentText().toInt());
  showTable();
  showTab();
}

SunTimeForm::~SunTimeForm() = default;

void SunTimeForm::fitColumns() {
  QTableView& grid = *ui_->grid;
  const QFontMetrics metrics = grid.fontMetrics();
  const int padding = metrics.averageCharWidth();
  const auto widthOf = [&](int column, const QString& text) {
    return std::max(sunGridWidth(column) / twipsPerPixel, metrics.horizontalAdvance(text) + padding);
  };
  for (QHeaderView* header : {grid.horizontalHeader(), grid.verticalHeader()}) {
    header->setMinimumSectionSize(1);
    header->setSectionResizeMode(QHeaderView::Fixed);
    header->setHighlightSections(false);
  }
  grid.verticalHeader()->setDefaultSectionSize(metrics.height() * 5 / 4);
  grid.verticalHeader()->setFixedWidth(widthOf(0, u"00"_s) + padding);
  int width = grid.verticalHeader()->width();
  for (int column = 1; column < sunGridColumns; ++column) {
    const int columnWidth = column % 3 == 0 ? 1 : widthOf(column, u"0000"_s);
    grid.setColumnWidth(column - 1, columnWidth);
    width += columnWidth;
  }
  const int height = (sunGridRows - 1) * grid.verticalHeader()->defaultSectionSize() +
                     grid.horizontalHeader()->sizeHint().height();
  grid.setMinimumSize(width / 2, height / 3);
  // The whole year is seen at once where the screen has room for it.
  constexpr int frame = 8;
  const QMargins margins = layout()->contentsMargins();
  const int above =
      ui_->cmd0->sizeHint().height() + layout()->spacing() + ui_->SSTab->tabBar()->sizeHint().height();
  const QSize whole(width + frame + margins.left() + margins.right(),
                    height + frame + above + margins.top() + margins.bottom());
  resize(whole.boundedTo(screen()->availableSize() * 19 / 20));
}

void SunTimeForm::select() {
  const SunTimeModel::Outcome outcome =
      model_.select(ui_->cmb0->currentText(), ui_->cmb1->currentText().toInt());
  showTable();
  if (outcome == SunTimeModel::Outcome::NoPosition)
    terminal_.program().services.dialogs.message(SunTimeModel::notFoundTitle.toString(),
                                                 SunTimeModel::notFoundText.toString());
}

void SunTimeForm::showTable() {
  const SunTable& table = model_.table();
  table_->renew();
  ui_->Picture1->showGraph(model_.graph(), ui_->cmb1->currentText().toInt());
  const auto shown = [&](QStringView head, const QString& value) {
    return table.valid ? head + value : QString();
  };
  ui_->lbl0->setText(table.code);
  ui_->lbl1->setText(table.latitude);
  ui_->lbl2->setText(table.longitude);
  ui_->lbl3->setText(shown(u"ELV ", table.elevation));
  ui_->lbl4->setText(shown(u"⊿H ", table.deltaH));
  ui_->cmd0->setEnabled(model_.printEnabled());
  if (model_.todayLineShown()) {
    ui_->grid->setCurrentIndex(table_->today());
    ui_->grid->scrollTo(table_->today());
  }
}

void SunTimeForm::showTab() {
  const bool graph = ui_->SSTab->currentIndex() == 1;
  if (model_.showTab(graph ? SunTimeModel::Tab::Graph : SunTimeModel::Tab::Table))
    ui_->Picture1->update();
  if (!graph && model_.todayLineShown())
    ui_->grid->scrollTo(table_->today());
}

bool SunTimeForm::print(QPrinter& printer) {
  layLandscape(printer);
  QPainter painter;
  if (!painter.begin(&printer))
    return false;
  const QRectF page(QPointF(0, 0), printer.pageLayout().paintRectPixels(printer.resolution()).size());
  const double scale = printer.resolution() / twipsPerInch;
  painter.setClipRect(page);
  const QList<SunPrintText> texts = model_.printPage();
  if (ui_->SSTab->currentIndex() == 0) {
    for (const SunPrintText& text : texts)
      drawFitting(painter, text, page, scale);
    return painter.end();
  }
  constexpr double titleRoom = 600;
  drawFitting(painter, texts.first(), page, scale);
  paintSunGraph(painter, page.adjusted(0, titleRoom * scale, 0, 0), printer.resolution() / screenDots,
                model_.graph(), model_.table().year);
  return painter.end();
}

void SunTimeForm::printByButton() {
  Program& program = terminal_.program();
  const QPointer<SunTimeForm> self(this);
  const std::optional<QString> chosen = printerForPage(program);
  if (!self || !chosen)
    return;
  const QString caption = ui_->cmd0->text();
  ui_->cmd0->setText(u"印刷中"_s);
  ui_->cmd0->repaint();
  QPrinter printer(QPrinter::HighResolution);
  setUpPrinter(printer, *chosen);
  const bool done = print(printer);
  ui_->cmd0->setText(caption);
  program.console.addLogEntry(done ? u"PRINT COMPLETED"_s : u"CANCEL PRINT COMMAND"_s);
}

} // namespace soran
