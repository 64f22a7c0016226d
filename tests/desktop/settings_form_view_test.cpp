// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/colour_swatch.h"
#include "desktop/widgets/sample_view.h"
#include "modal_steps.h"
#include "window_fixture.h"

#include <QAccessible>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTextBlock>

namespace soran {
namespace {

using namespace Qt::StringLiterals;

class SettingsFormViewTest : public WindowTest {
 protected:
  const Settings& settings() { return desktop_->terminal().program().settings(); }
  void openSettings(std::vector<ModalSteps::Step> steps) {
    ModalSteps modal(std::move(steps));
    desktop_->terminal().menus().button(9);
    EXPECT_TRUE(modal.done());
  }
};

void showTab(QWidget& form, int tab) {
  QTabBar& bar = *form.findChild<QTabWidget*>(u"SSTab"_s)->tabBar();
  QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(tab).center());
}

void tick(QWidget& form, QStringView box) {
  auto& button = *form.findChild<QAbstractButton*>(box.toString());
  QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(8, button.height() / 2));
}

/// Chooses an entry of a list by the keyboard.
void choose(QWidget& form, QStringView list, const QString& entry) {
  auto& combo = *form.findChild<QComboBox*>(list.toString());
  QTest::keyClick(&combo, Qt::Key_Home);
  for (int i = 0; i < combo.findText(entry); ++i)
    QTest::keyClick(&combo, Qt::Key_Down);
  ASSERT_EQ(combo.currentText(), entry);
}

TEST_F(SettingsFormViewTest, EveryControlWritesAtOnce) {
  start();
  const bool enabled = settings()[key::自動デコード有効] == true;
  openSettings({[&](QWidget& form) {
    EXPECT_EQ(form.windowTitle(), u" 動作設定");
    tick(form, u"CheckBox2");
    EXPECT_EQ(settings()[key::自動デコード有効], !enabled);
    EXPECT_EQ(form.findChild<QWidget*>(u"CheckBox9"_s)->isEnabled(), !enabled);
    showTab(form, 1);
    auto& limit = *form.findChild<QLineEdit*>(u"TextBox0"_s);
    QTest::mouseClick(&limit, Qt::LeftButton);
    limit.selectAll();
    QTest::keyClicks(&limit, u"-1200x"_s);
    QTest::keyClick(&limit, Qt::Key_Tab);
    EXPECT_EQ(settings()[key::雲高1], 1200);
    EXPECT_EQ(limit.text(), u"-1200x");
    auto& sight = *form.findChild<QLineEdit*>(u"TextBox1"_s);
    QTest::mouseClick(&sight, Qt::LeftButton);
    sight.selectAll();
    QTest::keyClicks(&sight, u"40000"_s);
    const auto kept = settings()[key::視程1];
    QTest::keyClick(&sight, Qt::Key_Escape);
    EXPECT_EQ(settings()[key::視程1], kept);
    EXPECT_FALSE(form.isVisible());
  }});
  EXPECT_FALSE(desktop_->terminal().ended());
}

TEST_F(SettingsFormViewTest, FontAndColourReachSampleAndScreen) {
  start();
  openSettings({
      [&](QWidget& form) {
        showTab(form, 2);
        choose(form, u"cmb1", u"17"_s);
        EXPECT_EQ(form.findChild<SampleView*>(u"viewSample0"_s)->font().pointSize(), 17);
        click(form, u"lbl1");
      },
      [](QWidget& colours) {
        auto* dialog = qobject_cast<QColorDialog*>(&colours);
        ASSERT_NE(dialog, nullptr);
        dialog->setCurrentColor(QColor(1, 200, 3));
        QTest::keyClick(&colours, Qt::Key_Return);
      },
      [](QWidget& form) {
        EXPECT_EQ(form.findChild<ColourSwatch*>(u"lbl1"_s)->colour(), colourOf(1, 200, 3));
        const auto& sample = *form.findChild<SampleView*>(u"viewSample0"_s);
        EXPECT_EQ(sample.palette().color(QPalette::Text), QColor(1, 200, 3));
        EXPECT_EQ(sample.document()->lastBlock().previous().text(), u" READY / PRESS ESC TO EXIT");
        click(form, u"lbl0");
      },
      [](QWidget& colours) { QTest::keyClick(&colours, Qt::Key_Escape); },
      [](QWidget& form) { click(form, u"cmd0"); },
  });
  EXPECT_EQ(screen().font().pointSize(), 17);
  EXPECT_EQ(screen().palette().color(QPalette::Text), QColor(1, 200, 3));
}

TEST_F(SettingsFormViewTest, APrinterIsChosenAndAnEmptyWindowRefused) {
  start();
  openSettings({
      [](QWidget& form) {
        showTab(form, 3);
        EXPECT_FALSE(form.findChild<QWidget*>(u"cmd5"_s)->isEnabled());
        click(form, u"cmd4");
      },
      [](QWidget& printers) {
        EXPECT_EQ(printers.windowTitle(), u" プリンター選択");
        EXPECT_EQ(printers.findChild<QAbstractButton*>(u"cmd1"_s)->text(), u"設 定");
        choose(printers, u"cmb", u"PDF"_s);
        click(printers, u"cmd1");
      },
      [](QWidget& form) {
        EXPECT_EQ(form.findChild<QLabel*>(u"lbl47"_s)->text(), u"PDF");
        tick(form, u"CheckBox15");
        tick(form, u"Option1_1");
        for (const QStringView list : {u"cmb5", u"cmb6", u"cmb7", u"cmb8"})
          choose(form, list, u"07"_s);
        showTab(form, 0);
        form.close();
      },
      [](QWidget& message) {
        EXPECT_EQ(textOfBox(message), u"印刷終了時刻は印刷開始時刻より後に設定してください　　");
        QTest::keyClick(&message, Qt::Key_Return);
      },
      [](QWidget& form) {
        EXPECT_EQ(form.findChild<QTabWidget*>(u"SSTab"_s)->currentIndex(), 3);
        choose(form, u"cmb7", u"08"_s);
        form.close();
      },
  });
  EXPECT_EQ(settings()[key::プリンター], u"PDF"_s);
  EXPECT_EQ(settings()[key::印刷終了時], u"08"_s);
}

TEST_F(SettingsFormViewTest, AnsweringYesRestoresTheStandard) {
  start();
  openSettings({
      [](QWidget& form) {
        showTab(form, 1);
        tick(form, u"CheckBox3");
        click(form, u"cmd1");
      },
      [](QWidget& question) {
        EXPECT_EQ(textOfBox(question), u"標準設定に変更しますか？　　");
        click(question, u"yes");
      },
      [](QWidget& form) {
        EXPECT_TRUE(form.findChild<QCheckBox*>(u"CheckBox3"_s)->isChecked());
        click(form, u"cmd0");
      },
  });
}

TEST_F(SettingsFormViewTest, ALimitThatIsLeftByATabLetsTheTabGo) {
  start();
  openSettings({[](QWidget& form) {
    const auto& tabs = *form.findChild<QTabWidget*>(u"SSTab"_s);
    for (const int tab : {2, 1, 3}) {
      showTab(form, 1);
      QTest::mouseClick(form.findChild<QLineEdit*>(u"TextBox0"_s), Qt::LeftButton);
      showTab(form, tab);
      EXPECT_EQ(tabs.currentIndex(), tab);
      EXPECT_EQ(tabs.tabBar()->currentIndex(), tab);
      EXPECT_TRUE(tabs.widget(tab)->isVisible());
    }
    click(form, u"cmd0");
  }});
}

TEST_F(SettingsFormViewTest, WhatAScreenReaderTicksIsStored) {
  start();
  const auto act = [](QWidget& form, QStringView name) {
    auto* spoken = QAccessible::queryAccessibleInterface(form.findChild<QWidget*>(name.toString()));
    ASSERT_TRUE(spoken && spoken->actionInterface());
    spoken->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  };
  const bool was = settings()[key::計器気象状態を強調] == true;
  openSettings({[&](QWidget& form) {
    act(form, u"CheckBox3");
    act(form, u"Option2_0");
    click(form, u"cmd0");
  }});
  EXPECT_EQ(settings()[key::コマンドボタン], false);
  EXPECT_EQ(settings()[key::計器気象状態を強調], !was);
}

TEST_F(SettingsFormViewTest, AnOffsetThatTheListLacksShowsNone) {
  options_.now = readInstant(u"2026-11-24T05:20:00+00:00"_s);
  start();
  openSettings({
      [](QWidget& form) {
        EXPECT_EQ(form.findChild<QComboBox*>(u"cmb4"_s)->currentText(), u"+9");
        click(form, u"cmd1");
      },
      [](QWidget& question) { click(question, u"yes"); },
      [](QWidget& form) {
        EXPECT_EQ(form.findChild<QComboBox*>(u"cmb4"_s)->currentText(), QString());
        click(form, u"cmd0");
      },
      [](QWidget& message) { QTest::keyClick(&message, Qt::Key_Return); },
  });
  EXPECT_EQ(settings()[key::時差], u"±0"_s);
}

TEST_F(SettingsFormViewTest, ShowsEveryControlUnderItsName) {
  start();
  openSettings({[](QWidget& form) {
    for (int tab = 0; tab < 4; ++tab) {
      showTab(form, tab);
      QTest::qWait(0);
      for (const QWidget* widget : form.findChildren<QWidget*>()) {
        const bool named = qobject_cast<const QAbstractButton*>(widget) ||
                           qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QComboBox*>(widget);
        if (!named || !widget->isVisible() || widget->objectName().startsWith(u"qt_"))
          continue;
        EXPECT_GE(widget->height(), widget->minimumSizeHint().height()) << widget->objectName().toStdString();
        if (qobject_cast<const QTabBar*>(widget->parent()))
          continue;
        EXPECT_FALSE(spokenName(widget).isEmpty()) << widget->objectName().toStdString();
        EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << widget->objectName().toStdString();
      }
    }
    QTest::keyClick(&form, Qt::Key_Escape);
  }});
}

} // namespace
} // namespace soran
