// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/answer_reader.h"

#include <algorithm>

namespace soran {

namespace {

constexpr qint64 endless = -1;

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

bool isTokenCharacter(char c) {
  return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
         QByteArrayView("!#$%&'*+-.^_`|~").contains(c);
}

bool isControl(char c) {
  return (static_cast<unsigned char>(c) < 0x20 && c != '\t') || c == 0x7f;
}

/// A number of these digits and nothing else; nothing where it is none or has more than fifteen.
std::optional<qint64> numberOf(QByteArrayView digits, int base) {
  constexpr qsizetype most = 15;
  const auto fits = [base](char c) {
    return isDigit(c) || (base == 16 && ((c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F')));
  };
  if (digits.isEmpty() || digits.size() > most || !std::all_of(digits.begin(), digits.end(), fits))
    return std::nullopt;
  return digits.toByteArray().toLongLong(nullptr, base);
}

bool is(QByteArrayView value, QByteArrayView word) {
  return value.compare(word, Qt::CaseInsensitive) == 0;
}

bool listHas(QByteArrayView list, QByteArrayView word) {
  const QByteArrayList entries = list.toByteArray().split(',');
  return std::any_of(entries.begin(), entries.end(),
                     [word](const QByteArray& entry) { return is(QByteArrayView(entry).trimmed(), word); });
}

} // namespace

void AnswerReader::add(QByteArrayView bytes) {
  untouched_ = untouched_ && bytes.isEmpty();
  while (!bytes.isEmpty() && !ended()) {
    if (part_ == Part::Body || part_ == Part::Chunk)
      addData(bytes);
    else
      addLine(bytes);
  }
  surplus_ = surplus_ || (isWhole() && !bytes.isEmpty());
}

void AnswerReader::endOfConnection(bool properly) {
  if (ended())
    return;
  // A text that was cut would pass for a shorter one; whole ones end with a line, pages with a tag.
  const bool finished = !isText_ || body_.endsWith('\n') || body_.endsWith('>');
  if (part_ == Part::Body && missing_ == endless && endsAreTold_ && properly && finished)
    endBody();
  else
    refuse(NetFailure::Cut);
}

bool AnswerReader::isRedirect() const {
  return (status_ == 301 || status_ == 302 || status_ == 303 || status_ == 307 || status_ == 308) &&
         !location_.isEmpty();
}

void AnswerReader::addLine(QByteArrayView& bytes) {
  const qsizetype end = bytes.indexOf('\n');
  const QByteArrayView come = bytes.first(end < 0 ? bytes.size() : end + 1);
  bytes = bytes.sliced(come.size());
  headBytes_ += come.size();
  if (headBytes_ > largestHead) {
    refuse(NetFailure::TooLarge);
    return;
  }
  line_.append(come);
  if (end < 0)
    return;
  const QByteArray line = std::exchange(line_, {});
  readLine(QByteArrayView(line).chopped(1));
}

void AnswerReader::readLine(QByteArrayView line) {
  const bool properEnd = line.endsWith('\r');
  if (properEnd)
    line = line.chopped(1);
  const bool ofChunks = part_ == Part::ChunkSize || part_ == Part::ChunkEnd;
  const bool runsOn = part_ == Part::ChunkEnd && !line.isEmpty();
  if (runsOn || (ofChunks && !properEnd) || std::any_of(line.begin(), line.end(), isControl)) {
    refuse(NetFailure::Cut);
  } else if (part_ == Part::StatusLine) {
    readStatusLine(line);
  } else if (part_ == Part::Headers) {
    if (line.isEmpty())
      beginBody();
    else
      readHeader(line);
  } else if (part_ == Part::ChunkSize) {
    readChunkSize(line);
  } else if (part_ == Part::Trailers) {
    if (line.isEmpty())
      endBody();
  } else {
    part_ = Part::ChunkSize;
  }
}

void AnswerReader::readStatusLine(QByteArrayView line) {
  constexpr qsizetype version = 8; // "HTTP/1.1"
  const bool isHttp = line.startsWith("HTTP/1.1 ") || line.startsWith("HTTP/1.0 ");
  const auto status =
      isHttp ? numberOf(line.sliced(version + 1).first(std::min<qsizetype>(3, line.size() - version - 1)), 10)
             : std::nullopt;
  const QByteArrayView rest = line.sliced(std::min<qsizetype>(version + 4, line.size()));
  // What is on its way to be an answer is none yet, and nobody asked for another protocol.
  if (!status || *status < 200 || *status > 599 || !(rest.isEmpty() || rest.startsWith(' '))) {
    refuse(NetFailure::Cut);
    return;
  }
  status_ = int(*status);
  closes_ = line[version - 1] == '0';
  part_ = Part::Headers;
}

void AnswerReader::readHeader(QByteArrayView line) {
  const qsizetype colon = line.indexOf(':');
  const QByteArrayView name = line.first(std::max<qsizetype>(colon, 0));
  if (name.isEmpty() || !std::all_of(name.begin(), name.end(), isTokenCharacter))
    refuse(NetFailure::Cut);
  else
    readField(name.toByteArray().toLower(), line.sliced(colon + 1).trimmed());
}

void AnswerReader::readField(const QByteArray& name, QByteArrayView value) {
  if (name == "content-length") {
    const std::optional<qint64> length = numberOf(value, 10);
    if (!length || (length_ && length_ != length))
      refuse(NetFailure::Cut);
    length_ = length;
  } else if (name == "transfer-encoding") {
    if (chunked_ || !is(value, "chunked"))
      refuse(NetFailure::Cut);
    chunked_ = true;
  } else if (name == "content-encoding") {
    if (!value.isEmpty() && !is(value, "identity"))
      refuse(NetFailure::Cut);
  } else if (name == "content-type") {
    isText_ = value.toByteArray().toLower().startsWith("text/");
  } else if (name == "connection") {
    closes_ = closes_ || listHas(value, "close");
  } else if (name == "location") {
    if (!location_.isEmpty() && location_ != value)
      refuse(NetFailure::Cut);
    location_ = value.toByteArray();
  } else if (name == "etag") {
    validators_.tag = value.toByteArray();
  } else if (name == "last-modified") {
    validators_.modified = value.toByteArray();
  } else if (name == "retry-after") {
    retryAfter_ = value.toByteArray();
  }
}

bool AnswerReader::bringsBody() const {
  return status_ == 200 || status_ >= 400 || isRedirect();
}

void AnswerReader::beginBody() {
  headIsRead_ = true;
  if (length_ && chunked_) {
    refuse(NetFailure::Cut);
  } else if (status_ == 304 && mayBeUnchanged_) {
    part_ = Part::Whole;
  } else if (!bringsBody()) {
    refuse(NetFailure::Status);
  } else if (chunked_) {
    part_ = Part::ChunkSize;
  } else if (length_.value_or(0) > bodyLimit_) {
    refuse(NetFailure::TooLarge);
  } else {
    closes_ = closes_ || !length_;
    missing_ = length_.value_or(endless);
    part_ = Part::Body;
    if (missing_ == 0)
      endBody();
  }
}

void AnswerReader::readChunkSize(QByteArrayView line) {
  const qsizetype extension = line.indexOf(';');
  QByteArrayView digits = line.first(extension < 0 ? line.size() : extension);
  // Some servers fill the size up with blanks.
  while (digits.endsWith(' '))
    digits = digits.chopped(1);
  const std::optional<qint64> size = numberOf(digits, 16);
  if (!size)
    refuse(NetFailure::Cut);
  else if (*size > bodyLimit_ - body_.size())
    refuse(NetFailure::TooLarge);
  else
    part_ = *size == 0 ? Part::Trailers : Part::Chunk;
  missing_ = size.value_or(0);
}

void AnswerReader::addData(QByteArrayView& bytes) {
  const qsizetype taken =
      missing_ == endless ? bytes.size() : qsizetype(std::min<qint64>(missing_, bytes.size()));
  if (taken > bodyLimit_ - body_.size()) {
    refuse(NetFailure::TooLarge);
    return;
  }
  body_.append(bytes.first(taken));
  bytes = bytes.sliced(taken);
  if (missing_ == endless)
    return;
  missing_ -= taken;
  if (missing_ > 0)
    return;
  if (part_ == Part::Body)
    endBody();
  else
    part_ = Part::ChunkEnd;
}

void AnswerReader::endBody() {
  const bool isPage = status_ >= 400 && body_.startsWith('<');
  if (status_ == 200 || isPage || isRedirect()) {
    part_ = Part::Whole;
    return;
  }
  refuse(NetFailure::Status);
  part_ = Part::Whole;
}

void AnswerReader::refuse(NetFailure why) {
  // The first reason counts.
  if (failure_ == NetFailure::None)
    failure_ = why;
  part_ = Part::Refused;
}

} // namespace soran
