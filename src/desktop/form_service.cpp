// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/form_service.h"

#include "base/files.h"
#include "desktop/adobe_form.h"
#include "desktop/airport_form.h"
#include "desktop/camera_form.h"
#include "desktop/chart_form.h"
#include "desktop/command_form.h"
#include "desktop/component_form.h"
#include "desktop/data_change_form.h"
#include "desktop/decode_list_form.h"
#include "desktop/dictionary_form.h"
#include "desktop/font_names.h"
#include "desktop/font_note_form.h"
#include "desktop/group_form.h"
#include "desktop/log_form.h"
#include "desktop/message_form.h"
#include "desktop/no_connect_form.h"
#include "desktop/picture_form.h"
#include "desktop/run_dialog.h"
#include "desktop/settings_form_view.h"
#include "desktop/suntime_form.h"
#include "desktop/version_form.h"
#include "terminal/picture_lookup.h"

#include <QCoreApplication>
#include <QLoggingCategory>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcForms, "soran.desktop")

} // namespace

struct FormService::Kind {
  QStringView name;
  Form (FormService::*make)();
  bool kept; ///< the same form is shown again, with what it held
};

template <class OfView>
FormService::Form FormService::makeForm() {
  return std::make_unique<OfView>(window_, *view_);
}

const FormService::Kind* FormService::kindOf(const QString& name) {
  static constexpr Kind kinds[] = {
      {u"noconnectmsg", &FormService::makeNoConnect, false},
      {u"version", &FormService::makeVersion, false},
      {u"compornent", &FormService::makeComponents, false},
      {u"command", &FormService::makeCommands, true},
      {u"message", &FormService::makeMessage, false},
      {u"datachange", &FormService::makeDataChange, false},
      {u"log", &FormService::makeLog, true},
      {u"pictureform", &FormService::makePicture, false},
      {u"airport", &FormService::makeAirports, false},
      {u"decodelist", &FormService::makeDecodeList, false},
      {u"company", &FormService::makeGroups, false},
      {u"weather", &FormService::makeDictionary, false},
      {u"opton", &FormService::makeSettings, false},
      {u"fontmsg", &FormService::makeFontNote, false},
      {u"suntime", &FormService::makeForm<SunTimeForm>, false},
      {u"chart", &FormService::makeForm<ChartForm>, true},
      {u"camera", &FormService::makeForm<CameraForm>, true},
      {u"adobeinfo", &FormService::makeAdobe, false},
  };
  for (const Kind& kind : kinds) {
    if (kind.name == name)
      return &kind;
  }
  return nullptr;
}

FormService::~FormService() = default;

void FormService::attach(View& view) {
  view_ = &view;
  program_ = &view.program();
}

QDialog* FormService::form(const QString& name) const {
  if (name == u"tooltips")
    return tip_.get();
  const auto found = forms_.find(name);
  return found == forms_.end() ? nullptr : found->second.get();
}

void FormService::show(const QString& name) {
  if (name == u"taskicon")
    return showTaskIcon();
  if (name == u"tooltips")
    return showTip();
  const Kind* kind = kindOf(name);
  if (!kind) {
    qCWarning(lcForms) << "passed over: showing the form" << name;
    return;
  }
  Form& form = forms_[name];
  if (!form || !kind->kept) {
    form = (this->*kind->make)();
    if (!form)
      return;
    connect(form.get(), &QDialog::finished, this, [this, name] { view_->formClosed(name); });
  }
  form->show();
  form->raise();
}

void FormService::showModal(const QString& name) {
  const Kind* kind = kindOf(name);
  const Form form = kind ? (this->*kind->make)() : nullptr;
  if (!form) {
    qCWarning(lcForms) << "passed over: showing the form" << name;
    return;
  }
  runDialog(*form, program_->services.shutdown);
}

void FormService::hide(const QString& name) {
  if (name == u"taskicon")
    taskIcon_.reset();
  else if (QDialog* shown = form(name))
    shown->hide();
}

void FormService::showTip() {
  tip_ = std::make_unique<TipForm>(window_);
  pictureCorner_ = mouse_;
  tip_->showTip(view_->tipText(), mouse_);
}

void FormService::hideTip() {
  tip_.reset();
  pictureCorner_.reset();
  hide(u"pictureform"_s);
}

void FormService::hideAll() {
  for (const auto& [name, form] : forms_) {
    if (form)
      form->hide();
  }
  tip_.reset();
  taskIcon_.reset();
}

void FormService::closeAll() {
  hideAll();
  forms_.clear();
}

void FormService::showTaskIcon() {
  if (!TaskIcon::isAvailable())
    return;
  taskIcon_ = std::make_unique<TaskIcon>(program_->networkAvailable);
  connect(taskIcon_.get(), &TaskIcon::restoreRequested, this, &FormService::restoreRequested);
}

FormService::Form FormService::makeNoConnect() {
  return std::make_unique<NoConnectForm>(window_);
}
FormService::Form FormService::makeVersion() {
  return std::make_unique<VersionForm>(window_, program_->record());
}
FormService::Form FormService::makeComponents() {
  return std::make_unique<ComponentForm>(window_, program_->record());
}
FormService::Form FormService::makeCommands() {
  return std::make_unique<CommandForm>(window_);
}
FormService::Form FormService::makeMessage() {
  return std::make_unique<MessageForm>(window_);
}

FormService::Form FormService::makeDataChange() {
  if (program_->minimised)
    return nullptr;
  const SettingsRecord& settings = program_->record();
  return std::make_unique<DataChangeForm>(window_, settings[key::表示領域の色].value_or(black),
                                          settings[key::表示文字の色].value_or(white));
}

FormService::Form FormService::makeLog() {
  const auto speciColour = [this] { return program_->record()[key::SPECIの色].value_or(red); };
  return std::make_unique<LogForm>(window_, program_->console.log(), speciColour);
}

FormService::Form FormService::makeAdobe() {
  return std::make_unique<AdobeForm>(window_, [this](AdobeNoticeAnswer answer) {
    view_->guarded([&] { view_->answerAdobeNotice(answer); });
  });
}

FormService::Form FormService::makePicture() {
  QPixmap picture;
  if (!picture.loadFromData(takePicture(program_->services)))
    return nullptr;
  return std::make_unique<PictureForm>(window_, picture, std::exchange(pictureCorner_, std::nullopt));
}

FormService::Form FormService::makeAirports() {
  return std::make_unique<AirportForm>(window_, *view_);
}
FormService::Form FormService::makeDecodeList() {
  return std::make_unique<DecodeListForm>(window_, *view_);
}
FormService::Form FormService::makeGroups() {
  return std::make_unique<GroupForm>(window_, *view_);
}
FormService::Form FormService::makeDictionary() {
  return std::make_unique<DictionaryForm>(window_, *view_);
}

FormService::Form FormService::makeFontNote() {
  const SettingsRecord& settings = program_->record();
  return std::make_unique<FontNoteForm>(window_, settings[key::表示領域の色].value_or(black),
                                        settings[key::表示文字の色].value_or(white));
}

FormService::Form FormService::makeSettings() {
  const QStringList fonts = fontNames([this] {
    show(u"fontmsg"_s);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  });
  hide(u"fontmsg"_s);
  return std::make_unique<SettingsFormView>(window_, *view_, fonts);
}

} // namespace soran
