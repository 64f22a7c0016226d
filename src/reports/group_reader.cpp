// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/group_reader.h"

namespace soran {

void GroupReader::NextToken() {
  do {
    const qsizetype blank = rest_.indexOf(u' ');
    if (blank < 0) {
      token_ = rest_;
      more_ = false;
      lastGiven_ = true;
      adjacent_ = false;
      return;
    }
    token_ = rest_.first(blank);
    rest_ = rest_.sliced(blank + 1);
    more_ = true;
    adjacent_ = true;
  } while (token_ == u"LAST" || token_ == u"FIRST");
}

void GroupReader::PushBack() {
  if (adjacent_) {
    adjacent_ = false;
    rest_ = QStringView(token_.data(), token_.size() + 1 + rest_.size());
    return;
  }
  QString joined;
  joined.reserve(token_.size() + 1 + rest_.size());
  joined.append(token_).append(u' ').append(rest_);
  rebuilt_.append(joined);
  rest_ = rebuilt_.constLast();
}

void GroupReader::setRest(QStringView rest) {
  rest_ = rest;
  adjacent_ = false;
}

void GroupReader::dropToken() {
  token_ = QStringView();
  adjacent_ = false;
}

} // namespace soran
