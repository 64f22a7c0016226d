// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/services/form_service.h"

#include "base/files.h"
#include "desktop/forms/adobe_form.h"
#include "desktop/forms/airport_form.h"
#include "desktop/forms/board_form.h"
#include "desktop/forms/camera_form.h"
#include "desktop/forms/chart_form.h"
#include "desktop/forms/command_form.h"
#include "desktop/forms/component_form.h"
#include "desktop/forms/data_change_form.h"
#include "desktop/forms/decode_list_form.h"
#include "desktop/forms/dictionary_form.h"
#include "desktop/forms/font_note_form.h"
#include "desktop/forms/graph_form.h"
#include "desktop/forms/group_form.h"
#include "desktop/forms/limits_form.h"
#include "desktop/forms/log_form.h"
#include "desktop/forms/map_form.h"
#include "desktop/forms/message_form.h"
#include "desktop/forms/no_connect_form.h"
#include "desktop/forms/picture_form.h"
#include "desktop/forms/settings_form_view.h"
#include "desktop/forms/suntime_form.h"
#include "desktop/forms/version_form.h"
#include "desktop/services/font_names.h"
#include "desktop/services/run_dialog.h"
#include "desktop/widgets/fit_to_screen.h"
#include "terminal/picture_lookup.h"

#include <QApplication>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// What a closed dialogue decided, where it decided something.
template <class Outcome>
ModalOutcome outcomeOf(const std::optional<Outcome>& outcome) {
  return outcome ? ModalOutcome(*outcome) : ModalOutcome();
}

} // namespace

FormService::~FormService() = default;

void FormService::attach(Terminal& terminal) {
  terminal_ = &terminal;
  program_ = &terminal.program();
}

QDialog* FormService::widget(const Form& form) const {
  if (std::holds_alternative<form::Tip>(form))
    return tip_.get();
  const auto found = widgets_.find(form.index());
  return found == widgets_.end() ? nullptr : found->second.get();
}

void FormService::show(const Form& form) {
  Widget& widget = widgets_[form.index()];
  if (!widget || !goesWithWindow(form)) {
    widget = std::visit([this](const auto& kind) { return make(kind); }, form);
    if (!widget)
      return;
    fitToScreen(*widget);
    connect(widget.get(), &QDialog::finished, this, [this, form] { terminal_->forms().closed(form); });
  }
  if (const auto* board = std::get_if<form::Board>(&form))
    static_cast<BoardForm&>(*widget).setGroup(board->group);
  if (const auto* map = std::get_if<form::Map>(&form))
    static_cast<MapForm&>(*widget).setGroup(map->group);
  const auto* graph = std::get_if<form::Graph>(&form);
  // A window manager minimises it with the main window, and would minimise that again with it.
  widget->setWindowState(widget->windowState() & ~Qt::WindowMinimized);
  widget->show();
  widget->raise();
  // What it shows is asked for behind this, so nothing may follow.
  if (graph)
    static_cast<GraphForm&>(*widget).setStation(StationCode(graph->code));
}

ModalOutcome FormService::showModal(const ModalForm& form) {
  return std::visit([this](const auto& kind) { return run(kind); }, form);
}

void FormService::hide(const Form& form) {
  if (std::holds_alternative<form::TaskIcon>(form))
    taskIcon_.reset();
  else if (QDialog* shown = widget(form))
    shown->hide();
}

/// The form that the user works in, which gets the keys back behind a modal one; else the main window.
QWidget* FormService::owner() const {
  QWidget* active = QApplication::activeWindow();
  return active && active->isVisible() && active->windowType() == Qt::Dialog ? active : window_.get();
}

void FormService::hideTip() {
  tip_.reset();
  pictureCorner_.reset();
  hide(form::Picture{});
}

void FormService::hideAll() {
  for (const auto& [kind, widget] : widgets_) {
    if (widget)
      widget->hide();
  }
  tip_.reset();
  taskIcon_.reset();
}

void FormService::closeAll() {
  hideAll();
  widgets_.clear();
}

FormService::Widget FormService::make(const form::TaskIcon& icon) {
  if (!TaskIcon::isAvailable())
    return nullptr;
  taskIcon_ = std::make_unique<TaskIcon>(icon.connected);
  connect(taskIcon_.get(), &TaskIcon::restoreRequested, this, &FormService::restoreRequested);
  return nullptr;
}

FormService::Widget FormService::make(const form::Tip& tip) {
  tip_ = std::make_unique<TipForm>(window_);
  pictureCorner_ = mouse_;
  tip_->showTip(tip.text, mouse_);
  return nullptr;
}

FormService::Widget FormService::make(const form::NoConnection&) {
  return std::make_unique<NoConnectForm>(window_);
}
FormService::Widget FormService::make(const form::Version&) {
  return std::make_unique<VersionForm>(window_, program_->record());
}
FormService::Widget FormService::make(const form::Components&) {
  return std::make_unique<ComponentForm>(window_, program_->record());
}
FormService::Widget FormService::make(const form::Commands&) {
  return std::make_unique<CommandForm>(window_);
}
FormService::Widget FormService::make(const form::SunTimes&) {
  return std::make_unique<SunTimeForm>(window_, *terminal_);
}
FormService::Widget FormService::make(const form::Charts&) {
  return std::make_unique<ChartForm>(window_, *terminal_);
}
FormService::Widget FormService::make(const form::Cameras&) {
  return std::make_unique<CameraForm>(window_, *terminal_);
}
FormService::Widget FormService::make(const form::Graph&) {
  return std::make_unique<GraphForm>(window_, *terminal_);
}
FormService::Widget FormService::make(const form::Board& board) {
  return std::make_unique<BoardForm>(window_, *terminal_, board.group);
}
FormService::Widget FormService::make(const form::Map& map) {
  return std::make_unique<MapForm>(window_, *terminal_, map.group);
}
FormService::Widget FormService::make(const form::Alert&) {
  return std::make_unique<MessageForm>(window_);
}

FormService::Widget FormService::make(const form::NewReports&) {
  if (program_->minimised)
    return nullptr;
  const SettingsRecord& settings = program_->record();
  return std::make_unique<DataChangeForm>(window_, settings[key::表示領域の色].value_or(black),
                                          settings[key::表示文字の色].value_or(white));
}

FormService::Widget FormService::make(const form::Log&) {
  const auto speciColour = [this] { return program_->record()[key::SPECIの色].value_or(red); };
  return std::make_unique<LogForm>(window_, program_->console.log(), speciColour);
}

FormService::Widget FormService::make(const form::Picture&) {
  QPixmap picture;
  if (!picture.loadFromData(takePicture(program_->services)))
    return nullptr;
  return std::make_unique<PictureForm>(window_, picture, std::exchange(pictureCorner_, std::nullopt));
}

FormService::Widget FormService::make(const form::FontNote&) {
  const SettingsRecord& settings = program_->record();
  return std::make_unique<FontNoteForm>(window_, settings[key::表示領域の色].value_or(black),
                                        settings[key::表示文字の色].value_or(white));
}

ModalOutcome FormService::run(const form::NoConnection&) {
  NoConnectForm form(window_);
  runDialog(form, program_->services.shutdown);
  return {};
}

ModalOutcome FormService::run(const form::EditAirports&) {
  AirportForm form(owner(), *terminal_);
  runDialog(form, program_->services.shutdown);
  return {};
}

ModalOutcome FormService::run(const form::EditAutoList&) {
  DecodeListForm form(owner(), *terminal_);
  runDialog(form, program_->services.shutdown);
  return {};
}

ModalOutcome FormService::run(const form::EditGroups&) {
  GroupForm form(owner(), *terminal_);
  runDialog(form, program_->services.shutdown);
  return {};
}

ModalOutcome FormService::run(const form::EditLimits&) {
  LimitsForm form(owner(), *terminal_);
  runDialog(form, program_->services.shutdown);
  return {};
}

ModalOutcome FormService::run(const form::EditDictionary& dictionary) {
  DictionaryForm form(window_, *terminal_, dictionary.mode);
  runDialog(form, program_->services.shutdown);
  return {};
}

ModalOutcome FormService::run(const form::EditSettings&) {
  const QStringList fonts = fontNames([this] {
    show(form::FontNote{});
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  });
  hide(form::FontNote{});
  SettingsFormView form(window_, *terminal_, fonts);
  runDialog(form, program_->services.shutdown);
  return outcomeOf(form.outcome());
}

ModalOutcome FormService::run(const form::PdfNotice&) {
  AdobeForm form(window_);
  runDialog(form, program_->services.shutdown);
  return outcomeOf(form.outcome());
}

} // namespace soran
