// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <sodium.h>

/// A pair of Ed25519 keys made from one byte, for tests that sign.
class TestKey {
 public:
  explicit TestKey(char seed = 1) {
    const QByteArray bytes(crypto_sign_SEEDBYTES, seed);
    crypto_sign_seed_keypair(data(publicKey), data(secretKey_),
                             reinterpret_cast<const unsigned char*>(bytes.constData()));
  }

  QByteArray sign(const QByteArray& message) const {
    QByteArray signature(crypto_sign_BYTES, '\0');
    crypto_sign_detached(data(signature), nullptr,
                         reinterpret_cast<const unsigned char*>(message.constData()),
                         static_cast<unsigned long long>(message.size()),
                         reinterpret_cast<const unsigned char*>(secretKey_.constData()));
    return signature;
  }

  QByteArray publicKey = QByteArray(crypto_sign_PUBLICKEYBYTES, '\0');

 private:
  static unsigned char* data(QByteArray& bytes) { return reinterpret_cast<unsigned char*>(bytes.data()); }

  QByteArray secretKey_ = QByteArray(crypto_sign_SECRETKEYBYTES, '\0');
};
