// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/widgets/screen_positions.h"
#include "screen/screen.h"

#include <QPlainTextEdit>
#include <QTextLayout>
#include <functional>

namespace soran {

/// The terminal's screen in the window: shows the text, the attributes and the caret, and passes keys and
/// selections on. This is the one place that maps positions between the two.
class ScreenView : public QPlainTextEdit {
  Q_OBJECT
 public:
  explicit ScreenView(QWidget* parent = nullptr);

  /// Shows this screen from now on. It outlives the view, or release() is called before.
  void show(const Screen& screen);
  /// Shows what it shows and looks at no screen any more.
  void release();

  const ScreenPositions& positions() const { return positions_; }

  /// Asked with a position (from 0) of the terminal's text below the pointer; what it tells is shown as a
  /// tip.
  void setNotes(std::function<QString(qsizetype)> noteAt) { noteAt_ = std::move(noteAt); }

  /// The selection's first position in the terminal's text, and its length there.
  std::pair<qsizetype, qsizetype> selectedStretch() const;

 signals:
  /// A key for the terminal: 8, 13, 27 or a character, letters as capitals.
  void keyTyped(QChar key);
  /// The left mouse button went up over the screen.
  void selectionReleased(QPoint globalPosition);
  /// A mouse button went down on the screen.
  void mousePressed(Qt::MouseButton button, QPoint globalPosition);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
  void insertFromMimeData(const QMimeData* source) override;
  bool canInsertFromMimeData(const QMimeData* source) const override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  /// Breaks lines behind words where `text` has words.
  void wrapFor(QStringView text);
  void replaceText();
  void appendText(qsizetype from);
  void showAttributes(qsizetype from = 0);
  QList<QTextLayout::FormatRange> formatsOf(const QTextBlock& block, size_t& run) const;
  void showCaret();
  void typeCharacters(QStringView text);

  const Screen* screen_ = nullptr;
  ScreenPositions positions_;
  std::function<QString(qsizetype)> noteAt_ = [](qsizetype) { return QString(); };
};

} // namespace soran
