#include "utl/Digest.h"

#include <openssl/evp.h>

#include "utl/Exception.h"

namespace vx3 {

std::string Sha256(std::string_view bytes) {
  unsigned char digest[EVP_MAX_MD_SIZE];
  unsigned int length = 0;
  if (EVP_Digest(bytes.data(), bytes.size(), digest, &length, EVP_sha256(), nullptr) != 1)
    throw Exception(ExceptionMessage::translate("The SHA-256 digest could not be computed."));
  return std::string(reinterpret_cast<char const *>(digest), length);
}

std::string ToHex(std::string_view bytes) {
  static char const kDigits[] = "0123456789abcdef";
  std::string text;
  text.reserve(bytes.size() * 2);
  for (char const c : bytes) {
    auto const byte = static_cast<unsigned char>(c);
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

bool FromHex(std::string_view text, std::string & bytes) {
  auto const value = [](char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
  };
  if (text.size() % 2 != 0) return false;
  std::string decoded;
  decoded.reserve(text.size() / 2);
  for (size_t i = 0; i < text.size(); i += 2) {
    int const high = value(text[i]);
    int const low = value(text[i + 1]);
    if (high < 0 || low < 0) return false;
    decoded += static_cast<char>(high * 16 + low);
  }
  bytes.swap(decoded);
  return true;
}

}  // namespace vx3
