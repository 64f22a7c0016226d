// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace soran {

/// The form `printerselect` without its window: one of the installed printers, to print on or to be stored.
class PrinterSelection {
 public:
  enum class Purpose { Print, Setup };
  static constexpr QStringView title = u" プリンター選択";

  /// `stored` is the setting プリンター, `current` the printer chosen last.
  PrinterSelection(const QStringList& installed, const QString& stored, const QString& current,
                   Purpose purpose);

  /// The entries of the list; a note where there is no printer.
  const QStringList& entries() const { return entries_; }
  bool listEnabled() const { return anyPrinter_; }
  int selected() const { return selected_; }
  void select(int entry);

  QString cancelCaption() const;
  QString confirmCaption() const;
  bool confirmEnabled() const { return anyPrinter_ && selected_ >= 0; }

  /// The printer to take when the user confirms; nothing where that is not enabled.
  std::optional<QString> chosen() const;

 private:
  QStringList entries_;
  bool anyPrinter_;
  int selected_ = 0;
  Purpose purpose_;
};

} // namespace soran
