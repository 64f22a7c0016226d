// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/own_folder.h"

#include <QFile>
#include <QHash>
#include <QProcess>
#include <QStringList>
#include <gtest/gtest.h>
#include <string_view>
#include <vector>

namespace soran {

/// What goes wrong at one call on a file; see fault_injection.cpp.
enum class FaultKind { Kill, Torn, Full, Error, Eio, Enospc, Emfile, Eacces, Eintr, Short };

inline std::string_view nameOf(FaultKind kind) {
  constexpr std::string_view names[] = {"Kill",   "Torn",   "Full",   "Error", "Eio",
                                        "Enospc", "Emfile", "Eacces", "Eintr", "Short"};
  return names[size_t(kind)];
}

/// The calls, by their numbers from 1, at which a fault is tried. A kill is tried at the first, the middle
/// and the last of equal calls in a row, and in the first, the second and the last of such rows; other faults
/// in the middle of the first and the last row, and EIO at all calls on files of settings. With
/// SORAN_EVERY_FAULT in the environment all calls are tried, of a row of more than 32 its first, its last and
/// each eighth: such a row reads or writes the pages of a database, one as the other.
inline std::vector<qsizetype> faultsWorthTrying(const QStringList& calls, FaultKind kind) {
  const bool every = qEnvironmentVariableIsSet("SORAN_EVERY_FAULT");
  const bool kills = kind == FaultKind::Kill;
  constexpr qsizetype longRow = 32;
  constexpr qsizetype stride = 8;
  const int rowsTried = kills ? 2 : 1;
  QHash<QString, int> rows;
  std::vector<qsizetype> worth;
  for (qsizetype first = 0, end = 0; first < calls.size(); first = end) {
    while (end < calls.size() && calls[end] == calls[first])
      ++end;
    if (kind == FaultKind::Torn && !calls[first].startsWith(u"write"))
      continue;
    if (kind == FaultKind::Short && !calls[first].startsWith(u"write") && !calls[first].startsWith(u"read"))
      continue;
    const bool isSettings = kind == FaultKind::Eio && calls[first].endsWith(u".ini");
    const bool tried =
        ++rows[calls[first]] <= rowsTried || isSettings || !calls.mid(end).contains(calls[first]);
    for (qsizetype i = first; i < end; ++i) {
      const bool atEnd = i == first || i == end - 1;
      const bool inTurn = end - first <= longRow || atEnd || (i - first) % stride == 0;
      if ((every && inTurn) || (tried && (i == (first + end) / 2 || (kills && atEnd))))
        worth.push_back(i + 1);
    }
  }
  return worth;
}

/// A program that runs to its end with one fault in its calls on the files below a folder.
class FaultyRun {
 public:
  FaultyRun(QString program, QStringList arguments, QString folder, QByteArray input)
      : program_(std::move(program)), arguments_(std::move(arguments)), folder_(std::move(folder)),
        input_(std::move(input)) {}

  /// Runs without a fault; the calls in their order, each as its name and its path.
  QStringList calls(FaultKind kind) const {
    const OwnFolder outside;
    const QString trace = outside.filePath(QStringLiteral("trace"));
    start(lowerNameOf(kind), 0, trace);
    QFile file(trace);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
  }

  void run(FaultKind kind, qsizetype at) const { start(lowerNameOf(kind), at, {}); }

 private:
  static QString lowerNameOf(FaultKind kind) { return QString::fromLatin1(nameOf(kind).data()).toLower(); }

  void start(const QString& kind, qsizetype at, const QString& trace) const {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LD_PRELOAD"), QString::fromUtf16(SORAN_FAULT_INJECTION));
    // The library does not come behind the sanitizer's own.
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("verify_asan_link_order=0"));
    environment.insert(QStringLiteral("SORAN_FAULT_FOLDER"), folder_);
    environment.insert(QStringLiteral("SORAN_FAULT_KIND"), kind);
    environment.insert(QStringLiteral("SORAN_FAULT_AT"), QString::number(at));
    environment.insert(QStringLiteral("SORAN_FAULT_TRACE"), trace);
    process.setProcessEnvironment(environment);
    process.start(program_, arguments_);
    process.write(input_);
    process.closeWriteChannel();
    ASSERT_TRUE(process.waitForFinished()) << "at call " << at;
  }

  QString program_;
  QStringList arguments_;
  QString folder_;
  QByteArray input_;
};

} // namespace soran
