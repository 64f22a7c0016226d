// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <sys/mman.h>
#include <unistd.h>

namespace soran::fuzz {

/// Bytes as a file in memory, read from its beginning.
class InputFile {
 public:
  explicit InputFile(QByteArrayView bytes) : descriptor_(::memfd_create("input", MFD_CLOEXEC)) {
    if (::write(descriptor_, bytes.data(), static_cast<size_t>(bytes.size())) == bytes.size())
      ::lseek(descriptor_, 0, SEEK_SET);
  }
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  ~InputFile() { ::close(descriptor_); }
  int descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

/// The lines of an input: each ends with LF or CR LF, the last one perhaps with the input.
inline QList<QByteArray> linesOf(QByteArrayView input) {
  QList<QByteArray> lines = input.toByteArray().split('\n');
  if (lines.last().isEmpty())
    lines.removeLast();
  const bool ended = input.endsWith('\n');
  for (qsizetype i = 0; i < lines.size(); ++i) {
    if (lines[i].endsWith('\r') && (ended || i + 1 < lines.size()))
      lines[i].chop(1);
  }
  return lines;
}

} // namespace soran::fuzz
