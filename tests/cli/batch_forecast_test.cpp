// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/batch.h"
#include "support/printing.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace soran;

namespace {

const QJsonObject job{
    {u"op"_s, u"taf_at"_s},
    {u"metar"_s, u"METAR RJTT 220430Z 34012G24KT 310V010 4000 R34L/0700V1200U -SHRA VV/// 24/M01 Q1008"_s},
    {u"taf"_s, u"TAF RJTT 220505Z 2206/2312 16008KT 9999 FEW030 PROB30 TEMPO 2206/2208 0700 FG BKN003= "_s},
    {u"time"_s, u"1530"_s},
    {u"now"_s, u"2026-08-22T05:00:00"_s}};

QJsonObject answerTo(QJsonObject object) {
  return QJsonDocument::fromJson(answerJob(QJsonDocument(object).toJson(QJsonDocument::Compact))).object();
}

/// The value with the words of the text in the place of their stretches.
QJsonValue inWords(const QJsonValue& value, QStringView text) {
  if (value.isObject()) {
    QJsonObject object = value.toObject();
    for (auto i = object.begin(); i != object.end(); ++i)
      *i = inWords(*i, text);
    return object;
  }
  if (!value.isArray())
    return value;
  QJsonArray array = value.toArray();
  if (array.size() == 2 && array[0].isDouble())
    return text.mid(array[0].toInt(), array[1].toInt()).toString();
  for (auto i = array.begin(); i != array.end(); ++i)
    *i = inWords(*i, text);
  return array;
}

QString compact(const QJsonValue& value, const QString& textField) {
  const QString text = job[textField].toString();
  return QString::fromUtf8(
      QJsonDocument(inWords(value, text).toObject()).toJson(QJsonDocument::Compact).replace('"', '\''));
}

TEST(BoardJob, GivesTheRowOfTheBoard) {
  QJsonObject board = job;
  board[u"op"_s] = u"board"_s;
  board[u"code"_s] = u"RJTT"_s;
  board[u"before"_s] = u"RJTT 220400Z 34012KT 9999 FEW030 24/18 Q1008"_s;
  board[u"now"_s] = u"2026-08-22T06:20:00"_s;
  board.remove(u"time"_s);
  const QJsonObject row = answerTo(board)[u"result"].toObject();
  // VV/// counts as the least height; the next METAR has not come.
  EXPECT_EQ(row[u"state"], u"L3"_s);
  EXPECT_EQ(row[u"level"], 3);
  EXPECT_EQ(row[u"observed"], u"2026-08-22T04:30:00Z"_s);
  EXPECT_EQ(row[u"values"], answerTo(job)[u"result"][u"metar"][u"values"]);
  EXPECT_EQ(row[u"findings"][0][u"group"], u"VV///"_s);
  EXPECT_EQ(row[u"findings"][1][u"element"], u"RVR"_s);
  EXPECT_EQ(row[u"outlook"][u"1"][u"group"], u"0700"_s);
  EXPECT_EQ(row[u"outlook"][u"1"][u"begins"], u"2026-08-22T06:20:00Z"_s);
  EXPECT_EQ(row[u"cells"][u"AGE"], u"1h50 OVERDUE"_s);
  EXPECT_EQ(row[u"cells"][u"REPORT"], u"METAR 0430Z"_s);
  EXPECT_EQ(row[u"cells"][u"CHANGE"], u"WIND↑ VIS↓ CIG↓"_s);
  board[u"now"_s] = u"2026-08-23T12:00:00"_s;
  for (const QString& text : {u"metar"_s, u"before"_s})
    board.remove(text);
  const QJsonObject late = answerTo(board)[u"result"].toObject();
  EXPECT_EQ(late[u"state"], u"NO DATA"_s);
  EXPECT_EQ(late[u"taf_expired"], true);
  EXPECT_TRUE(late[u"outlook"][u"6"].isNull());
}

TEST(TafAt, GivesSlicesValuesAndTheWorst) {
  const QJsonObject result = answerTo(job)[u"result"].toObject();
  EXPECT_EQ(result[u"at"], u"2026-08-22T06:30:00Z"_s);
  const QJsonObject taf = result[u"taf"].toObject();
  EXPECT_EQ(
      compact(taf[u"slices"].toArray()[1], u"taf"_s),
      u"{'from':'2026-08-22T06:00:00Z','kind':'prob_tempo','probability':30,'to':'2026-08-22T08:00:00Z',"
      "'values':{'ceiling':{'feet':300,'words':'BKN003'},'clouds':['BKN003'],'visibility':{'bound':'exact',"
      "'metres':700,'words':'0700'},'weather':['FG']},'words':'PROB30 TEMPO 2206/2208 0700 FG BKN003'}");
  EXPECT_EQ(taf[u"from"], u"2026-08-22T06:00:00Z"_s);
  EXPECT_EQ(taf[u"state"], u"in force"_s);
  EXPECT_EQ(compact(result[u"worst"], u"taf"_s), u"{'condition':3,'element':'visibility','limit':800,'report'"
                                                 u":'TAF','slice':1,'value':700,'words':'0700'}");
  EXPECT_TRUE(result[u"text"].toString().contains(u"確率 30% 一時的 (TEMPO) ： 0700 FG BKN003\r\n"));

  const QJsonObject metar = result[u"metar"].toObject();
  EXPECT_EQ(
      compact(metar[u"values"], u"metar"_s),
      u"{'ceiling':{'feet':null,'words':'VV///'},'clouds':['VV///'],'qnh':{'hPa':1008,'words':'Q1008'},"
      "'rvr':{'bound':'exact','metres':700,'runway':'34L','tendency':'U','words':'R34L/0700V1200U'},"
      "'sector':{'from':310,'to':10,'words':'310V010'},"
      "'temperatures':{'air':24,'dewPoint':-1,'words':'24/M01'},"
      "'visibility':{'bound':'exact','metres':4000,'words':'4000'},'weather':['-SHRA'],"
      "'wind':{'direction':340,'gust':{'bound':'exact','value':24},'speed':{'bound':'exact','value':12},"
      "'unit':'KT','variable':false,'words':'34012G24KT'}}");
  EXPECT_EQ(metar[u"trend"], false);
}

TEST(TafAt, FollowsTheSettingsOfTheJob) {
  QJsonObject other = job;
  other[u"settings"_s] = QJsonObject{{u"計器気象状態を強調"_s, false}, {u"LOCAL使用"_s, false}};
  const QJsonObject result = answerTo(other)[u"result"].toObject();
  EXPECT_TRUE(result[u"worst"].isNull());
  EXPECT_EQ(result[u"at"], u"2026-08-22T15:30:00Z"_s);
}

TEST(TafAt, AnswersWhatItCannotTake) {
  const struct {
    QString field;
    QJsonValue value;
    bool fails;
  } cases[] = {
      {u"time"_s, u"2500"_s, true},       {u"time"_s, 1530, true},  {u"now"_s, u"2026-08-22"_s, true},
      {u"taf"_s, QJsonValue::Null, true}, {u"taf"_s, u""_s, false}, {u"metar"_s, u"<html>"_s, false},
      {u"further"_s, u""_s, true},
  };
  for (const auto& c : cases) {
    QJsonObject other = job;
    other[c.field] = c.value;
    EXPECT_EQ(answerTo(other).contains(u"error"), c.fails) << c.field.toStdString();
  }
  for (const QString& field : {u"metar"_s, u"taf"_s}) {
    QJsonObject other = job;
    other.remove(field);
    EXPECT_TRUE(answerTo(other)[u"result"].toObject()[field].isNull());
  }
}

} // namespace
