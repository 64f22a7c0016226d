// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "delivered.h"
#include "reports/sample_tables.h"
#include "reports/translate_report.h"
#include "support/printing.h"
#include "support/sample_reports.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace soran;

namespace {

QString translate(const QString& body, bool byCode = true, const QString& time = QStringLiteral("0630Z"),
                  const QString& code = QStringLiteral("RJTT")) {
  static const Dictionaries tables(delivered::airports(), delivered::abbreviations(), delivered::phrases(),
                                   delivered::stations());
  return TranslateReport(StationCode(code), time, body, zoned(false, QStringLiteral("+9"), byCode), tables);
}

struct Claim {
  QStringView told;  ///< a sentence with its numbers
  QStringView group; ///< what the report must hold for it, with the numbers in the places of $1 to $4
};

// The other way round than the translation, so that a mistake of one is not a mistake of both.
constexpr Claim claims[] = {
    {u"風速 0\\.4ノット以下の静穏な風", u"00000KT"},
    {u"風向が特定できない (\\d+)ノットの風 / 最大瞬間風速 (\\d+)ノット", u"VRB0*$1G0*$2KT"},
    {u"風向が特定できない (\\d+)ノットの風", u"VRB0*$1KT"},
    {u"(\\d{3})°方向から (\\d+)(?:ノット)? / 最大瞬間風速 (\\d+)(?:ノット)?", u"$10*$2G0*$3(KT)?"},
    {u"(\\d{3})°方向から (\\d+)ノット", u"$10*$2KT"},
    {u"(\\d{3})°から (\\d{3})°の間", u"$1V$2"},
    {u"10キロメートル以上", u"9999"},
    {u"10陸マイル \\(Statute Mile\\) 以上", u"10SM"},
    {u"(\\d[\\d/ ]*) 陸マイル", u"$1SM"},
    {u"滑走路(\\w+)のRVRは、(\\d+)(?:メートル|フィート)\\S*から(\\d+)",
     u"R$1/[MP]?0*$2V[MP]?0*$3(FT)?[UDN]?"},
    {u"滑走路(\\w+)のRVRは、(\\d+)(?:メートル|フィート)", u"R$1/[MP]?0*$2(FT)?[UDN]?"},
    {u"(?:視程　　 ：|地上視程) (\\d+)メートル", u"(?=\\d{4}\\b)0*$1"},
    {u"(\\d*?)0?0フィートに少量の(?:雲|積乱雲|塔状積雲)", u"FEW(?=\\d{3})0*$1(CB|TCU)?"},
    {u"(\\d*?)0?0フィートに散在(?:した|する)(?:雲|積乱雲|塔状積雲)", u"SCT(?=\\d{3})0*$1(CB|TCU)?"},
    {u"(\\d*?)0?0フィートに多量の(?:雲|積乱雲|塔状積雲)", u"BKN(?=\\d{3})0*$1(CB|TCU)?"},
    {u"(\\d*?)0?0フィートに全天を覆う(?:雲|積乱雲|塔状積雲)", u"OVC(?=\\d{3})0*$1(CB|TCU)?"},
    {u"(\\d*?)0?0フィートに少量の\\S+ \\((..).*?\\)", u"[12][A-Z]{2,3}0*$1"},
    {u"(\\d*?)0?0フィートに散在した\\S+ \\((..).*?\\)", u"[34][A-Z]{2,3}0*$1"},
    {u"(\\d*?)0?0フィートに多量の\\S+ \\((..).*?\\)", u"[567][A-Z]{2,3}0*$1"},
    {u"(\\d*?)0?0フィートに全天を覆う\\S+ \\((..).*?\\)", u"8[A-Z]{2,3}0*$1"},
    {u"雲底高度 (\\d*?)0?0フィートから(\\d*?)0?0フィート", u"CIG 0*$1V0*$2"},
    {u"雲底高度 (\\d*?)0?0フィート", u"CIG 0*$1"},
    {u"気温　　 ： マイナス (\\d+)℃", u"M0?$1/\\S*"},
    {u"気温　　 ： (\\d+)℃", u"0?$1/\\S*"},
    {u"露点温度　　 ： マイナス (\\d+)℃", u"M?\\d\\d/M0?$1"},
    {u"露点温度　　 ： (\\d+)℃", u"M?\\d\\d/0?$1"},
    {u"(\\d\\d)\\.(\\d\\d)インチ水銀柱 \\([\\d.]+ヘクトパスカル\\)", u"A$1$2"},
    {u"地上気圧　　 ： (\\d+)\\.0ヘクト", u"Q0?$1"},
    {u"海面水位圧力 9(\\d\\d)\\.(\\d)", u"SLP(?=[5-9])$1$2"},
    {u"海面水位圧力 10(\\d\\d)\\.(\\d)", u"SLP(?=[0-4])$1$2"},
    {u"(\\d\\d)時(\\d\\d)分\\(Z\\)", u"(\\w*[BE]|FM|TL|AT)($1)?$2([A-Z]\\w*)?"},
    {u"地上気温 マイナス (\\d+)\\.(\\d)℃", u"T10*$1$2\\d{4}"},
    {u"地上気温 (\\d+)\\.(\\d)℃", u"T00*$1$2\\d{4}"},
    {u"露点温度 マイナス (\\d+)\\.(\\d)℃", u"T\\d{4}10*$1$2"},
    {u"露点温度 (\\d+)\\.(\\d)℃", u"T\\d{4}00*$1$2"},
    {u"過去6時間以内の最高気温 (\\d+)\\.(\\d)℃", u"100*$1$2"},
    {u"過去6時間以内の最低気温 (\\d+)\\.(\\d)℃", u"200*$1$2"},
    {u"過去24時間以内の最高気温 (\\d+)\\.(\\d)℃", u"400*$1$2\\d{4}"},
    {u"過去24時間以内の最低気温 (\\d+)\\.(\\d)℃", u"4\\d{4}00*$1$2"},
    {u"過去1時間あたりの降水量 0\\.01インチ以下", u"P0000"},
    {u"過去1時間あたりの降水量 (\\d+)\\.(\\d+)インチ", u"P0*$1$20?"},
    {u"過去[36]時間の降水量 0\\.01インチ以下", u"60000"},
    {u"過去[36]時間の降水量 (\\d+)\\.(\\d+)インチ", u"60*$1$20?"},
    {u"過去24時間の降水量 (\\d+)\\.(\\d+)インチ", u"70*$1$20?"},
    {u"過去3時間の気圧変化 マイナス (\\d+)\\.(\\d)", u"5[5-8]0*$1$2"},
    {u"過去3時間の気圧変化 (\\d+)\\.(\\d)", u"5[0-4]0*$1$2"},
    {u"12000フィート以下に雲を検知せず", u"CLR"},
};

/// The lines behind the header whose numbers the report does not hold.
QStringList unheld(const QString& report, QString told) {
  told.remove(0, told.indexOf(u"\r\n\r\n"));
  static const QList<QRegularExpression> sentences = [] {
    QList<QRegularExpression> list;
    for (const Claim& claim : claims)
      list.append(QRegularExpression(claim.told.toString()));
    return list;
  }();
  for (qsizetype c = 0; c < sentences.size(); ++c) {
    const QRegularExpression& sentence = sentences[c];
    for (auto match = sentence.match(told); match.hasMatch();
         match = sentence.match(told, match.capturedStart())) {
      QString group = claims[c].group.toString();
      for (int i = 1; i <= match.lastCapturedIndex(); ++i)
        group.replace(u'$' + QString::number(i), match.captured(i));
      const bool held = QRegularExpression(QStringLiteral("(^|[ \\n])(%1)(?=[ \\n=]|$)").arg(group))
                            .match(report)
                            .hasMatch();
      told.replace(match.capturedStart(), match.capturedLength(),
                   held ? QStringLiteral("-") : QStringLiteral("0"));
      if (!held)
        return {match.captured()};
    }
  }
  return told.split(QStringLiteral("\r\n")).filter(QRegularExpression(QStringLiteral("\\d")));
}

/// The METAR and SPECI of the samples, from their time on.
QStringList recordedReports() {
  static const QRegularExpression kind(QStringLiteral("^(?:METAR |SPECI )?[A-Z]{4} (\\d{6}Z .*)"));
  QStringList reports;
  for (const SampleReport& sample : sampleReports()) {
    const auto report = kind.match(sample.text);
    if (report.hasMatch())
      reports.append(report.captured(1));
  }
  return reports;
}

} // namespace

TEST(TranslateByCode, TellsNoNumberThatTheReportDoesNotHold) {
  int wrongByFixedRules = 0;
  const QStringList reports = recordedReports();
  for (const QString& report : reports) {
    const QString body = report.section(u' ', 1);
    const QString time = report.left(7).sliced(2);
    EXPECT_EQ(unheld(body, translate(body, true, time)), QStringList()) << report.toStdString();
    wrongByFixedRules += unheld(body, translate(body, false, time)).isEmpty() ? 0 : 1;
  }
  EXPECT_FALSE(reports.isEmpty());
  // What the check is worth: reports whose pressures alone are told 100 hPa low.
  EXPECT_GE(wrongByFixedRules, qEnvironmentVariableIsSet("SORAN_REPORTS") ? 0 : 112);
}

TEST(TranslateByCode, TellsEachGroupAsTheCodeMeansIt) {
  const struct {
    QStringView report, told;
  } cases[] = {
      {u"AUTO -RA CLR 31/26 A2984 RMK AO2 SLP145 60012 58004 $",
       u"観測形態__ ： 自動観測装置による観測 (METAR AUTO)|風向/風速__： 風の通報なし|"
       u"地上視程__ ： 視程の通報なし|現在天気__ ： 弱い雨  雲なし "
       u"(自動観測で12000フィート以下に雲を検知せず)|"
       u"地上気温__ ： 31℃|露点温度__ ： 26℃|高度計規正値 ： 29.84インチ水銀柱 (1010.5ヘクトパスカル)|"
       u"備__考__ ： 降水測定機能のある自動観測装置による観測|________海面水位圧力 1014.5ヘクトパスカル|"
       u"________過去6時間の降水量 0.12インチ|________過去3時間の気圧変化 マイナス 0.4ヘクトパスカル|"
       u"________自動観測装置のメンテナンスが必要"},
      {u"COR VRB03G15KT 2 1/2SM R34L/M0600V1200U R05/P6000FT R16/0550N VV/// //////CB ///015 M01/ Q1013 "
       u"A2992=",
       u"観測形態__ ： 訂正報 (COR)|風向/風速__： 風向が特定できない 3ノットの風 / 最大瞬間風速 15ノット|"
       u"地上視程__ ： 2 1/2 陸マイル (Statute Mile)|滑走路視距離 ： "
       u"滑走路34LのRVRは、600メートル(測定範囲の下限)から1200メートルの間を変動しながら上昇中|"
       u"________滑走路05のRVRは、6000フィート(測定範囲の上限)を超えており、変化傾向は不明|"
       u"________滑走路16のRVRは、550メートルで、変化なし|鉛直視程__ ： 鉛直視程の通報なし|"
       u"現在天気__ ： 積乱雲あり (雲量と雲底高度は不明)|雲量/高度__： 1500フィートに雲量不明な雲|"
       u"地上気温__ ： マイナス 1℃|露点温度__ ： 露点温度の通報なし|地上気圧__ ： 1013.0ヘクトパスカル|"
       u"高度計規正値 ： 29.92インチ水銀柱 (1013.2ヘクトパスカル)"},
      {u"/////KT //// // BKN/// ///// Q////",
       u"風向/風速__： 風の通報なし|地上視程__ ： 視程の通報なし|現在天気__ ： 天気を観測できない|"
       u"雲量/高度__： 雲低高度不明な多量の雲|地上気温__ ： 気温の通報なし|露点温度__ ： 露点温度の通報なし|"
       u"地上気圧__ ： 気圧の通報なし"},
      {u"NIL", u"観測形態__ ： 通報なし (NIL)|風向/風速__： 風の通報なし|地上視程__ ： 視程の通報なし|"
               u"地上気温__ ： 気温の通報なし|露点温度__ ： 露点温度の通報なし|地上気圧__ ： 気圧の通報なし"},
      {u"VRB01KT 6000 SHRA 25/24 Q1015 RETSRA WS R34L WS ALL RWY REFCPL ODD1 BECMG 12006KT NSW FEW020CB "
       u"TEMPO FM0800 "
       "-TSRA BR VV002 TEMPO CAVOK TEMPO +FCPL",
       u"風向/風速__： 風向が特定できない 1ノットの風|地上視程__ ： 6000メートル|現在天気__ ： しゅう雨|"
       u"地上気温__ ： 25℃|露点温度__ ： 24℃|地上気圧__ ： 1015.0ヘクトパスカル|"
       u"補足記事__ ： 直近に雨を伴う雷電|________滑走路34Lにウィンドシァー警報|"
       u"________すべての滑走路にウィンドシァー警報|________REFCPL / 直近に 漏斗雲(FC) 凍雨(PL)|"
       u"着陸予報__ ： 風が 120°方向から 6ノット 顕著な天気現象なし 2000フィートに少量の積乱雲 に序々に変化|"
       u"________08時00分(Z)以降、弱い雨を伴う雷電 もや 鉛直視程 200フィート に一時的に変化|"
       u"________視程10キロメートル以上、運航上重要な雲と天気現象なし に一時的に変化|"
       u"________+FCPL / 強い(+) 漏斗雲(FC) 凍雨(PL) に一時的に変化"},
      {u"///P49MPS 5000 1500SW 18/12 Q1013 TEMPO VRB05G20KT RASN BECMG AT0700 9999 BKN///",
       u"風向/風速__： 風向の通報なし 50メートル毎秒以上|地上視程__ ： 5000メートル|"
       u"地上視程__ ： 1500メートル (SW)|地上気温__ ： 18℃|露点温度__ ： 12℃|地上気圧__ ： "
       u"1013.0ヘクトパスカル|"
       u"着陸予報__ ： 風が 風向が特定できない 5ノットの風 / 最大瞬間風速 20ノット 雨と雪(みぞれ) "
       u"に一時的に変化|"
       u"________07時00分(Z)に、地上視程 10キロメートル以上 雲低高度不明な多量の雲 に序々に変化"},
      {u"15012G21 M1/4SM FEW030 SCT130 SCT030TCU 18/12 Q1013 RMK 1CU030 3SC030 3TCU030 SLP500 SLPNO "
       u"RAE0455RAB45 "
       u"LIGHTNING N-E CLOUD VIS 3/4V1 CIG 008 RWY18 WS RWY34L 10145 MAX WIND 27045KT FOG ON RWY34L",
       u"風向/風速__： 150°方向から 12 / 最大瞬間風速 21 (単位の通報なし)|"
       u"地上視程__ ： 1/4 陸マイル (Statute Mile) 未満|雲量/高度__： 3000フィートに少量の積雲 (Cumulus)|"
       u"________13000フィートに散在した雲|________3000フィートに散在した塔状積雲 (Towering Cumulus)|"
       u"地上気温__ ： 18℃|露点温度__ ： 12℃|地上気圧__ ： 1013.0ヘクトパスカル|"
       u"備__考__ ： 3000フィートに散在した層積雲 (Stratocumulus)|________海面水位圧力 950.0ヘクトパスカル|"
       u"________海面水位圧力の通報なし|________04時55分(Z)に雨の観測を終了|________05時45分(Z)から雨を観測|"
       u"________空港の北から東方向にかけて稲光を観測|________雲底高度 800フィート|"
       u"________滑走路34Lにウィンドシァー警報|________過去6時間以内の最高気温 14.5℃|"
       u"________最大風速 270°方向から 45ノット|________滑走路 RWY34L 上に霧を観測"},
  };
  for (const auto& c : cases) {
    QString told = translate(c.report.toString());
    told.remove(0, told.indexOf(u"\r\n\r\n") + 4);
    told.chop(2);
    EXPECT_EQ(told.replace(QStringLiteral("\r\n"), QStringLiteral("|")).replace(u'\u3000', u'_'), c.told);
  }
}

TEST(TranslateByCode, PrecipitationIsThatOfThreeHoursOrSix) {
  const std::pair<QString, QStringView> cases[] = {
      {QStringLiteral("0259Z"), u"3"}, {QStringLiteral("0555Z"), u"6"}, {QStringLiteral("1800I"), u"3"}};
  for (const auto& [time, hours] : cases)
    EXPECT_TRUE(translate(QStringLiteral("CALM RMK AO2 60012"), true, time)
                    .contains(QStringLiteral("過去%1時間の降水量 0.12インチ").arg(hours)))
        << time.toStdString();
}

TEST(TranslateByCode, StationsElsewhereHaveTheirNames) {
  const struct {
    QString code;
    QStringView byCode, byFixedRules;
  } cases[] = {
      {QStringLiteral("KSFO"), u"San Francisco International空港", u"空港"},
      {QStringLiteral("BIRK"), u"Reykjavík空港", u"空港"},
      {QStringLiteral("RODE"), u"伊江島空港", u"伊江島空港"},
      {QStringLiteral("SFO"), u"空港", u"空港"},
  };
  for (const auto& c : cases) {
    for (const bool byCode : {true, false}) {
      const QString told =
          translate(QStringLiteral("CALM CAVOK 18/12 Q1013"), byCode, QStringLiteral("0630Z"), c.code);
      EXPECT_TRUE(told.startsWith(QStringView(u"*** ") + (byCode ? c.byCode : c.byFixedRules) + u' '))
          << told.toStdString();
    }
  }
}
