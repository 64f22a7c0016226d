// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIODevice>

namespace soran {

/// The exit statuses of soran-cli besides 0.
inline constexpr int notStarted = 1;
inline constexpr int badArguments = 2;
inline constexpr int outputLost = 4;

/// Standard output or standard error, unbuffered. A write that fails tells less than it was given, and
/// `errorString` tells why.
class StandardStream final : public QIODevice {
 public:
  explicit StandardStream(int descriptor);

  /// Writes all of the bytes; false where some are lost.
  bool writeAll(const QByteArray& bytes) { return write(bytes) == bytes.size(); }

  /// Writes a text that people read, whoever wrote it: what misleads is masked. False where some is lost.
  bool tell(const QString& text);

 protected:
  qint64 readData(char*, qint64) override { return -1; }
  qint64 writeData(const char* bytes, qint64 size) override;

 private:
  int descriptor_;
};

/// Makes lost output an error of the write instead of the process's end, and keeps the numbers of streams
/// that are closed from the files that are opened next.
void guardStandardStreams();

} // namespace soran
