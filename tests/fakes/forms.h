// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/forms.h"

#include <QStringList>
#include <functional>

namespace soran {

/// Forms of which the names are kept.
class FakeForms final : public Forms {
 public:
  QStringList seen;
  /// Gives the outcome of a form that the user answers.
  std::function<ModalOutcome(const ModalForm&)> onModal = [](const ModalForm&) { return ModalOutcome(); };

  void show(const Form& form) override { seen.append(nameOf(form)); }
  void hide(const Form&) override {}
  ModalOutcome showModal(const ModalForm& form) override {
    seen.append(nameOf(form));
    return onModal(form);
  }
};

} // namespace soran
