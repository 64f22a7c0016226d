// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/settings_form.h"

#include "base/text.h"
#include "fakes/bare_program.h"
#include "store/database.h"

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

class SettingsFormTest : public ::testing::Test {
 protected:
  SettingsFormTest() {
    world.prepare();
    program.tables.openAllTables(world.path(u"soran.mdb"_s));
    run.desk.printers.names = {u"OFFICE"_s, u"TOWER"_s};
    settings.store(key::プリンター, u"OFFICE"_s);
    settings.store(key::印刷更新時印刷, true);
    settings.store(key::印刷時刻指定, true);
  }
  SettingsForm form() {
    return {settings,
            program.services,
            {.zoneOffset = u"+9"_s,
             .zoneName = u"JST"_s,
             .log = [this](const QString& line) { log.append(line); },
             .takeBuffer = [this] { log.append(u"buffer"_s); },
             .hoursChosen = [this] { log.append(u"hours"_s); },
             .repaint = [this] { log.append(u"repaint"_s); },
             .usePrinter = [this](const QString& printer) { log.append(u"use " + printer); },
             .choosePrinter = [this] { return choice; }}};
  }
  QString said() { return textsOf(run.desk.takeSeen().dialogs).join(u'|'); }
  QString logged() { return std::exchange(log, {}).join(u'|'); }
  QVariant value(SettingIndex key) { return settings.record().value(key); }

  World world;
  BareProgram run{world};
  Program& program = run.program;
  Settings& settings = program.settings();
  std::optional<QString> choice;
  QStringList log;
};

} // namespace

TEST_F(SettingsFormTest, TellsWhatCannotBeStored) {
  SettingsForm opton = form();
  const bool was = opton.checked(2);
  Database other;
  other.open(world.path(u"soran.mdb"_s));
  other.execute(u"BEGIN EXCLUSIVE"_s);
  opton.check(2, !was);
  EXPECT_EQ(said(), u"保存できませんでした　　");
  EXPECT_EQ(opton.checked(2), was);
  other.execute(u"ROLLBACK"_s);
  opton.check(2, !was);
  EXPECT_EQ(said(), QString());
  EXPECT_EQ(opton.checked(2), !was);
}

TEST_F(SettingsFormTest, EveryControlWritesItsOwnKeyAtOnce) {
  SettingsForm opton = form();
  QStringList changed;
  const auto note = [&](const SettingsRecord& before) {
    for (size_t i = 0; i < settingSpecs.size(); ++i) {
      const auto key = static_cast<SettingIndex>(i);
      if (before.value(key) != value(key))
        changed.append(settingSpecs[i].column.toString());
    }
  };
  int controls = 0;
  for (const SettingsCheckBox& box : settingsCheckBoxes()) {
    opton.check(2, true); // enables what depends on it
    const SettingsRecord before = settings.record();
    const bool was = opton.checked(box.index);
    opton.check(box.index, !was);
    EXPECT_EQ(opton.checked(box.index), !was);
    note(before);
    opton.check(box.index, was);
    ++controls;
  }
  for (const SettingsCombo& combo : settingsCombos()) {
    const SettingsRecord before = settings.record();
    const QStringList items = opton.items(combo.index);
    const QString other = items.isEmpty() ? u"Mono"_s : items[items.indexOf(opton.chosen(combo.index)) == 0];
    opton.choose(combo.index, other);
    EXPECT_EQ(opton.chosen(combo.index), other);
    note(before);
    ++controls;
  }
  for (const SettingsTextBox& field : settingsTextBoxes()) {
    const SettingsRecord before = settings.record();
    opton.type(field.index, u"4321"_s);
    opton.leave(field.index);
    note(before);
    ++controls;
  }
  for (const SettingsSwatch& swatch : settingsSwatches()) {
    const SettingsRecord before = settings.record();
    opton.pick(swatch.index, std::nullopt);
    opton.pick(swatch.index, Colour{123456});
    EXPECT_EQ(opton.colour(swatch.index), Colour{123456});
    note(before);
    ++controls;
  }
  EXPECT_EQ(controls, 32 + 13 + 8 + 10);
  EXPECT_EQ(changed.size(), controls);
  EXPECT_EQ(changed.removeDuplicates(), 0);
  Tables other;
  other.openAllTables(world.path(u"soran.mdb"_s));
  EXPECT_EQ(other.settings()[key::SPECIの色], Colour{123456});
}

TEST_F(SettingsFormTest, LimitsTakeTheLeadingNumberWithoutItsSign) {
  struct Case {
    const char16_t* typed;
    int stored;
  };
  const Case cases[] = {{u"1500", 1500}, {u"-200", 200}, {u"12ft", 12},         {u"", 0},
                        {u"abc", 0},     {u"３００", 0}, {u" 30 5", 30},        {u"32767", 32767},
                        {u"40000", 7},   {u"-32768", 7}, {u"99999999999999", 7}};
  SettingsForm opton = form();
  for (const Case& c : cases) {
    settings.store(key::視程2, 7);
    const QString typed = QString::fromUtf16(c.typed);
    opton.type(3, typed);
    opton.leave(3);
    EXPECT_EQ(value(SettingIndex::視程2).toInt(), c.stored) << typed.toStdString();
    EXPECT_EQ(opton.text(3), typed);
  }
  EXPECT_EQ(said(), QString());
}

TEST_F(SettingsFormTest, ControlsEnableOneAnother) {
  struct Case {
    int box;
    std::vector<int> boxes;
    std::vector<int> combos;
  };
  const Case cases[] = {{2, {9}, {}}, {14, {16}, {}}, {23, {}, {4}}, {28, {}, {9}}, {15, {}, {5, 6, 7, 8}}};
  SettingsForm opton = form();
  for (const Case& c : cases) {
    for (const bool on : {false, true}) {
      opton.check(c.box, on);
      for (const int box : c.boxes)
        EXPECT_EQ(opton.boxEnabled(box), on) << box;
      for (const int combo : c.combos)
        EXPECT_EQ(opton.comboEnabled(combo), on) << combo;
    }
  }
  opton.setTimedPrinting(false);
  EXPECT_FALSE(opton.comboEnabled(5));
  opton.check(15, false);
  opton.setTimedPrinting(true);
  EXPECT_FALSE(opton.timedPrinting() || opton.timedPrintingEnabled());
  settings.store(key::マニュアル入力時停止, true);
  opton.check(2, false);
  opton.check(9, false);
  EXPECT_TRUE(opton.checked(9)); // what is disabled keeps its value
}

TEST_F(SettingsFormTest, LoadingStrikesAPrinterThatIsGone) {
  struct Case {
    QStringList installed;
    QString stored;
    QString label;
    bool choice;
    bool usable;
  };
  const Case cases[] = {
      {{u"OFFICE"_s}, u"OFFICE"_s, u"OFFICE"_s, true, true},
      {{u"TOWER"_s}, u"OFFICE"_s, u"OFFICE が見つかりません"_s, true, false},
      {{u"TOWER"_s}, u"*"_s, u"出力先プリンターを設定してください"_s, true, false},
      {{}, u"OFFICE"_s, u"利用可能なプリンターがありません"_s, false, false},
  };
  for (const Case& c : cases) {
    run.desk.printers.names = c.installed;
    settings.store(key::プリンター, c.stored);
    const auto keys = {key::印刷文字のボールド, key::印刷更新時印刷, key::印刷時ダイアログ};
    for (const auto& each : keys)
      settings.store(each, true);
    SettingsForm opton = form();
    EXPECT_EQ(opton.printerLabel(), c.label);
    EXPECT_EQ(opton.printerChoiceEnabled(), c.choice);
    EXPECT_EQ(opton.comboEnabled(3), c.choice);
    EXPECT_EQ(opton.printTestEnabled(), c.usable);
    EXPECT_EQ(settings[key::プリンター], c.usable ? c.stored : u"*"_s);
    for (const auto& each : keys)
      EXPECT_EQ(settings[each], c.usable);
    for (const int box : {1, 15, 25})
      EXPECT_EQ(opton.boxEnabled(box), c.usable);
  }
}

TEST_F(SettingsFormTest, ChoosingAPrinterAllowsPrinting) {
  settings.store(key::プリンター, u"*"_s);
  SettingsForm opton = form();
  logged();
  for (const std::optional<QString>& answer : {std::optional<QString>(), std::optional(u"GONE"_s)}) {
    choice = answer;
    opton.choosePrinter();
    EXPECT_FALSE(opton.printerUsable());
  }
  choice = u"TOWER"_s;
  opton.choosePrinter();
  EXPECT_EQ(settings[key::プリンター], u"TOWER"_s);
  EXPECT_EQ(opton.printerLabel(), u"TOWER"_s);
  EXPECT_TRUE(opton.boxEnabled(15));
  logged();
  opton.testPrint();
  EXPECT_EQ(logged(), u"PRINT  TEST  COMMAND|use TOWER"_s);
  const PrintJob job = run.desk.takeSeen().prints.first();
  EXPECT_EQ(job.printer, u"TOWER"_s);
  EXPECT_EQ(job.text,
            u"*** SORAN PRINT TEST ***   Version 4.31   2026/11/24   14:20:00" + crlf + opton.print().text);
}

TEST_F(SettingsFormTest, ClosingChecksThePrintWindow) {
  struct Case {
    const char* window; ///< HH:MM-HH:MM
    bool printing;
    bool timed;
    bool closes;
  };
  const Case cases[] = {{"08:00-20:00", true, true, true},  {"08:00-08:00", true, true, false},
                        {"20:00-08:00", true, true, false}, {"08:30-08:29", true, true, false},
                        {"08:00-08:00", false, true, true}, {"20:00-08:00", true, false, true},
                        {"23:58-23:59", true, true, true}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.window);
    SettingsForm opton = form();
    const QString window = QString::fromUtf8(c.window);
    for (int i = 0; i < 4; ++i)
      opton.choose(5 + i, window.mid(3 * i, 2));
    settings.store(key::印刷更新時印刷, c.printing);
    settings.store(key::印刷時刻指定, c.timed);
    logged();
    EXPECT_EQ(opton.close(), c.closes);
    EXPECT_EQ(said(), c.closes ? QString() : u"印刷終了時刻は印刷開始時刻より後に設定してください　　"_s);
    EXPECT_EQ(opton.tabToShow() == printTab, !c.closes);
    EXPECT_EQ(logged(), u"buffer"_s);
    EXPECT_EQ(opton.outcome().has_value(), c.closes);
  }
  EXPECT_EQ(settings[key::印刷開始分], u"58"_s);
}

TEST_F(SettingsFormTest, ClosingTellsOfWhatActsLater) {
  SettingsForm opton = form();
  opton.choose(4, u"-3"_s);
  opton.choose(9, u"7"_s);
  EXPECT_EQ(logged(), u"buffer|hours"_s);
  EXPECT_TRUE(opton.close());
  EXPECT_EQ(said(), u"時差の変更を有効にするため、SORAN を再起動してください　　"_s);
  EXPECT_EQ(logged(), u"buffer"_s);
  EXPECT_TRUE(opton.outcome().value().hoursChanged);
  EXPECT_EQ(settings[key::時差], u"-3"_s);
  EXPECT_EQ(value(SettingIndex::シーケンス時間), QVariant(7));
  EXPECT_TRUE(opton.close());
  EXPECT_EQ(said(), QString());
}

TEST_F(SettingsFormTest, ListsRefuseWhatTheyDoNotHold) {
  SettingsForm opton = form();
  opton.choose(0, QString());
  EXPECT_EQ(said(), u"フォントを指定してください　　"_s);
  opton.choose(1, u"21"_s);
  opton.choose(4, u"±0"_s);
  EXPECT_EQ(settings[key::表示文字のフォント], u"ＭＳ ゴシック"_s);
  EXPECT_EQ(settings[key::表示文字のサイズ], 11);
  EXPECT_EQ(opton.chosen(4), u"+9"_s);
  settings.store(key::時差, u"±0"_s);
  EXPECT_EQ(opton.chosen(4), QString());
  EXPECT_EQ(opton.items(4).size(), 25);
  EXPECT_EQ(opton.items(5).first() + opton.items(8).last(), u"0059"_s);
}

TEST_F(SettingsFormTest, StandardSettingsComeBehindAYes) {
  settings.store(key::プリンター, u"TOWER"_s);
  SettingsForm opton = form();
  opton.choose(4, u"-12"_s);
  opton.close();
  EXPECT_EQ(said(), u"時差の変更を有効にするため、SORAN を再起動してください　　"_s);
  logged();
  settings.store(key::雲高1, 5);
  opton.restoreStandard();
  EXPECT_EQ(settings[key::雲高1], 5);
  run.desk.dialogs.answers = {true};
  opton.restoreStandard();
  EXPECT_EQ(said(), u"標準設定に変更しますか？　　|標準設定に変更しますか？　　"_s);
  EXPECT_EQ(opton.text(0), u"1000"_s);
  EXPECT_EQ(settings[key::時差], u"+9"_s);
  EXPECT_EQ(logged(), u"repaint"_s);
  // No printer is chosen any more, and the zone is another one.
  EXPECT_EQ(opton.printerLabel(), u"出力先プリンターを設定してください"_s);
  EXPECT_FALSE(opton.boxEnabled(25));
  EXPECT_EQ(settings[key::印刷時ダイアログ], true);
  opton.close();
  EXPECT_EQ(said(), u"時差の変更を有効にするため、SORAN を再起動してください　　"_s);
}

TEST_F(SettingsFormTest, SampleShowsItsTimesInTheChosenZone) {
  struct Case {
    bool local;
    const char16_t* offset;
    const char16_t* speci;
    const char16_t* taf;
  };
  const Case cases[] = {{true, u"-12", u"2025Y", u"2042Y"}, {true, u"-9", u"2325V", u"2342V"},
                        {true, u"-8", u"0025U", u"0042U"},  {true, u"-1", u"0725N", u"0742N"},
                        {true, u"0", u"0825Z", u"0842Z"},   {true, u"+1", u"0925A", u"0942A"},
                        {true, u"+9", u"1725I", u"1742I"},  {true, u"+10", u"1825K", u"1842K"},
                        {true, u"+12", u"2025M", u"2042M"}, {true, u"±0", u"", u""},
                        {false, u"+9", u"0825Z", u"0842Z"}, {false, u"±0", u"0825Z", u"0842Z"}};
  for (const Case& c : cases) {
    settings.store(key::LOCAL使用, c.local);
    settings.store(key::時差, QString::fromUtf16(c.offset));
    const QStringList lines = settingsSampleText(settings.record()).split(u"\r\n"_s);
    EXPECT_EQ(lines[0], u" RJTT SPECI " + QString::fromUtf16(c.speci));
    EXPECT_EQ(lines[3], u" RJTT TAF   " + QString::fromUtf16(c.taf));
    EXPECT_EQ(lines.size(), 9);
  }
}

TEST_F(SettingsFormTest, SampleIsColouredByTheSettings) {
  const auto words = [this] {
    const SettingsSample sample = displaySample(settings.record());
    QStringList coloured;
    for (const AttributeRun& part : sample.runs) {
      if (part.colour != settings[key::表示文字の色])
        coloured.append(sample.text.mid(part.start, part.length) + u' ' +
                        QString::number(qint32(part.colour)));
    }
    EXPECT_EQ(sample.runs.back().start + sample.runs.back().length, sample.text.size());
    return coloured.join(u'|');
  };
  settings.store(key::SPECIの色, Colour{1});
  settings.store(key::天気略語の色, Colour{2});
  EXPECT_EQ(words(), u"SPECI 1|-RA 2|BR 2|RA 2"_s);
  settings.store(key::SPECI着色, false);
  EXPECT_EQ(words(), u"-RA 2|BR 2|RA 2"_s);
  settings.store(key::天気略語着色, false);
  EXPECT_EQ(words(), QString());
  EXPECT_EQ(printSample(settings.record()).runs.size(), 1u);
}

TEST_F(SettingsFormTest, SoundsAreTestedWhereTheyAre) {
  SettingsForm opton = form();
  logged();
  opton.testError();
  opton.testRing();
  EXPECT_EQ(run.desk.takeSeen().sounds.join(u'|'), u"error.wav|ring.wav"_s);
  EXPECT_EQ(logged(), u"ALARM  TEST  COMMAND|ALARM  TEST  COMMAND"_s);
  QFile::remove(world.path(u"sound/ring.wav"_s));
  opton.testRing();
  EXPECT_EQ(logged(), QString());
}
