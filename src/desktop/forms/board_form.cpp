// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/board_form.h"

#include "desktop/forms/board_model.h"
#include "desktop/forms/report_pane.h"
#include "desktop/services/board_print.h"
#include "desktop/widgets/coloured_rows.h"
#include "desktop/widgets/drawing_painter.h"
#include "desktop/widgets/look.h"
#include "pictures/meteogram_drawing.h"
#include "runs/desk_record.h"
#include "runs/meteogram_run.h"
#include "runs/night_desk.h"
#include "terminal/actions.h"
#include "terminal/desk_commands.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QTableView>
#include <QToolTip>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr int refreshMilliseconds = 1000;
// Thirty airports, and a report of a few lines.
constexpr int tableHeight = 540;
constexpr int reportHeight = 100;

bool matches(const BoardRow& row, const QString& filter) {
  return row.code.text().contains(filter, Qt::CaseInsensitive) || row.name.contains(filter) ||
         stateWord(row).contains(filter, Qt::CaseInsensitive);
}

} // namespace

BoardForm::BoardForm(QWidget* parent, Terminal& terminal, const QString& group)
    : QDialog(parent), terminal_(terminal), group_(group), model_(new BoardModel(this)),
      table_(new QTableView), report_(new ReportPane), filter_(new QLineEdit),
      worstFirst_(new QCheckBox(u"悪い順(&W)"_s)), summary_(new QLabel) {
  setObjectName(u"board"_s);
  setWindowTitle(u" 監視ボード"_s);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  lay();
  connectControls();
}

void BoardForm::lay() {
  const Settings& settings = terminal_.program().settings();
  const Colour ground = settings[key::表示領域の色].value_or(black);
  const Colour text = settings[key::表示文字の色].value_or(white);
  const QFont font = terminalFont(settings[key::表示文字のフォント].value_or(QString()),
                                  settings[key::表示文字のサイズ].value_or(11));
  table_->setModel(model_);
  table_->setItemDelegate(new ColouredRows(table_));
  table_->setAccessibleName(u"監視ボード"_s);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setShowGrid(false);
  table_->setTabKeyNavigation(false);
  table_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  table_->setWordWrap(false);
  table_->installEventFilter(this);
  table_->viewport()->installEventFilter(this);
  table_->verticalHeader()->hide();
  table_->horizontalHeader()->setHighlightSections(false);
  for (QWidget* pane : std::initializer_list<QWidget*>{table_, report_}) {
    paintLikeScreen(*pane, ground, text);
    pane->setFont(font);
  }
  table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table_->verticalHeader()->setMinimumSectionSize(1);
  table_->verticalHeader()->setDefaultSectionSize(QFontMetrics(font).height());
  auto* panes = new QSplitter(Qt::Vertical);
  panes->addWidget(table_);
  panes->addWidget(report_);
  panes->setStretchFactor(0, 1);
  panes->setStretchFactor(1, 0);
  panes->setSizes({tableHeight, reportHeight});
  panes->setChildrenCollapsible(false);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(4, 4, 4, 4);
  all->addLayout(makeSummary());
  all->addLayout(makeButtons());
  all->addWidget(panes, 1);
  resize(QSize(1240, 680).boundedTo(screen()->availableSize()));
}

QLayout* BoardForm::makeSummary() {
  auto* bar = new QHBoxLayout;
  bar->addWidget(summary_, 1);
  auto* label = new QLabel(u"絞り込み(&F)"_s);
  label->setBuddy(filter_);
  bar->addWidget(label);
  filter_->setClearButtonEnabled(true);
  filter_->setFixedWidth(160);
  filter_->setToolTip(u" 飛行場コード、名称または状態 "_s);
  filter_->setAccessibleName(u"絞り込み"_s);
  bar->addWidget(filter_);
  worstFirst_->setChecked(true);
  bar->addWidget(worstFirst_);
  return bar;
}

QLayout* BoardForm::makeButtons() {
  auto* bar = new QHBoxLayout;
  const auto add = [&](const QString& caption, const QString& tip, auto action) {
    connect(addBarButton(*bar, caption, tip), &QPushButton::clicked, this, action);
  };
  bar->setSpacing(4);
  add(u"確認(&A)"_s, u"選択した飛行場のアラームを確認"_s, &BoardForm::acknowledgeChosen);
  add(u"すべて確認(&L)"_s, u"すべてのアラームを確認"_s, &BoardForm::acknowledgeAllAlarms);
  add(u"消音(&M)"_s, u"選択した飛行場を60分鳴らさない、または鳴らす"_s, &BoardForm::toggleMute);
  bar->addStretch(1);
  add(u"グラフ(&G)"_s, u"選択した飛行場の気象グラフ"_s, [this] {
    if (const auto code = chosen())
      terminal_.guarded([&] { showGraph(terminal_, code->text()); });
  });
  add(u"制限値(&T)"_s, u"空港別の制限値を編集"_s, [this] {
    terminal_.guarded([this] { action::limits(terminal_); });
    refresh();
  });
  add(u"印刷(&P)"_s, u"1ページに印刷"_s, &BoardForm::print);
  add(u"全画面(F11)"_s, u"全画面と元の大きさの切り替え"_s, &BoardForm::toggleFullScreen);
  return bar;
}

void BoardForm::showPicture(const QPoint& place, const QPoint& globalPlace) {
  const QModelIndex index = table_->indexAt(place);
  QString picture;
  if (index.isValid()) {
    const SettingsRecord settings = terminal_.program().record();
    const StationCode code = model_->rowAt(index.row()).code;
    picture = pictureTip(meteogramDrawing(knownMeteogram(terminal_.program(), code), settings, 640, 440),
                         Ground(settings));
  }
  QToolTip::showText(globalPlace, picture, table_);
}

void BoardForm::connectControls() {
  timer_ = terminal_.program().services.timers.make([this] { refresh(); });
  timer_->setInterval(refreshMilliseconds);
  connect(filter_, &QLineEdit::textChanged, this, &BoardForm::refresh);
  connect(worstFirst_, &QCheckBox::toggled, this, &BoardForm::refresh);
  connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &BoardForm::showReport);
  connect(model_, &QAbstractItemModel::modelReset, this, [this] { changed_ = true; });
  connect(model_, &QAbstractItemModel::dataChanged, this, [this] { changed_ = true; });
  connect(table_, &QTableView::doubleClicked, this, &BoardForm::acknowledgeChosen);
}

void BoardForm::setGroup(const QString& group) {
  group_ = group;
  refresh();
}

void BoardForm::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  Program& program = terminal_.program();
  program.desk.showsBoard = true;
  refresh();
  fitColumns();
  timer_->setEnabled(true);
  if (model_->rowCount() > 0 && !chosen())
    table_->selectRow(0);
  table_->setFocus();
}

std::vector<BoardRow> BoardForm::rowsToShow() {
  Program& program = terminal_.program();
  const std::optional<QStringList> codes = boardCodes(program, group_);
  std::vector<BoardRow> rows = boardRows(program, codes.value_or(QStringList()));
  showSummary(rows);
  const QString filter = filter_->text().trimmed();
  std::erase_if(rows, [&](const BoardRow& row) { return !matches(row, filter); });
  if (worstFirst_->isChecked())
    sortWorstFirst(rows);
  return rows;
}

void BoardForm::refresh() {
  if (!isVisible()) {
    timer_->setEnabled(false);
    return;
  }
  terminal_.guarded([this] {
    Program& program = terminal_.program();
    const std::optional<StationCode> code = chosen();
    model_->show(rowsToShow(), program.record(), program.services.clock.now().toUTC());
    if (code)
      choose(*code);
    if (!chosen() && model_->rowCount() > 0)
      table_->selectRow(0);
    if (std::exchange(changed_, false))
      fitColumns();
    showReport();
  });
}

void BoardForm::showSummary(const std::vector<BoardRow>& rows) {
  const auto count = [&](auto holds) { return QString::number(std::ranges::count_if(rows, holds)); };
  const QString name = group_.isEmpty() ? u"自動デコードリスト"_s : group_;
  const QString note = recordNote(terminal_.program());
  summary_->setText(name + u"  " + QString::number(rows.size()) + u" 空港  RING " +
                    count([](const BoardRow& row) { return row.alarm.state == AlarmState::Ringing; }) +
                    u"  L1-L3 " + count([](const BoardRow& row) { return row.level() > 0; }) + u"  OVERDUE " +
                    count([](const BoardRow& row) { return row.freshness == Freshness::Overdue; }) +
                    (note.isEmpty() ? QString() : u"  " + note));
}

void BoardForm::fitColumns() {
  for (int column = 0; column < boardColumnCount; ++column)
    table_->setColumnHidden(column, model_->isEmpty(column));
  table_->resizeColumnsToContents();
  const int character = table_->fontMetrics().averageCharWidth();
  for (int column = 0; column < boardColumnCount; ++column)
    table_->setColumnWidth(column, table_->columnWidth(column) + character);
  // A long name must not push the weather out of sight.
  constexpr int mostOfName = 24;
  const int name = int(BoardColumn::Name);
  table_->setColumnWidth(name, std::min(table_->columnWidth(name), mostOfName * character));
}

std::optional<StationCode> BoardForm::chosen() const {
  const QModelIndex current = table_->currentIndex();
  return current.isValid() ? std::optional(model_->rowAt(current.row()).code) : std::nullopt;
}

void BoardForm::choose(const StationCode& code) {
  const int row = model_->rowOf(code);
  if (row >= 0 && row != table_->currentIndex().row())
    table_->selectRow(row);
}

void BoardForm::showReport() {
  const std::optional<StationCode> code = chosen();
  report_->showReports(terminal_.program(), code ? code->text() : QString());
}

void BoardForm::acknowledgeChosen() {
  if (const auto code = chosen()) {
    acknowledge(terminal_.program(), *code);
    refresh();
  }
}

void BoardForm::acknowledgeAllAlarms() {
  acknowledgeText(terminal_.program(), u"ALL"_s);
  refresh();
}

void BoardForm::toggleMute() {
  if (const auto code = chosen()) {
    const bool muted = model_->rowAt(table_->currentIndex().row()).alarm.muted;
    muteText(terminal_.program(), code->text() + (muted ? u" OFF"_s : QString()));
    refresh();
  }
}

void BoardForm::toggleFullScreen() {
  setWindowState(windowState() ^ Qt::WindowFullScreen);
}

void BoardForm::print() {
  terminal_.guarded([this] {
    Program& program = terminal_.program();
    printBoard(program, rowsToShow(), group_);
  });
}

void BoardForm::keyPressEvent(QKeyEvent* event) {
  const bool leavesFullScreen = event->key() == Qt::Key_Escape && isFullScreen();
  if (event->key() == Qt::Key_F11 || leavesFullScreen)
    toggleFullScreen();
  else
    QDialog::keyPressEvent(event);
}

bool BoardForm::eventFilter(QObject* watched, QEvent* event) {
  if (watched == table_->viewport() && event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    showPicture(help->pos(), help->globalPos());
    return true;
  }
  if (watched == table_ && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
      acknowledgeChosen();
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

} // namespace soran
