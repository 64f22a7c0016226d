// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services.h"

#include <QJsonArray>
#include <deque>
#include <functional>
#include <optional>

namespace soran {

/// The user's desk where there is no window: whatever would be seen or heard is kept as a list, and answers
/// are those that were laid ready.
class Headless final : public Dialogs, public Forms, public Sounds, public Printers, public Pages {
 public:
  /// What came since the lists were emptied last, in order.
  struct Seen {
    QJsonArray dialogs;
    QJsonArray forms;
    QJsonArray sounds;
    QJsonArray prints;
    QJsonArray pages;
  };
  Seen takeSeen() { return std::exchange(seen_, {}); }

  /// The desk as all that a front end gives.
  FrontEnd frontEnd(Waiting& waiting) { return {*this, *this, *this, *this, *this, waiting}; }

  /// Answers to the next questions, oldest first; a question with none ready is answered with no.
  std::deque<bool> answers;
  /// Answers to the next file or printer dialogues; nothing cancels, as does an empty queue.
  std::deque<std::optional<QString>> choices;
  QStringList printers;

  /// Called for each message and question, with its text; for each form beside the window; and for each form
  /// that the user answers, whose outcome it gives.
  std::function<void(const QString&)> onDialog = [](const QString&) {};
  std::function<void(const Form&)> onForm = [](const Form&) {};
  std::function<ModalOutcome(const ModalForm&)> onModal = [](const ModalForm&) { return ModalOutcome(); };

  bool question(const QString& title, const QString& text) override;
  void message(const QString& title, const QString& text) override;
  std::optional<QString> saveFile(const QString& title, const QString& suggestion) override;
  std::optional<QString> openFile(const QString& title) override;
  std::optional<QString> choosePrinter(const QStringList& installedPrinters, const QString& current) override;

  void show(const Form& form) override;
  ModalOutcome showModal(const ModalForm& form) override;
  void hide(const Form&) override {}
  std::optional<int> textColumns() const override { return 100; }

  void play(const QString& path) override;

  QStringList installed() const override { return printers; }
  bool print(const PrintJob& job) override;

  void openExternally(const QString& address) override { seen_.pages.append(address); }
  void openInPane(const QString& address) override { seen_.pages.append(address); }
  void closePane() override {}

 private:
  std::optional<QString> takeChoice();
  void addDialog(const QString& kind, const QString& title, const QString& text, const QString& answer);

  Seen seen_;
};

} // namespace soran
