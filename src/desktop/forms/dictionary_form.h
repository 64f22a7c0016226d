// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/forms/row_actions.h"
#include "forms/dictionary_editor.h"
#include "terminal/terminal.h"

#include <QDialog>

namespace Ui {
class DictionaryForm;
}

namespace soran {

/// The form `weather`: the abbreviations, the phrases, or the pictures.
class DictionaryForm : public QDialog {
  Q_OBJECT
 public:
  DictionaryForm(QWidget* parent, Terminal& terminal, DictionaryMode mode);
  ~DictionaryForm() override;

  /// Writes the list where something has changed, and closes.
  void reject() override;

 private:
  void connectButtons();
  void connectPicture();
  void choosePicture();
  void mirror();

  Terminal& terminal_;
  std::unique_ptr<Ui::DictionaryForm> ui_;
  DictionaryEditor editor_;
  std::unique_ptr<RowActions> actions_;
  QByteArray shownPicture_;
};

} // namespace soran
