#include "platform/random.h"

#include <chrono>

namespace platform {
namespace {

/// Odd, so that its multiples run through all numbers of 64 bits before one comes again.
constexpr std::uint64_t kStride = 0x9E3779B97F4A7C15U;

}  // namespace

std::uint64_t ClockSeed::Next() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint64_t>(now.count()) + kStride * ++calls_;
}

}  // namespace platform
