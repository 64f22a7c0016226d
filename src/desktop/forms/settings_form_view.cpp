// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/settings_form_view.h"

#include "desktop/forms/printer_select_form.h"
#include "desktop/services/run_dialog.h"
#include "desktop/widgets/colour_swatch.h"
#include "desktop/widgets/look.h"
#include "desktop/widgets/sample_view.h"
#include "terminal/settings_hooks.h"
#include "ui_settings_form_view.h"

#include <QColorDialog>
#include <QScrollBar>
#include <QSignalBlocker>

namespace soran {

using namespace Qt::StringLiterals;

SettingsFormView::SettingsFormView(QWidget* parent, Terminal& terminal, const QStringList& fonts)
    : QDialog(parent), terminal_(terminal), ui_(std::make_unique<Ui::SettingsFormView>()),
      form_(terminal.program().settings(), terminal.program().services, hooks()) {
  ui_->setupUi(this);
  nameControls();
  connectBoxesAndFields();
  connectCombos();
  connectSwatches();
  connectRest();
  connectButtons();
  form_.changed = [this] { mirror(); };
  form_.setFonts(fonts, fonts);
  ui_->SSTab->setCurrentIndex(0);
}

SettingsFormView::~SettingsFormView() = default;

SettingsFormHooks SettingsFormView::hooks() {
  SettingsFormHooks hooks = settingsHooks(terminal_);
  hooks.choosePrinter = [this] { return choosePrinter(); };
  return hooks;
}

std::optional<QString> SettingsFormView::choosePrinter() {
  Program& program = terminal_.program();
  const QStringList installed = program.services.printers.installed();
  // Until one was chosen the first is the current one, as it is for a print.
  const QString current =
      installed.contains(program.currentPrinter) ? program.currentPrinter : installed.value(0);
  PrinterSelection selection(installed, program.settings()[key::プリンター].value_or(QString()), current,
                             PrinterSelection::Purpose::Setup);
  PrinterSelectForm form(this, selection);
  if (runDialog(form, program.services.shutdown) != QDialog::Accepted)
    return std::nullopt;
  return selection.chosen();
}

/// The texts that the core has.
void SettingsFormView::nameControls() {
  setWindowTitle(SettingsForm::title.toString());
  for (int tab = 0; tab < ui_->SSTab->count(); ++tab)
    ui_->SSTab->setTabText(tab, settingsTabs[tab].toString());
  for (const SettingsCheckBox& spec : settingsCheckBoxes()) {
    auto& box = *control<QCheckBox>(u"CheckBox", spec.index);
    box.setText(spec.caption.toString());
    box.setToolTip(form_.boxTip(spec.index));
  }
  ui_->groupBuffer->setTitle(SettingsForm::bufferText.toString());
  ui_->groupBuffer->setAccessibleName(SettingsForm::bufferText.toString());
  ui_->lblSlow->setText(SettingsForm::slowText.toString());
  ui_->lblFast->setText(SettingsForm::fastText.toString());
  ui_->Option1_0->setText(SettingsForm::windowTexts[0].toString());
  ui_->Option1_1->setText(SettingsForm::windowTexts[1].toString());
  ui_->Option2_0->setText(SettingsForm::toolbarTexts[0].toString());
  ui_->Option2_1->setText(SettingsForm::toolbarTexts[1].toString());
  QScrollBar& bar = *ui_->viewSample0->verticalScrollBar();
  ui_->lbl47->setIndent(fontMetrics().averageCharWidth());
  bar.setObjectName(u"VScroll"_s);
  bar.setAccessibleName(u"表示例のスクロールバー"_s);
}

void SettingsFormView::connectBoxesAndFields() {
  constexpr int fieldWidth = 8;
  for (const SettingsCheckBox& spec : settingsCheckBoxes()) {
    // A screen reader ticks a box without a click.
    connect(control<QCheckBox>(u"CheckBox", spec.index), &QCheckBox::toggled, this,
            [this, index = spec.index](bool on) {
              if (form_.checked(index) != on)
                form_.check(index, on);
            });
  }
  for (const SettingsTextBox& spec : settingsTextBoxes()) {
    auto* field = control<QLineEdit>(u"TextBox", spec.index);
    field->setAlignment(Qt::AlignRight);
    field->setMinimumWidth(fontMetrics().horizontalAdvance(u'0') * fieldWidth);
    connect(field, &QLineEdit::textEdited, this,
            [this, index = spec.index](const QString& text) { form_.type(index, text); });
    connect(field, &QLineEdit::editingFinished, this, [this, index = spec.index] { form_.leave(index); });
  }
}

void SettingsFormView::connectCombos() {
  for (const SettingsCombo& spec : settingsCombos()) {
    connect(control<QComboBox>(u"cmb", spec.index), &QComboBox::textActivated, this,
            [this, index = spec.index](const QString& text) {
              terminal_.guarded([&] { form_.choose(index, text); });
            });
  }
  for (QComboBox* fonts : {ui_->cmb0, ui_->cmb2}) {
    constexpr int shownCharacters = 18;
    fonts->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    fonts->setMinimumContentsLength(shownCharacters);
  }
}

void SettingsFormView::connectSwatches() {
  for (const SettingsSwatch& spec : settingsSwatches()) {
    connect(control<ColourSwatch>(u"lbl", spec.index), &ColourSwatch::clicked, this,
            [this, index = spec.index] { pickColour(index); });
  }
}

void SettingsFormView::connectRest() {
  connect(ui_->Slider, &QSlider::valueChanged, this, [this](int value) { form_.setBuffer(value); });
  connect(ui_->Option1_1, &QRadioButton::toggled, this, [this](bool timed) {
    if (form_.timedPrinting() != timed)
      form_.setTimedPrinting(timed);
  });
  connect(ui_->Option2_1, &QRadioButton::toggled, this, [this](bool coloured) {
    if (form_.colouredToolbar() != coloured)
      form_.setColouredToolbar(coloured);
  });
  connect(ui_->SSTab, &QTabWidget::currentChanged, this, &SettingsFormView::showTab);
}

void SettingsFormView::connectButtons() {
  connect(ui_->cmd0, &QPushButton::clicked, this, &SettingsFormView::reject);
  const std::pair<QPushButton*, void (SettingsForm::*)()> actions[] = {
      {ui_->cmd1, &SettingsForm::restoreStandard}, {ui_->cmd2, &SettingsForm::testError},
      {ui_->cmd3, &SettingsForm::testRing},        {ui_->cmd4, &SettingsForm::choosePrinter},
      {ui_->cmd5, &SettingsForm::testPrint},
  };
  for (const auto& [button, action] : actions) {
    connect(button, &QPushButton::clicked, this,
            [this, action = action] { terminal_.guarded([&] { (form_.*action)(); }); });
  }
}

void SettingsFormView::pickColour(int swatch) {
  QColorDialog dialog(toQColor(form_.colour(swatch)), this);
  dialog.setObjectName(u"colourDialog"_s);
  if (runDialog(dialog, terminal_.program().services.shutdown) != QDialog::Accepted)
    return;
  const QColor colour = dialog.selectedColor();
  form_.pick(swatch, colourOf(colour.red(), colour.green(), colour.blue()));
}

void SettingsFormView::showTab(int tab) {
  form_.showTab(tab);
  mirroredTab_ = tab;
  if (tab == displayTab)
    ui_->viewSample0->showTop(form_.sampleAtTop());
}

void SettingsFormView::mirror() {
  for (const SettingsCheckBox& spec : settingsCheckBoxes()) {
    auto& box = *control<QCheckBox>(u"CheckBox", spec.index);
    box.setChecked(form_.checked(spec.index));
    box.setEnabled(form_.boxEnabled(spec.index));
  }
  for (const SettingsTextBox& spec : settingsTextBoxes()) {
    auto& field = *control<QLineEdit>(u"TextBox", spec.index);
    if (field.text() != form_.text(spec.index))
      field.setText(form_.text(spec.index));
  }
  for (const SettingsSwatch& spec : settingsSwatches())
    control<ColourSwatch>(u"lbl", spec.index)->setColour(form_.colour(spec.index));
  const QSignalBlocker unheard(ui_->Slider);
  ui_->Slider->setValue(form_.buffer());
  (form_.colouredToolbar() ? ui_->Option2_1 : ui_->Option2_0)->setChecked(true);
  mirrorCombos();
  mirrorPrinting();
  ui_->viewSample0->showSample(form_.display());
  ui_->viewSample1->showSample(form_.print());
  // A field that is left for another tab comes here before that tab is told: only the form itself moves it.
  if (const int tab = form_.tabToShow(); std::exchange(mirroredTab_, tab) != tab)
    ui_->SSTab->setCurrentIndex(tab);
}

void SettingsFormView::mirrorCombos() {
  for (const SettingsCombo& spec : settingsCombos()) {
    auto& combo = *control<QComboBox>(u"cmb", spec.index);
    const QStringList items = form_.items(spec.index);
    if (combo.count() != items.size()) {
      combo.clear();
      combo.addItems(items);
    }
    const QString chosen = form_.chosen(spec.index);
    // A font that is not installed is named all the same. An empty one chooses the first row, so it comes
    // first.
    combo.setPlaceholderText(chosen);
    combo.setCurrentIndex(int(items.indexOf(chosen)));
    combo.setEnabled(form_.comboEnabled(spec.index));
  }
}

void SettingsFormView::mirrorPrinting() {
  ui_->lbl47->setText(form_.printerLabel());
  paintLikeScreen(*ui_->lbl47, black, form_.printerUsable() ? white : yellow);
  ui_->cmd4->setEnabled(form_.printerChoiceEnabled());
  ui_->cmd5->setEnabled(form_.printTestEnabled());
  for (QRadioButton* option : {ui_->Option1_0, ui_->Option1_1})
    option->setEnabled(form_.timedPrintingEnabled());
  (form_.timedPrinting() ? ui_->Option1_1 : ui_->Option1_0)->setChecked(true);
}

/// A field that still has the focus is left by closing, too.
void SettingsFormView::leaveField() {
  for (const SettingsTextBox& spec : settingsTextBoxes()) {
    if (control<QLineEdit>(u"TextBox", spec.index)->hasFocus())
      form_.leave(spec.index);
  }
}

void SettingsFormView::reject() {
  leaveField();
  bool closed = false;
  terminal_.guarded([&] { closed = form_.close(); });
  if (closed || terminal_.program().services.shutdown.requested())
    QDialog::reject();
}

} // namespace soran
