// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/font_note_form.h"

#include "desktop/widgets/look.h"
#include "ui_font_note_form.h"

#include <QTimer>

namespace soran {

FontNoteForm::FontNoteForm(QWidget* parent, Colour ground, Colour text)
    : QDialog(parent), ui_(std::make_unique<Ui::FontNoteForm>()) {
  constexpr int shownMilliseconds = 3000;
  ui_->setupUi(this);
  setAttribute(Qt::WA_ShowWithoutActivating);
  paintLikeScreen(*this, ground, text);
  QTimer::singleShot(shownMilliseconds, this, &QDialog::close);
}

FontNoteForm::~FontNoteForm() = default;

} // namespace soran
