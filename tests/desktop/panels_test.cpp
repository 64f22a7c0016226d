// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/camera_form.h"
#include "desktop/forms/chart_form.h"
#include "desktop/forms/suntime_form.h"
#include "desktop/widgets/sun_graph_view.h"
#include "support/printing.h"
#include "terminal/actions.h"
#include "window_fixture.h"

#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QComboBox>
#include <QMessageBox>
#include <QPrinter>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>
#include <set>

namespace soran {
namespace {

using namespace Qt::StringLiterals;

class PanelTest : public WindowTest {
 protected:
  template <class Widget>
  Widget& opened(const Form& form) {
    desktop_->terminal().forms().show(form);
    return *qobject_cast<Widget*>(desktop_->forms().widget(form));
  }

  void startDemo() {
    options_.demo = true;
    start();
  }

  static bool settle(ImageryForm& form, const std::function<void()>& event) {
    bool settled = false;
    const auto link = QObject::connect(&form.imagery(), &ImageryView::settled, [&] { settled = true; });
    event();
    const bool seen = QTest::qWaitFor([&] { return settled; }, 8000);
    QObject::disconnect(link);
    return seen;
  }

  static void trigger(QWidget& form, const QString& name, int index = -1) {
    for (QAction* action : form.findChildren<QAction*>(name)) {
      if (action->data().toInt() == index)
        action->trigger();
    }
  }

  void seconds(int count) {
    for (int i = 0; i < count; ++i)
      timers_.step();
  }

  /// The colours of a picture that has more than a plain ground.
  static size_t colours(QWidget& widget) {
    const QImage image = widget.grab().toImage();
    std::set<QRgb> seen;
    for (int y = 0; y < image.height(); y += 3)
      for (int x = 0; x < image.width(); x += 3)
        seen.insert(image.pixel(x, y));
    return seen.size();
  }

  QByteArray printed(const std::function<bool(QPrinter&)>& print) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(home_.filePath(u"page.pdf"_s));
    EXPECT_TRUE(print(printer));
    QFile file(home_.filePath(u"page.pdf"_s));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
};

TEST_F(PanelTest, SunTimesOfAFieldAndAYear) {
  start();
  auto& form = opened<SunTimeForm>(form::SunTimes{});
  auto* fields = form.findChild<QComboBox*>(u"cmb0"_s);
  auto* years = form.findChild<QComboBox*>(u"cmb1"_s);
  EXPECT_EQ(years->currentText(), u"2026");
  const int haneda = fields->findText(u"(東京)"_s, Qt::MatchContains);
  ASSERT_GE(haneda, 0);
  fields->setCurrentIndex(haneda);
  years->setCurrentText(u"2028"_s);
  const SunTable expected =
      sunTable(fields->currentText(), 2028, desktop_->terminal().program().tables.airportRows());
  const QAbstractItemModel& cells = *form.findChild<QTableView*>(u"grid"_s)->model();
  ASSERT_EQ(cells.rowCount(), 31);
  EXPECT_EQ(cells.index(28, 3).data().toString(), expected.days[59].sunrise); // 29 February
  EXPECT_EQ(cells.index(30, 34).data().toString(), expected.days.last().sunset);
  EXPECT_EQ(cells.index(29, 3).data().toString(), QString());
  EXPECT_EQ(cells.headerData(33, Qt::Horizontal).toString(), u"12月");
  EXPECT_EQ(form.findChild<QLabel*>(u"lbl0"_s)->text(), u"RJTT");

  auto* tabs = form.findChild<QTabWidget*>(u"SSTab"_s);
  const QByteArray table = printed([&](QPrinter& printer) { return form.print(printer); });
  EXPECT_TRUE(table.startsWith("%PDF"));
  EXPECT_EQ(table.count("/Type /Page\n"), 1);
  tabs->setCurrentIndex(1);
  EXPECT_GT(colours(*form.findChild<SunGraphView*>(u"Picture1"_s)), 10U);
  EXPECT_NE(printed([&](QPrinter& printer) { return form.print(printer); }), table);

  fields->setCurrentText(u"---"_s);
  EXPECT_FALSE(form.findChild<QPushButton*>(u"cmd0"_s)->isEnabled());
  EXPECT_EQ(form.findChild<QLabel*>(u"lbl1"_s)->text(), QString());
}

TEST_F(PanelTest, ChartsOfTheDemonstration) {
  startDemo();
  auto& form = opened<ChartForm>(form::Charts{});
  EXPECT_EQ(form.windowTitle(), u" 天気のツボ (夜)");
  EXPECT_TRUE(settle(form, [] {}));
  EXPECT_EQ(form.imagery().size(), QSize(9600 / 15, 7300 / 15));
  const QImage first = form.imagery().grab().toImage();
  EXPECT_TRUE(settle(form, [&] { trigger(form, u"menu_chart_sat"_s, 2); }));
  EXPECT_EQ(form.windowTitle(), u" クイックルック");
  EXPECT_FALSE(form.imagery().failed());
  EXPECT_NE(form.imagery().grab().toImage(), first);
  EXPECT_EQ(form.imagery().size(), QSize(620, 620));
  EXPECT_TRUE(printed([&](QPrinter& printer) { return form.imagery().print(printer); }).startsWith("%PDF"));

  const QImage before = form.imagery().grab().toImage();
  launch_->setClock()->advance(300);
  EXPECT_TRUE(settle(form, [&] { seconds(300); }));
  EXPECT_NE(form.imagery().grab().toImage(), before);

  const auto* note = form.findChild<QLabel*>(u"lblNoteLine"_s);
  EXPECT_TRUE(settle(form, [&] { trigger(form, u"menu_radar_japan"_s); }));
  EXPECT_TRUE(note->text().startsWith(u"2026/")) << note->text().toStdString();
  EXPECT_FALSE(form.imagery().isOld());
  launch_->setClock()->advance(3600);
  seconds(1);
  EXPECT_TRUE(note->text().contains(u"古い画像です")) << note->text().toStdString();
  EXPECT_TRUE(form.imagery().isOld());

  EXPECT_TRUE(settle(form, [&] { trigger(form, u"menu_ASAS"_s); }));
  EXPECT_FALSE(form.imagery().failed());
  EXPECT_EQ(form.imagery().currentWidget()->grab().toImage().pixelColor(form.imagery().rect().center()),
            QColor(Qt::white)); // a page of paper, not the ground behind pictures
  EXPECT_EQ(form.windowTitle(), u" アジア地上解析図");
  EXPECT_FALSE(form.findChild<QAction*>(u"menu_print"_s)->isEnabled());
  EXPECT_TRUE(form.isMaximized());
}

TEST_F(PanelTest, CamerasOfTheDemonstration) {
  startDemo();
  auto& form = opened<CameraForm>(form::Cameras{});
  EXPECT_EQ(form.windowTitle(), u"新千歳空港");
  EXPECT_TRUE(settle(form, [] {}));
  EXPECT_TRUE(settle(form, [&] { trigger(form, u"menu_komatsu"_s); }));
  EXPECT_EQ(form.windowTitle(), u" 小松空港");
  EXPECT_FALSE(form.imagery().failed());
  const QImage before = form.imagery().grab().toImage();
  launch_->setClock()->advance(60);
  seconds(59);
  EXPECT_TRUE(settle(form, [&] { seconds(1); }));
  EXPECT_NE(form.imagery().grab().toImage(), before);

  // It is hidden with the main window and keeps its picture; closed, it begins anew.
  desktop_->forms().hide(form::Cameras{});
  desktop_->forms().show(form::Cameras{});
  EXPECT_EQ(form.windowTitle(), u" 小松空港");
  form.close();
  EXPECT_TRUE(settle(form, [&] { desktop_->terminal().forms().show(form::Cameras{}); }));
  EXPECT_EQ(form.windowTitle(), u"新千歳空港");
}

TEST_F(PanelTest, ASourceThatDoesNotAnswerIsNamed) {
  QFile file(home_.filePath(u"endpoints.ini"_s));
  ASSERT_TRUE(file.open(QIODevice::Append));
  file.write("camera_sendai=" + server_.baseAddress().toLatin1() + "\n");
  file.close();
  start();
  auto& form = opened<CameraForm>(form::Cameras{});
  EXPECT_TRUE(settle(form, [] {}));
  EXPECT_TRUE(form.imagery().failed());
  const auto text = [&](QStringView label) {
    return form.findChild<QLabel*>(label.toString())->text().remove(QChar(0x200B));
  };
  EXPECT_EQ(text(u"lblSource"), u"新千歳空港 放送局カメラ");
  EXPECT_EQ(text(u"lblAddress"), u"/camera/chitose_L.jpg");
  EXPECT_TRUE(text(u"lblNote").contains(u"camera_shinnchitose"));

  EXPECT_TRUE(settle(form, [&] { trigger(form, u"menu_sendai"_s); }));
  EXPECT_TRUE(form.imagery().failed());
  EXPECT_EQ(text(u"lblAddress"), server_.baseAddress() + u"/liveimage/live.jpg");
  QImage picture(64, 48, QImage::Format_RGB32);
  picture.fill(Qt::red);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  picture.save(&buffer, "JPG");
  server_.setFile(u"/liveimage/live.jpg"_s, bytes);
  EXPECT_TRUE(settle(form, [&] { form.findChild<QPushButton*>(u"cmdRetry"_s)->click(); }));
  EXPECT_FALSE(form.imagery().failed());

  const auto* grey = form.findChild<QAction*>(u"menu_suisha"_s);
  EXPECT_FALSE(grey->isEnabled());
  EXPECT_TRUE(form.findChild<QAction*>(u"menu_sendai"_s)->isEnabled());
  EXPECT_TRUE(settle(form, [&] { form.choose(u"menu_suisha"_s, {}); }));
  EXPECT_TRUE(form.imagery().failed());
  EXPECT_TRUE(text(u"lblNote").startsWith(grey->toolTip()));
  EXPECT_FALSE(form.findChild<QPushButton*>(u"cmdRetry"_s)->isVisible());
}

TEST_F(PanelTest, NoticeAheadOfTheChartsIsKeptAway) {
  start();
  QTimer::singleShot(0, &desktop_->window(), [this] {
    auto* form = desktop_->window().findChild<QDialog*>(u"adobeinfo"_s);
    ASSERT_NE(form, nullptr);
    form->findChild<QAbstractButton*>(u"chk"_s)->click();
    form->findChild<QPushButton*>(u"cmdOK"_s)->click();
  });
  action::charts(desktop_->terminal());
  EXPECT_FALSE(desktop_->terminal().ended());
  EXPECT_EQ(desktop_->terminal().program().settings()[key::アドビインフォメーション], true);
}

} // namespace
} // namespace soran
