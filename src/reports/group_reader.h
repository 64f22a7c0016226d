// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringView>

namespace soran {

/// Takes a report apart into its blank-separated groups, one after the other. The text must outlive the
/// reader. Two blanks in a row hold an empty group between them.
class GroupReader {
 public:
  explicit GroupReader(QStringView text) : rest_(text) {}

  /// The current group.
  QStringView token() const { return token_; }
  /// The text that is not yet taken.
  QStringView rest() const { return rest_; }
  /// Whether a blank stood behind the current group when it was taken.
  bool more() const { return more_; }

  /// Makes the next group the current one. A last group with no blank behind it stays in the rest, so it is
  /// given again by every further call. "LAST" and "FIRST" are passed over, except as the very last group.
  void NextToken();

  /// Puts the current group and a blank in front of the rest.
  void PushBack();

  /// True where the last group was given already and NextToken could only give it once more.
  bool wouldRepeat() const { return lastGiven_ && !rest_.contains(u' '); }

  /// Goes on reading from `rest`, which an earlier rest() gave. The current group stays.
  void setRest(QStringView rest);
  /// Forgets the current group; what follows is read on as before.
  void dropToken();

 private:
  QStringView rest_;
  QStringView token_;
  bool more_ = true;
  bool lastGiven_ = false;
  bool adjacent_ = false;  ///< the current group, one blank and the rest stand one behind the other
  QList<QString> rebuilt_; ///< the rests that do not stand in the text as such
};

} // namespace soran
