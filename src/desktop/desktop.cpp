// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/desktop.h"

#include "base/text.h"
#include "desktop/forms/opening_form.h"
#include "desktop/widgets/screen_view.h"
#include "start/hand_over.h"
#include "start/opening.h"
#include "terminal/actions.h"
#include "terminal/desk_commands.h"

#include <QApplication>
#include <QTimer>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

// A start that is quicker shows no form that would only flash up.
constexpr int splashDelay = 200;

constexpr qint64 largestCounterPage = 1 << 16;

} // namespace

Desktop::Desktop(Launch& launch)
    : launch_(launch), dialogs_(launch.shutdown()), sounds_(launch.shutdown()),
      pages_(launch.directory() + u"/help"), waiting_(launch.shutdown()),
      program_(launch.services({dialogs_, forms_, sounds_, printers_, pages_, waiting_})), view_(program_),
      opening_(std::make_unique<Opening>(program_)),
      counterLine_(makeNetwork(), launch.shutdown(), largestCounterPage) {
  forms_.attach(view_.terminal());
  connect(&view_, &View::stopped, this, &Desktop::onStopped);
}

Desktop::~Desktop() {
  view_.disconnect(this);
  forms_.closeAll();
}

bool Desktop::open(QString& notice) {
  OpeningForm splash;
  QTimer::singleShot(splashDelay, &splash, &OpeningForm::appear);
  connect(&splash, &QDialog::rejected, this, [this] {
    launch_.shutdown().request();
    program_.services.inet.cancel();
  });
  // Without its tables the window has no colours and no fonts.
  dialogs_.setWindowMaker([&] {
    if (!program_.tables.byName(table::設定)->isOpen())
      return;
    splash.hide();
    showWindow();
  });
  try {
    const Opening::Result result = opening_->start();
    splash.hide();
    dialogs_.setWindowMaker({});
    if (result == Opening::Result::Started) {
      notice = opening_->notice();
      return true;
    }
  } catch (const Unwind&) {
    // The user closed the form.
  }
  dialogs_.setWindowMaker({});
  return false;
}

// Not by the program's own client, whose transfers the watch waits for.
void Desktop::countAccess() {
  const QUrl page(program_.services.endpoints.update + u"/index2.htm");
  counted_ = counterLine_.begin(page, [](const Reply&) {});
}

bool Desktop::start() {
  QString notice;
  if (!open(notice))
    return false;
  countAccess();
  if (!window_)
    showWindow();
  view_.terminal().guarded([&] { view_.terminal().start(notice); });
  return true;
}

void Desktop::showWindow() {
  window_ = std::make_unique<MainWindow>(view_, launch_.demo());
  if (launch_.demo())
    printers_.mark = demonstrationWarning.toString();
  dialogs_.setWindow(window_.get());
  forms_.setWindow(window_.get());
  pages_.setPane(&window_->browser());
  connect(window_.get(), &MainWindow::minimisedChanged, this, &Desktop::setMinimised);
  connect(window_.get(), &MainWindow::stretchSelected, this, &Desktop::explain);
  connect(window_.get(), &MainWindow::screenPressed, &forms_, &FormService::hideTip);
  connect(&window_->screen(), &ScreenView::keyTyped, &forms_, &FormService::closeTip);
  connect(&forms_, &FormService::restoreRequested, window_.get(), &MainWindow::restore);
  window_->appear();
}

void Desktop::setMinimised(bool minimised) {
  view_.terminal().guarded([&] { view_.terminal().forms().setMinimised(minimised); });
  // With an icon in the tray the window needs no place among the others.
  if (minimised && TaskIcon::isAvailable())
    QMetaObject::invokeMethod(
        window_.get(),
        [this] {
          if (window_->minimised())
            window_->hide();
        },
        Qt::QueuedConnection);
}

void Desktop::explain(qsizetype start, qsizetype length, QPoint mouse) {
  forms_.setMouse(mouse);
  view_.terminal().guarded([&] { action::explainSelection(view_.terminal(), start, length); });
}

void Desktop::onStopped() {
  forms_.hideAll();
  if (window_)
    window_->release();
}

int Desktop::run(bool showsBoard) {
  if (!start())
    return 1;
  if (!view_.terminal().ended()) {
    if (showsBoard)
      view_.terminal().guarded([this] { showBoard(view_.terminal(), {}); });
    connect(&view_, &View::stopped, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    QApplication::exec();
  }
  if (view_.terminal().updaterRequested())
    handOver(program_.services, launch_.endpointsFile());
  return 0;
}

} // namespace soran
