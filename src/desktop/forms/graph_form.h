// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pictures/drawing.h"
#include "pictures/meteogram.h"
#include "terminal/terminal.h"

#include <QDialog>

class QLineEdit;
class QPrinter;
class QTableWidget;

namespace soran {

class DrawingView;

/// The form `graph`: the weather of a station on one axis of time, and the same as a table. Closing hides it.
class GraphForm : public QDialog {
  Q_OBJECT
 public:
  GraphForm(QWidget* parent, Terminal& terminal);

  /// Asks for the reports of the station and shows them. Waits in the event loop.
  void setStation(const StationCode& code);

  /// Writes the picture to a file, on black as an SVG where its name ends so, else as a PNG of twice the
  /// size. False where it cannot be written.
  bool writeTo(const QString& path) const;
  /// Draws the picture on one A4 page in landscape. False where it cannot be printed.
  bool print(QPrinter& printer) const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void lay();
  QWidget* makeBar();
  void load();
  void draw();
  void fillTable();
  void save();
  void printByButton();
  Drawing drawn(QSizeF size) const;

  Terminal& terminal_;
  Meteogram meteogram_;
  bool loading_ = false;
  QLineEdit* code_;
  DrawingView* view_;
  QTableWidget* table_;
};

} // namespace soran
