// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/dialogs.h"

#include <QList>
#include <deque>
#include <functional>
#include <utility>

namespace soran {

/// Dialogues that are kept, and answered by what was laid ready: else with no, or by cancelling.
class FakeDialogs final : public Dialogs {
 public:
  struct Said {
    QString title;
    QString text;
  };
  QList<Said> seen; ///< the choice of a printer under the text "printerselect"
  std::deque<bool> answers;
  std::deque<std::optional<QString>> choices; ///< of files and printers
  /// Called for each message and question with its text, before it returns.
  std::function<void(const QString&)> onDialog = [](const QString&) {};

  bool question(const QString& title, const QString& text) override {
    const bool yes = next(answers, false);
    message(title, text);
    return yes;
  }
  void message(const QString& title, const QString& text) override {
    seen.append({title, text});
    onDialog(text);
  }
  std::optional<QString> saveFile(const QString&, const QString&) override { return choice(); }
  std::optional<QString> openFile(const QString&) override { return choice(); }
  std::optional<QString> choosePrinter(const QStringList&, const QString&) override {
    seen.append({{}, QStringLiteral("printerselect")});
    return choice();
  }

 private:
  template <class Value>
  static Value next(std::deque<Value>& ready, const Value& otherwise) {
    const Value value = ready.empty() ? otherwise : ready.front();
    if (!ready.empty())
      ready.pop_front();
    return value;
  }
  std::optional<QString> choice() { return next(choices, std::optional<QString>()); }
};

/// The texts alone.
inline QStringList textsOf(const QList<FakeDialogs::Said>& dialogs) {
  QStringList texts;
  for (const auto& dialog : dialogs)
    texts.append(dialog.text);
  return texts;
}

} // namespace soran
