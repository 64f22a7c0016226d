// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/headless.h"

#include <QFileInfo>
#include <QJsonObject>

namespace soran {

using namespace Qt::StringLiterals;

void Headless::addDialog(const QString& kind, const QString& title, const QString& text,
                         const QString& answer) {
  seen_.dialogs.append(
      QJsonObject{{u"kind"_s, kind}, {u"title"_s, title}, {u"text"_s, text}, {u"answer"_s, answer}});
  onDialog(text);
}

bool Headless::question(const QString& title, const QString& text) {
  bool yes = false;
  if (!answers.empty()) {
    yes = answers.front();
    answers.pop_front();
  }
  addDialog(u"question"_s, title, text, yes ? u"yes"_s : u"no"_s);
  return yes;
}

void Headless::message(const QString& title, const QString& text) {
  addDialog(u"message"_s, title, text, u"ok"_s);
}

std::optional<QString> Headless::takeChoice() {
  if (choices.empty())
    return std::nullopt;
  std::optional<QString> choice = choices.front();
  choices.pop_front();
  return choice;
}

std::optional<QString> Headless::saveFile(const QString&, const QString&) {
  return takeChoice();
}

std::optional<QString> Headless::openFile(const QString&) {
  return takeChoice();
}

std::optional<QString> Headless::choosePrinter(const QStringList&, const QString&) {
  seen_.forms.append(u"printerselect"_s);
  return takeChoice();
}

void Headless::show(const Form& form) {
  seen_.forms.append(nameOf(form));
  onForm(form);
}

ModalOutcome Headless::showModal(const ModalForm& form) {
  seen_.forms.append(nameOf(form));
  return onModal(form);
}

void Headless::play(const QString& path) {
  seen_.sounds.append(QFileInfo(path).fileName());
}

bool Headless::print(const PrintJob& job) {
  seen_.prints.append(QJsonObject{{u"printer"_s, job.printer},
                                  {u"text"_s, job.text},
                                  {u"font"_s, job.font},
                                  {u"size"_s, job.size},
                                  {u"bold"_s, job.bold}});
  return true;
}

} // namespace soran
