// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

namespace soran {

/// The status bar's two text panels. Panel 1 tells the state of the network, panel 2 what the program does.
class StatusBar : public QObject {
  Q_OBJECT
 public:
  const QString& panel1() const { return panel1_; }
  const QString& panel2() const { return panel2_; }

  void setPanel1(const QString& text);

  /// Keeps the text as `statusText` and shows it, unless the browser pane is up and has the panel for itself.
  void setPanel2(const QString& text);

  /// Writes panel 2 alone, for the browser pane's own texts.
  void setPaneText(const QString& text);

  /// While the pane is up `setPanel2` only keeps its text.
  void setPaneVisible(bool visible) { paneVisible_ = visible; }

  /// What panel 2 is to show when the pane is not up.
  const QString& statusText() const { return statusText_; }

  /// Keeps what panel 2 shows now, for the end of an SQ or JP request.
  void savePanel2() { panelSavedText_ = panel2_; }
  const QString& panelSavedText() const { return panelSavedText_; }

 signals:
  void changed();

 private:
  QString panel1_;
  QString panel2_;
  QString statusText_;
  QString panelSavedText_;
  bool paneVisible_ = false;
};

} // namespace soran
