// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "hostile/trial.h"

#include <QEventLoop>
#include <sys/socket.h>

namespace soran::hostile {

namespace {

void reset(QTcpSocket& socket) {
  socket.flush();
  const linger none{.l_onoff = 1, .l_linger = 0};
  setsockopt(int(socket.socketDescriptor()), SOL_SOCKET, SO_LINGER, &none, sizeof none);
  socket.abort();
}

} // namespace

void Endpoint::answer(const LineServer::Request& request) {
  if (times_ > 0 && request.target == spoilt_) {
    --times_;
    play(request.socket, script_, 0);
    return;
  }
  const QByteArray body = truth(request.target.split('?').first());
  play(request.socket, honest(body.isEmpty() ? "<html>nothing here</html>" : body), 0);
}

void Endpoint::play(QTcpSocket& socket, const Script& script, qsizetype piece) {
  const auto later = [&socket, playing = playing_](int milliseconds, auto action) {
    ++*playing;
    // One that the client closed takes its timers along.
    const auto done = std::shared_ptr<void>(nullptr, [playing](void*) { --*playing; });
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &socket, [done, action] { action(); });
  };
  if (piece < script.pieces.size())
    socket.write(script.pieces[piece]);
  if (piece + 1 < script.pieces.size()) {
    later(1, [this, &socket, script, piece] { play(socket, script, piece + 1); });
  } else if (script.surplusAfter > 0) {
    later(script.surplusAfter, [&socket, script] { socket.write(script.surplus); });
  } else {
    socket.write(script.surplus);
    if (script.end == Script::End::Close)
      socket.disconnectFromHost();
    else if (script.end == Script::End::Reset)
      reset(socket);
  }
}

void Endpoint::settle() const {
  QEventLoop loop;
  int quiet = 0;
  QTimer look;
  // What was written goes out, and comes in, by the turns behind it.
  QObject::connect(&look, &QTimer::timeout, &look, [&] {
    quiet = *playing_ == 0 ? quiet + 1 : 0;
    if (quiet > 2)
      loop.quit();
  });
  look.start(1);
  loop.exec();
}

} // namespace soran::hostile
