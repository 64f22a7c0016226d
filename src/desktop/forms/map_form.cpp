// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/map_form.h"

#include "desktop/forms/map_list_model.h"
#include "desktop/forms/report_pane.h"
#include "desktop/widgets/coloured_rows.h"
#include "desktop/widgets/look.h"
#include "desktop/widgets/map_view.h"
#include "runs/night_desk.h"
#include "runs/station_map.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr int refreshEveryMilliseconds = 1000;
constexpr double zoomOfAButton = 1.5;

QSplitter* split(Qt::Orientation orientation, QWidget* first, QWidget* second, const QList<int>& sizes) {
  auto* panes = new QSplitter(orientation);
  panes->addWidget(first);
  panes->addWidget(second);
  panes->setStretchFactor(0, sizes[0]);
  panes->setStretchFactor(1, sizes[1]);
  panes->setSizes(sizes);
  panes->setChildrenCollapsible(false);
  return panes;
}

} // namespace

MapForm::MapForm(QWidget* parent, Terminal& terminal, const QString& group)
    : QDialog(parent), terminal_(terminal), group_(group), ground_(terminal.program().record()),
      view_(new MapView(ground_, Coast::read(terminal.program().services.coast()).value_or(Coast()))),
      model_(new MapListModel(this)), list_(new QListView), report_(new ReportPane), summary_(new QLabel) {
  setObjectName(u"map"_s);
  setWindowTitle(u" 地図"_s);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  lay();
  connectControls();
}

void MapForm::lay() {
  const Settings& settings = terminal_.program().settings();
  const QFont font = terminalFont(settings[key::表示文字のフォント].value_or(QString()),
                                  settings[key::表示文字のサイズ].value_or(11));
  view_->setAccessibleName(u"地図"_s);
  view_->setAccessibleDescription(
      u"矢印キーで移動、プラスとマイナスで拡大と縮小、Homeで全体、Enterで中央に近い飛行場の通報"_s);
  list_->setModel(model_);
  list_->setItemDelegate(new ColouredRows(list_));
  list_->setUniformItemSizes(true);
  list_->setAccessibleName(u"飛行場の一覧"_s);
  for (QWidget* pane : std::initializer_list<QWidget*>{list_, report_}) {
    paintLikeScreen(*pane, settings[key::表示領域の色].value_or(black),
                    settings[key::表示文字の色].value_or(white));
    pane->setFont(font);
  }
  auto* all = new QVBoxLayout(this);
  QWidget* bar = makeBar();
  all->setContentsMargins(4, 4, 4, 4);
  all->addWidget(bar);
  all->addWidget(split(Qt::Vertical, split(Qt::Horizontal, view_, list_, {920, 320}), report_, {540, 100}),
                 1);
  setTabOrder(view_, list_);
  setTabOrder(list_, report_);
  resize(QSize(1240, 680).boundedTo(screen()->availableSize()));
}

QWidget* MapForm::makeBar() {
  auto* widget = new QWidget;
  auto* bar = new QHBoxLayout(widget);
  bar->setContentsMargins(0, 0, 0, 0);
  bar->addWidget(summary_, 1);
  connect(addBarButton(*bar, u"拡大(+)"_s, u"地図を拡大"_s), &QPushButton::clicked, this,
          [this] { view_->zoom(zoomOfAButton); });
  connect(addBarButton(*bar, u"縮小(-)"_s, u"地図を縮小"_s), &QPushButton::clicked, this,
          [this] { view_->zoom(1 / zoomOfAButton); });
  connect(addBarButton(*bar, u"全体(Home)"_s, u"すべての飛行場を表示"_s), &QPushButton::clicked, this,
          [this] { view_->showAll(); });
  return widget;
}

void MapForm::connectControls() {
  timer_ = terminal_.program().services.timers.make([this] { refresh(); });
  timer_->setInterval(refreshEveryMilliseconds);
  connect(view_, &MapView::chosen, this, &MapForm::choose);
  connect(list_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& current) {
            if (current.isValid() && model_->codeAt(current.row()) != chosen_)
              chooseInList(current.row());
          });
  list_->installEventFilter(this);
  const auto choose = [this](const QModelIndex& index) { chooseInList(index.row()); };
  connect(list_, &QListView::clicked, this, choose);
  connect(list_, &QListView::activated, this, choose);
}

void MapForm::setGroup(const QString& group) {
  group_ = group;
  refresh();
  view_->showAll();
}

void MapForm::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  terminal_.program().desk.showsBoard = true;
  ground_ = Ground(terminal_.program().record());
  view_->setGround(ground_);
  refresh();
  view_->showAll();
  timer_->setEnabled(true);
  if (chosen_.isEmpty() && model_->rowCount() > 0)
    choose(model_->codeAt(0));
  view_->setFocus();
}

void MapForm::refresh() {
  if (!isVisible()) {
    timer_->setEnabled(false);
    return;
  }
  terminal_.guarded([this] {
    Program& program = terminal_.program();
    std::vector<MapStation> stations =
        mapStations(program, boardCodes(program, group_).value_or(QStringList()));
    showSummary(qsizetype(stations.size()),
                std::ranges::count_if(stations, [](const auto& station) { return bool(station.position); }));
    model_->show(stations, ground_);
    // A list that was made anew has lost its place.
    const int row = model_->rowOf(chosen_);
    if (row < 0)
      chosen_.clear();
    else if (list_->currentIndex().row() != row)
      choose(chosen_);
    view_->showContent({std::move(stations), program.desk.sigmets.sigmets.value_or(QList<Sigmet>()),
                        program.services.clock.now().toUTC()});
    showReport();
  });
}

void MapForm::showSummary(qsizetype count, qsizetype placed) {
  const std::optional<QList<Sigmet>>& sigmets = terminal_.program().desk.sigmets.sigmets;
  const QString name = group_.isEmpty() ? u"自動デコードリスト"_s : group_;
  const QString unplaced = placed < count ? u"   位置不明 "_s + QString::number(count - placed) : QString();
  summary_->setText(name + u"  " + QString::number(count) + u" 空港" + unplaced + u"   福岡FIR SIGMET " +
                    (sigmets ? QString::number(sigmets->size()) : u"不明"_s));
}

void MapForm::showReport() {
  report_->showReports(terminal_.program(), chosen_);
}

/// Chosen on the map, which stays where it is.
void MapForm::choose(const QString& code) {
  chosen_ = code;
  view_->choose(code);
  list_->setCurrentIndex(model_->index(model_->rowOf(code)));
  showReport();
}

void MapForm::chooseInList(int row) {
  chosen_ = model_->codeAt(row);
  view_->choose(chosen_);
  view_->centreOnChosen();
  showReport();
}

/// The map is larger and smaller by the same keys while the list has them.
bool MapForm::eventFilter(QObject* watched, QEvent* event) {
  return (watched == list_ && event->type() == QEvent::KeyPress &&
          view_->zoomByKey(static_cast<QKeyEvent*>(event)->key())) ||
         QDialog::eventFilter(watched, event);
}

void MapForm::keyPressEvent(QKeyEvent* event) {
  const bool leavesFullScreen = event->key() == Qt::Key_Escape && isFullScreen();
  if (event->key() == Qt::Key_F11 || leavesFullScreen)
    setWindowState(windowState() ^ Qt::WindowFullScreen);
  else
    QDialog::keyPressEvent(event);
}

} // namespace soran
