// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTemporaryDir>

namespace soran {

/// A folder of its own among the temporary ones, which goes with the object.
class OwnFolder {
 public:
  /// Throws std::runtime_error where none can be had: "/home" behind an empty name would be somebody else's.
  OwnFolder();

  QString path() const { return folder_.path(); }
  QString filePath(const QString& name) const { return folder_.filePath(name); }

  /// True for a full path below this folder that no link leads elsewhere.
  bool holds(const QString& path) const;
  /// Takes away the folder at this path with all in it; of a link the link alone. Throws
  /// std::invalid_argument, and nothing goes, where this folder does not hold it.
  void remove(const QString& path) const;

 private:
  QTemporaryDir folder_;
};

} // namespace soran
