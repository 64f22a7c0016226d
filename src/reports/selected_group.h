// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/settings_record.h"

#include <QDate>
#include <QStringView>

/// A selected group and what its explanations are made from. Internal to this folder.
namespace soran {

struct SelectedGroup {
  QStringView group;  ///< the selection without blanks
  QStringView screen; ///< the whole text
  qsizetype start;    ///< of the selection, from 0
  qsizetype end;      ///< behind the selection, from 0
  QDate today;
  const SettingsRecord& settings;
};

/// Each of these writes its explanation to `tip` and returns true where the group is one of its kind.
bool explainCloud(const SelectedGroup& selected, QString& tip);
bool explainCloudType(const SelectedGroup& selected, QString& tip);
bool explainTemperatures(const SelectedGroup& selected, QString& tip);
bool explainHalfOfTemperatures(const SelectedGroup& selected, QString& tip);
bool explainReportTime(const SelectedGroup& selected, QString& tip);
bool explainValidity(const SelectedGroup& selected, QString& tip);

} // namespace soran
