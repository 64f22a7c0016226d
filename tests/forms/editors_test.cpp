// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/bare_program.h"
#include "forms/airport_editor.h"
#include "forms/decode_list_editor.h"
#include "forms/dictionary_editor.h"
#include "forms/group_editor.h"
#include "forms/limits_editor.h"
#include "forms/picture_file.h"
#include "forms/printer_selection.h"

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

const QByteArray png("\x89PNG\r\n\x1A\n....");

class EditorsTest : public ::testing::Test {
 protected:
  EditorsTest() {
    world.prepare([](Tables& tables) {
      storeAirports(tables, {{u"RJTT"_s, u"東京"_s}, {u"RJAA"_s, u"成田"_s}, {u"RJBB"_s, u"関西"_s}});
      storeAutoList(tables, {{u"RJTT"_s, u"東京"_s}});
      storeGroups(tables, {{u"TTAA"_s, u"RJTT RJAA"_s}, {u"NORTH"_s, u"RJCC"_s}});
      storeDictionary(tables, table::気象略語,
                      {{u"RA"_s, u"雨"_s}, {u"SN"_s, u"雪"_s}, {u"BR"_s, u"もや"_s}});
      tables.rewrite(table::データ, {{1, u"CB"_s, QByteArray()}, {2, u"TCU"_s, png}});
    });
    program.tables.openAllTables(world.path(u"soran.mdb"_s));
    program.watchTicks = 9;
  }
  /// The texts of the dialogues since the last call, titles checked.
  QString said() {
    QStringList texts;
    for (const auto& dialog : run.desk.takeSeen().dialogs) {
      EXPECT_EQ(dialog.title, u" 確認"_s);
      texts.append(dialog.text);
    }
    return texts.join(u'|');
  }
  void answer(bool yes) { run.desk.dialogs.answers = {yes}; }
  QString stored(QStringView name) {
    const RowSet& rows = *program.tables.byName(name);
    QStringList lines;
    for (int i = 0; i < rows.recordCount(); ++i) {
      QStringList cells;
      for (const QString& column : rows.columns())
        cells.append(rows.valueAt(i, column).toString());
      lines.append(cells.join(u','));
    }
    return lines.join(u'|');
  }

  World world;
  BareProgram run{world};
  Program& program = run.program;
};

QString rowsOf(const EditedList& list) {
  QStringList lines;
  for (const EditedRow& row : list.rows())
    lines.append(row.first + u'=' + row.second);
  return lines.join(u'|');
}

} // namespace

TEST_F(EditorsTest, AirportsMoveAndKeepTheirOrder) {
  AirportEditor editor(program);
  EXPECT_EQ(program.watchTicks, 0);
  struct Case {
    int select;
    bool up;
    bool down;
  };
  for (const Case& c : {Case{0, false, true}, Case{1, true, true}, Case{2, true, false}, Case{3, true, false},
                        Case{-1, true, false}}) {
    editor.select(c.select);
    EXPECT_EQ(editor.list().canMoveUp(), c.up) << c.select;
    EXPECT_EQ(editor.list().canMoveDown(), c.down) << c.select;
  }
  editor.moveDown();
  editor.moveUp();
  EXPECT_EQ(editor.list().selected(), 1);
  editor.moveUp();
  editor.moveUp();
  EXPECT_EQ(rowsOf(editor.list()), u"RJBB=関西|RJTT=東京|RJAA=成田"_s);
  EXPECT_TRUE(stored(table::飛行場情報).startsWith(u"1,RJTT"));
  editor.close();
  EXPECT_EQ(stored(table::飛行場情報), u"1,RJBB,関西|2,RJTT,東京|3,RJAA,成田"_s);
}

TEST_F(EditorsTest, AirportsAreDeletedBehindAYes) {
  AirportEditor editor(program);
  editor.select(1);
  answer(false);
  editor.remove();
  EXPECT_EQ(said(), u"RJAA 成田 を削除しますか？　　"_s);
  EXPECT_EQ(editor.list().count(), 3);
  run.desk.dialogs.answers = {true, true, true};
  editor.remove();
  EXPECT_FALSE(editor.list().canMoveUp() || editor.list().canMoveDown());
  EXPECT_EQ(rowsOf(editor.list()), u"RJTT=東京|RJBB=関西"_s);
  editor.remove();
  editor.remove();
  EXPECT_FALSE(editor.headingsShown() || editor.canRemove() || editor.canChange());
  said();
  editor.remove();
  EXPECT_EQ(said(), QString());
  editor.close();
  EXPECT_EQ(stored(table::飛行場情報), QString());
}

TEST_F(EditorsTest, AirportsAreAddedOnTopAndChangedInPlace) {
  AirportEditor editor(program);
  editor.showEntry = [](AirportEntry& entry) {
    EXPECT_EQ(entry.title(), u" 飛行場情報の追加"_s);
    entry.typeCode(u"rjcc"_s);
    entry.typeName(u" 千歳 "_s);
    EXPECT_TRUE(entry.confirm());
  };
  editor.add();
  EXPECT_TRUE(rowsOf(editor.list()).startsWith(u"RJCC=千歳|RJTT"));
  editor.showEntry = [](AirportEntry& entry) {
    EXPECT_EQ(entry.title(), u" 飛行場情報の修正"_s);
    EXPECT_EQ(entry.code(), u"RJAA"_s);
    entry.typeCode(u"RJTT"_s); // a change is not compared with others
    EXPECT_TRUE(entry.confirm());
  };
  editor.open(2);
  EXPECT_EQ(rowsOf(editor.list()), u"RJCC=千歳|RJTT=東京|RJTT=成田|RJBB=関西"_s);
  editor.showEntry = [](AirportEntry& entry) {
    entry.typeCode(u"RJFF"_s);
    entry.cancel();
  };
  editor.add();
  editor.open(0);
  editor.open(9);
  EXPECT_EQ(editor.list().count(), 4);
  EXPECT_EQ(said(), QString());
}

TEST_F(EditorsTest, AnEntryIsCheckedBeforeItCloses) {
  struct Case {
    QString code;
    QString name;
    QString said;
    std::optional<AirportEntry::Field> focus;
    QString nameAfter;
  };
  using enum AirportEntry::Field;
  const Case cases[] = {
      {u""_s, u"名"_s, u"飛行場略号（ICAO 4 Letter）を入力してください　　"_s, Code, u"名"_s},
      {u"  "_s, u""_s, u"飛行場略号（ICAO 4 Letter）を入力してください　　"_s, Code, u""_s},
      {u"RJCC"_s, u"  "_s, u"飛行場名を入力してください　　"_s, Name, u""_s},
      {u"rjtt"_s, u"他"_s, u"RJTT はすでに登録されています　　"_s, Code, u"東京"_s},
      {u"RJTTX"_s, u"他"_s, u"RJTT はすでに登録されています　　"_s, Code, u"東京"_s},
      {u"rj"_s, u"短"_s, {}, {}, u"短"_s},
      {u"ＲＪ"_s, u"全角"_s, {}, {}, u"全角"_s},
  };
  for (const Case& c : cases) {
    AirportEntry entry(program, AirportEntry::Mode::Add);
    std::optional<AirportEntry::Field> focus;
    entry.wantFocus = [&](AirportEntry::Field field) { focus = field; };
    entry.typeCode(c.code);
    entry.typeName(c.name);
    EXPECT_EQ(entry.confirm(), c.said.isEmpty());
    EXPECT_EQ(entry.cancelled(), !c.said.isEmpty());
    EXPECT_EQ(said(), c.said);
    EXPECT_EQ(focus, c.focus);
    EXPECT_EQ(entry.name(), c.nameAfter);
  }
  AirportEntry entry(program, AirportEntry::Mode::Add);
  entry.typeCode(u"rjaa"_s);
  entry.codeLeft();
  entry.codeLeft(); // told once for what was typed
  EXPECT_EQ(said(), u"RJAA はすでに登録されています　　"_s);
  EXPECT_EQ(entry.name(), u"成田"_s);
}

TEST_F(EditorsTest, TheDecodeListIsPickedFromTheAirports) {
  DecodeListEditor editor(program);
  editor.selectSource(0);
  editor.add();
  EXPECT_EQ(said(), u" RJTT   東京 はすでに選択されています　　"_s);
  for (const int row : {1, 2}) {
    editor.selectSource(row);
    editor.add();
  }
  EXPECT_FALSE(editor.canRemove() || editor.canMoveUp() || editor.canMoveDown());
  EXPECT_EQ(editor.targetTexts(), (QStringList{u" RJTT   東京"_s, u" RJAA   成田"_s, u" RJBB   関西"_s}));
  editor.selectTarget(2);
  EXPECT_TRUE(editor.canRemove() && editor.canMoveUp());
  EXPECT_FALSE(editor.canAdd() || editor.canMoveDown());
  editor.moveUp();
  EXPECT_EQ(editor.markedTarget(), 1);
  EXPECT_TRUE(editor.canMoveDown());
  editor.selectTarget(0);
  editor.remove();
  EXPECT_EQ(said(), QString());
  EXPECT_EQ(editor.markedTarget(), -1);
  EXPECT_FALSE(editor.canRemove() || editor.canMoveUp() || editor.canMoveDown());
  editor.remove();
  editor.close();
  EXPECT_EQ(stored(table::自動デコード), u"1,RJBB,関西|2,RJAA,成田"_s);
}

TEST_F(EditorsTest, AnEmptiedDecodeListSwitchesTheCycleOff) {
  program.settings().store(key::自動デコード有効, true);
  DecodeListEditor(program).close();
  EXPECT_EQ(program.settings()[key::自動デコード有効], true);
  DecodeListEditor editor(program);
  editor.selectTarget(0);
  editor.remove();
  editor.selectTarget(0);
  editor.close();
  EXPECT_EQ(program.settings()[key::自動デコード有効], false);
}

TEST_F(EditorsTest, ALongNameIsCutInTheDecodeListOnly) {
  storeAirports(program.tables, {{u"RJXX"_s, QString(120, u'長')}});
  DecodeListEditor editor(program);
  editor.selectSource(0);
  editor.add();
  editor.close();
  // The cut counts 99 characters from the two blanks that stand before the name.
  EXPECT_EQ(program.tables.autoRows().last().name, QString(97, u'長'));
  EXPECT_EQ(program.tables.airportRows().first().name.size(), 120);
}

TEST_F(EditorsTest, GroupCellsAreCheckedAtEnter) {
  struct Case {
    int row;
    int column;
    QString typed;
    QString said;
    QString cell;
  };
  const Case cases[] = {
      {0, 0, u" osaka "_s, {}, u"OSAKA"_s},
      {0, 0, u"osaka"_s, u"OSAKA はすでに登録されています　　"_s, u"OSAKA"_s}, // itself counts
      {1, 0, u"Osaka"_s, u"OSAKA はすでに登録されています　　"_s, u"NORTH"_s},
      {1, 1, u"rjtt"_s, {}, u"RJTT"_s},
      {1, 1, u" rjtt rjcc "_s, {}, u"RJTT RJCC"_s},
      {1, 1, u"RJTTRJAA"_s, u"入力規則を確認してください　　"_s, u"RJTT RJCC"_s},
      {1, 1, u"RJTT  RJAA"_s, u"入力規則を確認してください　　"_s, u"RJTT RJCC"_s},
      {1, 1, u"RJ01"_s, u"入力規則を確認してください　　"_s, u"RJTT RJCC"_s},
      {1, 1, u"ＲＪＴＴ"_s, u"入力規則を確認してください　　"_s, u"RJTT RJCC"_s},
      {1, 1, u""_s, u"入力規則を確認してください　　"_s, u"RJTT RJCC"_s},
  };
  GroupEditor editor(program);
  for (const Case& c : cases) {
    editor.select(c.row, c.column);
    editor.edit();
    EXPECT_EQ(editor.commit(c.typed), c.said.isEmpty()) << c.typed.toStdString();
    EXPECT_EQ(said(), c.said);
    EXPECT_EQ(editor.editing(), !c.said.isEmpty());
    EXPECT_EQ(editor.cellText(), c.cell);
  }
  editor.abandon();
  EXPECT_FALSE(editor.commit(u"RJAA"_s));
}

TEST_F(EditorsTest, GroupsLackingACellAreDropped) {
  GroupEditor editor(program);
  editor.addRow();
  EXPECT_TRUE(editor.editing());
  EXPECT_FALSE(editor.list().canMoveUp());
  EXPECT_TRUE(editor.commit(u"half"_s));
  editor.addRow();
  EXPECT_TRUE(editor.commit(u"south"_s));
  editor.select(3, 1);
  editor.edit();
  EXPECT_TRUE(editor.commit(u"RJFF"_s));
  editor.addRow();
  editor.remove(); // without a name nobody is asked
  EXPECT_EQ(said(), QString());
  editor.select(0, 0);
  answer(true);
  editor.remove();
  EXPECT_EQ(said(), u"TTAA を削除しますか？　　"_s);
  editor.close();
  EXPECT_EQ(stored(table::カンパニー), u"1,NORTH,RJCC|3,SOUTH,RJFF"_s);
}

TEST_F(EditorsTest, LimitsAreCheckedCellByCell) {
  const AirportLimits tokyo{.code = u"RJTT"_s, .condition = 1, .visibility = 900, .weather = u"TS"_s};
  storeLimits(program.tables, {tokyo, {.code = u"ALL"_s, .condition = 3, .wind = 30}});
  const QString number = u" の数で入力してください　　"_s;
  const QString weather = u"天気は TS FZRA +SN のように略号を空白で区切って入力してください　　"_s;
  const QString code = u"飛行場略号（ICAO 4 Letter）または ALL を入力してください　　"_s;
  const struct {
    LimitColumn column;
    QString typed, said, cell; ///< of the first row afterwards
  } cases[] = {
      {LimitColumn::Code, u"rjt"_s, code, u"RJTT"_s},
      {LimitColumn::Code, u""_s, code, u"RJTT"_s},
      {LimitColumn::Code, u"1JTT"_s, code, u"RJTT"_s},
      {LimitColumn::Code, u" rjtt "_s, {}, u"RJTT"_s},
      {LimitColumn::Condition, u"4"_s, u"条件 は 1 から 3"_s + number, u"1"_s},
      {LimitColumn::Condition, u""_s, u"条件 は 1 から 3"_s + number, u"1"_s},
      {LimitColumn::Condition, u"2"_s, {}, u"2"_s},
      {LimitColumn::Visibility, u"0"_s, u"視程 は 1 から 9999"_s + number, u"900"_s},
      {LimitColumn::Visibility, u"10000"_s, u"視程 は 1 から 9999"_s + number, u"900"_s},
      {LimitColumn::Visibility, u"-5"_s, u"視程 は 1 から 9999"_s + number, u"900"_s},
      {LimitColumn::Visibility, u""_s, {}, u""_s},
      {LimitColumn::Ceiling, u"30000"_s, {}, u"30000"_s},
      {LimitColumn::Crosswind, u"25kt"_s, u"横風 は 1 から 199"_s + number, u""_s},
      {LimitColumn::Weather, u"TS FGG"_s, weather, u"TS"_s},
      {LimitColumn::Weather, u"ts,fg"_s, weather, u"TS"_s},
      {LimitColumn::Weather, u" +tsra  vcfg"_s, {}, u"+TSRA VCFG"_s},
  };
  LimitsEditor editor(program);
  for (const auto& c : cases) {
    editor.select(0, int(c.column));
    editor.edit();
    EXPECT_EQ(editor.commit(c.typed), c.said.isEmpty()) << c.typed.toStdString();
    EXPECT_EQ(said(), c.said);
    EXPECT_EQ(editor.list().at(0)[int(c.column)], c.cell);
  }
  editor.close();
  EXPECT_EQ(stored(table::空港別制限), u"1,RJTT,2,,,30000,,,,+TSRA VCFG|2,ALL,3,,,,30,,,"_s);
}

TEST_F(EditorsTest, ANewRowOfLimitsTakesTheConditionThatIsFree) {
  LimitsEditor editor(program);
  for (const QStringView condition : {u"1", u"2", u"3"}) {
    editor.addRow();
    EXPECT_TRUE(editor.commit(u"RJTT"_s));
    EXPECT_EQ(editor.list().current()[int(LimitColumn::Condition)], condition);
  }
  editor.addRow();
  EXPECT_FALSE(editor.commit(u"RJTT"_s));
  EXPECT_EQ(said(), u"RJTT はすでに登録されています　　"_s);
  editor.select(0, int(LimitColumn::Condition));
  editor.edit();
  EXPECT_FALSE(editor.commit(u"3"_s));
  EXPECT_EQ(said(), u"RJTT 条件3 はすでに登録されています　　"_s);
  answer(true);
  editor.remove();
  EXPECT_EQ(said(), u"RJTT 条件1 を削除しますか？　　"_s);
  editor.close(); // the row without a code is dropped
  EXPECT_EQ(stored(table::空港別制限), u"1,RJTT,2,,,,,,,|2,RJTT,3,,,,,,,"_s);
}

TEST_F(EditorsTest, DictionaryKeysAreComparedWithTheOthers) {
  struct Case {
    int row;
    int column;
    QString typed;
    QString said;
    QString cell;
  };
  const Case cases[] = {
      {0, 0, u"ra"_s, {}, u"RA"_s}, // itself does not count
      {0, 0, u"sn"_s, u"SN はすでに登録されています　　"_s, u"RA"_s},
      {0, 0, u" Sn "_s, u" SN  はすでに登録されています　　"_s, u"RA"_s},
      {0, 0, u"dz"_s, {}, u"DZ"_s},
      {1, 1, u"Snow（雪）"_s, {}, u"Snow（雪）"_s},
  };
  DictionaryEditor editor(program, DictionaryMode::Abbreviations);
  EXPECT_EQ(editor.title(), u" 天気略語"_s);
  for (const Case& c : cases) {
    editor.select(c.row, c.column);
    editor.edit();
    EXPECT_EQ(editor.commit(c.typed), c.said.isEmpty());
    EXPECT_EQ(said(), c.said);
    EXPECT_EQ(editor.cellText(), c.cell);
  }
  editor.moveUp();
  answer(true);
  editor.select(2, 0);
  editor.remove();
  EXPECT_EQ(said(), u"BR を削除しますか？　　"_s);
  editor.addRow();
  editor.close();
  EXPECT_EQ(stored(table::気象略語), u"1,SN,Snow（雪）|2,DZ,雨"_s);
}

TEST_F(EditorsTest, AnUntouchedDictionaryIsNotWritten) {
  const int revision = program.tables.revision();
  DictionaryEditor editor(program, DictionaryMode::Phrases);
  editor.select(0, 1);
  editor.edit();
  editor.abandon();
  editor.close();
  EXPECT_EQ(program.tables.revision(), revision);
  EXPECT_EQ(editor.title(), u" 日本語解析"_s);
}

TEST_F(EditorsTest, PicturesAreRegisteredBehindAYes) {
  const QString refusal = u"画像ファイル（PNG、JPEG、GIF、BMP、8 MB まで）を指定してください　　"_s;
  const QString question = u"写真を登録しますか？　　"_s;
  struct Case {
    const char* what;
    QByteArray bytes;
    bool accepted;
  };
  const Case cases[] = {
      {"JPEG", QByteArray("\xFF\xD8\xFF\xE0 jpeg"), true},
      {"GIF", "GIF89a..", true},
      {"BMP", "BM......", true},
      {"beginning alone", "GIF89a", false},
      {"text", "picture", false},
      {"page", "<html>", false},
      {"empty", "", false},
      {"too large", png + QByteArray(largestPicture, 'x'), false},
      {"largest", png + QByteArray(largestPicture - png.size(), 'x'), true},
  };
  DictionaryEditor editor(program, DictionaryMode::Pictures);
  EXPECT_EQ(editor.title(), u" 画像登録"_s);
  editor.select(1, 1);
  EXPECT_EQ(editor.picture(), png);
  editor.addRow();
  editor.edit();
  editor.remove();
  EXPECT_FALSE(editor.canAdd() || editor.canEdit() || editor.canRemove() || editor.canMoveUp());
  editor.select(0, 0);
  EXPECT_EQ(editor.picture(), QByteArray());
  QByteArray stored;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    answer(true);
    editor.registerPicture(c.bytes);
    run.desk.dialogs.answers.clear();
    EXPECT_EQ(said(), c.accepted ? question : refusal);
    if (c.accepted)
      stored = c.bytes;
    EXPECT_TRUE(program.tables.picture(u"CB") == stored);
    EXPECT_EQ(editor.picture() == c.bytes, c.accepted);
  }
  editor.registerPicture(png); // no: in view, not stored
  EXPECT_EQ(editor.picture(), png);
  editor.select(1, 0);
  answer(true);
  editor.registerPicture("BM of another");
  EXPECT_EQ(program.tables.pictures().valueAt(1, u"データ").toByteArray(), "BM of another");
  EXPECT_TRUE(program.tables.picture(u"CB") == stored);
  editor.select(0, 0);
  editor.decodes = [](const QByteArray&) { return false; };
  editor.registerPicture("GIF87a damaged");
  said();
  editor.registerPictureFile(world.path(u"missing.png"_s));
  EXPECT_EQ(said(), refusal);
  EXPECT_TRUE(program.tables.picture(u"CB") == stored);
  editor.close();
  EXPECT_EQ(program.tables.pictures().recordCount(), 2);
}

TEST_F(EditorsTest, APrinterIsChosenByTheFormsRules) {
  using enum PrinterSelection::Purpose;
  struct Case {
    QStringList installed;
    QString stored;
    PrinterSelection::Purpose purpose;
    int selected;
    bool confirmEnabled;
    QString captions;
  };
  const QStringList two = {u"A"_s, u"B"_s};
  const Case cases[] = {
      {two, u"*"_s, Print, 1, true, u"キャンセル/印 刷"_s},
      {two, u"A"_s, Setup, 0, true, u"キャンセル/設 定"_s},
      {two, u"GONE"_s, Print, -1, false, u"キャンセル/印 刷"_s},
      {{}, u"A"_s, Print, 0, false, u"閉じる/印 刷"_s},
  };
  for (const Case& c : cases) {
    PrinterSelection form(c.installed, c.stored, u"B"_s, c.purpose);
    EXPECT_EQ(form.selected(), c.selected);
    EXPECT_EQ(form.confirmEnabled(), c.confirmEnabled);
    EXPECT_EQ(form.chosen().has_value(), c.confirmEnabled);
    EXPECT_EQ(form.cancelCaption() + u'/' + form.confirmCaption(), c.captions);
    form.select(1);
    EXPECT_EQ(form.chosen(), c.installed.isEmpty() ? std::nullopt : std::optional(u"B"_s));
  }
}
