// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Signs releases: makes a pair of keys, signs files, and checks signatures (Ed25519, RFC 8032).

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <sodium.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;

using Seed = std::array<unsigned char, crypto_sign_SEEDBYTES>;
using PublicKey = std::array<unsigned char, crypto_sign_PUBLICKEYBYTES>;
using SecretKey = std::array<unsigned char, crypto_sign_SECRETKEYBYTES>;
using Signature = std::array<unsigned char, crypto_sign_BYTES>;
using Bytes = std::vector<unsigned char>;

constexpr int failed = 1;
constexpr int badArguments = 2;

int fail(const std::string& why) {
  std::fprintf(stderr, "soran-sign: %s\n", why.c_str());
  return failed;
}

template <class Array>
std::string hexOf(const Array& bytes) {
  std::string text(bytes.size() * 2 + 1, '\0');
  sodium_bin2hex(text.data(), text.size(), bytes.data(), bytes.size());
  text.pop_back();
  return text;
}

std::optional<Bytes> readFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file)
    return std::nullopt;
  return Bytes(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

/// Reads a key that stands in a file as hexadecimal digits.
template <class Array>
bool readKey(const fs::path& path, Array& key) {
  const std::optional<Bytes> text = readFile(path);
  size_t length = 0;
  return text &&
         sodium_hex2bin(key.data(), key.size(), reinterpret_cast<const char*>(text->data()), text->size(),
                        " \r\n", &length, nullptr) == 0 &&
         length == key.size();
}

/// Writes a file that must not exist yet.
bool writeNew(const fs::path& path, const std::string& text, mode_t mode) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
  if (file < 0)
    return false;
  const bool written = ::write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
  return ::close(file) == 0 && written;
}

bool liesInRepository(const fs::path& file) {
  std::error_code ignored;
  for (fs::path folder = fs::weakly_canonical(fs::absolute(file)).parent_path();;
       folder = folder.parent_path()) {
    if (fs::exists(folder / ".git", ignored))
      return true;
    if (folder == folder.parent_path())
      return false;
  }
}

int makeKeys(const fs::path& base) {
  const fs::path secretPath = base.string() + ".key";
  const fs::path publicPath = base.string() + ".pub";
  if (liesInRepository(secretPath))
    return fail("a private key does not belong in a repository: " + secretPath.string());
  Seed seed;
  PublicKey publicKey;
  SecretKey secretKey;
  randombytes_buf(seed.data(), seed.size());
  crypto_sign_seed_keypair(publicKey.data(), secretKey.data(), seed.data());
  constexpr mode_t ownerOnly = 0600;
  constexpr mode_t everyone = 0644;
  if (!writeNew(secretPath, hexOf(seed) + "\n", ownerOnly) ||
      !writeNew(publicPath, hexOf(publicKey) + "\n", everyone))
    return fail("cannot write the keys: " + std::string(std::strerror(errno)));
  std::printf("%s\n", hexOf(publicKey).c_str());
  return 0;
}

int signFiles(const fs::path& key, const std::vector<fs::path>& files) {
  Seed seed;
  if (!readKey(key, seed))
    return fail("no private key in " + key.string());
  PublicKey publicKey;
  SecretKey secretKey;
  crypto_sign_seed_keypair(publicKey.data(), secretKey.data(), seed.data());
  for (const fs::path& path : files) {
    const std::optional<Bytes> bytes = readFile(path);
    if (!bytes)
      return fail("cannot read " + path.string());
    Signature signature;
    crypto_sign_detached(signature.data(), nullptr, bytes->data(), bytes->size(), secretKey.data());
    std::ofstream out(path.string() + ".sig", std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(signature.data()), std::streamsize(signature.size()));
    out.close();
    if (!out)
      return fail("cannot write the signature of " + path.string());
  }
  return 0;
}

int verifyFiles(const fs::path& key, const std::vector<fs::path>& files) {
  PublicKey publicKey;
  if (!readKey(key, publicKey))
    return fail("no public key in " + key.string());
  for (const fs::path& path : files) {
    const std::optional<Bytes> bytes = readFile(path);
    const std::optional<Bytes> signature = readFile(path.string() + ".sig");
    if (!bytes || !signature || signature->size() != crypto_sign_BYTES ||
        crypto_sign_verify_detached(signature->data(), bytes->data(), bytes->size(), publicKey.data()) != 0)
      return fail("no good signature: " + path.string());
  }
  return 0;
}

} // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> words(argv + 1, argv + argc);
  if (sodium_init() < 0)
    return fail("no random numbers");
  const auto files = [&words] { return std::vector<fs::path>(words.begin() + 2, words.end()); };
  if (words.size() == 2 && words[0] == "keygen")
    return makeKeys(words[1]);
  if (words.size() > 2 && words[0] == "sign")
    return signFiles(words[1], files());
  if (words.size() > 2 && words[0] == "verify")
    return verifyFiles(words[1], files());
  std::fputs("soran-sign keygen NAME           makes NAME.key (private) and NAME.pub\n"
             "soran-sign sign KEY FILE...      writes FILE.sig\n"
             "soran-sign verify PUB FILE...    checks FILE.sig\n",
             stderr);
  return badArguments;
}
