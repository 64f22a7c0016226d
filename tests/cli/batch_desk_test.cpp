// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Reports as plain values for scripts.

#include "cli/batch.h"
#include "support/printing.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace soran;

namespace {

/// The result of a job, or its error, as JSON with single quotes.
QString answerTo(const QString& line) {
  QString job = line;
  const QJsonObject answer = QJsonDocument::fromJson(answerJob(job.replace(u'\'', u'"').toUtf8())).object();
  if (answer.contains(u"error"))
    return u"error: " + answer[u"error"].toString();
  const QJsonValue result = answer[u"result"];
  const QJsonDocument document =
      result.isArray() ? QJsonDocument(result.toArray()) : QJsonDocument(result.toObject());
  return QString::fromUtf8(document.toJson(QJsonDocument::Compact)).replace(u'"', u'\'');
}

QString elements(const QString& text) {
  return answerTo(u"{'op':'elements','text':'" + text + u"','now':'2026-11-24T05:40Z'}");
}

QString tafAt(const QString& time) {
  return answerTo(u"{'op':'taf_at','text':'TAF RJTT 240505Z 2406/2512 16008KT 9999 FEW030 "
                  "PROB30 TEMPO 2406/2408 0700 FG BKN003 TEMPO 2409/2411 18030G45KT "
                  "BECMG 2409/2411 34025KT 5000 -RA BKN012','at':'" +
                  time + u"','now':'2026-11-24T05:40Z'}");
}

} // namespace

TEST(Elements, AreNumbersAndNothingIsNoNumber) {
  const std::pair<QString, QString> cases[] = {
      {u"METAR RJTT 240530Z 33015G28KT 0700 R34L/0550VP1800D R04/P2000N +TSRA BKN002 OVC010 12/M01 Q1013 "
       "BECMG TL0600 9999 RMK 1ST002 A2992="_s,
       u"{'ceiling_ft':200,'code':'RJTT','dew_c':-1,'gust_kt':28,'kind':'METAR','qnh_hpa':1013,'rvr_m':550,"
       "'temp_c':12,'time':'2026-11-24T05:30Z','trend':'BECMG TL0600 9999','vis_m':700,'weather':['+TSRA'],"
       "'wind_dir':330,'wind_kt':15}"_s},
      {u"240500Z VRB03KT CAVOK 12/02 A2992"_s,
       u"{'ceiling_ft':null,'code':null,'dew_c':2,'gust_kt':null,'kind':'METAR','qnh_hpa':1013.2,"
       "'rvr_m':null,'temp_c':12,'time':'2026-11-24T05:00Z','trend':null,'vis_m':10000,'weather':[],"
       "'wind_dir':'VRB','wind_kt':3}"_s},
      {u"SPECI KJFK 240512Z AUTO 18010G20KT 1/2SM R04R/2400FT FG VV002 M02/M03 A2992 RMK AO2"_s,
       u"{'ceiling_ft':200,'code':'KJFK','dew_c':-3,'gust_kt':20,'kind':'SPECI','qnh_hpa':1013.2,"
       "'rvr_m':732,'temp_c':-2,'time':'2026-11-24T05:12Z','trend':null,'vis_m':805,'weather':['FG'],"
       "'wind_dir':180,'wind_kt':10}"_s},
      {u"UUEE 240500Z 00005MPS 9999 // VV/// ///// Q//// NOSIG"_s,
       u"{'ceiling_ft':null,'code':'UUEE','dew_c':null,'gust_kt':null,'kind':'METAR','qnh_hpa':null,"
       "'rvr_m':null,'temp_c':null,'time':'2026-11-24T05:00Z','trend':'NOSIG','vis_m':10000,'weather':[],"
       "'wind_dir':0,'wind_kt':10}"_s},
      {u"hello"_s, u"error: field \"text\" is no METAR or SPECI"_s},
      {u"TAF RJTT 240505Z 2406/2512 16008KT 9999"_s, u"error: field \"text\" is no METAR or SPECI"_s},
      // What is to come, and another report, change nothing of the observation.
      {u"YSSY 240530Z 33015KT 9999 -UP 25/12 Q1013 FM0600 18020G40KT 0500 FG BKN001 RMK X"_s,
       u"{'ceiling_ft':null,'code':'YSSY','dew_c':12,'gust_kt':null,'kind':'METAR','qnh_hpa':1013,"
       "'rvr_m':null,'temp_c':25,'time':'2026-11-24T05:30Z','trend':'FM0600 18020G40KT 0500 FG BKN001',"
       "'vis_m':10000,'weather':['-UP'],'wind_dir':330,'wind_kt':15}"_s},
      {u"RJTT 240530Z 33015KT 0O00 25/12 Q1013 RJAA 240530Z 18005G30KT 0300 FG VV001"_s,
       u"{'ceiling_ft':null,'code':'RJTT','dew_c':12,'gust_kt':null,'kind':'METAR','qnh_hpa':1013,"
       "'rvr_m':null,'temp_c':25,'time':'2026-11-24T05:30Z','trend':null,'unread':['0O00'],'vis_m':null,"
       "'weather':[],'wind_dir':330,'wind_kt':15}"_s},
  };
  for (const auto& [text, expected] : cases)
    EXPECT_EQ(elements(text).toStdString(), expected.toStdString());
}

TEST(Elements, TakeTheTimeOfTheirJobInEachForm) {
  for (const QString& now : {u"2026-12-01T00:10Z"_s, u"2026-12-01T00:10:00Z"_s, u"2026-12-01T00:10:00"_s,
                             u"2026-12-01T09:10:00+09:00"_s})
    EXPECT_TRUE(answerTo(u"{'op':'elements','text':'RJTT 302330Z 00000KT','now':'" + now + u"'}")
                    .contains(u"'time':'2026-11-30T23:30Z'"));
  for (const QString& now : {u"2026-12-01"_s, u"noon"_s})
    EXPECT_EQ(answerTo(u"{'op':'elements','text':'RJTT 302330Z 00000KT','now':'" + now + u"'}"),
              u"error: field \"now\" is not a time such as 2026-11-24T05:30Z");
}

TEST(PlainTafAt, FillsWhatAGroupLeavesOut) {
  const QString prevailing =
      u"'prevailing':{'ceiling_ft':null,'gust_kt':null,'vis_m':10000,'weather':[],'wind_dir':160,'wind_kt':8}"_s;
  EXPECT_EQ(tafAt(u"2026-11-24T07:00Z"_s),
            u"{'becoming':[]," + prevailing +
                u",'temporary':[{'ceiling_ft':300,'from':'2026-11-24T06:00Z','gust_kt':null,'prob':30,"
                "'to':'2026-11-24T08:00Z','vis_m':700,'weather':['FG'],'wind_dir':160,'wind_kt':8}],"
                "'worst':{'ceiling_ft':300,'gust_kt':null,'vis_m':700,'weather':['FG'],'wind_dir':160,"
                "'wind_kt':8}}");
  // The worst of each element, whichever group has it.
  EXPECT_EQ(tafAt(u"2026-11-24T10:00Z"_s),
            u"{'becoming':[{'ceiling_ft':1200,'gust_kt':null,'vis_m':5000,'weather':['-RA'],'wind_dir':340,"
            "'wind_kt':25}]," +
                prevailing +
                u",'temporary':[{'ceiling_ft':null,'from':'2026-11-24T09:00Z','gust_kt':45,'prob':null,"
                "'to':'2026-11-24T11:00Z','vis_m':10000,'weather':[],'wind_dir':180,'wind_kt':30}],"
                "'worst':{'ceiling_ft':1200,'gust_kt':45,'vis_m':5000,'weather':['-RA'],'wind_dir':180,"
                "'wind_kt':30}}");
  EXPECT_TRUE(tafAt(u"2026-11-25T11:59Z"_s).startsWith(u"{'becoming':[],'prevailing':{'ceiling_ft':1200"));
  for (const QString& time : {u"2026-11-24T05:59Z"_s, u"2026-11-25T12:00Z"_s})
    EXPECT_EQ(tafAt(time), u"error: \"at\" lies outside the validity of the TAF");
}

TEST(PlainTafAt, KeepsWhatNobodyChanged) {
  const auto at = [](const QString& taf) -> QString {
    return answerTo(u"{'op':'taf_at','text':'TAF RJTT 240505Z 2406/2512 34012KT " + taf +
                    u"','at':'2026-11-24T09:30Z','now':'2026-11-24T05:40Z'}");
  };
  // A ceiling ends a CAVOK, and not its visibility; each BECMG changes what prevails.
  const QString becoming = at(u"CAVOK BECMG 2408/2410 18010KT BKN010 BECMG 2409/2411 5000 BR"_s);
  EXPECT_TRUE(becoming.startsWith(
      u"{'becoming':[{'ceiling_ft':1000,'gust_kt':null,'vis_m':10000,'weather':[],'wind_dir':180,'wind_kt':"
      u"10},"
      "{'ceiling_ft':null,'gust_kt':null,'vis_m':5000,'weather':['BR'],'wind_dir':340,'wind_kt':12}]"))
      << becoming.toStdString();
  // INTER is temporary, remarks are no forecast, and a hidden sky is the worst ceiling.
  const QString worst = at(u"9999 OVC010 INTER 2406/2412 0800 FG TEMPO 2409/2411 VV/// RMK 0100 TS"_s);
  EXPECT_TRUE(
      worst.endsWith(u"'worst':{'ceiling_ft':0,'gust_kt':null,'vis_m':800,'weather':['FG'],'wind_dir':"
                     "340,'wind_kt':12}}"))
      << worst.toStdString();
  EXPECT_TRUE(at(u"9999 BECMG 0810 3000"_s).contains(u"'unread':['BECMG 0810 3000']"));
}

TEST(PlainBoard, TakesNoReportOfAnotherStationOrKind) {
  const auto row = [](const QString& reports) -> QString {
    return answerTo(
        u"{'op':'board','now':'2026-11-24T05:40Z','limits':{'vis_m':1600,'wind_kt':19},'reports':[{"
        "'code':'RJTT'," +
        reports + u"}]}");
  };
  const std::pair<QString, QString> cases[] = {
      {u"'metar':'RJAA 240530Z 33015KT 0300 FG','taf':'TAF RJAA 240505Z 2406/2512 34012KT 0100 FG'"_s,
       u"'state':'none','taf_first':null,'taf_state':'unread'"_s},
      {u"'metar':'TAF RJTT 240505Z 2406/2512 34012KT 0100 FG'"_s, u"'state':'none','taf_first':null}"_s},
      // A limit whose element is not told is not kept.
      {u"'metar':'RJTT 240530Z 33005KT //// FEW020','taf':'TAF RJTT 240505Z 2406/2512 CNL'"_s,
       u"'state':'none','taf_first':null,'taf_state':'cancelled'"_s},
      {u"'metar':'RJTT 240530Z 33010MPS 9999 FEW020'"_s, u"'wind_kt':19},'hits':[],'state':'near'"_s},
  };
  for (const auto& [reports, expected] : cases)
    EXPECT_TRUE(row(reports).contains(expected)) << row(reports).toStdString();
}

TEST(PlainBoard, PutsTheWorstFirst) {
  const auto report = [](const QString& code, const QString& metar) -> QString {
    return u"{'code':'" + code + u"','metar':" + (metar.isEmpty() ? u"null"_s : u"'" + code + metar + u"'") +
           u",'taf':null}";
  };
  const QString board =
      u"{'op':'board','now':'2026-11-24T05:40Z','limits':%1,'reports':["_s +
      QStringList({report(u"RJAA"_s, u" 240530Z 36010KT 9999 FEW030"_s), report(u"RJCC"_s, {}),
                   report(u"RJBB"_s, u" 240530Z 36010KT 2000 BKN010"_s),
                   report(u"RJOO"_s, u" 240530Z 36020KT 9999 FEW030"_s),
                   report(u"RJFF"_s, u" 240330Z 36010KT 9999 FEW030"_s),
                   report(u"RJTT"_s, u" 240530Z 33026G38KT 1599 BKN002"_s),
                   report(u"ROAH"_s, u" 240530Z 33010KT 9999 VV///"_s)})
          .join(u',') +
      u"]}";
  const auto states = [&](const QString& limits) -> QString {
    QStringList rows;
    const QString answer = answerTo(board.arg(limits));
    const auto list = QJsonDocument::fromJson(QString(answer).replace(u'\'', u'"').toUtf8()).array();
    for (const QJsonValue& row : list)
      rows.append(row[u"code"].toString() + u' ' + row[u"state"].toString() + u' ' +
                  row[u"hits"].toVariant().toStringList().join(u'+'));
    return list.isEmpty() ? answer : rows.join(u", ");
  };
  EXPECT_EQ(states(u"{'vis_m':1600,'ceiling_ft':200,'wind_kt':25,'gust_kt':38}"_s),
            u"RJTT below vis_m+wind_kt, ROAH below ceiling_ft, RJBB near , RJOO near , RJFF overdue , "
            "RJCC none , RJAA ok ");
  EXPECT_EQ(states(u"{'RJAA':{'wind_kt':9,'vis_m':null},'RJTT':{}}"_s),
            u"RJAA below wind_kt, RJFF overdue , RJCC none , RJBB ok , RJOO ok , RJTT ok , ROAH ok ");
  EXPECT_EQ(states(u"{'rjaa':{'wind_kt':9}}"_s).section(u", "_s, 0, 0), u"RJAA below wind_kt");
  EXPECT_EQ(states(u"{'RJTTX':{'wind_kt':9}}"_s), u"error: \"RJTTX\" is not the code of an airport");
  EXPECT_EQ(answerTo(u"{'op':'board','now':'2026-11-24T05:40Z','reports':[]}"_s),
            u"error: missing field \"limits\"");
  EXPECT_EQ(states(u"{'vis':1600}"_s), u"error: unknown limit \"vis\"");
  EXPECT_EQ(states(u"{'vis_m':'low'}"_s), u"error: \"vis_m\" is not a whole number");
}

TEST(PlainBoard, TellsWhenTheTafIsFirstBeyondALimit) {
  const QString answer = answerTo(
      u"{'op':'board','now':'2026-11-24T09:30Z','limits':{'vis_m':1600,'ceiling_ft':200},'reports':[{'code':"
      "'RJAA','metar':'RJAA 240900Z 36010KT CAVOK','taf':'TAF RJAA 240505Z 2406/2512 16008KT 9999 FEW030 "
      "TEMPO 2409/2412 9999 BKN001 BECMG 2418/2420 1000'}]}"_s);
  EXPECT_TRUE(answer.contains(u"'taf_first':{'at':'2026-11-24T09:30Z','hits':['ceiling_ft']}"))
      << answer.toStdString();
  EXPECT_TRUE(answer.contains(u"'age_min':30,"));
}
