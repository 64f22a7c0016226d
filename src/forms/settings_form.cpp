// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/settings_form.h"

#include "base/files.h"
#include "base/skip.h"
#include "base/text.h"

#include <algorithm>
#include <limits>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcForm, "soran.store.form")

/// The boxes that need a printer.
constexpr int printBoxes[] = {1, 15, 25};

/// A control that another one enables.
struct Dependence {
  int dependent;
  int box;
};
constexpr Dependence boxDependences[] = {{9, 2}, {16, 14}};
constexpr Dependence comboDependences[] = {{4, 23}, {9, 28}};

constexpr int screenFontCombo = 0;
constexpr int printerFontCombo = 2;
constexpr int printerSizeCombo = 3;
constexpr int firstWindowCombo = 5;
constexpr int lastWindowCombo = 8;
constexpr int hoursCombo = 9;
constexpr int slowest = 1;
constexpr int fastest = 10;

template <class Specs>
auto* find(Specs specs, int index) {
  const auto found = std::ranges::find(specs, index, [](const auto& spec) { return spec.index; });
  return found == specs.end() ? nullptr : &*found;
}

bool isFontCombo(int combo) {
  return combo == screenFontCombo || combo == printerFontCombo;
}

bool isWindowCombo(int combo) {
  return combo >= firstWindowCombo && combo <= lastWindowCombo;
}

} // namespace

SettingsForm::SettingsForm(Settings& settings, Services& services, SettingsFormHooks hooks)
    : settings_(settings), services_(services), hooks_(std::move(hooks)),
      hoursAtLoad_(settings[key::シーケンス時間]) {
  if (!findPrinter())
    forbidPrinting();
  refresh();
  hooks_.takeBuffer();
}

bool SettingsForm::findPrinter() {
  const QStringList installed = services_.printers.installed();
  const QString stored = settings_[key::プリンター].value_or(QString());
  anyPrinter_ = !installed.isEmpty();
  printerUsable_ = installed.contains(stored);
  if (printerUsable_) {
    printerLabel_ = stored;
    return true;
  }
  if (!anyPrinter_)
    printerLabel_ = u"利用可能なプリンターがありません"_s;
  else if (stored == u"*")
    printerLabel_ = u"出力先プリンターを設定してください"_s;
  else
    printerLabel_ = stored + u" が見つかりません";
  return false;
}

/// Without a usable printer the settings ask for none of its services.
void SettingsForm::forbidPrinting() {
  settings_.set(key::印刷文字のボールド, false);
  settings_.set(key::印刷更新時印刷, false);
  settings_.set(key::印刷時ダイアログ, false);
  settings_.set(key::プリンター, u"*"_s);
  passOver(lcForm(), "striking the printer", [this] { settings_.update(); });
}

void SettingsForm::refresh() {
  for (const SettingsTextBox& field : settingsTextBoxes())
    texts_.insert(field.index, value(field.key).toString());
  changed();
}

void SettingsForm::store(SettingIndex key, const QVariant& value) {
  const bool stored = settings_.storeValue(key, value);
  changed();
  // The control is back at what was there before.
  if (!stored && !services_.shutdown.requested())
    services_.dialogs.message(u" 確認"_s, u"保存できませんでした　　"_s);
}

bool SettingsForm::checked(int box) const {
  const auto* spec = find(settingsCheckBoxes(), box);
  return spec && value(spec->key).toInt() != 0;
}

bool SettingsForm::boxEnabled(int box) const {
  if (std::ranges::find(printBoxes, box) != std::end(printBoxes))
    return printerUsable_;
  const auto* dependence = std::ranges::find(boxDependences, box, &Dependence::dependent);
  return dependence == std::end(boxDependences) || checked(dependence->box);
}

void SettingsForm::check(int box, bool on) {
  const auto* spec = find(settingsCheckBoxes(), box);
  if (spec && boxEnabled(box))
    store(spec->key, on);
}

QString SettingsForm::boxTip(int box) const {
  switch (box) {
  case 17:
  case 27: // shares the tip of the sound
    return u" ここを ON にすると、データが更新された場合にサウンドを鳴らします "_s;
  case 23:
    return u" 現在このコンピューターの設定は UTC"_s + hooks_.zoneOffset + u" (" + hooks_.zoneName +
           u") になっています ";
  default:
    return {};
  }
}

void SettingsForm::leave(int field) {
  const auto* spec = find(settingsTextBoxes(), field);
  if (!spec)
    return;
  // A saturated number has no positive counterpart in an int.
  const qint64 number = std::abs(qint64(leadingInteger(text(field))));
  if (number <= std::numeric_limits<qint16>::max())
    store(spec->key, int(number));
}

void SettingsForm::setFonts(const QStringList& screen, const QStringList& printer) {
  screenFonts_ = screen;
  printerFonts_ = printer;
  changed();
}

QStringList SettingsForm::items(int combo) const {
  if (combo == screenFontCombo)
    return screenFonts_;
  if (combo == printerFontCombo)
    return anyPrinter_ ? printerFonts_ : QStringList();
  return settingsComboItems(combo);
}

QString SettingsForm::chosen(int combo) const {
  const auto* spec = find(settingsCombos(), combo);
  if (!spec)
    return {};
  QString text = value(spec->key).toString();
  return isFontCombo(combo) || items(combo).contains(text) ? text : QString();
}

bool SettingsForm::comboEnabled(int combo) const {
  if (combo == printerFontCombo || combo == printerSizeCombo)
    return anyPrinter_;
  if (isWindowCombo(combo))
    return timedPrintingEnabled() && timedPrinting();
  const auto* dependence = std::ranges::find(comboDependences, combo, &Dependence::dependent);
  return dependence == std::end(comboDependences) || checked(dependence->box);
}

void SettingsForm::choose(int combo, const QString& text) {
  const auto* spec = find(settingsCombos(), combo);
  if (!spec)
    return;
  if (isFontCombo(combo) && text.isEmpty()) {
    services_.dialogs.message(u" 確認"_s, u"フォントを指定してください　　"_s);
    return;
  }
  if (!isFontCombo(combo) && !items(combo).contains(text))
    return;
  if (combo == offsetSettingsCombo)
    offsetChanged_ = true;
  store(spec->key, spec->number ? QVariant(leadingInteger(text)) : QVariant(text));
  if (combo == hoursCombo)
    hooks_.hoursChosen();
}

Colour SettingsForm::colour(int swatch) const {
  const auto* spec = find(settingsSwatches(), swatch);
  return spec ? Colour(value(spec->key).toInt()) : black;
}

void SettingsForm::pick(int swatch, std::optional<Colour> colour) {
  const auto* spec = find(settingsSwatches(), swatch);
  if (spec && colour)
    store(spec->key, static_cast<int>(*colour));
}

int SettingsForm::buffer() const {
  return std::clamp(settings_[key::バッファ].value_or(fastest), slowest, fastest);
}

void SettingsForm::setBuffer(int value) {
  store(SettingIndex::バッファ, std::clamp(value, slowest, fastest));
}

bool SettingsForm::colouredToolbar() const {
  return settings_[key::コマンドボタン] == true;
}

void SettingsForm::setColouredToolbar(bool coloured) {
  store(SettingIndex::コマンドボタン, coloured);
}

bool SettingsForm::timedPrinting() const {
  return settings_[key::印刷時刻指定] == true;
}

void SettingsForm::setTimedPrinting(bool timed) {
  if (timedPrintingEnabled())
    store(SettingIndex::印刷時刻指定, timed);
}

bool SettingsForm::sampleAtTop() const {
  return settings_[key::先頭行] == true;
}

void SettingsForm::testSound(const QString& file) {
  const QString path = services_.path(file);
  if (!fileExists(path))
    return;
  hooks_.log(u"ALARM  TEST  COMMAND"_s);
  hooks_.guarded([&] { services_.sounds.play(path); });
}

void SettingsForm::choosePrinter() {
  hooks_.log(u"PRINTER  SETUP  COMMAND"_s);
  const std::optional<QString> printer = hooks_.choosePrinter();
  if (!printer || !services_.printers.installed().contains(*printer))
    return;
  printerLabel_ = *printer;
  printerUsable_ = true;
  store(SettingIndex::プリンター, *printer);
}

void SettingsForm::testPrint() {
  if (!printTestEnabled())
    return;
  hooks_.log(u"PRINT  TEST  COMMAND"_s);
  const QString printer = settings_[key::プリンター].value_or(QString());
  if (!services_.printers.installed().contains(printer))
    return;
  hooks_.usePrinter(printer);
  const SettingsSample sample = print();
  const QString heading = u"*** SORAN PRINT TEST ***   Version "_s +
                          value(SettingIndex::SORANバージョン).toString() + u"   " +
                          dateText(services_.clock) + u"   " + timeText(services_.clock) + crlf;
  services_.printers.print({.printer = printer,
                            .text = heading + sample.text,
                            .font = sample.font,
                            .size = sample.size,
                            .bold = sample.bold});
}

void SettingsForm::restoreStandard() {
  if (!services_.dialogs.question(u" 確認"_s, u"標準設定に変更しますか？　　"_s) ||
      services_.shutdown.requested())
    return;
  const QString offset = settings_[key::時差].value_or(QString());
  settings_.restoreStandardSettings(hooks_.zoneOffset);
  offsetChanged_ = offsetChanged_ || settings_[key::時差] != offset;
  // No printer is chosen then; what is stored of printing is the standard all the same.
  findPrinter();
  refresh();
  hooks_.repaint();
}

bool SettingsForm::windowIsEmpty() const {
  const auto minutes = [this](int hours, int past) {
    return leadingInteger(chosen(hours)) * 60 + leadingInteger(chosen(past));
  };
  return minutes(5, 6) >= minutes(7, 8);
}

bool SettingsForm::close() {
  hooks_.takeBuffer();
  if (checked(15) && timedPrinting() && windowIsEmpty()) {
    services_.dialogs.message(u" 確認"_s, u"印刷終了時刻は印刷開始時刻より後に設定してください　　"_s);
    tab_ = printTab;
    changed();
    return false;
  }
  for (int combo = firstWindowCombo; combo <= lastWindowCombo; ++combo) {
    // A value that the list does not have is kept.
    if (!chosen(combo).isEmpty())
      settings_.setValue(find(settingsCombos(), combo)->key, chosen(combo));
  }
  passOver(lcForm(), "storing the print window", [this] { settings_.update(); });
  if (std::exchange(offsetChanged_, false))
    services_.dialogs.message(u" 確認"_s, u"時差の変更を有効にするため、SORAN を再起動してください　　"_s);
  outcome_ = form::EditSettings::Outcome{settings_[key::シーケンス時間] != hoursAtLoad_};
  return true;
}

} // namespace soran
