#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace platform {

/// SHA-256 in lower-case hexadecimal digits, as sha256sum prints it.
std::string Sha256(std::span<const std::byte> bytes);

}  // namespace platform
