// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/data_change_form.h"
#include "desktop/forms/message_form.h"
#include "desktop/services/printer_service.h"
#include "desktop/services/sound_service.h"
#include "desktop/web/web_page.h"
#include "desktop/widgets/fit_to_screen.h"
#include "support/printing.h"
#include "window_fixture.h"

#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTableView>
#include <QVBoxLayout>

namespace soran {
namespace {

using namespace Qt::StringLiterals;

TEST_F(WindowTest, FormsOpenAndClose) {
  struct Case {
    Form form;
    QString button; ///< what closes it; empty where a click anywhere does
    QStringList texts;
  };
  const Case cases[] = {
      {form::Version{}, {}, {u"Version 4.31"_s}},
      {form::Commands{}, {}, {u"PRINT または /P"_s, u"METAR を日本語に翻訳"_s}},
      {form::Components{}, u"cmdOK"_s, {u"Ver 4.31"_s, u"2026/11/24 更新"_s}},
      {form::Alert{}, u"cmdOK"_s, {}},
  };
  start();
  for (const Case& c : cases) {
    desktop_->forms().show(c.form);
    QDialog* form = desktop_->forms().widget(c.form);
    ASSERT_NE(form, nullptr) << nameOf(c.form).toStdString();
    EXPECT_TRUE(form->isVisible()) << nameOf(c.form).toStdString();
    QStringList labels;
    for (const QLabel* label : form->findChildren<QLabel*>()) {
      labels.append(label->text());
      EXPECT_FALSE(spokenName(label).isEmpty()) << label->objectName().toStdString();
      EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
    }
    for (const QString& text : c.texts)
      EXPECT_TRUE(labels.contains(text)) << text.toStdString();
    QTest::mouseClick(c.button.isEmpty() ? form->findChild<QLabel*>() : form->findChild<QWidget*>(c.button),
                      Qt::LeftButton);
    EXPECT_FALSE(form->isVisible()) << nameOf(c.form).toStdString();
  }
}

TEST_F(WindowTest, LogShowsNewestRowFirstInItsColours) {
  start();
  type(u"RJTT"_s);
  type(u"LOG"_s);
  auto* grid = desktop_->forms().widget(form::Log{})->findChild<QTableView*>(u"grid"_s);
  ASSERT_TRUE(grid->isVisible());
  const QAbstractItemModel& model = *grid->model();
  EXPECT_EQ(model.index(0, 2).data().toString(), u"DISPLAY RUNNING LOG");
  EXPECT_EQ(model.index(0, 0).data().toString(), u"2026/11/24");
  EXPECT_EQ(model.index(model.rowCount() - 1, 2).data().toString(), u"SYSTEM  LOAD");
  bool reportSeen = false;
  for (int row = 0; row < model.rowCount(); ++row) {
    if (model.index(row, 2).data().toString() != u"RJTT METAR RECEIVED")
      continue;
    reportSeen = true;
    EXPECT_EQ(model.index(row, 1).data(Qt::ForegroundRole).value<QColor>(), QColor(0, 0, 0));
  }
  EXPECT_TRUE(reportSeen);
  const int rows = model.rowCount();
  grid->window()->close();
  type(u"FOO"_s);
  type(u"LOG"_s);
  EXPECT_TRUE(grid->isVisible());
  EXPECT_GT(model.rowCount(), rows);
}

TEST_F(WindowTest, PictureShowsItsFileOnce) {
  start();
  desktop_->forms().show(form::Picture{});
  EXPECT_EQ(desktop_->forms().widget(form::Picture{}), nullptr);
  type(u"CB"_s);
  QDialog* form = desktop_->forms().widget(form::Picture{});
  ASSERT_NE(form, nullptr);
  EXPECT_TRUE(form->isVisible());
  EXPECT_FALSE(QFileInfo::exists(home_.filePath(u"data/figure.dat"_s)));
  QFile broken(home_.filePath(u"data/figure.dat"_s));
  ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
  broken.write("no picture");
  broken.close();
  desktop_->forms().show(form::Picture{});
  EXPECT_EQ(desktop_->forms().widget(form::Picture{}), nullptr);
}

TEST(FitToScreen, LetsWhatIsLargerThanTheScreenScroll) {
  const QSize room = QGuiApplication::primaryScreen()->availableSize();
  const struct {
    QSize content;
    bool scrolls;
  } cases[] = {{{200, 100}, false}, {{room.width() + 500, 100}, true}, {{200, room.height() + 500}, true}};
  for (const auto& c : cases) {
    QDialog dialog;
    auto* layout = new QVBoxLayout(&dialog);
    auto* content = new QLabel(u"content"_s);
    content->setMinimumSize(c.content);
    auto* close = new QPushButton(u"close"_s);
    close->setObjectName(u"cmd0"_s);
    layout->addWidget(content);
    layout->addWidget(close);
    fitToScreen(dialog);
    dialog.show();
    EXPECT_EQ(dialog.findChild<QScrollArea*>() != nullptr, c.scrolls);
    EXPECT_LE(dialog.width(), room.width());
    EXPECT_LE(dialog.height(), room.height());
    EXPECT_GE(content->width(), c.content.width());
    // The keys bring into sight what lies outside.
    auto* found = dialog.findChild<QPushButton*>(u"cmd0"_s);
    ASSERT_EQ(found, close);
    if (auto* area = dialog.findChild<QScrollArea*>(); area && c.content.height() > room.height()) {
      dialog.activateWindow();
      ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
      content->setFocusPolicy(Qt::TabFocus);
      content->setFocus();
      QTest::keyClick(content, Qt::Key_Tab);
      EXPECT_TRUE(close->hasFocus());
      EXPECT_TRUE(close->visibleRegion().contains(close->rect().center()));
    }
  }
}

TEST_F(WindowTest, ItsIconTellsWhetherThereIsANetwork) {
  start();
  const auto icon = [this] { return desktop_->window().windowIcon().pixmap(32, 32).toImage(); };
  Program& program = desktop_->terminal().program();
  const QImage connected = icon();
  for (const bool isThere : {false, true}) {
    program.networkAvailable = isThere;
    program.console.setPanel(1, isThere ? u"ネットワーク接続確立"_s : u"ネットワーク未接続"_s);
    EXPECT_EQ(icon() == connected, isThere);
  }
}

TEST_F(WindowTest, WhatWasMinimisedWithTheWindowComesBackWhole) {
  start();
  desktop_->forms().show(form::Cameras{});
  QDialog* cameras = desktop_->forms().widget(form::Cameras{});
  ASSERT_NE(cameras, nullptr);
  // As a window manager does with all windows of one that is minimised.
  desktop_->forms().hide(form::Cameras{});
  cameras->setWindowState(Qt::WindowMinimized);
  desktop_->forms().show(form::Cameras{});
  EXPECT_EQ(desktop_->forms().widget(form::Cameras{}), cameras);
  EXPECT_TRUE(cameras->isVisible());
  EXPECT_FALSE(cameras->isMinimized());
}

TEST_F(WindowTest, NotesGoByThemselves) {
  start();
  desktop_->forms().show(form::NewReports{});
  auto* note = qobject_cast<DataChangeForm*>(desktop_->forms().widget(form::NewReports{}));
  ASSERT_NE(note, nullptr);
  for (int i = 0; i < DataChangeForm::lastTick; ++i) {
    EXPECT_TRUE(note->isVisible());
    note->tick();
  }
  EXPECT_FALSE(note->isVisible());

  desktop_->terminal().program().minimised = true;
  desktop_->forms().show(form::NewReports{});
  EXPECT_EQ(desktop_->forms().widget(form::NewReports{}), nullptr);

  desktop_->forms().show(form::Alert{});
  auto* alert = qobject_cast<MessageForm*>(desktop_->forms().widget(form::Alert{}));
  for (int i = 0; i < MessageForm::lastTick; ++i) {
    EXPECT_TRUE(alert->isVisible());
    alert->tick();
  }
  EXPECT_FALSE(alert->isVisible());
}

TEST(PrinterService, PagesEndBetweenLinesAndKeepAllText) {
  const QFont font(u"IPAGothic"_s, 11);
  QPixmap paper(10, 10);
  const double pitch = QFontMetricsF(font, &paper).lineSpacing();
  const double width = QFontMetricsF(font, &paper).horizontalAdvance(u"0123456789"_s) + 1;
  const QString text = u"0123456789ABC\r\n\r\nRJTT\nEND"_s;
  const auto pages = printedPages(text, font, QSizeF(width, pitch * 2.5), &paper);
  ASSERT_EQ(pages.size(), 3U);
  EXPECT_EQ(pages[0], QStringList({u"0123456789"_s, u"ABC"_s}));
  EXPECT_EQ(pages[1], QStringList({QString(), u"RJTT"_s}));
  EXPECT_EQ(pages[2], QStringList({u"END"_s}));
}

TEST(SoundService, ReadsTheLengthOfAWaveFile) {
  const QByteArray ring = delivered::file(u"update/data/ring.wav"_s);
  EXPECT_GT(waveLength(ring), 100);
  EXPECT_LT(waveLength(ring), 20000);
  for (qsizetype length = 0; length < 64; ++length)
    EXPECT_LT(waveLength(ring.first(length)), 2) << length;
  EXPECT_EQ(waveLength("RIFF\xff\xff\xff\xffWAVEfmt \xff\xff\xff\xff"), 0);
}

TEST(WebPage, GoesToWebAndHelpOnly) {
  const std::pair<const char*, bool> cases[] = {
      {"https://example.org/a", true},
      {"http://127.0.0.1:80/help/help.html", true},
      {"qrc:/delivered/help/help.html", true},
      {"qrc:/delivered/update/data/soran.mdb", false},
      {"file:///etc/passwd", false},
      {"javascript:alert(1)", false},
      {"https:///nohost", false},
      {"", false},
  };
  for (const auto& [address, allowed] : cases)
    EXPECT_EQ(isAllowedPage(QUrl(QString::fromLatin1(address))), allowed) << address;
}

} // namespace
} // namespace soran
