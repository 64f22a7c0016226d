// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace soran {

inline constexpr qsizetype signatureSize = 64; ///< bytes

/// True where `signature` (64 bytes) is the Ed25519 signature (RFC 8032) of `message` by the owner of
/// `publicKey` (32 bytes).
bool signatureFits(const QByteArray& message, const QByteArray& signature, const QByteArray& publicKey);

/// The public key built into the program, empty where it was built without one: nothing then counts as
/// signed.
QByteArray builtInPublicKey();

} // namespace soran
