// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/open_forms.h"

#include <algorithm>

namespace soran {

void OpenForms::show(const Form& form) {
  if (goesWithWindow(form) && !isOpen(form))
    open_.push_back(form);
  program_.services.forms.show(form);
}

bool OpenForms::isOpen(const Form& form) const {
  return std::ranges::count(open_, form.index(), &Form::index) > 0;
}

void OpenForms::closed(const Form& form) {
  std::erase_if(open_, [&form](const Form& open) { return open.index() == form.index(); });
}

ModalOutcome OpenForms::showModal(const ModalForm& form) {
  program_.watchTicks = 0;
  const ModalOutcome outcome = program_.services.forms.showModal(form);
  program_.services.shutdown.check();
  listener_.onMenusChanged();
  return outcome;
}

void OpenForms::setMinimised(bool minimised) {
  if (program_.minimised == minimised)
    return;
  Forms& forms = program_.services.forms;
  program_.minimised = minimised;
  for (const Form& form : open_)
    minimised ? forms.hide(form) : forms.show(form);
  if (minimised) {
    // A window that was back for less than the second would have no way back without its icon.
    cycle_.stopTrayTimer();
    forms.show(form::TaskIcon{program_.networkAvailable});
  } else {
    cycle_.startTrayTimer();
  }
}

} // namespace soran
