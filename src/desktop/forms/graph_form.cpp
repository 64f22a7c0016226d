// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/graph_form.h"

#include "base/text.h"
#include "desktop/services/print_page.h"
#include "desktop/widgets/drawing_view.h"
#include "desktop/widgets/look.h"
#include "pictures/meteogram_drawing.h"
#include "runs/meteogram_run.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QHelpEvent>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QSvgGenerator>
#include <QTableWidget>
#include <QToolTip>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr QSizeF fileSize(1200, 700);
constexpr QSizeF smallestPicture(700, 440); // a smaller view shows it smaller
constexpr int pictureHeight = 520;
constexpr int tableHeight = 150;

QTableWidgetItem* cellOf(const QString& heading, const QString& text) {
  auto* item = new QTableWidgetItem(text);
  item->setData(Qt::AccessibleTextRole, QString(heading + u' ' + text));
  return item;
}

} // namespace

GraphForm::GraphForm(QWidget* parent, Terminal& terminal)
    : QDialog(parent), terminal_(terminal), code_(new QLineEdit), view_(new DrawingView),
      table_(new QTableWidget) {
  setObjectName(u"graph"_s);
  setWindowTitle(u" 気象グラフ"_s);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  lay();
  connect(view_, &DrawingView::resized, this, &GraphForm::draw);
  connect(code_, &QLineEdit::returnPressed, this, [this] {
    const QString code = asciiUpper(code_->text().trimmed());
    code_->selectAll();
    if (code.size() == 4 && isCodeList(code))
      setStation(StationCode(code));
  });
}

void GraphForm::lay() {
  const Settings& settings = terminal_.program().settings();
  const Colour ground = settings[key::表示領域の色].value_or(black);
  const Colour text = settings[key::表示文字の色].value_or(white);
  view_->setGround(Ground(terminal_.program().record()));
  view_->setAccessibleName(u"気象グラフ"_s);
  view_->setAccessibleDescription(u"同じ値が下の表にあります"_s);
  view_->installEventFilter(this);
  table_->setAccessibleName(u"時刻ごとの値"_s);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setTabKeyNavigation(false);
  table_->verticalHeader()->hide();
  table_->setShowGrid(false);
  table_->setFont(terminalFont(settings[key::表示文字のフォント].value_or(QString()), 10));
  table_->verticalHeader()->setMinimumSectionSize(1);
  table_->verticalHeader()->setDefaultSectionSize(QFontMetrics(table_->font()).height());
  paintLikeScreen(*table_, ground, text);
  auto* panes = new QSplitter(Qt::Vertical);
  panes->addWidget(view_);
  panes->addWidget(table_);
  panes->setStretchFactor(0, 1);
  panes->setSizes({pictureHeight, tableHeight});
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(4, 4, 4, 4);
  all->addWidget(makeBar());
  all->addWidget(panes, 1);
  resize(QSize(1180, 690).boundedTo(screen()->availableSize()));
}

QWidget* GraphForm::makeBar() {
  auto* widget = new QWidget;
  auto* bar = new QHBoxLayout(widget);
  bar->setContentsMargins(0, 0, 0, 0);
  auto* label = new QLabel(u"飛行場(&C)"_s);
  label->setBuddy(code_);
  code_->setMaxLength(4);
  code_->setMaximumWidth(90);
  code_->setAccessibleName(u"飛行場コード"_s);
  bar->addWidget(label);
  bar->addWidget(code_);
  bar->addStretch(1);
  const auto add = [&](const QString& caption, const QString& tip, auto action) {
    connect(addBarButton(*bar, caption, tip), &QPushButton::clicked, this, action);
  };
  add(u"更新(&R)"_s, u"通報を取り直して描く"_s, &GraphForm::load);
  add(u"保存(&S)"_s, u"画像 (PNG または SVG) として保存"_s, &GraphForm::save);
  add(u"印刷(&P)"_s, u"1ページに印刷"_s, &GraphForm::printByButton);
  return widget;
}

void GraphForm::setStation(const StationCode& code) {
  meteogram_ = {.code = code};
  code_->setText(code.text());
  load();
}

void GraphForm::load() {
  if (loading_ || meteogram_.code.text().size() != 4)
    return;
  loading_ = true;
  const QPointer<GraphForm> self(this);
  const QString title = u" 気象グラフ "_s + meteogram_.code.text();
  setWindowTitle(title + u" - 取得中"_s);
  terminal_.guarded([&] {
    Meteogram meteogram = gatherMeteogram(terminal_.program(), meteogram_.code);
    if (!self || meteogram.code != meteogram_.code)
      return;
    meteogram_ = std::move(meteogram);
    draw();
    fillTable();
    table_->setFocus();
  });
  if (!self)
    return;
  loading_ = false;
  setWindowTitle(title);
}

Drawing GraphForm::drawn(QSizeF size) const {
  return meteogramDrawing(meteogram_, terminal_.program().record(), size.width(), size.height());
}

void GraphForm::draw() {
  if (meteogram_.from.isValid())
    view_->showDrawing(drawn(QSizeF(view_->size()).expandedTo(smallestPicture)));
}

void GraphForm::fillTable() {
  QStringList headings;
  for (const QStringView heading : meteogramHeadings)
    headings += heading.toString();
  const std::vector<MeteogramRow> rows = meteogramRows(meteogram_, terminal_.program().record());
  table_->setColumnCount(int(headings.size()));
  table_->setHorizontalHeaderLabels(headings);
  table_->setRowCount(int(rows.size()));
  int now = 0;
  for (int row = 0; row < int(rows.size()); ++row) {
    const MeteogramRow& told = rows[size_t(row)];
    const QStringList cells = QStringList{told.time, told.kind} + told.words;
    for (int column = 0; column < int(cells.size()); ++column)
      table_->setItem(row, column, cellOf(headings[column], cells[column]));
    now = told.kind == u"METAR" ? row : now;
  }
  table_->resizeColumnsToContents();
  if (!rows.empty()) {
    table_->selectRow(now);
    table_->scrollToItem(table_->item(now, 0), QAbstractItemView::PositionAtCenter);
  }
}

bool GraphForm::writeTo(const QString& path) const {
  constexpr double scale = 2;
  const Ground ground(terminal_.program().record());
  if (path.endsWith(u".svg", Qt::CaseInsensitive)) {
    QSvgGenerator svg;
    svg.setFileName(path);
    svg.setViewBox(QRectF(QPointF(), fileSize));
    svg.setSize(fileSize.toSize());
    svg.setTitle(meteogram_.code.text());
    QPainter painter;
    if (!painter.begin(&svg))
      return false;
    painter.fillRect(QRectF(QPointF(), fileSize), ground.colour);
    paintDrawing(painter, drawn(fileSize), ground);
    return painter.end();
  }
  QImage image((fileSize * scale).toSize(), QImage::Format_RGB32);
  image.fill(ground.colour);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(scale, scale);
  paintDrawing(painter, drawn(fileSize), ground);
  return painter.end() && image.save(path, "PNG");
}

void GraphForm::save() {
  terminal_.guarded([this] {
    Dialogs& dialogs = terminal_.program().services.dialogs;
    const QPointer<GraphForm> self(this);
    const QString suggestion =
        meteogram_.code.text() + u'-' + meteogram_.now.toString(u"yyyyMMdd-HHmm"_s) + u".png";
    std::optional<QString> path = dialogs.saveFile(u" 気象グラフの保存"_s, suggestion);
    if (!self || !path)
      return;
    if (!path->endsWith(u".svg", Qt::CaseInsensitive) && !path->endsWith(u".png", Qt::CaseInsensitive))
      *path += u".png";
    if (!mayWriteOver(dialogs, *path) || !self)
      return;
    if (!writeTo(*path))
      dialogs.message(u" 確認"_s, u"保存できませんでした　　"_s);
  });
}

bool GraphForm::print(QPrinter& printer) const {
  layLandscape(printer);
  QPainter painter;
  if (!painter.begin(&printer))
    return false;
  const QRectF page(painter.viewport());
  const double scale = std::min(page.width() / fileSize.width(), page.height() / fileSize.height());
  painter.scale(scale, scale);
  paintDrawing(painter, drawn(fileSize), Ground::White);
  return painter.end();
}

void GraphForm::printByButton() {
  terminal_.guarded([this] {
    Program& program = terminal_.program();
    const QPointer<GraphForm> self(this);
    const std::optional<QString> name = printerForPage(program);
    if (!self || !name)
      return;
    QPrinter printer(QPrinter::HighResolution);
    setUpPrinter(printer, *name);
    if (!print(printer))
      program.services.dialogs.message(u" 確認"_s, u"印刷できませんでした　　"_s);
  });
}

bool GraphForm::eventFilter(QObject* watched, QEvent* event) {
  if (watched != view_ || event->type() != QEvent::ToolTip || !meteogram_.from.isValid())
    return QDialog::eventFilter(watched, event);
  const auto* help = static_cast<QHelpEvent*>(event);
  // As the view does, in the middle and as large as it fits.
  const Drawing& drawing = view_->drawing();
  const double scale = std::min(view_->width() / drawing.width, view_->height() / drawing.height);
  const double x = (help->pos().x() - (view_->width() - drawing.width * scale) / 2) / scale;
  const QDateTime time = timeAt(meteogram_, x, drawing.width);
  QToolTip::showText(help->globalPos(), time.isValid() ? noteAt(meteogram_, time) : QString(), view_);
  return true;
}

} // namespace soran
