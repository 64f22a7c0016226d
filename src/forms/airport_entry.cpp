// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/airport_entry.h"

#include "base/text.h"
#include "forms/edited_list.h"

namespace soran {

using namespace Qt::StringLiterals;

AirportEntry::AirportEntry(Program& program, Mode mode, const QString& code, const QString& name)
    : program_(program), mode_(mode), code_(code), name_(name) {
  program.watchTicks = 0;
}

QString AirportEntry::title() const {
  return u' ' + (mode_ == Mode::Add ? u"飛行場情報の追加"_s : u"飛行場情報の修正"_s);
}

QString AirportEntry::confirmCaption() const {
  return mode_ == Mode::Add ? u"追  加"_s : u"修  正"_s;
}

QString AirportEntry::confirmTip() const {
  return mode_ == Mode::Add ? u" 情報を追加して終了 "_s : u" 情報を修正して終了 "_s;
}

QString AirportEntry::cancelTip() const {
  return mode_ == Mode::Add ? u" 情報の追加をキャンセルして終了 "_s : u" 情報の修正をキャンセルして終了 "_s;
}

void AirportEntry::typeCode(const QString& text) {
  code_ = asciiUpper(text).left(codeLength);
  typed_ = true;
  changed();
}

/// Tells a code that the table has, and shows its name. A change is not looked at.
bool AirportEntry::isDuplicate() {
  if (mode_ != Mode::Add)
    return false;
  for (const Airport& airport : program_.tables.airportRows()) {
    if (airport.code != code_)
      continue;
    name_ = airport.name;
    changed();
    refuse(Field::Code, code_ + u" はすでに登録されています　　");
    return true;
  }
  return false;
}

bool AirportEntry::refuse(Field field, const QString& text) {
  tell(program_, text);
  wantFocus(field);
  return false;
}

void AirportEntry::codeLeft() {
  const bool typed = std::exchange(typed_, false);
  if (typed)
    isDuplicate();
}

bool AirportEntry::confirm() {
  code_ = trimBlanks(code_).toString();
  name_ = trimBlanks(name_).toString();
  if (code_.isEmpty())
    return refuse(Field::Code, u"飛行場略号（ICAO 4 Letter）を入力してください　　"_s);
  if (name_.isEmpty())
    return refuse(Field::Name, u"飛行場名を入力してください　　"_s);
  if (isDuplicate())
    return false;
  cancelled_ = false;
  return true;
}

} // namespace soran
