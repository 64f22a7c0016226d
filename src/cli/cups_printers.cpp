// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/cups_printers.h"

#include <QProcess>
#include <QStandardPaths>
#include <optional>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr int longestRun = 10'000; // milliseconds

/// What the program writes; nothing where it is missing, fails or does not come to an end.
std::optional<QByteArray> outputOf(const QString& name, const QStringList& arguments,
                                   const QByteArray& input = {}) {
  const QString program = QStandardPaths::findExecutable(name);
  if (program.isEmpty())
    return std::nullopt;
  QProcess process;
  process.start(program, arguments);
  process.write(input);
  process.closeWriteChannel();
  if (!process.waitForFinished(longestRun)) {
    process.kill();
    process.waitForFinished(longestRun);
    return std::nullopt;
  }
  if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
    return std::nullopt;
  return process.readAllStandardOutput();
}

} // namespace

QStringList CupsPrinters::installed() const {
  return QString::fromUtf8(outputOf(u"lpstat"_s, {u"-e"_s}).value_or(QByteArray()))
      .split(u'\n', Qt::SkipEmptyParts);
}

bool CupsPrinters::print(const PrintJob& job) {
  QString text = job.text;
  text.replace(u"\r\n"_s, u"\n"_s);
  return outputOf(u"lp"_s, {u"-d"_s, job.printer, u"-o"_s, u"media=A4"_s, u"-t"_s, u"SORAN"_s}, text.toUtf8())
      .has_value();
}

} // namespace soran
