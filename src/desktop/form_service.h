// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/task_icon.h"
#include "desktop/tip_form.h"
#include "terminal/view.h"

#include <QDialog>
#include <QPointer>
#include <map>
#include <memory>
#include <optional>

namespace soran {

/// The small windows beside the main one, each made when it is first shown.
class FormService final : public QObject, public Forms {
  Q_OBJECT
 public:
  FormService() = default;
  ~FormService() override;

  /// What the forms show. The program and the view outlive the service or its last closeAll().
  void attach(View& view);
  /// The window beside which they stand; it outlives the service or its last closeAll().
  void setWindow(QWidget* window) { window_ = window; }

  void show(const QString& name) override;
  void showModal(const QString& name) override;
  void hide(const QString& name) override;

  /// The form where it has been shown before, else null.
  QDialog* form(const QString& name) const;

  /// Where the mouse marked something: the explanation that may follow stands beside it, and its picture.
  void setMouse(QPoint mouse) { mouse_ = mouse; }
  /// Takes the explanation and its picture away.
  void hideTip();

  /// Takes all forms off the screen.
  void hideAll();
  /// Does away with all forms.
  void closeAll();

 signals:
  /// The user asked for the main window by the tray icon.
  void restoreRequested();

 private:
  using Form = std::unique_ptr<QDialog>;
  struct Kind;
  static const Kind* kindOf(const QString& name);

  Form makeNoConnect();
  Form makeVersion();
  Form makeComponents();
  Form makeCommands();
  Form makeMessage();
  Form makeDataChange();
  Form makeLog();
  Form makePicture();
  Form makeAirports();
  Form makeDecodeList();
  Form makeGroups();
  Form makeDictionary();
  Form makeFontNote();
  Form makeSettings();
  Form makeAdobe();
  template <class OfView>
  Form makeForm();
  void showTaskIcon();
  void showTip();

  View* view_ = nullptr;
  Program* program_ = nullptr;
  QPointer<QWidget> window_;
  std::map<QString, Form> forms_;
  std::unique_ptr<TipForm> tip_;
  std::unique_ptr<TaskIcon> taskIcon_;
  std::optional<QPoint> pictureCorner_;
  QPoint mouse_;
};

} // namespace soran
