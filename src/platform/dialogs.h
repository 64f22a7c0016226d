// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFileInfo>
#include <QString>
#include <QStringList>
#include <optional>

namespace soran {

/// Questions and messages that hold everything until the user has answered. Titles start with a blank; line
/// ends are those that the program sets.
class Dialogs {
 public:
  virtual ~Dialogs() = default;

  /// A yes and no question; true for yes.
  virtual bool question(const QString& title, const QString& text) = 0;

  /// A message with one button.
  virtual void message(const QString& title, const QString& text) = 0;

  /// The path under which to save, beginning with `suggestion`; nothing where the user cancelled.
  virtual std::optional<QString> saveFile(const QString& title, const QString& suggestion) = 0;

  /// The path of an existing file to read; nothing where the user cancelled.
  virtual std::optional<QString> openFile(const QString& title) = 0;

  /// One of `printers`, `current` being chosen at first; nothing where the user cancelled.
  virtual std::optional<QString> choosePrinter(const QStringList& printers, const QString& current) = 0;
};

/// Whether a file of that name may be written: where there is one, the user is asked.
inline bool mayWriteOver(Dialogs& dialogs, const QString& file) {
  const QFileInfo info(file);
  return !info.exists() ||
         dialogs.question(QStringLiteral(" 確認"),
                          info.fileName() + QStringLiteral(" はすでに存在します  \r\r上書きしますか？　　"));
}

} // namespace soran
