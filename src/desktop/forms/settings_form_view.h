// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/settings_form.h"
#include "terminal/terminal.h"

#include <QDialog>

namespace Ui {
class SettingsFormView;
}

namespace soran {

/// The form `opton`: the settings in four tabs. Every control writes at once. Its close box is its close
/// button, and may leave it open.
class SettingsFormView : public QDialog {
  Q_OBJECT
 public:
  /// `fonts` are the families to choose from.
  SettingsFormView(QWidget* parent, Terminal& terminal, const QStringList& fonts);
  ~SettingsFormView() override;

  void reject() override;

  /// What the closed form decided; nothing while it is open.
  std::optional<form::EditSettings::Outcome> outcome() const { return form_.outcome(); }

 private:
  SettingsFormHooks hooks();
  std::optional<QString> choosePrinter();
  void nameControls();
  void connectBoxesAndFields();
  void connectCombos();
  void connectSwatches();
  void connectRest();
  void connectButtons();
  void leaveField();
  void pickColour(int swatch);
  void showTab(int tab);

  void mirror();
  void mirrorCombos();
  void mirrorPrinting();

  template <class Control>
  Control* control(QStringView array, int index) const {
    return findChild<Control*>(array + QString::number(index));
  }

  Terminal& terminal_;
  std::unique_ptr<Ui::SettingsFormView> ui_;
  SettingsForm form_;
  int mirroredTab_ = 0;
};

} // namespace soran
