// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/checked_text.h"
#include "reports/dictionaries.h"
#include "reports/group_reader.h"
#include "store/settings_record.h"

#include <array>

/// The state that the steps of a translation share. Internal to this folder.
namespace soran {

/// A field that may take several lines: its title stands on the first of them.
enum class RepeatedField { Rvr, Weather, Cloud, Remarks };

/// The translation so far. It knows whether the word of a repeated field stands anywhere in it, in a cost
/// that is linear over the whole translation.
class TranslationText {
 public:
  QString text;

  /// Whether the text holds the field's word.
  bool holds(RepeatedField field);

  /// The field's title for its next line: its own on the first line, a blank one of the same width later.
  QStringView title(RepeatedField field);

  /// Replaces throughout the text.
  void replace(const QString& before, const QString& after);

 private:
  struct Watch {
    qsizetype searched = 0; ///< the word does not begin before this place
    bool found = false;
  };
  std::array<Watch, 4> watches_;
};

/// An hour as it is printed, and the letter of its zone.
struct PrintedHour {
  QString hour;
  QStringView zone;
};

/// Everything that the steps of one translation read and write.
struct ReportWalk {
  ReportWalk(QStringView report, const SettingsRecord& record, const Dictionaries& tables)
      : body(report), groups(report), settings(record), dictionaries(tables) {}

  QStringView body; ///< the whole report behind its time group, line feeds made blanks
  GroupReader groups;
  TranslationText out;
  QStringView label; ///< the title of the next line, or the title printed last
  QString time;      ///< the header's time phrase: HH時MM分(Z) 発表
  const SettingsRecord& settings;
  const Dictionaries& dictionaries;

  /// Appends texts and numbers to the translation.
  template <class... Parts>
  void tell(const Parts&... parts) {
    writeAll(out.text, parts...);
  }

  /// Begins a line with the label and appends texts and numbers.
  template <class... Parts>
  void line(const Parts&... parts) {
    writeAll(out.text, crlf, label, parts...);
  }

  /// As line, the title becoming the label.
  template <class... Parts>
  void field(QStringView title, const Parts&... parts) {
    label = title;
    line(parts...);
  }

  /// An hour of the report in the zone of the display: as it stands with "Z" for UTC, else with the offset
  /// added, 24 taken off above 23. An hour below 0 is printed as it is ("-03").
  PrintedHour ToLocal(QStringView hour) const;
};

/// Present weather, cloud and vertical visibility, up to the temperature group, which becomes the current
/// group. Throws TextFailure where the report has none.
void tellWeatherAndCloud(ReportWalk& walk);

/// "No significant change" and the landing forecast.
void tellTrend(ReportWalk& walk);

/// The groups behind RMK.
void tellRemarks(ReportWalk& walk);

/// What is looked for in the whole report, with or without remarks.
void tellClosing(ReportWalk& walk);

/// All of the report behind the header, as the code form means it.
void tellBodyByCode(ReportWalk& walk);

/// A weather group told by its signs and pairs of letters (WMO No. 306, code table 4678).
void tellPairs(ReportWalk& walk, QStringView group);

/// A weather group, or a cloud layer of a known amount; nothing for any other group.
void tellWeatherGroup(ReportWalk& walk, QStringView group);

/// Whether a word of amount stands anywhere in a group.
bool holdsCloudAmount(QStringView group);

/// The word for the cloud of a layer: cumulonimbus, towering cumulus or just cloud.
QStringView cloudWord(QStringView group);

/// The steps of a remark group that belong together.
void tellPrecipitationTimes(ReportWalk& walk);
void tellHourlyPrecipitation(ReportWalk& walk);
void tellTenthsOfTemperature(ReportWalk& walk);
void tellCloudRemark(ReportWalk& walk, bool& cloudsOver, QStringView& amount);
void tellDirections(ReportWalk& walk);

} // namespace soran
