// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/cipher.h"

#include "base/plain_file.h"

#include <QCryptographicHash>
#include <QFile>
#include <QMessageAuthenticationCode>
#include <QtEndian>
#include <algorithm>

namespace soran::cipher {

using namespace Qt::StringLiterals;

namespace {

/// The key is the hash of the password. The password is the same everywhere, so stretching it would cost
/// every start a tenth of a second and protect nothing.
QByteArray rawKey() {
  return QCryptographicHash::hash("Qn7ab", QCryptographicHash::Sha256);
}

constexpr qsizetype saltSize = 16;
constexpr qsizetype vectorSize = 16;
constexpr qsizetype cipherBlock = 16;
constexpr qsizetype largestPage = 65536; // SQLite's

/// The key of a page's authentication, made of the key and the salt at the file's beginning.
QByteArray authenticationKey(QCryptographicHash::Algorithm algorithm, QByteArray salt) {
  for (char& byte : salt)
    byte = char(byte ^ 0x3a);
  // PBKDF2 (RFC 8018) of two rounds. Qt has it among its network classes, with twelve libraries behind them.
  constexpr qsizetype keySize = 32;
  const auto code = [&](const QByteArray& message) {
    return QMessageAuthenticationCode::hash(message, rawKey(), algorithm);
  };
  QByteArray key;
  for (quint32 block = 1; key.size() < keySize; ++block) {
    const quint32 bigEndian = qToBigEndian(block);
    QByteArray sum = code(salt + QByteArray(reinterpret_cast<const char*>(&bigEndian), sizeof bigEndian));
    const QByteArray second = code(sum);
    for (qsizetype i = 0; i < sum.size(); ++i)
      sum[i] = char(sum[i] ^ second[i]);
    key += sum;
  }
  return key.first(keySize);
}

/// Whether a page of that number (from 1) carries the code that `key` gives: the salt on the first one,
/// encrypted text, vector, code, filling.
bool isAuthentic(const QByteArray& page, quint32 number, QCryptographicHash::Algorithm algorithm,
                 const QByteArray& key) {
  const qsizetype codeSize = QCryptographicHash::hashLength(algorithm);
  const qsizetype reserved = (vectorSize + codeSize + cipherBlock - 1) / cipherBlock * cipherBlock;
  const qsizetype signedEnd = page.size() - reserved + vectorSize;
  QMessageAuthenticationCode code(algorithm, key);
  const qsizetype signedFrom = number == 1 ? saltSize : 0;
  code.addData(page.sliced(signedFrom, signedEnd - signedFrom));
  const quint32 littleEndian = qToLittleEndian(number);
  code.addData(QByteArray(reinterpret_cast<const char*>(&littleEndian), sizeof littleEndian));
  return code.result() == page.sliced(signedEnd, codeSize);
}

bool isUnderOurKey(const QByteArray& beginning) {
  using enum QCryptographicHash::Algorithm;
  for (const auto algorithm : {Sha1, Sha256, Sha512}) {
    const QByteArray key = authenticationKey(algorithm, beginning.left(saltSize));
    for (qsizetype size = 512; size <= beginning.size(); size *= 2) {
      if (isAuthentic(beginning.left(size), 1, algorithm, key))
        return true;
    }
  }
  return false;
}

} // namespace

QString key() {
  return u"\"x'" + QString::fromLatin1(rawKey().toHex()) + u"'\"";
}

QStringList parameters(QStringView schema) {
  QStringList statements = {
      u"cipher_page_size = 1024"_s,
      u"cipher_use_hmac = ON"_s,
      u"cipher_hmac_algorithm = HMAC_SHA1"_s,
      u"cipher_kdf_algorithm = PBKDF2_HMAC_SHA1"_s,
      // A raw key is not derived; the number counts all the same where a file is compared with it.
      u"kdf_iter = 64000"_s,
      u"cipher_plaintext_header_size = 0"_s,
  };
  for (QString& statement : statements)
    statement = u"PRAGMA " + schema + u'.' + statement;
  return statements;
}

bool isDatabaseOfAnotherFormat(const QString& path) {
  QFile file(path);
  return replaceable(path) == FileFault::None && file.open(QIODevice::ReadOnly) &&
         isDatabase(file.read(largestPage));
}

bool isUndamaged(const QByteArray& file) {
  constexpr qsizetype pageSize = 1024;
  const QByteArray key = authenticationKey(QCryptographicHash::Sha1, file.left(saltSize));
  quint32 number = 0;
  for (qsizetype at = 0; at < file.size(); at += pageSize) {
    const QByteArray page =
        QByteArray::fromRawData(file.constData() + at, std::min(pageSize, file.size() - at));
    if (page.size() < pageSize || !isAuthentic(page, ++number, QCryptographicHash::Sha1, key))
      return false;
  }
  return number > 0;
}

bool isDatabase(const QByteArray& beginning) {
  return beginning.startsWith(QByteArrayView("SQLite format 3\0", 16)) ||
         isUnderOurKey(beginning.first(std::min(beginning.size(), largestPage)));
}

} // namespace soran::cipher
