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

TEST(BoardJob, TakesLimitsOfTheAirportAndItsRunway) {
  QJsonObject board{{u"op"_s, u"board"_s},
                    {u"code"_s, u"RJTT"_s},
                    {u"metar"_s, u"RJTT 220430Z 24020G28KT 9999 -TSRA FEW030 24/18 Q1008"_s},
                    {u"now"_s, u"2026-08-22T04:40:00"_s}};
  const auto limited = [&](const QJsonArray& rows) {
    board[u"settings"_s] = QJsonObject{{u"空港別制限"_s, rows}};
    const QJsonObject answer = answerTo(board);
    QStringList found;
    for (const auto& finding : answer[u"result"][u"findings"].toArray())
      found += finding[u"element"].toString() + u' ' + QString::number(finding[u"value"].toInt()) + u'/' +
               QString::number(finding[u"limit"].toInt()) + (finding[u"above"].toBool() ? u'+' : u'-');
    return answer.contains(u"error") ? answer[u"error"].toString() : found.join(u' ');
  };
  const QString code = u"ICAOコード"_s;
  const QString condition = u"条件"_s;
  const struct {
    QJsonArray rows;
    QString found;
  } cases[] = {
      {{}, {}},
      {{QJsonObject{{code, u"RJTT"_s}, {condition, 3}, {u"横風"_s, 8}, {u"風速"_s, 20}, {u"突風"_s, 27}}},
       u"XWIND 9/8+ GUST 28/27+"_s},
      {{QJsonObject{{code, u"all"_s}, {condition, 2}, {u"天気"_s, u"ts"_s}, {u"視程"_s, QJsonValue::Null}}},
       u"WX 0/0-"_s},
      {{QJsonObject{{code, u"RJAA"_s}, {condition, 1}, {u"風速"_s, 5}}}, {}},
      {{QJsonObject{{code, u"RJTT"_s}, {condition, 0}}}, u"not a limit of an airport: \"条件\" 0"_s},
      {{QJsonObject{{code, u"RJTT"_s}, {condition, 1}, {u"視程"_s, u"800"_s}}},
       u"\"視程\" is not a number"_s},
      {{QJsonObject{{code, u"RJTT"_s}, {condition, 1}, {u"雲"_s, 1}}}, u"unknown field \"雲\""_s},
      {{QJsonObject{{condition, 1}}}, u"not a limit of an airport: \"ICAOコード\" "_s},
      {{QJsonObject{{code, u"RJTT"_s}, {condition, 1}}, QJsonObject{{code, u"rjtt"_s}, {condition, 1}}},
       u"a second row of limits of RJTT 1"_s},
      {{1}, u"a row of limits is not an object"_s},
  };
  for (const auto& c : cases)
    EXPECT_EQ(limited(c.rows), c.found) << QJsonDocument(c.rows).toJson().toStdString();
  board.remove(u"settings"_s);
  EXPECT_EQ(answerTo(board)[u"result"][u"cells"][u"RWY"], u"23 H27 R9"_s);
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
  EXPECT_EQ(compact(result[u"worst"], u"taf"_s),
            u"{'above':false,'condition':3,'element':'visibility','limit':800,'report'"
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
  // The airport is that of the TAF; a limit of the runway is one of its runways.
  other[u"taf"_s] = u"TAF RJTT 220505Z 2206/2312 24020KT 9999 FEW030 TEMPO 2215/2217 VRB25G40KT"_s;
  const auto worstLine = [&](const QJsonObject& limits) {
    QJsonObject row{{u"ICAOコード"_s, u"RJTT"_s}, {u"条件"_s, 2}};
    for (auto i = limits.begin(); i != limits.end(); ++i)
      row[i.key()] = i.value();
    other[u"settings"_s] = QJsonObject{{u"計器気象状態を強調"_s, false}, {u"空港別制限"_s, QJsonArray{row}}};
    return answerTo(other)[u"result"][u"text"].toString().section(u"最も悪い予報 ： "_s, 1).trimmed();
  };
  other[u"time"_s] = u"1600Z"_s;
  EXPECT_EQ(worstLine({{u"風速"_s, 24}, {u"横風"_s, 30}}),
            u"TAF 一時的 (TEMPO) 23 0000I - 23 0200I に 横風 VRB25G40KT\r\n"
            "      条件2 の制限値 30 kt を 10 kt 上回る"_s);
  other[u"taf"_s] = u"TAF RJTT 220505Z 2206/2312 00000KT 9999 +SHRA FEW030"_s;
  EXPECT_EQ(worstLine({{u"天気"_s, u"SHRA"_s}}),
            u"TAF 卓越する状態 22 1500I - 23 2100I に 天気 +SHRA\r\n      条件2 の天気に当たる"_s);
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
