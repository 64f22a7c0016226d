// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runs/program.h"

#include <functional>

namespace soran {

/// The dialog `airportedit` without its window: code and name of one airport.
class AirportEntry {
 public:
  enum class Mode { Add, Change };
  enum class Field { Code, Name };
  static constexpr int codeLength = 4;
  static constexpr QStringView codeTip = u" ICAO ４レター名を入力 ";
  static constexpr QStringView nameTip = u" 飛行場名を入力 ";
  static constexpr QStringView cancelCaption = u"キャンセル";

  AirportEntry(Program& program, Mode mode, const QString& code = {}, const QString& name = {});

  QString title() const;
  QString confirmCaption() const;
  QString confirmTip() const;
  QString cancelTip() const;

  /// What the fields hold; behind a confirmation, trimmed.
  const QString& code() const { return code_; }
  const QString& name() const { return name_; }

  /// The user has typed: a code becomes upper case and holds four characters at most.
  void typeCode(const QString& text);
  void typeName(const QString& text) { name_ = text; }

  /// The field of the code has lost the focus. A typed code that the table has already is told, its name is
  /// shown, and `wantFocus` brings the focus back.
  void codeLeft();

  /// The dialog may close; else the user was told why not, and `wantFocus` was called.
  bool confirm();
  void cancel() { cancelled_ = true; }
  /// Nothing is to be taken over; so it is until a confirmation.
  bool cancelled() const { return cancelled_; }

  std::function<void(Field)> wantFocus = [](Field) {};
  std::function<void()> changed = [] {};

 private:
  bool isDuplicate();
  bool refuse(Field field, const QString& text);

  Program& program_;
  Mode mode_;
  QString code_;
  QString name_;
  bool typed_ = false;
  bool cancelled_ = true;
};

} // namespace soran
