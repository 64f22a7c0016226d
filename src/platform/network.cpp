// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/network.h"

#include "platform/curl_library.h"
#include "platform/proxies.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cerrno>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace soran {

namespace {

NetFailure failureOf(int result) {
  switch (result) {
  case CURLE_OK:
    return NetFailure::None;
  case CURLE_OPERATION_TIMEDOUT:
    return NetFailure::TimedOut;
  default:
    return NetFailure::Unreachable;
  }
}

int portOf(const QUrl& url) {
  constexpr int http = 80;
  constexpr int https = 443;
  return url.port(url.scheme() == u"https" ? https : http);
}

/// The address of a server that is named by number; its length is 0 where it is not.
struct SocketAddress {
  sockaddr_storage bytes{};
  socklen_t length = 0;
};

SocketAddress numberOf(const QUrl& server) {
  SocketAddress address;
  const QByteArray host = server.host().toLatin1();
  const in_port_t port = htons(static_cast<in_port_t>(portOf(server)));
  auto& four = reinterpret_cast<sockaddr_in&>(address.bytes);
  auto& six = reinterpret_cast<sockaddr_in6&>(address.bytes);
  if (::inet_pton(AF_INET, host.constData(), &four.sin_addr) == 1) {
    four.sin_family = AF_INET;
    four.sin_port = port;
    address.length = sizeof four;
  } else if (::inet_pton(AF_INET6, host.constData(), &six.sin6_addr) == 1) {
    six.sin6_family = AF_INET6;
    six.sin6_port = port;
    address.length = sizeof six;
  }
  return address;
}

/// A socket that connects to that address, -1 where that fails at once.
int connectingTo(const SocketAddress& address) {
  const int socket = ::socket(address.bytes.ss_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  if (socket < 0)
    return -1;
  const int atOnce = 1;
  ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &atOnce, sizeof atOnce);
  if (::connect(socket, reinterpret_cast<const sockaddr*>(&address.bytes), address.length) == 0 ||
      errno == EINPROGRESS)
    return socket;
  ::close(socket);
  return -1;
}

NetFailure failureOfSocket(int socket) {
  int error = 0;
  socklen_t size = sizeof error;
  if (::getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error == 0)
    return NetFailure::None;
  return error == ETIMEDOUT ? NetFailure::TimedOut : NetFailure::Unreachable;
}

bool isForLater(int error) {
  return error == EAGAIN || error == EINTR;
}

SocketWatch watchOf(qintptr socket, QSocketNotifier::Type type, std::function<void()> action) {
  SocketWatch watch(std::make_unique<QSocketNotifier>(socket, type).release());
  QObject::connect(watch.get(), &QSocketNotifier::activated, watch.get(),
                   [action = std::move(action)] { action(); });
  return watch;
}

} // namespace

QUrl serverOf(const QUrl& url) {
  QUrl server;
  server.setScheme(url.scheme());
  server.setHost(url.host());
  server.setPort(portOf(url));
  server.setPath(u"/"_s);
  return server;
}

void EndsLater::operator()(QSocketNotifier* watch) const {
  watch->setEnabled(false);
  watch->disconnect();
  watch->deleteLater();
}

/// Lets libcurl connect by the event loop of this thread.
class Network::Driver {
 public:
  Driver() {
    if (!curl_.isLoaded())
      return;
    multi_ = curl_.multiInit();
    curl_.multiSetopt(multi_, CURLMOPT_SOCKETFUNCTION, &Driver::onSocket);
    curl_.multiSetopt(multi_, CURLMOPT_SOCKETDATA, this);
    curl_.multiSetopt(multi_, CURLMOPT_TIMERFUNCTION, &Driver::onTimer);
    curl_.multiSetopt(multi_, CURLMOPT_TIMERDATA, this);
    timer_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { act(CURL_SOCKET_TIMEOUT, 0); });
  }
  ~Driver() {
    if (multi_)
      curl_.multiCleanup(multi_);
  }
  Driver(const Driver&) = delete;
  Driver& operator=(const Driver&) = delete;

  const CurlLibrary& curl() const { return curl_; }

  /// A connection that libcurl was told of; null where it cannot be.
  CURL* connect(const QUrl& server, const QUrl& proxy, Connection* owner) {
    CURL* handle = multi_ ? curl_.easyInit() : nullptr;
    if (!handle)
      return nullptr;
    const auto set = [&](CURLoption option, auto value) { curl_.easySetopt(handle, option, value); };
    set(CURLOPT_URL, server.toEncoded().constData());
    set(CURLOPT_PRIVATE, owner);
    set(CURLOPT_CONNECT_ONLY, 1L);
    set(CURLOPT_FRESH_CONNECT, 1L);
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    // A request and its answer are plain HTTP/1.1.
    set(CURLOPT_HTTP_VERSION, long(CURL_HTTP_VERSION_1_1));
    // What the environment says was looked up before.
    set(CURLOPT_PROXY, proxy.toEncoded().constData());
    set(CURLOPT_NOPROXY, "");
    // A look-up of a name that is given up is not waited for.
    set(CURLOPT_QUICK_EXIT, 1L);
    curl_.multiAddHandle(multi_, handle);
    return handle;
  }

  void close(CURL* handle) {
    curl_.multiRemoveHandle(multi_, handle);
    curl_.easyCleanup(handle);
  }

  curl_socket_t socketOf(CURL* handle) const {
    curl_socket_t socket = CURL_SOCKET_BAD;
    curl_.easyGetinfo(handle, CURLINFO_ACTIVESOCKET, &socket);
    return socket;
  }

 private:
  struct Watches {
    SocketWatch read;
    SocketWatch write;
  };

  static int onSocket(CURL*, curl_socket_t socket, int what, void* mine, void*) {
    static_cast<Driver*>(mine)->watch(socket, what);
    return 0;
  }

  static int onTimer(CURLM*, long milliseconds, void* mine) {
    QTimer& timer = static_cast<Driver*>(mine)->timer_;
    if (milliseconds < 0)
      timer.stop();
    else
      timer.start(std::chrono::milliseconds(milliseconds));
    return 0;
  }

  void watch(curl_socket_t socket, int what) {
    if (what == CURL_POLL_REMOVE) {
      watches_.erase(socket);
      return;
    }
    Watches& watches = watches_[socket];
    const auto set = [&](SocketWatch& one, bool wanted, QSocketNotifier::Type type, int event) {
      if (!wanted)
        one.reset();
      else if (!one)
        one = watchOf(socket, type, [this, socket, event] { act(socket, event); });
    };
    set(watches.read, (what & CURL_POLL_IN) != 0, QSocketNotifier::Read, CURL_CSELECT_IN);
    set(watches.write, (what & CURL_POLL_OUT) != 0, QSocketNotifier::Write, CURL_CSELECT_OUT);
  }

  void act(curl_socket_t socket, int events) {
    int running = 0;
    curl_.multiSocketAction(multi_, socket, events, &running);
    int left = 0;
    while (const CURLMsg* told = curl_.multiInfoRead(multi_, &left)) {
      if (told->msg != CURLMSG_DONE)
        continue;
      const int result = told->data.result;
      char* owner = nullptr;
      curl_.easyGetinfo(told->easy_handle, CURLINFO_PRIVATE, &owner);
      reinterpret_cast<Connection*>(owner)->endConnecting(failureOf(result));
    }
  }

  CurlLibrary curl_;
  CURLM* multi_ = nullptr;
  QTimer timer_;
  std::map<curl_socket_t, Watches> watches_;
};

Connection::Connection(Network& network, const QUrl& url, std::function<void(NetFailure)> connected)
    : network_(network), server_(serverOf(url)), proxy_(proxyFor(url)), connected_(std::move(connected)) {
  const bool isPlain = server_.scheme() == u"http" && proxy_.isEmpty();
  const SocketAddress number = isPlain ? numberOf(server_) : SocketAddress();
  if (number.length > 0)
    socket_ = connectingTo(number);
  else
    handle_ = network_.driver().connect(server_, proxy_, this);
  if (socket_ >= 0)
    whenWritable([this] {
      whenWritable({});
      endConnecting(failureOfSocket(socket_));
    });
  else if (!handle_)
    QTimer::singleShot(0, &context_, [this] { endConnecting(NetFailure::Unreachable); });
}

Connection::~Connection() {
  // No watch outlives its socket.
  readable_.reset();
  writable_.reset();
  if (handle_)
    network_.driver().close(handle_);
  if (socket_ >= 0)
    ::close(socket_);
}

bool Connection::leadsTo(const QUrl& url) const {
  return serverOf(url) == server_;
}

void Connection::endConnecting(NetFailure failure) {
  if (const auto connected = std::exchange(connected_, {}))
    connected(failure);
}

int Connection::socket() const {
  return handle_ ? network_.driver().socketOf(handle_) : socket_;
}

bool Connection::write(QByteArray& bytes) {
  if (!handle_) {
    const ssize_t count = ::send(socket_, bytes.constData(), size_t(bytes.size()), MSG_NOSIGNAL);
    bytes.remove(0, std::max<qsizetype>(count, 0));
    return count >= 0 || isForLater(errno);
  }
  size_t sent = 0;
  const CURLcode result =
      network_.driver().curl().easySend(handle_, bytes.constData(), size_t(bytes.size()), &sent);
  bytes.remove(0, qsizetype(sent));
  return result == CURLE_OK || result == CURLE_AGAIN;
}

Connection::Came Connection::read(QByteArray& bytes) {
  constexpr qsizetype most = qsizetype(64) * 1024;
  size_t got = 0;
  bytes.resize(most);
  if (!handle_) {
    const ssize_t count = ::recv(socket_, bytes.data(), size_t(most), 0);
    const int error = errno;
    bytes.truncate(std::max<qsizetype>(count, 0));
    acknowledge();
    if (count < 0)
      return isForLater(error) ? Came::Nothing : Came::Failure;
    return count > 0 ? Came::Bytes : Came::End;
  }
  const CURLcode result = network_.driver().curl().easyRecv(handle_, bytes.data(), size_t(most), &got);
  bytes.truncate(result == CURLE_OK ? qsizetype(got) : 0);
  acknowledge();
  if (result == CURLE_AGAIN)
    return Came::Nothing;
  if (result != CURLE_OK)
    return Came::Failure;
  return got > 0 ? Came::Bytes : Came::End;
}

void Connection::acknowledge() const {
  // A server's system holds back what is sent behind an answer until that is acknowledged, which may be with
  // the next request: an answer that nobody asked for would come just ahead of the true one.
  const int atOnce = 1;
  ::setsockopt(socket(), IPPROTO_TCP, TCP_QUICKACK, &atOnce, sizeof atOnce);
}

void Connection::whenReadable(std::function<void()> action) {
  readable_.reset(); // a socket has one at a time
  readable_ = action ? watchOf(socket(), QSocketNotifier::Read, std::move(action)) : SocketWatch();
}

void Connection::whenWritable(std::function<void()> action) {
  writable_.reset();
  writable_ = action ? watchOf(socket(), QSocketNotifier::Write, std::move(action)) : SocketWatch();
}

bool Connection::isSilent() {
  QByteArray come;
  return read(come) == Came::Nothing;
}

Network::Network() = default;

Network::~Network() = default;

Network::Driver& Network::driver() {
  if (!driver_)
    driver_ = std::make_unique<Driver>();
  return *driver_;
}

std::unique_ptr<Connection> Network::kept(const QUrl& url) {
  for (auto it = kept_.begin(); it != kept_.end();) {
    if (!(*it)->leadsTo(url)) {
      ++it;
      continue;
    }
    std::unique_ptr<Connection> found = std::move(*it);
    it = kept_.erase(it);
    found->whenReadable({});
    // Its end, or an answer that nobody asked for, may have come without a turn of the event loop since.
    if (found->isSilent())
      return found;
  }
  return nullptr;
}

void Network::keep(std::unique_ptr<Connection> connection) {
  constexpr size_t mostKept = 6;
  Connection* const one = connection.get();
  one->whenReadable([this, one] {
    if (!one->isSilent())
      kept_.remove_if([one](const auto& other) { return other.get() == one; });
  });
  kept_.push_back(std::move(connection));
  if (kept_.size() > mostKept)
    kept_.pop_front();
}

} // namespace soran
