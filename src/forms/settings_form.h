// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/settings_controls.h"
#include "forms/settings_sample.h"
#include "platform/services.h"
#include "store/settings.h"

#include <QHash>
#include <functional>
#include <optional>

namespace soran {

/// What the settings form asks of the terminal behind it.
struct SettingsFormHooks {
  QString zoneOffset; ///< the computer's offset from UTC as text: "+9", "±0"
  QString zoneName;   ///< the name of its zone
  std::function<void(const QString&)> log = [](const QString&) {};
  /// バッファ is to be taken over now.
  std::function<void()> takeBuffer = [] {};
  /// The hours of a sequence were chosen: the cycle files are to be looked at anew.
  std::function<void()> hoursChosen = [] {};
  /// The standard settings were written: the screen is to be painted anew.
  std::function<void()> repaint = [] {};
  /// The user chose the printer to be the current one.
  std::function<void(const QString&)> usePrinter = [](const QString&) {};
  /// Shows the printers of the system with the stored one chosen; nothing where the user cancelled.
  std::function<std::optional<QString>()> choosePrinter = [] { return std::nullopt; };
  /// Carries out what waits in the event loop; a wait that unwinds ends there.
  std::function<void(const std::function<void()>&)> guarded = [](const auto& step) { step(); };
};

/// The form `opton` without its window. Every control stands for one key and writes it at once when it
/// changes, so there is nothing to apply and nothing to cancel.
class SettingsForm {
 public:
  static constexpr QStringView title = u" 動作設定";
  static constexpr QStringView bufferText =
      u"バッファ設定 （通信エラーが多発する場合は、バッファを調整してください）";
  static constexpr QStringView slowText = u"低速度 （アナログ回線）";
  static constexpr QStringView fastText = u"高速度 （ADSL）";
  static constexpr QStringView toolbarTexts[] = {u"グレー", u"カラー"};
  static constexpr QStringView windowTexts[] = {u"常時出力", u"時刻指定"};

  /// Loads the form: a printer that is gone is struck from the settings, and printing with it.
  SettingsForm(Settings& settings, Services& services, SettingsFormHooks hooks);

  bool checked(int box) const;
  bool boxEnabled(int box) const;
  void check(int box, bool on);
  /// The tip of a check box, empty where it has none.
  QString boxTip(int box) const;

  /// A limit's field: what was typed stays in it.
  QString text(int field) const { return texts_.value(field); }
  void type(int field, const QString& text) { texts_.insert(field, text); }
  /// The focus leaves the field: the number in it is stored without its sign. One that the key cannot hold
  /// is not.
  void leave(int field);

  /// The fonts of the screen and of the printer, as the front end finds them.
  void setFonts(const QStringList& screen, const QStringList& printer);
  QStringList items(int combo) const;
  /// The chosen entry; empty where the stored value is none of the list's.
  QString chosen(int combo) const;
  bool comboEnabled(int combo) const;
  void choose(int combo, const QString& text);

  Colour colour(int swatch) const;
  /// The answer of the colour dialogue; nothing where the user cancelled it.
  void pick(int swatch, std::optional<Colour> colour);

  /// 1 to 10, the fastest line.
  int buffer() const;
  void setBuffer(int value);

  bool colouredToolbar() const;
  void setColouredToolbar(bool coloured);

  /// Automatic prints keep to a time window.
  bool timedPrinting() const;
  bool timedPrintingEnabled() const { return checked(15); }
  void setTimedPrinting(bool timed);

  const QString& printerLabel() const { return printerLabel_; }
  /// The label names a printer that is there.
  bool printerUsable() const { return printerUsable_; }
  bool printerChoiceEnabled() const { return anyPrinter_; }
  bool printTestEnabled() const { return printerUsable_; }

  SettingsSample display() const { return displaySample(settings_.record()); }
  SettingsSample print() const { return printSample(settings_.record()); }
  /// Where the display's sample is scrolled to when its tab comes to the front.
  bool sampleAtTop() const;

  void testError() { testSound(QStringLiteral("sound/error.wav")); }
  void testRing() { testSound(QStringLiteral("sound/ring.wav")); }
  void choosePrinter();
  void testPrint();
  void restoreStandard();

  /// The close button, and the window's close box. False where the form stays, on the tab `tabToShow`.
  bool close();
  /// What the closed form decided; nothing while it is open.
  std::optional<form::EditSettings::Outcome> outcome() const { return outcome_; }
  int tabToShow() const { return tab_; }
  void showTab(int tab) { tab_ = tab; }

  /// Something looks otherwise than before.
  std::function<void()> changed = [] {};

 private:
  /// Names the chosen printer, or what is wrong with it; false where it cannot be used.
  bool findPrinter();
  void forbidPrinting();
  void refresh();
  void store(SettingIndex key, const QVariant& value);
  bool windowIsEmpty() const;
  void testSound(const QString& file);
  const QVariant& value(SettingIndex key) const { return settings_.record().value(key); }

  Settings& settings_;
  Services& services_;
  SettingsFormHooks hooks_;
  QHash<int, QString> texts_;
  QStringList screenFonts_;
  QStringList printerFonts_;
  QString printerLabel_;
  bool anyPrinter_ = false;
  bool printerUsable_ = false;
  bool offsetChanged_ = false;
  std::optional<int> hoursAtLoad_;
  std::optional<form::EditSettings::Outcome> outcome_;
  int tab_ = 0;
};

} // namespace soran
