// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "sun/positions.h"

#include <QStringBuilder>
#include <algorithm>

namespace soran {

namespace {

constexpr FieldPosition coded[] = {
#include "sun/positions.inc"
};

constexpr FieldPosition namedFields[] = {
#include "sun/named_positions.inc"
};

const FieldPosition* find(std::span<const FieldPosition> rows, QStringView key) noexcept {
  const auto row = std::ranges::find(rows, key, &FieldPosition::key);
  return row == rows.end() ? nullptr : &*row;
}

} // namespace

std::span<const FieldPosition> codedPositions() noexcept {
  return coded;
}

std::span<const FieldPosition> namedPositions() noexcept {
  return namedFields;
}

const FieldPosition* findCoded(QStringView code) noexcept {
  return find(coded, code);
}

const FieldPosition* findNamed(QStringView name) noexcept {
  return find(namedFields, name);
}

QString AirfieldPosition(QStringView code) {
  const FieldPosition* row = findCoded(code);
  return row ? QString(row->latitude % row->longitude % row->elevation) : QString();
}

} // namespace soran
