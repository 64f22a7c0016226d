// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/main_window.h"

#include "base/text.h"
#include "desktop/services/platform_abilities.h"
#include "desktop/services/report_alert.h"
#include "desktop/widgets/browser_frame.h"
#include "desktop/widgets/look.h"
#include "desktop/widgets/menu_mirror.h"
#include "desktop/widgets/noted_label.h"
#include "desktop/widgets/screen_view.h"
#include "desktop/widgets/start_banner.h"
#include "desktop/widgets/toolbar_frame.h"
#include "runs/headline_note.h"
#include "screen/untold_text.h"
#include "terminal/first_activation.h"
#include "ui_main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QKeyEvent>
#include <QMenu>
#include <QProgressBar>
#include <QScreen>
#include <QScrollBar>
#include <QSettings>
#include <QShortcut>
#include <QTimer>
#include <QWindow>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr int fewStations = 5;
constexpr QStringView placedKey = u"view/geometry";

/// Where the program does not place the window, it has no place worth keeping.
QString geometryKey() {
  return platformLetsPlaceWindows() ? placedKey.toString() : u"view/size"_s;
}

/// A field of the status bar.
NotedLabel* makePanel(const QString& name, const QString& description, QWidget* parent) {
  auto* panel = new NotedLabel(parent);
  panel->setObjectName(name);
  panel->setAccessibleDescription(description);
  panel->setTextFormat(Qt::PlainText);
  panel->setFrameStyle(QFrame::Panel | QFrame::Sunken);
  panel->setMargin(2);
  panel->setIndent(4);
  return panel;
}

} // namespace

MainWindow::MainWindow(View& view, bool demonstration)
    : view_(view), terminal_(view.terminal()), console_(terminal_.program().console),
      demonstration_(demonstration), ui_(std::make_unique<Ui::MainWindow>()) {
  ui_->setupUi(this);
  banner_ = new StartBanner(ui_->Form);
  banner_->hide();
  scrollBarCover_ = new QWidget(ui_->TextBox1);
  scrollBarCover_->setObjectName(u"TextBox2"_s);
  scrollBarCover_->setAccessibleName(u"スクロールバーの覆い"_s);
  popup_ = new QMenu(u"ポップアップ"_s, this);
  popup_->setObjectName(u"menu_popup"_s);
  popup_->setAccessibleName(u"ポップアップ"_s);
  if (demonstration_)
    setWindowTitle(windowTitle() + u" - " + demonstrationMark);
  alert_ = new ReportAlert(u"reportAlert"_s, this);
  for (ReportAlert*& alert : screenAlerts_)
    alert = new ReportAlert(u"screenAlert"_s, this);
  telling_ = new QTimer(this);
  ui_->imgGo->setIcon(facedIcon(u"imgGo0"_s, u"imgGo1"_s));
  drawFrameOf(*ui_->Line);
  makeStatusBar();
  connectTerminal();
  connectSpeech();
  connectPane();
  connectMenus();
  applyDisplaySettings();
  showPanels();
  showPane();
}

MainWindow::~MainWindow() = default;

ScreenView& MainWindow::screen() {
  return *ui_->TextBox0;
}
BrowserFrame& MainWindow::browser() {
  return *ui_->WebBrowser;
}
void MainWindow::makeStatusBar() {
  constexpr int progressWidth = 160;
  panel1_ = makePanel(u"Panel1"_s, u"ネットワークの状態"_s, this);
  panel2_ = makePanel(u"Panel2"_s, u"動作の状態"_s, this);
  panel1_->setMinimumWidth(panel1_->fontMetrics().horizontalAdvance(u"ネットワーク接続待機"_s) + 24);
  panel2_->setNote([this] { return watchNote(terminal_.program()); });
  panel2_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  progress_ = new QProgressBar(this);
  progress_->setObjectName(u"progress"_s);
  progress_->setAccessibleName(u"受信の進み"_s);
  progress_->setFixedWidth(progressWidth);
  progress_->setFormat(u"%v / %m"_s);
  progress_->hide();
  ui_->StatusBar->setContentsMargins(4, 0, 6, 2);
  ui_->StatusBar->addWidget(panel1_);
  ui_->StatusBar->addWidget(panel2_, 1);
  ui_->StatusBar->addPermanentWidget(progress_);
  if (demonstration_) {
    QLabel* mark = makePanel(u"demonstrationMark"_s, u"試験データの表示"_s, this);
    mark->setText(demonstrationMark.toString());
    paintLikeScreen(*mark, black, yellow);
    ui_->StatusBar->addPermanentWidget(mark);
  }
}

void MainWindow::connectTerminal() {
  ScreenView& screen = *ui_->TextBox0;
  screen.show(console_.screen());
  screen.setNotes([this](qsizetype at) { return headlineNote(terminal_.program(), at); });
  connect(&console_, &Console::inputChanged, this, &MainWindow::showInput);
  connect(&console_, &Console::busyChanged, this, &MainWindow::showBusy);
  connect(&console_, &Console::progress, this, &MainWindow::showProgress);
  connect(&console_, &Console::overlayChanged, this, &MainWindow::showBanner);
  connect(&console_, &Console::displaySettingsApplied, this, &MainWindow::applyDisplaySettings);
  connect(&console_.status(), &StatusBar::changed, this, &MainWindow::showPanels);
  connect(&screen, &ScreenView::keyTyped, this,
          [this](QChar key) { terminal_.guarded([&] { terminal_.handleKey(key); }); });
  connect(&screen, &ScreenView::selectionReleased, this, [this](QPoint mouse) {
    const auto [start, length] = ui_->TextBox0->selectedStretch();
    emit stretchSelected(start, length, mouse);
  });
  connect(&screen, &ScreenView::mousePressed, this, [this](Qt::MouseButton button, QPoint mouse) {
    emit screenPressed();
    if (button == Qt::RightButton)
      openPopup(mouse);
  });
}

void MainWindow::connectSpeech() {
  // The texts of one command come one by one, and a prompt may be taken back at once.
  constexpr int settled = 200;
  connect(&console_, &Console::newReports, alert_,
          [this](const QStringList& notices) { alert_->announce(notices.join(u", ")); });
  telling_->setSingleShot(true);
  telling_->setInterval(settled);
  connect(telling_, &QTimer::timeout, this, &MainWindow::tellScreen);
  connect(&console_.screen(), &Screen::replaced, telling_, qOverload<>(&QTimer::start));
  connect(&console_.screen(), &Screen::appended, telling_, qOverload<>(&QTimer::start));
  connect(&console_, &Console::busyChanged, telling_, qOverload<>(&QTimer::start));
}

void MainWindow::tellScreen() {
  if (released_ || console_.busy())
    return;
  const QString untold = untoldText(told_, console_.screen().text());
  told_ = console_.screen().text();
  if (!untold.isEmpty())
    screenAlerts_[screenAlert_++ % screenAlerts_.size()]->announce(untold);
}

void MainWindow::connectPane() {
  BrowserPane& pane = terminal_.pane();
  BrowserFrame& browser = *ui_->WebBrowser;
  connect(&view_, &View::paneChanged, this, &MainWindow::showPane);
  connect(&browser, &BrowserFrame::pageState, this, [&pane](WebPage::State state) {
    pane.pageState(static_cast<BrowserPane::Loading>(static_cast<int>(state)));
  });
  connect(&browser, &BrowserFrame::addressChanged, ui_->inputURL, &QLineEdit::setText);
  connect(ui_->inputURL, &QLineEdit::textEdited, this,
          [this, before = QString()](const QString& typed) mutable {
            if (const QString text = BrowserPane::expandedAddress(before, typed); text != typed)
              ui_->inputURL->setText(text);
            before = ui_->inputURL->text();
          });
  const auto go = [this] {
    if (!ui_->inputURL->text().isEmpty())
      ui_->WebBrowser->open(ui_->inputURL->text());
  };
  connect(ui_->inputURL, &QLineEdit::returnPressed, this, go);
  // A line has no use for them, and the way to the page by Tab is long.
  for (const int key : {Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Up, Qt::Key_Down}) {
    auto* scrolling = new QShortcut(QKeySequence(key), ui_->inputURL, nullptr, nullptr, Qt::WidgetShortcut);
    connect(scrolling, &QShortcut::activated, &browser, [&browser, key] { browser.takeKeys(key); });
  }
  connect(ui_->imgGo, &QToolButton::clicked, this, go);
}

void MainWindow::connectMenus() {
  Menus& menus = terminal_.menus();
  menus_ = std::make_unique<MenuMirror>(*ui_->menubar, *popup_);
  connect(menus_.get(), &MenuMirror::chosen, this, [&menus](const QString& name, int index) {
    menus.chooseShown(name, index > 0 ? std::optional(index) : std::nullopt);
  });
  connect(ui_->Frame, &ToolbarFrame::buttonPressed, this, [&menus](int index) { menus.button(index); });
  connect(&view_, &View::menusChanged, this, [this] {
    // A run changes the status many times in a row.
    if (!std::exchange(menusChanged_, true))
      QMetaObject::invokeMethod(this, &MainWindow::showMenus, Qt::QueuedConnection);
  });
  showMenus();
}

void MainWindow::showMenus() {
  menusChanged_ = false;
  if (released_)
    return;
  menus_->showItems(terminal_.menus().items());
  ui_->Frame->showButtons(terminal_.menus().buttons());
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
  const bool isTyped = event->key() == Qt::Key_Escape || event->key() == Qt::Key_Backspace ||
                       (!event->text().isEmpty() && event->text().front().isPrint());
  if (!isTyped || screen().hasFocus() || event->modifiers() & (Qt::AltModifier | Qt::ControlModifier)) {
    QMainWindow::keyPressEvent(event);
    return;
  }
  screen().setFocus();
  QCoreApplication::sendEvent(&screen(), event);
}

void MainWindow::applyDisplaySettings() {
  const SettingsRecord& settings = terminal_.program().record();
  const Colour ground = settings[key::表示領域の色].value_or(black);
  const Colour text = settings[key::表示文字の色].value_or(white);
  const QFont font =
      terminalFont(settings[key::表示文字のフォント].value_or(QString()),
                   settings[key::表示文字のサイズ].value_or(11), settings[key::表示文字のボールド] == true);
  QFont plainFont = font;
  plainFont.setBold(false);
  for (QWidget* widget : {static_cast<QWidget*>(ui_->TextBox0), static_cast<QWidget*>(ui_->TextBox1),
                          scrollBarCover_, static_cast<QWidget*>(ui_->padShape),
                          static_cast<QWidget*>(ui_->padlbl), static_cast<QWidget*>(ui_->inputURL)})
    paintLikeScreen(*widget, ground, text);
  drawFrameOf(*ui_->padShape);
  ui_->TextBox0->setFont(font);
  ui_->padlbl->setFont(plainFont);
  ui_->inputURL->setFont(plainFont);
  banner_->setFont(plainFont);
  banner_->setColours(ground, text);
  scrollBarCover_->setVisible(settings[key::スクロールバーを表示] != true);
  const bool framed = settings[key::PAD表示] == true || terminal_.pane().visible();
  ui_->padShape->setFrameShape(framed ? QFrame::Box : QFrame::NoFrame);
  placeOverlays();
}

void MainWindow::showPanels() {
  panel1_->setText(console_.status().panel1());
  panel2_->setText(console_.status().panel2());
  // The window's icon tells it in the list of windows as well.
  if (const bool connected = terminal_.program().networkAvailable; connected != iconTellsConnected_) {
    iconTellsConnected_ = connected;
    setWindowIcon(programIcon(connected));
  }
}

void MainWindow::showInput() {
  ui_->padlbl->setText(console_.padlbl());
}

void MainWindow::showBusy() {
  ui_->TextBox0->viewport()->setCursor(console_.busy() ? Qt::WaitCursor : Qt::IBeamCursor);
  if (console_.busy())
    setCursor(Qt::WaitCursor);
  else
    unsetCursor();
}

void MainWindow::showProgress(int done, int total) {
  progress_->setMaximum(total);
  progress_->setValue(done);
  progress_->setVisible(total > fewStations && done < total);
}

void MainWindow::showBanner() {
  if (console_.overlay())
    banner_->setContent(bannerText(terminal_.program().record()),
                        demonstration_ ? demonstrationMark.toString() : QString());
  banner_->setVisible(console_.overlay());
  banner_->raise();
}

void MainWindow::showPane() {
  const bool up = terminal_.pane().visible();
  ui_->WebBrowser->setVisible(up);
  ui_->TextBox0->setVisible(!up);
  ui_->padlbl->setVisible(!up);
  ui_->inputURL->setVisible(up);
  ui_->imgGo->setVisible(up);
  applyDisplaySettings();
  if (up)
    ui_->inputURL->setFocus();
  else
    ui_->TextBox0->setFocus();
}

void MainWindow::placeOverlays() {
  const QScrollBar* bar = ui_->TextBox0->verticalScrollBar();
  scrollBarCover_->setGeometry(QRect(bar->mapTo(ui_->TextBox1, QPoint()), bar->size()));
  scrollBarCover_->raise();
  if (terminal_.pane().visible())
    scrollBarCover_->hide();
  banner_->centre();
}

void MainWindow::openPopup(QPoint place) {
  showMenus();
  if (popup_->menuAction()->isVisible())
    popup_->popup(place);
}

QString MainWindow::geometryFile() const {
  return terminal_.program().services.path(u"window.ini");
}

void MainWindow::appear() {
  const QSettings stored(geometryFile(), QSettings::IniFormat);
  const QVariant placed = stored.value(geometryKey());
  if (restoreGeometry((placed.isValid() ? placed : stored.value(placedKey.toString())).toByteArray())) {
    show();
  } else {
    // A desktop without a window manager leaves a maximised window at its size.
    resize(size().boundedTo(QWidget::screen()->availableSize()));
    showMaximized();
  }
  if (!platformLetsPlaceWindows())
    hearOfMinimising();
  ui_->TextBox0->setFocus();
}

// A compositor tells neither that a window was minimised nor that it is back: it is from the button on its
// frame on, until it has the keys again. The toolkit meanwhile forgets that it was maximised.
void MainWindow::hearOfMinimising() {
  shownState_ = windowHandle()->windowStates();
  connect(windowHandle(), &QWindow::windowStateChanged, this, [this](Qt::WindowState state) {
    if (minimised_ || released_)
      return;
    if (state == Qt::WindowMinimized)
      setMinimised(true);
    else
      shownState_ = state;
  });
  connect(qApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* focused) {
    if (focused && focused == windowHandle())
      comeBack();
  });
}

void MainWindow::keepShownState() {
  if (released_)
    return;
  setWindowState(shownState_);
  windowHandle()->setWindowStates(shownState_);
}

void MainWindow::comeBack() {
  if (!minimised_ || released_)
    return;
  keepShownState();
  setMinimised(false);
}

void MainWindow::setMinimised(bool minimised) {
  if (std::exchange(minimised_, minimised) != minimised)
    emit minimisedChanged(minimised);
}

void MainWindow::rememberGeometry() const {
  QSettings stored(geometryFile(), QSettings::IniFormat);
  stored.setValue(geometryKey(), saveGeometry());
  stored.sync();
  QFile::setPermissions(geometryFile(), QFile::ReadOwner | QFile::WriteOwner);
}

void MainWindow::release() {
  if (released_)
    return;
  released_ = true;
  rememberGeometry();
  ui_->TextBox0->release();
  console_.disconnect(this);
  console_.status().disconnect(this);
  view_.disconnect(this);
  ui_->WebBrowser->disconnect(this);
  hide();
}

void MainWindow::restore() {
  if (!platformLetsPlaceWindows())
    comeBack();
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  terminal_.guarded([this] { terminal_.closeBox(); });
  event->setAccepted(terminal_.ended());
}

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange && platformLetsPlaceWindows() && !released_)
    setMinimised(isMinimized());
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  placeOverlays();
  // Made large again only as it comes back, the window may draw itself once in the size between, for which a
  // compositor ends the program.
  if (minimised_ && !platformLetsPlaceWindows())
    QMetaObject::invokeMethod(this, &MainWindow::keepShownState, Qt::QueuedConnection);
}

bool MainWindow::event(QEvent* event) {
  const bool handled = QMainWindow::event(event);
  // The inner layout stands only behind this event.
  if (event->type() == QEvent::LayoutRequest && ui_)
    placeOverlays();
  return handled;
}

} // namespace soran
