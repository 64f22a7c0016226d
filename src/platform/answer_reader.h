// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/courtesy.h"
#include "platform/inet.h"

#include <QByteArray>
#include <QByteArrayView>
#include <optional>

namespace soran {

/// Reads the answer to one GET from the bytes of its connection (RFC 9112), and takes nothing of which it
/// cannot tell that it is whole. What servers in use do not send is refused rather than interpreted: folded
/// header lines, other transfer codings than one "chunked", encoded bodies, two lengths.
class AnswerReader {
 public:
  /// Bytes of the status line, the header lines and what stands between and behind chunks, all together.
  static constexpr qsizetype largestHead = qsizetype(64) * 1024;

  /// A body has at most `bodyLimit` bytes. One that ends with its connection is taken only where
  /// `endsAreTold`: where a connection that was cut cannot look like one that was closed.
  AnswerReader(qint64 bodyLimit, bool endsAreTold) : bodyLimit_(bodyLimit), endsAreTold_(endsAreTold) {}

  /// It was asked whether a body changed, so that 304 is an answer: a whole one without a body.
  void expectNotModified() { mayBeUnchanged_ = true; }

  /// The next bytes that came, in their order.
  void add(QByteArrayView bytes);

  /// Nothing comes any more: the server closed the connection, `properly` or by breaking it off.
  void endOfConnection(bool properly);

  /// Nothing further is wanted: the answer is whole, or refused.
  bool ended() const { return part_ == Part::Whole || part_ == Part::Refused; }
  /// All of it came. It may bring nothing all the same: an error without a page.
  bool isWhole() const { return part_ == Part::Whole; }
  /// Why it is no good answer, None where it is one or may become one.
  NetFailure failure() const { return failure_; }

  /// The head came to its end and holds what a head may hold.
  bool headIsRead() const { return headIsRead_; }
  /// No byte has come.
  bool isUntouched() const { return untouched_; }
  /// Bytes came behind the end of a whole answer.
  bool hasSurplus() const { return surplus_; }

  int status() const { return status_; } ///< 0 before the status line
  bool isRedirect() const;               ///< a status that sends to the address of location()
  const QByteArray& location() const { return location_; }
  bool isUnchanged() const { return status_ == 304 && isWhole(); }
  const Validators& validators() const { return validators_; }
  const QByteArray& retryAfter() const { return retryAfter_; } ///< of Retry-After, as it was told
  bool hasLength() const { return length_.has_value(); }       ///< a Content-Length was told
  /// The connection may serve another request behind a whole answer.
  bool keepsOpen() const { return !closes_; }
  const QByteArray& body() const { return body_; }
  QByteArray takeBody() { return std::move(body_); }

 private:
  enum class Part { StatusLine, Headers, Body, ChunkSize, Chunk, ChunkEnd, Trailers, Whole, Refused };

  void addLine(QByteArrayView& bytes);
  void addData(QByteArrayView& bytes);
  void readLine(QByteArrayView line);
  void readStatusLine(QByteArrayView line);
  void readHeader(QByteArrayView line);
  void readField(const QByteArray& name, QByteArrayView value);
  void readChunkSize(QByteArrayView line);
  void beginBody();
  bool bringsBody() const;
  void endBody();
  void refuse(NetFailure why);

  qint64 bodyLimit_;
  bool endsAreTold_;
  Part part_ = Part::StatusLine;
  NetFailure failure_ = NetFailure::None;
  QByteArray line_; // the part of a line that has come
  qsizetype headBytes_ = 0;
  int status_ = 0;
  std::optional<qint64> length_;
  bool chunked_ = false;
  bool closes_ = false;
  bool isText_ = true;
  bool mayBeUnchanged_ = false;
  bool headIsRead_ = false;
  bool untouched_ = true;
  bool surplus_ = false;
  qint64 missing_ = 0; // bytes of the body, or of its chunk, that are still to come
  QByteArray location_;
  Validators validators_;
  QByteArray retryAfter_;
  QByteArray body_;
};

} // namespace soran
