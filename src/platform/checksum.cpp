#include "platform/checksum.h"

#include <openssl/evp.h>

#include <array>

namespace platform {

std::string Sha256(std::span<const std::byte> bytes) {
  std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
  unsigned length = 0;
  if (EVP_Digest(bytes.data(), bytes.size(), digest.data(), &length, EVP_sha256(), nullptr) != 1) {
    return {};
  }
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  for (unsigned i = 0; i < length; ++i) {
    text += kDigits[digest[i] >> 4U];
    text += kDigits[digest[i] & 0xFU];
  }
  return text;
}

}  // namespace platform
