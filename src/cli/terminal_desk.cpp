// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/terminal_desk.h"

#include "cli/ansi.h"

#include <QStringList>

namespace soran {

using namespace Qt::StringLiterals;

bool TerminalDesk::question(const QString& title, const QString& text) {
  QStringList lines;
  for (const QString& line : linesOf(text)) {
    if (!line.trimmed().isEmpty())
      lines.append(line.trimmed());
  }
  const QString last = lines.isEmpty() ? title.trimmed() : lines.takeLast();
  output_.tell(lines.join(u'\n'));
  const QString answer = output_.ask(last + u" [y/N] ", shutdown_).value_or(QString()).trimmed().toLower();
  return answer == u"y" || answer == u"yes";
}

void TerminalDesk::message(const QString&, const QString& text) {
  output_.tell(text, TerminalOutput::Look::Bold);
}

std::optional<QString> TerminalDesk::saveFile(const QString& title, const QString& suggestion) {
  const std::optional<QString> answer = output_.ask(title.trimmed() + u": ", shutdown_, suggestion);
  if (!answer || answer->trimmed().isEmpty())
    return std::nullopt;
  return answer->trimmed();
}

std::optional<QString> printerOf(const QString& answer, const QStringList& printers, const QString& current) {
  const QString wanted = answer.trimmed();
  if (wanted.isEmpty())
    return printers.contains(current) ? std::optional(current) : std::nullopt;
  if (printers.contains(wanted))
    return wanted;
  bool isNumber = false;
  const int number = wanted.toInt(&isNumber);
  if (isNumber && number >= 1 && number <= printers.size())
    return printers[number - 1];
  return std::nullopt;
}

std::optional<QString> TerminalDesk::choosePrinter(const QStringList& printers, const QString& current) {
  if (printers.isEmpty()) {
    output_.tell(u"NO PRINTER INSTALLED"_s, TerminalOutput::Look::Bold);
    return std::nullopt;
  }
  for (qsizetype i = 0; i < printers.size(); ++i)
    output_.tell(QString::number(i + 1).rightJustified(3) + (printers[i] == current ? u" * " : u"   ") +
                 printers[i]);
  const std::optional<QString> answer = output_.ask(u"PRINTER [*]: "_s, shutdown_);
  return answer ? printerOf(*answer, printers, current) : std::nullopt;
}

void TerminalDesk::show(const Form& form) {
  if (!showForm(form))
    tellNeedsWindow(nameOf(form));
}

ModalOutcome TerminalDesk::showModal(const ModalForm& form) {
  // A start without network is told by its failure.
  if (!std::holds_alternative<form::NoConnection>(form))
    tellNeedsWindow(nameOf(form));
  return {};
}

void TerminalDesk::tellNeedsWindow(const QString& name) {
  output_.tell(u"THE FORM " + name + u" NEEDS THE WINDOW: START soran", TerminalOutput::Look::Dim);
}

void TerminalDesk::openInPane(const QString& address) {
  output_.tell(address);
  onPane();
}

} // namespace soran
