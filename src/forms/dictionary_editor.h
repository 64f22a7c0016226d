// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/edited_list.h"
#include "platform/forms.h"

#include <optional>

namespace soran {

/// The form `weather` without its window. It edits the abbreviations or the phrases (column 0 the key, column
/// 1 the meaning), written as it closes where something has changed; or it registers pictures for the names
/// of the picture table, which are written at once.
class DictionaryEditor {
 public:
  DictionaryEditor(Program& program, DictionaryMode mode);

  QString title() const;
  QString keyHeading() const;
  /// The heading of column 1, empty where there is none.
  QString meaningHeading() const;
  bool registersPictures() const { return mode_ == DictionaryMode::Pictures; }

  const EditedList& list() const { return list_; }
  int column() const { return column_; }
  void select(int row, int column);

  bool canAdd() const { return !registersPictures(); }
  bool canEdit() const { return !registersPictures() && list_.hasSelection(); }
  bool canRemove() const { return canEdit(); }
  bool canMoveUp() const { return !registersPictures() && list_.canMoveUp(); }
  bool canMoveDown() const { return !registersPictures() && list_.canMoveDown(); }

  /// A cell is open for editing, with this text at first.
  bool editing() const { return editing_; }
  QString cellText() const;
  /// What the open cell makes of a typed text: keys are upper case.
  QString held(const QString& typed) const;

  void edit();
  void addRow();
  void remove();
  void moveUp();
  void moveDown();

  /// Enter in the open cell. False where the key is that of another row; that was told, and the cell stays
  /// open.
  bool commit(const QString& text);
  void abandon();

  /// The picture in view: that of the chosen row, or the one dropped last; empty where there is none.
  const QByteArray& picture() const { return picture_; }
  /// Shows a picture file and registers it for the chosen row behind a yes. What is no picture is refused
  /// with a message.
  void registerPicture(const QByteArray& bytes);
  void registerPictureFile(const QString& path);

  /// Writes the list where something has changed.
  void close();

  /// True where the bytes can be shown as a picture.
  std::function<bool(const QByteArray&)> decodes = [](const QByteArray&) { return true; };
  /// Something looks otherwise than before.
  std::function<void()> changed = [] {};

 private:
  QString* currentCell();
  bool isTaken(const QString& key) const;
  void storePicture(const QString& name);
  void showPictureOfRow();
  void refusePicture();

  Program& program_;
  DictionaryMode mode_;
  EditedList list_;
  int column_ = 0;
  bool editing_ = false;
  bool dirty_ = false;
  QByteArray picture_;
};

} // namespace soran
