// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/signature.h"

#include <sodium.h>

namespace soran {

bool signatureFits(const QByteArray& message, const QByteArray& signature, const QByteArray& publicKey) {
  if (signature.size() != crypto_sign_BYTES || publicKey.size() != crypto_sign_PUBLICKEYBYTES ||
      sodium_init() < 0)
    return false;
  const auto bytes = [](const QByteArray& array) {
    return reinterpret_cast<const unsigned char*>(array.constData());
  };
  return crypto_sign_verify_detached(bytes(signature), bytes(message),
                                     static_cast<unsigned long long>(message.size()), bytes(publicKey)) == 0;
}

QByteArray builtInPublicKey() {
  return QByteArray::fromHex(SORAN_PUBLIC_KEY);
}

} // namespace soran
