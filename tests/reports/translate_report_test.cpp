// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/translate_report.h"

#include "base/text.h"
#include "reports/sample_tables.h"
#include "support/printing.h"

#include <gtest/gtest.h>
#include <span>

using namespace soran;

namespace {

struct Told {
  QStringView report;
  QStringView lines;
};

QString translate(QStringView body, QStringView time = u"0630Z", QStringView code = u"RJTT") {
  return TranslateReport(StationCode(code.toString()), time, body, zoned(false, QStringLiteral("+9")),
                         sampleTables());
}

/// The lines between the header and the last line end, with "|" for a line end and "_" for U+3000.
QString told(QStringView body) {
  QString text = translate(body);
  EXPECT_EQ(translate(QString(body.toString() + u'\n')), text);
  if (text == untranslatable)
    return text;
  text.remove(0, text.indexOf(u"\r\n\r\n") + 4);
  EXPECT_TRUE(text.endsWith(crlf));
  text.chop(crlf.size());
  return text.replace(crlf.toString(), QStringLiteral("|")).replace(u'\u3000', u'_');
}

void expectTold(std::span<const Told> cases) {
  for (const Told& c : cases)
    EXPECT_EQ(told(c.report), c.lines) << c.report.toUtf8().toStdString();
}

/// Like expectTold, for what stands behind the temperature of a calm and clear report.
void expectToldBehindTemperature(std::span<const Told> cases) {
  const QString before = QStringLiteral("CALM CAVOK 18/12 ");
  const QString start = told(QString(before + QStringLiteral("Q1013")));
  for (const Told& c : cases) {
    const QString all = told(QString(before + c.report.toString()));
    EXPECT_EQ(all, c.lines == untranslatable ? c.lines.toString() : start + c.lines.toString())
        << c.report.toUtf8().toStdString();
  }
}

} // namespace

TEST(TranslateReport, HeaderTellsStationAndKind) {
  const struct {
    QStringView code, time, header;
  } cases[] = {
      {u"RJTT", u"0630Z", u"*** 東京国際空港 定時飛行場実況通報 06時30分(Z) 発表 ***\r\n\r\n"},
      {u" rjtt ", u"0617Z", u"*** 東京国際空港 特別飛行場実況通報 06時17分(Z) 発表 ***\r\n\r\n"},
      {u"RJTF", u"1500I", u"*** 調布飛行場 定時飛行場実況通報 15時00分(I) 発表 ***\r\n\r\n"},
      {u"rjtf", u"2354Z", u"*** 調布空港 定時飛行場実況通報 23時54分(Z) 発表 ***\r\n\r\n"},
      {u"QQQQ", u"2349Z", u"*** 空港 特別飛行場実況通報 23時49分(Z) 発表 ***\r\n\r\n"},
      {u"RODN", u"", u"*** 飛行場 定時飛行場実況通報 時分() 発表 ***\r\n\r\n"},
  };
  for (const auto& c : cases) {
    const QString text = translate(u"CALM CAVOK 18/12 Q1013", c.time, c.code);
    EXPECT_EQ(QStringView(text).first(std::min(text.size(), c.header.size())), c.header);
  }
}

TEST(TranslateReport, BodyIsToldGroupByGroup) {
  constexpr Told cases[] = {
      {u"AUTO 27015G25KT 240V300 4000 R34L/1000U R22/P2000N -SHRA BR FEW010 BKN020CB OVC/// 18/M02 Q1013",
       u"観測形態__ ： 自動観測装置による観測 (METAR AUTO)|"
       u"風向/風速__： 270°方向から 15ノット / 最大瞬間風速 25ノット / 240°から 300°の間で風向変動あり|"
       u"地上視程__ ： 4000メートル|"
       u"滑走路視距離 ： 滑走路34LのRVRは、1000メートルで、さらに上昇中|"
       u"________滑走路22のRVRは、2000メートル(測定範囲の上限)を超えており、変化なし|"
       u"現在天気__ ： -SHRA / 弱い(-) しゅう雨性(SH) 雨(RA)|________BR /  もや(BR)|"
       u"雲量/高度__： 1000フィートに少量の雲|________2000フィートに多量の積乱雲|"
       u"________雲低高度不明な全天を覆う雲|"
       u"地上気温__ ： 18℃|露点温度__ ： マイナス 2℃|地上気圧__ ： 1013.0ヘクトパスカル"},
      {u"CALM CAVOK M00/ A2992", u"風向/風速__： 無風|現在天気__ ： 晴れ|地上気温__ ： マイナス 0℃|"
                                 u"露点温度__ ： 0℃|高度計規正値 ： 29.92インチ水銀柱"},
      {u"09005MPS SKC 5 Q", u"風向/風速__： |現在天気__ ： 快晴|地上気温__ ： 5℃|露点温度__ ： 0℃|"
                            u"地上気圧__ ： 0.0ヘクトパスカル"},
      // Phrases join the line before them; pairs begin a line, and an odd letter counts as a pair.
      {u"CALM 9999 -RA VCSH -+RAZ XXQ FEW010SCT020 VCSH VV003 TCU 18/12 Q1013",
       u"風向/風速__： 無風|地上視程__ ： 10キロメートル以上|現在天気__ ： 弱い雨  付近にしゅう雨|"
       u"________-+RAZ / 強い(+) 雨(RA) 協定世界時(Z)|________XXQ /  記号該当なし(XX) 記号該当なし(Q)|"
       u"雲量/高度__： 1000フィートに少量の雲|雲量/高度__： 1000フィートに散在した雲  付近にしゅう雨|"
       u"鉛直視程__ ： 300 フィート|________TCU /  記号該当なし(TC) 記号該当なし(U)|"
       u"地上気温__ ： 18℃|露点温度__ ： 12℃|地上気圧__ ： 1013.0ヘクトパスカル"},
      {u"CALM 10SM  - LAST FIRST SCT///TCU 18/12 A2992",
       u"風向/風速__： 無風|地上視程__ ： 10陸マイル (Statute Mile) 以上|現在天気__ ：  / 解析不能|"
       u"________- / 弱い(-)|雲量/高度__： 雲低高度不明な散在した塔状積雲|地上気温__ ： 18℃|"
       u"露点温度__ ： 12℃|高度計規正値 ： 29.92インチ水銀柱"},
      // A runway range is only read behind a visibility in metres or miles; elsewhere it is the temperature.
      {u"VRB03KT 9999 R34L/1000U 18/12 Q1013",
       u"風向/風速__： 風向が特定できない 3ノットの風|地上視程__ ： 10キロメートル以上|地上気温__ ： 0℃|"
       u"露点温度__ ： 10℃|地上気圧__ ： 8.0ヘクトパスカル"},
      {u"CALM 1 1/2SM 18/12", u"風向/風速__： 無風|地上視程__ ： 1メートル|地上気温__ ： 1℃|露点温度__ ： 2℃|"
                              u"地上気圧__ ： 0.0ヘクトパスカル"},
      {u"CALM 1/2SM 18/12 Q1013", u"風向/風速__： 無風|地上視程__ ： 1/2 陸マイル (Statute Mile)|"
                                  u"地上気温__ ： 18℃|露点温度__ ： 12℃|地上気圧__ ： 8.0ヘクトパスカル"},
      {u"CALM 6KM\nFEW010\n18/12\nQ1013", u"風向/風速__： 無風|地上視程__ ： 6キロメートル|"
                                          u"雲量/高度__： 1000フィートに少量の雲|地上気温__ ： 18℃|"
                                          u"露点温度__ ： 12℃|地上気圧__ ： 1013.0ヘクトパスカル"},
  };
  expectTold(cases);
}

TEST(TranslateReport, UnforeseenFormsGiveTheFailureTextAlone) {
  const QString endless = QStringLiteral("CALM 9999 ") + QStringLiteral("BR ").repeated(20000);
  const QString reports[] = {
      QString(),
      endless,
      endless + QStringLiteral("LAST"),
      QStringLiteral("CALM 9999 FEW010 Q1013"),
      QStringLiteral("CALM 8000 R34L/1000U"),
      QStringLiteral("CALM 8000 R/0V 18/12 Q1013"),
      QStringLiteral("KT 9999 18/12 Q1013"),
      QStringLiteral("CALM ") + QString(400, u'9') + QStringLiteral(" 18/12 Q1013"),
      QStringLiteral("CALM CAVOK 18/12 Q1013 TEMPO 8010KT RMK A2992"),
  };
  for (const QString& report : reports) {
    EXPECT_EQ(translate(report), untranslatable) << report.left(60).toStdString();
    EXPECT_EQ(translate(QString(report + u'\n')),
              report.endsWith(u"1000U") ? untranslatable : translate(report));
  }
}

TEST(TranslateReport, TrendIsToldUpToTheRemarks) {
  constexpr Told cases[] = {
      {u"Q1013 NOSIG", u"|補足記事__ ： 顕著な天候変化なし"},
      {u"Q1013 TEMPO 3000 BR", u"|着陸予報__ ： 地上視程 3000メートル に一時的に変化"},
      {u"Q1013 BECMG FM0630 TL080 18010KT RMK A2992",
       u"|着陸予報__ ： 06時30分(Z)以降、08時0分(Z)までに、風が 180°方向から 10ノット に序々に変化"
       u"|備__考__ ： 高度計規正値 29.92インチ水銀柱"},
      {u"Q1013 TEMPO FEW010SCT020 BKN030 OVC040 RASN",
       u"|着陸予報__ ： 1000フィートに少量の雲 1000フィートに散在する雲 3000フィートに多量の雲 "
       u"4000フィートに全天を覆う雲 地上視程 0メートル に一時的に変化"},
      {u"Q1013 TEMPO 3000 RMK FCST", u""},
      {u"Q1013 TEMPO 3000 RMK", u"|着陸予報__ ： 地上視程 3000メートル に一時的に変化"},
  };
  expectToldBehindTemperature(cases);
}

TEST(TranslateReport, HoursFollowTheZoneOfTheDisplay) {
  const struct {
    QString offset;
    QStringView hours;
  } cases[] = {
      {QStringLiteral("+9"), u"15時30分(I)以降、05時00分(I)までに、"},
      {QStringLiteral("-9"), u"-03時30分(V)以降、11時00分(V)までに、"},
      {QStringLiteral("±0"), u"06時30分(Z)以降、20時00分(Z)までに、"},
  };
  for (const auto& c : cases) {
    const QString text =
        TranslateReport(StationCode(QStringLiteral("RJTT")), u"0630Z",
                        u"CALM CAVOK 18/12 Q1013 BECMG FM0630 TL2000", zoned(true, c.offset), sampleTables());
    EXPECT_TRUE(text.contains(c.hours)) << text.toStdString();
  }
}

TEST(TranslateReport, RemarkGroupsAreTold) {
  constexpr Told cases[] = {
      {u"Q1013 RMK", u""},
      // A group keeps its title for all of its lines, and so do the groups that it reads.
      {u"Q1013 RMK AO2 SLP134 T01230056 10145 21098 58023",
       u"|備__考__ ： 降水測定機能のある自動観測装置による観測|________海面水位圧力 913.4ヘクトパスカル"
       u"|________地上気温 12.3℃|________露点温度 5.6℃|________過去6時間以内の最高気温 14.5℃"
       u"|________過去6時間以内の最低気温 マイナス 9.8℃|________過去3時間の気圧変化 2.3ヘクトパスカル"},
      {u"Q1013 RMK T11230056 410331261 A2992",
       u"|備__考__ ： 地上気温 マイナス 12.3℃|備__考__ ： 露点温度 5.6℃"
       u"|備__考__ ： 過去6時間以内の最高気温 マイナス 3.3℃|備__考__ ： 過去6時間以内の最低気温 マイナス "
       u"26.1℃"},
      {u"Q1013 RMK T01230056 403330261",
       u"|備__考__ ： 地上気温 12.3℃|備__考__ ： 露点温度 5.6℃|備__考__ ： 過去6時間以内の最高気温 33.3℃"
       u"|備__考__ ： 過去6時間以内の最低気温 26.1℃"},
      {u"Q1013 RMK T01230056 LIGHTNING DSNT NE ",
       u"|備__考__ ： 地上気温 12.3℃|備__考__ ： 露点温度 5.6℃|備__考__ ： 空港の北東方向に稲光を観測"},
      {u"Q1013 RMK LIGHTNING DSNT NE", u"|備__考__ ： 地上気温 0.T℃|備__考__ ： 露点温度 0.G℃"},
      {u"Q1013 RMK P0000 A2978", u"|備__考__ ： 過去1時間あたりの降水量 0.01インチ以下"},
      {u"Q1013 RMK P0112 60123",
       u"|備__考__ ： 過去1時間あたりの降水量 1.12インチ|備__考__ ： 過去6時間の降水量 1.23インチ"},
      {u"Q1013 RMK RAB15 TSB0530 TSE0530 SNB05E45 DZB0530E0610 RAE50 RAB123",
       u"|備__考__ ： 06時15分(Z)から雨を観測|________05時30分(Z)に雷雨の観測を終了"
       u"|________06時05分(Z)から雪を観測し、06時45分(Z)に観測を終了"
       u"|________05時30分(Z)から霧雨を観測し、06時10分(Z)に観測を終了|________06時50分(Z)に雨の観測を終了"},
      {u"Q1013 RMK P/RR P/FR AO1 WS R34L",
       u"|備__考__ ： 地上気圧が急速に上昇中|________地上気圧が急速に下降中"
       u"|________降水測定機能のない自動観測装置による観測|________滑走路34Lにウィンドシァー警報"},
      {u"Q1013 RMK FG DSNT N-E CB OHD XS TCU TO SSW. RA AT E",
       u"|備__考__ ： 空港の北から東方向にかけて霧を観測|________空港の南方向に積乱雲を観測"
       u"|________空港の南南西西方向に塔状積雲を観測|________空港の東方向に雨を観測"},
      {u"Q1013 RMK VIS TO N-W 3KM VIS TO E 1500 CIG 017V021 CIG 015",
       u"|備__考__ ： 空港の北から西方向にかけての視程は 3キロメートル"
       u"|________空港の東方向の視程は 1500メートル|________雲底高度 1700フィートから2100フィートの間を変動"
       u"|________雲底高度 1500フィート"},
  };
  expectToldBehindTemperature(cases);
}

TEST(TranslateReport, CloudRemarksNameTheLayersOfTheBody) {
  constexpr QStringView start = u"風向/風速__： 無風|地上視程__ ： 10キロメートル以上|雲量/高度__： ";
  constexpr QStringView end = u"|地上気温__ ： 18℃|露点温度__ ： 12℃|地上気圧__ ： 1013.0ヘクトパスカル";
  const struct {
    QStringView clouds, remarks, layers, behind;
  } cases[] = {
      {u"FEW030", u"1CU030", u"3000フィートに少量の積雲 (Cumulus)", u""},
      {u"FEW030CB", u"2CB030", u"3000フィートに少量の積乱雲 (Cumulonimbus)", u""},
      {u"FEW030", u"3CU030 1SC050", u"3000フィートに少量の雲",
       u"|備__考__ ： 3000フィートに散在した積雲 (Cumulus)|________5000フィートに少量の層積雲 "
       u"(Stratocumulus)"},
      {u"OVC020", u"8ST020 5XX020 9AC070", u"2000フィートに全天を覆う層雲 (Stratus)",
       u"|備__考__ ： 7000フィートに多量の高積雲 (Altocumulus)"},
      {u"SCT030", u"A2992 3CU030", u"3000フィートに散在した雲",
       u"|備__考__ ： 高度計規正値 29.92インチ水銀柱"},
      // The height of a TCU group stands one place later and reads 0, which any height ends in.
      {u"SCT030", u"3TCU030", u"3000フィートに散在した積雲 (Cumulus) (Towering Cumulus)", u""},
      {u"SCT030", u"9CI250", u"3000フィートに散在した雲", u"|備__考__ ： 25000フィートに巻雲 (Cirrus)"},
  };
  for (const auto& c : cases) {
    const QString report = QStringLiteral("CALM 9999 %1 18/12 Q1013 RMK %2").arg(c.clouds, c.remarks);
    EXPECT_EQ(told(report), start.toString().append(c.layers).append(end).append(c.behind))
        << report.toStdString();
  }
}

TEST(TranslateReport, ClosingLinesTakeTheTitlePrintedLast) {
  constexpr Told cases[] = {
      {u"Q1013 $", u"|地上気圧__ ： 自動観測装置のメンテナンスが必要"},
      {u"Q1013 NOSIG YELLOW SAND", u"|補足記事__ ： 顕著な天候変化なし|補足記事__ ： 黄砂を観測"},
      {u"Q1013 RMK AO2 MAX WIND 45KT $",
       u"|備__考__ ： 降水測定機能のある自動観測装置による観測"
       u"|________最大風速 45ノット|________自動観測装置のメンテナンスが必要"},
      {u"Q1013 RMK FOG ON RWY34L", u"|備__考__ ： 滑走路 RWY34L 上に霧を観測"},
  };
  expectToldBehindTemperature(cases);
}

TEST(TranslateReport, LastGroupIsReadOnceHoweverTheReportEnds) {
  for (const QStringView last : {u"P0112 60123", u"T01230056", u"T01230056 10145", u"T01230056 403330261",
                                 u"T01230056 $", u"T01230056 T02340067", u"AO2", u"VIS TO N 3KM"}) {
    const QString report = QStringLiteral("CALM CAVOK 18/12 Q1013 RMK ").append(last);
    const QString open = told(report);
    EXPECT_NE(open, untranslatable);
    EXPECT_LT(open.count(u'|'), 10) << report.toStdString();
  }
}

TEST(TranslateReport, ReportsOfJapaneseStationsAreTranslated) {
  constexpr QStringView reports[] = {
      u"11009KT 090V150 9999 FEW020 SCT150 27/22 Q1014",
      u"13010KT 5000 R34L/P2000N R22/P2000N R05/2000N -SHRA BR SCT010 BKN015 27/26 Q1013 TEMPO 3000 TSRA BR",
      u"AUTO 35014G20KT 1800 R11/0800VP1800U -SHSN FEW001 BKN010 M01/M03 Q1008 RMK 1ST001 6ST010 A2978 S-W=",
      u"AUTO 05005KT 10SM VCTS OVC017 26/23 A2998 RMK AO2 RAB23E29RAB39E50 CIG 017V021 OVC V BKN SLP151 "
      u"P0000 "
      u"60001 T02610233 53018 $",
      u"18012KT 10SM FEW030 FEW250 33/24 A2988 RMK AO2 SLP118 TCU DSNT NE T03280239 $",
      u"25013KT 200V300 9999 FEW030 SCT/// 13/06 Q1008 BECMG TL1200 23020KT TEMPO FM1200 23026G36KT RMK "
      u"1CU030 "
      u"A2978",
      u"02017KT 9999 BKN014 BKN050 06/03 Q1006 TEMPO FM1000 34020G30KT 4000 -SHSNRA RMK 5CU014 7SC050 A2971 "
      u"MOD "
      u"TURB OBS AT 0830Z 5NM RWY34L 1500FT BY A35K",
      u"AUTO -RA CLR 29/26 A2978 RMK AO2 SLP124 P0000 60000 T02890256 55001 $",
  };
  for (const QStringView report : reports) {
    EXPECT_NE(translate(report), untranslatable) << report.toUtf8().toStdString();
    EXPECT_FALSE(translate(report).contains(u"解析不能"));
    EXPECT_EQ(translate(report), translate(QString(report.toString() + u'\n')))
        << report.toUtf8().toStdString();
  }
}
