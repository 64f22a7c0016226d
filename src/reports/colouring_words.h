// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>

/// The words of the colouring, each list in the order in which it is painted. A later paint stands over an
/// earlier one. Case counts everywhere.
namespace soran::colouring {

/// How a weather word stands out.
enum class Emphasis {
  Own,     ///< in 天気略語の色
  Red,     ///< in red
  RedBold, ///< in red and bold
};

struct WeatherWord {
  QStringView word;
  Emphasis emphasis = Emphasis::Own;
};

/// Present weather (WMO No. 306, code table 4678), the words of good weather, and the signs of intensity.
/// A word more is a line of the change, not the whole table.
// clang-format off
inline constexpr WeatherWord weatherWords[] = {
    {u"VC"},   {u"MI"}, {u"BC"}, {u"PR"},    {u"DR"},    {u"BL"},  {u"SH"},  {u"TS"},  {u"FZ"},
    {u"DZ"},   {u"RA"}, {u"SN"}, {u"SG"},    {u"IC"},    {u"PL"},  {u"GR"},  {u"GS"},  {u"BR"},
    {u"FG"},   {u"FU"}, {u"VA"}, {u"DU"},    {u"SA"},    {u"HZ"},  {u"PO"},  {u"SQ"},  {u"FC"},
    {u"SS"},   {u"DS"}, {u"RE"}, {u"CAVOK"}, {u"NOSIG"}, {u"SKC"}, {u"NSC"}, {u"NSW"}, {u"WS", Emphasis::Red},
    {u"RI++"}, {u"-"},  {u"+"},
};
// clang-format on

/// The clouds of thunderstorms.
inline constexpr WeatherWord stormClouds[] = {
    {u"CB", Emphasis::RedBold},
    {u"TCU", Emphasis::RedBold},
};

struct KindWord {
  QStringView word;
  qsizetype behind = 0; ///< characters painted behind the word
};

/// The kinds of a report that differ from the routine one; SPECI takes the station's code with it.
inline constexpr KindWord kindWords[] = {{u"SPECI", 6}, {u"AMD"}, {u"COR"}, {u"TRD"}};

/// A group that tells the height of a cloud base, or of the vertical visibility, in hundreds of feet.
struct CeilingForm {
  QStringView word;
  bool oktas = false;        ///< eighths of the sky stand in front, and fewer than 5 are no ceiling
  bool mayBeUnknown = false; ///< "///" is no height; elsewhere it reads 0
};

/// Groups of a broken or overcast layer. The last two are those of Japanese remarks: 6CU008.
inline constexpr CeilingForm ceilingForms[] = {
    {u"BKN", false, true},
    {u"OVC", false, true},
    {u"CU", true},
    {u"ST", true},
};

/// The group of a sky that cannot be seen. VV/// counts as the lowest value.
inline constexpr CeilingForm verticalVisibility = {u"VV"};

/// Words behind which four figures are a time and no visibility.
inline constexpr QStringView timeWords[] = {u"FCST", u"NEXT", u"BECMG", u"TEMPO"};

/// Where the readings of visibility and of runway visual range begin.
inline constexpr QStringView groupGap = u" ";
inline constexpr QStringView runway = u"R";

/// The line that tells of a fetch under way.
inline constexpr QStringView loading = u"LOADING";
inline constexpr qsizetype loadingLength = 30;

/// Begins the headline of a report that is not of now; its whole line stands out above all else.
inline constexpr QStringView lastKnown = u"*** LAST KNOWN";

/// A sign behind a blank, given back unless weather follows it.
inline constexpr QStringView freeSign = u" -";

/// Words that hold a painted word by chance and get the colour of the text back.
// clang-format off
inline constexpr QStringView restoredWords[] = {
    u"SAVE", u"DISABLED",
    u"BLW", u"FCST", u"FORECAST", u"FORECASTS",
    u"COMPLETED", u"AIRPORT", u"PRESS", u"PRINT", u"READY", u"OBSERVATION",
    u"OVC", u"TEMPO",
    u"GROUP", u"SCHEDULE", u"SS ", u"POSITION", u"RESET", u"REDUCE",
    u"TSNO",
    u"ISSUED",
    u"FBL",
    u"TRANSLATION",
    u"SHIFT", u"CROSSED", u"LIMIT", u"SHARED", u"REACHED",
    freeSign,
    u"SAND",
    u"RAB", u"SNB", u"DZB", u"TSB", u"RAE", u"SNE", u"DZE", u"TSE",
    u"RECONNECT",
    u"ELV 1220",
    u"N-", u"E-", u"W-", u"S-",
};
// clang-format on

} // namespace soran::colouring
