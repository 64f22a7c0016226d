// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <QPointer>
#include <QStyledItemDelegate>
#include <functional>

namespace soran {

/// The field `txt` over an open cell of an editor. Only Enter commits, and whatever else ends the edit throws
/// the typed text away; with `keepsTyped` only Esc does so.
class CellDelegate : public QStyledItemDelegate {
  Q_OBJECT
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QString tip;             ///< the tool tip of the field
  bool keepsTyped = false; ///< for rows of many cells
  /// What the field makes of a typed text.
  std::function<QString(const QString&)> held = [](const QString& typed) { return typed; };
  /// Enter; false where the cell stays open.
  std::function<bool(const QString&)> commit = [](const QString&) { return true; };
  std::function<void()> abandon = [] {};

  /// What is typed counts where it is kept; false where it was refused, and the cell stays open.
  bool leave();

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
  /// With a frame about the cell that an edit would open.
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  /// The text stays what the user types; the cell changes by `commit` only.
  void setModelData(QWidget*, QAbstractItemModel*, const QModelIndex&) const override {}

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool enter(const QPointer<QLineEdit>& field);

  mutable QPointer<QLineEdit> field_; ///< the open one
  bool asking_ = false;
};

} // namespace soran
