// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "delivered.h"
#include "desktop/desktop.h"
#include "desktop/widgets/screen_view.h"
#include "http/endpoint_server.h"
#include "support/own_folder.h"

#include <QAccessible>
#include <QLabel>
#include <QTest>
#include <gtest/gtest.h>

namespace soran {

/// What screen readers call the widget.
inline QString spokenName(const QWidget* widget) {
  const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
  return spoken ? spoken->text(QAccessible::Name) : QString();
}

/// The program with its window against an endpoint of the test's own. No timer ticks by itself.
class WindowTest : public testing::Test {
 protected:
  WindowTest() {
    server_.start();
    // The database is as new as the endpoint's.
    server_.setFile(QStringLiteral("/data/version.dat"), "4.31\n0.00\n0.00\n");
    server_.setFile(QStringLiteral("/data/soran.mdb"),
                    delivered::file(QStringLiteral("update/data/soran.mdb")));
    server_.setFile(QStringLiteral("/metar/RJTT.TXT"),
                    "2026/11/24 05:00\nRJTT 240500Z 16008KT 4000 -SHRA FEW008 BKN010 22/18 Q1013\n");
    server_.setFile(QStringLiteral("/taf/RJTT.TXT"),
                    "2026/11/24 05:05\nTAF RJTT 240505Z 2406/2512 16008KT 9999 FEW030\n");
    const QByteArray base = server_.baseAddress().toLatin1();
    QFile file(home_.filePath(QStringLiteral("endpoints.ini")));
    if (!file.open(QIODevice::WriteOnly))
      std::abort();
    file.write("[endpoints]\nupdate=" + base + "\nhome=" + base + "\nmetar=" + base + "/metar/\ntaf=" + base +
               "/taf/\ncycles=" + base + "/cycles/\ndaily_weather=" + base + '\n');
    file.close();
    options_.home = home_.path();
    options_.now = readInstant(QStringLiteral("2026-11-24T14:20:00+09:00"));
  }

  void makeDesktop() {
    launch_ = std::make_unique<Launch>(options_, timers_, delivered::file);
    desktop_ = std::make_unique<Desktop>(*launch_);
  }
  void start() {
    makeDesktop();
    ASSERT_TRUE(desktop_->start());
    QTest::qWait(0);
  }

  ScreenView& screen() { return desktop_->window().screen(); }
  QString shown() { return screen().toPlainText(); }
  void type(const QString& line) {
    QTest::keyClicks(&screen(), line);
    QTest::keyClick(&screen(), Qt::Key_Return);
  }
  template <class Widget = QWidget>
  Widget* child(QStringView name) {
    return desktop_->window().findChild<Widget*>(name.toString());
  }
  QString textOf(QStringView label) { return child<QLabel>(label)->text(); }

  OwnFolder home_;
  EndpointServer server_;
  LaunchOptions options_;
  SteppedTimers timers_;
  std::unique_ptr<Launch> launch_;
  std::unique_ptr<Desktop> desktop_;
};

} // namespace soran
