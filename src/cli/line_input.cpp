// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/line_input.h"

#include <cerrno>
#include <poll.h>
#include <unistd.h>

namespace soran {

bool LineInput::readMore() {
  constexpr qsizetype piece = 1 << 16;
  if (begin_ > 0) {
    buffer_.remove(0, begin_);
    searched_ -= begin_;
    begin_ = 0;
  }
  const qsizetype size = buffer_.size();
  buffer_.resize(size + piece);
  ssize_t got = 0;
  do
    got = ::read(descriptor_, buffer_.data() + size, size_t(piece));
  while (got < 0 && errno == EINTR);
  buffer_.resize(size + (got > 0 ? got : 0));
  atEnd_ = got <= 0;
  return !atEnd_;
}

std::optional<QByteArray> LineInput::next() {
  for (;;) {
    const qsizetype end = buffer_.indexOf('\n', searched_);
    if (end >= 0) {
      QByteArray line = buffer_.mid(begin_, end - begin_);
      begin_ = searched_ = end + 1;
      if (line.endsWith('\r'))
        line.chop(1);
      return line;
    }
    searched_ = buffer_.size();
    if (atEnd_ || !readMore())
      break;
  }
  if (begin_ >= buffer_.size())
    return std::nullopt;
  QByteArray line = buffer_.mid(begin_);
  begin_ = searched_ = buffer_.size();
  return line;
}

bool LineInput::isAtHand() {
  while (buffer_.indexOf('\n', searched_) < 0) {
    searched_ = buffer_.size();
    pollfd descriptor{descriptor_, POLLIN, 0};
    if (atEnd_ || ::poll(&descriptor, 1, 0) <= 0 || !readMore())
      return begin_ < buffer_.size() && atEnd_;
  }
  return true;
}

} // namespace soran
