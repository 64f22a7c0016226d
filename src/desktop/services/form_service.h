// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/forms/tip_form.h"
#include "desktop/services/task_icon.h"
#include "terminal/terminal.h"

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
  void attach(Terminal& terminal);
  /// The window beside which they stand; it outlives the service or its last closeAll().
  void setWindow(QWidget* window) { window_ = window; }

  void show(const Form& form) override;
  void hide(const Form& form) override;
  ModalOutcome showModal(const ModalForm& form) override;

  /// The widget of a form of that kind where it has been shown before, else null.
  QDialog* widget(const Form& form) const;

  /// Where the mouse marked something: the explanation that may follow stands beside it, and its picture.
  void setMouse(QPoint mouse) { mouse_ = mouse; }
  /// Takes the explanation and its picture away.
  void hideTip();
  /// Takes the explanation of a group alone away, which would stand over what comes next.
  void closeTip() { tip_.reset(); }

  /// Takes all forms off the screen.
  void hideAll();
  /// Does away with all forms.
  void closeAll();

 signals:
  /// The user asked for the main window by the tray icon.
  void restoreRequested();

 private:
  using Widget = std::unique_ptr<QDialog>;

  Widget make(const form::NoConnection&);
  Widget make(const form::Version&);
  Widget make(const form::Components&);
  Widget make(const form::Commands&);
  Widget make(const form::Log&);
  Widget make(const form::SunTimes&);
  Widget make(const form::Charts&);
  Widget make(const form::Cameras&);
  Widget make(const form::Board& board);
  Widget make(const form::Map& map);
  Widget make(const form::Graph& graph);
  Widget make(const form::Alert&);
  Widget make(const form::NewReports&);
  Widget make(const form::Picture&);
  Widget make(const form::FontNote&);
  // These are no dialogues, and are shown by themselves.
  Widget make(const form::TaskIcon& icon);
  Widget make(const form::Tip& tip);

  ModalOutcome run(const form::NoConnection&);
  ModalOutcome run(const form::EditAirports&);
  ModalOutcome run(const form::EditAutoList&);
  ModalOutcome run(const form::EditGroups&);
  ModalOutcome run(const form::EditLimits&);
  ModalOutcome run(const form::EditDictionary& dictionary);
  ModalOutcome run(const form::EditSettings&);
  ModalOutcome run(const form::PdfNotice&);
  QWidget* owner() const;

  Terminal* terminal_ = nullptr;
  Program* program_ = nullptr;
  QPointer<QWidget> window_;
  std::map<size_t, Widget> widgets_; // by the kind of the form
  std::unique_ptr<TipForm> tip_;
  std::unique_ptr<TaskIcon> taskIcon_;
  std::optional<QPoint> pictureCorner_;
  QPoint mouse_;
};

} // namespace soran
