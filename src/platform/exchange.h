// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/answer_reader.h"
#include "platform/network.h"

namespace soran {

/// One GET and its answer; redirects are not followed. It goes over a kept connection where there is one.
///
/// It is sent once more, on a new connection, where the first one ended unanswered, and where what came over
/// a kept one may not be the answer to it: bytes that are no answer, a 408 or another error with which the
/// server hangs up, an answer with more behind it, the very report that answered another address before.
/// Destroying it ends it.
class Exchange {
 public:
  /// `ended` is called once, behind this call; it may destroy this exchange.
  Exchange(Network& network, const QUrl& url, qint64 bodyLimit, std::function<void()> ended);
  ~Exchange();
  Exchange(const Exchange&) = delete;
  Exchange& operator=(const Exchange&) = delete;

  /// What came, once it ended. It is a good answer where failure() is None.
  AnswerReader& answer() { return answer_; }
  NetFailure failure() const { return failure_; }
  /// By what the server tells that body from others, and when it was changed.
  const Validators& validators() const {
    return answer_.isUnchanged() ? known_.validators : answer_.validators();
  }
  /// The body that came; the one known before where the server says that it did not change.
  QByteArray takeBody() { return answer_.isUnchanged() ? known_.body : answer_.takeBody(); }

 private:
  void connectAnew();
  void begin();
  void write();
  void read();
  void judge();
  bool isDoubtful() const;
  bool bringsReport() const;
  bool repeatsAnother() const;
  void keep();
  Connection::Report report() const { return {url_, qHash(answer_.body())}; }
  void end(NetFailure why);

  Network& network_;
  QUrl url_;
  qint64 bodyLimit_;
  std::function<void()> ended_;
  AnswerReader answer_;
  Courtesy::Remembered known_;
  std::unique_ptr<Connection> connection_;
  QByteArray unsent_;
  QByteArray come_;
  NetFailure failure_ = NetFailure::None;
  bool onKept_ = false; // the connection served another request before
  bool again_ = false;  // it was sent a second time
};

} // namespace soran
