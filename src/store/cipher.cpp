// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/cipher.h"

#include <QCryptographicHash>
#include <QFile>
#include <QMessageAuthenticationCode>
#include <QPasswordDigestor>
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
  return QPasswordDigestor::deriveKeyPbkdf2(algorithm, rawKey(), salt, 2, 32);
}

/// Whether a first page carries the code that `key` gives: salt, encrypted text, vector, code, filling.
bool isAuthentic(const QByteArray& page, QCryptographicHash::Algorithm algorithm, const QByteArray& key) {
  const qsizetype codeSize = QCryptographicHash::hashLength(algorithm);
  const qsizetype reserved = (vectorSize + codeSize + cipherBlock - 1) / cipherBlock * cipherBlock;
  const qsizetype signedEnd = page.size() - reserved + vectorSize;
  QMessageAuthenticationCode code(algorithm, key);
  code.addData(page.sliced(saltSize, signedEnd - saltSize));
  code.addData(QByteArray("\x01\x00\x00\x00", 4)); // the page's number
  return code.result() == page.sliced(signedEnd, codeSize);
}

bool isUnderOurKey(const QByteArray& beginning) {
  using enum QCryptographicHash::Algorithm;
  for (const auto algorithm : {Sha1, Sha256, Sha512}) {
    const QByteArray key = authenticationKey(algorithm, beginning.left(saltSize));
    for (qsizetype size = 512; size <= beginning.size(); size *= 2) {
      if (isAuthentic(beginning.left(size), algorithm, key))
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
  return file.open(QIODevice::ReadOnly) && isDatabase(file.read(largestPage));
}

bool isDatabase(const QByteArray& beginning) {
  return beginning.startsWith(QByteArrayView("SQLite format 3\0", 16)) ||
         isUnderOurKey(beginning.first(std::min(beginning.size(), largestPage)));
}

} // namespace soran::cipher
