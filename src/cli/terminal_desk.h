// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/terminal_output.h"
#include "platform/dialogs.h"
#include "platform/forms.h"
#include "platform/pages.h"
#include "platform/sounds.h"

#include <functional>

namespace soran {

/// The user's desk on a terminal: messages and questions are lines, a sound is the bell, a page is its
/// address, and a form shows what can be shown in lines.
class TerminalDesk final : public Dialogs, public Forms, public Sounds, public Pages {
 public:
  TerminalDesk(TerminalOutput& output, const Shutdown& shutdown) : output_(output), shutdown_(shutdown) {}

  /// Forms that have something to show here, by what they show; any other needs the window. Returns false
  /// where the form is none of them.
  std::function<bool(const Form& form)> showForm = [](const Form&) { return false; };
  /// The address of a page was shown in place of the pane.
  std::function<void()> onPane = [] {};

  bool question(const QString& title, const QString& text) override;
  void message(const QString& title, const QString& text) override;
  std::optional<QString> openFile(const QString& title) override { return saveFile(title, QString()); }
  std::optional<QString> saveFile(const QString& title, const QString& suggestion) override;
  std::optional<QString> choosePrinter(const QStringList& printers, const QString& current) override;

  void show(const Form& form) override;
  ModalOutcome showModal(const ModalForm& form) override;
  void hide(const Form&) override {}
  std::optional<int> textColumns() const override { return output_.columns(); }

  void play(const QString&) override { output_.ring(); }

  void openExternally(const QString& address) override { output_.tell(address); }
  void openInPane(const QString& address) override;
  void closePane() override {}

 private:
  void tellNeedsWindow(const QString& name);

  TerminalOutput& output_;
  const Shutdown& shutdown_;
};

/// The printer that the user's answer names: its number, counted from 1, its name, or the current one for an
/// empty answer; nothing for any other.
std::optional<QString> printerOf(const QString& answer, const QStringList& printers, const QString& current);

} // namespace soran
