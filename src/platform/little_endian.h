#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace platform {

/// Numbers of binary files, whatever the machine's own byte order.

/// The number at `offset`; the caller has checked that its bytes are there.
template <std::integral Number>
Number ReadLittle(std::span<const std::byte> bytes, std::size_t offset) {
  std::uint64_t value = 0;
  for (std::size_t i = sizeof(Number); i-- > 0;) {
    value = (value << 8U) | std::to_integer<std::uint64_t>(bytes[offset + i]);
  }
  return static_cast<Number>(value);
}

template <std::integral Number>
void AppendLittle(std::vector<std::byte>& bytes, Number number) {
  auto value = static_cast<std::uint64_t>(number);
  for (std::size_t i = 0; i < sizeof(Number); ++i, value >>= 8U) {
    bytes.push_back(static_cast<std::byte>(value & 0xFFU));
  }
}

}  // namespace platform
