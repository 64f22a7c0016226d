// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"

#include <QObject>
#include <QString>
#include <vector>

namespace soran {

/// The text of the terminal's screen with the attributes of its characters and the caret. Line ends are CR LF
/// as its writers set them (reports keep their LF). Positions count UTF-16 units from 0, CR and LF one each.
class Screen : public QObject {
  Q_OBJECT
 public:
  const QString& text() const { return text_; }

  /// Replaces the whole text; it takes the base attributes.
  void setText(const QString& text);
  /// Appends; the new text takes the attributes of the text before it.
  void append(const QString& text);
  void clear() { setText(QString()); }

  qsizetype caret() const { return caret_; }
  void setCaret(qsizetype position);
  void caretToEnd() { setCaret(text_.size()); }

  /// Runs in order, together covering the text, neighbours differing.
  const std::vector<AttributeRun>& runs() const { return runs_; }
  /// Replaces the attributes of the whole text; `runs` must cover it.
  void setRuns(std::vector<AttributeRun> runs);
  /// Paints a stretch in a colour; parts outside the text are left out.
  void paint(qsizetype start, qsizetype length, Colour colour);
  /// Gives the whole text these attributes and keeps them as the base ones.
  void setBase(Colour colour, bool bold);

  Colour baseColour() const { return baseColour_; }
  bool baseBold() const { return baseBold_; }

 signals:
  void replaced();
  void appended(qsizetype from);
  void attributesChanged();
  void caretMoved();

 private:
  QString text_;
  std::vector<AttributeRun> runs_;
  qsizetype caret_ = 0;
  Colour baseColour_ = white;
  bool baseBold_ = false;
};

} // namespace soran
