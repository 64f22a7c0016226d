// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/printing.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using Rows = QList<QStringList>;

QString delivered(QStringView path) {
  return QStringView(SORAN_SOURCE_DIR).toString().append(u"/delivered/"_s).append(path);
}

// The rows of a table file, two cells each; lines that begin with "# " are comments.
Rows table(QStringView name) {
  QFile file(delivered(u"tables/"_s.append(name).append(u".tsv"_s)));
  Rows rows;
  if (!file.open(QIODevice::ReadOnly))
    return rows;
  for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts))
    if (!line.startsWith(u"# "))
      rows << line.split(u'\t');
  return rows;
}

QSet<QString> keys(const Rows& rows) {
  QSet<QString> result;
  for (const QStringList& row : rows)
    result << row.first();
  return result;
}

// A table whose keys are unique and whose cells carry no blanks at their ends.
Rows soundTable(QStringView name) {
  const Rows rows = table(name);
  EXPECT_FALSE(rows.isEmpty()) << name.toUtf8().toStdString();
  EXPECT_EQ(keys(rows).size(), rows.size()) << "a key stands twice in " << name.toUtf8().toStdString();
  for (const QStringList& row : rows) {
    EXPECT_EQ(row.size(), 2) << row.join(u'|').toStdString();
    for (const QString& cell : row)
      EXPECT_EQ(cell, cell.trimmed());
    EXPECT_FALSE(row.first().isEmpty());
    EXPECT_EQ(row.first(), row.first().toUpper());
  }
  return rows;
}

const QSet<QString> commands = [] {
  const QStringList words = (u"UPDATE JAPANESE PICTURE RESET COUNTER HELP AIS ATO PRINT /P RL CLS DE GP AP "
                             u"WX CAM LOG EXIT SS SQ JP LIMITS BOARD MAP"_s)
                                .split(u' ');
  return QSet<QString>(words.begin(), words.end());
}();

} // namespace

TEST(DeliveredTables, AirportsHaveACodeOfFourLettersAndAName) {
  static const QRegularExpression code(u"^[A-Z]{4}$"_s);
  const Rows airports = soundTable(u"飛行場情報");
  EXPECT_GE(airports.size(), 100);
  for (const QStringList& row : airports) {
    EXPECT_TRUE(code.match(row[0]).hasMatch()) << row[0].toStdString();
    EXPECT_FALSE(row[1].isEmpty() || row[1].contains(u'('));
    EXPECT_FALSE(row[1].endsWith(u"空港") || row[1].endsWith(u"飛行場")) << row[1].toStdString();
  }
  for (const QStringList& row : soundTable(u"自動デコード"))
    EXPECT_TRUE(airports.contains(row)) << row[0].toStdString();
}

TEST(DeliveredTables, GroupsListKnownAirportsAndHideNoWord) {
  const QSet<QString> airports = keys(table(u"飛行場情報"));
  const QSet<QString> words = keys(table(u"気象略語")) | keys(table(u"日本語解析"));
  for (const QStringList& row : soundTable(u"カンパニー")) {
    EXPECT_FALSE(commands.contains(row[0]) || airports.contains(row[0]) || words.contains(row[0]));
    for (const QString& code : row[1].split(u' '))
      EXPECT_TRUE(airports.contains(code)) << code.toStdString();
  }
}

TEST(DeliveredTables, DictionariesHideNoCommandAndNoStation) {
  const QSet<QString> airports = keys(table(u"飛行場情報"));
  for (const QStringView name : {u"気象略語", u"日本語解析"}) {
    for (const QStringList& row : soundTable(name)) {
      const QString& key = row[0];
      const bool weatherCode = key == u"SS" || key == u"SQ"; // a command only with a list behind it
      EXPECT_TRUE(weatherCode || !commands.contains(key)) << key.toStdString();
      EXPECT_FALSE(airports.contains(key)) << key.toStdString();
      EXPECT_FALSE(key.startsWith(u"ETA ") || key.startsWith(u"SS ") || key.startsWith(u"SQ ") ||
                   key.startsWith(u"JP "));
      EXPECT_FALSE(row[1].section(u'(', 0, 0).trimmed().isEmpty()) << key.toStdString();
      EXPECT_FALSE(row[1].contains(u'（') || row[1].contains(u'）')) << key.toStdString();
      EXPECT_EQ(row[1].count(u'('), row[1].count(u')')) << key.toStdString();
    }
  }
  EXPECT_GE(table(u"気象略語").size(), 300);
  EXPECT_GE(table(u"日本語解析").size(), 100);
}

// WMO code table 4678: descriptors, precipitation, obscuration, other phenomena.
TEST(DeliveredTables, EveryWeatherCodeHasAMeaning) {
  const QSet<QString> words = keys(table(u"気象略語"));
  for (const QString& code : u"VC MI BC PR DR BL SH TS FZ DZ RA SN SG IC PL GR GS UP "
                             "BR FG FU VA DU SA HZ PY PO SQ FC SS DS RE"_s.split(u' '))
    EXPECT_TRUE(words.contains(code)) << code.toStdString();
  const QSet<QString> phrases = keys(table(u"日本語解析"));
  for (const QString& group :
       u"-RA RA +RA -SHRA SHRA +SHRA -SN SN +SN -SHSN SHSN +SHSN -TSRA TSRA +TSRA -RASN "
       "VCSH VCTS VCFG BCFG MIFG PRFG FZFG FZRA -FZRA FZDZ -DZ BR HZ FG FU DRSN BLSN "
       "NSW NCD NSC CAVOK NOSIG SKC CLR //"_s.split(u' '))
    EXPECT_TRUE(phrases.contains(group)) << group.toStdString();
}

TEST(DeliveredTables, PicturesBelongToWordsAndAreReadable) {
  const QSet<QString> words = keys(table(u"気象略語")) | keys(table(u"日本語解析"));
  int pictures = 0;
  for (const QStringList& row : soundTable(u"データ")) {
    EXPECT_TRUE(words.contains(row[0])) << row[0].toStdString();
    if (row[1].isEmpty())
      continue;
    ++pictures;
    const QString path = delivered(u"pictures/"_s.append(row[1]));
    QFile picture(path);
    ASSERT_TRUE(picture.open(QIODevice::ReadOnly)) << row[1].toStdString();
    EXPECT_EQ(picture.read(8), QByteArray::fromHex("89504e470d0a1a0a")) << row[1].toStdString();
    EXPECT_TRUE(QFileInfo::exists(path.chopped(4).append(u".svg"_s))) << row[1].toStdString();
  }
  EXPECT_GE(pictures, 16);
}
