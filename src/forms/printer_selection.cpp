// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/printer_selection.h"

namespace soran {

using namespace Qt::StringLiterals;

PrinterSelection::PrinterSelection(const QStringList& installed, const QString& stored,
                                   const QString& current, Purpose purpose)
    : entries_(installed), anyPrinter_(!installed.isEmpty()), purpose_(purpose) {
  if (anyPrinter_)
    selected_ = int(entries_.indexOf(stored == u"*" ? current : stored));
  else
    entries_.append(u" 利用可能なプリンターがありません"_s);
}

void PrinterSelection::select(int entry) {
  if (anyPrinter_ && entry >= 0 && entry < entries_.size())
    selected_ = entry;
}

QString PrinterSelection::cancelCaption() const {
  return anyPrinter_ ? u"キャンセル"_s : u"閉じる"_s;
}

QString PrinterSelection::confirmCaption() const {
  return purpose_ == Purpose::Setup ? u"設 定"_s : u"印 刷"_s;
}

std::optional<QString> PrinterSelection::chosen() const {
  if (!confirmEnabled())
    return std::nullopt;
  return entries_[selected_];
}

} // namespace soran
