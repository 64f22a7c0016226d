// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/http_module.h"

#include "http/endpoint_server.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

class NetworkPost final : public EventPost {
 public:
  void post(const QUrl& address, const QByteArray& json, int limitMilliseconds,
            std::function<void(const QString& why)> ended) override {
    QNetworkRequest request(address);
    request.setHeader(QNetworkRequest::ContentTypeHeader, u"application/json"_s);
    request.setTransferTimeout(limitMilliseconds);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    QNetworkReply* reply = network_.post(request, json);
    QObject::connect(reply, &QNetworkReply::finished, reply, [reply, ended = std::move(ended)] {
      const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
      reply->deleteLater();
      if (status >= 200 && status <= 299)
        ended({});
      else
        ended(status == 0 ? reply->errorString() : u"status "_s + QString::number(status));
    });
  }

 private:
  QNetworkAccessManager network_;
};

} // namespace

std::unique_ptr<Endpoint> HttpModule::makeEndpoint() {
  return std::make_unique<EndpointServer>();
}

std::unique_ptr<EventPost> HttpModule::makeEventPost() {
  return std::make_unique<NetworkPost>();
}

} // namespace soran
