// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"

#include <QDialog>
#include <memory>

namespace Ui {
class FontNoteForm;
}

namespace soran {

/// The form `fontmsg`: asks for patience, in the screen's colours. It goes by itself.
class FontNoteForm : public QDialog {
  Q_OBJECT
 public:
  FontNoteForm(QWidget* parent, Colour ground, Colour text);
  ~FontNoteForm() override;

 private:
  std::unique_ptr<Ui::FontNoteForm> ui_;
};

} // namespace soran
