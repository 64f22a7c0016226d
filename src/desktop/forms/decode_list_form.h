// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/decode_list_editor.h"
#include "terminal/terminal.h"

#include <QDialog>

class QListView;

namespace Ui {
class DecodeListForm;
}

namespace soran {

/// The form `decodelist`: picks the airports of the automatic decode.
class DecodeListForm : public QDialog {
  Q_OBJECT
 public:
  DecodeListForm(QWidget* parent, Terminal& terminal);
  ~DecodeListForm() override;

  /// Writes the list and closes.
  void reject() override;

 private:
  void connectList(QListView& list, void (DecodeListEditor::*select)(int));
  void mirror();
  void showMark(QListView& list, const QStringList& texts, int marked);

  std::unique_ptr<Ui::DecodeListForm> ui_;
  DecodeListEditor editor_;
  bool mirroring_ = false;
};

} // namespace soran
